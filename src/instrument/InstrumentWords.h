// What the virtual instrument heard, in words: values filled into the rows of the string table.
#pragma once

#include "instrument/StreamDecoder.h"

#include <initializer_list>
#include <string>
#include <string_view>

namespace InstrumentWords
{

/// The text of a row with each "_" replaced by the next value, from left to right. A "_" inside a value stays.
std::string filledIn(int id, std::initializer_list<std::string> values);

/// Why a message is malformed.
std::string reason(Fault fault);

/// "C4" for 60.
std::string noteName(int note);

/// A name of the instrument, one byte a character, as text of the screen.
std::string toUtf8(std::string_view latin1);

/// "F0 42 30 ...": the first bytes of a message.
std::string hexHead(std::string_view bytes);

} // namespace InstrumentWords
