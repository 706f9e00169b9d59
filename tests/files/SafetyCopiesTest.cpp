// Safety copies: what is kept, where, how many, and that keeping never changes a save.
#include "files/SafetyCopies.h"
#include "files/SavingFixture.h"
#include "support/FailingCalls.h"

#include <sys/stat.h>

namespace
{

using Names = std::vector<std::string>;

ino_t inodeOf(const std::string& path)
{
    struct stat status {
    };
    return stat(path.c_str(), &status) == 0 ? status.st_ino : 0;
}

/// A file of a length without its bytes.
void makeLarge(const std::string& path, std::uintmax_t size)
{
    std::ofstream(path, std::ios::binary).put('x');
    std::filesystem::resize_file(path, size);
}

constexpr int NoDisk = 9;

} // namespace

class SafetyCopiesTest : public SavingTest
{
protected:
    std::string placeOf(const std::string& name) const { return state.path() + "/Safety" + folder.file(name); }
    Names copyNames(const std::string& name) const { return namesBelow(placeOf(name)); }
    bool nothingKept() const
    {
        const std::string place = state.path() + "/Safety";
        return !std::filesystem::exists(place) || std::filesystem::is_empty(place);
    }

    /// What a save left that met a failure.
    struct MetSave {
        FailedRun run;
        std::string now;               ///< the file's bytes
        bool inPlace = false;          ///< the file is still the old one, with other bytes or the same
        std::vector<std::string> kept; ///< the bytes of each file in the state folder
    };
    /// Saves "second" over "first" as an ordinary user whose own the file is, since links are made of such alone.
    MetSave saveThatMeets(const Failure& failure)
    {
        openToAll(folder.path());
        const std::string path = folder.put("song.arr", "first");
        chmod(path.c_str(), 0666);
        EXPECT_TRUE(geteuid() != 0 || chown(path.c_str(), 65534, 65534) == 0);
        const ino_t before = inodeOf(path);
        const TemporaryFolder here;
        openToAll(here.path());
        App.StateDir = here.path();
        MetSave met;
        met.run = runWithFailure(failure, [&] { return replaceKeeping(path, "second") == 0 ? 0 : 1; });
        App.StateDir = state.path();
        met.now = folder.get("song.arr");
        met.inPlace = inodeOf(path) == before;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(here.path()))
            if (entry.is_regular_file())
                met.kept.push_back(readAll(entry.path()));
        std::filesystem::remove(path);
        return met;
    }
};

TEST_F(SafetyCopiesTest, whatIsReplacedIsKeptBelowTheStateFolderAtTheFilesOwnPath)
{
    folder.put("song.arr", "first");
    EXPECT_EQ(replaceKeeping(folder.file("song.arr"), "second"), 0);
    EXPECT_EQ(folder.get("song.arr"), "second");
    EXPECT_EQ(copiesOf("song.arr"), Names{"first"});
    EXPECT_EQ(files(), Names{"song.arr"}) << "the user's own folder shows nothing of it";
}

TEST_F(SafetyCopiesTest, aCopyIsNamedByItsTimeAndCanBeOpenedAsItIs)
{
    folder.put("song.arr", "first");
    ASSERT_EQ(replaceKeeping(folder.file("song.arr"), "second"), 0);
    ASSERT_EQ(copyNames("song.arr").size(), 1u);
    const std::string name = copyNames("song.arr")[0];
    std::string pattern = name;
    for (char& letter : pattern)
        if (letter >= '0' && letter <= '9')
            letter = '#';
    EXPECT_EQ(pattern, "####-##-## ##.##.##-###.arr");
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    EXPECT_EQ(name.substr(0, 4), std::to_string(local.tm_year + 1900));
}

TEST_F(SafetyCopiesTest, copiesFollowEachOtherInTheOrderOfTheirSaves)
{
    folder.put("song.arr", "0");
    for (int save = 1; save <= 5; ++save)
        ASSERT_EQ(replaceKeeping(folder.file("song.arr"), std::to_string(save)), 0);
    EXPECT_EQ(copiesOf("song.arr"), (Names{"0", "1", "2", "3", "4"}));
}

