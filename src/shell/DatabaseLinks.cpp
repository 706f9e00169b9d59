// Each room is told the other's routine; neither names the other.
#include "shell/DatabaseLinks.h"

#include "arrangements/ArrEdit.h"
#include "arrangements/ArrFind.h"
#include "core/Dichiarazioni.h"
#include "database/DBArrUpdate.h"
#include "database/TvlDBArr.h"
#include "files/WindowBuffer.h"

namespace
{

/// Adds an open file by its entry, whose path is whole also where the window's own field cuts it.
int add(SessionEntry& entry)
{
    const int result = DBArrAddFile(entry.path);
    if (DBArr.DBArrID != 0)
        entry.databaseId = DBArr.DBArrID;
    return result;
}

void addWindowsFile(const WindowBuffer& window)
{
    const auto index = static_cast<std::size_t>(window.number() - 1);
    if (window.kind() == WindowKind::ArrFile && index < App.Arrangements.size())
        static_cast<void>(add(App.Arrangements[index])); // what went wrong was said
}

} // namespace

void joinDatabase(const std::function<void()>& beforeFind)
{
    Arr.databaseAdd = addWindowsFile;
    DBArr.findInBank = [beforeFind](int windowKind, int row) {
        beforeFind();
        ArrFindInBank(windowKind, row);
    };
    DBArr.findInFile = [beforeFind](const std::string& path, int row) {
        beforeFind();
        ArrFindInFile(path, row);
    };
}

void addOpenedToDatabase(const std::string& path)
{
    if (!App.AutoDBArr || !DBArrPresent(false))
        return;
    for (SessionEntry& entry : App.Arrangements)
        if (entry.used && entry.path == path)
            static_cast<void>(add(entry));
}

void addOpenFilesToDatabase()
{
    for (SessionEntry& entry : App.Arrangements)
        if (entry.used && add(entry) != DBArrResult::Done)
            return;
}
