// The last session's files: order, slots, and what is dropped without a word.
#include "shell/SessionRestore.h"

#include "shell/ShellFixture.h"

namespace
{

class Session : public ShellTest
{
protected:
    void remember(std::size_t index, const std::string& name, int width = 4810)
    {
        SessionEntry& entry = App.Arrangements[index];
        entry.path = songs.file(name);
        entry.Open = 1;
        entry.width = width;
    }
    void rememberPrograms(std::size_t index, const std::string& name, int type)
    {
        SessionEntry& entry = App.Programs[index];
        entry.path = songs.file(name);
        entry.Open = 1;
        entry.kind = 21;
        entry.programType = type;
    }
    WindowMaker maker(bool exist = true)
    {
        return [this, exist](int kind, int slot) {
            const SessionEntry& entry = kind == 19 ? App.Arrangements[static_cast<std::size_t>(slot - 1)]
                                                   : App.Programs[static_cast<std::size_t>(slot - 1)];
            made.push_back(std::to_string(kind) + " " + std::to_string(slot) + " " +
                           entry.path.substr(entry.path.rfind('/') + 1) + (entry.used ? " used" : ""));
            return exist;
        };
    }
    std::vector<std::string> made;
};

using Lines = std::vector<std::string>;

} // namespace

TEST_F(Session, openRowsComeBackTheFindWindowFirst)
{
    EXPECT_TRUE(rowsToRestore().empty());
    for (const int row : {1, 2, 5, 10, 11, 12, 13, 15, 17})
        App.WinPos[static_cast<std::size_t>(row)].Open = 1;
    EXPECT_EQ(rowsToRestore(), (std::vector<int>{11, 2, 5, 10}));
}

TEST_F(Session, filesComeBackInOrderAndMoveDownToTheLowestFreeSlots)
{
    songs.put("a.arr", arrangementFile());
    songs.put("c.arr", arrangementFile());
    remember(1, "a", 5000);
    remember(3, "gone");
    remember(6, "c", 6000);
    ArrangementsRestore(maker());
    EXPECT_EQ(made, (Lines{"19 1 a used", "19 2 c used"}));
    EXPECT_EQ(App.Arrangements[0].width, 5000);
    EXPECT_EQ(App.Arrangements[1].width, 6000);
    for (const std::size_t index : {2U, 3U, 6U}) {
        EXPECT_EQ(App.Arrangements[index].path, "") << index;
        EXPECT_FALSE(App.Arrangements[index].used) << index;
        EXPECT_EQ(App.Arrangements[index].Open, 0) << index;
    }
    EXPECT_TRUE(user.warnings.empty());
}

TEST_F(Session, entriesThatWereNotOpenStayClosed)
{
    songs.put("a.arr", arrangementFile());
    remember(0, "a");
    App.Arrangements[0].Open = 0;
    ArrangementsRestore(maker());
    EXPECT_TRUE(made.empty());
}

TEST_F(Session, aRefusedFileIsDroppedWithoutAWord)
{
    songs.put("bad.arr", arrangementFile().substr(1));
    remember(0, "bad");
    ArrangementsRestore(maker());
    EXPECT_TRUE(made.empty());
    EXPECT_TRUE(user.warnings.empty());
    EXPECT_EQ(App.ui, &user) << "the program has its voice again";
    EXPECT_EQ(App.Arrangements[0].Open, 0);
    EXPECT_FALSE(App.Arrangements[0].used);
}

TEST_F(Session, theReadOnlyMarkComesBack)
{
    songs.put("a.arr", arrangementFile());
    remember(0, "a");
    App.Arrangements[0].readOnly = true;
    ArrangementsRestore(maker());
    EXPECT_TRUE(App.Arrangements[0].readOnly);
    EXPECT_EQ(Files.ArrName, "a");
    EXPECT_EQ(Files.ArrFolder, songs.path());
}

TEST_F(Session, aNameWithAPointIsAWholeName)
{
    songs.put("my.song.arr", arrangementFile());
    remember(0, "my.song");
    ArrangementsRestore(maker());
    EXPECT_EQ(made, (Lines{"19 1 my.song used"}));
    EXPECT_EQ(Files.ArrName, "my.song");
}

TEST_F(Session, aFileOpenedMeanwhileKeepsItsSlot)
{
    songs.put("a.arr", arrangementFile());
    App.Arrangements[0].used = true;
    App.Arrangements[0].path = "/other";
    remember(2, "a");
    ArrangementsRestore(maker());
    EXPECT_EQ(made, (Lines{"19 2 a used"}));
    EXPECT_EQ(App.Arrangements[0].path, "/other");
}

TEST_F(Session, programFilesComeBackByTheirExtensions)
{
    songs.put("a.prg", programFile());
    songs.put("b.pgg", programFile());
    rememberPrograms(2, "a", 0);
    rememberPrograms(4, "b", 1);
    rememberPrograms(5, "gone", 0);
    songs.put("short.pgg", programFile().substr(1));
    rememberPrograms(6, "short", 1);
    ProgramsRestore(maker());
    EXPECT_EQ(made, (Lines{"21 1 a used", "21 2 b used"}));
    EXPECT_EQ(App.Programs[6].Open, 0);
    EXPECT_EQ(App.Programs[5].Open, 0);
    EXPECT_TRUE(user.warnings.empty());
}

TEST_F(Session, programEntriesBehindTheEighthAreLeftAlone)
{
    songs.put("a.prg", programFile());
    rememberPrograms(8, "a", 0);
    ProgramsRestore(maker());
    EXPECT_TRUE(made.empty());
    EXPECT_EQ(App.Programs[8].Open, 1);
}

TEST_F(Session, anEntryForWhichNoWindowCanBeMadeLeavesTheSession)
{
    songs.put("a.prg", programFile());
    rememberPrograms(2, "a", 0);
    ProgramsRestore(maker(false));
    for (const std::size_t index : {0U, 2U}) {
        EXPECT_EQ(App.Programs[index].Open, 0) << index;
        EXPECT_EQ(App.Programs[index].path, "") << index;
        EXPECT_FALSE(App.Programs[index].used) << index;
    }
}

TEST_F(Session, theMarksOfOpenWindowsAreClearedBeforeTheyGo)
{
    remember(0, "a");
    rememberPrograms(0, "p", 0);
    rememberPrograms(15, "q", 0);
    App.Programs[0].used = true;
    clearSessionMarks();
    EXPECT_EQ(App.Arrangements[0].Open, 0);
    for (const SessionEntry& entry : App.Programs)
        EXPECT_EQ(entry.Open, 0);
    EXPECT_EQ(App.Arrangements[0].path, songs.file("a")) << "the entry itself stays";
}