TEST_F(SafetyCopiesTest, aCopyIsTheOldFileItselfUnderASecondName)
{
    folder.put("song.arr", "first");
    const ino_t old = inodeOf(folder.file("song.arr"));
    ASSERT_EQ(replaceKeeping(folder.file("song.arr"), "second"), 0);
    EXPECT_EQ(inodeOf(placeOf("song.arr") + "/" + copyNames("song.arr")[0]), old);
    EXPECT_NE(inodeOf(folder.file("song.arr")), old);
}

TEST_F(SafetyCopiesTest, aFileThatHasASecondNameIsCopiedByItsBytes)
{
    folder.put("song.arr", "first");
    std::filesystem::create_hard_link(folder.file("song.arr"), folder.file("twice.arr"));
    ASSERT_EQ(replaceKeeping(folder.file("song.arr"), "second"), 0);
    std::ofstream(folder.file("twice.arr")) << "written through the other name";
    EXPECT_EQ(copiesOf("song.arr"), Names{"first"});
    EXPECT_EQ(files(), (Names{"song.arr", "twice.arr"}));
}

TEST_F(SafetyCopiesTest, onAnotherDiskTheBytesAreCopied)
{
    openToAll(folder.path());
    openToAll(state.path());
    folder.put("song.arr", "first");
    chmod(folder.file("song.arr").c_str(), 0666);
    const int result = asOrdinaryUser([&] {
        if (!mountSmallDisk(state.path(), "size=64k"))
            return NoDisk;
        if (replaceKeeping(folder.file("song.arr"), "second") != 0)
            return 1;
        return copiesOf("song.arr") == Names{"first"} && folder.get("song.arr") == "second" ? 0 : 2;
    });
    if (result == NoDisk)
        SKIP_WITHOUT_A_DISK;
    EXPECT_EQ(result, 0);
}

TEST_F(SafetyCopiesTest, aFileWrittenInPlaceIsCopiedByItsBytes)
{
    // The folder lets nothing be created, so the file keeps its inode.
    folder.put("song.arr", "first");
    chmod(folder.file("song.arr").c_str(), 0666);
    chmod(folder.path().c_str(), 0555);
    openToAll(state.path());
    EXPECT_EQ(asOrdinaryUser([&] {
                  if (replaceKeeping(folder.file("song.arr"), "second") != 0)
                      return 1;
                  return copiesOf("song.arr") == Names{"first"} && folder.get("song.arr") == "second" ? 0 : 2;
              }),
              0);
    chmod(folder.path().c_str(), 0755);
}

TEST_F(SafetyCopiesTest, whateverOneCallOfASaveMeetsACopyHoldsOldBytesAlone)
{
    // Among the refused calls is the rename: the file is then written where it stands, and a copy that was the file
    // itself would show the new bytes.
    int inPlace = 0, calls = 0, toldThoughNew = 0;
    bool reached = true;
    for (Failure failure{1, EPERM}; reached; ++failure.call) {
        const MetSave met = saveThatMeets(failure);
        ASSERT_TRUE(met.run.possible);
        reached = met.run.reached;
        calls += reached;
        // One call comes behind the rename: the flush of the folder, whose failure is told though the new file stands.
        toldThoughNew += met.run.result != 0 && met.now == "second";
        EXPECT_TRUE(met.now == "second" || (met.run.result != 0 && met.now == "first")) << failure.call;
        for (const std::string& copy : met.kept)
            EXPECT_EQ(copy, "first") << failure.call;
        if (met.run.result == 0 && met.inPlace) {
            ++inPlace;
            EXPECT_EQ(met.kept.size(), 1u) << failure.call;
        }
    }
    EXPECT_GE(inPlace, 1);
    EXPECT_EQ(toldThoughNew, 1);
    EXPECT_GT(calls, 15);
}

