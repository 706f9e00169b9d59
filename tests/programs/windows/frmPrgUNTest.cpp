// The window on a user program file: its rows, playing them, and the channel it keeps in the file.
#include "ProgramWindows.h"

namespace
{

class PrgWindow : public ProgramWindows
{
protected:
    /// Own programs in rows 0 and 9 to 63 but 62, references in 1 to 8, 62 free.
    static std::string usual(int channel = 2)
    {
        Programs file("KPGG", channel);
        file.record(0, Full, 9, 9, "Sabato Lead");
        const int references[][2] = {{0, 0}, {0, 64}, {1, 63}, {1, 100}, {2, 7}, {4, 32}, {3, 5}, {0, 127}};
        for (std::size_t i = 0; i < 8; ++i)
            file.record(i + 1, 1, references[i][0], references[i][1], "Referred " + std::to_string(i));
        for (std::size_t i = 9; i < 64; ++i)
            file.record(i, i % 2 == 0 ? 0xFF : Full, 9, 9, "Own " + std::to_string(i));
        return file.record(62, 0, 0, 0, "Gone").bytes;
    }
    /// The selection of a row of that file: a reference's own bytes, else bank 3 and the row.
    static std::string selectionOf(int row, int channel)
    {
        const std::pair<int, int> references[] = {{0, 0}, {0, 64}, {1, 63}, {1, 100},
                                                  {2, 7}, {4, 32}, {3, 5},  {0, 127}};
        if (row >= 1 && row <= 8)
            return selection(channel, references[row - 1].first, references[row - 1].second);
        return selection(channel, 3, row);
    }
    frmPrgUN* openUsual() { return open(usual(), 1, 1); }
    std::string played(ChildWindow* window)
    {
        settled(window);
        return sent();
    }
};

} // namespace

TEST_F(PrgWindow, listsOwnProgramsReferencesAndFreeRows)
{
    frmPrgUN* window = openUsual();
    ASSERT_EQ(list(window)->count(), 64);
    EXPECT_EQ(list(window)->rowText(0), "11  Sabato Lead     ");
    EXPECT_EQ(list(window)->rowText(1), "12 *Referred 0      ");
    EXPECT_EQ(list(window)->rowText(8), "21 *Referred 7      ");
    EXPECT_EQ(list(window)->rowText(9), "22  Own 9           ");
    EXPECT_EQ(list(window)->rowText(62), "87");
    EXPECT_EQ(list(window)->rowText(63), "88  Own 63          ");
    EXPECT_TRUE(list(window)->selectedItems().isEmpty());
    EXPECT_EQ(title(window), "File Prg - song.pgg (1) - MIDI Channel3");
    EXPECT_EQ(App.PrgUCount, 1);
    EXPECT_EQ(sent(), "");
}

TEST_F(PrgWindow, bytesThatAreNoCharactersShowAsBlanks)
{
    frmPrgUN* window = open(Programs()
                                .record(0, Full, 0, 0,
                                        "A\x01"
                                        "B\x7F\x9F\xE0")
                                .bytes);
    EXPECT_EQ(list(window)->rowText(0), "11  A B  \xE0          ");
}

TEST_F(PrgWindow, hasItsControlsByNameInBothLanguages)
{
    for (const int language : {1, 2}) {
        run.speak(language);
        frmPrgUN* window = openUsual();
        EXPECT_EQ(control<QPushButton>(window, "CommLoad")->text(), "&Load Prog");
        EXPECT_EQ(control<QPushButton>(window, "CommArrPlay")->text(), "&ARR PLAY");
        EXPECT_EQ(control<QPushButton>(window, "CommSongPlay")->text(), "SO&NG PLAY");
        EXPECT_EQ(control<QPushButton>(window, "CommClose")->text(), language == 1 ? "&Chiudi" : "&Close");
        EXPECT_EQ(control<QLabel>(window, "Label1")->text(), "MIDI Channel");
        EXPECT_EQ(list(window)->font().family(), "Arial");
        EXPECT_EQ(list(window)->selectionMode(), QAbstractItemView::ExtendedSelection);
        for (const char* name : {"TimerLoadPrg", "TimerList1"}) {
            EXPECT_EQ(timer(window, name)->Interval(), 10);
            EXPECT_FALSE(timer(window, name)->enabled());
        }
        EXPECT_TRUE(window->unloadChild());
    }
}

