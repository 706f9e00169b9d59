// Replacing a whole file: what stands on the disk before, between and after, for links, owners, modes and odd folders.
#include "core/RandomFile.h"

#include "support/CoreRun.h"
#include "support/OtherUser.h"
#include "support/Permissions.h"

#include <csignal>
#include <grp.h>
#include <gtest/gtest.h>
#include <optional>
#include <sys/resource.h>
#include <vector>

namespace
{

ino_t inodeOf(const std::string& path)
{
    struct stat status {
    };
    return stat(path.c_str(), &status) == 0 ? status.st_ino : 0;
}

/// From here on this process can write no file beyond `bytes`: the kernel's own short write, then an error.
void limitFileSize(rlim_t bytes, bool die = false)
{
    if (!die)
        signal(SIGXFSZ, SIG_IGN);
    const rlimit limit{bytes, bytes};
    setrlimit(RLIMIT_FSIZE, &limit);
}

std::vector<std::string> namesIn(const TemporaryFolder& folder)
{
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder.path()))
        names.push_back(entry.path().filename());
    return names;
}

/// Removes a folder's write permission for all but root, for the length of a test.
struct Locked {
    const TemporaryFolder& folder;
    explicit Locked(const TemporaryFolder& locked) : folder(locked) { chmod(folder.path().c_str(), 0555); }
    ~Locked() { chmod(folder.path().c_str(), 0755); }
};

const std::string Old(10528, 'a');
const std::string New(10528, 'b');

/// A file in a folder that lets nothing be created: it must be written where it stands.
class ReplaceInPlace : public testing::Test
{
protected:
    ReplaceInPlace() { openToAll(run.folder.path()); }
    void put(const std::string& name, const std::string& bytes)
    {
        path = shared.put(name, bytes);
        openToAll(path);
        locked.emplace(shared);
    }

    CoreRun run;
    const TemporaryFolder shared;
    std::string path;
    std::optional<Locked> locked;
};

} // namespace

TEST(ReplaceFile, makesANewFileAndNothingElse)
{
    CoreRun run;
    EXPECT_EQ(replaceFile(run.folder.file("a.arr"), New), 0);
    EXPECT_EQ(run.folder.get("a.arr"), New);
    EXPECT_EQ(run.folder.fileCount(), 1U);
}

TEST(ReplaceFile, givesTheFileExactlyTheNewLength)
{
    CoreRun run;
    const std::string path = run.folder.put("a.arr", Old);
    EXPECT_EQ(replaceFile(path, "short"), 0);
    EXPECT_EQ(run.folder.get("a.arr"), "short");
    EXPECT_EQ(replaceFile(path, New), 0);
    EXPECT_EQ(run.folder.get("a.arr"), New);
    EXPECT_EQ(replaceFile(path, ""), 0);
    EXPECT_EQ(run.folder.get("a.arr"), "");
    EXPECT_EQ(run.folder.fileCount(), 1U);
}

TEST(ReplaceFile, keepsThePermissionBitsOfTheOldFile)
{
    CoreRun run;
    const std::string path = run.folder.put("a.arr", Old);
    for (const mode_t bits : {0600U, 0640U, 0666U, 0755U}) {
        chmod(path.c_str(), bits);
        EXPECT_EQ(replaceFile(path, New), 0);
        EXPECT_EQ(modeOf(path), bits);
    }
}

TEST(ReplaceFile, leavesTheFileItsOwner)
{
    if (geteuid() != 0)
        GTEST_SKIP() << "needs a file of another user";
    constexpr unsigned Another = 4711;
    CoreRun run;
    const std::string path = run.folder.put("a.arr", Old);
    ASSERT_EQ(chown(path.c_str(), Another, Another), 0);
    EXPECT_EQ(replaceFile(path, New), 0);
    struct stat status {
    };
    ASSERT_EQ(stat(path.c_str(), &status), 0);
    EXPECT_EQ(status.st_uid, Another);
    EXPECT_EQ(status.st_gid, Another);
}

