// The playing modes as a state machine. A key is marked before its note is sent, so that a message about a failing port
// finds the keyboard as it sounds; marking only asks for a painting and keeps no note waiting.
#include "keyboard/NoteLogic.h"

#include "keyboard/ChannelMixer.h"
#include "keyboard/KeyGeometry.h"
#include "midi/DeviceModes.h"
#include "midi/MIDI.h"
#include "midi/MsgLog.h"

#include <algorithm>
#include <string_view>

namespace
{

constexpr int LowestNote = KeyRange::LowestNote;
constexpr int HighestNote = KeyRange::HighestNote;
constexpr int GlideOffVelocity = 64;

bool isShown(int key) { return key >= 0 && key < KeyRange::Count; }

bool inBottomBand(int key, int y) { return y >= keyRect(key).height - KeyGeometry::BottomBand; }

} // namespace

bool NoteSet::any() const
{
    return std::any_of(notes_.begin(), notes_.end(), [](bool member) { return member; });
}

int NoteSet::lowest() const
{
    int note = LowestNote;
    while (note <= HighestNote && !has(note))
        ++note;
    return note;
}

std::string noteText(int note)
{
    static constexpr std::array<std::string_view, KeyRange::Octave> Names = {
        "C/Do", "C#/Do#", "D/Re", "D#/Re#", "E/Mi", "F/Fa", "F#/Fa#", "G/Sol", "G#/Sol#", "A/La", "A#/La#", "B/Si"};
    return std::string(Names[static_cast<std::size_t>(note % KeyRange::Octave)]) + " (" + std::to_string(note) + ")";
}

NoteLogic::NoteLogic(KeyboardFace& face, const NoteState& state) : face_(face), state_(state) {}

void NoteLogic::load(bool clickKey, bool holdNote, int octaveShift)
{
    state_ = {};
    setOctaveShift(octaveShift);
    state_.CheckClickKey = clickKey;
    state_.CheckHoldNote = holdNote;
    face_.showClickKey(clickKey);
    face_.showHoldNote(holdNote);
    face_.showNoteText({});
    face_.enableHoldNote(clickKey);
    face_.enableHoldChord(clickKey && holdNote);
}

// Sounding and silencing.

void NoteLogic::KeyNoteOn(int note)
{
    state_.CurrentNote = note;
    if (isShown(keyOf(note)))
        face_.showKeyMark(keyOf(note));
    MidiNoteOn(mixerChannel(), note, velocityOn());
    face_.showNoteText(noteText(note));
}

void NoteLogic::KeyNoteOff(int note)
{
    if (isShown(keyOf(note)))
        face_.showKeyPlain(keyOf(note));
    state_.CurrentNote = NoteState::NoNote;
    MidiNoteOff(mixerChannel(), note, velocityOff());
    face_.showNoteText({});
}

void NoteLogic::KeysReset()
{
    // Required: only the visible notes are let go. What was latched above or below stays latched and comes back into
    // view with its octave.
    for (int key = 0; key < KeyRange::Count; ++key)
        state_.HeldNotes.set(noteOf(key), false);
    KeysPaint();
}

void NoteLogic::KeysPaint()
{
    for (int key = 0; key < KeyRange::Count; ++key)
        face_.showKeyPlain(key);
}

void NoteLogic::HeldPaint()
{
    for (int key = 0; key < KeyRange::Count; ++key)
        if (state_.HeldNotes.has(noteOf(key)))
            face_.showKeyMark(key);
}

// The pointer.

void NoteLogic::keyMouseDown(int key)
{
    const int note = noteOf(key);
    if (state_.ChordActive) {
        placeChord(key);
        return;
    }
    if (!state_.CheckClickKey)
        return;
    if (state_.CheckHoldNote && state_.HeldNotes.has(note)) {
        state_.HeldNotes.set(note, false);
        KeyNoteOff(note);
        return;
    }
    KeyNoteOn(note);
    if (state_.CheckHoldNote)
        state_.HeldNotes.set(note);
}

/// The captured shape with its lowest note on the key. What falls outside the range is silent this time.
void NoteLogic::placeChord(int key)
{
    MidiAllNotesOff(mixerChannel());
    const int interval = noteOf(key) - state_.ChordNotes.lowest();
    state_.HeldNotes.clear();
    KeysReset();
    for (int note = LowestNote; note <= HighestNote; ++note)
        if (state_.ChordNotes.has(note))
            state_.HeldNotes.set(note + interval);
    for (int note = LowestNote; note <= HighestNote; ++note)
        if (state_.HeldNotes.has(note))
            KeyNoteOn(note);
}

void NoteLogic::keyMouseUp(int key)
{
    if (!state_.ChordActive && state_.CheckClickKey && !state_.CheckHoldNote)
        KeyNoteOff(noteOf(key));
}

