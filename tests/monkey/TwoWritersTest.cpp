// Two processes that write one file at the same moment: whoever comes last wins, and the file is one writer's whole.
// What one of them adds may be lost to the other; a mixture never stands on the disk.
#include "core/Dichiarazioni.h"
#include "core/RandomFile.h"
#include "core/Settings.h"
#include "core/StateFiles.h"
#include "database/DBArrUpdate.h"
#include "database/TvlDBArr.h"
#include "support/Figures.h"
#include "support/ScriptedUser.h"
#include "support/TemporaryFolder.h"

#include <algorithm>
#include <functional>
#include <gtest/gtest.h>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace
{

constexpr int Pairs = 20;
constexpr int TimesEach = 25;

/// Leaves every box without trying again.
struct GivingUp : ScriptedUser {
    BoxEnd warn(const std::string&, const std::string&) override { return BoxEnd::Dismissed; }
};

class TwoWriters : public testing::Test
{
protected:
    TwoWriters()
    {
        App = {};
        DBArr = {};
        App.StateDir = folder.path();
        App.ui = &user;
        SettingsFile::setDefaults(App);
        App.Language = 2;
    }
    ~TwoWriters() override
    {
        App = {};
        DBArr = {};
        Device = {};
    }

    /// Both kinds of work in processes of their own that begin together, `times` each.
    static void together(const std::function<void()>& one, const std::function<void()>& other, int times)
    {
        int gate[2];
        ASSERT_EQ(pipe(gate), 0);
        std::vector<pid_t> children;
        for (const auto* work : {&one, &other}) {
            const pid_t child = fork();
            if (child == 0) {
                char token = 0;
                close(gate[1]);
                static_cast<void>(!read(gate[0], &token, 1)); // until the gate is closed
                for (int each = 0; each < times; ++each)
                    (*work)();
                _exit(testing::Test::HasFailure() ? 1 : 0);
            }
            children.push_back(child);
        }
        close(gate[0]);
        close(gate[1]);
        for (const pid_t child : children) {
            int status = 0;
            waitpid(child, &status, 0);
            EXPECT_EQ(status, 0);
        }
    }
    /// What the file holds when `work` alone has run.
    std::string alone(const std::string& name, const std::string& before, const std::function<void()>& work) const
    {
        folder.put(name, before);
        together(
            work, [] {}, 1);
        return folder.get(name);
    }
    std::size_t files() const { return folder.fileCount(); }

    TemporaryFolder folder;
    GivingUp user;
};

TEST_F(TwoWriters, aFileOfTheUserIsOneOfTheTwoAndNothingStaysBesideIt)
{
    const std::string path = folder.file("song.arr");
    const std::string a(10528, 'a'), b(10528, 'b');
    int wins = 0;
    for (int pair = 0; pair < Pairs; ++pair) {
        folder.put("song.arr", std::string(10528, 'o'));
        together([&] { EXPECT_EQ(replaceFile(path, a), 0); }, [&] { EXPECT_EQ(replaceFile(path, b), 0); }, TimesEach);
        const std::string left = folder.get("song.arr");
        ASSERT_TRUE(left == a || left == b) << left.size();
        EXPECT_EQ(files(), 1U);
        wins += left == a ? 1 : 0;
    }
    RecordProperty("first", wins);
    noteFigure("R11", "saves of two processes at once", Pairs * TimesEach * 2LL);
}

TEST_F(TwoWriters, theSettingsAreThoseOfOneProcess)
{
    const auto leave = [](const char* lastFolder) {
        App.LastDirFiles = lastFolder;
        static_cast<void>(SettingsSave());
    };
    const auto one = [&] { leave("/music/one"); };
    const auto other = [&] { leave("/music/the other"); };
    const std::string before = SettingsFile::encode(App, SettingsFile::firstImage(App));
    const std::string a = alone("Tarvolyne.ini", before, one), b = alone("Tarvolyne.ini", before, other);
    ASSERT_EQ(a.size(), 11500U);
    ASSERT_NE(a, b);
    for (int pair = 0; pair < Pairs; ++pair) {
        folder.put("Tarvolyne.ini", before);
        together(one, other, TimesEach);
        const std::string left = folder.get("Tarvolyne.ini");
        ASSERT_TRUE(left == a || left == b) << left.size();
    }
    noteFigure("R11", "settings of two processes at once", Pairs * TimesEach * 2LL);
}

TEST_F(TwoWriters, theDatabaseHasTheOneTheOtherOrBothAndIsWhole)
{
    std::string first(27221, '\0');
    first.replace(0, 8, "TvlDBArr");
    std::string songs = folder.path();
    songs.resize(250, ' ');
    first.replace(26971, 250, songs);
    const auto add = [this](const char* name) { static_cast<void>(DBArrAddFile(folder.file(name))); };
    const auto one = [&] { add("anna"); };
    const auto other = [&] { add("bert"); };
    for (const char* name : {"anna.arr", "bert.arr"})
        folder.put(name, std::string("KORG\x4D\x00\x03", 7) + std::string(10521, '\0'));
    const std::string a = alone("TvlDBArr", first, one), b = alone("TvlDBArr", first, other);
    const std::string ab = alone("TvlDBArr", a, other), ba = alone("TvlDBArr", b, one);
    ASSERT_EQ(ab.size(), 27221U);
    ASSERT_NE(a, first);
    ASSERT_NE(ab, a);
    for (int pair = 0; pair < Pairs; ++pair) {
        folder.put("TvlDBArr", first);
        together(one, other, 1);
        const std::string left = folder.get("TvlDBArr");
        ASSERT_TRUE(left == a || left == b || left == ab || left == ba) << left.size();
    }
    noteFigure("R11", "database changes of two processes at once", Pairs * 2LL);
}

TEST_F(TwoWriters, theDeviceRecordKeepsItsLength)
{
    const auto count = [](int users) {
        DeviceRecordInit();
        Device.setUserCount(users);
        static_cast<void>(DeviceRecordWrite());
    };
    const auto one = [&] { count(1); };
    const auto other = [&] { count(2); };
    const std::string a = alone("Dornflex", "", one), b = alone("Dornflex", "", other);
    ASSERT_EQ(a.size(), 145U);
    for (int pair = 0; pair < Pairs; ++pair) {
        together(one, other, TimesEach);
        const std::string left = folder.get("Dornflex");
        ASSERT_TRUE(left == a || left == b) << left.size();
    }
    noteFigure("R11", "device records of two processes at once", Pairs * TimesEach * 2LL);
}

} // namespace
