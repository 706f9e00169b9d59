// Reading the arrangement database: whether it is there, the number of a file, and the list as the user sees it.
#include "database/TvlDBArr.h"

#include "core/Dichiarazioni.h"
#include "core/FileHandle.h"
#include "core/PathNames.h"
#include "core/RandomFile.h"
#include "core/Reports.h"
#include "database/DBArrTable.h"

#include <filesystem>

DBArrState DBArr;

namespace
{

constexpr int DatabaseAbsentCode = 6;
constexpr int DatabaseWrongCode = 7;
constexpr const char* EditTitle = "Edit TvlDBArr";

} // namespace

std::string databasePath() { return App.StateDir + "/TvlDBArr"; }

DBArrContent DBArrRead()
{
    DBArrContent read;
    FileContent content;
    read.fileError = readFile(databasePath(), DBArrLayout::FileLength, content);
    std::error_code error;
    if (read.fileError == FileError::None && content.length == 0 && std::filesystem::exists(databasePath(), error))
        read.fileError = deleteFile(databasePath());
    read.length = content.length;
    if (read.fileError != FileError::None) {
        read.state = DBArrFile::Unreadable;
    } else if (content.length > 0) {
        read.state = content.bytes.starts_with(DBArrLayout::Signature) ? DBArrFile::Valid : DBArrFile::Wrong;
        if (read.state == DBArrFile::Valid) {
            read.bytes = std::move(content.bytes);
            read.bytes.resize(DBArrLayout::FileLength, '\0');
        }
    }
    return read;
}

bool DBArrPresent(bool report)
{
    const DBArrFile state = DBArrRead().state;
    if (report && state == DBArrFile::Wrong)
        ReportError(DatabaseWrongCode, EditTitle, {});
    else if (report && state != DBArrFile::Valid)
        ReportError(DatabaseAbsentCode, EditTitle, {});
    return state == DBArrFile::Valid;
}

int DBArrLookup(const std::string& path)
{
    if (!DBArr.DBArrWindowOpen) {
        DBArrContent read = DBArrRead();
        if (read.state != DBArrFile::Valid)
            return 0;
        DBArr.DBArrBuffer = std::move(read.bytes);
    }
    return DBArrLookupIn(DBArr.DBArrBuffer, path);
}

int DBArrLookupIn(std::string_view image, const std::string& path)
{
    if (FolderOf(path) != dbArrFolder(image))
        return 0;
    const std::string wanted =
        upperFileName(dbArrName(FileKindOf(path) == FileKind::Arr ? FileNameOf(path) : FileStemOf(path)));
    for (int slot = DBArrLayout::FirstSlot; slot <= DBArrLayout::LastSlot; ++slot) {
        const std::string_view record = slice(image, DBArrLayout::record(slot));
        if (byteAt(record, DBArrLayout::RecordName.offset) == 0)
            return 0;
        if (sameFileName(trimRight(slice(record, DBArrLayout::RecordName)), wanted))
            return word16LowFirst(record, DBArrLayout::RecordIdOffset);
    }
    return 0;
}

std::string_view dbArrName(std::string_view fileName)
{
    return trimRight(fileName.substr(0, DBArrLayout::RecordName.size));
}

std::string dbArrFolder(std::string_view image)
{
    return std::string(trimRight(slice(image, DBArrLayout::WorkingFolder)));
}

bool staysInFolder(std::string_view name) { return canNameAFile(name) && name.find('/') == std::string_view::npos; }

std::vector<DBArrRow> dbArrRows(std::string_view image)
{
    std::vector<DBArrRow> rows = {{DBArrLayout::BankAId, "TvlArrA"}, {DBArrLayout::BankBId, "TvlArrB"}};
    for (int slot = DBArrLayout::FirstSlot; slot <= DBArrLayout::LastSlot; ++slot) {
        const std::string_view record = slice(image, DBArrLayout::record(slot));
        if (byteAt(record, DBArrLayout::RecordName.offset) == 0)
            break;
        std::string name(trimRight(slice(record, DBArrLayout::RecordName)));
        rows.push_back({word16LowFirst(record, DBArrLayout::RecordIdOffset), name + extensionOf(FileKind::Arr)});
    }
    return rows;
}
