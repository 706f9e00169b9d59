// The style file (.sty): a head with a table of 16 lengths, then the slots' blocks without gaps.
// Offsets are 0-based bytes.
#pragma once

#include "core/Bytes.h"

namespace StyLayout
{

inline constexpr std::string_view Signature{"KORG\x4D\x00\x04", 7};
inline constexpr int SlotCount = 16;
inline constexpr int GroupCount = 4;
inline constexpr int SlotsPerGroup = 4;
inline constexpr int EntrySize = 4;
inline constexpr Field Table{22, (SlotCount * EntrySize)}; ///< two bytes kept as read, then the length, low byte first
inline constexpr int HeadSize = 224;                       ///< the first block begins here
inline constexpr int NameSize = 16;                        ///< the first bytes of a block
inline constexpr std::string_view EmptyName = "- empty -";

/// The offset of slot `slot`'s length, low byte first.
constexpr int lengthOffset(int slot) { return 24 + EntrySize * slot; }

inline constexpr int ReadLimit = 289800; ///< nine pieces of 32200 bytes: what lies behind reads as zeros

// TvlSty, the template beside the program: four empty slots.
inline constexpr int TemplateSize = 4928;
inline constexpr int TemplateSlots = 4;
inline constexpr int TemplateSlotSize = 1176;
static_assert(HeadSize + TemplateSlots * TemplateSlotSize == TemplateSize);

} // namespace StyLayout
