// Names and folders out of an index that is damaged or was made by someone else: they lead to files of the working
// folder, or to none.
#include "DBArrRoom.h"

#include "database/DBArrUpdate.h"
#include "database/FindID.h"

namespace
{

class RecordNames : public DBArrRoom
{
protected:
    RecordNames()
    {
        App.LanguageBase = 200;
        std::filesystem::create_directory(songs.file("inside"));
        DBArr.findInFile = [this](const std::string& path, int) { found.push_back(path); };
    }
    std::string inside() const { return songs.file("inside"); }
    void index(const std::string& name) const { state.put("TvlDBArr", database({{name, 5}}, inside())); }

    std::vector<std::string> found;
};

using Lines = std::vector<std::string>;

const std::string Cut("so\0ng", 5);

} // namespace

TEST_F(RecordNames, thatLeadOutOfTheFolderAreNotListedToAFind)
{
    for (const std::string& name : {std::string("../out"), std::string("/etc/passwd"), std::string("sub/song"),
                                    std::string("song/"), std::string("../../../../../../../../"), Cut}) {
        index(name);
        FindRun("511");
        EXPECT_EQ(found, Lines{}) << name;
        EXPECT_EQ(warnings(), Lines{"ID = 511|File Arrangement not found"}) << name;
    }
}

TEST_F(RecordNames, ofAnyOtherBytesLeadToAFileOfTheFolder)
{
    for (const std::string& name :
         {std::string(".."), std::string("a\nb"), std::string(24, '\xFF'), std::string("\x01"), std::string("~root")}) {
        found.clear();
        index(name);
        FindRun("511");
        EXPECT_EQ(found, Lines{inside() + "/" + name});
    }
}

TEST_F(RecordNames, thatLeadOutOfTheFolderAreTakenOutByARefreshThatTouchesNoFileThere)
{
    // An empty file would be deleted, a good one would let the record stay.
    songs.put("out.arr", "");
    songs.put("good.arr", arrangement());
    std::filesystem::create_directory(songs.file("inside/sub"));
    songs.put("inside/sub/song.arr", arrangement());
    songs.put("inside/stays.arr", arrangement());
    state.put("TvlDBArr", database({{"../good", 3}, {"../out", 4}, {"stays", 5}, {"sub/song", 6}, {Cut, 7}}, inside()));
    EXPECT_EQ(DBArrRefresh(), 0);
    EXPECT_EQ(warnings(), Lines{});
    EXPECT_TRUE(songs.has("out.arr"));
    EXPECT_EQ(onDisk(), database({{"stays", 5}}, inside()));
}

TEST_F(RecordNames, aWorkingFolderWithANulNamesNoFolder)
{
    // Cut at the NUL it would be the folder that holds songs of another matter.
    songs.put("inside/other.arr", arrangement());
    songs.put("inside/empty.arr", "");
    const std::string cut = inside() + std::string("\0/elsewhere", 11);
    state.put("TvlDBArr", database({{"other", 3}, {"empty", 4}}, cut));
    const std::string before = onDisk();
    EXPECT_NE(DBArrRefresh(), 0);
    EXPECT_EQ(warnings(), Lines{"TvlDBArrReading |Path not found"});
    EXPECT_NE(DBArrAddAll(), 0);
    EXPECT_EQ(warnings(), Lines{"TvlDBArrReading |Path not found"});
    EXPECT_EQ(onDisk(), before);
    EXPECT_TRUE(songs.has("inside/empty.arr"));
}

TEST_F(RecordNames, aWorkingFolderThatFillsItsFieldEndsWithTheFile)
{
    // The field is the last of the file: nothing behind it may be taken for its end.
    const std::string full = "/" + std::string(249, 'x');
    state.put("TvlDBArr", database({{"song", 3}}, full));
    ASSERT_EQ(DBArrRead().bytes.size(), 27221U);
    EXPECT_EQ(dbArrFolder(DBArrRead().bytes), full);
    EXPECT_NE(DBArrAddAll(), 0);
    EXPECT_EQ(warnings(), Lines{"TvlDBArrReading |Path not found"});
    FindRun("311");
    EXPECT_EQ(found, Lines{full + "/song"});
}

TEST_F(RecordNames, theIndexIsItsUsersAloneAndSoIsItsSafetyCopy)
{
    index("song");
    chmod(state.file("TvlDBArr").c_str(), 0644);
    songs.put("inside/new.arr", arrangement());
    EXPECT_EQ(DBArrAddAll(), 0);
    EXPECT_EQ(std::filesystem::status(state.file("TvlDBArr")).permissions(), std::filesystem::perms(0600));
    EXPECT_EQ(DBArrAddFile(songs.file("inside/another")), 0);
    EXPECT_EQ(std::filesystem::status(state.file("TvlDBArr")).permissions(), std::filesystem::perms(0600));
    int copies = 0;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(state.file("Safety")))
        if (entry.is_regular_file()) {
            EXPECT_EQ(entry.status().permissions(), std::filesystem::perms(0600));
            ++copies;
        }
    EXPECT_EQ(copies, 1);
}
