// The MIDI service of a machine without hardware: one output, joined to the virtual instrument, and one silent input.
//
// Everything sent is also kept as raw bytes in a file, begun afresh when the program first opens the output: a start
// that is refused its ports leaves the file of the running program alone.
#pragma once

#include "instrument/VirtualInstrument.h"
#include "midi/MidiService.h"
#include "midi/WireClock.h"

#include <functional>
#include <string>

class VirtualMidiService final : public MidiService
{
public:
    static constexpr const char* FileName = "VirtualInstrument.syx";

    /// `folder` is asked for when the output is first opened, since the state folder is known by then; an empty answer
    /// or a folder in which nothing can be written means that no file is kept.
    VirtualMidiService(VirtualInstrument& instrument, std::function<std::string()> folder,
                       WireClock clock = WireClock());
    ~VirtualMidiService() override;
    VirtualMidiService(const VirtualMidiService&) = delete;
    VirtualMidiService& operator=(const VirtualMidiService&) = delete;

    /// True: a message of more than one piece goes at the cable's 3125 bytes a second, with `progress` called between
    /// its pieces and at its end. False, the default: every message is taken at once and `progress` stays silent.
    void setPaced(bool paced) { paced_ = paced; }
    [[nodiscard]] bool paced() const { return paced_; }
    [[nodiscard]] bool thruConnected() const { return thruConnected_; }

    int midiOutGetNumDevs() override { return 1; }
    int midiOutOpen(std::int32_t& handle, int device) override;
    int midiOutClose(std::int32_t handle) override;
    int midiOutShortMsg(std::int32_t handle, std::uint32_t message) override;
    int midiOutPrepareHeader(std::int32_t handle, std::string_view message) override;
    int midiOutLongMsg(std::int32_t handle, std::string_view message) override;
    int midiOutUnprepareHeader(std::int32_t handle, std::string_view message) override;
    int midiInGetNumDevs() override { return 1; }
    int midiInGetDevCaps(int device) override;
    int midiInOpen(std::int32_t& handle, int device) override;
    int midiInClose(std::int32_t handle) override;
    int midiInStart(std::int32_t handle) override;
    int midiInStop(std::int32_t handle) override;
    int midiConnect(std::int32_t inHandle, std::int32_t outHandle) override;
    int midiDisconnect(std::int32_t inHandle, std::int32_t outHandle) override;
    std::string outputPortName() override;

private:
    [[nodiscard]] bool isOut(std::int32_t handle) const;
    [[nodiscard]] bool isIn(std::int32_t handle) const;
    void beginFile();
    void keep(std::string_view bytes);
    void carry(std::string_view bytes);
    void carryPaced(std::string_view message);

    VirtualInstrument& instrument_;
    std::function<std::string()> folder_;
    WireClock clock_;
    int file_ = -1;
    bool fileBegun_ = false;
    std::int32_t lastHandle_ = 0;
    std::int32_t outHandle_ = 0; ///< 0 = closed
    std::int32_t inHandle_ = 0;
    bool started_ = false;
    bool thruConnected_ = false;
    bool paced_ = false;
};
