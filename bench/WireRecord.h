// What a measured program tells through the FIFO that stands for the MIDI port: where to press, then each message that
// reaches the port.
#pragma once

#include <cstdint>
#include <cstdlib>
#include <fcntl.h>
#include <unistd.h>

struct WireRecord {
    std::uint8_t kind = 0;        ///< one of Place and Message
    std::uint8_t doubleClick = 0; ///< 1 where the message comes of a press that arrived as a double click
    std::int16_t x = 0;           ///< of a place: pixels of the screen
    std::int16_t y = 0;
    std::uint16_t status = 0; ///< of a message: its first byte

    static constexpr std::uint8_t Place = 1;
    static constexpr std::uint8_t Message = 2;
};

/// The FIFO of the environment, opened for writing.
inline int wireOfEnvironment()
{
    const char* path = std::getenv("TARVOLYNE_BENCH_WIRE");
    return path ? open(path, O_WRONLY | O_CLOEXEC) : -1;
}

/// Ends the process where nobody reads: a lost record would look like a lost press.
inline void tellWire(int wire, const WireRecord& record)
{
    if (write(wire, &record, sizeof record) != static_cast<ssize_t>(sizeof record))
        _exit(3);
}

constexpr unsigned NoteOnStatus = 0x90;
constexpr unsigned NoteOffStatus = 0x80;
