// The styles of an arrangement file in their own window: what it shows, what its buttons send and when, what a click
// gives to the editor, and what the next start leaves closed.
#include "e2e/DeskTest.h"

#include <algorithm>

namespace
{

using Clock = std::chrono::steady_clock;

class Styles : public DeskTest
{
protected:
    void SetUp() override
    {
        startFirst();
        openSample("song.arr");
        sty = sample("song.sty");
        desk().click("frmArrU", "CommShowSty");
        desk().waitFor("frmStyUN");
        before = takenSoFar();
    }

    int lengthOf(std::size_t slot) const
    {
        return static_cast<unsigned char>(sty[24 + 4 * slot]) + 256 * static_cast<unsigned char>(sty[25 + 4 * slot]);
    }
    /// The rows that a file of sixteen styles shows.
    std::vector<std::string> rowsOfFile() const
    {
        std::vector<std::string> rows;
        std::size_t place = 224;
        for (std::size_t slot = 0; slot < 16; ++slot) {
            if (slot == 4 || slot == 8 || slot == 12)
                rows.emplace_back(" ");
            std::string name = sty.substr(place, 16);
            name.erase(name.find_last_not_of(' ') + 1);
            rows.push_back(std::to_string(slot / 8 + 1) + std::to_string(slot % 8 + 1) + "  " + name);
            place += static_cast<std::size_t>(lengthOf(slot));
        }
        return rows;
    }
    std::vector<std::string> groups() const
    {
        std::vector<std::string> found;
        for (int group = 0; group < Wire::groupsInUse(sty); ++group)
            found.push_back(Wire::styleGroup(sty, group));
        return found;
    }

