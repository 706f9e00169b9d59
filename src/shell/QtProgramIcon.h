// The program's picture in title bars and the desktop's list of windows.
#pragma once

#include <QIcon>

/// Drawn, not looked up: a theme's search would cost the start more than the drawing.
QIcon programIcon();
