// An event loop in a time of its own: timers fall due as the clock is moved, nothing ever sleeps, and the same moves
// give the same order of events. What acts as the user is called whenever the program has nothing left to do.
#pragma once

#include <QAbstractEventDispatcher>
#include <atomic>
#include <functional>
#include <vector>

class VirtualLoop final : public QAbstractEventDispatcher
{
public:
    /// Called in an event of its own when the program waits, in nested loops too.
    std::function<void()> onIdle;
    /// Moves the clock; timers fire at the loop's next turns.
    void pass(int milliseconds) { now_ += milliseconds; }
    [[nodiscard]] qint64 now() const { return now_; } ///< milliseconds since the loop was made

    bool processEvents(QEventLoop::ProcessEventsFlags flags) override;
    void registerSocketNotifier(QSocketNotifier*) override {}
    void unregisterSocketNotifier(QSocketNotifier*) override {}
    void registerTimer(int timerId, qint64 interval, Qt::TimerType timerType, QObject* object) override;
    bool unregisterTimer(int timerId) override;
    bool unregisterTimers(QObject* object) override;
    QList<TimerInfo> registeredTimers(QObject* object) const override;
    int remainingTime(int timerId) override;
    void wakeUp() override { woken_ = true; }
    void interrupt() override { interrupted_ = true; }

private:
    struct Timer {
        int id;
        qint64 interval;
        qint64 due;
        Qt::TimerType type;
        QObject* object;
        bool firing;
    };
    Timer* find(int id);
    bool fireDue();
    void beIdle();

    std::vector<Timer> timers_;
    qint64 now_ = 0;
    int turnsSinceIdle_ = 0;
    std::atomic<bool> woken_{false};
    std::atomic<bool> interrupted_{false};
};
