// Back to front. The faders stand over the keys' middles; no two of them at one height, as on a desk in use.
#include "shell/ProgramIconShapes.h"

#include <array>

namespace
{

constexpr std::uint32_t PlateTop = 0x2B4A54;
constexpr std::uint32_t PlateFoot = 0x14262C;
constexpr std::uint32_t Slot = 0x0B161A;
constexpr std::uint32_t Cap = 0x8FF0C4;
constexpr std::uint32_t CapFoot = 0x46B98A;
constexpr std::uint32_t CapLine = 0x17503A;
constexpr std::uint32_t White = 0xFFFFFF;
constexpr std::uint32_t WhiteFoot = 0xDCE4E6;
constexpr std::uint32_t Black = 0x0B161A;
constexpr std::uint32_t BlackFoot = 0x2A3C42;

// 16 pixels: plate, slots, caps, white keys of four pixels with a pixel between, black keys over the gaps.
constexpr std::array Sixteen = {
    IconShape{0, 0, 16, 16, 3, PlateTop, PlateFoot},
    IconShape{2, 2, 2, 5, 0, Slot, Slot},
    IconShape{7, 2, 2, 5, 0, Slot, Slot},
    IconShape{12, 2, 2, 5, 0, Slot, Slot},
    IconShape{1, 4, 4, 2, 0, Cap, Cap},
    IconShape{6, 2, 4, 2, 0, Cap, Cap},
    IconShape{11, 3, 4, 2, 0, Cap, Cap},
    IconShape{1, 8, 4, 7, 0, White, White},
    IconShape{6, 8, 4, 7, 0, White, White},
    IconShape{11, 8, 4, 7, 0, White, White},
    IconShape{4, 8, 3, 4, 0, Black, Black},
    IconShape{9, 8, 3, 4, 0, Black, Black},
};

// 24 pixels.
constexpr std::array TwentyFour = {
    IconShape{0, 0, 24, 24, 4, PlateTop, PlateFoot}, IconShape{4, 3, 2, 7, 0, Slot, Slot},
    IconShape{11, 3, 2, 7, 0, Slot, Slot},           IconShape{18, 3, 2, 7, 0, Slot, Slot},
    IconShape{2, 6, 6, 3, 0, Cap, CapFoot},          IconShape{9, 3, 6, 3, 0, Cap, CapFoot},
    IconShape{16, 5, 6, 3, 0, Cap, CapFoot},         IconShape{2, 12, 6, 10, 0, White, WhiteFoot},
    IconShape{9, 12, 6, 10, 0, White, WhiteFoot},    IconShape{16, 12, 6, 10, 0, White, WhiteFoot},
    IconShape{6, 12, 5, 6, 0, Black, Black},         IconShape{13, 12, 5, 6, 0, Black, Black},
};

// 32 pixels, from here on with rounded caps and keys.
constexpr std::array ThirtyTwo = {
    IconShape{1, 1, 30, 30, 5, PlateTop, PlateFoot}, IconShape{6, 4, 2, 10, 1, Slot, Slot},
    IconShape{15, 4, 2, 10, 1, Slot, Slot},          IconShape{24, 4, 2, 10, 1, Slot, Slot},
    IconShape{4, 9, 6, 4, 1, Cap, CapFoot},          IconShape{13, 5, 6, 4, 1, Cap, CapFoot},
    IconShape{22, 7, 6, 4, 1, Cap, CapFoot},         IconShape{3, 16, 8, 12, 1, White, WhiteFoot},
    IconShape{12, 16, 8, 12, 1, White, WhiteFoot},   IconShape{21, 16, 8, 12, 1, White, WhiteFoot},
    IconShape{9, 16, 5, 7, 0, Black, BlackFoot},     IconShape{18, 16, 5, 7, 0, Black, BlackFoot},
};

// 48 pixels.
constexpr std::array FortyEight = {
    IconShape{1, 1, 46, 46, 8, PlateTop, PlateFoot}, IconShape{10, 6, 2, 16, 1, Slot, Slot},
    IconShape{23, 6, 2, 16, 1, Slot, Slot},          IconShape{36, 6, 2, 16, 1, Slot, Slot},
    IconShape{6, 14, 10, 6, 1, Cap, CapFoot},        IconShape{19, 7, 10, 6, 1, Cap, CapFoot},
    IconShape{32, 10, 10, 6, 1, Cap, CapFoot},       IconShape{5, 25, 12, 17, 1, White, WhiteFoot},
    IconShape{18, 25, 12, 17, 1, White, WhiteFoot},  IconShape{31, 25, 12, 17, 1, White, WhiteFoot},
    IconShape{14, 25, 7, 10, 1, Black, BlackFoot},   IconShape{27, 25, 7, 10, 1, Black, BlackFoot},
};

// Larger ones, and the one that scales: caps with their line.
constexpr std::array Full = {
    IconShape{2, 2, 60, 60, 11, PlateTop, PlateFoot}, IconShape{13, 8, 4, 21, 2, Slot, Slot},
    IconShape{30, 8, 4, 21, 2, Slot, Slot},           IconShape{47, 8, 4, 21, 2, Slot, Slot},
    IconShape{8, 18, 14, 8, 2, Cap, CapFoot},         IconShape{25, 9, 14, 8, 2, Cap, CapFoot},
    IconShape{42, 13, 14, 8, 2, Cap, CapFoot},        IconShape{8, 21, 14, 2, 0, CapLine, CapLine},
    IconShape{25, 12, 14, 2, 0, CapLine, CapLine},    IconShape{42, 16, 14, 2, 0, CapLine, CapLine},
    IconShape{7, 33, 16, 23, 2, White, WhiteFoot},    IconShape{24, 33, 16, 23, 2, White, WhiteFoot},
    IconShape{41, 33, 16, 23, 2, White, WhiteFoot},   IconShape{19, 33, 9, 14, 1, Black, BlackFoot},
    IconShape{36, 33, 9, 14, 1, Black, BlackFoot},
};

struct SizedDrawing {
    int below; ///< pixels: smaller pictures than this are drawn so
    IconDrawing drawing;
};

constexpr std::array SmallDrawings = {SizedDrawing{24, {16, Sixteen}}, SizedDrawing{32, {24, TwentyFour}},
                                      SizedDrawing{48, {32, ThirtyTwo}}, SizedDrawing{64, {48, FortyEight}}};

} // namespace

IconDrawing iconDrawing(int side)
{
    for (const SizedDrawing& small : SmallDrawings)
        if (side < small.below)
            return small.drawing;
    return scalableIcon();
}

IconDrawing scalableIcon() { return {64, Full}; }
