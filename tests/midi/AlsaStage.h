// The service on a machine of fake ports, as the tests of the service set it up.
#pragma once

#include "midi/AlsaMidiService.h"

#include "midi/FakeSequencer.h"

#include <gtest/gtest.h>

inline constexpr SeqAddress Din{20, 0};
inline constexpr SeqAddress Keys{24, 0};
inline constexpr SeqAddress Other{28, 0};
inline constexpr SeqAddress Synth{130, 0};
inline constexpr SeqAddress Own{FakeSequencer::OwnClient, 0};

inline std::string dump(std::size_t size)
{
    std::string bytes(size, '\x55');
    bytes.front() = '\xF0';
    bytes.back() = '\xF7';
    return bytes;
}

struct AlsaService : testing::Test {
    FakeClock clock;
    FakeSequencer* bay = new FakeSequencer(clock);
    AlsaMidiService service{std::unique_ptr<Sequencer>(bay), clock.source()};
    std::int32_t out = 0;
    std::int32_t in = 0;

    void openBoth()
    {
        ASSERT_EQ(service.midiOutOpen(out, -1), 0);
        ASSERT_EQ(service.midiInOpen(in, 0), 0);
    }
    int sendNote() { return service.midiOutShortMsg(out, 0x403C90); }
    const std::string& heardAt(SeqAddress address) { return bay->device(address).received; }
};

/// An interface with the instrument on card 1, the master keyboard on card 2.
struct AlsaServiceOnStage : AlsaService {
    AlsaServiceOnStage()
    {
        bay->plug(Din, 1, "DIN Cable", "DIN Cable MIDI 1");
        bay->plug(Keys, 2, "Stage Keys", "Stage Keys MIDI 1").writable = false;
    }
};
