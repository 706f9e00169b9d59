// At exit the marks of the last session have been cleared before any window goes: each open one sets its own again.
#include "arrangements/ArrSession.h"

#include "core/Dichiarazioni.h"
#include "core/PathNames.h"
#include "files/WindowBuffer.h"

void ArrSessionLeave(SessionEntry& entry, const WindowBuffer& tag, const WindowPosition& place)
{
    // A path that its field cannot hold would bring back another file.
    const bool pathIsWhole = pathFitsField(entry.path);
    if (pathIsWhole)
        entry.path = tag.path();
    entry.left = place.left;
    entry.top = place.top;
    entry.width = place.width;
    entry.height = place.height;
    entry.Open = App.AppClosing && pathIsWhole ? 1 : 0;
    entry.used = false;
    entry.databaseId = 0;
    RecentPlaceKeep(entry.path, FileKind::Arr, place);
}
