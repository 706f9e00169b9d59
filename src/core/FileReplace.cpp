// Replacing a whole file so that nothing saved is ever half saved.
//
// The new bytes go to a temporary file beside the old one, reach the disk, and take its name in one step. Where the
// folder lets nothing be created, as in many shared folders, a safety copy is kept in the state folder while the file
// is written in place; a crash then leaves that copy for the user.
#include "core/RandomFile.h"

#include "core/Dichiarazioni.h"
#include "core/FileHandle.h"

#include <array>
#include <cerrno>
#include <climits>
#include <ctime>
#include <fcntl.h>
#include <string>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace
{

constexpr mode_t OwnerOnly = 0600, ByUmask = 0666;

/// What stands under a name before it is replaced.
struct Target {
    std::string path; ///< on disk, links followed
    bool exists = false;
    uid_t owner = geteuid();
    gid_t group = getegid();
    mode_t permissions = ByUmask; ///< of the new file
    bool flushed = true;          ///< before it counts as written
};

/// Makes a new file in one try. 0 with an open handle, or errno.
int createNew(const std::string& path, mode_t permissions, FileHandle& file)
{
    const int descriptor = openFile(path, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW, permissions);
    if (descriptor < 0)
        return errno;
    file.take(descriptor);
    return 0;
}

/// How a numbered name is put together.
struct NumberedName {
    std::string prefix;
    long first = 1;
    std::string suffix;
};

/// Makes a new file under the first free of many names. 0, or errno.
int createNumbered(const NumberedName& name, mode_t permissions, FileHandle& file, std::string& path)
{
    constexpr long Tries = 1000;
    int error = EEXIST;
    for (long number = name.first; number < name.first + Tries && error == EEXIST; ++number) {
        path = name.prefix;
        path.append(std::to_string(number)).append(name.suffix);
        error = createNew(path, permissions, file);
    }
    return error;
}

/// Brings what was written to the disk and closes the file. 0, or errno.
int flushAndClose(FileHandle& file)
{
    if (const int error = flush(file); error != 0)
        return error;
    return file.close();
}

/// The kernel's own rule for folders where everyone may write and only owners remove, which links that are followed by
/// hand would slip through: there only the user's own links and those of the folder's owner lead anywhere.
bool mayFollow(const std::string& path)
{
    struct stat link {
    }, folder{};
    if (lstat(path.c_str(), &link) != 0 || stat(openableFolderOf(path).c_str(), &folder) != 0)
        return false;
    const bool shared = (folder.st_mode & S_ISVTX) != 0 && (folder.st_mode & S_IWOTH) != 0;
    return !shared || link.st_uid == geteuid() || link.st_uid == folder.st_uid;
}

/// The file behind a symbolic link, or behind a chain of them. 0, or a FileError.
int followLinks(std::string& path)
{
    constexpr int MostLinks = 40;
    for (int depth = 0; depth < MostLinks; ++depth) {
        char link[PATH_MAX];
        const ssize_t length = readlink(path.c_str(), link, sizeof link);
        if (length < 0) // no link, or nothing at all; a link that cannot be read must not be taken for the file
            return errno == EINVAL || errno == ENOENT ? FileError::None : fileErrorOf(errno);
        if (!mayFollow(path))
            return FileError::AccessDenied;
        const std::string_view next(link, static_cast<std::size_t>(length));
        const bool fromRoot = !next.empty() && next.front() == '/';
        std::string target = fromRoot ? std::string() : folderPrefixOf(path);
        target.append(next);
        path = std::move(target);
    }
    return FileError::Unavailable;
}

/// A symbolic link that someone else has put there.
bool isForeignLink(const std::string& path)
{
    struct stat status {
    };
    return lstat(path.c_str(), &status) == 0 && S_ISLNK(status.st_mode) && status.st_uid != geteuid();
}

/// What a file of the state folder is to be. Where root runs the program, the file stays the folder's owner's.
void becomeStateFile(Target& target)
{
    struct stat folder {
    };
    target.permissions = OwnerOnly;
    if (geteuid() != 0 || stat(openableFolderOf(target.path).c_str(), &folder) != 0)
        return;
    target.owner = folder.st_uid;
    target.group = folder.st_gid;
}

int findTarget(const std::string& path, FileHolder holder, Target& target)
{
    if (!canNameAFile(path))
        return FileError::PathNotFound;
    target.path = resolveFileName(path);
    target.flushed = holder != FileHolder::Run;
    if (holder != FileHolder::User)
        becomeStateFile(target);
    if (holder != FileHolder::User && isForeignLink(target.path))
        return FileError::None; // it gives way to the new file, and what it points to is left alone
    if (const int error = followLinks(target.path); error != 0)
        return error;
    struct stat status {
    };
    if (stat(target.path.c_str(), &status) != 0) {
        const int error = errno;
        return error == ENOENT ? absenceOf(target.path) : fileErrorOf(error);
    }
    if (!S_ISREG(status.st_mode))
        return FileError::AccessDenied;
    // A rename asks for the folder's permissions alone and would overwrite a file that its owner made read only.
    if (faccessat(AT_FDCWD, target.path.c_str(), W_OK, AT_EACCESS) != 0)
        return fileErrorOf(errno);
    target.exists = true;
    if (holder == FileHolder::User) {
        target.owner = status.st_uid;
        target.group = status.st_gid;
        target.permissions = status.st_mode & (S_IRWXU | S_IRWXG | S_IRWXO);
    }
    return FileError::None;
}

/// Gives the new file the old one's owner, group and permission bits, as far as the system lets this user.
void takeOver(int descriptor, const Target& target)
{
    constexpr auto SameOwner = static_cast<uid_t>(-1);
    if (fchown(descriptor, target.owner, target.group) != 0 && fchown(descriptor, SameOwner, target.group) != 0) {
        // The file then belongs to whoever saved it; its permission bits follow all the same.
    }
    if (fchmod(descriptor, target.permissions) != 0) {
        // A disk without permission bits has none to keep.
    }
}

/// A number that nobody can know beforehand, so that nobody can take all names of a temporary file.
long unforeseen()
{
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    return now.tv_nsec;
}

/// Replaces by temporary file and rename. 0, or errno; then nothing has changed.
int replaceByRename(const Target& target, const ByteBuffer& content)
{
    const std::string prefix = folderPrefixOf(target.path) + ".tvl" + std::to_string(getpid()) + "-";
    const mode_t whileWritten = target.exists ? OwnerOnly : target.permissions;
    FileHandle file;
    std::string temporary;
    if (const int error = createNumbered({prefix, unforeseen(), "~"}, whileWritten, file, temporary); error != 0)
        return error;
    if (target.exists || target.owner != geteuid())
        takeOver(file.descriptor(), target);
    int error = writeAll(file.descriptor(), content);
    if (error == 0)
        error = target.flushed ? flushAndClose(file) : file.close();
    if (error == 0 && rename(temporary.c_str(), target.path.c_str()) != 0)
        error = errno;
    if (error != 0)
        unlink(temporary.c_str());
    return error;
}

/// Copies an open file to its end. 0, or errno.
int copyAll(const FileHandle& from, int to)
{
    std::array<char, 65536> piece{};
    for (;;) {
        const ssize_t count = uninterrupted([&] { return read(from.descriptor(), piece.data(), piece.size()); });
        if (count <= 0)
            return count == 0 ? 0 : errno;
        if (const int error = writeAll(to, {piece.data(), static_cast<std::size_t>(count)}); error != 0)
            return error;
    }
}

/// Overwrites the file where it stands and ends it behind the new bytes, which `write` (a callable that takes the
/// descriptor and returns 0 or errno) brings. 0, or errno.
template <typename Write>
int overwrite(const std::string& path, Write&& write)
{
    FileHandle file;
    const int descriptor = openFile(path, O_WRONLY | O_NOFOLLOW);
    if (descriptor < 0)
        return errno;
    file.take(descriptor);
    if (const int error = write(descriptor); error != 0)
        return error;
    const off_t length = lseek(descriptor, 0, SEEK_CUR);
    if (length < 0 || uninterrupted([&] { return ftruncate(descriptor, length); }) != 0)
        return errno;
    return flushAndClose(file);
}

/// Keeps the old bytes in the state folder under a name that tells the file. 0 with the copy's path, or a FileError.
int keepSafetyCopy(const Target& target, std::string& copy)
{
    constexpr std::size_t NameRoom = 200; // of the 255 bytes that a name may have
    if (App.StateDir.empty())
        return FileError::AccessDenied;
    FileHandle old, file;
    if (const int error = openRegularFile(target.path, O_RDONLY | O_NOFOLLOW, old); error != 0)
        return error;
    if (!old.isOpen()) // gone since it was looked at
        return FileError::AccessDenied;
    const std::string name = target.path.substr(folderPrefixOf(target.path).size(), NameRoom);
    int error = createNumbered({App.StateDir + "/SafetyCopy", 1, "-" + name}, OwnerOnly, file, copy);
    if (error != 0)
        return fileErrorOf(error);
    error = copyAll(old, file.descriptor());
    if (error == 0)
        error = flushAndClose(file);
    if (error == 0)
        error = flushFolder(copy);
    if (error != 0)
        unlink(copy.c_str());
    return fileErrorOf(error);
}

/// Writes the safety copy's bytes over the file. True when they stand there again.
bool putBack(const std::string& copy, const Target& target)
{
    FileHandle kept;
    return openRegularFile(copy, O_RDONLY | O_NOFOLLOW, kept) == 0 && kept.isOpen() &&
           overwrite(target.path, [&](int descriptor) { return copyAll(kept, descriptor); }) == 0;
}

/// Writes in place behind a safety copy. After a failure the old bytes are put back; where even that fails the copy
/// stays.
int replaceInPlace(const Target& target, const ByteBuffer& content, const std::function<void()>& beforeInPlace)
{
    std::string copy;
    if (const int error = keepSafetyCopy(target, copy); error != 0)
        return error;
    beforeInPlace();
    const int error = overwrite(target.path, [&](int descriptor) { return writeAll(descriptor, content); });
    if (error == 0 || putBack(copy, target))
        unlink(copy.c_str());
    return fileErrorOf(error);
}

bool folderRefuses(int error) { return error == EACCES || error == EPERM || error == EROFS || error == EBUSY; }

} // namespace

int replaceFile(const std::string& path, const ByteBuffer& content)
{
    return replaceFileTelling(path, content, FileHolder::User, [] {});
}

int replaceStateFile(const std::string& path, const ByteBuffer& content)
{
    return replaceFileTelling(path, content, FileHolder::Program, [] {});
}

int replaceRunRecord(const std::string& path, const ByteBuffer& content)
{
    return replaceFileTelling(path, content, FileHolder::Run, [] {});
}

int replaceFileTelling(const std::string& path, const ByteBuffer& content, FileHolder holder,
                       const std::function<void()>& beforeInPlace)
{
    Target target;
    if (const int error = findTarget(path, holder, target); error != 0)
        return error;
    const int error = replaceByRename(target, content);
    if (error == 0)
        return target.flushed ? fileErrorOf(flushFolder(target.path)) : FileError::None;
    if (target.exists && folderRefuses(error))
        return replaceInPlace(target, content, beforeInPlace);
    return fileErrorOf(error);
}
