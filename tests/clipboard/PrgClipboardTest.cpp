// Programs between program windows, and references to the factory banks.
#include "ClipRoom.h"

namespace
{

using PrgClipboard = ClipRoom;

const Program Piano{2, 7, 8, "Piano"};
const Program Organ{3, 0, 0, "Organ"};
const Program Strings{1, 2, 40, "Strings"}; // program 40 of bank E

std::string song() { return prgTag(21, 1, "/m/song", {{0, Piano}, {2, Organ}, {3, Strings}}); }
std::string fresh() { return prgTag(22, 2, " (Untitled 2)", {}); }

std::string head(const DeskWindow& window) { return window.part(270, 4); }

} // namespace

TEST_F(PrgClipboard, aProgramIsCopiedWhole)
{
    DeskWindow source(song());
    DeskWindow target(fresh());
    source.select({0, 2}).copy();
    target.select({9}).paste();
    EXPECT_EQ(target.prgRecord(9), Piano.record());
    EXPECT_EQ(target.prgRecord(10), Organ.record());
    EXPECT_EQ(target.text(9), "22  Piano           ");
    EXPECT_EQ(target.text(10), "23  Organ           ");
    EXPECT_EQ(target.at(6), 1);
    EXPECT_EQ(head(target), "KORG");
    EXPECT_EQ(target.at(18), 0);
    EXPECT_EQ(target.button("CommLoad"), "on");
    EXPECT_EQ(target.part(274, 44), song().substr(274, 44)) << "the rest of the head";
}

TEST_F(PrgClipboard, aReferenceMakesTheFileAPggAndItsCutUndoesThat)
{
    DeskWindow source(song());
    DeskWindow target(fresh());
    source.select({3}).copy();
    target.select({0}).paste();
    EXPECT_EQ(target.prgRecord(0), Strings.record());
    EXPECT_EQ(target.text(0), "11 *Strings         ");
    EXPECT_EQ(head(target), "KPGG");
    EXPECT_EQ(target.at(18), 1);
    source.select({0}).copy();
    target.select({1}).paste();
    target.select({0}).cut();
    EXPECT_EQ(head(target), "KORG");
    EXPECT_EQ(target.at(18), 0);
    EXPECT_EQ(target.button("CommLoad"), "on") << "a program is left";
}

TEST_F(PrgClipboard, aFactoryProgramBecomesAReference)
{
    struct Case {
        int kind;
        int row;
        int bank;
        int number;
    };
    for (const Case& one : {Case{4, 10, 0, 10}, Case{5, 10, 0, 74}, Case{6, 10, 1, 10}, Case{7, 10, 1, 74},
                            Case{8, 10, 2, 10}, Case{4, 0, 0, 0}, Case{7, 63, 1, 127}}) {
        DeskWindow bank(prgBankTag(one.kind));
        DeskWindow target(fresh());
        bank.select({one.row}).copy();
        target.select({5}).paste();
        const std::string name = "Bank" + std::to_string(one.kind) + " " + codeOf(one.row);
        EXPECT_EQ(target.prgRecord(5), (Program{1, one.bank, one.number, name}).record());
        EXPECT_EQ(target.text(5), "16 *" + sixteen(name));
        EXPECT_EQ(head(target), "KPGG");
        EXPECT_EQ(target.at(18), 1);
        EXPECT_EQ(target.at(6), 1);
    }
}

TEST_F(PrgClipboard, aPasteStopsAtARowInUseAndAtTheLastRow)
{
    DeskWindow source(song());
    DeskWindow target(prgTag(21, 2, "/m/two", {{1, Organ}}));
    source.select({0, 2, 3}).copy();
    target.select({0}).paste();
    EXPECT_EQ(target.prgRecord(0), Piano.record());
    EXPECT_EQ(target.prgRecord(1), Organ.record());
    EXPECT_EQ(target.text(2), "13");
    target.select({63}).paste();
    EXPECT_EQ(target.text(63), "88  Piano           ");
    target.select({1}).paste();
    EXPECT_EQ(target.prgRecord(1), Organ.record());
}

