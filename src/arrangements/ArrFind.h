// The end of a find by ID: the window of the file or bank that holds the arrangement is brought to the front and told
// to choose the row and send it. A file that no window shows is opened, and its new window begins by itself.
#pragma once

#include <string>

/// In the bank window of kind 2 or 3. `row` is 0 to 63, or above for a code that names none.
void ArrFindInBank(int windowKind, int row);

/// In the arrangement file of a full path without extension.
void ArrFindInFile(const std::string& path, int row);

/// The find is over, whether it came to its arrangement or not.
void ArrFindEnd();
