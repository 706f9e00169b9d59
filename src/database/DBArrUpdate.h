// Changing the arrangement database: a file added by hand or at its opening, all files of the working folder added at
// once, entries taken out, and entries of files that have gone or are none taken out together.
//
// Each change reads the file anew and writes it back whole in one step; a crash leaves the old database or the new one.
// What takes entries out, or adds many, first keeps a safety copy. After a change the open windows' numbers and an open
// database window follow.
#pragma once

#include <string>

namespace DBArrResult
{
inline constexpr int Done = 0;     ///< also when there was nothing to change
inline constexpr int Declined = 1; ///< the user did not want a database
inline constexpr int Failed = 2;   ///< reported; the database stands as it was
} // namespace DBArrResult

/// Adds the file DBArr.ArrFileName in DBArr.ArrFileFolder, of a window kind, and sets DBArr.DBArrID: its number, or 0
/// when it is not of the working folder or the table is full. Without a database the user is asked for one. A
/// DBArrResult.
[[nodiscard]] int DBArrAdd(int kind);

/// The same for an arrangement file by its full path without extension. A path that does not come back whole from its
/// field is not added.
[[nodiscard]] int DBArrAddFile(const std::string& path);

/// Takes out the entries whose file is gone or is no arrangement file. A file that cannot be read ends it with nothing
/// changed. A DBArrResult, all said to the user.
int DBArrRefresh();

/// Adds every arrangement file of the working folder, in the order of their names, until the table is full. A
/// DBArrResult, all said to the user.
int DBArrAddAll();

/// Takes out the entry of a number; its file stays. A DBArrResult, all said to the user.
int DBArrDelete(int id);
