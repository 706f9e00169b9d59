// A bank's row of WinPos: the window reads it as it opens and writes it as it goes.
#include "programs/QtProgramBank.h"

#include "programs/PrgWindowBuilder.h"

QtProgramBank::QtProgramBank(const char* name, int windowKind) : QtProgramWindow(name, &AppState::OtherCount)
{
    Tag = PrgBankTagBuild(windowKind, App.WinPos[static_cast<std::size_t>(windowKind)].Extra);
}

void QtProgramBank::load()
{
    fillControls();
    openAtRow(windowKind(), defaultWindowSize(windowKind()));
}

void QtProgramBank::channelChosen(int channel) { App.WinPos[static_cast<std::size_t>(windowKind())].Extra = channel; }

void QtProgramBank::unload() { keepInRow(windowKind()); }
