// The parameters of the global block, one row of a table each: where a value stands, which bits it is read from, where
// it stands in its list or slider, and what a position chosen by the user writes.
//
// The files come from instruments and from other programs, so the reading rules meet every byte; what no rule gives a
// place has a position outside the list, and the list then shows no choice.
#pragma once

#include "global/GblBlock.h"
#include "global/GblLists.h"

#include <algorithm>

namespace GblRules
{

constexpr int asStored(int value) { return value; }

/// Bytes above `Last` show as 0.
template <int Last>
constexpr int upTo(int value)
{
    return value <= Last ? value : 0;
}

constexpr int MostCents = 50;
constexpr int FirstNegative = 206; ///< two's complement of -50
constexpr int signedStored(int position) { return position < 0 ? position + 256 : position; }
template <int MostRead>
constexpr int signedShown(int value)
{
    return value <= MostRead ? value : value >= FirstNegative ? value - 256 : 0;
}
// Required: the slider goes up to 50 and stores it, but a master tune above 32 reads as 0.
constexpr int tuneShown(int value) { return signedShown<32>(value); }
constexpr int centsShown(int value) { return signedShown<MostCents>(value); }

// Required: 14 and 15, which the last two rows of the list write, have no position when they are read again, and
// neither have 3 to 13.
constexpr int octaveUpperShown(int nibble) { return nibble < 14 ? 2 - nibble : 258 - nibble; }
constexpr int octaveStored(int position) { return position <= 2 ? 2 - position : 258 - position; }

constexpr int harmonyOctaveShown(int value) { return value >= 253 ? 259 - value : 3 - std::min(value, 3); }
constexpr int harmonyOctaveStored(int position) { return position <= 3 ? 3 - position : 259 - position; }

constexpr int ChannelOff = 255;
/// Of a list whose first row is OFF.
template <int LastChannel>
constexpr int channelShown(int value)
{
    return value > LastChannel ? 0 : value + 1; // OFF is above all channels too
}
constexpr int channelStored(int position) { return position == 0 ? ChannelOff : position - 1; }

constexpr int LowestHigh = 11; ///< of the upper end of the harmony's range
constexpr int rangeHighShown(int value) { return value < LowestHigh || value > 127 ? 127 : value; }

/// By the table of function codes.
int functionShown(int code);
int functionStored(int position);

} // namespace GblRules

/// From a field's own bits to the position shown, or back.
using GblRule = int (*)(int);

struct GblParameter {
    static constexpr int WholeByte = 0xFF;

    std::string_view caption;
    Field field;          ///< its byte, or a run of bytes with one value each
    int mask = WholeByte; ///< bits that the value is read from
    GblList list;         ///< rows shown; empty for a slider or check mark
    int low = 0;          ///< lowest and highest position of its control
    int high = 0;
    GblRule shown = GblRules::asStored;
    GblRule stored = GblRules::asStored;
    int written = WholeByte; ///< bits that an edit replaces
    bool kept = false;       ///< an edit writes nothing, and yet marks and sends

    /// The same row with another value in one place.
    template <typename Value>
    constexpr GblParameter with(Value GblParameter::*member, Value value) const
    {
        GblParameter changed = *this;
        changed.*member = value;
        return changed;
    }
    constexpr GblParameter reading(GblRule rule) const { return with(&GblParameter::shown, rule); }
    constexpr GblParameter storing(GblRule rule) const { return with(&GblParameter::stored, rule); }
    constexpr GblParameter readFromBits(int bits) const { return with(&GblParameter::mask, bits); }
    constexpr GblParameter ownBits(int bits) const
    {
        return with(&GblParameter::mask, bits).with(&GblParameter::written, bits);
    }
    constexpr GblParameter neverWritten() const { return with(&GblParameter::kept, true); }
};

/// The rows of the table, in their order.
enum class GblField {
    MasterTune,
    OctaveUpper,
    OctaveLower,
    VelocityCurve,
    AfterTouchCurve,
    Velocity,
    AutoChordScan,
    TransposeLock,
    VocGtrLock,
    JsLow,
    JsUp1,
    JsUp2,
    EchoBack,
    ChordRecognition,
    MainScaleType,
    SubScaleType,
    MainScaleKey,
    SubScaleKey,
    DamperPolarity,
    AssignablePedal,
    ExtControllerA,
    ExtControllerB,
    ExtControllerC,
    ExtControllerD,
    ExtControllerE,
    UserScale, ///< 48 values: four scales of twelve notes
    HarmonyOctave,
    HarmonyChannelArr,
    HarmonyTrack,
    HarmonyChannelSong,
    HarmonyToneGenerator,
    HarmonyRangeLow,
    HarmonyRangeHigh,
    Count
};

