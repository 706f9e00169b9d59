// The clock of the cable, by which long messages go out no faster than 31250 baud carry them.
#include "midi/WireClock.h"

#include <csignal>
#include <gtest/gtest.h>
#include <sys/time.h>
#include <vector>

namespace
{

constexpr std::int64_t Millisecond = 1'000'000;

/// A time that stands still until somebody sleeps or works.
struct StandingTime {
    std::int64_t instant = 5'000 * Millisecond;
    std::vector<std::int64_t> sleeps; ///< how long each sleep was

    WireClock::TimeSource source()
    {
        return {[this] { return instant; },
                [this](std::int64_t until) {
                    sleeps.push_back(until - instant);
                    instant = until;
                }};
    }
};

} // namespace

TEST(WireClock, lets64BytesPassIn20480Microseconds)
{
    StandingTime time;
    WireClock clock(3125, time.source());
    clock.handOver(64);
    clock.waitUntilLeft(0);
    EXPECT_EQ(time.sleeps, (std::vector<std::int64_t>{20'480'000}));
}

TEST(WireClock, doesNotWaitForAFreeCable)
{
    StandingTime time;
    WireClock clock(3125, time.source());
    clock.waitUntilLeft(0);
    EXPECT_EQ(clock.bytesLeft(), 0);
    EXPECT_TRUE(time.sleeps.empty());
}

TEST(WireClock, countsTheTimeSpentElsewhereAgainstTheDeadline)
{
    StandingTime time;
    WireClock clock(3125, time.source());
    clock.handOver(64);
    time.instant += 15 * Millisecond; // painting between two pieces
    EXPECT_EQ(clock.bytesLeft(), 18); // 5.48 ms at 0.32 ms a byte
    clock.waitUntilLeft(0);
    EXPECT_EQ(time.sleeps, (std::vector<std::int64_t>{5'480'000}));
}

TEST(WireClock, addsUpNoErrorsOver40000Bytes)
{
    StandingTime time;
    WireClock clock(3125, time.source());
    const std::int64_t start = time.instant;
    for (int piece = 0; piece < 625; ++piece) {
        clock.handOver(64);
        time.instant += 3 * Millisecond;
        clock.waitUntilLeft(0);
    }
    EXPECT_EQ(time.instant - start, 12'800 * Millisecond);
}

TEST(WireClock, shiftsTheDeadlinesAfterAHoldUpSoThatNoBurstFollows)
{
    StandingTime time;
    WireClock clock(3125, time.source());
    clock.handOver(64);
    time.instant += 500 * Millisecond; // held up far beyond the deadline
    clock.waitUntilLeft(0);
    EXPECT_TRUE(time.sleeps.empty());
    for (int piece = 0; piece < 3; ++piece) {
        clock.handOver(64);
        clock.waitUntilLeft(0);
    }
    EXPECT_EQ(time.sleeps, (std::vector<std::int64_t>{20'480'000, 20'480'000, 20'480'000}));
}

TEST(WireClock, queuesShortMessagesBehindEachOther)
{
    StandingTime time;
    WireClock clock(3125, time.source());
    for (int message = 0; message < 10; ++message)
        clock.handOver(3);
    EXPECT_EQ(clock.bytesLeft(), 30);
    clock.waitUntilLeft(0);
    EXPECT_EQ(time.sleeps, (std::vector<std::int64_t>{9'600'000}));
}

TEST(WireClock, canStayAheadByAFewBytes)
{
    StandingTime time;
    WireClock clock(3125, time.source());
    clock.handOver(64);
    clock.waitUntilLeft(32);
    EXPECT_EQ(time.sleeps, (std::vector<std::int64_t>{10'240'000}));
    EXPECT_EQ(clock.bytesLeft(), 32);
}

TEST(WireClock, keepsAnotherPace)
{
    StandingTime time;
    WireClock clock(1000, time.source());
    clock.handOver(64);
    clock.waitUntilLeft(0);
    EXPECT_EQ(time.sleeps, (std::vector<std::int64_t>{64 * Millisecond}));
}

TEST(WireClock, sleepsOnTheRealClockToTheInstantItWasTold)
{
    const WireClock::TimeSource real = WireClock::monotonicTime();
    const std::int64_t start = real.now();
    real.sleepUntil(start + 30 * Millisecond);
    EXPECT_GE(real.now(), start + 30 * Millisecond);
    EXPECT_LT(real.now(), start + 1000 * Millisecond);
    const std::int64_t before = real.now();
    real.sleepUntil(start); // an instant that has passed
    EXPECT_LT(real.now() - before, 200 * Millisecond);
}

TEST(WireClock, aSignalDoesNotEndTheSleep)
{
    static volatile std::sig_atomic_t alarms;
    alarms = 0;
    struct sigaction action {
    };
    struct sigaction before {
    };
    action.sa_handler = [](int) { alarms = alarms + 1; };
    sigaction(SIGALRM, &action, &before);
    itimerval soon{};
    soon.it_value.tv_usec = 5000;
    setitimer(ITIMER_REAL, &soon, nullptr);
    const WireClock::TimeSource real = WireClock::monotonicTime();
    const std::int64_t until = real.now() + 30 * Millisecond;
    real.sleepUntil(until);
    EXPECT_GE(real.now(), until);
    EXPECT_EQ(alarms, 1);
    sigaction(SIGALRM, &before, nullptr);
}
