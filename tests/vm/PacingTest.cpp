// Every byte of a dump, in order, at the speed of the cable.
#include "BusyLoops.h"
#include "Stage.h"

#include <vector>

namespace
{

constexpr double CableRate = 3125;
constexpr double MostRatio = 1.02;
const std::vector<std::size_t> Sizes = {12288, 15360, 40960, 76800};

struct Pacing : OnRealKernel {
    /// Sends a dump of each size and compares what came, and when.
    static void sendAll(UsbMidiDevice& device, const std::vector<std::size_t>& sizes)
    {
        OpenedService stage;
        ASSERT_EQ(stage.outResult, 0);
        for (const std::size_t size : sizes) {
            SCOPED_TRACE(size);
            device.forget();
            const std::string message = dumpOf(size);
            const double begun = nowSeconds();
            EXPECT_EQ(stage.dump(message), 0);
            const double back = nowSeconds();
            EXPECT_LE(device.lastByteOffAt(), back + 0.001) << "complete when the call returns";
            EXPECT_TRUE(device.receivedInTheEnd() == message) << device.received().size() << " bytes came";
            EXPECT_EQ(device.lost(), 0);
            const double ideal = static_cast<double>(size) / CableRate;
            EXPECT_LE(device.wireSeconds() / ideal, MostRatio);
            EXPECT_GE(device.wireSeconds() / ideal, 0.999);
            EXPECT_LE((back - begun) / ideal, MostRatio + 0.02) << "the call itself";
            std::printf("    %zu bytes: wire %.3f s, ratio %.4f, call %.4f\n", size, device.wireSeconds(),
                        device.wireSeconds() / ideal, (back - begun) / ideal);
        }
    }
};

} // namespace

TEST_F(Pacing, anInterfaceThatRefusesWhenFullGetsEveryByteInTime)
{
    UsbMidiDevice device;
    sendAll(device, Sizes);
}

TEST_F(Pacing, anInterfaceWithoutFlowControlAnd128BytesLosesNothing)
{
    UsbMidiDevice device({.memory = 128, .refuses = false});
    sendAll(device, Sizes);
}

TEST_F(Pacing, anInterfaceOnePercentSlowGetsEveryByteInTime)
{
    UsbMidiDevice device({.rate = 3094});
    sendAll(device, Sizes);
}

TEST_F(Pacing, anInterfaceOnePercentSlowWithoutFlowControlLosesNothing)
{
    UsbMidiDevice device({.rate = 3094, .memory = 128, .refuses = false});
    sendAll(device, Sizes);
}

TEST_F(Pacing, busyProgramsBesideItChangeNothing)
{
    UsbMidiDevice device;
    const BusyLoops loops(2);
    sendAll(device, Sizes);
}

TEST_F(Pacing, aNoteADumpANoteKeepTheirOrder)
{
    UsbMidiDevice device;
    OpenedService stage;
    const std::string message = dumpOf(12288);
    EXPECT_EQ(stage.note(60), 0);
    EXPECT_EQ(stage.dump(message), 0);
    EXPECT_EQ(stage.note(61), 0);
    EXPECT_TRUE(device.receivedInTheEnd() == "\x90\x3C\x40" + message + "\x90\x3D\x40");
}

TEST_F(Pacing, shortMessagesBackToBackAllArriveInOrderAtFullRate)
{
    UsbMidiDevice device({.memory = 128, .refuses = false});
    OpenedService stage;
    std::string sent;
    for (int i = 0; i < 3000; ++i) {
        ASSERT_EQ(stage.note(i % 128), 0);
        sent += {'\x90', static_cast<char>(i % 128), '\x40'};
    }
    EXPECT_TRUE(device.receivedInTheEnd() == sent) << device.received().size() << " of " << sent.size();
    EXPECT_EQ(device.lost(), 0);
    EXPECT_LE(device.wireSeconds(), MostRatio * static_cast<double>(sent.size()) / CableRate);
}

TEST_F(Pacing, everyKindOfShortMessageArrivesAsItsBytes)
{
    UsbMidiDevice device;
    OpenedService stage;
    // note off, note on with no velocity, key pressure, controller, program, channel pressure, bend; no status at all
    for (const std::uint32_t word : {0x403C80U, 0x003C90U, 0x113CA1U, 0x7F07B2U, 0x0005C3U, 0x0006D4U, 0x7F01EFU})
        EXPECT_EQ(stage.service.midiOutShortMsg(stage.out, word), 0);
    EXPECT_EQ(device.receivedInTheEnd(),
              std::string("\x80\x3C\x40\x90\x3C\x00\xA1\x3C\x11\xB2\x07\x7F\xC3\x05\xD4\x06\xEF\x01\x7F", 19));
}

TEST_F(Pacing, aParameterChangeReturnsAtOnce)
{
    UsbMidiDevice device;
    OpenedService stage;
    const std::string change = "\xF0\x42\x30\x4D\x41\x10\x05\x01\xF7";
    const double begun = nowSeconds();
    EXPECT_EQ(stage.dump(change), 0);
    EXPECT_LT(nowSeconds() - begun, 0.002) << "its nine bytes take 2.9 ms on the cable";
    EXPECT_EQ(device.receivedInTheEnd(), change);
}
