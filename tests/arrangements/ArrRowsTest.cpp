// What the list and the boxes of an arrangement window show.
#include "arrangements/ArrRows.h"
#include "ArrRoom.h"

class ArrRows : public ArrRoom
{
protected:
    static std::string imageOf(const std::vector<std::pair<std::size_t, Block>>& records,
                               const std::string& styles = {})
    {
        return arrImage("/music/song", arrFile(records), {}, styles);
    }
};

TEST_F(ArrRows, readCodeMarkAndNameWithTheMarkAsTheFourthCharacter)
{
    const std::string image =
        imageOf({{0, Block().name("Evergreen").style(2, 1)}, {9, Block().name("Bossa").style(5, 0)}});
    EXPECT_EQ(arrRowText(image, 0), "11 +Evergreen       ");
    EXPECT_EQ(arrRowText(image, 0)[3], '+');
    EXPECT_EQ(arrRowText(image, 9), "22  Bossa           ");
}

TEST_F(ArrRows, ofABankHaveNoMarkAndNameFactoryStylesWhateverTheFlag)
{
    for (const int kind : {2, 3}) {
        std::string image = imageOf({{0, Block().name("Odd One").style(5, 1)}});
        image[0] = static_cast<char>(kind);
        EXPECT_EQ(arrRowText(image, 0), "11  Odd One         ");
        EXPECT_EQ(arrStyleEntry(image, 0), "Testa Rock (A16)");
        EXPECT_EQ(arrStyleEntries(image), std::vector<std::string>{"Testa Rock (A16)"});
    }
}

TEST_F(ArrRows, ofUnusedRecordsAreTheCodeAlone)
{
    const std::string image = imageOf({{1, Block().name("X").style(1, 1).set(0, 0)}});
    EXPECT_EQ(arrRowText(image, 1), "12");
    EXPECT_EQ(arrRowText(image, 63), "88");
}

TEST_F(ArrRows, runFrom11To18And21OnWithout19And20)
{
    const auto rows = arrRowTexts(imageOf({}));
    ASSERT_EQ(rows.size(), 64u);
    EXPECT_EQ(rows[7], "18");
    EXPECT_EQ(rows[8], "21");
    EXPECT_EQ(rows[55], "78");
    EXPECT_EQ(rows[56], "81");
    for (const std::string& row : rows) {
        EXPECT_NE(row[1], '9');
        EXPECT_NE(row[1], '0');
    }
}

TEST_F(ArrRows, showBytesThatAreNoCharactersAsBlanksAndKeepLatin1)
{
    Block block = Block().name("Per\xF2");
    block.set(4, 0x7F).set(5, 0x9F).set(6, 'z').set(7, 0);
    EXPECT_EQ(arrRowText(imageOf({{0, block}}), 0), "11  Per\xF2  z         ");
}

TEST_F(ArrRows, countAsEmptyWhenNothingStandsBehindTheCode)
{
    EXPECT_TRUE(isEmptyRowText("11"));
    EXPECT_TRUE(isEmptyRowText(arrRowText(imageOf({{0, Block().name("")}}), 0))) << "a name of blanks";
    EXPECT_FALSE(isEmptyRowText(arrRowText(imageOf({{0, Block().name("").style(0, 1)}}), 0)));
}

TEST_F(ArrRows, tellWhetherAnythingCanBeLoaded)
{
    EXPECT_FALSE(anyArrUsed(imageOf({})));
    EXPECT_TRUE(anyArrUsed(imageOf({{63, Block().name("Last")}})));
}

TEST_F(ArrRows, listEachFactoryStyleOnceInTheOrderOfItsFirstUse)
{
    const std::string image = imageOf({{0, Block().name("One").style(127, 0)},
                                       {1, Block().name("Two").style(5, 0)},
                                       {2, Block().name("Three").style(127, 0)},
                                       {3, Block().style(0, 0)}});
    EXPECT_EQ(arrStyleEntries(image), (std::vector<std::string>{"Omega (B88)", "Testa Rock (A16)"}));
}

TEST_F(ArrRows, listNothingForABankThatIsNoneAndStillTheFactoryStyleOfThatNumber)
{
    const std::string image = imageOf({{0, Block().name("One").style(5, 2)},
                                       {1, Block().name("Two").style(200, 0)},
                                       {2, Block().name("Three").style(5, 0)}});
    EXPECT_EQ(arrStyleEntries(image), (std::vector<std::string>{"Testa Rock (A16)"}));
}

TEST_F(ArrRows, listTheFilesOwnStylesBehindTheFactoryOnes)
{
    Slots slots(16, {"- empty -", 20});
    slots[0] = {"Groove", 30};
    slots[7] = {"Eighth", 25};
    slots[8] = {"Ninth", 25};
    slots[15] = {"Last", 40};
    const std::string image =
        imageOf({{0, Block().name("One").style(7, 1)}, {1, Block().name("Two").style(5, 0)}}, styFile(slots));
    EXPECT_EQ(arrStyleEntries(image), (std::vector<std::string>{"Testa Rock (A16)", "Groove (U11)", "Eighth (U18)",
                                                                "Ninth (U21)", "Last (U28)"}));
}

TEST_F(ArrRows, listNoStyleBehindTheFirstAbsentSlot)
{
    const std::string image = imageOf({{0, Block().name("One").style(5, 0)}}, styFile({{"Groove", 30}, {"Swing", 30}}));
    EXPECT_EQ(arrStyleEntries(image), (std::vector<std::string>{"Testa Rock (A16)", "Groove (U11)", "Swing (U12)"}));
}

TEST_F(ArrRows, nameTheStyleOfTheRow)
{
    const std::string styles = styFile({{"Groove", 30}, {"Swing", 30}});
    const std::string image = imageOf({{0, Block().name("One").style(64, 0)},
                                       {1, Block().name("Two").style(1, 1)},
                                       {2, Block().name("3").style(10, 9)}},
                                      styles);
    Names.StyNames[64] = "Bee One         ";
    EXPECT_EQ(arrStyleEntry(image, 0), "Bee One (B11)");
    EXPECT_EQ(arrStyleEntry(image, 1), "Swing (U12)");
    EXPECT_EQ(arrStyleEntry(image, 2), " (A23)") << "the factory rule with no name";
    EXPECT_EQ(arrStyleEntry(imageOf({{0, Block().name("One").style(3, 1)}}), 0), "UserStyle3 (U14)");
}

TEST_F(ArrRows, haveAnIdOnlyWithADatabaseNumber)
{
    EXPECT_EQ(arrIdText(305, 63), "30588");
    EXPECT_EQ(arrIdText(3, 0), "311");
    EXPECT_EQ(arrIdText(0, 0), "");
    EXPECT_EQ(arrIdText(-1, 0), "");
}

TEST_F(ArrRows, needTheProgramFileForBankDAlone)
{
    const std::string image = imageOf({{0, Block().name("A").track(8, 64, 1)},
                                       {1, Block().name("B").track(8, 63, 1)},
                                       {2, Block().name("C").track(0, 64, 0).track(1, 64, 3)},
                                       {3, Block().name("D").track(0, 127, 1)}});
    EXPECT_TRUE(arrUsesBankD(image, 0));
    EXPECT_FALSE(arrUsesBankD(image, 1));
    EXPECT_FALSE(arrUsesBankD(image, 2));
    EXPECT_TRUE(arrUsesBankD(image, 3));
}
