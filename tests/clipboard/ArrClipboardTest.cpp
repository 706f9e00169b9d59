// Arrangements between windows, and the user styles that go along.
#include "ClipRoom.h"

namespace
{

using ArrClipboard = ClipRoom;

const std::vector<Style> Songs{{"Samba", 40, 1}, {"Tango", 50, 2}, {"- empty -", 30}, {"Valzer", 60, 3}};

/// Factory styles in rows 0 and 2, user styles in 1, 3 and 5; 1 and 5 share theirs.
Arrangements songRows()
{
    return {{0, {"Ballad", 5, 0}},
            {1, {"My Samba", 0, 1}},
            {2, {"Rock", 127, 0}},
            {3, {"My Tango", 1, 1}},
            {5, {"Samba Two", 0, 1}}};
}

std::string song(int number = 1) { return arrTag(19, number, "/m/song", songRows(), Songs); }
std::string bare(int number = 2, int kind = 19) { return arrTag(kind, number, "/m/bare", {}); }

/// The record as it stands after a paste that gave it user style `slot`.
std::string withSlot(Arrangement arrangement, int slot)
{
    arrangement.style = slot;
    arrangement.flag = 1;
    return arrangement.record();
}

constexpr int Full = 16;
std::vector<Style> fullFile()
{
    std::vector<Style> styles;
    for (int i = 0; i < Full; ++i)
        styles.push_back({"Full " + std::to_string(i), 20 + i, i});
    return styles;
}

} // namespace

TEST_F(ArrClipboard, aFactoryStyleKeepsItsNumber)
{
    DeskWindow source(song());
    DeskWindow target(bare());
    source.select({0, 2}).copy();
    target.select({7}).paste();
    EXPECT_EQ(target.arrRecord(7), (Arrangement{"Ballad", 5, 0}).record());
    EXPECT_EQ(target.arrRecord(8), (Arrangement{"Rock", 127, 0}).record());
    EXPECT_EQ(target.text(7), "18  Ballad          ");
    EXPECT_EQ(target.text(8), "21  Rock            ");
    EXPECT_EQ(target.at(2), 2);
    EXPECT_EQ(target.at(3), 1);
    EXPECT_EQ(target.at(9), 0) << "no style moved";
    EXPECT_EQ(target.at(8), 1);
    EXPECT_EQ(target.button("CommLoadArr"), "on");
    EXPECT_EQ(target.button("CommLoadAll"), "on");
    EXPECT_EQ(target.button("CommLoadSty"), "");
    EXPECT_TRUE(target.outcome.stored);
}

TEST_F(ArrClipboard, aUserStyleGoesAlongAndIsRenumbered)
{
    DeskWindow source(song());
    DeskWindow target(bare());
    source.select({3}).copy();
    target.select({0}).paste();
    EXPECT_EQ(target.arrRecord(0), withSlot({"My Tango"}, 0));
    EXPECT_EQ(target.text(0), "11 +My Tango        ");
    EXPECT_EQ(target.styles(), styFile({Songs[1], Empty, Empty, Empty}));
    EXPECT_EQ(target.at(3), 1);
    EXPECT_EQ(target.at(8), 2);
    EXPECT_EQ(target.at(9), 1);
    for (const char* name : {"CommLoadArr", "CommLoadAll", "CommLoadSty", "CommShowSty"})
        EXPECT_EQ(target.button(name), "on") << name;
}

TEST_F(ArrClipboard, twoArrangementsOfOneStyleShareIt)
{
    DeskWindow source(song());
    DeskWindow target(bare());
    source.select({1, 5}).copy();
    target.select({0}).paste();
    EXPECT_EQ(target.arrRecord(0), withSlot({"My Samba"}, 0));
    EXPECT_EQ(target.arrRecord(1), withSlot({"Samba Two"}, 0));
    EXPECT_EQ(target.styles(), styFile({Songs[0], Empty, Empty, Empty}));
}

