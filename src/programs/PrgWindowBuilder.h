// The window buffers of the program windows: a user file with its head and path, or a factory bank with its title.
#pragma once

#include "core/Settings.h"
#include "files/WindowBuffer.h"

#include <string>

/// The Tag of kind 21 (a file) or 22 (untitled) for slot 1 to 8, from the program file in the hand-over buffer and the
/// slot's session entry.
WindowBuffer PrgTagBuild(int windowKind, int slot, const SessionEntry& entry);

/// The Tag of a factory bank (kinds 4 to 8) or of the kits (9, 10) on a MIDI channel, 0 to 15.
WindowBuffer PrgBankTagBuild(int windowKind, int channel);

/// The title of a user window's closing question: "File Program - song.prg (1)".
std::string prgClosingTitle(const WindowBuffer& tag);

/// What a user window leaves behind as it goes: its slot is free, its place kept in the entry and among the recent
/// files. The entry is marked to come back only when the program leaves with the window still open on a file.
void PrgSessionLeave(SessionEntry& entry, const WindowBuffer& tag, const WindowPosition& place);
