// The staged loads of an arrangement window: each handler reads the Interval of its timer, does that stage, and returns
// to the message loop.
#include "arrangements/ArrFind.h"
#include "arrangements/ArrRows.h"
#include "arrangements/ArrSends.h"
#include "arrangements/ArrStages.h"
#include "arrangements/frmArrU.h"
#include "core/PathNames.h"
#include "core/Reports.h"
#include "core/Shell.h"
#include "core/StateFiles.h"
#include "database/TvlDBArr.h"
#include "files/FileReaders.h"
#include "midi/DeviceModes.h"
#include "midi/MIDI.h"
#include "midi/MsgLog.h"
#include "programs/ProgramSends.h"
#include "styles/StyleSends.h"
#include "toolkit/RowList.h"

#include <utility>

void frmArrU::wireTimers()
{
    TimerLoadAll->onTick([this] { CommLoadAll_Click(); });
    TimerLoadArr->onTick([this] { CommLoadArr_Click(); });
    TimerLoadPrg->onTick([this] { CommLoadPrg_Click(); });
    TimerLoadSty->onTick([this] { CommLoadSty_Click(); });
    TimerShowPrg->onTick([this] { CommShowPrg_Click(); });
    TimerShowSty->onTick([this] { CommShowSty_Click(); });
    TimerEditArr->onTick([this] { CommEdit_Click(); });
    TimerList1->onTick([this] { List1_Click(); });
    TimerFindID->onTick([this] { TimerFindID_Tick(); });
    TimerCaricaPrg->onTick([this] { TimerCaricaPrg_Tick(); });
    // Its walk over the rows of a program window shows nothing; the clearing is what is seen.
    Timer5->onTick([] { StatusNotice(ArrNotice::None, {}); });
    for (StageTimer* timer : TimerTxSty)
        timer->onTick([this] { CommLoadSty_Click(); });
    for (int index = 0; index < Timer.count(); ++index)
        Timer[index]->onTick([this, index] { Timer_Tick(index); });
}

// --- Arrangements -----------------------------------------------------------------------------------------------

void frmArrU::CommLoadArr_Click()
{
    // Required: the question stands before the stage is read. A No leaves the edit as it is, so it is asked again on
    // the second pass, when the dump is about to go out without the changes.
    (void)askToStoreEdit(caption()); // a refused store leaves the edit where it is, as No does
    if (announceArrLoad())
        return;
    ModeSongPlay();
    ModeArrPlay();
    MsgLogAdd("");
    sendArrangements();
    TimerLoadArr->setStage(StageTimer::Rest);
    finishArrLoad();
}

void frmArrU::finishArrLoad()
{
    if (searchIsMine())
        continueSearch(ArrStage::FindID::AfterArrLoad);
    if (TimerList1->Interval() == ArrStage::List1::AfterArrLoad)
        TimerList1->enable();
}

// --- Programs ---------------------------------------------------------------------------------------------------

void frmArrU::CommLoadPrg_Click()
{
    if (TimerLoadPrg->Interval() == StageTimer::Rest && !findProgramSource())
        return;
    switch (TimerLoadPrg->Interval()) {
    case ArrStage::LoadPrg::WindowFound:
        TimerLoadPrg->setStage(ArrStage::LoadPrg::SendWindow);
        announcePrgLoad();
        break;
    case ArrStage::LoadPrg::FileRead:
        TimerLoadPrg->setStage(ArrStage::LoadPrg::SendFile);
        announcePrgLoad();
        break;
    default:
        sendProgram();
        finishPrgLoad();
        break;
    }
}

bool frmArrU::findProgramSource()
{
    constexpr int ReadAsPgg = 4; // of PrgFileFind
    const std::string path = Tag.path();
    if (OpenWindows::findByPath(WindowKind::PrgFile, WindowKind::PrgNew, path)) {
        TimerLoadPrg->setStage(ArrStage::LoadPrg::WindowFound);
        return true;
    }
    const int result = PrgFileFind(path);
    if (result != ReadResult::Read && result != ReadAsPgg)
        return false;
    programExtension_ = Files.PrgExtension;
    programToSend_ = programFileImage(Files.PrgBuffer, programExtension_);
    TimerLoadPrg->setStage(ArrStage::LoadPrg::FileRead);
    return true;
}

void frmArrU::announcePrgLoad()
{
    StatusNotice(ArrNotice::LoadingProgram, {});
    TimerLoadPrg->enable();
}

