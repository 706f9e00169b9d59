// The virtual cable: its ports and handles, its file of all messages, the pace of a real cable.
#include "instrument/VirtualMidiService.h"

#include "core/Dichiarazioni.h"
#include "midi/MIDI.h"
#include "support/Hex.h"
#include "support/ScriptedUser.h"
#include "support/TemporaryFolder.h"
#include <chrono>
#include <gtest/gtest.h>
#include <sys/stat.h>

class VirtualService : public testing::Test
{
protected:
    void SetUp() override { App = {}; }
    void TearDown() override
    {
        App = {};
        Midi = {};
    }
    std::int32_t openOut()
    {
        std::int32_t handle = 0;
        EXPECT_EQ(service.midiOutOpen(handle, -1), 0);
        return handle;
    }
    void sendLong(std::int32_t handle, const std::string& message)
    {
        EXPECT_EQ(service.midiOutPrepareHeader(handle, message), 0);
        EXPECT_EQ(service.midiOutLongMsg(handle, message), 0);
        EXPECT_EQ(service.midiOutUnprepareHeader(handle, message), 0);
    }
    std::string kept() const { return folder.get("VirtualInstrument.syx"); }

    TemporaryFolder folder;
    VirtualInstrument instrument;
    VirtualMidiService service{instrument, [this] { return folder.path(); }};
};

/// F0 42 30 4D 64, data, F7: `length` bytes in all.
static std::string longMessage(std::size_t length)
{
    return bytesOf("F0 42 30 4D 64") + std::string(length - 6, '\x11') + "\xF7";
}

TEST_F(VirtualService, offersOneOutputAndOneInput)
{
    EXPECT_EQ(service.midiOutGetNumDevs(), 1);
    EXPECT_EQ(service.midiInGetNumDevs(), 1);
    EXPECT_EQ(service.midiInGetDevCaps(0), 0);
    EXPECT_GT(service.midiInGetDevCaps(1), 0);
}

TEST_F(VirtualService, refusesHandlesThatAreNotOpen)
{
    EXPECT_EQ(service.midiOutShortMsg(0, 0x403C90), 5);
    const std::int32_t out = openOut();
    std::int32_t in = 0;
    ASSERT_EQ(service.midiInOpen(in, 0), 0);
    EXPECT_NE(in, out);
    for (const std::int32_t wrong : {0, in, out + 100, -1}) {
        EXPECT_EQ(service.midiOutShortMsg(wrong, 0x403C90), 5);
        EXPECT_EQ(service.midiOutPrepareHeader(wrong, "a"), 5);
        EXPECT_EQ(service.midiOutLongMsg(wrong, "a"), 5);
        EXPECT_EQ(service.midiOutUnprepareHeader(wrong, "a"), 5);
        EXPECT_EQ(service.midiOutClose(wrong), 5);
    }
    for (const std::int32_t wrong : {0, out, in + 100}) {
        EXPECT_EQ(service.midiInStart(wrong), 5);
        EXPECT_EQ(service.midiInStop(wrong), 5);
        EXPECT_EQ(service.midiInClose(wrong), 5);
        EXPECT_EQ(service.midiConnect(wrong, out), 5);
        EXPECT_EQ(service.midiDisconnect(in, wrong == out ? 0 : wrong), 5);
    }
    EXPECT_EQ(instrument.byteCount(), 0);
    EXPECT_EQ(kept(), "");
}

TEST_F(VirtualService, opensAPortOnceAtATimeAndGivesAFreshHandleEachTime)
{
    const std::int32_t first = openOut();
    std::int32_t second = -7;
    EXPECT_EQ(service.midiOutOpen(second, -1), 4);
    EXPECT_EQ(second, -7);
    EXPECT_EQ(service.midiOutClose(first), 0);
    EXPECT_EQ(service.midiOutClose(first), 5);
    EXPECT_NE(openOut(), first);

    std::int32_t in = 0;
    EXPECT_EQ(service.midiInOpen(in, 1), 1);
    EXPECT_EQ(service.midiInOpen(in, 0), 0);
    std::int32_t again = 0;
    EXPECT_EQ(service.midiInOpen(again, 0), 4);
    EXPECT_EQ(service.midiInClose(in), 0);
}

