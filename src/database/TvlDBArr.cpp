// Reading the arrangement database: whether it is there, and the number of a file.
#include "database/TvlDBArr.h"

#include "core/Dichiarazioni.h"
#include "core/PathNames.h"
#include "core/RandomFile.h"
#include "core/Reports.h"

#include <filesystem>

DBArrState DBArr;

namespace
{

constexpr int DatabaseAbsentCode = 6;
constexpr int DatabaseWrongCode = 7;
constexpr const char* EditTitle = "Edit TvlDBArr";

enum class State { Valid, Wrong, Absent, Unreadable };

/// Reads the whole file; an empty one is deleted. `bytes` is filled only when Valid, and then to the full length.
State readDatabase(ByteBuffer& bytes)
{
    FileContent content;
    if (readFile(databasePath(), DBArrLayout::FileLength, content) != FileError::None)
        return State::Unreadable;
    if (content.length == 0) {
        std::error_code error;
        if (std::filesystem::exists(databasePath(), error) && deleteFile(databasePath()) != FileError::None)
            return State::Unreadable;
        return State::Absent;
    }
    if (!content.bytes.starts_with(DBArrLayout::Signature))
        return State::Wrong;
    bytes = std::move(content.bytes);
    bytes.resize(DBArrLayout::FileLength, '\0');
    return State::Valid;
}

/// The name under which an arrangement file is indexed: the part of its stem that the record has room for.
std::string indexName(const std::string& path)
{
    const std::string stem = FileKindOf(path) == FileKind::Arr ? FileNameOf(path) : FileStemOf(path);
    return std::string(trimRight(std::string_view(stem).substr(0, DBArrLayout::RecordName.size)));
}

} // namespace

std::string databasePath() { return App.StateDir + "/TvlDBArr"; }

bool DBArrPresent(bool report)
{
    ByteBuffer ignored;
    const State state = readDatabase(ignored);
    if (report && state == State::Wrong)
        ReportError(DatabaseWrongCode, EditTitle, {});
    else if (report && state != State::Valid)
        ReportError(DatabaseAbsentCode, EditTitle, {});
    return state == State::Valid;
}

int DBArrLookup(const std::string& path)
{
    if (!DBArr.DBArrWindowOpen && readDatabase(DBArr.DBArrBuffer) != State::Valid)
        return 0;
    if (FolderOf(path) != trimRight(slice(DBArr.DBArrBuffer, DBArrLayout::WorkingFolder)))
        return 0;
    const std::string wanted = indexName(path);
    for (int slot = DBArrLayout::FirstSlot; slot <= DBArrLayout::LastSlot; ++slot) {
        const std::string_view record = slice(DBArr.DBArrBuffer, DBArrLayout::record(slot));
        if (byteAt(record, DBArrLayout::RecordName.offset) == 0)
            return 0;
        if (sameFileName(trimRight(slice(record, DBArrLayout::RecordName)), wanted))
            return word16LowFirst(record, DBArrLayout::RecordIdOffset);
    }
    return 0;
}
