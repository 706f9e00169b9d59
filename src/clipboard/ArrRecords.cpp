// One record and its row change together here, so that list and buffer cannot part.
#include "clipboard/ArrRecords.h"

#include "clipboard/Clipboard.h"
#include "files/WindowLayout.h"

namespace
{

using namespace ArrLayout;

constexpr int NotAsSent = 2;
constexpr int UserBank = 1;

constexpr Field recordField(int index)
{
    return {WindowLayout::ArrFile.offset + ArrLayout::row(index).offset, RowSize};
}

} // namespace

int styleNumberAt(std::string_view buffer, int row)
{
    return byteAt(buffer, recordField(row).offset + RowStyleNumberOffset);
}

bool hasUserStyleFlag(std::string_view buffer, int row)
{
    return byteAt(buffer, recordField(row).offset + RowStyleBankOffset) == UserBank;
}

bool isUsedRecord(std::string_view buffer, int row) { return byteAt(buffer, recordField(row).offset) != 0; }

bool anyUsedRecord(std::string_view buffer)
{
    for (int row = 0; row < RowCount; ++row)
        if (isUsedRecord(buffer, row))
            return true;
    return false;
}

int usersOfStyle(std::string_view buffer, int slot)
{
    int users = 0;
    for (int row = 0; row < RowCount && users < 2; ++row)
        if (hasUserStyleFlag(buffer, row) && styleNumberAt(buffer, row) == slot)
            ++users;
    return users;
}

void referToUserStyle(ByteBuffer& buffer, int row, int slot)
{
    putByte(buffer, recordField(row).offset + RowStyleNumberOffset, slot);
    putByte(buffer, recordField(row).offset + RowStyleBankOffset, UserBank);
}

void ArrRecCopy(int srcRow, int dstRow, ByteBuffer& buffer, ListRows& rows)
{
    const std::string_view source = Clipboard.BufferTagSorg;
    putBytes(buffer, recordField(dstRow).offset, slice(source, recordField(srcRow)));
    putByte(buffer, WindowLayout::NotSentOffset, NotAsSent);
    std::string& text = rows[static_cast<std::size_t>(dstRow)].text;
    text = padded(text, RowCodeWidth);
    if (isUsedRecord(source, srcRow)) // a free row among those copied stays free
        text += keptText(source, srcRow).substr(RowCodeWidth);
}

void ArrRecClear(int row, ByteBuffer& buffer, ListRows& rows)
{
    putBytes(buffer, recordField(row).offset, filled(RowSize, 0));
    putByte(buffer, WindowLayout::NotSentOffset, NotAsSent);
    std::string& text = rows[static_cast<std::size_t>(row)].text;
    text = padded(text, RowCodeWidth);
}

void markUserStyles(ByteBuffer& buffer)
{
    for (int row = 0; row < RowCount; ++row)
        if (isUsedRecord(buffer, row))
            putByte(buffer, WindowLayout::ArrRows.offset + row * WindowLayout::RowSize + 1 + RowMarkOffset,
                    hasUserStyleFlag(buffer, row) ? UserStyleMark : ' ');
}
