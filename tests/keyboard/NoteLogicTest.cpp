// The playing modes, event by event: from a state and what happens in it to the messages, the marks and texts, and the
// state that follows. The rows are written out from the rules, not computed. Channel 3, velocities 80 and 32.
#include "keyboard/KeyboardRoom.h"

#include <sstream>

namespace
{

using Notes = std::vector<int>;

/// "CH": Click Key and Hold Note ticked; "--": neither.
struct Given {
    const char* boxes;
    int shift = 2;
    Notes held = {};
    Notes chord = {};
    bool active = false;
    bool guard = false;
    int current = 200;
};

struct Row {
    const char* rule;
    Given given;
    const char* event;
    const char* sent;
    const char* seen;
    const char* after;
};

NoteSet setOf(const Notes& notes)
{
    NoteSet set;
    for (const int note : notes)
        set.set(note);
    return set;
}

NoteState stateOf(const Given& given)
{
    NoteState state;
    state.BaseNote = std::vector<int>{12, 24, 36, 48}.at(static_cast<std::size_t>(given.shift));
    state.CurrentNote = given.current;
    state.HeldNotes = setOf(given.held);
    state.ChordNotes = setOf(given.chord);
    state.ChordActive = given.active;
    state.ClickGuard = given.guard;
    state.CheckClickKey = given.boxes[0] == 'C';
    state.CheckHoldNote = given.boxes[1] == 'H';
    return state;
}

std::string told(const char* name, const NoteSet& set)
{
    std::string text;
    for (int note = 0; note < 200; ++note)
        if (set.has(note))
            text += (text.empty() ? std::string(" ") + name + " " : ",") + std::to_string(note);
    return text;
}

/// "CH 36 now 60 held 60,64 chord 60 active guard"; what is empty is left out.
std::string told(const NoteState& state)
{
    std::string text = std::string(state.CheckClickKey ? "C" : "-") + (state.CheckHoldNote ? "H " : "- ");
    text += std::to_string(state.BaseNote);
    if (state.CurrentNote != 200)
        text += " now " + std::to_string(state.CurrentNote);
    text += told("held", state.HeldNotes) + told("chord", state.ChordNotes);
    return text + (state.ChordActive ? " active" : "") + (state.ClickGuard ? " guard" : "");
}

void happen(NoteLogic& logic, const std::string& event)
{
    std::istringstream words(event);
    std::string word;
    int first = 0;
    int second = 0;
    words >> word >> first >> second;
    if (word == "down")
        logic.keyMouseDown(first);
    else if (word == "up")
        logic.keyMouseUp(first);
    else if (word == "move")
        logic.keyMouseMove(first, second);
    else if (word == "outside")
        logic.outsideMouseMove();
    else if (word == "chord")
        logic.CommHoldChord_Click();
    else if (word == "alloff")
        logic.CommAllNoteOff_Click();
    else if (word == "hold")
        logic.CheckHoldNote_Click(first == 1);
    else if (word == "click")
        logic.CheckClickKey_Click(first == 1);
    else if (word == "arr")
        logic.CommArrPlay_Click();
    else if (word == "song")
        logic.CommSongPlay_Click();
    else if (word == "shift") {
        logic.setOctaveShift(first);
        logic.showHeldAgain();
    } else
        FAIL() << event;
}

const Notes Major = {60, 64, 67};

// clang-format off
const std::vector<Row> Rows = {
    // Click Key alone: a key sounds while it is pressed.
    {"a press sounds", {"C-"}, "down 24", "92 3C 50", "+24 [C/Do (60)]", "C- 36 now 60"},
    {"a black key's press", {"C-"}, "down 25", "92 3D 50", "+25 [C#/Do# (61)]", "C- 36 now 61"},
    {"the lowest key of all", {"C-", 0}, "down 0", "92 0C 50", "+0 [C/Do (12)]", "C- 12 now 12"},
    {"the highest key of all", {"C-", 3}, "down 60", "92 6C 50", "+60 [C/Do (108)]", "C- 48 now 108"},
    {"a release silences", {"C-", 2, {}, {}, false, false, 60}, "up 24", "82 3C 20", "-24 []", "C- 36"},
    {"a release needs no press", {"C-"}, "up 30", "82 42 20", "-30 []", "C- 36"},
    {"a second press of a sounding key", {"C-", 2, {}, {}, false, false, 60}, "down 24", "92 3C 50", "+24 [C/Do (60)]", "C- 36 now 60"},
    {"a pointer on a pressed key", {"C-", 2, {}, {}, false, false, 60}, "move 24 1400", "", "", "C- 36 now 60"},
    {"a pressed pointer on the next key", {"C-", 2, {}, {}, false, false, 60}, "move 26 100", "", "", "C- 36 now 60"},
    {"a pressed pointer off the keys", {"C-", 2, {}, {}, false, false, 60}, "outside", "", "", "C- 36 now 60"},

    // Hold Note: a press latches, the second one releases.
    {"a press latches", {"CH"}, "down 24", "92 3C 50", "+24 [C/Do (60)]", "CH 36 now 60 held 60"},
    {"a release does nothing", {"CH", 2, {60}, {}, false, false, 60}, "up 24", "", "", "CH 36 now 60 held 60"},
    {"the second press releases", {"CH", 2, {60, 64}, {}, false, false, 64}, "down 24", "82 3C 20", "-24 []", "CH 36 held 64"},
    {"a second note joins", {"CH", 2, {60}, {}, false, false, 60}, "down 28", "92 40 50", "+28 [E/Mi (64)]", "CH 36 now 64 held 60,64"},
    {"a latch out of view stays", {"CH", 0, {96}}, "down 24", "92 24 50", "+24 [C/Do (36)]", "CH 12 now 36 held 36,96"},
    {"a passing pointer", {"CH", 2, {60}, {}, false, false, 60}, "move 30 0", "", "", "CH 36 now 60 held 60"},
    {"a pointer off the keys", {"CH", 2, {60}, {}, false, false, 60}, "outside", "", "", "CH 36 now 60 held 60"},
    {"the highest note latches", {"CH", 3}, "down 60", "92 6C 50", "+60 [C/Do (108)]", "CH 48 now 108 held 108"},

    // Neither: the pointer plays what it passes over.
    {"a press is nothing", {"--"}, "down 24", "", "", "-- 36"},
    {"a release is nothing", {"--", 2, {}, {}, false, false, 60}, "up 24", "", "", "-- 36 now 60"},
    {"the pointer comes", {"--"}, "move 24 0", "92 3C 50", "+24 [C/Do (60)]", "-- 36 now 60"},
    {"it stays", {"--", 2, {}, {}, false, false, 60}, "move 24 700", "", "", "-- 36 now 60"},
    {"above a white key's band", {"--", 2, {}, {}, false, false, 60}, "move 24 1367", "", "", "-- 36 now 60"},
    {"in a white key's band", {"--", 2, {}, {}, false, false, 60}, "move 24 1368", "82 3C 40", "-24", "-- 36"},
    {"above a black key's band", {"--", 2, {}, {}, false, false, 61}, "move 25 935", "", "", "-- 36 now 61"},
    {"in a black key's band", {"--", 2, {}, {}, false, false, 61}, "move 25 936", "82 3D 40", "-25", "-- 36"},
    {"a further move in the band", {"--"}, "move 24 1400", "92 3C 50", "+24 [C/Do (60)]", "-- 36 now 60"},
    {"to the next key", {"--", 2, {}, {}, false, false, 60}, "move 25 100", "82 3C 20, 92 3D 50", "-24 [] +25 [C#/Do# (61)]", "-- 36 now 61"},
    {"to the next key in its band", {"--", 2, {}, {}, false, false, 60}, "move 26 1400", "82 3C 20, 92 3E 50", "-24 [] +26 [D/Re (62)]", "-- 36 now 62"},
    {"from a note that scrolled away", {"--", 3, {}, {}, false, false, 40}, "move 24 0", "82 28 20, 92 48 50", "[] +24 [C/Do (72)]", "-- 48 now 72"},
    {"off the keys", {"--", 2, {}, {}, false, false, 60}, "outside", "82 3C 20", "-24 []", "-- 36"},
    {"off the keys in silence", {"--"}, "outside", "", "", "-- 36"},
    {"the lowest note sounds on", {"--", 0, {}, {}, false, false, 12}, "move 0 0", "", "", "-- 12 now 12"},

    // Hold Note ticked without Click Key: what is left when a chord is left by Click Key and Hold Note ticked again.
    {"a press is nothing then", {"-H"}, "down 24", "", "", "-H 36"},
    {"a release is nothing then", {"-H", 2, {}, {}, false, false, 60}, "up 24", "", "", "-H 36 now 60"},
    {"the pointer plays then", {"-H"}, "move 24 0", "92 3C 50", "+24 [C/Do (60)]", "-H 36 now 60"},
    {"and is not silenced off the keys", {"-H", 2, {}, {}, false, false, 60}, "outside", "", "", "-H 36 now 60"},

    // Capturing a chord.
    {"capture", {"CH", 2, Major}, "chord", "", "Chord off", "CH 36 held 60,64,67 chord 60,64,67 active"},
    {"capture of nothing", {"CH", 2, {}, {40}}, "chord", "", "", "CH 36 chord 40"},
    {"capture anew", {"CH", 2, {60}, {40, 41}}, "chord", "", "Chord off", "CH 36 held 60 chord 60 active"},
    {"capture of a stale latch", {"CH", 0, {100}}, "chord", "", "Chord off", "CH 12 held 100 chord 100 active"},

    // Placing it.
    {"a chord is placed", {"CH", 2, Major, Major, true}, "down 26", "B2 7B 00, 92 3E 50, 92 42 50, 92 45 50",
     "-all +26 [D/Re (62)] +30 [F#/Fa# (66)] +33 [A/La (69)]", "CH 36 now 69 held 62,66,69 chord 60,64,67 active"},
    {"downwards", {"CH", 2, Major, Major, true}, "down 0", "B2 7B 00, 92 24 50, 92 28 50, 92 2B 50",
     "-all +0 [C/Do (36)] +4 [E/Mi (40)] +7 [G/Sol (43)]", "CH 36 now 43 held 36,40,43 chord 60,64,67 active"},
    {"its top passes the last note", {"CH", 3, Major, Major, true}, "down 56", "B2 7B 00, 92 68 50, 92 6C 50",
     "-all +56 [G#/Sol# (104)] +60 [C/Do (108)]", "CH 48 now 108 held 104,108 chord 60,64,67 active"},
    {"on the last key one note is left", {"CH", 3, Major, Major, true}, "down 60", "B2 7B 00, 92 6C 50",
     "-all +60 [C/Do (108)]", "CH 48 now 108 held 108 chord 60,64,67 active"},
    {"what was dropped returns", {"CH", 3, {108}, Major, true}, "down 48", "B2 7B 00, 92 60 50, 92 64 50, 92 67 50",
     "-all +48 [C/Do (96)] +52 [E/Mi (100)] +55 [G/Sol (103)]", "CH 48 now 103 held 96,100,103 chord 60,64,67 active"},
    {"on the first key nothing falls", {"CH", 0, Major, Major, true}, "down 0", "B2 7B 00, 92 0C 50, 92 10 50, 92 13 50",
     "-all +0 [C/Do (12)] +4 [E/Mi (16)] +7 [G/Sol (19)]", "CH 12 now 19 held 12,16,19 chord 60,64,67 active"},
    {"out of view it sounds", {"CH", 0, Major, Major, true}, "down 60", "B2 7B 00, 92 48 50, 92 4C 50, 92 4F 50",
     "-all +60 [C/Do (72)] [E/Mi (76)] [G/Sol (79)]", "CH 12 now 79 held 72,76,79 chord 60,64,67 active"},
    {"the whole range", {"CH", 0, {12, 108}, {12, 108}, true}, "down 0", "B2 7B 00, 92 0C 50, 92 6C 50",
     "-all +0 [C/Do (12)] [C/Do (108)]", "CH 12 now 108 held 12,108 chord 12,108 active"},
    {"a key of the chord is no release", {"CH", 2, Major, Major, true, false, 67}, "down 24", "B2 7B 00, 92 3C 50, 92 40 50, 92 43 50",
     "-all +24 [C/Do (60)] +28 [E/Mi (64)] +31 [G/Sol (67)]", "CH 36 now 67 held 60,64,67 chord 60,64,67 active"},
    {"a chord of nothing silences", {"CH", 2, {60}, {}, true}, "down 24", "B2 7B 00", "-all", "CH 36 active"},
    {"a release in the chord", {"CH", 2, Major, Major, true, false, 67}, "up 24", "", "", "CH 36 now 67 held 60,64,67 chord 60,64,67 active"},
    {"a pointer in the chord", {"CH", 2, Major, Major, true, false, 67}, "move 30 0", "", "", "CH 36 now 67 held 60,64,67 chord 60,64,67 active"},

    // All Notes Off.
    {"silence", {"C-", 2, {}, {}, false, false, 60}, "alloff", "B2 7B 00", "-all Chord off []", "C- 36"},
    {"silence of latches", {"CH", 2, Major}, "alloff", "B2 7B 00", "-all Chord on []", "CH 36"},
    {"silence ends a chord and keeps its shape", {"CH", 2, {62}, Major, true, false, 62}, "alloff", "B2 7B 00", "-all Chord on []", "CH 36 chord 60,64,67"},
    {"latches above and below stay", {"CH", 2, {35, 36, 96, 97}}, "alloff", "B2 7B 00", "-all Chord on []", "CH 36 held 35,97"},
    {"silence of a glide", {"--", 2, {}, {}, false, false, 60}, "alloff", "B2 7B 00", "-all Chord off []", "-- 36"},
    {"silence with Hold Note alone", {"-H", 2, {}, {}, false, false, 60}, "alloff", "B2 7B 00", "-all Chord off []", "-H 36"},

    // Hold Note.
    {"Hold Note ticked", {"C-", 2, {}, {}, false, false, 60}, "hold 1", "B2 7B 00", "Chord on -all Chord on []", "CH 36"},
    {"Hold Note unticked", {"CH", 2, Major}, "hold 0", "B2 7B 00", "Chord off -all Chord off []", "C- 36"},
    {"Hold Note ends a chord", {"CH", 2, Major, Major, true}, "hold 0", "B2 7B 00", "-all Chord off []", "C- 36 chord 60,64,67"},
    {"Hold Note ends a chord and a guard", {"CH", 2, Major, Major, true, true}, "hold 0", "B2 7B 00", "-all Chord off []", "C- 36 chord 60,64,67"},
    {"Hold Note guarded", {"C-", 2, {}, {}, false, true}, "hold 1", "", "", "CH 36"},
    {"Hold Note without Click Key", {"--"}, "hold 1", "B2 7B 00", "Chord on -all Chord off []", "-H 36"},

    // Click Key.
    {"Click Key unticked", {"C-"}, "click 0", "", "Hold off", "-- 36"},
    {"Click Key ticked", {"--"}, "click 1", "", "Hold on", "C- 36"},
    {"Click Key ticked in a glide", {"--", 2, {}, {}, false, false, 60}, "click 1", "", "Hold on", "C- 36 now 60"},
    {"Click Key ends Hold Note", {"CH", 2, Major}, "click 0", "B2 7B 00", "hold box 0 -all Chord off [] Hold off Chord off", "-- 36"},
    {"Click Key ticked under Hold Note ends unticked", {"-H"}, "click 1", "B2 7B 00", "hold box 0 -all Chord off [] click box 0", "-- 36"},
    {"Click Key ends a chord: two messages", {"CH", 2, Major, Major, true}, "click 0", "B2 7B 00, B2 7B 00",
     "hold box 0 -all Chord off [] -all Chord off []", "-- 36 chord 60,64,67"},
    {"Click Key ticked in a chord ends unticked", {"-H", 2, Major, Major, true}, "click 1", "B2 7B 00, B2 7B 00",
     "hold box 0 -all Chord off [] -all Chord off [] click box 0", "-- 36 chord 60,64,67"},
    {"Click Key guarded", {"C-", 2, {}, {}, false, true}, "click 0", "", "", "-- 36"},

    // The octave.
    {"a shift goes on sounding", {"C-", 2, {}, {}, false, false, 60}, "shift 3", "", "", "C- 48 now 60"},
    {"a shift to the lowest", {"C-"}, "shift 0", "", "", "C- 12"},
    {"a shift moves the marks", {"CH", 2, Major}, "shift 3", "", "-all +12 +16 +19", "CH 48 held 60,64,67"},
    {"a latch scrolls out of view", {"CH", 0, {12}}, "shift 1", "", "-all", "CH 24 held 12"},
    {"and comes back", {"CH", 1, {12, 84}}, "shift 0", "", "-all +0", "CH 12 held 12,84"},
    {"both ends", {"CH", 2, {36, 96}}, "shift 2", "", "-all +0 +60", "CH 36 held 36,96"},
    {"a release after a shift is another note's", {"C-", 3, {}, {}, false, false, 60}, "up 24", "82 48 20", "-24 []", "C- 48"},
    {"a glide after a shift", {"--", 3, {}, {}, false, false, 60}, "outside", "82 3C 20", "-12 []", "-- 48"},

    // The instrument's modes.
    {"ARR PLAY silences", {"CH", 2, Major, Major, true}, "arr", "F0 42 30 4D 4E 0A F7, B2 7B 00", "-all Chord on []", "CH 36 chord 60,64,67"},
    {"SONG PLAY silences", {"C-", 2, {}, {}, false, false, 60}, "song", "F0 42 30 4D 4E 06 F7, B2 7B 00", "-all Chord off []", "C- 36"},
};
// clang-format on

class NoteLogicTest : public KeyboardRoom
{
};

TEST_F(NoteLogicTest, everyEventInEveryStateSendsShowsAndLeavesWhatTheTableSays)
{
    for (const Row& row : Rows) {
        SCOPED_TRACE(row.rule);
        WritingFace face;
        NoteLogic logic(face, stateOf(row.given));
        happen(logic, row.event);
        EXPECT_EQ(sent(), row.sent);
        EXPECT_EQ(face.line(), row.seen);
        EXPECT_EQ(told(logic.state()), row.after);
    }
}

TEST_F(NoteLogicTest, theWindowOpensWithTheBoxesAsTheyWereLeftAndNothingLatched)
{
    struct Opening {
        bool click;
        bool hold;
        int shift;
        const char* seen;
        const char* after;
    };
    for (const Opening& row : {Opening{true, false, 2, "click box 1 hold box 0 [] Hold on Chord off", "C- 36"},
                               Opening{true, true, 0, "click box 1 hold box 1 [] Hold on Chord on", "CH 12"},
                               Opening{false, false, 3, "click box 0 hold box 0 [] Hold off Chord off", "-- 48"},
                               Opening{false, true, 1, "click box 0 hold box 1 [] Hold off Chord off", "-H 24"}}) {
        WritingFace face;
        NoteLogic logic(face, stateOf({"CH", 2, Major, Major, true, true, 60}));
        logic.load(row.click, row.hold, row.shift);
        EXPECT_EQ(sent(), "");
        EXPECT_EQ(face.line(), row.seen);
        EXPECT_EQ(told(logic.state()), row.after);
    }
}

TEST_F(NoteLogicTest, aNoteHasItsNamesOfBothTonguesAndItsNumber)
{
    const std::vector<std::string> octave = {"C/Do (60)",    "C#/Do# (61)", "D/Re (62)",   "D#/Re# (63)",
                                             "E/Mi (64)",    "F/Fa (65)",   "F#/Fa# (66)", "G/Sol (67)",
                                             "G#/Sol# (68)", "A/La (69)",   "A#/La# (70)", "B/Si (71)"};
    for (int note = 60; note < 72; ++note)
        EXPECT_EQ(noteText(note), octave[static_cast<std::size_t>(note - 60)]);
    EXPECT_EQ(noteText(12), "C/Do (12)");
    EXPECT_EQ(noteText(107), "B/Si (107)");
}

TEST_F(NoteLogicTest, aChordIsCapturedFromLatchesPlacedAndLeftByClickKey)
{
    WritingFace face;
    NoteLogic logic(face);
    logic.load(true, false, 2);
    for (const char* event : {"hold 1", "down 24", "up 24", "down 28", "up 28", "chord", "down 36", "up 36", "click 0"})
        happen(logic, event);
    EXPECT_EQ(sent(), "B2 7B 00, 92 3C 50, 92 40 50, B2 7B 00, 92 48 50, 92 4C 50, B2 7B 00, B2 7B 00");
    EXPECT_EQ(told(logic.state()), "-- 36 chord 60,64");
    EXPECT_TRUE(face.holdEnabled); // nothing disables it on this way
    EXPECT_FALSE(face.chordEnabled);
    EXPECT_TRUE(face.marks.empty());
}

TEST_F(NoteLogicTest, staleLatchesOutOfViewAreCapturedByTheNextChord)
{
    WritingFace face;
    NoteLogic logic(face);
    logic.load(true, true, 0);
    for (const char* event : {"down 0", "shift 3", "alloff", "chord", "down 12"})
        happen(logic, event);
    EXPECT_EQ(sent(), "92 0C 50, B2 7B 00, B2 7B 00, 92 3C 50");
    EXPECT_EQ(told(logic.state()), "CH 48 now 60 held 60 chord 12 active");
}

TEST_F(NoteLogicTest, aKeyIsMarkedOrWipedBeforeItsMessageAndTheTextFollowsIt)
{
    struct DiaryFace final : WritingFace {
        explicit DiaryFace(Lines& book) : diary(book) {}
        void showKeyPlain(int key) override { diary.push_back("plain " + std::to_string(key)); }
        void showKeyMark(int key) override { diary.push_back("mark " + std::to_string(key)); }
        void showNoteText(const std::string& shown) override { diary.push_back("text " + shown); }
        Lines& diary;
    } face(diary);
    NoteLogic logic(face, stateOf({"--"}));
    for (const char* event : {"move 24 0", "move 25 0", "move 25 940"})
        happen(logic, event);
    EXPECT_EQ(diary, (Lines{"mark 24", "wire 92 3C 50", "text C/Do (60)", //
                            "plain 24", "wire 82 3C 20", "text ",         //
                            "mark 25", "wire 92 3D 50", "text C#/Do# (61)", "plain 25", "wire 82 3D 40"}));
}

// The message monitor.

TEST_F(NoteLogicTest, notesAreLoggedWholeAndAllNotesOffByTwoOfItsBytes)
{
    WritingFace face;
    NoteLogic logic(face);
    Midi.KeyLogActive = true;
    openMonitor();
    for (const char* event : {"down 24", "up 24", "alloff"})
        happen(logic, event);
    EXPECT_EQ(diary, (Lines{"monitor cleared", "wire 92 3C 50", "monitor 92 3C 50 ", "monitor cleared", "wire 82 3C 20",
                            "monitor 82 3C 20 ", "monitor cleared", "wire B2 7B 00", "monitor B2 7B "}));
}

TEST_F(NoteLogicTest, theSilenceBeforeAPlacedChordIsNotLogged)
{
    WritingFace face;
    NoteLogic logic(face, stateOf({"CH", 2, {60}, {60}, true}));
    Midi.KeyLogActive = true;
    openMonitor();
    happen(logic, "down 24");
    EXPECT_EQ(diary, (Lines{"wire B2 7B 00", "monitor cleared", "wire 92 3C 50", "monitor 92 3C 50 "}));
}

TEST_F(NoteLogicTest, aModeButtonLeavesTheModeInTheMonitorAndTheLogOn)
{
    for (const char* event : {"arr", "song"}) {
        WritingFace face;
        NoteLogic logic(face);
        openMonitor();
        happen(logic, event);
        const std::string mode = event == std::string("arr") ? "0A" : "06";
        EXPECT_EQ(monitor.text, "F0 42 30 4D 4E " + mode + " F7 \n\n");
        Midi.MsgLogActive = false;
        happen(logic, event);
        EXPECT_TRUE(Midi.MsgLogActive);
    }
}

TEST_F(NoteLogicTest, aFailingSendIsReportedAndLeavesTheStateAsIfItHadBeenSent)
{
    WritingFace face;
    NoteLogic logic(face);
    service.results["midiOutShortMsg"] = 1;
    happen(logic, "down 24");
    EXPECT_EQ(user.warnings.size(), 1U);
    EXPECT_EQ(told(logic.state()), "C- 36 now 60");
    EXPECT_EQ(face.line(), "+24 [C/Do (60)]");
    Midi.MidiEnabled = 0;
    happen(logic, "up 24");
    EXPECT_EQ(told(logic.state()), "C- 36");
    EXPECT_EQ(user.warnings.size(), 1U);
}

} // namespace
