// Changes of the database broken off at every system call, and on a disk that fails at every call: the file is wholly
// the old one or the new one, no change that failed says it was made, and the songs stay as they are.
#include "DBArrRoom.h"
#include "support/SyscallSweep.h"

#include <memory>

namespace
{

// With sanitizers a run takes so long that every fourth call must do; the other flavour takes each.
#ifdef __has_feature
#if __has_feature(address_sanitizer)
#define TARVOLYNE_SWEEP_STEP 4
#endif
#endif
#ifndef TARVOLYNE_SWEEP_STEP
#define TARVOLYNE_SWEEP_STEP 1
#endif

struct Change {
    const char* name;
    bool present; ///< there is a database before
    std::vector<Row> after;
};

const std::vector<Row> Before = {{"gone", 3}, {"song 1", 4}, {"song 2", 5}};
const std::vector<Change> Changes = {
    {"create", false, {{"new song", 3}}},
    {"add", true, {{"gone", 3}, {"new song", 6}, {"song 1", 4}, {"song 2", 5}}},
    {"delete", true, {{"gone", 3}, {"song 2", 5}}},
    {"refresh", true, {{"song 1", 4}, {"song 2", 5}}},
    {"add-all", true, {{"gone", 3}, {"other", 6}, {"song 1", 4}, {"song 2", 5}}},
};

} // namespace

class DBArrSweep : private MemoryDisk, public ::testing::TestWithParam<std::size_t>
{
protected:
    struct Disk {
        TemporaryFolder state;
        TemporaryFolder songs;
    };

    SyscallRun run(const SyscallPlan& plan)
    {
        disk_ = std::make_unique<Disk>();
        if (change_.present)
            disk_->state.put("TvlDBArr", database(Before, disk_->songs.path()));
        for (const char* name : {"song 1.arr", "song 2.arr"})
            disk_->songs.put(name, arrangement());
        disk_->songs.put("other.arr", changedArrangement());
        return SyscallSweep({TARVOLYNE_UPDATER, change_.name, disk_->state.path(), disk_->songs.path()}).run(plan);
    }
    bool isOld() const
    {
        return change_.present ? disk_->state.get("TvlDBArr") == database(Before, disk_->songs.path())
                               : !disk_->state.has("TvlDBArr");
    }
    bool isNew() const { return disk_->state.get("TvlDBArr") == database(change_.after, disk_->songs.path()); }
    void expectSongs(const std::string& when) const
    {
        EXPECT_EQ(disk_->songs.fileCount(), 3u) << when;
        EXPECT_EQ(disk_->songs.get("song 1.arr"), arrangement()) << when;
        EXPECT_EQ(disk_->songs.get("other.arr"), changedArrangement()) << when;
    }

    const Change& change_ = Changes[GetParam()];
    std::unique_ptr<Disk> disk_;
};

TEST_P(DBArrSweep, killedAtAnyCallLeavesTheOldOrTheNewDatabase)
{
    const SyscallRun whole = run({});
    ASSERT_EQ(whole.result, 0);
    ASSERT_TRUE(isNew());
    const int calls = static_cast<int>(whole.calls.size());
    ASSERT_GT(calls, 20);
    int old = 0;
    SyscallPlan plan;
    for (plan.killAt = 1; plan.killAt <= calls; plan.killAt += TARVOLYNE_SWEEP_STEP) {
        const std::string when = "killed at call " + std::to_string(plan.killAt);
        ASSERT_EQ(run(plan).signal, SIGKILL) << when;
        EXPECT_TRUE(isOld() || isNew()) << when;
        old += isOld();
        expectSongs(when);
    }
    EXPECT_GT(old, 0);
}

TEST_P(DBArrSweep, aDiskThatFailsAtAnyCallNeverEndsInAFalseSuccess)
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
            expectSongs(when);
            EXPECT_TRUE(isOld() || isNew() || ended.result == 0) << when;
            // Add All leaves out what it cannot read, and says nothing of it.
            const bool songLeftOut = std::string(change_.name) == "add-all" && isOld();
            EXPECT_TRUE(ended.result != 0 || isNew() || songLeftOut) << when;
        }
}

INSTANTIATE_TEST_SUITE_P(Changes, DBArrSweep, ::testing::Range<std::size_t>(0, Changes.size()),
                         [](const ::testing::TestParamInfo<std::size_t>& each) {
                             std::string name = Changes[each.param].name;
                             std::replace(name.begin(), name.end(), '-', '_');
                             return name;
                         });
