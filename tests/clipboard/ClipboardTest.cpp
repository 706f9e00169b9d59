// The snapshot: what Copy keeps of a window and its rows, for each kind, and who may paste it.
#include "clipboard/EditItems.h"

#include "ClipRoom.h"

namespace
{

using ClipboardModel = ClipRoom;

const std::vector<Style> Two{{"Samba", 40, 1}, {"Tango", 50, 2}};

} // namespace

TEST_F(ClipboardModel, isEmptyUntilTheFirstCopy)
{
    EXPECT_TRUE(Clipboard.facts().clipboardEmpty);
    DeskWindow window(arrTag(19, 1, "/m/song", {{0, {"Ballad", 5, 0}}}));
    window.select({5}).paste();
    EXPECT_EQ(window.text(5), "16");
    window.select({0}).copy();
    EXPECT_FALSE(Clipboard.facts().clipboardEmpty);
    EXPECT_EQ(Clipboard.facts().sourceKind, 19);
}

TEST_F(ClipboardModel, keepsRowsAndMarksWhereTheKindHasThem)
{
    struct Case {
        std::string tag;
        int base;
        std::string text;
    };
    const Case cases[] = {
        {arrTag(19, 1, "/m/song", {{7, {"Ballad", 5, 1}}}), 10798, "18 +Ballad          "},
        {arrTag(20, 1, "/m/song", {{7, {"Ballad", 5, 0}}}), 10798, "18  Ballad          "},
        {arrBankTag(2, {{7, {"8 Beat", 5, 0}}}), 10798, "18  8 Beat          "},
        {arrBankTag(3, {{7, {"8 Beat", 5, 0}}}), 10798, "18  8 Beat          "},
        {prgTag(21, 1, "/m/song", {{7, {1, 0, 0, "Piano"}}}), 30750, "18 *Piano           "},
        {prgTag(22, 1, "/m/song", {{7, {2, 0, 0, "Piano"}}}), 30750, "18  Piano           "},
        {prgBankTag(4), 29, "18  Bank4 18        "},
        {prgBankTag(8), 29, "18  Bank8 18        "},
    };
    for (const Case& one : cases) {
        DeskWindow window(one.tag);
        window.select({7, 63}).copy();
        EXPECT_EQ(window.part(one.base + 21 * 7, 21), '\x01' + one.text);
        EXPECT_EQ(window.at(one.base), 0);
        EXPECT_EQ(window.at(one.base + 21 * 62), 0);
        EXPECT_EQ(window.at(one.base + 21 * 63), 1);
        EXPECT_EQ(Clipboard.BufferTagSorg, window.bytes()) << "source and snapshot agree";
        EXPECT_EQ(window.bytes().substr(0, static_cast<std::size_t>(one.base)),
                  one.tag.substr(0, static_cast<std::size_t>(one.base)));
        EXPECT_EQ(window.bytes().substr(static_cast<std::size_t>(one.base + 1344)),
                  one.tag.substr(static_cast<std::size_t>(one.base + 1344)));
    }
}

TEST_F(ClipboardModel, keepsNineteenRowsOfAStyleWindowAndNoMore)
{
    const std::string tag = styTag(23, 1, "/m/song", Two);
    DeskWindow window(tag);
    window.selectRange(0, 18).copy();
    EXPECT_EQ(window.part(270, 21), std::string("\x01"
                                                "11  Samba           ",
                                                21));
    EXPECT_EQ(window.part(270 + 21 * 4, 21), '\x01' + std::string(20, ' '));
    EXPECT_EQ(window.part(270 + 21 * 18, 21), '\x01' + std::string("28") + std::string(18, ' '));
    EXPECT_EQ(window.styles(), styFile(Two));
}

TEST_F(ClipboardModel, leavesKindsWithoutRowsAlone)
{
    DeskWindow source(arrTag(19, 1, "/m/song", {{0, {"Ballad", 5, 0}}}));
    source.select({0}).copy();
    const std::string snapshot = Clipboard.BufferTagSorg;
    for (const int kind : {9, 10, 11, 12, 13, 14, 15, 16, 17, 18, 25, 27, 28}) {
        WindowBuffer other = WindowBuffer::fresh(kind, 1);
        const std::string before = other.bytes();
        ListRows rows(64, {"11  Name", true});
        ClipCopy(other, rows);
        EXPECT_FALSE(ClipCut(other, rows).stored);
        EXPECT_FALSE(ClipPaste(other, rows).stored);
        EXPECT_EQ(other.bytes(), before) << kind;
        EXPECT_EQ(Clipboard.BufferTagSorg, snapshot) << kind;
    }
}

TEST_F(ClipboardModel, banksAreNeitherCutNorPastedUpon)
{
    for (const std::string& tag : {arrBankTag(2, {{0, {"8 Beat", 5, 0}}}), prgBankTag(6)}) {
        DeskWindow bank(tag);
        bank.select({0}).copy();
        const std::string before = bank.bytes();
        bank.cut();
        bank.paste();
        EXPECT_EQ(bank.bytes(), before);
    }
}

TEST_F(ClipboardModel, familiesNeverMix)
{
    DeskWindow arrangements(arrTag(19, 1, "/m/song", {{0, {"Ballad", 5, 0}}}));
    DeskWindow programs(prgTag(21, 1, "/m/song", {{0, {2, 0, 0, "Piano"}}}));
    DeskWindow styles(styTag(23, 1, "/m/song", {Two[0], Two[1], Empty}));
    DeskWindow* const windows[] = {&arrangements, &programs, &styles};
    for (DeskWindow* source : windows) {
        source->select({0}).copy();
        for (DeskWindow* target : windows)
            if (target != source) {
                const std::string before = target->bytes();
                target->select({2}).paste();
                EXPECT_EQ(target->bytes(), before);
                EXPECT_FALSE(target->outcome.stored);
            }
    }
}

TEST_F(ClipboardModel, anAbsentStyleCanBeCopiedThoughThereIsNothingToPaste)
{
    const ActiveRow absent{23, false, 18, "48  "};
    EXPECT_TRUE(editItems(absent, {}).copy);
    EXPECT_TRUE(editItems(absent, {false, 24}).paste);
}
