// The program's picture in title bars and the desktop's list of windows.
#pragma once

#include <QIcon>
#include <QImage>
#include <QPixmap>

class QWidget;

/// The picture, `side` pixels wide and high.
QImage programPicture(int side);

/// The same for a widget, `side` of its own pixels wide: as sharp as its screen.
QPixmap programPixmap(int side, const QWidget& widget);

/// Drawn, not looked up: a theme's search would cost the start more than the drawing.
QIcon programIcon();
