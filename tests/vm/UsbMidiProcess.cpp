// The device's side of USB/IP: descriptors, control requests, and the two bulk endpoints.
#include "UsbMidiShared.h"

#include <algorithm>
#include <arpa/inet.h>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <deque>
#include <poll.h>
#include <sched.h>
#include <sys/socket.h>
#include <unistd.h>
#include <vector>

namespace
{

using Bytes = std::vector<unsigned char>;

constexpr std::int64_t SecondNs = 1'000'000'000;
constexpr std::int64_t Never = INT64_MAX;
constexpr std::int64_t LookNs = 2'000'000; ///< how often the test's wishes are looked at

std::int64_t nowNs()
{
    timespec time{};
    clock_gettime(CLOCK_MONOTONIC, &time);
    return time.tv_sec * SecondNs + time.tv_nsec;
}

void append(Bytes& bytes, const Bytes& more) { bytes.insert(bytes.end(), more.begin(), more.end()); }

// ---- descriptors, by the USB and the USB-MIDI class specifications ----

constexpr int Manufacturer = 1;
constexpr int Product = 2;

Bytes deviceDescriptor()
{
    // 18 bytes, type 1, USB 1.1, no class, packets of 64, vendor 1209 product 0001 (for tests), one configuration
    return {18, 1, 0x10, 1, 0, 0, 0, 64, 0x09, 0x12, 1, 0, 0, 1, Manufacturer, Product, 0, 1};
}

Bytes configurationDescriptor(const UsbMidiOptions& options)
{
    Bytes jacks;
    Bytes endpoints;
    unsigned char endpointCount = 0;
    if (options.hasOutput) {
        append(jacks, {6, 0x24, 2, 1, 1, 0});          // embedded in-jack 1: what the computer sends
        append(jacks, {9, 0x24, 3, 2, 4, 1, 1, 1, 0}); // external out-jack 4 fed by it: the DIN socket
        append(endpoints, {9, 5, 0x01, 2, 64, 0, 0, 0, 0, 5, 0x25, 1, 1, 1});
        ++endpointCount;
    }
    if (options.hasInput) {
        append(jacks, {6, 0x24, 2, 2, 2, 0});          // external in-jack 2: the keyboard
        append(jacks, {9, 0x24, 3, 1, 3, 1, 2, 1, 0}); // embedded out-jack 3 fed by it: to the computer
        append(endpoints, {9, 5, 0x81, 2, 64, 0, 0, 0, 0, 5, 0x25, 1, 1, 3});
        ++endpointCount;
    }
    const auto classLength = static_cast<unsigned char>(7 + jacks.size() + endpoints.size());
    Bytes all{9, 2, 0, 0, 2, 1, 0, 0x80, 50};
    append(all, {9, 4, 0, 0, 0, 1, 1, 0, 0});             // interface 0: audio control, no endpoint
    append(all, {9, 0x24, 1, 0, 1, 9, 0, 1, 1});          // its header names interface 1
    append(all, {9, 4, 1, 0, endpointCount, 1, 3, 0, 0}); // interface 1: MIDI streaming
    append(all, {7, 0x24, 1, 0, 1, classLength, 0});
    append(all, jacks);
    append(all, endpoints);
    all[2] = static_cast<unsigned char>(all.size());
    return all;
}

Bytes stringDescriptor(const std::string& text)
{
    Bytes bytes{static_cast<unsigned char>(2 + 2 * text.size()), 3};
    for (const char letter : text)
        append(bytes, {static_cast<unsigned char>(letter), 0});
    return bytes;
}

/// MIDI bytes in a USB-MIDI packet, by its code index number.
constexpr int BytesOfCode[16] = {0, 0, 2, 3, 3, 1, 2, 3, 3, 3, 3, 3, 2, 2, 3, 1};

// ---- USB/IP ----

enum : std::uint32_t { CommandSubmit = 1, CommandUnlink = 2, ReturnSubmit = 3, ReturnUnlink = 4 };

/// All words big-endian on the socket.
struct Header {
    std::uint32_t command;
    std::uint32_t sequence;
    std::uint32_t device;
    std::uint32_t direction; ///< 1: to the computer
    std::uint32_t endpoint;
    std::uint32_t first; ///< submit: flags; unlink: the victim; returns: status
    std::uint32_t length;
    std::uint32_t frame;
    std::uint32_t packets;
    std::uint32_t interval;
    unsigned char setup[8];
};
static_assert(sizeof(Header) == 48);

struct Transfer {
    std::uint32_t sequence = 0;
    int length = 0;
    std::string midi;
};

class Device
{
public:
    Device(const UsbMidiOptions& options, UsbMidiDevice::Shared& shared) : options_(options), shared_(shared) {}

