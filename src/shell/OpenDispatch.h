// The way of a file into the program: the open dialog, the reader of its kind, the slot, the window.
//
// All files come in here, by the menus, by the recent list, and by the windows that ask the shell for a path. What is
// to be said to the user is said here; the window itself is made by whoever calls.
#pragma once

#include <functional>
#include <string>

/// Results of OpenFile.
namespace OpenResult
{
inline constexpr int Loaded = 0;      ///< a file is in its hand-over buffer; or, with no branch, nothing was read
inline constexpr int Nothing = 1;     ///< cancelled, or refused with the reader's message shown
inline constexpr int AlreadyOpen = 2; ///< a window of the family is open on it
inline constexpr int Absent = 3;      ///< a failure for the caller to report
} // namespace OpenResult

/// What became of an attempt to open a file.
struct OpenOutcome {
    int result = OpenResult::Nothing;
    int branch = 0;   ///< window kind of the branch taken: 19, 21, 23 or 25; 0 when none was taken and nothing read
    std::string path; ///< full path as chosen, with its extension
};

/// Makes and shows the window of a kind (19, 21, 23, 25) in a slot from 1, its session entry filled before. False when
/// no such window exists.
using WindowMaker = std::function<bool(int windowKind, int slot)>;

/// The dialog and the reader. `code` is the window kind for which a file is wanted, and chooses the first filter; 22
/// shows no dialog and reads the program template with its 64 records emptied.
OpenOutcome OpenFile(int code);

/// The part behind the dialog: the branch of window kind 19, 21, 23 or 25 for a full path.
OpenOutcome openBranch(int branch, const std::string& path);

/// The whole of mnuApriArr, mnuApriSty, mnuApriPrg and mnuApriGbl by code 19, 23, 21 and 25. True when a window came.
bool openByDialog(int code, const WindowMaker& makeWindow);

/// The same without the dialog, by full path and file kind (FileKind).
bool openByPath(const std::string& path, int fileKind, bool readOnly, const WindowMaker& makeWindow);

/// mnuNuovoPrg: an untitled program window (kind 22) in the lowest free slot, the template in its hand-over buffer with
/// no program in it. A template that is missing is reported. True when a window came.
bool openNewPrograms(const WindowMaker& makeWindow);

/// mnuNuovoSty: an untitled style window (kind 24) in the lowest free slot, the template of empty styles in its
/// hand-over buffer. A template that cannot be read is reported. True when a window came.
bool openNewStyles(const WindowMaker& makeWindow);

/// mnuNuovoArr: an untitled arrangement window (kind 20) in the lowest free slot, the file of bank A in its hand-over
/// buffer with no record in use. A bank file that cannot be read is reported. True when a window came.
bool openNewArrangements(const WindowMaker& makeWindow);
