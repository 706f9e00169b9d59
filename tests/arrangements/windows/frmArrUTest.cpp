// The arrangement window: what it shows, what a click does, how it closes.
#include "ArrWindow.h"

namespace
{

const Lines SelectRow0 = {"B2 00 00", "B2 20 01", "C2 00", "status"};
const Lines SelectRow1 = {"B2 00 00", "B2 20 01", "C2 01", "status"};

} // namespace

TEST_F(ArrWindow, listsTheRowsAndTheStylesOfTheFile)
{
    putStyles();
    frmArrU* window = openUsual();
    RowList* rows = list(window);
    ASSERT_EQ(rows->count(), 64);
    EXPECT_EQ(rows->rowText(0), "11  Evergreen       ");
    EXPECT_EQ(rows->rowText(1), "12 +My Own          ");
    EXPECT_EQ(rows->rowText(3), "14");
    EXPECT_EQ(rows->rowText(63), "88  Last One        ");
    EXPECT_EQ(rows->selectedItems().size(), 0);

    auto* box = control<QComboBox>(window, "Combo1");
    QStringList entries;
    for (int i = 0; i < box->count(); ++i)
        entries << box->itemText(i);
    EXPECT_EQ(entries, (QStringList{"Testa Rock (A16)", "Omega (B88)", "Alpha Beat (A11)", "Style 0 (U11)",
                                    "Style 1 (U12)", "Style 2 (U13)", "Style 3 (U14)", "Style 4 (U15)", "Style 5 (U16)",
                                    "Style 6 (U17)", "Style 7 (U18)"}));
    EXPECT_EQ(style(window), "");
    EXPECT_EQ(window->windowTitle(), "File Arr - song.arr (1)");
    EXPECT_EQ(App.ArrUCount, 1);
}

TEST_F(ArrWindow, buildsEveryTimerDisabledAtRest)
{
    frmArrU* window = openUsual();
    for (const char* name :
         {"TimerLoadAll",  "TimerLoadArr",  "TimerLoadPrg",      "TimerLoadSty",      "TimerShowPrg",   "TimerShowSty",
          "TimerEditArr",  "TimerList1",    "TimerFindID",       "TimerCaricaPrg",    "TimerCaricaArr", "Timer5",
          "TimerTxSty(0)", "TimerTxSty(1)", "TimerCaricaSty(0)", "TimerCaricaSty(1)", "Timer(0)",       "Timer(1)",
          "Timer(2)",      "Timer(3)",      "Timer(4)"}) {
        EXPECT_EQ(timer(window, name)->Interval(), 10) << name;
        EXPECT_FALSE(timer(window, name)->enabled()) << name;
    }
}

TEST_F(ArrWindow, hasItsControlsByName)
{
    frmArrU* window = openUsual();
    const std::map<const char*, QString> captions = {
        {"CommLoadAll", "Load A&ll"},  {"CommLoadArr", "Load &Arr"},   {"CommLoadSty", "Load &Styles"},
        {"CommLoadPrg", "Load &Prog"}, {"CommShowSty", "Show Styles"}, {"CommShowPrg", "Show Prog"},
        {"CommAdd", "+ TvlDBArr"},     {"CommEdit", "Edit"},           {"CommArrPlay", "ARR PLAY"},
        {"CommSongPlay", "SONG PLAY"}, {"CommClose", "&Close"}};
    for (const auto& [name, caption] : captions)
        EXPECT_EQ(control<QPushButton>(window, name)->text(), caption);
    EXPECT_EQ(control<QLabel>(window, "Label1(0)")->text(), "ID");
    EXPECT_EQ(control<QLabel>(window, "Label1(1)")->text(), "Style");
    EXPECT_EQ(control<QLabel>(window, "Label1(2)")->text(), "Program");
    EXPECT_TRUE(control<QLineEdit>(window, "Text1")->isReadOnly());
    EXPECT_TRUE(control<QLineEdit>(window, "Text2")->isReadOnly());
    EXPECT_EQ(list(window)->selectionMode(), QAbstractItemView::ExtendedSelection);
    EXPECT_EQ(list(window)->font().pointSize(), 10);
}

