// The load handler and opening by the real menus.
#include "MainWindowFixture.h"

// Load.

TEST_F(MainWindow, theSavedModeIsSentDuringTheLoadBeforeAnyWindow)
{
    const std::pair<int, const char*> rows[] = {
        {0, "F0 42 35 4D 4E 0A F7"}, {1, "F0 42 35 4D 4E 06 F7"}, {2, "F0 42 35 4D 4E 04 F7"}};
    for (const auto& [mode, message] : rows) {
        App.DeviceMode = mode;
        App.GlobalChannel = 5;
        App.Arrangements[0] = {};
        App.Arrangements[0].path = songs.file("song");
        App.Arrangements[0].Open = 1;
        song("song");
        port.forget();
        window = std::make_unique<frmMain>();
        window->Form_Load();
        EXPECT_EQ(hexOf(port.messages()), message);
        EXPECT_TRUE(window->area()->subWindowList().isEmpty());
        window.reset();
    }
}

TEST_F(MainWindow, thePanelShowsWhatWasLastSent)
{
    std::string info(1000, ' ');
    info.replace(0, 9, "TvlCMInfo");
    info.replace(50, 4, "song");
    info.replace(100, 5, "beats");
    state.put("TvlCMInfo", info);
    user.prgLabel = "of the run before";
    start();
    EXPECT_EQ(label("LabelNomeAppl"), "Tarvolyne Console");
    EXPECT_EQ(user.arrLabel, "song.arr");
    EXPECT_EQ(user.styLabel, "beats.sty");
    EXPECT_EQ(user.prgLabel, "") << "no point and extension without a name";
    EXPECT_EQ(user.modes, (Lines{"ARR PLAY"}));
    window.reset();
    info.replace(150, 5, "brass");
    state.put("TvlCMInfo", info);
    start();
    EXPECT_EQ(user.prgLabel, "brass.prg");
}

TEST_F(MainWindow, aMissingStyleTemplateIsReplacedWithoutAWordAndADamagedOneIsNoticed)
{
    Files.StyEmptyBuffer.clear();
    Files = {};
    start();
    EXPECT_EQ(Files.StyEmptyBuffer.size(), 4928U);
    EXPECT_TRUE(user.warnings.empty());
    EXPECT_TRUE(user.notices.empty());
    songs.put("TvlSty", "damaged");
    window.reset();
    start();
    EXPECT_EQ(Files.StyEmptyBuffer.size(), 4928U);
    EXPECT_TRUE(user.warnings.empty());
    EXPECT_EQ(user.notices, (std::vector<ScriptedUser::Said>{{"TvlSty.sty", "Formato dati TvlSty errato"}}));
}

TEST_F(MainWindow, globalParametersNeedASavedBlock)
{
    App.GlobalValid = true;
    start();
    EXPECT_TRUE(item("mnuGlobalParam")->isEnabled());
}

TEST_F(MainWindow, theDatabaseItemsNeedAUsableDatabase)
{
    std::string database(27221, '\0');
    database.replace(0, 8, "TvlDBArr");
    state.put("TvlDBArr", database);
    start();
    for (const char* name : {"mnuWEditDBArr", "mnuAggArr", "mnuWFindID"})
        EXPECT_TRUE(item(name)->isEnabled()) << name;
}

TEST_F(MainWindow, theRecentFilesStandInTheMenuWithTheirSeparator)
{
    App.Recent[0].path = "/m/R&B";
    App.Recent[0].kind = 1;
    App.Recent[1].path = "/m/b";
    App.Recent[1].kind = 5;
    start();
    EXPECT_TRUE(item("mnuSep16")->isVisible());
    EXPECT_EQ(item("mnuRecentFile(0)")->text(), "&1  /m/R&&B.arr");
    EXPECT_EQ(item("mnuRecentFile(1)")->text(), "&2  /m/b.gbl");
    EXPECT_TRUE(item("mnuRecentFile(1)")->isVisible());
    EXPECT_FALSE(item("mnuRecentFile(2)")->isVisible());
    window.reset();
    App.Recent = {};
    start();
    EXPECT_FALSE(item("mnuSep16")->isVisible());
    EXPECT_FALSE(item("mnuRecentFile(0)")->isVisible());
}

// Opening.

TEST_F(MainWindow, openingAnArrangementFileShowsItsWindowAndPutsItOnTheRecentList)
{
    user.files.push_back({true, song("song"), 1, false});
    start();
    item("mnuApriArr")->trigger();
    ASSERT_EQ(window->area()->subWindowList().size(), 1);
    EXPECT_EQ(childAt(0)->objectName(), "frmArrU");
    EXPECT_EQ(childAt(0)->windowTitle(), "File Arr - song.arr (1)");
    EXPECT_EQ(window->area()->currentSubWindow(), childAt(0));
    EXPECT_TRUE(item("mnuChiudi")->isEnabled());
    EXPECT_TRUE(item("mnuWindow")->isEnabled());
    EXPECT_TRUE(item("mnuModifica")->isEnabled());
    EXPECT_TRUE(item("mnuRecentFile(0)")->isVisible());
}

