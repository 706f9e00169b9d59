// Keeping the bytes that are about to go. Where the disk has hard links the copy is the old file itself under a second
// name, and costs nothing; elsewhere its bytes are copied.
#include "files/SafetyCopies.h"

#include "core/Dichiarazioni.h"
#include "core/FileHandle.h"
#include "core/PathNames.h"
#include "core/RandomFile.h"
#include "files/CopyStore.h"

#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace
{

constexpr unsigned OwnerOnly = 0600;

/// The old file and its copy.
struct Kept {
    std::string original; ///< full path, links resolved; empty when nothing was kept
    std::string copy;
    std::int64_t size = 0;
    bool linked = false; ///< the copy is the old file itself under a second name
};

/// The full path with every link resolved; empty when there is no such file.
std::string realPath(const std::string& path)
{
    const std::unique_ptr<char, decltype(&std::free)> resolved(realpath(path.c_str(), nullptr), &std::free);
    return resolved ? std::string(resolved.get()) : std::string();
}

/// True when the old bytes keep this name's inode to themselves once the file is replaced: the replacing goes by a
/// rename, not in place, and no other name of the user's leads there.
bool mayBeLinked(const std::string& path, const struct stat& status)
{
    return status.st_nlink == 1 && status.st_uid == geteuid() &&
           faccessat(AT_FDCWD, openableFolderOf(path).c_str(), W_OK | X_OK, AT_EACCESS) == 0;
}

bool copyBytes(const std::string& from, const std::string& to, std::int64_t size)
{
    FileContent content;
    if (readFile(from, size, content) != 0 || content.length != size)
        return false;
    const std::string unfinished = to + CopyStore::UnfinishedMark;
    FileHandle file;
    file.take(openFile(unfinished, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW, OwnerOnly));
    const bool whole = file.isOpen() && writeAll(file.descriptor(), content.bytes) == 0 && flush(file) == 0 &&
                       file.close() == 0 && rename(unfinished.c_str(), to.c_str()) == 0;
    if (!whole)
        unlink(unfinished.c_str());
    return whole;
}

/// Keeps what stands under a path. Whatever goes wrong, the save goes on without a copy.
Kept keep(const std::string& path)
{
    const std::string original = App.StateDir.empty() ? std::string() : realPath(resolveFileName(path));
    struct stat status {
    };
    if (original.empty() || stat(original.c_str(), &status) != 0 || !S_ISREG(status.st_mode) || status.st_size == 0 ||
        status.st_size > CopyStore::BytesTogether)
        return {};
    const std::string copy = CopyStore::newCopyPath(original, extensionOf(FileKindOf(path)));
    if (copy.empty())
        return {};
    const bool linked = mayBeLinked(original, status) && link(original.c_str(), copy.c_str()) == 0;
    if (!linked && !copyBytes(original, copy, status.st_size)) {
        CopyStore::remove(copy);
        return {};
    }
    return {original, copy, status.st_size, linked};
}

bool sameBytes(const std::string& one, const std::string& other)
{
    FileContent first, second;
    return readFile(one, CopyStore::BytesTogether, first) == 0 &&
           readFile(other, CopyStore::BytesTogether, second) == 0 && first.length == second.length &&
           first.bytes == second.bytes;
}

/// The old file is about to be written where it stands, although its folder looked as if a new one could take its
/// place: a copy that is the file itself gets bytes of its own, or goes.
void keepOwnBytes(Kept& kept)
{
    if (!std::exchange(kept.linked, false) || copyBytes(kept.original, kept.copy, kept.size))
        return;
    CopyStore::remove(kept.copy);
    kept = {};
}

/// Copies may have taken the room that the save needs. True when there is more of it now: the copy of what still stands
/// is gone, or older copies of about the size that is wanted.
bool giveRoomBack(Kept& kept, const std::string& path, std::size_t wanted)
{
    const bool stillStands = !kept.copy.empty() && sameBytes(kept.original, kept.copy);
    if (stillStands) {
        CopyStore::remove(kept.copy);
        kept = {};
        return true;
    }
    return kept.copy.empty() && CopyStore::letOldestGo(static_cast<std::int64_t>(wanted), openableFolderOf(path));
}

/// A copy that was a file among the user's own now is a file of the program's, readable by its owner alone.
void makePrivate(const std::string& copy)
{
    struct stat status {
    };
    FileHandle file;
    file.take(openFile(copy, O_RDONLY | O_NOFOLLOW));
    if (!file.isOpen() || fstat(file.descriptor(), &status) != 0 || status.st_nlink != 1)
        return; // with a second name it still is the user's own file
    if (fchmod(file.descriptor(), OwnerOnly) != 0) {
        // Its folder keeps it from others all the same.
    }
}

/// The save has ended: a copy of what still stands goes again, any other takes its place among the copies.
void settle(const Kept& kept, bool mayStillStand)
{
    if (kept.copy.empty())
        return;
    if (mayStillStand && sameBytes(kept.original, kept.copy))
        return CopyStore::remove(kept.copy);
    if (kept.linked)
        makePrivate(kept.copy);
    CopyStore::makeRoom(kept.copy, kept.size);
}

/// True when these very bytes stand under the name: replacing them loses nothing, and twenty saves in a row without a
/// change must not push the older copies out.
bool alreadyHolds(const std::string& path, const ByteBuffer& content)
{
    FileContent old;
    const auto length = static_cast<std::int64_t>(content.size());
    return readFile(path, length, old) == 0 && old.length == length && old.bytes == content;
}

/// A folder lets its files be deleted whatever their own permissions are; a file that is read only is to stay.
bool isReadOnly(const std::string& path)
{
    const std::string onDisk = resolveFileName(path);
    return faccessat(AT_FDCWD, onDisk.c_str(), W_OK, AT_EACCESS) != 0 && (errno == EACCES || errno == EROFS);
}

int replaceBehindACopy(const std::string& path, const ByteBuffer& content, FileHolder holder)
{
    Kept kept = alreadyHolds(path, content) ? Kept{} : keep(path);
    const auto replace = [&] { return replaceFileTelling(path, content, holder, [&] { keepOwnBytes(kept); }); };
    int error = replace();
    for (int more = 0; more < 2 && error == FileError::DiskFull && giveRoomBack(kept, path, content.size()); ++more)
        error = replace();
    settle(kept, error != 0);
    return error;
}

} // namespace

int replaceKeeping(const std::string& path, const ByteBuffer& content)
{
    return replaceBehindACopy(path, content, FileHolder::User);
}

int replaceStateKeeping(const std::string& path, const ByteBuffer& content)
{
    return replaceBehindACopy(path, content, FileHolder::Program);
}

int deleteKeeping(const std::string& path)
{
    if (isReadOnly(path))
        return FileError::AccessDenied;
    const Kept kept = keep(path);
    int error = deleteFile(path);
    if (error == 0) // gone is said only when the disk knows it
        error = fileErrorOf(flushFolder(path));
    settle(kept, true); // of a link the link went, and what it points to stands
    return error;
}
