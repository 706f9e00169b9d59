// Adding, adding all, taking out and refreshing: each stated case.
#include "DBArrUpdateRoom.h"

namespace
{

const std::string Question = "Choose the directory of the opened file as working directory of TvlDBArr?";

} // namespace

// Creation.

TEST_F(Update, withoutADatabaseTheUserIsAskedAndTheItemsWork)
{
    EXPECT_EQ(add("Alba"), DBArrResult::Done);
    ASSERT_EQ(user.questions.size(), 1u);
    EXPECT_EQ(user.questions[0].text, Question);
    EXPECT_EQ(DBArr.DBArrID, 3);
    expectDisk({{"Alba", 3}});
    EXPECT_EQ(shell.items,
              (std::map<std::string, bool>{{"mnuWEditDBArr", true}, {"mnuAggArr", true}, {"mnuWFindID", true}}));
    EXPECT_EQ(App.ErrTitle, "TvlDBArrReading ");
}

TEST_F(Update, anEmptyDatabaseCountsAsNone)
{
    state.put("TvlDBArr", "");
    EXPECT_EQ(add("Alba"), DBArrResult::Done);
    EXPECT_EQ(user.questions.size(), 1u);
    expectDisk({{"Alba", 3}});
}

TEST_F(Update, aNoLeavesNothingBehind)
{
    user.answers = {Answer::No};
    state.put("TvlDBArr", "");
    EXPECT_EQ(add("Alba"), DBArrResult::Declined);
    EXPECT_EQ(DBArr.DBArrID, 0);
    EXPECT_FALSE(state.has("TvlDBArr"));
    EXPECT_TRUE(shell.items.empty());
}

TEST_F(Update, aFolderThatItsFieldCannotHoldIsNotOffered)
{
    EXPECT_EQ(DBArrAddFile("/music/live /Alba"), DBArrResult::Done);
    EXPECT_EQ(DBArrAddFile("/music/" + std::string(240, 'x')), DBArrResult::Done);
    EXPECT_EQ(DBArr.DBArrID, 0);
    EXPECT_TRUE(user.questions.empty());
    EXPECT_FALSE(state.has("TvlDBArr"));
}

TEST_F(Update, aCreationThatCannotBeWrittenEnablesNothing)
{
    App.StateDir = state.file("gone");
    EXPECT_EQ(add("Alba"), DBArrResult::Failed);
    EXPECT_EQ(DBArr.DBArrID, 0);
    EXPECT_TRUE(shell.items.empty());
    EXPECT_EQ(warnings().size(), 1u);
}

// Adding.

TEST_F(Update, recordsStandSortedByNameInCapitals)
{
    put({});
    for (const char* name :
         {"delta", "Bravo", "alpha", "CHARLIE", "alpha 2", "[x]", "perch\xC3\xA9", "PERCH\xC3\x88", "a_b", "aab"})
        EXPECT_EQ(add(name), DBArrResult::Done);
    // "[" and "_" stand behind the capitals, and the accents behind both.
    expectDisk({{"aab", 12},
                {"alpha", 5},
                {"alpha 2", 7},
                {"a_b", 11},
                {"Bravo", 4},
                {"CHARLIE", 6},
                {"delta", 3},
                {"PERCH\xC3\x88", 10},
                {"perch\xC3\xA9", 9},
                {"[x]", 8}});
    EXPECT_TRUE(user.warnings.empty());
}

TEST_F(Update, aNewFileTakesTheLowestFreeNumber)
{
    put({{"Alba", 3}, {"Balera", 4}, {"Canto", 5}});
    EXPECT_EQ(DBArrDelete(3), DBArrResult::Done);
    EXPECT_EQ(add("Zeta"), DBArrResult::Done);
    EXPECT_EQ(DBArr.DBArrID, 3);
    expectDisk({{"Balera", 4}, {"Canto", 5}, {"Zeta", 3}});
    EXPECT_EQ(add("Duo"), DBArrResult::Done);
    EXPECT_EQ(DBArr.DBArrID, 6);
}

