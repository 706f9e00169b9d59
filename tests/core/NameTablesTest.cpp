// The instrument's own names: programs, drum kits, styles, effects, pedals.
#include "core/NameTables.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace
{

struct NameTables : testing::Test {
    NameTables()
    {
        Names = {};
        NameTablesBuild();
    }
};

} // namespace

TEST_F(NameTables, haveTheStatedSizes)
{
    for (const ByteBuffer& block : Names.PrgNames)
        EXPECT_EQ(block.size(), 1024U);
    EXPECT_EQ(Names.DrumKitNames.size(), 256U);
    EXPECT_EQ(Names.StyNames.size(), 128U);
    for (const ByteBuffer& name : Names.StyNames)
        EXPECT_EQ(name.size(), 16U);
}

TEST_F(NameTables, padEveryNameWithBlanks)
{
    EXPECT_EQ(Names.PrgNames[0].substr(0, 32), "Piano 1         Piano 2         ");
    EXPECT_EQ(Names.DrumKitNames.substr(14 * 16), "(User 1)        (User 2)        ");
    EXPECT_EQ(Names.StyNames[127], "New Age         ");
}

TEST_F(NameTables, keepEveryNameOfTheInstrument)
{
    std::string all;
    for (const ByteBuffer& block : Names.PrgNames)
        all += block;
    all += Names.DrumKitNames;
    for (const ByteBuffer& name : Names.StyNames)
        all += name;
    std::uint64_t hash = 0xcbf29ce484222325ULL; // FNV-1a
    for (const char c : all)
        hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001b3ULL;
    EXPECT_EQ(hash, 0x4ee9c96b46cf5e0cULL);
}

TEST_F(NameTables, findProgramsByBlockAndIndex)
{
    EXPECT_EQ(programName(0, 0), "Piano 1");
    EXPECT_EQ(programName(0, 63), "Syn.Brass2");
    EXPECT_EQ(programName(1, 0), "SopranoSax");
    EXPECT_EQ(programName(1, 63), "Gun Shot");
    EXPECT_EQ(programName(2, 0), "90's Piano");
    EXPECT_EQ(programName(2, 63), "Stz<Brass");
    EXPECT_EQ(programName(3, 6), "Small^Orch");
    EXPECT_EQ(programName(3, 63), "Explosion");
    EXPECT_EQ(programName(4, 0), "Piano&Strgs");
    EXPECT_EQ(programName(4, 63), "Brass Fall") << "no full stop";
}

TEST_F(NameTables, findDrumKitsAndStyles)
{
    EXPECT_EQ(drumKitName(0), "GM Kit 1");
    EXPECT_EQ(drumKitName(13), "SFX Kit");
    EXPECT_EQ(drumKitName(15), "(User 2)");
    EXPECT_EQ(factoryStyleName(0), "8 Beat 1");
    EXPECT_EQ(factoryStyleName(63), "Disco Samba");
    EXPECT_EQ(factoryStyleName(64), "I. Waltz");
    EXPECT_EQ(factoryStyleName(127), "New Age");
}

TEST_F(NameTables, areLatin1)
{
    EXPECT_EQ(factoryStyleName(61), "Tikytikit\xE0");
    EXPECT_EQ(factoryStyleName(61).size(), 10U);
}

TEST_F(NameTables, areEmptyOutside)
{
    EXPECT_EQ(programName(-1, 0), "");
    EXPECT_EQ(programName(5, 0), "");
    EXPECT_EQ(programName(0, -1), "");
    EXPECT_EQ(programName(0, 64), "");
    EXPECT_EQ(drumKitName(-1), "");
    EXPECT_EQ(drumKitName(16), "");
    EXPECT_EQ(factoryStyleName(-1), "");
    EXPECT_EQ(factoryStyleName(128), "");
}

TEST(NameTablesBefore, areEmptyUntilBuilt)
{
    Names = {};
    EXPECT_EQ(programName(0, 0), "");
    EXPECT_EQ(drumKitName(0), "");
    EXPECT_EQ(factoryStyleName(0), "");
}

TEST_F(NameTables, haveThePedalCodesWith22TwiceAnd19Nowhere)
{
    const std::array<int, 52> expected = {0,  1,  2,  47, 3,  38, 37, 4,  5,  6,  7,  8,  9,  10, 11, 12, 13, 14,
                                          15, 16, 17, 18, 22, 20, 21, 22, 23, 24, 25, 26, 27, 28, 29, 39, 40, 41,
                                          42, 44, 45, 46, 48, 49, 50, 51, 52, 30, 43, 31, 32, 33, 34, 53};
    EXPECT_EQ(Names.PedalCodes, expected);
    EXPECT_EQ(std::count(Names.PedalCodes.begin(), Names.PedalCodes.end(), 22), 2);
    EXPECT_EQ(std::count(Names.PedalCodes.begin(), Names.PedalCodes.end(), 19), 0);
}