void NoteLogic::keyMouseMove(int key, int y)
{
    if (state_.CheckClickKey)
        return;
    const int note = noteOf(key);
    if (state_.CurrentNote == note) {
        if (!inBottomBand(key, y))
            return;
        // Required: drawn off the key's lower end a note ends with a release of its own, not the fader's, and its name
        // stays in view. A further move inside the band starts it again.
        face_.showKeyPlain(key);
        state_.CurrentNote = NoteState::NoNote;
        MidiNoteOff(mixerChannel(), note, GlideOffVelocity);
        return;
    }
    if (state_.CurrentNote != NoteState::NoNote)
        KeyNoteOff(state_.CurrentNote);
    KeyNoteOn(note);
}

void NoteLogic::outsideMouseMove()
{
    if (!state_.CheckHoldNote && !state_.CheckClickKey && state_.CurrentNote != NoteState::NoNote)
        KeyNoteOff(state_.CurrentNote);
}

// The buttons.

void NoteLogic::CommHoldChord_Click()
{
    if (!state_.HeldNotes.any())
        return;
    state_.ChordActive = true;
    state_.ChordNotes = state_.HeldNotes;
    face_.enableHoldChord(false);
}

void NoteLogic::CommAllNoteOff_Click()
{
    MsgLogAdd("");
    MidiAllNotesOff(mixerChannel());
    MsgLogAdd(Midi.SysExOutput);
    KeysReset();
    state_.CurrentNote = NoteState::NoNote;
    state_.ChordActive = false; // ChordNotes keeps its shape until the next capture
    face_.enableHoldChord(state_.CheckClickKey && state_.CheckHoldNote);
    face_.showNoteText({});
}

void NoteLogic::CommArrPlay_Click()
{
    ModeArrPlay();
    allNotesOffUnlogged();
}

void NoteLogic::CommSongPlay_Click()
{
    ModeSongPlay();
    allNotesOffUnlogged();
}

/// The monitor goes on showing the mode change.
void NoteLogic::allNotesOffUnlogged()
{
    Midi.MsgLogActive = false;
    CommAllNoteOff_Click();
    // Required: on, whatever it was before; without an open monitor nothing is logged all the same.
    Midi.MsgLogActive = true;
}

// The boxes. A write of the program raises the click as a user's tick does; ClickGuard keeps them apart.

void NoteLogic::CheckHoldNote_Click(bool ticked)
{
    state_.CheckHoldNote = ticked;
    holdNoteClicked();
}

void NoteLogic::CheckClickKey_Click(bool ticked)
{
    state_.CheckClickKey = ticked;
    clickKeyClicked();
}

void NoteLogic::writeHoldNote(bool ticked)
{
    if (state_.CheckHoldNote == ticked)
        return;
    state_.CheckHoldNote = ticked;
    face_.showHoldNote(ticked);
    holdNoteClicked();
}

void NoteLogic::writeClickKey(bool ticked)
{
    if (state_.CheckClickKey == ticked)
        return;
    state_.CheckClickKey = ticked;
    face_.showClickKey(ticked);
    clickKeyClicked();
}

void NoteLogic::holdNoteClicked()
{
    if (state_.ChordActive) {
        state_.ClickGuard = false;
        CommAllNoteOff_Click();
        return;
    }
    if (state_.ClickGuard) {
        state_.ClickGuard = false;
        return;
    }
    face_.enableHoldChord(state_.CheckHoldNote);
    CommAllNoteOff_Click();
}

void NoteLogic::clickKeyClicked()
{
    if (state_.ChordActive)
        leaveChordByClickKey();
    else if (state_.ClickGuard)
        state_.ClickGuard = false;
    else if (!state_.CheckHoldNote)
        face_.enableHoldNote(state_.CheckClickKey);
    else
        leaveHoldByClickKey();
}

void NoteLogic::leaveChordByClickKey()
{
    // Required: the write runs the other box's click while the chord is still in force, which silences all notes; the
    // second time is this box's own.
    state_.ClickGuard = true;
    writeHoldNote(false);
    CommAllNoteOff_Click();
    untickClickKey();
}

void NoteLogic::leaveHoldByClickKey()
{
    state_.ClickGuard = true;
    writeHoldNote(false);
    CommAllNoteOff_Click();
    if (state_.CheckClickKey) {
        untickClickKey();
        return;
    }
    face_.enableHoldNote(false);
    face_.enableHoldChord(false);
}

/// Required: whoever leaves a chord or held notes by this box ends with the box unticked.
void NoteLogic::untickClickKey()
{
    if (!state_.CheckClickKey)
        return;
    state_.ClickGuard = true;
    writeClickKey(false);
}

// The octave.

void NoteLogic::setOctaveShift(int octaveShift) { state_.BaseNote = (octaveShift + 1) * KeyRange::Octave; }

void NoteLogic::showHeldAgain()
{
    if (!state_.HeldNotes.any())
        return;
    KeysPaint();
    HeldPaint();
}
