// Selecting a program by three short messages: every kind of window, its bank, number and channel.
#include "programs/ProgramFixture.h"

using ProgramSend_ = ProgramTest;

TEST_F(ProgramSend_, factoryBanksHaveTheirBankAndNumber)
{
    const struct {
        int kind;
        const char* first;
        const char* last;
    } rows[] = {
        {4, "B2 00 00 | B2 20 00 | C2 00", "B2 00 00 | B2 20 00 | C2 3F"},
        {5, "B2 00 00 | B2 20 00 | C2 40", "B2 00 00 | B2 20 00 | C2 7F"},
        {6, "B2 00 00 | B2 20 01 | C2 00", "B2 00 00 | B2 20 01 | C2 3F"},
        {7, "B2 00 00 | B2 20 01 | C2 40", "B2 00 00 | B2 20 01 | C2 7F"},
        {8, "B2 00 00 | B2 20 02 | C2 00", "B2 00 00 | B2 20 02 | C2 3F"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(sentBy(tag(row.kind, 2, 9), 0), row.first) << row.kind;
        EXPECT_EQ(sentBy(tag(row.kind, 2, 9), 63), row.last) << row.kind;
    }
}

TEST_F(ProgramSend_, eachDrumKitHasItsProgram)
{
    const int programs[16] = {0, 1, 8, 16, 24, 25, 26, 32, 40, 48, 64, 65, 66, 56, 72, 73};
    for (const int kind : {9, 10})
        for (int kit = 0; kit < 16; ++kit) {
            char expected[40];
            std::snprintf(expected, sizeof expected, "B9 00 00 | B9 20 04 | C9 %02X", programs[kit]);
            EXPECT_EQ(sentBy(tag(kind, 9), kit), expected) << kit;
        }
}

TEST_F(ProgramSend_, kitTableEndsAtSixteen)
{
    EXPECT_EQ(drumKitProgram(14), 72); // "(User 1)"
    EXPECT_EQ(drumKitProgram(16), -1);
    EXPECT_EQ(drumKitProgram(-1), -1);
}

TEST_F(ProgramSend_, aUserProgramIsInBank3AtItsPlaceOnTheFilesChannel)
{
    std::string bytes = tag(21, 7, 4);
    putRecord(bytes, 0, 0x42, 1, 9, "Mine");
    putRecord(bytes, 62, 0, 1, 9, ""); // a free record too
    EXPECT_EQ(sentBy(bytes, 0), "B4 00 00 | B4 20 03 | C4 00");
    EXPECT_EQ(sentBy(bytes, 62), "B4 00 00 | B4 20 03 | C4 3E");
}

TEST_F(ProgramSend_, aReferenceSendsItsOwnBankAndProgramWhateverItsPlace)
{
    std::string bytes = tag(21, 0, 0);
    putRecord(bytes, 5, 1, 4, 72, "(User 1)");
    EXPECT_EQ(sentBy(bytes, 5), "B0 00 00 | B0 20 04 | C0 48");
}

TEST_F(ProgramSend_, aDamagedReferenceNeverPutsAStatusByteOnTheWire)
{
    std::string bytes = tag(21);
    putRecord(bytes, 5, 1, 0xF7, 0xFF, "");
    EXPECT_EQ(sentBy(bytes, 5), "B0 00 00 | B0 20 77 | C0 7F");
}

TEST_F(ProgramSend_, anUntitledFileSendsOnTheChannelOfItsBoxToo)
{
    std::string bytes = tag(22, 6, 11);
    putRecord(bytes, 12, 1, 1, 100, "Referred");
    EXPECT_EQ(sentBy(bytes, 10), "BB 00 00 | BB 20 03 | CB 0A");
    EXPECT_EQ(sentBy(bytes, 12), "BB 00 00 | BB 20 01 | CB 64");
}

TEST_F(ProgramSend_, aTrackWithoutAChannelLeavesTheWindowsOwn)
{
    RecordingEditor editor;
    setFieldTarget(&editor);
    for (const int none : {16, 255, -1}) {
        App.TrackChannels.fill(none);
        EXPECT_EQ(sentBy(tag(4, 15), 1), "BF 00 00 | BF 20 00 | CF 01") << none;
        EXPECT_EQ(sentBy(tag(21, 15, 7), 1), "B7 00 00 | B7 20 03 | C7 01") << none;
    }
    App.TrackChannels.fill(15);
    EXPECT_EQ(sentBy(tag(4, 0), 1), "BF 00 00 | BF 20 00 | CF 01");
}

TEST_F(ProgramSend_, aHighlightedProgramFieldGivesItsTracksChannel)
{
    App.TrackChannels = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9}; // ARRANG, LOW, UP2, UP1, DRM, PER, BAS, AC1, AC2, AC3
    RecordingEditor editor;
    setFieldTarget(&editor);
    const char* channels[9] = {"4", "5", "6", "7", "8", "9", "3", "2", "1"};
    for (editor.track = 0; editor.track < 9; ++editor.track) {
        const std::string channel = channels[editor.track];
        EXPECT_EQ(sentBy(tag(4, 15), 1), "B" + channel + " 00 00 | B" + channel + " 20 00 | C" + channel + " 01")
            << editor.track;
    }
    EXPECT_EQ(editor.assignments, 0);
}

TEST_F(ProgramSend_, withoutAHighlightedTrackTheWindowsChannelIsUsed)
{
    App.TrackChannels.fill(3);
    RecordingEditor editor;
    setFieldTarget(&editor);
    editor.track = -1;
    EXPECT_EQ(sentBy(tag(4, 15), 1), "BF 00 00 | BF 20 00 | CF 01");
    editor.track = 0;
    editor.programSelected = false;
    EXPECT_EQ(sentBy(tag(4, 15), 1), "BF 00 00 | BF 20 00 | CF 01");
}

TEST_F(ProgramSend_, aKindOrKitOutsideTheTableRepeatsTheLastWords)
{
    EXPECT_EQ(sentBy(tag(19, 1), 5), "B1 00 00 | B1 20 00 | C1 00"); // nothing was sent before
    EXPECT_EQ(sentBy(tag(8, 1), 33), "B1 00 00 | B1 20 02 | C1 21");
    EXPECT_EQ(sentBy(tag(19, 3), 5), "B3 00 00 | B3 20 02 | C3 21");
    EXPECT_EQ(sentBy(tag(9, 4), 16), "B4 00 00 | B4 20 02 | C4 21");
    EXPECT_EQ(sentBy(tag(5, 4), 64), "B4 00 00 | B4 20 02 | C4 21");
    EXPECT_EQ(sentBy(tag(5, 4), -1), "B4 00 00 | B4 20 02 | C4 21");
    EXPECT_EQ(sentBy("", 0), "B0 00 00 | B0 20 02 | C0 21");
}

TEST_F(ProgramSend_, leavesTheEightBytesForTheLog)
{
    ProgramSend(tag(7, 2), 28);
    EXPECT_EQ(hex(Midi.SysExOutput), "B2 00 00 B2 20 01 C2 5C");
    Midi.MidiEnabled = 0; // the log still shows what would have gone out
    wire.forget();
    ProgramSend(tag(8, 3), 1);
    EXPECT_TRUE(wire.calls.empty());
    EXPECT_EQ(hex(Midi.SysExOutput), "B3 00 00 B3 20 02 C3 01");
}
