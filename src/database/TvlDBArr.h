// TvlDBArr: the index that gives the arrangement files of one working folder short numbers.
#pragma once

#include "core/Bytes.h"

#include <string>

namespace DBArrLayout
{
inline constexpr std::string_view Signature = "TvlDBArr";
inline constexpr int FileLength = 27221;
inline constexpr int FirstSlot = 3; ///< slots 3 to 999; slots 1 and 2 are the header's room
inline constexpr int LastSlot = 999;
inline constexpr int RecordSize = 26;
inline constexpr Field RecordName{0, 24};
inline constexpr int RecordIdOffset = 24; ///< low byte first
inline constexpr Field IdMap{25974, 997};
inline constexpr Field WorkingFolder{end(IdMap), 250};
static_assert(end(WorkingFolder) == FileLength);
/// The record of slot 3 to 999.
constexpr Field record(int slot) { return {(slot - 1) * RecordSize, RecordSize}; }
static_assert(end(record(LastSlot)) == IdMap.offset);
} // namespace DBArrLayout

struct DBArrState {
    ByteBuffer DBArrBuffer;       ///< the file as one buffer
    int DBArrID = 0;              ///< the result of the last add, 0 for none
    bool DBArrWindowOpen = false; ///< the buffer is current: frmEditDBArr shows it
};

extern DBArrState DBArr;

std::string databasePath();
/// True when the file exists and has the signature. With `report` the two failures are reported (codes 6 and 7 under
/// "Edit TvlDBArr").
bool DBArrPresent(bool report);
/// The ID of an arrangement file by its path (with or without extension), or 0.
int DBArrLookup(const std::string& path);
