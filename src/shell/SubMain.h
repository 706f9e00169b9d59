// The start and the end of a run: settings, the shared device record, the MIDI ports.
#pragma once

#include <functional>

/// What SubMain asks of the windows.
struct SubMainSteps {
    std::function<void()> languageKnown; ///< after the settings: the toolkit's own words can be chosen
    std::function<void()> showMain;      ///< makes and shows frmMain; its load handler runs inside
};

/// The start. App.ui, App.StateDir, App.AnotherRuns and Midi.service are set before. False when the process is to end:
/// no language was chosen, or the program runs already.
[[nodiscard]] bool SubMain(const SubMainSteps& steps);

/// Gives the ports up at the end of a run.
namespace PortRelease
{

/// True when the ports cannot be given up since other programs of the family use them: reported as code 12, and the
/// program stays. Nothing has changed then.
[[nodiscard]] bool refused();

/// Closes what this process holds and brings the shared record up to date.
void release();

} // namespace PortRelease

/// Writes the settings at exit. A folder that cannot be written is reported once; the program ends all the same.
void saveSettingsAtExit();