TEST_F(ArrWindow, enablesOnlyWhatTheFilesAllow)
{
    frmArrU* bare = openUsual(1);
    EXPECT_TRUE(enabled(bare, "CommLoadArr"));
    EXPECT_TRUE(shell.items["mnuLoadArr"]);
    for (const char* name : {"CommLoadSty", "CommShowSty", "CommLoadPrg", "CommShowPrg", "CommEdit"})
        EXPECT_FALSE(enabled(bare, name)) << name;

    putStyles();
    folder().put("song.pgg", prgFile("KPGG", {}));
    frmArrU* whole = openUsual(2);
    for (const char* name : {"CommLoadSty", "CommShowSty", "CommLoadPrg", "CommShowPrg"})
        EXPECT_TRUE(enabled(whole, name)) << name;

    frmArrU* empty = open(3, "empty", arrFile({}));
    EXPECT_FALSE(enabled(empty, "CommLoadArr"));
    EXPECT_FALSE(shell.items["mnuLoadArr"]);
}

TEST_F(ArrWindow, comesUpInItsDefaultSizeElseInTheSavedOne)
{
    frmArrU* first = openUsual(1);
    EXPECT_EQ(first->positionInTwips().width, 4810);
    EXPECT_EQ(first->positionInTwips().height, 9040);
    App.Arrangements[1].left = 300;
    App.Arrangements[1].top = 150;
    App.Arrangements[1].width = 6000;
    App.Arrangements[1].height = 7500;
    frmArrU* second = openUsual(2);
    EXPECT_EQ(second->positionInTwips().left, 300);
    EXPECT_EQ(second->positionInTwips().width, 6000);
    EXPECT_TRUE(second->hasSizeInTwips(6000, 7500));
}

TEST_F(ArrWindow, aClickShowsTheRowAndSelectsItOnTheInstrument)
{
    frmArrU* window = openUsual();
    const int syncs = shell.syncs;
    clickRow(window, 0);
    EXPECT_EQ(diary, SelectRow0);
    EXPECT_EQ(shell.syncs, syncs + 1);
    EXPECT_EQ(style(window), "Testa Rock (A16)");
    EXPECT_EQ(text(window, "Text1"), "") << "not in the database";
    EXPECT_EQ(text(window, "Text2"), "");
    EXPECT_TRUE(enabled(window, "CommEdit"));
    EXPECT_TRUE(shell.items["mnuEditArr"]);
}

TEST_F(ArrWindow, aClickOnTheRowAlreadyCurrentSelectsAgain)
{
    frmArrU* window = openUsual();
    clickRow(window, 0);
    diary.clear();
    clickRow(window, 0);
    EXPECT_EQ(diary, SelectRow0);
}

TEST_F(ArrWindow, keysOnTheListSelectToo)
{
    frmArrU* window = openUsual();
    clickRow(window, 0);
    diary.clear();
    QTest::keyClick(list(window), Qt::Key_Down);
    EXPECT_EQ(diary, SelectRow1);
}

TEST_F(ArrWindow, aRightPressIsNoClick)
{
    frmArrU* window = openUsual();
    QTest::mouseClick(list(window)->viewport(), Qt::RightButton, {}, place(window, 0));
    EXPECT_TRUE(diary.empty());
}

TEST_F(ArrWindow, aRowDeselectedByControlIsNoSelection)
{
    frmArrU* window = openUsual();
    clickRow(window, 0);
    diary.clear();
    clickRow(window, 0, Qt::ControlModifier);
    EXPECT_TRUE(list(window)->selectedItems().isEmpty());
    EXPECT_TRUE(diary.empty());
}

TEST_F(ArrWindow, outOfArrangementPlayTheModeComesFirst)
{
    frmArrU* window = openUsual();
    App.DeviceMode = 1;
    clickRow(window, 0);
    EXPECT_EQ(diary, (Lines{"F0 42 32 4D 4E 0A F7", "B2 00 00", "B2 20 01", "C2 00", "status"}));
    EXPECT_EQ(App.DeviceMode, 0);
}

TEST_F(ArrWindow, namesBankDAsInternalInBothLanguages)
{
    frmArrU* window = openUsual();
    clickRow(window, 2);
    EXPECT_EQ(text(window, "Text2"), "Internal");
    clickRow(window, 0);
    EXPECT_EQ(text(window, "Text2"), "");
    run.speak(1);
    clickRow(window, 2);
    EXPECT_EQ(text(window, "Text2"), "Interno");
}

