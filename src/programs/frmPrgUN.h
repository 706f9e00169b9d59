// The window on one user program file: its 64 programs to play from, and the button that loads all of them into the
// instrument.
#pragma once

#include "programs/QtProgramWindow.h"
#include "toolkit/StageTimer.h"

class frmPrgUN final : public QtProgramWindow
{
public:
    /// Kind 21, a file, or 22, an untitled one; slot 1 to 8. The file stands in the hand-over buffer, its path and
    /// place in App.Programs[slot - 1].
    frmPrgUN(int windowKind, int slot);

    bool queryUnload() override;
    void unload() override;

private:
    // Construct.
    void buildControls();
    void wireHandlers();
    void restorePlace();

    // Handle.
    void List1_Click();
    void List1_DblClick();
    void CommLoad_Click();

    SessionEntry& entry() const;

    StageTimer* TimerLoadPrg = nullptr;
    StageTimer* TimerList1 = nullptr;
    bool clickArmed_ = false; ///< the last click on the list started TimerList1
};
