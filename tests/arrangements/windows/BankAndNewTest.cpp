// The windows on the factory banks and on a new file: what they share with the window on a file, and where they differ.
#include "ArrLoads.h"

#include "arrangements/frmArrAB.h"
#include "arrangements/frmArrNew.h"

namespace
{

constexpr int SecondPassLater = 40; ///< milliseconds; well behind the ten of Timer(0)

class BankWindow : public ArrLoads
{
protected:
    frmArrAB* openBank(int kind)
    {
        App.PathArrA = folder().put("TvlArrA", usualFile());
        App.PathArrB = folder().put("TvlArrB", arrFile({{0, Block().name("Bank B Song").style(64, 0)},
                                                        {9, Block().name("Slow Waltz").style(127, 0)},
                                                        {20, Block().name("Tenth").style(3, 0)}}));
        return shown(frmArrAB::open(kind));
    }
    frmArrNew* openNew(int number, const std::string& file)
    {
        Files.ArrBuffer = file;
        return shown(new frmArrNew(number));
    }

private:
    template <typename Window>
    Window* shown(Window* window)
    {
        if (!window)
            return nullptr;
        diary.clear();
        port.forget();
        area->addSubWindow(window);
        window->show();
        QApplication::processEvents();
        return window;
    }
};

/// What a click on a row of a bank leaves in the diary: the message, nothing before it.
Lines bankSelection(int program)
{
    return {"B2 00 00", "B2 20 00", "C2 " + hex(std::string(1, static_cast<char>(program)))};
}

} // namespace

// --- The banks ----------------------------------------------------------------------------------------------------

TEST_F(BankWindow, listsTheRowsAndTheStylesOfTheBank)
{
    const frmArrAB* bank = openBank(3);
    ASSERT_NE(bank, nullptr);
    EXPECT_EQ(bank->windowKind(), 3);
    EXPECT_EQ(bank->windowTitle(), "Arr B");
    EXPECT_EQ(bank->Tag.bytes().size(), 12142U);
    const RowList* rows = list(bank);
    ASSERT_EQ(rows->count(), 64);
    EXPECT_EQ(rows->rowText(0), "11  Bank B Song     ");
    EXPECT_EQ(rows->rowText(1), "12");
    EXPECT_EQ(rows->rowText(9), "22  Slow Waltz      ");
    EXPECT_EQ(control<QComboBox>(bank, "Combo1")->count(), 3);
    EXPECT_EQ(App.WinPos[3].Open, 1);
    EXPECT_TRUE(bank->hasSizeInTwips(App.WinPos[3].width, App.WinPos[3].height));
    EXPECT_EQ(openBank(2)->windowTitle(), "Arr A");
}

TEST_F(BankWindow, aBankThatCannotBeReadIsToldAndHasNoWindow)
{
    App.PathArrA = folder().file("TvlArrA");
    App.PathArrB = folder().put("TvlArrB", "KORG");
    EXPECT_EQ(frmArrAB::open(2), nullptr);
    EXPECT_EQ(frmArrAB::open(3), nullptr);
    const std::vector<ScriptedUser::Said> expected = {
        {"", "File TvlArrA not found"}, {"Opening TvlArrB", "Error reading "}, {"", "File TvlArrB not found"}};
    EXPECT_EQ(diaryUser.warnings, expected);
    EXPECT_EQ(App.OtherCount, 0);
}

TEST_F(BankWindow, aClickShowsTheNameFirstAndSelectsInAFreshEvent)
{
    frmArrAB* bank = openBank(3);
    clickRow(bank, 9);
    EXPECT_EQ(diaryUser.arrLabel, "Slow Waltz");
    EXPECT_TRUE(diary.empty()) << "nothing is sent in the first pass";
    EXPECT_EQ(text(bank, "Text1"), "");
    ASSERT_TRUE(settled(bank));
    EXPECT_EQ(diary, bankSelection(64 + 9));
    EXPECT_EQ(text(bank, "Text1"), "322");
    EXPECT_EQ(control<QLineEdit>(bank, "Text1")->toolTip(), "ID = 222") << "what Find by ID takes";
    EXPECT_EQ(style(bank).substr(style(bank).size() - 5), "(B88)");
    EXPECT_EQ(timer(bank, "Timer(0)")->Interval(), 10);
}

