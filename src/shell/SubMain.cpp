// The order of the start, step by step. Language window, ports, main window: nothing is shown before its turn, and a
// program that finds no instrument goes on as an editor of files.
#include "shell/SubMain.h"

#include "core/Dichiarazioni.h"
#include "core/Reports.h"
#include "core/Settings.h"
#include "core/StateFiles.h"
#include "core/Strings.h"
#include "midi/MIDI.h"
#include "midi/MidiService.h"

#include <filesystem>

namespace
{

constexpr int OpeningRow = 111;
constexpr int OpeningMidiRow = 113;

constexpr int CodeSingleInstance = 10;
constexpr int CodeOutputFailed = 21;
constexpr int CodeInputFailed = 34;
constexpr int CodeMidiNotUsed = 35;

/// How the attempt to take the ports ended.
enum class Claim { Taken, Failed, Refused };
enum class PortDevice { None, Output, Input };

struct PortOpening {
    int result = 0;
    PortDevice failed = PortDevice::None;
};

void setPaths()
{
    std::error_code ignored;
    App.WorkDir = std::filesystem::current_path(ignored).string();
    App.PathArrA = App.WorkDir + "/TvlArrA";
    App.PathArrB = App.WorkDir + "/TvlArrB";
    App.PathPrg = App.WorkDir + "/TvlPrg";
    App.PathSty = App.WorkDir + "/TvlSty";
    App.PathGuideIt = App.WorkDir + "/Tarvolyne_GuidaUtente.txt";
    App.PathGuideEn = App.WorkDir + "/Tarvolyne_UserGuide.txt";
}

/// Output, then input; the first failure ends it.
PortOpening openBoth()
{
    if (const int result = MidiOutOpen(); result != MidiResult::Done)
        return {result, PortDevice::Output};
    if (const int result = MidiInOpen(); result != MidiResult::Done)
        return {result, PortDevice::Input};
    return {};
}

void claimRecord()
{
    Device.setUserCount(1);
    Device.setThisProgramIn(1);
}

void failed(PortDevice device)
{
    Device.setThisProgramIn(1);
    Midi.MidiQuiet = false;
    ReportError(device == PortDevice::Output ? CodeOutputFailed : CodeInputFailed, App.ErrTitle, "");
    ReportError(CodeMidiNotUsed, App.ErrTitle, "");
    Midi.MidiEnabled = 0;
}

Claim claimAsFirst()
{
    claimRecord();
    Midi.MidiQuiet = false;
    if (MidiOutOpen() != MidiResult::Done) {
        failed(PortDevice::Output);
        return Claim::Failed;
    }
    Device.setSharedOutHandle(Midi.MidiOutHandle);
    Midi.MidiOwner = true;
    // Required: an input that fails leaves the output open until the exit.
    if (MidiInOpen() != MidiResult::Done) {
        failed(PortDevice::Input);
        return Claim::Failed;
    }
    Device.setSharedInHandle(Midi.MidiInHandle);
    Midi.MidiBothOpen = true;
    return Claim::Taken;
}

/// The record was left by a run that never ended: nobody holds the ports.
Claim takeStaleRecord()
{
    DeviceRecordInit();
    claimRecord();
    Device.setSharedOutHandle(Midi.MidiOutHandle);
    Device.setSharedInHandle(Midi.MidiInHandle);
    Midi.MidiBothOpen = true;
    Midi.MidiOwner = true;
    return Claim::Taken;
}

/// Another program of the family holds the ports and lends its handles.
Claim shareHandles()
{
    Midi.MidiOwner = false;
    Device.setUserCount(Device.UserCount() + 1);
    Device.setThisProgramIn(1);
    Midi.MidiOutHandle = Device.SharedOutHandle();
    Midi.MidiInHandle = Device.SharedInHandle();
    return Claim::Taken;
}

Claim claimAsSecond()
{
    Midi.MidiOwner = false;
    Midi.MidiQuiet = true;
    const PortOpening opening = openBoth();
    if (opening.result == MidiResult::Done) {
        Midi.MidiQuiet = false;
        return takeStaleRecord();
    }
    if (opening.result == MidiResult::Allocated)
        Midi.MidiQuiet = false;
    if (Device.ThisProgramIn() != 0)
        return Claim::Refused;
    if (opening.result == MidiResult::Allocated)
        return shareHandles();
    failed(opening.failed);
    return Claim::Failed;
}

Claim claimPorts()
{
    // While another process of this program runs, the record is its own: not even its count is looked at.
    if (Midi.heldElsewhere)
        return Claim::Refused;
    if (DeviceRecordRead() != 0)
        Device.bytes.clear();
    if (!Device.signatureGood())
        DeviceRecordInit();
    const Claim claim = Device.UserCount() == 0 ? claimAsFirst() : claimAsSecond();
    if (claim != Claim::Refused)
        static_cast<void>(DeviceRecordWrite()); // a record that cannot be written never stops the start
    return claim;
}

void refuseSecondStart()
{
    Midi.MidiQuiet = false;
    App.ErrTitle = ApplicationName + ResText(OpeningRow);
    ReportError(CodeSingleInstance, App.ErrTitle, "");
}

} // namespace

bool SubMain(const SubMainSteps& steps)
{
    App.InSubMain = true;
    App.QuitRequested = false;
    setPaths();
    Midi.MidiEnabled = 1;
    Midi.MidiPortsOpen = 0;
    SettingsLoad();
    if (App.QuitRequested)
        return false;
    if (steps.languageKnown)
        steps.languageKnown();

    App.ErrTitle = ResText(OpeningMidiRow);
    Midi.MidiBothOpen = false;
    Midi.heldElsewhere = App.AnotherRuns;
    if (claimPorts() == Claim::Refused) {
        refuseSecondStart();
        return false;
    }
    if (Midi.MidiBothOpen && App.ThruOn && Midi.MidiEnabled == 1) {
        MidiThruConnect();
        MidiInRun();
    }
    if (steps.showMain)
        steps.showMain();
    App.InSubMain = false;
    return true;
}
