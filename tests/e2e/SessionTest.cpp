// From one run to the next: what comes back, what a crash leaves, and two starts at once.
#include "e2e/DeskTest.h"

namespace
{

class Session : public DeskTest
{
protected:
    /// Drags the lower right corner of a child window.
    void resizeBy(const std::string& window, int right, int down)
    {
        const Control found = desk().waitFor(window);
        const Point corner{found.number("x") + found.number("width") - 2,
                           found.number("y") + found.number("height") - 2};
        desk().drag(corner, {corner.x + right, corner.y + down});
        desk().settle();
    }

    std::string placeOf(const std::string& window)
    {
        const Control found = desk().waitFor(window);
        return found.value("x") + " " + found.value("y") + " " + found.value("width") + " " + found.value("height");
    }
};

TEST_F(Session, bringsBackWindowsSizesCheckMarksAndTheStatusPanel)
{
    startFirst();
    openSample("song.arr");
    desk().openFile("mnuApriArr", samplePath("encore.arr"));
    desk().waitFor("frmArrU#2");
    const std::string placeBefore = placeOf("frmArrU#2");
    resizeBy("frmArrU#2", 60, 40);
    ASSERT_NE(placeOf("frmArrU#2"), placeBefore);
    desk().menu("mnuCaricaSty");
    desk().menu("mnuCaricaPrg");
    desk().menu("mnuRdOnly");
    desk().click("frmArrU#2", "CommLoadArr");
    desk().waitForText("frmMain", "LabelArr", "encore.arr");
    desk().click("frmArrU#2", "CommLoadPrg");
    // The panel names the file of programs; its kind is told by the label's own rule.
    ASSERT_TRUE(waitUntil([&] { return !desk().control("frmMain", "LabelPrg").text().empty(); }, 5000));
    takenSoFar();
    const std::string programs = desk().control("frmMain", "LabelPrg").text();
    const std::string first = placeOf("frmArrU#1");
    const std::string second = placeOf("frmArrU#2");
    const std::string main = placeOf("frmMain");
    quit();

    startAgain();
    desk().waitFor("frmArrU#2");
    desk().settle();
    EXPECT_EQ(placeOf("frmMain"), main);
    EXPECT_EQ(placeOf("frmArrU#1"), first);
    EXPECT_EQ(placeOf("frmArrU#2"), second);
    EXPECT_EQ(desk().control("frmArrU#1").title(), "File Arr - song.arr (1)");
    // Opened before "Read only file" was checked.
    EXPECT_EQ(desk().control("frmArrU#2").title(), "File Arr - encore.arr (2)");
    EXPECT_EQ(desk().rows("frmArrU#2", "List1"), Wire::rowTexts(sample("encore.arr")));
    EXPECT_FALSE(desk().action("mnuCaricaArr").checked());
    EXPECT_TRUE(desk().action("mnuCaricaSty").checked());
    EXPECT_TRUE(desk().action("mnuCaricaPrg").checked());
    EXPECT_TRUE(desk().action("mnuRdOnly").checked());
    EXPECT_EQ(desk().control("frmMain", "LabelArr").text(), "encore.arr");
    EXPECT_EQ(desk().control("frmMain", "LabelPrg").text().substr(0, 6), programs.substr(0, 6));
    EXPECT_EQ(desk().control("frmMain", "LabelSty").text(), "");
    EXPECT_EQ(desk().action("mnuRecentFile(0)").visible(), true);
    EXPECT_EQ(desk().action("mnuRecentFile(1)").visible(), true);
    EXPECT_EQ(desk().action("mnuRecentFile(2)").visible(), false);
    quit();
}

TEST_F(Session, knowsAtTheNextStartWhatTheInstrumentHolds)
{
    startFirst();
    openSample("song.arr");
    desk().menu("mnuCaricaArr");
    const std::string arr = sample("song.arr");
    const int row = Wire::rowWithFactoryStyle(arr);
    std::size_t before = takenSoFar();
    desk().clickRow("frmArrU", "List1", row);
    expectTaken({Wire::songPlay(), Wire::arrPlay(), Wire::arrangementDump(arr), Wire::selection(row)}, before);
    quit();

    startAgain();
    desk().waitFor("frmArrU");
    before = takenSoFar();
    desk().clickRow("frmArrU", "List1", row);
    expectTaken({Wire::selection(row)}, before);
}

TEST_F(Session, aWindowThatTheUserClosedStaysClosed)
{
    startFirst();
    openSample("song.arr");
    desk().click("frmArrU", "CommClose");
    desk().waitUntilGone("frmArrU");
    quit();

    startAgain();
    takenSoFar();
    EXPECT_FALSE(desk().control("frmArrU").there());
}

TEST_F(Session, aSavedFileThatHasGoneIsDroppedInSilence)
{
    startFirst();
    openSample("song.arr");
    quit();
    ASSERT_EQ(std::remove(samplePath("song.arr").c_str()), 0);

    startAgain();
    takenSoFar();
    EXPECT_FALSE(desk().control("frmArrU").there());
    EXPECT_FALSE(desk().control("MessageBox").there());
    quit();
}

TEST_F(Session, theCloseBoxEndsTheProgramAsExitDoes)
{
    startFirst();
    openSample("song.arr");
    desk().click("frmArrU", "List1");
    desk().closeWindow("frmMain");
    ASSERT_TRUE(desk().waitForEnd());
    EXPECT_EQ(desk().exitCode(), 0);

    startAgain();
    desk().waitFor("frmArrU");
}

TEST_F(Session, startsAgainAfterAKill)
{
    startFirst();
    openSample("song.arr");
    desk().killProgram();
    EXPECT_EQ(desk().exitCode(), 128 + 9);

    startAgain();
    EXPECT_FALSE(desk().control("MessageBox").there());
    EXPECT_EQ(desk().control("frmMain", "LabelMode").text(), "ARR PLAY");
    openSample("song.arr");
    quit();
}

TEST_F(Session, aSecondStartIsRefusedAndTheFirstStillCloses)
{
    startFirst();
    desk().startAnother("tarvolyne-virtual");
    expectBox("TarvolyneOpening ", "Not more than one istance is allowed");
    ASSERT_TRUE(desk().backToFirst());
    openSample("song.arr");
    quit();
    startAgain();
    quit();
}

TEST_F(Session, aSecondStartIsRefusedInItalianTooAndByEitherProgram)
{
    startFirst(Speech::Italian);
    desk().startAnother("tarvolyne");
    expectBox("TarvolyneApertura di ", "Non è ammessa più di una istanza del programma");
    ASSERT_TRUE(desk().backToFirst());
    quit();
}

class NoDevice : public DeskTest
{
};

TEST_F(NoDevice, isSaidAndTheProgramEditsFiles)
{
    desk().start("tarvolyne");
    chooseLanguage(Speech::English);
    expectBox("Tarvolyne - Tarvolyne Console ", "Output MIDI Device not found");
    desk().waitFor("frmMain");
    EXPECT_FALSE(desk().control("frmInstrument").there());

    openSample("song.arr");
    const std::string arr = sample("song.arr");
    EXPECT_EQ(desk().rows("frmArrU", "List1"), Wire::rowTexts(arr));
    const int row = Wire::rowWithUserStyle(arr);
    desk().clickRow("frmArrU", "List1", row);
    EXPECT_NE(desk().control("frmArrU", "Combo1").text(), "");
    EXPECT_EQ(desk().control("frmMain", "LabelMode").text(), "ARR PLAY");
    EXPECT_FALSE(desk().control("MessageBox").there());
    EXPECT_FALSE(stateFileIsThere("VirtualInstrument.syx"));
    quit();

    desk().start("tarvolyne");
    expectBox("Tarvolyne - Tarvolyne Console ", "Output MIDI Device not found");
    desk().waitFor("frmArrU");
    quit();
}

TEST_F(NoDevice, isSaidInItalian)
{
    desk().start("tarvolyne");
    chooseLanguage(Speech::Italian);
    expectBox("Tarvolyne - Tarvolyne Console ", "Dispositivo MIDI di Uscita assente");
    desk().waitFor("frmMain");
    quit();
}

} // namespace
