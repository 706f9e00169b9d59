// What becomes of a long SysEx message, by the way it is sent: how many bytes arrive at the end of the cable, what the
// sender was told, and how long it took against the cable's own time. Run by bench/wire in a virtual machine.
#include "BusyLoops.h"
#include "Dumps.h"
#include "UsbMidiDevice.h"
#include "midi/AlsaMidiService.h"

#include <alsa/asoundlib.h>
#ifdef TARVOLYNE_RTMIDI
#include <RtMidi.h>
#endif

#include <cstdio>
#include <fstream>
#include <functional>
#include <sys/mman.h>
#include <vector>

namespace
{

constexpr double CableRate = 3125;
constexpr const char* MessageFile = "/run/message.syx";

struct Told {
    bool failed = false;
    std::string words;
};

struct Way {
    const char* name;
    std::function<Told(const UsbMidiDevice&, const std::string&)> send;
};

Told byTarvolyne(const UsbMidiDevice&, const std::string& message)
{
    AlsaMidiService service;
    std::int32_t out = 0;
    int result = service.midiOutGetNumDevs() > 0 ? service.midiOutOpen(out, -1) : 1;
    if (result == 0)
        result = service.midiOutLongMsg(out, message);
    return {result != 0, result == 0 ? "done" : "result " + std::to_string(result)};
}

Told asOneEvent(const UsbMidiDevice& device, const std::string& message)
{
    snd_seq_t* sequencer = nullptr;
    if (snd_seq_open(&sequencer, "default", SND_SEQ_OPEN_DUPLEX, 0) < 0)
        return {true, "no sequencer"};
    const int port = snd_seq_create_simple_port(sequencer, "out", SND_SEQ_PORT_CAP_READ | SND_SEQ_PORT_CAP_SUBS_READ,
                                                SND_SEQ_PORT_TYPE_MIDI_GENERIC | SND_SEQ_PORT_TYPE_APPLICATION);
    snd_seq_connect_to(sequencer, port, device.client(), 0);
    snd_seq_event_t event;
    snd_seq_ev_clear(&event);
    snd_seq_ev_set_source(&event, static_cast<unsigned char>(port));
    snd_seq_ev_set_subs(&event);
    snd_seq_ev_set_direct(&event);
    snd_seq_ev_set_sysex(&event, static_cast<unsigned>(message.size()), const_cast<char*>(message.data()));
    const int result = snd_seq_event_output_direct(sequencer, &event);
    snd_seq_close(sequencer);
    return {result < 0, result < 0 ? snd_strerror(result) : "success"};
}

Told byAmidi(const UsbMidiDevice& device, const std::string&)
{
    int status = -1;
    outputOf("amidi -p hw:" + std::to_string(device.card()) + ",0 -s " + MessageFile, &status);
    return {status != 0, "exit " + std::to_string(status)};
}

#ifdef TARVOLYNE_RTMIDI
Told byRtMidi(const UsbMidiDevice& device, const std::string& message)
{
    RtMidiOut out(RtMidi::LINUX_ALSA, "bench");
    std::string warned;
    out.setErrorCallback(
        [](RtMidiError::Type, const std::string& text, void* into) { *static_cast<std::string*>(into) = text; },
        &warned);
    const std::string number = " " + device.address();
    for (unsigned i = 0; i < out.getPortCount(); ++i) {
        if (!out.getPortName(i).ends_with(number))
            continue;
        out.openPort(i);
        out.sendMessage(reinterpret_cast<const unsigned char*>(message.data()), message.size());
        return {!warned.empty(), warned.empty() ? "no error" : "a warning"};
    }
    return {true, "no port"};
}
#endif

const std::vector<Way> Ways = {
    {"Tarvolyne", byTarvolyne},
#ifdef TARVOLYNE_RTMIDI
    {"RtMidi " RTMIDI_VERSION, byRtMidi},
#endif
    {"amidi -s", byAmidi},
    {"one plain event", asOneEvent},
};

/// "12288 done 1.008": what arrived whole, or how much of it.
void printCell(const Way& way, const UsbMidiOptions& options, std::size_t size)
{
    const std::string message = dumpOf(size);
    std::ofstream(MessageFile, std::ios::binary) << message;
    UsbMidiDevice device(options);
    const Told told = way.send(device, message);
    const std::string received = device.receivedInTheEnd();
    const double ratio = device.wireSeconds() * CableRate / static_cast<double>(size);
    if (received == message)
        std::printf("| all, %s, %.4f ", told.words.c_str(), ratio);
    else
        std::printf("| **%zu**, %s%s ", received.size(), told.words.c_str(), told.failed ? "" : " (!)");
}

} // namespace

int main()
{
    outputOf("modprobe -a vhci-hcd snd-usb-audio snd-seq-midi");
    mlockall(MCL_CURRENT | MCL_FUTURE);
    const std::vector<std::size_t> sizes = {12288, 15360, 40960, 76800};
    struct Table {
        const char* name;
        UsbMidiOptions options;
        int busyLoops = 0;
    };
    const std::vector<Table> tables = {
        {"An interface that refuses when full", {}},
        {"An interface that refuses when full, its clock 1 % slow", {.rate = 3094}},
        {"An interface that refuses when full, beside two programs that only compute", {}, 2},
        {"An interface without flow control, 128 bytes before the cable", {.memory = 128, .refuses = false}},
        {"An interface without flow control, its clock 1 % slow", {.rate = 3094, .memory = 128, .refuses = false}},
    };
    for (const auto& [name, options, busyLoops] : tables) {
        const BusyLoops beside(busyLoops);
        std::printf("\n%s\n\n| sent by | 12288 bytes | 15360 | 40960 | 76800 |\n|---|---|---|---|---|\n", name);
        for (const Way& way : Ways) {
            std::printf("| %s ", way.name);
            for (const std::size_t size : sizes)
                printCell(way, options, size);
            std::puts("|");
            std::fflush(stdout);
        }
    }
    std::puts("\nA cell: bytes that arrived, what the sender was told, time on the cable over the cable's own time.\n"
              "(!): bytes were lost and nobody was told.");
    return 0;
}
