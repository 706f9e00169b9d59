// The real program on the real kernel: worked with mouse and keyboard, read at the end of the cable.
#include "UsbMidiDevice.h"
#include "e2e/DeskTest.h"

namespace
{

class Program : public DeskTest
{
protected:
    void SetUp() override
    {
        desk().setVariable("ALSA_CONFIG_PATH", ""); // a desk with the devices of this machine
        outputOf("dmesg -C");
    }
    void TearDown() override
    {
        const std::string log = outputOf("dmesg");
        EXPECT_EQ(log.find("overrun"), std::string::npos) << log;
        DeskTest::TearDown();
    }

    /// Bytes that came, once no more come.
    std::string arrived() { return cable.receivedInTheEnd(); }

    /// A 32-bit number of the device record, low byte first.
    int recordNumber(std::size_t offset)
    {
        const std::string record = Wire::fileBytes(desk().stateFolder() + "/Dornflex");
        int number = 0;
        for (std::size_t i = 4; i-- > 0;)
            number = number * 256 + static_cast<unsigned char>(record.at(offset + i));
        return number;
    }

    UsbMidiDevice cable;
};

} // namespace

TEST_F(Program, aWholeLoadAllArrivesEqualToTheFiles)
{
    startFirst(Speech::English, "tarvolyne");
    openSample("song.arr");
    const std::string arr = sample("song.arr");
    const std::string sty = sample("song.sty");
    const std::string prg = sample("song.prg");
    const int row = Wire::rowWithUserStyle(arr);
    desk().clickRow("frmArrU", "List1", row);
    ASSERT_TRUE(waitUntil([&] { return arrived().ends_with(Wire::selection(row)); }, 10000));
    cable.forget();

    std::string expected = Wire::arrangementDump(arr);
    ASSERT_EQ(Wire::groupsInUse(sty), 4);
    for (int group = 0; group < 4; ++group)
        expected += Wire::styleGroup(sty, group);
    expected += Wire::selection(row) + Wire::programDump(prg);
    desk().press("frmArrU", "CommLoadAll");
    EXPECT_TRUE(waitUntil([&] { return cable.received().size() >= expected.size(); }, 90000));
    EXPECT_TRUE(arrived() == expected) << "the instrument took\n"
                                       << Wire::inShort(Wire::messages(arrived())) << "instead of\n"
                                       << Wire::inShort(Wire::messages(expected));
    const std::string dump = Wire::arrangementDump(arr);
    EXPECT_EQ(Wire::unpacked(arrived().substr(5, dump.size() - 6)), arr.substr(32)) << "the file's own bytes";
    EXPECT_FALSE(desk().control("MessageBox").there());
    quit();
    EXPECT_EQ(clientNamed("Tarvolyne"), -1);
}

TEST_F(Program, aSecondStartIsRefusedWhileTheFirstHoldsThePortAndTheFirstPlaysOn)
{
    startFirst(Speech::English, "tarvolyne");
    const int client = clientNamed("Tarvolyne");
    EXPECT_GT(client, 0);
    EXPECT_EQ(recordNumber(10), client) << "the output's handle is its owner's number";
    EXPECT_EQ(recordNumber(46), client) << "the input's likewise";
    desk().startAnother("tarvolyne");
    expectBox("TarvolyneOpening ", "Not more than one istance is allowed");
    ASSERT_TRUE(desk().backToFirst());
    EXPECT_EQ(clientNamed("Tarvolyne"), client);

    openSample("song.arr");
    desk().clickRow("frmArrU", "List1", 0);
    EXPECT_TRUE(waitUntil([&] { return arrived().ends_with(Wire::selection(0)); }, 10000));
    quit();
    EXPECT_EQ(recordNumber(10), 0);
}

TEST_F(Program, aPortThatAnotherHoldsIsToldAndTheProgramEditsFiles)
{
    outputOf("aconnect -e 14:0 " + cable.address());
    desk().start("tarvolyne");
    chooseLanguage(Speech::English);
    expectBox("Tarvolyne - Tarvolyne Console ", "Output MIDI Device already in use");
    expectBox("Opening MIDI out device", "Error opening Output MIDI Device");
    expectBox("Opening MIDI out device", "The MIDI Device will not be used");
    desk().waitFor("frmMain");
    openSample("song.arr");
    desk().clickRow("frmArrU", "List1", 0);
    EXPECT_FALSE(desk().control("MessageBox").there());
    EXPECT_EQ(cable.received(), "");
    quit();
}

TEST_F(Program, aCableThatIsPulledOutLosesTheDumpAndNothingElse)
{
    startFirst(Speech::English, "tarvolyne");
    openSample("song.arr");
    arrived();
    cable.forget();
    cable.unplugAt(6000);
    desk().press("frmArrU", "CommLoadArr");
    expectBox("Tarvolyne - Tarvolyne Console ", "Error opening Output MIDI Device");
    EXPECT_EQ(desk().rows("frmArrU", "List1"), Wire::rowTexts(sample("song.arr")));

    cable.unplug();
    UsbMidiDevice again;
    desk().click("frmArrU", "CommLoadArr");
    const std::string expected = Wire::songPlay() + Wire::arrPlay() + Wire::arrangementDump(sample("song.arr"));
    EXPECT_TRUE(waitUntil([&] { return again.received().size() >= expected.size(); }, 20000));
    EXPECT_TRUE(again.receivedInTheEnd() == expected) << Wire::inShort(Wire::messages(again.received()));
    quit();
}

TEST_F(Program, anInterfaceThatIsStuckIsToldAndTheProgramLivesOn)
{
    startFirst(Speech::English, "tarvolyne");
    openSample("song.arr");
    arrived();
    cable.stallAt(6000, 0);
    desk().press("frmArrU", "CommLoadArr");
    expectBox("Tarvolyne - Tarvolyne Console ", "Error opening Output MIDI Device");
    EXPECT_EQ(desk().rows("frmArrU", "List1"), Wire::rowTexts(sample("song.arr")));
    quit();
}
