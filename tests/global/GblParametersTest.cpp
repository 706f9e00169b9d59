// The table of the global block against tables written out from the instrument's rules: what each of the 256 values of
// each byte shows, what each position of each control writes.
#include "global/GblParameters.h"

#include "core/NameTables.h"
#include "support/Hex.h"

#include <gtest/gtest.h>

#include <array>
#include <vector>

namespace
{

constexpr int None = -1000; ///< a position outside the list; a choice that is refused
using Values = std::vector<int>;

/// A run of values: what the first stands for, and how that goes on.
struct Run {
    int first;
    int last;
    int result;
    int step;
};

Values runs(const std::vector<Run>& parts)
{
    Values all;
    for (const Run& part : parts)
        for (int value = part.first; value <= part.last; ++value)
            all.push_back(part.result + (value - part.first) * part.step);
    return all;
}

/// By a bit field of the byte.
Values byBits(int shift, const Values& results)
{
    Values all;
    for (int value = 0; value < 256; ++value)
        all.push_back(results[static_cast<std::size_t>(value >> shift) % results.size()]);
    return all;
}

/// The function codes 0 to 51; all above are OFF.
Values functions()
{
    Values shown = {0,    1,    2,  4,  7,  8,  9,  10, 11, 12, 13, 14, 15, 16, 17, 18, 19, 20,
                    21,   None, 23, 24, 22, 26, 27, 28, 29, 30, 31, 32, 45, 47, 48, 49, 50, None,
                    None, 6,    5,  33, 34, 35, 36, 46, 37, 38, 39, 3,  40, 41, 42, 43};
    shown.resize(256, 0);
    return shown;
}

struct ReadRow {
    GblField field;
    std::size_t offset;
    Values shown;
};

const Values OneBit = {0, 1};

std::vector<ReadRow> readRows()
{
    const Values cents = runs({{0, 50, 0, 1}, {51, 205, 0, 0}, {206, 255, -50, 1}});
    const Values curve = runs({{0, 7, 0, 1}, {8, 255, 0, 0}});
    const Values scale = runs({{0, 23, 0, 1}, {24, 255, 0, 0}});
    const Values key = runs({{0, 11, 0, 1}, {12, 255, 0, 0}});
    const Values upper = {2, 1, 0, None, None, None, None, None, None, None, None, None, None, None, None, None};
    const Values lower = {0, 1, 2, 3, 4, None, None, None, None, None, None, None, None, None, None, None};
    return {
        {GblField::MasterTune, 0, runs({{0, 32, 0, 1}, {33, 205, 0, 0}, {206, 255, -50, 1}})},
        {GblField::OctaveUpper, 213, byBits(0, upper)},
        {GblField::OctaveLower, 213, byBits(4, lower)},
        {GblField::VelocityCurve, 19, curve},
        {GblField::AfterTouchCurve, 20, curve},
        {GblField::Velocity, 212, runs({{0, 127, 0, 1}, {128, 255, 0, 0}})},
        {GblField::AutoChordScan, 29, byBits(0, OneBit)},
        {GblField::TransposeLock, 222, byBits(1, OneBit)},
        {GblField::VocGtrLock, 222, byBits(0, OneBit)},
        {GblField::JsLow, 2, byBits(3, OneBit)},
        {GblField::JsUp1, 2, byBits(4, OneBit)},
        {GblField::JsUp2, 2, byBits(5, OneBit)},
        {GblField::EchoBack, 2, byBits(6, {0, 1, 2, None})},
        {GblField::ChordRecognition, 28, byBits(0, {0, 1, 2, 0})},
        {GblField::MainScaleType, 5, scale},
        {GblField::SubScaleType, 21, scale},
        {GblField::MainScaleKey, 6, key},
        {GblField::SubScaleKey, 22, key},
        {GblField::DamperPolarity, 2, byBits(0, OneBit)},
        {GblField::AssignablePedal, 3, functions()},
        {GblField::ExtControllerA, 23, functions()},
        {GblField::ExtControllerB, 24, functions()},
        {GblField::ExtControllerC, 25, functions()},
        {GblField::ExtControllerD, 26, functions()},
        {GblField::ExtControllerE, 27, functions()},
        {GblField::UserScale, 32, cents},
        {GblField::HarmonyOctave, 215, runs({{0, 3, 3, -1}, {4, 252, 0, 0}, {253, 255, 6, -1}})},
        {GblField::HarmonyChannelArr, 218, runs({{0, 15, 1, 1}, {16, 255, 0, 0}})},
        {GblField::HarmonyTrack, 219, runs({{0, 16, 0, 1}, {17, 255, 0, 0}})},
        {GblField::HarmonyChannelSong, 220, runs({{0, 32, 1, 1}, {33, 255, 0, 0}})},
        {GblField::HarmonyToneGenerator, 221, byBits(0, OneBit)},
        {GblField::HarmonyRangeLow, 216, runs({{0, 116, 0, 1}, {117, 255, 0, 0}})},
        {GblField::HarmonyRangeHigh, 217, runs({{0, 10, 127, 0}, {11, 127, 11, 1}, {128, 255, 127, 0}})},
    };
}

struct WriteRow {
    GblField field;
    std::size_t offset;
    int mask;    ///< bits that a choice replaces
    int lowest;  ///< position of the first entry of `bits`
    Values bits; ///< by position
};

std::vector<WriteRow> writeRows()
{
    const Values cents = runs({{-50, -1, 206, 1}, {0, 50, 0, 1}});
    const Values function = {0,  1,  2,  47, 3,  38, 37, 4,  5,  6,  7,  8,  9,  10, 11, 12, 13, 14,
                             15, 16, 17, 18, 22, 20, 21, 22, 23, 24, 25, 26, 27, 28, 29, 39, 40, 41,
                             42, 44, 45, 46, 48, 49, 50, 51, 52, 30, 43, 31, 32, 33, 34, 53};
    const Values scale = runs({{0, 23, 0, 1}});
    const Values key = runs({{0, 11, 0, 1}});
    const Values nothing(8, 0);
    return {
        {GblField::MasterTune, 0, 0xFF, -50, cents},
        {GblField::OctaveUpper, 213, 0xFF, 0, {2, 1, 0, 255, 254}},
        {GblField::OctaveLower, 213, 0xF0, 0, {0x20, 0x10, 0, None, None}},
        {GblField::VelocityCurve, 19, 0, 0, nothing},
        {GblField::AfterTouchCurve, 20, 0, 0, nothing},
        {GblField::Velocity, 212, 0xFF, 0, runs({{0, 127, 0, 1}})},
        {GblField::AutoChordScan, 29, 0xFF, 0, {0, 1}},
        {GblField::TransposeLock, 222, 0x02, 0, {0, 2}},
        {GblField::VocGtrLock, 222, 0x01, 0, {0, 1}},
        {GblField::JsLow, 2, 0x08, 0, {0, 8}},
        {GblField::JsUp1, 2, 0x10, 0, {0, 16}},
        {GblField::JsUp2, 2, 0x20, 0, {0, 32}},
        {GblField::EchoBack, 2, 0xC0, 0, {0, 64, 128}},
        {GblField::ChordRecognition, 28, 0xFF, 0, {0, 1, 2}},
        {GblField::MainScaleType, 5, 0xFF, 0, scale},
        {GblField::SubScaleType, 21, 0xFF, 0, scale},
        {GblField::MainScaleKey, 6, 0xFF, 0, key},
        {GblField::SubScaleKey, 22, 0xFF, 0, key},
        {GblField::DamperPolarity, 2, 0x01, 0, {0, 1}},
        {GblField::AssignablePedal, 3, 0xFF, 0, function},
        {GblField::ExtControllerA, 23, 0xFF, 0, function},
        {GblField::ExtControllerB, 24, 0xFF, 0, function},
        {GblField::ExtControllerC, 25, 0xFF, 0, function},
        {GblField::ExtControllerD, 26, 0xFF, 0, function},
        {GblField::ExtControllerE, 27, 0xFF, 0, function},
        {GblField::UserScale, 32, 0xFF, -50, cents},
        {GblField::HarmonyOctave, 215, 0xFF, 0, {3, 2, 1, 0, 255, 254, 253}},
        {GblField::HarmonyChannelArr, 218, 0xFF, 0, runs({{0, 0, 255, 0}, {1, 16, 0, 1}})},
        {GblField::HarmonyTrack, 219, 0xFF, 0, runs({{0, 16, 0, 1}})},
        {GblField::HarmonyChannelSong, 220, 0xFF, 0, runs({{0, 0, 255, 0}, {1, 33, 0, 1}})},
        {GblField::HarmonyToneGenerator, 221, 0x01, 0, {0, 1}},
        {GblField::HarmonyRangeLow, 216, 0xFF, 0, runs({{0, 116, 0, 1}})},
        {GblField::HarmonyRangeHigh, 217, 0xFF, 11, runs({{11, 127, 11, 1}})},
    };
}

std::string name(GblField field) { return std::string(gblParameter(field).caption); }

class GblTableTest : public testing::Test
{
protected:
    GblTableTest() { NameTablesBuild(); }
};

} // namespace

