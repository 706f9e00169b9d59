// The arrangement database: whether it is there, and the number of a file.
#include "DBArrRoom.h"

namespace
{

class Database : public DBArrRoom
{
protected:
    void put(const std::vector<Row>& rows) { state.put("TvlDBArr", database(rows, "/music/live")); }
    void expectBox(const std::string& text)
    {
        ASSERT_EQ(user.warnings.size(), 1u);
        EXPECT_EQ(user.warnings[0].title, "Edit TvlDBArr");
        EXPECT_EQ(user.warnings[0].text, text);
        user.warnings.clear();
    }
};

} // namespace

using DBArrPresent_ = Database;
using DBArrLookup_ = Database;

TEST_F(DBArrPresent_, isTrueForTheSignatureAlone)
{
    put({});
    EXPECT_TRUE(DBArrPresent(true));
    state.put("TvlDBArr", "TvlDBArr");
    EXPECT_TRUE(DBArrPresent(true));
    EXPECT_TRUE(user.warnings.empty());
}

TEST_F(DBArrPresent_, anAbsentFileIsCode6AndLeavesNothingBehind)
{
    EXPECT_FALSE(DBArrPresent(false));
    EXPECT_TRUE(user.warnings.empty());
    EXPECT_FALSE(DBArrPresent(true));
    expectBox("File TvlDBArr assente");
    App.LanguageBase = 200;
    EXPECT_FALSE(DBArrPresent(true));
    expectBox("File TvlDBArrnot found");
    EXPECT_EQ(state.fileCount(), 0u);
}

TEST_F(DBArrPresent_, anEmptyFileIsDeleted)
{
    state.put("TvlDBArr", "");
    EXPECT_FALSE(DBArrPresent(true));
    expectBox("File TvlDBArr assente");
    EXPECT_EQ(state.fileCount(), 0u);
}

TEST_F(DBArrPresent_, eachWrongByteOfTheSignatureIsCode7AndTheFileStays)
{
    for (std::size_t place = 0; place < 8; ++place) {
        std::string file = database({}, "/music/live");
        file[place] = '?';
        state.put("TvlDBArr", file);
        EXPECT_FALSE(DBArrPresent(false));
        EXPECT_TRUE(user.warnings.empty());
        EXPECT_FALSE(DBArrPresent(true));
        expectBox("File TvlDBArr errato");
        EXPECT_EQ(state.get("TvlDBArr"), file);
    }
    App.LanguageBase = 200;
    state.put("TvlDBArr", "Tvl");
    EXPECT_FALSE(DBArrPresent(true));
    expectBox("File TvlDBArrdata error");
}

TEST_F(DBArrPresent_, aFolderInItsPlaceIsNotADatabaseAndStays)
{
    std::filesystem::create_directory(state.file("TvlDBArr"));
    EXPECT_FALSE(DBArrPresent(true));
    expectBox("File TvlDBArr assente");
    EXPECT_TRUE(state.has("TvlDBArr"));
}

TEST_F(DBArrLookup_, givesTheIdOfAFileOfTheWorkingFolder)
{
    put({{"Alba", 3}, {"Balera", 258}, {"my.song", 999}});
    EXPECT_EQ(DBArrLookup("/music/live/Alba.arr"), 3);
    EXPECT_EQ(DBArrLookup("/music/live/Balera.ARR"), 258);
    EXPECT_EQ(DBArrLookup("/music/live/my.song.arr"), 999);
    EXPECT_EQ(DBArrLookup("/music/live/my.song"), 999);
    EXPECT_EQ(DBArrLookup("/music/live/Zeta.arr"), 0);
}

TEST_F(DBArrLookup_, aNameEqualButForCaseMatches)
{
    put({{"BALERA", 7}, {"Perch\xC3\x89", 8}});
    EXPECT_EQ(DBArrLookup("/music/live/balera.arr"), 7);
    EXPECT_EQ(DBArrLookup("/music/live/perch\xC3\xA9.arr"), 8);
}

TEST_F(DBArrLookup_, aFileOfAnotherFolderHasNone)
{
    put({{"Alba", 3}});
    EXPECT_EQ(DBArrLookup("/music/Alba.arr"), 0);
    EXPECT_EQ(DBArrLookup("/music/live/old/Alba.arr"), 0);
    EXPECT_EQ(DBArrLookup("Alba.arr"), 0);
}

