// Load All, the search by ID, the carriers, the monitor, and windows closed in mid-stage.
#include "ArrLoads.h"

// --- Load All -----------------------------------------------------------------------------------------------------

TEST_F(ArrLoads, loadAllSendsArrangementsThenStylesThenPrograms)
{
    putStyles();
    folder().put("song.prg", prgFile("KORG", {}));
    frmArrU* window = openUsual();
    Arr.ArrEditOpen = Arr.ArrEditDirty = true;
    window->Tag.set(2, 2);
    press(window, "CommLoadAll");
    EXPECT_EQ(diary, Lines{"status Loading Arrangement"});
    EXPECT_EQ(timer(window, "TimerLoadAll")->Interval(), 11);
    ASSERT_TRUE(settled(window));
    // Without a mode change, without a question about the edited arrangement.
    EXPECT_EQ(diary, joined({{"status Loading Arrangement", "F0 42 32 4D 64 (12002)", "status", "status Loading Style"},
                             styleGroups(),
                             {"status Loading Program", "F0 42 32 4D 4C (14992)", "status"}}));
    EXPECT_TRUE(diaryUser.questions.empty());
    EXPECT_EQ(window->Tag.at(2), 0) << "the instrument holds what the image holds";
    EXPECT_EQ(timer(window, "TimerLoadAll")->Interval(), 10);
    EXPECT_FALSE(Arr.LoadingAll);
    EXPECT_EQ(App.InfoArr + "," + App.InfoSty + "," + App.InfoPrg, "song,song,song");
}

TEST_F(ArrLoads, loadAllPausesBetweenTheDumps)
{
    StageTimer::setTimeScale(0.1);
    putStyles();
    folder().put("song.prg", prgFile("KORG", {}));
    frmArrU* window = openUsual();
    timer(window, "TimerLoadAll")->enable();
    ASSERT_TRUE(settled(window));
    std::vector<std::chrono::steady_clock::time_point> times;
    for (const auto& call : port.calls)
        if (call.operation == "midiOutLongMsg")
            times.push_back(call.when);
    ASSERT_EQ(times.size(), 4u);
    const auto apart = [&](std::size_t i) {
        return std::chrono::duration_cast<std::chrono::milliseconds>(times[i] - times[i - 1]).count();
    };
    EXPECT_GE(apart(1), 82) << "820 ms behind the arrangements";
    EXPECT_LT(apart(1), 500);
    EXPECT_GE(apart(3), 80 + 99) << "a style pause, then 800 ms before the programs";
    EXPECT_LT(apart(3), 900);
}

TEST_F(ArrLoads, loadAllWithoutStyleDataStaysAt800UntilTheNextPress)
{
    folder().put("song.prg", prgFile("KORG", {}));
    frmArrU* window = openUsual();
    press(window, "CommLoadAll");
    ASSERT_TRUE(settled(window));
    EXPECT_EQ(timer(window, "TimerLoadAll")->Interval(), 800);
    EXPECT_EQ(longMessages().size(), 1u) << "the arrangements alone";
    EXPECT_TRUE(Arr.LoadingAll);
    EXPECT_EQ(diary.back(), "status") << "nothing is being loaded";
    diary.clear();
    press(window, "CommLoadAll");
    ASSERT_TRUE(settled(window));
    EXPECT_EQ(diary, (Lines{"status Loading Program", "F0 42 32 4D 4C (14992)", "status"}));
    EXPECT_EQ(timer(window, "TimerLoadAll")->Interval(), 10);
    EXPECT_FALSE(Arr.LoadingAll);
}

TEST_F(ArrLoads, loadAllOfOneWindowIsNotCarriedOnByTheStylesOfAnother)
{
    putStyles("other.sty");
    folder().put("song.prg", prgFile("KORG", {}));
    folder().put("other.prg", prgFile("KORG", {}));
    frmArrU* first = openUsual(1);
    frmArrU* second = open(2, "other", usualFile());
    press(first, "CommLoadAll");
    ASSERT_TRUE(settled(first));
    press(second, "CommLoadSty");
    ASSERT_TRUE(settled(second));
    EXPECT_EQ(App.InfoPrg, "");
    EXPECT_EQ(timer(first, "TimerLoadAll")->Interval(), 800);
    EXPECT_EQ(timer(second, "TimerLoadAll")->Interval(), 10);
}

