// The window on one of the instrument's two factory banks of styles: it shows their names, and a click gives one to the
// editor.
#pragma once

#include "toolkit/ChildWindow.h"

class QPushButton;
class RowList;

class frmStyAB final : public ChildWindow
{
public:
    /// `windowKind` is 17 for bank A, 18 for bank B.
    explicit frmStyAB(int windowKind);

    void unload() override;

private:
    void buildControls();
    void wireHandlers();
    void fillRows();

    void List1_Click();

    RowList* List1 = nullptr;
    QPushButton* CommArrPlay = nullptr;
    QPushButton* CommSongPlay = nullptr;
    QPushButton* CommClose = nullptr;
};
