// The port routines: opening, closing, sending and thru, with the few dialogs that they own.
//
// The layer holds one output and one input and never asks which: device -1 is the system's mapper, input 0 the first.
// Nothing is retried and nothing waits for an answer of the instrument.
#include "midi/MIDI.h"

#include "core/Dichiarazioni.h"
#include "core/Reports.h"
#include "core/ScopedFlag.h"
#include "midi/MidiService.h"
#include "midi/MsgLog.h"
#include "midi/NoMidiService.h"

MidiState Midi;

namespace
{

constexpr int CodeAlreadyInUse = 20;
constexpr int CodeOpeningFailed = 21;
constexpr int CodeNoDevice = 22;
constexpr int CodeClosingFailed = 23;
constexpr int ResultNoInput = 100;

constexpr int NoteOffStatus = 0x80;
constexpr int NoteOnStatus = 0x90;
constexpr int ControllerStatus = 0xB0;
constexpr int ProgramChangeStatus = 0xC0;
constexpr int BankSelectHigh = 0x00;
constexpr int BankSelectLow = 0x20;
constexpr int AllNotesOffController = 0x7B;

MidiService& service()
{
    static NoMidiService none;
    return Midi.service != nullptr ? *Midi.service : none;
}

/// The answer to opening a port while another process of this program holds the instrument.
int refuseHeldPort()
{
    Midi.MidiLastResult = MidiResult::Allocated;
    if (!Midi.MidiQuiet)
        MidiResultCheck();
    return MidiResult::Allocated;
}

void checkedResult(int result)
{
    Midi.MidiLastResult = result;
    MidiResultCheck();
}

void closed(int result)
{
    Midi.MidiLastResult = result;
    // Required: after a failed close the ports still count as open, so that the shut-down knows that they are held.
    if (result != MidiResult::Done)
        ReportError(CodeClosingFailed, ApplicationTitle, "");
    else
        Midi.MidiPortsOpen = 0;
}

void sendNote(int status, int channel, int note, int velocity)
{
    if (Midi.MidiEnabled == 0)
        return;
    if (Midi.KeyLogActive)
        MsgLogAdd("");
    MidiShortBytesSend(status | channel, note, velocity);
    if (Midi.KeyLogActive)
        MsgLogAdd(byteText(status | channel) + byteText(note) + byteText(velocity));
}

} // namespace

int MidiOutOpen()
{
    Midi.MidiOpenFailed = false;
    if (Midi.MidiEnabled != 1)
        return MidiResult::Done;
    if (Midi.heldElsewhere)
        return refuseHeldPort();

    Midi.MidiOutDevCount = service().midiOutGetNumDevs();
    Midi.MidiPortsOpen = 1;
    if (service().midiOutGetNumDevs() == 0) {
        Midi.MidiPortsOpen = 0;
        ReportError(CodeNoDevice, ApplicationTitle, "");
        Midi.MidiEnabled = 0;
        Midi.MidiOpenFailed = true;
        // Required: no device is no failure for the caller; the program carries on as an editor of files.
        return MidiResult::Done;
    }

    Midi.MidiOutDevice = -1;
    const int result = service().midiOutOpen(Midi.MidiOutHandle, Midi.MidiOutDevice);
    Midi.MidiLastResult = result;
    if (!Midi.MidiQuiet)
        MidiResultCheck();
    return result;
}

int MidiInOpen()
{
    Midi.MidiOpenFailed = false;
    if (Midi.MidiEnabled == 0)
        return MidiResult::Done;
    if (Midi.heldElsewhere)
        return refuseHeldPort();

    Midi.MidiInDevCount = service().midiInGetNumDevs();
    Midi.MidiPortsOpen = 1;
    Midi.MidiInDevice = 0;
    Midi.MidiLastResult = service().midiInGetDevCaps(Midi.MidiInDevice);
    if (Midi.MidiLastResult > 0) {
        // Required: the caller knows this result and speaks of the input itself, so no dialog comes from here.
        Midi.MidiPortsOpen = 0;
        Midi.MidiEnabled = 0;
        Midi.MidiOpenFailed = true;
        return ResultNoInput;
    }

    const int result = service().midiInOpen(Midi.MidiInHandle, Midi.MidiInDevice);
    Midi.MidiLastResult = result;
    if (!Midi.MidiQuiet)
        MidiResultCheck();
    return result;
}

