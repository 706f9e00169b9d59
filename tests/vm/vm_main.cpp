// Prepares the machine, runs the tests. Only for a machine that nobody else uses: it plugs and pulls sound devices.
#include "UsbMidiDevice.h"

#include <cstdio>
#include <gtest/gtest.h>
#include <sys/mman.h>

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    if (clientNamed("Midi Through") < 0 || !outputOf("cat /proc/asound/cards").starts_with("--- no soundcards")) {
        std::puts("These tests want the sequencer and no sound card: run them by tests/vm/vm");
        return 2;
    }
    outputOf("modprobe -a vhci-hcd snd-usb-audio snd-seq-midi");
    // A page that is read from the files outside while a message goes out would cost time that no machine of metal
    // takes.
    mlockall(MCL_CURRENT | MCL_FUTURE);
    return RUN_ALL_TESTS();
}
