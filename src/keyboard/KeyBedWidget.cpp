// The keys' places follow the frame's size; the pointer is followed in the frame's own coordinates, whichever key has
// caught it.
#include "keyboard/KeyBedWidget.h"

#include "keyboard/KeyGeometry.h"
#include "keyboard/KeyWidget.h"
#include "toolkit/QtSpoken.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QTimer>

#include <algorithm>
#include <cmath>

namespace
{

/// A moving pointer is seen again within this time; milliseconds.
constexpr quint64 OneMovement = 40;
/// The first step out of a rest is seen after any time, but goes no further than this; twips.
constexpr int FirstStep = KeyGeometry::OctaveWidth;
/// A key that is struck without a hand on it sounds for this time; milliseconds.
constexpr int StrikeLength = 300;

bool isButton(int key) { return key == Qt::Key_Space || key == Qt::Key_Return || key == Qt::Key_Enter; }

QRect inPixels(const TwipsRect& twips, qreal unitX, qreal unitY)
{
    const auto pixel = [](int place, qreal unit) { return static_cast<int>(std::lround(place * unit)); };
    return {QPoint(pixel(twips.left, unitX), pixel(twips.top, unitY)),
            QPoint(pixel(twips.left + twips.width, unitX) - 1, pixel(twips.top + twips.height, unitY) - 1)};
}

} // namespace

KeyBedWidget::KeyBedWidget(QWidget* parent) : QFrame(parent)
{
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    Key.create([this](int key) {
        auto* widget = new KeyWidget(key, this);
        widget->installEventFilter(this);
        return widget;
    });
    for (int key = 0; key < KeyRange::Count; ++key)
        if (isBlackKey(key))
            Key[key]->raise();
    speak();
    struckKey_ = new QTimer(this);
    struckKey_->setObjectName(QStringLiteral("TimerStruckKey"));
    struckKey_->setSingleShot(true);
    struckKey_->setInterval(StrikeLength);
    connect(struckKey_, &QTimer::timeout, this, [this] { release(); });
}

void KeyBedWidget::resizeEvent(QResizeEvent* event)
{
    QFrame::resizeEvent(event);
    const qreal unitX = width() / qreal(KeyGeometry::Frame.width);
    const qreal unitY = height() / qreal(KeyGeometry::Frame.height);
    for (int key = 0; key < KeyRange::Count; ++key)
        Key[key]->setGeometry(inPixels(keyRect(key), unitX, unitY));
}

// The pointer.

bool KeyBedWidget::eventFilter(QObject* watched, QEvent* event)
{
    const auto type = event->type();
    // The second press of a fast repetition comes as a double click; it is a press like the first.
    const bool down = type == QEvent::MouseButtonPress || type == QEvent::MouseButtonDblClick;
    if (!down && type != QEvent::MouseButtonRelease && type != QEvent::MouseMove)
        return type == QEvent::ContextMenu; // a right press on a key plays it and opens no menu
    const auto* mouse = static_cast<const QMouseEvent*>(event);
    const auto* widget = static_cast<const KeyWidget*>(watched);
    if (type == QEvent::MouseMove) {
        pointerAt(widget->mapToParent(mouse->position()), mouse->timestamp());
        return true;
    }
    const int key = static_cast<int>(std::find(Key.begin(), Key.end(), widget) - Key.begin());
    down ? mouseDown(key) : mouseUp(key);
    return true;
}

void KeyBedWidget::mouseMoveEvent(QMouseEvent* event) { pointerAt(event->position(), event->timestamp()); }

void KeyBedWidget::leaveEvent(QEvent* event)
{
    QFrame::leaveEvent(event);
    last_ = {};
    tell(NoKey, {});
}

void KeyBedWidget::pointerAt(QPointF place, quint64 time)
{
    const Sample before = last_;
    last_ = {place, time};
    if (drawnFrom(before))
        passOverWay(before.place, place);
    tell(keyAt(place), place);
}

bool KeyBedWidget::drawnFrom(const Sample& before) const
{
    if (before.time == 0 || last_.time < before.time)
        return false;
    const qreal step = std::abs(last_.place.x() - before.place.x());
    return last_.time - before.time <= OneMovement || step * KeyGeometry::Frame.width <= qreal(FirstStep) * width();
}

