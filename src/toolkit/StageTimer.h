// One-shot timers whose interval is the stage of a piece of work, and the hold under which none of them fires.
//
// A long action is not performed in a click handler: each press is turned into stages by timers, so that a status text
// paints before a blocking send. A handler keeps no stage variable: the Interval of its own timer is the stage.
#pragma once

#include <QTimer>
#include <functional>

class StageTimer final : public QTimer
{
public:
    static constexpr int Rest = 10; ///< the rest value

    /// Creates it disabled, at rest, with its object name.
    StageTimer(QObject* parent, const QString& name);
    ~StageTimer() override;

    /// What the tick runs, in a fresh event. The timer is disabled when it runs.
    void onTick(std::function<void()> handler) { handler_ = std::move(handler); }

    int Interval() const { return stage_; }
    /// Readable and writable while idle; written while the timer runs, it counts for the next start.
    void setStage(int stage) { stage_ = stage; }
    /// Starts the timer for Interval milliseconds; a timer already running is left alone.
    void enable();
    /// Stops it; what fell due during a hold is forgotten too.
    void disable();
    /// Running, or fallen due during a hold and not yet fired.
    bool enabled() const { return isActive() || waiting_; }

    /// Scales all intervals of the process; tests make them short. 1 is real time.
    static void setTimeScale(double factor);

private:
    void due();
    void tick();
    static void scheduleWaiting();
    static void fireWaiting();

    std::function<void()> handler_;
    int stage_ = Rest;
    bool waiting_ = false; ///< fell due during a hold
    friend class EventHold;
};

/// While one stands, no stage timer fires: a send, an open message box, an open file dialog. What fell due fires
/// afterwards, in the order in which it fell due. Input::Discarded also throws away the user's input that slips through
/// the event loop during a send.
class EventHold
{
public:
    enum class Input { Delivered, Discarded };
    explicit EventHold(Input input = Input::Delivered);
    ~EventHold();
    EventHold(const EventHold&) = delete;
    EventHold& operator=(const EventHold&) = delete;

    static bool active();

private:
    Input input_;
};
