// The staged loads: the status text first, then the bytes, then the status cleared.
#include "ArrLoads.h"

// --- Automatic loads on a click -----------------------------------------------------------------------------------

TEST_F(ArrLoads, theFirstClickLoadsTheFileThenSelectsTheRow)
{
    App.AutoArr = true;
    frmArrU* window = openUsual();
    clickRow(window, 0);
    EXPECT_EQ(diary, Lines{"status Loading Arrangement"}) << "the text stands before the send blocks";
    EXPECT_EQ(timer(window, "TimerList1")->Interval(), 11);
    EXPECT_EQ(timer(window, "TimerLoadArr")->Interval(), 9);
    ASSERT_TRUE(settled(window));
    EXPECT_EQ(diary, joined({ArrLoad, selection(0)}));
    EXPECT_EQ(timer(window, "TimerList1")->Interval(), 10);
    EXPECT_EQ(timer(window, "TimerLoadArr")->Interval(), 10);
    EXPECT_EQ(App.InfoArr, "song");
    EXPECT_EQ(infoOnDisk(50), fifty("song"));
    EXPECT_EQ(diaryUser.arrLabel, "song.arr");
    EXPECT_TRUE(unpackedBody(longMessages()[0]) == usualFile().substr(32));
}

TEST_F(ArrLoads, theSecondClickSelectsAlone)
{
    App.AutoArr = true;
    frmArrU* window = openUsual();
    clickRow(window, 0);
    ASSERT_TRUE(settled(window));
    diary.clear();
    clickRow(window, 2);
    EXPECT_EQ(diary, selection(2));
}

TEST_F(ArrLoads, aLongNameIsNotLoadedAnewAtEachClick)
{
    App.AutoArr = true;
    frmArrU* window = open(1, "An evening of evergreens in the park", usualFile());
    clickRow(window, 0);
    ASSERT_TRUE(settled(window));
    EXPECT_EQ(App.InfoArr, "An evening of evergreens");
    diary.clear();
    clickRow(window, 0);
    EXPECT_EQ(diary, selection(0));
}

TEST_F(ArrLoads, aRowWithAUserStyleBringsTheStylesGroupByGroup)
{
    App.AutoArr = App.AutoSty = true;
    putStyles();
    frmArrU* window = openUsual();
    clickRow(window, 1);
    ASSERT_TRUE(settled(window));
    // Sixteen slots are there, but those of groups three and four are empty styles: two groups go out.
    EXPECT_EQ(diary, joined({ArrLoad, styleGroups(), selection(1), selection(1)}));
    EXPECT_EQ(App.InfoSty, "song");
    EXPECT_EQ(infoOnDisk(100), fifty("song"));
    EXPECT_EQ(diaryUser.styLabel, "song.sty");
    EXPECT_EQ(timer(window, "TimerList1")->Interval(), 10);
    EXPECT_EQ(timer(window, "TimerTxSty(0)")->Interval(), 10);
    EXPECT_EQ(timer(window, "TimerTxSty(1)")->Interval(), 1000);
    EXPECT_EQ(style(window), "Style 2 (U13)");

    const std::string first = unpackedBody(longMessages()[1]);
    EXPECT_EQ(hex(first.substr(0, 24)), "18 00 00 80 28 00 40 00 00 80 29 00 69 00 00 80 2A 00 93 00 00 80 2B 00");
    EXPECT_TRUE(first.substr(24) == styles().substr(224, 40 + 41 + 42 + 43));
    const std::string second = unpackedBody(longMessages()[2]);
    EXPECT_EQ(hex(second.substr(0, 6)), "18 00 00 81 2C 00");
    EXPECT_TRUE(second.substr(24) == styles().substr(224 + 166, 44 + 45 + 46 + 47));

    diary.clear();
    clickRow(window, 1);
    EXPECT_EQ(diary, selection(1)) << "the styles are in the instrument now";
}

