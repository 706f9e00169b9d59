// Window geometry is stored in twips, 1440 to an inch; here it meets the screen's pixels.
#pragma once

#include <QRect>
#include <QSize>

/// By the logical DPI of the primary screen.
int twipsToPixelsX(int twips);
int twipsToPixelsY(int twips);
int pixelsToTwipsX(int pixels);
int pixelsToTwipsY(int pixels);

/// Twips of one pixel, as the settings' tables ask for them: 15 at 96 dots an inch, 12 at 120.
int twipsPerPixelX();
int twipsPerPixelY();

/// Limits of what is stored: width and height 0 to 32767, left and top -16000 to 16000.
int clampedLength(int twips);
int clampedPlace(int twips);

/// The rectangle moved just so far that a part of its title bar lies in `view` (pixels); a place in view is kept.
QRect movedIntoView(QRect wanted, QRect view);
