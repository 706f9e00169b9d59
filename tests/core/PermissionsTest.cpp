// Who may look into what the program makes: permission bits under every umask that people use.
#include "core/InstanceLock.h"
#include "core/RandomFile.h"
#include "core/Settings.h"
#include "core/StateFolder.h"

#include "support/CoreRun.h"
#include "support/OtherUser.h"
#include "support/Permissions.h"

#include <csignal>
#include <gtest/gtest.h>
#include <sys/resource.h>

namespace
{

struct UmaskCase {
    mode_t bits;
    mode_t newFile; ///< of a file of the user's
};
constexpr UmaskCase Umasks[] = {{022, 0644}, {077, 0600}, {000, 0666}};

} // namespace

TEST(Modes, aNewFileOfTheUsersFollowsTheUmaskAndAReplacedOneKeepsItsOwn)
{
    for (const UmaskCase& row : Umasks) {
        CoreRun run;
        const Umask set(row.bits);
        EXPECT_EQ(replaceFile(run.folder.file("new.arr"), "x"), 0);
        EXPECT_EQ(modeOf(run.folder.file("new.arr")), row.newFile);
        for (const mode_t kept : {0600U, 0640U, 0664U, 0666U}) {
            chmod(run.folder.file("new.arr").c_str(), kept);
            EXPECT_EQ(replaceFile(run.folder.file("new.arr"), "y"), 0);
            EXPECT_EQ(modeOf(run.folder.file("new.arr")), kept) << "umask " << row.bits;
        }
    }
}

TEST(Modes, noFileIsMadeThatRunsAsItsOwner)
{
    CoreRun run;
    const std::string path = run.folder.put("odd.arr", "x");
    chmod(path.c_str(), 06755);
    EXPECT_EQ(replaceFile(path, "y"), 0);
    EXPECT_EQ(modeOf(path), 0755U);
}

TEST(Modes, stateFilesAreTheirUsersAloneWhateverTheUmaskAndTheOldFileSay)
{
    for (const UmaskCase& row : Umasks) {
        CoreRun run;
        const Umask set(row.bits);
        SettingsFile::setDefaults(App);
        App.Language = 2;
        DeviceRecordInit();
        for (int round = 0; round < 2; ++round) {
            EXPECT_EQ(SettingsSave(), 0);
            EXPECT_EQ(DeviceRecordWrite(), 0);
            InfoFileCheck();
            for (const char* name : {"Tarvolyne.ini", "Dornflex", "TvlCMInfo"}) {
                EXPECT_EQ(modeOf(run.folder.file(name)), 0600U) << name << ", umask " << row.bits;
                chmod(run.folder.file(name).c_str(), 0666); // as an older file may stand there
            }
            run.folder.put("TvlCMInfo", "damaged");
        }
        EXPECT_EQ(InfoArrSet(std::string(20, '\0') + "/m/song" + std::string(300, ' ')), 0);
        EXPECT_EQ(modeOf(run.folder.file("TvlCMInfo")), 0600U);
    }
}

TEST(Modes, theLockFileIsItsUsersAlone)
{
    for (const UmaskCase& row : Umasks) {
        const TemporaryFolder folder;
        const Umask set(row.bits);
        InstanceLock lock;
        EXPECT_FALSE(lock.acquire(folder.path()));
        EXPECT_EQ(modeOf(folder.file("TvlLock")), 0600U);
    }
}

TEST(Modes, aHalfWrittenFileShowsNothingOfAPrivateOne)
{
    // The temporary file is found after a death in the middle of the writing.
    CoreRun run;
    openToAll(run.folder.path());
    const std::string path = run.folder.put("private.arr", "secret");
    ASSERT_TRUE(geteuid() != 0 || chown(path.c_str(), 65534, 65534) == 0);
    chmod(path.c_str(), 0600);
    EXPECT_EQ(asOrdinaryUser([&] {
                  umask(0);
                  const rlimit limit{100, 100};
                  setrlimit(RLIMIT_FSIZE, &limit);
                  static_cast<void>(replaceFile(path, std::string(200, 's')));
                  return 0;
              }),
              -1);
    int found = 0;
    for (const auto& entry : std::filesystem::directory_iterator(run.folder.path()))
        if (entry.path() != path) {
            EXPECT_EQ(modeOf(entry.path()), 0600U);
            ++found;
        }
    EXPECT_EQ(found, 1);
}

TEST(Modes, theCopyBehindWritingInPlaceIsItsUsersAlone)
{
    CoreRun run;
    const TemporaryFolder locked;
    const std::string path = locked.put("a.arr", "old");
    chmod(path.c_str(), 0666);
    chmod(locked.path().c_str(), 0555);
    openToAll(run.folder.path());
    EXPECT_EQ(asOrdinaryUser([&] {
                  umask(0);
                  mode_t seen = 0;
                  const int error = replaceFileTelling(path, "new", FileHolder::User,
                                                       [&] { seen = modeOf(run.folder.file("SafetyCopy1-a.arr")); });
                  return error == 0 && seen == 0600U ? 0 : 1;
              }),
              0);
    chmod(locked.path().c_str(), 0755);
    EXPECT_EQ(locked.get("a.arr"), "new");
    EXPECT_EQ(modeOf(path), 0666U);
}

TEST(StateFolder, isMadeWithEverythingAboveItForItsUserAlone)
{
    for (const UmaskCase& row : Umasks) {
        const TemporaryFolder home;
        const Umask set(row.bits);
        makeStateFolder(home.file("share/data/tarvolyne"));
        for (const char* name : {"share", "share/data", "share/data/tarvolyne"})
            EXPECT_EQ(modeOf(home.file(name)), 0700U) << name << ", umask " << row.bits;
    }
}

TEST(StateFolder, thatStandsOpenIsClosedAndOnlyItself)
{
    const TemporaryFolder home;
    std::filesystem::create_directories(home.file("share/tarvolyne"));
    home.put("share/tarvolyne/Tarvolyne.ini", "kept");
    chmod(home.file("share").c_str(), 0755);
    openToAll(home.file("share/tarvolyne"));
    makeStateFolder(home.file("share/tarvolyne"));
    EXPECT_EQ(modeOf(home.file("share/tarvolyne")), 0700U);
    EXPECT_EQ(modeOf(home.file("share")), 0755U) << "the folders above are not the program's";
    EXPECT_EQ(home.get("share/tarvolyne/Tarvolyne.ini"), "kept");
}

TEST(StateFolder, behindALinkOfTheUsersIsTheOneThatIsClosed)
{
    const TemporaryFolder home;
    std::filesystem::create_directory(home.file("real"));
    openToAll(home.file("real"));
    std::filesystem::create_symlink("real", home.file("tarvolyne"));
    makeStateFolder(home.file("tarvolyne"));
    EXPECT_EQ(modeOf(home.file("real")), 0700U);
    EXPECT_TRUE(std::filesystem::is_symlink(home.file("tarvolyne")));
}

TEST(StateFolder, thatCannotBeMadeOrIsAnotherUsersIsLeftAsItIs)
{
    const TemporaryFolder home;
    home.put("file", "x");
    makeStateFolder(home.file("file/tarvolyne"));
    makeStateFolder("");
    makeStateFolder(home.path() + std::string("/cut\0here", 9));
    EXPECT_EQ(home.get("file"), "x");
    EXPECT_EQ(home.fileCount(), 1U);
    if (geteuid() != 0)
        return;
    openToAll(home.path());
    EXPECT_EQ(asOrdinaryUser([&] {
                  makeStateFolder(home.path());
                  return modeOf(home.path()) == 0777U ? 0 : 1;
              }),
              0);
}
