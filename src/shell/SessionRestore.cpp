// Bringing the session back. Entries move down to the lowest free slots, so that gaps left by files that have gone
// close up. Both families go the same way; they differ in their table, their reader and their window.
#include "shell/SessionRestore.h"

#include "core/Dichiarazioni.h"
#include "core/PathNames.h"
#include "files/FileReaders.h"
#include "files/WindowBuffer.h"
#include "shell/Silence.h"

namespace
{

constexpr std::size_t RestoredPrograms = 8; // a user cannot have more program windows

bool readArrangements(const SessionEntry& entry)
{
    const Silence silence; // a restore that fails says nothing
    if (entry.path.empty() || ArrFileRead(entry.path + extensionOf(FileKind::Arr)) != ReadResult::Read)
        return false;
    Files.ArrFolder = FolderOf(entry.path);
    Files.ArrName = FileStemOf(entry.path);
    return true;
}

bool readPrograms(const SessionEntry& entry)
{
    const Silence silence;
    const int kind = entry.programType == 0 ? FileKind::Prg : FileKind::Pgg;
    return !entry.path.empty() && PrgFileRead(entry.path + extensionOf(kind)) == ReadResult::Read;
}

/// One entry of the last session; nothing stays of it when no window can be made.
template <typename Entries>
void restore(Entries& entries, std::size_t from, int slot, int windowKind, const WindowMaker& makeWindow)
{
    const SessionEntry saved = entries[from];
    Files.OpenReadOnly = saved.readOnly;
    entries[from] = {};
    SessionEntry& entry = entries[static_cast<std::size_t>(slot - 1)];
    const SessionEntry before = entry;
    entry = saved;
    entry.used = true;
    if (makeWindow(windowKind, slot))
        return;
    entry = before;
}

} // namespace

std::vector<int> rowsToRestore()
{
    std::vector<int> rows;
    if (App.WinPos[WindowKind::FindId].Open != 0)
        rows.push_back(WindowKind::FindId);
    for (int row = WindowKind::ArrBankA; row <= WindowKind::Percussion; ++row)
        if (App.WinPos[static_cast<std::size_t>(row)].Open != 0)
            rows.push_back(row);
    return rows;
}

void ArrangementsRestore(const WindowMaker& makeWindow)
{
    for (std::size_t index = 0; index < App.Arrangements.size(); ++index) {
        SessionEntry& entry = App.Arrangements[index];
        if (entry.Open == 0 || entry.used)
            continue;
        if (readArrangements(entry))
            restore(App.Arrangements, index, ArrSlotFree(), WindowKind::ArrFile, makeWindow);
        else
            entry = {};
    }
}

void ProgramsRestore(const WindowMaker& makeWindow)
{
    for (std::size_t index = 0; index < RestoredPrograms; ++index) {
        SessionEntry& entry = App.Programs[index];
        if (entry.Open == 0 || entry.used)
            continue;
        if (readPrograms(entry))
            restore(App.Programs, index, PrgSlotFree(), WindowKind::PrgFile, makeWindow);
        else
            entry.Open = 0;
    }
}

void clearSessionMarks()
{
    for (SessionEntry& entry : App.Programs)
        entry.Open = 0;
    for (SessionEntry& entry : App.Arrangements)
        entry.Open = 0;
}
