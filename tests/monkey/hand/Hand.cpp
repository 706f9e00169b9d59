// A hand inside the real program: a plug-in that Qt loads where the environment names it. It writes into the file
// TVLHAND_LOG what it sees, one line each ("main" for the main window, "box" and the text for a message), and closes or
// confirms what stands there once the file TVLHAND_GO exists. The program knows nothing of it.
//
//   QT_QPA_GENERIC_PLUGINS=tvlhand QT_PLUGIN_PATH=<folder of generic/tvlhand.so>
#include <QApplication>
#include <QGenericPlugin>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <cstdio>
#include <unistd.h>

namespace
{

class HandOnProgram : public QTimer
{
public:
    HandOnProgram()
    {
        constexpr int LookEvery = 5; // milliseconds
        callOnTimeout(this, [this] { look(); });
        start(LookEvery);
    }

private:
    void write(const QString& line)
    {
        if (line == last_)
            return;
        last_ = line;
        if (std::FILE* log = std::fopen(qgetenv("TVLHAND_LOG").constData(), "a")) {
            std::fprintf(log, "%s\n", qPrintable(line));
            std::fclose(log);
        }
    }
    void look()
    {
        const bool go = access(qgetenv("TVLHAND_GO").constData(), F_OK) == 0;
        if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
            write(QStringLiteral("box ") + box->text());
            if (go)
                box->close();
            return;
        }
        for (QWidget* window : QApplication::topLevelWidgets()) {
            if (window->objectName() != QLatin1String("frmMain") || !window->isVisible())
                continue;
            write(QStringLiteral("main"));
            if (go) {
                window->close();
                return;
            }
        }
    }

    QString last_;
};

} // namespace

class HandPlugin : public QGenericPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "tvlhand.json")

public:
    QObject* create(const QString&, const QString&) override { return new HandOnProgram; }
};

#include "Hand.moc"
