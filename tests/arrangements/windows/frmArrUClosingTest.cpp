// The arrangement window: what it opens and adds, and how it closes.
#include "ArrWindow.h"

// --- Delete, show, add --------------------------------------------------------------------------------------------

TEST_F(ArrWindow, deleteCuts)
{
    frmArrU* window = openUsual();
    clickRow(window, 0);
    QTest::keyClick(list(window), Qt::Key_Delete);
    EXPECT_EQ(shell.cuts, 1);
    EXPECT_TRUE(diaryUser.warnings.empty());
}

TEST_F(ArrWindow, deleteIsRefusedInAReadOnlyFile)
{
    App.Arrangements[0].readOnly = true;
    frmArrU* window = openUsual();
    clickRow(window, 0);
    QTest::keyClick(list(window), Qt::Key_Delete);
    EXPECT_EQ(shell.cuts, 0);
    ASSERT_EQ(diaryUser.warnings.size(), 1u);
    EXPECT_EQ(diaryUser.warnings[0].text, "Read only file");
}

TEST_F(ArrWindow, showStylesBringsAnOpenWindowForward)
{
    putStyles();
    frmArrU* window = openUsual();
    shell.openPaths = {{23, folder().file("song")}};
    press(window, "CommShowSty");
    EXPECT_EQ(shell.broughtForward.size(), 1u);
    EXPECT_TRUE(shell.shown.empty());
    EXPECT_TRUE(shell.opened.empty());
}

TEST_F(ArrWindow, showStylesOpensAWindowOnTheStyleDataOfTheImage)
{
    putStyles();
    App.Styles[0].used = true;
    frmArrU* window = openUsual();
    Files.StyBuffer.clear();
    timer(window, "TimerShowSty")->enable();
    ASSERT_TRUE(settled(window));
    EXPECT_EQ(shell.shown, (std::vector<std::pair<int, int>>{{23, 2}}));
    EXPECT_TRUE(Files.StyBuffer == styles());
    EXPECT_EQ(Files.StyFolder, folder().path());
    EXPECT_EQ(Files.StyName, "song");
    EXPECT_EQ(App.Styles[1].path, folder().file("song"));
    EXPECT_TRUE(App.Styles[1].linked);
}

TEST_F(ArrWindow, showStylesOpensTheFileWhenTheImageHasNoStyleArea)
{
    putStyles();
    frmArrU* window = openUsual();
    window->Tag.set(8, 0);
    press(window, "CommShowSty");
    EXPECT_EQ(shell.opened, (std::vector<FakeShell::Opened>{{folder().file("song.sty"), 2, false}}));
}

TEST_F(ArrWindow, showProgramsOpensTheFileOfItsTypeWhileItExists)
{
    folder().put("song.pgg", prgFile("KPGG", {}));
    App.Arrangements[0].readOnly = true;
    frmArrU* window = openUsual();
    timer(window, "TimerShowPrg")->enable();
    ASSERT_TRUE(settled(window));
    EXPECT_EQ(shell.opened, (std::vector<FakeShell::Opened>{{folder().file("song.pgg"), 4, true}}));

    std::filesystem::remove(folder().file("song.pgg"));
    press(window, "CommShowPrg");
    EXPECT_EQ(shell.opened.size(), 1u);
    EXPECT_FALSE(folder().has("song.pgg")) << "looking leaves nothing behind";

    shell.openPaths = {{21, folder().file("song")}};
    folder().put("song.pgg", prgFile("KPGG", {}));
    press(window, "CommShowPrg");
    EXPECT_EQ(shell.opened.size(), 1u) << "the open window comes forward instead";
}

TEST_F(ArrWindow, addAnnouncesThenHandsTheFileToTheDatabase)
{
    frmArrU* window = openUsual();
    App.Arrangements[0].databaseId = 9;
    clickRow(window, 2);
    diary.clear();
    Arr.databaseAdd = [&](WindowBuffer& tag) { diary.push_back("add " + tag.stem()); };
    press(window, "CommAdd");
    EXPECT_EQ(diary, Lines{"status Update TvlDBArr"});
    ASSERT_TRUE(settled(window));
    EXPECT_EQ(diary, (Lines{"status Update TvlDBArr", "add song", "status"}));
    EXPECT_EQ(timer(window, "Timer(4)")->Interval(), 10);
    EXPECT_EQ(text(window, "Text1"), "") << "the database does not know the file";
}

TEST_F(ArrWindow, addShowsTheNumberThatTheDatabaseGave)
{
    frmArrU* window = openUsual();
    clickRow(window, 63);
    EXPECT_EQ(text(window, "Text1"), "");
    Arr.databaseAdd = [&](WindowBuffer&) {
        std::string database(27221, '\0');
        database.replace(0, 8, "TvlDBArr");
        database.replace(52, 26, "song                    \x31\x01"); // slot 3: number 305
        database.replace(26971, folder().path().size(), folder().path());
        database.replace(26971 + folder().path().size(), 250 - folder().path().size(),
                         std::string(250 - folder().path().size(), ' '));
        folder().put("TvlDBArr", database);
    };
    press(window, "CommAdd");
    ASSERT_TRUE(settled(window));
    EXPECT_EQ(text(window, "Text1"), "30588");
}

// --- Closing ------------------------------------------------------------------------------------------------------

