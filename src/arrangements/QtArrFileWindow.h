// What the windows on a set of arrangements that the instrument may lack share: a click on a row loads the set and its
// styles first where the user wants that, and comes back for the row through the window's timers.
#pragma once

#include "arrangements/QtArrListWindow.h"
#include "toolkit/StageTimer.h"

#include <optional>

class ArrFileWindow : public ArrListWindow
{
protected:
    using ArrListWindow::ArrListWindow;

    /// A click on a row that holds an arrangement.
    struct RowClick {
        int row;   ///< from 0
        int stage; ///< the interval of TimerList1 that the click found; it rests from here on
    };
    /// What every click begins with. Nothing is left to do where no arrangement is selected, and where the set is
    /// loaded first.
    std::optional<RowClick> beginClick();
    /// Whether the styles are loaded before the row is selected; the end of their load clicks again. `preference` as
    /// in styLoadWanted.
    bool loadStyleFirst(int row, bool preference);
    /// The first pass of Load Arr: tells of it and asks for the second. False on the second.
    bool announceArrLoad();

    virtual void CommLoadArr_Click() = 0;
    virtual void CommLoadSty_Click() = 0;
    virtual void showEmptyRow() = 0;
    /// The timer whose interval is the stage of the style load.
    virtual const StageTimer& styleLoad() const = 0;

    StageTimer* TimerList1 = nullptr;
    StageTimer* TimerLoadArr = nullptr;

private:
    void forgetEndedLoad();
};