TEST_F(ArrLoads, aRowWithAFactoryStyleBringsNoStyles)
{
    App.AutoSty = true;
    putStyles();
    frmArrU* window = openUsual();
    clickRow(window, 0);
    EXPECT_EQ(diary, selection(0));
}

TEST_F(ArrLoads, withoutStyleDataTheRowIsSelectedAtOnce)
{
    App.AutoSty = true;
    frmArrU* window = openUsual();
    clickRow(window, 1);
    EXPECT_EQ(diary, selection(1));
    EXPECT_EQ(timer(window, "TimerList1")->Interval(), 10);
}

TEST_F(ArrLoads, aClickOnAnotherRowWhileStylesGoOutShowsThatRow)
{
    App.AutoSty = true;
    putStyles();
    frmArrU* window = openUsual();
    clickRow(window, 1);
    EXPECT_EQ(timer(window, "TimerList1")->Interval(), 12);
    clickRow(window, 2);
    EXPECT_EQ(style(window), "Omega (B88)");
    EXPECT_EQ(text(window, "Text2"), "Internal");
    EXPECT_EQ(timer(window, "TimerList1")->Interval(), 10);
    ASSERT_TRUE(settled(window));
    EXPECT_EQ(diary[diary.size() - 2], "C2 02");
}

TEST_F(ArrLoads, anOpenEditorFollowsAClickOnAnotherRowWhileStylesGoOut)
{
    App.AutoSty = true;
    putStyles();
    frmArrU* window = openUsual();
    FakeEditor editor;
    Arr.editor = &editor;
    Arr.ArrEditOpen = true;
    clickRow(window, 1);
    EXPECT_EQ(Arr.ArrEditBuf.substr(0, 16), "My Own          ");
    clickRow(window, 2);
    EXPECT_EQ(Arr.ArrEditBuf.substr(0, 16), "Strings         ");
    EXPECT_EQ(editor.fills, 2);
    ASSERT_TRUE(settled(window));
    EXPECT_EQ(editor.fills, 2) << "the end of the load leaves the edit alone";
}

TEST_F(ArrLoads, anEmptyRowChosenWhileStylesGoOutLeavesNothingBehind)
{
    App.AutoSty = true;
    putStyles();
    frmArrU* window = openUsual();
    clickRow(window, 1);
    clickRow(window, 3);
    ASSERT_TRUE(settled(window));
    EXPECT_EQ(timer(window, "TimerList1")->Interval(), 10);
    press(window, "CommSongPlay");
    diary.clear();
    clickRow(window, 1);
    EXPECT_EQ(diary, joined({{"F0 42 32 4D 4E 0A F7"}, selection(1)})) << "a fresh click goes back to ARR PLAY";
}

TEST_F(ArrLoads, anEmptyRowInBetweenDoesNotLoseTheLoad)
{
    App.AutoArr = true;
    frmArrU* window = openUsual();
    clickRow(window, 0);
    clickRow(window, 3);
    ASSERT_TRUE(settled(window));
    EXPECT_EQ(App.InfoArr, "song");
    EXPECT_EQ(timer(window, "TimerList1")->Interval(), 10);
    diary.clear();
    clickRow(window, 0);
    EXPECT_EQ(diary, selection(0));
}

// --- Load Arr -----------------------------------------------------------------------------------------------------

TEST_F(ArrLoads, loadArrTakesTwoPasses)
{
    frmArrU* window = openUsual();
    window->Tag.set(2, 2);
    press(window, "CommLoadArr");
    EXPECT_EQ(diary, Lines{"status Loading Arrangement"});
    ASSERT_TRUE(settled(window));
    EXPECT_EQ(diary, ArrLoad) << "no selection follows";
    EXPECT_EQ(window->Tag.at(2), 0) << "the instrument holds what the image holds";
}

TEST_F(ArrLoads, theMenusTimerLoadsArrangements)
{
    frmArrU* window = openUsual();
    timer(window, "TimerLoadArr")->enable();
    ASSERT_TRUE(settled(window));
    EXPECT_EQ(diary, ArrLoad);
}

