// The session comes back; the exit asks, saves and leaves.
#include "MainWindowFixture.h"

// Session and exit.

TEST_F(MainWindow, theSessionsArrangementsComeBackByTheirTimer)
{
    song("one");
    song("two");
    const char* names[] = {"one", "gone", "two"};
    for (std::size_t index = 0; index < 3; ++index) {
        App.Arrangements[index].path = songs.file(names[index]);
        App.Arrangements[index].Open = 1;
        App.Arrangements[index].left = 300;
        App.Arrangements[index].top = 150;
        App.Arrangements[index].width = 6000;
        App.Arrangements[index].height = 7500;
    }
    start();
    EXPECT_TRUE(QTest::qWaitFor([this] { return window->area()->subWindowList().size() == 2; }, 1000));
    EXPECT_EQ(childAt(0)->windowTitle(), "File Arr - one.arr (1)");
    EXPECT_EQ(childAt(1)->windowTitle(), "File Arr - two.arr (2)");
    EXPECT_EQ(childAt(1)->size(), QSize(400, 500));
    EXPECT_EQ(childAt(1)->pos(), QPoint(20, 10));
    EXPECT_TRUE(user.warnings.empty());
}

TEST_F(MainWindow, theOtherWindowsComeBackFirstEachByItsOwnTimer)
{
    App.WinPos[11].Open = 1;
    App.WinPos[3].Open = 1;
    App.WinPos[9].Open = 1;
    App.Arrangements[0].path = songs.file("song");
    App.Arrangements[0].Open = 1;
    song("song");
    startWithPlainChildren();
    EXPECT_TRUE(QTest::qWaitFor([this] { return plain.size() == 4; }, 1000));
    std::multiset<int> first;
    for (std::size_t index = 0; index + 1 < plain.size(); ++index)
        first.insert(plain[index]->windowKind());
    EXPECT_EQ(first, (std::multiset<int>{3, 9, 11}));
    EXPECT_EQ(plain[3]->windowKind(), 19);
}

TEST_F(MainWindow, theBanksComeBackWhereTheyStoodAndStayInTheSession)
{
    App.PathArrA = songs.put("TvlArrA", arrangementFile("8 Beat          "));
    App.PathArrB = songs.put("TvlArrB", arrangementFile("Slow Waltz      "));
    App.WinPos[2] = {450, 300, 5250, 6000, 1, 0};
    App.WinPos[3] = {750, 600, 6000, 6750, 1, 0};
    start();
    ASSERT_TRUE(QTest::qWaitFor([this] { return window->area()->subWindowList().size() == 2; }, 1000));
    EXPECT_EQ(childAt(0)->windowTitle(), "Arr A");
    EXPECT_EQ(childAt(0)->geometry(), QRect(30, 20, 350, 400));
    EXPECT_EQ(childAt(1)->windowTitle(), "Arr B");
    EXPECT_EQ(childAt(1)->geometry(), QRect(50, 40, 400, 450));
    EXPECT_EQ(childAt(1)->findChild<QListWidget*>("List1")->item(0)->text(), "11  Slow Waltz      ");
    EXPECT_TRUE(childAt(0)->unloadChild());
    window->close();
    EXPECT_EQ(App.WinPos[2].Open, 0) << "closed before the exit";
    EXPECT_EQ(App.WinPos[3].Open, 1);
    EXPECT_TRUE(user.questions.empty());
}

TEST_F(MainWindow, aBankOfTheLastSessionThatHasGoneLeavesItWithoutAWord)
{
    App.PathArrA = songs.file("TvlArrA");
    App.PathArrB = songs.put("TvlArrB", "short");
    App.WinPos[2].Open = App.WinPos[3].Open = 1;
    App.Arrangements[0].path = songs.file("song");
    App.Arrangements[0].Open = 1;
    song("song");
    start();
    EXPECT_TRUE(QTest::qWaitFor([this] { return window->area()->subWindowList().size() == 1; }, 1000));
    EXPECT_EQ(childAt(0)->windowTitle(), "File Arr - song.arr (1)") << "the files come all the same";
    EXPECT_TRUE(user.warnings.empty());
    EXPECT_EQ(App.WinPos[2].Open + App.WinPos[3].Open, 0);
}

