// A style group from the style window over a cable that fails.
#include "StyleWindows.h"

#include "midi/WindowFaults.h"

TEST_F(StyleWindows, loadAGroupThroughACableThatFails)
{
    const frmStyUN* window = open(styFile({{"One", 1176}, {"Two", 1176}, {"Three", 1176}, {"Four", 1176}}));
    const auto load = [&] {
        press(window, "CommLoadStyGrp(0)");
        ASSERT_TRUE(settled(window));
        EXPECT_EQ(diary.back(), "status") << "the status line is free again";
    };
    const auto look = [&] {
        EXPECT_EQ(timer(window, "TimerLoadStyGrp(0)")->Interval(), 10);
        EXPECT_TRUE(enabled(window, "CommLoadStyGrp(0)"));
        return window->Tag.bytes() + user.styLabel;
    };
    worksThroughFaults({"the style window", load, look, 5410}, user);
}
