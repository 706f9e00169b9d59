// The read rules of the 164-byte block, row by row.
#include "arrangements/ArrParameters.h"
#include "ArrRoom.h"

#include "arrangements/ArrTexts.h"

#include <array>
#include <vector>

namespace
{

struct Reading {
    int stored;
    int position;
};

void expectReadings(ArrGeneral which, std::size_t offset, const std::vector<Reading>& readings)
{
    for (const Reading& reading : readings)
        EXPECT_EQ(arrPosition(Block().set(offset, reading.stored).bytes, which), reading.position)
            << "stored " << reading.stored;
}

void expectTrackReadings(ArrTrack which, std::size_t offset, const std::vector<Reading>& readings)
{
    for (const std::size_t track : {0u, 4u, 8u})
        for (const Reading& reading : readings)
            EXPECT_EQ(
                arrPosition(Block().set(39 + 8 * track + offset, reading.stored).bytes, static_cast<int>(track), which),
                reading.position)
                << "track " << track << " stored " << reading.stored;
}

} // namespace

TEST(ArrBlock, aBlockOfZerosReadsAsTheLowestOfEverything)
{
    const Block zeros;
    EXPECT_EQ(arrPosition(zeros.bytes, ArrGeneral::Tempo), 40);
    EXPECT_EQ(arrPosition(zeros.bytes, ArrGeneral::SplitPoint), 60);
    EXPECT_EQ(arrRow(zeros.bytes, ArrGeneral::KeyboardAssign), "FULL 1");
    EXPECT_EQ(arrRow(zeros.bytes, ArrGeneral::Effect1), "No Effect");
    EXPECT_EQ(arrRow(zeros.bytes, ArrGeneral::Effect2), "No Effect");
    EXPECT_EQ(arrRow(zeros.bytes, ArrGeneral::Transpose), "  0");
    EXPECT_EQ(splitNoteText(arrPosition(zeros.bytes, ArrGeneral::SplitPoint)), "C4");
    EXPECT_EQ(effectLabel(1, zeros.bytes[135]), "Effect 1 (Off)");
    EXPECT_EQ(effectLabel(2, zeros.bytes[136]), "Effect 2 (Off)");
    for (std::size_t track = 0; track < 9; ++track)
        EXPECT_EQ(panText(zeros.bytes[42 + 8 * track]), "L15");
    EXPECT_EQ(arrRow(zeros.bytes, 3, ArrTrack::WAround), " 1");
}

TEST(ArrBlock, initVarKeyboardAssignAndDesignationsAreListPositionsWithoutACheck)
{
    expectReadings(ArrGeneral::InitVar, 19, {{0, 0}, {3, 3}, {200, 200}});
    expectReadings(ArrGeneral::KeyboardAssign, 22, {{0, 0}, {10, 10}, {11, 11}});
    expectReadings(ArrGeneral::Kick, 33, {{0, 0}, {3, 3}});
    expectReadings(ArrGeneral::Snare, 34, {{1, 1}, {255, 255}});
    EXPECT_EQ(arrRow(Block().set(19, 200).bytes, ArrGeneral::InitVar), "");
    EXPECT_EQ(arrRow(Block().set(22, 3).bytes, ArrGeneral::KeyboardAssign), "M. DRUMS");
    EXPECT_EQ(arrRow(Block().set(34, 2).bytes, ArrGeneral::Snare), " C");
}

TEST(ArrBlock, tempoUnderTenOrOver210ReadsAsFortyBeats)
{
    expectReadings(ArrGeneral::Tempo, 21, {{9, 40}, {10, 40}, {11, 41}, {90, 120}, {210, 240}, {211, 40}, {255, 40}});
}

TEST(ArrBlock, splitPointOutsideTheKeysReadsAsMiddleC)
{
    expectReadings(ArrGeneral::SplitPoint, 23, {{35, 60}, {36, 36}, {61, 61}, {96, 96}, {97, 60}});
}

TEST(ArrBlock, ensembleHoldsItsSwitchInTheTopBit)
{
    expectReadings(ArrGeneral::EnsembleType, 24, {{0x85, 5}, {0x05, 5}, {0xFF, 127}});
    expectReadings(ArrGeneral::EnsembleSwitch, 24, {{0x85, 1}, {0x7F, 0}, {0x80, 1}});
    EXPECT_EQ(arrRow(Block().set(24, 0x89).bytes, ArrGeneral::EnsembleType), "Reed Ens.");
}

