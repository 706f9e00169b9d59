// Who may look into what each way to write makes, and that nothing which somebody has put there first is written into:
// new files are made under names that nobody had, and for whom they are.
#include "faults/FaultRun.h"
#include "support/Figures.h"
#include "support/Permissions.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace
{

namespace fs = std::filesystem;

constexpr mode_t OldMode = 0604; ///< of the user's files before: no umask gives it
constexpr mode_t OwnerOnly = 0600, OwnersFolder = 0700, ByOpenUmask = 0666;

/// The two files of a fixed name, which are opened where they stand.
bool hasFixedName(const std::string& path)
{
    return path.ends_with("/TvlLock") || path.ends_with("/VirtualInstrument.syx");
}

/// What is wrong with an opening that may write, in words; "" when nothing.
std::string whatIsOpen(const TracedCall& call, const Site& site)
{
    if (call.deed == Deed::Create && (call.flags & O_NOFOLLOW) == 0)
        return "a file is made behind a link";
    if (call.deed == Deed::Create && (call.flags & O_EXCL) == 0 && !hasFixedName(call.path))
        return "a file is made that may be another's";
    if (call.deed == Deed::Create && call.mode != OwnerOnly &&
        (call.mode != ByOpenUmask || std::string(call.path).starts_with(site.state())))
        return "a file is made for more than its user";
    const bool writes = (call.flags & O_ACCMODE) != O_RDONLY;
    if (call.deed == Deed::Open && writes && (call.flags & O_NOFOLLOW) == 0)
        return "a file is overwritten behind a link";
    return {};
}

} // namespace

TEST(Permissions, everyWayToWriteMakesItsFilesUnderNamesThatNobodyHadAndForItsUserAlone)
{
    if (!runWithFailure({}, [] { return 0; }).possible)
        GTEST_SKIP() << "no system calls can be watched here";
    FaultDesk desk;
    long long made = 0, overwritten = 0;
    for (const WritePath& path : writePaths(desk.site()))
        for (const TracedCall& call : desk.run(path, {.call = 0}).trace) {
            EXPECT_EQ(whatIsOpen(call, desk.site()), "") << path.name << ", " << call.path;
            made += call.deed == Deed::Create;
            overwritten += call.deed == Deed::Open && (call.flags & O_ACCMODE) != O_RDONLY;
        }
    EXPECT_GT(made, 48);
    EXPECT_GT(overwritten, 0) << "in a folder that lets nothing be created";
    noteFigure("R9", "files made under names that nobody had", made);
}

TEST(Permissions, areToldWhereTheyAreWrong)
{
    const Site site{"/d"};
    const auto opened = [&](Deed deed, const char* path, long flags, long mode) {
        TracedCall call;
        call.deed = deed;
        call.flags = flags | O_WRONLY;
        call.mode = mode;
        std::snprintf(call.path, sizeof call.path, "%s", path);
        return whatIsOpen(call, site);
    };
    constexpr long Safe = O_CREAT | O_EXCL | O_NOFOLLOW;
    EXPECT_EQ(opened(Deed::Create, "/d/user/t", Safe, 0666), "");
    EXPECT_EQ(opened(Deed::Create, "/d/state/t", Safe, 0600), "");
    EXPECT_EQ(opened(Deed::Create, "/d/state/t", Safe, 0666), "a file is made for more than its user");
    EXPECT_EQ(opened(Deed::Create, "/d/user/t", Safe, 0777), "a file is made for more than its user");
    EXPECT_EQ(opened(Deed::Create, "/d/user/t", O_CREAT | O_NOFOLLOW, 0600), "a file is made that may be another's");
    EXPECT_EQ(opened(Deed::Create, "/d/state/TvlLock", O_CREAT | O_NOFOLLOW, 0600), "");
    EXPECT_EQ(opened(Deed::Create, "/d/state/TvlLock", O_CREAT, 0600), "a file is made behind a link");
    EXPECT_EQ(opened(Deed::Open, "/d/user/a", 0, 0), "a file is overwritten behind a link");
    EXPECT_EQ(opened(Deed::Open, "/d/user/a", O_NOFOLLOW, 0), "");
}

TEST(Permissions, afterEveryWayToWriteAreThoseOfTheOldFileTheUmaskOrTheUserAlone)
{
    const Umask open(0);
    FaultDesk desk;
    long long files = 0;
    for (const WritePath& path : writePaths(desk.site())) {
        desk.prepare(path, [&] {
            for (const WrittenFile& file : path.files)
                if (file.before && file.place == Place::User)
                    chmod(file.path(desk.site()).c_str(), OldMode);
        });
        ASSERT_EQ(desk.again(path).result, 0) << path.name;
        for (const WrittenFile& file : path.files) {
            if (file.place != Place::User || !fs::exists(file.path(desk.site())))
                continue;
            EXPECT_EQ(modeOf(file.path(desk.site())), file.before ? OldMode : ByOpenUmask)
                << path.name << ", " << file.name;
            ++files;
        }
        for (const auto& entry : fs::recursive_directory_iterator(desk.site().state())) {
            const auto known = std::find_if(path.files.begin(), path.files.end(), [&](const WrittenFile& file) {
                return entry.path() == file.path(desk.site());
            });
            if (known != path.files.end() && known->before == known->after)
                continue; // stands as the test laid it
            EXPECT_EQ(modeOf(entry.path()), entry.is_directory() ? OwnersFolder : OwnerOnly)
                << path.name << ", " << entry.path();
            ++files;
        }
    }
    noteFigure("R9", "files whose permissions were looked at", files);
}
