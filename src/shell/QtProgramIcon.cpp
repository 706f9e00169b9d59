// Paints the shapes of the program's picture.
#include "shell/QtProgramIcon.h"

#include "shell/ProgramIconShapes.h"

#include <QLinearGradient>
#include <QPainter>
#include <QWidget>

namespace
{

QBrush filling(const IconShape& shape)
{
    if (shape.colour == shape.foot)
        return QColor(QRgb(shape.colour));
    QLinearGradient change(0, shape.top, 0, shape.top + shape.height);
    change.setColorAt(0, QColor(QRgb(shape.colour)));
    change.setColorAt(1, QColor(QRgb(shape.foot)));
    return change;
}

} // namespace

QImage programPicture(int side)
{
    QImage picture(side, side, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    const IconDrawing drawing = iconDrawing(side);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.scale(double(side) / drawing.grid, double(side) / drawing.grid);
    for (const IconShape& shape : drawing.shapes) {
        painter.setBrush(filling(shape));
        painter.drawRoundedRect(QRectF(shape.left, shape.top, shape.width, shape.height), shape.radius, shape.radius);
    }
    return picture;
}

QPixmap programPixmap(int side, const QWidget& widget)
{
    const qreal ratio = widget.devicePixelRatioF();
    QPixmap picture = QPixmap::fromImage(programPicture(qRound(side * ratio)));
    picture.setDevicePixelRatio(ratio);
    return picture;
}

QIcon programIcon()
{
    QIcon icon;
    for (const int side : {16, 24, 32, 64})
        icon.addPixmap(QPixmap::fromImage(programPicture(side)));
    return icon;
}