TEST_F(ArrClipboard, aStyleOfThatNameAlreadyThereIsShared)
{
    DeskWindow source(song());
    const std::vector<Style> own{{"Other", 33, 7}, {"Samba", 44, 8}};
    DeskWindow target(arrTag(19, 2, "/m/two", {{0, {"Old", 1, 1}}}, own));
    source.select({1}).copy();
    target.select({1}).paste();
    EXPECT_EQ(target.arrRecord(1), withSlot({"My Samba"}, 1));
    EXPECT_EQ(target.styles(), styFile(own));
    EXPECT_EQ(target.at(2), 2);
    EXPECT_EQ(target.at(3), 1);
    EXPECT_EQ(target.at(9), 0);
    EXPECT_EQ(target.button("CommLoadArr"), "on");
    EXPECT_EQ(target.button("CommLoadSty"), "");
}

TEST_F(ArrClipboard, aNewArrangementWindowTakesThemTheSameWay)
{
    DeskWindow source(song());
    DeskWindow target(bare(1, 20));
    source.select({0, 1}).copy();
    target.select({63}).paste();
    EXPECT_EQ(target.arrRecord(63), (Arrangement{"Ballad", 5, 0}).record());
    EXPECT_EQ(target.styles(), styFile(std::vector<Style>(4, Empty))) << "the rows have ended";
    EXPECT_EQ(target.button("CommLoadArr"), "on");
    EXPECT_EQ(target.button("CommLoadAll"), "") << "the window has no such button";
}

TEST_F(ArrClipboard, banksGiveTheirArrangements)
{
    for (const int kind : {2, 3}) {
        DeskWindow bank(arrBankTag(kind, {{0, {"8 Beat", 3, 0}}, {63, {"Last", 100, 0}}}));
        DeskWindow target(bare());
        bank.select({0, 63}).copy();
        target.select({2}).paste();
        EXPECT_EQ(target.arrRecord(2), (Arrangement{"8 Beat", 3, 0}).record());
        EXPECT_EQ(target.arrRecord(3), (Arrangement{"Last", 100, 0}).record());
    }
}

TEST_F(ArrClipboard, aBankRecordThatClaimsAUserStyleBringsNone)
{
    DeskWindow bank(arrBankTag(2, {{0, {"Edited", 3, 1}}, {1, {"8 Beat", 4, 0}}}));
    DeskWindow target(bare());
    const std::string styles = target.styles();
    bank.select({0, 1}).copy();
    target.select({0}).paste();
    EXPECT_EQ(boxes(), Boxes{"Paste Arrangement/s|Not more than 4 styles per file are allowed"});
    EXPECT_EQ(target.text(0), "11");
    EXPECT_EQ(target.text(1), "12  8 Beat          ");
    EXPECT_EQ(target.styles(), styles);
}

TEST_F(ArrClipboard, withSixteenFullSlotsTheRowStaysEmptyAndEachIsTold)
{
    DeskWindow source(song());
    DeskWindow target(arrTag(19, 2, "/m/full", {}, fullFile()));
    source.select({0, 1, 3, 5}).copy();
    target.select({0}).paste();
    EXPECT_EQ(boxes(), Boxes(3, "Paste Arrangement/s|Not more than 4 styles per file are allowed"));
    EXPECT_EQ(target.text(0), "11  Ballad          ");
    for (const int row : {1, 2, 3}) {
        EXPECT_EQ(target.text(row), codeOf(row));
        EXPECT_EQ(target.arrRecord(row), std::string(164, '\0'));
    }
    EXPECT_EQ(target.styles(), styFile(fullFile()));
    run.speak(1);
    target.select({1}).paste();
    EXPECT_EQ(boxes().back(), "Incolla Arrangement|Non sono consentiti più di 4 stili per file");
}

