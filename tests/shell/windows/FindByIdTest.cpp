// The find through the real main window: its own window, the file or bank that it brings, and the exact bytes that the
// instrument is sent.
#include "DatabaseDesk.h"
#include "support/Unpacked.h"

TEST_F(DatabaseDesk, theFindWindowTakesItsItemAndGivesItBack)
{
    putDatabase({});
    start();
    item("mnuWFindID")->trigger();
    ChildWindow* shown = child("frmFindID");
    ASSERT_NE(shown, nullptr);
    EXPECT_EQ(shown->windowTitle(), "Find Arrangement (ID)");
    EXPECT_FALSE(item("mnuWFindID")->isEnabled());
    EXPECT_EQ(control<QLabel>(shown, "Label1")->text(), "ID");
    EXPECT_EQ(control<QPushButton>(shown, "CommOK")->text(), "&OK");
    EXPECT_EQ(control<QLineEdit>(shown, "Text1")->text(), "");
    EXPECT_EQ(shown->positionInTwips().width, App.WinPos[10].width) << "the size of the drum windows";
    EXPECT_EQ(shown->positionInTwips().height, App.WinPos[10].height);
    EXPECT_EQ(App.OtherCount, 1);
    shown->unloadChild();
    EXPECT_TRUE(item("mnuWFindID")->isEnabled());
    EXPECT_EQ(App.OtherCount, 0);
    EXPECT_EQ(App.WinPos[11].Open, 0);
}

TEST_F(DatabaseDesk, theFindWindowComesBackWithTheSession)
{
    putDatabase({});
    start();
    item("mnuWFindID")->trigger();
    child("frmFindID")->placeInTwips(600, 450, 4500, 3000);
    window->close();
    EXPECT_EQ(App.WinPos[11].Open, 1);
    window.reset();
    startAgain();
    settle();
    ASSERT_NE(child("frmFindID"), nullptr);
    EXPECT_EQ(child("frmFindID")->positionInTwips().left, 600);
    EXPECT_FALSE(item("mnuWFindID")->isEnabled());
}

TEST_F(DatabaseDesk, aFindShowsItsNoticeTrimsTheTextAndStaysOpen)
{
    putDatabase({});
    start();
    item("mnuWFindID")->trigger();
    user.progressLines.clear();
    auto* text = control<QLineEdit>(child("frmFindID"), "Text1");
    text->setText("  30588 ");
    QTest::keyClick(text, Qt::Key_Return);
    EXPECT_EQ(user.progressLines, (Lines{"Opening ID =30588"}));
    EXPECT_TRUE(user.warnings.empty()) << "in a fresh event";
    settle();
    EXPECT_EQ(user.progressLines, (Lines{"Opening ID =30588", ""}));
    EXPECT_EQ(text->text(), "30588");
    EXPECT_EQ(warnings(), (Lines{"ID = 30588|File Arrangement not found"}));
    user.warnings.clear();
    find(" 12 ");
    EXPECT_EQ(text->text(), "12");
    EXPECT_EQ(warnings(), (Lines{"ID|File name not valid"}));
    EXPECT_TRUE(child("frmFindID"));
}

TEST_F(DatabaseDesk, aClosedFileIsOpenedAndItsRowSent)
{
    songs.put("Alba.arr", loadedFile());
    putDatabase({{"Alba", 305}});
    start();
    port.forget();
    find("30588");
    ChildWindow* shown = arrangementWindow("Alba");
    ASSERT_NE(shown, nullptr);
    EXPECT_EQ(control<QListWidget>(shown, "List1")->currentRow(), 63);
    EXPECT_EQ(control<QLineEdit>(shown, "Text1")->text(), "30588");
    EXPECT_EQ(sent(), selection("3F"));
    EXPECT_FALSE(Arr.FindIdActive);
    EXPECT_EQ(Arr.DBArrRequest, "");
    EXPECT_EQ(App.Recent[0].path, songs.file("Alba"));
}

