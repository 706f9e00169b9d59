// The parameters of an arrangement, one row of a table each: where a value stands in the block, which bits are its own,
// how a byte that the instrument cannot mean is taken, and where the value stands in its list or scroll bar.
//
// Reading a block is walking the tables. An edit walks the same rows the other way: what a position stores, and the
// message by which the instrument hears of it.
#pragma once

#include "arrangements/ArrBlock.h"
#include "arrangements/ArrLists.h"

#include <algorithm>
#include <string_view>

namespace ArrRules
{

constexpr int asStored(int value) { return value; }

constexpr int tempoTaken(int value) { return value < 10 || value > 210 ? 10 : value; }
constexpr int tempoShown(int value) { return value + 30; }
constexpr int tempoStored(int position) { return position - 30; }
constexpr int splitTaken(int value) { return value < 36 || value > 96 ? 60 : value; }
// Required: a transposition that is neither 0 to 11 nor -11 to -1 shows as " +11", the first row, not as 0.
constexpr int transposeTaken(int value) { return value <= 11 || (value >= 245 && value <= 255) ? value : 11; }
constexpr int transposePosition(int value) { return value <= 11 ? 11 - value : 267 - value; }
constexpr int transposeStored(int position) { return position <= 11 ? 11 - position : 267 - position; }
// Required: the list has 16 kits and all can be chosen, but the instrument's second eight read back as " Dr18".
constexpr int drumKitTaken(int value) { return value > 7 ? 7 : value; }
constexpr int fillTaken(int value) { return value > 12 ? 12 : value; }
constexpr int effectTaken(int value) { return value > 47 ? 0 : value; }
constexpr int effectPosition(int value) { return 47 - value; }
constexpr int effectStored(int position) { return 47 - position; }

constexpr int volumeTaken(int value) { return value > 127 ? 100 : value; }
constexpr int PanOff = 255;
constexpr int panTaken(int value) { return value <= 31 || value == PanOff ? value : 15; }
constexpr int panPosition(int value) { return value == PanOff ? 1 : value + 2; }
constexpr int panStored(int position) { return position == 1 ? PanOff : position - 2; }
// Nibbles 11 to 15 give positions behind the list: the row is then empty.
constexpr int sendPosition(int value) { return (10 - value) & 15; }
constexpr int sendStored(int position) { return 10 - position; }
constexpr int octaveTaken(int value) { return value <= 2 || value == 254 || value == 255 ? value : 0; }
constexpr int octavePosition(int value) { return value <= 2 ? 2 - value : 258 - value; }
constexpr int octaveStored(int position) { return position <= 2 ? 2 - position : 258 - position; }
constexpr int statusTaken(int value) { return value > 11 ? 3 : value; }
// The fourth state of Out Status2 is none of its list: it shows no row, and stays until the user chooses one.
constexpr int NoOutStatus2 = 0x0C;
constexpr int status2Taken(int value) { return (value & NoOutStatus2) == NoOutStatus2 ? value : statusTaken(value); }
constexpr int wAroundTaken(int value) { return value <= 11 || value == 255 ? value : 11; }
constexpr int wAroundPosition(int value) { return value == 255 ? 12 : 11 - value; }
constexpr int wAroundStored(int position) { return position == 12 ? 255 : 11 - position; }

/// The instrument takes the stored values 245 to 255 as negative numbers and OFF: their message says so.
constexpr int negativeFlag(int value) { return value >= 245 && value <= 255 ? 1 : 0; }

} // namespace ArrRules

/// From a byte to a byte (taking values out of range), from a field's bits to the position shown, or back.
using ArrRule = int (*)(int);

struct ArrParameter {
    static constexpr int NeverSent = -1;
    static constexpr int AllPositions = 256; ///< no position is silent

    std::string_view caption;
    int offset = 0;  ///< of its byte, in the block or in the track record
    int mask = 0xFF; ///< its bits of that byte
    ArrList list;    ///< rows shown; empty for a scroll bar or check mark
    int low = 0;     ///< lowest and highest position of its control
    int high = 0;
    ArrRule taken;    ///< the whole byte as it is taken: what is out of range is replaced
    ArrRule position; ///< from its own bits, shifted down, to the position shown

    // The other direction: what a position chosen by the user writes and sends.
    ArrRule stored = ArrRules::asStored; ///< the inverse of `position`
    int message = NeverSent;             ///< number of its parameter message; of track 0 for a track's parameter
    bool sentAsShown = false;            ///< the message carries the position, and goes out before the byte is written
    int silentFrom = AllPositions;       ///< positions from here on are written and not sent
    unsigned silentTracks = 0;           ///< bit k: written and not sent for track k
    bool kept = false;                   ///< shown, and never written by the editor
    bool onlySent = false;               ///< no byte of the block holds it: the instrument alone has it

