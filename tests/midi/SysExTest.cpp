// The frame of a message and the packing of seven bytes into eight.
#include "MidiRoom.h"

#include "midi/SysEx.h"

#include <random>

class SysExFrameRule : public MidiRoom
{
};
class SevenBitPackRule : public MidiRoom
{
};

TEST_F(SysExFrameRule, headCarriesTheGlobalChannelOfTheMoment)
{
    EXPECT_EQ(hex(SysExHeader()), "F0 42 30 4D");
    App.GlobalChannel = 15;
    EXPECT_EQ(hex(SysExHeader()), "F0 42 3F 4D");
    App.GlobalChannel = 7;
    EXPECT_EQ(hex(SysExHeader()), "F0 42 37 4D");
}

TEST_F(SysExFrameRule, standsAroundTheBodyOfEachFunction)
{
    App.GlobalChannel = 2;
    EXPECT_EQ(hex(sysExFrame(Function::ParameterChange, bytesOf("02 3C 00"))), "F0 42 32 4D 41 02 3C 00 F7");
    EXPECT_EQ(hex(sysExFrame(Function::ProgramDump, bytesOf("01 02"))), "F0 42 32 4D 4C 01 02 F7");
    EXPECT_EQ(hex(sysExFrame(Function::ModeChange, bytesOf("0A"))), "F0 42 32 4D 4E 0A F7");
    EXPECT_EQ(hex(sysExFrame(Function::GlobalDump, bytesOf("00 11"))), "F0 42 32 4D 51 00 11 F7");
    EXPECT_EQ(hex(sysExFrame(Function::ArrangementDump, bytesOf("7F"))), "F0 42 32 4D 64 7F F7");
    EXPECT_EQ(hex(sysExFrame(Function::StyleDump, "")), "F0 42 32 4D 65 F7");
}

namespace
{

/// A packing made with arithmetic alone, byte by byte from its description: place p of the result holds, when p is a
/// multiple of 8, the sum of 2^i over the bytes behind it that are 128 or more.
std::string packedByHand(const std::vector<int>& source)
{
    std::vector<int> result;
    for (std::size_t n = 0; n < source.size(); ++n) {
        if (n % 7 == 0)
            result.push_back(0);
        const std::size_t head = n / 7 * 8;
        int weight = 1;
        for (std::size_t power = 0; power < n % 7; ++power)
            weight *= 2;
        if (source[n] >= 128)
            result[head] += weight;
        result.push_back(source[n] % 128);
    }
    std::string bytes;
    for (const int value : result)
        bytes += static_cast<char>(value);
    return bytes;
}

std::string bytesFrom(const std::vector<int>& values)
{
    std::string bytes;
    for (const int value : values)
        bytes += static_cast<char>(value);
    return bytes;
}

} // namespace

TEST_F(SevenBitPackRule, givesTheWrittenOutBytes)
{
    const std::vector<std::pair<const char*, const char*>> rows{
        {"", ""},
        {"00", "00 00"},
        {"FF", "01 7F"},
        {"81 02", "01 01 02"},
        {"02 81", "02 02 01"},
        {"01 02 83", "04 01 02 03"},
        {"80 80 80 80", "0F 00 00 00 00"},
        {"00 00 00 00 80", "10 00 00 00 00 00"},
        {"F0 F7 F0 F7 F0 F7", "3F 70 77 70 77 70 77"},
        {"FF FF FF FF FF FF FF", "7F 7F 7F 7F 7F 7F 7F 7F"},
        {"01 02 03 04 05 06 87", "40 01 02 03 04 05 06 07"},
        {"01 02 03 04 05 06 07 88", "00 01 02 03 04 05 06 07 01 08"},
        {"FF FF FF FF FF FF FF 00", "7F 7F 7F 7F 7F 7F 7F 7F 00 00"},
        {"80 01 02 03 04 05 06 07 80", "01 00 01 02 03 04 05 06 02 07 00"},
        {"00 00 00 00 00 00 80 80 00 00 00 00 00 80", "40 00 00 00 00 00 00 00 41 00 00 00 00 00 00 00"},
        {"00 00 00 00 00 00 00 00 00 00 00 00 00 00 FF", "00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 01 7F"},
    };
    for (const auto& [source, packed] : rows)
        EXPECT_EQ(hex(packedSevenBit(bytesOf(source))), packed) << source;
}

