// The frame and the packing of all SysEx. A dump's source never shows on the wire as it is: its bytes lose their top
// bits, which travel in a byte ahead of every seven.
#include "midi/SysEx.h"

#include "core/Dichiarazioni.h"
#include "midi/MIDI.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstring>

namespace
{

constexpr int Start = 0xF0;
constexpr int Manufacturer = 0x42;
constexpr int FormatAndChannel = 0x30;
constexpr int Model = 0x4D;
constexpr int End = 0xF7;

constexpr std::size_t GroupData = 7; ///< source bytes behind one byte of top bits
constexpr unsigned TopBit = 0x80;
constexpr unsigned LowBits = 0x7F;

unsigned valueOf(char byte) { return static_cast<unsigned char>(byte); }

/// A whole group at once, in one register: its seven bytes in the low seven places, and by one multiplication their top
/// bits side by side. `from` has eight readable bytes; `to` takes the byte of top bits and the seven.
void packWholeGroup(const char* from, char* to)
{
    constexpr std::uint64_t TopBits = 0x0080808080808080;
    constexpr std::uint64_t Gather = 0x0102040810204080; // brings bit 8 * i to bit 56 + i
    std::uint64_t bytes = 0;
    std::memcpy(&bytes, from, sizeof bytes); // the eighth falls out below
    const std::uint64_t topBits = ((bytes & TopBits) >> 7) * Gather >> 56;
    bytes = (bytes & ~TopBits) << 8 | topBits;
    std::memcpy(to, &bytes, sizeof bytes);
}

/// A group byte by byte: the last one may be shorter.
void packGroup(std::string_view from, char* to)
{
    unsigned topBits = 0;
    for (std::size_t bit = 0; bit < from.size(); ++bit) {
        const unsigned byte = valueOf(from[bit]);
        topBits |= byte / TopBit << bit;
        to[1 + bit] = static_cast<char>(byte & LowBits);
    }
    *to = static_cast<char>(topBits);
}

} // namespace

ByteBuffer SysExHeader()
{
    return byteText(Start) + byteText(Manufacturer) + byteText(FormatAndChannel | App.GlobalChannel) + byteText(Model);
}

ByteBuffer packedSevenBit(std::string_view source)
{
    const std::size_t groups = (source.size() + GroupData - 1) / GroupData;
    ByteBuffer packed(source.size() + groups, '\0');
    // Groups with a byte behind them; none where a machine stores the high byte first.
    constexpr bool LowByteFirst = std::endian::native == std::endian::little;
    const std::size_t whole = LowByteFirst && !source.empty() ? (source.size() - 1) / GroupData : 0;
    std::size_t group = 0;
    for (; group < whole; ++group)
        packWholeGroup(source.data() + group * GroupData, packed.data() + group * (GroupData + 1));
    for (; group < groups; ++group)
        packGroup(source.substr(group * GroupData, GroupData), packed.data() + group * (GroupData + 1));
    return packed;
}

void SevenBitPack(std::string_view source) { Midi.SysExOutput = packedSevenBit(source); }

bool unpackSevenBit(std::string_view packed, ByteBuffer& unpacked)
{
    constexpr std::size_t groupSize = GroupData + 1;
    if (packed.size() % groupSize == 1)
        return false;
    if (std::any_of(packed.begin(), packed.end(), [](char byte) { return (valueOf(byte) & TopBit) != 0; }))
        return false;
    ByteBuffer bytes;
    bytes.reserve(packed.size());
    for (std::size_t place = 0; place < packed.size(); ++place) {
        const std::size_t bit = place % groupSize;
        if (bit == 0)
            continue;
        const unsigned topBits = valueOf(packed[place - bit]);
        const unsigned top = (topBits >> (bit - 1)) & 1U;
        bytes.push_back(static_cast<char>(valueOf(packed[place]) | (top << GroupData)));
    }
    unpacked = std::move(bytes);
    return true;
}

ByteBuffer sysExFrame(Function function, std::string_view body)
{
    ByteBuffer frame = SysExHeader();
    frame.reserve(frame.size() + body.size() + 2);
    frame += byteText(static_cast<int>(function));
    frame += body;
    frame += byteText(End);
    return frame;
}
