// What the tests of the program sends share: window buffers built by hand, a wire that is written down, an editor.
#pragma once

#include "core/Dichiarazioni.h"
#include "core/FieldTarget.h"
#include "core/NameTables.h"
#include "midi/MIDI.h"
#include "programs/ProgramSends.h"
#include "support/Hex.h"
#include "support/RecordingMidiService.h"
#include "support/ScriptedUser.h"

#include <gtest/gtest.h>

#include <string>

/// An editor that keeps what a list hands it.
struct RecordingEditor : FieldTarget {
    bool programSelected = true;
    int track = 0;
    int assignments = 0;
    int number = -1;
    int bank = -1;
    std::string name;
    std::string label;

    bool PrgFieldSelected() const override { return programSelected; }
    bool StyFieldSelected() const override { return !programSelected; }
    int highlightedTrack() const override { return track; }
    void assignProgram(int newNumber, int newBank, const std::string& newName, const std::string& newLabel) override
    {
        ++assignments;
        number = newNumber;
        bank = newBank;
        name = newName;
        label = newLabel;
    }
    void assignStyle(int, int, const std::string&, const std::string&) override { ADD_FAILURE() << "no style here"; }
};

class ProgramTest : public ::testing::Test
{
protected:
    ProgramTest()
    {
        App = {};
        App.ui = &user;
        Midi = {};
        Midi.service = &wire;
        Midi.MidiOutHandle = 77;
        PrgSend = {};
        setFieldTarget(nullptr);
        NameTablesBuild();
    }
    ~ProgramTest() override
    {
        setFieldTarget(nullptr);
        App = {};
        Midi = {};
        PrgSend = {};
    }

    /// A program window's buffer: its channel at offset 15, the file's at 285, 64 records from 318.
    static std::string tag(int kind, int windowChannel = 0, int fileChannel = 0)
    {
        std::string bytes(270 + 30480, '\0');
        bytes[0] = static_cast<char>(kind);
        bytes[15] = static_cast<char>(windowChannel);
        bytes[285] = static_cast<char>(fileChannel);
        return bytes;
    }
    static void putRecord(std::string& bytes, int row, int state, int bank, int number, const std::string& name)
    {
        const auto place = static_cast<std::size_t>(318 + 172 * row);
        bytes[place] = static_cast<char>(state);
        bytes[place + 1] = static_cast<char>(bank);
        bytes[place + 2] = static_cast<char>(number);
        std::string padded = name;
        padded.resize(16, ' ');
        bytes.replace(place + 3, 16, padded);
    }

    /// All messages sent since the last look, as one text.
    std::string sent()
    {
        std::string text;
        for (const std::string& message : wire.messages())
            text += (text.empty() ? "" : " | ") + hex(message);
        wire.forget();
        return text;
    }
    std::string sentBy(const std::string& bytes, int row)
    {
        ProgramSend(bytes, row);
        return sent();
    }

    ScriptedUser user;
    RecordingMidiService wire;
};
