// Where each kind of window keeps its rows, and how a row is read.
#include "clipboard/ListRows.h"

#include "core/Dichiarazioni.h"
#include "files/WindowLayout.h"

#include <algorithm>
#include <array>

namespace
{

using namespace WindowKind;

struct PlaceRow {
    int firstKind;
    int lastKind;
    RowPlace place;
};

constexpr std::array PlaceRows = {
    PlaceRow{ArrBankA, ArrBankB, {WindowLayout::ArrRows.offset, WindowLayout::ArrRowCount}},
    PlaceRow{PrgBankA, PrgBankE, {WindowLayout::PrgBankRows.offset, WindowLayout::ArrRowCount}},
    PlaceRow{ArrFile, ArrNew, {WindowLayout::ArrRows.offset, WindowLayout::ArrRowCount}},
    PlaceRow{PrgFile, PrgNew, {WindowLayout::PrgRows.offset, WindowLayout::ArrRowCount}},
    PlaceRow{StyFile, StyNew, {WindowLayout::StyRows.offset, WindowLayout::StyRowCount}},
};

constexpr int Marked = 1;

int offsetOfRow(std::string_view buffer, int row)
{
    const RowPlace place = rowPlaceOf(byteAt(buffer, WindowLayout::KindOffset));
    return row >= 0 && row < place.count ? place.RowBase + row * WindowLayout::RowSize : lengthOf(buffer);
}

} // namespace

bool isUsedRow(std::string_view text) { return text.size() > RowCodeWidth; }

RowPlace rowPlaceOf(int windowKind)
{
    for (const PlaceRow& row : PlaceRows)
        if (windowKind >= row.firstKind && windowKind <= row.lastKind)
            return row.place;
    return {};
}

void keepRows(ByteBuffer& buffer, const ListRows& rows)
{
    const RowPlace place = rowPlaceOf(byteAt(buffer, WindowLayout::KindOffset));
    const int needed = place.RowBase + place.count * WindowLayout::RowSize;
    if (lengthOf(buffer) < needed)
        buffer.resize(static_cast<std::size_t>(needed), ' ');
    for (int index = 0; index < place.count; ++index) {
        const int offset = offsetOfRow(buffer, index);
        const bool shown = index < static_cast<int>(rows.size());
        const ListRow& row = shown ? rows[static_cast<std::size_t>(index)] : ListRow();
        putByte(buffer, offset, row.selected ? Marked : 0);
        putText(buffer, {offset + 1, RowTextWidth}, row.text);
    }
}

bool isMarked(std::string_view buffer, int row) { return byteAt(buffer, offsetOfRow(buffer, row)) == Marked; }

std::string_view keptText(std::string_view buffer, int row)
{
    return slice(buffer, {offsetOfRow(buffer, row) + 1, RowTextWidth});
}

std::string_view styleNameIn(std::string_view rowText)
{
    const std::string_view text = trimRight(rowText);
    return text.size() > RowNameOffset ? text.substr(RowNameOffset) : std::string_view();
}

bool isFreeStyleRow(std::string_view rowText)
{
    const std::string_view name = styleNameIn(rowText);
    return name.empty() || name == StyLayout::EmptyName;
}

Destination destinationOf(const ListRows& rows)
{
    Destination destination;
    for (int row = 0; row < static_cast<int>(rows.size()); ++row) {
        if (!rows[static_cast<std::size_t>(row)].selected)
            continue;
        if (destination.first < 0)
            destination.first = row;
        ++destination.selected;
    }
    return destination;
}

bool takesPaste(const ListRows& rows, const Destination& destination, int row)
{
    if (row < 0 || row >= static_cast<int>(rows.size()))
        return false;
    return destination.selected <= 1 || rows[static_cast<std::size_t>(row)].selected;
}