TEST_F(GblTableTest, hasARowOfTheRulesForEachField)
{
    EXPECT_EQ(readRows().size(), static_cast<std::size_t>(GblField::Count));
    EXPECT_EQ(writeRows().size(), static_cast<std::size_t>(GblField::Count));
}

TEST_F(GblTableTest, showsEachValueOfEachByteByTheRules)
{
    for (const ReadRow& row : readRows()) {
        ASSERT_EQ(row.shown.size(), 256U) << name(row.field);
        const GblParameter& field = gblParameter(row.field);
        for (std::size_t value = 0; value < 256; ++value) {
            std::string block(415, '\xA5'); // no neighbour's value may be read
            block[row.offset] = static_cast<char>(value);
            const int position = gblPosition(block, row.field);
            if (row.shown[value] == None)
                EXPECT_TRUE(position < field.low || position > field.high) << name(row.field) << " " << value;
            else
                EXPECT_EQ(position, row.shown[value]) << name(row.field) << " " << value;
        }
    }
}

TEST_F(GblTableTest, writesEachPositionIntoItsOwnBitsAlone)
{
    for (const WriteRow& row : writeRows())
        for (const int background : {0x00, 0xFF, 0x5A, 0xA5})
            for (std::size_t place = 0; place < row.bits.size(); ++place) {
                const std::string before(415, static_cast<char>(background));
                std::string expected = before;
                const bool refused = row.bits[place] == None;
                if (!refused)
                    expected[row.offset] = static_cast<char>((background & ~row.mask) | row.bits[place]);
                std::string block = before;
                const int position = row.lowest + static_cast<int>(place);
                EXPECT_EQ(gblWrite(block, row.field, position), !refused) << name(row.field) << " " << position;
                EXPECT_TRUE(block == expected) << name(row.field) << " " << position << "\n" << hex(block);
            }
}

