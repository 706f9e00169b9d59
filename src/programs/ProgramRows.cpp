// Factory names come from the tables of names, user names from the records of the file in the window's buffer.
#include "programs/ProgramRows.h"

#include "core/Dichiarazioni.h"
#include "core/NameTables.h"
#include "files/RowLabels.h"
#include "files/WindowLayout.h"
#include "programs/ProgramSource.h"

namespace
{

constexpr const char* NoMark = "  ";
constexpr const char* ReferenceMark = " *";

bool isFree(std::string_view record) { return byteAt(record, PrgLayout::RecordStateOffset) == 0; }

/// `count` names of 16 bytes from a block of them.
std::vector<std::string> namedRows(const ByteBuffer& names, int count)
{
    std::vector<std::string> rows;
    for (int row = 0; row < count; ++row)
        rows.push_back(rowCode(row) + NoMark + std::string(slice(names, {row * NameWidth, NameWidth})));
    return rows;
}

} // namespace

std::string programRowText(std::string_view tag, int row)
{
    const std::string_view record = programRecord(tag, row);
    if (isFree(record))
        return rowCode(row);
    return rowCode(row) + (isReference(record) ? ReferenceMark : NoMark) +
           rowName(slice(record, PrgLayout::RecordName));
}

std::vector<std::string> programRowTexts(std::string_view tag)
{
    const int kind = byteAt(tag, WindowLayout::KindOffset);
    if (const auto factory = factoryBankOf(kind))
        return namedRows(Names.PrgNames[static_cast<std::size_t>(factory->block)], PrgBlockNames);
    if (kind == WindowKind::DrumKits || kind == WindowKind::Percussion)
        return namedRows(Names.DrumKitNames, DrumKitCount);
    std::vector<std::string> rows;
    if (kind == WindowKind::PrgFile || kind == WindowKind::PrgNew)
        for (int row = 0; row < ProgramRows; ++row)
            rows.push_back(programRowText(tag, row));
    return rows;
}

bool anyProgramUsed(std::string_view tag)
{
    for (int row = 0; row < ProgramRows; ++row)
        if (!isFree(programRecord(tag, row)))
            return true;
    return false;
}