TEST_F(ArrLoads, aSecondPressSendsAtOnceAndTheTickStartsANewLoad)
{
    frmArrU* window = openUsual();
    press(window, "CommLoadArr");
    press(window, "CommLoadArr");
    EXPECT_EQ(diary, ArrLoad);
    ASSERT_TRUE(settled(window));
    EXPECT_EQ(diary, joined({ArrLoad, ArrLoad}));
}

TEST_F(ArrLoads, loadArrAsksOnBothPassesWhenTheAnswerIsNo)
{
    frmArrU* window = openUsual();
    Arr.ArrEditOpen = Arr.ArrEditDirty = true;
    diaryUser.answers = {Answer::No, Answer::No};
    press(window, "CommLoadArr");
    ASSERT_TRUE(settled(window));
    EXPECT_EQ(diaryUser.questions.size(), 2u);
    EXPECT_EQ(diary, joined({{"asked", "status Loading Arrangement", "asked"}, {ArrLoad.begin() + 1, ArrLoad.end()}}));
    EXPECT_TRUE(Arr.ArrEditDirty);
}

TEST_F(ArrLoads, loadArrStoresTheEditOnYesAndSendsIt)
{
    frmArrU* window = openUsual();
    int index = 0;
    ArrEditLoad(window->Tag.bytes(), index);
    Arr.ArrEditBuf[21] = 90;
    Arr.ArrEditOpen = Arr.ArrEditDirty = true;
    diaryUser.answers = {Answer::Yes};
    press(window, "CommLoadArr");
    ASSERT_TRUE(settled(window));
    EXPECT_EQ(diaryUser.questions.size(), 1u);
    EXPECT_EQ(unpackedBody(longMessages()[0])[21], 90);
}

TEST_F(ArrLoads, withMidiDisabledTheStagesRunOn)
{
    Midi.MidiEnabled = 0;
    App.AutoArr = true;
    frmArrU* window = openUsual();
    clickRow(window, 0);
    ASSERT_TRUE(settled(window));
    EXPECT_EQ(diary, (Lines{"status Loading Arrangement", "status", "status"}));
    EXPECT_EQ(style(window), "Testa Rock (A16)");
}

// --- Load Styles --------------------------------------------------------------------------------------------------

TEST_F(ArrLoads, loadStylesEndsWithTheSelectionOfTheRow)
{
    putStyles();
    frmArrU* window = openUsual();
    clickRow(window, 0);
    diary.clear();
    press(window, "CommLoadSty");
    EXPECT_EQ(diary, Lines{"status Loading Style"});
    EXPECT_EQ(timer(window, "TimerTxSty(0)")->Interval(), 20);
    ASSERT_TRUE(settled(window));
    EXPECT_EQ(diary, joined({styleGroups(), selection(0)}));
}

TEST_F(ArrLoads, loadStylesWithoutARowSendsNoSelection)
{
    putStyles();
    frmArrU* window = openUsual();
    timer(window, "TimerLoadSty")->enable();
    ASSERT_TRUE(settled(window));
    EXPECT_EQ(diary, styleGroups());
}

TEST_F(ArrLoads, groupsGoOut1000MillisecondsApart)
{
    StageTimer::setTimeScale(0.1);
    putStyles();
    frmArrU* window = openUsual();
    press(window, "CommLoadSty");
    ASSERT_TRUE(settled(window));
    std::vector<std::chrono::steady_clock::time_point> times;
    for (const auto& call : port.calls)
        if (call.operation == "midiOutLongMsg")
            times.push_back(call.when);
    ASSERT_EQ(times.size(), 2u);
    const auto apart = std::chrono::duration_cast<std::chrono::milliseconds>(times[1] - times[0]).count();
    EXPECT_GE(apart, 99);
    EXPECT_LT(apart, 500);
}