TEST_F(ArrWindow, theCloseButtonClosesAndFreesTheSlot)
{
    QPointer<frmArrU> window = openUsual();
    EXPECT_TRUE(App.Arrangements[0].used);
    window->placeInTwips(450, 600, 5100, 8100);
    press(window, "CommClose");
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(window.isNull());
    EXPECT_FALSE(App.Arrangements[0].used);
    EXPECT_EQ(App.Arrangements[0].Open, 0) << "closed by the user: not to come back";
    EXPECT_EQ(App.Arrangements[0].left, 450);
    EXPECT_EQ(App.Arrangements[0].top, 600);
    EXPECT_EQ(App.Arrangements[0].width, 5100);
    EXPECT_EQ(App.Arrangements[0].height, 8100);
    EXPECT_EQ(App.ArrUCount, 0);
    EXPECT_TRUE(shell.items["mnuApriArr"]);
    EXPECT_TRUE(OpenWindows::all().empty());
    EXPECT_TRUE(Arr.rowOwners.empty());
}

TEST_F(ArrWindow, marksItselfForTheNextStartWhenTheProgramLeaves)
{
    frmArrU* window = openUsual();
    App.AppClosing = true;
    App.Arrangements[0].Open = 0;
    ASSERT_TRUE(window->queryUnload());
    window->unloadWithoutAsking();
    EXPECT_EQ(App.Arrangements[0].Open, 1);
    EXPECT_EQ(App.Arrangements[0].path, folder().file("song"));
    EXPECT_EQ(App.Arrangements[0].width, 4810);
}

TEST_F(ArrWindow, leavesItsPlaceInTheRecentFile)
{
    App.Recent[3].path = folder().file("song");
    App.Recent[3].kind = 1;
    frmArrU* window = openUsual();
    window->placeInTwips(450, 600, 5100, 8100);
    EXPECT_TRUE(window->unloadChild());
    EXPECT_EQ(hex(App.Recent[3].kept.substr(238, 2)), "13 EC");
    EXPECT_EQ(hex(App.Recent[3].kept.substr(248, 2)), "1F A4");
}

TEST_F(ArrWindow, withChangesAsksBeforeItCloses)
{
    frmArrU* window = openUsual();
    window->Tag.set(3, 1);
    diaryUser.answers = {Answer::Cancel, Answer::No};
    EXPECT_FALSE(window->unloadChild()) << "cancelled";
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(window->Tag.at(3), 1);
    ASSERT_EQ(diaryUser.questions.size(), 1u);
    EXPECT_EQ(diaryUser.questions[0].title, "File Arr - song.arr (1)");
    EXPECT_EQ(diaryUser.questions[0].text, "The file has changed\nSave changes ?");
    EXPECT_TRUE(window->unloadChild()) << "No closes";
    EXPECT_FALSE(folder().has("song.arr"));
}

TEST_F(ArrWindow, closingByYesBringsItsFileAndItsStylesToTheDisk)
{
    putStyles();
    frmArrU* window = openUsual();
    const QPointer<frmArrU> watched = window;
    window->Tag.bytes()[302] = 'N';         // the first letter of row 0
    window->Tag.bytes()[42622 + 224] = 'T'; // and of the first style
    window->Tag.set(3, 1);
    window->Tag.set(9, 1);
    std::string arr = usualFile(), sty = styles();
    arr[32] = 'N';
    sty[224] = 'T';
    diaryUser.answers = {Answer::Yes};
    EXPECT_TRUE(window->unloadChild());
    // The last two groups are empty: all their slots but the first go from the table, and their blocks from the file.
    for (std::size_t slot = 9; slot < 16; ++slot)
        sty[24 + 4 * slot] = sty[25 + 4 * slot] = '\0';
    sty[88] = sty[89] = '\0';
    sty.resize(224 + 348 + 20); // eight styles of 40 to 47 bytes and the slot that stays
    EXPECT_EQ(folder().get("song.arr"), arr);
    EXPECT_EQ(folder().get("song.sty"), sty);
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_FALSE(watched);
}

TEST_F(ArrWindow, closingByYesWithoutUserStylesRemovesTheStyleFileBeside)
{
    frmArrU* window = openUsual();
    putStyles(); // came there while the window was open
    window->Tag.set(3, 1);
    diaryUser.answers = {Answer::Yes};
    EXPECT_TRUE(window->unloadChild());
    EXPECT_EQ(folder().get("song.arr"), usualFile());
    EXPECT_FALSE(folder().has("song.sty"));
}

TEST_F(ArrWindow, whatCannotBeSavedStaysOpenAndModified)
{
    frmArrU* window = openUsual();
    window->Tag.set(3, 1);
    window->Tag.setPath(folder().file("nowhere/song"));
    diaryUser.answers = {Answer::Yes};
    EXPECT_FALSE(window->unloadChild());
    ASSERT_EQ(diaryUser.warnings.size(), 1u);
    EXPECT_EQ(diaryUser.warnings[0].text, "Path not found");
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(window->Tag.at(3), 1);
}

TEST_F(ArrWindow, aRowRuleIsReadFromTheCurrentImage)
{
    frmArrU* window = openUsual();
    window->Tag.set(302 + 17, 127);
    clickRow(window, 0);
    EXPECT_EQ(style(window), "Omega (B88)");
}
