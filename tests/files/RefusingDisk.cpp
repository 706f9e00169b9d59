// The linker takes these calls before the C library's, for this test program alone.
#include "files/RefusingDisk.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <set>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

RefusingDisk disk;

void failFlushes(int error, int times, int goodBefore)
{
    disk.flushError = error;
    disk.flushes = times;
    disk.goodBefore = goodBefore;
}

std::int64_t RefusingDisk::used() const
{
    std::int64_t bytes = 0;
    std::set<ino_t> seen; // a second name takes no room
    for (const std::string& place : places)
        for (const auto& entry : std::filesystem::recursive_directory_iterator(place)) {
            struct stat status {
            };
            if (lstat(entry.path().c_str(), &status) == 0 && S_ISREG(status.st_mode) &&
                seen.insert(status.st_ino).second)
                bytes += status.st_size;
        }
    return bytes;
}

extern "C" int fsync(int descriptor)
{
    if (disk.flushes > 0 && disk.goodBefore-- <= 0) {
        --disk.flushes;
        errno = disk.flushError;
        return -1;
    }
    return static_cast<int>(syscall(SYS_fsync, descriptor));
}

extern "C" int unlink(const char* path) noexcept
{
    if (disk.removals > 0 && std::string(path).ends_with(disk.name)) {
        --disk.removals;
        errno = disk.removeError;
        return -1;
    }
    return static_cast<int>(syscall(SYS_unlinkat, AT_FDCWD, path, 0));
}

/// As a disk fills up: what still fits is written, then nothing more.
extern "C" ssize_t write(int descriptor, const void* bytes, std::size_t count)
{
    if (disk.capacity >= 0 && descriptor > STDERR_FILENO) {
        const std::int64_t room = std::max<std::int64_t>(disk.capacity - disk.used(), 0);
        if (room == 0 && count > 0) {
            errno = ENOSPC;
            return -1;
        }
        count = std::min(count, static_cast<std::size_t>(room));
    }
    return syscall(SYS_write, descriptor, bytes, count);
}