void frmArrU::sendProgram()
{
    MsgLogAdd("");
    if (TimerLoadPrg->Interval() == ArrStage::LoadPrg::SendFile) {
        ProgramDumpSend(std::exchange(programToSend_, {}));
        InfoPrgSetStem(Tag.stem(), programExtension_);
    } else if (const WindowBuffer* window =
                   OpenWindows::findByPath(WindowKind::PrgFile, WindowKind::PrgNew, Tag.path())) {
        ProgramDumpSend(window->bytes());
        InfoPrgSet(window->bytes(), window->at(WindowLayout::PrgTypeOffset) == 1 ? "pgg" : "prg");
    } else {
        return; // the window was closed between the two passes
    }
    MsgLogAdd(Midi.SysExOutput);
}

void frmArrU::finishPrgLoad()
{
    TimerLoadPrg->setStage(StageTimer::Rest);
    StatusNotice(ArrNotice::None, {});
    if (searchIsMine())
        continueSearch(ArrStage::FindID::Select);
}

// --- Styles -----------------------------------------------------------------------------------------------------

void frmArrU::CommLoadSty_Click()
{
    if (TimerTxSty[0]->Interval() == StageTimer::Rest) {
        beginStyLoad();
        return;
    }
    for (StageTimer* timer : TimerTxSty)
        timer->disable();
    if (StyLoadNext(image()) == StyLoadStep::Ended) {
        finishStyLoad();
        return;
    }
    MsgLogAdd("");
    MsgLogAdd(Midi.SysExOutput);
    TimerTxSty[1]->enable();
}

void frmArrU::beginStyLoad()
{
    if (!StyLoadBegin(image(), this))
        return;
    TimerTxSty[1]->setStage(StyleLoadTiming::ArrWindowPause);
    TimerTxSty[0]->setStage(StyleLoadTiming::FirstGroup);
    TimerTxSty[0]->enable();
}

void frmArrU::finishStyLoad()
{
    TimerTxSty[0]->setStage(StageTimer::Rest);
    InfoStySet(image());
    if (const int row = selectedRow(); row >= 0)
        selectAndEndNotice(row);
    if (Arr.LoadingAll && Arr.LoadingAllOwner == this)
        advanceLoadAll(ArrStage::LoadAll::LoadPrg);
    if (TimerList1->Interval() == ArrStage::List1::AfterStyLoad)
        TimerList1->enable();
    if (searchIsMine())
        continueSearch(ArrStage::FindID::AfterStyLoad);
}

// --- Load All ---------------------------------------------------------------------------------------------------

void frmArrU::CommLoadAll_Click()
{
    MsgLogAdd("");
    switch (TimerLoadAll->Interval()) {
    case StageTimer::Rest:
        StatusNotice(ArrNotice::LoadingArr, {});
        advanceLoadAll(ArrStage::LoadAll::SendArr);
        break;
    case ArrStage::LoadAll::SendArr:
        // Required: unlike Load Arr, this neither changes the mode nor asks about an edited arrangement.
        sendArrangements();
        advanceLoadAll(ArrStage::LoadAll::AnnounceSty);
        break;
    case ArrStage::LoadAll::AnnounceSty:
        StatusNotice(ArrNotice::LoadingStyle, {});
        advanceLoadAll(ArrStage::LoadAll::LoadSty);
        break;
    case ArrStage::LoadAll::LoadSty:
        loadAllStyles();
        break;
    default:
        Arr.LoadingAll = false;
        Arr.LoadingAllOwner = nullptr;
        TimerLoadAll->setStage(StageTimer::Rest);
        CommLoadPrg_Click();
        break;
    }
}

void frmArrU::advanceLoadAll(int stage)
{
    TimerLoadAll->setStage(stage);
    TimerLoadAll->enable();
}

void frmArrU::loadAllStyles()
{
    // Required: the end of the style load carries Load All on. Without style data nothing does: the stage stays, and
    // the next press loads the programs.
    TimerLoadAll->setStage(ArrStage::LoadAll::LoadPrg);
    const bool free = StyLoad.owner == nullptr || StyLoad.owner == this;
    if (free) {
        Arr.LoadingAll = true;
        Arr.LoadingAllOwner = this;
    }
    CommLoadSty_Click();
    if (StyLoad.owner == nullptr)
        StatusNotice(ArrNotice::None, {}); // nothing is being loaded
}

