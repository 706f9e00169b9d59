// What the tests of the style sends share: window buffers built by hand, and a wire that is written down.
#pragma once

#include "core/Dichiarazioni.h"
#include "midi/MIDI.h"
#include "styles/StyleSends.h"
#include "support/Hex.h"
#include "support/RecordingMidiService.h"
#include "support/ScriptedUser.h"
#include "support/Unpacked.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

class StyleTest : public ::testing::Test
{
protected:
    StyleTest()
    {
        App = {};
        App.ui = &user;
        App.LanguageBase = 200;
        Midi = {};
        Midi.service = &wire;
        Midi.MidiOutHandle = 77;
        StyLoad = {};
    }
    ~StyleTest() override
    {
        App = {};
        Midi = {};
        StyLoad = {};
    }

    /// A window buffer with a style file of these lengths; each block's bytes tell their slot and place.
    static std::string buffer(int kind, const std::vector<int>& lengths)
    {
        std::string bytes(kind == 23 || kind == 24 ? 669 : 42622, ' ');
        bytes[0] = static_cast<char>(kind);
        bytes[8] = 2;
        std::string head(224, '\0');
        std::string blocks;
        for (std::size_t slot = 0; slot < lengths.size(); ++slot) {
            head[22 + 4 * slot] = '\x55'; // kept bytes of the entry, which nobody reads
            head[23 + 4 * slot] = '\xAA';
            head[24 + 4 * slot] = static_cast<char>(lengths[slot] % 256);
            head[25 + 4 * slot] = static_cast<char>(lengths[slot] / 256);
            blocks += block(static_cast<int>(slot), lengths[slot]);
        }
        return bytes + head + blocks;
    }

    static std::string block(int slot, int length)
    {
        std::string bytes;
        for (int place = 0; place < length; ++place)
            bytes += static_cast<char>((place * 7 + slot * 31 + 200) % 256);
        return bytes;
    }

    /// Takes a group's message apart as an instrument does, its frame checked.
    static std::string groupBody(const std::string& message)
    {
        EXPECT_EQ(hex(message.substr(0, 5)), "F0 42 30 4D 65");
        EXPECT_EQ(hex(message.substr(message.size() - 1)), "F7");
        for (std::size_t place = 5; place + 1 < message.size(); ++place)
            EXPECT_EQ(message[place] & 0x80, 0);
        return unpackedBody(message);
    }

    struct Wire : RecordingMidiService {
        std::function<void()> beforeLong; ///< called as a long message arrives
        int midiOutLongMsg(std::int32_t handle, std::string_view message) override
        {
            if (beforeLong)
                beforeLong();
            return RecordingMidiService::midiOutLongMsg(handle, message);
        }
    };

    ScriptedUser user;
    Wire wire;
};
