// The one place where twips and pixels meet.
#include "toolkit/Twips.h"

#include <QGuiApplication>
#include <QScreen>
#include <algorithm>
#include <cmath>

namespace
{

constexpr double TwipsPerInch = 1440.0;
constexpr double UsualDpi = 96.0;
constexpr int LongestLength = 32767;
constexpr int FarthestPlace = 16000;

double dpiX()
{
    const QScreen* screen = QGuiApplication::primaryScreen();
    return screen ? screen->logicalDotsPerInchX() : UsualDpi;
}

double dpiY()
{
    const QScreen* screen = QGuiApplication::primaryScreen();
    return screen ? screen->logicalDotsPerInchY() : UsualDpi;
}

int toPixels(int twips, double dpi) { return static_cast<int>(std::lround(twips * dpi / TwipsPerInch)); }
int toTwips(int pixels, double dpi) { return static_cast<int>(std::lround(pixels * TwipsPerInch / dpi)); }

} // namespace

int twipsToPixelsX(int twips) { return toPixels(twips, dpiX()); }
int twipsToPixelsY(int twips) { return toPixels(twips, dpiY()); }
int pixelsToTwipsX(int pixels) { return toTwips(pixels, dpiX()); }
int pixelsToTwipsY(int pixels) { return toTwips(pixels, dpiY()); }

int twipsPerPixelX() { return toTwips(1, dpiX()); }
int twipsPerPixelY() { return toTwips(1, dpiY()); }

int clampedLength(int twips) { return std::clamp(twips, 0, LongestLength); }
int clampedPlace(int twips) { return std::clamp(twips, -FarthestPlace, FarthestPlace); }

QRect movedIntoView(QRect wanted, QRect view)
{
    constexpr int Reachable = 48; // enough of a title bar to take hold of
    if (view.isEmpty())
        return wanted;
    const int leftmost = view.left() - std::max(0, wanted.width() - Reachable);
    const int rightmost = std::max(view.left(), view.right() + 1 - Reachable);
    const int lowest = std::max(view.top(), view.bottom() + 1 - Reachable);
    wanted.moveLeft(std::clamp(wanted.left(), leftmost, std::max(leftmost, rightmost)));
    wanted.moveTop(std::clamp(wanted.top(), view.top(), lowest));
    return wanted;
}