TEST_F(Update, aNameEqualButForCaseKeepsItsRecord)
{
    put({{"BALERA", 7}});
    const std::string before = onDisk();
    EXPECT_EQ(add("balera"), DBArrResult::Done);
    EXPECT_EQ(DBArr.DBArrID, 7);
    EXPECT_EQ(onDisk(), before);
}

TEST_F(Update, longNamesThatAgreeIn24BytesAreOneFile)
{
    put({});
    EXPECT_EQ(add("ABCDEFGHIJKLMNOPQRSTUVWXYZ"), DBArrResult::Done);
    EXPECT_EQ(add("abcdefghijklmnopqrstuvwx and more"), DBArrResult::Done);
    EXPECT_EQ(DBArr.DBArrID, 3);
    EXPECT_EQ(add("ABCDEFGHIJKLMNOPQRSTUVW"), DBArrResult::Done);
    EXPECT_EQ(DBArr.DBArrID, 4);
    expectDisk({{"ABCDEFGHIJKLMNOPQRSTUVW", 4}, {"ABCDEFGHIJKLMNOPQRSTUVWX", 3}});
}

TEST_F(Update, aFileFromOutsideTheFolderChangesNothing)
{
    put({{"Alba", 3}});
    const std::string before = onDisk();
    for (const std::string& path : {songs.path() + "/old/Alba", std::string("/elsewhere/Alba"), songs.path()}) {
        EXPECT_EQ(DBArrAddFile(path), DBArrResult::Done);
        EXPECT_EQ(DBArr.DBArrID, 0);
    }
    EXPECT_EQ(onDisk(), before);
    EXPECT_TRUE(user.warnings.empty());
    EXPECT_TRUE(user.questions.empty());
}

TEST_F(Update, aBankIsNotAdded)
{
    put({{"Alba", 3}});
    DBArr.ArrFileName = "TvlArrA";
    DBArr.ArrFileFolder = songs.path();
    for (const int kind : {2, 3}) {
        EXPECT_EQ(DBArrAdd(kind), DBArrResult::Done);
        EXPECT_EQ(DBArr.DBArrID, 0);
    }
    expectDisk({{"Alba", 3}});
}

TEST_F(Update, the998thFileHasNoNumberAndNothingIsSaid)
{
    std::vector<Row> rows;
    for (int i = 0; i < 997; ++i)
        rows.push_back({"song" + std::to_string(1000 + i), 999 - i});
    put(rows);
    const std::string before = onDisk();
    EXPECT_EQ(add("another"), DBArrResult::Done);
    EXPECT_EQ(DBArr.DBArrID, 0);
    EXPECT_EQ(add("SONG1996"), DBArrResult::Done);
    EXPECT_EQ(DBArr.DBArrID, 3);
    EXPECT_EQ(onDisk(), before);
    EXPECT_TRUE(user.warnings.empty());
}

TEST_F(Update, anAddKeepsNoSafetyCopy)
{
    put({});
    EXPECT_EQ(add("Alba"), DBArrResult::Done);
    EXPECT_TRUE(copies().empty());
}

TEST_F(Update, openWindowsAndTheOpenListFollowEachChange)
{
    put({{"Alba", 3}});
    songs.put("Duo.arr", arrangement());
    App.Arrangements[0].used = App.Arrangements[4].used = true;
    App.Arrangements[0].path = songs.file("Alba");
    App.Arrangements[4].path = songs.file("Duo");
    int told = 0;
    DBArr.listChanged = [&told] { ++told; };
    EXPECT_EQ(DBArrAddAll(), DBArrResult::Done);
    EXPECT_EQ(App.Arrangements[4].databaseId, 4);
    EXPECT_EQ(App.Arrangements[0].databaseId, 3);
    EXPECT_EQ(DBArrDelete(3), DBArrResult::Done);
    EXPECT_EQ(App.Arrangements[0].databaseId, 0);
    EXPECT_EQ(told, 2);
    EXPECT_EQ(DBArr.DBArrBuffer, onDisk());
}

