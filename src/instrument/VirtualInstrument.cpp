// Running state: channel messages, and what the instrument answers about itself. Frames are in InstrumentFrames.cpp.
#include "instrument/VirtualInstrument.h"

#include "core/NameTables.h"
#include "core/Strings.h"
#include "core/Words.h"
#include "files/ArrLayout.h"
#include "files/PrgLayout.h"
#include "files/StyLayout.h"
#include "instrument/InstrumentWords.h"
#include "midi/DeviceModes.h"

#include <algorithm>
#include <numeric>

using InstrumentWords::filledIn;
using InstrumentWords::noteName;

namespace
{

constexpr int NoteOff = 0x80;
constexpr int NoteOn = 0x90;
constexpr int PolyPressure = 0xA0;
constexpr int Controller = 0xB0;
constexpr int ProgramChange = 0xC0;
constexpr int ChannelPressure = 0xD0;
constexpr int PitchBend = 0xE0;

constexpr int BankMsbController = 0;
constexpr int BankLsbController = 32;
constexpr int AllSoundOff = 120;
constexpr int ResetControllers = 121;
constexpr int AllNotesOff = 123; ///< 124 to 127 change a mode of the channel and silence it as well

constexpr int UserArrangementBank = 1; ///< bank select low byte on the global channel
constexpr int UserProgramBank = 3;     ///< bank select low byte on any other
constexpr int FactoryProgramBanks = 3; ///< low bytes 0 to 2, two blocks of 64 names each

std::size_t placeOf(int index) { return static_cast<std::size_t>(index); }

std::string number(int value) { return std::to_string(value); }

std::string channelNumber(int channel) { return number(channel + 1); }

std::string bankText(int msb, int lsb) { return (msb < 0 ? "-" : number(msb)) + "/" + (lsb < 0 ? "-" : number(lsb)); }

} // namespace

ChannelState::ChannelState() { controllers.fill(-1); }

VirtualInstrument::VirtualInstrument() : decoder_([this](const StreamDecoder::Message& message) { hear(message); }) {}

void VirtualInstrument::take(std::string_view bytes)
{
    byteCount_ += static_cast<std::int64_t>(bytes.size());
    decoder_.feed(bytes);
    if (!changed_)
        return;
    changed_ = false;
    if (onChange)
        onChange();
}

void VirtualInstrument::hear(const StreamDecoder::Message& message)
{
    switch (message.kind) {
    case MessageKind::Channel:
        takeChannelMessage(message.bytes);
        break;
    case MessageKind::SysEx:
        takeFrame(message.bytes);
        break;
    case MessageKind::System:
        ++messageCount_;
        note(message.bytes, filledIn(Words::InstSystem, {InstrumentWords::hexHead(message.bytes)}));
        break;
    case MessageKind::RealTime:
        break;
    case MessageKind::Malformed:
        count(message.fault, message.bytes);
        break;
    }
}

void VirtualInstrument::takeChannelMessage(std::string_view bytes)
{
    ++messageCount_;
    const int status = byteAt(bytes, 0);
    const int channelIndex = status & 0x0F;
    const int data1 = byteAt(bytes, 1);
    const int data2 = byteAt(bytes, 2);
    const std::string shown = channelNumber(channelIndex);
    ChannelState& state = channels_[placeOf(channelIndex)];
    state.used = true;
    switch (status & 0xF0) {
    case NoteOff:
    case NoteOn: {
        const int velocity = (status & 0xF0) == NoteOn ? data2 : 0;
        state.velocities[placeOf(data1)] = velocity;
        note(bytes, velocity > 0 ? filledIn(Words::InstNoteOn, {shown, noteName(data1), number(velocity)})
                                 : filledIn(Words::InstNoteOff, {shown, noteName(data1)}));
        break;
    }
    case PolyPressure:
        note(bytes, filledIn(Words::InstPolyPressure, {shown, noteName(data1), number(data2)}));
        break;
    case Controller:
        note(bytes, takeController(channelIndex, data1, data2));
        break;
    case ProgramChange:
        note(bytes, takeProgramChange(channelIndex, data1));
        break;
    case ChannelPressure:
        state.pressure = data1;
        note(bytes, filledIn(Words::InstPressure, {shown, number(data1)}));
        break;
    case PitchBend:
        state.pitchBend = data2 << 7 | data1;
        note(bytes, filledIn(Words::InstPitchBend, {shown, number(state.pitchBend)}));
        break;
    default:
        break;
    }
}

std::string VirtualInstrument::takeController(int channelIndex, int controller, int value)
{
    ChannelState& state = channels_[placeOf(channelIndex)];
    const std::string shown = channelNumber(channelIndex);
    state.controllers[placeOf(controller)] = value;
    if (controller == BankMsbController) {
        state.bankMsb = value;
        return filledIn(Words::InstBankMsb, {shown, number(value)});
    }
    if (controller == BankLsbController) {
        state.bankLsb = value;
        return filledIn(Words::InstBankLsb, {shown, number(value)});
    }
    if (controller == ResetControllers) {
        state.controllers.fill(-1);
        state.pitchBend = -1;
        state.pressure = -1;
    }
    if (controller == AllSoundOff || controller >= AllNotesOff) {
        state.velocities.fill(0);
        return filledIn(Words::InstAllNotesOff, {shown});
    }
    return filledIn(Words::InstController, {shown, number(controller), number(value)});
}

