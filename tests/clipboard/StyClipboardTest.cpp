// Styles between style windows, and the arrangement window that a style window belongs to.
#include "ClipRoom.h"

namespace
{

using StyClipboard = ClipRoom;

const std::vector<Style> Songs{{"Samba", 40, 1},  {"Tango", 50, 2}, {"- empty -", 30},
                               {"Valzer", 60, 3}, {"Polka", 70, 4}, {"- empty -", 30}};

std::string song() { return styTag(23, 1, "/m/song", Songs); }
std::string fresh(int number = 2) { return styTag(24, number, " (Untitled 2)", std::vector<Style>(4, Empty)); }

} // namespace

TEST_F(StyClipboard, styleByStyleIntoTheSlotsFromTheSelectedOneOn)
{
    DeskWindow source(song());
    DeskWindow target(fresh());
    source.select({0, 3, 5}).copy(); // slots 0, 3, 4
    target.select({1}).paste();
    EXPECT_EQ(target.styles(), styFile({Empty, Songs[0], Songs[3], Songs[4]}));
    EXPECT_EQ(target.text(0), "11  - empty -");
    EXPECT_EQ(target.text(1), "12  Samba");
    EXPECT_EQ(target.text(2), "13  Valzer");
    EXPECT_EQ(target.text(3), "14  Polka");
    EXPECT_EQ(target.at(9), 1);
    EXPECT_EQ(target.shown("Text1(0)"), "");
    EXPECT_EQ(target.shown("Text1(1)"), "40 ");
    EXPECT_EQ(target.shown("Text1(3)"), "70 ");
    EXPECT_EQ(target.shown("Text2(0)"), "1346 "); // 1176 + 40 + 60 + 70
    EXPECT_EQ(target.shown("Text2(1)"), "");
    EXPECT_EQ(target.shown("Text3"), "1570"); // 224 + 1346
    EXPECT_EQ(target.button("CommLoadStyGrp(0)"), "on");
    EXPECT_EQ(target.button("CommLoadStyGrp(1)"), "");
}

TEST_F(StyClipboard, theWalkCrossesTheBlankRowBetweenTwoGroups)
{
    DeskWindow source(song());
    DeskWindow target(fresh());
    source.selectRange(0, 1).copy();
    target.select({3}).paste(); // slot 3, then slot 4, which the file does not hold yet
    EXPECT_EQ(target.styles(), styFile({Empty, Empty, Empty, Songs[0], Songs[1]}));
    EXPECT_EQ(target.text(3), "14  Samba");
    EXPECT_EQ(target.text(4), " ");
    EXPECT_EQ(target.text(5), "15  Tango");
    EXPECT_EQ(target.shown("Text2(1)"), "50 ");
    EXPECT_EQ(target.button("CommLoadStyGrp(1)"), "on");
}

TEST_F(StyClipboard, aSeparatorAmongTheSelectedRowsIsPassedOver)
{
    DeskWindow source(song());
    DeskWindow target(fresh());
    source.selectRange(3, 5).copy(); // slot 3, the blank row, slot 4
    target.select({4, 5}).paste();
    EXPECT_EQ(target.styles(), styFile({Empty, Empty, Empty, Empty, Songs[3], Songs[4]}))
        << "one slot is selected, the fifth; once it is there the sixth has a place too";
    EXPECT_EQ(boxes(), Boxes{});
}

TEST_F(StyClipboard, aSlotBehindTheFirstAbsentOneHasNoPlace)
{
    DeskWindow source(song());
    DeskWindow target(fresh());
    const std::string before = target.styles();
    source.select({0}).copy();
    target.select({6}).paste(); // slot 5 of a file of four
    EXPECT_EQ(target.styles(), before);
    EXPECT_EQ(target.text(6), "16  ");
    EXPECT_EQ(target.at(9), 0);
    EXPECT_EQ(boxes(), Boxes{"Paste Arrangement/s|Not more than 4 styles per file are allowed"});
    target.select({6}).cut();
    EXPECT_EQ(target.styles(), before);
    EXPECT_EQ(target.at(9), 0);
    EXPECT_EQ(boxes(), Boxes{});
}

TEST_F(StyClipboard, anAbsentSourceIsToldAndItsSlotStays)
{
    DeskWindow source(song());
    DeskWindow target(fresh());
    source.select({1, 8}).copy(); // slot 1 and slot 7, which the file does not hold
    target.select({0}).paste();
    EXPECT_EQ(target.styles(), styFile({Songs[1], Empty, Empty, Empty}));
    EXPECT_EQ(boxes(), Boxes{"Paste Arrangement/s|Not more than 4 styles per file are allowed"});
}

TEST_F(StyClipboard, aStyleInUseIsNeverWrittenOver)
{
    DeskWindow source(song());
    const std::vector<Style> own{Empty, {"Mine", 90, 7}, Empty, Empty};
    DeskWindow target(styTag(23, 2, "/m/two", own));
    source.select({0, 1, 3}).copy();
    target.select({0}).paste();
    EXPECT_EQ(target.styles(), styFile({Songs[0], own[1], Empty, Empty})) << "the paste stops there";
    target.select({1}).paste();
    EXPECT_EQ(target.styles(), styFile({Songs[0], own[1], Empty, Empty}));
}

