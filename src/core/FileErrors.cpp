// The border between the system's errors and the numbered ones.
#include "core/FileErrors.h"

#include <cerrno>

int fileErrorOf(int errnoValue)
{
    switch (errnoValue) {
    case 0:
        return FileError::None;
    case EIO:
        return FileError::DeviceIo;
    case ENOSPC:
    case EDQUOT:
        return FileError::DiskFull;
    case ENOMEDIUM:
    case EBUSY:
        return FileError::NotReady;
    case EACCES:
    case EPERM:
    case EROFS:
    case EISDIR:
        return FileError::AccessDenied;
    case ENOENT:
    case ENOTDIR:
        return FileError::PathNotFound;
    default:
        return FileError::Unavailable;
    }
}