    /// The same row with another value in one place.
    template <typename Value>
    constexpr ArrParameter with(Value ArrParameter::*member, Value value) const
    {
        ArrParameter changed = *this;
        changed.*member = value;
        return changed;
    }
    constexpr ArrParameter storedBy(ArrRule rule) const { return with(&ArrParameter::stored, rule); }
    constexpr ArrParameter sentAs(int number) const { return with(&ArrParameter::message, number); }
    constexpr ArrParameter sendingWhatIsShown() const { return with(&ArrParameter::sentAsShown, true); }
    constexpr ArrParameter silentFromPosition(int first) const { return with(&ArrParameter::silentFrom, first); }
    constexpr ArrParameter silentOn(unsigned tracks) const { return with(&ArrParameter::silentTracks, tracks); }
    constexpr ArrParameter notHeld() const { return with(&ArrParameter::onlySent, true); }
    constexpr ArrParameter neverWritten() const { return with(&ArrParameter::kept, true); }
};

/// The general part, in the order of the block, then what the block does not hold.
enum class ArrGeneral {
    InitVar,
    Tempo,
    KeyboardAssign,
    SplitPoint,
    EnsembleType,
    EnsembleSwitch,
    Transpose,
    ManualDrumKit,
    DynamicVelocity,
    TempoLock,
    Kbd1DampEn,
    Kbd2DampEn,
    ChordScanLow,
    ChordScanHigh,
    BassInversion,
    ChordHold,
    ChordLatch,
    DDrumMap1,
    DDrumMap2,
    DDrumMap3,
    DDrumMap4,
    Kick,
    Snare,
    Fill1,
    Fill2,
    Effect1,
    Effect2,
    EffectSwitch1,
    EffectSwitch2,
    Count
};

namespace ArrTables
{

constexpr int positions(ArrList list) { return static_cast<int>(list.size()) - 1; }

constexpr ArrParameter listed(std::string_view caption, Field field, ArrList list, ArrRule taken = ArrRules::asStored,
                              ArrRule position = ArrRules::asStored)
{
    return {caption, field.offset, 0xFF, list, 0, positions(list), taken, position};
}

constexpr ArrParameter ranged(std::string_view caption, int offset, int low, int high,
                              ArrRule taken = ArrRules::asStored, ArrRule position = ArrRules::asStored)
{
    return {caption, offset, 0xFF, {}, low, high, taken, position};
}

constexpr ArrParameter bit(std::string_view caption, Field field, int number)
{
    return {caption, field.offset, 1 << number, {}, 0, 1, ArrRules::asStored, ArrRules::asStored};
}

constexpr ArrParameter bits(std::string_view caption, int offset, int mask, ArrList list, ArrRule taken,
                            ArrRule position)
{
    return {caption, offset, mask, list, 0, positions(list), taken, position};
}

using namespace ArrRules;

inline constexpr std::array General = {
    listed("Init. Var.", ArrBlock::InitVar, ArrLists::InitVar),
    ranged("Tempo", ArrBlock::Tempo.offset, 40, 240, tempoTaken, tempoShown)
        .storedBy(tempoStored)
        .sentAs(0)
        .sendingWhatIsShown(),
    listed("Keyboard Assign", ArrBlock::KeyboardAssign, ArrLists::KeyboardAssign),
    ranged("Split Point", ArrBlock::SplitPoint.offset, 36, 96, splitTaken).sentAs(2),
    bits("Ensemble", ArrBlock::Ensemble.offset, 0x7F, ArrLists::EnsembleType, asStored, asStored),
    bit("Sw", ArrBlock::Ensemble, 7),
    listed("Transpose", ArrBlock::Transpose, ArrLists::Transpose, transposeTaken, transposePosition)
        .storedBy(transposeStored)
        .sentAs(3),
    listed("Manual drum kit", ArrBlock::ManualDrumKit, ArrLists::ManualDrumKit, drumKitTaken),
    bit("Dynamic Velocity", ArrBlock::SwitchesA, 0),
    bit("Tempo Lock", ArrBlock::SwitchesA, 1),
    bit("KBD1 Damp En", ArrBlock::SwitchesA, 2).sentAs(79),
    bit("KBD2 Damp En", ArrBlock::SwitchesA, 3).sentAs(89),
    bit("Chord Scan Low", ArrBlock::SwitchesB, 0),
    bit("Chord Scan High", ArrBlock::SwitchesB, 1),
    bit("Bass Inversion", ArrBlock::SwitchesB, 2),
    bit("Chord Hold", ArrBlock::SwitchesB, 3),
    bit("Chord Latch", ArrBlock::SwitchesB, 4).sentAs(1),
    ranged("DDrumMap", ArrBlock::DDrumMap.offset, 1, 8),
    ranged("DDrumMap", ArrBlock::DDrumMap.offset + 1, 1, 8),
    ranged("DDrumMap", ArrBlock::DDrumMap.offset + 2, 1, 8),
    ranged("DDrumMap", ArrBlock::DDrumMap.offset + 3, 1, 8),
    listed("Kick Designation", ArrBlock::Kick, ArrLists::Designation).neverWritten(),
    listed("Snare Designation", ArrBlock::Snare, ArrLists::Designation).neverWritten(),
    listed("Fill 1", ArrBlock::Fill1, ArrLists::Fill, fillTaken).sentAs(4),
    listed("Fill 2", ArrBlock::Fill2, ArrLists::Fill, fillTaken).sentAs(5),
    listed("Effect 1", ArrBlock::Effect1, ArrLists::Effects, effectTaken, effectPosition)
        .storedBy(effectStored)
        .sentAs(6),
    listed("Effect 2", ArrBlock::Effect2, ArrLists::Effects, effectTaken, effectPosition)
        .storedBy(effectStored)
        .sentAs(8),
    ranged("Effect 1 On/Off", ArrBlock::Effect1.offset, 0, 1).sentAs(7).notHeld(),
    ranged("Effect 2 On/Off", ArrBlock::Effect2.offset, 0, 1).sentAs(9).notHeld(),
};
static_assert(General.size() == static_cast<std::size_t>(ArrGeneral::Count));

} // namespace ArrTables

