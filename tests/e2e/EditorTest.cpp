// An arrangement edited as a player does it, by mouse and keys: every byte that the instrument takes, what is saved,
// and what the next look at the file shows.
#include "e2e/DeskTest.h"

namespace
{

class Editor : public DeskTest
{
protected:
    void SetUp() override
    {
        startFirst();
        openSample("song.arr");
        arr = sample("song.arr");
        row = Wire::rowWithFactoryStyle(arr);
        ASSERT_GE(row, 0);
        openEditor();
        before = takenSoFar();
    }
    void openEditor()
    {
        desk().clickRow("frmArrU", "List1", row);
        desk().click("frmArrU", "CommEdit");
        desk().waitFor("frmEditArr");
    }
    /// Place of a byte of the row's block in the file.
    std::size_t place(std::size_t offset) const { return 32 + 164 * static_cast<std::size_t>(row) + offset; }
    int byteOf(std::size_t offset) const { return static_cast<unsigned char>(arr[place(offset)]); }
    /// F0 42 30 4D 41 <parameter> <low> <high> F7
    static std::string parameter(int number, int low, int high)
    {
        std::string message("\xF0\x42\x30\x4D\x41", 5);
        for (const int byte : {number, low, high, 0xF7})
            message += static_cast<char>(byte);
        return message;
    }
    /// What this step sends; the next one counts from here.
    void expectSent(const std::vector<std::string>& messages)
    {
        expectTaken(messages, before);
        before = takenSoFar();
    }
    std::string text(const char* name) { return desk().control("frmEditArr", name).text(); }

    // The steps of a session: what each sends, and what it makes of `arr`.
    void rename();
    void tickMarks();
    void changeTempoAndLists();
    void changeATrack();
    void closeAndSave();
    void lookAgain();

    std::string arr; ///< the file as it is to be
    int latch = 0;   ///< the check mark of byte 28, bit 4, as it is to be
    int row = -1;
    std::size_t before = 0;
};

void Editor::rename()
{
    // The name, by keys: ten letters are written, nothing is sent.
    desk().click("frmEditArr", "Text1(0)");
    desk().key("Ctrl+A");
    desk().type("Sunset");
    expectSent({});
    arr.replace(place(0), 10, "Sunset    ");
    EXPECT_EQ(desk().control("frmEditArr").title(), "Edit Arrangement  song.arr / Sunset");
}

void Editor::tickMarks()
{
    // A check mark, by the mouse.
    latch = (byteOf(28) >> 4 & 1) ^ 1;
    desk().click("frmEditArr", "Check1(8)");
    expectSent({parameter(1, latch, 0)});
    arr[place(28)] = static_cast<char>((byteOf(28) & 0xEF) | latch << 4);
    desk().click("frmEditArr", "Check1(0)");
    expectSent({});
    arr[place(27)] = static_cast<char>(byteOf(27) ^ 1);
}

void Editor::changeTempoAndLists()
{
    // The tempo, by keys, where the press only gives the focus.
    desk().click("frmEditArr", "VScroll1(0)");
    before = takenSoFar();
    desk().key("End");
    expectSent({parameter(0, 0x70, 1)});
    desk().key("Page_Up");
    expectSent({});
    desk().key("Page_Down");
    expectSent({parameter(0, 0x66, 1)});
    EXPECT_EQ(text("Label1(0)"), "230");
    arr[place(21)] = static_cast<char>(200);

    // A list, by typed text; an effect switch, by the mouse.
    desk().click("frmEditArr", "Combo1(4)");
    desk().key("Ctrl+A");
    desk().type(" -3");
    expectSent({parameter(3, 0x7D, 0x7F)});
    arr[place(25)] = static_cast<char>(0xFD);
    desk().click("frmEditArr", "EffComm(1)");
    expectSent({parameter(9, 0, 0)});
}

void Editor::changeATrack()
{
    // The second page: a mute, a fader to the bottom, a pan to OFF.
    desk().key("Ctrl+Page_Down");
    desk().click("frmEditArr", "CommM(6)");
    expectSent({parameter(75, 1, 0)});
    desk().click("frmEditArr", "VScroll1(13)");
    before = takenSoFar();
    desk().key("End");
    desk().key("Home");
    before = takenSoFar();
    desk().key("Up");
    desk().key("Up");
    expectSent({parameter(71, 1, 0), parameter(71, 2, 0)});
    EXPECT_EQ(text("Label2(13)"), "2");
    arr[place(39 + 8 * 6 + 2)] = 2;
    desk().click("frmEditArr", "VScroll1(14)");
    desk().key("End");
    before = takenSoFar();
    desk().key("Home");
    expectSent({parameter(72, 0x7F, 0x7F)});
    EXPECT_EQ(text("Label2(14)"), "OFF");
    arr[place(39 + 8 * 6 + 3)] = static_cast<char>(0xFF);
}

void Editor::closeAndSave()
{
    // Closed with Yes, and saved by the menu.
    desk().menu("mnuChiudi");
    expectBox("Edit Arrangement  song.arr / Sunset", "The Arrangement has changed.\u2028Save changes ?", "CommYes");
    desk().waitUntilGone("frmEditArr");
    EXPECT_EQ(desk().rows("frmArrU", "List1"), Wire::rowTexts(arr));
    desk().menu("mnuSalva");
    desk().settle();
    EXPECT_TRUE(sample("song.arr") == arr);
    expectSent({});
}

void Editor::lookAgain()
{
    // Opened again from the disk.
    desk().menu("mnuChiudi");
    desk().waitUntilGone("frmArrU");
    openSample("song.arr");
    openEditor();
    EXPECT_EQ(desk().control("frmEditArr").title(), "Edit Arrangement  song.arr / Sunset    ");
    EXPECT_EQ(text("Label1(0)"), "230");
    EXPECT_EQ(text("Combo1(4)"), " -3");
    EXPECT_EQ(text("EffComm(1)"), "On");
    EXPECT_EQ(text("Label2(13)"), "2");
    EXPECT_EQ(text("Label2(14)"), "OFF");
    EXPECT_EQ(desk().control("frmEditArr", "Check1(8)").checked(), latch == 1);
}

} // namespace