TEST_F(BankWindow, theFirstRowsOfBothBanks)
{
    frmArrAB* bankA = openBank(2);
    clickRow(bankA, 0);
    ASSERT_TRUE(settled(bankA));
    EXPECT_EQ(diary, bankSelection(0));
    EXPECT_EQ(text(bankA, "Text1"), "211");
    EXPECT_EQ(control<QLineEdit>(bankA, "Text1")->toolTip(), "ID = 111");
    frmArrAB* bankB = openBank(3);
    clickRow(bankB, 0);
    ASSERT_TRUE(settled(bankB));
    EXPECT_EQ(diary, bankSelection(64));
}

TEST_F(BankWindow, aSecondClickBeforeTheSecondPassIsAFirstPassAgain)
{
    frmArrAB* bank = openBank(3);
    clickRow(bank, 0);
    clickRow(bank, 9);
    EXPECT_EQ(diaryUser.arrLabel, "Slow Waltz");
    ASSERT_TRUE(settled(bank));
    QTest::qWait(SecondPassLater);
    EXPECT_EQ(diary, bankSelection(73)) << "once, for the row clicked last";
}

TEST_F(BankWindow, aRowLookedForByIdIsTakenWhenTheWindowOpens)
{
    Arr.FindIdActive = true;
    Arr.FindIdRow = 20;
    App.DeviceMode = 1;
    frmArrAB* bank = openBank(3);
    EXPECT_FALSE(Arr.FindIdActive);
    EXPECT_EQ(list(bank)->ListIndex(), 20);
    EXPECT_EQ(App.DeviceMode, 0);
    ASSERT_TRUE(settled(bank));
    EXPECT_EQ(diary, bankSelection(64 + 20));
    EXPECT_EQ(text(bank, "Text1"), "335");
}

TEST_F(BankWindow, aRowLookedForByIdIsTakenInAnOpenWindowToo)
{
    frmArrAB* bank = openBank(3);
    clickRow(bank, 0);
    ASSERT_TRUE(settled(bank));
    diary.clear();
    Arr.FindIdActive = true;
    Arr.FindIdRow = 9;
    bank->List1_Click();
    ASSERT_TRUE(settled(bank));
    EXPECT_FALSE(Arr.FindIdActive);
    EXPECT_EQ(diary, bankSelection(73)) << "the mode was right already";
}

TEST_F(BankWindow, theBankIsLoggedInTheMonitorAsItsThreeMessages)
{
    struct Monitor final : MessageMonitor {
        std::string text;
        void clear() override { text.clear(); }
        void append(const std::string& line) override { text += line; }
    } monitor;
    frmArrAB* bank = openBank(2);
    Midi.MsgLogActive = true;
    MsgLogAttach(&monitor);
    clickRow(bank, 63);
    ASSERT_TRUE(settled(bank));
    EXPECT_EQ(monitor.text, "B2 00 00 B2 20 00 C2 3F \n\n");
    MsgLogAttach(nullptr);
}

TEST_F(BankWindow, theModeButtons)
{
    frmArrAB* bank = openBank(2);
    press(bank, "CommSongPlay");
    press(bank, "CommArrPlay");
    EXPECT_EQ(diary, (Lines{"F0 42 32 4D 4E 06 F7", "F0 42 32 4D 4E 0A F7"}));
    press(bank, "CommClose");
    EXPECT_TRUE(bank->isHidden());
}

TEST_F(BankWindow, aChangedBankAsksAtClosingAndStaysWhenTheDialogIsCancelled)
{
    frmArrAB* bank = openBank(2);
    bank->Tag.set(WindowLayout::ModifiedOffset, 1);
    diaryUser.answers = {2};
    EXPECT_FALSE(bank->unloadChild());
    diaryUser.answers = {6};
    diaryUser.saveFiles = {{false, "", 1}};
    EXPECT_FALSE(bank->unloadChild()) << "the dialog was cancelled";
    diaryUser.answers = {6};
    diaryUser.saveFiles = {{true, folder().file("mine.arr"), 1}};
    EXPECT_TRUE(bank->unloadChild());
    EXPECT_TRUE(folder().get("mine.arr") == usualFile());
    ASSERT_EQ(diaryUser.questions.size(), 3U);
    EXPECT_EQ(diaryUser.questions[0].title, "Arr A");
    EXPECT_EQ(diaryUser.questions[0].text, "The file has changed\nSave changes ?");
}