// --- Search by ID -------------------------------------------------------------------------------------------------

TEST_F(ArrLoads, aSearchLoadsWhatTheRowNeedsThenSelectsIt)
{
    App.AutoArr = App.AutoSty = App.AutoPrg = true;
    putStyles();
    folder().put("song.prg", prgFile("KORG", {}));
    Arr.FindIdActive = true;
    Arr.FindIdRow = 4;
    frmArrU* window = open(1, "song", arrFile({{4, Block().name("Wanted").style(1, 1).track(0, 65, 1)}}));
    EXPECT_EQ(list(window)->ListIndex(), 4);
    ASSERT_TRUE(settled(window));
    EXPECT_FALSE(Arr.FindIdActive);
    EXPECT_EQ(timer(window, "TimerFindID")->Interval(), 10);
    // The first status may stand before the diary begins, in the event of the opening.
    const Lines expected = joined({{ArrLoad.begin() + 1, ArrLoad.end()},
                                   styleGroups(),
                                   selection(4),
                                   {"status Loading Program", "F0 42 32 4D 4C (14992)", "status"},
                                   selection(4)});
    ASSERT_GE(diary.size(), expected.size());
    EXPECT_EQ(Lines(diary.end() - static_cast<std::ptrdiff_t>(expected.size()), diary.end()), expected);
}

TEST_F(ArrLoads, aSearchWithoutAutomaticLoadsSelectsAlone)
{
    putStyles();
    Arr.FindIdActive = true;
    Arr.FindIdRow = 1;
    frmArrU* window = openUsual();
    ASSERT_TRUE(settled(window));
    EXPECT_EQ(Lines(diary.end() - 4, diary.end()), selection(1));
    EXPECT_EQ(longMessages().size(), 0u);
    EXPECT_FALSE(Arr.FindIdActive);
}

TEST_F(ArrLoads, aSearchReadsAnewWhatTheInstrumentHolds)
{
    App.AutoArr = true;
    folder().put("TvlCMInfo", infoFile("song", "", ""));
    frmArrU* window = openUsual();
    Arr.FindIdActive = true;
    Arr.FindIdRow = 2;
    timer(window, "TimerFindID")->enable();
    ASSERT_TRUE(settled(window));
    EXPECT_EQ(diary, selection(2)) << "the file says that the arrangements are there";
    EXPECT_EQ(list(window)->ListIndex(), 2) << "also in a window that was open before";
}

TEST_F(ArrLoads, aSearchGoesOnWhenAFileIsMissing)
{
    App.AutoSty = App.AutoPrg = true;
    Arr.FindIdActive = true;
    Arr.FindIdRow = 4;
    frmArrU* window = open(1, "song", arrFile({{4, Block().name("Wanted").style(1, 1).track(0, 65, 1)}}));
    ASSERT_TRUE(settled(window));
    EXPECT_FALSE(Arr.FindIdActive);
    EXPECT_EQ(Lines(diary.end() - 4, diary.end()), selection(4));
}

TEST_F(ArrLoads, aSearchForACodeThatNamesNoRowSelectsAndLoadsNothing)
{
    App.AutoSty = App.AutoPrg = true;
    putStyles();
    folder().put("song.prg", prgFile("KORG", {}));
    frmArrU* window = openUsual();
    Arr.FindIdActive = Arr.FindIdUsesUserStyle = Arr.FindIdUsesBankD = true; // as an earlier search left them
    Arr.FindIdRow = 91;
    timer(window, "TimerFindID")->enable();
    ASSERT_TRUE(settled(window));
    EXPECT_TRUE(port.messages().empty());
    EXPECT_FALSE(Arr.FindIdActive);
    EXPECT_EQ(timer(window, "TimerFindID")->Interval(), 10);
}

// --- The message monitor ------------------------------------------------------------------------------------------

