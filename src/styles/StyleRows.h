// A style file as its window lists it: 19 rows for 16 slots, and the figures beside them.
#pragma once

#include "files/StyLayout.h"

#include <array>
#include <string>
#include <string_view>
#include <vector>

/// The slot, 0 to 15, of a list row; -1 for the blank rows 4, 9 and 14 between the groups, and outside the list.
int styleSlotInRow(int row);

/// What the window of a style file shows when it opens. Names are Latin-1; figures are bytes, a blank behind them.
struct StyleListing {
    std::vector<std::string> rows;                               ///< 19: panel code, two blanks, name
    std::array<std::string, StyLayout::SlotCount> lengths;       ///< of each slot
    std::array<std::string, StyLayout::GroupCount> groupFigures; ///< all slots up to the group's end
    std::array<bool, StyLayout::GroupCount> groupButtons{};      ///< the group's figure is not 0
    std::string total;                                           ///< bytes of the file, no blank behind it
};

/// The listing of a style file image of any length, also one that holds less than its table promises.
StyleListing styleListing(std::string_view image);

/// The 64 rows of factory bank A (WindowKind 17) or B (18): panel code, two blanks, the 16 characters of the name.
std::vector<std::string> styleBankRows(int windowKind);
