// The events are marked as the window system's own, so that the toolkit treats them as a user's.
#include "monkey/Hands.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointer>
#include <QTest>
#include <QWheelEvent>
#include <QWidget>
#include <QtTest/qtestspontaneevent.h>

namespace
{

/// As from the window system.
void deliver(QWidget* widget, QEvent& event)
{
    QSpontaneKeyEvent::setSpontaneous(&event);
    qApp->notify(widget, &event);
}

void mouse(QWidget* widget, QEvent::Type type, QPoint at, Qt::MouseButton button, Qt::MouseButtons held,
           Qt::KeyboardModifiers modifiers)
{
    QMouseEvent event(type, at, widget->mapTo(widget->window(), at), widget->mapToGlobal(at), button, held, modifiers);
    deliver(widget, event);
}

} // namespace

void Hands::press(QWidget* widget, QPoint at, Qt::MouseButton button, Qt::KeyboardModifiers modifiers)
{
    mouse(widget, QEvent::MouseButtonPress, at, button, button, modifiers);
}

void Hands::release(QWidget* widget, QPoint at, Qt::MouseButton button, Qt::KeyboardModifiers modifiers)
{
    mouse(widget, QEvent::MouseButtonRelease, at, button, Qt::NoButton, modifiers);
}

void Hands::move(QWidget* widget, QPoint to, Qt::MouseButtons held)
{
    mouse(widget, QEvent::MouseMove, to, Qt::NoButton, held, Qt::NoModifier);
}

void Hands::click(QWidget* widget, QPoint at, Qt::MouseButton button, Qt::KeyboardModifiers modifiers)
{
    const QPointer<QWidget> alive(widget);
    press(widget, at, button, modifiers);
    if (alive)
        release(widget, at, button, modifiers);
}

void Hands::doubleClick(QWidget* widget, QPoint at)
{
    const QPointer<QWidget> alive(widget);
    click(widget, at, Qt::LeftButton);
    if (alive)
        mouse(widget, QEvent::MouseButtonDblClick, at, Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    if (alive)
        release(widget, at, Qt::LeftButton);
}

void Hands::rightClick(QWidget* widget, QPoint at)
{
    const QPointer<QWidget> alive(widget);
    press(widget, at, Qt::RightButton);
    if (alive) {
        QContextMenuEvent event(QContextMenuEvent::Mouse, at, widget->mapToGlobal(at));
        deliver(widget, event);
    }
    if (alive)
        release(widget, at, Qt::RightButton);
}

void Hands::drag(QWidget* widget, QPoint from, QPoint to, int steps)
{
    const QPointer<QWidget> alive(widget);
    press(widget, from, Qt::LeftButton);
    for (int step = 1; alive && step <= steps; ++step)
        move(widget, from + (to - from) * step / steps, Qt::LeftButton);
    if (alive)
        release(widget, to, Qt::LeftButton);
}

void Hands::wheel(QWidget* widget, QPoint at, int notches)
{
    constexpr int Notch = 120; // eighths of a degree
    QWheelEvent event(at, widget->mapToGlobal(at), QPoint(), QPoint(0, notches * Notch), Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    deliver(widget, event);
}

void Hands::key(QWidget* widget, int key, Qt::KeyboardModifiers modifiers, const QString& text)
{
    const QPointer<QWidget> alive(widget);
    if (qt_sendShortcutOverrideEvent(widget, 0, key, modifiers, text))
        return;
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        if (!alive)
            return;
        QKeyEvent event(type, key, modifiers, text);
        deliver(widget, event);
    }
}
