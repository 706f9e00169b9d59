// The window buffer (Tag) that every child window keeps: its head, its path, and the areas behind it by kind.
// Offsets are 0-based bytes.
#pragma once

#include "core/Bytes.h"
#include "files/ArrLayout.h"
#include "files/GblLayout.h"
#include "files/PrgLayout.h"

namespace WindowLayout
{

inline constexpr int HeadSize = 20;

// The head, the same for all kinds.
inline constexpr int KindOffset = 0;
inline constexpr int ReadOnlyOffset = 1;    ///< 1 = the file is read only
inline constexpr int NotSentOffset = 2;     ///< 2 = the arrangements differ from what was last transmitted
inline constexpr int ModifiedOffset = 3;    ///< 1 = arrangements or global block modified and not saved
inline constexpr int PrgStateOffset = 5;    ///< program companion: 0 none, 1 held; a program window holds 2
inline constexpr int PrgModifiedOffset = 6; ///< 1 = program area modified and not saved
inline constexpr int StyStateOffset = 8;    ///< style companion, see StyState
inline constexpr int StyModifiedOffset = 9; ///< 1 = style area modified and not saved
inline constexpr int StyRefusedOffset =
    10; ///< 1 = the style file beside was refused or unreadable: no save may touch it
inline constexpr int WindowNumberOffset = 14; ///< number of the window in its family, from 1
inline constexpr int ChannelOffset = 15;      ///< bank program and drum windows: the window's MIDI channel, 0 to 15
inline constexpr int EntryUsedOffset = 16;    ///< 1 = the window's entry in the session records is in use
inline constexpr int UntitledOffset = 17;     ///< 1 = Save must ask for a name
inline constexpr int PrgTypeOffset = 18;      ///< program area: 0 = .prg, 1 = .pgg

namespace StyState
{
inline constexpr int None = 0;  ///< no style area
inline constexpr int Empty = 1; ///< the area holds the file of empty styles
inline constexpr int Real = 2;  ///< the area holds a real style file
} // namespace StyState

inline constexpr Field PathArea{HeadSize, 250}; ///< blank padded; a window without a file holds its caption text
inline constexpr Field Path{HeadSize, 238};     ///< the part that is used: full path without extension

// List rows, as the clipboard stores them: one mark byte and 20 bytes of text.
inline constexpr int RowSize = 21;
inline constexpr int ArrRowCount = 64;
inline constexpr int StyRowCount = 19;

// Kinds 2, 3, 19, 20: the arrangement file, list rows, and for 19 and 20 the companions.
inline constexpr Field ArrFile{end(PathArea), ArrLayout::FileSize};
inline constexpr Field ArrRows{end(ArrFile), (ArrRowCount * RowSize)};
inline constexpr Field PrgCompanion{end(ArrRows), PrgLayout::FileSize};
inline constexpr int StyCompanionOffset = end(PrgCompanion); ///< to the end of the buffer
static_assert(ArrRows.offset == 10798 && PrgCompanion.offset == 12142 && StyCompanionOffset == 42622);

// Kinds 21, 22: the program file, then list rows.
inline constexpr Field PrgFile{end(PathArea), PrgLayout::FileSize};
inline constexpr Field PrgRows{end(PrgFile), (ArrRowCount * RowSize)};
static_assert(PrgRows.offset == 30750);

// Kinds 4 to 8: list rows behind the bank's name.
inline constexpr Field PrgBankRows{29, (ArrRowCount * RowSize)};

// Kinds 23, 24: list rows, then the style file to the end of the buffer.
inline constexpr Field StyRows{end(PathArea), (StyRowCount * RowSize)};
inline constexpr int StyFileOffset = end(StyRows);
static_assert(StyFileOffset == 669);

// Kinds 14, 25: the global file.
inline constexpr Field GblFile{end(PathArea), GblLayout::FileSize};

} // namespace WindowLayout
