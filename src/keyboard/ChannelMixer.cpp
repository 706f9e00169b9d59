// From a fader to the wire.
#include "keyboard/ChannelMixer.h"

#include "arrangements/ArrTexts.h"
#include "core/Dichiarazioni.h"
#include "keyboard/Keys.h"
#include "midi/DeviceModes.h"
#include "midi/MIDI.h"
#include "midi/MsgLog.h"

namespace
{

constexpr unsigned ControllerStatus = 0xB0;
constexpr unsigned PitchBendStatus = 0xE0;
constexpr unsigned BendLowByte = 0x7F;
constexpr int Centre = 64;
constexpr int SplitParameter = 2;

const Fader& faderRow(int fader) { return Faders::Table[static_cast<std::size_t>(fader)]; }

constexpr std::uint32_t word(unsigned status, unsigned data1, int data2)
{
    return status | data1 << 8 | static_cast<unsigned>(data2) << 16;
}

/// The fader's message without its channel.
std::uint32_t faderWord(const Fader& fader, int value)
{
    switch (fader.message) {
    case FaderMessage::Controller:
        return word(ControllerStatus, static_cast<unsigned>(fader.controller), value);
    case FaderMessage::PitchBend:
        // Required: the low byte is fixed, so the fader's middle lies 127 steps above the exact centre; each step of
        // the fader is a step of the high byte.
        return word(PitchBendStatus, BendLowByte, value);
    case FaderMessage::Velocity:
        break;
    }
    // Required: a velocity fader has no message of its own and sends the last one of the program once more.
    return Midi.MidiShortValue;
}

} // namespace

int mixerChannel() { return keyboardByte(KeyboardByte::Channel); }

void mixerChannelChoose(int channel) { setKeyboardByte(KeyboardByte::Channel, channel); }

int velocityOn() { return keyboardByte(KeyboardByte::Faders + Faders::VelOn); }

int velocityOff() { return keyboardByte(KeyboardByte::Faders + Faders::VelOff); }

std::string faderText(int fader, int value) { return std::to_string(faderRow(fader).centred ? value - Centre : value); }

void faderMove(int fader, int value)
{
    // Required: the channel is or-ed in, also into a repeated message that already holds one.
    Midi.MidiShortValue = faderWord(faderRow(fader), value) | static_cast<unsigned>(mixerChannel());
    const std::uint32_t sent = Midi.MidiShortValue;
    MidiShortSend();
    setKeyboardByte(KeyboardByte::Faders + fader, value);
    MsgLogAdd("");
    MsgLogAdd(byteText(static_cast<int>(sent & 0xFFU)) + byteText(static_cast<int>(sent >> 8 & 0xFFU)) +
              byteText(static_cast<int>(sent >> 16 & 0xFFU)));
}

std::string splitPointText(int note) { return " " + splitNoteText(note).value_or(std::string()); }

void splitPointSend(int note)
{
    constexpr int NoTrack = 0;
    constexpr int Positive = 0;
    ParamChangeSend(NoTrack, SplitParameter, note, Positive);
}

std::optional<bool> splitPointWorks()
{
    switch (App.DeviceMode) {
    case DeviceModes::ArrPlay:
        return true;
    case DeviceModes::SongPlay:
    case DeviceModes::Global:
        return false;
    default:
        return std::nullopt;
    }
}
