// What the windows without a file have in common: place, channel and state stand in the kind's row of WinPos.
#pragma once

#include "programs/QtProgramWindow.h"

class QtProgramBank : public QtProgramWindow
{
public:
    void unload() override;

protected:
    QtProgramBank(const char* name, int windowKind);

    /// Fills the controls, once they are made, and opens at the row's place.
    void load();

private:
    void channelChosen(int channel) override;
};