    void live()
    {
        if (!attach())
            _exit(1);
        while (!pulled_) {
            obey();
            giveKeys();
            const std::int64_t next = takeTransfers();
            waitForHost(std::min(next, nowNs() + LookNs));
        }
        shared_.unpluggedAt = nowNs();
        shutdown(socket_, SHUT_RDWR);
    }

private:
    bool attach()
    {
        int pair[2];
        if (socketpair(AF_UNIX, SOCK_STREAM, 0, pair) != 0)
            return false;
        socket_ = pair[0];
        std::FILE* door = std::fopen("/sys/devices/platform/vhci_hcd.0/attach", "w");
        if (door == nullptr)
            return false;
        constexpr int fullSpeed = 2;
        std::fprintf(door, "%d %d %d %d", options_.socket, pair[1], 0x10002 + options_.socket, fullSpeed);
        const bool accepted = std::fclose(door) == 0;
        close(pair[1]);
        return accepted;
    }

    void obey()
    {
        if (shared_.unplugNow || (shared_.unplugAt >= 0 && shared_.count >= shared_.unplugAt))
            pulled_ = true;
        if (shared_.stallAt >= 0 && shared_.count >= shared_.stallAt) {
            shared_.stallAt = -1;
            const std::int64_t length = shared_.stallNs;
            stalledUntil_ = length == 0 ? Never : nowNs() + length;
            if (length != 0 && wireFree_ > nowNs())
                wireFree_ += length; // the cable stands still as well
        }
    }

    /// What the keyboard has played goes out with the next transfer that asks for it.
    void giveKeys()
    {
        while (!asked_.empty() && keysGiven_ < shared_.played) {
            Bytes packet;
            const auto key = [this](std::int64_t at) {
                return static_cast<unsigned char>(shared_.keys[static_cast<std::size_t>(at)]);
            };
            // notes only: status and two bytes, code index = the status's upper half
            append(packet, {static_cast<unsigned char>(key(keysGiven_) >> 4), key(keysGiven_), key(keysGiven_ + 1),
                            key(keysGiven_ + 2)});
            keysGiven_ += 3;
            answer(ReturnSubmit, asked_.front().sequence, 0, static_cast<int>(packet.size()), packet);
            asked_.pop_front();
        }
    }

    std::int64_t bytesOnTheWay(std::int64_t now) const
    {
        return wireFree_ <= now ? 0 : (wireFree_ - now) * options_.rate / SecondNs;
    }

    /// Takes what there is room for. The instant at which more can be taken; Never when nothing waits.
    std::int64_t takeTransfers()
    {
        while (!waiting_.empty()) {
            const std::int64_t now = nowNs();
            if (now < stalledUntil_)
                return stalledUntil_;
            Transfer& next = waiting_.front();
            const auto size = static_cast<std::int64_t>(next.midi.size());
            const std::int64_t limit = std::max<std::int64_t>(options_.memory, size);
            if (options_.refuses && bytesOnTheWay(now) + size > limit)
                return wireFree_ - (limit - size) * SecondNs / options_.rate;
            if (!options_.refuses) {
                const std::int64_t room = std::max<std::int64_t>(0, options_.memory - bytesOnTheWay(now));
                if (size > room) {
                    shared_.lost += size - room;
                    next.midi.resize(static_cast<std::size_t>(room));
                }
            }
            toCable(next.midi, now);
            answer(ReturnSubmit, next.sequence, 0, next.length, {});
            waiting_.pop_front();
        }
        return Never;
    }

    void toCable(const std::string& midi, std::int64_t now)
    {
        const std::int64_t count = shared_.count;
        if (midi.empty() || count + static_cast<std::int64_t>(midi.size()) > static_cast<std::int64_t>(MostReceived))
            return;
        const std::int64_t start = std::max(now, wireFree_);
        if (count == 0)
            shared_.firstAt = start;
        wireFree_ = start + static_cast<std::int64_t>(midi.size()) * SecondNs / options_.rate;
        std::copy(midi.begin(), midi.end(), shared_.bytes.begin() + count);
        shared_.lastOffAt = wireFree_;
        shared_.count = count + static_cast<std::int64_t>(midi.size());
    }

    void waitForHost(std::int64_t until)
    {
        const std::int64_t wait = std::max<std::int64_t>(0, until - nowNs());
        const timespec time{wait / SecondNs, wait % SecondNs};
        pollfd host{socket_, POLLIN, 0};
        if (ppoll(&host, 1, &time, nullptr) > 0)
            serve();
    }

