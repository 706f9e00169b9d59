// The lists of the editor, row by row, as the instrument's panel words them.
#include "arrangements/ArrParameters.h"

#include <gtest/gtest.h>

#include <string_view>
#include <vector>

namespace
{

using Rows = std::vector<std::string_view>;

Rows rowsOf(ArrGeneral which)
{
    const ArrList list = arrParameter(which).list;
    return {list.begin(), list.end()};
}

Rows rowsOf(ArrTrack which)
{
    const ArrList list = arrParameter(which).list;
    return {list.begin(), list.end()};
}

} // namespace

TEST(ArrLists, ofTheGeneralPart)
{
    EXPECT_EQ(rowsOf(ArrGeneral::InitVar), (Rows{" 1", " 2", " 3", " 4"}));
    EXPECT_EQ(rowsOf(ArrGeneral::KeyboardAssign), (Rows{"FULL 1", "FULL 2", "SPLIT 1", "M. DRUMS", "FULL 3", "FULL 4",
                                                        "SPLIT 2", "SPLIT 3", "SPLIT 4", "SPLIT 5", "SPLIT 6"}));
    const Rows fills = {" OFF", " ->1", " ->2", " ->3", " ->4", " 1&2", " 1&3",
                        " 1&4", " 2&3", " 2&4", " 3&4", " UP",  " DOWN"};
    EXPECT_EQ(rowsOf(ArrGeneral::Fill1), fills);
    EXPECT_EQ(rowsOf(ArrGeneral::Fill2), fills);
    EXPECT_EQ(rowsOf(ArrGeneral::EnsembleType), (Rows{"Duet", "Close", "Open1", "Open2", "Octave", "Power Ens.",
                                                      "Fourths", "Block", "Brass Ens.", "Reed Ens."}));
    EXPECT_EQ(rowsOf(ArrGeneral::ManualDrumKit),
              (Rows{" Dr11", " Dr12", " Dr13", " Dr14", " Dr15", " Dr16", " Dr17", " Dr18", " Dr21", " Dr22", " Dr23",
                    " Dr24", " Dr25", " Dr26", " Dr27", " Dr28"}));
    EXPECT_EQ(rowsOf(ArrGeneral::Transpose),
              (Rows{" +11", " +10", " +9", " +8", " +7", " +6", " +5", " +4", " +3", " +2",  " +1", "  0",
                    " -1",  " -2",  " -3", " -4", " -5", " -6", " -7", " -8", " -9", " -10", " -11"}));
    EXPECT_EQ(rowsOf(ArrGeneral::Kick), (Rows{" A", " B", " C", " D"}));
    EXPECT_EQ(rowsOf(ArrGeneral::Snare), (Rows{" A", " B", " C", " D"}));
}

TEST(ArrLists, ofATrack)
{
    const Rows sends = {"PRG", " 9", " 8", " 7", " 6", " 5", " 4", " 3", " 2", " 1", " 0"};
    EXPECT_EQ(rowsOf(ArrTrack::SendC), sends);
    EXPECT_EQ(rowsOf(ArrTrack::SendD), sends);
    EXPECT_EQ(rowsOf(ArrTrack::Octave), (Rows{" +2", " +1", "  0", " -1", " -2"}));
    EXPECT_EQ(rowsOf(ArrTrack::OutStatus1), (Rows{"OFF", "INT", "EXT", "BOTH"}));
    EXPECT_EQ(rowsOf(ArrTrack::OutStatus2), (Rows{"PLAY", "MUTE", "SOLO"}));
    EXPECT_EQ(rowsOf(ArrTrack::WAround),
              (Rows{" 12", " 11", " 10", " 9", " 8", " 7", " 6", " 5", " 4", " 3", " 2", " 1", " ORG"}));
}

TEST(ArrLists, ofTheEffectsStandInReverse)
{
    const Rows byValue = {
        "No Effect",     "Hall",          "Ensemble Hall", "Concert Hall",  "Room",           "Large Room",
        "Live Stage",    "Wet Plate",     "Dry Plate",     "Spring Reverb", "Early Ref 1",    "Early Ref 2",
        "Early Ref 3",   "Stereo Delay",  "Cross Delay",   "Dual Delay",    "Multitap Dly1",  "Multitap Dly2",
        "Multitap Dly3", "Chorus 1",      "Chorus 2",      "Quad Chorus",   "XOver Chorus",   "Harmonic Cho.",
        "Symphonic Ens", "Flanger 1",     "Flanger 2",     "XOver Flanger", "Exciter",        "Enhancer",
        "Distortion",    "Overdrive",     "Phaser 1",      "Phaser 2",      "Rotary Speaker", "Auto Pan",
        "Tremolo",       "Equalizer",     "Chorus-Delay",  "Flanger-Delay", "Delay/Hall",     "Delay/Room",
        "Delay/Chorus",  "Delay/Flanger", "Delay/Dist",    "Delay/Overdrv", "Delay/Phaser",   "Delay/Rotary"};
    ASSERT_EQ(byValue.size(), 48u);
    const Rows reversed(byValue.rbegin(), byValue.rend());
    EXPECT_EQ(rowsOf(ArrGeneral::Effect1), reversed);
    EXPECT_EQ(rowsOf(ArrGeneral::Effect2), reversed);
    for (std::size_t value = 0; value < byValue.size(); ++value) {
        std::string block(164, '\0');
        block[135] = static_cast<char>(value);
        EXPECT_EQ(arrRow(block, ArrGeneral::Effect1), byValue[value]);
    }
}