TEST(ReplaceFile, leavesAFileOfABandItsGroupWhenAnotherMemberSavesIt)
{
    if (geteuid() != 0)
        GTEST_SKIP() << "needs a file of another user";
    constexpr gid_t Band = 4711;
    CoreRun run;
    openToAll(run.folder.path());
    const std::string path = run.folder.put("a.arr", Old);
    ASSERT_EQ(chown(path.c_str(), 0, Band), 0);
    chmod(path.c_str(), 0660);
    std::vector<gid_t> before(static_cast<std::size_t>(getgroups(0, nullptr)));
    ASSERT_GE(getgroups(static_cast<int>(before.size()), before.data()), 0);
    ASSERT_EQ(setgroups(1, &Band), 0);
    const int error = asOrdinaryUser([&] { return replaceFile(path, New); });
    ASSERT_EQ(setgroups(before.size(), before.data()), 0);
    EXPECT_EQ(error, 0);
    struct stat status {
    };
    ASSERT_EQ(stat(path.c_str(), &status), 0);
    EXPECT_EQ(status.st_gid, Band);
    EXPECT_EQ(modeOf(path), 0660U);
    EXPECT_EQ(run.folder.get("a.arr"), New);
}

TEST(ReplaceFile, givesANewFileThePermissionsOfTheUmask)
{
    CoreRun run;
    {
        const Umask bits(027);
        EXPECT_EQ(replaceFile(run.folder.file("a.arr"), New), 0);
    }
    EXPECT_EQ(modeOf(run.folder.file("a.arr")), 0640U);
}

TEST(ReplaceFile, replacesTheTargetOfALinkAndKeepsTheLink)
{
    CoreRun run;
    const TemporaryFolder elsewhere;
    elsewhere.put("real.arr", Old);
    std::filesystem::create_symlink(elsewhere.file("real.arr"), run.folder.file("second.arr"));
    std::filesystem::create_symlink("second.arr", run.folder.file("first.arr"));
    EXPECT_EQ(replaceFile(run.folder.file("first.arr"), New), 0);
    EXPECT_EQ(elsewhere.get("real.arr"), New);
    EXPECT_TRUE(std::filesystem::is_symlink(run.folder.file("first.arr")));
    EXPECT_TRUE(std::filesystem::is_symlink(run.folder.file("second.arr")));
    EXPECT_EQ(run.folder.fileCount(), 2U);
    EXPECT_EQ(elsewhere.fileCount(), 1U);
}

TEST(ReplaceFile, makesTheTargetOfALinkThatPointsNowhere)
{
    CoreRun run;
    std::filesystem::create_symlink("real.arr", run.folder.file("link.arr"));
    EXPECT_EQ(replaceFile(run.folder.file("link.arr"), New), 0);
    EXPECT_TRUE(std::filesystem::is_symlink(run.folder.file("link.arr")));
    EXPECT_EQ(run.folder.get("real.arr"), New);
}

TEST(ReplaceFile, refusesALoopOfLinks)
{
    CoreRun run;
    std::filesystem::create_symlink("b.arr", run.folder.file("a.arr"));
    std::filesystem::create_symlink("a.arr", run.folder.file("b.arr"));
    EXPECT_EQ(replaceFile(run.folder.file("a.arr"), New), 57);
    EXPECT_EQ(run.folder.fileCount(), 2U);
}

TEST(ReplaceFile, replacesTheFileThatReadingWouldFind)
{
    CoreRun run;
    run.folder.put("SONG.ARR", Old);
    EXPECT_EQ(replaceFile(run.folder.file("SONG.arr"), New), 0);
    EXPECT_EQ(run.folder.get("SONG.ARR"), New);
    EXPECT_EQ(run.folder.fileCount(), 1U);
}

TEST(ReplaceFile, savesAFileOfTheLongestName)
{
    CoreRun run;
    std::string name(251, 'n');
    name += ".arr";
    run.folder.put(name, Old);
    EXPECT_EQ(replaceFile(run.folder.file(name), New), 0);
    EXPECT_EQ(run.folder.get(name), New);
    EXPECT_EQ(run.folder.fileCount(), 1U);
}

TEST(ReplaceFile, refusesWhatIsNoRegularFile)
{
    CoreRun run;
    std::filesystem::create_directory(run.folder.file("folder.arr"));
    ASSERT_EQ(mkfifo(run.folder.file("pipe.arr").c_str(), 0600), 0);
    EXPECT_EQ(replaceFile(run.folder.file("folder.arr"), New), 75);
    EXPECT_EQ(replaceFile(run.folder.file("pipe.arr"), New), 75);
    EXPECT_EQ(replaceFile("/dev/full", New), 75);
    EXPECT_TRUE(std::filesystem::is_fifo(run.folder.file("pipe.arr")));
    EXPECT_EQ(run.folder.fileCount(), 2U);
}

