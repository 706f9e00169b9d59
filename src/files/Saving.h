// Saving the files of a window from its buffer: to the name it has, to another name, and at its closing.
//
// Each routine works on the buffer it is given and changes it only where the rules store it back: a save that failed or
// was cancelled leaves it, and the window stays modified. A file on disk is at every moment wholly the old or the new
// one, and what a save replaces or removes is kept as a safety copy.
#pragma once

#include "files/WindowBuffer.h"

#include <string>

namespace SaveResult
{
inline constexpr int Done = 0;
inline constexpr int NotSaved = 1; ///< cancelled or failed; what is to be told was told
} // namespace SaveResult

/// Writes the window's files to the name in its path field. A window without a name is not saved. Kinds that have no
/// file of their own (a bank, the instrument's global block) write nothing and answer 0.
[[nodiscard]] int FileSave(WindowBuffer& tag);

/// Asks for a name and writes the area of the chosen filter to it; the window then has that name, but for banks and the
/// instrument's global block, which stay what they are.
[[nodiscard]] int FileSaveAs(WindowBuffer& tag);

/// The Save command: FileSaveAs for a window without a file and for every new style window, else FileSave.
[[nodiscard]] int SaveWindow(WindowBuffer& tag);

/// The save at the closing of a window on an arrangement file.
[[nodiscard]] int ArrClosingSave(WindowBuffer& tag);

/// The closing question of a window with files, asked under `title` when it is modified. True when the window may
/// close: nothing to save, No, or Yes and everything is on disk. Yes is refused for a file opened read only.
[[nodiscard]] bool AgreeToClose(WindowBuffer& tag, const std::string& title);