TEST_F(SafetyCopiesTest, whereACopyCannotGetBytesOfItsOwnTheOneThatIsTheFileItselfGoes)
{
    // The rename is refused, then one call behind it, among them those that give the copy its own bytes.
    const CallTrace trace = saveThatMeets({.call = 0}).run.trace;
    const auto rename =
        std::find_if(trace.begin(), trace.end(), [](const TracedCall& call) { return call.deed == Deed::Rename; });
    ASSERT_NE(rename, trace.end());
    const int refused = static_cast<int>(rename - trace.begin()) + 1;
    int withoutCopy = 0;
    for (int second = refused + 1;; ++second) {
        const MetSave met = saveThatMeets({refused, EPERM, false, second, ENOSPC});
        ASSERT_TRUE(met.run.possible);
        if (met.run.calls < second)
            break;
        EXPECT_TRUE(met.now == "second" || (met.run.result != 0 && met.now == "first")) << second;
        for (const std::string& copy : met.kept)
            EXPECT_EQ(copy, "first") << second;
        withoutCopy += met.run.result == 0 && met.inPlace && met.kept.empty();
    }
    EXPECT_GE(withoutCopy, 4) << "opening, writing, flushing and renaming the copy's own bytes";
}

TEST_F(SafetyCopiesTest, whatIsDeletedIsKept)
{
    folder.put("song.sty", "styles");
    EXPECT_EQ(deleteKeeping(folder.file("song.sty")), 0);
    EXPECT_EQ(folder.fileCount(), 0u);
    EXPECT_EQ(copiesOf("song.sty"), Names{"styles"});
    EXPECT_EQ(deleteKeeping(folder.file("song.sty")), 0) << "an absent file is no error";
    EXPECT_EQ(copiesOf("song.sty"), Names{"styles"});
}

TEST_F(SafetyCopiesTest, ofADeletedLinkTheFileBehindItStaysAndNeedsNoCopy)
{
    const TemporaryFolder elsewhere;
    elsewhere.put("real.sty", "styles");
    std::filesystem::create_symlink(elsewhere.file("real.sty"), folder.file("song.sty"));
    EXPECT_EQ(deleteKeeping(folder.file("song.sty")), 0);
    EXPECT_EQ(folder.fileCount(), 0u);
    EXPECT_EQ(elsewhere.get("real.sty"), "styles");
    EXPECT_TRUE(copiesOfPath(elsewhere.file("real.sty")).empty());
}

TEST_F(SafetyCopiesTest, aReadOnlyFileIsNotDeleted)
{
    openToAll(folder.path());
    openToAll(state.path());
    folder.put("song.sty", "styles");
    chmod(folder.file("song.sty").c_str(), 0444);
    EXPECT_EQ(asOrdinaryUser([&] { return deleteKeeping(folder.file("song.sty")); }), 75);
    EXPECT_EQ(folder.get("song.sty"), "styles");
    EXPECT_TRUE(nothingKept());
}

TEST_F(SafetyCopiesTest, aNewFileAndAnEmptyOneLeaveNothingToKeep)
{
    EXPECT_EQ(replaceKeeping(folder.file("song.arr"), "first"), 0);
    folder.put("empty.arr", "");
    EXPECT_EQ(replaceKeeping(folder.file("empty.arr"), "first"), 0);
    EXPECT_TRUE(nothingKept());
}

TEST_F(SafetyCopiesTest, savingTheSameBytesAgainPushesNoOlderCopyOut)
{
    folder.put("song.arr", "first");
    for (int save = 0; save < 30; ++save)
        ASSERT_EQ(replaceKeeping(folder.file("song.arr"), "second"), 0);
    EXPECT_EQ(copiesOf("song.arr"), Names{"first"});
}

TEST_F(SafetyCopiesTest, aFailedSaveLeavesNoCopyOfWhatStillStands)
{
    openToAll(folder.path());
    openToAll(state.path());
    folder.put("song.arr", "first");
    chmod(folder.file("song.arr").c_str(), 0444);
    EXPECT_EQ(asOrdinaryUser([&] { return replaceKeeping(folder.file("song.arr"), "second"); }), 75);
    EXPECT_EQ(folder.get("song.arr"), "first");
    EXPECT_TRUE(nothingKept());
    EXPECT_NE(replaceKeeping(folder.file("nowhere/song.arr"), "second"), 0);
    EXPECT_TRUE(nothingKept());
}

TEST_F(SafetyCopiesTest, whereNothingCanBeKeptTheSaveGoesOn)
{
    folder.put("song.arr", "first");
    folder.put("song.sty", "styles");
    state.put("Safety", "a file in the folder's place");
    EXPECT_EQ(replaceKeeping(folder.file("song.arr"), "second"), 0);
    EXPECT_EQ(deleteKeeping(folder.file("song.sty")), 0);
    App.StateDir.clear();
    EXPECT_EQ(replaceKeeping(folder.file("song.arr"), "third"), 0);
    App.StateDir = state.file("missing");
    EXPECT_EQ(replaceKeeping(folder.file("song.arr"), "fourth"), 0);
    EXPECT_EQ(files(), Names{"song.arr"});
    EXPECT_EQ(folder.get("song.arr"), "fourth");
    expectSilence();
}