TEST_F(ArrWindow, showsTheIdAndTheRowsCode)
{
    frmArrU* window = openUsual();
    App.Arrangements[0].databaseId = 305;
    clickRow(window, 63);
    EXPECT_EQ(text(window, "Text1"), "30588");
}

TEST_F(ArrWindow, showsAUserStyleThatIsNotInTheBox)
{
    frmArrU* window = openUsual();
    clickRow(window, 1);
    EXPECT_EQ(style(window), "UserStyle2 (U13)");
}

TEST_F(ArrWindow, theStylesBoxKeepsNamingTheRowsStyle)
{
    frmArrU* window = openUsual();
    clickRow(window, 0);
    auto* box = control<QComboBox>(window, "Combo1");
    box->setFocus();
    QTest::keyClick(box, Qt::Key_Down);
    EXPECT_EQ(style(window), "Testa Rock (A16)");
    EXPECT_EQ(diary, SelectRow0) << "the box sends nothing";
}

TEST_F(ArrWindow, namesStandOneUnderTheOtherWithAndWithoutAMark)
{
    frmArrU* window =
        open(1, "song", arrFile({{1, Block().name("Same Name")}, {2, Block().name("Same Name").style(0, 1)}}));
    RowList* rows = list(window);
    const QImage shown = rows->viewport()->grab().toImage();
    const QRect first = rows->visualItemRect(rows->item(1)); // the focus mark stands on the row before
    const QRect second = rows->visualItemRect(rows->item(2));
    // Behind the code and the mark both rows show the same picture, and it is not an empty one.
    const int from = rows->fontMetrics().horizontalAdvance(QStringLiteral("00++"));
    const auto names = [&](const QRect& row) {
        return shown.copy(row.left() + from, row.top(), row.width() - from, row.height());
    };
    EXPECT_EQ(names(first), names(second));
    QImage blank = names(first);
    blank.fill(shown.pixelColor(first.right() - 1, first.top() + 1));
    EXPECT_NE(names(first), blank);
    EXPECT_NE(shown.copy(first), shown.copy(second));
}

TEST_F(ArrWindow, anEmptyRowClearsTheBoxesAndSendsNothing)
{
    frmArrU* window = openUsual();
    App.Arrangements[0].databaseId = 7;
    clickRow(window, 2);
    diary.clear();
    clickRow(window, 3);
    EXPECT_EQ(diary, Lines{"status"});
    EXPECT_EQ(style(window), "");
    EXPECT_EQ(text(window, "Text1"), "");
    EXPECT_EQ(text(window, "Text2"), "");
    EXPECT_FALSE(enabled(window, "CommEdit"));
    EXPECT_FALSE(shell.items["mnuEditArr"]);
    EXPECT_GT(control<QComboBox>(window, "Combo1")->count(), 0) << "the file's styles stay in the list";
}

TEST_F(ArrWindow, logsTheSelectionInAnEmptiedMonitor)
{
    struct Monitor : MessageMonitor {
        std::string shown;
        void clear() override { shown.clear(); }
        void append(const std::string& line) override { shown += line; }
    } monitor;
    MsgLogAttach(&monitor);
    Midi.MsgLogActive = true;
    monitor.shown = "before";
    frmArrU* window = openUsual();
    clickRow(window, 1);
    EXPECT_EQ(monitor.shown.substr(0, 23), "B2 00 00 B2 20 01 C2 01");
}

TEST_F(ArrWindow, theModeButtonsSendTheirModes)
{
    frmArrU* window = openUsual();
    press(window, "CommSongPlay");
    press(window, "CommArrPlay");
    EXPECT_EQ(diary, (Lines{"F0 42 32 4D 4E 06 F7", "F0 42 32 4D 4E 0A F7"}));
}

TEST_F(ArrWindow, aRowOfManyIsSentWithTheSelectionOfSeveral)
{
    frmArrU* window = openUsual();
    clickRow(window, 0);
    clickRow(window, 2, Qt::ShiftModifier);
    EXPECT_EQ(list(window)->selectedItems().size(), 3);
    EXPECT_EQ(diary[6], "C2 02");
}

