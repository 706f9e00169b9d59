// The window buffer of an arrangement file: its head, its path, the file just read, and the companions beside it.
//
// song.arr may have song.sty, and song.prg or song.pgg, in the same folder. They are apart on disk and joined in
// memory.
#pragma once

#include "core/Settings.h"
#include "files/WindowBuffer.h"

/// The Tag of kind 19 for slot 1 to 8, from the arrangement file in the hand-over buffer and the slot's session entry.
/// Reads the companions; what is wrong with them is reported.
WindowBuffer ArrTagBuild(int slot, const SessionEntry& entry);

/// The Tag of an untitled window, kind 20, number 1 to 8: the arrangement file in the hand-over buffer, the file of
/// empty styles, no programs.
WindowBuffer ArrNewTagBuild(int number);

/// The Tag of a factory bank, kind 2 or 3, from the bank file in the hand-over buffer.
WindowBuffer ArrBankTagBuild(int windowKind);

/// Reads the style file beside the arrangement file into the style area, else the file of empty styles.
void ArrStyCompanionRead(WindowBuffer& tag);

/// Reads the .prg, else the .pgg, beside the arrangement file into the program area.
void ArrPrgCompanionRead(WindowBuffer& tag);
