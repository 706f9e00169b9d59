// The instrument's own messages: a frame is judged byte by byte, and only a faultless one changes what is held.
#include "core/Strings.h"
#include "core/Words.h"
#include "files/ArrLayout.h"
#include "files/GblLayout.h"
#include "files/PrgLayout.h"
#include "files/StyLayout.h"
#include "instrument/InstrumentWords.h"
#include "instrument/VirtualInstrument.h"
#include "midi/DeviceModes.h"
#include "midi/SysEx.h"

#include <algorithm>

using InstrumentWords::filledIn;

namespace
{

// The frame, 0-based.
constexpr int ManufacturerOffset = 1;
constexpr int FormatOffset = 2;
constexpr int ModelOffset = 3;
constexpr int FunctionOffset = 4;
constexpr int BodyOffset = 5;
constexpr int ShortestFrame = 6; ///< with an empty body and the end byte

constexpr int Manufacturer = 0x42;
constexpr int FormatNibble = 0x30;
constexpr int Model = 0x4D;

/// The bodies of dumps, unpacked.
constexpr int ProgramBodyLength = PrgLayout::Records.size + PrgLayout::SecondArea.size;

// A style group's descriptor, and the table of four that leads its body.
constexpr int DescriptorSize = 6;
constexpr int BlockLowOffset = 0;
constexpr int BlockMiddleOffset = 1; ///< always 0
constexpr int BlockHighOffset = 2;
constexpr int GroupOffset = 3; ///< 80 or'ed with the group
constexpr int LengthOffset = 4;
constexpr int DescriptorTableSize = StyLayout::SlotsPerGroup * DescriptorSize;
constexpr int GroupMark = 0x80;

constexpr int ParameterBodyLength = 3;
constexpr int NegativeHighByte = 0x7F;
constexpr int SevenBits = 7;

/// The instrument's modes: the byte on the wire.
struct ModeByte {
    int wireByte;
    int mode;
};
constexpr std::array<ModeByte, 3> ModeBytes{
    {{0x0A, DeviceModes::ArrPlay}, {0x06, DeviceModes::SongPlay}, {0x04, DeviceModes::Global}}};

bool isFunction(int function)
{
    constexpr std::array<Function, 6> known{Function::ParameterChange, Function::ProgramDump,     Function::ModeChange,
                                            Function::GlobalDump,      Function::ArrangementDump, Function::StyleDump};
    return std::any_of(known.begin(), known.end(), [&](Function one) { return static_cast<int>(one) == function; });
}

Fault faultOfHead(std::string_view frame)
{
    if (byteAt(frame, ManufacturerOffset) != Manufacturer)
        return Fault::WrongManufacturer;
    if ((byteAt(frame, FormatOffset) & 0xF0) != FormatNibble)
        return Fault::WrongFormat;
    if (byteAt(frame, ModelOffset) != Model)
        return Fault::WrongModel;
    if (lengthOf(frame) < ShortestFrame)
        return Fault::WrongLength;
    return isFunction(byteAt(frame, FunctionOffset)) ? Fault::None : Fault::UnknownFunction;
}

/// "3 (Name, Name, Name)" of the names that are not empty.
template <typename NameOf>
std::string namesInWords(int count, NameOf nameOf)
{
    constexpr int Shown = 3;
    int found = 0;
    std::string names;
    for (int index = 0; index < count; ++index) {
        const std::string name = nameOf(index);
        if (name.empty())
            continue;
        if (++found <= Shown)
            names += (names.empty() ? "" : ", ") + InstrumentWords::toUtf8(name);
    }
    if (found == 0)
        return "0";
    return std::to_string(found) + " (" + names + (found > Shown ? ", ...)" : ")");
}

} // namespace

void VirtualInstrument::takeFrame(std::string_view frame)
{
    Fault fault = faultOfHead(frame);
    std::string words;
    if (fault == Fault::None) {
        const int channelBefore = globalChannel_;
        globalChannel_ = byteAt(frame, FormatOffset) & 0x0F;
        const std::string_view body = slice(frame, {BodyOffset, lengthOf(frame) - ShortestFrame});
        fault = takeBody(byteAt(frame, FunctionOffset), body, words);
        if (fault != Fault::None)
            globalChannel_ = channelBefore;
    }
    if (fault != Fault::None) {
        count(fault, frame);
        return;
    }
    ++messageCount_;
    note(frame, std::move(words));
}

