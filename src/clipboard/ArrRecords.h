// The arrangement records of a window buffer, as cut and paste change them together with their rows.
#pragma once

#include "clipboard/ListRows.h"

/// The title under which a missing style area is told; the same in both languages.
inline constexpr const char* NoStyleFileTitle = "File .sty assente";

/// Style number and bank flag of record 0 to 63.
int styleNumberAt(std::string_view buffer, int row);
bool hasUserStyleFlag(std::string_view buffer, int row);
/// The record is in use.
bool isUsedRecord(std::string_view buffer, int row);
/// Any of the 64 records is in use.
bool anyUsedRecord(std::string_view buffer);

/// The number of records that play user style `slot`; counting stops at 2.
int usersOfStyle(std::string_view buffer, int slot);

/// Makes a record play user style `slot` of its file.
void referToUserStyle(ByteBuffer& buffer, int row, int slot);

/// Copies record srcRow of the snapshot over record dstRow of the buffer; the row keeps its code and takes the rest of
/// the source row's text.
void ArrRecCopy(int srcRow, int dstRow, ByteBuffer& buffer, ListRows& rows);
/// Zeroes a record; its row becomes its code alone.
void ArrRecClear(int row, ByteBuffer& buffer, ListRows& rows);

/// Brings the marks in a buffer's kept rows up to date with the records' flags: the editor gives an arrangement another
/// style without its row in the list showing another mark.
void markUserStyles(ByteBuffer& buffer);
