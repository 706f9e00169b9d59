// A click on a row, and what the instrument then holds: every byte, in order, and the pauses between the dumps.
#include "e2e/DeskTest.h"

namespace
{

using Clock = std::chrono::steady_clock;

class Loads : public DeskTest
{
protected:
    void SetUp() override
    {
        startFirst();
        openSample("song.arr");
        arr = sample("song.arr");
        sty = sample("song.sty");
        before = takenSoFar();
    }

    /// What a load of the whole style file sends.
    std::vector<std::string> styleGroups(const std::string& bytes) const
    {
        std::vector<std::string> groups;
        for (int group = 0; group < Wire::groupsInUse(bytes); ++group)
            groups.push_back(Wire::styleGroup(bytes, group));
        return groups;
    }

    void turnOn(const char* item)
    {
        desk().menu(item);
        ASSERT_TRUE(desk().action(item).checked());
    }

    std::string arr;
    std::string sty;
    std::size_t before = 0; ///< bytes that the instrument took before the test's own
};

TEST_F(Loads, aClickLoadsWhatTheInstrumentLacksAndTheSecondOnlySelects)
{
    turnOn("mnuCaricaArr");
    turnOn("mnuCaricaSty");
    const int row = Wire::rowWithUserStyle(arr);
    const int next = Wire::rowWithUserStyle(arr, row + 1);
    ASSERT_GE(row, 0);
    ASSERT_GE(next, 0);
    ASSERT_EQ(Wire::groupsInUse(sty), 4);

    desk().clickRow("frmArrU", "List1", row);
    std::vector<std::string> expected{Wire::songPlay(), Wire::arrPlay(), Wire::arrangementDump(arr)};
    for (const std::string& group : styleGroups(sty))
        expected.push_back(group);
    // The style load ends with the selection of the row, and so does the click that it served.
    expected.push_back(Wire::selection(row));
    expected.push_back(Wire::selection(row));
    expectTaken(expected, before, 20000);
    EXPECT_EQ(desk().control("frmMain", "LabelArr").text(), "song.arr");
    EXPECT_EQ(desk().control("frmMain", "LabelSty").text(), "song.sty");
    EXPECT_EQ(desk().control("frmMain", "Label1").text(), "");

    before = takenSoFar();
    desk().clickRow("frmArrU", "List1", next);
    expectTaken({Wire::selection(next)}, before);

    // Onto the current row, and by a key.
    before = takenSoFar();
    desk().clickRow("frmArrU", "List1", next);
    expectTaken({Wire::selection(next)}, before);
    before = takenSoFar();
    desk().key("Up");
    expectTaken({Wire::selection(next - 1)}, before);
}

TEST_F(Loads, theStyleGroupsGoOutASecondApart)
{
    turnOn("mnuCaricaSty");
    const int row = Wire::rowWithUserStyle(arr);
    std::vector<std::size_t> ends; // of the groups in the stream
    std::size_t end = before;
    for (const std::string& group : styleGroups(sty))
        ends.push_back(end += group.size());

    desk().clickRow("frmArrU", "List1", row);
    std::vector<Clock::time_point> times;
    for (const std::size_t groupEnd : ends) {
        ASSERT_TRUE(waitUntil([&] { return taken().size() >= groupEnd; }, 5000));
        times.push_back(Clock::now());
    }
    for (std::size_t group = 1; group < times.size(); ++group) {
        const auto gap = std::chrono::duration_cast<std::chrono::milliseconds>(times[group] - times[group - 1]);
        // Looked at every 10 ms, on a machine that may be busy.
        EXPECT_GE(gap.count(), 980);
        EXPECT_LE(gap.count(), 1400);
    }
}

TEST_F(Loads, withoutThePreferencesAClickOnlySelects)
{
    const int row = Wire::rowWithUserStyle(arr);
    desk().clickRow("frmArrU", "List1", row);
    expectTaken({Wire::selection(row)}, before);
    EXPECT_EQ(desk().control("frmMain", "LabelArr").text(), "");
}

TEST_F(Loads, aRowWithAFactoryStyleNeedsNoStyles)
{
    turnOn("mnuCaricaArr");
    turnOn("mnuCaricaSty");
    const int row = Wire::rowWithFactoryStyle(arr);
    ASSERT_GE(row, 0);
    desk().clickRow("frmArrU", "List1", row);
    expectTaken({Wire::songPlay(), Wire::arrPlay(), Wire::arrangementDump(arr), Wire::selection(row)}, before);
    EXPECT_EQ(desk().control("frmMain", "LabelSty").text(), "");
}

TEST_F(Loads, theInstrumentHoldsTheBytesOfTheArrangementFile)
{
    desk().click("frmArrU", "CommLoadArr");
    expectTaken({Wire::songPlay(), Wire::arrPlay(), Wire::arrangementDump(arr)}, before);
    const std::vector<std::string> messages = Wire::messages(taken());
    const std::string& dump = messages.back();
    EXPECT_EQ(Wire::unpacked(dump.substr(5, dump.size() - 6)), arr.substr(32));
}

TEST_F(Loads, theInstrumentHoldsTheBytesOfEveryStyleGroup)
{
    desk().click("frmArrU", "CommLoadSty");
    // No row is selected, so the load ends without a selection.
    expectTaken(styleGroups(sty), before, 20000);

    std::string blocks;
    for (const std::string& message : Wire::messages(taken().substr(before)))
        blocks += Wire::unpacked(message.substr(5, message.size() - 6)).substr(24);
    EXPECT_EQ(blocks, sty.substr(224));
}

TEST_F(Loads, theInstrumentHoldsTheProgramsOfThePrgFile)
{
    desk().click("frmArrU", "CommLoadPrg");
    const std::string prg = sample("song.prg");
    expectTaken({Wire::programDump(prg)}, before);
    EXPECT_EQ(desk().control("frmMain", "LabelPrg").text(), "song.prg");

    const std::string dump = taken().substr(before);
    EXPECT_EQ(Wire::unpacked(dump.substr(5, dump.size() - 6)), prg.substr(48, 11008) + prg.substr(23096, 2104));
}

TEST_F(Loads, thatOfAPggFileBlanksItsReferences)
{
    const std::string pgg = sample("encore.pgg");
    desk().openFile("mnuApriArr", samplePath("encore.arr"));
    desk().waitFor("frmArrU#2");
    desk().click("frmArrU#2", "CommLoadPrg");
    expectTaken({Wire::programDump(pgg)}, before);

    const std::string dump = taken().substr(before);
    const std::string held = Wire::unpacked(dump.substr(5, dump.size() - 6));
    int references = 0;
    for (std::size_t record = 0; record < 64; ++record) {
        const std::string inFile = pgg.substr(48 + 172 * record, 172);
        const bool reference = inFile[0] == 1;
        references += reference;
        EXPECT_EQ(held.substr(172 * record, 172),
                  (reference ? std::string(20, '\0') : inFile.substr(0, 20)) + inFile.substr(20))
            << "record " << record;
    }
    EXPECT_GT(references, 0);
    EXPECT_LT(references, 64);
}

TEST_F(Loads, loadAllSendsArrangementsThenStylesThenPrograms)
{
    const int row = Wire::rowWithUserStyle(arr);
    desk().clickRow("frmArrU", "List1", row);
    expectTaken({Wire::selection(row)}, before);
    before = takenSoFar();

    desk().click("frmArrU", "CommLoadAll");
    std::vector<std::string> expected{Wire::arrangementDump(arr)};
    for (const std::string& group : styleGroups(sty))
        expected.push_back(group);
    expected.push_back(Wire::selection(row));
    expected.push_back(Wire::programDump(sample("song.prg")));
    expectTaken(expected, before, 20000);
}

TEST_F(Loads, atTheCablesPaceTheProgramPaintsOnAndTheUserWaits)
{
    desk().click("frmInstrument", "CheckPaced");
    ASSERT_TRUE(desk().control("frmInstrument", "CheckPaced").checked());
    desk().bringForward("frmMain");
    const Clock::time_point start = Clock::now();
    desk().press("frmArrU", "CommLoadArr");
    // 12002 bytes at 3125 a second; the bar comes after 300 ms of them.
    ASSERT_TRUE(waitUntil([&] { return desk().control("frmMain", "SendBar").visible(); }, 3000));
    const int early = desk().control("frmMain", "SendBar").number("text");
    EXPECT_EQ(desk().control("frmMain", "Label1").text(), "Loading Arrangement");
    // A click that comes meanwhile waits until the last byte is out.
    desk().pressRow("frmArrU", "List1", 0);
    EXPECT_TRUE(waitUntil(
        [&] {
            const Control bar = desk().control("frmMain", "SendBar");
            return bar.visible() && bar.number("text") > early;
        },
        3000))
        << "the bar stands still";
    const std::size_t dumpEnd = before + 14 + 12002;
    EXPECT_LT(taken().size(), dumpEnd);
    ASSERT_TRUE(waitUntil([&] { return taken().size() >= dumpEnd; }, 15000));
    const auto took = std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - start);
    EXPECT_GE(took.count(), 3840);
    EXPECT_LE(took.count(), 6000);
    expectTaken({Wire::songPlay(), Wire::arrPlay(), Wire::arrangementDump(arr), Wire::selection(0)}, before);
    EXPECT_FALSE(desk().control("frmMain", "SendBar").visible());
}

} // namespace
