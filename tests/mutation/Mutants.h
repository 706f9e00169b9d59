// Breaks a line of C++ in one small way, as a slip of the hand would: a boundary moved, a condition turned round, a
// statement forgotten. Tests that let such a line pass do not guard it.
#pragma once

#include <random>
#include <string>
#include <string_view>
#include <vector>

struct Mutant {
    std::size_t line = 0; ///< 1-based
    std::string kind;     ///< what was done, as "boundary" or "statement"
    std::string text;     ///< the whole line as it then stands
};

/// Every way in which the tool can break this line. `before` is the line of code that precedes it, which tells whether
/// a statement begins here.
std::vector<Mutant> mutantsOf(std::string_view line, std::string_view before);

/// One mutant of each line that has any, chosen by `random`.
std::vector<Mutant> mutantsOfFile(const std::vector<std::string>& lines, std::mt19937& random);

/// At most `count` of `all`, spread evenly: one of each of so many parts of equal length.
std::vector<std::size_t> spread(std::size_t all, std::size_t count, std::mt19937& random);
