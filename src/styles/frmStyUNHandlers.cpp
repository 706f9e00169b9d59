// What the window does with a click, with its loads, and at its closing.
#include "styles/frmStyUN.h"

#include "core/Reports.h"
#include "core/Shell.h"
#include "core/StateFiles.h"
#include "files/Saving.h"
#include "midi/MIDI.h"
#include "midi/MsgLog.h"
#include "styles/StyFieldAssign.h"
#include "styles/StyWindowBuilder.h"
#include "styles/StyleSends.h"
#include "toolkit/RowList.h"

namespace
{

constexpr int LoadingStyleNotice = 2;
constexpr int NoNotice = 0;

/// Interval of TimerLoadStyGrp between the press and the send.
constexpr int Armed = 11;

void logSent()
{
    MsgLogAdd("");
    MsgLogAdd(Midi.SysExOutput);
}

} // namespace

void frmStyUN::List1_Click()
{
    if (App.shell)
        App.shell->MenuSync();
    const QListWidgetItem* item = List1->currentItem();
    if (item && item->isSelected())
        StyFieldAssign(List1->ListIndex(), image());
}

void frmStyUN::CommLoadSty_Click()
{
    if (TimerTxSty[0]->Interval() == StageTimer::Rest) {
        beginLoad();
        return;
    }
    for (StageTimer* timer : TimerTxSty)
        timer->disable();
    if (StyLoadNext(image()) == StyLoadStep::Ended) {
        finishLoad();
        return;
    }
    logSent();
    TimerTxSty[1]->enable();
}

void frmStyUN::beginLoad()
{
    if (!StyLoadBegin(image(), this))
        return;
    TimerTxSty[1]->setStage(StyleLoadTiming::StyleWindowPause);
    TimerTxSty[0]->setStage(StyleLoadTiming::FirstGroup);
    TimerTxSty[0]->enable();
}

void frmStyUN::finishLoad()
{
    TimerTxSty[0]->setStage(StageTimer::Rest);
    // Required: also after a group that could not be built the file counts as what the instrument holds.
    InfoStySet(image());
    int style = 0;
    StyBankSelect(style, WindowKind::ArrFile);
    logSent();
}

void frmStyUN::CommLoadStyGrp_Click(int group)
{
    StageTimer* const timer = TimerLoadStyGrp[group];
    if (timer->Interval() == StageTimer::Rest) {
        StatusNotice(LoadingStyleNotice, {});
        timer->setStage(Armed);
        timer->enable();
        return;
    }
    timer->disable();
    timer->setStage(StageTimer::Rest);
    // Required: a group that lacks a style is not told; its button works where any style stands before it.
    if (StyGroupSend(group, image()) == 0)
        logSent();
    StatusNotice(NoNotice, {});
}

bool frmStyUN::queryUnload() { return AgreeToClose(Tag, ChildCaption(Tag)); }

void frmStyUN::unload()
{
    StyLoadAbandon(this);
    for (const StageTimer* timer : TimerLoadStyGrp)
        if (timer->Interval() == Armed)
            StatusNotice(NoNotice, {});
    StySessionLeave(entry(), positionInTwips());
}
