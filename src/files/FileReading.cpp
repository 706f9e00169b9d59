// The steps that all readers begin with.
#include "files/FileReading.h"

#include "core/Dichiarazioni.h"
#include "core/Reports.h"
#include "core/Strings.h"

#include <filesystem>

namespace
{

constexpr int OpeningRow = 111;

/// True when the name stands for an existing regular file without a byte.
bool emptyFileStands(const std::string& path)
{
    std::error_code error;
    const std::filesystem::path name = resolveFileName(path);
    return std::filesystem::is_regular_file(name, error) && std::filesystem::file_size(name, error) == 0 && !error;
}

} // namespace

std::string openingTitle(std::string_view fileName)
{
    App.ErrTitle = ResText(OpeningRow) + std::string(fileName);
    return App.ErrTitle;
}

Presence readPresent(const std::string& path, std::int64_t limit, FileContent& content)
{
    FileContent read;
    if (RetryStatement([&] { return readFile(path, limit, read); }) != 0)
        return Presence::Aborted;
    if (read.length > 0) {
        content = std::move(read);
        return Presence::Present;
    }
    // A name that never existed must not be deleted: on a read-only disk even that would be an error.
    if (emptyFileStands(path) && RetryStatement([&] { return deleteFile(path); }) != 0)
        return Presence::Aborted;
    return Presence::Absent;
}

bool hasExactly(const FileContent& content, int size)
{
    return content.length == size && lengthOf(content.bytes) == size;
}
