// Saves broken off at every system call, and saves on a disk that fails at every call: each file is wholly the old or
// the new one, no save that failed says it succeeded, and nothing that is left looks like a file of the user's.
#include "files/SaveCases.h"
#include "support/SyscallSweep.h"

#include <memory>

namespace
{

// With sanitizers a run takes so long that every seventh call must do; the other flavour takes each.
#ifdef __has_feature
#if __has_feature(address_sanitizer)
#define TARVOLYNE_SWEEP_STEP 7
#endif
#endif
#ifndef TARVOLYNE_SWEEP_STEP
#define TARVOLYNE_SWEEP_STEP 1
#endif

bool isOneOf(const TemporaryFolder& folder, const SavedFile& file)
{
    if (!folder.has(file.name))
        return !file.before || !file.after;
    const std::string now = folder.get(file.name);
    return now == file.before || now == file.after;
}

bool isNew(const TemporaryFolder& folder, const SavedFile& file)
{
    return file.after ? folder.has(file.name) && folder.get(file.name) == file.after : !folder.has(file.name);
}

bool hasUserSuffix(const std::string& name)
{
    const std::string extension = std::filesystem::path(name).extension().string();
    for (const char* suffix : {".arr", ".sty", ".prg", ".pgg", ".gbl"})
        if (extension == suffix)
            return true;
    return false;
}

bool isFileOf(const SaveCase& each, const std::string& name)
{
    return std::any_of(each.files.begin(), each.files.end(), [&](const SavedFile& file) { return file.name == name; });
}

bool isRename(long call)
{
#ifdef SYS_rename
    if (call == SYS_rename)
        return true;
#endif
    return call == SYS_renameat || call == SYS_renameat2;
}

/// The program file whose other kind stands second in its case.
bool isTwin(const SavedFile& file) { return file.name.ends_with(".prg") || file.name.ends_with(".pgg"); }

/// A safety copy is one of the old files, whole.
bool isOldFile(const SaveCase& each, const std::string& bytes)
{
    return std::any_of(each.files.begin(), each.files.end(),
                       [&](const SavedFile& file) { return file.before == bytes; });
}

} // namespace

class SavingSweep : public ::testing::TestWithParam<std::size_t>
{
protected:
    /// The disk of one run: the user's folder with its files, and a state folder.
    struct Disk {
        TemporaryFolder folder;
        TemporaryFolder state;
    };

    SavingSweep() : each_(saveCases()[GetParam()])
    {
        // A killed process loses nothing that it had handed over, so a disk in memory tells as much, and sooner.
        if (access("/dev/shm", W_OK) == 0)
            setenv("TMPDIR", "/dev/shm", 1);
    }
    ~SavingSweep() override { unsetenv("TMPDIR"); }

    SyscallRun run(const SyscallPlan& plan)
    {
        disk_ = std::make_unique<Disk>();
        for (const SavedFile& file : each_.files)
            if (file.before)
                disk_->folder.put(file.name, *file.before);
        if (each_.secondName) {
            std::filesystem::remove(disk_->folder.file(each_.secondName));
            std::filesystem::create_hard_link(disk_->folder.file(each_.files[0].name),
                                              disk_->folder.file(each_.secondName));
        }
        return SyscallSweep({TARVOLYNE_SAVER, each_.name, disk_->folder.path(), disk_->state.path()}).run(plan);
    }

    /// Old or new, and nothing that a dialog would list.
    void expectWhole(const std::string& when) const
    {
        for (const SavedFile& file : each_.files)
            EXPECT_TRUE(isOneOf(disk_->folder, file)) << when << ": " << file.name;
        EXPECT_TRUE(disk_->folder.has(each_.files[0].name) || !isTwin(each_.files[0]) ||
                    disk_->folder.has(each_.files[1].name))
            << when << ": of two program files of one stem, one is there at every moment";
        for (const auto& entry : std::filesystem::directory_iterator(disk_->folder.path())) {
            const std::string name = entry.path().filename();
            EXPECT_TRUE(isFileOf(each_, name) || !hasUserSuffix(name)) << when << ": " << name;
        }
        for (const auto& entry : std::filesystem::recursive_directory_iterator(disk_->state.path()))
            EXPECT_TRUE(!entry.is_regular_file() || !hasUserSuffix(entry.path().filename()) ||
                        isOldFile(each_, bytesOf(entry.path())))
                << when << ": " << entry.path();
    }

    /// The state folder holds a file of these bytes.
    bool isKept(const std::string& bytes) const
    {
        for (const auto& entry : std::filesystem::recursive_directory_iterator(disk_->state.path()))
            if (entry.is_regular_file() && bytesOf(entry.path()) == bytes)
                return true;
        return false;
    }