// --- The editor ---------------------------------------------------------------------------------------------------

TEST_F(ArrWindow, editTakesTheRowAndShowsTheEditor)
{
    frmArrU* window = openUsual();
    FakeEditor editor;
    shell.onShow = [&](int kind) { Arr.editor = kind == 13 ? &editor : nullptr; };
    clickRow(window, 2);
    press(window, "CommEdit");
    EXPECT_EQ(shell.shown, (std::vector<std::pair<int, int>>{{13, 0}}));
    EXPECT_EQ(Arr.ArrEditBuf.substr(0, 16), "Strings         ");
    EXPECT_EQ(hex(Arr.ArrEditBuf.substr(324, 3)), "13 02 01");
    EXPECT_FALSE(enabled(window, "CommEdit"));
    EXPECT_FALSE(shell.items["mnuEditArr"]);
    EXPECT_TRUE(Arr.ArrEditOpen);
}

TEST_F(ArrWindow, editStaysPossibleWhenNoEditorComes)
{
    frmArrU* window = openUsual();
    clickRow(window, 2);
    press(window, "CommEdit");
    EXPECT_FALSE(Arr.ArrEditOpen);
    clickRow(window, 0);
    EXPECT_TRUE(enabled(window, "CommEdit"));
}

TEST_F(ArrWindow, aDoubleClickEditsAUsedRowAlone)
{
    frmArrU* window = openUsual();
    clickRow(window, 0);
    QTest::mouseDClick(list(window)->viewport(), Qt::LeftButton, {}, place(window, 0));
    EXPECT_EQ(shell.shown.size(), 1u);
    clickRow(window, 3);
    QTest::mouseDClick(list(window)->viewport(), Qt::LeftButton, {}, place(window, 3));
    EXPECT_EQ(shell.shown.size(), 1u);
}

TEST_F(ArrWindow, theMenusTimerEditsTheRow)
{
    frmArrU* window = openUsual();
    clickRow(window, 2);
    timer(window, "TimerEditArr")->enable();
    ASSERT_TRUE(settled(window));
    EXPECT_EQ(shell.shown, (std::vector<std::pair<int, int>>{{13, 0}}));
    EXPECT_EQ(Arr.ArrEditBuf.substr(0, 16), "Strings         ");
}

TEST_F(ArrWindow, noTwoButtonsShareTheirLetter)
{
    for (const int language : {1, 2}) {
        run.speak(language);
        std::set<QChar> letters;
        for (const QPushButton* button : openUsual(language)->findChildren<QPushButton*>()) {
            const qsizetype mark = button->text().indexOf(QLatin1Char('&'));
            if (mark < 0)
                continue;
            EXPECT_TRUE(letters.insert(button->text().at(mark + 1).toLower()).second) << qPrintable(button->text());
        }
        EXPECT_EQ(letters.size(), 5u);
    }
}

