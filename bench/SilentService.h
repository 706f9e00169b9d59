// A MIDI service with one output and one input that takes everything at once, and remembers when the last byte came.
#pragma once

#include "midi/MidiService.h"

#include <chrono>

class SilentService : public MidiService
{
public:
    int shortMessages = 0;
    int longMessages = 0;
    std::chrono::steady_clock::time_point lastByte; ///< when the last message was handed over whole

    int midiOutGetNumDevs() override { return 1; }
    int midiOutOpen(std::int32_t& handle, int) override
    {
        handle = 1;
        return MidiResult::Done;
    }
    int midiOutClose(std::int32_t) override { return MidiResult::Done; }
    int midiOutShortMsg(std::int32_t, std::uint32_t) override
    {
        ++shortMessages;
        lastByte = std::chrono::steady_clock::now();
        return MidiResult::Done;
    }
    int midiOutPrepareHeader(std::int32_t, std::string_view) override { return MidiResult::Done; }
    int midiOutLongMsg(std::int32_t, std::string_view) override
    {
        ++longMessages;
        lastByte = std::chrono::steady_clock::now();
        return MidiResult::Done;
    }
    int midiOutUnprepareHeader(std::int32_t, std::string_view) override { return MidiResult::Done; }
    int midiInGetNumDevs() override { return 1; }
    int midiInGetDevCaps(int) override { return MidiResult::Done; }
    int midiInOpen(std::int32_t& handle, int) override
    {
        handle = 2;
        return MidiResult::Done;
    }
    int midiInClose(std::int32_t) override { return MidiResult::Done; }
    int midiInStart(std::int32_t) override { return MidiResult::Done; }
    int midiInStop(std::int32_t) override { return MidiResult::Done; }
    int midiConnect(std::int32_t, std::int32_t) override { return MidiResult::Done; }
    int midiDisconnect(std::int32_t, std::int32_t) override { return MidiResult::Done; }
};
