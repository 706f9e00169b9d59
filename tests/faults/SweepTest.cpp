// Every way to write, broken off at every call, refused at every call, and on a disk that fills up at every place.
#include "faults/FaultRun.h"
#include "support/Figures.h"

#include <gtest/gtest.h>

#include <set>

namespace
{

constexpr int Step = FaultStep;

/// The long runs take every byte and every pair.
bool isLongRun() { return getenv("TARVOLYNE_LONG_RUN") != nullptr; }

std::vector<std::string> groups()
{
    std::vector<std::string> names;
    for (const WritePath& path : writePaths({"/"}))
        if (names.empty() || names.back() != path.group)
            names.push_back(path.group);
    return names;
}

/// Errors that go the way of another one meet a third of the calls, but for a long run.
int strideOf(int error) { return error == EIO || error == ENOSPC || isLongRun() ? Step : 3 * Step + 1; }

std::string errorName(int error) { return error == Failure::Death ? "death" : strerrorname_np(error); }

} // namespace

class Faults : public testing::TestWithParam<std::string>
{
protected:
    void SetUp() override
    {
        if (!runWithFailure({}, [] { return 0; }).possible)
            GTEST_SKIP() << "no system calls can be watched here";
        for (WritePath& path : writePaths(desk.site()))
            if (path.group == GetParam())
                paths.push_back(std::move(path));
    }
    void TearDown() override
    {
        if (!HasFailure() && !figure.empty())
            noteFigure(row, figure + ", " + GetParam(), count);
    }
    void counts(const char* rowOfTable, const std::string& what)
    {
        row = rowOfTable;
        figure = what;
    }

    FaultDesk desk;
    std::vector<WritePath> paths;
    std::string row, figure;
    long long count = 0;
};

TEST_P(Faults, anUndisturbedActWritesWhatItShould)
{
    counts("R4", "ways to write");
    for (const WritePath& path : paths) {
        SCOPED_TRACE(path.name);
        const FailedRun run = desk.run(path, {.call = 0});
        EXPECT_EQ(run.result, 0);
        EXPECT_EQ(desk.outcome().boxes, 0);
        EXPECT_EQ(desk.notSaved(path), "");
        EXPECT_EQ(desk.disk(path, Fate::Undisturbed), "");
        EXPECT_GT(run.calls, 1);
        EXPECT_LT(run.trace.size(), 400U);
        ++count;
    }
}

TEST_P(Faults, killedAtAnyCallLeavesTheOldOrTheNewFilesAndTheNextActIsClean)
{
    counts("R4", "kills");
    for (const WritePath& path : paths) {
        int call = 1;
        for (;; call += Step) {
            const FailedRun run = desk.run(path, {call, Failure::Death});
            if (!run.reached)
                break;
            ++count;
            const std::string when = path.name + ", killed at call " + std::to_string(call);
            ASSERT_EQ(run.result, -1) << when;
            ASSERT_EQ(desk.disk(path, Fate::Killed), "") << when;
            ASSERT_EQ(desk.again(path).result, 0) << when;
            ASSERT_EQ(desk.notSaved(path), "") << when;
        }
        EXPECT_GT(call, 2) << path.name;
    }
}

TEST_P(Faults, anErrorAtAnyCallNeverEndsInAFalseSuccess)
{
    counts("R5", "errors");
    for (const WritePath& path : paths)
        for (const int error : {EIO, ENOSPC, EDQUOT, EROFS, EINTR})
            for (const bool fromThereOn : {false, true})
                for (int call = 1;; call += strideOf(error)) {
                    const FailedRun run = desk.run(path, {call, error, fromThereOn});
                    if (!run.reached)
                        break;
                    ++count;
                    const std::string when = path.name + ", " + errorName(error) + " at call " + std::to_string(call) +
                                             (fromThereOn ? " and from there on" : "");
                    ASSERT_GE(run.result, 0) << when;
                    ASSERT_EQ(desk.disk(path, fromThereOn ? Fate::Hindered : Fate::Failed), "") << when;
                    ASSERT_EQ(desk.told(path, error), "") << when;
                    ASSERT_TRUE(error != EINTR || (run.result == 0 && desk.outcome().boxes == 0)) << when;
                }
}