TEST_F(StyClipboard, aShorterStyleShrinksTheFileAndTheLaterSlotsKeepTheirNames)
{
    DeskWindow source(song());
    DeskWindow target(styTag(23, 2, "/m/two", {Empty, {"Mine", 90, 7}, Empty, {"Yours", 80, 8}, {"Last", 70, 9}}));
    source.select({0}).copy();
    target.select({2}).paste();
    EXPECT_EQ(target.styles(), styFile({Empty, {"Mine", 90, 7}, Songs[0], {"Yours", 80, 8}, {"Last", 70, 9}}));
    EXPECT_EQ(target.shown("Text3"), "1680"); // 224 + 1176 + 90 + 40 + 80 + 70
    target.list();
    EXPECT_EQ(target.text(3), "14  Yours");
    EXPECT_EQ(target.text(5), "15  Last");
}

TEST_F(StyClipboard, withSeveralRowsSelectedAPasteEndsWithTheSelection)
{
    DeskWindow source(song());
    DeskWindow target(fresh());
    source.select({0, 1, 3, 5}).copy();
    target.select({0, 1, 3}).paste();
    EXPECT_EQ(target.styles(), styFile({Songs[0], Songs[1], Empty, Empty}));
}

TEST_F(StyClipboard, theWalkEndsWithTheSixteenthSlot)
{
    DeskWindow source(song());
    DeskWindow target(styTag(23, 2, "/m/two", std::vector<Style>(16, Empty)));
    source.select({0, 1, 3}).copy();
    target.select({17}).paste();
    std::vector<Style> expected(16, Empty);
    expected[14] = Songs[0];
    expected[15] = Songs[1];
    EXPECT_EQ(target.styles(), styFile(expected));
    EXPECT_EQ(target.text(18), "28  Tango");
    EXPECT_EQ(target.shown("Text2(3)"), "2442 "); // 2 x 1176 + 40 + 50
}

TEST_F(StyClipboard, aGroupThatWouldGrowTooLongMarksTheWindowModifiedAllTheSame)
{
    DeskWindow source(styTag(23, 1, "/m/song", {{"Long", 1001, 1}, {"Short", 30, 2}}));
    const std::vector<Style> tight{{"- empty -", 100}, {"- empty -", 100}, {"C", 40000}, {"D", 39800}};
    DeskWindow target(styTag(23, 2, "/m/two", tight));
    source.select({0}).copy();
    target.select({0}).paste();
    EXPECT_EQ(target.styles(), styFile(tight));
    EXPECT_EQ(target.at(9), 1);
    EXPECT_EQ(boxes(), Boxes{"Paste Style|The lenght of a 4 Styles group must be less than 65496 bytes"});
    source.select({0, 1}).copy();
    target.select({0}).paste();
    EXPECT_EQ(target.styles(), styFile({tight[0], {"Short", 30, 2}, tight[2], tight[3]})) << "the next row goes on";
    run.speak(1);
    boxes();
    source.select({0}).copy();
    target.select({0}).paste();
    EXPECT_EQ(boxes(),
              Boxes{"Incolla Style/s|La lunghezza di un gruppo di 4 Styles deve essere inferiore a 65496 bytes"});
}

TEST_F(StyClipboard, anEmptyStyleAmongThoseCopiedIsCopiedAsItIs)
{
    DeskWindow source(song());
    DeskWindow target(fresh());
    source.selectRange(1, 3).copy();
    target.select({0}).paste();
    EXPECT_EQ(target.styles(), styFile({Songs[1], Songs[2], Songs[3], Empty}));
    EXPECT_EQ(target.text(1), "12  - empty -");
}

TEST_F(StyClipboard, cutMakesEmptyStylesAndKeepsTheButtons)
{
    DeskWindow window(song());
    window.selectRange(1, 5).cut(); // slots 1 to 4 and the blank row
    EXPECT_EQ(window.styles(), styFile({Songs[0], Empty, Empty, Empty, Empty, Songs[5]}));
    EXPECT_EQ(window.text(0), "11  Samba");
    for (const int row : {1, 2, 3})
        EXPECT_EQ(window.text(row), codeOf(row) + "  - empty -");
    EXPECT_EQ(window.text(4), " ");
    EXPECT_EQ(window.text(5), "15  - empty -");
    EXPECT_EQ(window.shown("Text1(4)"), "1176 ");
    EXPECT_EQ(window.shown("Text2(0)"), "3568 "); // 40 + 3 x 1176
    EXPECT_EQ(window.shown("Text2(1)"), "1206 "); // 1176 + 30
    EXPECT_EQ(window.shown("Text3"), "4998");     // 224 + 3568 + 1206
    EXPECT_EQ(window.at(9), 1);
    EXPECT_TRUE(window.outcome.buttons.empty());
}

