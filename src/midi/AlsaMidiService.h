// The MIDI service on Linux: a client "Tarvolyne" of the ALSA sequencer, with one port "MIDI out" that every patch bay
// can see and rewire.
//
// It shares the interface with other programs, loses no byte of a long message, and answers a result when something
// else goes wrong; it never hangs. Handles are the client's number.
#pragma once

#include "midi/CableFeed.h"
#include "midi/MidiService.h"
#include "midi/Receivers.h"
#include "midi/ThruWires.h"

#include <memory>

class AlsaMidiService final : public MidiService
{
public:
    /// On the machine's own sequencer, which is entered when it is first asked for devices.
    AlsaMidiService();
    explicit AlsaMidiService(std::unique_ptr<Sequencer> sequencer,
                             const WireClock::TimeSource& time = WireClock::monotonicTime());
    ~AlsaMidiService() override;
    AlsaMidiService(const AlsaMidiService&) = delete;
    AlsaMidiService& operator=(const AlsaMidiService&) = delete;

    int midiOutGetNumDevs() override;
    int midiOutOpen(std::int32_t& handle, int device) override;
    int midiOutClose(std::int32_t handle) override;
    int midiOutShortMsg(std::int32_t handle, std::uint32_t message) override;
    int midiOutPrepareHeader(std::int32_t handle, std::string_view message) override;
    int midiOutLongMsg(std::int32_t handle, std::string_view message) override;
    int midiOutUnprepareHeader(std::int32_t handle, std::string_view message) override;
    int midiInGetNumDevs() override;
    int midiInGetDevCaps(int device) override;
    int midiInOpen(std::int32_t& handle, int device) override;
    int midiInClose(std::int32_t handle) override;
    int midiInStart(std::int32_t handle) override;
    int midiInStop(std::int32_t handle) override;
    int midiConnect(std::int32_t inHandle, std::int32_t outHandle) override;
    int midiDisconnect(std::int32_t inHandle, std::int32_t outHandle) override;

    std::string outputPortName() override;

private:
    [[nodiscard]] bool enter();
    void leaveWhenIdle();
    [[nodiscard]] bool isOut(std::int32_t handle) const;
    [[nodiscard]] int useOutput(std::int32_t handle);
    [[nodiscard]] int openOutput();
    [[nodiscard]] int useInput(std::int32_t handle) const;
    [[nodiscard]] int findReceivers();

    std::unique_ptr<Sequencer> sequencer_;
    Receivers receivers_;
    ThruWires thru_;
    CableFeed feed_;
    bool outOpen_ = false;
    bool inOpen_ = false;
    bool sending_ = false;
    std::int32_t sharedHandle_ = 0; ///< of another program, used as if it were ours; 0 none
    SeqPort keyboard_;
};
