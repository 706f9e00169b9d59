// Readers of names that are not there: whatever call they die or fail in, no file has come of it.
#include "faults/FaultRun.h"
#include "support/Figures.h"

#include "core/Dichiarazioni.h"
#include "core/Settings.h"
#include "core/StateFiles.h"
#include "database/DBArrUpdate.h"
#include "database/TvlDBArr.h"
#include "files/FileReaders.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace
{

struct Reader {
    const char* name;
    std::function<void(const Site&)> read;
};

std::vector<Reader> readers()
{
    const auto drop = [](auto result) { static_cast<void>(result); };
    return {
        {"arrangements", [=](const Site& site) { drop(ArrFileRead(site.user() + "/song.arr")); }},
        {"styles", [=](const Site& site) { drop(StyFileRead(site.user() + "/song.sty")); }},
        {"programs", [=](const Site& site) { drop(PrgFileRead(site.user() + "/song.prg")); }},
        {"programs of the other kind", [=](const Site& site) { drop(PrgFileRead(site.user() + "/song.pgg")); }},
        {"globals", [=](const Site& site) { drop(GblFileRead(site.user() + "/song.gbl")); }},
        {"database", [=](const Site&) { drop(DBArrPresent(true)); }},
        {"number of a file", [=](const Site& site) { drop(DBArrLookup(site.user() + "/song.arr")); }},
        {"refresh", [=](const Site&) { drop(DBArrRefresh()); }},
        {"device record", [=](const Site&) { drop(DeviceRecordRead()); }},
        {"information record", [=](const Site&) { drop(InfoRead()); }},
        {"information record to be changed", [=](const Site&) { drop(InfoArrSet(std::string(300, 'x'))); }},
        {"settings beside a running program",
         [](const Site&) {
             App.AnotherRuns = true;
             SettingsLoad();
         }},
    };
}

std::string whatCame(const Site& site)
{
    for (const std::string& folder : {site.user(), site.state()})
        for (const auto& entry : std::filesystem::directory_iterator(folder))
            return entry.path().filename();
    return {};
}

} // namespace

TEST(ReadersOfWhatIsMissing, leaveNoFileWhateverCallTheyDieOrFailIn)
{
    if (!runWithFailure({}, [] { return 0; }).possible)
        GTEST_SKIP() << "no system calls can be watched here";
    FaultDesk desk;
    long long kills = 0, errors = 0, count = 0;
    for (const Reader& reader : readers()) {
        WritePath path{reader.name, {}, Telling::ByBoth, [](const Site&, FaultUser&) {}, {}};
        path.act = [&](const Site& site, FaultUser&) {
            reader.read(site);
            return 0;
        };
        for (const int error : {static_cast<int>(Failure::Death), EIO, ENOSPC, EROFS, EINTR})
            for (int call = 1;; call += (FaultStep + 4) / 5) {
                const FailedRun run = desk.run(path, {call, error});
                ASSERT_EQ(whatCame(desk.site()), "") << reader.name << ", call " << call << ", error " << error;
                if (!run.reached)
                    break;
                ASSERT_EQ(run.result, error == Failure::Death ? -1 : 0) << reader.name << ", call " << call;
                (error == Failure::Death ? kills : errors) += 1;
            }
        ++count;
    }
    noteFigure("R10", "readers of what is missing", count);
    noteFigure("R10", "kills", kills);
    noteFigure("R10", "errors", errors);
}
