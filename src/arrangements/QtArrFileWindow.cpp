// Each load rests, is announced, or runs; what waits for it is told by the interval of TimerList1.
#include "arrangements/QtArrFileWindow.h"

#include "arrangements/ArrStages.h"
#include "core/Dichiarazioni.h"
#include "core/Reports.h"
#include "core/Shell.h"

std::optional<ArrFileWindow::RowClick> ArrFileWindow::beginClick()
{
    // Also for a row that was just deselected: the edit menu follows every change of the selection.
    if (App.shell)
        App.shell->MenuSync();
    const int row = selectedRow();
    if (row < 0 || rowIsEmpty(row)) {
        forgetEndedLoad();
        if (row >= 0)
            showEmptyRow();
        return {};
    }
    const int stage = TimerList1->Interval();
    TimerList1->setStage(StageTimer::Rest);
    if (stage == StageTimer::Rest && arrLoadWanted()) {
        TimerList1->setStage(ArrStage::List1::AfterArrLoad);
        CommLoadArr_Click();
        return {};
    }
    return RowClick{row, stage};
}

void ArrFileWindow::forgetEndedLoad()
{
    // The row that waited for a load is no longer selected: once the load is over nothing comes back for it, and the
    // next click is a fresh one.
    if (TimerLoadArr->Interval() == StageTimer::Rest && styleLoad().Interval() == StageTimer::Rest)
        TimerList1->setStage(StageTimer::Rest);
}

bool ArrFileWindow::loadStyleFirst(int row, bool preference)
{
    if (!styLoadWanted(row, preference))
        return false;
    TimerList1->setStage(ArrStage::List1::AfterStyLoad);
    CommLoadSty_Click();
    if (styleLoad().Interval() != StageTimer::Rest)
        return true;
    // Without style data at hand, or while another window sends its styles, nothing would come back: the row is
    // selected at once.
    TimerList1->setStage(StageTimer::Rest);
    return false;
}

bool ArrFileWindow::announceArrLoad()
{
    if (TimerLoadArr->Interval() != StageTimer::Rest)
        return false;
    StatusNotice(ArrNotice::LoadingArr, {});
    TimerLoadArr->setStage(ArrStage::LoadArr::Send);
    TimerLoadArr->enable();
    return true;
}
