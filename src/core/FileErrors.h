// The numbers of file errors, and the one place where the system's own errors become them.
#pragma once

namespace FileError
{
inline constexpr int None = 0;
inline constexpr int DeviceIo = 56;     ///< EIO
inline constexpr int Unavailable = 57;  ///< any other
inline constexpr int DiskFull = 61;     ///< ENOSPC, EDQUOT
inline constexpr int NotReady = 71;     ///< ENOMEDIUM, EBUSY
inline constexpr int AccessDenied = 75; ///< EACCES, EPERM, EROFS; also a folder, pipe or device in the file's place
inline constexpr int PathNotFound = 76; ///< ENOENT of a folder, ENOTDIR
} // namespace FileError

/// The number of a file error for an errno value.
int fileErrorOf(int errnoValue);
