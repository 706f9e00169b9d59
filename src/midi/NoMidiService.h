// The service of a machine without MIDI: no device in either direction, so that nobody asks whether a service exists.
#pragma once

#include "midi/MidiService.h"

class NoMidiService final : public MidiService
{
public:
    int midiOutGetNumDevs() override { return 0; }
    int midiOutOpen(std::int32_t&, int) override { return MidiResult::Failed; }
    int midiOutClose(std::int32_t) override { return MidiResult::InvalidHandle; }
    int midiOutShortMsg(std::int32_t, std::uint32_t) override { return MidiResult::InvalidHandle; }
    int midiOutPrepareHeader(std::int32_t, std::string_view) override { return MidiResult::InvalidHandle; }
    int midiOutLongMsg(std::int32_t, std::string_view) override { return MidiResult::InvalidHandle; }
    int midiOutUnprepareHeader(std::int32_t, std::string_view) override { return MidiResult::InvalidHandle; }
    int midiInGetNumDevs() override { return 0; }
    int midiInGetDevCaps(int) override { return MidiResult::Failed; }
    int midiInOpen(std::int32_t&, int) override { return MidiResult::Failed; }
    int midiInClose(std::int32_t) override { return MidiResult::InvalidHandle; }
    int midiInStart(std::int32_t) override { return MidiResult::InvalidHandle; }
    int midiInStop(std::int32_t) override { return MidiResult::InvalidHandle; }
    int midiConnect(std::int32_t, std::int32_t) override { return MidiResult::InvalidHandle; }
    int midiDisconnect(std::int32_t, std::int32_t) override { return MidiResult::InvalidHandle; }
};
