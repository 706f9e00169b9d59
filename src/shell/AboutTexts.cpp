// The version is the build's own.
#include "shell/AboutTexts.h"

#include "core/Strings.h"
#include "core/Words.h"
#include "midi/MIDI.h"

std::string versionText() { return withArgument(ResText(Words::AboutVersion), TARVOLYNE_VERSION); }

std::string outputPortText()
{
    const std::string port = MidiOutputName();
    return port.empty() ? ResText(Words::NoOutputHint) : withArgument(ResText(Words::OutputHint), port);
}
