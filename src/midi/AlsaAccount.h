// The kernel's account of a MIDI output, as it stands in a text file of /proc/asound that every user may read.
//
// It is the only way to see how full the buffer of a port is that the sequencer holds open.
#pragma once

#include "midi/Sequencer.h"

/// Reads the part of output number `output`, from 0, out of the text of a midi device's file. Nothing when the output
/// is not there or not open.
std::optional<PortAccount> parseAlsaAccount(std::string_view text, int output);

/// Reads the account of a sequencer port of a card.
std::optional<PortAccount> readAlsaAccount(const SeqPort& port);