TEST_F(ArrClipboard, aGroupThatWouldGrowTooLongIsToldAndTheNextRowGoesOn)
{
    DeskWindow source(arrTag(19, 1, "/m/long", {{0, {"Long", 0, 1}}, {1, {"Short", 1, 1}}},
                             {{"Longest", 2001, 1}, {"Little", 900, 2}}));
    DeskWindow target(arrTag(19, 2, "/m/two", {}, {{"A", 30000}, {"B", 30000}, {"C", 19000}, {"- empty -", 1000}}));
    source.select({0, 1}).copy();
    target.select({0}).paste();
    EXPECT_EQ(boxes(), Boxes{"Paste Arrangement/s|The lenght of a 4 Styles group must be less than 65496 bytes"});
    EXPECT_EQ(target.text(0), "11");
    EXPECT_EQ(target.arrRecord(1), withSlot({"Short"}, 3));
    EXPECT_EQ(target.styles(), styFile({{"A", 30000}, {"B", 30000}, {"C", 19000}, {"Little", 900, 2}}));
}

TEST_F(ArrClipboard, withoutAStyleAreaThePasteStopsAndWhatWasPastedStands)
{
    DeskWindow source(song());
    std::string tag = bare();
    tag.resize(42622);
    tag[8] = 0;
    DeskWindow target(tag);
    source.select({0, 1, 2}).copy();
    target.select({0}).paste();
    EXPECT_EQ(boxes(), Boxes{"File .sty assente|generic error"});
    EXPECT_EQ(target.text(0), "11  Ballad          ");
    EXPECT_EQ(target.text(1), "12");
    EXPECT_EQ(target.text(2), "13");
    EXPECT_EQ(target.arrRecord(0), (Arrangement{"Ballad", 5, 0}).record());
    EXPECT_EQ(target.at(3), 1);
}

TEST_F(ArrClipboard, aSlotThatNoFileHasStopsThePasteWithNothingStored)
{
    for (const int slot : {16, 17, 127, 255}) {
        DeskWindow source(
            arrTag(19, 1, "/m/odd", {{0, {"Good", 5, 0}}, {1, {"Odd", slot, 1}}, {2, {"After", 6, 0}}}, Songs));
        DeskWindow target(bare());
        const std::string before = target.bytes();
        source.select({0, 1, 2}).copy();
        target.select({0}).paste();
        EXPECT_EQ(boxes(), Boxes{});
        EXPECT_EQ(target.bytes(), before) << slot;
        EXPECT_EQ(target.text(0), "11");
        EXPECT_FALSE(target.outcome.stored);
        EXPECT_EQ(target.button("CommLoadArr"), "");
    }
}

TEST_F(ArrClipboard, aPasteStopsAtTheFirstRowInUse)
{
    DeskWindow source(song());
    DeskWindow target(arrTag(19, 2, "/m/two", {{2, {"Mine", 1, 0}}}));
    source.select({0, 1, 2, 3}).copy();
    target.select({0}).paste();
    EXPECT_EQ(target.text(0), "11  Ballad          ");
    EXPECT_EQ(target.text(1), "12 +My Samba        ");
    EXPECT_EQ(target.arrRecord(2), (Arrangement{"Mine", 1, 0}).record());
    EXPECT_EQ(target.text(3), "14");
    target.select({0}).paste();
    EXPECT_EQ(target.text(0), "11  Ballad          ") << "a second paste finds the rows used";
    EXPECT_EQ(target.text(3), "14");
}

TEST_F(ArrClipboard, aRowInUseUnderABlankNameIsNotPastedUpon)
{
    DeskWindow source(song());
    DeskWindow target(arrTag(19, 2, "/m/two", {{0, {" ", 1, 0}}}));
    source.select({0}).copy();
    target.select({0}).paste();
    EXPECT_EQ(target.arrRecord(0), (Arrangement{" ", 1, 0}).record());
}

TEST_F(ArrClipboard, withSeveralRowsSelectedAPasteEndsWithTheSelection)
{
    DeskWindow source(song());
    DeskWindow target(bare());
    source.select({0, 1, 2, 3}).copy();
    target.select({4, 5, 7}).paste();
    EXPECT_EQ(target.text(4), "15  Ballad          ");
    EXPECT_EQ(target.text(5), "16 +My Samba        ");
    EXPECT_EQ(target.text(6), "17") << "the first row no longer selected";
    EXPECT_EQ(target.text(7), "18");
}

