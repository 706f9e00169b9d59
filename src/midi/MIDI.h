// The port routines: the only code that touches the MIDI service.
//
// One output port, one input port, and the result of the last call. The input is never read; it is there so that the
// service can join a master keyboard to the instrument (thru). With MidiEnabled 0 every routine does nothing, and the
// callers behave as if it had worked.
#pragma once

#include "core/Bytes.h"

#include <cstdint>

class MidiService;

struct MidiState {
    MidiService* service = nullptr; ///< set once at start, before SubMain
    int MidiEnabled = 1;            ///< 1 usable; 0 after any fatal failure, and never 1 again
    int MidiLastResult = 0;
    std::int32_t MidiOutHandle = 0;
    std::int32_t MidiInHandle = 0;
    int MidiPortsOpen = 0;
    bool MidiQuiet = false;      ///< results of open calls are not reported
    bool MidiOpenFailed = false; ///< an open routine gave up
    int MidiOutDevCount = 0;
    int MidiInDevCount = 0;
    int MidiOutDevice = -1;
    std::int32_t MidiInDevice = 0;
    std::uint32_t MidiShortValue = 0; ///< status in the low byte, then data 1, data 2
    ByteBuffer SysExOutput;           ///< the single output buffer: a message assembled by the caller
    bool MidiBothOpen = false;        ///< this process opened both ports itself
    bool MidiOwner = false;           ///< this process opened the output and must close the ports
    bool heldElsewhere = false;       ///< another process of this program runs: opening a port answers 4
    bool SongPlaySeen = false;
    bool MsgLogActive = false; ///< the message monitor was opened
    bool KeyLogActive = false; ///< notes are logged
    bool Sending = false;      ///< a long message is going out; what is sent meanwhile would fall into its middle
};

extern MidiState Midi;

/// Opens the output. 0 on success and also with no device at all (code 22 is then reported and MIDI disabled); 4 when
/// another process of this program runs, whatever devices there are; else the service's result.
[[nodiscard]] int MidiOutOpen();
/// Opens the input. 0 on success, 100 with no usable input (MIDI is then disabled, nothing reported); else as above.
[[nodiscard]] int MidiInOpen();
void MidiOutClose();
void MidiInClose();
/// Sends MidiShortValue.
void MidiShortSend();
/// Sends SysExOutput whole and leaves it as it is. Each step runs even when the one before failed. While a message is
/// going out, neither this routine nor MidiShortSend sends anything.
void MidiLongSend();
void MidiThruConnect();
void MidiThruDisconnect();
void MidiInRun();
void MidiInHalt();
/// Reports a last result that is not 0, under the application's title: 4 as "already in use", any other as an opening
/// error.
void MidiResultCheck();

// 90|c note velocity, 80|c note velocity, B0|c 7B 00
void MidiNoteOn(int channel, int note, int velocity);
void MidiNoteOff(int channel, int note, int velocity);
void MidiAllNotesOff(int channel);

/// Packs and sends a short message; the bytes are status, data 1, data 2 as on the wire.
void MidiShortBytesSend(int status, int data1, int data2);

/// Selects a bank (its low byte; the high one is 0) and a program in it. Returns the eight bytes of the three messages,
/// for the caller to log.
// B0|c 00 00, B0|c 20 bb, C0|c pp
ByteBuffer MidiProgramSelect(int channel, int bank, int program);

/// The name of the port that is sent to, for the user; empty while nothing is.
std::string MidiOutputName();
