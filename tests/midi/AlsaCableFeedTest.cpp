// The pace of a long message, and what the driver's account tells of it.
#include "midi/CableFeed.h"

#include "midi/FakeSequencer.h"

#include <gtest/gtest.h>

namespace
{

constexpr std::int64_t Second = 1'000'000'000;

std::string dump(int size)
{
    std::string bytes(static_cast<std::size_t>(size), '\0');
    for (std::size_t i = 0; i < bytes.size(); ++i)
        bytes[i] = static_cast<char>(i * 7 % 128);
    bytes.front() = '\xF0';
    bytes.back() = '\xF7';
    return bytes;
}

/// An outlet straight into a fake device.
struct DeviceOutlet final : CableOutlet {
    FakeClock& clock;
    FakeDevice device;
    int events = 0;
    int vanishAfter = -1; ///< events
    int looks = 0;        ///< at the account
    int looksLeft = -1;   ///< then it cannot be read any more
    int foreign = 0;      ///< bytes that another program adds before each look
    std::vector<double> times;

    explicit DeviceOutlet(FakeClock& time) : clock(time)
    {
        watched = true;
        device.drainedAt = clock.now;
    }
    int give(PieceKind, std::string_view bytes) override
    {
        if (events == vanishAfter)
            return -ENOENT;
        ++events;
        times.push_back(clock.seconds());
        device.take(bytes, clock.now);
        return 0;
    }
    std::optional<PortAccount> account() override
    {
        if (!device.accountReadable || looks == looksLeft)
            return std::nullopt;
        ++looks;
        device.accepted += foreign;
        device.drain(clock.now);
        return device.account();
    }
};

struct AlsaCableFeed : testing::Test {
    FakeClock clock;
    CableFeed feed{clock.source()};
    DeviceOutlet outlet{clock};
    CableFeed::Outlets one{&outlet};
};

} // namespace

TEST_F(AlsaCableFeed, aLongMessageTakesTheTimeOfTheCableAndOneInAHundredMore)
{
    for (const int size : {12288, 15360, 40960, 76800}) {
        const std::string message = dump(size);
        outlet.device.received.clear();
        const double begun = clock.seconds();
        EXPECT_EQ(feed.sendWhole(one, message, {}), 0);
        EXPECT_EQ(outlet.device.received, message);
        const double ratio = (clock.seconds() - begun) / (size / 3125.0);
        EXPECT_GE(ratio, 1.0);
        EXPECT_LE(ratio, 1.015) << size;
    }
}

TEST_F(AlsaCableFeed, neverMoreThanAPieceAndAHalfIsAheadOfTheCable)
{
    EXPECT_EQ(feed.sendWhole(one, dump(12288), {}), 0);
    EXPECT_LE(outlet.device.mostHeld, 96);
    EXPECT_GT(outlet.device.mostHeld, 64) << "and it stays ahead, so that the cable is never idle";
}

TEST_F(AlsaCableFeed, piecesAreOf64Bytes)
{
    EXPECT_EQ(feed.sendWhole(one, dump(12288), {}), 0);
    EXPECT_EQ(outlet.events, 192);
    outlet.events = 0;
    EXPECT_EQ(feed.sendWhole(one, dump(65), {}), 0);
    EXPECT_EQ(outlet.events, 2);
}

TEST_F(AlsaCableFeed, afterAHoldUpTheDeadlinesShiftAndNoBurstFollows)
{
    outlet.watched = false;
    bool held = false;
    const auto paint = [&](int gone, int) {
        if (gone > 6000 && !held) {
            held = true;
            clock.now += Second / 2;
        }
    };
    EXPECT_EQ(feed.sendWhole(one, dump(12288), paint), 0);
    EXPECT_LE(outlet.device.mostHeld, 96);
    EXPECT_NEAR(clock.seconds(), 12288 / 3094.0 + 0.5, 0.05);
}

TEST_F(AlsaCableFeed, paintingForTwentyMillisecondsBetweenPiecesCostsNoTime)
{
    const auto paint = [&](int, int) { clock.now += Second / 50; };
    EXPECT_EQ(feed.sendWhole(one, dump(12288), paint), 0);
    EXPECT_LE(clock.seconds() / (12288 / 3125.0), 1.02);
}

