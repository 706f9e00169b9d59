// The Tag of a child window, the list of those that are open, and the window numbers.
#include "files/WindowBuffer.h"

#include "files/FilesFixture.h"
#include "files/RowLabels.h"

#include <algorithm>

using WindowBuffer_ = FilesTest;
using OpenWindows_ = FilesTest;
using WinFind = FilesTest;
using SlotFree = FilesTest;

TEST(WindowLayout, areasStandAtTheirPublishedOffsets)
{
    EXPECT_EQ(WindowLayout::Path.offset, 20);
    EXPECT_EQ(WindowLayout::Path.size, 238);
    EXPECT_EQ(WindowLayout::ArrFile.offset, 270);
    EXPECT_EQ(WindowLayout::ArrFile.offset + ArrLayout::Rows.offset, 302);
    EXPECT_EQ(WindowLayout::ArrRows.offset, 10798);
    EXPECT_EQ(WindowLayout::PrgCompanion.offset, 12142);
    EXPECT_EQ(WindowLayout::StyCompanionOffset, 42622);
    EXPECT_EQ(WindowLayout::PrgFile.offset + PrgLayout::Records.offset, 318);
    EXPECT_EQ(WindowLayout::PrgFile.offset + PrgLayout::SecondArea.offset, 23366);
    EXPECT_EQ(WindowLayout::PrgFile.offset + PrgLayout::ChannelOffset, 285);
    EXPECT_EQ(WindowLayout::StyFileOffset, 669);
    EXPECT_EQ(WindowLayout::GblFile.offset + GblLayout::Parameters.offset, 302);
    EXPECT_EQ(ArrLayout::row(63).offset, 32 + 164 * 63);
    EXPECT_EQ(PrgLayout::record(63).offset, 48 + 172 * 63);
}

TEST(WindowLayout, rowsOfTheListsStandBehindTheFilesOfTheirKind)
{
    const auto expectRows = [](Field rows, int offset, int size) {
        EXPECT_EQ(rows.offset, offset);
        EXPECT_EQ(rows.size, size);
    };
    expectRows(WindowLayout::ArrRows, 10798, 1344);
    expectRows(WindowLayout::PrgRows, 30750, 1344);
    expectRows(WindowLayout::PrgBankRows, 29, 1344);
    expectRows(WindowLayout::StyRows, 270, 399);
}

TEST(WindowLayout, bytesOfTheHeadStandAtTheirPublishedOffsets)
{
    const std::vector<int> published{0, 1, 2, 3, 5, 6, 8, 9, 14, 15, 16, 17, 18};
    using namespace WindowLayout;
    EXPECT_EQ((std::vector<int>{KindOffset, ReadOnlyOffset, NotSentOffset, ModifiedOffset, PrgStateOffset,
                                PrgModifiedOffset, StyStateOffset, StyModifiedOffset, WindowNumberOffset, ChannelOffset,
                                EntryUsedOffset, UntitledOffset, PrgTypeOffset}),
              published);
    EXPECT_EQ(std::count(published.begin(), published.end(), StyRefusedOffset), 0) << "a byte that is nobody's";
}

TEST_F(WindowBuffer_, isBornWithTwentyZeroBytesAndABlankPath)
{
    const WindowBuffer window = WindowBuffer::fresh(19, 3);
    ASSERT_EQ(window.bytes().size(), 270u);
    EXPECT_EQ(hex(window.bytes().substr(0, 20)), "13 00 00 00 00 00 00 00 00 00 00 00 00 00 03 00 00 00 00 00");
    EXPECT_EQ(window.bytes().substr(20), std::string(250, ' '));
    EXPECT_EQ(window.kind(), 19);
    EXPECT_EQ(window.number(), 3);
    EXPECT_FALSE(window.readOnly());
    EXPECT_FALSE(window.untitled());
}

