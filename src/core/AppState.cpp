// The one instance of the shared state, and the sizes that windows start from.
#include "core/Dichiarazioni.h"

#include <array>

AppState App;

namespace
{

/// Twips per pixel of a screen with large fonts; its windows are narrower.
constexpr int LargeFontTwips = 12;

struct SizeRow {
    int firstKind;
    int lastKind;
    int widthLargeFont;
    int width;
    int height;
};

using namespace WindowKind;
constexpr std::array SizeRows = {
    SizeRow{ArrBankA, ArrBankB, 4600, 4810, 7780},   // SizeArrAB
    SizeRow{PrgBankA, PrgBankE, 4600, 4810, 7780},   // SizePcgAE
    SizeRow{DrumKits, Percussion, 1840, 1920, 7780}, // SizeDrum
    SizeRow{StyBankA, StyBankB, 4600, 4810, 7780},   // SizeStyAB
    SizeRow{ArrFile, ArrFile, 4600, 4810, 9040},     // SizeArrU
    SizeRow{ArrNew, ArrNew, 4600, 4810, 7780},       // SizeArrNew
    SizeRow{PrgFile, PrgNew, 4600, 4810, 7780},      // SizePrgUN
    SizeRow{StyFile, StyNew, 5280, 5560, 4200},      // SizeStyUN
};

} // namespace

TwipsSize defaultWindowSize(int windowKind)
{
    for (const SizeRow& row : SizeRows)
        if (windowKind >= row.firstKind && windowKind <= row.lastKind)
            return {App.ScreenTwipsY == LargeFontTwips ? row.widthLargeFont : row.width, row.height};
    return {};
}
