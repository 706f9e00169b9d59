// The window on a set of 64 arrangements that has no file yet: a list, a box of styles and two loads, without editor,
// programs and database.
#pragma once

#include "arrangements/QtArrFileWindow.h"

class QLabel;

class frmArrNew final : public ArrFileWindow
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
    void CommLoadArr_Click() override;
    void CommLoadSty_Click() override;
    void showEmptyRow() override;
    const StageTimer& styleLoad() const override { return *TimerLoadSty; }
    void beginStyLoad();
    void finishStyLoad();

    SessionEntry& entry() const;

    QLabel* Label1 = nullptr;
    QPushButton* CommLoadArr = nullptr;
    QPushButton* CommLoadSty = nullptr;
    QPushButton* CommArrPlay = nullptr;
    QPushButton* CommClose = nullptr;
    StageTimer* TimerLoadSty = nullptr;
    StageTimer* Timer = nullptr;
};
