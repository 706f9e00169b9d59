// The program's own windows, menus, dialogs and boxes, with the disk failing or the process dying at each call that
// changes a file: Save, Save As, the question at closing, and the exit.
//
// One process opens the windows. For each fault it makes a copy of itself (fork), in which the user acts.
#include "faults/windows/GuiDesk.h"
#include "support/Figures.h"

#include <gtest/gtest.h>

namespace
{

// A process with sanitizers is slow to copy: some of the calls must do there.
#ifdef __has_feature
#if __has_feature(address_sanitizer)
#define TARVOLYNE_SWEEP_STEP 5
#endif
#endif
#ifndef TARVOLYNE_SWEEP_STEP
#define TARVOLYNE_SWEEP_STEP 1
#endif

bool isLongRun() { return getenv("TARVOLYNE_LONG_RUN") != nullptr; }

} // namespace

class GuiFaults : public testing::TestWithParam<std::string>
{
protected:
    /// Makes each fault of a list at each call of each way, and expects nothing broken.
    void sweep(const std::vector<Failure>& faults, const char* row, const std::string& what, bool again)
    {
        if (!runWithFailure({}, [] { return 0; }).possible)
            GTEST_SKIP() << "no system calls can be watched here";
        GuiDesk desk;
        long long count = 0;
        for (const GuiWay& way : guiWays()) {
            if (way.group != GetParam())
                continue;
            const GuiReport report = desk.sweep(way, faults, TARVOLYNE_SWEEP_STEP, again);
            EXPECT_STREQ(report.broken.data(), "") << way.path.name;
            EXPECT_GT(report.calls, 3) << way.path.name;
            EXPECT_GE(report.faults, (report.calls - 1) / TARVOLYNE_SWEEP_STEP) << way.path.name;
            count += report.faults;
        }
        EXPECT_GT(count, 0);
        if (!HasFailure())
            noteFigure(row, what + " in the windows, " + GetParam(), count);
    }
};

TEST_P(GuiFaults, killedAtAnyChangeLeavesTheOldOrTheNewFiles)
{
    sweep({{.error = Failure::Death}}, "R4", "kills", true);
}

TEST_P(GuiFaults, anErrorAtAnyChangeIsToldAndLeavesTheWindowModified)
{
    std::vector<Failure> faults = {{.error = EIO}, {.error = ENOSPC, .fromThereOn = true}};
    if (isLongRun())
        for (const int error : {EIO, ENOSPC, EDQUOT, EROFS, EINTR})
            for (const bool fromThereOn : {false, true})
                faults.push_back({.error = error, .fromThereOn = fromThereOn});
    sweep(faults, "R5", "errors", false);
}

class GuiPairs : public GuiFaults
{
};

TEST_P(GuiPairs, aSecondErrorWhileTryingAgainIsToldToo)
{
    const int last = isLongRun() ? 40 : 5, stride = isLongRun() ? 1 : 4;
    std::vector<Failure> faults;
    for (int behind = 1; behind <= last; behind += stride)
        for (const int second : {EIO, static_cast<int>(Failure::Death)})
            faults.push_back({.error = ENOSPC, .secondCall = behind, .secondError = second});
    sweep(faults, "R5", "pairs of errors", false);
}

namespace
{

const std::vector<std::string> Groups = {"save", "save as", "closing", "exit"};

/// Save As lets the user try again on a full disk; elsewhere the second error meets the cleaning up, which long runs
/// do.
std::vector<std::string> groupsOfPairs() { return isLongRun() ? Groups : std::vector<std::string>{"save as"}; }

std::string nameOf(const testing::TestParamInfo<std::string>& each)
{
    std::string name = each.param;
    std::replace(name.begin(), name.end(), ' ', '_');
    return name;
}

} // namespace

INSTANTIATE_TEST_SUITE_P(OfEachWay, GuiFaults, testing::ValuesIn(Groups), nameOf);
INSTANTIATE_TEST_SUITE_P(OfEachWay, GuiPairs, testing::ValuesIn(groupsOfPairs()), nameOf);
