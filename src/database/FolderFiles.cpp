// One walk through the folder, one open, look and read a file.
#include "database/FolderFiles.h"

#include "core/FileErrors.h"
#include "core/FileHandle.h"
#include "core/PathNames.h"
#include "core/RandomFile.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace
{

bool mayBeFile(const dirent& found)
{
    return found.d_type == DT_REG || found.d_type == DT_LNK || found.d_type == DT_UNKNOWN;
}

} // namespace

int FolderFiles::read(const std::string& folder)
{
    prefix_ = folder + "/";
    if (!canNameAFile(prefix_))
        return FileError::PathNotFound;
    const OpenFolder open = openFolder(folder.empty() ? "/" : folder);
    if (!open)
        return fileErrorOf(errno);
    entries_.clear();
    // A walk that breaks off must not pass for a folder with fewer files.
    while (const dirent* found = (errno = 0, readdir(open.get()))) {
        std::string name = found->d_name;
        std::string upper = upperFileName(name);
        entries_.push_back({std::move(upper), std::move(name), mayBeFile(*found)});
    }
    if (errno != 0)
        return fileErrorOf(errno);
    std::sort(entries_.begin(), entries_.end(), [](const Entry& one, const Entry& other) {
        return one.upper != other.upper ? one.upper < other.upper : one.name < other.name;
    });
    return FileError::None;
}

std::string FolderFiles::pathOf(const std::string& name) const
{
    const std::string upper = upperFileName(name);
    const auto first =
        std::lower_bound(entries_.begin(), entries_.end(), upper,
                         [](const Entry& entry, const std::string& wanted) { return entry.upper < wanted; });
    const auto behind = std::find_if(first, entries_.end(), [&](const Entry& entry) { return entry.upper != upper; });
    const auto exact = std::find_if(first, behind, [&](const Entry& entry) { return entry.name == name; });
    if (exact != behind)
        return fullPath(exact->name);
    return behind - first == 1 ? fullPath(first->name) : std::string();
}

std::vector<std::string> FolderFiles::arrangements() const
{
    std::vector<std::string> names;
    for (const Entry& entry : entries_)
        if (entry.mayBeFile && entry.name.front() != '.' && FileKindOf(entry.name) == FileKind::Arr)
            names.push_back(entry.name);
    return names;
}

int readHead(const std::string& path, int limit, FileHead& head)
{
    FileHandle file;
    struct stat status {
    };
    head = {};
    const int descriptor = openFile(path, O_RDONLY);
    if (descriptor < 0)
        return errno == ENOENT ? FileError::None : fileErrorOf(errno);
    file.take(descriptor);
    if (fstat(descriptor, &status) != 0)
        return fileErrorOf(errno);
    if (!S_ISREG(status.st_mode))
        return FileError::AccessDenied;
    if (status.st_size == 0)
        return deleteFile(path);
    head.bytes.resize(static_cast<std::size_t>(limit));
    const ssize_t count = uninterrupted([&] { return ::read(descriptor, head.bytes.data(), head.bytes.size()); });
    if (count < 0)
        return fileErrorOf(errno);
    head.bytes.resize(static_cast<std::size_t>(count));
    head.length = static_cast<long>(status.st_size);
    return FileError::None;
}
