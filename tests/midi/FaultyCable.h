// The machine's own MIDI service on a cable that goes wrong where a test wants it: through the real port routines, the
// real pieces and the real pace, against a patch bay and a clock of the tests.
#pragma once

#include "midi/AlsaMidiService.h"
#include "midi/FakeSequencer.h"
#include "midi/MIDI.h"

enum class CableFault {
    Dies,    ///< the interface is pulled out
    Stops,   ///< it takes nothing more
    Refuses, ///< every later piece is answered "busy"
    Loses    ///< one byte does not arrive
};
inline constexpr CableFault CableFaults[] = {CableFault::Dies, CableFault::Stops, CableFault::Refuses,
                                             CableFault::Loses};

class FaultyCable
{
public:
    static constexpr SeqAddress Interface{20, 0};

    FaultyCable() { plugIn(); }
    ~FaultyCable()
    {
        if (Midi.service == &service)
            Midi.service = nullptr;
    }
    FaultyCable(const FaultyCable&) = delete;
    FaultyCable& operator=(const FaultyCable&) = delete;

    void plugIn() { bay->plug(Interface, 1, "DIN Cable", "DIN Cable MIDI 1"); }
    /// Takes the port routines onto this service and opens them, as the start does.
    void open()
    {
        Midi.service = &service;
        opened = MidiOutOpen();
    }
    /// From now on the cable goes wrong when `bytes` more have come.
    void breakAfter(CableFault fault, std::int64_t bytes)
    {
        FakeDevice& device = bay->device(Interface);
        const std::int64_t at = device.accepted + bytes;
        start_ = device.received.size();
        begun_ = clock.now;
        (fault == CableFault::Dies      ? device.diesAt
         : fault == CableFault::Stops   ? device.stopsAt
         : fault == CableFault::Refuses ? device.refusesAt
                                        : device.losesAt) = at;
    }
    /// What has come since then.
    std::string arrived() const
    {
        const auto device = bay->devices.find(FakeSequencer::key(Interface));
        const std::string& all = device == bay->devices.end() ? bay->lastWords : device->second.received;
        return all.substr(std::min(start_, all.size()));
    }
    double secondsSince() const { return static_cast<double>(clock.now - begun_) / 1e9; }
    /// Plugged in again, or free again.
    void mend()
    {
        if (bay->machine.empty())
            plugIn();
        FakeDevice& device = bay->device(Interface);
        device.refusesAt = device.stopsAt = device.losesAt = FakeDevice::Never;
        if (device.stallTo == FakeDevice::Never)
            device.stallTo = clock.now;
        clock.now += 1'000'000'000; // nobody is quicker
        start_ = device.received.size();
    }

    FakeClock clock;
    FakeSequencer* bay = new FakeSequencer(clock);
    AlsaMidiService service{std::unique_ptr<Sequencer>(bay), clock.source()};
    int opened = -1; ///< the answer of MidiOutOpen

private:
    std::size_t start_ = 0;
    std::int64_t begun_ = 0;
};