TEST_F(ArrClipboard, aFreeRowAmongThoseCopiedTakesARowAndLeavesItFree)
{
    DeskWindow source(song());
    DeskWindow target(bare());
    source.selectRange(3, 5).copy(); // row 4 is free
    target.select({0}).paste();
    EXPECT_EQ(target.text(0), "11 +My Tango        ");
    EXPECT_EQ(target.text(1), "12");
    EXPECT_EQ(target.text(2), "13 +Samba Two       ");
    EXPECT_EQ(target.arrRecord(1), std::string(164, '\0'));
}

TEST_F(ArrClipboard, aPasteWithoutASelectedRowChangesNothing)
{
    DeskWindow source(song());
    DeskWindow target(bare());
    const std::string before = target.bytes();
    source.select({0}).copy();
    target.select({}).paste();
    EXPECT_EQ(target.bytes(), before);
}

TEST_F(ArrClipboard, theStyleCountsNotTheMarkThatTheListStillShows)
{
    // The editor has given row 0 a user style and row 1 a factory one; the list keeps the marks of before.
    DeskWindow source(arrTag(19, 1, "/m/song", {{0, {"Now User", 1, 1}}, {1, {"Now Factory", 100, 0}}}, Songs));
    source.rows[0].text[3] = ' ';
    source.rows[1].text[3] = '+';
    DeskWindow target(bare());
    source.select({0, 1}).copy();
    target.select({0}).paste();
    EXPECT_EQ(target.arrRecord(0), withSlot({"Now User"}, 0));
    EXPECT_EQ(target.text(0), "11 +Now User        ");
    EXPECT_EQ(target.arrRecord(1), (Arrangement{"Now Factory", 100, 0}).record());
    EXPECT_EQ(target.text(1), "12  Now Factory     ");
}

TEST_F(ArrClipboard, cuttingOneOfTwoUsersLeavesTheStyleAndTheLastTakesItAlong)
{
    DeskWindow window(song());
    window.select({1}).cut();
    EXPECT_EQ(window.arrRecord(1), std::string(164, '\0'));
    EXPECT_EQ(window.text(1), "12");
    EXPECT_EQ(window.styles(), styFile(Songs));
    EXPECT_EQ(window.at(2), 2);
    EXPECT_EQ(window.at(3), 1);
    EXPECT_EQ(window.at(9), 0);
    window.select({5}).cut();
    EXPECT_EQ(window.styles(), styFile({Empty, Songs[1], Songs[2], Songs[3]}));
    EXPECT_EQ(window.at(9), 1);
    EXPECT_EQ(window.at(8), 2) << "other styles are left";
    EXPECT_EQ(window.button("CommLoadSty"), "on");
    for (const char* name : {"CommLoadArr", "CommLoadAll", "CommEdit"})
        EXPECT_EQ(window.button(name), "on") << name;
}

TEST_F(ArrClipboard, bothUsersInOneCutTakeTheStyleAlong)
{
    DeskWindow window(song());
    window.select({1, 5}).cut();
    EXPECT_EQ(window.styles(), styFile({Empty, Songs[1], Songs[2], Songs[3]}));
}

TEST_F(ArrClipboard, aFactoryNumberIsNoUserOfThatSlot)
{
    DeskWindow window(arrTag(19, 1, "/m/song", {{0, {"User", 1, 1}}, {1, {"Factory", 1, 0}}}, Songs));
    window.select({0}).cut();
    EXPECT_EQ(window.styles(), styFile({Songs[0], Empty, Songs[2], Songs[3]}));
}

TEST_F(ArrClipboard, cuttingTheLastRowTurnsTheLoadsOff)
{
    DeskWindow window(arrTag(19, 1, "/m/one", {{0, {"User", 0, 1}}}, {{"Samba", 40, 1}, Empty}));
    window.select({0}).cut();
    EXPECT_EQ(window.styles(), styFile({Empty, Empty}));
    EXPECT_EQ(window.at(8), 1) << "only empty styles are left";
    EXPECT_EQ(window.at(2), 2);
    for (const char* name : {"CommLoadArr", "CommLoadAll", "CommEdit", "CommLoadSty", "CommShowSty"})
        EXPECT_EQ(window.button(name), "off") << name;
}

