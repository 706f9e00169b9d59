// One style into one slot: what moves, what the table says, what is refused.
#include "clipboard/StyCopyInto.h"

#include "ClipRoom.h"

namespace
{

class StyCopy : public ClipRoom
{
protected:
    int put(const std::vector<Style>& source, int srcSlot, std::string& image, int dstSlot)
    {
        slot = 0;
        return StyCopyInto(slot, srcSlot, styFile(source), dstSlot, image);
    }
    int empty(std::string& image, int dstSlot, int mode = 1)
    {
        slot = mode;
        return StyCopyInto(slot, 0, {}, dstSlot, image);
    }
    int slot = 0; ///< what mode came back as
};

const std::vector<Style> Four{{"Alpha", 40, 1}, {"- empty -", 30}, {"Gamma", 50, 2}, {"Delta", 60, 3}};

/// Sixteen slots without a free one.
std::vector<Style> fullFile()
{
    std::vector<Style> styles;
    for (int i = 0; i < 16; ++i)
        styles.push_back({"Style " + std::to_string(i), 20 + i, i});
    return styles;
}

/// A first group of four whose lengths sum up to `sum`; its second slot is an empty one of 1000 bytes.
std::vector<Style> groupOf(int sum)
{
    return {{"One", 30000, 1}, {"- empty -", 1000}, {"Three", 30000, 2}, {"Four", sum - 61000, 3}, {"Five", 100, 4}};
}

} // namespace

TEST_F(StyCopy, aLongerStyleMovesTheBlocksBehindIt)
{
    std::string image = styFile(Four);
    EXPECT_EQ(put({{"New", 300, 9}}, 0, image, 1), 0);
    EXPECT_EQ(slot, 1);
    EXPECT_EQ(image, styFile({Four[0], {"New", 300, 9}, Four[2], Four[3]}));
}

TEST_F(StyCopy, aShorterStylePullsThemUpAndTheFileShrinks)
{
    std::string image = styFile(Four);
    EXPECT_EQ(put({{"New", 300, 9}, {"Tiny", 20, 8}}, 1, image, 0), 0);
    EXPECT_EQ(image, styFile({{"Tiny", 20, 8}, Four[1], Four[2], Four[3]}));
}

TEST_F(StyCopy, aStyleOfTheSameLengthMovesNothing)
{
    std::string image = styFile(Four);
    EXPECT_EQ(put({{"Same", 60, 9}}, 0, image, 3), 0);
    EXPECT_EQ(image, styFile({Four[0], Four[1], Four[2], {"Same", 60, 9}}));
}

TEST_F(StyCopy, lengthsOf256AndMoreStandLowByteFirst)
{
    std::string image = styFile(Four);
    EXPECT_EQ(put({{"Big", 0x1234, 9}}, 0, image, 0), 0);
    EXPECT_EQ(static_cast<unsigned char>(image[24]), 0x34);
    EXPECT_EQ(static_cast<unsigned char>(image[25]), 0x12);
    EXPECT_EQ(image.substr(22, 2), "\x16\x17") << "the two bytes ahead of a length are kept";
}

TEST_F(StyCopy, aSearchFindsTheNameFirst)
{
    std::string image = styFile(Four);
    EXPECT_EQ(put({{"Gamma", 999, 9}}, 0, image, 100), 1) << "by name alone: the bytes behind it may differ";
    EXPECT_EQ(slot, 2);
    EXPECT_EQ(image, styFile(Four));
}

TEST_F(StyCopy, aSearchTakesTheFirstEmptySlot)
{
    std::string image = styFile(Four);
    EXPECT_EQ(put({{"New", 44, 9}}, 0, image, 100), 0);
    EXPECT_EQ(slot, 1);
    EXPECT_EQ(image, styFile({Four[0], {"New", 44, 9}, Four[2], Four[3]}));
}

TEST_F(StyCopy, aSlotWithABlankNameCountsAsFree)
{
    std::string image = styFile({Four[0], {" ", 70, 5}, Four[2]});
    EXPECT_EQ(put({{"New", 44, 9}}, 0, image, 100), 0);
    EXPECT_EQ(slot, 1);
}