std::string VirtualInstrument::takeProgramChange(int channelIndex, int program)
{
    ChannelState& state = channels_[placeOf(channelIndex)];
    state.program = program;
    state.programMsb = state.bankMsb;
    state.programLsb = state.bankLsb;
    const std::string bank = bankText(state.programMsb, state.programLsb);
    const std::string name =
        channelIndex == globalChannel_ ? selectedArrangementName() : selectedProgramName(channelIndex);
    if (name.empty())
        return filledIn(Words::InstProgramChange, {channelNumber(channelIndex), number(program), bank});
    return filledIn(Words::InstSelected,
                    {channelNumber(channelIndex), number(program), bank, InstrumentWords::toUtf8(name)});
}

void VirtualInstrument::count(Fault fault, std::string_view bytes)
{
    ++faults_[static_cast<std::size_t>(fault)];
    note(bytes, filledIn(Words::InstMalformed, {InstrumentWords::reason(fault)}), fault);
}

void VirtualInstrument::note(std::string_view bytes, std::string words, Fault fault)
{
    if (log_.size() == LogLength)
        log_.pop_front();
    log_.push_back({std::move(words), InstrumentWords::hexHead(bytes), lengthOf(bytes), fault});
    ++loggedCount_;
    changed_ = true;
}

const char* VirtualInstrument::modeLabel() const
{
    switch (mode_) {
    case DeviceModes::ArrPlay:
        return "ARR PLAY";
    case DeviceModes::SongPlay:
        return "SONG PLAY";
    case DeviceModes::Global:
        return "GLOBAL";
    default:
        return "";
    }
}

const ChannelState& VirtualInstrument::channel(int number) const { return channels_.at(placeOf(number)); }

std::vector<SoundingNote> VirtualInstrument::soundingNotes() const
{
    std::vector<SoundingNote> sounding;
    for (int channelIndex = 0; channelIndex < ChannelCount; ++channelIndex) {
        const auto& velocities = channels_[placeOf(channelIndex)].velocities;
        for (int noteNumber = 0; noteNumber < static_cast<int>(velocities.size()); ++noteNumber)
            if (velocities[placeOf(noteNumber)] > 0)
                sounding.push_back({channelIndex, noteNumber, velocities[placeOf(noteNumber)]});
    }
    return sounding;
}

std::optional<int> VirtualInstrument::parameter(int number) const { return parameters_.at(placeOf(number)); }

std::optional<int> VirtualInstrument::selectedUserArrangement() const
{
    const ChannelState& state = channels_[placeOf(globalChannel_)];
    if (state.programLsb != UserArrangementBank || state.program < 0 || state.program >= ArrLayout::RowCount)
        return std::nullopt;
    return state.program;
}

std::string VirtualInstrument::selectedArrangementName() const
{
    const std::optional<int> selected = selectedUserArrangement();
    return selected ? arrangementName(*selected) : std::string();
}

const StyleGroup& VirtualInstrument::styleGroup(int group) const { return styles_.at(placeOf(group)); }

std::string_view VirtualInstrument::styleBlock(int slot) const
{
    const StyleGroup& group = styleGroup(slot / StyLayout::SlotsPerGroup);
    return slice(group.body, group.styles[placeOf(slot % StyLayout::SlotsPerGroup)].block);
}

std::string VirtualInstrument::arrangementName(int index) const
{
    const Field row{index * ArrLayout::RowSize, ArrLayout::RowSize};
    const std::string_view record = slice(arrangements_, row);
    // A record whose name begins with NUL is unused.
    return byteAt(record, 0) == 0 ? std::string() : std::string(trim(slice(record, ArrLayout::RowName)));
}

std::string VirtualInstrument::styleName(int slot) const
{
    return std::string(trim(slice(styleBlock(slot), {0, StyLayout::NameSize})));
}

std::string VirtualInstrument::programName(int index) const
{
    const Field row{index * PrgLayout::RecordSize, PrgLayout::RecordSize};
    const std::string_view record = slice(programs_, row);
    if (byteAt(record, PrgLayout::RecordStateOffset) == 0)
        return {};
    return std::string(trim(slice(record, PrgLayout::RecordName)));
}

std::string VirtualInstrument::selectedProgramName(int channelNumber) const
{
    const ChannelState& state = channel(channelNumber);
    if (state.program < 0)
        return {};
    if (state.programLsb == UserProgramBank)
        return programName(state.program);
    if (state.programLsb < 0 || state.programLsb >= FactoryProgramBanks)
        return {};
    const int block = 2 * state.programLsb + state.program / PrgBlockNames;
    return ::programName(block, state.program % PrgBlockNames);
}

int VirtualInstrument::malformedCount() const { return std::accumulate(faults_.begin(), faults_.end(), 0); }

int VirtualInstrument::malformedCount(Fault fault) const { return faults_.at(static_cast<std::size_t>(fault)); }