TEST_F(DatabaseDesk, anOpenFileIsUsedAndItsRowIsSelectedAlone)
{
    songs.put("Alba.arr", loadedFile());
    song("Balera");
    putDatabase({{"alba", 3}});
    start();
    open(songs.file("Alba.arr"));
    ChildWindow* shown = arrangementWindow("Alba");
    control<QListWidget>(shown, "List1")->selectAll();
    open(songs.file("Balera.arr"));
    port.forget();
    find("388");
    EXPECT_EQ(window->area()->subWindowList().size(), 3);
    EXPECT_EQ(window->area()->currentSubWindow(), shown);
    EXPECT_EQ(control<QListWidget>(shown, "List1")->selectedItems().size(), 1);
    EXPECT_EQ(control<QListWidget>(shown, "List1")->currentRow(), 63);
    EXPECT_EQ(sent(), selection("3F"));
    find("311");
    EXPECT_EQ(control<QListWidget>(shown, "List1")->currentRow(), 0);
    EXPECT_EQ(sent(), selection("00"));
    EXPECT_TRUE(user.warnings.empty());
}

TEST_F(DatabaseDesk, aCodeThatNamesNoRowBringsTheFileAlone)
{
    songs.put("Alba.arr", loadedFile());
    App.AutoSty = App.AutoPrg = true;
    putDatabase({{"Alba", 3}});
    start();
    port.forget();
    find("395");
    ASSERT_NE(arrangementWindow("Alba"), nullptr);
    EXPECT_TRUE(control<QListWidget>(arrangementWindow("Alba"), "List1")->selectedItems().isEmpty());
    EXPECT_TRUE(sent().empty());
    EXPECT_FALSE(Arr.FindIdActive);
}

TEST_F(DatabaseDesk, aMissingRefusedOrUnplacedFileEndsTheFind)
{
    songs.put("bad.arr", "KORG");
    putDatabase({{"bad", 4}, {"gone", 3}});
    start();
    App.AutoArr = App.AutoSty = App.AutoPrg = true;
    port.forget();
    find("311");
    find("411");
    EXPECT_TRUE(sent().empty());
    App.AutoArr = App.AutoSty = App.AutoPrg = false;
    EXPECT_EQ(warnings(), (Lines{"Opening gone|File not found", "Opening bad|Error reading "}));
    EXPECT_FALSE(Arr.FindIdActive);
    EXPECT_EQ(Arr.DBArrRequest, "");
    open(song("Alba"));
    EXPECT_TRUE(control<QListWidget>(arrangementWindow("Alba"), "List1")->selectedItems().isEmpty())
        << "no find is left to be taken up";
}

TEST_F(DatabaseDesk, theBanksAreFoundWithoutADatabaseAndAgainWhenOpen)
{
    putDatabase({});
    App.PathArrA = songs.put("TvlArrA", loadedFile());
    App.PathArrB = songs.put("TvlArrB", loadedFile());
    start();
    std::filesystem::remove(state.file("TvlDBArr"));
    port.forget();
    find("188");
    EXPECT_EQ(sent(), (Lines{"B0 00 00", "B0 20 00", "C0 3F"}));
    find("111");
    EXPECT_EQ(sent(), (Lines{"B0 00 00", "B0 20 00", "C0 00"}));
    find("211");
    EXPECT_EQ(sent(), (Lines{"B0 00 00", "B0 20 00", "C0 40"}));
    find("111");
    EXPECT_EQ(sent(), (Lines{"B0 00 00", "B0 20 00", "C0 00"})) << "its window was behind the other";
    App.DeviceMode = 1;
    find("288");
    EXPECT_EQ(sent(), (Lines{"F0 42 30 4D 4E 0A F7", "B0 00 00", "B0 20 00", "C0 7F"}));
    find("291");
    EXPECT_TRUE(sent().empty());
    EXPECT_FALSE(Arr.FindIdActive);
    EXPECT_TRUE(user.warnings.empty());
}

