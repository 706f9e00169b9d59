// The windows of the last session: which come back, and how the files among them are opened again.
#pragma once

#include "shell/OpenDispatch.h"

#include <vector>

/// Rows of WinPos whose windows were open and come back by a timer of their own: the find window first, then the banks
/// and drum windows 2 to 10 in order.
std::vector<int> rowsToRestore();

/// Opens the arrangement files of the last session, in order and each in the lowest free slot. A file that cannot be
/// read leaves the session without a word.
void ArrangementsRestore(const WindowMaker& makeWindow);

/// The same for the program files, entries 1 to 8. One that cannot be read keeps its path and loses its mark.
void ProgramsRestore(const WindowMaker& makeWindow);

/// No window counts as open any more: the marks of all program and arrangement entries. Each window that is still open
/// sets its own again when it goes.
void clearSessionMarks();
