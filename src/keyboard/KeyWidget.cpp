// A key paints its whole rectangle, so that nothing shows through and nothing flickers.
#include "keyboard/KeyWidget.h"

#include "keyboard/KeyGeometry.h"
#include "toolkit/QtLooks.h"
#include "toolkit/QtPanelParts.h"
#include "toolkit/QtSpoken.h"

#include <QPainter>
#include <QPainterPath>

namespace
{

// The edges of the keys; their faces have the stated colours.
constexpr QRgb Gap = 0xFF1C1C1C; ///< the dark between the keys
constexpr QRgb WhiteShade = 0xFFC4C7CC;
constexpr QRgb WhiteLip = 0xFFDDE0E4;
constexpr QRgb BlackShine = 0xFF6A6D72;
constexpr QRgb BlackLip = 0xFF34363A;

/// A key with its two lower corners rounded.
QPainterPath keyShape(const QRectF& face, qreal radius)
{
    QPainterPath shape;
    shape.moveTo(face.topLeft());
    shape.lineTo(face.topRight());
    shape.lineTo(face.right(), face.bottom() - radius);
    shape.quadTo(face.bottomRight(), QPointF(face.right() - radius, face.bottom()));
    shape.lineTo(face.left() + radius, face.bottom());
    shape.quadTo(face.bottomLeft(), QPointF(face.left(), face.bottom() - radius));
    shape.closeSubpath();
    return shape;
}

} // namespace

KeyWidget::KeyWidget(int key, QWidget* frame) : QWidget(frame), key_(key)
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMouseTracking(true);
}

void KeyWidget::showMark(bool marked)
{
    if (marked_ == marked)
        return;
    marked_ = marked;
    update();
    QAccessible::State changed;
    changed.pressed = true;
    tellState(this, changed);
}

void KeyWidget::showCursor(bool here)
{
    if (cursor_ == here)
        return;
    cursor_ = here;
    update();
    if (here)
        tellFocus(this);
}

void KeyWidget::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(rect(), QColor::fromRgb(isBlackKey(key_) ? QRgb(0xFF000000) : Gap));
    isBlackKey(key_) ? paintBlack(painter) : paintWhite(painter);
    if (marked_)
        paintMark(painter);
    if (cursor_) {
        painter.setPen(QPen(Looks::accentOn(palette(), Qt::black), 2));
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(QRectF(rect()).adjusted(2, 2, -3, -3));
    }
}

void KeyWidget::paintWhite(QPainter& painter) const
{
    const qreal unit = width() / qreal(KeyGeometry::WhiteWidth); // pixels of a twip
    const QRectF face = QRectF(rect()).adjusted(0, 0, -1, -1);
    painter.setClipPath(keyShape(face, 34 * unit));
    painter.fillRect(rect(), colourOf(KeyGeometry::WhiteColour));
    painter.fillRect(QRectF(face.right() - 15 * unit, 0, 15 * unit, face.height()), QColor::fromRgb(WhiteShade));
    painter.fillRect(QRectF(0, face.bottom() - 60 * unit, face.width(), 60 * unit), QColor::fromRgb(WhiteLip));
    painter.setClipping(false);
}

void KeyWidget::paintBlack(QPainter& painter) const
{
    const qreal unit = width() / qreal(KeyGeometry::BlackWidth);
    const qreal bottom = height() - 90 * unit;
    painter.fillRect(rect(), colourOf(KeyGeometry::BlackColour));
    painter.fillRect(QRectF(18 * unit, 0, 12 * unit, bottom), QColor::fromRgb(BlackShine));
    painter.fillRect(QRectF(18 * unit, bottom, width() - 36 * unit, 60 * unit), QColor::fromRgb(BlackLip));
}

void KeyWidget::paintMark(QPainter& painter) const
{
    const KeyMark& mark = keyMark(key_);
    const TwipsRect key = keyRect(key_);
    const qreal unit = width() / qreal(key.width);
    painter.setPen(QColor::fromRgb(0xFF000000));
    painter.setBrush(colourOf(mark.colour));
    painter.drawEllipse(QPointF(mark.x * unit, mark.y * height() / qreal(key.height)), mark.radius * unit,
                        mark.radius * unit);
}
