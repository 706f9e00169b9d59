// What the keyboard window lasts on, and what the rest of the program knows of it.
//
// Its whole memory between runs is App.KeyboardState, 16 bytes of the settings. The faders and the channel are kept
// current there while the window is open; the boxes, the octave and the split point are written as it closes.
#pragma once

/// Places in App.KeyboardState, from 0.
namespace KeyboardByte
{
inline constexpr int Channel = 0; ///< MIDI channel, 0 to 15
inline constexpr int ClickKey = 1;
inline constexpr int HoldNote = 2;
inline constexpr int OctaveShift = 3; ///< 0 to 3
inline constexpr int Faders = 4;      ///< 4 to 14: the eleven faders
inline constexpr int SplitPoint = 15; ///< MIDI note, 36 to 96
} // namespace KeyboardByte

namespace KeyRange
{
inline constexpr int Count = 61; ///< keys on the screen
inline constexpr int LowestNote = 12;
inline constexpr int HighestNote = 108;
inline constexpr int Notes = HighestNote - LowestNote + 1;
inline constexpr int Octave = 12;
inline constexpr int MostShift = 3;
} // namespace KeyRange

namespace SplitRange
{
inline constexpr int Lowest = 36;
inline constexpr int Highest = 96;
} // namespace SplitRange

struct KeysState {
    bool KeyboardOpen = false; ///< from the window's load to its unload
};

/// The one instance. A test starts afresh with Keys = {}.
extern KeysState Keys;

/// One of the 16 bytes.
int keyboardByte(int place);
void setKeyboardByte(int place, int value);

/// Brings bytes that a damaged settings file holds into their ranges, each to the nearest end; a box counts as ticked
/// at 1 alone.
void keyboardBytesIntoRange();