/// Tells the keys that the pointer enters between two places, in their order; the one that it ends on is told by the
/// caller.
void KeyBedWidget::passOverWay(QPointF from, QPointF to)
{
    const QPointF way = to - from;
    const int steps = static_cast<int>(std::max(std::abs(way.x()), std::abs(way.y())));
    int entered = lastKey_;
    QPointF entrance;
    const auto tellEntered = [&] {
        if (entered != lastKey_)
            tell(entered, entrance);
    };
    for (int step = 1; step < steps; ++step) {
        const QPointF place = from + way * step / steps;
        const int key = keyAt(place);
        if (key == entered)
            continue;
        tellEntered();
        entered = key;
        entrance = place;
    }
    if (entered != keyAt(to))
        tellEntered();
}

void KeyBedWidget::tell(int key, QPointF place)
{
    lastKey_ = key;
    if (key == NoKey)
        mouseOutside();
    else
        mouseMove(key, heightInKey(key, place));
}

int KeyBedWidget::keyAt(QPointF place) const
{
    const QPoint pixel(static_cast<int>(std::floor(place.x())), static_cast<int>(std::floor(place.y())));
    int found = NoKey;
    for (int key = 0; key < KeyRange::Count; ++key) {
        if (!Key[key]->geometry().contains(pixel))
            continue;
        found = key;
        if (isBlackKey(key))
            break; // it lies above the white ones
    }
    return found;
}

int KeyBedWidget::heightInKey(int key, QPointF place) const
{
    const QWidget* widget = Key[key];
    const qreal inside = std::floor(place.y()) - widget->y();
    return static_cast<int>(std::lround(inside * keyRect(key).height / std::max(1, widget->height())));
}

// The computer's keyboard: the arrows are the pointer, the blank and Enter are its button.

void KeyBedWidget::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Left:
        moveCursor(-1);
        break;
    case Qt::Key_Right:
        moveCursor(1);
        break;
    case Qt::Key_PageDown:
        moveCursor(-KeyRange::Octave);
        break;
    case Qt::Key_PageUp:
        moveCursor(KeyRange::Octave);
        break;
    case Qt::Key_Home:
        moveCursor(-KeyRange::Count);
        break;
    case Qt::Key_End:
        moveCursor(KeyRange::Count);
        break;
    default:
        if (!isButton(event->key()))
            QFrame::keyPressEvent(event);
        else if (!event->isAutoRepeat())
            press();
    }
}

void KeyBedWidget::keyReleaseEvent(QKeyEvent* event)
{
    if (!isButton(event->key()))
        QFrame::keyReleaseEvent(event);
    else if (!event->isAutoRepeat())
        release();
}

void KeyBedWidget::press()
{
    if (pressed_)
        return;
    pressed_ = true;
    mouseDown(cursor_);
}

void KeyBedWidget::release()
{
    struckKey_->stop();
    if (!pressed_)
        return;
    pressed_ = false;
    mouseUp(cursor_);
}

void KeyBedWidget::strike(int key)
{
    release();
    putCursor(key);
    press();
    struckKey_->start();
}

void KeyBedWidget::moveCursor(int step) { putCursor(std::clamp(cursor_ + step, 0, KeyRange::Count - 1)); }

void KeyBedWidget::putCursor(int key)
{
    release(); // it belongs to the key that was pressed
    Key[cursor_]->showCursor(false);
    cursor_ = key;
    Key[cursor_]->showCursor(hasFocus());
    mouseMove(cursor_, 0);
}

void KeyBedWidget::focusInEvent(QFocusEvent* event)
{
    QFrame::focusInEvent(event);
    Key[cursor_]->showCursor(event->reason() != Qt::MouseFocusReason);
}

void KeyBedWidget::focusOutEvent(QFocusEvent* event)
{
    QFrame::focusOutEvent(event);
    release();
    Key[cursor_]->showCursor(false);
}

// The screen reader.

void KeyBedWidget::speak()
{
    speakAs(this, {QAccessible::Grouping, {}, {}, {}, [this] { return hasFocus() ? Key[cursor_] : nullptr; }});
    for (int key = 0; key < KeyRange::Count; ++key) {
        const KeyWidget* widget = Key[key];
        Spoken spoken;
        spoken.role = QAccessible::PushButton;
        spoken.adjust = [widget](QAccessible::State& state) {
            state.pressed = widget->marked();
            state.focusable = true;
            state.focused = widget->hasCursor();
        };
        spoken.press = [this, key] { strike(key); };
        speakAs(Key[key], std::move(spoken));
    }
}
