// One arrangement of the instrument: 164 bytes, as a file stores them and as a dump carries them. And ArrEditBuf, the
// block under edit with what the program derived from its file. Offsets are 0-based bytes.
//
// The areas named Kept are never interpreted: they are carried through as found.
#pragma once

#include "core/Bytes.h"
#include "files/ArrLayout.h"

namespace ArrBlock
{

inline constexpr Field Name{0, 16}; ///< Latin-1, blank padded; byte 0 = 0 marks an unused record
inline constexpr Field Kept1{end(Name), 1};
inline constexpr Field StyleNumber{end(Kept1), 1};     ///< 0 to 127 factory, 0 to 15 user
inline constexpr Field StyleBank{end(StyleNumber), 1}; ///< 0 factory, 1 user
inline constexpr Field InitVar{end(StyleBank), 1};
inline constexpr Field Kept2{end(InitVar), 1};
inline constexpr Field Tempo{end(Kept2), 1}; ///< beats a minute less 30
inline constexpr Field KeyboardAssign{end(Tempo), 1};
inline constexpr Field SplitPoint{end(KeyboardAssign), 1}; ///< MIDI note
inline constexpr Field Ensemble{end(SplitPoint), 1};       ///< bit 7 the switch, bits 0 to 6 the type
inline constexpr Field Transpose{end(Ensemble), 1};        ///< signed byte, semitones
inline constexpr Field ManualDrumKit{end(Transpose), 1};
inline constexpr Field SwitchesA{end(ManualDrumKit), 1};
inline constexpr Field SwitchesB{end(SwitchesA), 1};
inline constexpr Field DDrumMap{end(SwitchesB), 4}; ///< one byte for each variation
inline constexpr Field Kick{end(DDrumMap), 1};
inline constexpr Field Snare{end(Kick), 1};
inline constexpr Field Kept3{end(Snare), 2};
inline constexpr Field Fill1{end(Kept3), 1};
inline constexpr Field Fill2{end(Fill1), 1};
inline constexpr Field Tracks{end(Fill2), ArrLayout::TrackCount* ArrLayout::TrackSize};
inline constexpr Field Kept4{end(Tracks), 24};
inline constexpr Field Effect1{end(Kept4), 1};
inline constexpr Field Effect2{end(Effect1), 1};
inline constexpr Field Kept5{end(Effect2), 27};
inline constexpr int Size = ArrLayout::RowSize;

static_assert(end(Kept5) == Size);
static_assert(StyleNumber.offset == ArrLayout::RowStyleNumberOffset);
static_assert(StyleBank.offset == ArrLayout::RowStyleBankOffset);
static_assert(Tracks.offset == ArrLayout::RowTracksOffset);

inline constexpr int FactoryBank = 0;
inline constexpr int UserBank = 1;

/// Track record 0 to 8 in the block, in the order Drum, Percussion, Bass, ACC1 to ACC3, UPPER1, UPPER2, LOWER.
constexpr Field track(int index) { return {Tracks.offset + index * ArrLayout::TrackSize, ArrLayout::TrackSize}; }

/// Offsets in a track record.
namespace Track
{
inline constexpr int ProgramNumber = 0; ///< 0 to 127
inline constexpr int ProgramBank = 1;   ///< see TrackBank
inline constexpr int Volume = 2;
inline constexpr int Pan = 3;
inline constexpr int Sends = 4; ///< low nibble C Send L, high nibble D Send L
inline constexpr int Octave = 5;
inline constexpr int Status = 6; ///< bits 0 and 1 Out Status1, bits 2 and 3 Out Status2
inline constexpr int WAround = 7;
static_assert(WAround + 1 == ArrLayout::TrackSize);
} // namespace Track

/// Program banks as a track record stores them.
namespace TrackBank
{
inline constexpr int AB = 0;
inline constexpr int CD = 1;
inline constexpr int E = 2;
inline constexpr int F = 3; ///< the user programs
inline constexpr int Drum = 4;
} // namespace TrackBank

/// Programs of one half of a bank: numbers from here on belong to bank B or D.
inline constexpr int HalfBank = 64;

} // namespace ArrBlock

/// ArrEditBuf: the block, then what ArrEditLoad derived. Nothing behind the block is stored in a file or sent.
namespace ArrEditLayout
{

inline constexpr Field Block{0, ArrBlock::Size};
inline constexpr Field StyleName{end(Block), 16};
inline constexpr Field TrackNames{end(StyleName), ArrLayout::TrackCount * 16};
inline constexpr int SourceKindOffset = end(TrackNames);       ///< WindowKind of the window it came from
inline constexpr int SourceIndexOffset = SourceKindOffset + 1; ///< row in that window, from 0
inline constexpr int SourceSlotOffset = SourceIndexOffset + 1; ///< number of that window, from 1
inline constexpr Field SourceStem{SourceSlotOffset + 3, 24};
inline constexpr int Size = end(SourceStem);
static_assert(SourceKindOffset == 324 && SourceStem.offset == 329 && Size == 353);

/// The derived program name of track 0 to 8; only read for a track of the user bank.
constexpr Field trackName(int index) { return {TrackNames.offset + index * 16, 16}; }

} // namespace ArrEditLayout
