// The end of a run: the shared record, the ports, the settings.
#include "core/Dichiarazioni.h"
#include "core/RandomFile.h"
#include "core/Reports.h"
#include "core/Settings.h"
#include "core/StateFiles.h"
#include "core/Strings.h"
#include "midi/MIDI.h"
#include "shell/SubMain.h"

#include <algorithm>

namespace
{

constexpr int ClosingMidiRow = 114;
constexpr int SavingRow = 115;
constexpr int CodeOthersRunning = 12;
constexpr int CodeWritingError = 29;
constexpr int CodeDiskFull = 19;

/// Reads the record as it is now on disk; a record that cannot be read counts as one with a wrong signature.
bool recordIsGood()
{
    if (DeviceRecordRead() != 0)
        Device.bytes.clear();
    return Device.signatureGood();
}

/// What a musician is told when the settings cannot be written.
int writeCodeOf(int fileError)
{
    if (fileError == FileError::DiskFull)
        return CodeDiskFull;
    return fileError == FileError::Unavailable ? CodeWritingError : reportCodeOf(fileError);
}

void closeForeignRecord()
{
    static_cast<void>(DeviceRecordDelete());
    MidiOutClose();
    if (App.ThruOn)
        MidiThruDisconnect();
    MidiInClose();
}

void closeOwnPorts()
{
    Device.setSharedOutHandle(0);
    Device.setUserCount(0);
    Device.setThisProgramIn(0);
    // Required: thru is not disconnected on this path; closing the ports ends it.
    if (Midi.MidiPortsOpen == 1) {
        MidiOutClose();
        MidiInClose();
    }
}

} // namespace

bool PortRelease::refused()
{
    App.ErrTitle = ResText(ClosingMidiRow);
    if (!recordIsGood() || !Midi.MidiOwner || (Device.UserCount() == 1 && Device.ThisProgramIn() == 1))
        return false;
    ReportError(CodeOthersRunning, App.ErrTitle, "");
    return true;
}

void PortRelease::release()
{
    App.ErrTitle = ResText(ClosingMidiRow);
    if (!recordIsGood()) {
        closeForeignRecord();
        return;
    }
    if (Midi.MidiOwner) {
        closeOwnPorts();
    } else {
        Device.setUserCount(std::max(0, Device.UserCount() - 1));
        Device.setThisProgramIn(0);
    }
    static_cast<void>(DeviceRecordWrite());
}

void saveSettingsAtExit()
{
    const int error = SettingsSave();
    if (error == FileError::None)
        return;
    App.ErrTitle = ResText(SavingRow) + "Tarvolyne.ini";
    ReportError(writeCodeOf(error), App.ErrTitle, "");
}