TEST_F(AlsaCableFeed, tellsTheProgressBetweenThePiecesAndAtTheEnd)
{
    std::vector<std::pair<int, int>> told;
    EXPECT_EQ(feed.sendWhole(one, dump(200), [&](int gone, int total) { told.emplace_back(gone, total); }), 0);
    EXPECT_EQ(told, (std::vector<std::pair<int, int>>{{64, 200}, {128, 200}, {192, 200}, {200, 200}}));
}

TEST_F(AlsaCableFeed, aSlowInterfaceIsWaitedForSoThatItsBufferNeverOverflows)
{
    outlet.device.rate = 1000;
    const std::string message = dump(12288);
    EXPECT_EQ(feed.sendWhole(one, message, {}), 0);
    EXPECT_EQ(outlet.device.received, message);
    EXPECT_GE(clock.seconds(), 12.288) << "the call returns when the last byte is out";
}

TEST_F(AlsaCableFeed, aStallOfThreeSecondsLosesNothingAndIsNoError)
{
    for (const std::int64_t at : {Second, Second / 2 * 7}) {
        outlet.device.received.clear();
        outlet.device.stallFrom = clock.now + at;
        outlet.device.stallTo = outlet.device.stallFrom + 3 * Second;
        const std::string message = dump(12288);
        EXPECT_EQ(feed.sendWhole(one, message, {}), 0);
        EXPECT_EQ(outlet.device.received, message);
    }
}

TEST_F(AlsaCableFeed, aDeviceThatTakesNothingForFourSecondsIsStuckAndTheNextMessageIsRefusedAtOnce)
{
    outlet.device.stallFrom = clock.now + Second;
    outlet.device.stallTo = clock.now + 1000 * Second;
    EXPECT_EQ(feed.sendWhole(one, dump(40960), {}), -ETIMEDOUT);
    EXPECT_GT(clock.seconds(), 5.0);
    EXPECT_LT(clock.seconds(), 7.0);

    const std::size_t before = outlet.device.received.size();
    const int eventsBefore = outlet.events;
    const double then = clock.seconds();
    EXPECT_EQ(feed.sendWhole(one, dump(12288), {}), -ETIMEDOUT);
    EXPECT_EQ(feed.handOver(one, PieceKind::Short, "\x90\x3C\x40"), -ETIMEDOUT);
    EXPECT_EQ(outlet.events, eventsBefore) << "nothing is put where there is no room";
    EXPECT_EQ(outlet.device.received.size(), before);
    EXPECT_LT(clock.seconds() - then, 0.2);
}

TEST_F(AlsaCableFeed, aStuckDeviceIsToldThoughAnotherProgramKeepsWritingToIt)
{
    outlet.device.stallFrom = clock.now + Second;
    outlet.device.stallTo = clock.now + 1000 * Second;
    const WireClock::TimeSource time = clock.source();
    CableFeed shared({time.now, [&](std::int64_t instant) {
                          time.sleepUntil(instant);
                          outlet.device.take("\xFE", clock.now);
                      }});
    EXPECT_EQ(shared.sendWhole(one, dump(40960), {}), -ETIMEDOUT);
    EXPECT_LT(clock.seconds(), 7.0);
}

TEST_F(AlsaCableFeed, aStuckDeviceThatMovesAgainIsServedAgain)
{
    outlet.device.stallFrom = clock.now + Second;
    outlet.device.stallTo = clock.now + 60 * Second;
    EXPECT_EQ(feed.sendWhole(one, dump(40960), {}), -ETIMEDOUT);
    clock.now += 70 * Second;
    outlet.device.received.clear();
    const std::string message = dump(12288);
    EXPECT_EQ(feed.sendWhole(one, message, {}), 0);
    EXPECT_EQ(outlet.device.received, message);
}

TEST_F(AlsaCableFeed, aStallAtTheEndOfTheMessageIsWaitedForToo)
{
    outlet.device.stallFrom = clock.now + 3 * Second;
    outlet.device.stallTo = clock.now + 1000 * Second;
    EXPECT_EQ(feed.sendWhole(one, dump(12288), {}), -ETIMEDOUT) << "the last bytes never left the buffer";
}

