// What seldom happens to the index: no window is open, another program writes it, a folder holds what is no file.
#include "DBArrUpdateRoom.h"

#include "database/DBArrTable.h"
#include "database/FindID.h"
#include "database/FolderFiles.h"
#include "database/FolderText.h"

#include <algorithm>
#include <fstream>

namespace
{

std::size_t openDescriptors()
{
    const std::filesystem::directory_iterator all("/proc/self/fd");
    return static_cast<std::size_t>(std::distance(begin(all), end(all)));
}

/// As many records as there is room for.
std::vector<Row> all()
{
    std::vector<Row> rows;
    for (int id = 3; id <= 999; ++id) {
        std::string name = std::to_string(id);
        rows.push_back({"S" + std::string(4 - name.size(), '0') + name, id});
    }
    return rows;
}

} // namespace

TEST_F(Update, anAddThatChangesNothingStillFollowsWhatAnotherProgramHasWritten)
{
    put({{"Alba", 3}});
    DBArr.DBArrWindowOpen = true;
    DBArr.DBArrBuffer = database({}, songs.path());
    App.Arrangements[0].used = true;
    App.Arrangements[0].path = songs.file("Alba");
    int told = 0;
    DBArr.listChanged = [&told] { ++told; };
    EXPECT_EQ(add("Alba"), DBArrResult::Done);
    EXPECT_EQ(DBArr.DBArrID, 3);
    EXPECT_EQ(DBArr.DBArrBuffer, onDisk());
    EXPECT_EQ(App.Arrangements[0].databaseId, 3);
    EXPECT_EQ(told, 1);
    EXPECT_EQ(add("Alba"), DBArrResult::Done);
    EXPECT_EQ(told, 1) << "nothing is new to the window now";
}

TEST_F(Update, anAddOfWhatIsNoneLeavesNoNumberOfTheLastOne)
{
    put({{"Alba", 3}});
    DBArr.ArrFileFolder = songs.path();
    for (const int kind : {2, 3}) {
        DBArr.DBArrID = 7;
        EXPECT_EQ(DBArrAdd(kind), DBArrResult::Done);
        EXPECT_EQ(DBArr.DBArrID, 0);
    }
    DBArr.ArrFileName = "Alba";
    EXPECT_EQ(DBArrAdd(19), DBArrResult::Done);
    EXPECT_EQ(DBArr.DBArrID, 3);
}

TEST_F(Update, everyChangeTellsItsFailuresUnderTheDatabasesTitle)
{
    put({{"Alba", 3}});
    const std::vector<int (*)()> changes{[] { return DBArrDelete(3); }, DBArrRefresh, DBArrAddAll,
                                         [] { return DBArrAdd(2); }};
    for (int (*change)() : changes) {
        App.ErrTitle = "another";
        EXPECT_EQ(change(), DBArrResult::Done);
        EXPECT_EQ(App.ErrTitle, "TvlDBArrReading ");
    }
}

TEST_F(Update, addAllTellsTheWindowTheFolderAndItsFiles)
{
    put({});
    songs.put("B.arr", arrangement());
    songs.put("a.ARR", arrangement());
    songs.put("c.sty", "");
    Texts told;
    DBArr.folderListed = [&told](const std::string& folder, const std::vector<std::string>& names) {
        told.push_back(folder);
        told.insert(told.end(), names.begin(), names.end());
    };
    EXPECT_EQ(DBArrAddAll(), DBArrResult::Done);
    EXPECT_EQ(told, (Texts{songs.path(), "a.ARR", "B.arr"}));
}

TEST_F(Update, theRootCanBeTheWorkingFolder)
{
    EXPECT_EQ(DBArrAddFile("/Alba"), DBArrResult::Done);
    EXPECT_EQ(user.questions.size(), 1u);
    EXPECT_EQ(onDisk(), database({{"Alba", 3}}, ""));
    EXPECT_EQ(DBArrLookup("/Alba.arr"), 3);
}

