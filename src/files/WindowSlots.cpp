// Which files are open, and which window numbers are free: both are read from the session entries of the four
// families of windows.
#include "files/WindowBuffer.h"

#include "core/Dichiarazioni.h"
#include "core/PathNames.h"
#include "core/RandomFile.h"

#include <algorithm>
#include <array>

namespace
{

constexpr int WindowsPerFamily = 8;

/// 1 if one of eight entries from `first` is in use and holds the path.
template <std::size_t Count>
int windowFind(const std::array<SessionEntry, Count>& entries, std::size_t first, std::string_view path)
{
    static_assert(Count >= WindowsPerFamily);
    for (std::size_t index = first; index < first + WindowsPerFamily && index < Count; ++index)
        if (entries[index].used && sameFileName(trimRight(entries[index].path), path))
            return 1;
    return 0;
}

/// The lowest free number, from 1, of eight entries from `first`; 0 when all are used.
template <std::size_t Count>
int slotFree(const std::array<SessionEntry, Count>& entries, std::size_t first)
{
    for (std::size_t number = 1; number <= WindowsPerFamily; ++number)
        if (!entries[first + number - 1].used)
            return static_cast<int>(number);
    return 0;
}

constexpr std::size_t FirstGlobalFile = 1; ///< entry 0 is the instrument's own block

} // namespace

int ArrWinFind(std::string_view path) { return windowFind(App.Arrangements, 0, path); }
int StyWinFind(std::string_view path) { return windowFind(App.Styles, 0, path); }

int PrgWinFind(std::string_view path)
{
    // Required: the family has 16 entries, and those above the eighth count as not open.
    return windowFind(App.Programs, 0, path);
}

int GblWinFind(std::string& path)
{
    constexpr std::size_t ExtensionLength = 4; // the point and three characters
    const bool inName = path.find('/', path.size() - std::min(path.size(), ExtensionLength)) == std::string::npos;
    if (path.size() >= ExtensionLength && path[path.size() - ExtensionLength] == '.' && inName)
        path.resize(path.size() - ExtensionLength);
    return windowFind(App.Globals, FirstGlobalFile, path);
}

int ArrSlotFree() { return slotFree(App.Arrangements, 0); }
int StySlotFree() { return slotFree(App.Styles, 0); }
int PrgSlotFree() { return slotFree(App.Programs, 0); }
int GblSlotFree() { return slotFree(App.Globals, FirstGlobalFile); }
int ArrNewSlotFree() { return slotFree(App.NewArrangements, 0); }