void MidiOutClose()
{
    if (Midi.MidiEnabled == 0)
        return;
    closed(service().midiOutClose(Midi.MidiOutHandle));
}

void MidiInClose()
{
    if (Midi.MidiEnabled == 0)
        return;
    closed(service().midiInClose(Midi.MidiInHandle));
}

void MidiShortSend()
{
    if (Midi.MidiEnabled == 0 || Midi.Sending)
        return;
    checkedResult(service().midiOutShortMsg(Midi.MidiOutHandle, Midi.MidiShortValue));
}

void MidiLongSend()
{
    if (Midi.MidiEnabled == 0 || Midi.Sending)
        return;
    const ScopedFlag sending(Midi.Sending);
    const ByteBuffer message = Midi.SysExOutput; // a paced send lets paint events through; none may change the message

    // Required: each step runs though the one before failed, so that whatever the driver did take is given back; a
    // musician without an instrument may therefore see the same message three times.
    checkedResult(service().midiOutPrepareHeader(Midi.MidiOutHandle, message));
    checkedResult(service().midiOutLongMsg(Midi.MidiOutHandle, message));
    checkedResult(service().midiOutUnprepareHeader(Midi.MidiOutHandle, message));
}

// Required: the four results below are kept and nothing follows from them: thru is the musician's convenience, and a
// keyboard that cannot be joined must not stop the program with a dialog.

void MidiThruConnect()
{
    if (Midi.MidiEnabled != 0)
        Midi.MidiLastResult = service().midiConnect(Midi.MidiInHandle, Midi.MidiOutHandle);
}

void MidiThruDisconnect()
{
    if (Midi.MidiEnabled != 0)
        Midi.MidiLastResult = service().midiDisconnect(Midi.MidiInHandle, Midi.MidiOutHandle);
}

void MidiInRun()
{
    if (Midi.MidiEnabled != 0)
        Midi.MidiLastResult = service().midiInStart(Midi.MidiInHandle);
}

void MidiInHalt()
{
    if (Midi.MidiEnabled != 0)
        Midi.MidiLastResult = service().midiInStop(Midi.MidiInHandle);
}

void MidiResultCheck()
{
    // Required: this is the only check of the layer, so a failed send too is told in the words of a failed opening.
    if (Midi.MidiEnabled == 0 || Midi.MidiLastResult == MidiResult::Done)
        return;
    ReportError(Midi.MidiLastResult == MidiResult::Allocated ? CodeAlreadyInUse : CodeOpeningFailed, ApplicationTitle,
                "");
}

void MidiNoteOn(int channel, int note, int velocity) { sendNote(NoteOnStatus, channel, note, velocity); }

void MidiNoteOff(int channel, int note, int velocity) { sendNote(NoteOffStatus, channel, note, velocity); }

void MidiAllNotesOff(int channel)
{
    if (Midi.MidiEnabled == 0)
        return;
    MidiShortBytesSend(ControllerStatus | channel, AllNotesOffController, 0);
    // Required: two bytes of the three, for the caller to log; the monitor shows the message so.
    Midi.SysExOutput = byteText(ControllerStatus | channel) + byteText(AllNotesOffController);
}

void MidiShortBytesSend(int status, int data1, int data2)
{
    if (Midi.MidiEnabled == 0)
        return;
    Midi.MidiShortValue = static_cast<std::uint32_t>(status) | static_cast<std::uint32_t>(data1) << 8 |
                          static_cast<std::uint32_t>(data2) << 16;
    MidiShortSend();
}

ByteBuffer MidiProgramSelect(int channel, int bank, int program)
{
    const int controller = ControllerStatus | channel;
    const int programChange = ProgramChangeStatus | channel;
    MidiShortBytesSend(controller, BankSelectHigh, 0);
    MidiShortBytesSend(controller, BankSelectLow, bank);
    MidiShortBytesSend(programChange, program, 0);
    return byteText(controller) + byteText(BankSelectHigh) + byteText(0) + byteText(controller) +
           byteText(BankSelectLow) + byteText(bank) + byteText(programChange) + byteText(program);
}

std::string MidiOutputName() { return Midi.MidiEnabled == 0 ? std::string() : service().outputPortName(); }
