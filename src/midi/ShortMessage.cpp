// The length of a short message by its status.
#include "midi/ShortMessage.h"

namespace
{

constexpr unsigned ProgramChange = 0xC0;
constexpr unsigned PitchBend = 0xE0; ///< behind program change and channel pressure, which carry one data byte

} // namespace

ByteBuffer shortMessageBytes(std::uint32_t message)
{
    const unsigned status = message & 0xFFU;
    ByteBuffer bytes{static_cast<char>(status), static_cast<char>(message >> 8 & 0xFFU)};
    if (status < ProgramChange || status >= PitchBend)
        bytes += static_cast<char>(message >> 16 & 0xFFU);
    return bytes;
}