    static std::string bytesOf(const std::filesystem::path& path)
    {
        std::ifstream stream(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
    }

    void expectSaved(const std::string& when) const
    {
        for (const SavedFile& file : each_.files)
            EXPECT_TRUE(isNew(disk_->folder, file)) << when << ": " << file.name;
    }

    SaveCase each_;
    std::unique_ptr<Disk> disk_;
};

TEST_P(SavingSweep, killedAtAnyCallLeavesTheOldOrTheNewFile)
{
    const SyscallRun whole = run({});
    ASSERT_EQ(whole.result, 0);
    expectSaved("undisturbed");
    const int calls = static_cast<int>(whole.calls.size());
    ASSERT_GT(calls, 20);
    SyscallPlan plan;
    for (plan.killAt = 1; plan.killAt <= calls; plan.killAt += TARVOLYNE_SWEEP_STEP) {
        const std::string when = "killed at call " + std::to_string(plan.killAt);
        ASSERT_EQ(run(plan).signal, SIGKILL) << when;
        expectWhole(when);
    }
}

TEST_P(SavingSweep, aDiskThatFailsAtAnyCallNeverEndsInAFalseSuccess)
{
    if (!canFailCalls())
        GTEST_SKIP() << "the answers of calls cannot be replaced on this machine";
    const std::vector<long> calls = run({}).calls;
    for (std::size_t i = 0; i < calls.size(); i += TARVOLYNE_SWEEP_STEP)
        for (const bool failOn : {false, true}) {
            if (!isFileCall(calls[i]))
                continue;
            SyscallPlan plan;
            plan.failAt = static_cast<int>(i) + 1;
            plan.failOn = failOn;
            plan.error = failOn ? ENOSPC : EIO;
            const SyscallRun ended = run(plan);
            const std::string when = (failOn ? "full from call " : "error at call ") + std::to_string(plan.failAt);
            ASSERT_TRUE(ended.result == 0 || ended.result == 1) << when;
            expectWhole(when);
            if (ended.result == 0)
                expectSaved(when);
        }
}

TEST_P(SavingSweep, theBytesAreOnTheDiskBeforeTheyTakeTheName)
{
    const std::vector<long> calls = run({}).calls;
    int renames = 0;
    bool flushed = false;     // nothing was written since the last flush
    bool folderWaits = false; // a new name is not yet on the disk
    for (const long call : calls) {
        if (call == SYS_write)
            flushed = false;
        if (call == SYS_fsync) {
            flushed = true;
            folderWaits = false;
        }
        if (!isRename(call))
            continue;
        EXPECT_TRUE(flushed) << "rename " << renames;
        folderWaits = true;
        ++renames;
    }
    EXPECT_GE(renames, 1);
    EXPECT_FALSE(folderWaits);
}

/// Two cases stand for all: the way behind a refused rename is the same for each kind.
class SavingInPlaceSweep : public SavingSweep
{
};

TEST_P(SavingInPlaceSweep, killedAtAnyCallLeavesTheOldBytesInACopy)
{
    if (!canFailCalls())
        GTEST_SKIP() << "the answers of calls cannot be replaced on this machine";
    // The first rename is refused, as for a file that another place has mounted.
    const std::vector<long> calls = run({}).calls;
    const auto rename = std::find_if(calls.begin(), calls.end(), isRename);
    ASSERT_NE(rename, calls.end());
    SyscallPlan plan;
    plan.failAt = static_cast<int>(rename - calls.begin()) + 1;
    plan.error = EPERM;
    const SyscallRun whole = run(plan);
    ASSERT_EQ(whole.result, 0);
    expectSaved("in place");
    expectWhole("in place");
    for (plan.killAt = plan.failAt + 1; plan.killAt <= static_cast<int>(whole.calls.size());
         plan.killAt += TARVOLYNE_SWEEP_STEP) {
        const std::string when = "killed at call " + std::to_string(plan.killAt);
        ASSERT_EQ(run(plan).signal, SIGKILL) << when;
        const SavedFile& file = each_.files[0];
        EXPECT_TRUE(isOneOf(disk_->folder, file) || isKept(*file.before)) << when;
    }
}

INSTANTIATE_TEST_SUITE_P(Saves, SavingInPlaceSweep, ::testing::Values<std::size_t>(0, 2)); // arrangements, programs
INSTANTIATE_TEST_SUITE_P(Saves, SavingSweep, ::testing::Range<std::size_t>(0, saveCases().size()),
                         [](const ::testing::TestParamInfo<std::size_t>& each) {
                             std::string name = saveCases()[each.param].name;
                             std::replace(name.begin(), name.end(), '-', '_');
                             return name;
                         });
