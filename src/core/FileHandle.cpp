// Opening without waiting, and telling an absent file from an absent folder.
#include "core/FileHandle.h"

#include "core/FileErrors.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

FileHandle::~FileHandle()
{
    if (isOpen())
        ::close(descriptor_);
}

void FileHandle::take(int descriptor)
{
    if (isOpen())
        ::close(descriptor_);
    descriptor_ = descriptor;
}

int FileHandle::close()
{
    const int descriptor = descriptor_;
    descriptor_ = -1;
    // The descriptor is gone also after EINTR; a second close could hit another file.
    return descriptor < 0 || ::close(descriptor) == 0 || errno == EINTR ? 0 : errno;
}

int openFile(const std::string& path, int flags, unsigned mode)
{
    return uninterrupted(
        [&] { return open(path.c_str(), flags | O_CLOEXEC | O_NONBLOCK | O_NOCTTY, static_cast<mode_t>(mode)); });
}

OpenFolder openFolder(const std::string& path)
{
    OpenFolder folder(nullptr, closedir);
    do {
        errno = 0;
        folder.reset(opendir(path.c_str()));
    } while (!folder && errno == EINTR);
    return folder;
}

namespace
{

bool isOtherThanFile(const std::string& path)
{
    struct stat status {
    };
    return stat(path.c_str(), &status) == 0 && !S_ISREG(status.st_mode);
}

} // namespace

int openRegularFile(const std::string& path, int flags, FileHandle& file)
{
    if (!canNameAFile(path))
        return FileError::PathNotFound;
    // Asked first, so that no device notices: some act on being opened.
    if (isOtherThanFile(path))
        return FileError::AccessDenied;
    const int descriptor = openFile(path, flags);
    if (descriptor < 0) {
        const int error = errno;
        return error == ENOENT ? absenceOf(path) : fileErrorOf(error);
    }
    file.take(descriptor);
    struct stat status {
    };
    if (fstat(descriptor, &status) != 0)
        return fileErrorOf(errno);
    return S_ISREG(status.st_mode) ? FileError::None : FileError::AccessDenied;
}

bool canNameAFile(std::string_view path) { return !path.empty() && path.find('\0') == std::string_view::npos; }

int writeAll(int descriptor, std::string_view bytes)
{
    while (!bytes.empty()) {
        const ssize_t written = uninterrupted([&] { return write(descriptor, bytes.data(), bytes.size()); });
        if (written < 0)
            return errno;
        if (written == 0)
            return EIO;
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return 0;
}

int flush(const FileHandle& file)
{
    return uninterrupted([&] { return fsync(file.descriptor()); }) == 0 ? 0 : errno;
}

int flushFolder(const std::string& path)
{
    FileHandle folder;
    folder.take(openFile(openableFolderOf(path), O_RDONLY | O_DIRECTORY));
    const int error = folder.isOpen() ? flush(folder) : 0;
    return error == EINVAL || error == ENOTSUP ? 0 : error;
}

std::string folderPrefixOf(const std::string& path)
{
    const std::size_t slash = path.rfind('/');
    return slash == std::string::npos ? std::string() : path.substr(0, slash + 1);
}

std::string openableFolderOf(const std::string& path)
{
    const std::string prefix = folderPrefixOf(path);
    return prefix.empty() ? "." : prefix;
}

int absenceOf(const std::string& path)
{
    struct stat status {
    };
    if (stat(openableFolderOf(path).c_str(), &status) != 0)
        return fileErrorOf(errno);
    return S_ISDIR(status.st_mode) ? FileError::None : FileError::PathNotFound;
}