namespace GblTable
{

constexpr GblParameter listed(std::string_view caption, Field field, GblList list)
{
    return {.caption = caption, .field = field, .list = list, .high = static_cast<int>(list.size()) - 1};
}
constexpr GblParameter ranged(std::string_view caption, Field field, int low, int high)
{
    return {.caption = caption, .field = field, .list = {}, .low = low, .high = high};
}
constexpr GblParameter bit(std::string_view caption, Field field, int number)
{
    return ranged(caption, field, 0, 1).ownBits(1 << number);
}
constexpr GblParameter function(std::string_view caption, Field field, int index = 0)
{
    return listed(caption, {field.offset + index, 1}, GblLists::Function)
        .reading(GblRules::functionShown)
        .storing(GblRules::functionStored);
}

using namespace GblRules;
using namespace GblBlock;

constexpr int LowNibble = 0x0F;
constexpr int HighNibble = 0xF0;

inline constexpr std::array Rows = {
    ranged("Master Tune", MasterTune, -MostCents, MostCents).reading(tuneShown).storing(signedStored),
    // Required: the upper octave is written over the whole byte, and the lower octave's nibble with it.
    listed("Octave Upper", Octaves, GblLists::OctaveUpper)
        .readFromBits(LowNibble)
        .reading(octaveUpperShown)
        .storing(octaveStored),
    // Required: the lower octave reads its nibble as the list position and writes it as the upper octave does: they
    // differ. What " L-1" and " L-2" would write does not fit the nibble and is refused.
    listed("Octave Lower", Octaves, GblLists::OctaveLower).ownBits(HighNibble).storing(octaveStored),
    // Required: the instrument takes the curves with the block but they are shown only. A choice of another curve marks
    // the block and sends it as it was.
    listed("Velocity Curve", VelocityCurve, GblLists::Curve).reading(upTo<7>).neverWritten(),
    listed("After Touch Curve", AfterTouchCurve, GblLists::Curve).reading(upTo<7>).neverWritten(),
    ranged("Velocity", Velocity, 0, 127).reading(upTo<127>),
    // Required: this mark is written over its whole byte, the others over their bit.
    ranged("Auto Chord Scan", AutoChordScan, 0, 1).readFromBits(1),
    bit("Transpose Lock", Locks, 1),
    bit("Voc/Gtr Lock", Locks, 0),
    listed("JS x LOW", PlayFlags, GblLists::Joystick).ownBits(1 << 3),
    listed("JS x UP1", PlayFlags, GblLists::Joystick).ownBits(1 << 4),
    listed("JS x UP2", PlayFlags, GblLists::Joystick).ownBits(1 << 5),
    listed("Echo Back", PlayFlags, GblLists::EchoBack).ownBits(0xC0),
    // Required: read from two bits, written over the whole byte.
    listed("Chord Recognition", ChordRecognition, GblLists::ChordRecognition).readFromBits(3).reading(upTo<2>),
    listed("Main Scale Type", MainScaleType, GblLists::ScaleType).reading(upTo<23>),
    listed("Sub Scale Type", SubScaleType, GblLists::ScaleType).reading(upTo<23>),
    listed("Main Scale Key", MainScaleKey, GblLists::ScaleKey).reading(upTo<11>),
    listed("Sub Scale Key", SubScaleKey, GblLists::ScaleKey).reading(upTo<11>),
    bit("Damper Polarity", PlayFlags, 0),
    function("Assignable Pedal", AssignablePedal),
    function("Ext. Controller A", ExtControllers, 0),
    function("Ext. Controller B", ExtControllers, 1),
    function("Ext. Controller C", ExtControllers, 2),
    function("Ext. Controller D", ExtControllers, 3),
    function("Ext. Controller E", ExtControllers, 4),
    ranged("User Scale", UserScales, -MostCents, MostCents).reading(centsShown).storing(signedStored),
    listed("Octave", HarmonyOctave, GblLists::HarmonyOctave).reading(harmonyOctaveShown).storing(harmonyOctaveStored),
    listed("Channel (Arr)", HarmonyChannelArr, GblLists::ChannelArr).reading(channelShown<15>).storing(channelStored),
    listed("Track", HarmonyTrack, GblLists::Track).reading(upTo<16>),
    listed("Channel (Song Play)", HarmonyChannelSong, GblLists::ChannelSong)
        .reading(channelShown<32>)
        .storing(channelStored),
    bit("TG (Song Play)", HarmonyToneGenerator, 0),
    ranged("Range L(Arr)", HarmonyRangeLow, 0, 116).reading(upTo<116>),
    ranged("Range H(Arr)", HarmonyRangeHigh, LowestHigh, 127).reading(rangeHighShown),
};
static_assert(Rows.size() == static_cast<std::size_t>(GblField::Count));

} // namespace GblTable

constexpr const GblParameter& gblParameter(GblField which) { return GblTable::Rows[static_cast<std::size_t>(which)]; }

/// What the parameter's control shows of a block: a list position from 0, a slider's value, 0 and 1 for a mark. It lies
/// outside the list where no rule gives the byte a place. `index` counts within a run of values.
int gblPosition(std::string_view block, GblField which, int index = 0);

/// Writes a position into the block: the bits of its row and no other. False, with the block as it was, for a position
/// that the control does not have and for one whose value does not fit its bits.
[[nodiscard]] bool gblWrite(ByteBuffer& block, GblField which, int position, int index = 0);
