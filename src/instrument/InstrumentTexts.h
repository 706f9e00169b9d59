// The rows that the virtual instrument's window shows, as UTF-8 text: what is computed here needs no window.
#pragma once

#include "instrument/VirtualInstrument.h"

#include <functional>
#include <string>
#include <vector>

namespace InstrumentTexts
{

/// "11 Name" of an arrangement of the user, "A 11" of a factory bank, "A 11 Name" of a sound; empty before a selection.
std::string selection(const VirtualInstrument& instrument, int channel);

/// One row for each channel that was used, with its selection and the controllers that it was sent.
std::vector<std::string> channelRows(const VirtualInstrument& instrument);

/// "11 Name" to "88 Name"; names are Latin-1, an empty one leaves the code alone.
std::vector<std::string> namedRows(int count, const std::function<std::string(int)>& nameOf);

/// The global block if there is one, then "2 = 60" for each parameter that was sent.
std::vector<std::string> parameterRows(const VirtualInstrument& instrument);

std::string counts(const VirtualInstrument& instrument);

} // namespace InstrumentTexts
