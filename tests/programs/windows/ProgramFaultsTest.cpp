// A program file's load from its window over a cable that fails.
#include "ProgramWindows.h"

#include "midi/WindowFaults.h"

TEST_F(ProgramWindows, loadAFileThroughACableThatFails)
{
    frmPrgUN* window = open(Programs().record(0, Full, 0, 0, "First").record(63, 0x80, 0, 0, "Last").bytes);
    const auto load = [&] {
        press(window, "CommLoad");
        ASSERT_TRUE(settled(window));
        EXPECT_EQ(diary.back(), "status") << "the status line is free again";
    };
    const auto look = [&] {
        EXPECT_EQ(timer(window, "TimerLoadPrg")->Interval(), 10);
        return window->Tag.bytes() + user.prgLabel + std::to_string(App.DeviceMode);
    };
    worksThroughFaults({"the program window", load, look, 14992}, user);
}