Fault VirtualInstrument::takeBody(int function, std::string_view body, std::string& words)
{
    if (function == static_cast<int>(Function::ParameterChange))
        return takeParameter(body, words);
    if (function == static_cast<int>(Function::ModeChange))
        return takeMode(body, words);
    ByteBuffer unpacked;
    if (!unpackSevenBit(body, unpacked))
        return Fault::WrongLength;
    return function == static_cast<int>(Function::StyleDump) ? takeStyleGroup(unpacked, words)
                                                             : takeDump(function, unpacked, words);
}

Fault VirtualInstrument::takeParameter(std::string_view body, std::string& words)
{
    if (lengthOf(body) != ParameterBodyLength)
        return Fault::WrongLength;
    const int number = byteAt(body, 0);
    const int low = byteAt(body, 1);
    const int high = byteAt(body, 2);
    // A high byte of all ones says that the low bits belong to a negative value.
    const int value = high == NegativeHighByte ? low - (1 << SevenBits) : (high << SevenBits) + low;
    parameters_[static_cast<std::size_t>(number)] = value;
    words = filledIn(Words::InstParameter,
                     {std::to_string(number), std::to_string(value), std::to_string(globalChannel_ + 1)});
    return Fault::None;
}

Fault VirtualInstrument::takeMode(std::string_view body, std::string& words)
{
    if (lengthOf(body) != 1)
        return Fault::WrongLength;
    const auto row = std::find_if(ModeBytes.begin(), ModeBytes.end(),
                                  [&](const ModeByte& mode) { return mode.wireByte == byteAt(body, 0); });
    if (row == ModeBytes.end())
        return Fault::WrongContent;
    mode_ = row->mode;
    words = filledIn(Words::InstModeChange, {modeLabel(), std::to_string(globalChannel_ + 1)});
    return Fault::None;
}

Fault VirtualInstrument::takeDump(int function, const ByteBuffer& body, std::string& words)
{
    const int length = lengthOf(body);
    if (function == static_cast<int>(Function::ArrangementDump)) {
        if (length != ArrLayout::Rows.size)
            return Fault::WrongLength;
        arrangements_ = body;
        words = filledIn(Words::InstArrDump,
                         {namesInWords(ArrLayout::RowCount, [this](int index) { return arrangementName(index); })});
        return Fault::None;
    }
    if (function == static_cast<int>(Function::ProgramDump)) {
        if (length != ProgramBodyLength)
            return Fault::WrongLength;
        programs_ = slice(body, {0, PrgLayout::Records.size});
        programSecondArea_ = sliceFrom(body, PrgLayout::Records.size);
        words = filledIn(Words::InstPrgDump,
                         {namesInWords(PrgLayout::RecordCount, [this](int index) { return programName(index); })});
        return Fault::None;
    }
    if (length != GblLayout::Parameters.size)
        return Fault::WrongLength;
    globalBlock_ = body;
    words = filledIn(Words::InstGblDump, {std::to_string(length)});
    return Fault::None;
}

Fault VirtualInstrument::takeStyleGroup(const ByteBuffer& body, std::string& words)
{
    if (lengthOf(body) < DescriptorTableSize)
        return Fault::WrongLength;
    const int group = byteAt(body, GroupOffset) - GroupMark;
    if (group < 0 || group >= StyLayout::GroupCount)
        return Fault::WrongContent;

    StyleGroup received;
    received.received = true;
    int expected = DescriptorTableSize;
    for (int slot = 0; slot < StyLayout::SlotsPerGroup; ++slot) {
        const std::string_view descriptor = slice(body, {slot * DescriptorSize, DescriptorSize});
        const int offset = byteAt(descriptor, BlockHighOffset) << 8 | byteAt(descriptor, BlockLowOffset);
        const int length = word16LowFirst(descriptor, LengthOffset);
        if (offset != expected || length == 0 || byteAt(descriptor, BlockMiddleOffset) != 0 ||
            byteAt(descriptor, GroupOffset) != GroupMark + group)
            return Fault::WrongContent;
        received.styles[static_cast<std::size_t>(slot)] = {ByteBuffer(descriptor), {offset, length}};
        expected += length;
    }
    if (lengthOf(body) != expected)
        return Fault::WrongLength;

    received.body = body;
    styles_[static_cast<std::size_t>(group)] = std::move(received);
    words =
        filledIn(Words::InstStyDump, {std::to_string(group + 1), namesInWords(StyLayout::SlotsPerGroup, [&](int slot) {
                                          return styleName(group * StyLayout::SlotsPerGroup + slot);
                                      })});
    return Fault::None;
}
