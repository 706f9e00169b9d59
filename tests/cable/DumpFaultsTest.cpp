// A cable that fails under each of the four dumps, at every 200th byte and in every way: the program lives, says so
// once, has lost nothing, and the next action works.
#include "arrangements/ArrSends.h"
#include "core/Dichiarazioni.h"
#include "files/WindowBuffer.h"
#include "global/GblEdit.h"
#include "global/GblState.h"
#include "midi/FaultyCable.h"
#include "programs/ProgramSends.h"
#include "styles/StyleSends.h"
#include "support/CoreRun.h"
#include "support/Figures.h"
#include "support/StyleFiles.h"

#include <cstdlib>
#include <gtest/gtest.h>

namespace
{

using Said = ScriptedUser::Said;
using Warnings = std::vector<Said>;

const Said InUse{"Tarvolyne - Tarvolyne Console ", "Output MIDI Device already in use"};
const Said OpeningError{"Tarvolyne - Tarvolyne Console ", "Error opening Output MIDI Device"};
const Said NoDevice{"Tarvolyne - Tarvolyne Console ", "Output MIDI Device not found"};

/// Bytes of every value in no period of the packing or of a piece.
std::string anyBytes(std::size_t count)
{
    std::string bytes;
    for (std::size_t i = 0; i < count; ++i)
        bytes += static_cast<char>(i * 37 + i / 251);
    return bytes;
}

std::string fourStyles() { return styFile({{"One", 1176}, {"Two", 1176}, {"Three", 1176}, {"Four", 1176}}); }

/// A kind of dump: what its window holds, the real routine, and the length of its message.
struct Dump {
    const char* name;
    std::string buffer;
    void (*send)(std::string& buffer);
    std::size_t length;
};

// 10496, 4728, 13112 and 415 bytes packed eight to seven, in a frame of six.
const Dump Dumps[] = {
    {"arrangement", std::string(270, ' ') + anyBytes(10528), [](std::string& buffer) { ArrBlockSend(buffer); }, 12002},
    {"style group", std::string(1, 23) + std::string(668, ' ') + fourStyles(),
     [](std::string& buffer) { EXPECT_EQ(StyGroupSend(0, buffer), 0); }, 5410},
    {"programs", std::string(270, ' ') + anyBytes(30480), [](std::string& buffer) { ProgramDumpSend(buffer); }, 14992},
    {"global", std::string(270, ' ') + anyBytes(448),
     [](std::string& buffer) {
         WindowBuffer tag{buffer};
         GblSend(tag);
         buffer = tag.bytes();
     },
     481}};

void PrintTo(const Dump& dump, std::ostream* out) { *out << dump.name; }

class CableUnder : public testing::TestWithParam<Dump>
{
protected:
    CableUnder()
    {
        reset();
        run.speak(2);
        App.GlobalChannel = 2;
    }
    ~CableUnder() override { reset(); }
    static void reset()
    {
        Midi = {};
        Gbl = {};
        OpenWindows::clear();
    }
    /// The message as it goes out when nothing is wrong.
    std::string whole()
    {
        FaultyCable cable;
        cable.open();
        cable.breakAfter(CableFault::Dies, 1'000'000);
        send();
        EXPECT_EQ(run.user.warnings, Warnings{});
        EXPECT_EQ(cable.arrived().size(), GetParam().length);
        Midi = {};
        return cable.arrived();
    }
    void send()
    {
        std::string buffer = GetParam().buffer;
        GetParam().send(buffer);
        EXPECT_TRUE(buffer == GetParam().buffer) << "the window's buffer is changed";
        EXPECT_FALSE(Midi.Sending);
    }
    Warnings warnings() { return std::exchange(run.user.warnings, {}); }
    /// Everything a case must show; `at` bytes arrive before the fault.
    void failAndGoOn(CableFault fault, std::size_t at, const std::string& message)
    {
        FaultyCable cable;
        cable.open();
        cable.breakAfter(fault, static_cast<std::int64_t>(at));
        send();
        EXPECT_EQ(warnings(), Warnings{OpeningError}) << "once, for the one step of three that failed";
        EXPECT_TRUE(Midi.SysExOutput == message);
        const std::string arrived = cable.arrived();
        if (fault == CableFault::Loses) {
            EXPECT_EQ(arrived.size(), message.size() - 1);
        } else {
            EXPECT_TRUE(arrived == message.substr(0, arrived.size())) << "nothing but the message, from its begin";
        }
        if (fault == CableFault::Dies) {
            EXPECT_EQ(arrived.size(), at);
        }
        // The longest patience with an interface that takes nothing is four seconds.
        EXPECT_LT(cable.secondsSince(), static_cast<double>(message.size()) / 3094 + 5);

        // A key meanwhile: told once more while it does not arrive, and the program is there.
        MidiNoteOn(0, 60, 64);
        const Warnings ofTheKey = warnings();
        if (fault == CableFault::Stops) { // there may be room left for three bytes
            EXPECT_LE(ofTheKey.size(), 1u);
        } else {
            EXPECT_EQ(ofTheKey, fault == CableFault::Loses ? Warnings{} : Warnings{OpeningError});
        }

        cable.mend();
        send();
        EXPECT_EQ(warnings(), Warnings{});
        EXPECT_TRUE(cable.arrived() == message) << "the next press sends it whole";
        MidiOutClose();
        EXPECT_EQ(warnings(), Warnings{});
        EXPECT_EQ(Midi.MidiPortsOpen, 0);
        EXPECT_TRUE(cable.bay->wires.empty());
        Midi = {};
    }

