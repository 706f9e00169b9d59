// A short message: from the packed word to the bytes on the cable.
#pragma once

#include "core/Bytes.h"

#include <cstdint>

/// The bytes of a word that holds status, data 1, data 2 from the low byte on: two for a program change or channel
/// pressure, three for every other. A word whose low byte is no status goes out as the three bytes it is.
ByteBuffer shortMessageBytes(std::uint32_t message);
