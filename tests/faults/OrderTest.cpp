// The order in which a save asks the disk for things: bytes before the name, the name before "saved". What a power cut
// at any call may leave is worked out from the trace.
#include "faults/FaultRun.h"
#include "support/Figures.h"

#include <gtest/gtest.h>

namespace
{

using Content = DiskAfterPowerCut::Content;

bool mayHoldOnly(const std::set<Content>& found, std::initializer_list<Content> allowed)
{
    return std::all_of(found.begin(), found.end(), [&](Content content) {
        return std::find(allowed.begin(), allowed.end(), content) != allowed.end();
    });
}

/// What a power cut may not leave of a file, in words; "" when nothing.
std::string whatIsLost(const DiskAfterPowerCut& disk, const WrittenFile& file, const Site& site, bool ended)
{
    const std::set<Content> found = disk.mayHold(file.path(site));
    if (found.count(Content::Torn) != 0)
        return "bytes that may not be there have the name " + file.name;
    if (file.before && file.after && found.count(Content::Absent) != 0)
        return file.name + " may be gone";
    if (!ended || file.before == file.after)
        return {};
    return mayHoldOnly(found, {file.after ? Content::New : Content::Absent}) ? std::string()
                                                                             : file.name + " is called saved too early";
}

} // namespace

TEST(OrderOfASave, leavesWholeFilesWhereverThePowerGoesAndSavedOnesOnceItIsSaid)
{
    if (!runWithFailure({}, [] { return 0; }).possible)
        GTEST_SKIP() << "no system calls can be watched here";
    FaultDesk desk;
    long long cuts = 0, traces = 0;
    for (const WritePath& path : writePaths(desk.site())) {
        // A file that is written in place has its promise in the copy, which the kills look at; what the instrument
        // takes is no save.
        if (path.inPlace || path.group == "virtual instrument and lock")
            continue;
        const CallTrace trace = desk.run(path, {.call = 0}).trace;
        std::vector<std::string> oldFiles;
        for (const WrittenFile& file : path.files)
            if (file.before)
                oldFiles.push_back(file.path(desk.site()));
        DiskAfterPowerCut disk(oldFiles);
        for (std::size_t call = 0; call <= trace.size(); ++call) {
            for (const WrittenFile& file : path.files)
                if (!file.grows && !file.ofRun) {
                    ASSERT_EQ(whatIsLost(disk, file, desk.site(), call == trace.size()), "")
                        << path.name << ", power cut at call " << call + 1;
                }
            ++cuts;
            if (call < trace.size())
                disk.take(trace[call]);
        }
        ++traces;
    }
    noteFigure("R9", "traces read", traces);
    noteFigure("R9", "power cuts worked out", cuts);
}

TEST(OrderOfASave, aStartDoesNotWaitForTheDiskToTellWhoRuns)
{
    if (!runWithFailure({}, [] { return 0; }).possible)
        GTEST_SKIP() << "no system calls can be watched here";
    FaultDesk desk;
    int starts = 0;
    for (const WritePath& path : writePaths(desk.site())) {
        if (path.name != "start" && path.name != "device record")
            continue;
        const CallTrace trace = desk.run(path, {.call = 0}).trace;
        const auto renamed = [](const TracedCall& call) { return call.deed == Deed::Rename; };
        EXPECT_EQ(std::count_if(trace.begin(), trace.end(), renamed), 1) << path.name;
        for (const TracedCall& call : trace)
            EXPECT_NE(call.deed, Deed::Flush) << path.name << ": " << call.path;
        ++starts;
    }
    EXPECT_EQ(starts, 2);
}

TEST(OrderOfASave, isToldWhereItIsWrong)
{
    const auto call = [](Deed deed, const char* path, const char* to = "") {
        TracedCall made;
        made.deed = deed;
        std::snprintf(made.path, sizeof made.path, "%s", path);
        std::snprintf(made.to, sizeof made.to, "%s", to);
        return made;
    };
    const WrittenFile file{Place::User, "a", "old", "new"};
    const Site site{"/d"};
    const auto lost = [&](const CallTrace& trace) {
        DiskAfterPowerCut disk({"/d/user/a"});
        std::string found;
        for (std::size_t i = 0; i <= trace.size() && found.empty(); ++i) {
            found = whatIsLost(disk, file, site, i == trace.size());
            if (i < trace.size())
                disk.take(trace[i]);
        }
        return found;
    };
    const TracedCall create = call(Deed::Create, "/d/user/t"), write = call(Deed::Write, "/d/user/t"),
                     flush = call(Deed::Flush, "/d/user/t"), name = call(Deed::Rename, "/d/user/t", "/d/user/a"),
                     folder = call(Deed::Flush, "/d/user");
    EXPECT_EQ(lost({create, write, flush, name, folder}), "");
    EXPECT_EQ(lost({create, write, name, folder}), "bytes that may not be there have the name a");
    EXPECT_EQ(lost({create, flush, write, name, folder}), "bytes that may not be there have the name a");
    EXPECT_EQ(lost({create, write, flush, name}), "a is called saved too early");
    EXPECT_EQ(lost({create, write, flush, folder, name}), "a is called saved too early");
    EXPECT_EQ(lost({call(Deed::Write, "/d/user/a"), folder}), "bytes that may not be there have the name a");
    EXPECT_EQ(lost({call(Deed::Remove, "/d/user/a"), create, write, flush, name, folder}), "a may be gone");
}

TEST(OrderOfASave, takesAFlushThatFailsForAFailure)
{
    if (!runWithFailure({}, [] { return 0; }).possible)
        GTEST_SKIP() << "no system calls can be watched here";
    FaultDesk desk;
    long long flushes = 0;
    const std::vector<WritePath> paths = writePaths(desk.site());
    for (const WritePath& path : paths) {
        if (path.group == "virtual instrument and lock" || path.group == "start and exit" || path.files.front().ofRun)
            continue; // which go on without their records
        const CallTrace trace = desk.run(path, {.call = 0}).trace;
        for (std::size_t call = 0; call < trace.size(); ++call) {
            const std::string flushed = trace[call].path;
            if (trace[call].deed != Deed::Flush || flushed.find("/Safety/") != std::string::npos ||
                (FaultStep > 1 && &path != &paths.front() && call % 3 != 0))
                continue;
            const FailedRun run = desk.run(path, {static_cast<int>(call) + 1, EIO});
            EXPECT_NE(run.result, 0) << path.name << ", flush of " << flushed;
            EXPECT_EQ(desk.told(path, EIO), "") << path.name << ", flush of " << flushed;
            ++flushes;
        }
    }
    EXPECT_GT(flushes, FaultStep == 1 ? 60 : 10);
    noteFigure("R9", "flushes that failed", flushes);
}
