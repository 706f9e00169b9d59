// The about window: what the program is, its version, and the MIDI port that it sends to.
#pragma once

#include "toolkit/ChildWindow.h"

class QLabel;
class QPushButton;

class frmAbout final : public ChildWindow
{
public:
    frmAbout();

    void unload() override;

private:
    QLabel* addLabel(const char* name, const std::string& text);

    QLabel* lblTitle = nullptr;
    QLabel* lblDescription = nullptr;
    QLabel* lblVersion = nullptr;
    QLabel* lblDisclaimer = nullptr;
    QPushButton* cmdOK = nullptr;
};
