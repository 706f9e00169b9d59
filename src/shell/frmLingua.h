// The language window of the first run: both languages at once, because none is chosen yet.
#pragma once

#include "toolkit/ControlArray.h"

#include <QDialog>

class QLabel;
class QPushButton;
class QRadioButton;

class frmLingua final : public QDialog
{
public:
    frmLingua();

    /// Shows the window and waits. 1 Italian, 2 English, 0 when it was closed without a choice.
    static int choose();

private:
    void Option1_Click(int index);
    void CommOK_Click();

    QLabel* Label1 = nullptr;
    ControlArray<QRadioButton, 2> Option1{"Option1"};
    QPushButton* CommOK = nullptr;
    int language_ = 0;
};