TEST_F(StyClipboard, aStyleWithoutRoomForTheEmptyOneIsNotCut)
{
    const std::vector<Style> tight{{"Small", 1000, 1}, {"B", 30000}, {"C", 30000}, {"D", 18900}}; // 79900, 176 more
    DeskWindow window(styTag(23, 1, "/m/tight", tight));
    window.select({0}).cut();
    EXPECT_EQ(window.styles(), styFile(tight));
    EXPECT_EQ(window.text(0), "11  Small");
    EXPECT_EQ(window.at(9), 0);
    EXPECT_EQ(window.shown("Text1(0)"), "");
    EXPECT_EQ(boxes(), Boxes{});
    window.select({0, 1}).cut();
    EXPECT_EQ(window.styles(), styFile({tight[0], Empty, tight[2], tight[3]})) << "the next row goes on";
    EXPECT_EQ(window.at(9), 1);
}

TEST_F(StyClipboard, aPasteOfACutBringsTheStylesBack)
{
    DeskWindow window(song());
    window.select({0, 5}).cut();
    window.select({0, 5}).paste();
    EXPECT_EQ(window.styles(), styFile({Songs[0], Songs[1], Songs[2], Songs[3], Empty, Songs[5]}))
        << "the row behind the first is not selected: the second style waits";
    window.select({5}).paste();
    EXPECT_EQ(window.styles(), styFile({Songs[0], Songs[1], Songs[2], Songs[3], Songs[0], Songs[4]}))
        << "from the fifth slot on, the sixth being empty";
}

TEST_F(StyClipboard, aLinkedWindowPassesItsStylesOn)
{
    DeskWindow arrangements(arrTag(19, 4, "/m/song", {{0, {"My Samba", 0, 1}}}, Songs));
    DeskWindow window(song());
    App.Styles[0].linked = true;
    const std::string before = arrangements.bytes();
    window.select({1}).cut();
    EXPECT_EQ(window.outcome.alsoChanged, &arrangements.Tag);
    std::string expected = before.substr(0, 42622) + styFile({Songs[0], Empty, Songs[2], Songs[3], Songs[4], Songs[5]});
    expected[9] = 1;
    EXPECT_EQ(arrangements.bytes(), expected);
    window.select({2}).paste();
    EXPECT_EQ(arrangements.styles(), window.styles());
}

TEST_F(StyClipboard, aPasteThatIsRefusedPassesTheStylesOnAllTheSame)
{
    DeskWindow arrangements(arrTag(19, 4, "/m/full", {}, std::vector<Style>(4, Songs[0])));
    DeskWindow window(styTag(23, 1, "/m/full", std::vector<Style>(4, Songs[0])));
    App.Styles[0].linked = true;
    DeskWindow source(song());
    source.select({0}).copy();
    window.select({7}).paste(); // a slot that has no place
    EXPECT_EQ(boxes().size(), 1U);
    EXPECT_EQ(window.at(9), 0);
    EXPECT_EQ(window.outcome.alsoChanged, &arrangements.Tag);
    EXPECT_EQ(arrangements.at(9), 1);
    EXPECT_EQ(arrangements.styles(), styFile(std::vector<Style>(4, Songs[0])));
}

TEST_F(StyClipboard, aWindowOfItsOwnPassesNothingOn)
{
    DeskWindow arrangements(arrTag(19, 4, "/m/song", {}, Songs));
    DeskWindow window(song());
    const std::string before = arrangements.bytes();
    window.select({1}).cut();
    EXPECT_EQ(window.outcome.alsoChanged, nullptr);
    EXPECT_EQ(arrangements.bytes(), before);
    DeskWindow untitled(fresh(1));
    App.Styles[0].linked = true; // the entry of the file window with the same number
    untitled.select({1}).cut();
    EXPECT_EQ(untitled.outcome.alsoChanged, nullptr);
}

TEST_F(StyClipboard, aReadOnlyArrangementWindowIsNotWrittenTo)
{
    std::string tag = arrTag(19, 4, "/m/song", {}, Songs);
    tag[1] = 1;
    DeskWindow arrangements(tag);
    DeskWindow window(song());
    App.Styles[0].linked = true;
    window.select({1}).cut();
    EXPECT_EQ(arrangements.bytes(), tag);
}

TEST_F(StyClipboard, aStylePastedIntoALinkedWindowOfEmptySlotsIsWorthKeeping)
{
    DeskWindow source(song());
    DeskWindow arrangements(
        arrTag(19, 4, "/m/two", {})); // the area holds empty slots: such a file is dropped at a save
    DeskWindow window(styTag(23, 2, "/m/two", std::vector<Style>(4, Empty)));
    App.Styles[1].linked = true;
    source.select({0}).copy();
    window.select({0}).paste();
    EXPECT_EQ(arrangements.styles(), styFile({Songs[0], Empty, Empty, Empty}));
    EXPECT_EQ(arrangements.at(8), 2);
}