TEST_F(VirtualService, joinsThruUntilEitherPortCloses)
{
    const std::int32_t out = openOut();
    std::int32_t in = 0;
    ASSERT_EQ(service.midiInOpen(in, 0), 0);
    EXPECT_EQ(service.midiDisconnect(in, out), 67);
    EXPECT_EQ(service.midiConnect(in, out), 0);
    EXPECT_TRUE(service.thruConnected());
    EXPECT_EQ(service.midiConnect(in, out), 4);
    EXPECT_EQ(service.midiInStart(in), 0);
    EXPECT_EQ(service.midiInStop(in), 0);
    EXPECT_EQ(service.midiDisconnect(in, out), 0);
    EXPECT_FALSE(service.thruConnected());
    EXPECT_EQ(service.midiConnect(in, out), 0);
    EXPECT_EQ(service.midiOutClose(out), 0);
    EXPECT_FALSE(service.thruConnected());
}

TEST_F(VirtualService, sendsTwoOrThreeBytesByTheStatus)
{
    const std::int32_t out = openOut();
    for (const std::uint32_t word : {0x403C90U, 0x003C80U, 0x016407B0U, 0x7F45C3U, 0x7F11D0U, 0x407FE0U, 0x000005U})
        EXPECT_EQ(service.midiOutShortMsg(out, word), 0);
    EXPECT_EQ(hex(kept()), "90 3C 40 80 3C 00 B0 07 64 C3 45 D0 11 E0 7F 40 05 00 00");
    EXPECT_EQ(instrument.channel(3).program, 0x45);
    EXPECT_EQ(instrument.channel(0).controllers[7], 100);
    EXPECT_EQ(instrument.channel(0).pitchBend, 8319); // 7F 40
}

TEST_F(VirtualService, aWordWithoutAStatusIsMalformedWhateverWasSentBefore)
{
    const std::int32_t out = openOut();
    EXPECT_EQ(service.midiOutShortMsg(out, 0x403C90U), 0);
    EXPECT_EQ(service.midiOutShortMsg(out, 0x000005U), 0);
    EXPECT_EQ(instrument.malformedCount(Fault::NoStatus), 1);
    EXPECT_EQ(instrument.malformedCount(), 1);
    EXPECT_EQ(instrument.lastMessages().back().head, "05 00 00");
    EXPECT_EQ(instrument.soundingNotes(), (std::vector<SoundingNote>{{0, 60, 64}}));
    EXPECT_EQ(service.midiOutShortMsg(out, 0x403C90U), 0);
    sendLong(out, bytesOf("3E 40"));
    EXPECT_EQ(instrument.malformedCount(Fault::NoStatus), 2);
    EXPECT_EQ(instrument.soundingNotes().size(), 1U);
    EXPECT_EQ(hex(kept()), "90 3C 40 05 00 00 90 3C 40 3E 40");
}

TEST_F(VirtualService, aWordWithoutAStatusIsMalformedOnAFreshCable)
{
    const std::int32_t out = openOut();
    EXPECT_EQ(service.midiOutShortMsg(out, 0x000005U), 0);
    EXPECT_EQ(hex(kept()), "05 00 00");
    EXPECT_EQ(instrument.malformedCount(Fault::NoStatus), 1);
    EXPECT_EQ(instrument.malformedCount(), 1);
}

TEST_F(VirtualService, keepsEveryMessageInTheFileAtOnceAndBeginsItAfresh)
{
    folder.put("VirtualInstrument.syx", "what an earlier run sent");
    EXPECT_EQ(kept(), "what an earlier run sent");
    const std::int32_t out = openOut();
    EXPECT_EQ(kept(), "");
    sendLong(out, bytesOf("F0 42 30 4D 4E 06 F7"));
    EXPECT_EQ(hex(kept()), "F0 42 30 4D 4E 06 F7");
    EXPECT_EQ(service.midiOutShortMsg(out, 0x05C0), 0);
    EXPECT_EQ(hex(kept()), "F0 42 30 4D 4E 06 F7 C0 05");
    // Opening again in the same run goes on with the same file.
    EXPECT_EQ(service.midiOutClose(out), 0);
    EXPECT_EQ(service.midiOutShortMsg(openOut(), 0x06C0), 0);
    EXPECT_EQ(hex(kept()), "F0 42 30 4D 4E 06 F7 C0 05 C0 06");
}