TEST_F(Update, aFullIndexIsListedAndSearchedToItsEnd)
{
    put(all());
    const std::vector<DBArrRow> rows = dbArrRows(onDisk());
    ASSERT_EQ(rows.size(), 999u);
    EXPECT_EQ(rows.back().id, 999);
    EXPECT_EQ(rows.back().name, "S0999.arr");
    std::string found;
    DBArr.findInFile = [&found](const std::string& path, int) { found = path; };
    FindRun("99911");
    EXPECT_EQ(found, songs.file("S0999"));
    FindRun("100011");
    ASSERT_EQ(user.warnings.size(), 1u);
    EXPECT_EQ(user.warnings[0].title, "ID = 100011");
}

TEST_F(Update, aFindThatNobodyListensToSaysNothing)
{
    put({{"Alba", 3}});
    DBArr.findInBank = nullptr;
    DBArr.findInFile = nullptr;
    FindRun("111");
    FindRun("311");
    EXPECT_EQ(warnings(), Texts{});
    EXPECT_EQ(DBArr.ArrFileName, "Alba");
}

TEST_F(Update, noSlotOutsideTheRecordsIsTakenOut)
{
    DBArrTable table(database({{"Alba", 3}, {"Duo", 4}}, "/m"));
    const std::string before = table.bytes();
    for (const int slot : {-1, 0, 2, 5, 999, 1000}) {
        table.remove(slot);
        EXPECT_EQ(table.bytes(), before) << slot;
    }
    EXPECT_EQ(table.used(), 2);
}

TEST(FolderFilesRule, aSecondReadForgetsTheFirstFolder)
{
    TemporaryFolder one, other;
    one.put("Alba.arr", "x");
    other.put("Duo.arr", "x");
    FolderFiles files;
    EXPECT_EQ(files.read(one.path()), 0);
    EXPECT_EQ(files.read(other.path()), 0);
    EXPECT_EQ(files.arrangements(), Texts{"Duo.arr"});
    EXPECT_EQ(files.pathOf("Alba.arr"), "");
    EXPECT_EQ(files.pathOf("DUO.ARR"), other.file("Duo.arr"));
    EXPECT_NE(files.read(other.file("gone")), 0);
    EXPECT_EQ(files.arrangements(), Texts{"Duo.arr"}) << "a folder that cannot be read leaves the list as it was";
}

TEST(FolderFilesRule, takesLinksAndLeavesFoldersPipesAndHiddenFilesOut)
{
    TemporaryFolder folder;
    folder.put("real", "x");
    folder.put(".hidden.arr", "x");
    std::filesystem::create_symlink(folder.file("real"), folder.file("Link.arr"));
    std::filesystem::create_directory(folder.file("Folder.arr"));
    ASSERT_EQ(mkfifo(folder.file("Pipe.arr").c_str(), 0600), 0);
    FolderFiles files;
    EXPECT_EQ(files.read(folder.path()), 0);
    EXPECT_EQ(files.arrangements(), Texts{"Link.arr"});
}

TEST(FolderFilesRule, anEmptyTextIsTheRoot)
{
    FolderFiles files;
    EXPECT_EQ(files.read(""), 0);
    EXPECT_EQ(files.pathOf("proc"), "/proc");
}

TEST(FileHeadRule, readsTheBeginAndTheLengthAndHoldsNothingOpen)
{
    TemporaryFolder folder;
    const std::string path = folder.put("file", "0123456789");
    const std::size_t before = openDescriptors();
    FileHead head;
    EXPECT_EQ(readHead(path, 4, head), 0);
    EXPECT_EQ(head.bytes, "0123");
    EXPECT_EQ(head.length, 10);
    EXPECT_EQ(readHead(folder.file("gone"), 4, head), 0);
    EXPECT_EQ(head.bytes, "");
    EXPECT_EQ(head.length, 0);
    EXPECT_NE(readHead(folder.path(), 4, head), 0);
    EXPECT_NE(readHead(path + "/below", 4, head), 0);
    EXPECT_EQ(openDescriptors(), before);
}

TEST(ShortFolder, aClosingSlashAndAnUnbrokenNameAreNoFolderToBeginAt)
{
    EXPECT_EQ(shortFolder("/" + std::string(30, 'x'), 12), "/xx...xxxxxx");
    EXPECT_EQ(shortFolder("/music/" + std::string(30, 'x') + "/", 12), "/mu...xxxxx/");
    EXPECT_EQ(shortFolder("/music/live/tonight", 14), "/mu.../tonight");
}
