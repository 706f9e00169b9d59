// The whole program around a measurement: the executables' own recipe, with a silent MIDI service and a home of its
// own in which the language is chosen and nothing else has happened yet.
#pragma once

#include "bench/SilentService.h"

#include <functional>
#include <string>

/// Writes the state of a program at its second start below `dataFolder`, and makes it the home of this process. The
/// working folder becomes the one of the templates. `loadsBySelf` checks the preferences of the automatic loads.
void beginHome(const std::string& dataFolder, bool loadsBySelf = false);

/// The same in a new folder, for a process that runs without a screen and is quiet about it. Ends the process where no
/// folder can be made.
void beginOffscreenHome(bool loadsBySelf = false);

/// All that was posted, and the painting that it asks for.
void paintAll();

/// Runs the program; `measure` runs inside its event loop once the main window stands, and the process ends with its
/// result. The home is removed.
int runInside(SilentService& service, const std::function<int()>& measure);

/// The folder of the sample files.
std::string samples();