TEST_F(PrgClipboard, aPasteThatFindsNoRoomChangesNothing)
{
    DeskWindow source(song());
    DeskWindow target(prgTag(21, 2, "/m/two", {{1, Organ}}));
    const std::string before = target.bytes();
    source.select({0}).copy();
    for (const int row : {1, -1}) {
        if (row < 0)
            target.select({});
        else
            target.select({row});
        target.paste();
        EXPECT_EQ(target.bytes(), before) << row;
        EXPECT_EQ(target.button("CommLoad"), "") << row;
    }
}

TEST_F(PrgClipboard, aFileThatSaysTheOtherKindIsSetRightByAPasteAndByACut)
{
    DeskWindow source(song());
    for (const bool cutting : {false, true}) {
        std::string tag = prgTag(21, 2, "/m/two", {{1, Organ}, {2, Piano}});
        tag.replace(270, 4, "KPGG");
        tag[18] = 1;
        DeskWindow target(tag);
        source.select({0}).copy();
        if (cutting)
            target.select({1}).cut();
        else
            target.select({9}).paste();
        EXPECT_EQ(head(target), "KORG");
        EXPECT_EQ(target.at(18), 0);
    }
}

TEST_F(PrgClipboard, withSeveralRowsSelectedAPasteEndsWithTheSelection)
{
    DeskWindow source(song());
    DeskWindow target(fresh());
    source.select({0, 2, 3}).copy();
    target.select({4, 5, 7}).paste();
    EXPECT_EQ(target.text(5), "16  Organ           ");
    EXPECT_EQ(target.text(6), "17");
    EXPECT_EQ(target.text(7), "18");
    EXPECT_EQ(head(target), "KORG");
}

TEST_F(PrgClipboard, aFreeRowAmongThoseCopiedTakesARowAndLeavesItFree)
{
    DeskWindow source(song());
    DeskWindow target(fresh());
    source.selectRange(0, 2).copy();
    target.select({0}).paste();
    EXPECT_EQ(target.text(0), "11  Piano           ");
    EXPECT_EQ(target.text(1), "12");
    EXPECT_EQ(target.text(2), "13  Organ           ");
    EXPECT_EQ(target.prgRecord(1), std::string(172, '\0'));
}

TEST_F(PrgClipboard, cuttingEverythingTurnsTheLoadOff)
{
    DeskWindow window(song());
    window.select({0, 2, 3}).cut();
    EXPECT_EQ(window.part(318, 172 * 64), std::string(172 * 64, '\0'));
    EXPECT_EQ(window.text(3), "14");
    EXPECT_EQ(head(window), "KORG");
    EXPECT_EQ(window.at(18), 0);
    EXPECT_EQ(window.at(5), 0);
    EXPECT_EQ(window.at(6), 1);
    EXPECT_EQ(window.button("CommLoad"), "off");
    for (const int row : {0, 2, 3})
        EXPECT_EQ(window.part(30750 + 21 * row, 21), '\0' + std::string(20, ' ')) << "the kept row is wiped";
}

TEST_F(PrgClipboard, cuttingOneOfTwoReferencesLeavesAPgg)
{
    DeskWindow window(prgTag(21, 1, "/m/song", {{0, Strings}, {1, Strings}, {2, Piano}}));
    window.select({0, 2}).cut();
    EXPECT_EQ(head(window), "KPGG");
    EXPECT_EQ(window.at(18), 1);
    EXPECT_EQ(window.at(5), 2);
    EXPECT_EQ(window.text(1), "12 *Strings         ");
}

TEST_F(PrgClipboard, aPasteOfACutBringsTheRowsBack)
{
    DeskWindow window(song());
    const std::string before = window.part(270, 30480);
    window.selectRange(0, 3).cut();
    window.select({0}).paste();
    EXPECT_EQ(window.part(270, 30480), before);
    EXPECT_EQ(window.text(1), "12");
    EXPECT_EQ(window.text(3), "14 *Strings         ");
    EXPECT_EQ(window.button("CommLoad"), "on");
}
