// A load from the arrangement window over a cable that fails.
#include "ArrLoads.h"

#include "midi/WindowFaults.h"

TEST_F(ArrLoads, workThroughACableThatFails)
{
    frmArrU* window = openUsual();
    const auto load = [&] {
        press(window, "CommLoadArr");
        ASSERT_TRUE(settled(window));
        EXPECT_EQ(diary.back(), "status") << "the status line is free again";
    };
    const auto look = [&] {
        EXPECT_EQ(timer(window, "TimerLoadArr")->Interval(), 10);
        EXPECT_TRUE(enabled(window, "CommLoadArr"));
        return window->Tag.bytes() + Arr.ArrEditBuf + diaryUser.arrLabel + std::to_string(App.DeviceMode);
    };
    worksThroughFaults({"the arrangement window", load, look, 12002}, diaryUser);
}
