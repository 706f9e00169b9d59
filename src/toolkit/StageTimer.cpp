// The tick of a stage timer, and the queue of those that fell due while a hold stood. The queue is emptied one timer
// per event, so that each tick is a fresh event of its own, and a hold that begins in between stops it again.
#include "toolkit/StageTimer.h"

#include <QCoreApplication>
#include <QEvent>
#include <QMetaObject>
#include <algorithm>
#include <cmath>
#include <deque>

namespace
{

double timeScale = 1.0;
int holds = 0;
int discardingHolds = 0;
bool firingPosted = false;

std::deque<StageTimer*>& waitingTimers()
{
    static std::deque<StageTimer*> timers;
    return timers;
}

bool isUserInput(QEvent::Type type)
{
    switch (type) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::Wheel:
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::Shortcut:
    case QEvent::ShortcutOverride:
    case QEvent::ContextMenu:
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    case QEvent::TabletPress:
    case QEvent::TabletMove:
    case QEvent::TabletRelease:
    case QEvent::InputMethod:
        return true;
    default:
        return false;
    }
}

/// Throws away the input of the user while a send is going on.
class InputGuard final : public QObject
{
public:
    using QObject::QObject;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (discardingHolds == 0)
            return QObject::eventFilter(watched, event);
        if (event->type() == QEvent::Close && event->spontaneous()) {
            event->ignore();
            return true;
        }
        return isUserInput(event->type());
    }
};

void installInputGuard()
{
    static QObject* guarded = nullptr;
    QCoreApplication* application = QCoreApplication::instance();
    if (!application || guarded == application)
        return;
    application->installEventFilter(new InputGuard(application));
    guarded = application;
}

} // namespace

StageTimer::StageTimer(QObject* parent, const QString& name) : QTimer(parent)
{
    setObjectName(name);
    setSingleShot(true);
    setTimerType(Qt::PreciseTimer);
    connect(this, &QTimer::timeout, this, [this] { due(); });
}

StageTimer::~StageTimer() { disable(); }

void StageTimer::setTimeScale(double factor) { timeScale = factor; }

void StageTimer::enable()
{
    if (!enabled())
        start(static_cast<int>(std::lround(stage_ * timeScale)));
}

void StageTimer::disable()
{
    stop();
    if (!waiting_)
        return;
    waiting_ = false;
    auto& timers = waitingTimers();
    timers.erase(std::remove(timers.begin(), timers.end(), this), timers.end());
}

void StageTimer::due()
{
    if (!EventHold::active() && waitingTimers().empty()) {
        tick();
        return;
    }
    waiting_ = true;
    waitingTimers().push_back(this);
    if (!EventHold::active())
        scheduleWaiting();
}

void StageTimer::tick()
{
    if (handler_)
        handler_();
}

void StageTimer::scheduleWaiting()
{
    if (firingPosted || waitingTimers().empty() || !QCoreApplication::instance())
        return;
    firingPosted = true;
    QMetaObject::invokeMethod(
        QCoreApplication::instance(), [] { fireWaiting(); }, Qt::QueuedConnection);
}

void StageTimer::fireWaiting()
{
    firingPosted = false;
    if (EventHold::active() || waitingTimers().empty())
        return;
    StageTimer* next = waitingTimers().front();
    waitingTimers().pop_front();
    next->waiting_ = false;
    scheduleWaiting();
    next->tick();
}

EventHold::EventHold(Input input) : input_(input)
{
    ++holds;
    if (input_ == Input::Discarded) {
        ++discardingHolds;
        installInputGuard();
    }
}

EventHold::~EventHold()
{
    --holds;
    if (input_ == Input::Discarded)
        --discardingHolds;
    if (holds == 0)
        StageTimer::scheduleWaiting();
}

bool EventHold::active() { return holds > 0; }
