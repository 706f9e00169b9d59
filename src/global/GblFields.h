// Which field of the block each control of the global window shows, by the control's index.
#pragma once

#include "global/GblParameters.h"

#include <array>

namespace GblFields
{

inline constexpr std::array GblHScroll1 = {GblField::MasterTune, GblField::Velocity};
/// Required: the array has a gap at 4, which stands here as Count.
inline constexpr std::array GblCombo1 = {
    GblField::OctaveUpper,     GblField::OctaveLower,     GblField::VelocityCurve,
    GblField::AfterTouchCurve, GblField::Count,           GblField::ChordRecognition,
    GblField::MainScaleType,   GblField::SubScaleType,    GblField::MainScaleKey,
    GblField::SubScaleKey,     GblField::AssignablePedal, GblField::ExtControllerA,
    GblField::ExtControllerB,  GblField::ExtControllerC,  GblField::ExtControllerD,
    GblField::ExtControllerE,  GblField::JsLow,           GblField::JsUp1,
    GblField::JsUp2,           GblField::EchoBack};
inline constexpr std::array GblCheck1 = {GblField::AutoChordScan, GblField::TransposeLock, GblField::VocGtrLock};
inline constexpr std::array Combo3 = {GblField::HarmonyOctave, GblField::HarmonyChannelArr, GblField::HarmonyTrack,
                                      GblField::HarmonyChannelSong};
inline constexpr std::array HScroll3 = {GblField::HarmonyRangeLow, GblField::HarmonyRangeHigh};

/// The labels that show the sliders' values.
inline constexpr std::array SliderLabel = {1, 13};
inline constexpr std::array RangeLabel = {5, 7};

} // namespace GblFields
