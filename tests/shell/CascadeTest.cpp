// The cascade's order and steps.
#include "shell/Cascade.h"

#include "shell/ShellFixture.h"

#include <deque>

namespace
{

class CascadeRule : public ShellTest
{
protected:
    WindowBuffer& open(int kind, int number)
    {
        windows.push_back(WindowBuffer::fresh(kind, number));
        OpenWindows::add(&windows.back());
        return windows.back();
    }
    std::deque<WindowBuffer> windows;
};

} // namespace

TEST_F(CascadeRule, walksTheKindsInTheirFixedOrderAndEachKindsSlotsInOrder)
{
    for (const auto& [kind, number] : std::vector<std::pair<int, int>>{
             {25, 1}, {3, 0}, {2, 0}, {23, 1}, {24, 2}, {21, 2}, {22, 1}, {20, 1}, {19, 3}, {19, 1}, {12, 0}, {15, 0}})
        open(kind, number);
    std::vector<std::string> order;
    int expectedOffset = 0;
    for (const CascadePlace& place : cascadePlaces()) {
        order.push_back(std::to_string(place.window->kind()) + "/" + std::to_string(place.window->number()));
        EXPECT_EQ(place.offset, expectedOffset);
        expectedOffset += 300;
    }
    EXPECT_EQ(order,
              (std::vector<std::string>{"19/1", "19/3", "20/1", "22/1", "21/2", "23/1", "24/2", "2/0", "3/0", "25/1"}));
}

TEST_F(CascadeRule, walksTheBanksKindByKindWhateverTheirNumbers)
{
    for (const auto& [kind, number] : std::vector<std::pair<int, int>>{
             {14, 0}, {10, 2}, {9, 1}, {8, 5}, {4, 1}, {5, 2}, {18, 2}, {17, 1}, {3, 2}, {2, 1}})
        open(kind, number);
    std::vector<int> kinds;
    for (const CascadePlace& place : cascadePlaces())
        kinds.push_back(place.window->kind());
    EXPECT_EQ(kinds, (std::vector<int>{2, 3, 17, 18, 4, 5, 8, 9, 10, 14}));
}

TEST_F(CascadeRule, updatesTheSessionTablesToo)
{
    open(2, 0);
    open(19, 4);
    open(21, 1);
    open(14, 0);
    open(25, 3);
    open(20, 2);
    open(24, 8);
    open(17, 0);
    for (const CascadePlace& place : cascadePlaces())
        keepCascadePlace(place);
    EXPECT_EQ(App.Arrangements[3].left, 0);
    EXPECT_EQ(App.NewArrangements[1].left, 300);
    EXPECT_EQ(App.Programs[0].left, 600);
    EXPECT_EQ(App.Programs[0].top, 600);
    EXPECT_EQ(App.Styles[7].top, 900);
    EXPECT_EQ(App.WinPos[2].left, 1200);
    EXPECT_EQ(App.WinPos[17].left, 1500);
    EXPECT_EQ(App.WinPos[14].top, 1800);
    EXPECT_EQ(App.Globals[3].left, 2100);
}

TEST_F(CascadeRule, withNothingOpenNothingMoves) { EXPECT_TRUE(cascadePlaces().empty()); }
