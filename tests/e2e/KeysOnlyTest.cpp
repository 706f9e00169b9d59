// A session without a mouse: the language, a file, an edit, a save, a load, a note, and the way out, by keys alone.
#include "e2e/DeskTest.h"
#include "support/Hex.h"

namespace
{

class KeysOnly : public DeskTest
{
protected:
    void keys(std::initializer_list<const char*> all)
    {
        for (const char* one : all)
            desk().key(one);
    }
    /// Presses a key until the focus stands on the control.
    void goTo(const std::string& window, const std::string& control, const std::string& key = "Tab")
    {
        constexpr int Most = 90;
        desk().waitFor(window, control);
        const auto there = [&] { return desk().control(window, control).value("focus") == "1"; };
        for (int presses = 0; presses < Most && !there(); ++presses)
            desk().key(key);
        ASSERT_TRUE(there()) << control << " is not reached by " << key;
    }
    void chooseEnglish()
    {
        desk().start("tarvolyne-virtual");
        desk().waitFor("frmLingua");
        goTo("frmLingua", "Option1(0)");
        keys({"Down", "space", "Return"});
        desk().waitUntilGone("frmLingua");
        desk().waitFor("frmMain");
        // Two windows: the window manager's own key changes between them.
        for (int tries = 0; tries < 5 && desk().control("frmMain").value("active") != "1"; ++tries)
            desk().key("Alt+Tab");
    }
    /// F0 42 30 4D 41 <parameter> <low> <high> F7
    static std::string parameter(int number, int low)
    {
        std::string message("\xF0\x42\x30\x4D\x41", 5);
        for (const int byte : {number, low, 0, 0xF7})
            message += static_cast<char>(byte);
        return message;
    }
    void expectSent(const std::vector<std::string>& messages)
    {
        expectTaken(messages, before);
        before = takenSoFar();
    }

    std::size_t before = 0;
};

TEST_F(KeysOnly, openSelectEditSaveLoadPlayAndLeave)
{
    chooseEnglish();
    std::string arr = sample("song.arr");

    desk().key("Ctrl+O");
    desk().typeFileName(samplePath("song.arr"));
    desk().waitFor("frmArrU");
    goTo("frmArrU", "List1");
    before = takenSoFar();
    desk().key("Down"); // the first row
    expectSent({Wire::selection(0)});
    goTo("frmArrU", "CommEdit");
    desk().key("space");
    desk().waitFor("frmEditArr");
    before = takenSoFar();

    goTo("frmEditArr", "VScroll1(1)");
    keys({"Home", "Up", "Up"});
    expectTaken({}, takenSoFar());
    before = takenSoFar();
    desk().key("Up");
    expectSent({parameter(11, 3)});
    desk().key("Ctrl+2");
    expectSent({parameter(25, 1)});
    EXPECT_TRUE(desk().control("frmEditArr", "CommM(1)").checked());
    arr[32 + 39 + 2] = 3;

    desk().key("Ctrl+W");
    desk().waitFor("MessageBox");
    desk().key("Alt+Y");
    desk().waitUntilGone("frmEditArr");
    desk().key("Ctrl+S");
    desk().settle();
    EXPECT_TRUE(sample("song.arr") == arr);

    before = takenSoFar();
    goTo("frmArrU", "CommLoadAll");
    desk().key("Alt+L");
    // First the arrangements, last the programs.
    ASSERT_TRUE(waitUntil(
        [&] { return taken().find(Wire::programDump(sample("song.prg")), before) != std::string::npos; }, 30000));
    EXPECT_EQ(taken().find(Wire::arrangementDump(arr), before), before) << "with the edit in it";

    takenSoFar();
    desk().key("Ctrl+K");
    desk().waitFor("frmTastiera");
    before = takenSoFar();
    desk().key("space");
    expectSent({bytesOf("90 3C 40"), bytesOf("80 3C 40")});

    desk().key("Ctrl+F4");
    desk().waitUntilGone("frmTastiera");
    desk().key("Ctrl+W");
    desk().waitUntilGone("frmArrU");
    desk().key("Ctrl+Q");
    ASSERT_TRUE(desk().waitForEnd());
    EXPECT_EQ(desk().exitCode(), 0);
    EXPECT_TRUE(sample("song.arr") == arr);
}

} // namespace