TEST_F(WindowBuffer_, readOnlyAndUntitledAreOneAndNoOtherValue)
{
    WindowBuffer window = WindowBuffer::fresh(19, 1);
    window.set(1, 1);
    window.set(17, 1);
    EXPECT_TRUE(window.readOnly());
    EXPECT_TRUE(window.untitled());
    window.set(1, 17); // the factory style windows keep their kind there
    EXPECT_FALSE(window.readOnly());
}

TEST_F(WindowBuffer_, keepsAPathOf238BytesAndClearsTheOneBefore)
{
    WindowBuffer window(WindowBuffer::fresh(19, 1).bytes().substr(0, 20) + std::string(250, 'z'));
    window.setPath("/music/" + std::string(300, 'x'));
    EXPECT_EQ(window.bytes().size(), 270u);
    EXPECT_EQ(window.path().size(), 238u);
    EXPECT_EQ(window.bytes().substr(258, 12), std::string(12, ' '));
    window.setPath("/music/my.song");
    EXPECT_EQ(window.path(), "/music/my.song");
    EXPECT_EQ(window.stem(), "my.song"); // a path field holds no extension to cut
}

TEST_F(WindowBuffer_, styleAreaStandsWhereTheKindHasIt)
{
    WindowBuffer arrangement = WindowBuffer::fresh(20, 1);
    EXPECT_TRUE(arrangement.styleArea().empty());
    arrangement.setStyleArea("KORG one");
    ASSERT_EQ(arrangement.bytes().size(), 42622u + 8);
    EXPECT_EQ(arrangement.styleArea(), "KORG one");
    arrangement.setStyleArea("two");
    EXPECT_EQ(arrangement.bytes().size(), 42622u + 3);

    WindowBuffer style = WindowBuffer::fresh(24, 1);
    style.setStyleArea("KORG");
    EXPECT_EQ(style.bytes().size(), 669u + 4);

    WindowBuffer program = WindowBuffer::fresh(21, 1);
    program.setStyleArea("KORG");
    EXPECT_EQ(program.bytes().size(), 270u);
    EXPECT_TRUE(program.styleArea().empty());
}

TEST_F(WindowBuffer_, aStyleAreaMayBeSetFromItself)
{
    WindowBuffer window = WindowBuffer::fresh(23, 1);
    window.setStyleArea("0123456789");
    window.setStyleArea(window.styleArea().substr(4));
    EXPECT_EQ(window.styleArea(), "456789");
}

TEST_F(OpenWindows_, findsByKindAndNumber)
{
    WindowBuffer one = WindowBuffer::fresh(19, 1);
    WindowBuffer two = WindowBuffer::fresh(19, 2);
    WindowBuffer bank = WindowBuffer::fresh(3, 0);
    for (WindowBuffer* window : {&one, &two, &bank, &two})
        OpenWindows::add(window);
    EXPECT_EQ(OpenWindows::all().size(), 3u);
    EXPECT_EQ(OpenWindows::find(19, 2), &two);
    EXPECT_EQ(OpenWindows::find(19, 3), nullptr);
    EXPECT_EQ(OpenWindows::find(3, -1), &bank);
    EXPECT_EQ(OpenWindows::find(2, -1), nullptr);
    OpenWindows::remove(&two);
    EXPECT_EQ(OpenWindows::find(19, 2), nullptr);
    OpenWindows::clear();
    EXPECT_TRUE(OpenWindows::all().empty());
}

TEST_F(OpenWindows_, findsByPathAmongTwoKinds)
{
    WindowBuffer style = WindowBuffer::fresh(23, 1);
    WindowBuffer program = WindowBuffer::fresh(21, 4);
    style.setPath("/music/song");
    program.setPath("/music/song");
    OpenWindows::add(&style);
    OpenWindows::add(&program);
    EXPECT_EQ(OpenWindows::findByPath(21, 22, "/music/song"), &program);
    EXPECT_EQ(OpenWindows::findByPath(22, 21, "/music/SONG  "), &program);
    EXPECT_EQ(OpenWindows::findByPath(23, 24, "/music/song"), &style);
    EXPECT_EQ(OpenWindows::findByPath(19, 20, "/music/song"), nullptr);
    EXPECT_EQ(OpenWindows::findByPath(23, 24, "/music/son"), nullptr);
}

