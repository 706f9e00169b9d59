// The faders' messages, what they show, keep and log; the split point's words and message.
#include "keyboard/ChannelMixer.h"
#include "keyboard/KeyboardRoom.h"

namespace
{

class ChannelMixer : public KeyboardRoom
{
};

std::string pair(int value) { return hex(std::string(1, static_cast<char>(value))); }

TEST_F(ChannelMixer, everyFaderSendsItsMessageKeepsAndShowsEachValue)
{
    struct FaderRow {
        int fader;
        const char* message; ///< without its value
        bool centred;
    };
    for (const FaderRow& row : {FaderRow{0, "B2 07", false}, FaderRow{1, "B2 0A", true}, FaderRow{4, "B2 49", false},
                                FaderRow{5, "B2 48", false}, FaderRow{6, "E2 7F", true}, FaderRow{7, "B2 01", false},
                                FaderRow{8, "B2 02", false}, FaderRow{9, "B2 5B", false}, FaderRow{10, "B2 5D", false}})
        for (int value = 0; value <= 127; ++value) {
            faderMove(row.fader, value);
            EXPECT_EQ(sent(), std::string(row.message) + " " + pair(value));
            EXPECT_EQ(App.KeyboardState[static_cast<std::size_t>(row.fader + 4)], value);
            EXPECT_EQ(faderText(row.fader, value), std::to_string(row.centred ? value - 64 : value));
        }
    EXPECT_EQ(faderText(1, 0), "-64");
    EXPECT_EQ(faderText(6, 127), "63");
    EXPECT_EQ(faderText(6, 64), "0");
}

TEST_F(ChannelMixer, theMiddleOfTheBendIsSentABitAboveTheCentre)
{
    faderMove(6, 64);
    EXPECT_EQ(sent(), "E2 7F 40");
}

TEST_F(ChannelMixer, captionsAndMarksAreThoseOfThePanel)
{
    const std::vector<std::string> captions = {"Volume", "Pan",  "Vel On", "Vel Off", "Att Time", "Rel Time",
                                               "Bend",   "PMod", "COMod",  "Reverb",  "Chorus"};
    for (std::size_t i = 0; i < captions.size(); ++i) {
        const bool centred = i == 1 || i == 6;
        EXPECT_EQ(Faders::Table[i].caption, captions[i]);
        EXPECT_EQ(Faders::Table[i].topMark, centred ? "63" : "127");
        EXPECT_EQ(Faders::Table[i].bottomMark, centred ? "-64" : "0");
    }
}

TEST_F(ChannelMixer, theVelocityFadersSendTheLastMessageOnceMore)
{
    faderMove(0, 100);
    faderMove(2, 1);
    faderMove(3, 2);
    EXPECT_EQ(sent(), "B2 07 64, B2 07 64, B2 07 64");
    MidiNoteOn(2, 60, velocityOn());
    faderMove(3, 99);
    EXPECT_EQ(sent(), "92 3C 01, 92 3C 01");
    EXPECT_EQ(velocityOn(), 1);
    EXPECT_EQ(velocityOff(), 99);
    EXPECT_EQ(faderText(2, 1), "1");
}

TEST_F(ChannelMixer, beforeAnyMessageTheVelocityFaderSendsTheChannelAlone)
{
    Midi.MidiShortValue = 0;
    faderMove(2, 64);
    EXPECT_EQ(sent(), "02 00 00");
}

TEST_F(ChannelMixer, theChannelIsOredIntoTheRepeatedMessageAndChoosingOneSendsNothing)
{
    mixerChannelChoose(3);
    faderMove(0, 100);
    mixerChannelChoose(4);
    EXPECT_EQ(App.KeyboardState[0], 4);
    EXPECT_EQ(sent(), "B3 07 64");
    faderMove(2, 10);
    faderMove(0, 101);
    EXPECT_EQ(sent(), "B7 07 64, B4 07 65");
    mixerChannelChoose(15);
    faderMove(6, 0);
    EXPECT_EQ(sent(), "EF 7F 00");
}

TEST_F(ChannelMixer, aFaderIsLoggedAsTheThreeBytesOfItsWord)
{
    openMonitor();
    faderMove(1, 0);
    Midi.MidiShortValue = 0x05C2; // a program change has two bytes on the wire
    faderMove(2, 7);
    EXPECT_EQ(diary, (Lines{"wire B2 0A 00", "monitor cleared", "monitor B2 0A 00 ", "wire C2 05", "monitor cleared",
                            "monitor C2 05 00 "}));
}

TEST_F(ChannelMixer, withoutMidiTheValueIsKeptAndLogged)
{
    openMonitor();
    Midi.MidiEnabled = 0;
    faderMove(0, 5);
    EXPECT_EQ(App.KeyboardState[4], 5);
    EXPECT_EQ(diary, (Lines{"monitor cleared", "monitor B2 07 05 "}));
}

TEST_F(ChannelMixer, theSplitPointGoesOutAsParameterTwo)
{
    App.GlobalChannel = 5;
    openMonitor();
    for (const int note : {36, 60, 96})
        splitPointSend(note);
    EXPECT_EQ(sent(), "F0 42 35 4D 41 02 24 00 F7, F0 42 35 4D 41 02 3C 00 F7, F0 42 35 4D 41 02 60 00 F7");
    EXPECT_EQ(monitor.text, ""); // parameter changes are not logged
}

TEST_F(ChannelMixer, theSplitNotesHaveABlankInFrontAndTheSharpBehindTheOctave)
{
    const std::vector<std::string> notes = {
        " C2", " C2#", " D2", " D2#", " E2", " F2", " F2#", " G2", " G2#", " A2", " A2#", " B2", //
        " C3", " C3#", " D3", " D3#", " E3", " F3", " F3#", " G3", " G3#", " A3", " A3#", " B3", //
        " C4", " C4#", " D4", " D4#", " E4", " F4", " F4#", " G4", " G4#", " A4", " A4#", " B4", //
        " C5", " C5#", " D5", " D5#", " E5", " F5", " F5#", " G5", " G5#", " A5", " A5#", " B5", //
        " C6", " C6#", " D6", " D6#", " E6", " F6", " F6#", " G6", " G6#", " A6", " A6#", " B6", " C7"};
    for (int note = 36; note <= 96; ++note)
        EXPECT_EQ(splitPointText(note), notes.at(static_cast<std::size_t>(note - 36)));
}

TEST_F(ChannelMixer, theSplitPointWorksInArrPlayAlone)
{
    for (const int mode : {0, 1, 2, 3, 255}) {
        App.DeviceMode = mode;
        const std::optional<bool> works = splitPointWorks();
        EXPECT_EQ(works.has_value(), mode <= 2) << mode;
        EXPECT_EQ(works.value_or(false), mode == 0) << mode;
    }
}

} // namespace
