// Files as the instrument's world knows them: numbered records of a fixed length, and numbered errors.
//
// A file is open only for the length of one operation. Opening follows no pipe, device or folder; an absent file is
// told by its absence and leaves nothing behind.
#pragma once

#include "core/Bytes.h"
#include "core/FileErrors.h"

#include <cstdint>
#include <functional>
#include <string>

/// A whole file read for one operation.
struct FileContent {
    std::int64_t length = 0; ///< length of the file on disk, bytes; 0 when it is absent
    ByteBuffer bytes;        ///< the first `limit` bytes of it, or all
};

/// Reads at most `limit` bytes of a file. An absent file is no error: its length is 0. Returns a FileError. On an
/// error `content` is left as it was. The name is resolved by resolveFileName. A folder, pipe, socket or device is
/// AccessDenied, a folder of the path that is missing PathNotFound.
[[nodiscard]] int readFile(const std::string& path, std::int64_t limit, FileContent& content);

/// Writes a whole file so that a crash at any instant leaves the old file or the new one: a temporary file in the
/// same folder, every write and the flush checked, renamed over the old one, the folder flushed. Returns a FileError;
/// then the old file stands untouched (or the new one stands, where only the last flush, the folder's, failed). The
/// name is resolved by resolveFileName and a symbolic link's target is replaced; permission bits stay. Where the folder
/// lets nothing be created, a safety copy is kept in App.StateDir while an existing file is written in place.
[[nodiscard]] int replaceFile(const std::string& path, const ByteBuffer& content);

/// The same for a file of the program's own in the state folder: its permission bits are 0600, and a symbolic link that
/// someone else has put in its place gives way to it. The user's own link is followed.
[[nodiscard]] int replaceStateFile(const std::string& path, const ByteBuffer& content);

/// The same for a record of what runs now, which the disk is not waited for: a crash of the program leaves the old one
/// or the new one, but a power cut may leave bytes of neither. Nothing runs after that, and the reader takes them for
/// none.
[[nodiscard]] int replaceRunRecord(const std::string& path, const ByteBuffer& content);

/// Whose file is replaced: one of the user's, or one of the program's own in the state folder; of these one that tells
/// of this run alone is not flushed.
enum class FileHolder { User, Program, Run };

/// The same for either; `beforeInPlace` is called before the old file is overwritten where it stands, as every other
/// name that leads to it would show the new bytes.
[[nodiscard]] int replaceFileTelling(const std::string& path, const ByteBuffer& content, FileHolder holder,
                                     const std::function<void()>& beforeInPlace);

/// Deletes a file, under the name that resolveFileName finds; of a symbolic link the link. An absent file is no error.
[[nodiscard]] int deleteFile(const std::string& path);

/// The name on disk for a path with an extension: the path itself if it exists, else the only file of its folder
/// whose name differs in letter case alone, else the path itself.
std::string resolveFileName(const std::string& path);

/// A record of a file image, 1-based number; what lies behind the image's end reads as NUL bytes.
ByteBuffer recordOf(std::string_view image, int recordLength, int recordNumber);
