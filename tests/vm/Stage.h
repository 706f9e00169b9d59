// What the tests on a real kernel share: the service opened as the program opens it, dumps, and the kernel's own words.
#pragma once

#include "Dumps.h"
#include "UsbMidiDevice.h"
#include "midi/AlsaMidiService.h"

#include <gtest/gtest.h>
#include <optional>
#include <string>

/// The service with its output open.
struct OpenedService {
    AlsaMidiService service;
    std::int32_t out = 0;
    std::int32_t in = 0;
    int outResult = 0;

    OpenedService() { outResult = service.midiOutGetNumDevs() > 0 ? service.midiOutOpen(out, -1) : -1; }
    int openThru()
    {
        const int result = service.midiInOpen(in, 0);
        return result != 0 ? result : service.midiConnect(in, out);
    }
    int note(int key) { return service.midiOutShortMsg(out, 0x400090U | static_cast<unsigned>(key) << 8); }
    int dump(const std::string& message) { return service.midiOutLongMsg(out, message); }
};

inline bool has(const std::string& text, const std::string& part) { return text.find(part) != std::string::npos; }

/// Each test begins with an empty kernel log and ends with one in which no buffer of MIDI has overrun.
struct OnRealKernel : testing::Test {
    void SetUp() override { outputOf("dmesg -C"); }
    void TearDown() override
    {
        const std::string log = outputOf("dmesg");
        EXPECT_FALSE(has(log, "overrun")) << log;
    }

    /// "card client:port" of the port that our output is wired to, as ALSA's own tool tells it; empty for none.
    static std::string wiredTo()
    {
        return outputOf("aconnect -l | awk \"/^client/ { ours = /'Tarvolyne'/ } ours && /Connecting To/ { print }\""
                        " | sed 's/.*To: //' | tr -d '\\n'");
    }
};
