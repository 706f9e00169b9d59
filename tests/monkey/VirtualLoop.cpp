// The turn of the loop is that of the toolkit's own: posted events, the window system's, timers that are due.
#include "monkey/VirtualLoop.h"

#include <QCoreApplication>
#include <QEvent>
#include <QTimerEvent>
#include <algorithm>

/// The queue between window system and program. Its header is not among those that are installed.
class QWindowSystemInterface
{
public:
    static bool sendWindowSystemEvents(QEventLoop::ProcessEventsFlags flags);
};

namespace
{

/// What the user does happens inside an event, as all input does: the toolkit deletes what is to be deleted later by
/// the depth of events.
class Moment final : public QObject
{
public:
    explicit Moment(const std::function<void()>& work) : work_(work) {}
    bool event(QEvent*) override
    {
        work_();
        return true;
    }

private:
    const std::function<void()>& work_;
};

} // namespace

bool VirtualLoop::processEvents(QEventLoop::ProcessEventsFlags flags)
{
    constexpr int MostTurns = 200; // a program that never comes to rest is pressed all the same
    interrupted_ = false;
    bool did = woken_.exchange(false);
    QCoreApplication::sendPostedEvents();
    did = QWindowSystemInterface::sendWindowSystemEvents(flags) || did;
    if (!(flags & QEventLoop::X11ExcludeTimers))
        did = fireDue() || did;
    ++turnsSinceIdle_;
    if (flags.testFlag(QEventLoop::WaitForMoreEvents) && !interrupted_ && (!did || turnsSinceIdle_ > MostTurns)) {
        beIdle();
        did = true;
    }
    return did;
}

void VirtualLoop::beIdle()
{
    turnsSinceIdle_ = 0;
    if (!onIdle)
        return;
    Moment moment(onIdle);
    QEvent event(QEvent::User);
    QCoreApplication::sendEvent(&moment, &event);
}

bool VirtualLoop::fireDue()
{
    std::vector<int> due;
    std::vector<Timer> sorted = timers_;
    std::stable_sort(sorted.begin(), sorted.end(), [](const Timer& a, const Timer& b) { return a.due < b.due; });
    for (const Timer& timer : sorted)
        if (timer.due <= now_ && !timer.firing)
            due.push_back(timer.id);
    for (const int id : due) {
        Timer* timer = find(id);
        if (!timer || timer->due > now_ || timer->firing)
            continue;
        timer->due = now_ + std::max<qint64>(timer->interval, 1);
        timer->firing = true;
        QTimerEvent event(id);
        QCoreApplication::sendEvent(timer->object, &event);
        if (Timer* after = find(id))
            after->firing = false;
    }
    return !due.empty();
}

VirtualLoop::Timer* VirtualLoop::find(int id)
{
    const auto found = std::find_if(timers_.begin(), timers_.end(), [id](const Timer& one) { return one.id == id; });
    return found == timers_.end() ? nullptr : &*found;
}

void VirtualLoop::registerTimer(int timerId, qint64 interval, Qt::TimerType timerType, QObject* object)
{
    timers_.push_back({timerId, interval, now_ + interval, timerType, object, false});
}

bool VirtualLoop::unregisterTimer(int timerId)
{
    return std::erase_if(timers_, [timerId](const Timer& one) { return one.id == timerId; }) > 0;
}

bool VirtualLoop::unregisterTimers(QObject* object)
{
    return std::erase_if(timers_, [object](const Timer& one) { return one.object == object; }) > 0;
}

QList<QAbstractEventDispatcher::TimerInfo> VirtualLoop::registeredTimers(QObject* object) const
{
    QList<TimerInfo> infos;
    for (const Timer& one : timers_)
        if (one.object == object)
            infos.append(TimerInfo(one.id, static_cast<int>(one.interval), one.type));
    return infos;
}

int VirtualLoop::remainingTime(int timerId)
{
    const Timer* timer = find(timerId);
    return timer ? static_cast<int>(std::max<qint64>(timer->due - now_, 0)) : -1;
}
