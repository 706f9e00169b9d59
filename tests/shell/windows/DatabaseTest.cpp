// The database through the real main window: its menu items, its window, and the files that are opened with it.
#include "DatabaseDesk.h"

// The menu items and the automatic update.

TEST_F(DatabaseDesk, addingWithoutADatabaseAsksAndTurnsTheItemsOn)
{
    start();
    for (const char* name : {"mnuWEditDBArr", "mnuAggArr", "mnuWFindID"})
        EXPECT_FALSE(item(name)->isEnabled()) << name;
    open(song("Alba"));
    user.progressLines.clear();
    item("mnuTvlDBArr")->trigger();
    settle();
    ASSERT_EQ(user.questions.size(), 1U);
    EXPECT_EQ(user.questions[0].text, "Choose the directory of the opened file as working directory of TvlDBArr?");
    EXPECT_EQ(user.progressLines, (Lines{"Update TvlDBArr", ""}));
    EXPECT_EQ(onDisk(), database({{"Alba", 3}}, songs.path()));
    for (const char* name : {"mnuWEditDBArr", "mnuAggArr", "mnuWFindID"})
        EXPECT_TRUE(item(name)->isEnabled()) << name;
    clickRow(arrangementWindow("Alba"), 0);
    settle();
    EXPECT_EQ(control<QLineEdit>(arrangementWindow("Alba"), "Text1")->text(), "311");
}

TEST_F(DatabaseDesk, theAutomaticUpdateAddsWhatIsOpenedIntoADatabaseInUse)
{
    App.AutoDBArr = true;
    start();
    open(song("Alba"));
    EXPECT_FALSE(state.has("TvlDBArr")) << "none is made without being asked for";
    EXPECT_TRUE(user.questions.empty());
    putDatabase({});
    open(song("Balera"));
    EXPECT_EQ(onDisk(), database({{"Balera", 3}}, songs.path()));
    EXPECT_EQ(App.Arrangements[1].databaseId, 3);
    App.AutoDBArr = false;
    open(song("Canto"));
    EXPECT_EQ(onDisk(), database({{"Balera", 3}}, songs.path()));
    // From the recent list too.
    App.AutoDBArr = true;
    arrangementWindow("Canto")->unloadChild();
    App.Recent[7].path = songs.file("Canto");
    App.Recent[7].kind = 1;
    window->mnuRecentFile_Click(7);
    EXPECT_EQ(onDisk(), database({{"Balera", 3}, {"Canto", 4}}, songs.path()));
}

TEST_F(DatabaseDesk, checkingTheAutomaticUpdateAddsWhatIsOpen)
{
    start();
    open(song("Balera"));
    open(song("Alba"));
    item("mnuAddTvlDBArr")->trigger();
    EXPECT_EQ(user.questions.size(), 1U);
    EXPECT_EQ(onDisk(), database({{"Alba", 4}, {"Balera", 3}}, songs.path()));
    const std::string before = onDisk();
    item("mnuAddTvlDBArr")->trigger();
    open(song("Canto"));
    EXPECT_EQ(onDisk(), before);
}

TEST_F(DatabaseDesk, aNoIsNotAskedForEachWindow)
{
    user.answers = {Answer::No};
    start();
    open(song("Balera"));
    open(song("Alba"));
    item("mnuAddTvlDBArr")->trigger();
    EXPECT_EQ(user.questions.size(), 1U);
    EXPECT_FALSE(state.has("TvlDBArr"));
}

TEST_F(DatabaseDesk, theUpdateItemRefreshesUnderItsNotice)
{
    putDatabase({{"Alba", 3}, {"gone", 4}});
    song("Alba"); // its bytes at 32 and at 672 differ
    start();
    user.progressLines.clear();
    item("mnuAggArr")->trigger();
    EXPECT_EQ(user.progressLines, (Lines{"Update TvlDBArr"}));
    EXPECT_EQ(onDisk(), database({{"Alba", 3}, {"gone", 4}}, songs.path())) << "in a fresh event";
    settle();
    EXPECT_EQ(user.progressLines, (Lines{"Update TvlDBArr", ""}));
    EXPECT_EQ(onDisk(), database({}, songs.path()));
}

// The database window.

