// What the program says of itself.
#pragma once

#include <string>

/// The version as words, "Version 1.2.3" in the language of the run.
std::string versionText();

/// Which MIDI port is sent to, or that none is, as words. Asked for anew each time: a patch bay may have wired the port
/// elsewhere.
std::string outputPortText();
