// The program file (.prg, and .pgg when a record only refers to a factory program). Offsets are 0-based bytes.
#pragma once

#include "core/Bytes.h"

namespace PrgLayout
{

inline constexpr std::string_view PrgSignature{"KORG\x4D\x00\x00", 7};
inline constexpr std::string_view PggSignature{"KPGG\x4D\x00\x00", 7};
inline constexpr int ChannelOffset = 15; ///< list index of the window's MIDI channel box
inline constexpr int RecordCount = 64;
inline constexpr int RecordSize = 172;
inline constexpr Field Records{48, (RecordCount * RecordSize)};
inline constexpr Field Between{end(Records), 12040}; ///< kept as read; not transmitted
inline constexpr Field SecondArea{end(Between), 2104};
inline constexpr Field Rest{end(SecondArea), 5280}; ///< kept as read; not transmitted
inline constexpr int FileSize = 30480;
static_assert(SecondArea.offset == 23096 && end(Rest) == FileSize);

/// Record `index` (0 to 63) in the file.
constexpr Field record(int index) { return {Records.offset + index * RecordSize, RecordSize}; }

inline constexpr int RecordStateOffset = 0; ///< 0 free, 1 reference, other values: a full program
inline constexpr int ReferenceRecord = 1;
inline constexpr int ReferenceBankOffset = 1;
inline constexpr int ReferenceNumberOffset = 2;
inline constexpr Field RecordName{3, 16};
inline constexpr int BlankedBytes = 20; ///< of a reference record, when a .pgg is sent

} // namespace PrgLayout
