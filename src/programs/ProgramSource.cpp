// The five factory banks as rows of a table, and the records of a user program file.
#include "programs/ProgramSource.h"

#include "core/Dichiarazioni.h"
#include "files/WindowLayout.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace
{

constexpr std::array<FactoryBank, 5> FactoryBanks{{
    {WindowKind::PrgBankA, 0, ProgramBank::AB, 0},
    {WindowKind::PrgBankA + 1, 1, ProgramBank::AB, 64},
    {WindowKind::PrgBankA + 2, 2, ProgramBank::CD, 0},
    {WindowKind::PrgBankA + 3, 3, ProgramBank::CD, 64},
    {WindowKind::PrgBankE, 4, ProgramBank::E, 0},
}};

constexpr int LastChannel = 15;

/// Where a window keeps its channel.
int channelOffset(std::string_view tag)
{
    const int kind = byteAt(tag, WindowLayout::KindOffset);
    const bool programFile = kind == WindowKind::PrgFile || kind == WindowKind::PrgNew;
    return programFile ? WindowLayout::PrgFile.offset + PrgLayout::ChannelOffset : WindowLayout::ChannelOffset;
}

} // namespace

std::optional<FactoryBank> factoryBankOf(int windowKind)
{
    const auto* const found = std::find_if(std::begin(FactoryBanks), std::end(FactoryBanks),
                                           [&](const FactoryBank& bank) { return bank.kind == windowKind; });
    return found == std::end(FactoryBanks) ? std::nullopt : std::optional<FactoryBank>(*found);
}

std::string_view programRecord(std::string_view tag, int row)
{
    if (!isProgramRow(row))
        return {};
    const Field record = PrgLayout::record(row);
    return slice(tag, {WindowLayout::PrgFile.offset + record.offset, record.size});
}

bool isReference(std::string_view record)
{
    return byteAt(record, PrgLayout::RecordStateOffset) == PrgLayout::ReferenceRecord;
}

int programChannel(std::string_view tag) { return byteAt(tag, channelOffset(tag)) & LastChannel; }

void setProgramChannel(ByteBuffer& tag, int channel) { putByte(tag, channelOffset(tag), channel & LastChannel); }
