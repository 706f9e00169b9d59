// Taking paths apart: all by the last "/" and the last ".". Paths are bytes of the file system.
#pragma once

#include <string>
#include <string_view>

/// The kinds of the user's files, as the recent list stores them.
namespace FileKind
{
inline constexpr int None = 0;
inline constexpr int Arr = 1;
inline constexpr int Sty = 2;
inline constexpr int Prg = 3;
inline constexpr int Pgg = 4;
inline constexpr int Gbl = 5;
} // namespace FileKind

/// Everything before the last "/"; empty without one.
std::string FolderOf(std::string_view path);

/// The name behind the last "/", without its extension: cut at the last "." when a 3-character extension follows it.
std::string FileNameOf(std::string_view path);

/// The name behind the last "/" of a path field that holds no extension: nothing is cut at a point.
std::string FileStemOf(std::string_view pathWithoutExtension);

/// 1 to 5 by the extension, in any letter case; 0 for any other, or when it has not exactly three characters.
int FileKindOf(std::string_view path);

/// True when both file names are equal but for the case of ASCII letters and of the Latin-1 letters in UTF-8.
bool sameFileName(std::string_view one, std::string_view other);

/// The name in capitals, the same letters: what a list of names is sorted by. Other bytes stay.
std::string upperFileName(std::string_view name);

/// The extension of a file kind with its point, ".arr" to ".gbl"; empty for 0.
const char* extensionOf(int fileKind);

/// The path without its last four characters when those are a point and a 3-character extension.
std::string withoutExtension(std::string_view path);

/// Width of every path field on disk and in a Tag.
inline constexpr int PathFieldWidth = 238;

/// True when a path (without extension) comes back whole from its field: not too long, not ending in a blank.
bool pathFitsField(std::string_view path);

/// The name of the last file sent, as TvlCMInfo keeps it: cut to its first 24 bytes, blanks trimmed at the right.
std::string infoStem(std::string_view stem);
