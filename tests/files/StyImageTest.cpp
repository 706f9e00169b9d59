// The catalogue of a style file: lengths, places and names of its slots, in a file image and in window buffers.
#include "files/StyImage.h"

#include "files/FilesFixture.h"

#include <random>

namespace
{

std::vector<StyleBlock> sixteen()
{
    std::vector<StyleBlock> slots;
    for (int i = 0; i < 16; ++i)
        slots.push_back({"Style " + std::to_string(i), 700 + 13 * i});
    return slots;
}

std::string empties(int count)
{
    return styleFile(std::vector<StyleBlock>(static_cast<std::size_t>(count), {"- empty -", 1176}));
}

} // namespace

TEST(StySlotLen, isTheTwoBytesOfTheEntryLowByteFirst)
{
    std::string image = styleFile({});
    image[24 + 4 * 5] = '\xCD';
    image[25 + 4 * 5] = '\xAB';
    EXPECT_EQ(StySlotLen(5, image), 0xABCD);
    EXPECT_EQ(StySlotLen(4, image), 0);
    EXPECT_EQ(StySlotLen(16, image), 0);
    EXPECT_EQ(StySlotLen(-1, image), 0);
    EXPECT_EQ(StySlotLen(0, ""), 0);
}

TEST(StySlotPos, isOneBasedAndBehindTheBlocksBefore)
{
    const std::string image = styleFile(sixteen());
    EXPECT_EQ(StySlotPos(0, image), 225);
    EXPECT_EQ(StySlotPos(1, image), 925);  // 225 + 700
    EXPECT_EQ(StySlotPos(3, image), 2364); // 225 + 700 + 713 + 726
    EXPECT_EQ(image.substr(2364 - 1, 7), "Style 3");
}

TEST(StySlotPos, isZeroBehindAnAbsentSlot)
{
    const std::string image = styleFile({{"One", 700}, {"", 0}, {"Three", 700}, {"Four", 700}});
    EXPECT_EQ(StySlotPos(1, image), 925);
    EXPECT_EQ(StySlotPos(2, image), 0);
    EXPECT_EQ(StySlotPos(3, image), 0);
    EXPECT_EQ(StySlotPos(0, styleFile({})), 225);
}

TEST(StySlotNameInFile, isTrimmedOnTheRightAloneAndTestsNoLength)
{
    const std::string image = styleFile({{"  Valzer  ", 700}, {"", 0}, {"Sixteen letters!", 30}});
    EXPECT_EQ(StySlotNameInFile(0, image), "  Valzer");
    EXPECT_EQ(StySlotNameInFile(1, image), "Sixteen letters!"); // an absent slot stands where the next begins
    EXPECT_EQ(StySlotNameInFile(2, image), "Sixteen letters!");
    EXPECT_EQ(StySlotNameInFile(3, image), "");
}

TEST(StySlotNameInFile, aTableThatPromisesMoreThanTheFileHoldsGivesShortNames)
{
    std::string image = styleFile({{"Valzer Lento", 700}, {"Mazurka", 700}});
    image.resize(224 + 700 + 3);
    EXPECT_EQ(StySlotNameInFile(0, image), "Valzer Lento");
    EXPECT_EQ(StySlotNameInFile(1, image), "Maz");
    image.resize(224 + 5);
    EXPECT_EQ(StySlotNameInFile(0, image), "Valze");
    EXPECT_EQ(StySlotNameInFile(1, image), "");
    EXPECT_EQ(StySlotLen(1, image), 700);
}

TEST(StyGroupLen, addsTheFourSlotsOfTheGroup)
{
    const std::string image = styleFile(sixteen());
    EXPECT_EQ(StyGroupLen(0, image), 2878); // 700 + 713 + 726 + 739
    EXPECT_EQ(StyGroupLen(3, image), 2878);
    EXPECT_EQ(StyGroupLen(4, image), 3086);  // 752 + 765 + 778 + 791
    EXPECT_EQ(StyGroupLen(11, image), 3294); // 804 + 817 + 830 + 843
    EXPECT_EQ(StyGroupLen(15, image), 3502); // 856 + 869 + 882 + 895
}

TEST(StyGroupLen, aSlotAboveFifteenCountsAsTheFirstGroup)
{
    const std::string image = styleFile(sixteen());
    EXPECT_EQ(StyGroupLen(16, image), 2878);
    EXPECT_EQ(StyGroupLen(200, image), 2878);
}

TEST(StyBuffer, kindsReadTheirStyleFileAtTheirOwnBase)
{
    const std::string image = styleFile(sixteen());
    for (const int kind : {23, 24, 19, 20, 2, 0}) {
        const std::string buffer = windowWith(kind, image);
        EXPECT_EQ(styleFileOffset(buffer), kind == 23 || kind == 24 ? 669 : 42622) << kind;
        EXPECT_EQ(StySlotName(0, buffer), "Style 0") << kind;
        EXPECT_EQ(StySlotName(15, buffer), "Style 15") << kind;
        EXPECT_EQ(StyGroupLenFull(5, buffer), 224 + 3086) << kind;
        EXPECT_EQ(StyFileLen(buffer), 224 + 2878 + 3086 + 3294 + 3502) << kind;
    }
}