TEST_F(PrgWindow, keepsHeadPathFileAndRoomForTheRowsInTheTag)
{
    App.Programs[2].readOnly = true;
    const std::string tag = open(usual(), 3, 1)->Tag.bytes();
    std::string head(20, '\0');
    head[0] = 21;
    head[1] = 1;
    head[5] = 2;
    head[14] = 3;
    head[16] = 1;
    head[18] = 1;
    std::string path = run.folder.file("song");
    path.resize(250, ' ');
    EXPECT_EQ(tag, head + path + usual() + std::string(1344, ' '));
}

TEST_F(PrgWindow, anUntitledFileHasItsCaptionForAPath)
{
    for (const int language : {1, 2}) {
        run.speak(language);
        frmPrgUN* window = openNew(4);
        const std::string tag = window->Tag.bytes();
        EXPECT_EQ(tag[0], 22);
        EXPECT_EQ(tag[17], 1) << "Save asks for a name";
        EXPECT_EQ(tag[16], 0);
        EXPECT_EQ(tag[18], 0);
        std::string path = language == 1 ? " (SenzaNome 4)" : " (Untitled 4)";
        path.resize(250, ' ');
        EXPECT_EQ(tag.substr(20, 250), path);
        EXPECT_EQ(title(window), language == 1 ? "Nuovo File Program - SenzaNome.prg (4) - MIDI Channel1"
                                               : "New File Program - Untitled.prg (4) - MIDI Channel1");
        EXPECT_TRUE(App.Programs[3].used);
        EXPECT_TRUE(window->unloadChild());
        EXPECT_FALSE(App.Programs[3].used);
    }
}

TEST_F(PrgWindow, aPathThatItsFieldCannotHoldIsReadOnly)
{
    Files.PrgBuffer = usual();
    App.Programs[0].path = "/" + std::string(240, 'x');
    frmPrgUN* window = show(new frmPrgUN(21, 1));
    EXPECT_TRUE(window->Tag.readOnly());
    App.AppClosing = true;
    window->unloadWithoutAsking();
    App.AppClosing = false;
    EXPECT_EQ(App.Programs[0].Open, 0) << "it would bring back another file";
}

TEST_F(PrgWindow, aClickPlaysInAFreshEvent)
{
    frmPrgUN* window = openUsual();
    clickRow(window, 9);
    EXPECT_EQ(sent(), "");
    EXPECT_TRUE(timer(window, "TimerList1")->enabled());
    EXPECT_EQ(played(window), selection(2, 3, 9));
    EXPECT_FALSE(timer(window, "TimerList1")->enabled());
    clickRow(window, 9);
    EXPECT_EQ(played(window), selection(2, 3, 9)) << "a later click on the same row plays again";
}

TEST_F(PrgWindow, aDoubleClickPlaysOnce)
{
    frmPrgUN* window = openUsual();
    const auto press = [&] { clickRow(window, 12); };
    const auto secondPress = [&] {
        QTest::mouseDClick(list(window)->viewport(), Qt::LeftButton, {}, place(window, 12));
    };
    press();
    EXPECT_EQ(played(window), selection(2, 3, 12)) << "at once: the player does not wait for a second press";
    secondPress();
    EXPECT_EQ(played(window), "");

    press();
    secondPress();
    EXPECT_EQ(played(window), selection(2, 3, 12)) << "both presses before the timer";
}

TEST_F(PrgWindow, twoFastClicksOnDifferentRowsPlayTheSecond)
{
    frmPrgUN* window = openUsual();
    clickRow(window, 12);
    QTest::mouseDClick(list(window)->viewport(), Qt::LeftButton, {}, place(window, 14));
    EXPECT_EQ(played(window), selection(2, 3, 14));
    clickRow(window, 12);
    EXPECT_EQ(played(window), selection(2, 3, 12));
    QTest::mouseDClick(list(window)->viewport(), Qt::LeftButton, {}, place(window, 14));
    EXPECT_EQ(played(window), selection(2, 3, 14));
}