TEST_F(MainWindow, exitWritesTheSettingsTheSessionAndTheRecord)
{
    user.files.push_back({true, song("song"), 1, false});
    start();
    item("mnuApriArr")->trigger();
    item("mnuCaricaSty")->trigger();
    childAt(0)->move(30, 40);
    childAt(0)->resize(400, 500);
    bool gone = false;
    window->onGone = [&] { gone = true; };
    port.forget();
    item("mnuExit")->trigger();
    EXPECT_TRUE(gone);
    EXPECT_FALSE(window->isVisible());
    EXPECT_EQ(port.operations(), (Lines{"midiOutClose", "midiInClose"}));
    EXPECT_EQ(hex(state.get("Dornflex")), hex(deviceRecord(0, 0, 0, 88)));
    const std::string file = state.get("Tarvolyne.ini");
    ASSERT_EQ(file.size(), 11500U);
    EXPECT_EQ(file[20], 1) << "AutoSty";
    const std::string entry = file.substr(20 * 250, 250);
    EXPECT_EQ(entry.substr(0, 238), (songs.file("song") + std::string(238, ' ')).substr(0, 238));
    EXPECT_EQ(hex(entry.substr(238, 10)), "17 70 01 00 40 42 40 D8 00 00"); // 6000 wide, left 450, top 600
    EXPECT_EQ(hex(entry.substr(248, 2)), "1D 4C");                          // 7500 high
    EXPECT_EQ(hex(file.substr(21 * 250, 250)), hex(std::string(250, '\0')));
    EXPECT_EQ(file.substr(38 * 250, songs.file("song").size()), songs.file("song"));
    EXPECT_EQ(file[38 * 250 + 241], 1);
}

TEST_F(MainWindow, theSessionThatCameBackIsWrittenAgainWithItsGapsClosed)
{
    song("one");
    song("two");
    const std::pair<std::size_t, const char*> saved[] = {{1, "one"}, {3, "gone"}, {6, "two"}};
    for (const auto& [index, name] : saved) {
        App.Arrangements[index].path = songs.file(name);
        App.Arrangements[index].Open = 1;
        App.Arrangements[index].readOnly = index == 6;
        App.Arrangements[index].left = index == 1 ? 300 : -45;
        App.Arrangements[index].top = 150;
        App.Arrangements[index].width = 6000;
        App.Arrangements[index].height = 7500;
    }
    start();
    ASSERT_TRUE(QTest::qWaitFor([this] { return window->area()->subWindowList().size() == 2; }, 1000));
    EXPECT_TRUE(childAt(1)->Tag.readOnly());
    EXPECT_TRUE(window->close());
    const std::string file = state.get("Tarvolyne.ini");
    ASSERT_EQ(file.size(), 11500U);
    const auto entry = [&file](int record) { return file.substr(static_cast<std::size_t>(record - 1) * 250, 250); };
    const auto pathField = [this](const char* name) {
        return (songs.file(name) + std::string(238, ' ')).substr(0, 238);
    };
    EXPECT_EQ(entry(21).substr(0, 238), pathField("one"));
    EXPECT_EQ(hex(entry(21).substr(238)), "17 70 01 00 3F AC 3F 16 00 00 1D 4C");
    EXPECT_EQ(entry(22).substr(0, 238), pathField("two"));
    EXPECT_EQ(hex(entry(22).substr(238)), "17 70 01 00 3E 53 3F 16 01 00 1D 4C");
    EXPECT_EQ(file.substr(22 * 250, 6 * 250), std::string(6 * 250, '\0')) << "entries 3 to 8";
    EXPECT_EQ(file.substr(4 * 250, 16 * 250), std::string(16 * 250, '\0')) << "no program window was open";
}

