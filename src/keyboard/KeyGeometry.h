// The drawn keyboard in twips: where the keys stand in their frame, where the pressed mark is on a key, and where the
// split marker stands over them.
#pragma once

#include "keyboard/Keys.h"

/// A place and size in twips.
struct TwipsRect {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;
};

/// A circle on a key, twips from the key's corner.
struct KeyMark {
    int x = 0;
    int y = 0;
    int radius = 0;
    int colour = 0; ///< blue-green-red
};

namespace KeyGeometry
{
inline constexpr int WhiteWidth = 252;
inline constexpr int WhiteHeight = 1404;
inline constexpr int BlackWidth = 156;
inline constexpr int BlackHeight = 972;
inline constexpr int WhiteColour = 0xFFFFFF;
inline constexpr int BlackColour = 0;
inline constexpr KeyMark WhiteMark{100, 1176, 66, 0};
inline constexpr KeyMark BlackMark{60, 712, 62, 65280};
inline constexpr int BottomBand = 36; ///< the lowest part of a key, where a gliding pointer falls silent
inline constexpr int WhiteKeys = 36;
inline constexpr int OctaveWidth = 7 * WhiteWidth;

/// The frame of the keys on the window.
inline constexpr TwipsRect Frame{70, 2650, WhiteKeys* WhiteWidth, WhiteHeight};

/// The octave labels stand this far from each other.
inline constexpr int LabelPitch = 1760;
inline constexpr int Labels = 6;

/// The split marker, and the place that its positions are counted from.
inline constexpr int MarkerWidth = 150;
inline constexpr int MarkerHeight = 150;
inline constexpr int MarkerOrigin = Frame.left - MarkerWidth / 2 + 10;
inline constexpr int MarkerTop = Frame.top - MarkerHeight - 20;
} // namespace KeyGeometry

/// `key` is 0 to 60.
bool isBlackKey(int key);
/// In the frame of the keys.
TwipsRect keyRect(int key);
const KeyMark& keyMark(int key);

/// The marker's left on the window for a split note (36 to 96) and an octave shift (0 to 3). Not clamped: with the
/// split outside the five shown octaves it stands outside the keyboard.
int splitMarkerLeft(int note, int octaveShift);
