// What an arrangement window shows of its image: the 64 rows, the styles box, the details of a row.
//
// All texts are the instrument's bytes (Latin-1).
#pragma once

#include "core/Bytes.h"
#include "files/ArrLayout.h"

#include <string>
#include <string_view>
#include <vector>

/// The bytes of record 0 to 63 in a window's image.
std::string_view arrRecord(std::string_view image, int row);

/// "11 +Name": the panel's code, the mark of a user style, the name; the code alone for an unused record. A factory
/// bank's rows have no mark.
std::string arrRowText(std::string_view image, int row);

/// All 64 rows.
std::vector<std::string> arrRowTexts(std::string_view image);

/// True when a row's text stands for an empty row: no more than its code.
bool isEmptyRowText(std::string_view text);

/// True when a record is in use.
bool anyArrUsed(std::string_view image);

/// The rows of the styles box: each factory style that a record in use names, once, in the order of the records; then
/// the styles of the file's own style area, slot by slot.
std::vector<std::string> arrStyleEntries(std::string_view image);

/// The style of a row as the styles box shows it.
std::string arrStyleEntry(std::string_view image, int row);

/// The number by which a song list names the row, "30588"; empty without a database ID.
std::string arrIdText(int databaseId, int row);

/// Row 0 to 63 uses a user style.
bool arrUsesUserStyle(std::string_view image, int row);
/// A track of the row plays a program of bank D, which the companion program file brings.
bool arrUsesBankD(std::string_view image, int row);