TEST(StySlotPosArr, countsInTheWindowBuffer)
{
    const std::string buffer = windowWith(19, styleFile({{"One", 700}, {"Two", 801}, {"", 0}, {"Four", 9}}));
    EXPECT_EQ(StySlotPosArr(0, buffer), 42847);
    EXPECT_EQ(StySlotPosArr(1, buffer), 43547);
    EXPECT_EQ(StySlotPosArr(2, buffer), 44348);
    EXPECT_EQ(StySlotPosArr(3, buffer), 0);
    EXPECT_EQ(StySlotLenArr(1, buffer), 801);
    EXPECT_EQ(buffer.substr(43546, 3), "Two");
}

TEST(StyGroupCount, theLastSlotWithANameOfItsOwnDecides)
{
    for (const auto& [slot, count] :
         std::vector<std::pair<int, int>>{{0, 1}, {3, 1}, {4, 2}, {7, 2}, {8, 3}, {11, 3}, {12, 4}, {15, 4}}) {
        std::vector<StyleBlock> slots(16, {"- empty -", 100});
        slots[static_cast<std::size_t>(slot)].name = "Mine";
        EXPECT_EQ(StyGroupCount(windowWith(23, styleFile(slots))), count) << slot;
        EXPECT_EQ(StyGroupCount(windowWith(19, styleFile(slots))), count) << slot;
    }
}

TEST(StyGroupCount, sixteenEmptySlotsCountNone) { EXPECT_EQ(StyGroupCount(windowWith(23, empties(16))), 0); }

TEST(StyGroupCount, aFileOfFourSlotsCountsFourGroupsEvenWhenAllAreEmpty)
{
    EXPECT_EQ(StyGroupCount(windowWith(23, empties(4))), 4);
    EXPECT_EQ(StyGroupCount(windowWith(20, builtInStyTemplate())), 4);
    EXPECT_EQ(StyGroupCount(windowWith(23, styleFile({{"One", 20}, {"Two", 20}, {"Three", 20}, {"Four", 20}}))), 4);
}

TEST(StyFileLen, anAllZeroTableGives224)
{
    EXPECT_EQ(StyFileLen(windowWith(23, styleFile({}))), 224);
    EXPECT_EQ(StyFileLen(windowWith(19, "")), 224);
}

TEST(StyFileLen, stopsAtTheFirstAbsentSlotAndAtSixteen)
{
    EXPECT_EQ(StyFileLen(windowWith(23, styleFile({{"One", 700}, {"", 0}, {"Three", 900}}))), 924);
    std::string image = styleFile(sixteen());
    image[24 + 4 * 16] = '\x10'; // a seventeenth entry would stand here
    EXPECT_EQ(StyFileLen(windowWith(23, image)), 224 + 12760);
}

TEST(StyFileLen, believesTheTableMoreThanTheFile)
{
    EXPECT_EQ(StyFileLen(windowWith(23, styleFile({{"One", 700}}).substr(0, 300))), 924);
}

TEST(ArrHasUserStyle, looksForANameOfItsOwnBeforeTheFirstAbsentSlot)
{
    EXPECT_EQ(ArrHasUserStyle(windowWith(19, empties(4))), 0);
    EXPECT_EQ(ArrHasUserStyle(windowWith(19, styleFile({{"- empty -", 90}, {"Mine", 90}}))), 1);
    EXPECT_EQ(ArrHasUserStyle(windowWith(19, styleFile({{"- empty -", 90}, {"", 0}, {"Mine", 90}}))), 0);
    EXPECT_EQ(ArrHasUserStyle(windowWith(19, "")), 0);
}

TEST(BuiltInStyTemplate, hasFourEmptySlotsAtTheStatedPlaces)
{
    const std::string image = builtInStyTemplate();
    ASSERT_EQ(image.size(), 4928u);
    EXPECT_EQ(hex(image.substr(0, 7)), "4B 4F 52 47 4D 00 04");
    EXPECT_EQ(hex(image.substr(24, 18)), "98 04 00 00 98 04 00 00 98 04 00 00 98 04 00 00 00 00");
    for (const std::size_t place : {224u, 1400u, 2576u, 3752u})
        EXPECT_EQ(image.substr(place, 16), "- empty -       ");
}

TEST(StyImage, garbageOfAnyLengthNeverLeadsOutsideIt)
{
    std::mt19937 random(20240607);
    const std::vector<int> kinds{0, 2, 9, 14, 19, 20, 21, 22, 23, 24, 25, 255};
    for (int round = 0; round < 400; ++round) {
        std::string image(random() % (round % 2 == 0 ? 400 : 45000), '\0');
        for (char& byte : image)
            byte = static_cast<char>(random());
        for (const int kind : kinds) {
            std::string buffer = image;
            if (!buffer.empty())
                buffer[0] = static_cast<char>(kind);
            for (int slot = -2; slot < 20; ++slot) {
                const int length = StySlotLen(slot, buffer);
                EXPECT_TRUE(length >= 0 && length <= 65535);
                EXPECT_LE(StySlotNameInFile(slot, buffer).size(), 16u);
                EXPECT_LE(StySlotName(slot, buffer).size(), 16u);
                EXPECT_GE(StySlotPos(slot, buffer), 0);
                EXPECT_GE(StySlotPosArr(slot, buffer), 0);
                EXPECT_LE(StyGroupLen(slot, buffer), 4 * 65535);
            }
            const int count = StyGroupCount(buffer);
            EXPECT_TRUE(count >= 0 && count <= 4);
            const int fileLength = StyFileLen(buffer);
            EXPECT_TRUE(fileLength >= 224 && fileLength <= 224 + 16 * 65535);
            const int has = ArrHasUserStyle(buffer);
            EXPECT_TRUE(has == 0 || has == 1);
        }
    }
}
