// The kernel's account of a MIDI output, read from its text.
#include "midi/AlsaAccount.h"

#include <gtest/gtest.h>

namespace
{

const char* const TwoOutputs = "DIN Cable\n"
                               "\n"
                               "Output 0\n"
                               "  Tx bytes     : 12288\n"
                               "  Owner PID    : 411\n"
                               "  Mode         : native\n"
                               "  Buffer size  : 4096\n"
                               "  Avail        : 4032\n"
                               "Output 1\n"
                               "  Tx bytes     : 7\n"
                               "  Mode         : native\n"
                               "  Buffer size  : 8192\n"
                               "  Avail        : 8192\n"
                               "Output 2\n"
                               "  Tx bytes     : 900\n"
                               "Input 0\n"
                               "  Rx bytes     : 55\n"
                               "  Buffer size  : 100\n"
                               "  Avail        : 3\n";

} // namespace

TEST(AlsaAccount, readsTheOutputOfThatNumber)
{
    EXPECT_EQ(parseAlsaAccount(TwoOutputs, 0), (PortAccount{12288, 4096, 4032}));
    EXPECT_EQ(parseAlsaAccount(TwoOutputs, 1), (PortAccount{7, 8192, 8192}));
}

TEST(AlsaAccount, hasNothingOfAnOutputThatIsClosedOrNotThere)
{
    EXPECT_EQ(parseAlsaAccount(TwoOutputs, 2), std::nullopt) << "closed: only its sum of bytes stands there";
    EXPECT_EQ(parseAlsaAccount(TwoOutputs, 3), std::nullopt);
    EXPECT_EQ(parseAlsaAccount("", 0), std::nullopt);
}

TEST(AlsaAccount, refusesATextThatMakesNoSense)
{
    EXPECT_EQ(parseAlsaAccount("Output 0\n  Tx bytes : x\n  Buffer size : 4096\n  Avail : 4096\n", 0), std::nullopt);
    EXPECT_EQ(parseAlsaAccount("Output 0\n  Tx bytes : 1\n  Buffer size : 64\n  Avail : 65\n", 0), std::nullopt);
    EXPECT_EQ(parseAlsaAccount("Output 0\n  Tx bytes : 1\n  Buffer size : 0\n  Avail : 0\n", 0), std::nullopt);
    EXPECT_EQ(parseAlsaAccount("  Tx bytes : 1\n  Buffer size : 64\n  Avail : 64\n", 0), std::nullopt)
        << "of no output";
}

// The kernel's "Tx bytes" are those that the device has fetched; the buffer holds more.
TEST(AlsaAccount, tellsWhatTheBufferHasTaken) { EXPECT_EQ((PortAccount{12288, 4096, 4032}).accepted(), 12352); }

TEST(AlsaAccount, needsEveryFigureAndNoneBelowZero)
{
    const auto of = [](const char* passedOn, const char* size, const char* room) {
        return parseAlsaAccount(std::string("Output 0\n") + passedOn + size + room, 0);
    };
    EXPECT_EQ(of("  Tx bytes : 1\n", "  Buffer size : 64\n", "  Avail : 0\n"), (PortAccount{1, 64, 0}));
    EXPECT_EQ(of("", "  Buffer size : 64\n", "  Avail : 64\n"), std::nullopt);
    EXPECT_EQ(of("  Tx bytes : 1\n", "", "  Avail : 0\n"), std::nullopt);
    EXPECT_EQ(of("  Tx bytes : 1\n", "  Buffer size : 64\n", ""), std::nullopt);
    EXPECT_EQ(of("  Tx bytes : -1\n", "  Buffer size : 64\n", "  Avail : 64\n"), std::nullopt);
    EXPECT_EQ(of("  Tx bytes : 1\n", "  Buffer size : 64\n", "  Avail : -1\n"), std::nullopt);
}

TEST(AlsaAccount, passesOverLinesThatAreNoFigures)
{
    const char* const text =
        "Output x\n  Tx bytes : 5\nOutputs 0\n  Tx bytes : 6\n"
        "Output 0\n   \n  :\n  : 3\n  no figure\n  Tx bytes : 7\n  Buffer size :  64 \n  Avail :64";
    EXPECT_EQ(parseAlsaAccount(text, 0), (PortAccount{7, 64, 64})) << "and the last line need not end";
}

TEST(AlsaAccount, aCardWithoutTheFileHasNone)
{
    SeqPort port;
    port.card = 31;
    EXPECT_EQ(readAlsaAccount(port), std::nullopt);
}
