// Names and lengths come from the image's table as it stands; nothing is asked of the blocks themselves.
#include "styles/StyleRows.h"

#include "core/Dichiarazioni.h"
#include "core/NameTables.h"
#include "files/RowLabels.h"
#include "files/StyImage.h"
#include "files/WindowLayout.h"
#include "styles/StyleBanks.h"

namespace
{

using namespace StyLayout;

constexpr const char* NoMark = "  ";
constexpr const char* SeparatorRow = " ";
constexpr int RowsPerGroup = SlotsPerGroup + 1; ///< with the blank row behind it

std::string figure(int bytes) { return std::to_string(bytes) + " "; }

} // namespace

int styleSlotInRow(int row)
{
    if (row < 0 || row >= WindowLayout::StyRowCount || row % RowsPerGroup == SlotsPerGroup)
        return -1;
    return row - row / RowsPerGroup;
}

StyleListing styleListing(std::string_view image)
{
    StyleListing listing;
    int runningTotal = 0;
    for (int row = 0; row < WindowLayout::StyRowCount; ++row) {
        const int slot = styleSlotInRow(row);
        if (slot < 0) {
            listing.rows.emplace_back(SeparatorRow);
            continue;
        }
        // Required: the name is read wherever the lengths before it lead, also of a slot that the file does not have.
        listing.rows.push_back(rowCode(slot) + NoMark + rowName(StySlotNameInFile(slot, image)));
        listing.lengths[static_cast<std::size_t>(slot)] = figure(StySlotLen(slot, image));
        runningTotal += StySlotLen(slot, image);
        if (slot % SlotsPerGroup != SlotsPerGroup - 1)
            continue;
        // Required: the total runs on from group to group, so that a group's figure is that of all styles up to its
        // end, and its button works when any style stands before. After a paste or a cut the group shows its own sum.
        const auto group = static_cast<std::size_t>(slot / SlotsPerGroup);
        listing.groupFigures[group] = figure(runningTotal);
        listing.groupButtons[group] = runningTotal >= 1;
    }
    listing.total = std::to_string(image.size());
    return listing;
}

std::vector<std::string> styleBankRows(int windowKind)
{
    std::vector<std::string> rows;
    const int first = firstStyleOf(windowKind);
    for (int row = 0; row < StyleBankRows; ++row)
        rows.push_back(rowCode(row) + NoMark + padded(factoryStyleName(first + row), NameWidth));
    return rows;
}