TEST_F(ArrWindow, tabWalksTheBoxesAsTheyStand)
{
    frmArrU* window = openUsual();
    auto* box = control<QComboBox>(window, "Combo1");
    box->setFocus();
    QTest::keyClick(box, Qt::Key_Tab);
    EXPECT_EQ(area->focusWidget(), control<QLineEdit>(window, "Text1"));
    QTest::keyClick(area->focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(area->focusWidget(), control<QLineEdit>(window, "Text2"));
}

class ArrWindowWithEditor : public ArrWindow
{
protected:
    ArrWindowWithEditor()
    {
        window = openUsual();
        clickRow(window, 0);
        int index = 0;
        ArrEditLoad(window->Tag.bytes(), index);
        Arr.editor = &editor;
        Arr.ArrEditOpen = true;
        diary.clear();
    }
    FakeEditor editor;
    frmArrU* window;
};

TEST_F(ArrWindowWithEditor, anOpenEditorFollowsTheSelection)
{
    clickRow(window, 2);
    EXPECT_EQ(Arr.ArrEditBuf.substr(0, 16), "Strings         ");
    EXPECT_EQ(editor.fills, 1);
    EXPECT_TRUE(diaryUser.questions.empty());
    EXPECT_EQ(diary.back(), "status");
}

TEST_F(ArrWindowWithEditor, noDiscardsTheEdit)
{
    Arr.ArrEditDirty = true;
    Arr.ArrEditBuf[100] = 99;
    diaryUser.answers = {Answer::No};
    clickRow(window, 2);
    ASSERT_EQ(diaryUser.questions.size(), 1u);
    EXPECT_EQ(diaryUser.questions[0].title, "File Arr - song.arr (1)");
    EXPECT_EQ(diaryUser.questions[0].text, "The Arrangement has changed.\nSave changes ?");
    EXPECT_EQ(Arr.ArrEditBuf.substr(0, 16), "Strings         ");
    EXPECT_EQ(window->Tag.at(302 + 100), 0);
    EXPECT_EQ(window->Tag.at(3), 0);
}

TEST_F(ArrWindowWithEditor, yesStoresTheEditBeforeTheNextRowIsTaken)
{
    Arr.ArrEditDirty = true;
    Arr.ArrEditBuf[100] = 99;
    diaryUser.answers = {Answer::Yes};
    clickRow(window, 2);
    EXPECT_EQ(window->Tag.at(302 + 100), 99);
    EXPECT_EQ(window->Tag.at(3), 1);
    EXPECT_EQ(Arr.ArrEditBuf.substr(0, 16), "Strings         ");
    EXPECT_EQ(editor.fills, 1);
}

TEST_F(ArrWindowWithEditor, aTypedNameShowsInTheRowBehindItsFirstFourCharacters)
{
    Arr.ArrEditBuf.replace(0, 16, "Renamed         ");
    Arr.ArrEditBuf[18] = 1;
    Arr.ArrNameChanged = Arr.ArrEditDirty = true;
    EXPECT_EQ(ArrEditStore(), 0);
    EXPECT_EQ(list(window)->rowText(0), "11  Renamed         ") << "the mark stays as it was";
}

TEST_F(ArrWindowWithEditor, aTypedNameShowsWholeInARowThatWasCutMeanwhile)
{
    list(window)->item(0)->setText(QStringLiteral("11"));
    Arr.ArrEditBuf.replace(0, 16, "Renamed         ");
    Arr.ArrEditBuf[18] = 1;
    Arr.ArrNameChanged = Arr.ArrEditDirty = true;
    EXPECT_EQ(ArrEditStore(), 0);
    EXPECT_EQ(list(window)->rowText(0), "11 +Renamed         ");
}

TEST_F(ArrWindow, editInASecondWindowAsksForTheChangesOfTheFirst)
{
    frmArrU* first = openUsual(1);
    frmArrU* second = open(2, "other", arrFile({{0, Block().name("Other One")}}));
    clickRow(second, 0);
    clickRow(first, 2);
    FakeEditor editor;
    shell.onShow = [&](int) { Arr.editor = &editor; };
    press(first, "CommEdit");
    Arr.ArrEditDirty = true;
    Arr.ArrEditBuf[100] = 99;
    diaryUser.answers = {Answer::Yes};
    press(second, "CommEdit");
    ASSERT_EQ(diaryUser.questions.size(), 1u);
    EXPECT_EQ(diaryUser.questions[0].text, "The Arrangement has changed.\nSave changes ?");
    EXPECT_EQ(first->Tag.at(302 + 164 * 2 + 100), 99);
    EXPECT_EQ(Arr.ArrEditBuf.substr(0, 16), "Other One       ");
    EXPECT_EQ(editor.fills, 1) << "the editor shows what it holds";
    EXPECT_FALSE(enabled(second, "CommEdit"));
}

TEST_F(ArrWindowWithEditor, closingClosesTheEditorFirst)
{
    shell.editorAgrees = false;
    EXPECT_FALSE(window->unloadChild());
    EXPECT_EQ(shell.editorCloses, (std::vector<std::pair<int, int>>{{19, 1}}));
    EXPECT_TRUE(window->isVisible());
    shell.editorAgrees = true;
    EXPECT_TRUE(window->unloadChild());
}

TEST_F(ArrWindowWithEditor, anEditorOfAnotherWindowIsLeftAlone)
{
    Arr.ArrEditBuf[326] = 2;
    EXPECT_TRUE(window->unloadChild());
    EXPECT_TRUE(shell.editorCloses.empty());
}
