// The pace of a MIDI cable: 3125 bytes a second, kept against absolute deadlines.
//
// Whoever hands bytes over says so; the clock knows when the last of them leaves the cable. Sleeping to that instant,
// instead of sleeping for a while, adds up no errors. When the program is held up (a slow painting, a busy machine) the
// deadlines shift: the lost time stays lost, and no burst of bytes follows.
#pragma once

#include <cstdint>
#include <functional>

class WireClock
{
public:
    static constexpr int CableBytesPerSecond = 3125;
    static constexpr int PieceSize = 64; ///< bytes handed over at a time

    /// Where the time comes from: nanoseconds of a clock that never goes back, and a sleep to an instant of it.
    struct TimeSource {
        std::function<std::int64_t()> now;
        std::function<void(std::int64_t)> sleepUntil;
    };
    static TimeSource monotonicTime();

    explicit WireClock(int bytesPerSecond = CableBytesPerSecond, TimeSource time = monotonicTime());

    /// Bytes go onto the cable now: behind those that are still on it, or at once when it is free.
    void handOver(int bytes);

    /// Sleeps until no more than `bytesLeft` bytes are still to leave the cable.
    void waitUntilLeft(int bytesLeft);

    /// Bytes still on the cable, rounded up; 0 when it is free.
    [[nodiscard]] std::int64_t bytesLeft() const;

private:
    [[nodiscard]] std::int64_t nanosecondsOf(std::int64_t bytes) const;

    int bytesPerSecond_;
    TimeSource time_;
    std::int64_t freeAt_ = 0; ///< instant at which the last byte is out
};