TEST_F(ArrLoads, aFileWithoutStylesStopsLoadStylesAtItsFirstStep)
{
    frmArrU* window = openUsual();
    timer(window, "TimerLoadSty")->enable();
    ASSERT_TRUE(settled(window));
    EXPECT_TRUE(diary.empty());
    EXPECT_EQ(timer(window, "TimerTxSty(0)")->Interval(), 10);
    EXPECT_EQ(timer(window, "TimerTxSty(1)")->Interval(), 10);
}

TEST_F(ArrLoads, aGroupThatCannotBeBuiltEndsTheLoad)
{
    folder().put("song.sty", styFile({{"a", 20}, {"b", 20}, {"c", 20}, {"d", 20}, {"e", 20}}));
    frmArrU* window = openUsual();
    press(window, "CommLoadSty");
    ASSERT_TRUE(settled(window));
    ASSERT_EQ(longMessages().size(), 1u);
    EXPECT_EQ(diary.back(), "status");
    EXPECT_EQ(App.InfoSty, "song");
    EXPECT_EQ(timer(window, "TimerTxSty(0)")->Interval(), 10);
}

TEST_F(ArrLoads, whileOneWindowSendsStylesAPressInAnotherDoesNothing)
{
    putStyles();
    putStyles("other.sty");
    frmArrU* first = openUsual(1);
    frmArrU* second = open(2, "other", usualFile());
    press(first, "CommLoadSty");
    press(second, "CommLoadSty");
    EXPECT_EQ(timer(second, "TimerTxSty(0)")->Interval(), 10);
    ASSERT_TRUE(settled(first));
    EXPECT_EQ(diary, styleGroups());
    EXPECT_EQ(App.InfoSty, "song");
    diary.clear();
    press(second, "CommLoadSty");
    ASSERT_TRUE(settled(second));
    EXPECT_EQ(App.InfoSty, "other");
}

TEST_F(ArrLoads, aSecondPressOfLoadStylesSendsTheNextGroupAtOnce)
{
    putStyles();
    frmArrU* window = openUsual();
    press(window, "CommLoadSty");
    press(window, "CommLoadSty");
    EXPECT_EQ(longMessages().size(), 1u);
    EXPECT_TRUE(timer(window, "TimerTxSty(1)")->enabled()) << "the pause runs from that group";
    EXPECT_FALSE(timer(window, "TimerTxSty(0)")->enabled());
    ASSERT_TRUE(settled(window));
    EXPECT_EQ(diary, styleGroups());
}

// --- Load Prog ----------------------------------------------------------------------------------------------------

TEST_F(ArrLoads, loadProgSendsTheFileReadFromDisk)
{
    const std::string programs = prgFile("KORG", {{0, 1, "First"}, {63, 2, "Last"}});
    folder().put("song.prg", programs);
    frmArrU* window = openUsual();
    press(window, "CommLoadPrg");
    EXPECT_EQ(diary, Lines{"status Loading Program"});
    EXPECT_EQ(timer(window, "TimerLoadPrg")->Interval(), 6);
    Files.PrgBuffer = "read by somebody else in between";
    ASSERT_TRUE(settled(window));
    EXPECT_EQ(diary, (Lines{"status Loading Program", "F0 42 32 4D 4C (14992)", "status"}));
    EXPECT_TRUE(unpackedBody(longMessages()[0]) == programs.substr(48, 11008) + programs.substr(23096, 2104));
    EXPECT_EQ(App.InfoPrg, "song");
    EXPECT_EQ(infoOnDisk(150), fifty("song"));
    EXPECT_EQ(diaryUser.prgLabel, "song.prg");
    EXPECT_EQ(timer(window, "TimerLoadPrg")->Interval(), 10);
}

