// The programs of a song: shown, played, loaded; picked for an arrangement; and their windows at the next start.
#include "e2e/DeskTest.h"

namespace
{

/// Bank select 0 and 32 and program change.
std::string program(int channel, int bank, int number)
{
    const auto byte = [](int value) { return std::string(1, static_cast<char>(value)); };
    return byte(0xB0 + channel) + byte(0) + byte(0) + byte(0xB0 + channel) + byte(0x20) + byte(bank) +
           byte(0xC0 + channel) + byte(number);
}

/// The rows of a program file as its window shows them: code, mark, name; the code alone for a free record.
std::vector<std::string> programRows(const std::string& file)
{
    std::vector<std::string> rows;
    for (std::size_t row = 0; row < 64; ++row) {
        const std::string record = file.substr(48 + 172 * row, 172);
        std::string text = std::to_string(row / 8 + 1) + std::to_string(row % 8 + 1);
        if (record[0] != 0)
            text += (record[0] == 1 ? " *" : "  ") + record.substr(3, 16);
        rows.push_back(text);
    }
    return rows;
}

class ProgramWindows : public DeskTest
{
protected:
    /// Drags a child window by its title.
    void moveBy(const std::string& window, int right, int down)
    {
        constexpr int Icon = 26;
        const Control found = desk().waitFor(window);
        const Point title{found.number("x") + Icon, found.number("y") + 10};
        desk().drag(title, {title.x + right, title.y + down});
        desk().settle();
    }
    void openDrumKitsOnChannel10()
    {
        desk().menu("mnuPerc");
        desk().waitFor("frmDrum");
        moveBy("frmDrum", 1000, 60);
        desk().click("frmDrum", "Combo1");
        for (int down = 0; down < 8; ++down)
            desk().key("Down");
        desk().key("Return");
        desk().settle();
    }
    std::string placeOf(const std::string& window)
    {
        const Control found = desk().waitFor(window);
        return found.value("x") + " " + found.value("y") + " " + found.value("width") + " " + found.value("height");
    }
};

TEST_F(ProgramWindows, aSongsProgramsAreShownPlayedLoadedAndThereAgainAtTheNextStart)
{
    startFirst();
    openSample("song.arr");
    const std::string prg = sample("song.prg");
    desk().click("frmArrU", "CommShowPrg");
    EXPECT_EQ(desk().waitFor("frmPrgUN").title(), "File Prg - song.prg (1) - MIDI Channel1");
    EXPECT_EQ(desk().rows("frmPrgUN", "List1"), programRows(prg));

    std::size_t before = takenSoFar();
    desk().clickRow("frmPrgUN", "List1", 2);
    expectTaken({program(0, 3, 2)}, before);
    before = takenSoFar();
    desk().clickRow("frmPrgUN", "List1", 63);
    expectTaken({program(0, 3, 63)}, before);

    before = takenSoFar();
    desk().click("frmPrgUN", "CommLoad");
    expectTaken({Wire::songPlay(), Wire::arrPlay(), Wire::programDump(prg)}, before);
    EXPECT_EQ(desk().control("frmMain", "LabelPrg").text(), "song.prg");

    desk().menu("mnuWProgC");
    EXPECT_EQ(desk().waitFor("frmPcgAE").title(), "Prg C - MIDI Channel2");
    moveBy("frmPcgAE", 660, 40);
    openDrumKitsOnChannel10();
    before = takenSoFar();
    desk().clickRow("frmDrum", "List1", 7);
    expectTaken({program(9, 4, 32)}, before);

    before = takenSoFar();
    desk().click("frmArrU", "CommLoadAll");
    std::vector<std::string> everything{Wire::arrangementDump(sample("song.arr"))};
    for (int group = 0; group < Wire::groupsInUse(sample("song.sty")); ++group)
        everything.push_back(Wire::styleGroup(sample("song.sty"), group));
    everything.push_back(Wire::programDump(prg));
    expectTaken(everything, before, 20000);
    std::vector<std::string> places;
    for (const char* window : {"frmPrgUN", "frmPcgAE", "frmDrum"})
        places.push_back(placeOf(window));
    quit();

    startAgain();
    desk().waitFor("frmArrU");
    EXPECT_EQ(desk().waitFor("frmPrgUN").title(), "File Prg - song.prg (1) - MIDI Channel1");
    EXPECT_EQ(desk().rows("frmPrgUN", "List1"), programRows(prg));
    EXPECT_EQ(desk().waitFor("frmPcgAE").title(), "Prg C - MIDI Channel2");
    EXPECT_EQ(desk().waitFor("frmDrum").title(), "Percussion - MIDI Channel10");
    EXPECT_EQ((std::vector<std::string>{placeOf("frmPrgUN"), placeOf("frmPcgAE"), placeOf("frmDrum")}), places);
    EXPECT_FALSE(desk().action("mnuWProgC").enabled());
    // The instrument's window came up last and lies over the main one, which has the keyboard.
    desk().bringForward("frmInstrument");
    desk().bringForward("frmMain");
    before = takenSoFar();
    desk().clickRow("frmPcgAE", "List1", 3);
    expectTaken({program(1, 1, 3)}, before);
    quit();
}

TEST_F(ProgramWindows, referencesPlayTheFactoryProgramsThatTheyStandFor)
{
    startFirst(Speech::Italian);
    desk().openFile("mnuApriPrg", samplePath("encore.pgg"));
    EXPECT_EQ(desk().waitFor("frmPrgUN").title(), "File Prg - encore.pgg (1) - MIDI Channel1");
    const std::string pgg = sample("encore.pgg");
    EXPECT_EQ(desk().rows("frmPrgUN", "List1"), programRows(pgg));
    std::size_t before = takenSoFar();
    std::vector<std::string> expected;
    for (int row = 2; row < 8; ++row) {
        const std::size_t record = 48 + 172 * static_cast<std::size_t>(row);
        ASSERT_EQ(pgg[record], 1);
        desk().clickRow("frmPrgUN", "List1", row);
        expected.push_back(program(0, pgg[record + 1], pgg[record + 2]));
        takenSoFar();
    }
    expectTaken(expected, before);
    quit();
}

TEST_F(ProgramWindows, aTracksProgramIsPickedFromABankAndSavedWithTheArrangement)
{
    startFirst();
    openSample("song.arr");
    const std::string arr = sample("song.arr");
    const int row = Wire::rowWithFactoryStyle(arr);
    desk().clickRow("frmArrU", "List1", row);
    desk().click("frmArrU", "CommEdit");
    desk().waitFor("frmEditArr");
    desk().menu("mnuWProgE");
    desk().waitFor("frmPcgAE");
    desk().click("frmEditArr", "Text1(6)"); // the bass
    const std::size_t before = takenSoFar();
    desk().clickRow("frmPcgAE", "List1", 24);
    desk().waitForText("frmEditArr", "Text1(6)", "FingerDark");
    EXPECT_EQ(desk().control("frmEditArr", "Text1(7)").text(), "E 41");
    EXPECT_EQ(takenSoFar(), before) << "a choice plays nothing";
    desk().closeWindow("frmMain");
    const Control box = desk().waitFor("MessageBox");
    EXPECT_EQ(box.text(), "The Arrangement has changed.\u2028Save changes ?");
    desk().click("MessageBox", "CommYes");
    expectBox("File Arr - song.arr (1)", "The file has changed\u2028Save changes ?", "CommYes");
    ASSERT_TRUE(desk().waitForEnd());

    const std::size_t bass = 32 + 164 * static_cast<std::size_t>(row) + 39 + 8 * 2;
    std::string wanted = arr;
    wanted[bass] = 24;
    wanted[bass + 1] = 2;
    EXPECT_EQ(sample("song.arr").substr(bass, 2), wanted.substr(bass, 2));
}

} // namespace
