// Safety copies: what a save replaces or removes is first kept in the folder Safety below the state folder.
//
// There each file has a folder of its own, at the path that the file itself has on the disk, and in it up to 20 copies
// named by the time at which they were replaced; all together take up to 200 MB, the oldest go first. The copies are
// the user's way back; the user's own folders show nothing of them. Keeping one never changes how a save ends: on a
// full disk copies make room for what is saved.
#pragma once

#include "core/Bytes.h"

#include <string>

/// replaceFile, behind a safety copy of other bytes that stand under the name. A FileError.
[[nodiscard]] int replaceKeeping(const std::string& path, const ByteBuffer& content);

/// replaceStateFile, behind a safety copy in the same way.
[[nodiscard]] int replaceStateKeeping(const std::string& path, const ByteBuffer& content);

/// deleteFile, behind a safety copy. A file that its owner made read only is AccessDenied and stays.
[[nodiscard]] int deleteKeeping(const std::string& path);
