// Lists shorter than their windows', files shorter than their tables, windows that belong to nobody.
#include "ClipRoom.h"

#include "clipboard/EditItems.h"
#include "clipboard/LinkedStyles.h"
#include "clipboard/StyCopyInto.h"

namespace
{

using ClipOdd = ClipRoom;

const std::vector<Style> Songs{{"Samba", 40, 1}, {"Tango", 50, 2}, {"- empty -", 30}, {"Valzer", 60, 3}};

} // namespace

TEST_F(ClipOdd, aListThatIsShorterThanItsWindowLeavesTheOtherRowsBlank)
{
    std::string buffer = styTag(23, 1, "/m/song", Songs);
    ListRows rows(19, {"x", true});
    rows.resize(3);
    keepRows(buffer, rows);
    for (int row = 0; row < 19; ++row) {
        EXPECT_EQ(isMarked(buffer, row), row < 3) << row;
        EXPECT_EQ(keptText(buffer, row), (row < 3 ? "x" : " ") + std::string(19, ' ')) << row;
    }
    EXPECT_EQ(buffer.substr(669), styFile(Songs)) << "the file behind the rows";
    EXPECT_FALSE(isMarked(buffer, -1));
    EXPECT_FALSE(isMarked(buffer, 19));
    EXPECT_EQ(keptText(buffer, 19), "");
}

TEST_F(ClipOdd, aBufferThatIsTooShortForItsRowsGetsRoom)
{
    std::string buffer = headOf(23, 1, "/m/song");
    keepRows(buffer, ListRows(19, {"row", false}));
    EXPECT_EQ(buffer.size(), 669u);
    EXPECT_EQ(keptText(buffer, 18), "row" + std::string(17, ' '));
}

TEST_F(ClipOdd, slotsOutsideTheSixteenHaveNoRow)
{
    EXPECT_EQ(StyRowOf(-1), -1);
    EXPECT_EQ(StyRowOf(0), 0);
    EXPECT_EQ(StyRowOf(15), 18);
    EXPECT_EQ(StyRowOf(16), -1);
}

TEST_F(ClipOdd, aStyleWindowWithTooFewRowsIsNeitherCutNorPastedInto)
{
    DeskWindow source(styTag(23, 1, "/m/song", Songs));
    DeskWindow target(styTag(24, 2, " (Untitled 2)", std::vector<Style>(4, Empty)));
    source.select({0}).copy();
    target.select({1});
    const std::string before = target.styles();
    target.rows.pop_back();
    EXPECT_FALSE(ClipPaste(target.Tag, target.rows).stored);
    EXPECT_FALSE(ClipCut(target.Tag, target.rows).stored);
    EXPECT_TRUE(target.styles() == before);
    EXPECT_EQ(target.at(9), 0) << "nothing is modified";
    target.rows.push_back({});
    source.copy();
    EXPECT_TRUE(ClipPaste(target.Tag, target.rows).stored);
    EXPECT_FALSE(target.styles() == before);
    EXPECT_TRUE(ClipCut(target.Tag, target.rows).stored);
}

TEST_F(ClipOdd, aFileThatEndsBeforeASlotIsFilledWithZerosUpToIt)
{
    std::string image = styFile(Songs);
    image.resize(224 + 40 + 50 - 10); // within the second block; the fourth begins 40 bytes behind the end
    int slot = 0;
    EXPECT_EQ(StyCopyInto(slot, 0, styFile({{"New", 20, 9}}), 3, image), StyCopyResult::Stored);
    std::string wanted =
        styFile(Songs).substr(0, 224 + 40 + 50 - 10) + std::string(10 + 30, '\0') + Style{"New", 20, 9}.block();
    wanted[24 + 4 * 3] = 20;
    EXPECT_EQ(image, wanted);
}

TEST_F(ClipOdd, windowsWithoutRowsOfferNothing)
{
    for (const int kind : {0, 1, 9, 18, 25, 26})
        for (const int source : {2, 19, 21, 23}) {
            const EditItems items = editItems({kind, false, 0, "11  Name"}, {false, source});
            EXPECT_FALSE(items.copy || items.cut || items.paste) << kind;
        }
}

TEST_F(ClipOdd, aStyleWindowThatNobodyOpenedFromAnArrangementIsLinkedToNone)
{
    WindowBuffer arrangements{arrTag(19, 1, "/m/song", {}, Songs)};
    WindowBuffer styles{styTag(23, 1, "/m/song", Songs)};
    OpenWindows::add(&arrangements);
    OpenWindows::add(&styles);
    EXPECT_EQ(linkedStyleWindow(arrangements), nullptr);
    EXPECT_EQ(linkedArrangementWindow(styles), nullptr);
    App.Styles[0].linked = true;
    EXPECT_EQ(linkedStyleWindow(arrangements), &styles);
    EXPECT_EQ(linkedArrangementWindow(styles), &arrangements);
    arrangements.set(WindowLayout::ReadOnlyOffset, 1);
    EXPECT_EQ(linkedArrangementWindow(styles), nullptr);
    arrangements.set(WindowLayout::ReadOnlyOffset, 0);
    for (const int number : {0, 200}) {
        styles.set(WindowLayout::WindowNumberOffset, number);
        EXPECT_EQ(linkedArrangementWindow(styles), nullptr) << "no session record has this number";
    }
    styles.set(WindowLayout::WindowNumberOffset, 1);
    OpenWindows::remove(&arrangements);
    EXPECT_EQ(linkedArrangementWindow(styles), nullptr);
    OpenWindows::remove(&styles);
}
