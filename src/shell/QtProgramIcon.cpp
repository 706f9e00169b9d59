// Three keys of a keyboard under the line of a display.
#include "shell/QtProgramIcon.h"

#include <QPainter>
#include <QPixmap>

QIcon programIcon()
{
    constexpr int Side = 64;
    QPixmap picture(Side, Side);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0x1C, 0x33, 0x3A));
    painter.drawRoundedRect(QRectF(2, 2, 60, 60), 10, 10);
    painter.setBrush(QColor(0x9F, 0xE8, 0xC0));
    painter.drawRoundedRect(QRectF(9, 9, 46, 9), 3, 3);
    painter.setBrush(Qt::white);
    for (const int left : {9, 25, 41})
        painter.drawRect(left, 24, 14, 31);
    painter.setBrush(QColor(0x10, 0x1C, 0x20));
    for (const int left : {19, 35})
        painter.drawRect(left, 24, 10, 18);
    painter.end();
    return QIcon(picture);
}
