// A hundred thousand events in any order: the logic never leaves its rules, whatever the player does.
#include "keyboard/KeyboardRoom.h"

#include <random>

namespace
{

constexpr int Events = 100000;

class NoteStorm : public KeyboardRoom
{
protected:
    /// Hears the messages as the instrument does and keeps none.
    struct Instrument : RecordingMidiService {
        std::set<int> sounding;
        int strange = 0;
        int midiOutShortMsg(std::int32_t, std::uint32_t message) override
        {
            const int note = static_cast<int>(message >> 8 & 0xFFU);
            switch (message & 0xFFU) {
            case 0x92:
                sounding.insert(note);
                break;
            case 0x82:
                sounding.erase(note);
                break;
            case 0xB2:
                strange += note == 0x7B && message >> 16 == 0 ? 0 : 1;
                sounding.clear();
                return 0;
            default:
                ++strange;
            }
            strange += note >= 12 && note <= 108 ? 0 : 1;
            return 0;
        }
    };

    int pick(int count) { return static_cast<int>(random() % static_cast<unsigned>(count)); }

    /// What is off cannot be clicked.
    void event()
    {
        const int key = pick(61);
        switch (pick(24)) {
        case 0:
            if (face.holdEnabled)
                logic.CheckHoldNote_Click(!logic.state().CheckHoldNote);
            break;
        case 1:
            logic.CheckClickKey_Click(!logic.state().CheckClickKey);
            break;
        case 2:
        case 3:
            if (face.chordEnabled)
                logic.CommHoldChord_Click();
            break;
        case 4:
            logic.CommAllNoteOff_Click();
            break;
        case 5:
            logic.setOctaveShift(pick(4));
            logic.showHeldAgain();
            break;
        case 6:
        case 7:
            logic.outsideMouseMove();
            break;
        case 8:
        case 9:
        case 10:
        case 11:
            logic.keyMouseMove(key, pick(1404));
            break;
        case 12:
        case 13:
        case 14:
            logic.keyMouseUp(key);
            break;
        default:
            logic.keyMouseDown(key);
        }
    }

    /// The first rule that does not hold; empty when all do.
    std::string broken() const
    {
        const NoteState& now = logic.state();
        if (now.ClickGuard)
            return "a guard is left for the next click";
        if (now.ChordActive && !(now.CheckClickKey && now.CheckHoldNote))
            return "a chord without its boxes";
        if (now.ChordActive && !now.ChordNotes.any())
            return "a chord of nothing";
        if (face.chordEnabled != (now.CheckClickKey && now.CheckHoldNote && !now.ChordActive))
            return "the chord button";
        if (now.CurrentNote != 200 && (now.CurrentNote < 12 || now.CurrentNote > 108))
            return "a note out of range";
        if (now.CurrentNote != 200 && instrument.sounding.count(now.CurrentNote) == 0)
            return "the note under the pointer is silent";
        if (now.CheckHoldNote && !now.CheckClickKey && !face.holdEnabled)
            return "a ticked box that cannot be unticked";
        return instrument.strange == 0 ? "" : "a message that no rule knows";
    }

    std::mt19937 random{20261121};
    Instrument instrument;
    WritingFace face;
    NoteLogic logic{face};
};

TEST_F(NoteStorm, aHundredThousandEventsLeaveNoStateThatTheRulesDoNotKnow)
{
    Midi.service = &instrument;
    logic.load(true, false, 2);
    for (int count = 0; count < Events; ++count) {
        event();
        face.seen.clear();
        ASSERT_EQ(broken(), "") << "event " << count;
    }
    // Whatever has happened, the player's way out works.
    logic.CommAllNoteOff_Click();
    EXPECT_TRUE(instrument.sounding.empty());
    EXPECT_TRUE(face.marks.empty());
    EXPECT_EQ(face.text, "");
}

} // namespace