TEST_F(ArrClipboard, aNewArrangementWindowCutEmptyDiffersFromNothingSent)
{
    DeskWindow window(arrTag(20, 1, " (Untitled 1)", {{0, {"Factory", 9, 0}}, {1, {"Rock", 4, 0}}}));
    window.select({0}).cut();
    EXPECT_EQ(window.at(2), 2);
    EXPECT_EQ(window.button("CommLoadArr"), "on");
    EXPECT_EQ(window.button("CommEdit"), "");
    window.select({1}).cut();
    EXPECT_EQ(window.at(2), 0);
    EXPECT_EQ(window.at(3), 1);
    EXPECT_EQ(window.button("CommLoadArr"), "off");
    EXPECT_EQ(window.button("CommLoadAll"), "");
}

TEST_F(ArrClipboard, aSlotThatNoFileHasStopsACutAndWhatWasCutStands)
{
    for (const int slot : {16, 200}) {
        DeskWindow window(
            arrTag(19, 1, "/m/odd", {{0, {"First", 0, 1}}, {1, {"Odd", slot, 1}}, {2, {"After", 6, 0}}}, Songs));
        window.select({0, 1, 2}).cut();
        EXPECT_EQ(window.text(0), "11");
        EXPECT_EQ(window.styles(), styFile({Empty, Songs[1], Songs[2], Songs[3]}));
        EXPECT_EQ(window.arrRecord(1), (Arrangement{"Odd", slot, 1}).record());
        EXPECT_EQ(window.text(2), "13  After           ");
        EXPECT_EQ(window.button("CommLoadArr"), "on");
        EXPECT_TRUE(window.outcome.stored);
    }
}

TEST_F(ArrClipboard, aCutWithoutAStyleAreaIsToldAndTheNextRowGoesOn)
{
    std::string tag = arrTag(19, 1, "/m/none", {{0, {"User", 0, 1}}, {1, {"Factory", 3, 0}}, {2, {"Stays", 3, 0}}});
    tag.resize(42622);
    tag[8] = 0;
    DeskWindow window(tag);
    window.select({0, 1}).cut();
    EXPECT_EQ(boxes(), Boxes{"File .sty assente|generic error"});
    EXPECT_EQ(window.text(0), "11");
    EXPECT_EQ(window.text(1), "12");
    EXPECT_EQ(window.at(8), 0);
    EXPECT_EQ(window.at(9), 0);
    EXPECT_EQ(window.button("CommLoadSty"), "");
    EXPECT_EQ(window.button("CommLoadArr"), "on");
}

TEST_F(ArrClipboard, aStyleWithoutRoomForTheEmptyOneStaysUsedByNobody)
{
    const std::vector<Style> tight{{"Small", 1000, 1}, {"B", 30000}, {"C", 30000}, {"D", 19000}};
    DeskWindow window(arrTag(19, 1, "/m/tight", {{0, {"User", 0, 1}}}, tight));
    window.select({0}).cut();
    EXPECT_EQ(window.text(0), "11");
    EXPECT_EQ(window.styles(), styFile(tight));
    EXPECT_EQ(boxes(), Boxes{});
}

TEST_F(ArrClipboard, aRecordThatNamesAnAbsentSlotIsCutAndNoStyleGoes)
{
    DeskWindow window(arrTag(19, 1, "/m/odd", {{0, {"Odd", 9, 1}}, {1, {"Stays", 0, 1}}}, Songs));
    window.select({0}).cut();
    EXPECT_EQ(window.text(0), "11");
    EXPECT_EQ(window.styles(), styFile(Songs));
    EXPECT_EQ(window.at(9), 1) << "the style area counts as changed all the same";
    EXPECT_EQ(window.outcome.openAgain, nullptr);
    EXPECT_EQ(boxes(), Boxes{});
}

