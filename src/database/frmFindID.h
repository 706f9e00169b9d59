// The find window: a number of a song list brings its arrangement, on the screen and in the instrument. It stays open
// for the next song.
#pragma once

#include "toolkit/ChildWindow.h"

class QLabel;
class QLineEdit;
class QPushButton;
class StageTimer;

class frmFindID final : public ChildWindow
{
public:
    frmFindID();
    ~frmFindID() override;

    void unload() override;

private:
    void buildControls();
    void CommOK_Click();
    void Timer_Tick();

    QLabel* Label1 = nullptr;
    QLineEdit* Text1 = nullptr;
    QPushButton* CommOK = nullptr;
    StageTimer* Timer = nullptr;
};
