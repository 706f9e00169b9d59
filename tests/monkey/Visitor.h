// A user with a plan: runs the real program once and does with its windows what a script says, faster than any hand.
#pragma once

#include "files/WindowBuffer.h"
#include "midi/MidiService.h"
#include "monkey/VirtualLoop.h"
#include "shell/frmMain.h"
#include "support/ScriptedUser.h"
#include "toolkit/ChildWindow.h"

#include <functional>
#include <vector>

class Visitor
{
public:
    explicit Visitor(VirtualLoop& loop) : loop_(loop) {}

    /// Runs the program; `script` runs once the main window stands, and the program is closed when it returns. Boxes
    /// and dialogs are answered by `user` from there on; before and after by their last button.
    void run(MidiService& service, const std::function<void()>& script);

    ScriptedUser user;

    // For the script.
    frmMain& window() const;
    /// Lets timers and posted events run until all is done.
    void settle();
    std::vector<ChildWindow*> children() const;
    ChildWindow* childOfKind(int kind) const;
    /// The window that `open` brings, or null; boxes that were shown are counted by boxes().
    ChildWindow* opened(const std::function<void()>& open);
    std::size_t boxes() const { return user.warnings.size() + user.questions.size() + user.notices.size(); }
    /// Presses each row of each list of the window.
    int pressRows(ChildWindow& child);
    void pressFirstRow(ChildWindow& child);
    /// Presses a button if it is there and enabled.
    bool press(ChildWindow& child, const char* button);
    void menu(const char* item);
    /// Save As under a path; true when a file came to stand there, under this name or with an ending of its own.
    bool saveAs(ChildWindow& child, const std::string& path);
    /// Closes a window without keeping what was changed in it.
    void close(ChildWindow& child);
    void closeAll();
    /// What the program said and asked for so far is of no account any more; a save asks with the bytes of its file.
    void forgetWhatWasSaid() { user = ScriptedUser(); }

private:
    void beIdle(const std::function<void()>& script);

    VirtualLoop& loop_;
    bool entered_ = false;
};
