// Windows do not know each other; whoever wants one asks the shell, and the shell asks here.
#include "shell/QtWindowFactory.h"

#include "arrangements/frmArrAB.h"
#include "arrangements/frmArrNew.h"
#include "arrangements/frmArrU.h"
#include "arrangements/frmEditArr.h"
#include "core/Dichiarazioni.h"
#include "database/TvlDBArr.h"
#include "database/frmEditDBArr.h"
#include "database/frmFindID.h"
#include "global/frmGbl.h"
#include "keyboard/frmTastiera.h"
#include "midi/frmMsgEx.h"
#include "programs/frmDrum.h"
#include "programs/frmPcgAE.h"
#include "programs/frmPrgUN.h"
#include "shell/frmAbout.h"
#include "shell/frmGuida.h"
#include "styles/frmStyAB.h"
#include "styles/frmStyUN.h"

ChildWindow* makeChildWindow(int windowKind, int slot)
{
    switch (windowKind) {
    case WindowKind::ArrFile:
        return new frmArrU(slot);
    case WindowKind::ArrNew:
        return new frmArrNew(slot);
    case WindowKind::ArrBankA:
    case WindowKind::ArrBankB:
        return frmArrAB::open(windowKind);
    case WindowKind::FindId:
        return new frmFindID;
    case WindowKind::EditDatabase:
        return DBArrPresent(true) ? new frmEditDBArr : nullptr;
    case WindowKind::EditArr:
        return new frmEditArr;
    case WindowKind::Keyboard:
        return new frmTastiera;
    case WindowKind::MessageMonitor:
        return new frmMsgEx;
    case WindowKind::Guide:
        return frmGuida::open();
    case WindowKind::About:
        return new frmAbout;
    case WindowKind::PrgBankA:
    case WindowKind::PrgBankA + 1:
    case WindowKind::PrgBankA + 2:
    case WindowKind::PrgBankA + 3:
    case WindowKind::PrgBankE:
        return new frmPcgAE(windowKind);
    case WindowKind::DrumKits:
    case WindowKind::Percussion:
        return new frmDrum(windowKind);
    case WindowKind::PrgFile:
    case WindowKind::PrgNew:
        return new frmPrgUN(windowKind, slot);
    case WindowKind::StyBankA:
    case WindowKind::StyBankB:
        return new frmStyAB(windowKind);
    case WindowKind::StyFile:
    case WindowKind::StyNew:
        return new frmStyUN(windowKind, slot);
    case WindowKind::GlobalInstrument:
    case WindowKind::GlobalFile:
        return new frmGbl(slot);
    default:
        return nullptr;
    }
}
