// What seldom happens to windows and their files: every slot taken, a window twice or none, nobody there to be told.
#include "FilesFixture.h"

#include "files/SafetyCopies.h"
#include "files/SavePlan.h"
#include "files/WindowBuffer.h"
#include "support/CoreRun.h"

#include <algorithm>
#include <filesystem>

namespace
{

struct Odd : testing::Test {
    CoreRun run;
    ~Odd() override { OpenWindows::clear(); }
};

/// Takes all eight entries from `first`, then gives the last one back.
template <typename Entries>
void expectEight(Entries& entries, std::size_t first, int (*free)())
{
    EXPECT_EQ(free(), 1);
    for (std::size_t index = 0; index < 8; ++index)
        entries[first + index].used = true;
    EXPECT_EQ(free(), 0);
    entries[first + 7].used = false;
    EXPECT_EQ(free(), 8);
    entries[first + 2].used = false;
    EXPECT_EQ(free(), 3);
}

} // namespace

TEST_F(Odd, eachFamilyHasEightSlotsAndGivesTheLowest)
{
    expectEight(App.Arrangements, 0, ArrSlotFree);
    expectEight(App.Styles, 0, StySlotFree);
    expectEight(App.Programs, 0, PrgSlotFree);
    App.Globals[0].used = true; // the instrument's own block
    expectEight(App.Globals, 1, GblSlotFree);
    expectEight(App.NewArrangements, 0, ArrNewSlotFree);
}

TEST_F(Odd, onlyAnEntryInUseHoldsAPath)
{
    App.Arrangements[7].path = "/m/song   ";
    EXPECT_EQ(ArrWinFind("/m/song"), 0);
    App.Arrangements[7].used = true;
    EXPECT_EQ(ArrWinFind("/m/song"), 1);
    EXPECT_EQ(ArrWinFind("/m/son"), 0);
    App.Globals[8].path = "/m/stage";
    App.Globals[8].used = true;
    std::string path = "/m/stage.gbl";
    EXPECT_EQ(GblWinFind(path), 1);
    EXPECT_EQ(path, "/m/stage");
    path = "gbl";
    EXPECT_EQ(GblWinFind(path), 0);
    path = "/m.x/ab";
    EXPECT_EQ(GblWinFind(path), 0);
    EXPECT_EQ(path, "/m.x/ab") << "that point is the folder's";
}

TEST_F(Odd, aWindowIsKnownOnceAndNoWindowNever)
{
    WindowBuffer window{windowWith(19, "")};
    OpenWindows::add(nullptr);
    OpenWindows::add(&window);
    OpenWindows::add(&window);
    EXPECT_EQ(OpenWindows::all(), std::vector<WindowBuffer*>{&window});
    OpenWindows::remove(&window);
    EXPECT_EQ(OpenWindows::all(), std::vector<WindowBuffer*>{});
}

TEST_F(Odd, aWindowThatCannotBeSavedHasNoKindForAnyFilter)
{
    for (const int kind : {1, 9, 12, 18}) {
        const WindowBuffer window{windowWith(kind, "")};
        for (int filter = 0; filter <= 7; ++filter)
            EXPECT_EQ(fileKindChosen(window, filter), 0) << kind;
    }
}

TEST_F(Odd, theStylesFilterIsForStyleWindowsAndArrangementsThatHaveStyles)
{
    constexpr int Styles = 2;
    WindowBuffer arrangements{windowWith(19, "")};
    arrangements.set(8, 0);
    EXPECT_EQ(fileKindChosen(arrangements, Styles), 0);
    arrangements.set(8, 1);
    EXPECT_EQ(fileKindChosen(arrangements, Styles), Styles);
    EXPECT_EQ(fileKindChosen(WindowBuffer{windowWith(23, "")}, Styles), Styles);
    EXPECT_EQ(fileKindChosen(WindowBuffer{windowWith(24, "")}, Styles), Styles);
    EXPECT_EQ(fileKindChosen(WindowBuffer{windowWith(21, "")}, Styles), 0);
}

TEST_F(Odd, aRefusedFileIsRefusedThoughNobodyIsThereToBeTold)
{
    App.ui = nullptr;
    Files.StyBuffer = "kept";
    EXPECT_EQ(StyFileRead(run.folder.put("song.sty", "nonsense")), 1);
    EXPECT_EQ(Files.StyBuffer, "kept");
    Files = {};
}

TEST_F(Odd, theFirstSafetyCopyOfASecondHasTheNumberOne)
{
    const std::string path = run.folder.put("song.arr", "first");
    for (const char* next : {"second", "third", "fourth"})
        EXPECT_EQ(replaceKeeping(path, next), 0);
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(run.folder.path() + "/Safety" + path))
        names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
    ASSERT_EQ(names.size(), 3u);
    EXPECT_EQ(names[0].substr(19), "-001.arr");
    // In the same second the numbers go on; in the next one they begin anew.
    const bool same = names[1].substr(0, 19) == names[0].substr(0, 19);
    EXPECT_EQ(names[1].substr(19), same ? "-002.arr" : "-001.arr");
}