    CoreRun run;
};

/// Every 200th byte; every one in a long run.
std::size_t stepOf()
{
    const char* wanted = std::getenv("TARVOLYNE_CABLE_STEP");
    return wanted != nullptr ? std::strtoul(wanted, nullptr, 10) : 200;
}

} // namespace

TEST_P(CableUnder, anyFaultAtAnyByteIsToldOnceAndLosesNothing)
{
    const std::string message = whole();
    const std::size_t lastPiece = (message.size() - 1) / 64 * 64 + 1;
    long long cases = 0;
    for (std::size_t at = 0; at < message.size(); at += stepOf())
        for (const CableFault fault : CableFaults) {
            if (fault == CableFault::Refuses && at >= lastPiece)
                continue; // no piece is left to be refused
            SCOPED_TRACE(std::to_string(static_cast<int>(fault)) + " at " + std::to_string(at));
            failAndGoOn(fault, at, message);
            ++cases;
            if (HasFailure())
                return;
        }
    noteFigure("R12", std::string("faults of the cable under a dump, ") + GetParam().name, cases);
}

TEST_P(CableUnder, aBusyPortIsToldAtTheStartAndOnceForEachStepOfASend)
{
    FaultyCable cable;
    for (const bool raw : {false, true}) {
        FakeDevice& device = cable.bay->device(FaultyCable::Interface);
        device.exclusive = !raw;
        device.rawHeld = raw;
        cable.open();
        EXPECT_EQ(cable.opened, 4);
        EXPECT_EQ(warnings(), Warnings{InUse});
        EXPECT_EQ(Midi.MidiEnabled, 1);
        send();
        EXPECT_EQ(warnings(), (Warnings{OpeningError, OpeningError, OpeningError}));
        EXPECT_EQ(cable.arrived(), "");
    }
    cable.bay->device(FaultyCable::Interface).rawHeld = false;
    cable.open();
    EXPECT_EQ(cable.opened, 0) << "free again: the next try has it";
    cable.breakAfter(CableFault::Dies, 1'000'000);
    send();
    EXPECT_EQ(warnings(), Warnings{});
    EXPECT_EQ(cable.arrived().size(), GetParam().length);
    Midi = {};
}

TEST_P(CableUnder, withoutAnyPortTheProgramSaysSoAndCarriesOnWithoutMidi)
{
    FaultyCable cable;
    cable.bay->unplug(FaultyCable::Interface);
    cable.open();
    EXPECT_EQ(cable.opened, 0);
    EXPECT_EQ(warnings(), Warnings{NoDevice});
    EXPECT_EQ(Midi.MidiEnabled, 0);
    send();
    MidiNoteOn(0, 60, 64);
    MidiOutClose();
    EXPECT_EQ(warnings(), Warnings{});
    EXPECT_FALSE(cable.bay->entered);
    Midi = {};
}

INSTANTIATE_TEST_SUITE_P(Dumps, CableUnder, testing::ValuesIn(Dumps), [](const auto& one) {
    std::string name = one.param.name;
    std::replace(name.begin(), name.end(), ' ', '_');
    return name;
});
