// The instrument's side of packing, for expectations on what was sent: seven bytes travel as eight, and the first of
// the eight holds their top bits, bit 0 for the first of the seven.
#pragma once

#include <string>
#include <string_view>

inline std::string unpacked(std::string_view packed)
{
    std::string bytes;
    for (std::size_t run = 0; run < packed.size(); run += 8)
        for (std::size_t i = 1; i < 8 && run + i < packed.size(); ++i) {
            const int top = (packed[run] >> (i - 1)) & 1;
            bytes += static_cast<char>(packed[run + i] | (top << 7));
        }
    return bytes;
}

/// What a message of the instrument's holds: behind its five bytes of head, without its last byte.
inline std::string unpackedBody(std::string_view message) { return unpacked(message.substr(5, message.size() - 6)); }