TEST_F(ArrLoads, eachDumpAndTheSelectionStandInAnEmptiedMonitor)
{
    struct Monitor : MessageMonitor {
        Lines shown;
        void clear() override { shown.push_back("cleared"); }
        void append(const std::string& line) override { shown.push_back(line.substr(0, 14)); }
    } monitor;
    MsgLogAttach(&monitor);
    Midi.MsgLogActive = true;
    putStyles();
    folder().put("song.prg", prgFile("KORG", {}));
    frmArrU* window = openUsual();
    clickRow(window, 0);
    monitor.shown.clear();
    press(window, "CommLoadArr");
    ASSERT_TRUE(settled(window));
    EXPECT_EQ(monitor.shown,
              (Lines{"cleared", "F0 42 32 4D 4E", "cleared", "F0 42 32 4D 4E", "cleared", "F0 42 32 4D 64"}));
    monitor.shown.clear();
    press(window, "CommLoadSty");
    ASSERT_TRUE(settled(window));
    EXPECT_EQ(monitor.shown,
              (Lines{"cleared", "F0 42 32 4D 65", "cleared", "F0 42 32 4D 65", "cleared", "B2 00 00 B2 20"}));
    monitor.shown.clear();
    press(window, "CommLoadPrg");
    ASSERT_TRUE(settled(window));
    EXPECT_EQ(monitor.shown, (Lines{"cleared", "F0 42 32 4D 4C"}));
    MsgLogAttach(nullptr);
}

// --- Single carriers ----------------------------------------------------------------------------------------------

TEST_F(ArrLoads, timer0SelectsTheRow)
{
    frmArrU* window = openUsual();
    list(window)->select(2);
    timer(window, "Timer(0)")->enable();
    ASSERT_TRUE(settled(window));
    EXPECT_EQ(diary, selection(2));
    EXPECT_EQ(timer(window, "Timer(0)")->Interval(), 0) << "how a handler knows its second pass";
}

TEST_F(ArrLoads, timer1HasNoAction)
{
    frmArrU* window = openUsual();
    list(window)->select(2);
    timer(window, "Timer(1)")->enable();
    ASSERT_TRUE(settled(window));
    EXPECT_TRUE(diary.empty());
    EXPECT_EQ(timer(window, "Timer(1)")->Interval(), 0);
}

TEST_F(ArrLoads, timer2LoadsStylesAndThenProgramsWhenTheyAreChecked)
{
    App.AutoPrg = true;
    putStyles();
    folder().put("song.prg", prgFile("KORG", {}));
    frmArrU* window = openUsual();
    timer(window, "Timer(2)")->enable();
    ASSERT_TRUE(QTest::qWaitFor([&] { return longMessages().size() == 3; }, 3000));
    EXPECT_EQ(timer(window, "Timer(2)")->Interval(), 10);
    EXPECT_EQ(App.InfoPrg, "song");
}

TEST_F(ArrLoads, timer2LoadsStylesAloneOtherwise)
{
    putStyles();
    folder().put("song.prg", prgFile("KORG", {}));
    frmArrU* window = openUsual();
    timer(window, "Timer(2)")->enable();
    ASSERT_TRUE(settled(window));
    EXPECT_EQ(diary, styleGroups());
}

TEST_F(ArrLoads, timer3LoadsPrograms)
{
    folder().put("song.prg", prgFile("KORG", {}));
    frmArrU* window = openUsual();
    timer(window, "Timer(3)")->enable();
    ASSERT_TRUE(settled(window));
    EXPECT_EQ(diary, (Lines{"status Loading Program", "F0 42 32 4D 4C (14992)", "status"}));
    EXPECT_EQ(timer(window, "Timer(3)")->Interval(), 0);
}

TEST_F(ArrLoads, timer5ClearsTheStatus)
{
    frmArrU* window = openUsual();
    timer(window, "Timer5")->enable();
    ASSERT_TRUE(settled(window));
    EXPECT_EQ(diary, Lines{"status"});
}