TEST_F(DatabaseDesk, theWindowListsTheBanksAndTheFiles)
{
    putDatabase({{"Alba", 12}, {"Perch\xC3\xA9 no", 3}});
    start();
    ChildWindow* shown = openDatabase();
    ASSERT_NE(shown, nullptr);
    EXPECT_EQ(shown->windowTitle(), "Edit TvlDBArr");
    EXPECT_EQ(rows(shown), (QStringList{"1\tTvlArrA", "2\tTvlArrB", "12\tAlba.arr", "3\tPerch\u00E9 no.arr"}));
    EXPECT_EQ(control<QLabel>(shown, "Label3")->text(), "4/999");
    EXPECT_EQ(control<QLabel>(shown, "Label2")->text(), "ID");
    EXPECT_EQ(control<QLabel>(shown, "Label1")->text(), "File Name");
    EXPECT_EQ(control<QLabel>(shown, "Label4")->toolTip().toStdString(), songs.path());
    EXPECT_EQ(shown->positionInTwips().width, 4308);
    EXPECT_EQ(shown->positionInTwips().height, 6072);
    EXPECT_TRUE(DBArr.DBArrWindowOpen);
    EXPECT_EQ(App.OtherCount, 1);
    EXPECT_FALSE(item("mnuCancella")->isEnabled());
    EXPECT_TRUE(item("mnuAddAll")->isEnabled());
    clickRow(shown, 1);
    EXPECT_FALSE(item("mnuCancella")->isEnabled()) << "the banks stay";
    EXPECT_TRUE(item("mnuDBArrApri")->isEnabled());
    clickRow(shown, 2);
    EXPECT_TRUE(item("mnuCancella")->isEnabled());
    item("mnuWEditDBArr")->trigger();
    EXPECT_EQ(child("frmEditDBArr"), shown) << "there is one";
    press(shown, "CommClose");
    EXPECT_FALSE(DBArr.DBArrWindowOpen);
    EXPECT_EQ(App.OtherCount, 0);
}

TEST_F(DatabaseDesk, aWrongOrAbsentDatabaseOpensNoWindow)
{
    putDatabase({});
    start();
    state.put("TvlDBArr", "something else");
    EXPECT_EQ(openDatabase(), nullptr);
    std::filesystem::remove(state.file("TvlDBArr"));
    EXPECT_EQ(openDatabase(), nullptr);
    EXPECT_EQ(warnings(), (Lines{"Edit TvlDBArr|File TvlDBArrdata error", "Edit TvlDBArr|File TvlDBArrnot found"}));
}

TEST_F(DatabaseDesk, addAllFillsTheList)
{
    putDatabase({});
    for (const char* name : {"b", "C", "a"})
        song(name);
    start();
    ChildWindow* shown = openDatabase();
    user.progressLines.clear();
    press(shown, "CommAddAll");
    EXPECT_EQ(user.progressLines, (Lines{"Update TvlDBArr"}));
    EXPECT_EQ(rows(shown).size(), 2) << "in a fresh event";
    settle();
    EXPECT_EQ(user.progressLines.back(), "");
    EXPECT_EQ(rows(shown), (QStringList{"1\tTvlArrA", "2\tTvlArrB", "3\ta.arr", "4\tb.arr", "5\tC.arr"}));
    EXPECT_EQ(control<QLabel>(shown, "Label3")->text(), "5/999");
    const std::string before = onDisk();
    item("mnuAddAll")->trigger();
    settle();
    EXPECT_EQ(onDisk(), before);
    EXPECT_EQ(rows(shown).size(), 5);
}

TEST_F(DatabaseDesk, deleteKeepsTheSelectionInItsPlace)
{
    putDatabase({{"a", 3}, {"b", 4}, {"c", 5}, {"d", 6}});
    start();
    ChildWindow* shown = openDatabase();
    auto* list = control<QListWidget>(shown, "List1");
    press(shown, "CommDelete");
    settle();
    EXPECT_EQ(rows(shown).size(), 6) << "no row is selected";
    clickRow(shown, 1);
    control<StageTimer>(shown, "TimerCancella")->enable();
    settle();
    EXPECT_EQ(rows(shown).size(), 6) << "a bank stays";
    user.progressLines.clear();
    clickRow(shown, 3);
    press(shown, "CommDelete");
    EXPECT_EQ(rows(shown).size(), 6) << "in a fresh event";
    EXPECT_EQ(user.progressLines, (Lines{"Update TvlDBArr"}));
    settle();
    EXPECT_EQ(rows(shown), (QStringList{"1\tTvlArrA", "2\tTvlArrB", "3\ta.arr", "5\tc.arr", "6\td.arr"}));
    EXPECT_EQ(list->currentRow(), 3);
    EXPECT_EQ(onDisk(), database({{"a", 3}, {"c", 5}, {"d", 6}}, songs.path()));
    item("mnuCancella")->trigger();
    settle();
    EXPECT_EQ(onDisk(), database({{"a", 3}, {"d", 6}}, songs.path()));
    window->mnuTaglia_Click(0); // the menu does not offer it here; it is the window's own delete all the same
    settle();
    EXPECT_EQ(onDisk(), database({{"a", 3}}, songs.path()));
    QTest::keyClick(list, Qt::Key_Delete);
    settle();
    EXPECT_EQ(rows(shown), (QStringList{"1\tTvlArrA", "2\tTvlArrB"}));
    EXPECT_EQ(control<QLabel>(shown, "Label3")->text(), "2/999");
    EXPECT_FALSE(control<QPushButton>(shown, "CommDelete")->isEnabled());
    QTest::keyClick(list, Qt::Key_Delete);
    settle();
    EXPECT_EQ(rows(shown).size(), 2);
    EXPECT_EQ(onDisk(), database({}, songs.path()));
    song("z");
    song("y");
    press(shown, "CommAddAll");
    settle();
    EXPECT_EQ(rows(shown), (QStringList{"1\tTvlArrA", "2\tTvlArrB", "3\ty.arr", "4\tz.arr"})) << "the lowest numbers";
}

