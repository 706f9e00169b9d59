// The first minutes with the program: the language, the next start, the first file.
#include "e2e/DeskTest.h"

#include <filesystem>

namespace
{

class FirstStart : public DeskTest
{
};

TEST_F(FirstStart, asksForTheLanguageAndLeavesNoSettingsFileWhenClosedWithoutAChoice)
{
    desk().start("tarvolyne-virtual");
    const Control window = desk().waitFor("frmLingua");
    EXPECT_EQ(window.title(), "Tarvolyne - Tarvolyne Console ");
    EXPECT_EQ(desk().control("frmLingua", "Label1").text(), "Scegliere una lingua / Choose a language");
    EXPECT_EQ(desk().control("frmLingua", "Option1(0)").text(), "Italiano");
    EXPECT_EQ(desk().control("frmLingua", "Option1(1)").text(), "English");
    desk().closeWindow("frmLingua");
    ASSERT_TRUE(desk().waitForEnd());
    EXPECT_EQ(desk().exitCode(), 0);
    EXPECT_FALSE(stateFileIsThere("Tarvolyne.ini"));

    desk().start("tarvolyne-virtual");
    desk().waitFor("frmLingua");
}

TEST_F(FirstStart, doesNothingOnOkWithoutAChoice)
{
    desk().start("tarvolyne-virtual");
    desk().click("frmLingua", "CommOK");
    EXPECT_TRUE(desk().control("frmLingua").visible());
    EXPECT_FALSE(desk().control("frmMain").there());
}

TEST_F(FirstStart, isOverOnceALanguageIsChosen)
{
    startFirst();
    quit();
    EXPECT_EQ(std::filesystem::file_size(desk().stateFolder() + "/Tarvolyne.ini"), 46U * 250U);
    EXPECT_EQ(std::filesystem::file_size(desk().stateFolder() + "/Dornflex"), 145U);

    desk().start("tarvolyne-virtual");
    desk().waitFor("frmMain");
    EXPECT_FALSE(desk().control("frmLingua").there());
    EXPECT_EQ(desk().action("mnuApriArr").text(), "&Open Arr");
}

TEST_F(FirstStart, beginsAnewAfterAKillDuringTheQuestion)
{
    desk().start("tarvolyne-virtual");
    desk().waitFor("frmLingua");
    desk().killProgram();

    startFirst();
    EXPECT_EQ(desk().control("frmMain").title(), "Tarvolyne - Tarvolyne Console ");
}

TEST_F(FirstStart, showsAMainWindowThatSaysItsModeAndAVirtualInstrumentThatHeardIt)
{
    startFirst();
    EXPECT_EQ(desk().control("frmMain", "LabelNomeAppl").text(), "Tarvolyne Console");
    EXPECT_EQ(desk().control("frmMain", "LabelMode").text(), "ARR PLAY");
    EXPECT_EQ(desk().control("frmMain", "LabelArr").text(), "");
    desk().waitFor("frmInstrument");
    expectTaken({Wire::arrPlay()}, 0);
}

TEST_F(FirstStart, speaksItalianToWhoChoseIt)
{
    startFirst(Speech::Italian);
    EXPECT_EQ(desk().action("mnuApriArr").text(), "&Apri Arr");
    EXPECT_EQ(desk().action("mnuPreferenze").text(), "&Preferenze");
    EXPECT_TRUE(desk().action("mnuItaliano").checked());
    EXPECT_FALSE(desk().action("mnuInglese").checked());
}

TEST_F(FirstStart, changesTheLanguageAtTheNextStart)
{
    startFirst(Speech::Italian);
    desk().menu("mnuInglese");
    expectBox("Cambio lingua", "Il cambio avrà effetto alla prossima esecuzione del programma");
    EXPECT_EQ(desk().action("mnuApriArr").text(), "&Apri Arr");
    quit();

    startAgain();
    EXPECT_EQ(desk().action("mnuApriArr").text(), "&Open Arr");
    EXPECT_TRUE(desk().action("mnuInglese").checked());
}

TEST_F(FirstStart, opensAFileThroughTheDialogAndListsItsRows)
{
    startFirst();
    EXPECT_EQ(desk().action("mnuApriArr").value("shortcut"), "Ctrl+O");
    desk().key("Ctrl+O");
    const Control dialog = desk().waitFor("OpenDialog");
    EXPECT_EQ(dialog.title(), "Tarvolyne - Tarvolyne Console - Open File");
    desk().typeFileName(samplePath("song.arr"));

    const Control window = desk().waitFor("frmArrU");
    EXPECT_EQ(window.title(), "File Arr - song.arr (1)");
    const std::vector<std::string> rows = desk().rows("frmArrU", "List1");
    ASSERT_EQ(rows.size(), 64U);
    const std::vector<std::string> expected = Wire::rowTexts(sample("song.arr"));
    for (std::size_t row = 0; row < 64; ++row)
        EXPECT_EQ(rows[row], expected[row]) << "row " << row;
}

TEST_F(FirstStart, refusesToOpenTheSameFileTwice)
{
    startFirst();
    openSample("song.arr");
    desk().openFile("mnuApriArr", samplePath("song.arr"));
    expectBox("Opening song", "File already open");
    EXPECT_FALSE(desk().control("frmArrU#2").there());
}

TEST_F(FirstStart, saysThatAFileIsAbsentAndLeavesNone)
{
    startFirst();
    desk().openFile("mnuApriArr", samplePath("nothing.arr"));
    expectBox("Opening nothing", "File not found");
    EXPECT_FALSE(std::filesystem::exists(samplePath("nothing.arr")));
    EXPECT_FALSE(desk().control("frmArrU").there());
}

} // namespace
