// The catalogue of a style file image: names, lengths and places of its 16 slots.
//
// Slots are 0-based, positions 1-based as the instrument's world counts them. Nothing here trusts the table: a table
// that promises more than the image holds gives short or empty names, never a read outside.
#pragma once

#include "files/StyLayout.h"

#include <string>
#include <string_view>

/// Length of slot i in a file image, bytes, 0 to 65535.
int StySlotLen(int slot, std::string_view image);
/// 1-based position of slot i's name, or 0 if one of the slots before it has length 0.
int StySlotPos(int slot, std::string_view image);
/// The 16 bytes of slot i's name, trimmed on the right; no test of the lengths.
std::string StySlotNameInFile(int slot, std::string_view image);
/// Sum of the lengths of the group that slot i belongs to; a slot above 15 counts as group 0.
int StyGroupLen(int slot, std::string_view image);

// The same over a window buffer: its style file stands at offset 669 in kinds 23 and 24, at 42622 in the others.

/// Offset of the style file in a window buffer, by its first byte.
int styleFileOffset(std::string_view buffer);
std::string StySlotName(int slot, std::string_view buffer);
int StySlotLenArr(int slot, std::string_view buffer);
int StySlotPosArr(int slot, std::string_view buffer);
/// 0 to 4: the group of the last slot, from 15 down, whose name differs from "- empty -".
int StyGroupCount(std::string_view buffer);
/// 224 plus the length of the group of slot i.
int StyGroupLenFull(int slot, std::string_view buffer);
/// 224 plus the lengths up to the first absent slot.
int StyFileLen(std::string_view buffer);
/// 1 if one of the slots before the first absent one has a name other than "- empty -".
int ArrHasUserStyle(std::string_view buffer);

/// The template as the program holds it inside: what stands in when TvlSty cannot be read. 4928 bytes.
ByteBuffer builtInStyTemplate();