TEST_F(DatabaseDesk, aBankThatIsMissingEndsTheFind)
{
    putDatabase({});
    App.PathArrA = songs.file("nowhere");
    start();
    find("111");
    EXPECT_EQ(user.warnings.size(), 1U);
    EXPECT_FALSE(Arr.FindIdActive);
}

// Each automatic load, needed or not: what is checked, what the instrument has, and the bytes that follow.

struct Loads {
    bool arr;
    bool sty;
    bool prg;
};

class FindLoads : public DatabaseDesk, public testing::WithParamInterface<int>
{
protected:
    static constexpr const char* ArrDump = "F0 42 30 4D 64 (12002)";
    static constexpr const char* StyDump = "F0 42 30 4D 65 (";
    static constexpr const char* PrgDump = "F0 42 30 4D 4C (14992)";

    Loads wanted{(GetParam() & 1) != 0, (GetParam() & 2) != 0, (GetParam() & 4) != 0};

    void putSong()
    {
        songs.put("Alba.arr", loadedFile());
        songs.put("Alba.sty", styles());
        songs.put("Alba.prg", programFile());
        putDatabase({{"Alba", 3}});
        putInfo("else", "else", "else");
    }
    /// What must go out, style dumps by their head.
    Lines expected() const
    {
        Lines lines;
        if (wanted.arr)
            lines = {"F0 42 30 4D 4E 06 F7", "F0 42 30 4D 4E 0A F7", ArrDump};
        if (wanted.sty) {
            lines.push_back(StyDump);
            for (const std::string& line : selection("3F"))
                lines.push_back(line);
        }
        if (wanted.prg)
            lines.push_back(PrgDump);
        for (const std::string& line : selection("3F"))
            lines.push_back(line);
        return lines;
    }
    Lines sentByKind()
    {
        Lines lines = sent();
        for (std::string& line : lines)
            if (line.starts_with(StyDump))
                line = StyDump;
        return lines;
    }
};

TEST_P(FindLoads, goOutWhenTheyAreCheckedAndTheInstrumentHasAnotherFile)
{
    putSong();
    App.AutoArr = wanted.arr;
    App.AutoSty = wanted.sty;
    App.AutoPrg = wanted.prg;
    start();
    port.forget();
    find("388");
    EXPECT_EQ(sentByKind(), expected());
    EXPECT_FALSE(Arr.FindIdActive);
    // Once more: the instrument has it all now.
    find("388");
    EXPECT_EQ(sent(), selection("3F"));
}

TEST_P(FindLoads, areLeftOutOneByOneWhenTheInstrumentHasTheFile)
{
    putSong();
    App.AutoArr = App.AutoSty = App.AutoPrg = true;
    putInfo(wanted.arr ? "else" : "Alba", wanted.sty ? "else" : "Alba", wanted.prg ? "else" : "Alba");
    start();
    port.forget();
    find("388");
    EXPECT_EQ(sentByKind(), expected());
}

TEST_P(FindLoads, areLeftOutWhenTheRowNeedsNone)
{
    putSong();
    std::string needsNone = loadedFile();
    needsNone[32 + 63 * 164 + 18] = 0;
    needsNone[32 + 63 * 164 + 40] = 0;
    songs.put("Alba.arr", needsNone);
    App.AutoArr = wanted.arr;
    App.AutoSty = wanted.sty;
    App.AutoPrg = wanted.prg;
    wanted.sty = wanted.prg = false;
    start();
    port.forget();
    find("388");
    EXPECT_EQ(sentByKind(), expected()) << "the arrangements do not depend on the row";
}

