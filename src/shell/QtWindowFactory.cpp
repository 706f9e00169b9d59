// Windows do not know each other; whoever wants one asks the shell, and the shell asks here.
#include "shell/QtWindowFactory.h"

#include "arrangements/frmArrU.h"
#include "arrangements/frmEditArr.h"
#include "core/Dichiarazioni.h"

ChildWindow* makeChildWindow(int windowKind, int slot)
{
    switch (windowKind) {
    case WindowKind::ArrFile:
        return new frmArrU(slot);
    case WindowKind::EditArr:
        return new frmEditArr;
    default:
        return nullptr;
    }
}
