// Programs on the wire: three short messages select one, one long message replaces all 64 of the user bank.
#include "programs/ProgramSends.h"

#include "core/Dichiarazioni.h"
#include "core/FieldTarget.h"
#include "files/WindowLayout.h"
#include "midi/MIDI.h"
#include "midi/SysEx.h"
#include "programs/ProgramSource.h"

#include <array>
#include <optional>

ProgramSendState PrgSend;

namespace
{

constexpr int LastChannel = 15;

constexpr std::array<int, 16> KitPrograms{0, 1, 8, 16, 24, 25, 26, 32, 40, 48, 64, 65, 66, 56, 72, 73};

/// App.TrackChannels keeps the channels in the order of the global block: ARRANG, LOW, UP2, UP1, DRM, PER, BAS, AC1,
/// AC2, AC3. This is the place of each track there, Drum first and LOWER last.
constexpr std::array<std::size_t, 9> ChannelOfTrack{4, 5, 6, 7, 8, 9, 3, 2, 1};

/// What a user program's record selects; a damaged reference must not put a status byte on the wire.
ProgramSendState wordsOf(std::string_view record, int index)
{
    constexpr int LowSevenBits = 0x7F;
    if (!isReference(record))
        return {ProgramBank::User, index};
    return {byteAt(record, PrgLayout::ReferenceBankOffset) & LowSevenBits,
            byteAt(record, PrgLayout::ReferenceNumberOffset) & LowSevenBits};
}

/// Sets the words of a row of a window; those of the last selection stay where there is no such row.
void selectRow(std::string_view tag, int kind, int index)
{
    if (kind == WindowKind::DrumKits || kind == WindowKind::Percussion) {
        if (const int program = drumKitProgram(index); program >= 0)
            PrgSend = {ProgramBank::Drum, program};
        return;
    }
    if (!isProgramRow(index))
        return;
    if (const auto factory = factoryBankOf(kind))
        PrgSend = {factory->bank, factory->firstNumber + index};
    else if (kind == WindowKind::PrgFile || kind == WindowKind::PrgNew)
        PrgSend = wordsOf(programRecord(tag, index), index);
}

/// The channel of the editor's highlighted track; none while no program field is highlighted, or when the settings give
/// that track no channel.
std::optional<int> highlightedChannel()
{
    const FieldTarget* target = fieldTarget();
    if (target == nullptr || !target->PrgFieldSelected())
        return std::nullopt;
    const int track = target->highlightedTrack();
    if (track < 0 || track >= static_cast<int>(ChannelOfTrack.size()))
        return std::nullopt;
    const int channel = App.TrackChannels[ChannelOfTrack[static_cast<std::size_t>(track)]];
    return channel >= 0 && channel <= LastChannel ? std::optional<int>(channel) : std::nullopt;
}

/// The MIDI channel, 0 to 15: the highlighted track's, else the window's own.
int channelOf(std::string_view tag) { return highlightedChannel().value_or(programChannel(tag)); }

} // namespace

int drumKitProgram(int listIndex)
{
    return listIndex >= 0 && listIndex < static_cast<int>(KitPrograms.size())
               ? KitPrograms[static_cast<std::size_t>(listIndex)]
               : -1;
}

void ProgramSend(std::string_view tag, int index)
{
    const int kind = byteAt(tag, WindowLayout::KindOffset);
    // Required: a window without programs, or a row without a kit, repeats the bank and program of the last call.
    selectRow(tag, kind, index);
    Midi.SysExOutput = MidiProgramSelect(channelOf(tag), PrgSend.bank, PrgSend.program);
}

ByteBuffer programDumpBody(std::string_view tag)
{
    const auto area = [&](Field field) {
        ByteBuffer bytes(slice(tag, {WindowLayout::PrgFile.offset + field.offset, field.size}));
        bytes.resize(static_cast<std::size_t>(field.size), '\0');
        return bytes;
    };
    ByteBuffer body = area(PrgLayout::Records);
    if (byteAt(tag, WindowLayout::PrgTypeOffset) == 1) {
        const ByteBuffer blank = filled(PrgLayout::BlankedBytes, 0);
        for (int row = 0; row < PrgLayout::RecordCount; ++row) {
            const int offset = row * PrgLayout::RecordSize;
            if (byteAt(body, offset + PrgLayout::RecordStateOffset) == PrgLayout::ReferenceRecord)
                putBytes(body, offset, blank);
        }
    }
    return body + area(PrgLayout::SecondArea);
}

void ProgramDumpSend(std::string_view tag)
{
    Midi.SysExOutput = sysExFrame(Function::ProgramDump, packedSevenBit(programDumpBody(tag)));
    MidiLongSend();
}
