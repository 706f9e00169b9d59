// The notes of the drawn keyboard: what a press, a release and a passing pointer mean in each of the playing modes.
//
// With Click Key a key sounds while it is pressed; with Hold Note besides, a press latches it and a second one releases
// it; without either the pointer plays what it passes over. Hold Chord captures the latched notes, and each press then
// places the same chord with its lowest note on the pressed key.
#pragma once

#include "keyboard/Keys.h"

#include <array>
#include <string>

/// What the note logic shows. None of these calls comes back as an event.
class KeyboardFace
{
public:
    virtual ~KeyboardFace() = default;
    virtual void showKeyPlain(int key) = 0; ///< key 0 to 60; wipes the mark
    virtual void showKeyMark(int key) = 0;
    virtual void showNoteText(const std::string& text) = 0;
    virtual void showClickKey(bool ticked) = 0;
    virtual void showHoldNote(bool ticked) = 0;
    virtual void enableHoldNote(bool enabled) = 0;
    virtual void enableHoldChord(bool enabled) = 0;
};

/// A set of the notes 12 to 108.
class NoteSet
{
public:
    bool has(int note) const { return inRange(note) && notes_[place(note)]; }
    /// A note outside the range is left out.
    void set(int note, bool member = true)
    {
        if (inRange(note))
            notes_[place(note)] = member;
    }
    void clear() { notes_ = {}; }
    bool any() const;
    /// The lowest member; 109 when there is none.
    int lowest() const;
    bool operator==(const NoteSet&) const = default;

private:
    static bool inRange(int note) { return note >= KeyRange::LowestNote && note <= KeyRange::HighestNote; }
    static std::size_t place(int note) { return static_cast<std::size_t>(note - KeyRange::LowestNote); }
    std::array<bool, KeyRange::Notes> notes_{};
};

struct NoteState {
    static constexpr int NoNote = 200;

    int BaseNote = 36;        ///< MIDI note of key 0: 12, 24, 36 or 48
    int CurrentNote = NoNote; ///< sounding under the pointer
    NoteSet HeldNotes;        ///< latched by Hold Note
    NoteSet ChordNotes;       ///< the shape captured by Hold Chord
    bool ChordActive = false;
    bool ClickGuard = false; ///< the next click of a box comes from the program's own write and is swallowed
    bool CheckClickKey = true;
    bool CheckHoldNote = false;
};

class NoteLogic
{
public:
    explicit NoteLogic(KeyboardFace& face, const NoteState& state = {});
    const NoteState& state() const { return state_; }

    /// The window opens: boxes and octave as they were left, nothing latched, nothing sounding.
    void load(bool clickKey, bool holdNote, int octaveShift);

    // The pointer. `key` is 0 to 60; `y` its height inside the key, twips from the upper edge.
    void keyMouseDown(int key);
    void keyMouseUp(int key);
    void keyMouseMove(int key, int y);
    /// Over the window or the frame of the keys, outside the keys.
    void outsideMouseMove();

    // The controls.
    void CommHoldChord_Click();
    void CommAllNoteOff_Click();
    void CommArrPlay_Click();
    void CommSongPlay_Click();
    void CheckHoldNote_Click(bool ticked);
    void CheckClickKey_Click(bool ticked);
    /// The octave changes in two steps, the labels and the split point between them.
    void setOctaveShift(int octaveShift);
    void showHeldAgain();

private:
    void KeyNoteOn(int note);
    void KeyNoteOff(int note);
    void KeysReset();
    void KeysPaint();
    void HeldPaint();
    void placeChord(int key);
    void allNotesOffUnlogged();
    void leaveChordByClickKey();
    void leaveHoldByClickKey();
    void holdNoteClicked();
    void clickKeyClicked();
    void writeHoldNote(bool ticked);
    void writeClickKey(bool ticked);
    void untickClickKey();
    int noteOf(int key) const { return state_.BaseNote + key; }
    int keyOf(int note) const { return note - state_.BaseNote; }

    KeyboardFace& face_;
    NoteState state_;
};

/// "C/Do (60)": a note's names and number.
std::string noteText(int note);
