// Find by ID: a number of a song list becomes a file and a row of it.
//
// The number is the file's own number times 100 plus the arrangement's code as the instrument writes it: bank 1 to 8,
// then number 1 to 8. 111 is the first arrangement of the first bank file, 30588 the last one of file 305.
#pragma once

#include <string>
#include <string_view>

struct FindNumber {
    int FindFileNumber = 0; ///< 1 and 2 the banks, else a number of the database; very long texts give a large one
    int FindIdRow = 0;      ///< 0 to 63; above for a code whose bank digit is 9
};

/// Reads a number of three or more digits, without blanks around it. False for a text that is refused.
[[nodiscard]] bool findNumberOf(std::string_view text, FindNumber& number);

/// The whole find for a text, blanks around it ignored: hands the bank or file and the row on to DBArr.findInBank or
/// DBArr.findInFile, or reports why there is none.
void FindRun(std::string_view text);
