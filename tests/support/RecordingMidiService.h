// The tests' MIDI service: every call with its bytes and time, results from a script.
#pragma once

#include "midi/MidiService.h"

#include <chrono>
#include <map>
#include <string>
#include <vector>

struct RecordingMidiService : MidiService {
    struct Call {
        std::string operation;
        std::string bytes; ///< the message on the wire, for the sending operations
        std::chrono::steady_clock::time_point when;
    };

    std::vector<Call> calls;
    std::map<std::string, int> results; ///< result of an operation by name; 0 where none is set
    int outputs = 1;
    int inputs = 1;
    std::int32_t outHandle = 77;
    std::int32_t inHandle = 88;

    /// All messages that were sent, in order, short and long.
    std::vector<std::string> messages() const
    {
        std::vector<std::string> sent;
        for (const Call& call : calls)
            if (call.operation == "midiOutShortMsg" || call.operation == "midiOutLongMsg")
                sent.push_back(call.bytes);
        return sent;
    }
    /// The names of all calls, in order.
    std::vector<std::string> operations() const
    {
        std::vector<std::string> names;
        for (const Call& call : calls)
            names.push_back(call.operation);
        return names;
    }
    void forget() { calls.clear(); }

    int midiOutGetNumDevs() override
    {
        note("midiOutGetNumDevs");
        return outputs;
    }
    int midiOutOpen(std::int32_t& handle, int) override
    {
        const int result = note("midiOutOpen");
        if (result == 0)
            handle = outHandle;
        return result;
    }
    int midiOutClose(std::int32_t) override { return note("midiOutClose"); }
    /// A program change or channel pressure goes out as two bytes, everything else as three.
    int midiOutShortMsg(std::int32_t, std::uint32_t message) override
    {
        const unsigned status = message & 0xFFU;
        std::string bytes{static_cast<char>(status), static_cast<char>((message >> 8) & 0xFFU)};
        if ((status & 0xF0U) != 0xC0U && (status & 0xF0U) != 0xD0U)
            bytes += static_cast<char>((message >> 16) & 0xFFU);
        return note("midiOutShortMsg", bytes);
    }
    int midiOutPrepareHeader(std::int32_t, std::string_view) override { return note("midiOutPrepareHeader"); }
    int midiOutLongMsg(std::int32_t, std::string_view message) override
    {
        return note("midiOutLongMsg", std::string(message));
    }
    int midiOutUnprepareHeader(std::int32_t, std::string_view) override { return note("midiOutUnprepareHeader"); }
    int midiInGetNumDevs() override
    {
        note("midiInGetNumDevs");
        return inputs;
    }
    int midiInGetDevCaps(int) override { return note("midiInGetDevCaps"); }
    int midiInOpen(std::int32_t& handle, int) override
    {
        const int result = note("midiInOpen");
        if (result == 0)
            handle = inHandle;
        return result;
    }
    int midiInClose(std::int32_t) override { return note("midiInClose"); }
    int midiInStart(std::int32_t) override { return note("midiInStart"); }
    int midiInStop(std::int32_t) override { return note("midiInStop"); }
    int midiConnect(std::int32_t, std::int32_t) override { return note("midiConnect"); }
    int midiDisconnect(std::int32_t, std::int32_t) override { return note("midiDisconnect"); }

private:
    int note(const std::string& operation, const std::string& bytes = {})
    {
        calls.push_back({operation, bytes, std::chrono::steady_clock::now()});
        const auto found = results.find(operation);
        return found == results.end() ? 0 : found->second;
    }
};
