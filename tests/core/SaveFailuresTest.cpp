// Every file call of every save fails once, fails for good, and is the last one of a process that dies. Whatever
// happens, the file holds its old bytes or its new ones, and nobody is told of a save that did not happen.
#include "core/RandomFile.h"

#include "support/CoreRun.h"
#include "support/FailingCalls.h"

#include <gtest/gtest.h>
#include <optional>
#include <sys/stat.h>

namespace
{

const std::string Old(10528, 'a');
const std::string New(12000, 'b');

/// Temporary folders in memory, where the flushes of some thousand saves cost nothing.
struct MemoryDisk {
    MemoryDisk()
    {
        if (access("/dev/shm", W_OK | X_OK) == 0)
            setenv("TMPDIR", "/dev/shm", 1);
    }
    ~MemoryDisk()
    {
        if (before.empty())
            unsetenv("TMPDIR");
        else
            setenv("TMPDIR", before.c_str(), 1);
    }
    MemoryDisk(const MemoryDisk&) = delete;
    MemoryDisk& operator=(const MemoryDisk&) = delete;
    const std::string before = getenv("TMPDIR") ? getenv("TMPDIR") : "";
};

struct SaveFailures : testing::Test {
    MemoryDisk disk;
    CoreRun run;
    SaveFailures() { openToAll(run.folder.path()); }
};

/// A file's bytes; none where it is absent.
using Content = std::optional<std::string>;

Content contentOf(const std::string& path)
{
    std::ifstream stream(path, std::ios::binary);
    if (!stream)
        return std::nullopt;
    return std::string{std::istreambuf_iterator<char>(stream), {}};
}

/// One way to save: what stands before, the call, what it is to leave.
struct Save {
    std::string folder;            ///< the folder of the file
    std::string path;              ///< the file itself, links followed
    std::function<void()> prepare; ///< puts the folder into its first state
    std::function<int()> work;     ///< 0, or the save's own result
    Content before;
    std::string after;
    std::string safetyCopies{}; ///< the folder of the safety copies, for a save in place
    std::string link{};         ///< a link to the file, which stays one
};

void clear(const std::string& folder)
{
    for (const auto& entry : std::filesystem::directory_iterator(folder))
        std::filesystem::remove_all(entry.path());
}

void put(const std::string& path, const std::string& bytes)
{
    std::ofstream(path, std::ios::binary) << bytes;
    chmod(path.c_str(), 0666);
}

/// The old bytes in a safety copy, as a save in place leaves them when it cannot end.
bool keptAside(const Save& save)
{
    if (save.safetyCopies.empty())
        return false;
    for (const auto& entry : std::filesystem::directory_iterator(save.safetyCopies))
        if (contentOf(entry.path()) == save.before)
            return true;
    return false;
}

/// What stands in the folder beside the file and the links to it, apart from temporary files that no dialog lists.
int strangers(const Save& save, bool temporariesToo)
{
    int count = 0;
    for (const auto& entry : std::filesystem::directory_iterator(save.folder)) {
        const std::string name = entry.path().filename();
        const bool temporary = name.front() == '.' && name.back() == '~';
        if (entry.path() != save.path && !entry.is_symlink() && (temporariesToo || !temporary))
            ++count;
    }
    return count;
}

/// The outcome of one run. True while the failure was still inside the save.
bool checkRun(const Save& save, const Failure& failure)
{
    save.prepare();
    const FailedRun run = runWithFailure(failure, save.work);
    EXPECT_TRUE(run.possible);
    const Content now = contentOf(save.path);
    const bool whole = now == save.before || now == save.after;
    EXPECT_TRUE(whole || keptAside(save)) << "torn at call " << failure.call << ", errno " << failure.error;
    EXPECT_TRUE(run.result != 0 || now == save.after) << "a false success at call " << failure.call;
    EXPECT_TRUE(failure.error != EINTR || run.result == 0) << "an interrupted call is made again: " << failure.call;
    const bool once = failure.error != Failure::Death && !failure.fromThereOn;
    EXPECT_TRUE(!once || whole) << "not put back after call " << failure.call << ", errno " << failure.error;
    EXPECT_EQ(strangers(save, once), 0) << "left behind by call " << failure.call << ", errno " << failure.error;

    EXPECT_EQ(asOrdinaryUser(save.work), 0) << "the next save, after call " << failure.call;
    EXPECT_TRUE(contentOf(save.path) == save.after);
    EXPECT_TRUE(save.link.empty() || std::filesystem::is_symlink(save.link)) << "after call " << failure.call;
    return run.possible && run.reached;
}

/// Fails call 1, 2, 3 ... until the save ends before the failure does.
void sweep(const Save& save, int leastCalls)
{
    save.prepare();
    if (!runWithFailure({}, [] { return 0; }).possible)
        GTEST_SKIP() << "no system calls can be watched here";
    for (const int error : {Failure::Death, EIO, ENOSPC, EDQUOT, EROFS, EACCES, EINTR})
        for (const bool fromThereOn : {false, true}) {
            // A death happens once; calls that are interrupted for ever are repeated for ever.
            if (fromThereOn && (error == Failure::Death || error == EINTR))
                continue;
            int call = 1;
            while (checkRun(save, {call, error, fromThereOn}) && !testing::Test::HasFailure())
                ++call;
            constexpr int LeastThatWait = 6; // open, write, flush, close; open and flush the folder
            EXPECT_GT(call, error == EINTR ? LeastThatWait : leastCalls) << "file calls of this save";
        }
}

} // namespace

TEST_F(SaveFailures, leaveAnExistingFileOldOrNew)
{
    const std::string path = run.folder.file("a.arr");
    sweep({run.folder.path(), path,
           [&] {
               clear(run.folder.path());
               put(path, Old);
           },
           [&] { return replaceFile(path, New); }, Old, New},
          9);
}

TEST_F(SaveFailures, leaveANewFileAbsentOrWhole)
{
    const std::string path = run.folder.file("a.arr");
    sweep({run.folder.path(), path, [&] { clear(run.folder.path()); }, [&] { return replaceFile(path, New); },
           std::nullopt, New},
          9);
}

TEST_F(SaveFailures, leaveALinkALink)
{
    const TemporaryFolder elsewhere;
    openToAll(elsewhere.path());
    const std::string path = elsewhere.file("real.arr");
    const std::string link = run.folder.file("link.arr");
    sweep({elsewhere.path(),
           path,
           [&] {
               clear(run.folder.path());
               clear(elsewhere.path());
               put(path, Old);
               std::filesystem::create_symlink(path, link);
           },
           [&] { return replaceFile(link, New); },
           Old,
           New,
           {},
           link},
          9);
}

TEST_F(SaveFailures, leaveASafetyCopyOfAFileThatWasWrittenInPlace)
{
    const TemporaryFolder shared;
    const std::string path = shared.file("a.arr");
    const std::string shorter(5000, 'b'); // a call that fails behind its bytes leaves the old ones behind them
    sweep({shared.path(), path,
           [&] {
               clear(run.folder.path());
               chmod(shared.path().c_str(), 0755);
               put(path, Old);
               chmod(shared.path().c_str(), 0555);
           },
           [&] { return replaceFile(path, shorter); }, Old, shorter, run.folder.path()},
          16);
    chmod(shared.path().c_str(), 0755);
}