TEST_F(AlsaCableFeed, bytesThatTheKernelDroppedAreAnError)
{
    struct Leaky final : CableOutlet {
        DeviceOutlet& real;
        explicit Leaky(DeviceOutlet& outlet) : real(outlet) { watched = true; }
        int give(PieceKind kind, std::string_view bytes) override { return real.give(kind, bytes.substr(1)); }
        std::optional<PortAccount> account() override { return real.account(); }
    } leaky{outlet};
    EXPECT_EQ(feed.sendWhole({&leaky}, dump(1000), {}), -EIO);
}

TEST_F(AlsaCableFeed, foreignBytesInTheMessageAreAnError)
{
    bool spoken = false;
    const auto somebodyPlays = [&](int gone, int) {
        if (gone > 500 && !spoken) {
            spoken = true;
            outlet.device.take("\x90\x3C\x40", clock.now);
        }
    };
    EXPECT_EQ(feed.sendWhole(one, dump(1000), somebodyPlays), -EIO);
}

TEST_F(AlsaCableFeed, foreignBytesAfterTheLastByteAreNoErrorAndAreNotWaitedForThoughTheyNeverEnd)
{
    // Whoever shares the interface plays from the moment our last piece is given, and keeps the buffer filled.
    const WireClock::TimeSource time = clock.source();
    CableFeed shared({time.now, [&](std::int64_t instant) {
                          time.sleepUntil(instant);
                          if (outlet.events == 16)
                              outlet.device.take(std::string(200, '\xFE'), clock.now);
                      }});
    const std::string message = dump(1000);
    EXPECT_EQ(shared.sendWhole(one, message, {}), 0);
    EXPECT_EQ(outlet.device.received.substr(0, 1000), message);
    EXPECT_LT(clock.seconds(), 1.0);
}

TEST_F(AlsaCableFeed, aDeviceThatOnlyTricklesIsGivenUpAndNobodyWaitsForHours)
{
    outlet.device.rate = 10;
    EXPECT_EQ(feed.sendWhole(one, dump(40960), {}), -ETIMEDOUT);
    EXPECT_GT(clock.seconds(), 10.0);
    EXPECT_LT(clock.seconds(), 13.0);
}

TEST_F(AlsaCableFeed, aVanishedPortEndsTheMessageAtTheNextPiece)
{
    outlet.vanishAfter = 100;
    EXPECT_EQ(feed.sendWhole(one, dump(40960), {}), -ENOENT);
    EXPECT_EQ(outlet.events, 100);
    EXPECT_LT(clock.seconds(), 100 * 64 / 3094.0 + 0.1);
}

TEST_F(AlsaCableFeed, anAccountThatVanishesIsAnErrorToo)
{
    outlet.device.accountReadable = false;
    EXPECT_EQ(feed.sendWhole(one, dump(1000), {}), -ENODEV);
}

TEST_F(AlsaCableFeed, withoutAnAccountThePaceAloneServes)
{
    outlet.watched = false;
    outlet.device.accountReadable = false;
    const std::string message = dump(12288);
    EXPECT_EQ(feed.sendWhole(one, message, {}), 0);
    EXPECT_EQ(outlet.device.received, message);
    EXPECT_NEAR(clock.seconds(), 12288 / 3094.0, 0.01);
}

TEST_F(AlsaCableFeed, aListenerBesideTheInstrumentCannotMakeTheMessageFail)
{
    DeviceOutlet listener{clock};
    listener.counts = false;
    listener.watched = false;
    listener.vanishAfter = 3;
    const std::string message = dump(12288);
    EXPECT_EQ(feed.sendWhole({&listener, &outlet}, message, {}), 0);
    EXPECT_EQ(outlet.device.received, message);
}

TEST_F(AlsaCableFeed, whenOneOfTwoInstrumentsVanishesTheOtherGetsAllAndTheErrorIsTold)
{
    DeviceOutlet second{clock};
    outlet.vanishAfter = 10;
    const std::string message = dump(12288);
    EXPECT_EQ(feed.sendWhole({&outlet, &second}, message, {}), -ENOENT);
    EXPECT_EQ(second.device.received, message);
}