// Taking out.

TEST_F(Update, aDeleteClosesTheGapFreesTheNumberAndKeepsACopy)
{
    put({{"Alba", 5}, {"Balera", 3}, {"Canto", 700}});
    const std::string before = onDisk();
    EXPECT_EQ(DBArrDelete(3), DBArrResult::Done);
    expectDisk({{"Alba", 5}, {"Canto", 700}});
    EXPECT_EQ(DBArrDelete(700), DBArrResult::Done);
    EXPECT_EQ(DBArrDelete(5), DBArrResult::Done);
    expectDisk({});
    ASSERT_EQ(copies().size(), 3u);
    EXPECT_EQ(bytesOf(copies()[0]), before);
}

TEST_F(Update, ofTheSafetyCopiesTheLastTwentyStay)
{
    std::vector<Row> rows;
    for (int i = 0; i < 25; ++i)
        rows.push_back({"song" + std::to_string(10 + i), 3 + i});
    put(rows);
    for (int i = 0; i < 25; ++i)
        EXPECT_EQ(DBArrDelete(3 + i), DBArrResult::Done);
    ASSERT_EQ(copies().size(), 20u);
    rows.erase(rows.begin(), rows.begin() + 5);
    EXPECT_EQ(bytesOf(copies()[0]), database(rows, songs.path()));
}

TEST_F(Update, aNumberThatIsNotListedTakesNothingOut)
{
    put({{"Alba", 5}});
    EXPECT_EQ(DBArrDelete(6), DBArrResult::Done);
    EXPECT_EQ(DBArrDelete(0), DBArrResult::Done);
    expectDisk({{"Alba", 5}});
}

// Refresh.

TEST_F(Update, aRefreshTakesOutWhatIsGoneOrNoArrangementFile)
{
    songs.put("good.arr", arrangement());
    songs.put("OTHERCASE.ARR", arrangement());
    songs.put("changed.arr", changedArrangement());
    songs.put("nomark.arr", arrangement("KORH"));
    songs.put("short.arr", arrangement().substr(0, 681));
    songs.put("shortgood.arr", arrangement().substr(0, 682));
    songs.put("empty.arr", "");
    put({{"changed", 3},
         {"empty", 4},
         {"gone", 5},
         {"good", 6},
         {"nomark", 7},
         {"othercase", 8},
         {"short", 9},
         {"shortgood", 10}});
    const std::string before = onDisk();
    EXPECT_EQ(DBArrRefresh(), DBArrResult::Done);
    expectDisk({{"good", 6}, {"othercase", 8}, {"shortgood", 10}});
    EXPECT_FALSE(songs.has("empty.arr")) << "an empty file was only made by looking for it";
    EXPECT_TRUE(songs.has("changed.arr"));
    ASSERT_EQ(copies().size(), 1u);
    EXPECT_EQ(bytesOf(copies()[0]), before);
    EXPECT_TRUE(user.warnings.empty());
}

TEST_F(Update, theTenBytesAreThoseAt32And672)
{
    for (const std::size_t place : {32U, 41U, 672U, 681U}) {
        songs.put("song.arr", arrangement().replace(place, 1, "x"));
        put({{"song", 3}});
        EXPECT_EQ(DBArrRefresh(), DBArrResult::Done);
        expectDisk({});
    }
    for (const std::size_t place : {4U, 31U, 42U, 671U, 682U, 10527U}) {
        songs.put("song.arr", arrangement().replace(place, 1, "x"));
        put({{"song", 3}});
        EXPECT_EQ(DBArrRefresh(), DBArrResult::Done);
        expectDisk({{"song", 3}});
    }
}

TEST_F(Update, twoFilesThatDifferFromTheEntryInCaseAloneAreNeither)
{
    songs.put("SONG.arr", arrangement());
    songs.put("Song.arr", arrangement());
    put({{"song", 3}});
    EXPECT_EQ(DBArrRefresh(), DBArrResult::Done);
    expectDisk({});
}