TEST(ArrBlock, transposeRunsFromPlusElevenDownToMinusEleven)
{
    expectReadings(ArrGeneral::Transpose, 25, {{0, 11}, {1, 10}, {11, 0}, {255, 12}, {254, 13}, {245, 22}});
    EXPECT_EQ(arrRow(Block().set(25, 11).bytes, ArrGeneral::Transpose), " +11");
    EXPECT_EQ(arrRow(Block().set(25, 255).bytes, ArrGeneral::Transpose), " -1");
    EXPECT_EQ(arrRow(Block().set(25, 245).bytes, ArrGeneral::Transpose), " -11");
}

TEST(ArrBlock, storedTransposeTwelveShowsPlusElevenNotZero)
{
    expectReadings(ArrGeneral::Transpose, 25, {{12, 0}, {128, 0}, {244, 0}});
    EXPECT_EQ(arrRow(Block().set(25, 12).bytes, ArrGeneral::Transpose), " +11");
}

TEST(ArrBlock, aDrumKitOfTheSecondRowReadsBackAsDr18)
{
    expectReadings(ArrGeneral::ManualDrumKit, 26, {{0, 0}, {7, 7}, {8, 7}, {15, 7}});
    EXPECT_EQ(arrRow(Block().set(26, 8).bytes, ArrGeneral::ManualDrumKit), " Dr18");
    EXPECT_EQ(arrParameter(ArrGeneral::ManualDrumKit).list.size(), 16u);
    EXPECT_EQ(arrParameter(ArrGeneral::ManualDrumKit).list[15], " Dr28");
}

TEST(ArrBlock, eachSwitchIsItsOwnBit)
{
    const std::array<std::pair<ArrGeneral, std::pair<std::size_t, int>>, 9> switches = {{
        {ArrGeneral::DynamicVelocity, {27, 1}},
        {ArrGeneral::TempoLock, {27, 2}},
        {ArrGeneral::Kbd1DampEn, {27, 4}},
        {ArrGeneral::Kbd2DampEn, {27, 8}},
        {ArrGeneral::ChordScanLow, {28, 1}},
        {ArrGeneral::ChordScanHigh, {28, 2}},
        {ArrGeneral::BassInversion, {28, 4}},
        {ArrGeneral::ChordHold, {28, 8}},
        {ArrGeneral::ChordLatch, {28, 16}},
    }};
    for (const auto& [which, place] : switches) {
        const auto [offset, bit] = place;
        EXPECT_EQ(arrPosition(Block().set(offset, bit).bytes, which), 1);
        EXPECT_EQ(arrPosition(Block().set(offset, 255 - bit).bytes, which), 0);
        EXPECT_EQ(arrPosition(Block().set(55 - offset, 255).bytes, which), 0) << "the other switch byte";
    }
}

TEST(ArrBlock, theFourVariationsHaveTheirDrumMapsAsNumbers)
{
    const std::string block = Block().set(29, 1).set(30, 3).set(31, 5).set(32, 8).bytes;
    EXPECT_EQ(arrPosition(block, ArrGeneral::DDrumMap1), 1);
    EXPECT_EQ(arrPosition(block, ArrGeneral::DDrumMap2), 3);
    EXPECT_EQ(arrPosition(block, ArrGeneral::DDrumMap3), 5);
    EXPECT_EQ(arrPosition(block, ArrGeneral::DDrumMap4), 8);
}

TEST(ArrBlock, aFillOverTwelveReadsAsDown)
{
    expectReadings(ArrGeneral::Fill1, 37, {{0, 0}, {12, 12}, {13, 12}, {255, 12}});
    expectReadings(ArrGeneral::Fill2, 38, {{5, 5}, {99, 12}});
    EXPECT_EQ(arrRow(Block().set(37, 5).bytes, ArrGeneral::Fill1), " 1&2");
    EXPECT_EQ(arrRow(Block().set(38, 200).bytes, ArrGeneral::Fill2), " DOWN");
}

TEST(ArrBlock, theEffectListIsTheTableInReverse)
{
    expectReadings(ArrGeneral::Effect1, 135, {{0, 47}, {1, 46}, {47, 0}, {48, 47}, {255, 47}});
    const ArrList list = arrParameter(ArrGeneral::Effect2).list;
    ASSERT_EQ(list.size(), 48u);
    EXPECT_EQ(list.front(), "Delay/Rotary");
    EXPECT_EQ(list.back(), "No Effect");
    EXPECT_EQ(arrRow(Block().set(136, 23).bytes, ArrGeneral::Effect2), "Harmonic Cho.");
    EXPECT_EQ(arrRow(Block().set(136, 16).bytes, ArrGeneral::Effect2), "Multitap Dly1");
    EXPECT_EQ(arrRow(Block().set(135, 34).bytes, ArrGeneral::Effect1), "Rotary Speaker");
}

