// The rows of the global window's lists. The words are those of the instrument's panel and the same in both languages.
#pragma once

#include <array>
#include <span>
#include <string_view>

/// A list's rows from position 0; a control that shows a number has none.
using GblList = std::span<const std::string_view>;

namespace GblLists
{

inline constexpr std::array<std::string_view, 5> OctaveUpper = {" U+2", " U+1", " U+0", " U-1", " U-2"};
// Required: the third row reads "U" here too, as on the instrument.
inline constexpr std::array<std::string_view, 5> OctaveLower = {" L+2", " L+1", " U+0", " L-1", " L-2"};
inline constexpr std::array<std::string_view, 8> Curve = {" 1", " 2", " 3", " 4", " 5", " 6", " 7", " 8"};
inline constexpr std::array<std::string_view, 2> Joystick = {" PRG", " DIS"};
inline constexpr std::array<std::string_view, 3> EchoBack = {" OFF", " IN 1", " IN 2"};
inline constexpr std::array<std::string_view, 3> ChordRecognition = {"Fingered1", "Fingered2", "One Finger"};

inline constexpr std::array<std::string_view, 24> ScaleType = {
    "EQUAL TEMP",   "EQUAL TEMP 2",  "PURE MAJOR",    "PURE MINOR",    "ARABIC",        "PYTHAGOREAN",
    "WERKMEISTER",  "KIRNBERGER",    "SLENDRO",       "PELOG",         "USER SCALE 1",  "USER SCALE 2",
    "USER SCALE 3", "USER SCALE 4",  "USER SCALE 5",  "USER SCALE 6",  "USER SCALE 7",  "USER SCALE 8",
    "USER SCALE 9", "USER SCALE 10", "USER SCALE 11", "USER SCALE 12", "USER SCALE 13", "USER SCALE 14"};
inline constexpr std::array<std::string_view, 12> ScaleKey = {" C",  " C#", " D",  " D#", " E",  " F",
                                                              " F#", " G",  " G#", " A",  " A#", " B"};

/// In the order of the table of function codes.
inline constexpr std::array<std::string_view, 52> Function = {"OFF",
                                                              "START/STOP",
                                                              "SYNC START",
                                                              "SYNC STOP",
                                                              "RESET",
                                                              "TAP TEMPO",
                                                              "TEMPO LOCK",
                                                              "INTRO/ENDING 1",
                                                              "INTRO/ENDING 2",
                                                              "FILL 1",
                                                              "FILL 2",
                                                              "VARIATION 1",
                                                              "VARIATION 2",
                                                              "VARIATION 3",
                                                              "VARIATION 4",
                                                              "CHORD MEMORY",
                                                              "BASS INVERSION",
                                                              "SCALE CHANGE",
                                                              "ARR/STY UP",
                                                              "ARR/STY DOWN",
                                                              "PROGRAM UP",
                                                              "PROGRAM DOWN",
                                                              "VARIATION UP",
                                                              "VARIATION DOWN",
                                                              "PUNCH IN/OUT",
                                                              "EFFECT 1 ON/OFF",
                                                              "EFFECT 2 ON/OFF",
                                                              "DRUM MUTE",
                                                              "PERC MUTE",
                                                              "BASS MUTE",
                                                              "ACC1 MUTE",
                                                              "ACC2 MUTE",
                                                              "ACC3 MUTE",
                                                              "LOW HARM MEMORY",
                                                              "SUSTAIN ON/OFF",
                                                              "FADE IN/OUT",
                                                              "ENSEMBLE ON/OFF",
                                                              "QUARTER TONE",
                                                              "DAMPER ON/OFF",
                                                              "CHORD LATCH ON/OFF",
                                                              "ACC1-3 MUTE",
                                                              "LOW/UP1/UP2 MUTE",
                                                              "KEYBOARD SET UP",
                                                              "KEYBOARD SET DOWN",
                                                              "C BUTTON ON/OFF",
                                                              "KB VOLUME",
                                                              "MASTER VOLUME",
                                                              "EXPRESSION",
                                                              "VDF CUTOFF",
                                                              "EFFECT CONTROL",
                                                              "DATA ENTRY",
                                                              "A/B FADER"};

inline constexpr std::array<std::string_view, 7> HarmonyOctave = {" 3", " 2", " 1", " 0", " -1", " -2", " -3"};
inline constexpr std::array<std::string_view, 17> ChannelArr = {
    " OFF", " 1", " 2", " 3", " 4", " 5", " 6", " 7", " 8", " 9", " 10", " 11", " 12", " 13", " 14", " 15", " 16"};
inline constexpr std::array<std::string_view, 17> Track = {" OFF",  " DRUM", " PERC",    " BASS", " ACC1", " ACC2",
                                                           " ACC3", " UP1",  " LOW/UP2", " ETr1", " ETr2", " ETr3",
                                                           " ETr4", " ETr5", " ETr6",    " ETr7", " ETr8"};
inline constexpr std::array<std::string_view, 34> ChannelSong = {
    " OFF",       " MIDI Ch01", " MIDI Ch02", " MIDI Ch03", " MIDI Ch04", " MIDI Ch05", " MIDI Ch06",
    " MIDI Ch07", " MIDI Ch08", " MIDI Ch09", " MIDI Ch10", " MIDI Ch11", " MIDI Ch12", " MIDI Ch13",
    " MIDI Ch14", " MIDI Ch15", " MIDI Ch16", " Song Ch01", " Song Ch02", " Song Ch03", " Song Ch04",
    " Song Ch05", " Song Ch06", " Song Ch07", " Song Ch08", " Song Ch09", " Song Ch10", " Song Ch11",
    " Song Ch12", " Song Ch13", " Song Ch14", " Song Ch15", " Song Ch16", " Keyboard"};
inline constexpr std::array<std::string_view, 16> Channel = {" 1", " 2",  " 3",  " 4",  " 5",  " 6",  " 7",  " 8",
                                                             " 9", " 10", " 11", " 12", " 13", " 14", " 15", " 16"};

} // namespace GblLists