TEST_F(BankWindow, theEditorOfItsArrangementIsClosedBeforeIt)
{
    frmArrAB* bankA = openBank(2);
    frmArrAB* bankB = openBank(3);
    int row = 9;
    ArrEditLoad(bankB->Tag.bytes(), row);
    EXPECT_TRUE(bankB->queryUnload()) << "no editor is open";
    Arr.ArrEditOpen = true;
    EXPECT_TRUE(bankA->unloadChild()) << "the editor holds the other bank's";
    EXPECT_TRUE(shell.editorCloses.empty());
    shell.editorAgrees = false;
    bankB->Tag.set(WindowLayout::ModifiedOffset, 1);
    EXPECT_FALSE(bankB->unloadChild());
    EXPECT_TRUE(bankB->isVisible());
    EXPECT_TRUE(diaryUser.questions.empty()) << "the bank itself is not asked about before";
    shell.editorAgrees = true;
    diaryUser.answers = {7};
    EXPECT_TRUE(bankB->unloadChild());
    EXPECT_EQ(shell.editorCloses, (std::vector<std::pair<int, int>>{{3, 0}, {3, 0}}));
    ASSERT_EQ(diaryUser.questions.size(), 1U);
    EXPECT_EQ(diaryUser.questions[0].title, "Arr B");
}

TEST_F(BankWindow, anEditOfItsArrangementIsStoredInTheBankAndShownInItsRow)
{
    frmArrAB* bank = openBank(2);
    int row = 0;
    ArrEditLoad(bank->Tag.bytes(), row);
    putBytes(Arr.ArrEditBuf, 0, "Renamed Song    ");
    Arr.ArrNameChanged = true;
    EXPECT_EQ(ArrEditStore(), 0);
    EXPECT_EQ(list(bank)->rowText(0), "11  Renamed Song    ");
    EXPECT_EQ(bank->Tag.at(WindowLayout::ModifiedOffset), 1);
}

TEST_F(BankWindow, itsPlaceIsKeptAndTheExitLeavesItMarkedAsOpen)
{
    frmArrAB* bank = openBank(3);
    bank->placeInTwips(600, 300, 5000, 6000);
    EXPECT_TRUE(bank->unloadChild());
    EXPECT_EQ(App.WinPos[3].left, 600);
    EXPECT_EQ(App.WinPos[3].width, 5000);
    EXPECT_EQ(App.WinPos[3].Open, 0);
    bank = openBank(3);
    EXPECT_TRUE(bank->hasSizeInTwips(5000, 6000));
    App.AppClosing = true;
    EXPECT_TRUE(bank->unloadChild());
    EXPECT_EQ(App.WinPos[3].Open, 1) << "the next start shows it again";
}

// --- New files ----------------------------------------------------------------------------------------------------

TEST_F(BankWindow, aNewFileIsUntitledAndHasNoRowInUse)
{
    const frmArrNew* window = openNew(3, arrFile({}));
    EXPECT_EQ(window->windowKind(), 20);
    EXPECT_EQ(window->windowTitle(), "New File Arr - Untitled.arr (3)");
    EXPECT_EQ(window->Tag.path(), " (Untitled 3)");
    EXPECT_TRUE(window->Tag.untitled());
    EXPECT_EQ(window->Tag.at(WindowLayout::StyStateOffset), 1);
    EXPECT_EQ(window->Tag.bytes().size(), 42622U + 4928U);
    EXPECT_TRUE(App.NewArrangements[2].used);
    EXPECT_EQ(list(window)->count(), 64);
    EXPECT_EQ(list(window)->rowText(63), "88");
    EXPECT_FALSE(enabled(window, "CommLoadArr"));
    EXPECT_FALSE(enabled(window, "CommLoadSty"));
    EXPECT_EQ(App.ArrUCount, 1);
}

TEST_F(BankWindow, aClickOnAnEmptyRowOfANewFileSendsNothing)
{
    frmArrNew* window = openNew(1, arrFile({}));
    clickRow(window, 5);
    EXPECT_EQ(diary, Lines{"status"});
}

TEST_F(BankWindow, aRowOfANewFileIsSelectedInTheUserBank)
{
    frmArrNew* window = openNew(1, usualFile());
    App.DeviceMode = 1;
    clickRow(window, 0);
    EXPECT_EQ(diary, joined({{"F0 42 32 4D 4E 0A F7"}, selection(0)}));
    EXPECT_EQ(style(window).substr(style(window).size() - 5), "(A16)");
    clickRow(window, 3);
    EXPECT_EQ(style(window), "");
}

