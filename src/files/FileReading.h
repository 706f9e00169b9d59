// What the four readers share: the title of their messages, and reading a file so that an absent or empty one is
// told from a present one and leaves nothing on disk.
#pragma once

#include "core/RandomFile.h"

#include <cstdint>
#include <string>
#include <string_view>

/// Sets the title that the messages of this read carry, "Opening " and the file's name, and returns it.
std::string openingTitle(std::string_view fileName);

enum class Presence { Present, Absent, Aborted };

/// Reads at most `limit` bytes. Absent: there is no such file, or it had no byte and is deleted. Aborted: a file error
/// was reported. `content` is filled only when Present.
[[nodiscard]] Presence readPresent(const std::string& path, std::int64_t limit, FileContent& content);

/// True when the file has exactly `size` bytes and all of them were read.
bool hasExactly(const FileContent& content, int size);