TEST_F(StyCopy, aFileThatIsNotFullGrowsByItsFirstAbsentSlot)
{
    const std::vector<Style> used{Four[0], Four[2]};
    std::string image = styFile(used);
    EXPECT_EQ(put({{"New", 44, 9}}, 0, image, 100), 0);
    EXPECT_EQ(slot, 2);
    EXPECT_EQ(image, styFile({Four[0], Four[2], {"New", 44, 9}}));
}

TEST_F(StyCopy, aStyleWithoutANameIsNotTakenForAnAbsentSlot)
{
    std::string image = styFile({Four[0]});
    EXPECT_EQ(put({{" ", 44, 9}}, 0, image, 100), 0);
    EXPECT_EQ(slot, 1);
}

TEST_F(StyCopy, sixteenFullSlotsTakeNoMore)
{
    std::string image = styFile(fullFile());
    EXPECT_EQ(put({{"New", 44, 9}}, 0, image, 100), 2);
    EXPECT_EQ(image, styFile(fullFile()));
    EXPECT_EQ(put({{"Style 15", 44, 9}}, 0, image, 100), 1) << "a style of that name still is shared";
    EXPECT_EQ(slot, 15);
}

TEST_F(StyCopy, aNamedSlotIsTakenUsedOrNot)
{
    std::string image = styFile(fullFile());
    EXPECT_EQ(put({{"New", 44, 9}}, 0, image, 15), 0);
    std::vector<Style> expected = fullFile();
    expected[15] = {"New", 44, 9};
    EXPECT_EQ(image, styFile(expected));
}

TEST_F(StyCopy, theFirstAbsentSlotHasAPlaceAndThoseBehindItHaveNone)
{
    std::string image = styFile(Four);
    for (int behind = 5; behind < 16; ++behind) {
        EXPECT_EQ(put({{"New", 44, 9}}, 0, image, behind), 2) << behind;
        EXPECT_EQ(empty(image, behind), 2) << behind;
    }
    EXPECT_EQ(image, styFile(Four));
    EXPECT_EQ(put({{"New", 44, 9}}, 0, image, 4), 0);
    EXPECT_EQ(image, styFile({Four[0], Four[1], Four[2], Four[3], {"New", 44, 9}}));
}

TEST_F(StyCopy, anAbsentSourceChangesNothing)
{
    std::string image = styFile(Four);
    EXPECT_EQ(put({{"New", 44, 9}}, 1, image, 1), 2);
    EXPECT_EQ(put({{"New", 44, 9}}, 1, image, 100), 2) << "an absent style has no name to be found by";
    EXPECT_EQ(put({{"New", 44, 9}}, 16, image, 1), 2);
    EXPECT_EQ(put({{"New", 44, 9}}, -1, image, 1), 2);
    EXPECT_EQ(image, styFile(Four));
    std::string behindAGap = styFile({{"New", 44, 9}, {"Gap", 0}, {"Behind", 50, 1}});
    slot = 0;
    EXPECT_EQ(StyCopyInto(slot, 2, behindAGap, 1, image), 2);
}

TEST_F(StyCopy, outsideTheSixteenSlotsNothingIsStored)
{
    std::string image = styFile(fullFile());
    for (const int outside : {16, 17, 99, -1, -100}) {
        EXPECT_EQ(put({{"New", 44, 9}}, 0, image, outside), 2) << outside;
        EXPECT_EQ(empty(image, outside), 2) << outside;
    }
    EXPECT_EQ(image, styFile(fullFile()));
}

TEST_F(StyCopy, anyOtherModeEmptiesTheSlot)
{
    for (const int mode : {1, 2, -1, 100}) {
        std::string image = styFile(Four);
        EXPECT_EQ(empty(image, 2, mode), 0);
        EXPECT_EQ(slot, 2);
        EXPECT_EQ(image, styFile({Four[0], Four[1], Empty, Four[3]}));
    }
}

TEST_F(StyCopy, emptyingABlockOfTheEmptyStylesLengthWritesOnlyTheBlock)
{
    std::string image = styFile({Four[0], {"Long", 1176, 4}, Four[3]});
    EXPECT_EQ(empty(image, 1), 0);
    EXPECT_EQ(image, styFile({Four[0], Empty, Four[3]}));
}