TEST_F(AlsaCableFeed, aShortMessageGoesAtOnceWhenTheCableIsFree)
{
    const std::int64_t before = clock.now;
    EXPECT_EQ(feed.handOver(one, PieceKind::Short, "\x90\x3C\x40"), 0);
    EXPECT_EQ(clock.now, before);
}

TEST_F(AlsaCableFeed, shortMessagesBackToBackGoNoFasterThanTheCable)
{
    std::string sent;
    for (int i = 0; i < 4000; ++i) {
        const std::string note{'\x90', static_cast<char>(i % 128), '\x40'};
        ASSERT_EQ(feed.handOver(one, PieceKind::Short, note), 0);
        sent += note;
    }
    EXPECT_EQ(outlet.device.received, sent);
    EXPECT_LE(outlet.device.mostHeld, 96);
    EXPECT_NEAR(clock.seconds(), 12000 / 3094.0, 0.05);
}

TEST_F(AlsaCableFeed, shortMessagesIntoAStuckDeviceAreRefusedBeforeTheBufferOverflows)
{
    outlet.device.stallFrom = clock.now;
    outlet.device.stallTo = clock.now + 1000 * Second;
    int taken = 0;
    while (taken < 3000 && feed.handOver(one, PieceKind::Short, "\x90\x3C\x40") == 0)
        ++taken;
    EXPECT_LT(taken, 4096 / 3);
    EXPECT_EQ(outlet.device.received.size(), static_cast<std::size_t>(taken) * 3) << "every byte told as sent is there";
}

TEST_F(AlsaCableFeed, anAccountThatVanishesAtAnyLookIsAMissingDevice)
{
    EXPECT_EQ(feed.sendWhole(one, dump(2000), {}), 0);
    const int all = outlet.looks;
    ASSERT_GE(all, 10) << "before, at each 256 bytes, behind";
    for (int left = 0; left < all; ++left) {
        outlet.looks = 0;
        outlet.looksLeft = left;
        EXPECT_EQ(feed.sendWhole(one, dump(2000), {}), -ENODEV) << left;
    }
    outlet.looksLeft = -1;
    EXPECT_EQ(feed.sendWhole(one, dump(2000), {}), 0);
}

TEST_F(AlsaCableFeed, anotherProgramThatNeverStopsWritingIsAnErrorAndNoWaitWithoutEnd)
{
    outlet.foreign = 1;
    EXPECT_EQ(feed.sendWhole(one, dump(2000), {}), -EIO);
    EXPECT_EQ(outlet.device.received, dump(2000));
    EXPECT_LT(clock.seconds(), 2000 / 3094.0 + 1);
    outlet.foreign = 0;
    EXPECT_EQ(feed.sendWhole(one, dump(2000), {}), 0);
}

TEST_F(AlsaCableFeed, waitsForTheTransfersThatNoAccountShows)
{
    struct Watching final : CableOutlet {
        DeviceOutlet& real;
        std::int64_t total = 0;
        std::int64_t emptyAt = 0;
        explicit Watching(DeviceOutlet& outlet) : real(outlet) { watched = true; }
        int give(PieceKind kind, std::string_view bytes) override { return real.give(kind, bytes); }
        std::optional<PortAccount> account() override
        {
            const std::optional<PortAccount> now = real.account();
            if (now && now->passedOn >= total && emptyAt == 0)
                emptyAt = real.clock.now;
            return now;
        }
    } watching(outlet);
    watching.total = 1000;
    outlet.device.stallFrom = clock.now;
    outlet.device.stallTo = clock.now + Second;
    EXPECT_EQ(feed.sendWhole({&watching}, dump(1000), {}), 0);
    EXPECT_EQ(clock.now - watching.emptyAt, 107'520'000) << "seven of 48 bytes, 320 us a byte";
}

TEST_F(AlsaCableFeed, aBufferAsSmallAsTheStepBetweenTwoLooksIsEnough)
{
    outlet.device.size = 256;
    EXPECT_EQ(feed.sendWhole(one, dump(2000), {}), 0);
    EXPECT_EQ(outlet.device.received, dump(2000));
}