TEST_F(DatabaseDesk, openBringsTheFileAndPutsItOnTheRecentList)
{
    song("Alba");
    putDatabase({{"Alba", 3}, {"gone", 4}});
    start();
    ChildWindow* shown = openDatabase();
    clickRow(shown, 2);
    press(shown, "CommApri");
    settle();
    ASSERT_NE(arrangementWindow("Alba"), nullptr);
    EXPECT_EQ(App.Recent[0].path, songs.file("Alba"));
    press(shown, "CommApri");
    settle();
    clickRow(shown, 3);
    item("mnuDBArrApri")->trigger();
    settle();
    EXPECT_EQ(warnings(), (Lines{"Opening Alba|File already open", "Opening gone|File not found"}));
}

TEST_F(DatabaseDesk, aDoubleClickOpensTooAndTheFirstRowsAreTheBanks)
{
    putDatabase({});
    App.PathArrA = songs.put("TvlArrA", arrangementFile());
    start();
    ChildWindow* shown = openDatabase();
    auto* list = control<QListWidget>(shown, "List1");
    const QPoint first = list->visualItemRect(list->item(0)).center();
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, first);
    QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, first);
    settle();
    ASSERT_NE(child("frmArrAB"), nullptr);
    EXPECT_EQ(child("frmArrAB")->windowKind(), 2);
    App.PathArrB = songs.file("nowhere");
    clickRow(shown, 1);
    press(shown, "CommApri");
    settle();
    EXPECT_EQ(user.warnings.size(), 1U);
}

TEST_F(DatabaseDesk, theOpenListFollowsAnAddByHand)
{
    putDatabase({});
    start();
    ChildWindow* shown = openDatabase();
    open(song("Alba"));
    press(arrangementWindow("Alba"), "CommAdd");
    settle();
    EXPECT_EQ(rows(shown), (QStringList{"1\tTvlArrA", "2\tTvlArrB", "3\tAlba.arr"}));
}

TEST_F(DatabaseDesk, addAllGoesThroughTheFolderByTheHiddenLists)
{
    putDatabase({});
    for (const char* name : {"b", "C", "a"})
        song(name);
    songs.put("none.arr", "KORG");
    songs.put("styles.sty", styles());
    start();
    ChildWindow* shown = openDatabase();
    press(shown, "CommAddAll");
    settle();
    const auto* folder = control<QListWidget>(shown, "Dir1");
    const auto* files = control<QListWidget>(shown, "File1");
    EXPECT_FALSE(folder->isVisible() || files->isVisible());
    ASSERT_EQ(folder->count(), 1);
    EXPECT_EQ(folder->item(0)->text().toStdString(), songs.path());
    QStringList names;
    for (int row = 0; row < files->count(); ++row)
        names << files->item(row)->text();
    EXPECT_EQ(names, (QStringList{"a.arr", "b.arr", "C.arr", "none.arr"}));
    EXPECT_EQ(rows(shown).size(), 5);
}

TEST_F(DatabaseDesk, aDatabaseThatIsDamagedUnderItsWindowLeavesTheListAsItWas)
{
    putDatabase({{"Alba", 3}, {"Balera", 4}});
    song("Alba");
    start();
    ChildWindow* shown = openDatabase();
    const QStringList before = rows(shown);
    const std::string good = onDisk();
    for (const std::string& bytes : {std::string("something else"), good.substr(0, 27220), good + " "}) {
        state.put("TvlDBArr", bytes);
        user.warnings.clear();
        press(shown, "CommAddAll");
        settle();
        clickRow(shown, 2);
        press(shown, "CommDelete");
        settle();
        EXPECT_EQ(warnings(),
                  (Lines{"TvlDBArrReading |Error reading TvlDBArr", "TvlDBArrReading |Error reading TvlDBArr"}));
        EXPECT_EQ(rows(shown), before);
        EXPECT_EQ(control<QLabel>(shown, "Label3")->text(), "4/999");
        EXPECT_EQ(control<QListWidget>(shown, "List1")->currentRow(), 2);
        EXPECT_EQ(onDisk(), bytes);
    }
}

