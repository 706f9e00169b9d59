// Reading a block by the tables: the byte, what it is taken as, the parameter's own bits, its position.
#include "arrangements/ArrParameters.h"

#include <bit>

namespace
{

int positionOf(const ArrParameter& parameter, std::string_view block, int base)
{
    if (parameter.onlySent)
        return parameter.high;
    const int taken = parameter.taken(byteAt(block, base + parameter.offset));
    const int own = (taken & parameter.mask) >> std::countr_zero(static_cast<unsigned>(parameter.mask));
    return parameter.position(own);
}

} // namespace

int arrPosition(std::string_view block, ArrGeneral which) { return positionOf(arrParameter(which), block, 0); }

int arrPosition(std::string_view block, int track, ArrTrack which)
{
    return positionOf(arrParameter(which), block, ArrBlock::track(track).offset);
}

std::string_view arrRow(std::string_view block, ArrGeneral which)
{
    return rowOf(arrParameter(which).list, arrPosition(block, which));
}

std::string_view arrRow(std::string_view block, int track, ArrTrack which)
{
    return rowOf(arrParameter(which).list, arrPosition(block, track, which));
}
