// The rows of the program windows as their lists show them: the panel's code, two marks, the name.
#pragma once

#include <string>
#include <string_view>
#include <vector>

/// Row `row` (0 to 63) of a user program file in a window's buffer, Latin-1: the code alone for a free record, else the
/// code, " *" for a reference or two blanks, and the 16 bytes of the name.
std::string programRowText(std::string_view tag, int row);

/// All rows of a program window by its kind: 64 of a user file or a factory bank, 16 kits; none for any other kind.
std::vector<std::string> programRowTexts(std::string_view tag);

/// True when a user program file holds anything that could be loaded.
bool anyProgramUsed(std::string_view tag);
