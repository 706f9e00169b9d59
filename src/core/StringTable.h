// The two tables of words as rows: an id and the text in both languages, side by side.
//
// Rooms ask for words through Strings.h; these rows are for the look-up and for the tests of completeness.
#pragma once

#include <array>
#include <cstddef>
#include <span>

/// One text in both languages, UTF-8. The id is the Italian one; the English id is 200 more.
struct StringRow {
    int id;
    const char* italian;
    const char* english;
};

/// Both tables are searched by halving, so their rows stand by rising id.
template <std::size_t Count>
constexpr bool inAscendingOrder(const std::array<StringRow, Count>& rows)
{
    for (std::size_t i = 1; i < Count; ++i)
        if (rows[i - 1].id >= rows[i].id)
            return false;
    return true;
}

/// Ids 2 to 123, with gaps.
std::span<const StringRow> stringTable();
/// Ids from Words::First, without gaps.
std::span<const StringRow> supplementTable();
