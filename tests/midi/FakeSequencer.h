// A machine of ports without a kernel: a patch bay, drivers with a buffer of 4096 bytes in front of a cable, and a
// clock that only moves when somebody sleeps.
#pragma once

#include "midi/Sequencer.h"
#include "midi/WireClock.h"

#include <algorithm>
#include <cerrno>
#include <functional>
#include <limits>
#include <map>
#include <string>
#include <vector>

struct FakeClock {
    std::int64_t now = 1'000'000'000;
    /// Held up: each sleep ends so much too late.
    std::int64_t lateness = 0;

    WireClock::TimeSource source()
    {
        return {[this] { return now; }, [this](std::int64_t instant) { now = std::max(now, instant) + lateness; }};
    }
    double seconds() const { return static_cast<double>(now - 1'000'000'000) / 1e9; }
};

/// The driver and the cable of one port. Bytes leave at `rate`; what does not fit in the buffer is dropped silently.
struct FakeDevice {
    static constexpr std::int64_t Never = std::numeric_limits<std::int64_t>::max();
    std::string received;          ///< in the order of arrival, whatever became of it
    std::vector<bool> shortEvents; ///< of each event: handed over as a short message
    std::int64_t rate = 3125;      ///< bytes a second
    std::int64_t size = 4096;
    std::int64_t accepted = 0;
    double held = 0; ///< in the buffer
    double mostHeld = 0;
    std::int64_t drainedAt = 0;
    std::int64_t stallFrom = 0; ///< takes nothing between the two instants
    std::int64_t stallTo = 0;
    bool accountReadable = true;
    bool exclusive = false;         ///< somebody holds the port alone
    bool rawHeld = false;           ///< somebody holds it as a raw device
    int wireError = 0;              ///< the errno of every wire to it
    int failNext = 0;               ///< the errno of every later send
    std::int64_t diesAt = Never;    ///< pulled out when so many bytes have come
    std::int64_t stopsAt = Never;   ///< passes nothing on from then
    std::int64_t refusesAt = Never; ///< every later send answers EBUSY
    std::int64_t losesAt = Never;   ///< the byte behind them is dropped, as by a buffer that is overrun

    void drain(std::int64_t now)
    {
        std::int64_t flowing = now - drainedAt;
        const std::int64_t from = std::max(drainedAt, stallFrom);
        const std::int64_t to = std::min(now, stallTo);
        if (to > from)
            flowing -= to - from;
        drainedAt = now;
        held = std::max(0.0, held - static_cast<double>(flowing) * static_cast<double>(rate) / 1e9);
    }
    PortAccount account() const
    {
        const auto inside = static_cast<std::int64_t>(held + 0.999);
        return {accepted - inside, size, size - inside};
    }
    void take(std::string_view bytes, std::int64_t now)
    {
        drain(now);
        if (accepted <= losesAt && losesAt < accepted + static_cast<std::int64_t>(bytes.size())) {
            losesAt = Never;
            bytes.remove_suffix(1);
        }
        const auto fit =
            static_cast<std::size_t>(std::min(static_cast<double>(bytes.size()), static_cast<double>(size) - held));
        received += bytes.substr(0, fit);
        accepted += static_cast<std::int64_t>(fit);
        held += static_cast<double>(fit);
        mostHeld = std::max(mostHeld, held);
        if (accepted >= stopsAt) {
            stopsAt = Never;
            stallFrom = now;
            stallTo = Never;
        }
    }
};

struct FakeSequencer final : Sequencer {
    struct Wire {
        SeqAddress sender;
        SeqAddress receiver;
        WireMark mark = WireMark::None;
    };
    static constexpr int OwnClient = 128;

    FakeClock& clock;
    int openError = 0;
    int outputError = 0;
    bool entered = false;
    std::vector<SeqPort> machine;
    std::vector<Wire> wires;
    std::map<int, FakeDevice> devices; ///< by client * 256 + port
    int portQuestions = 0;
    std::string lastWords; ///< what a device that died had received

    explicit FakeSequencer(FakeClock& time) : clock(time) {}

    static int key(SeqAddress address) { return address.client * 256 + address.port; }
    FakeDevice& device(SeqAddress address) { return devices[key(address)]; }

    SeqPort& plug(SeqAddress address, int card, const std::string& client, const std::string& name)
    {
        SeqPort port;
        port.address = address;
        port.card = card;
        port.kernel = port.hardware = card >= 0;
        port.readable = port.writable = true;
        port.clientName = client;
        port.portName = name;
        port.birth = ++births_;
        device(address).drainedAt = clock.now;
        machine.push_back(port);
        return machine.back();
    }
    void unplug(SeqAddress address)
    {
        machine.erase(std::remove_if(machine.begin(), machine.end(),
                                     [&](const SeqPort& port) { return port.address == address; }),
                      machine.end());
        wires.erase(
            std::remove_if(wires.begin(), wires.end(),
                           [&](const Wire& wire) { return wire.receiver == address || wire.sender == address; }),
            wires.end());
        devices.erase(key(address));
    }
    bool isWired(SeqAddress sender, SeqAddress receiver) const { return find(sender, receiver) != wires.end(); }

    int open() override
    {
        entered = openError == 0;
        return -openError;
    }
    void close() override
    {
        entered = false;
        wires.erase(std::remove_if(wires.begin(), wires.end(),
                                   [](const Wire& wire) { return wire.sender.client == OwnClient; }),
                    wires.end());
    }
    bool isOpen() const override { return entered; }
    int client() const override { return entered ? OwnClient : 0; }
    int makeOutput() override { return -outputError; }
    SeqAddress output() const override { return {OwnClient, 0}; }
    std::vector<SeqPort> ports() override
    {
        ++portQuestions;
        return machine;
    }
    std::vector<SeqWire> wiresFrom(SeqAddress sender) override
    {
        std::vector<SeqWire> list;
        for (const Wire& wire : wires)
            if (wire.sender == sender)
                list.push_back({wire.receiver, wire.mark});
        return list;
    }
    int wire(SeqAddress sender, SeqAddress receiver, WireMark mark) override
    {
        if (std::none_of(machine.begin(), machine.end(), [&](const SeqPort& port) { return port.address == receiver; }))
            return -ENOENT;
        if (device(receiver).wireError != 0)
            return -device(receiver).wireError;
        if (device(receiver).rawHeld)
            return -EAGAIN;
        if (device(receiver).exclusive || isWired(sender, receiver))
            return -EBUSY;
        wires.push_back({sender, receiver, mark});
        return 0;
    }
    int unwire(SeqAddress sender, SeqAddress receiver) override
    {
        const auto found = find(sender, receiver);
        if (found == wires.end())
            return -ENOENT;
        wires.erase(found);
        return 0;
    }
    int sendPiece(SeqAddress receiver, std::string_view bytes) override { return take(receiver, bytes, false); }
    int sendShort(SeqAddress receiver, std::string_view bytes) override { return take(receiver, bytes, true); }
    std::optional<PortAccount> account(const SeqPort& port) override
    {
        const auto found = devices.find(key(port.address));
        if (found == devices.end() || !found->second.accountReadable)
            return std::nullopt;
        FakeDevice& its = found->second;
        its.drain(clock.now);
        return its.account();
    }

private:
    std::vector<Wire>::const_iterator find(SeqAddress sender, SeqAddress receiver) const
    {
        return std::find_if(wires.begin(), wires.end(),
                            [&](const Wire& wire) { return wire.sender == sender && wire.receiver == receiver; });
    }
    int take(SeqAddress receiver, std::string_view bytes, bool isShort)
    {
        const auto found = devices.find(key(receiver));
        if (found == devices.end())
            return -ENOENT;
        if (found->second.failNext != 0)
            return -found->second.failNext;
        FakeDevice& its = found->second;
        if (its.accepted >= its.refusesAt)
            return -EBUSY;
        const auto left = static_cast<std::size_t>(std::max<std::int64_t>(0, its.diesAt - its.accepted));
        its.take(bytes.substr(0, left), clock.now);
        its.shortEvents.push_back(isShort);
        if (its.accepted >= its.diesAt) {
            lastWords = its.received;
            unplug(receiver); // the kernel does not tell the sender of the piece that was under way
        }
        return 0;
    }

    std::int64_t births_ = 0;
};