TEST_F(VirtualService, worksWithoutAFolderAndIsNotStoppedByAPipeOfTheFilesName)
{
    for (const char* path : {"", "/nonexistent/folder"}) {
        VirtualInstrument other;
        VirtualMidiService bare(other, [path] { return std::string(path); });
        std::int32_t out = 0;
        EXPECT_EQ(bare.midiOutOpen(out, -1), 0);
        EXPECT_EQ(bare.midiOutShortMsg(out, 0x05C0), 0);
        EXPECT_EQ(other.channel(0).program, 5);
    }
    ASSERT_EQ(mkfifo(folder.file("VirtualInstrument.syx").c_str(), 0600), 0);
    EXPECT_EQ(service.midiOutShortMsg(openOut(), 0x05C0), 0);
    EXPECT_EQ(instrument.channel(0).program, 5);
}

TEST_F(VirtualService, takesEveryMessageAtOnceByDefaultAndStaysSilentAboutIt)
{
    int calls = 0;
    service.progress = [&](int, int) { ++calls; };
    EXPECT_FALSE(service.paced());
    const std::int32_t out = openOut();
    const auto start = std::chrono::steady_clock::now();
    sendLong(out, longMessage(12000)); // 3.84 s on a cable
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(500));
    EXPECT_EQ(calls, 0);
    EXPECT_EQ(instrument.byteCount(), 12000);
    EXPECT_EQ(kept(), longMessage(12000));
}

TEST_F(VirtualService, pacedTakesAThousandBytesInAThirdOfASecondWithProgressBetweenThePieces)
{
    std::vector<std::pair<int, int>> progress;
    std::vector<std::int64_t> taken;
    service.setPaced(true);
    service.progress = [&](int gone, int total) {
        progress.emplace_back(gone, total);
        taken.push_back(instrument.byteCount());
    };
    const std::int32_t out = openOut();
    const auto start = std::chrono::steady_clock::now();
    sendLong(out, longMessage(1000));
    const std::chrono::duration<double> time = std::chrono::steady_clock::now() - start;
    EXPECT_GE(time.count(), 0.31);
    EXPECT_LE(time.count(), 0.60);
    ASSERT_EQ(progress.size(), 16U);
    for (int call = 0; call < 15; ++call) {
        EXPECT_EQ(progress[static_cast<std::size_t>(call)], std::make_pair(64 * (call + 1), 1000));
        EXPECT_EQ(taken[static_cast<std::size_t>(call)], 64 * (call + 1));
    }
    EXPECT_EQ(progress.back(), std::make_pair(1000, 1000));
    EXPECT_EQ(kept(), longMessage(1000));
}

namespace
{
struct FakeTime {
    std::int64_t instant = 1;
    WireClock::TimeSource source()
    {
        return {[this] { return instant; }, [this](std::int64_t until) { instant = until; }};
    }
};
} // namespace

TEST_F(VirtualService, pacedHandsOverOnePieceAndShortMessagesAtOnce)
{
    FakeTime time;
    VirtualInstrument other;
    VirtualMidiService clocked(
        other, [] { return std::string(); }, WireClock(3125, time.source()));
    int calls = 0;
    clocked.setPaced(true);
    clocked.progress = [&](int, int) { ++calls; };
    std::int32_t out = 0;
    ASSERT_EQ(clocked.midiOutOpen(out, -1), 0);
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(clocked.midiOutLongMsg(out, longMessage(64)), 0);
        EXPECT_EQ(clocked.midiOutShortMsg(out, 0x403C90), 0);
    }
    EXPECT_EQ(time.instant, 1);
    EXPECT_EQ(calls, 0);
    EXPECT_EQ(other.byteCount(), 3 * 67);
}

