// The window on a set of 64 arrangements that has no file yet: a list, a box of styles and two loads, without editor,
// programs and database.
#pragma once

#include "arrangements/QtArrListWindow.h"
#include "toolkit/StageTimer.h"

class QLabel;

class frmArrNew final : public ArrListWindow
{
public:
    /// Number 1 to 8. The template with its records emptied stands in the hand-over buffer.
    explicit frmArrNew(int number);

    bool queryUnload() override;
    void unload() override;
    void contentChanged() override;
    void startSearchById() override;

private:
    void buildControls();
    void buildTimers();
    void wireHandlers();
    void enableByContent();

    void List1_Click();
    void CommLoadArr_Click();
    void CommLoadSty_Click();
    void beginStyLoad();
    void finishStyLoad();
    bool loadStyleFirst(int row);
    void forgetEndedLoad();

    SessionEntry& entry() const;

    QLabel* Label1 = nullptr;
    QPushButton* CommLoadArr = nullptr;
    QPushButton* CommLoadSty = nullptr;
    QPushButton* CommArrPlay = nullptr;
    QPushButton* CommClose = nullptr;
    StageTimer* TimerList1 = nullptr;
    StageTimer* TimerLoadArr = nullptr;
    StageTimer* TimerLoadSty = nullptr;
    StageTimer* Timer = nullptr;
};
