// Where safety copies lie: in folders of the user's alone, and nowhere else, whatever stands in their place.
#include "files/CopyStore.h"
#include "files/SafetyCopies.h"
#include "files/SavingFixture.h"
#include "support/OtherUser.h"
#include "support/Permissions.h"

#include <sys/stat.h>

namespace
{

class SafetyPlaces : public SavingTest
{
protected:
    std::string safety() const { return state.path() + "/Safety"; }
    std::string placeOf(const std::string& name) const { return safety() + folder.file(name); }
    std::string copyOf(const std::string& name) const { return placeOf(name) + "/" + namesBelow(placeOf(name)).at(0); }
    int save() const { return replaceKeeping(folder.file("song.arr"), "second"); }
    void standsSaved() const { EXPECT_EQ(folder.get("song.arr"), "second"); }
};

} // namespace

TEST_F(SafetyPlaces, copiesAndTheirFoldersAreTheUsersAloneUnderEveryUmask)
{
    for (const mode_t bits : {022U, 077U, 000U}) {
        std::filesystem::remove_all(safety());
        const mode_t before = umask(bits);
        folder.put("song.arr", "first");
        chmod(folder.file("song.arr").c_str(), 0644);
        EXPECT_EQ(save(), 0);
        folder.put("twice.arr", "first");
        std::filesystem::create_hard_link(folder.file("twice.arr"), folder.file("name.arr"));
        chmod(folder.file("twice.arr").c_str(), 0644);
        EXPECT_EQ(replaceKeeping(folder.file("twice.arr"), "second"), 0);
        umask(before);
        EXPECT_EQ(modeOf(copyOf("song.arr")), 0600U) << "the old file itself under a second name";
        EXPECT_EQ(modeOf(copyOf("twice.arr")), 0600U) << "its bytes";
        EXPECT_EQ(modeOf(folder.file("name.arr")), 0644U) << "the user's other name of the file is left as it is";
        EXPECT_EQ(modeOf(folder.file("song.arr")), 0644U);
        int folders = 0;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(safety()))
            if (entry.is_directory()) {
                EXPECT_EQ(modeOf(entry.path()), 0700U) << entry.path();
                ++folders;
            }
        EXPECT_GE(folders, 3);
        EXPECT_EQ(modeOf(safety()), 0700U);
        std::filesystem::remove(folder.file("name.arr"));
    }
}

TEST_F(SafetyPlaces, aLinkInTheFoldersPlaceIsNotFollowedAndTheSaveGoesOn)
{
    const TemporaryFolder elsewhere;
    std::filesystem::create_symlink(elsewhere.path(), safety());
    folder.put("song.arr", "first");
    EXPECT_EQ(save(), 0);
    standsSaved();
    EXPECT_EQ(elsewhere.fileCount(), 0U);
}

TEST_F(SafetyPlaces, aLinkFurtherDownIsNotFollowedEither)
{
    const TemporaryFolder elsewhere;
    folder.put("song.arr", "first");
    const std::string above = placeOf("song.arr").substr(0, placeOf("song.arr").rfind('/'));
    std::filesystem::create_directories(std::filesystem::path(above).parent_path());
    std::filesystem::create_symlink(elsewhere.path(), above);
    EXPECT_EQ(save(), 0);
    standsSaved();
    EXPECT_EQ(elsewhere.fileCount(), 0U);
}

TEST_F(SafetyPlaces, nothingOfAnotherFolderIsRemovedToMakeRoom)
{
    const TemporaryFolder elsewhere;
    std::filesystem::create_directories(elsewhere.file("song.arr"));
    elsewhere.put("song.arr/2001-01-01 10.00.00-001.arr", "not the program's");
    std::filesystem::create_symlink(elsewhere.path(), safety());
    EXPECT_FALSE(CopyStore::letOldestGo(1, folder.path()));
    EXPECT_EQ(elsewhere.get("song.arr/2001-01-01 10.00.00-001.arr"), "not the program's");
}

TEST_F(SafetyPlaces, anotherUsersFolderIsNotUsed)
{
    if (geteuid() != 0)
        GTEST_SKIP() << "needs a folder of another user";
    openToAll(folder.path());
    openToAll(state.path());
    folder.put("song.arr", "first");
    chmod(folder.file("song.arr").c_str(), 0666);
    std::filesystem::create_directory(safety());
    openToAll(safety());
    EXPECT_EQ(asOrdinaryUser([&] { return save(); }), 0);
    standsSaved();
    EXPECT_TRUE(std::filesystem::is_empty(safety()));
}

TEST_F(SafetyPlaces, theUsersOwnFolderThatStandsOpenIsClosed)
{
    std::filesystem::create_directory(safety());
    openToAll(safety());
    folder.put("song.arr", "first");
    EXPECT_EQ(save(), 0);
    EXPECT_EQ(modeOf(safety()), 0700U);
    EXPECT_EQ(copiesOf("song.arr"), std::vector<std::string>{"first"});
}

TEST_F(SafetyPlaces, aLinkAtTheNameOfAnUnfinishedCopyIsNotWrittenThrough)
{
    // On a link the copy of the bytes begins under its unfinished name.
    const TemporaryFolder elsewhere;
    elsewhere.put("victim", "of another matter");
    folder.put("song.arr", "first");
    std::filesystem::create_hard_link(folder.file("song.arr"), folder.file("twice.arr"));
    std::filesystem::create_directories(placeOf("song.arr"));
    const std::time_t now = std::time(nullptr);
    for (std::time_t second = now; second < now + 5; ++second) {
        std::tm local{};
        char name[64];
        localtime_r(&second, &local);
        ASSERT_GT(std::strftime(name, sizeof name, "/%Y-%m-%d %H.%M.%S-001.arr~", &local), 0U);
        std::filesystem::create_symlink(elsewhere.file("victim"), placeOf("song.arr") + name);
    }
    EXPECT_EQ(save(), 0);
    standsSaved();
    EXPECT_EQ(elsewhere.get("victim"), "of another matter");
}
