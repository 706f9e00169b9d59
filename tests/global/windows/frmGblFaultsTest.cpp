// A change in the global window, which sends the whole block, over a cable that fails: the change stays in the window.
#include "GblWindow.h"

#include "midi/WindowFaults.h"

TEST_F(GblWindow, keepsAChangeWhoseDumpFails)
{
    open();
    const auto change = [&] {
        load(std::string(415, '\0'));
        key("Check3", Qt::Key_Space);
        EXPECT_EQ(byteOf(221), 1);
    };
    const auto look = [&] { return window->Tag.bytes() + App.GblCurrent; };
    worksThroughFaults({"the global window", change, look, 481}, run.user);
}