/// A track's part, by its controls.
enum class ArrTrack { Volume, Pan, SendC, SendD, Octave, OutStatus1, OutStatus2, WAround, Count };

namespace ArrTables
{

using namespace ArrBlock;

// What the instrument does not take while it plays, although it keeps it in the arrangement.
inline constexpr unsigned Rhythm = 0b0'0000'0011;         ///< Drum and Percussion
inline constexpr unsigned SecondKeyboard = 0b1'1000'0000; ///< UPPER2 and LOWER
inline constexpr int Solo = 2;                            ///< position of "SOLO": the instrument hears of mutes alone

inline constexpr std::array TrackRows = {
    ranged("Volume", Track::Volume, 0, 127, volumeTaken).sentAs(11),
    ranged("Pan", Track::Pan, 1, 33, panTaken, panPosition).storedBy(panStored).sentAs(12),
    bits("C Send L", Track::Sends, 0x0F, ArrLists::Send, asStored, sendPosition).storedBy(sendStored).sentAs(13),
    bits("D Send L", Track::Sends, 0xF0, ArrLists::Send, asStored, sendPosition).storedBy(sendStored).sentAs(14),
    bits("Octave", Track::Octave, 0xFF, ArrLists::Octave, octaveTaken, octavePosition)
        .storedBy(octaveStored)
        .sentAs(16)
        .silentOn(Rhythm),
    bits("Out Status1", Track::Status, 0x03, ArrLists::OutStatus1, statusTaken, asStored)
        .sentAs(17)
        .silentOn(SecondKeyboard),
    bits("Out Status2", Track::Status, 0x0C, ArrLists::OutStatus2, status2Taken, asStored)
        .sentAs(15)
        .silentFromPosition(Solo),
    bits("W-Around", Track::WAround, 0xFF, ArrLists::WAround, wAroundTaken, wAroundPosition)
        .storedBy(wAroundStored)
        .sentAs(18)
        .silentOn(Rhythm | SecondKeyboard),
};
static_assert(TrackRows.size() == static_cast<std::size_t>(ArrTrack::Count));

} // namespace ArrTables

/// Every position that the control offers reads back as itself once it is stored.
constexpr bool readsBack(const ArrParameter& row)
{
    for (int position = row.low; position <= row.high; ++position)
        if (row.position(row.stored(position)) != position)
            return false;
    return true;
}
static_assert(std::all_of(ArrTables::General.begin(), ArrTables::General.end(), readsBack));
static_assert(std::all_of(ArrTables::TrackRows.begin(), ArrTables::TrackRows.end(), readsBack));

constexpr const ArrParameter& arrParameter(ArrGeneral which)
{
    return ArrTables::General[static_cast<std::size_t>(which)];
}
constexpr const ArrParameter& arrParameter(ArrTrack which)
{
    return ArrTables::TrackRows[static_cast<std::size_t>(which)];
}

/// The message of a track's parameter, for track 0 to 8.
constexpr int arrMessage(ArrTrack which, int track) { return arrParameter(which).message + 10 * track; }

/// What the parameter's control shows: a list position from 0, a scroll bar's value, or 0 and 1 for a check mark. It
/// may lie outside the list where the rules keep no guard. For a parameter that the block does not hold it is the
/// highest: the editor opens with the effects on.
int arrPosition(std::string_view block, ArrGeneral which);
int arrPosition(std::string_view block, int track, ArrTrack which);

/// The row of the parameter's list that its position stands on; empty without one.
std::string_view arrRow(std::string_view block, ArrGeneral which);
std::string_view arrRow(std::string_view block, int track, ArrTrack which);
