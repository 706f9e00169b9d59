// An edit of the arrangement while the instrument plays: which field of the block each control of the editor shows, and
// what a new position of it does. The byte in ArrEditBuf changes, its own bits alone, and the instrument hears of it by
// one message where it takes the parameter while it plays.
#pragma once

#include "arrangements/ArrParameters.h"

#include <array>

namespace EditFields
{

/// A track as the editor names it: its frame's name, its caption on the instrument's panel.
struct TrackName {
    const char* frame;
    const char* caption;
};

inline constexpr std::array<TrackName, ArrLayout::TrackCount> Tracks = {{{"Drum", "Drum"},
                                                                         {"Percussion", "Percussion"},
                                                                         {"FrBass", "Bass"},
                                                                         {"FrAcc1", "ACC1"},
                                                                         {"FrACC2", "ACC2"},
                                                                         {"FrACC3", "ACC3"},
                                                                         {"UPPER1", "UPPER1"},
                                                                         {"UPPER2", "UPPER2"},
                                                                         {"LOWER", "LOWER"}}};
inline constexpr int TracksOnFirstPage = 3;

/// The place of Combo1 that chooses the variation whose DDrumMap is shown. It shows no field of its own.
inline constexpr int VariationSelector = 5;

/// The fields of Combo1, Check1, EffCombo, EffComm by index.
inline constexpr std::array Combo1 = {ArrGeneral::KeyboardAssign, ArrGeneral::Fill1,     ArrGeneral::Fill2,
                                      ArrGeneral::InitVar,        ArrGeneral::Transpose, ArrGeneral::Count,
                                      ArrGeneral::Kick,           ArrGeneral::Snare,     ArrGeneral::EnsembleType,
                                      ArrGeneral::ManualDrumKit};
static_assert(Combo1[VariationSelector] == ArrGeneral::Count);
inline constexpr std::array Check1 = {ArrGeneral::DynamicVelocity, ArrGeneral::TempoLock,    ArrGeneral::Kbd1DampEn,
                                      ArrGeneral::Kbd2DampEn,      ArrGeneral::ChordScanLow, ArrGeneral::ChordScanHigh,
                                      ArrGeneral::BassInversion,   ArrGeneral::ChordHold,    ArrGeneral::ChordLatch,
                                      ArrGeneral::EnsembleSwitch};
inline constexpr std::array EffCombo = {ArrGeneral::Effect1, ArrGeneral::Effect2};
inline constexpr std::array EffComm = {ArrGeneral::EffectSwitch1, ArrGeneral::EffectSwitch2};

/// The lists of a track, Combo2(6k) to Combo2(6k + 5).
inline constexpr std::array Combo2 = {ArrTrack::SendC,      ArrTrack::SendD,      ArrTrack::Octave,
                                      ArrTrack::OutStatus1, ArrTrack::OutStatus2, ArrTrack::WAround};

/// The DDrumMap field of variation 0 to 3.
constexpr ArrGeneral dDrumMap(int variation)
{
    return static_cast<ArrGeneral>(static_cast<int>(ArrGeneral::DDrumMap1) + variation);
}

/// Fields of Text1: the name, the style, and from TrackText on a program's name and its label for each track.
inline constexpr int NameText = 0;
inline constexpr int StyleText = 1;
inline constexpr int TrackText = 2;
inline constexpr int TextCount = TrackText + 2 * ArrLayout::TrackCount;
/// Fields that can be highlighted: the last one is a label, which cannot.
inline constexpr int SelectableCount = TextCount - 1;

constexpr bool isProgramLabel(int text) { return text > TrackText && (text - TrackText) % 2 == 1; }
/// The track of a program's field or label, 0 to 8; negative for the name and the style.
constexpr int trackOfText(int text) { return text < TrackText ? -1 : (text - TrackText) / 2; }

/// Of the name, only these bytes are ever written.
inline constexpr Field WrittenName{ArrBlock::Name.offset, 10};

} // namespace EditFields

/// Takes a position that the user chose: ArrEditBuf is dirty, the field's own bits change, the message goes out.
/// `control` is the index of the control that changed. Nothing at all happens for a position that the field does not
/// have, and for a field that the editor only shows; what the block does not hold is sent alone.
void arrEdit(ArrGeneral which, int position, int control);
void arrEdit(int track, ArrTrack which, int position, int control);

/// Takes a typed name, Latin-1: its first ten bytes. ArrEditBuf is dirty, the row's text is to change with it.
void arrEditName(std::string_view name);

/// Takes a program for a track, a style: bytes of the block, name of 16 bytes at most. Nothing is sent.
void arrEditProgram(int track, int number, int bank, std::string_view name);
void arrEditStyle(int number, int bank, std::string_view name);