TEST_F(Update, aWorkingFolderThatIsGoneEndsARefreshWithNothingChanged)
{
    state.put("TvlDBArr", database({{"Alba", 3}}, songs.file("away")));
    const std::string before = onDisk();
    EXPECT_EQ(DBArrRefresh(), DBArrResult::Failed);
    EXPECT_EQ(DBArrAddAll(), DBArrResult::Failed);
    EXPECT_EQ(warnings(), (Texts{"TvlDBArrReading |Path not found", "TvlDBArrReading |Path not found"}));
    EXPECT_EQ(onDisk(), before);
}

TEST_F(Update, aFileThatCannotBeReadEndsARefreshWithNothingChanged)
{
    std::filesystem::create_directory(songs.file("Balera.arr"));
    put({{"Alba", 3}, {"Balera", 4}});
    EXPECT_EQ(DBArrRefresh(), DBArrResult::Failed);
    EXPECT_EQ(warnings(), (Texts{"Reading Balera.arr|Read only file"}));
    expectDisk({{"Alba", 3}, {"Balera", 4}});
    EXPECT_TRUE(copies().empty());
}

// Add All.

TEST_F(Update, addAllTakesTheArrangementFilesInTheOrderOfTheirNames)
{
    put({{"Balera", 9}});
    songs.put("zeta.arr", arrangement());
    songs.put("Alba.ARR", changedArrangement());
    songs.put("balera.arr", arrangement());
    songs.put("CANTO.Arr", arrangement());
    songs.put("canto 2.arr", arrangement());
    songs.put("long.arr", arrangement() + "x");
    songs.put("short.arr", arrangement().substr(1));
    songs.put("nomark.arr", arrangement("korg"));
    songs.put("empty.arr", "");
    songs.put("other.sty", arrangement());
    songs.put("arr", arrangement());
    songs.put(".hidden.arr", arrangement());
    std::filesystem::create_directory(songs.file("folder.arr"));
    EXPECT_EQ(DBArrAddAll(), DBArrResult::Done);
    // In the order of the whole names, blank before point.
    expectDisk({{"Alba", 3}, {"Balera", 9}, {"CANTO", 5}, {"canto 2", 4}, {"zeta", 6}});
    EXPECT_FALSE(songs.has("empty.arr"));
    EXPECT_TRUE(user.warnings.empty());
    const std::string first = onDisk();
    EXPECT_EQ(DBArrAddAll(), DBArrResult::Done);
    EXPECT_EQ(onDisk(), first) << "twice gives the same";
    EXPECT_EQ(copies().size(), 1u) << "and no copy of the same bytes";
}

TEST_F(Update, addAllFillsAllSlotsAndLeavesTheRestOut)
{
    put({{"zzz", 500}});
    for (int i = 0; i < 1000; ++i)
        songs.put("song" + std::to_string(1000 + i) + ".arr", arrangement());
    EXPECT_EQ(DBArrAddAll(), DBArrResult::Done);
    std::vector<Row> rows;
    for (int i = 0; i < 996; ++i)
        rows.push_back({"song" + std::to_string(1000 + i), i < 497 ? 3 + i : 4 + i});
    rows.push_back({"zzz", 500});
    expectDisk(rows);
    EXPECT_TRUE(user.warnings.empty());
    ASSERT_GT(user.sends.size(), 900u) << "the progress of the files";
    EXPECT_EQ(user.sends.front(), (std::pair<int, int>{0, 1000}));
    EXPECT_EQ(user.sends.back(), (std::pair<int, int>{1000, 1000})) << "takes the bar away";
}

TEST_F(Update, addAllOfAnEmptyFolderShowsNoProgress)
{
    put({});
    EXPECT_EQ(DBArrAddAll(), DBArrResult::Done);
    expectDisk({});
    EXPECT_TRUE(user.sends.empty());
}
