// Which port of the machine the instrument is taken to hang on, and which one the master keyboard.
//
// The musician chooses nothing: an interface with a cable comes before every other port, and the first of them is it. A
// patch bay can wire the program's port elsewhere at any time.
#pragma once

#include "midi/Sequencer.h"

namespace SequencerPorts
{

/// The outputs, best first: device -1 is the first of them. Ports of a card with a cable behind them, then other ports
/// of cards, both in the order of card, client, port; and only where there is no card, those of programs.
std::vector<SeqPort> outputs(const std::vector<SeqPort>& ports);

/// The inputs likewise: device 0 is the first of them.
std::vector<SeqPort> inputs(const std::vector<SeqPort>& ports);

const SeqPort* at(const std::vector<SeqPort>& ports, SeqAddress address);

/// The port of the same client and port name, preferring the one on the same card; null when it is not there.
const SeqPort* sameName(const std::vector<SeqPort>& ports, const SeqPort& wanted);

/// How the port is called before the user: "Interface" or "Interface: MIDI 1".
std::string displayName(const SeqPort& port);

} // namespace SequencerPorts
