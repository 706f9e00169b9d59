// Names that someone else has taken first: no link that stands where the program writes ever leads it to another file.
#include "core/InstanceLock.h"
#include "core/RandomFile.h"
#include "core/Settings.h"

#include "support/CoreRun.h"
#include "support/OtherUser.h"

#include <gtest/gtest.h>

namespace
{

constexpr uid_t Ordinary = 65534; ///< whom asOrdinaryUser works as
constexpr uid_t Planter = 4711;   ///< a third one

/// A shared folder, a file that nobody must reach, and the program's run by an ordinary user in between.
class PlantedLinks : public testing::Test
{
protected:
    PlantedLinks()
    {
        openToAll(run.folder.path());
        openToAll(elsewhere.path());
        victim = elsewhere.put("victim", Mine);
        chmod(victim.c_str(), 0666);
    }
    void SetUp() override
    {
        if (geteuid() != 0)
            GTEST_SKIP() << "needs files of another user";
    }
    /// A link to the victim that belongs to a user.
    void plant(const std::string& name, uid_t owner) const
    {
        std::filesystem::create_symlink(victim, run.folder.file(name));
        ASSERT_EQ(lchown(run.folder.file(name).c_str(), owner, owner), 0);
    }
    bool untouched() const { return elsewhere.get("victim") == Mine && elsewhere.fileCount() == 1; }
    bool isLink(const std::string& name) const { return std::filesystem::is_symlink(run.folder.file(name)); }

    static constexpr const char* Mine = "of another matter";
    CoreRun run;
    TemporaryFolder elsewhere;
    std::string victim;
};

} // namespace

TEST_F(PlantedLinks, atTheNamesOfTemporaryFilesAreNeitherFollowedNorInTheWay)
{
    // All names that counting from 1 with the process number would try.
    run.folder.put("a.arr", "old");
    openToAll(run.folder.file("a.arr"));
    EXPECT_EQ(asOrdinaryUser([&] {
                  for (int number = 1; number <= 1000; ++number) {
                      const std::string name = ".tvl" + std::to_string(getpid()) + "-" + std::to_string(number) + "~";
                      std::filesystem::create_symlink(victim, run.folder.file(name));
                  }
                  return replaceFile(run.folder.file("a.arr"), "new");
              }),
              0);
    EXPECT_EQ(run.folder.get("a.arr"), "new");
    EXPECT_FALSE(isLink("a.arr"));
    EXPECT_TRUE(untouched());
}

TEST_F(PlantedLinks, atTheNameOfASafetyCopyAreSteppedOver)
{
    const TemporaryFolder locked;
    const std::string path = locked.put("a.arr", "old");
    chmod(path.c_str(), 0666);
    chmod(locked.path().c_str(), 0555);
    plant("SafetyCopy1-a.arr", Planter);
    EXPECT_EQ(asOrdinaryUser([&] {
                  std::string kept;
                  const int error = replaceFileTelling(path, "new", FileHolder::User,
                                                       [&] { kept = run.folder.get("SafetyCopy2-a.arr"); });
                  return error == 0 && kept == "old" ? 0 : 1;
              }),
              0);
    chmod(locked.path().c_str(), 0755);
    EXPECT_EQ(locked.get("a.arr"), "new");
    EXPECT_TRUE(isLink("SafetyCopy1-a.arr"));
    EXPECT_TRUE(untouched());
}

TEST_F(PlantedLinks, atTheNamesOfStateFilesGiveWayToTheFile)
{
    for (const char* name : {"Tarvolyne.ini", "Dornflex", "TvlCMInfo"})
        plant(name, Planter);
    EXPECT_EQ(asOrdinaryUser([&] {
                  SettingsFile::setDefaults(App);
                  App.Language = 2;
                  DeviceRecordInit();
                  InfoFileCheck();
                  return SettingsSave() + DeviceRecordWrite();
              }),
              0);
    for (const char* name : {"Tarvolyne.ini", "Dornflex", "TvlCMInfo"}) {
        EXPECT_FALSE(isLink(name)) << name;
        struct stat status {
        };
        ASSERT_EQ(lstat(run.folder.file(name).c_str(), &status), 0);
        EXPECT_EQ(status.st_uid, Ordinary) << name;
        EXPECT_EQ(status.st_mode & 07777U, 0600U) << name;
    }
    EXPECT_EQ(run.folder.get("Tarvolyne.ini").size(), 46U * 250U);
    EXPECT_TRUE(untouched());
}

TEST_F(PlantedLinks, ofTheUsersOwnLeadAStateFileWhereTheUserWantsIt)
{
    plant("Dornflex", Ordinary);
    EXPECT_EQ(asOrdinaryUser([&] {
                  DeviceRecordInit();
                  return DeviceRecordWrite();
              }),
              0);
    EXPECT_TRUE(isLink("Dornflex"));
    EXPECT_EQ(elsewhere.get("victim").substr(0, 8), "Dornflex");
}

TEST_F(PlantedLinks, inASharedFolderLeadASaveNowhereUnlessTheyAreTheUsersOrTheFoldersOwners)
{
    // As in /tmp: everyone writes, only owners remove.
    chmod(run.folder.path().c_str(), 01777);
    const auto save = [&](const std::string& name) {
        return asOrdinaryUser([&] { return replaceFile(run.folder.file(name), "saved"); });
    };
    plant("theirs.arr", Planter);
    EXPECT_EQ(save("theirs.arr"), 75);
    EXPECT_TRUE(untouched());
    EXPECT_TRUE(isLink("theirs.arr"));

    plant("own.arr", Ordinary);
    EXPECT_EQ(save("own.arr"), 0);
    EXPECT_EQ(elsewhere.get("victim"), "saved");

    elsewhere.put("victim", Mine);
    plant("folders.arr", 0);
    EXPECT_EQ(save("folders.arr"), 0);
    EXPECT_EQ(elsewhere.get("victim"), "saved");
}

TEST_F(PlantedLinks, thatPointNowhereInASharedFolderMakeNoFile)
{
    chmod(run.folder.path().c_str(), 01777);
    std::filesystem::create_symlink(elsewhere.file("fresh"), run.folder.file("a.arr"));
    ASSERT_EQ(lchown(run.folder.file("a.arr").c_str(), Planter, Planter), 0);
    EXPECT_EQ(asOrdinaryUser([&] { return replaceFile(run.folder.file("a.arr"), "saved"); }), 75);
    EXPECT_TRUE(untouched());
}

TEST_F(PlantedLinks, atTheNameOfTheLockCountAsNoLock)
{
    plant("TvlLock", Planter);
    EXPECT_EQ(asOrdinaryUser([&] {
                  InstanceLock lock;
                  return lock.acquire(run.folder.path()) ? 1 : 0;
              }),
              0);
    EXPECT_TRUE(untouched());
}

TEST_F(PlantedLinks, aStateFileThatRootWritesStaysTheFoldersOwners)
{
    ASSERT_EQ(chown(run.folder.path().c_str(), Ordinary, Ordinary), 0);
    DeviceRecordInit();
    EXPECT_EQ(DeviceRecordWrite(), 0);
    struct stat status {
    };
    ASSERT_EQ(lstat(run.folder.file("Dornflex").c_str(), &status), 0);
    EXPECT_EQ(status.st_uid, Ordinary);
    EXPECT_EQ(status.st_mode & 07777U, 0600U);
}