TEST_F(SevenBitPackRule, hasOneByteMoreForEachBegunSeven)
{
    const std::vector<std::pair<int, std::size_t>> lengths{
        {0, 0},   {1, 2},   {2, 3},   {3, 4},   {4, 5},   {5, 6},   {6, 7},     {7, 8},         {8, 10},       {9, 11},
        {10, 12}, {11, 13}, {12, 14}, {13, 15}, {14, 16}, {15, 18}, {415, 475}, {10496, 11996}, {13112, 14986}};
    for (const auto& [length, packed] : lengths)
        EXPECT_EQ(packedSevenBit(std::string(static_cast<std::size_t>(length), '\xAA')).size(), packed) << length;
}

TEST_F(SevenBitPackRule, matchesAPackingByArithmeticOnRandomSourcesOfManyLengths)
{
    std::mt19937 random(11);
    std::uniform_int_distribution<int> byte(0, 255);
    for (const int length : {1, 2, 3, 4, 5, 6, 7, 8, 9, 13, 14, 15, 21, 22, 100, 415, 1176, 10496, 13112}) {
        std::vector<int> source;
        for (int i = 0; i < length; ++i)
            source.push_back(byte(random));
        EXPECT_EQ(packedSevenBit(bytesFrom(source)), packedByHand(source)) << length;
    }
}

TEST_F(SevenBitPackRule, keepsTheTopBitClearInEveryByte)
{
    for (const char value : {'\xF0', '\xF7', '\xFF', '\x80'})
        for (const char byte : packedSevenBit(std::string(50, value)))
            EXPECT_GE(byte, 0);
}

TEST_F(SevenBitPackRule, leavesTheResultInTheOutputString)
{
    Midi.SysExOutput = "a longer text that was there before";
    SevenBitPack(bytesOf("81 02"));
    EXPECT_EQ(hex(Midi.SysExOutput), "01 01 02");
    SevenBitPack("");
    EXPECT_EQ(Midi.SysExOutput, "");
    EXPECT_TRUE(service.calls.empty());
}

TEST_F(SevenBitPackRule, unpackingGivesTheWrittenOutSource)
{
    ByteBuffer source;
    ASSERT_TRUE(unpackSevenBit(bytesOf("01 01 02"), source));
    EXPECT_EQ(hex(source), "81 02");
    ASSERT_TRUE(unpackSevenBit(bytesOf("41 00 00 00 00 00 00 00 02 07 00"), source));
    EXPECT_EQ(hex(source), "80 00 00 00 00 00 80 07 80");
    ASSERT_TRUE(unpackSevenBit("", source));
    EXPECT_EQ(source, "");
}

TEST_F(SevenBitPackRule, unpackingRefusesHighBytesAndALonelyByteOfTopBits)
{
    ByteBuffer source = "kept";
    EXPECT_FALSE(unpackSevenBit(bytesOf("00 80"), source));
    EXPECT_FALSE(unpackSevenBit(bytesOf("80 00"), source));
    EXPECT_FALSE(unpackSevenBit(bytesOf("00"), source));
    EXPECT_FALSE(unpackSevenBit(bytesOf("00 01 02 03 04 05 06 07 00"), source));
    EXPECT_EQ(source, "kept");
}

TEST_F(SevenBitPackRule, unpackingUndoesPackingOnRandomData)
{
    std::mt19937 random(3);
    std::uniform_int_distribution<int> byte(0, 255);
    for (int length = 0; length < 300; ++length) {
        ByteBuffer source;
        for (int i = 0; i < length; ++i)
            source += static_cast<char>(byte(random));
        ByteBuffer unpacked = "x";
        ASSERT_TRUE(unpackSevenBit(packedSevenBit(source), unpacked));
        ASSERT_EQ(unpacked, source);
    }
}