TEST_P(FindLoads, goOutFromAWindowThatIsOpenToo)
{
    putSong();
    start();
    open(songs.file("Alba.arr"));
    App.AutoArr = wanted.arr;
    App.AutoSty = wanted.sty;
    App.AutoPrg = wanted.prg;
    port.forget();
    find("388");
    EXPECT_EQ(window->area()->subWindowList().size(), 2) << "its window and that of the find";
    EXPECT_EQ(sentByKind(), expected());
}

TEST_P(FindLoads, haveNothingToDoWithABank)
{
    putSong();
    App.PathArrB = songs.put("TvlArrB", loadedFile());
    App.AutoArr = wanted.arr;
    App.AutoSty = wanted.sty;
    App.AutoPrg = wanted.prg;
    start();
    for (int round = 0; round < 2; ++round) { // its window closed, and open
        port.forget();
        find("288");
        EXPECT_EQ(sent(), (Lines{"B0 00 00", "B0 20 00", "C0 7F"}));
    }
}

INSTANTIATE_TEST_SUITE_P(AllEight, FindLoads, testing::Range(0, 8));

TEST_F(DatabaseDesk, aSecondFindTakesTheInstrumentOver)
{
    songs.put("Alba.arr", loadedFile());
    songs.put("Alba.sty", styles());
    songs.put("Balera.arr", loadedFile());
    putDatabase({{"Alba", 3}, {"Balera", 4}});
    App.AutoArr = true;
    start();
    find("311");
    port.forget();
    App.InfoArr = "else";
    putInfo("else", "", "");
    auto* text = control<QLineEdit>(child("frmFindID"), "Text1");
    text->setText("388");
    press(child("frmFindID"), "CommOK");
    EXPECT_TRUE(QTest::qWaitFor([] { return Arr.FindIdActive; }, 2000));
    find("488");
    EXPECT_FALSE(Arr.FindIdActive);
    const Lines lines = sent();
    ASSERT_GE(lines.size(), 3U);
    EXPECT_EQ(Lines(lines.end() - 3, lines.end()), selection("3F"));
    EXPECT_EQ(window->area()->currentSubWindow(), arrangementWindow("Balera"));
    EXPECT_EQ(App.InfoArr, "Balera");
}

// What the dumps of a find hold, unpacked by hand: seven bytes behind a byte of their top bits.

TEST_F(DatabaseDesk, theDumpsOfAFindHoldTheFilesBytes)
{
    std::string programs = programFile();
    for (std::size_t i = 48; i < programs.size(); ++i)
        programs[i] = static_cast<char>(i * 7 % 251);
    std::string song = loadedFile();
    for (std::size_t i = 32 + 164; i < 32 + 63 * 164; ++i)
        song[i] = static_cast<char>(i * 13 % 256);
    songs.put("Alba.arr", song);
    songs.put("Alba.prg", programs);
    putDatabase({{"Alba", 3}});
    putInfo("else", "else", "else");
    App.AutoArr = App.AutoPrg = true;
    start();
    port.forget();
    find("388");
    const std::vector<std::string> messages = port.messages();
    ASSERT_EQ(messages.size(), 7U);
    EXPECT_EQ(hex(messages[0]), "F0 42 30 4D 4E 06 F7");
    EXPECT_EQ(hex(messages[1]), "F0 42 30 4D 4E 0A F7");
    EXPECT_EQ(hex(messages[2].substr(0, 5)), "F0 42 30 4D 64");
    EXPECT_EQ(messages[2].back(), '\xF7');
    EXPECT_EQ(unpackedBody(messages[2]), song.substr(32, 10496));
    EXPECT_EQ(hex(messages[3].substr(0, 5)), "F0 42 30 4D 4C");
    EXPECT_EQ(unpackedBody(messages[3]).substr(0, 11008), programs.substr(48, 11008));
    EXPECT_EQ(hexOf({messages.begin() + 4, messages.end()}), "B0 00 00 | B0 20 01 | C0 3F");
}

// What surrounds a find.

