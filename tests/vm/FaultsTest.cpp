// What goes wrong with an interface: it stalls, it is stuck, it is pulled out and put in again.
#include "Stage.h"

namespace
{

struct Faults : OnRealKernel {
};

} // namespace

TEST_F(Faults, aStallOfOneOrThreeSecondsLosesNothing)
{
    UsbMidiDevice device;
    OpenedService stage;
    for (const double seconds : {1.0, 3.0}) {
        SCOPED_TRACE(seconds);
        device.forget();
        device.stallAt(20000, seconds);
        const std::string message = dumpOf(40960);
        EXPECT_EQ(stage.dump(message), 0);
        EXPECT_TRUE(device.receivedInTheEnd() == message) << device.received().size();
    }
}

TEST_F(Faults, aStuckInterfaceIsToldAfterAFewSecondsAndNobodyHangs)
{
    UsbMidiDevice device;
    {
        OpenedService stage;
        device.stallAt(20000, 0);
        const double begun = nowSeconds();
        EXPECT_NE(stage.dump(dumpOf(40960)), 0);
        EXPECT_LT(nowSeconds() - begun, 20000 / 3094.0 + 7);
        EXPECT_GT(nowSeconds() - begun, 20000 / 3094.0 + 3);

        const double again = nowSeconds();
        EXPECT_NE(stage.dump(dumpOf(12288)), 0) << "still stuck";
        EXPECT_NE(stage.note(60), 0);
        EXPECT_LT(nowSeconds() - again, 0.5);

        const double closing = nowSeconds();
        EXPECT_EQ(stage.service.midiOutClose(stage.out), 0);
        EXPECT_LT(nowSeconds() - closing, 5);
    }
    EXPECT_EQ(clientNamed("Tarvolyne"), -1);
}

TEST_F(Faults, pulledOutInTheMiddleIsToldWithinASecondAndTheNextSendAfterPluggingInArrives)
{
    OpenedService* stage = nullptr;
    std::optional<OpenedService> opened;
    {
        UsbMidiDevice device;
        opened.emplace();
        stage = &*opened;
        ASSERT_EQ(stage->outResult, 0);
        device.unplugAt(20000);
        EXPECT_NE(stage->dump(dumpOf(40960)), 0);
        EXPECT_LT(nowSeconds() - device.unpluggedAt(), 1);
        device.unplug();
        EXPECT_NE(stage->note(60), 0);
    }
    EXPECT_NE(stage->dump(dumpOf(200)), 0);
    {
        UsbMidiDevice device; // the same number as before
        const std::string message = dumpOf(12288);
        EXPECT_EQ(stage->dump(message), 0);
        EXPECT_TRUE(device.receivedInTheEnd() == message);
    }
    UsbMidiDevice other({.name = "Other Cable", .socket = 1}); // takes the number
    UsbMidiDevice device;
    EXPECT_EQ(stage->note(60), 0);
    EXPECT_EQ(device.receivedInTheEnd(), "\x90\x3C\x40");
    EXPECT_EQ(other.received(), "");
}

TEST_F(Faults, outAndInBetweenTwoSendsIsNotNoticed)
{
    std::optional<UsbMidiDevice> device(std::in_place);
    OpenedService stage;
    const int before = device->client();
    EXPECT_EQ(stage.note(60), 0);
    device.reset();
    device.emplace();
    EXPECT_EQ(device->client(), before) << "the case to be proved: another device under the same number";
    const std::string message = dumpOf(1000);
    EXPECT_EQ(stage.dump(message), 0);
    EXPECT_EQ(device->receivedInTheEnd(), message);
}