TEST_F(DatabaseDesk, aLongFolderIsShortenedToTheWidthOfItsLine)
{
    const std::string folder = "/music/" + std::string(100, 'm') + "/evenings/live";
    state.put("TvlDBArr", database({}, folder));
    start();
    ChildWindow* shown = openDatabase();
    const auto* line = control<QLabel>(shown, "Label4");
    const auto fits = [line] { return line->fontMetrics().horizontalAdvance(line->text()) <= line->width(); };
    const QString narrow = line->text();
    EXPECT_TRUE(fits());
    EXPECT_TRUE(narrow.startsWith("/mu...")) << narrow.toStdString();
    EXPECT_TRUE(narrow.endsWith("/live")) << narrow.toStdString();
    EXPECT_EQ(line->toolTip().toStdString(), folder);
    shown->resizeInTwips(30000, 6072);
    EXPECT_EQ(line->text().toStdString(), folder) << "there is room for it";
    shown->resizeInTwips(4308, 6072);
    EXPECT_EQ(line->text(), narrow);
}

TEST_F(DatabaseDesk, theDatabaseWindowComesBackAtItsPlace)
{
    putDatabase({});
    start();
    ChildWindow* shown = openDatabase();
    shown->placeInTwips(750, 300, 5250, 4500);
    press(shown, "CommClose");
    EXPECT_EQ(App.WinPos[12].left, 750);
    EXPECT_EQ(App.WinPos[12].top, 300);
    EXPECT_EQ(App.WinPos[12].width, 5250);
    EXPECT_EQ(App.WinPos[12].height, 4500);
    shown = openDatabase();
    EXPECT_EQ(shown->positionInTwips().left, 750);
    EXPECT_EQ(shown->positionInTwips().height, 4500);
}

TEST_F(DatabaseDesk, bothWindowsSpeakBothLanguagesAndCutNothingOff)
{
    const QStringList words[] = {
        {"Edit TvlDBArr", "Nome File", "&Apri", "Add All", "Delete", "&Chiudi", "Cerca Arrangement (ID)"},
        {"Edit TvlDBArr", "File Name", "&Open", "Add All", "Delete", "&Close", "Find Arrangement (ID)"}};
    putDatabase({});
    for (const int language : {1, 2}) {
        speak(language);
        startAgain();
        ChildWindow* shown = openDatabase();
        QStringList seen = {shown->windowTitle(), control<QLabel>(shown, "Label1")->text()};
        for (const char* name : {"CommApri", "CommAddAll", "CommDelete", "CommClose"})
            seen << control<QPushButton>(shown, name)->text();
        item("mnuWFindID")->trigger();
        seen << child("frmFindID")->windowTitle();
        EXPECT_EQ(seen, words[language - 1]);
        for (ChildWindow* one : {shown, child("frmFindID")}) {
            QList<QWidget*> spoken;
            for (auto* label : one->findChildren<QLabel*>())
                spoken << label;
            for (auto* button : one->findChildren<QPushButton*>())
                spoken << button;
            for (const QWidget* part : spoken) {
                if (part->objectName() != "Label4") {
                    EXPECT_GE(part->width(), part->minimumSizeHint().width()) << part->objectName().toStdString();
                }
                EXPECT_GE(part->height(), part->minimumSizeHint().height()) << part->objectName().toStdString();
                EXPECT_TRUE(one->rect().contains(QRect(part->mapTo(one, QPoint()), part->size())))
                    << part->objectName().toStdString();
            }
        }
        window->close();
        window.reset();
    }
}

TEST_F(DatabaseDesk, aDatabaseThatAnotherProgramChangedIsShownAtTheNextAdd)
{
    putDatabase({{"Alba", 3}});
    start();
    ChildWindow* shown = openDatabase();
    open(song("Alba"));
    putDatabase({{"Alba", 3}, {"Balera", 4}});
    press(arrangementWindow("Alba"), "CommAdd");
    settle();
    EXPECT_EQ(rows(shown), (QStringList{"1\tTvlArrA", "2\tTvlArrB", "3\tAlba.arr", "4\tBalera.arr"}));
    EXPECT_EQ(control<QLabel>(shown, "Label3")->text(), "4/999");

    // And a new one, of another folder.
    std::filesystem::remove(state.file("TvlDBArr"));
    std::filesystem::create_directory(songs.file("live"));
    open(songs.put("live/Canto.arr", arrangementFile()));
    press(arrangementWindow("Canto"), "CommAdd");
    settle();
    EXPECT_EQ(rows(shown), (QStringList{"1\tTvlArrA", "2\tTvlArrB", "3\tCanto.arr"}));
    EXPECT_EQ(control<QLabel>(shown, "Label4")->toolTip().toStdString(), songs.file("live"));
}
