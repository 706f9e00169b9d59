// A user without sense: every event is drawn from a seed, so that what went wrong can be done again.
#pragma once

#include "monkey/Chance.h"
#include "monkey/PaintTogether.h"
#include "monkey/VirtualLoop.h"
#include "monkey/World.h"

#include <QPoint>
#include <QPointer>
#include <QString>
#include <functional>
#include <string>

class ChildWindow;
class QWidget;
class frmMain;

class Monkey
{
public:
    Monkey(Chance& chance, World& world, VirtualLoop& loop, long long limit);

    /// Called every thousand events at rest, with the main window.
    std::function<void(const frmMain&)> onRest;
    std::function<void(const QString&)> onTrace; ///< may be empty
    /// Called when an event took the processor for longer than `mostMilliseconds`, with what it was. Starts are not
    /// counted. Here no send waits for a cable, and a disk's time is not the processor's.
    std::function<void(const std::string&)> onLongEvent;
    double mostMilliseconds = 1000;

    /// One event; to be called by the loop when it is idle. After the last one the windows are closed.
    void act();
    long long events() const { return events_; }
    bool done() const { return events_ >= limit_; }
    /// A start of the program counts as an event.
    void countStart() { ++events_; }
    /// A run of the program is over.
    void runEnded();

    /// The longest time between two events that stood beside each other, milliseconds of the processor, and what the
    /// first of them was.
    double longest() const { return longest_; }
    const std::string& longestText() const { return longestText_; }

private:
    void tell(const QString& text);
    void measure();
    void leave(); ///< the way out after the last event
    void choose(frmMain& window);

    void actOnWidget(frmMain& window);
    void actWithKeys(frmMain& window);
    void actOnMenus(frmMain& window);
    void actOnChildren(frmMain& window);
    void openSomething(frmMain& window);
    void actOnMain(frmMain& window);
    void holdOrLetGo(frmMain& window);
    void typeText(QWidget* target);

    QWidget* anyWidget(frmMain& window);
    ChildWindow* anyChild(frmMain& window);
    QPoint anyPoint(const QWidget& widget);

    Chance& chance_;
    World& world_;
    VirtualLoop& loop_;
    long long limit_;
    long long events_ = 0;
    long long lastRest_ = 0;
    int depth_ = 0;
    int leaving_ = 0;
    QPointer<QWidget> held_;
    PaintTogether paint_;
    double longest_ = 0;
    double began_ = -1;
    std::string longestText_;
    std::string text_;
};
