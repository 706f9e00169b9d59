// A user's hands on a widget: events as the window system makes them, sent at once. A widget may die of any of them.
#pragma once

#include <QPoint>
#include <QString>
#include <Qt>

class QWidget;

namespace Hands
{

void press(QWidget* widget, QPoint at, Qt::MouseButton button, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
void release(QWidget* widget, QPoint at, Qt::MouseButton button, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
void move(QWidget* widget, QPoint to, Qt::MouseButtons held);
void click(QWidget* widget, QPoint at, Qt::MouseButton button, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
/// Press, release, and the second press as the toolkit tells it.
void doubleClick(QWidget* widget, QPoint at);
/// The right press and the context menu that the desktop makes of it.
void rightClick(QWidget* widget, QPoint at);
void drag(QWidget* widget, QPoint from, QPoint to, int steps);
void wheel(QWidget* widget, QPoint at, int notches);
/// Down and up, shortcuts first.
void key(QWidget* widget, int key, Qt::KeyboardModifiers modifiers, const QString& text = {});

} // namespace Hands