TEST_F(PrgWindow, ownProgramsReferencesAndFreeRowsOnAllChannels)
{
    for (const int kind : {21, 22}) {
        Files.PrgBuffer = usual(0);
        App.Programs[0].path = "/music/song";
        frmPrgUN* window = show(new frmPrgUN(kind, 1));
        for (int channel = 0; channel < 16; ++channel) {
            chooseChannel(window, channel);
            for (int row = 0; row < 64; ++row) {
                keyToRow(window, row);
                ASSERT_EQ(played(window), selectionOf(row, channel)) << row;
            }
        }
        window->unloadWithoutAsking();
    }
}

TEST_F(PrgWindow, playingChangesNoMode)
{
    frmPrgUN* window = openUsual();
    App.DeviceMode = 1;
    clickRow(window, 0);
    EXPECT_EQ(played(window), selection(2, 3, 0));
    EXPECT_EQ(App.DeviceMode, 1);
}

TEST_F(PrgWindow, aRowDeselectedMeanwhileIsNotPlayed)
{
    frmPrgUN* window = openUsual();
    clickRow(window, 5);
    clickRow(window, 5, Qt::ControlModifier);
    EXPECT_EQ(played(window), "");
}

TEST_F(PrgWindow, aRightPressIsNoClick)
{
    frmPrgUN* window = openUsual();
    QTest::mouseClick(list(window)->viewport(), Qt::RightButton, {}, place(window, 0));
    EXPECT_EQ(played(window), "");
}

TEST_F(PrgWindow, theEmptyPartOfTheListPlaysNothing)
{
    frmPrgUN* window = openUsual();
    clickBelowTheRows(window);
    EXPECT_EQ(played(window), "");
    clickRow(window, 5);
    EXPECT_EQ(played(window), selectionOf(5, 2));
    clickBelowTheRows(window);
    EXPECT_EQ(played(window), "");
}

TEST_F(PrgWindow, theMonitorShowsWhatAClickSends)
{
    frmPrgUN* window = openUsual();
    openMonitor();
    clickRow(window, 4);
    EXPECT_TRUE(diary.empty()) << "it is sent in a fresh event";
    settled(window);
    EXPECT_EQ(diary, (Lines{"log cleared", "B2 00 00", "B2 20 01", "C2 64", "log B2 00 00 B2 20 01 C2 64"}));
}

TEST_F(PrgWindow, theChannelBoxStoresOnly)
{
    frmPrgUN* window = openUsual();
    EXPECT_EQ(channelBox(window)->currentIndex(), 2);
    const std::string before = window->Tag.bytes();
    chooseChannel(window, 9);
    EXPECT_EQ(played(window), "");
    std::string after = before;
    after[285] = 9;
    EXPECT_EQ(window->Tag.bytes(), after) << "the file's byte 15, and no mark of a change";
    EXPECT_EQ(title(window), "File Prg - song.pgg (1) - MIDI Channel10");
    EXPECT_EQ(list(window)->accessibleName(), window->windowTitle());
    EXPECT_TRUE(window->unloadChild());
    EXPECT_TRUE(user.questions.empty());
}

TEST_F(PrgWindow, fillingTheBoxIsNoChoiceAndADamagedChannelIsShownAsItPlays)
{
    frmPrgUN* window = open(usual(0x7A), 1, 1);
    EXPECT_EQ(channelBox(window)->currentIndex(), 10);
    EXPECT_EQ(window->Tag.at(285), 0x7A) << "the file as read";
    clickRow(window, 0);
    EXPECT_EQ(played(window), selection(10, 3, 0));
}