TEST_F(StyCopy, theEmptyStyleIsTheFirstOfTheTemplate)
{
    Files.StyEmptyBuffer = styFile({{"- empty -", 33, 7}, Empty, Empty, Empty});
    std::string image = styFile(Four);
    EXPECT_EQ(empty(image, 0), 0);
    EXPECT_EQ(image, styFile({{"- empty -", 33, 7}, Four[1], Four[2], Four[3]}));
    Files.StyEmptyBuffer.clear();
    EXPECT_EQ(empty(image, 1), 2);
}

TEST_F(StyCopy, aGroupGrowsToEightyThousandBytesAndNoFurther)
{
    struct Case {
        int sum;
        int growth;
        int result;
    };
    for (const Case& one : {Case{79000, 1000, 0}, Case{79000, 1001, 3}, Case{80000, 0, 0}, Case{80000, 1, 3},
                            Case{79999, 1, 0}, Case{80001, 1, 3}, Case{80001, 0, 0}, Case{80001, -1, 0}}) {
        const std::vector<Style> before = groupOf(one.sum);
        std::vector<Style> after = before;
        after[1] = {"New", 1000 + one.growth, 9};
        std::string image = styFile(before);
        EXPECT_EQ(put({after[1]}, 0, image, 1), one.result) << one.sum << " " << one.growth;
        EXPECT_EQ(image, styFile(one.result == 0 ? after : before));
        image = styFile(before);
        EXPECT_EQ(put({after[1]}, 0, image, 100), one.result) << "the same by search";
        EXPECT_EQ(image, styFile(one.result == 0 ? after : before));
    }
}

TEST_F(StyCopy, theLimitIsThatOfTheSlotsOwnGroup)
{
    std::vector<Style> styles = groupOf(80000);
    std::string image = styFile(styles);
    EXPECT_EQ(put({{"New", 60000, 9}}, 0, image, 4), 0);
    styles[4] = {"New", 60000, 9};
    EXPECT_EQ(image, styFile(styles));
}

TEST_F(StyCopy, emptyingIsHeldBackByTheLimitToo)
{
    const std::vector<Style> before = groupOf(80000); // the second slot has 1000 bytes, the empty style 1176
    std::string image = styFile(before);
    EXPECT_EQ(empty(image, 1), 3);
    EXPECT_EQ(image, styFile(before));
    EXPECT_EQ(empty(image, 0), 0) << "a long style gives way";
}

TEST_F(StyCopy, bytesBehindTheLastBlockStayThere)
{
    std::string image = styFile({{"Odd", 41, 1}}) + std::string("\xAA\xBB\xCC", 3);
    EXPECT_EQ(put({{"New", 44, 9}}, 0, image, 100), 0);
    EXPECT_EQ(image, styFile({{"Odd", 41, 1}, {"New", 44, 9}}) + std::string("\xAA\xBB\xCC", 3));
}

TEST_F(StyCopy, aFileShorterThanItsTableIsFilledWithZeros)
{
    std::string image = styFile({{"Alpha", 40, 1}, {"Beta", 50, 2}});
    const std::string whole = image;
    image.resize(image.size() - 20);
    EXPECT_EQ(put({{"New", 44, 9}}, 0, image, 2), 0);
    std::string expected = styFile({{"Alpha", 40, 1}, {"Beta", 50, 2}, {"New", 44, 9}});
    expected.replace(whole.size() - 20, 20, std::string(20, '\0'));
    EXPECT_EQ(image, expected);
}

TEST_F(StyCopy, aSourceShorterThanItsTableIsFilledWithZeros)
{
    std::string source = styFile({{"Alpha", 40, 1}});
    source.resize(source.size() - 10);
    std::string image = styFile(Four);
    slot = 0;
    EXPECT_EQ(StyCopyInto(slot, 0, source, 0, image), 0);
    std::string expected = styFile({{"Alpha", 40, 1}, Four[1], Four[2], Four[3]});
    expected.replace(224 + 30, 10, std::string(10, '\0'));
    EXPECT_EQ(image, expected);
}