TEST(ReplaceFile, tellsAnAbsentFolder)
{
    CoreRun run;
    run.folder.put("plain", "x");
    EXPECT_EQ(replaceFile(run.folder.file("absent/a.arr"), New), 76);
    EXPECT_EQ(replaceFile(run.folder.file("plain/a.arr"), New), 76);
    EXPECT_EQ(replaceFile("", New), 76);
    EXPECT_EQ(replaceFile(run.folder.path() + std::string("/a\0b", 4), New), 76);
    EXPECT_EQ(run.folder.fileCount(), 1U);
}

TEST(ReplaceFile, refusesAReadOnlyFileBeforeAnythingIsTouched)
{
    CoreRun run;
    openToAll(run.folder.path());
    const std::string path = run.folder.put("a.arr", Old);
    chmod(path.c_str(), 0444);
    EXPECT_EQ(asOrdinaryUser([&] { return replaceFile(path, New); }), 75);
    EXPECT_EQ(run.folder.get("a.arr"), Old);
    EXPECT_EQ(run.folder.fileCount(), 1U);
}

TEST(ReplaceFile, refusesANewFileInAFolderThatLetsNothingBeCreated)
{
    CoreRun run;
    const TemporaryFolder shared;
    const Locked locked(shared);
    EXPECT_EQ(asOrdinaryUser([&] { return replaceFile(shared.file("a.arr"), New); }), 75);
    EXPECT_EQ(shared.fileCount(), 0U);
}

TEST(ReplaceFile, keepsTheOldFileWhenAWriteFails)
{
    CoreRun run;
    openToAll(run.folder.path());
    const std::string path = run.folder.put("a.arr", Old);
    openToAll(path);
    for (const rlim_t room : {0UL, 1UL, 5000UL, 10527UL}) {
        const int error = asOrdinaryUser([&] {
            limitFileSize(room);
            return replaceFile(path, New);
        });
        EXPECT_EQ(error, 57) << room;
        EXPECT_EQ(run.folder.get("a.arr"), Old) << room;
        EXPECT_EQ(run.folder.fileCount(), 1U) << room;
    }
}

TEST(ReplaceFile, leavesTheOldFileAndATemporaryThatNoDialogListsWhenItDiesHalfWay)
{
    CoreRun run;
    openToAll(run.folder.path());
    const std::string path = run.folder.put("a.arr", Old);
    openToAll(path);
    const int result = asOrdinaryUser([&] {
        limitFileSize(5000, true);
        return replaceFile(path, New);
    });
    EXPECT_EQ(result, -1) << "killed while writing";
    EXPECT_EQ(run.folder.get("a.arr"), Old);
    for (const std::string& name : namesIn(run.folder)) {
        if (name == "a.arr")
            continue;
        EXPECT_EQ(name.front(), '.') << name;
        EXPECT_EQ(name.back(), '~') << name;
    }
    EXPECT_EQ(run.folder.fileCount(), 2U);
}

TEST(ReplaceFile, answersDiskFullOnAFullDiskAndSavesOnceThereIsRoom)
{
    constexpr int NoNamespace = 200, Torn = 201, Leftover = 202;
    CoreRun run;
    const std::string disk = run.folder.file("disk");
    std::filesystem::create_directory(disk);
    openToAll(run.folder.path());
    openToAll(disk);
    const int result = asOrdinaryUser([&] {
        if (!mountSmallDisk(disk, "size=32k"))
            return NoNamespace;
        const std::string path = disk + "/a.arr";
        std::ofstream(path, std::ios::binary) << Old;
        std::ofstream(disk + "/filler", std::ios::binary) << std::string(12288, 'f');
        if (const int error = replaceFile(path, New); error != 61)
            return error == 0 ? Torn : error;
        std::ifstream stream(path, std::ios::binary);
        if (std::string{std::istreambuf_iterator<char>(stream), {}} != Old)
            return Torn;
        if (std::distance(std::filesystem::directory_iterator(disk), {}) != 2)
            return Leftover;
        std::filesystem::remove(disk + "/filler");
        return replaceFile(path, New);
    });
    if (result == NoNamespace)
        SKIP_WITHOUT_A_DISK;
    EXPECT_EQ(result, 0);
}