TEST(ArrBlock, aVolumeOver127ReadsAs100)
{
    expectTrackReadings(ArrTrack::Volume, 2, {{0, 0}, {127, 127}, {128, 100}, {255, 100}});
}

TEST(ArrBlock, panStandsOnItsScrollBar)
{
    expectTrackReadings(ArrTrack::Pan, 3,
                        {{0, 2}, {14, 16}, {15, 17}, {16, 18}, {30, 32}, {31, 33}, {255, 1}, {32, 17}, {254, 17}});
}

TEST(ArrBlock, theSendsAreTwoNibblesAndStrayOnesShowNothing)
{
    expectTrackReadings(ArrTrack::SendC, 4, {{0xF0, 10}, {0x29, 1}, {0x3A, 0}, {0x0B, 15}, {0x0F, 11}});
    expectTrackReadings(ArrTrack::SendD, 4, {{0x0F, 10}, {0x92, 1}, {0xA3, 0}, {0xF0, 11}});
    EXPECT_EQ(arrRow(Block().set(43, 0xA9).bytes, 0, ArrTrack::SendC), " 9");
    EXPECT_EQ(arrRow(Block().set(43, 0xA9).bytes, 0, ArrTrack::SendD), "PRG");
    EXPECT_EQ(arrRow(Block().set(43, 0x0F).bytes, 0, ArrTrack::SendC), "");
}

TEST(ArrBlock, octaveReadsTwoToMinusTwoAndAnythingElseAsZero)
{
    expectTrackReadings(ArrTrack::Octave, 5, {{2, 0}, {1, 1}, {0, 2}, {255, 3}, {254, 4}, {3, 2}, {253, 2}});
    EXPECT_EQ(arrRow(Block().set(44, 254).bytes, 0, ArrTrack::Octave), " -2");
}

TEST(ArrBlock, aStatusByteOverElevenReadsAsBothAndPlayAndAFourthStateAsNone)
{
    expectTrackReadings(ArrTrack::OutStatus1, 6, {{0, 0}, {9, 1}, {10, 2}, {11, 3}, {12, 3}, {13, 3}, {255, 3}});
    expectTrackReadings(ArrTrack::OutStatus2, 6,
                        {{0, 0}, {5, 1}, {9, 2}, {11, 2}, {0x10, 0}, {0xF7, 0}, {0xFB, 0}, {12, 3}, {15, 3}, {255, 3}});
    EXPECT_EQ(arrRow(Block().set(45, 12).bytes, 0, ArrTrack::OutStatus2), "");
    EXPECT_EQ(arrRow(Block().set(45, 0xFB).bytes, 0, ArrTrack::OutStatus2), "PLAY");
    EXPECT_EQ(arrRow(Block().set(45, 9).bytes, 0, ArrTrack::OutStatus1), "INT");
    EXPECT_EQ(arrRow(Block().set(45, 9).bytes, 0, ArrTrack::OutStatus2), "SOLO");
}

TEST(ArrBlock, wAroundRunsFromTwelveDownToOneThenOrg)
{
    expectTrackReadings(ArrTrack::WAround, 7, {{0, 11}, {11, 0}, {255, 12}, {12, 0}, {254, 0}});
    EXPECT_EQ(arrRow(Block().set(46, 255).bytes, 0, ArrTrack::WAround), " ORG");
    EXPECT_EQ(arrRow(Block().set(46, 2).bytes, 0, ArrTrack::WAround), " 3");
}

TEST(ArrBlock, anyByteAnywhereReadsWithoutLeadingAstray)
{
    for (int value = 0; value < 256; ++value) {
        const std::string block(164, static_cast<char>(value));
        for (int which = 0; which < static_cast<int>(ArrGeneral::Count); ++which)
            EXPECT_LE(arrRow(block, static_cast<ArrGeneral>(which)).size(), 14u);
        for (int track = 0; track < 9; ++track)
            for (int which = 0; which < static_cast<int>(ArrTrack::Count); ++which)
                EXPECT_LE(arrRow(block, track, static_cast<ArrTrack>(which)).size(), 4u);
    }
    EXPECT_EQ(arrPosition("short", ArrGeneral::Tempo), 40);
}
