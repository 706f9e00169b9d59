// The style file as a save makes it: the table cut down to the groups that are used, the file written in whole units of
// four bytes, and the file removed where a window has no styles to keep.
#pragma once

#include "files/WindowBuffer.h"

/// Takes the unused groups at the end out of the table and cuts the buffer behind the styles that remain. 1 when all
/// 16 slots are empty and nothing is changed, else 0.
int StyTableTrim(WindowBuffer& tag);

/// Writes the style area to the window's path + ".sty". 0, or 1 when a file error was reported and the user gave up;
/// the file on disk is then as it was.
[[nodiscard]] int StyFileWrite(WindowBuffer& tag);

/// Deletes the window's path + ".sty". 0 also when there is none; 1 when a file error was reported.
[[nodiscard]] int StyFileDrop(const WindowBuffer& tag);