TEST_F(MainWindow, aRecentFileOpensWithoutTheDialogAndReportsWhatIsWrong)
{
    song("song");
    App.Recent[0].path = songs.file("song");
    App.Recent[0].kind = 1;
    App.Recent[0].readOnly = true;
    App.Recent[1].path = songs.file("gone");
    App.Recent[1].kind = 1;
    start();
    item("mnuRecentFile(0)")->trigger();
    ASSERT_EQ(window->area()->subWindowList().size(), 1);
    EXPECT_TRUE(childAt(0)->Tag.readOnly());
    EXPECT_FALSE(item("mnuSalva")->isEnabled());
    item("mnuRecentFile(0)")->trigger();
    item("mnuRecentFile(1)")->trigger();
    EXPECT_EQ(warnings(), (Lines{"Apertura di song|File già aperto", "Apertura di gone|File assente"}));
    EXPECT_TRUE(item("mnuRecentFile(1)")->isVisible()) << "it stays on the list";
    EXPECT_TRUE(user.dialogs.empty());
}

TEST_F(MainWindow, theOpenItemIsOffWithEightWindowsAndOnAgainWithSeven)
{
    start();
    for (int number = 1; number <= 8; ++number) {
        EXPECT_TRUE(item("mnuApriArr")->isEnabled()) << number;
        user.files.push_back({true, song("song" + std::to_string(number)), 1, false});
        item("mnuApriArr")->trigger();
    }
    EXPECT_FALSE(item("mnuApriArr")->isEnabled());
    item("mnuChiudi")->trigger();
    EXPECT_TRUE(item("mnuApriArr")->isEnabled());
    EXPECT_EQ(App.ArrUCount, 7);
}

TEST_F(MainWindow, newArrangementFilesHaveEightNumbersAndTheLowestFreeOneComesFirst)
{
    App.PathArrA = songs.put("TvlArrA", arrangementFile("8 Beat          "));
    start();
    for (int number = 1; number <= 8; ++number) {
        EXPECT_TRUE(item("mnuNuovoArr")->isEnabled()) << number;
        item("mnuNuovoArr")->trigger();
        ASSERT_EQ(window->area()->subWindowList().size(), number);
        ChildWindow* opened = childAt(number - 1);
        EXPECT_EQ(opened->objectName(), "frmArrNew");
        EXPECT_EQ(opened->Tag.number(), number);
        EXPECT_EQ(opened->findChild<QListWidget*>("List1")->item(0)->text(), "11");
        EXPECT_TRUE(item("mnuSalva")->isEnabled());
        EXPECT_TRUE(item("mnuSalvaAs")->isEnabled());
    }
    EXPECT_FALSE(item("mnuNuovoArr")->isEnabled());
    EXPECT_TRUE(item("mnuApriArr")->isEnabled()) << "files have numbers of their own";
    EXPECT_TRUE(childAt(2)->unloadChild());
    EXPECT_TRUE(item("mnuNuovoArr")->isEnabled());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    item("mnuNuovoArr")->trigger();
    EXPECT_EQ(dynamic_cast<ChildWindow*>(window->area()->activeSubWindow())->Tag.number(), 3);
    EXPECT_FALSE(item("mnuNuovoArr")->isEnabled());
    EXPECT_TRUE(user.questions.empty());
}

TEST_F(MainWindow, theBanksHaveOneWindowEachAndAMissingOneIsTold)
{
    App.PathArrA = songs.put("TvlArrA", arrangementFile("8 Beat          "));
    App.PathArrB = songs.file("TvlArrB");
    start();
    item("mnuArrA")->trigger();
    item("mnuArrA")->trigger();
    ASSERT_EQ(window->area()->subWindowList().size(), 1);
    EXPECT_EQ(childAt(0)->windowTitle(), "Arr A");
    EXPECT_TRUE(item("mnuWindow")->isEnabled());
    EXPECT_TRUE(item("mnuChiudi")->isEnabled());
    EXPECT_FALSE(item("mnuSalva")->isEnabled());
    EXPECT_FALSE(item("mnuSalvaAs")->isEnabled());
    item("mnuArrB")->trigger();
    EXPECT_EQ(warnings(), Lines{"|File TvlArrB assente"});
    EXPECT_EQ(window->area()->subWindowList().size(), 1);
    EXPECT_FALSE(songs.has("TvlArrB"));
}

TEST_F(MainWindow, aFileWhoseWindowCannotBeMadeIsReadAndShowsNothing)
{
    user.files.push_back({true, songs.put("stage.gbl", globalFile()), 4, false});
    startWithoutChildren();
    item("mnuApriGbl")->trigger();
    EXPECT_TRUE(window->area()->subWindowList().isEmpty());
    EXPECT_FALSE(item("mnuRecentFile(0)")->isVisible());
    EXPECT_EQ(App.LastDirGbl, songs.path());
}

TEST_F(MainWindow, itemsWhoseWindowCannotBeMadeShowNothing)
{
    startWithoutChildren();
    for (const char* name :
         {"mnuArrA", "mnuStyB", "mnuWProgC", "mnuDrum", "mnuMsgEx", "mnuTastiera", "mnuInfo", "mnuGuida"}) {
        EXPECT_TRUE(item(name)->isEnabled()) << name;
        item(name)->trigger();
    }
    EXPECT_TRUE(window->area()->subWindowList().isEmpty());
    EXPECT_TRUE(user.warnings.empty());
}
