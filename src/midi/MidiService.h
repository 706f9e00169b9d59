// The platform's MIDI service: fifteen operations and their result codes, nothing more.
//
// Three bodies: the ALSA sequencer, the built-in virtual instrument, and the tests' recorder. Only midi/MIDI.h calls
// them.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

/// Result codes of the operations. Others are the platform's own.
namespace MidiResult
{
inline constexpr int Done = 0;
inline constexpr int Failed = 1;
inline constexpr int Allocated = 4; ///< somebody else holds the device
inline constexpr int InvalidHandle = 5;
inline constexpr int NotReady = 67;
} // namespace MidiResult

class MidiService
{
public:
    virtual ~MidiService() = default;

    virtual int midiOutGetNumDevs() = 0;
    /// Opens device -1, the system's mapper. Writes a handle on success.
    virtual int midiOutOpen(std::int32_t& handle, int device) = 0;
    virtual int midiOutClose(std::int32_t handle) = 0;
    /// Three bytes packed in a word, status in the low byte; sent before the call returns.
    virtual int midiOutShortMsg(std::int32_t handle, std::uint32_t message) = 0;
    virtual int midiOutPrepareHeader(std::int32_t handle, std::string_view message) = 0;
    /// Sends the whole byte string; complete when it returns.
    virtual int midiOutLongMsg(std::int32_t handle, std::string_view message) = 0;
    virtual int midiOutUnprepareHeader(std::int32_t handle, std::string_view message) = 0;

    virtual int midiInGetNumDevs() = 0;
    /// Probes an input device; a result above 0 means that there is no usable input.
    virtual int midiInGetDevCaps(int device) = 0;
    virtual int midiInOpen(std::int32_t& handle, int device) = 0;
    virtual int midiInClose(std::int32_t handle) = 0;
    virtual int midiInStart(std::int32_t handle) = 0;
    virtual int midiInStop(std::int32_t handle) = 0;

    /// Joins an input to an output inside the service, with no program code in the path.
    virtual int midiConnect(std::int32_t inHandle, std::int32_t outHandle) = 0;
    virtual int midiDisconnect(std::int32_t inHandle, std::int32_t outHandle) = 0;

    /// Called between the pieces of a long message: bytes gone of all bytes. Set by whoever shows it; may be empty.
    std::function<void(int gone, int total)> progress;

    /// What the output is called before the user, for a tool tip; empty where nothing is open.
    virtual std::string outputPortName() { return {}; }
};
