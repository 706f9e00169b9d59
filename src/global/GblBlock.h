// The global block of the instrument: the 415 parameter bytes that a global dump carries. Offsets are 0-based from the
// first of them. What is named Kept is carried unchanged and never shown.
#pragma once

#include "files/WindowLayout.h"

namespace GblBlock
{

inline constexpr Field MasterTune{0, 1};
inline constexpr Field Kept1{end(MasterTune), 1};
inline constexpr Field PlayFlags{end(Kept1), 1}; ///< damper polarity, joystick, echo back
inline constexpr Field AssignablePedal{end(PlayFlags), 1};
inline constexpr Field Kept4{end(AssignablePedal), 1};
inline constexpr Field MainScaleType{end(Kept4), 1};
inline constexpr Field MainScaleKey{end(MainScaleType), 1};
inline constexpr Field Kept7{end(MainScaleKey), 12};
inline constexpr Field VelocityCurve{end(Kept7), 1};
inline constexpr Field AfterTouchCurve{end(VelocityCurve), 1};
inline constexpr Field SubScaleType{end(AfterTouchCurve), 1};
inline constexpr Field SubScaleKey{end(SubScaleType), 1};
inline constexpr Field ExtControllers{end(SubScaleKey), 5};
inline constexpr Field ChordRecognition{end(ExtControllers), 1};
inline constexpr Field AutoChordScan{end(ChordRecognition), 1};
inline constexpr Field Kept30{end(AutoChordScan), 2};
inline constexpr int ScaleCount = 4;
inline constexpr int NotesOfAScale = 12;                                      ///< from C up to B
inline constexpr Field UserScales{end(Kept30), (ScaleCount * NotesOfAScale)}; ///< cents, two's complement
inline constexpr Field Kept80{end(UserScales), 132};
inline constexpr Field Velocity{end(Kept80), 1};
inline constexpr Field Octaves{end(Velocity), 1}; ///< low nibble Upper, high nibble Lower
inline constexpr Field Kept214{end(Octaves), 1};
inline constexpr Field HarmonyOctave{end(Kept214), 1};
inline constexpr Field HarmonyRangeLow{end(HarmonyOctave), 1}; ///< notes
inline constexpr Field HarmonyRangeHigh{end(HarmonyRangeLow), 1};
inline constexpr Field HarmonyChannelArr{end(HarmonyRangeHigh), 1};
inline constexpr Field HarmonyTrack{end(HarmonyChannelArr), 1};
inline constexpr Field HarmonyChannelSong{end(HarmonyTrack), 1};
inline constexpr Field HarmonyToneGenerator{end(HarmonyChannelSong), 1};
inline constexpr Field Locks{end(HarmonyToneGenerator), 1};
inline constexpr Field Kept223{end(Locks), 192};

static_assert(end(Kept223) == GblLayout::Parameters.size);
static_assert(VelocityCurve.offset == 19 && UserScales.offset == 32 && Velocity.offset == 212 && Locks.offset == 222);

/// Where the block stands in a window's buffer.
inline constexpr Field InWindow{WindowLayout::GblFile.offset + GblLayout::Parameters.offset,
                                GblLayout::Parameters.size};
static_assert(InWindow.offset == 302);

} // namespace GblBlock