TEST_F(MainWindow, aFileOpenedInTheFirstMomentTakesNoPlaceOfTheLastSession)
{
    song("one");
    App.Arrangements[0].path = songs.file("one");
    App.Arrangements[0].Open = 1;
    App.WinPos[3].Open = 1; // a bank window, whose timer comes first
    user.files.push_back({true, song("other"), 1, false});
    window = std::make_unique<frmMain>();
    window->Form_Load();
    window->showAsSaved();
    item("mnuApriArr")->trigger();
    ASSERT_EQ(window->area()->subWindowList().size(), 2);
    EXPECT_EQ(childAt(0)->windowTitle(), "File Arr - one.arr (1)");
    EXPECT_EQ(childAt(1)->windowTitle(), "File Arr - other.arr (2)");
    QTest::qWait(20);
    EXPECT_EQ(window->area()->subWindowList().size(), 2) << "each comes back once";
}

TEST_F(MainWindow, anExitInTheFirstMomentKeepsTheLastSession)
{
    song("one");
    App.Arrangements[0].path = songs.file("one");
    App.Arrangements[0].Open = 1;
    window = std::make_unique<frmMain>();
    window->Form_Load();
    window->showAsSaved();
    EXPECT_TRUE(window->close());
    const std::string file = state.get("Tarvolyne.ini");
    EXPECT_EQ(file[20 * 250 + 240], 1);
    EXPECT_EQ(file.substr(20 * 250, songs.file("one").size()), songs.file("one"));
}

TEST_F(MainWindow, theFindAndDatabaseWindowsGoBeforeAllOthers)
{
    startWithPlainChildren();
    for (const int kind : {19, 12, 16, 11})
        window->showWindow(kind, 1);
    std::vector<int> order;
    for (PlainChild* child : plain)
        child->onUnload = [&order, child] { order.push_back(child->windowKind()); };
    EXPECT_TRUE(window->close());
    EXPECT_EQ(order, (std::vector<int>{11, 12, 19, 16}));
}

TEST_F(MainWindow, aCancelledClosingQuestionLeavesTheSessionRightForTheRealExit)
{
    user.files.push_back({true, song("one"), 1, false});
    user.files.push_back({true, song("two"), 1, false});
    user.files.push_back({true, song("three"), 1, false});
    start();
    item("mnuApriArr")->trigger();
    item("mnuApriArr")->trigger();
    childAt(1)->Tag.set(9, 0);
    childAt(1)->Tag.set(3, 1); // changed
    user.answers = {Answer::Cancel};
    EXPECT_FALSE(window->close());
    EXPECT_EQ(user.questions.size(), 1U);
    EXPECT_EQ(window->area()->subWindowList().size(), 2);
    EXPECT_EQ(App.ArrUCount, 2);

    item("mnuApriArr")->trigger();
    EXPECT_EQ(childAt(2)->windowTitle(), "File Arr - three.arr (3)");
    window->area()->setActiveSubWindow(childAt(0));
    item("mnuChiudi")->trigger();
    user.answers = {Answer::No};
    EXPECT_TRUE(window->close());
    const std::string file = state.get("Tarvolyne.ini");
    EXPECT_EQ(file[20 * 250 + 240], 0) << "closed between the two";
    EXPECT_EQ(file[21 * 250 + 240], 1);
    EXPECT_EQ(file[22 * 250 + 240], 1);
    EXPECT_EQ(file.substr(21 * 250, songs.file("two").size()), songs.file("two"));
    EXPECT_EQ(file.substr(22 * 250, songs.file("three").size()), songs.file("three"));
}

TEST_F(MainWindow, aWindowClosedBeforeTheExitDoesNotComeBack)
{
    user.files.push_back({true, song("song"), 1, false});
    start();
    item("mnuApriArr")->trigger();
    item("mnuChiudi")->trigger();
    window->close();
    EXPECT_EQ(hex(state.get("Tarvolyne.ini").substr(20 * 250, 250)), hex(std::string(250, '\0')));
}

