// What the device's process and the test see of each other.
#pragma once

#include "UsbMidiDevice.h"

#include <array>
#include <atomic>

inline constexpr std::size_t MostReceived = 1 << 20;
inline constexpr std::size_t MostPlayed = 4096;

struct UsbMidiDevice::Shared {
    std::atomic<std::int64_t> count{0}; ///< bytes accepted for the cable
    std::atomic<std::int64_t> lost{0};
    std::atomic<std::int64_t> firstAt{0};   ///< ns of the monotonic clock: first byte on the cable
    std::atomic<std::int64_t> lastOffAt{0}; ///< last byte off the cable, may lie ahead
    std::atomic<std::int64_t> unplugAt{-1}; ///< at so many bytes; -1 never
    std::atomic<std::int64_t> unpluggedAt{0};
    std::atomic<std::int64_t> stallAt{-1};
    std::atomic<std::int64_t> stallNs{0}; ///< 0: for ever
    std::atomic<bool> unplugNow{false};
    std::atomic<std::int64_t> played{0}; ///< bytes put into `keys` so far
    std::array<char, MostPlayed> keys{};
    std::array<char, MostReceived> bytes{};
};

/// The device's life in its own process; returns when it is unplugged.
void runUsbMidiDevice(const UsbMidiOptions& options, UsbMidiDevice::Shared& shared);
