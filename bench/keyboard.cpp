// The drawn keyboard inside the whole program: from the press of a mouse button on a key to its note handed to the MIDI
// service, and how long the painting of one key and of all takes. Prints medians and worst; with "judge" it fails when
// the median of the press is a millisecond or more, or in a run of ten thousand presses the worst is five. It always
// fails where a press sends nothing.
//
//   bench_keyboard [PRESSES [judge]]
#include "bench/WholeProgram.h"
#include "core/Dichiarazioni.h"
#include "core/Shell.h"

#include <QApplication>
#include <QMouseEvent>
#include <QWidget>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

namespace
{

using Clock = std::chrono::steady_clock;
using Microseconds = std::chrono::duration<double, std::micro>;

constexpr int Keys = 61;
constexpr int FullRun = 10000;
constexpr int Paintings = 300;
constexpr double MedianTarget = 1000; // microseconds
constexpr double WorstTarget = 5000;

QWidget* control(const QString& name)
{
    for (QWidget* window : QApplication::topLevelWidgets())
        if (auto* found = window->findChild<QWidget*>(name))
            return found;
    return nullptr;
}

void send(QWidget* target, QEvent::Type type)
{
    const QPointF place(target->width() / 2.0, target->height() * 0.9);
    const bool press = type == QEvent::MouseButtonPress;
    QMouseEvent event(type, place, target->mapToGlobal(place), Qt::LeftButton, press ? Qt::LeftButton : Qt::NoButton,
                      Qt::NoModifier);
    QApplication::sendEvent(target, &event);
}

struct Times {
    double median;
    double worst;
};

Times timesOf(std::vector<double>& times)
{
    std::sort(times.begin(), times.end());
    return {times[times.size() / 2], times.back()};
}

/// Each press is followed by its release and its painting, as when played by hand. False when a press sends nothing.
bool press(const SilentService& service, const std::vector<QWidget*>& keys, int presses, std::vector<double>& times)
{
    for (int count = 0; count < presses; ++count) {
        QWidget* key = keys[static_cast<std::size_t>(count * 7 % Keys)];
        const int before = service.shortMessages;
        const Clock::time_point start = Clock::now();
        send(key, QEvent::MouseButtonPress);
        if (service.shortMessages != before + 1)
            return false;
        times.push_back(Microseconds(service.lastByte - start).count());
        send(key, QEvent::MouseButtonRelease);
        QApplication::processEvents();
    }
    return true;
}

/// From asking for the painting of these keys to their standing in the window's picture.
Times paint(const std::vector<QWidget*>& keys)
{
    std::vector<double> times;
    for (int count = 0; count < Paintings; ++count) {
        const Clock::time_point start = Clock::now();
        for (QWidget* key : keys)
            key->update();
        QApplication::processEvents();
        times.push_back(Microseconds(Clock::now() - start).count());
    }
    return timesOf(times);
}

int measure(const SilentService& service, int presses, bool judge)
{
    App.shell->showWindow(WindowKind::Keyboard, 0);
    QApplication::processEvents();
    std::vector<QWidget*> keys;
    for (int index = 0; index < Keys; ++index)
        keys.push_back(control(QStringLiteral("Key(%1)").arg(index)));
    if (std::count(keys.begin(), keys.end(), nullptr) != 0)
        return std::fprintf(stderr, "the keyboard does not open\n"), 1;

    std::vector<double> times;
    if (!press(service, keys, presses, times))
        return std::fprintf(stderr, "a press sends nothing\n"), 1;
    const Times toWire = timesOf(times);
    std::printf("press to note on: median %.1f us, worst %.1f us of %d presses (target: median < %.0f us, worst of "
                "%d < %.0f us)\n",
                toWire.median, toWire.worst, presses, MedianTarget, FullRun, WorstTarget);
    const Times one = paint({keys.front()});
    const Times all = paint(keys);
    std::printf("repaint: one key median %.0f us, worst %.0f us; all keys median %.0f us, worst %.0f us\n", one.median,
                one.worst, all.median, all.worst);
    const bool quick = toWire.median < MedianTarget && (presses < FullRun || toWire.worst < WorstTarget);
    return judge && !quick ? 1 : 0;
}

} // namespace

int main(int argc, char** argv)
{
    const int presses = argc > 1 ? std::atoi(argv[1]) : FullRun;
    const bool judge = argc > 2 && std::string(argv[2]) == "judge";
    if (presses < 1)
        return 2;
    beginOffscreenHome();
    SilentService service;
    return runInside(service, [&] { return measure(service, presses, judge); });
}
