// The places of keys and marker, and the persisted bytes, in figures.
#include "keyboard/KeyGeometry.h"

#include "core/Dichiarazioni.h"

#include <array>
#include <gtest/gtest.h>

namespace
{

TEST(KeyGeometry, theKeysOfAnOctaveStandWhereTheInstrumentsDo)
{
    const std::array<int, 12> lefts = {0, 160, 252, 442, 504, 756, 916, 1008, 1185, 1260, 1450, 1512};
    const std::array<bool, 12> black = {false, true, false, true, false, false, true, false, true, false, true, false};
    for (int key = 0; key < 61; ++key) {
        const auto place = static_cast<std::size_t>(key % 12);
        const TwipsRect rect = keyRect(key);
        EXPECT_EQ(rect.left, key / 12 * 1764 + lefts[place]) << key;
        EXPECT_EQ(rect.top, 0);
        EXPECT_EQ(isBlackKey(key), black[place]) << key;
        EXPECT_EQ(rect.width, black[place] ? 156 : 252) << key;
        EXPECT_EQ(rect.height, black[place] ? 972 : 1404) << key;
    }
    EXPECT_EQ(keyRect(60).left, 8820);
}

TEST(KeyGeometry, thePressedMarkIsBlackOnWhiteAndGreenOnBlack)
{
    EXPECT_EQ(keyMark(0).x, 100);
    EXPECT_EQ(keyMark(0).y, 1176);
    EXPECT_EQ(keyMark(0).radius, 66);
    EXPECT_EQ(keyMark(0).colour, 0);
    EXPECT_EQ(keyMark(1).x, 60);
    EXPECT_EQ(keyMark(1).y, 712);
    EXPECT_EQ(keyMark(1).radius, 62);
    EXPECT_EQ(keyMark(1).colour, 65280);
}

TEST(KeyGeometry, theFrameAndTheMarkersOrigin)
{
    EXPECT_EQ(KeyGeometry::Frame.left, 70);
    EXPECT_EQ(KeyGeometry::Frame.top, 2650);
    // 70 - half of 150 + 10; 2650 - 150 - 20.
    EXPECT_EQ(KeyGeometry::MarkerOrigin, 5);
    EXPECT_EQ(KeyGeometry::MarkerTop, 2480);
    EXPECT_EQ(KeyGeometry::LabelPitch, 1760);
}

TEST(KeyGeometry, theMarkerStandsInItsPlaceForAllSplitNotesAndShifts)
{
    // An octave's place for octaves -1 to 7 of the view, and a note's place in its octave.
    const std::array<int, 9> octaves = {-1764, 0, 1764, 3526, 5289, 7048, 8810, 10566, 12327};
    const std::array<int, 12> offsets = {0, 150, 312, 442, 594, 756, 906, 1063, 1185, 1328, 1450, 1592};
    for (int shift = 0; shift <= 3; ++shift)
        for (int note = 36; note <= 96; ++note) {
            const int octave = note / 12 - 1 - shift; // note 36 is C2
            EXPECT_EQ(splitMarkerLeft(note, shift), octaves.at(static_cast<std::size_t>(octave + 1)) +
                                                        offsets.at(static_cast<std::size_t>(note % 12)) + 5)
                << note << " at " << shift;
        }
    EXPECT_EQ(splitMarkerLeft(60, 2), 3531);  // over the C4 in the middle
    EXPECT_EQ(splitMarkerLeft(36, 3), -1759); // left of the keyboard
    EXPECT_EQ(splitMarkerLeft(96, 0), 12332); // right of it
}

TEST(KeyboardBytes, damagedBytesAreTakenIntoTheirRanges)
{
    App = {};
    App.KeyboardState = {16, 2, 255, 4, 128, 255, 127, 0, 1, 2, 3, 4, 5, 6, 200, 97};
    keyboardBytesIntoRange();
    EXPECT_EQ(App.KeyboardState, (std::array<int, 16>{15, 0, 0, 3, 127, 127, 127, 0, 1, 2, 3, 4, 5, 6, 127, 96}));
    App.KeyboardState = {15, 1, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0};
    keyboardBytesIntoRange();
    EXPECT_EQ(App.KeyboardState, (std::array<int, 16>{15, 1, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 36}));
    App = {};
}

} // namespace
