// How many bytes of a packed word go onto the cable.
#include "midi/ShortMessage.h"

#include "support/Hex.h"

#include <gtest/gtest.h>

TEST(ShortMessage, hasTwoBytesForProgramChangesAndChannelPressureAndThreeElse)
{
    const struct {
        std::uint32_t word;
        const char* bytes;
    } rows[] = {
        {0x403C80, "80 3C 40"}, {0x7F3C9F, "9F 3C 7F"}, {0x013CA0, "A0 3C 01"}, {0x6407BF, "BF 07 64"},
        {0x7F45C0, "C0 45"},    {0x7F45CF, "CF 45"},    {0x7F11D0, "D0 11"},    {0x7F11DF, "DF 11"},
        {0x407FE0, "E0 7F 40"}, {0x407FEF, "EF 7F 40"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(hex(shortMessageBytes(row.word)), row.bytes);
}

TEST(ShortMessage, aWordWithoutAStatusIsTheThreeBytesItIs)
{
    EXPECT_EQ(hex(shortMessageBytes(0x000005)), "05 00 00");
    EXPECT_EQ(hex(shortMessageBytes(0x7B407F)), "7F 40 7B");
}

TEST(ShortMessage, theHighestByteOfTheWordNeverGoesOut) { EXPECT_EQ(hex(shortMessageBytes(0xFF640790)), "90 07 64"); }
