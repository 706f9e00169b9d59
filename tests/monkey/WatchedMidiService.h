// A MIDI service that looks at every message instead of keeping it, and answers as chance wills: done, no device, busy,
// failed. What is wrong with a message is told to whoever listens.
#pragma once

#include "midi/MidiService.h"
#include "monkey/Chance.h"
#include "support/Hex.h"

#include <functional>
#include <string>
#include <string_view>

class WatchedMidiService final : public MidiService
{
public:
    explicit WatchedMidiService(std::uint64_t seed) : chance_(seed) {}

    std::function<void(const std::string& complaint)> onBadMessage;
    long long messages = 0;
    long long bytes = 0;
    bool failsAtTimes = false; ///< one answer in 40 is no success
    bool hasOutput = true;

    /// What is wrong with a message on the wire; empty when it is well formed.
    static std::string faultOf(std::string_view message)
    {
        if (message.empty())
            return "an empty message";
        const auto at = [&](std::size_t place) { return static_cast<unsigned char>(message[place]); };
        for (std::size_t place = 1; place + 1 < message.size(); ++place)
            if (at(place) > 0x7F)
                return "a byte above 7F inside a message";
        if (at(0) != 0xF0)
            return faultOfShort(message);
        if (message.size() < 6 || at(1) != 0x42 || (at(2) & 0xF0U) != 0x30 || at(3) != 0x4D)
            return "a frame without its head";
        return at(message.size() - 1) == 0xF7 ? "" : "a frame without its end";
    }

    int midiOutGetNumDevs() override { return hasOutput ? 1 : 0; }
    int midiOutOpen(std::int32_t& handle, int) override
    {
        const int result = answer();
        if (result == MidiResult::Done)
            handle = out_ = OutHandle;
        return result;
    }
    int midiOutClose(std::int32_t handle) override
    {
        if (handle != out_)
            return MidiResult::InvalidHandle;
        out_ = 0;
        return MidiResult::Done;
    }
    int midiOutShortMsg(std::int32_t handle, std::uint32_t message) override
    {
        const unsigned status = message & 0xFFU;
        std::string sent{static_cast<char>(status), static_cast<char>((message >> 8) & 0xFFU)};
        if ((status & 0xF0U) != 0xC0U && (status & 0xF0U) != 0xD0U)
            sent += static_cast<char>((message >> 16) & 0xFFU);
        return take(handle, sent);
    }
    int midiOutPrepareHeader(std::int32_t handle, std::string_view) override { return handleAnswer(handle); }
    int midiOutLongMsg(std::int32_t handle, std::string_view message) override
    {
        const int total = static_cast<int>(message.size());
        if (progress && total > 256) {
            progress(total / 2, total);
            progress(total, total);
        }
        return take(handle, message);
    }
    int midiOutUnprepareHeader(std::int32_t handle, std::string_view) override { return handleAnswer(handle); }
    int midiInGetNumDevs() override { return 1; }
    int midiInGetDevCaps(int) override { return answer(); }
    int midiInOpen(std::int32_t& handle, int) override
    {
        handle = InHandle;
        return answer();
    }
    int midiInClose(std::int32_t) override { return MidiResult::Done; }
    int midiInStart(std::int32_t) override { return answer(); }
    int midiInStop(std::int32_t) override { return answer(); }
    int midiConnect(std::int32_t, std::int32_t) override { return answer(); }
    int midiDisconnect(std::int32_t, std::int32_t) override { return answer(); }

private:
    static constexpr std::int32_t OutHandle = 77;
    static constexpr std::int32_t InHandle = 88;

    static std::string faultOfShort(std::string_view message)
    {
        const auto status = static_cast<unsigned char>(message[0]);
        const auto last = static_cast<unsigned char>(message[message.size() - 1]);
        if (status < 0x80 || status > 0xEF)
            return "a message without a status";
        const bool twoBytes = (status & 0xF0U) == 0xC0 || (status & 0xF0U) == 0xD0;
        return message.size() == (twoBytes ? 2U : 3U) && last <= 0x7F ? "" : "a short message that is not whole";
    }
    int take(std::int32_t handle, std::string_view message)
    {
        const int result = handleAnswer(handle);
        if (result == MidiResult::InvalidHandle)
            return result;
        ++messages;
        bytes += static_cast<long long>(message.size());
        const std::string fault = faultOf(message);
        if (!fault.empty() && onBadMessage)
            onBadMessage(fault + ": " + hex(message.substr(0, 24)) + " (" + std::to_string(message.size()) + " bytes)");
        return result;
    }
    int handleAnswer(std::int32_t handle) { return handle == out_ ? answer() : MidiResult::InvalidHandle; }
    int answer()
    {
        if (!failsAtTimes || !chance_.oneIn(40))
            return MidiResult::Done;
        return chance_.oneIn(2) ? MidiResult::Failed : MidiResult::Allocated;
    }

    Chance chance_;
    std::int32_t out_ = 0;
};
