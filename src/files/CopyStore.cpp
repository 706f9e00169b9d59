// Names, folders and limits of the safety copies.
#include "files/CopyStore.h"

#include "core/Dichiarazioni.h"
#include "core/PathNames.h"

#include <algorithm>
#include <charconv>
#include <ctime>
#include <filesystem>
#include <sys/stat.h>
#include <tuple>
#include <unistd.h>
#include <vector>

namespace
{

namespace fs = std::filesystem;

constexpr mode_t OwnerOnly = 0700;
constexpr int CopiesOfOneFile = 20;
constexpr std::size_t StampWidth = 19; // "2025-01-31 14.23.05"

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

bool isDigit(char letter) { return letter >= '0' && letter <= '9'; }

bool matches(std::string_view text, std::string_view pattern)
{
    return text.size() == pattern.size() &&
           std::equal(text.begin(), text.end(), pattern.begin(), [](char letter, char expected) {
               return expected == '#' ? isDigit(letter) : letter == expected;
           });
}

/// True for the names that this file makes, "2025-01-31 14.23.05-001.arr"; then `age` tells their age.
bool isCopyName(std::string_view name, CopyAge& age)
{
    constexpr std::string_view Pattern = "####-##-## ##.##.##-";
    constexpr std::size_t FewestDigits = 3, MostDigits = 9;
    if (!matches(name.substr(0, Pattern.size()), Pattern))
        return false;
    const std::string_view behind = name.substr(Pattern.size());
    const auto digits =
        static_cast<std::size_t>(std::find_if_not(behind.begin(), behind.end(), isDigit) - behind.begin());
    if (digits < FewestDigits || digits > MostDigits)
        return false;
    age.stamp = name.substr(0, StampWidth);
    return std::from_chars(behind.data(), behind.data() + digits, age.number).ec == std::errc();
}

std::string copyName(const CopyAge& age, const char* extension)
{
    constexpr std::size_t Digits = 3; // at least
    const std::string number = std::to_string(age.number);
    const std::string zeros(Digits - std::min(number.size(), Digits), '0');
    return age.stamp + "-" + zeros + number + extension;
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
    if (copy.path.ends_with(CopyStore::UnfinishedMark)) {
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

/// True for a folder that is this user's own, and no link to one. It is closed to others if it is not.
bool isOwnFolder(const std::string& path)
{
    struct stat status {
    };
    if (lstat(path.c_str(), &status) != 0 || !S_ISDIR(status.st_mode) || (status.st_uid != geteuid() && geteuid() != 0))
        return false;
    constexpr mode_t Others = S_IRWXG | S_IRWXO;
    if ((status.st_mode & Others) != 0 && chmod(path.c_str(), OwnerOnly) != 0) {
        // A disk without permission bits has no links either.
    }
    return true;
}

std::vector<Copy> copiesOfOne(const std::string& folder) { return copiesIn<fs::directory_iterator>(folder); }

std::vector<Copy> allCopies()
{
    return isOwnFolder(rootFolder()) ? copiesIn<fs::recursive_directory_iterator>(rootFolder()) : std::vector<Copy>();
}

/// A new folder, or one of this user's that stands there.
bool makeFolder(const std::string& path) { return mkdir(path.c_str(), OwnerOnly) == 0 || isOwnFolder(path); }

/// The root and every folder below it on the way.
bool makeFolders(const std::string& folder)
{
    for (std::size_t slash = folder.find('/', rootFolder().size()); slash != std::string::npos;
         slash = folder.find('/', slash + 1))
        if (!makeFolder(folder.substr(0, slash)))
            return false;
    return makeFolder(folder);
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

CopyAge nextAge(const std::string& folder)
{
    CopyAge age{stampOfNow(), 1};
    const std::vector<Copy> copies = copiesOfOne(folder);
    if (!copies.empty() && !(copies.back().age < age))
        age = {copies.back().age.stamp, copies.back().age.number + 1};
    return age;
}

} // namespace

std::string CopyStore::newCopyPath(const std::string& original, const char* extension)
{
    const std::string folder = rootFolder() + original;
    if (!makeFolders(folder))
        return {};
    return folder + "/" + copyName(nextAge(folder), extension);
}

void CopyStore::remove(const std::string& path)
{
    unlink(path.c_str());
    const std::string root = rootFolder();
    for (std::string folder = FolderOf(path); folder.size() > root.size(); folder = FolderOf(folder))
        if (rmdir(folder.c_str()) != 0)
            return;
}

void CopyStore::makeRoom(const std::string& newest, std::int64_t size)
{
    std::vector<Copy> ofThisFile = copiesOfOne(FolderOf(newest));
    const std::size_t most = CopiesOfOneFile;
    for (std::size_t oldest = 0; oldest + most < ofThisFile.size(); ++oldest) {
        remove(ofThisFile[oldest].path);
        account.bytes -= ofThisFile[oldest].size;
    }
    account.bytes += size;
    if (account.root == rootFolder() && account.bytes <= BytesTogether)
        return;
    const std::vector<Copy> copies = allCopies();
    account = {rootFolder(), sumOf(copies)};
    for (std::size_t oldest = 0; oldest < copies.size() && account.bytes > BytesTogether; ++oldest) {
        remove(copies[oldest].path);
        account.bytes -= copies[oldest].size;
    }
}

bool CopyStore::letOldestGo(std::int64_t bytes, const std::string& folder)
{
    struct stat disk {
    };
    if (stat(folder.c_str(), &disk) != 0)
        return false;
    std::int64_t freed = 0;
    for (const Copy& copy : allCopies()) {
        struct stat status {
        };
        if (freed >= bytes)
            break;
        if (lstat(copy.path.c_str(), &status) != 0 || status.st_dev != disk.st_dev || status.st_nlink != 1)
            continue;
        remove(copy.path);
        freed += copy.size;
        account.bytes -= copy.size;
    }
    return freed > 0;
}
