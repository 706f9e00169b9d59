// The service of the targets that send: it keeps the last message.
#pragma once

#include "midi/MIDI.h"
#include "midi/MidiService.h"

#include <string>

struct LastMessage final : MidiService {
    std::string message;
    int count = 0;

    LastMessage()
    {
        Midi = {};
        Midi.service = this;
        Midi.MidiOutHandle = 1;
        Midi.MidiPortsOpen = 1;
    }
    ~LastMessage() override { Midi = {}; }
    LastMessage(const LastMessage&) = delete;
    LastMessage& operator=(const LastMessage&) = delete;

    int midiOutGetNumDevs() override { return 1; }
    int midiOutOpen(std::int32_t&, int) override { return 0; }
    int midiOutClose(std::int32_t) override { return 0; }
    int midiOutShortMsg(std::int32_t, std::uint32_t) override { return 0; }
    int midiOutPrepareHeader(std::int32_t, std::string_view) override { return 0; }
    int midiOutLongMsg(std::int32_t, std::string_view bytes) override
    {
        message = bytes;
        ++count;
        return 0;
    }
    int midiOutUnprepareHeader(std::int32_t, std::string_view) override { return 0; }
    int midiInGetNumDevs() override { return 0; }
    int midiInGetDevCaps(int) override { return 0; }
    int midiInOpen(std::int32_t&, int) override { return 0; }
    int midiInClose(std::int32_t) override { return 0; }
    int midiInStart(std::int32_t) override { return 0; }
    int midiInStop(std::int32_t) override { return 0; }
    int midiConnect(std::int32_t, std::int32_t) override { return 0; }
    int midiDisconnect(std::int32_t, std::int32_t) override { return 0; }
};
