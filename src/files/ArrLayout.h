// The arrangement file (.arr, and the banks TvlArrA and TvlArrB): 64 records behind a 32-byte head.
// Offsets are 0-based bytes.
#pragma once

#include "core/Bytes.h"

namespace ArrLayout
{

inline constexpr Field Head{0, 32};
inline constexpr std::string_view Signature{"KORG\x4D\x00\x03", 7};
inline constexpr int RowCount = 64;
inline constexpr int RowSize = 164;
inline constexpr Field Rows{end(Head), (RowCount * RowSize)}; ///< exactly what an arrangement dump carries
inline constexpr int FileSize = 10528;
static_assert(end(Rows) == FileSize);

/// Record `index` (0 to 63) in the file.
constexpr Field row(int index) { return {Rows.offset + index * RowSize, RowSize}; }

// What the file level needs of a record; the whole block is arrangements/ArrBlock.h.
inline constexpr Field RowName{0, 16};
inline constexpr int RowStyleNumberOffset = 17;
inline constexpr int RowStyleBankOffset = 18; ///< 1 = user style of the companion style file
inline constexpr int RowTracksOffset = 39;
inline constexpr int TrackCount = 9;
inline constexpr int TrackSize = 8;

} // namespace ArrLayout
