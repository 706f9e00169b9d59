// What the shell's tests share: fresh state in all rooms, a state folder, a recording port, files built by hand.
#pragma once

#include "clipboard/Clipboard.h"
#include "core/Dichiarazioni.h"
#include "core/StateFiles.h"
#include "files/FileReaders.h"
#include "files/WindowBuffer.h"
#include "midi/MIDI.h"
#include "shell/MenuState.h"
#include "support/CoreRun.h"
#include "support/Hex.h"
#include "support/RecordingMidiService.h"
#include "support/ScriptedUser.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

inline std::string arrangementFile(const std::string& firstName = "Ballad")
{
    std::string file(10528, '\0');
    file.replace(0, 7, std::string("KORG\x4D\x00\x03", 7));
    file.replace(32, firstName.size(), firstName);
    return file;
}

inline std::string programFile()
{
    std::string file(30480, '\x11');
    return file.replace(0, 7, std::string("KORG\x4D\x00\x00", 7));
}

inline std::string globalFile()
{
    std::string file(448, '\0');
    return file.replace(0, 8, std::string("KORG\x4D\x00\x06\x01", 8));
}

/// Four empty slots of 1176 bytes.
inline std::string styleFile()
{
    std::string file(4928, '\0');
    file.replace(0, 7, std::string("KORG\x4D\x00\x04", 7));
    for (std::size_t slot = 0; slot < 4; ++slot) {
        file[24 + 4 * slot] = '\x98';
        file[25 + 4 * slot] = '\x04';
        file.replace(224 + 1176 * slot, 16, "- empty -       ");
    }
    return file;
}

/// The device record built from the table of its fields.
inline std::string deviceRecord(int userCount, int thisProgramIn, int outHandle = 0, int inHandle = 0)
{
    std::string record(145, '\0');
    record.replace(0, 8, "Dornflex");
    record[10] = static_cast<char>(outHandle);
    record[14] = static_cast<char>(userCount);
    record[18] = static_cast<char>(thisProgramIn);
    record[46] = static_cast<char>(inHandle);
    for (const std::size_t offset : {50U, 75U, 100U})
        record.replace(offset, 24, std::string(24, ' '));
    return record;
}

class ShellTest : public testing::Test
{
protected:
    ShellTest()
    {
        App = {};
        Midi = {};
        Device = {};
        Files = {};
        Clipboard = {};
        OpenWindows::clear();
        App.ui = &user;
        App.StateDir = state.path();
        Midi.service = &port;
        SettingsFile::setDefaults(App);
        speak(1);
    }
    ~ShellTest() override
    {
        OpenWindows::clear();
        App = {};
        Midi = {};
        Device = {};
        Files = {};
        Clipboard = {};
    }
    static void speak(int language) { speakLanguage(language); }
    /// Warnings as "title|text".
    std::vector<std::string> warnings() const
    {
        std::vector<std::string> lines;
        for (const ScriptedUser::Said& said : user.warnings)
            lines.push_back(said.title + "|" + said.text);
        return lines;
    }

    TemporaryFolder state;
    TemporaryFolder songs;
    ScriptedUser user;
    RecordingMidiService port;
};
