// The channel strip of the keyboard window: eleven faders that send as they move, the channel they send on, and the
// split point. The values stand in App.KeyboardState.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

enum class FaderMessage {
    Controller, ///< B0|c number value
    PitchBend,  ///< E0|c 7F value
    Velocity    ///< none of its own: the velocity of the notes
};

struct Fader {
    std::string_view caption;
    std::string_view topMark;
    std::string_view bottomMark;
    FaderMessage message;
    int controller;
    bool centred; ///< shown as value minus 64
};

namespace Faders
{
inline constexpr int Pan = 1;
inline constexpr int VelOn = 2;
inline constexpr int VelOff = 3;
inline constexpr int Count = 11;
inline constexpr int Highest = 127;
inline constexpr int LargeStep = 10;

inline constexpr std::array<Fader, Count> Table{{
    {"Volume", "127", "0", FaderMessage::Controller, 7, false},
    {"Pan", "63", "-64", FaderMessage::Controller, 10, true},
    {"Vel On", "127", "0", FaderMessage::Velocity, 0, false},
    {"Vel Off", "127", "0", FaderMessage::Velocity, 0, false},
    {"Att Time", "127", "0", FaderMessage::Controller, 73, false},
    {"Rel Time", "127", "0", FaderMessage::Controller, 72, false},
    {"Bend", "63", "-64", FaderMessage::PitchBend, 0, true},
    {"PMod", "127", "0", FaderMessage::Controller, 1, false},
    {"COMod", "127", "0", FaderMessage::Controller, 2, false},
    {"Reverb", "127", "0", FaderMessage::Controller, 91, false},
    {"Chorus", "127", "0", FaderMessage::Controller, 93, false},
}};
} // namespace Faders

/// The channel of every message of the window, 0 to 15. Choosing another sends nothing.
int mixerChannel();
void mixerChannelChoose(int channel);

/// The velocities of the notes, 0 to 127.
int velocityOn();
int velocityOff();

/// What stands at a fader for its value: "100", "-64".
std::string faderText(int fader, int value);

/// A fader has moved: sends and logs its message and keeps the value.
void faderMove(int fader, int value);

/// The split note with its blank in front, the sharp behind the octave: " C4#".
std::string splitPointText(int note);

/// F0 42 3g 4D 41 02 vv 00 F7
void splitPointSend(int note);

/// Whether the split point has a meaning in the instrument's mode; nothing for a mode that nobody knows.
std::optional<bool> splitPointWorks();