TEST_F(MainWindow, anExitThatAChildRefusesLeavesTheProgramWhollyUsable)
{
    startWithPlainChildren();
    window->showWindow(19, 1);
    window->showWindow(23, 1);
    App.Arrangements[0].Open = 1;
    plain[1]->agrees = false;
    EXPECT_FALSE(window->close());
    EXPECT_TRUE(window->isVisible());
    EXPECT_FALSE(App.AppClosing);
    EXPECT_EQ(plain[0]->asked, 1);
    EXPECT_EQ(plain[0]->unloads + plain[1]->unloads, 0) << "none goes before all have agreed";
    EXPECT_TRUE(plain[0]->isVisible());
    EXPECT_EQ(App.Arrangements[0].Open, 1);
    EXPECT_FALSE(state.has("Tarvolyne.ini"));
    EXPECT_EQ(hex(state.get("Dornflex")), hex(deviceRecord(1, 1, 77, 88)));
    EXPECT_TRUE(item("mnuChiudi")->isEnabled());
    window->showWindow(16, 0);
    EXPECT_TRUE(plain[2]->isVisible());

    plain[1]->agrees = true;
    EXPECT_TRUE(window->close());
    EXPECT_EQ(plain[0]->asked, 2);
    EXPECT_EQ(plain[0]->unloads, 1);
}

TEST_F(MainWindow, anExitIsRefusedWhileAnotherProgramSharesThePorts)
{
    state.put("Dornflex", deviceRecord(2, 1, 77, 88));
    startWithPlainChildren();
    window->showWindow(19, 1);
    EXPECT_FALSE(window->close());
    EXPECT_EQ(warnings(), (Lines{"Chiusura dispositivo MIDI di uscita|Chiudere prima tutte le altre applicazioni"}));
    EXPECT_TRUE(window->isVisible());
    EXPECT_TRUE(plain[0]->isVisible());
    EXPECT_FALSE(App.AppClosing);
    EXPECT_FALSE(state.has("Tarvolyne.ini"));
    state.put("Dornflex", deviceRecord(1, 1, 77, 88));
    EXPECT_TRUE(window->close());
}

TEST_F(MainWindow, settingsThatCannotBeWrittenAreToldOnceAndTheProgramEnds)
{
    start();
    App.StateDir = state.path() + "/gone";
    EXPECT_TRUE(window->close());
    EXPECT_EQ(user.warnings.size(), 1U);
    EXPECT_EQ(user.warnings[0].title, "Salva Tarvolyne.ini");
}

TEST_F(MainWindow, itsPlaceIsKeptOnlyWhenItsStateIsNormal)
{
    App.WinPos[1] = {1503, 752, 12007, 9001, 0, 0};
    start();
    EXPECT_EQ(window->size(), QSize(800, 600));
    window->close();
    EXPECT_EQ(App.WinPos[1].left, 1503) << "not moved: the stored twips stay";
    EXPECT_EQ(App.WinPos[1].width, 12007);
    window.reset();

    startAgain();
    window->resize(700, 500);
    window->close();
    EXPECT_EQ(App.WinPos[1].width, 10500);
    EXPECT_EQ(App.WinPos[1].height, 7500);
    EXPECT_EQ(App.WinPos[1].Open, 0);
    window.reset();

    App.WinPos[1].Open = 2;
    startAgain();
    EXPECT_TRUE(window->isMaximized());
    window->close();
    EXPECT_EQ(App.WinPos[1].Open, 2);
    EXPECT_EQ(App.WinPos[1].width, 10500);
}

TEST_F(MainWindow, aPlaceOffEveryScreenIsShownInViewAndKeptAsItWas)
{
    App.WinPos[1] = {16000, -16000, 9000, 7500, 0, 0};
    start();
    EXPECT_TRUE(QRect(0, 0, 4000, 4000).intersects(window->geometry()));
    EXPECT_GE(window->y(), 0);
    window->close();
    EXPECT_EQ(App.WinPos[1].left, 16000);
    EXPECT_EQ(App.WinPos[1].top, -16000);
}
