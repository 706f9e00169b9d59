// The words that the user sees, in Italian and English side by side.
#pragma once

#include <string>
#include <string_view>

/// Row `id` (2 to 123) of the string table in the language of the run, UTF-8. A supplementary table holds what the
/// system's own table lacks (tool tips, progress, the virtual instrument): ids from 401. An id without a row is empty.
std::string ResText(int id);

/// The same in a given language, 1 Italian or 2 English, for tests and for windows shown before one is chosen.
std::string ResTextIn(int language, int id);

/// The text with its first "_" replaced by `argument`; a text without one is left as it is.
std::string withArgument(std::string text, std::string_view argument);
