// Builds the tables of names from their literals, and looks single names up.
#include "core/NameTables.h"

#include "core/NameTablesData.h"

NameTablesState Names;

namespace
{

template <typename List>
ByteBuffer joined(const List& list)
{
    ByteBuffer block;
    block.reserve(list.size() * NameWidth);
    for (const char* name : list)
        block += padded(name, NameWidth);
    return block;
}

std::string nameIn(const ByteBuffer& block, int index)
{
    return index < 0 ? std::string() : std::string(trim(slice(block, {index * NameWidth, NameWidth})));
}

} // namespace

void NameTablesBuild()
{
    using namespace NameTablesData;
    Names.PedalCodes = Pedals;
    Names.PrgNames = {joined(PrgA), joined(PrgB), joined(PrgC), joined(PrgD), joined(PrgE)};
    Names.DrumKitNames = joined(DrumKits);
    for (std::size_t i = 0; i < Styles.size(); ++i)
        Names.StyNames[i] = padded(Styles[i], NameWidth);
}

std::string programName(int block, int index)
{
    if (block < 0 || block >= PrgBankCount || index >= PrgBlockNames)
        return {};
    return nameIn(Names.PrgNames[static_cast<std::size_t>(block)], index);
}

std::string drumKitName(int index) { return index < DrumKitCount ? nameIn(Names.DrumKitNames, index) : std::string(); }

std::string factoryStyleName(int index)
{
    if (index < 0 || index >= StyNameCount)
        return {};
    return std::string(trim(Names.StyNames[static_cast<std::size_t>(index)]));
}