TEST_F(SafetyCopiesTest, aFullStateDiskLeavesNoHalfCopy)
{
    openToAll(folder.path());
    openToAll(state.path());
    folder.put("song.arr", std::string(100000, 'a'));
    chmod(folder.file("song.arr").c_str(), 0666);
    const int result = asOrdinaryUser([&] {
        if (!mountSmallDisk(state.path(), "size=64k"))
            return NoDisk;
        if (replaceKeeping(folder.file("song.arr"), "second") != 0)
            return 1;
        return nothingKept() && folder.get("song.arr") == "second" ? 0 : 2;
    });
    if (result == NoDisk)
        SKIP_WITHOUT_A_DISK;
    EXPECT_EQ(result, 0);
}

TEST_F(SafetyCopiesTest, atMostTwentyOfOneFileAreKeptTheOldestGoFirst)
{
    folder.put("other.arr", "other");
    ASSERT_EQ(replaceKeeping(folder.file("other.arr"), "changed"), 0);
    folder.put("song.arr", "0");
    for (int save = 1; save <= 25; ++save)
        ASSERT_EQ(replaceKeeping(folder.file("song.arr"), std::to_string(save)), 0);
    Names expected;
    for (int kept = 5; kept < 25; ++kept)
        expected.push_back(std::to_string(kept));
    EXPECT_EQ(copiesOf("song.arr"), expected);
    EXPECT_EQ(copiesOf("other.arr"), Names{"other"}) << "each file has twenty of its own";
}

TEST_F(SafetyCopiesTest, aClockThatWasSetBackDoesNotMakeANewCopyTheOldest)
{
    std::filesystem::create_directories(placeOf("song.arr"));
    for (int old = 1; old <= 20; ++old) {
        const std::string number = (old < 10 ? "00" : "0") + std::to_string(old);
        std::ofstream(placeOf("song.arr") + "/2999-12-31 23.59.59-" + number + ".arr") << "old " << old;
    }
    folder.put("song.arr", "today's");
    ASSERT_EQ(replaceKeeping(folder.file("song.arr"), "new"), 0);
    const Names copies = copiesOf("song.arr");
    ASSERT_EQ(copies.size(), 20u);
    EXPECT_EQ(copies.front(), "old 2");
    EXPECT_EQ(copies.back(), "today's");
}

TEST_F(SafetyCopiesTest, behindTheThousandthCopyOfOneTimeNoneIsOverwritten)
{
    std::filesystem::create_directories(placeOf("song.arr"));
    std::ofstream(placeOf("song.arr") + "/2999-12-31 23.59.59-998.arr") << "998";
    folder.put("song.arr", "999");
    for (int save = 1000; save <= 1003; ++save)
        ASSERT_EQ(replaceKeeping(folder.file("song.arr"), std::to_string(save)), 0);
    EXPECT_EQ(copyNames("song.arr"),
              (Names{"2999-12-31 23.59.59-1000.arr", "2999-12-31 23.59.59-1001.arr", "2999-12-31 23.59.59-1002.arr",
                     "2999-12-31 23.59.59-998.arr", "2999-12-31 23.59.59-999.arr"}));
    EXPECT_EQ(folder.get("song.arr"), "1003");
    EXPECT_EQ(readAll(placeOf("song.arr") + "/2999-12-31 23.59.59-999.arr"), "999");
    EXPECT_EQ(readAll(placeOf("song.arr") + "/2999-12-31 23.59.59-1002.arr"), "1002");
    for (int save = 1004; save <= 1030; ++save)
        ASSERT_EQ(replaceKeeping(folder.file("song.arr"), std::to_string(save)), 0);
    EXPECT_EQ(copyNames("song.arr").size(), 20u);
    EXPECT_EQ(copyNames("song.arr").front(), "2999-12-31 23.59.59-1010.arr") << "the oldest go by their numbers";
}

