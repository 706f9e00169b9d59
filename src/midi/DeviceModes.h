// The operating modes of the instrument, and changing one of its live parameters.
//
// The program cannot learn the real mode: it keeps what it last asked for, shows that, and saves it.
#pragma once

namespace DeviceModes
{
inline constexpr int ArrPlay = 0;
inline constexpr int SongPlay = 1;
inline constexpr int Global = 2;
} // namespace DeviceModes

// F0 42 3g 4D 4E 0A F7, ... 06 F7, ... 04 F7
void ModeArrPlay();
void ModeSongPlay();
void ModeGlobal();

/// Shows the label of App.DeviceMode; any other value leaves the label as it is.
void ModeLabelShow();

/// F0 42 3g 4D 41 pp ll hh F7. `track` matters for parameter 70 only; `mode` 1 says that the value is negative.
void ParamChangeSend(int track, int parameter, int value, int mode);
