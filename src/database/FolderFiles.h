// A folder's file names, read once, so that a thousand files are found without a look into the folder for each.
#pragma once

#include <string>
#include <vector>

class FolderFiles
{
public:
    /// Reads the names. A folder may be empty text: the root. Returns a FileError.
    [[nodiscard]] int read(const std::string& folder);

    /// The full path on disk of a name: as it stands, else the only one that differs in letter case alone; empty when
    /// there is none.
    std::string pathOf(const std::string& name) const;

    /// Names of the arrangement files by their extension in any letter case, hidden ones left out, sorted by name with
    /// case ignored. Folders, pipes and devices are none.
    std::vector<std::string> arrangements() const;
    std::string fullPath(const std::string& name) const { return prefix_ + name; }

private:
    struct Entry {
        std::string upper; ///< the name in capitals
        std::string name;
        bool mayBeFile = true; ///< no folder, pipe or device; a link may lead to a file
    };
    std::string prefix_;
    std::vector<Entry> entries_; ///< sorted
};

/// The first bytes of a file and its length, for a check of what it is.
struct FileHead {
    long length = 0; ///< bytes on disk; 0 when it is absent or empty
    std::string bytes;
};

/// Reads at most `limit` bytes of a regular file that a folder lists. An empty one is deleted: the system's own way of
/// looking for a file makes one. Returns a FileError; one that has gone meanwhile is none, and has no length.
[[nodiscard]] int readHead(const std::string& path, int limit, FileHead& head);