TEST_F(Editor, anEditIsHeardAtOnceSavedAndThereAgain)
{
    rename();
    tickMarks();
    changeTempoAndLists();
    changeATrack();
    EXPECT_EQ(sample("song.arr").substr(place(0), 164).find("Sunset"), std::string::npos) << "nothing is saved yet";
    closeAndSave();
    lookAgain();
    quit();
    EXPECT_TRUE(sample("song.arr") == arr) << "looked at, not changed";
}

TEST_F(Editor, aFaderDraggedByTheMouseSendsItsWayAndRests)
{
    desk().key("Ctrl+Page_Down");
    const Control fader = desk().waitFor("frmEditArr", "VScroll1(7)");
    desk().click("frmEditArr", "VScroll1(7)");
    desk().key("End"); // the handle stands at the top
    before = takenSoFar();
    const int x = fader.number("x") + fader.number("width") / 2;
    const int top = fader.number("y") + 6;
    desk().drag({x, top}, {x, top + fader.number("height") / 2});
    desk().settle();
    takenSoFar();
    const std::vector<std::string> messages = Wire::messages(taken().substr(before));
    ASSERT_FALSE(messages.empty());
    int last = 127;
    for (const std::string& message : messages) {
        const int value = message[6];
        EXPECT_EQ(message, parameter(41, value, 0));
        EXPECT_LT(value, last) << "on its way down";
        last = value;
    }
    EXPECT_EQ(text("Label2(7)"), std::to_string(last));
    EXPECT_GT(last, 30);
    EXPECT_LT(last, 100);

    desk().menu("mnuChiudi");
    expectBox(desk().control("frmEditArr").title(), "The Arrangement has changed.\u2028Save changes ?", "CommNo");
    desk().waitUntilGone("frmEditArr");
    EXPECT_TRUE(sample("song.arr") == arr);
    quit();
}
