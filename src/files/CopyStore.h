// The place of the safety copies: their names, their folders, and how many of them there may be.
//
// The folder Safety below the state folder holds a folder for each file, at the path that the file itself has on the
// disk. A copy is named by the time of its keeping and a number among those of that second.
#pragma once

#include <cstdint>
#include <string>

namespace CopyStore
{

inline constexpr std::int64_t BytesTogether = 200'000'000; ///< of all copies
inline constexpr const char* UnfinishedMark = "~";         ///< behind the name while a copy's bytes come

/// A name behind all copies of a file, also where the clock was set back. `original` is the file's full path. Makes
/// the folders. Empty where they cannot be made, or are not this user's: a link or another's folder in their place
/// would lead copies elsewhere.
std::string newCopyPath(const std::string& original, const char* extension);

/// Removes a copy, and the folders above it that it leaves empty.
void remove(const std::string& path);

/// A copy of `size` bytes has come: lets the oldest go until at most 20 of its file and 200 MB together remain.
void makeRoom(const std::string& newest, std::int64_t size);

/// Lets the oldest copies on the disk of `folder` go until at least `bytes` are free there for a file. True when any
/// went.
bool letOldestGo(std::int64_t bytes, const std::string& folder);

} // namespace CopyStore