TEST_P(Faults, aSecondErrorWhileTryingAgainIsToldLikeTheFirst)
{
    counts("R5", "pairs of errors");
    // The first lets the user try again; the second meets what is made then.
    for (const WritePath& path : paths)
        for (const int first : {ENOSPC, ENOMEDIUM})
            for (const int second : {EIO, ENOSPC, static_cast<int>(Failure::Death)}) {
                const int calls = desk.run(path, {.call = 0}).calls;
                const int stride = isLongRun() ? 1 : 29 * (Step == 1 ? 1 : 3);
                for (int one = 1 + (second == EIO ? 0 : 3); one <= calls; one += stride)
                    for (int other = one + 1;; other += stride) {
                        const FailedRun run = desk.run(path, {one, first, false, other, second}, 1);
                        if (run.calls < other)
                            break;
                        ++count;
                        const std::string when = path.name + ", " + errorName(first) + " at call " +
                                                 std::to_string(one) + " and " + errorName(second) + " at call " +
                                                 std::to_string(other);
                        ASSERT_EQ(
                            desk.disk(path, second == Failure::Death && path.inPlace ? Fate::Killed : Fate::Hindered),
                            "")
                            << when;
                        ASSERT_EQ(second == Failure::Death ? "" : desk.told(path, {first, second}), "") << when;
                    }
            }
}

TEST_P(Faults, killedWhileWritingInPlaceLeavesTheOldBytesInACopy)
{
    counts("R4", "kills behind a refused rename");
    for (WritePath path : paths) {
        if (path.group != "save" || !path.files[0].before)
            continue;
        // The first rename is refused, as for a file that another place has mounted.
        const CallTrace trace = desk.run(path, {.call = 0}).trace;
        const auto rename =
            std::find_if(trace.begin(), trace.end(), [](const TracedCall& call) { return call.deed == Deed::Rename; });
        ASSERT_NE(rename, trace.end()) << path.name;
        const int refused = static_cast<int>(rename - trace.begin()) + 1;
        path.mayBeTorn = true;
        ASSERT_EQ(desk.run(path, {.call = refused, .error = EPERM}).result, 0) << path.name;
        ASSERT_EQ(desk.notSaved(path), "") << path.name;
        for (int call = refused + 1;; call += Step) {
            const FailedRun run = desk.run(path, {refused, EPERM, false, call, Failure::Death});
            if (run.calls < call)
                break;
            ++count;
            ASSERT_EQ(desk.disk(path, Fate::Killed), "") << path.name << ", killed at call " << call;
        }
    }
    if (count == 0)
        figure.clear();
}

TEST_P(Faults, aDiskThatFillsUpAtAnyByteLeavesTheOldFile)
{
    counts("R6", "byte budgets");
    constexpr long long Piece = 512, Edge = 16;
    for (const WritePath& path : paths) {
        const long long written = desk.run(path, {.call = 0}).written;
        std::set<long long> rooms;
        for (long long room = 0; room < written; ++room)
            if (isLongRun() ||
                ((room % Piece == 0 || room < Edge || written - room <= Edge) && (Step == 1 || room % 2048 == 0)))
                rooms.insert(room);
        for (const long long room : rooms) {
            const FailedRun run = desk.run(path, {0, ENOSPC, false, 0, 0, room});
            const std::string when = path.name + ", room for " + std::to_string(room) + " bytes";
            ASSERT_TRUE(run.reached) << when;
            ++count;
            ASSERT_GE(run.result, 0) << when;
            // Bytes that stand can be overwritten on a full disk; here they cannot, and the copy holds them.
            ASSERT_EQ(desk.disk(path, path.inPlace ? Fate::Hindered : Fate::Failed), "") << when;
            ASSERT_EQ(desk.told(path, ENOSPC), "") << when;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(OfEachWay, Faults, testing::ValuesIn(groups()), [](const auto& each) {
    std::string name = each.param;
    std::replace(name.begin(), name.end(), ' ', '_');
    return name;
});