TEST_F(DBArrLookup_, longNamesThatAgreeIn24CharactersAreOneFile)
{
    put({{"ABCDEFGHIJKLMNOPQRSTUVWX", 12}});
    EXPECT_EQ(DBArrLookup("/music/live/ABCDEFGHIJKLMNOPQRSTUVWXYZ.arr"), 12);
    EXPECT_EQ(DBArrLookup("/music/live/ABCDEFGHIJKLMNOPQRSTUVW.arr"), 0);
}

TEST_F(DBArrLookup_, stopsAtTheFirstEmptyRecord)
{
    std::string file = database({{"Alba", 3}, {"Balera", 4}, {"Canto", 5}}, "/music/live");
    file[52 + 26] = '\0';
    state.put("TvlDBArr", file);
    EXPECT_EQ(DBArrLookup("/music/live/Alba.arr"), 3);
    EXPECT_EQ(DBArrLookup("/music/live/Canto.arr"), 0);
}

TEST_F(DBArrLookup_, andTheListEndsThereToo)
{
    std::string file = database({{"Alba", 3}, {"Balera", 4}, {"Canto", 5}}, "/music/live");
    file[52 + 26] = '\0';
    const std::vector<DBArrRow> rows = dbArrRows(file);
    ASSERT_EQ(rows.size(), 3U);
    EXPECT_EQ(rows[1].name, "TvlArrB");
    EXPECT_EQ(rows[2].name, "Alba.arr");
    EXPECT_EQ(rows[2].id, 3);
}

TEST_F(DBArrLookup_, readsAllOf997Records)
{
    std::vector<Row> rows;
    for (int i = 0; i < 997; ++i)
        rows.push_back({"song" + std::to_string(1000 + i), 3 + i});
    put(rows);
    EXPECT_EQ(DBArrLookup("/music/live/song1996.arr"), 999);
    EXPECT_EQ(DBArrLookup("/music/live/song1997.arr"), 0);
}

TEST_F(DBArrLookup_, anEmptyOrAbsentDatabaseHasNoneAndLeavesNothingBehind)
{
    EXPECT_EQ(DBArrLookup("/music/live/Alba.arr"), 0);
    state.put("TvlDBArr", "");
    EXPECT_EQ(DBArrLookup("/music/live/Alba.arr"), 0);
    EXPECT_EQ(state.fileCount(), 0u);
    state.put("TvlDBArr", "something else");
    EXPECT_EQ(DBArrLookup("/music/live/Alba.arr"), 0);
    EXPECT_EQ(state.get("TvlDBArr"), "something else");
    EXPECT_TRUE(user.warnings.empty());
}

TEST_F(DBArrLookup_, aDatabaseThatCannotBeReadHasNoneAndSaysNothing)
{
    std::filesystem::create_directory(state.file("TvlDBArr"));
    EXPECT_EQ(DBArrLookup("/music/live/Alba.arr"), 0);
    EXPECT_TRUE(user.warnings.empty());
    EXPECT_TRUE(state.has("TvlDBArr"));
}

TEST_F(DBArrLookup_, anotherSignatureHidesEvenAFileThatIsListed)
{
    std::string file = database({{"Alba", 3}}, "/music/live");
    file[7] = 'R';
    state.put("TvlDBArr", file);
    EXPECT_EQ(DBArrLookup("/music/live/Alba.arr"), 0);
    EXPECT_EQ(state.get("TvlDBArr"), file);
}

TEST_F(DBArrLookup_, aShortDatabaseIsReadAsFarAsItGoes)
{
    state.put("TvlDBArr", database({{"Alba", 3}}, "/music/live").substr(0, 60));
    EXPECT_EQ(DBArrLookup("/music/live/Alba.arr"), 0); // its folder is gone
    EXPECT_EQ(DBArr.DBArrBuffer.size(), 27221u);
}

TEST_F(DBArrLookup_, anOpenDatabaseWindowHoldsTheCurrentBuffer)
{
    put({{"Alba", 3}});
    DBArr.DBArrWindowOpen = true;
    DBArr.DBArrBuffer = database({{"Alba", 44}}, "/music/live");
    EXPECT_EQ(DBArrLookup("/music/live/Alba.arr"), 44);
    DBArr.DBArrWindowOpen = false;
    EXPECT_EQ(DBArrLookup("/music/live/Alba.arr"), 3);
}