TEST_F(BankWindow, theLoadOfANewFileChangesNoMode)
{
    frmArrNew* window = openNew(1, usualFile());
    window->Tag.set(WindowLayout::NotSentOffset, 2);
    press(window, "CommLoadArr");
    EXPECT_EQ(diary, Lines{"status Loading Arrangement"});
    EXPECT_EQ(timer(window, "TimerLoadArr")->Interval(), 9);
    ASSERT_TRUE(settled(window));
    EXPECT_EQ(diary, (Lines{"status Loading Arrangement", "F0 42 32 4D 64 (12002)", "status"}));
    EXPECT_TRUE(unpackedBody(longMessages()[0]) == usualFile().substr(32));
    EXPECT_EQ(window->Tag.at(WindowLayout::NotSentOffset), 0);
    EXPECT_EQ(App.InfoArr, " (Untitled 1)");
}

TEST_F(BankWindow, aSecondPressOfLoadArrSendsAtOnceAndTheTickBeginsAnew)
{
    const frmArrNew* window = openNew(1, usualFile());
    const Lines load = {"status Loading Arrangement", "F0 42 32 4D 64 (12002)", "status"};
    press(window, "CommLoadArr");
    press(window, "CommLoadArr");
    EXPECT_EQ(diary, load);
    EXPECT_EQ(timer(window, "TimerLoadArr")->Interval(), 10);
    ASSERT_TRUE(settled(window));
    EXPECT_EQ(diary, joined({load, load}));
}

TEST_F(BankWindow, theTimersOfTheMenuItemsBeginTheLoads)
{
    frmArrNew* window = openNew(1, usualFile());
    window->Tag.setStyleArea(styles());
    window->Tag.set(WindowLayout::StyStateOffset, 2);
    timer(window, "TimerLoadArr")->enable();
    ASSERT_TRUE(settled(window));
    EXPECT_EQ(diary, (Lines{"status Loading Arrangement", "F0 42 32 4D 64 (12002)", "status"}));
    diary.clear();
    timer(window, "TimerLoadSty")->enable();
    ASSERT_TRUE(settled(window));
    EXPECT_EQ(diary, styleGroups()) << "no row is selected";
    EXPECT_EQ(App.InfoSty, " (Untitled 1)");
}

TEST_F(BankWindow, theFirstClickOfANewFileLoadsItWhereThatIsWanted)
{
    App.AutoArr = true;
    frmArrNew* window = openNew(1, usualFile());
    clickRow(window, 2);
    EXPECT_EQ(timer(window, "TimerList1")->Interval(), 11);
    ASSERT_TRUE(settled(window));
    EXPECT_EQ(diary, joined({{"status Loading Arrangement", "F0 42 32 4D 64 (12002)", "status"}, selection(2)}));
    diary.clear();
    clickRow(window, 0);
    EXPECT_EQ(diary, selection(0));
}

TEST_F(BankWindow, theStylesOfANewFileFollowTheirOwnPreference)
{
    App.AutoSty = true;
    frmArrNew* window = openNew(1, usualFile());
    window->Tag.setStyleArea(styles());
    window->Tag.set(WindowLayout::StyStateOffset, 2);
    window->contentChanged();
    EXPECT_TRUE(enabled(window, "CommLoadSty"));
    clickRow(window, 1);
    ASSERT_TRUE(settled(window));
    EXPECT_EQ(diary, selection(1)) << "the preference of files does not count";
    diary.clear();
    App.AutoStyNewArr = true;
    clickRow(window, 1);
    EXPECT_EQ(timer(window, "TimerList1")->Interval(), 12);
    ASSERT_TRUE(settled(window));
    EXPECT_EQ(diary, joined({styleGroups(), selection(1), selection(1)}));
    EXPECT_EQ(timer(window, "TimerLoadSty")->Interval(), 10);
    EXPECT_EQ(style(window), "Style 2 (U13)");
    diary.clear();
    clickRow(window, 1);
    EXPECT_EQ(diary, selection(1)) << "the styles are in the instrument now";
}

TEST_F(BankWindow, aRowOfANewFileIsSelectedAtOnceWithoutItsStyles)
{
    App.AutoStyNewArr = true;
    const frmArrNew* window = openNew(1, usualFile());
    clickRow(window, 1);
    EXPECT_EQ(diary, selection(1));
    EXPECT_EQ(timer(window, "TimerList1")->Interval(), 10);
    EXPECT_EQ(style(window), "UserStyle2 (U13)");
}