TEST_F(ArrLoads, theCarrierOfProgramsBringsTheDatabasesFileForward)
{
    frmArrU* window = openUsual();
    Arr.DBArrRequest = "/music/other";
    timer(window, "TimerCaricaPrg")->enable();
    ASSERT_TRUE(settled(window));
    EXPECT_TRUE(diary.empty()) << "programs are not checked";
    EXPECT_EQ(shell.broughtForward, (std::vector<std::pair<int, std::string>>{{19, "/music/other"}}));
    timer(window, "TimerCaricaPrg")->enable();
    ASSERT_TRUE(settled(window));
    EXPECT_EQ(shell.broughtForward.size(), 1u);
}

// --- Closing in mid-stage -----------------------------------------------------------------------------------------

TEST_F(ArrLoads, aWindowClosedBeforeItsDumpClearsTheStatusAndSendsNothing)
{
    frmArrU* window = openUsual();
    press(window, "CommLoadArr");
    EXPECT_TRUE(window->unloadChild());
    QTest::qWait(20);
    EXPECT_EQ(diary, (Lines{"status Loading Arrangement", "status"}));
}

TEST_F(ArrLoads, aWindowClosedWhileItSendsStylesFreesTheOthers)
{
    putStyles();
    putStyles("other.sty");
    frmArrU* first = openUsual(1);
    frmArrU* second = open(2, "other", usualFile());
    press(first, "CommLoadAll");
    ASSERT_TRUE(QTest::qWaitFor([&] { return longMessages().size() == 2; }, 3000));
    EXPECT_TRUE(Arr.LoadingAll);
    EXPECT_TRUE(first->unloadChild());
    EXPECT_EQ(diary.back(), "status");
    EXPECT_FALSE(Arr.LoadingAll);
    EXPECT_EQ(Arr.LoadingAllOwner, nullptr);
    EXPECT_EQ(StyLoad.owner, nullptr);
    diary.clear();
    press(second, "CommLoadSty");
    EXPECT_EQ(diary, Lines{"status Loading Style"});
    ASSERT_TRUE(settled(second));
}

TEST_F(ArrLoads, aWindowClosedWhileAnotherLoadsLeavesThatLoadAlone)
{
    putStyles();
    frmArrU* first = openUsual(1);
    frmArrU* second = open(2, "other", usualFile());
    press(first, "CommLoadAll");
    ASSERT_TRUE(QTest::qWaitFor([&] { return longMessages().size() == 2; }, 3000));
    diary.clear();
    EXPECT_TRUE(second->unloadChild());
    EXPECT_TRUE(diary.empty());
    EXPECT_TRUE(Arr.LoadingAll);
    ASSERT_TRUE(settled(first));
}

TEST_F(ArrLoads, aWindowClosedDuringItsSearchEndsTheSearch)
{
    App.AutoSty = true;
    putStyles();
    Arr.FindIdActive = true;
    Arr.FindIdRow = 1;
    frmArrU* window = openUsual();
    ASSERT_TRUE(QTest::qWaitFor([&] { return StyLoad.owner == window; }, 3000));
    EXPECT_TRUE(window->unloadChild());
    EXPECT_FALSE(Arr.FindIdActive);
}

// --- Speed --------------------------------------------------------------------------------------------------------

TEST_F(ArrLoads, aClickReachesThePortBeforeTheListIsPainted)
{
    frmArrU* window = openUsual();
    RowList* rows = list(window);
    const QPoint where = place(window, 0);
    QApplication::processEvents();
    bool painted = false;
    struct PaintWatch : QObject {
        bool* painted;
        explicit PaintWatch(bool* flag) : painted(flag) {}
        bool eventFilter(QObject*, QEvent* event) override
        {
            if (event->type() == QEvent::Paint)
                *painted = true;
            return false;
        }
    } watch(&painted);
    rows->viewport()->installEventFilter(&watch);
    QMouseEvent down(QEvent::MouseButtonPress, where, rows->viewport()->mapToGlobal(where), Qt::LeftButton,
                     Qt::LeftButton, {});
    QApplication::sendEvent(rows->viewport(), &down);
    EXPECT_EQ(diary, selection(0));
    EXPECT_FALSE(painted);
}
