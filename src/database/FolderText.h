// The working folder as the database window shows it.
#pragma once

#include <string>

/// A path of at most so many characters (UTF-8): whole where it fits, else its first three characters, ".../" and the
/// end of it from the first "/" that leaves room; where even the last folder's name is too long, the end of that name.
std::string shortFolder(const std::string& path, int characters);