TEST_F(GblTableTest, offersNoPositionBeyondTheRules)
{
    for (const WriteRow& row : writeRows()) {
        const GblParameter& field = gblParameter(row.field);
        EXPECT_EQ(field.low, row.lowest) << name(row.field);
        EXPECT_EQ(field.high, row.lowest + static_cast<int>(row.bits.size()) - 1) << name(row.field);
        std::string block(415, '\x33');
        for (const int position : {field.low - 1, field.high + 1, -32768, 32767})
            EXPECT_FALSE(gblWrite(block, row.field, position)) << name(row.field) << " " << position;
        EXPECT_EQ(block, std::string(415, '\x33')) << name(row.field);
    }
}

TEST_F(GblTableTest, keepsFourScalesOfTwelveNotesOneBehindTheOther)
{
    for (int index = 0; index < 48; ++index) {
        std::string block(415, '\0');
        ASSERT_TRUE(gblWrite(block, GblField::UserScale, -7, index));
        std::string expected(415, '\0');
        expected[static_cast<std::size_t>(32 + index)] = '\xF9';
        EXPECT_EQ(hex(block), hex(expected));
        EXPECT_EQ(gblPosition(block, GblField::UserScale, index), -7);
    }
    std::string block(415, '\0');
    EXPECT_FALSE(gblWrite(block, GblField::UserScale, 1, 48));
    EXPECT_FALSE(gblWrite(block, GblField::UserScale, 1, -1));
    EXPECT_FALSE(gblWrite(block, GblField::MasterTune, 1, 1));
    EXPECT_EQ(block, std::string(415, '\0'));
}

