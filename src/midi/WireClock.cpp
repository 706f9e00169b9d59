// Deadlines of the cable on the system's monotonic clock.
#include "midi/WireClock.h"

#include <algorithm>
#include <cerrno>
#include <ctime>
#include <utility>

namespace
{

constexpr std::int64_t SecondNs = 1'000'000'000;

std::int64_t monotonicNow()
{
    timespec time{};
    clock_gettime(CLOCK_MONOTONIC, &time);
    return static_cast<std::int64_t>(time.tv_sec) * SecondNs + time.tv_nsec;
}

void monotonicSleepUntil(std::int64_t instant)
{
    timespec deadline{};
    deadline.tv_sec = static_cast<std::time_t>(instant / SecondNs);
    deadline.tv_nsec = static_cast<long>(instant % SecondNs);
    while (clock_nanosleep(CLOCK_MONOTONIC, TIMER_ABSTIME, &deadline, nullptr) == EINTR) {
    }
}

} // namespace

WireClock::TimeSource WireClock::monotonicTime() { return {monotonicNow, monotonicSleepUntil}; }

WireClock::WireClock(int bytesPerSecond, TimeSource time) : bytesPerSecond_(bytesPerSecond), time_(std::move(time)) {}

void WireClock::handOver(int bytes) { freeAt_ = std::max(freeAt_, time_.now()) + nanosecondsOf(bytes); }

void WireClock::waitUntilLeft(int bytesLeft)
{
    const std::int64_t deadline = freeAt_ - nanosecondsOf(bytesLeft);
    if (deadline > time_.now())
        time_.sleepUntil(deadline);
}

std::int64_t WireClock::bytesLeft() const
{
    const std::int64_t left = freeAt_ - time_.now();
    if (left <= 0)
        return 0;
    const std::int64_t perByte = nanosecondsOf(1);
    return (left + perByte - 1) / perByte;
}

std::int64_t WireClock::nanosecondsOf(std::int64_t bytes) const { return bytes * SecondNs / bytesPerSecond_; }