TEST_F(ArrLoads, loadProgBlanksTheReferencesOfAPgg)
{
    const std::string programs = prgFile("KPGG", {{5, 1, "Reference"}, {6, 2, "Whole"}});
    folder().put("song.pgg", programs);
    frmArrU* window = openUsual();
    press(window, "CommLoadPrg");
    ASSERT_TRUE(settled(window));
    std::string expected = programs.substr(48, 11008);
    expected.replace(5 * 172, 20, std::string(20, '\0'));
    EXPECT_TRUE(unpackedBody(longMessages()[0]).substr(0, 11008) == expected);
    EXPECT_EQ(diaryUser.prgLabel, "song.pgg");
}

TEST_F(ArrLoads, theMenusTimerLoadsPrograms)
{
    folder().put("song.prg", prgFile("KORG", {}));
    frmArrU* window = openUsual();
    timer(window, "TimerLoadPrg")->enable();
    ASSERT_TRUE(settled(window));
    EXPECT_EQ(diary, (Lines{"status Loading Program", "F0 42 32 4D 4C (14992)", "status"}));
    EXPECT_EQ(timer(window, "TimerLoadPrg")->Interval(), 10);
}

TEST_F(ArrLoads, loadProgSendsAnOpenWindowsImageFirst)
{
    folder().put("song.prg", prgFile("KORG", {{0, 2, "On disk"}}));
    frmArrU* window = openUsual();
    std::string tag(20, '\0');
    tag[0] = 21;
    tag[14] = 1;
    tag[18] = 1;
    std::string path = folder().file("song");
    path.resize(250, ' ');
    const std::string edited = prgFile("KPGG", {{0, 2, "Edited"}});
    WindowBuffer programs(tag + path + edited);
    OpenWindows::add(&programs);
    press(window, "CommLoadPrg");
    EXPECT_EQ(timer(window, "TimerLoadPrg")->Interval(), 8);
    ASSERT_TRUE(settled(window));
    EXPECT_EQ(diary, (Lines{"status Loading Program", "F0 42 32 4D 4C (14992)", "status"}));
    EXPECT_TRUE(unpackedBody(longMessages()[0]).substr(0, 11008) == edited.substr(48, 11008));
    EXPECT_EQ(diaryUser.prgLabel, "song.pgg");
    EXPECT_EQ(App.InfoPrg, "song");
}

TEST_F(ArrLoads, loadProgOfAWindowClosedInBetweenSendsNothing)
{
    folder().put("song.prg", prgFile("KORG", {}));
    frmArrU* window = openUsual();
    {
        WindowBuffer programs = WindowBuffer::fresh(21, 1);
        programs.setPath(folder().file("song"));
        OpenWindows::add(&programs);
        press(window, "CommLoadPrg");
        OpenWindows::remove(&programs);
    }
    ASSERT_TRUE(settled(window));
    EXPECT_EQ(diary, (Lines{"status Loading Program", "status"}));
    EXPECT_EQ(timer(window, "TimerLoadPrg")->Interval(), 10);
    EXPECT_EQ(App.InfoPrg, "");
}

TEST_F(ArrLoads, loadProgStopsWhenTheFileCannotBeRead)
{
    folder().put("song.prg", prgFile("KORG", {}));
    frmArrU* window = openUsual();
    folder().put("song.prg", "damaged");
    press(window, "CommLoadPrg");
    EXPECT_EQ(timer(window, "TimerLoadPrg")->Interval(), 10);
    ASSERT_EQ(diaryUser.warnings.size(), 1u);
    EXPECT_EQ(diaryUser.warnings[0].text, "Data format error");
    EXPECT_TRUE(diary.empty());
}

TEST_F(ArrLoads, aSecondPressOfLoadProgSendsAtOnceAndTheTickStartsAnew)
{
    folder().put("song.prg", prgFile("KORG", {}));
    frmArrU* window = openUsual();
    press(window, "CommLoadPrg");
    press(window, "CommLoadPrg");
    const Lines once = {"status Loading Program", "F0 42 32 4D 4C (14992)", "status"};
    EXPECT_EQ(diary, once);
    ASSERT_TRUE(settled(window));
    EXPECT_EQ(diary, joined({once, once}));
}
