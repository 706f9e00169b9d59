// The rows of the editor's lists, in the order in which the instrument stores the values or, where said, its reverse.
// The words are those of the instrument's panel and the same in both languages.
#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <string_view>

/// A list's rows from position 0; a field that shows a number has none.
using ArrList = std::span<const std::string_view>;

namespace ArrLists
{

inline constexpr std::array<std::string_view, 4> InitVar = {" 1", " 2", " 3", " 4"};

inline constexpr std::array<std::string_view, 11> KeyboardAssign = {"FULL 1",  "FULL 2",  "SPLIT 1", "M. DRUMS",
                                                                    "FULL 3",  "FULL 4",  "SPLIT 2", "SPLIT 3",
                                                                    "SPLIT 4", "SPLIT 5", "SPLIT 6"};

inline constexpr std::array<std::string_view, 13> Fill = {" OFF", " ->1", " ->2", " ->3", " ->4", " 1&2", " 1&3",
                                                          " 1&4", " 2&3", " 2&4", " 3&4", " UP",  " DOWN"};

inline constexpr std::array<std::string_view, 10> EnsembleType = {
    "Duet", "Close", "Open1", "Open2", "Octave", "Power Ens.", "Fourths", "Block", "Brass Ens.", "Reed Ens."};

inline constexpr std::array<std::string_view, 16> ManualDrumKit = {" Dr11", " Dr12", " Dr13", " Dr14", " Dr15", " Dr16",
                                                                   " Dr17", " Dr18", " Dr21", " Dr22", " Dr23", " Dr24",
                                                                   " Dr25", " Dr26", " Dr27", " Dr28"};

inline constexpr std::array<std::string_view, 23> Transpose = {
    " +11", " +10", " +9", " +8", " +7", " +6", " +5", " +4", " +3", " +2",  " +1", "  0",
    " -1",  " -2",  " -3", " -4", " -5", " -6", " -7", " -8", " -9", " -10", " -11"};

inline constexpr std::array<std::string_view, 4> Variation = {" VAR1", " VAR2", " VAR3", " VAR4"};

inline constexpr std::array<std::string_view, 4> Designation = {" A", " B", " C", " D"};

inline constexpr std::array<std::string_view, 11> Send = {"PRG", " 9", " 8", " 7", " 6", " 5",
                                                          " 4",  " 3", " 2", " 1", " 0"};
inline constexpr std::array<std::string_view, 5> Octave = {" +2", " +1", "  0", " -1", " -2"};
inline constexpr std::array<std::string_view, 4> OutStatus1 = {"OFF", "INT", "EXT", "BOTH"};
inline constexpr std::array<std::string_view, 3> OutStatus2 = {"PLAY", "MUTE", "SOLO"};
inline constexpr std::array<std::string_view, 13> WAround = {" 12", " 11", " 10", " 9", " 8", " 7",  " 6",
                                                             " 5",  " 4",  " 3",  " 2", " 1", " ORG"};

/// The effects by stored value.
inline constexpr std::array<std::string_view, 48> EffectsByValue = {
    "No Effect",    "Hall",          "Ensemble Hall", "Concert Hall",  "Room",          "Large Room",  "Live Stage",
    "Wet Plate",    "Dry Plate",     "Spring Reverb", "Early Ref 1",   "Early Ref 2",   "Early Ref 3", "Stereo Delay",
    "Cross Delay",  "Dual Delay",    "Multitap Dly1", "Multitap Dly2", "Multitap Dly3", "Chorus 1",    "Chorus 2",
    "Quad Chorus",  "XOver Chorus",  "Harmonic Cho.", "Symphonic Ens", "Flanger 1",     "Flanger 2",   "XOver Flanger",
    "Exciter",      "Enhancer",      "Distortion",    "Overdrive",     "Phaser 1",      "Phaser 2",    "Rotary Speaker",
    "Auto Pan",     "Tremolo",       "Equalizer",     "Chorus-Delay",  "Flanger-Delay", "Delay/Hall",  "Delay/Room",
    "Delay/Chorus", "Delay/Flanger", "Delay/Dist",    "Delay/Overdrv", "Delay/Phaser",  "Delay/Rotary"};

constexpr auto reversed(const std::array<std::string_view, 48>& rows)
{
    std::array<std::string_view, 48> result{};
    for (std::size_t i = 0; i < rows.size(); ++i)
        result[i] = rows[rows.size() - 1 - i];
    return result;
}

/// The effects as the list shows them: the highest value first.
inline constexpr std::array<std::string_view, 48> Effects = reversed(EffectsByValue);

} // namespace ArrLists

/// The row at a position; empty outside the list, so that no byte of a file can lead astray.
constexpr std::string_view rowOf(ArrList list, int position)
{
    return position >= 0 && position < static_cast<int>(list.size()) ? list[static_cast<std::size_t>(position)]
                                                                     : std::string_view{};
}
