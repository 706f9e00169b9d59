// Mode changes and parameter changes: the two small messages besides the dumps, and the label that shows the mode.
#include "midi/DeviceModes.h"

#include "core/Dichiarazioni.h"
#include "core/UserInterface.h"
#include "midi/MIDI.h"
#include "midi/MsgLog.h"
#include "midi/SysEx.h"

#include <array>

namespace
{

/// The instrument's modes by App.DeviceMode: the byte on the wire and the label.
struct Mode {
    int wireByte;
    const char* label;
};
constexpr std::array<Mode, 3> Modes{{{0x0A, "ARR PLAY"}, {0x06, "SONG PLAY"}, {0x04, "GLOBAL"}}};

/// Parameter 70 addresses a bank of 64 values for each track: what a track code adds.
struct TrackShift {
    int code;
    int shift;
};
// Required: code 21 stands before 9; the instrument counts its tracks in this order.
constexpr std::array<TrackShift, 7> TrackShifts{{{4, 0}, {5, 64}, {6, 128}, {7, 192}, {8, 256}, {21, 320}, {9, 384}}};

constexpr int BankedParameter = 70;
constexpr int NegativeMode = 1;
constexpr int NegativeHighByte = 127;
constexpr int LowSevenBits = 127;
constexpr int HighUnit = 128;

int trackShift(int track)
{
    for (const TrackShift& row : TrackShifts)
        if (row.code == track)
            return row.shift;
    return 0;
}

/// Empties the monitor, sends the mode change and logs it.
void sendMode(int mode)
{
    MsgLogAdd("");
    Midi.SysExOutput = sysExFrame(Function::ModeChange, byteText(Modes[static_cast<std::size_t>(mode)].wireByte));
    MidiLongSend();
    MsgLogAdd(Midi.SysExOutput);
}

} // namespace

void ModeArrPlay()
{
    sendMode(DeviceModes::ArrPlay);
    App.DeviceMode = DeviceModes::ArrPlay;
    ModeLabelShow();
}

void ModeSongPlay()
{
    sendMode(DeviceModes::SongPlay);
    Midi.SongPlaySeen = true;
    App.DeviceMode = DeviceModes::SongPlay;
    ModeLabelShow();
}

void ModeGlobal()
{
    // Required: here the label comes before the message; the global window is about to send a whole block, and the
    // musician reads the mode before the transfer begins.
    App.DeviceMode = DeviceModes::Global;
    ModeLabelShow();
    sendMode(DeviceModes::Global);
}

void ModeLabelShow()
{
    const int mode = App.DeviceMode;
    if (mode >= 0 && mode < static_cast<int>(Modes.size()))
        theUser().showDeviceMode(Modes[static_cast<std::size_t>(mode)].label);
}

void ParamChangeSend(int track, int parameter, int value, int mode)
{
    const int moved = parameter == BankedParameter ? value + trackShift(track) : value;
    const int high = mode == NegativeMode ? NegativeHighByte : moved / HighUnit;
    Midi.SysExOutput =
        sysExFrame(Function::ParameterChange, byteText(parameter) + byteText(moved & LowSevenBits) + byteText(high));
    MidiLongSend();
}