// --- Search by ID -----------------------------------------------------------------------------------------------

bool frmArrU::searchIsMine() const { return Arr.FindIdActive && Arr.FindIdOwner == this; }

void frmArrU::continueSearch(int stage)
{
    TimerFindID->setStage(stage);
    TimerFindID->enable();
}

void frmArrU::TimerFindID_Tick()
{
    if (DBArr.FindRequest) {
        TimerFindID->enable(); // a new number was given: its find tells whether this search goes on
        return;
    }
    const bool asked = Arr.FindIdActive;
    Arr.FindIdActive = true;
    Arr.FindIdOwner = this;
    switch (TimerFindID->Interval()) {
    case StageTimer::Rest:
        if (asked && List1->ListIndex() != Arr.FindIdRow)
            List1->select(Arr.FindIdRow);
        findLoadArr();
        break;
    case ArrStage::FindID::AfterArrLoad:
    case ArrStage::FindID::NoArrLoad:
        findLoadSty();
        break;
    case ArrStage::FindID::AfterStyLoad:
    case ArrStage::FindID::NoStyLoad:
        findLoadPrg();
        break;
    default:
        findSelect();
        break;
    }
}

void frmArrU::findLoadArr()
{
    InfoRead();
    const int row = selectedRow(); // none for an ID whose code names no row
    Arr.FindIdUsesUserStyle = row >= 0 && arrUsesUserStyle(image(), row);
    Arr.FindIdUsesBankD = row >= 0 && arrUsesBankD(image(), row);
    if (arrLoadWanted())
        CommLoadArr_Click();
    else
        continueSearch(ArrStage::FindID::NoArrLoad);
}

void frmArrU::findLoadSty()
{
    if (App.AutoSty && Arr.FindIdUsesUserStyle && differsFromSent(Tag.stem(), App.InfoSty))
        CommLoadSty_Click();
    // A load that could not begin comes back to nobody: the search goes on without it.
    if (TimerTxSty[0]->Interval() == StageTimer::Rest && !TimerFindID->enabled())
        continueSearch(ArrStage::FindID::NoStyLoad);
}

void frmArrU::findLoadPrg()
{
    if (App.AutoPrg && Arr.FindIdUsesBankD && differsFromSent(Tag.stem(), App.InfoPrg))
        CommLoadPrg_Click();
    if (TimerLoadPrg->Interval() == StageTimer::Rest && !TimerFindID->enabled())
        continueSearch(ArrStage::FindID::Select);
}

void frmArrU::findSelect()
{
    List1_Click();
    ArrFindEnd();
    TimerFindID->setStage(StageTimer::Rest);
}

// --- Single carriers --------------------------------------------------------------------------------------------

void frmArrU::Timer_Tick(int index)
{
    constexpr int LoadStyles = 2;
    if (index != LoadStyles)
        Timer[index]->setStage(ArrStage::SecondPass);
    switch (index) {
    case 0:
        List1_Click();
        break;
    case LoadStyles:
        CommLoadSty_Click();
        if (App.AutoPrg) {
            TimerCaricaPrg->setStage(StageTimer::Rest);
            TimerCaricaPrg->enable();
        }
        break;
    case 3:
        CommLoadPrg_Click();
        break;
    case 4:
        CommAdd_Click();
        break;
    default: // Required: Timer(1) carries nothing.
        break;
    }
}

void frmArrU::TimerCaricaPrg_Tick()
{
    if (App.AutoPrg)
        CommLoadPrg_Click();
    if (const std::string path = std::exchange(Arr.DBArrRequest, {}); !path.empty() && App.shell)
        App.shell->bringForward(WindowKind::ArrFile, path);
}

void frmArrU::abandonStages()
{
    const bool announced = TimerLoadArr->Interval() != StageTimer::Rest ||
                           TimerLoadPrg->Interval() != StageTimer::Rest || Timer[4]->enabled() ||
                           TimerLoadAll->Interval() == ArrStage::LoadAll::SendArr ||
                           TimerLoadAll->Interval() == ArrStage::LoadAll::LoadSty;
    StyLoadAbandon(this);
    if (announced)
        StatusNotice(ArrNotice::None, {});
    if (Arr.LoadingAllOwner == this) {
        Arr.LoadingAll = false;
        Arr.LoadingAllOwner = nullptr;
    }
    if (searchIsMine() || TimerFindID->enabled())
        ArrFindEnd();
}