TEST_F(PrgWindow, aHighlightedProgramFieldTakesTheRowAndNothingIsSent)
{
    setFieldTarget(&editor);
    frmPrgUN* window = openUsual();
    for (const int row : {0, 1, 2, 3, 4, 5, 6, 7, 8, 63}) {
        clickRow(window, row);
        EXPECT_EQ(played(window), "");
    }
    EXPECT_EQ(editor.picked, (Lines{"0 3 Sabato Lead (U 11)", "0 0 Referred 0 (A 12)", "64 0 Referred 1 (B 13)",
                                    "63 1 Referred 2 (C 14)", "100 1 Referred 3 (D 15)", "7 2 Referred 4 (E 16)",
                                    "32 4 Referred 5 (Dr 17)", "5 3 Referred 6 (U 18)", "127 0 Referred 7 (B 21)",
                                    "63 3 Own 63 (U 88)"}));
}

TEST_F(PrgWindow, anUntitledFileIsPickedFromInTheSameWay)
{
    setFieldTarget(&editor);
    Files.PrgBuffer = usual();
    frmPrgUN* window = show(new frmPrgUN(22, 2));
    clickRow(window, 0);
    settled(window);
    clickRow(window, 4);
    EXPECT_EQ(played(window), "");
    EXPECT_EQ(editor.picked, (Lines{"0 3 Sabato Lead (U 11)", "100 1 Referred 3 (D 15)"}));
}

TEST_F(PrgWindow, aHighlightedStyleFieldLetsItPlay)
{
    setFieldTarget(&editor);
    editor.program = false;
    frmPrgUN* window = openUsual();
    clickRow(window, 3);
    EXPECT_EQ(played(window), selection(2, 1, 63));
    EXPECT_TRUE(editor.picked.empty());
}

TEST_F(PrgWindow, theMenusFollowTheRow)
{
    frmPrgUN* window = openUsual();
    const int syncs = shell.syncs;
    clickRow(window, 3);
    EXPECT_EQ(shell.syncs, syncs + 1);
}

TEST_F(PrgWindow, theModeButtonsSendTheirModes)
{
    frmPrgUN* window = openUsual();
    press(window, "CommSongPlay");
    press(window, "CommArrPlay");
    EXPECT_EQ(sent(), "F0 42 32 4D 4E 06 F7 | F0 42 32 4D 4E 0A F7");
}

TEST_F(PrgWindow, onAScreenWithLargeFontsTheChannelAndCloseStandBelowTheList)
{
    const auto bottomOf = [](ChildWindow* window, const char* name) {
        auto* one = control<QWidget>(window, name);
        return one->mapTo(window, QPoint(0, one->height())).y();
    };
    frmPrgUN* usualScreen = openUsual();
    EXPECT_LT(bottomOf(usualScreen, "Combo1"), bottomOf(usualScreen, "List1"));
    EXPECT_EQ(usualScreen->positionInTwips().width, 4810);
    App.ScreenTwipsY = 12;
    frmPrgUN* largeFonts = open(usual(), 2, 1);
    for (const char* name : {"Combo1", "CommClose"})
        EXPECT_GT(bottomOf(largeFonts, name), bottomOf(largeFonts, "List1")) << name;
    EXPECT_LT(bottomOf(largeFonts, "CommLoad"), bottomOf(largeFonts, "List1"));
    EXPECT_EQ(largeFonts->positionInTwips().width, 4600);
}

TEST_F(PrgWindow, nothingIsCutOffAtTheStandardSizesOfBothScreens)
{
    for (const int twips : {15, 12}) {
        App.ScreenTwipsY = twips;
        frmPrgUN* window = openUsual();
        auto* content = window->widget();
        for (const char* name : {"List1", "Label1", "Combo1", "CommLoad", "CommArrPlay", "CommSongPlay", "CommClose"}) {
            auto* one = control<QWidget>(window, name);
            EXPECT_TRUE(content->rect().contains(QRect(one->mapTo(content, QPoint(0, 0)), one->size()))) << name;
            if (std::string_view(name) != "List1") {
                EXPECT_GE(one->width(), one->sizeHint().width()) << name;
            }
        }
        EXPECT_TRUE(window->unloadChild());
    }
}
