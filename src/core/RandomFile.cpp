// Reading, deleting and naming files.
#include "core/RandomFile.h"

#include "core/FileHandle.h"
#include "core/PathNames.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace
{

/// Opens for reading under the name that the disk has. No open handle after success: the file is absent.
int openResolved(const std::string& path, FileHandle& file)
{
    const int error = openRegularFile(path, O_RDONLY, file);
    if (error != 0 || file.isOpen())
        return error;
    const std::string onDisk = resolveFileName(path);
    return onDisk == path ? FileError::None : openRegularFile(onDisk, O_RDONLY, file);
}

/// Reads up to bytes.size() bytes; a file that has become shorter shortens the buffer. 0, or errno.
int readAll(int descriptor, ByteBuffer& bytes)
{
    std::size_t have = 0;
    while (have < bytes.size()) {
        const ssize_t count = uninterrupted([&] { return read(descriptor, bytes.data() + have, bytes.size() - have); });
        if (count < 0)
            return errno;
        if (count == 0)
            break;
        have += static_cast<std::size_t>(count);
    }
    bytes.resize(have);
    return 0;
}

} // namespace

int readFile(const std::string& path, std::int64_t limit, FileContent& content)
{
    FileHandle file;
    if (const int error = openResolved(path, file); error != 0)
        return error;
    FileContent found;
    if (file.isOpen()) {
        struct stat status {
        };
        if (fstat(file.descriptor(), &status) != 0)
            return fileErrorOf(errno);
        const std::int64_t wanted = std::clamp<std::int64_t>(limit, 0, status.st_size);
        found.bytes.resize(static_cast<std::size_t>(wanted));
        if (const int error = readAll(file.descriptor(), found.bytes); error != 0)
            return fileErrorOf(error);
        const auto got = static_cast<std::int64_t>(found.bytes.size());
        found.length = got < wanted ? got : status.st_size;
    }
    content = std::move(found);
    return FileError::None;
}

int deleteFile(const std::string& path)
{
    if (!canNameAFile(path))
        return FileError::PathNotFound;
    const std::string onDisk = resolveFileName(path);
    struct stat status {
    };
    if (stat(onDisk.c_str(), &status) == 0 && !S_ISREG(status.st_mode))
        return FileError::AccessDenied;
    if (unlink(onDisk.c_str()) == 0)
        return FileError::None;
    const int error = errno;
    return error == ENOENT ? absenceOf(onDisk) : fileErrorOf(error);
}

std::string resolveFileName(const std::string& path)
{
    struct stat status {
    };
    if (path.empty() || lstat(path.c_str(), &status) == 0)
        return path;
    const OpenFolder folder = openFolder(openableFolderOf(path));
    if (!folder)
        return path;
    const std::string prefix = folderPrefixOf(path);
    const std::string_view name = std::string_view(path).substr(prefix.size());
    std::string only;
    while (const dirent* entry = readdir(folder.get())) {
        if (!sameFileName(entry->d_name, name))
            continue;
        if (!only.empty())
            return path;
        only = entry->d_name;
    }
    return only.empty() ? path : prefix + only;
}

ByteBuffer recordOf(std::string_view image, int recordLength, int recordNumber)
{
    ByteBuffer record(slice(image, {(recordNumber - 1) * recordLength, recordLength}));
    record.resize(static_cast<std::size_t>(std::max(recordLength, 0)), '\0');
    return record;
}
