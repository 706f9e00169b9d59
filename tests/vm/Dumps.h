// Long messages for a cable, the same in each run.
#pragma once

#include <string>

/// A SysEx message of so many bytes whose data shows a lost or doubled byte anywhere.
inline std::string dumpOf(std::size_t size)
{
    std::string bytes(size, '\0');
    unsigned state = 1;
    for (char& byte : bytes) {
        state = state * 1103515245U + 12345U;
        byte = static_cast<char>(state >> 16 & 0x7FU);
    }
    bytes.front() = '\xF0';
    bytes.back() = '\xF7';
    return bytes;
}
