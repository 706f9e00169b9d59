// What reading and replacing of files share beneath RandomFile.h: descriptors, and the checks of what a path names.
#pragma once

#include <cerrno>
#include <dirent.h>
#include <memory>
#include <string>
#include <string_view>

/// An open file, closed at the end of its scope.
class FileHandle
{
public:
    FileHandle() = default;
    ~FileHandle();
    FileHandle(const FileHandle&) = delete;
    FileHandle& operator=(const FileHandle&) = delete;

    bool isOpen() const { return descriptor_ >= 0; }
    int descriptor() const { return descriptor_; }
    /// Takes the descriptor of an open file over.
    void take(int descriptor);
    /// Closes now. 0, or the errno of a write that failed late.
    [[nodiscard]] int close();

private:
    int descriptor_ = -1;
};

/// open(2). The descriptor is not inherited and never waits for a pipe or device.
/// -1 with errno set when it fails.
int openFile(const std::string& path, int flags, unsigned mode = 0);

using OpenFolder = std::unique_ptr<DIR, int (*)(DIR*)>;

/// opendir(3). Null with errno set when it fails.
OpenFolder openFolder(const std::string& path);

/// Opens a regular file. 0 with an open handle; 0 with none when the file is absent; or a FileError.
[[nodiscard]] int openRegularFile(const std::string& path, int flags, FileHandle& file);

/// Repeats a system call that answers -1 (`call`, a callable) while a signal interrupts it. Its last answer.
template <typename Call>
auto uninterrupted(Call&& call)
{
    auto answer = call();
    while (answer < 0 && errno == EINTR)
        answer = call();
    return answer;
}

/// False for a path that can name no file: an empty one, or one with a NUL in it, where the system would cut it and
/// reach another file.
bool canNameAFile(std::string_view path);

/// Writes all bytes. 0, or errno.
[[nodiscard]] int writeAll(int descriptor, std::string_view bytes);

/// fsync(2). 0, or errno.
[[nodiscard]] int flush(const FileHandle& file);

/// Brings the names in the folder of a path to the disk. 0, or errno. Where folders cannot be opened or flushed there
/// is nothing to wait for.
[[nodiscard]] int flushFolder(const std::string& path);

/// The path up to and with its last "/"; empty for a bare name.
std::string folderPrefixOf(const std::string& path);

/// The folder of a path in a form that can be opened: "/" and "." where the path gives no other.
std::string openableFolderOf(const std::string& path);

/// What it means that there is no file of that name: 0 where its folder is there, else the FileError of the folder.
[[nodiscard]] int absenceOf(const std::string& path);
