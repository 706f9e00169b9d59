// The MIDI message monitor: what the program sends while the window is open, as hexadecimal text.
//
// A view for the user, with no effect on the traffic. It shows what the callers choose to log, not all of it.
#pragma once

#include "midi/MsgLog.h"
#include "toolkit/ChildWindow.h"

class QPlainTextEdit;

class frmMsgEx final : public ChildWindow, private MessageMonitor
{
public:
    /// Opens empty; from here on MsgLogAdd shows what it is given.
    frmMsgEx();
    ~frmMsgEx() override;

    void unload() override;

private:
    void clear() override;
    void append(const std::string& text) override;

    QPlainTextEdit* Text1 = nullptr;
};