TEST(ReplaceFile, leavesNoFileOpen)
{
    CoreRun run;
    openToAll(run.folder.path());
    const TemporaryFolder shared;
    const std::string inPlace = shared.put("b.arr", Old);
    openToAll(inPlace);
    const Locked locked(shared);
    const auto openFiles = [] { return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {}); };
    const int left = asOrdinaryUser([&] {
        const auto before = openFiles();
        FileContent content;
        const int errors[] = {replaceFile(run.folder.file("a.arr"), Old), replaceFile(run.folder.file("a.arr"), New),
                              readFile(run.folder.file("a.arr"), 9, content), replaceFile(inPlace, New)};
        limitFileSize(0);
        const int failed[] = {replaceFile(run.folder.file("a.arr"), Old), replaceFile(inPlace, Old)};
        const bool asMeant = errors[0] + errors[1] + errors[2] + errors[3] == 0 && failed[0] == 57 && failed[1] == 57;
        return asMeant ? static_cast<int>(openFiles() - before) : 100;
    });
    EXPECT_EQ(left, 0);
}

TEST_F(ReplaceInPlace, writesWhereTheFolderLetsNothingBeCreated)
{
    put("a.arr", Old);
    const ino_t inode = inodeOf(path);
    for (const std::string& content : {New, std::string("short"), Old + New}) {
        EXPECT_EQ(asOrdinaryUser([&] { return replaceFile(path, content); }), 0);
        EXPECT_EQ(shared.get("a.arr"), content);
    }
    EXPECT_EQ(inodeOf(path), inode);
    EXPECT_EQ(shared.fileCount(), 1U);
    EXPECT_EQ(run.folder.fileCount(), 0U) << "the safety copy goes once it is not needed";
}

TEST_F(ReplaceInPlace, putsTheOldBytesBackWhenWritingFails)
{
    put("a.arr", Old);
    const int error = asOrdinaryUser([&] {
        limitFileSize(10528);
        return replaceFile(path, New + New);
    });
    EXPECT_EQ(error, 57);
    EXPECT_EQ(shared.get("a.arr"), Old);
    EXPECT_EQ(run.folder.fileCount(), 0U);
}

TEST_F(ReplaceInPlace, leavesASafetyCopyThatTellsTheFileWhenItDiesHalfWay)
{
    put("a.arr", Old);
    const int result = asOrdinaryUser([&] {
        limitFileSize(10528, true);
        return replaceFile(path, New + New);
    });
    EXPECT_EQ(result, -1);
    ASSERT_EQ(namesIn(run.folder), (std::vector<std::string>{"SafetyCopy1-a.arr"}));
    EXPECT_EQ(run.folder.get("SafetyCopy1-a.arr"), Old);
}

TEST_F(ReplaceInPlace, keepsAndPutsBackAFileOfManyPieces)
{
    std::string old;
    for (int number = 0; old.size() < 300'000; ++number)
        old += std::to_string(number) + " ";
    put("a.sty", old);
    for (const bool die : {false, true}) {
        const int result = asOrdinaryUser([&] {
            limitFileSize(old.size(), die);
            return replaceFile(path, std::string(400'000, 'n'));
        });
        EXPECT_EQ(result, die ? -1 : 57);
        if (!die) {
            EXPECT_TRUE(shared.get("a.sty") == old);
            EXPECT_EQ(run.folder.fileCount(), 0U);
        }
    }
    EXPECT_TRUE(run.folder.get("SafetyCopy1-a.sty") == old);
}

TEST_F(ReplaceInPlace, keepsAnEarlierSafetyCopy)
{
    run.folder.put("SafetyCopy1-a.arr", "from a crash");
    put("a.arr", Old);
    EXPECT_EQ(asOrdinaryUser([&] { return replaceFile(path, New); }), 0);
    EXPECT_EQ(run.folder.get("SafetyCopy1-a.arr"), "from a crash");
    EXPECT_EQ(run.folder.fileCount(), 1U);
}

TEST_F(ReplaceInPlace, touchesNothingWhereNoSafetyCopyCanBeKept)
{
    put("a.arr", Old);
    const Locked stateLocked(run.folder);
    EXPECT_EQ(asOrdinaryUser([&] { return replaceFile(path, New); }), 75);
    EXPECT_EQ(asOrdinaryUser([&] {
                  App.StateDir.clear();
                  return replaceFile(path, New);
              }),
              75);
    EXPECT_EQ(shared.get("a.arr"), Old);
}

TEST_F(ReplaceInPlace, servesAFileOfAnotherUserInAFolderWhereOnlyOwnersRename)
{
    if (geteuid() != 0)
        GTEST_SKIP() << "needs a file of another user";
    put("a.arr", Old);
    chmod(shared.path().c_str(), 01777);
    EXPECT_EQ(asOrdinaryUser([&] { return replaceFile(path, New); }), 0);
    EXPECT_EQ(shared.get("a.arr"), New);
    EXPECT_EQ(shared.fileCount(), 1U);
}
