// The buffers that style windows start from, and what their record keeps when they go.
#pragma once

#include "core/Settings.h"
#include "files/WindowBuffer.h"

/// The buffer of a window of kind 23 (a file, its path and read-only mark in `entry`) or 24 (untitled), number 1 to 8,
/// on the style file in the hand-over buffer.
WindowBuffer StyTagBuild(int windowKind, int number, const SessionEntry& entry);

/// The buffer of factory bank A (17) or B (18).
WindowBuffer StyBankTagBuild(int windowKind);

/// Gives the place of a window that goes to its record, which is free then. Style windows do not come back at the next
/// start.
void StySessionLeave(SessionEntry& entry, const WindowPosition& place);