TEST_F(VirtualService, pacedMessagesShareOneClock)
{
    FakeTime time;
    VirtualInstrument other;
    VirtualMidiService clocked(
        other, [] { return std::string(); }, WireClock(3125, time.source()));
    clocked.setPaced(true);
    std::int32_t out = 0;
    ASSERT_EQ(clocked.midiOutOpen(out, -1), 0);
    for (int i = 0; i < 10; ++i)
        EXPECT_EQ(clocked.midiOutShortMsg(out, 0x403C90), 0);
    EXPECT_EQ(time.instant, 1);
    EXPECT_EQ(clocked.midiOutLongMsg(out, longMessage(128)), 0);
    EXPECT_EQ(time.instant, 1 + (30 + 128) * 320'000);
}

TEST_F(VirtualService, aMessageTakenAtOnceCostsALaterPacedOneNothing)
{
    FakeTime time;
    VirtualInstrument other;
    VirtualMidiService clocked(
        other, [] { return std::string(); }, WireClock(3125, time.source()));
    std::int32_t out = 0;
    ASSERT_EQ(clocked.midiOutOpen(out, -1), 0);
    EXPECT_EQ(clocked.midiOutLongMsg(out, longMessage(12000)), 0);
    clocked.setPaced(true);
    EXPECT_EQ(clocked.midiOutLongMsg(out, longMessage(65)), 0);
    EXPECT_EQ(time.instant, 1 + 65 * 320'000);
}

TEST_F(VirtualService, servesThePortRoutinesFromOpeningToClosing)
{
    ScriptedUser user;
    App.ui = &user;
    Midi = {};
    Midi.service = &service;
    EXPECT_EQ(MidiOutOpen(), 0);
    EXPECT_EQ(MidiInOpen(), 0);
    MidiThruConnect();
    MidiInRun();
    EXPECT_EQ(Midi.MidiLastResult, 0);
    MidiNoteOn(4, 60, 64);
    EXPECT_EQ(instrument.soundingNotes(), (std::vector<SoundingNote>{{4, 60, 64}}));
    MidiAllNotesOff(4);
    EXPECT_TRUE(instrument.soundingNotes().empty());
    MidiThruDisconnect();
    MidiInHalt();
    MidiOutClose();
    MidiInClose();
    EXPECT_EQ(Midi.MidiPortsOpen, 0);
    EXPECT_TRUE(user.warnings.empty());
    EXPECT_EQ(hex(kept()), "94 3C 40 B4 7B 00");
}

TEST_F(VirtualService, keepsItsFileForTheUserAlone)
{
    const auto modeOfFile = [&] { return std::filesystem::status(folder.file("VirtualInstrument.syx")).permissions(); };
    const mode_t before = umask(0);
    openOut();
    umask(before);
    EXPECT_EQ(modeOfFile(), std::filesystem::perms(0600));
    chmod(folder.file("VirtualInstrument.syx").c_str(), 0644);
    VirtualMidiService again{instrument, [this] { return folder.path(); }};
    std::int32_t handle = 0;
    EXPECT_EQ(again.midiOutOpen(handle, -1), 0);
    EXPECT_EQ(modeOfFile(), std::filesystem::perms(0600));
}

TEST_F(VirtualService, emptiesNoOtherFileThroughALinkOfItsFilesName)
{
    const TemporaryFolder elsewhere;
    elsewhere.put("victim", "of another matter");
    for (const bool hard : {false, true}) {
        std::filesystem::remove(folder.file("VirtualInstrument.syx"));
        if (hard)
            std::filesystem::create_hard_link(elsewhere.file("victim"), folder.file("VirtualInstrument.syx"));
        else
            std::filesystem::create_symlink(elsewhere.file("victim"), folder.file("VirtualInstrument.syx"));
        VirtualMidiService planted{instrument, [this] { return folder.path(); }};
        std::int32_t handle = 0;
        ASSERT_EQ(planted.midiOutOpen(handle, -1), 0);
        EXPECT_EQ(planted.midiOutShortMsg(handle, 0x403C90), 0);
        EXPECT_EQ(elsewhere.get("victim"), "of another matter");
        EXPECT_EQ(kept(), "\x90\x3C\x40");
        EXPECT_TRUE(
            std::filesystem::is_regular_file(std::filesystem::symlink_status(folder.file("VirtualInstrument.syx"))));
    }
}
