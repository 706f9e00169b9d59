// The one routine that changes the block layout of a style file: a style is put into a slot, the blocks behind it move,
// the table follows. Plain bytes: no window, no message.
#pragma once

#include "core/Bytes.h"

#include <string_view>

namespace StyCopyMode
{
inline constexpr int Paste = 0;
inline constexpr int Cut = 1; ///< any value other than 0: the slot goes back to an empty style
} // namespace StyCopyMode

namespace StyCopyResult
{
inline constexpr int Stored = 0;       ///< mode holds the slot
inline constexpr int SameName = 1;     ///< a style of that name stands there already; mode holds its slot
inline constexpr int NoSlot = 2;       ///< no free slot, no place for the slot, or no style in the source
inline constexpr int GroupTooLong = 3; ///< the slot's group would grow too long
} // namespace StyCopyResult

/// As dstSlot: looks for the name first, then for a free slot.
inline constexpr int StySearchSlot = 100;

/// Bytes that a group may grow to.
inline constexpr int StyGroupLimit = 80000;

/// Puts style `srcSlot` of `srcImage` into `dstImage`, both whole style files; slots are 0-based. dstSlot below 100
/// names the slot, used or not. Anything but Stored leaves dstImage as it was.
[[nodiscard]] int StyCopyInto(int& mode, int srcSlot, std::string_view srcImage, int dstSlot, ByteBuffer& dstImage);