    void serve()
    {
        Header header{};
        if (!readAll(&header, sizeof header))
            return;
        const std::uint32_t command = ntohl(header.command);
        const std::uint32_t sequence = ntohl(header.sequence);
        if (command == CommandUnlink) {
            const bool found = forget(asked_, ntohl(header.first)) || forget(waiting_, ntohl(header.first));
            answer(ReturnUnlink, sequence, found ? -ECONNRESET : 0, 0, {});
            return;
        }
        const bool toComputer = ntohl(header.direction) == 1;
        const int length = static_cast<int>(ntohl(header.length));
        Bytes data(toComputer ? 0 : static_cast<std::size_t>(length));
        if (!data.empty() && !readAll(data.data(), data.size()))
            return;
        if (ntohl(header.endpoint) == 0)
            control(sequence, header.setup, length);
        else if (toComputer)
            asked_.push_back({sequence, length, {}});
        else
            waiting_.push_back({sequence, length, midiOf(data)});
    }

    static std::string midiOf(const Bytes& data)
    {
        std::string midi;
        for (std::size_t at = 0; at + 3 < data.size(); at += 4)
            for (int i = 0; i < BytesOfCode[data[at] & 15]; ++i)
                midi += static_cast<char>(data[at + 1 + static_cast<std::size_t>(i)]);
        return midi;
    }

    static bool forget(std::deque<Transfer>& transfers, std::uint32_t sequence)
    {
        const auto found = std::find_if(transfers.begin(), transfers.end(),
                                        [&](const Transfer& one) { return one.sequence == sequence; });
        if (found == transfers.end())
            return false;
        transfers.erase(found);
        return true;
    }

    void control(std::uint32_t sequence, const unsigned char* setup, int length)
    {
        constexpr int getStatus = 0;
        constexpr int getDescriptor = 6;
        const bool standard = (setup[0] & 0x60) == 0;
        const bool toComputer = (setup[0] & 0x80) != 0;
        Bytes reply;
        bool known = true;
        if (toComputer && setup[1] == getDescriptor)
            known = descriptor(setup[3], setup[2], reply);
        else if (toComputer && setup[1] == getStatus)
            reply = {0, 0};
        else
            known = standard && !toComputer; // set configuration, set interface, clear feature
        reply.resize(std::min(reply.size(), static_cast<std::size_t>(length)));
        answer(ReturnSubmit, sequence, known ? 0 : -EPIPE, static_cast<int>(reply.size()), reply);
    }

    bool descriptor(int type, int index, Bytes& reply) const
    {
        constexpr int device = 1;
        constexpr int configuration = 2;
        constexpr int string = 3;
        if (type == device)
            reply = deviceDescriptor();
        else if (type == configuration)
            reply = configurationDescriptor(options_);
        else if (type == string && index == 0)
            reply = {4, 3, 0x09, 0x04}; // the only language: English
        else if (type == string)
            reply = stringDescriptor(index == Manufacturer ? "Bench" : options_.name);
        else
            return false;
        return true;
    }

    void answer(std::uint32_t command, std::uint32_t sequence, int status, int actual, const Bytes& data)
    {
        Header header{};
        header.command = htonl(command);
        header.sequence = htonl(sequence);
        header.first = htonl(static_cast<std::uint32_t>(status));
        header.length = htonl(static_cast<std::uint32_t>(actual));
        if (command == ReturnSubmit)
            header.packets = htonl(0xFFFFFFFFU); // no isochronous packets
        writeAll(&header, sizeof header);
        if (!data.empty())
            writeAll(data.data(), data.size());
    }

    bool readAll(void* to, std::size_t size)
    {
        auto* bytes = static_cast<char*>(to);
        while (size > 0) {
            const ssize_t count = read(socket_, bytes, size);
            if (count <= 0) {
                pulled_ = true; // the kernel has let go of the device
                return false;
            }
            bytes += count;
            size -= static_cast<std::size_t>(count);
        }
        return true;
    }

    void writeAll(const void* from, std::size_t size)
    {
        const auto* bytes = static_cast<const char*>(from);
        while (size > 0) {
            const ssize_t count = send(socket_, bytes, size, MSG_NOSIGNAL);
            if (count <= 0) {
                pulled_ = true;
                return;
            }
            bytes += count;
            size -= static_cast<std::size_t>(count);
        }
    }

    const UsbMidiOptions& options_;
    UsbMidiDevice::Shared& shared_;
    int socket_ = -1;
    bool pulled_ = false;
    std::deque<Transfer> waiting_; ///< from the computer, not yet taken
    std::deque<Transfer> asked_;   ///< by the computer, for what the keyboard plays
    std::int64_t keysGiven_ = 0;
    std::int64_t wireFree_ = 0;
    std::int64_t stalledUntil_ = 0;
};

} // namespace

void runUsbMidiDevice(const UsbMidiOptions& options, UsbMidiDevice::Shared& shared)
{
    // A real device has its own processor: busy programs beside it must not slow it down.
    const sched_param first{50};
    sched_setscheduler(0, SCHED_FIFO, &first);
    Device(options, shared).live();
}
