// The window on one of the instrument's five factory banks of programs, A to E: a click on a row selects it.
#pragma once

#include "programs/QtProgramBank.h"

class frmPcgAE final : public QtProgramBank
{
public:
    /// `windowKind` is 4 to 8 for the banks A to E.
    explicit frmPcgAE(int windowKind);

private:
    void buildControls();
    void List1_Click();
};