TEST_F(WinFind, findsAUsedEntryByItsTrimmedPath)
{
    App.Arrangements[7] = {.path = "/music/song   ", .used = true};
    App.Styles[0] = {.path = "/music/song", .used = true};
    EXPECT_EQ(ArrWinFind("/music/song"), 1);
    EXPECT_EQ(StyWinFind("/music/song"), 1);
    EXPECT_EQ(PrgWinFind("/music/song"), 0);
    EXPECT_EQ(ArrWinFind("/music/other"), 0);
    App.Styles[7] = {.path = "/music/last", .used = true};
    EXPECT_EQ(StyWinFind("/music/last"), 1);
    App.Arrangements[7].used = false;
    EXPECT_EQ(ArrWinFind("/music/song"), 0);
}

TEST_F(WinFind, letterCaseIsNoDifference)
{
    App.Arrangements[0] = {.path = "/music/Perch\xC3\x89", .used = true};
    EXPECT_EQ(ArrWinFind("/Music/PERCH\xC3\xA9"), 1);
}

TEST_F(WinFind, theNinthProgramWindowCountsAsNotOpen)
{
    App.Programs[7] = {.path = "/music/eighth", .used = true};
    App.Programs[8] = {.path = "/music/ninth", .used = true};
    EXPECT_EQ(PrgWinFind("/music/eighth"), 1);
    EXPECT_EQ(PrgWinFind("/music/ninth"), 0);
}

TEST_F(WinFind, aGlobalPathIsCutAndTheCutReachesTheCaller)
{
    App.Globals[0] = {.path = "/music/instrument", .used = true};
    App.Globals[8] = {.path = "/music/studio", .used = true};
    std::string withExtension = "/music/studio.gbl";
    EXPECT_EQ(GblWinFind(withExtension), 1);
    EXPECT_EQ(withExtension, "/music/studio");
    std::string without = "/music/studio";
    EXPECT_EQ(GblWinFind(without), 1);
    EXPECT_EQ(without, "/music/studio");
    std::string instrument = "/music/instrument";
    EXPECT_EQ(GblWinFind(instrument), 0) << "entry 0 is the instrument's own block";
    std::string shortest = "gbl";
    EXPECT_EQ(GblWinFind(shortest), 0);
    App.Globals[1] = {.path = "/music.a/b", .used = true};
    std::string pointInTheFolder = "/music.a/b";
    EXPECT_EQ(GblWinFind(pointInTheFolder), 1);
    EXPECT_EQ(pointInTheFolder, "/music.a/b") << "a folder's point begins no extension";
}

TEST_F(SlotFree, isTheLowestNumberOfEight)
{
    EXPECT_EQ(ArrSlotFree(), 1);
    App.Arrangements[0].used = App.Arrangements[1].used = App.Arrangements[3].used = true;
    EXPECT_EQ(ArrSlotFree(), 3);
    App.Styles[0].used = true;
    EXPECT_EQ(StySlotFree(), 2);
    App.NewArrangements[0].used = true;
    EXPECT_EQ(ArrNewSlotFree(), 2);
    for (int i = 0; i < 8; ++i)
        App.Programs[static_cast<std::size_t>(i)].used = true;
    EXPECT_EQ(PrgSlotFree(), 0);
    EXPECT_EQ(GblSlotFree(), 1);
    for (int i = 0; i < 8; ++i)
        App.Globals[static_cast<std::size_t>(i)].used = true; // 0 to 7: file 8 is left
    EXPECT_EQ(GblSlotFree(), 8);
    App.Globals[8].used = true;
    EXPECT_EQ(GblSlotFree(), 0);
}

TEST(RowCode, goesFrom11To18AndOnFrom21)
{
    EXPECT_EQ(rowCode(0), "11");
    EXPECT_EQ(rowCode(7), "18");
    EXPECT_EQ(rowCode(8), "21");
    EXPECT_EQ(rowCode(31), "48");
    EXPECT_EQ(rowCode(63), "88");
}
