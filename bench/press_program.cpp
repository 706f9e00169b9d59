// The whole program with its keyboard window open, over a MIDI service that tells each message to a FIFO: what
// bench_press_to_wire presses.
#include "bench/WholeProgram.h"
#include "bench/WireRecord.h"
#include "core/Dichiarazioni.h"
#include "core/Shell.h"
#include "shell/QtProgram.h"

#include <QApplication>
#include <QEvent>
#include <QTimer>
#include <QWidget>
#include <cstdio>
#include <cstdlib>

namespace
{

constexpr int ShownAfter = 1000; ///< milliseconds until the window manager has placed everything

class TellingService final : public SilentService
{
public:
    bool doubleClick = false; ///< a double click is under way
    int wire = -1;

    int midiOutShortMsg(std::int32_t, std::uint32_t message) override
    {
        WireRecord record;
        record.kind = WireRecord::Message;
        record.doubleClick = doubleClick ? 1 : 0;
        record.status = static_cast<std::uint16_t>(message & 0xF0U);
        tellWire(wire, record);
        return MidiResult::Done;
    }
};

/// Knows which press comes as a double click; touches no event.
class DoubleClicks final : public QObject
{
public:
    explicit DoubleClicks(TellingService& service) : service_(service) { qApp->installEventFilter(this); }

    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonDblClick)
            service_.doubleClick = event->type() == QEvent::MouseButtonDblClick;
        return false;
    }

private:
    TellingService& service_;
};

void tellPlaceOfKey(int wire)
{
    for (QWidget* window : QApplication::topLevelWidgets())
        if (const auto* key = window->findChild<QWidget*>(QStringLiteral("Key(24)"))) {
            const QPoint place = key->mapToGlobal(QPoint(key->width() / 2, key->height() * 9 / 10));
            WireRecord record;
            record.kind = WireRecord::Place;
            record.x = static_cast<std::int16_t>(place.x());
            record.y = static_cast<std::int16_t>(place.y());
            tellWire(wire, record);
            return;
        }
    std::fprintf(stderr, "the keyboard does not open\n");
    std::_Exit(1);
}

} // namespace

int main(int argc, char** argv)
{
    TellingService service;
    service.wire = wireOfEnvironment();
    const char* home = std::getenv("XDG_DATA_HOME");
    if (service.wire < 0 || !home) {
        std::fprintf(stderr, "usage: TARVOLYNE_BENCH_WIRE=FIFO XDG_DATA_HOME=FOLDER bench_press_program\n");
        return 2;
    }
    beginHome(home);
    std::unique_ptr<DoubleClicks> watch;
    return runProgram(argc, argv, service, [&](const QWidget&) {
        watch = std::make_unique<DoubleClicks>(service);
        QTimer::singleShot(0, [&] {
            App.shell->showWindow(WindowKind::Keyboard, 0);
            QTimer::singleShot(ShownAfter, [&] { tellPlaceOfKey(service.wire); });
        });
        return std::unique_ptr<QWidget>();
    });
}
