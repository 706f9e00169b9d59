// A user at the real windows on Qt's offscreen platform, who opens a file and acts on it by menu items, dialogs and
// boxes.
#pragma once

#include "faults/FaultRun.h"

#include <array>
#include <functional>

class ChildWindow;
class frmMain;

/// One act in the windows: `path` tells the files before and after, and how a failure is told.
struct GuiWay {
    std::string group;
    WritePath path;
    std::function<void(frmMain&, const Site&)> open; ///< the window that is to act comes up
    std::string item;                                ///< the menu item of the act
    std::string typed;                               ///< name in the save dialog, below the user's folder
};

std::vector<GuiWay> guiWays();

/// What a sweep of one way found.
struct GuiReport {
    int calls = 0; ///< that change a file in the undisturbed act
    long long faults = 0;
    std::array<char, 300> broken{};
};

/// The program on a site: its start with settings in English, `act`, and hands that answer every box.
void runInProgram(const Site& site, const std::function<void(frmMain&)>& act);

class GuiDesk
{
public:
    /// Each fault at each call, or at every `step`-th. `again`: behind each, the act once more, undisturbed.
    GuiReport sweep(const GuiWay& way, const std::vector<Failure>& faults, int step, bool again);

private:
    int sweepInside(const GuiWay& way, const std::vector<Failure>& faults, int step, bool again, GuiReport& report);
    std::string tryOne(const WritePath& path, const Failure& failure, bool again, bool& reached);

    FaultDesk desk_;
};