    std::string sty;
    std::size_t before = 0; ///< bytes that the instrument took before the test's own
};

TEST_F(Styles, anArrangementsStylesShowInAWindowOfTheirOwn)
{
    EXPECT_EQ(desk().control("frmStyUN").title(), "File Sty - song.sty (1)");
    EXPECT_EQ(desk().rows("frmStyUN", "List1"), rowsOfFile());
    EXPECT_EQ(desk().control("frmStyUN", "Text1(0)").text(), std::to_string(lengthOf(0)) + " ");
    EXPECT_EQ(desk().control("frmStyUN", "Text1(15)").text(), std::to_string(lengthOf(15)) + " ");
    EXPECT_EQ(desk().control("frmStyUN", "Text2(3)").text(), std::to_string(sty.size() - 224) + " ");
    EXPECT_EQ(desk().control("frmStyUN", "Text3").text(), std::to_string(sty.size()));
    // A second time the window that stands open comes forward.
    desk().click("frmArrU", "CommShowSty");
    desk().settle();
    EXPECT_FALSE(desk().control("frmStyUN#2").there());
}

TEST_F(Styles, aSingleGroupIsItsOneMessage)
{
    desk().click("frmStyUN", "CommLoadStyGrp(1)");
    expectTaken({Wire::styleGroup(sty, 1)}, before);
    EXPECT_EQ(desk().control("frmMain", "LabelSty").text(), "");
    EXPECT_EQ(desk().control("frmMain", "Label1").text(), "");
}

TEST_F(Styles, allGroupsGoOutInTurnAndTheFirstStyleIsSelected)
{
    std::vector<std::size_t> ends; // of the groups in the stream
    std::size_t end = before;
    std::vector<std::string> expected = groups();
    ASSERT_EQ(expected.size(), 4U);
    for (const std::string& group : expected)
        ends.push_back(end += group.size());

    desk().press("frmStyUN", "CommLoadSty");
    std::vector<Clock::time_point> times;
    for (const std::size_t groupEnd : ends) {
        ASSERT_TRUE(waitUntil([&] { return taken().size() >= groupEnd; }, 5000));
        times.push_back(Clock::now());
    }
    std::vector<long> gaps;
    for (std::size_t group = 1; group < times.size(); ++group)
        gaps.push_back(std::chrono::duration_cast<std::chrono::milliseconds>(times[group] - times[group - 1]).count());
    // Looked at every 10 ms, on a machine that may be busy; an arrangement window leaves 1000.
    EXPECT_GE(*std::min_element(gaps.begin(), gaps.end()), 780);
    EXPECT_LE(*std::min_element(gaps.begin(), gaps.end()), 980);
    EXPECT_LE(*std::max_element(gaps.begin(), gaps.end()), 1400);
    expected.push_back(Wire::selection(0));
    expectTaken(expected, before);
    EXPECT_EQ(desk().control("frmMain", "LabelSty").text(), "song.sty");

    std::string blocks;
    for (const std::string& message : Wire::messages(taken().substr(before, end - before)))
        blocks += Wire::unpacked(message.substr(5, message.size() - 6)).substr(24);
    EXPECT_EQ(blocks, sty.substr(224));
}

TEST_F(Styles, aClickGivesTheHighlightedFieldItsStyle)
{
    const int row = Wire::rowWithFactoryStyle(sample("song.arr"));
    desk().clickRow("frmArrU", "List1", row);
    desk().click("frmArrU", "CommEdit");
    // The editor stands on top of the style window until it is drawn aside by its title.
    const Control editor = desk().waitFor("frmEditArr");
    const Point title{editor.number("x") + 200, editor.number("y") + 10};
    desk().drag(title, {title.x, title.y + 500});
    desk().settle();
    desk().click("frmEditArr", "Text1(1)");
    before = takenSoFar();

    desk().clickRow("frmStyUN", "List1", 2);
    std::string name = rowsOfFile()[2].substr(4);
    EXPECT_EQ(desk().control("frmEditArr", "Text1(1)").text(), name);
    EXPECT_EQ(desk().control("frmEditArr", "Label(1)").text(), "Style (U13)");

    desk().menu("mnuStyB");
    desk().waitFor("frmStyAB");
    desk().clickRow("frmStyAB", "List1", 8);
    name = desk().rows("frmStyAB", "List1")[8];
    EXPECT_EQ(name.substr(0, 4), "21  ");
    name = name.substr(4);
    name.erase(name.find_last_not_of(' ') + 1);
    EXPECT_EQ(desk().control("frmEditArr", "Text1(1)").text(), name);
    EXPECT_EQ(desk().control("frmEditArr", "Label(1)").text(), "Style (B21)");
    expectTaken({}, before);
}

TEST_F(Styles, aSongsStylesAndProgramsOneByOneThenAllAndWhatTheNextStartBringsBack)
{
    desk().click("frmStyUN", "CommLoadStyGrp(0)");
    expectTaken({Wire::styleGroup(sty, 0)}, before);

    desk().click("frmArrU", "CommShowPrg");
    desk().waitFor("frmPrgUN");
    before = takenSoFar();
    desk().clickRow("frmPrgUN", "List1", 2);
    // Bank select 0 and 3, program 2 on channel 1.
    expectTaken({std::string("\xB0\x00\x00\xB0\x20\x03\xC0\x02", 8)}, before);

    before = takenSoFar();
    desk().click("frmArrU", "CommLoadAll");
    std::vector<std::string> everything{Wire::arrangementDump(sample("song.arr"))};
    for (const std::string& group : groups())
        everything.push_back(group);
    everything.push_back(Wire::programDump(sample("song.prg")));
    expectTaken(everything, before, 20000);

    for (const auto& [item, window] :
         {std::pair{"mnuStyA", "frmStyAB"}, {"mnuWProgA", "frmPcgAE"}, {"mnuArrB", "frmArrAB"}}) {
        desk().menu(item);
        desk().waitFor(window);
    }
    quit();

    startAgain();
    for (const char* window : {"frmArrU", "frmPrgUN", "frmPcgAE", "frmArrAB"})
        desk().waitFor(window);
    desk().settle();
    EXPECT_FALSE(desk().control("frmStyUN").there());
    EXPECT_FALSE(desk().control("frmStyAB").there());
    quit();
}

} // namespace
