// The place of a closed window in the list of recent files. Only the file on disk has it: nothing of this program reads
// it back, so an entry keeps it among the bytes that it carries along.
#include "core/Dichiarazioni.h"
#include "core/PathNames.h"
#include "core/SettingsLayout.h"

#include <algorithm>

void RecentPlaceKeep(const std::string& path, int kind, const WindowPosition& place)
{
    using namespace SettingsLayout;
    const auto entry = std::find_if(App.Recent.begin(), App.Recent.end(), [&](const RecentEntry& recent) {
        return recent.kind == kind && sameFileName(recent.path, path);
    });
    if (entry == App.Recent.end())
        return;
    entry->kept.resize(SettingsFile::RecordLength, '\0');
    putWord16HighFirst(entry->kept, EntryWidthOffset, std::clamp(place.width, 0, MostTwips));
    putWord16HighFirst(entry->kept, EntryHeightOffset, std::clamp(place.height, 0, MostTwips));
    putWord16HighFirst(entry->kept, EntryLeftOffset, std::clamp(place.left, -PlaceBias, PlaceBias) + PlaceBias);
    putWord16HighFirst(entry->kept, EntryTopOffset, std::clamp(place.top, -PlaceBias, PlaceBias) + PlaceBias);
}
