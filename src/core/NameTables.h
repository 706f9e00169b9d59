// The instrument's factory programs, drum kits and styles by name.
//
// Nothing is ever read back from the instrument, so the program holds its names itself. Names are Latin-1, one byte a
// character, blank padded to 16 where a width is given.
#pragma once

#include "core/Bytes.h"

#include <array>
#include <string>

inline constexpr int NameWidth = 16;
inline constexpr int PrgBankCount = 5;   ///< blocks A to E
inline constexpr int PrgBlockNames = 64; ///< names a block
inline constexpr int DrumKitCount = 16;
inline constexpr int StyNameCount = 128;
inline constexpr int PedalCodeCount = 52;

struct NameTablesState {
    std::array<ByteBuffer, PrgBankCount> PrgNames; ///< five blocks of 1024 bytes
    ByteBuffer DrumKitNames;                       ///< 256 bytes
    std::array<ByteBuffer, StyNameCount> StyNames; ///< 16 bytes each
    std::array<int, PedalCodeCount> PedalCodes{};  ///< list position to function code; 22 twice, 19 nowhere
};

extern NameTablesState Names;

/// Builds the tables from literals: PedalCodes, then PrgNames, DrumKitNames and StyNames.
void NameTablesBuild();

/// Name `index` (0 to 63) of program block 0 to 4 (A to E), trimmed; empty outside the tables.
std::string programName(int block, int index);
/// Name 0 to 15 of the drum kits, trimmed; empty outside.
std::string drumKitName(int index);
/// Factory style 0 to 127, trimmed; empty outside.
std::string factoryStyleName(int index);
