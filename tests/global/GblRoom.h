// What the tests of the global room share: fresh state, a recorder at the port, a shell that keeps what it is told, and
// blocks built by hand.
#pragma once

#include "core/Dichiarazioni.h"
#include "core/NameTables.h"
#include "core/Shell.h"
#include "files/FileReaders.h"
#include "files/WindowBuffer.h"
#include "global/GblEdit.h"
#include "global/GblState.h"
#include "midi/MIDI.h"
#include "midi/MsgLog.h"
#include "support/CoreRun.h"
#include "support/Hex.h"
#include "support/Unpacked.h"
#include "support/WindowDiary.h"

#include <gtest/gtest.h>

#include <map>
#include <random>
#include <string>
#include <vector>

/// A global file: head, parameters, one byte behind.
inline std::string gblFile(const std::string& parameters = std::string(415, '\0'))
{
    std::string file("KORG\x4D\x00\x06\x01", 8);
    for (int i = 8; i < 32; ++i)
        file += static_cast<char>(i);
    return file + parameters + '\x6E';
}

/// The dump on global channel 3: the groups of eight bytes that are not all zero, by number, and the last one of three.
inline std::string zeroDumpWith(std::size_t group, const std::string& bytes)
{
    std::string body(475, '\0');
    if (!bytes.empty())
        body.replace(8 * group, bytesOf(bytes).size(), bytesOf(bytes));
    return hex(bytesOf("F0 42 32 4D 51") + body + '\xF7');
}

inline std::string randomBytes(std::mt19937& random, std::size_t count)
{
    std::string bytes(count, '\0');
    for (char& byte : bytes)
        byte = static_cast<char>(random() & 0xFFU);
    return bytes;
}

class GblRoom : public testing::Test
{
protected:
    GblRoom()
    {
        forgetState();
        run.speak(2);
        SettingsFile::setDefaults(App);
        App.Language = 2;
        App.shell = &shell;
        App.GlobalChannel = 2;
        Midi.service = &port;
        NameTablesBuild();
    }
    ~GblRoom() override
    {
        MsgLogAttach(nullptr);
        forgetState();
    }
    static void forgetState()
    {
        Midi = {};
        Files = {};
        Gbl = {};
        OpenWindows::clear();
    }
    std::vector<std::string> sent()
    {
        std::vector<std::string> messages;
        for (const std::string& message : port.messages())
            messages.push_back(hex(message));
        port.forget();
        return messages;
    }
    static std::string parametersOf(const WindowBuffer& tag) { return tag.bytes().substr(302, 415); }

    CoreRun run;
    FakeShell shell;
    RecordingMidiService port;
};
