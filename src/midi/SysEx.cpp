// The frame and the packing of all SysEx. A dump's source never shows on the wire as it is: its bytes lose their top
// bits, which travel in a byte ahead of every seven.
#include "midi/SysEx.h"

#include "core/Dichiarazioni.h"
#include "midi/MIDI.h"

#include <algorithm>

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

} // namespace

ByteBuffer SysExHeader()
{
    return byteText(Start) + byteText(Manufacturer) + byteText(FormatAndChannel | App.GlobalChannel) + byteText(Model);
}

ByteBuffer packedSevenBit(std::string_view source)
{
    ByteBuffer packed;
    packed.reserve(source.size() + source.size() / GroupData + 1);
    for (std::size_t first = 0; first < source.size(); first += GroupData) {
        const std::size_t count = std::min(GroupData, source.size() - first);
        const std::size_t topBitsPlace = packed.size();
        unsigned topBits = 0;
        packed.push_back('\0');
        for (std::size_t bit = 0; bit < count; ++bit) {
            const unsigned byte = valueOf(source[first + bit]);
            if ((byte & TopBit) != 0)
                topBits |= 1U << bit;
            packed.push_back(static_cast<char>(byte & LowBits));
        }
        packed[topBitsPlace] = static_cast<char>(topBits);
    }
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