TEST_F(ArrClipboard, aCutStateFollowsNamesNotUsers)
{
    // The file was read with styles, but all of them are empty ones: a cut of any row finds that out.
    DeskWindow window(arrTag(19, 1, "/m/none", {{0, {"A", 3, 0}}, {1, {"B", 4, 0}}}, {Empty, Empty}));
    ASSERT_EQ(window.at(8), 2);
    window.select({0}).cut();
    EXPECT_EQ(window.at(8), 1);
    EXPECT_EQ(window.button("CommLoadSty"), "off");
    EXPECT_EQ(window.at(9), 0);
}

TEST_F(ArrClipboard, aPasteOfACutBringsRowsAndStylesBack)
{
    DeskWindow window(song());
    window.select({1, 3, 5}).cut();
    EXPECT_EQ(window.styles(), styFile({Empty, Empty, Songs[2], Songs[3]}));
    window.select({40}).paste();
    EXPECT_EQ(window.arrRecord(40), withSlot({"My Samba"}, 0));
    EXPECT_EQ(window.arrRecord(41), withSlot({"My Tango"}, 1));
    EXPECT_EQ(window.arrRecord(42), withSlot({"Samba Two"}, 0));
    EXPECT_EQ(window.styles(), styFile(Songs));
}

TEST_F(ArrClipboard, theSnapshotOutlivesItsWindowAndItsEdits)
{
    DeskWindow target(bare());
    {
        DeskWindow source(song());
        source.select({3}).copy();
        source.Tag.bytes().replace(302 + 164 * 3, 4, "XXXX");
    }
    target.select({0}).paste();
    EXPECT_EQ(target.arrRecord(0), withSlot({"My Tango"}, 0));
    target.select({1}).paste();
    EXPECT_EQ(target.arrRecord(1), withSlot({"My Tango"}, 0)) << "one snapshot, many pastes";
}

TEST_F(ArrClipboard, aCutThatEmptiesAStyleBringsTheLinkedStyleWindowUpToDate)
{
    DeskWindow window(song());
    DeskWindow styles(styTag(23, 3, "/m/song", Songs));
    App.Styles[2].linked = true;
    window.select({1}).cut();
    EXPECT_EQ(window.outcome.openAgain, nullptr) << "the style has another user";
    window.select({5}).cut();
    EXPECT_EQ(window.outcome.openAgain, &styles.Tag);
    EXPECT_EQ(styles.styles(), styFile({Empty, Songs[1], Songs[2], Songs[3]}));
    EXPECT_EQ(styles.bytes().substr(0, 669), styTag(23, 3, "/m/song", Songs).substr(0, 669));
}

TEST_F(ArrClipboard, aStyleWindowOfItsOwnOrOfAnotherFileIsLeftAlone)
{
    DeskWindow window(song());
    DeskWindow unlinked(styTag(23, 3, "/m/song", Songs));
    window.select({3}).cut();
    EXPECT_EQ(window.outcome.openAgain, nullptr);
    EXPECT_EQ(unlinked.styles(), styFile(Songs));
    unlinked.Tag.setPath("/m/other");
    App.Styles[2].linked = true;
    window.select({1, 5}).cut();
    EXPECT_EQ(window.outcome.openAgain, nullptr);
    EXPECT_EQ(unlinked.styles(), styFile(Songs));
}

TEST_F(ArrClipboard, aStyleThatComesWithAPasteReachesTheLinkedStyleWindow)
{
    DeskWindow source(song());
    DeskWindow window(arrTag(19, 2, "/m/two", {}, {{"Own", 33, 7}, Empty}));
    DeskWindow styles(styTag(23, 1, "/m/two", {{"Own", 33, 7}, Empty}));
    App.Styles[0].linked = true;
    source.select({1}).copy();
    window.select({0}).paste();
    EXPECT_EQ(window.outcome.openAgain, &styles.Tag);
    EXPECT_EQ(styles.styles(), styFile({{"Own", 33, 7}, Songs[0]}));
    source.select({0}).copy();
    window.select({1}).paste();
    EXPECT_EQ(window.outcome.openAgain, nullptr) << "no style came along";
}
