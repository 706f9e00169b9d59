// The note logic with a face that writes down what it is shown, on channel 3 with velocities of its own.
#pragma once

#include "arrangements/ArrEdit.h"
#include "keyboard/Keys.h"
#include "keyboard/NoteLogic.h"
#include "midi/MidiRoom.h"

#include <set>

/// "+24" mark on key 24, "-24" key 24 plain, "-all" all keys plain from left to right, "[text]" the note text; the
/// boxes as they are written ("click box 0") and enabled ("Hold on", "Chord off").
struct WritingFace : KeyboardFace {
    std::vector<std::string> seen;

    void showKeyPlain(int key) override
    {
        seen.push_back("-" + std::to_string(key));
        marks.erase(key);
    }
    void showKeyMark(int key) override
    {
        seen.push_back("+" + std::to_string(key));
        marks.insert(key);
    }
    void showNoteText(const std::string& shown) override
    {
        seen.push_back("[" + shown + "]");
        text = shown;
    }
    void showClickKey(bool ticked) override { seen.push_back(ticked ? "click box 1" : "click box 0"); }
    void showHoldNote(bool ticked) override { seen.push_back(ticked ? "hold box 1" : "hold box 0"); }
    void enableHoldNote(bool enabled) override
    {
        seen.push_back(enabled ? "Hold on" : "Hold off");
        holdEnabled = enabled;
    }
    void enableHoldChord(bool enabled) override
    {
        seen.push_back(enabled ? "Chord on" : "Chord off");
        chordEnabled = enabled;
    }

    std::set<int> marks;
    std::string text;
    bool holdEnabled = false;
    bool chordEnabled = false;

    /// Everything in one line, sixty-one plain keys in a row as "-all".
    std::string line() const
    {
        std::string shown = " ";
        for (const std::string& word : seen)
            shown += word + " ";
        std::string all = " ";
        for (int key = 0; key <= 60; ++key)
            all += "-" + std::to_string(key) + " ";
        for (std::size_t at = shown.find(all); at != std::string::npos; at = shown.find(all))
            shown.replace(at, all.size(), " -all ");
        return shown.substr(1, shown.size() > 1 ? shown.size() - 2 : 0);
    }
};

class KeyboardRoom : public MidiRoom
{
protected:
    void SetUp() override
    {
        MidiRoom::SetUp();
        Arr = {};
        Keys = {};
        App.KeyboardState = {2, 1, 0, 2, 100, 64, 80, 32, 0, 0, 64, 0, 0, 0, 0, 60};
        openPorts();
    }
    void TearDown() override
    {
        Arr = {};
        Keys = {};
        MidiRoom::TearDown();
    }
    /// What was sent since the last call, separated by commas.
    std::string sent()
    {
        std::string line;
        for (const std::string& message : wire())
            line += line.empty() ? message : ", " + message;
        service.forget();
        return line;
    }
};
