// What a cable to the instrument must carry, composed here from the bytes of the files and the instrument's own rules,
// with nothing of the program in it.
#pragma once

#include "support/Unpacked.h"

#include <string>
#include <vector>

namespace Wire
{

std::string fileBytes(const std::string& path);

/// Seven bytes travel as eight: their top bits first, bit 0 for the first of them.
std::string packed(const std::string& bytes);
using ::unpacked; // the way back

/// F0 42 30 4D <function> <body> F7, on global channel 1.
std::string frame(int function, const std::string& body);
std::string arrPlay();
std::string songPlay();
/// A user arrangement, 0 to 63: bank select 0 and 32, program change.
std::string selection(int row);

/// The dumps of whole files.
std::string arrangementDump(const std::string& arrFile);
std::string styleGroup(const std::string& styFile, int group);
/// A .pgg's records that only point at a factory program go out blank.
std::string programDump(const std::string& prgFile);

/// How many groups of a style file are in use: up to the group of the last slot that is not "- empty -".
int groupsInUse(const std::string& styFile);

/// The messages of a stream, one after the other.
std::vector<std::string> messages(const std::string& stream);
/// "F0 42 30 4D 64 ... (12002 bytes)", for an account of what went wrong.
std::string inShort(const std::vector<std::string>& messages);

/// Rows of an arrangement file as the list shows them, UTF-8.
std::vector<std::string> rowTexts(const std::string& arrFile);
/// The first row, from `from` on, that uses a style of the style file beside it (or a factory style); -1 for none.
int rowWithUserStyle(const std::string& arrFile, int from = 0);
int rowWithFactoryStyle(const std::string& arrFile, int from = 0);

} // namespace Wire
