// Both directions of the table: from a block's byte to the position shown, and from a position to the byte.
#include "global/GblParameters.h"

#include "core/NameTables.h"

#include <bit>

static_assert(GblLists::Function.size() == PedalCodeCount);

int GblRules::functionShown(int code)
{
    // Required: the codes 52 and 53 stand in the table and can be chosen, but read as OFF.
    constexpr int LastRead = 51;
    if (code > LastRead)
        return 0;
    // Required: 22 stands twice and always shows as the first. 19 stands nowhere and falls behind the list.
    const auto found = std::find(Names.PedalCodes.begin(), Names.PedalCodes.end(), code);
    return static_cast<int>(found - Names.PedalCodes.begin());
}

int GblRules::functionStored(int position) { return Names.PedalCodes[static_cast<std::size_t>(position)]; }

int gblPosition(std::string_view block, GblField which, int index)
{
    const GblParameter& row = gblParameter(which);
    const int own = byteAt(block, row.field.offset + index) & row.mask;
    return row.shown(own >> std::countr_zero(static_cast<unsigned>(row.mask)));
}

bool gblWrite(ByteBuffer& block, GblField which, int position, int index)
{
    const GblParameter& row = gblParameter(which);
    if (position < row.low || position > row.high || index < 0 || index >= row.field.size)
        return false;
    if (row.kept)
        return true;
    const int bits = row.stored(position) << std::countr_zero(static_cast<unsigned>(row.written));
    if ((bits & ~row.written) != 0)
        return false;
    const int offset = row.field.offset + index;
    putByte(block, offset, (byteAt(block, offset) & ~row.written) | bits);
    return true;
}