TEST_F(GblTableTest, readsAndWritesAShortBlockWithinItsLength)
{
    std::string block(100, '\x01');
    EXPECT_EQ(gblPosition(block, GblField::Velocity), 0);
    EXPECT_TRUE(gblWrite(block, GblField::Velocity, 9));
    EXPECT_EQ(block, std::string(100, '\x01')) << "what has no place is not written";
}

TEST_F(GblTableTest, hasEveryRowOfEveryList)
{
    struct ListRow {
        GblField field;
        const char* rows; ///< with a bar behind each
    };
    const char* const scale = "EQUAL TEMP|EQUAL TEMP 2|PURE MAJOR|PURE MINOR|ARABIC|PYTHAGOREAN|WERKMEISTER|KIRNBERGER|"
                              "SLENDRO|PELOG|USER SCALE 1|USER SCALE 2|USER SCALE 3|USER SCALE 4|USER SCALE 5|"
                              "USER SCALE 6|USER SCALE 7|USER SCALE 8|USER SCALE 9|USER SCALE 10|USER SCALE 11|"
                              "USER SCALE 12|USER SCALE 13|USER SCALE 14|";
    const char* const key = " C| C#| D| D#| E| F| F#| G| G#| A| A#| B|";
    const char* const function =
        "OFF|START/STOP|SYNC START|SYNC STOP|RESET|TAP TEMPO|TEMPO LOCK|INTRO/ENDING 1|INTRO/ENDING 2|FILL 1|FILL 2|"
        "VARIATION 1|VARIATION 2|VARIATION 3|VARIATION 4|CHORD MEMORY|BASS INVERSION|SCALE CHANGE|ARR/STY UP|"
        "ARR/STY DOWN|PROGRAM UP|PROGRAM DOWN|VARIATION UP|VARIATION DOWN|PUNCH IN/OUT|EFFECT 1 ON/OFF|"
        "EFFECT 2 ON/OFF|DRUM MUTE|PERC MUTE|BASS MUTE|ACC1 MUTE|ACC2 MUTE|ACC3 MUTE|LOW HARM MEMORY|"
        "SUSTAIN ON/OFF|FADE IN/OUT|ENSEMBLE ON/OFF|QUARTER TONE|DAMPER ON/OFF|CHORD LATCH ON/OFF|ACC1-3 MUTE|"
        "LOW/UP1/UP2 MUTE|KEYBOARD SET UP|KEYBOARD SET DOWN|C BUTTON ON/OFF|KB VOLUME|MASTER VOLUME|EXPRESSION|"
        "VDF CUTOFF|EFFECT CONTROL|DATA ENTRY|A/B FADER|";
    const ListRow lists[] = {
        {GblField::OctaveUpper, " U+2| U+1| U+0| U-1| U-2|"},
        {GblField::OctaveLower, " L+2| L+1| U+0| L-1| L-2|"},
        {GblField::VelocityCurve, " 1| 2| 3| 4| 5| 6| 7| 8|"},
        {GblField::AfterTouchCurve, " 1| 2| 3| 4| 5| 6| 7| 8|"},
        {GblField::JsLow, " PRG| DIS|"},
        {GblField::JsUp1, " PRG| DIS|"},
        {GblField::JsUp2, " PRG| DIS|"},
        {GblField::EchoBack, " OFF| IN 1| IN 2|"},
        {GblField::ChordRecognition, "Fingered1|Fingered2|One Finger|"},
        {GblField::MainScaleType, scale},
        {GblField::SubScaleType, scale},
        {GblField::MainScaleKey, key},
        {GblField::SubScaleKey, key},
        {GblField::AssignablePedal, function},
        {GblField::ExtControllerA, function},
        {GblField::ExtControllerB, function},
        {GblField::ExtControllerC, function},
        {GblField::ExtControllerD, function},
        {GblField::ExtControllerE, function},
        {GblField::HarmonyOctave, " 3| 2| 1| 0| -1| -2| -3|"},
        {GblField::HarmonyChannelArr, " OFF| 1| 2| 3| 4| 5| 6| 7| 8| 9| 10| 11| 12| 13| 14| 15| 16|"},
        {GblField::HarmonyTrack, " OFF| DRUM| PERC| BASS| ACC1| ACC2| ACC3| UP1| LOW/UP2| ETr1| ETr2| ETr3| ETr4| ETr5|"
                                 " ETr6| ETr7| ETr8|"},
        {GblField::HarmonyChannelSong,
         " OFF| MIDI Ch01| MIDI Ch02| MIDI Ch03| MIDI Ch04| MIDI Ch05| MIDI Ch06| MIDI Ch07| MIDI Ch08| MIDI Ch09|"
         " MIDI Ch10| MIDI Ch11| MIDI Ch12| MIDI Ch13| MIDI Ch14| MIDI Ch15| MIDI Ch16| Song Ch01| Song Ch02|"
         " Song Ch03| Song Ch04| Song Ch05| Song Ch06| Song Ch07| Song Ch08| Song Ch09| Song Ch10| Song Ch11|"
         " Song Ch12| Song Ch13| Song Ch14| Song Ch15| Song Ch16| Keyboard|"}};
    std::size_t listed = 0;
    for (const ListRow& list : lists) {
        std::string rows;
        for (const std::string_view row : gblParameter(list.field).list)
            rows.append(row).append("|");
        EXPECT_EQ(rows, list.rows) << name(list.field);
    }
    for (int field = 0; field < static_cast<int>(GblField::Count); ++field)
        listed += gblParameter(static_cast<GblField>(field)).list.empty() ? 0 : 1;
    EXPECT_EQ(listed, std::size(lists)) << "no list is left out";
}