TEST_F(DatabaseDesk, otherTimersWaitFromThePressToTheFind)
{
    songs.put("Alba.arr", loadedFile());
    putDatabase({{"Alba", 3}, {"gone", 4}});
    start();
    find("311");
    auto* text = control<QLineEdit>(child("frmFindID"), "Text1");
    text->setText("388");
    press(child("frmFindID"), "CommOK");
    EXPECT_TRUE(DBArr.FindRequest);
    EXPECT_FALSE(Arr.FindIdActive);
    ASSERT_TRUE(QTest::qWaitFor([] { return Arr.FindIdActive; }, 2000));
    EXPECT_FALSE(DBArr.FindRequest);

    port.forget();
    DBArr.FindRequest = true; // the next number, in the middle of this search
    item("mnuAggArr")->trigger();
    const std::string before = onDisk();
    QTest::qWait(100);
    EXPECT_TRUE(sent().empty());
    EXPECT_TRUE(Arr.FindIdActive);
    EXPECT_EQ(onDisk(), before);
    DBArr.FindRequest = false;
    settle();
    EXPECT_EQ(sent(), selection("3F"));
    EXPECT_FALSE(Arr.FindIdActive);
    EXPECT_EQ(onDisk(), database({}, songs.path()));

    press(child("frmFindID"), "CommOK");
    child("frmFindID")->unloadChild();
    EXPECT_FALSE(DBArr.FindRequest);
}

TEST_F(DatabaseDesk, aRefusedNumberLetsTheSearchBeforeItGoOn)
{
    songs.put("Alba.arr", loadedFile());
    putDatabase({{"Alba", 3}});
    start();
    item("mnuWFindID")->trigger();
    auto* text = control<QLineEdit>(child("frmFindID"), "Text1");
    text->setText("388");
    press(child("frmFindID"), "CommOK");
    ASSERT_TRUE(QTest::qWaitFor([] { return Arr.FindIdActive; }, 2000));
    port.forget();
    find("12");
    EXPECT_EQ(warnings(), (Lines{"ID|File name not valid"}));
    EXPECT_EQ(sent(), selection("3F"));
    EXPECT_FALSE(Arr.FindIdActive);
}

TEST_F(DatabaseDesk, aFindInTheFirstMomentIsNotTakenUpByTheLastSession)
{
    songs.put("Alba.arr", loadedFile());
    songs.put("Balera.arr", loadedFile());
    putDatabase({{"Alba", 3}});
    App.PathArrA = songs.put("TvlArrA", loadedFile());
    App.WinPos[2].Open = 1;
    App.Arrangements[2].path = songs.file("Balera");
    App.Arrangements[2].Open = 1;
    window = std::make_unique<frmMain>();
    window->Form_Load();
    window->showAsSaved();
    port.forget();
    DBArr.findInFile(songs.file("Alba"), 63);
    settle();
    ASSERT_NE(arrangementWindow("Balera"), nullptr);
    EXPECT_TRUE(control<QListWidget>(arrangementWindow("Balera"), "List1")->selectedItems().isEmpty());
    EXPECT_TRUE(control<QListWidget>(child("frmArrAB"), "List1")->selectedItems().isEmpty());
    EXPECT_EQ(sent(), selection("3F"));
    EXPECT_EQ(window->area()->currentSubWindow(), arrangementWindow("Alba"));
}

TEST_F(DatabaseDesk, aFileWhoseNameDiffersInCaseIsFoundAndOnlyOnce)
{
    songs.put("Alba.arr", loadedFile());
    putDatabase({{"ALBA", 3}});
    start();
    port.forget();
    find("388");
    EXPECT_EQ(sent(), selection("3F"));
    find("311");
    EXPECT_EQ(sent(), selection("00"));
    EXPECT_EQ(window->area()->subWindowList().size(), 2) << "its window and that of the find";
    EXPECT_TRUE(user.warnings.empty());
}
