// The window on a factory bank of arrangements, A or B. A bank is in the instrument already: a click only selects.
#pragma once

#include "arrangements/QtArrListWindow.h"
#include "toolkit/ControlArray.h"
#include "toolkit/StageTimer.h"

class QLabel;

class frmArrAB final : public ArrListWindow
{
public:
    /// Reads the bank of kind 2 or 3 beside the program and opens its window. Null when it cannot be read, which the
    /// user was told.
    static frmArrAB* open(int windowKind);

    bool queryUnload() override;
    void unload() override;

    /// Two passes: the first shows the row's name in the status panel, the second selects it on the instrument. With a
    /// search by ID under way the row is the one looked for.
    void List1_Click();

private:
    explicit frmArrAB(int windowKind);

    void startSearchById() override { List1_Click(); }

    void buildControls();
    void wireHandlers();
    void takeRowLookedFor();
    void showId(int row);

    QLineEdit* Text1 = nullptr; ///< the bank's kind and the row's code
    ControlArray<QLabel, 2> Label1{"Label1"};
    QPushButton* CommArrPlay = nullptr;
    QPushButton* CommSongPlay = nullptr;
    QPushButton* CommClose = nullptr;
    ControlArray<StageTimer, 1> Timer{"Timer"};
};
