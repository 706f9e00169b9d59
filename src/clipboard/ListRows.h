// The rows of a window's list, as the clipboard works on them and as a window buffer keeps them at a Copy.
//
// A row is a panel code of two characters, a field of two marks, and a name. A free row is its code alone.
#pragma once

#include "core/Bytes.h"
#include "files/StyLayout.h"

#include <string>
#include <string_view>
#include <vector>

/// One row as the list shows it.
struct ListRow {
    std::string text; ///< the instrument's bytes (Latin-1)
    bool selected = false;
};
using ListRows = std::vector<ListRow>;

inline constexpr int RowCodeWidth = 2;  ///< the panel code
inline constexpr int RowMarkOffset = 3; ///< "+" = a user style of the companion file
inline constexpr int RowNameOffset = 4; ///< where the name begins
inline constexpr int RowTextWidth = 20; ///< as a buffer keeps it
inline constexpr char UserStyleMark = '+';
inline constexpr char ReferenceMark = '*'; ///< of a program row that refers to a factory program

/// More than its code: the row is in use, also under a name of blanks.
bool isUsedRow(std::string_view text);

/// Where a kind of window keeps its rows in its buffer; no rows for a kind that the clipboard does not know.
struct RowPlace {
    int RowBase = 0; ///< offset of row 0: its mark, then its text
    int count = 0;
};
RowPlace rowPlaceOf(int windowKind);

/// Writes texts and marks of the rows into a window buffer.
void keepRows(ByteBuffer& buffer, const ListRows& rows);
/// The row was selected when the buffer's rows were kept.
bool isMarked(std::string_view buffer, int row);
/// The 20 bytes of a kept row's text.
std::string_view keptText(std::string_view buffer, int row);

/// A style window has 19 rows for 16 slots: a blank row stands between two groups.
inline constexpr int StyListRows = 19;
constexpr bool isSeparatorRow(int row) { return row == 4 || row == 9 || row == 14; }
/// The list row of slot 0 to 15; -1 for any other.
constexpr int StyRowOf(int slot)
{
    return slot >= 0 && slot < StyLayout::SlotCount ? slot + slot / StyLayout::SlotsPerGroup : -1;
}
/// The name in a row of a style window, trimmed on the right.
std::string_view styleNameIn(std::string_view rowText);
/// No style stands in the row: its name is empty or "- empty -".
bool isFreeStyleRow(std::string_view rowText);

/// The rows that a paste goes on: from the first selected one, one row further for each pasted row.
struct Destination {
    int first = -1; ///< -1 when no row is selected
    int selected = 0;
};
Destination destinationOf(const ListRows& rows);
/// A paste may go on here: the row exists, and it is selected where the user has selected more than one.
bool takesPaste(const ListRows& rows, const Destination& destination, int row);
