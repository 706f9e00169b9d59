// TvlDBArr: the index that gives the arrangement files of one working folder short numbers, so that a song list can
// name an arrangement by a few digits. It holds names and numbers; the arrangements stay in their files.
//
// The file is small and is read and written whole. A number stays with its file for as long as the file is listed.
#pragma once

#include "core/Bytes.h"

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace DBArrLayout
{
inline constexpr std::string_view Signature = "TvlDBArr";
inline constexpr int FileLength = 27221;
inline constexpr int FirstSlot = 3; ///< slots 3 to 999; slots 1 and 2 are the header's room
inline constexpr int LastSlot = 999;
inline constexpr int SlotCount = LastSlot - FirstSlot + 1;
inline constexpr int RecordSize = 26;
inline constexpr Field RecordName{0, 24}; ///< without ".arr", blank padded; a first byte of 0 marks an empty record
inline constexpr int RecordIdOffset = end(RecordName); ///< low byte first
inline constexpr Field IdMap{25974, SlotCount};        ///< byte k is 1 when ID k + 3 is taken
inline constexpr Field WorkingFolder{end(IdMap), 250}; ///< blank padded, without a closing separator
static_assert(end(WorkingFolder) == FileLength);
/// The record of slot 3 to 999.
constexpr Field record(int slot) { return {(slot - 1) * RecordSize, RecordSize}; }
static_assert(end(record(LastSlot)) == IdMap.offset);

inline constexpr int FirstId = 3; ///< 1 and 2 name the two banks
inline constexpr int LastId = FirstId + SlotCount - 1;
inline constexpr int BankAId = 1;
inline constexpr int BankBId = 2;
} // namespace DBArrLayout

struct DBArrState {
    ByteBuffer DBArrBuffer;       ///< the file as one buffer
    int DBArrID = 0;              ///< the result of the last add, 0 for none
    bool DBArrWindowOpen = false; ///< the buffer is current: frmEditDBArr shows it
    std::string ArrFileName;      ///< the file being handled: its name without extension
    std::string ArrFileFolder;    ///< and its folder, without a closing separator
    /// A number was given and its find comes in a fresh event: what other timers would do to the database or the
    /// instrument waits for it.
    bool FindRequest = false;

    /// Set by frmEditDBArr while it is open: the buffer holds another list.
    std::function<void()> listChanged;
    /// Set by it too: the folder whose files are all added, and its arrangement files in their order.
    std::function<void(const std::string& folder, const std::vector<std::string>& names)> folderListed;
    /// Set by the shell: show an arrangement that was found. The row is 0 to 63, or above for a code that names none;
    /// the path is full and without extension.
    std::function<void(int windowKind, int row)> findInBank;
    std::function<void(const std::string& path, int row)> findInFile;
};

extern DBArrState DBArr;

std::string databasePath();

/// What stands in the database's place.
enum class DBArrFile { Valid, Wrong, Absent, Unreadable };
struct DBArrContent {
    DBArrFile state = DBArrFile::Absent;
    int fileError = 0;       ///< FileError when Unreadable
    std::int64_t length = 0; ///< bytes on disk
    ByteBuffer bytes;        ///< only when Valid, and then padded to the full length
    /// The signature and the length are right: it may be written back.
    bool whole() const { return state == DBArrFile::Valid && length == DBArrLayout::FileLength; }
};
/// Reads the file whole; an empty one is deleted.
DBArrContent DBArrRead();

/// True when the file exists and has the signature. With `report` the two failures are reported (codes 6 and 7 under
/// "Edit TvlDBArr").
bool DBArrPresent(bool report);
/// The ID of an arrangement file by its path (with or without extension), or 0.
int DBArrLookup(const std::string& path);
/// The same in a database image that is at hand.
int DBArrLookupIn(std::string_view image, const std::string& path);

/// A name as the index keeps it: its first 24 bytes, without blanks at their end.
// Required: two long names that agree so far are one file to the index.
std::string_view dbArrName(std::string_view fileName);

/// The working folder of a database image.
std::string dbArrFolder(std::string_view image);

/// True for the name of a record that can be a file of the working folder. A damaged or foreign index may hold names
/// that lead out of it.
bool staysInFolder(std::string_view name);

/// A row of frmEditDBArr.
struct DBArrRow {
    int id = 0;
    std::string name; ///< file name, bytes of the file system
};
/// The two banks, then the records in slot order.
std::vector<DBArrRow> dbArrRows(std::string_view image);
