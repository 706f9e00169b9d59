// From the press of a mouse button on a row to the last byte handed to the MIDI service: the whole click inside the
// whole program, with the automatic loads checked and nothing left to load. Prints median, 99th of a hundred and worst;
// with "judge" it fails when the median is more than the target. It always fails where a click selects nothing.
//
//   bench_click_to_wire [CLICKS [judge]]
#include "bench/WholeProgram.h"
#include "core/Dichiarazioni.h"
#include "core/Shell.h"

#include <QApplication>
#include <QListWidget>
#include <QMouseEvent>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

namespace
{

using Clock = std::chrono::steady_clock;

constexpr int ArrKind = 1;
constexpr int MessagesOfASelection = 3;
constexpr double TargetMicroseconds = 150;
// Two rows of the sample song that play user styles.
constexpr int FirstRow = 2;
constexpr int SecondRow = 3;

QListWidget* list()
{
    for (QWidget* window : QApplication::topLevelWidgets())
        if (auto* found = window->findChild<QListWidget*>(QStringLiteral("List1")))
            return found;
    return nullptr;
}

void send(QWidget* target, QEvent::Type type, QPoint place)
{
    const bool press = type == QEvent::MouseButtonPress;
    QMouseEvent event(type, place, target->mapToGlobal(QPointF(place)), Qt::LeftButton,
                      press ? Qt::LeftButton : Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(target, &event);
}

/// False when the selection does not come within 20 seconds.
bool waitForSelections(const SilentService& service, int messages)
{
    const Clock::time_point end = Clock::now() + std::chrono::seconds(20);
    while (service.shortMessages < messages) {
        if (Clock::now() > end)
            return false;
        QApplication::processEvents();
    }
    return true;
}

/// Microseconds from the press to the last byte of the selection; below 0 when none comes.
double timeOfClick(const SilentService& service, int row)
{
    QListWidget* rows = list();
    const QPoint place = rows->visualItemRect(rows->item(row)).center();
    const int messages = service.shortMessages + MessagesOfASelection;
    const Clock::time_point press = Clock::now();
    send(rows->viewport(), QEvent::MouseButtonPress, place);
    send(rows->viewport(), QEvent::MouseButtonRelease, place);
    if (!waitForSelections(service, messages))
        return -1;
    const std::chrono::duration<double, std::micro> time = service.lastByte - press;
    QApplication::processEvents();
    return time.count();
}

int measure(const SilentService& service, int clicks, bool judge)
{
    App.shell->openPath(samples() + "/song.arr", ArrKind, false);
    QApplication::processEvents();
    if (!list() || list()->count() != 64)
        return std::fprintf(stderr, "the sample song does not open\n"), 1;
    // The first click loads arrangements and styles; the load's own selection comes before the click's.
    if (timeOfClick(service, FirstRow) < 0 || !waitForSelections(service, 2 * MessagesOfASelection) ||
        service.longMessages < 6)
        return std::fprintf(stderr, "the sample song is not loaded\n"), 1;

    const int longBefore = service.longMessages;
    std::vector<double> times;
    for (int click = 0; click < clicks; ++click) {
        times.push_back(timeOfClick(service, click % 2 == 0 ? SecondRow : FirstRow));
        if (times.back() < 0)
            return std::fprintf(stderr, "a click selects nothing\n"), 1;
        if (service.longMessages != longBefore)
            return std::fprintf(stderr, "a click loaded something again\n"), 1;
    }
    std::sort(times.begin(), times.end());
    const double median = times[times.size() / 2];
    std::printf(
        "click to wire: median %.0f us, 99 %% %.0f us, worst %.0f us of %d clicks (target: median at most %.0f us)\n",
        median, times[times.size() * 99 / 100], times.back(), clicks, TargetMicroseconds);
    return judge && median > TargetMicroseconds ? 1 : 0;
}

} // namespace

int main(int argc, char** argv)
{
    const int clicks = argc > 1 ? std::atoi(argv[1]) : 2000;
    const bool judge = argc > 2 && std::string(argv[2]) == "judge";
    if (clicks < 1)
        return 2;
    beginOffscreenHome(true);
    SilentService service;
    return runInside(service, [&] { return measure(service, clicks, judge); });
}
