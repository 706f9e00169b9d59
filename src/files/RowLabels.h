// The instrument's panel numbers its 64 rows 11 to 18, 21 to 28 and so on to 88; every list shows them so.
#pragma once

#include <string>
#include <string_view>

/// The two-digit code of row 0 to 63: "11" to "88". Rows beyond go on in hexadecimal as the counter does.
std::string rowCode(int row);

/// A name as a list shows it, Latin-1: bytes that are no characters show as blanks.
std::string rowName(std::string_view name);
