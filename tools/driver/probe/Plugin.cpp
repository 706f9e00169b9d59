// The probe: a plug-in that Qt loads into a program whose environment names it, which answers on a socket what the
// program shows. The program itself knows nothing of it.
//
//   QT_QPA_GENERIC_PLUGINS=tvlprobe QT_PLUGIN_PATH=<folder of generic/tvlprobe.so> TVLPROBE_SOCKET=<path>
//
// A request is one line of words parted by tabs; an answer is its lines and a line with a single point. Line breaks
// inside a text travel as U+2028.
#include "driver/probe/Answers.h"

#include <QApplication>
#include <QGenericPlugin>
#include <QSocketNotifier>
#include <QTimer>

#include <cstdlib>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>
#include <xcb/xcb.h>

namespace
{

class ProbeServer : public QObject
{
public:
    explicit ProbeServer(const QByteArray& path)
    {
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        if (path.isEmpty() || static_cast<std::size_t>(path.size()) >= sizeof address.sun_path)
            return;
        std::copy(path.begin(), path.end(), address.sun_path);
        listening_ = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
        if (bind(listening_, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0 ||
            listen(listening_, 1) != 0)
            return;
        auto* notifier = new QSocketNotifier(listening_, QSocketNotifier::Read, this);
        connect(notifier, &QSocketNotifier::activated, this, [this] { welcome(); });
    }
    ~ProbeServer() override
    {
        close(connection_);
        close(listening_);
    }

private:
    void welcome()
    {
        connection_ = accept4(listening_, nullptr, nullptr, SOCK_CLOEXEC);
        auto* notifier = new QSocketNotifier(connection_, QSocketNotifier::Read, this);
        connect(notifier, &QSocketNotifier::activated, this, [this, notifier] { hear(notifier); });
    }

    void hear(QSocketNotifier* notifier)
    {
        char piece[4096];
        const ssize_t count = read(connection_, piece, sizeof piece);
        if (count <= 0) {
            notifier->setEnabled(false);
            notifier->deleteLater();
            return;
        }
        heard_.append(piece, count);
        for (qsizetype end = heard_.indexOf('\n'); end >= 0; end = heard_.indexOf('\n')) {
            const QStringList words = QString::fromUtf8(heard_.left(end)).split(QLatin1Char('\t'));
            heard_.remove(0, end + 1);
            if (words.value(0) == QLatin1String("idle"))
                replyWhenIdle();
            else
                reply(answer(words));
        }
    }

    /// Behind all that the display has sent until now, and behind what that posts in its turn.
    void replyWhenIdle()
    {
        if (auto* x11 = qApp->nativeInterface<QNativeInterface::QX11Application>())
            std::free(xcb_get_input_focus_reply(x11->connection(), xcb_get_input_focus(x11->connection()), nullptr));
        // Qt's reader thread hands the events over in these milliseconds.
        QTimer::singleShot(10, this, [this] { QTimer::singleShot(0, this, [this] { reply({}); }); });
    }

    void reply(const QStringList& lines) const
    {
        QByteArray bytes;
        for (QString line : lines)
            bytes += line.replace(QLatin1Char('\n'), QChar(0x2028)).toUtf8() + '\n';
        bytes += ".\n";
        for (qsizetype sent = 0; sent < bytes.size();) {
            const ssize_t count = send(connection_, bytes.constData() + sent,
                                       static_cast<std::size_t>(bytes.size() - sent), MSG_NOSIGNAL);
            if (count <= 0)
                return;
            sent += count;
        }
    }

    int listening_ = -1;
    int connection_ = -1;
    QByteArray heard_;
};

} // namespace

class ProbePlugin : public QGenericPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "tvlprobe.json")

public:
    QObject* create(const QString&, const QString&) override { return new ProbeServer(qgetenv("TVLPROBE_SOCKET")); }
};

#include "Plugin.moc"
