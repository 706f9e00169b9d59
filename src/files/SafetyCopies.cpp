// Keeping the bytes that are about to go. Where the disk has hard links the copy is the old file itself under a second
// name, and costs nothing; elsewhere its bytes are copied.
#include "files/SafetyCopies.h"

#include "core/Dichiarazioni.h"
#include "core/FileHandle.h"
#include "core/PathNames.h"
#include "core/RandomFile.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <fcntl.h>
#include <filesystem>
#include <memory>
#include <sys/stat.h>
#include <tuple>
#include <unistd.h>
#include <vector>

namespace
{

namespace fs = std::filesystem;

constexpr int CopiesOfOneFile = 20;
constexpr std::int64_t BytesTogether = 200'000'000; ///< of all copies

constexpr const char* UnfinishedMark = "~";
constexpr std::size_t StampWidth = 19; // "2025-01-31 14.23.05"
constexpr std::size_t NumberWidth = 3;

std::string rootFolder() { return App.StateDir + "/Safety"; }

/// The age of a copy as its name tells it: local time of its keeping, and a number among those of that second.
struct CopyAge {
    std::string stamp;
    int number = 0;
};

bool operator<(const CopyAge& one, const CopyAge& other)
{
    return std::tie(one.stamp, one.number) < std::tie(other.stamp, other.number);
}

struct Copy {
    std::string path;
    CopyAge age;
    std::int64_t size = 0;
};

bool matches(std::string_view text, std::string_view pattern)
{
    return text.size() == pattern.size() && std::equal(text.begin(), text.end(), pattern.begin(), [](char c, char p) {
               return p == '#' ? c >= '0' && c <= '9' : c == p;
           });
}

/// True for the names that this file makes, "2025-01-31 14.23.05-001.arr"; then `age` tells their age.
bool isCopyName(std::string_view name, CopyAge& age)
{
    constexpr std::string_view Pattern = "####-##-## ##.##.##-###";
    if (!matches(name.substr(0, Pattern.size()), Pattern))
        return false;
    age.stamp = name.substr(0, StampWidth);
    age.number = std::atoi(std::string(name.substr(StampWidth + 1, NumberWidth)).c_str());
    return true;
}

std::string copyName(const CopyAge& age, const char* extension)
{
    char number[16];
    std::snprintf(number, sizeof number, "-%03d", age.number);
    return age.stamp + number + extension;
}

std::string stampOfNow()
{
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    char text[32];
    if (localtime_r(&now, &local) == nullptr || std::strftime(text, sizeof text, "%Y-%m-%d %H.%M.%S", &local) == 0)
        return "0000-00-00 00.00.00";
    return text;
}

void addCopy(const fs::directory_entry& entry, std::vector<Copy>& copies)
{
    std::error_code error;
    Copy copy{entry.path().string(), {}, 0};
    if (!isCopyName(entry.path().filename().string(), copy.age) || !entry.is_regular_file(error))
        return;
    if (copy.path.ends_with(UnfinishedMark)) {
        unlink(copy.path.c_str()); // what a crash left of a copy
        return;
    }
    copy.size = static_cast<std::int64_t>(entry.file_size(error));
    if (!error)
        copies.push_back(std::move(copy));
}

/// The copies that `Walk`, an iterator over a folder or over all below it, finds; oldest first.
template <typename Walk>
std::vector<Copy> copiesIn(const std::string& folder)
{
    std::vector<Copy> copies;
    std::error_code error;
    for (Walk walk(folder, error), none; !error && walk != none; walk.increment(error))
        addCopy(*walk, copies);
    std::sort(copies.begin(), copies.end(), [](const Copy& one, const Copy& other) { return one.age < other.age; });
    return copies;
}

std::vector<Copy> copiesOfOne(const std::string& folder) { return copiesIn<fs::directory_iterator>(folder); }
std::vector<Copy> allCopies() { return copiesIn<fs::recursive_directory_iterator>(rootFolder()); }

/// Removes a copy, and the folders above it that it leaves empty.
void removeCopy(const std::string& path)
{
    unlink(path.c_str());
    const std::string root = rootFolder();
    for (std::string folder = FolderOf(path); folder.size() > root.size(); folder = FolderOf(folder))
        if (rmdir(folder.c_str()) != 0)
            return;
}

void makeFolders(const std::string& folder)
{
    constexpr mode_t OwnerOnly = 0700;
    for (std::size_t slash = folder.find('/', rootFolder().size()); slash != std::string::npos;
         slash = folder.find('/', slash + 1))
        mkdir(folder.substr(0, slash).c_str(), OwnerOnly);
    mkdir(folder.c_str(), OwnerOnly);
}

/// What all copies take, bytes. Counted once a run, then kept by addition: a walk at each save would be felt.
struct Account {
    std::string root;
    std::int64_t bytes = 0;
};
Account account;

std::int64_t sumOf(const std::vector<Copy>& copies)
{
    std::int64_t sum = 0;
    for (const Copy& copy : copies)
        sum += copy.size;
    return sum;
}

/// Lets the oldest go until what remains is within the limits.
void makeRoom(const std::string& newest, std::int64_t size)
{
    std::vector<Copy> ofThisFile = copiesOfOne(FolderOf(newest));
    const std::size_t most = CopiesOfOneFile;
    for (std::size_t oldest = 0; oldest + most < ofThisFile.size(); ++oldest) {
        removeCopy(ofThisFile[oldest].path);
        account.bytes -= ofThisFile[oldest].size;
    }
    account.bytes += size;
    if (account.root == rootFolder() && account.bytes <= BytesTogether)
        return;
    const std::vector<Copy> copies = allCopies();
    account = {rootFolder(), sumOf(copies)};
    for (std::size_t oldest = 0; oldest < copies.size() && account.bytes > BytesTogether; ++oldest) {
        removeCopy(copies[oldest].path);
        account.bytes -= copies[oldest].size;
    }
}

/// The old file and its copy.
struct Kept {
    std::string original; ///< full path, links resolved; empty when nothing was kept
    std::string copy;
    std::int64_t size = 0;
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
    constexpr unsigned OwnerOnly = 0600;
    FileContent content;
    if (readFile(from, size, content) != 0 || content.length != size)
        return false;
    const std::string unfinished = to + UnfinishedMark;
    FileHandle file;
    file.take(openFile(unfinished, O_WRONLY | O_CREAT | O_TRUNC | O_NOFOLLOW, OwnerOnly));
    const bool whole = file.isOpen() && writeAll(file.descriptor(), content.bytes) == 0 &&
                       fsync(file.descriptor()) == 0 && file.close() == 0 &&
                       rename(unfinished.c_str(), to.c_str()) == 0;
    if (!whole)
        unlink(unfinished.c_str());
    return whole;
}

/// A name behind all copies of the file, also where the clock was set back.
CopyAge nextAge(const std::string& folder)
{
    constexpr int LastNumber = 999;
    CopyAge age{stampOfNow(), 1};
    const std::vector<Copy> copies = copiesOfOne(folder);
    if (!copies.empty() && !(copies.back().age < age))
        age = {copies.back().age.stamp, std::min(copies.back().age.number + 1, LastNumber)};
    return age;
}

/// Keeps what stands under a path. Whatever goes wrong, the save goes on without a copy.
Kept keep(const std::string& path)
{
    const std::string original = App.StateDir.empty() ? std::string() : realPath(resolveFileName(path));
    struct stat status {
    };
    if (original.empty() || stat(original.c_str(), &status) != 0 || !S_ISREG(status.st_mode) || status.st_size == 0 ||
        status.st_size > BytesTogether)
        return {};
    const std::string folder = rootFolder() + original;
    makeFolders(folder);
    const std::string copy = folder + "/" + copyName(nextAge(folder), extensionOf(FileKindOf(path)));
    const bool linked = mayBeLinked(original, status) && link(original.c_str(), copy.c_str()) == 0;
    if (!linked && !copyBytes(original, copy, status.st_size)) {
        removeCopy(copy);
        return {};
    }
    return {original, copy, status.st_size};
}

bool sameBytes(const std::string& one, const std::string& other)
{
    FileContent first, second;
    return readFile(one, BytesTogether, first) == 0 && readFile(other, BytesTogether, second) == 0 &&
           first.length == second.length && first.bytes == second.bytes;
}

/// The save has ended: a copy of what still stands goes again, any other takes its place among the copies.
void settle(const Kept& kept, bool mayStillStand)
{
    if (kept.copy.empty())
        return;
    if (mayStillStand && sameBytes(kept.original, kept.copy))
        removeCopy(kept.copy);
    else
        makeRoom(kept.copy, kept.size);
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

} // namespace

int replaceKeeping(const std::string& path, const ByteBuffer& content)
{
    const Kept kept = alreadyHolds(path, content) ? Kept{} : keep(path);
    const int error = replaceFile(path, content);
    settle(kept, error != 0);
    return error;
}

int deleteKeeping(const std::string& path)
{
    if (isReadOnly(path))
        return FileError::AccessDenied;
    const Kept kept = keep(path);
    const int error = deleteFile(path);
    settle(kept, true); // of a link the link went, and what it points to stands
    return error;
}