TEST_F(BankWindow, theGroupsOfANewFileAreASecondApart)
{
    frmArrNew* window = openNew(1, usualFile());
    window->Tag.setStyleArea(styles());
    window->Tag.set(WindowLayout::StyStateOffset, 2);
    window->contentChanged();
    press(window, "CommLoadSty");
    EXPECT_EQ(timer(window, "TimerLoadSty")->Interval(), 20);
    ASSERT_TRUE(QTest::qWaitFor([&] { return longMessages().size() == 1; }, 1000));
    EXPECT_EQ(timer(window, "TimerLoadSty")->Interval(), 1000);
    ASSERT_TRUE(settled(window));
    EXPECT_EQ(longMessages().size(), 2U);
}

TEST_F(BankWindow, aModifiedNewFileAsksForANameAtClosing)
{
    frmArrNew* window = openNew(2, usualFile());
    window->Tag.set(WindowLayout::ModifiedOffset, 1);
    diaryUser.answers = {6};
    diaryUser.saveFiles = {{false, "", 1}};
    EXPECT_FALSE(window->unloadChild());
    diaryUser.answers = {6};
    diaryUser.saveFiles = {{true, folder().file("afternoon.arr"), 1}};
    EXPECT_TRUE(window->unloadChild());
    EXPECT_TRUE(folder().get("afternoon.arr") == usualFile());
    EXPECT_FALSE(App.NewArrangements[1].used);
    ASSERT_EQ(diaryUser.questions.size(), 2U);
    EXPECT_EQ(diaryUser.questions[0].title, "New File Arr - Untitled.arr (2)");
}

TEST_F(BankWindow, aNewFileThatClosesInTheMiddleOfALoadTakesItsNoticeAlong)
{
    frmArrNew* window = openNew(1, usualFile());
    press(window, "CommLoadArr");
    EXPECT_TRUE(window->unloadChild());
    EXPECT_EQ(diary, (Lines{"status Loading Arrangement", "status"}));
    diary.clear();
    window = openNew(2, usualFile());
    window->Tag.setStyleArea(styles());
    window->Tag.set(WindowLayout::StyStateOffset, 2);
    window->contentChanged();
    press(window, "CommLoadSty");
    EXPECT_TRUE(window->unloadChild());
    EXPECT_EQ(diary, (Lines{"status Loading Style", "status"}));
    QTest::qWait(SecondPassLater);
    EXPECT_TRUE(longMessages().empty());
}

TEST_F(BankWindow, aNewFileKeepsItsNumbersPlaceAndGivesItsMenuItemBack)
{
    frmArrNew* window = openNew(4, usualFile());
    EXPECT_TRUE(window->hasSizeInTwips(4810, 7780)) << "the standard size";
    EXPECT_TRUE(shell.items["mnuLoadArr"]);
    window->placeInTwips(900, 600, 5100, 6000);
    EXPECT_TRUE(window->unloadChild());
    EXPECT_TRUE(diaryUser.questions.empty()) << "nothing was changed";
    EXPECT_FALSE(App.NewArrangements[3].used);
    EXPECT_TRUE(shell.items["mnuNuovoArr"]);
    EXPECT_EQ(App.ArrUCount, 0);
    window = openNew(4, usualFile());
    const WindowPosition place = window->positionInTwips();
    EXPECT_EQ(place.left, 900);
    EXPECT_EQ(place.top, 600);
    EXPECT_EQ(place.width, 5100);
    EXPECT_EQ(place.height, 6000);
    shell.items.clear();
    App.AppClosing = true;
    EXPECT_TRUE(window->unloadChild());
    EXPECT_FALSE(shell.items.contains("mnuNuovoArr")) << "the menus stand still at the exit";
}

TEST_F(BankWindow, theOtherButtonsAndTheDeleteKeyOfANewFile)
{
    frmArrNew* window = openNew(1, usualFile());
    clickRow(window, 0);
    diary.clear();
    QTest::keyClick(list(window), Qt::Key_Delete);
    EXPECT_EQ(shell.cuts, 1);
    press(window, "CommArrPlay");
    EXPECT_EQ(diary, Lines{"F0 42 32 4D 4E 0A F7"});
    press(window, "CommClose");
    EXPECT_TRUE(window->isHidden());
}

TEST_F(BankWindow, theTickOfTimerSelectsTheRow)
{
    frmArrNew* window = openNew(1, usualFile());
    clickRow(window, 0);
    diary.clear();
    timer(window, "Timer")->enable();
    ASSERT_TRUE(settled(window));
    EXPECT_EQ(diary, selection(0));
}
