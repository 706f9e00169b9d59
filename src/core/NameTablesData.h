// The literals from which the tables of names are built.
#pragma once

#include "core/NameTables.h"

#include <array>

namespace NameTablesData
{

using PrgList = std::array<const char*, PrgBlockNames>;
using DrumKitList = std::array<const char*, DrumKitCount>;
using StyList = std::array<const char*, StyNameCount>;
using PedalList = std::array<int, PedalCodeCount>;

extern const PrgList PrgA, PrgB, PrgC, PrgD, PrgE;
extern const DrumKitList DrumKits;
extern const StyList Styles;
extern const PedalList Pedals;

} // namespace NameTablesData