TEST_F(GblTableTest, namesTheRowsAsThePanelDoes)
{
    const auto row = [](GblField field, std::size_t place) { return gblParameter(field).list[place]; };
    EXPECT_EQ(row(GblField::OctaveUpper, 0), " U+2");
    EXPECT_EQ(row(GblField::OctaveLower, 2), " U+0") << "the third row reads U here too";
    EXPECT_EQ(row(GblField::OctaveLower, 4), " L-2");
    EXPECT_EQ(row(GblField::MainScaleType, 10), "USER SCALE 1");
    EXPECT_EQ(row(GblField::SubScaleType, 23), "USER SCALE 14");
    EXPECT_EQ(row(GblField::AssignablePedal, 3), "SYNC STOP");
    EXPECT_EQ(row(GblField::ExtControllerE, 22), "VARIATION UP");
    EXPECT_EQ(row(GblField::ExtControllerE, 25), "EFFECT 1 ON/OFF");
    EXPECT_EQ(row(GblField::ExtControllerE, 51), "A/B FADER");
    EXPECT_EQ(row(GblField::HarmonyTrack, 8), " LOW/UP2");
    EXPECT_EQ(row(GblField::HarmonyTrack, 16), " ETr8");
    EXPECT_EQ(row(GblField::HarmonyChannelSong, 17), " Song Ch01");
    EXPECT_EQ(row(GblField::HarmonyChannelSong, 33), " Keyboard");
    EXPECT_EQ(row(GblField::EchoBack, 1), " IN 1");
    EXPECT_EQ(row(GblField::JsLow, 1), " DIS");
}
