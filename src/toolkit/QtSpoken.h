// What a screen reader is told of the controls that draw themselves, and of faders whose figure is no name for a
// musician.
//
// A widget without a description of its own is to a screen reader an empty rectangle. Here it gets a role, a value,
// states and, where it can be pressed, the press. Its name stays its accessible name.
#pragma once

#include <QAccessible>
#include <functional>

class QLabel;
class QLineEdit;
class QSlider;
class QWidget;

struct Spoken {
    QAccessible::Role role = QAccessible::Graphic;
    std::function<QString()> value;                        ///< may be empty, as all of them
    std::function<void(QAccessible::State& state)> adjust; ///< what the widget's own state lacks
    std::function<void()> press;                           ///< the one action, "Press"
    std::function<QWidget*()> focused;                     ///< the part that the focus within stands on, null for none
};

/// Describes a widget from now on. Once for each widget.
void speakAs(QWidget* widget, Spoken spoken);

/// Joins a fader and what shows its value beside it in the instrument's terms, "CNT" or "C4#".
void speakFader(QSlider* fader, const QLabel* shown);
void speakFader(QSlider* fader, const QLineEdit* shown);

/// To be told after a change; nothing happens while no screen reader listens. `changed` has the changed states set.
void tellState(QWidget* widget, QAccessible::State changed);
void tellFocus(QWidget* widget);
void tellValue(QWidget* widget, const QString& value);
