// One find at a time: a new one takes the place of whatever another window was still loading for the one before.
#include "arrangements/ArrFind.h"

#include "arrangements/ArrEdit.h"
#include "core/Dichiarazioni.h"
#include "core/PathNames.h"
#include "core/Shell.h"
#include "files/WindowBuffer.h"

namespace
{

void begin(int row)
{
    for (ArrRowOwner* owner : Arr.rowOwners)
        owner->dropSearch();
    ArrFindEnd();
    Arr.FindIdActive = true;
    Arr.FindIdRow = row;
}

bool holdsFile(const WindowBuffer& window)
{
    // A new file that was saved under a name is that file.
    return window.kind() == WindowKind::ArrFile || (window.kind() == WindowKind::ArrNew && !window.untitled());
}

ArrRowOwner* openFile(const std::string& path)
{
    for (ArrRowOwner* owner : Arr.rowOwners)
        if (holdsFile(owner->arrImage()) && sameFileName(owner->arrImage().path(), path))
            return owner;
    return nullptr;
}

ArrRowOwner* openBank(int windowKind)
{
    for (ArrRowOwner* owner : Arr.rowOwners)
        if (owner->arrImage().kind() == windowKind)
            return owner;
    return nullptr;
}

} // namespace

void ArrFindEnd()
{
    Arr.FindIdActive = false;
    Arr.FindIdOwner = nullptr;
    Arr.DBArrRequest.clear();
}

void ArrFindInBank(int windowKind, int row)
{
    begin(row);
    ArrRowOwner* const shown = openBank(windowKind);
    if (App.shell)
        App.shell->showWindow(windowKind, 0);
    if (shown)
        shown->startSearchById();
    else if (!openBank(windowKind))
        ArrFindEnd(); // it could not be read, which was said
}

void ArrFindInFile(const std::string& path, int row)
{
    begin(row);
    Arr.DBArrRequest = path;
    if (ArrRowOwner* owner = openFile(path)) {
        if (App.shell)
            App.shell->bringForward(owner->arrImage().kind(), owner->arrImage().path());
        owner->startSearchById();
        return;
    }
    if (App.shell)
        App.shell->openPath(path + extensionOf(FileKind::Arr), FileKind::Arr, App.ReadOnlyOpen);
    if (!openFile(path))
        ArrFindEnd();
}