TEST_F(SafetyCopiesTest, twoHundredMegabytesTogetherTheOldestGoFirst)
{
    const std::string first = state.path() + "/Safety/music/first.arr";
    const std::string second = state.path() + "/Safety/music/second.arr";
    std::filesystem::create_directories(first);
    std::filesystem::create_directories(second);
    makeLarge(first + "/2001-01-01 10.00.00-001.arr", 90'000'000);
    makeLarge(second + "/2001-01-01 09.00.00-001.arr", 50'000'000);
    makeLarge(second + "/2001-01-01 11.00.00-001.arr", 59'999'999);
    folder.put("song.arr", "x");
    ASSERT_EQ(replaceKeeping(folder.file("song.arr"), "y"), 0);
    EXPECT_EQ(namesBelow(second).size(), 2u) << "200 000 000 bytes are allowed";

    ASSERT_EQ(replaceKeeping(folder.file("song.arr"), "z"), 0);
    EXPECT_EQ(namesBelow(second), Names{"2001-01-01 11.00.00-001.arr"});
    EXPECT_EQ(namesBelow(first).size(), 1u);
    EXPECT_EQ(copiesOf("song.arr"), (Names{"x", "y"}));
}

TEST_F(SafetyCopiesTest, aFolderWhoseLastCopyWentGoesToo)
{
    const std::string old = state.path() + "/Safety/music/old/song.arr";
    std::filesystem::create_directories(old);
    makeLarge(old + "/2001-01-01 10.00.00-001.arr", 200'000'000);
    folder.put("song.arr", "x");
    ASSERT_EQ(replaceKeeping(folder.file("song.arr"), "y"), 0);
    EXPECT_FALSE(std::filesystem::exists(state.path() + "/Safety/music"));
    EXPECT_EQ(copiesOf("song.arr"), Names{"x"});
}

TEST_F(SafetyCopiesTest, aFileThatAloneExceedsTheLimitIsNotKept)
{
    makeLarge(folder.file("song.arr"), 200'000'001);
    ASSERT_EQ(replaceKeeping(folder.file("song.arr"), "y"), 0);
    EXPECT_TRUE(nothingKept());
}

TEST_F(SafetyCopiesTest, filesOfTheUsersAmongTheCopiesAreNeverRemoved)
{
    // The last three are all but copies: a number too short or too long, and a folder.
    const Names mine = {"a note.txt", "2001-01-01.arr", "2001-01-01 10.00.00-01.arr",
                        "2001-01-01 10.00.00-0000000001.arr"};
    std::filesystem::create_directories(placeOf("song.arr"));
    for (const std::string& name : mine)
        std::ofstream(placeOf("song.arr") + "/" + name) << "mine";
    std::filesystem::create_directory(placeOf("song.arr") + "/2001-01-01 10.00.00-001.arr");
    folder.put("song.arr", "0");
    for (int save = 1; save <= 25; ++save)
        ASSERT_EQ(replaceKeeping(folder.file("song.arr"), std::to_string(save)), 0);
    for (const std::string& name : mine)
        EXPECT_TRUE(std::filesystem::exists(placeOf("song.arr") + "/" + name)) << name;
    EXPECT_TRUE(std::filesystem::is_directory(placeOf("song.arr") + "/2001-01-01 10.00.00-001.arr"));
    EXPECT_EQ(copyNames("song.arr").size(), 20 + mine.size() + 1);
}

TEST_F(SafetyCopiesTest, whatACrashLeftOfACopyIsRemoved)
{
    std::filesystem::create_directories(placeOf("song.arr"));
    std::ofstream(placeOf("song.arr") + "/2001-01-01 10.00.00-001.arr~") << "half a cop";
    folder.put("song.arr", "first");
    ASSERT_EQ(replaceKeeping(folder.file("song.arr"), "second"), 0);
    EXPECT_EQ(copiesOf("song.arr"), Names{"first"});
}

TEST_F(SafetyCopiesTest, onlyTheUserCanLookIntoTheFolder)
{
    folder.put("song.arr", "first");
    ASSERT_EQ(replaceKeeping(folder.file("song.arr"), "second"), 0);
    EXPECT_EQ(std::filesystem::status(state.path() + "/Safety").permissions(), std::filesystem::perms(0700));
}
