// The tests' own account of the wire, held to the worked examples of the instrument's tables.
#include "e2e/Wire.h"
#include "support/Hex.h"

#include <gtest/gtest.h>

TEST(Wire, packsSevenBytesIntoEight)
{
    EXPECT_EQ(hex(Wire::packed("\x81\x02")), "01 01 02");
    EXPECT_EQ(hex(Wire::packed("\xFF\xFF\xFF\xFF\xFF\xFF\xFF")), "7F 7F 7F 7F 7F 7F 7F 7F");
    EXPECT_EQ(Wire::packed(std::string(10496, '\0')).size(), 11996U);
    EXPECT_EQ(Wire::unpacked("\x01\x01\x02"), "\x81\x02");
}

TEST(Wire, takesAStreamApart)
{
    const std::string stream = Wire::arrPlay() + Wire::selection(5);
    const std::vector<std::string> messages = Wire::messages(stream);
    ASSERT_EQ(messages.size(), 4U);
    EXPECT_EQ(hex(messages[0]), "F0 42 30 4D 4E 0A F7");
    EXPECT_EQ(hex(messages[1]), "B0 00 00");
    EXPECT_EQ(hex(messages[2]), "B0 20 01");
    EXPECT_EQ(hex(messages[3]), "C0 05");
}

TEST(Wire, aStyleGroupDescribesItsBlocks)
{
    // A file of four slots: 16, 17, 18 and 300 bytes.
    std::string file(224, '\0');
    const unsigned lengths[4] = {16, 17, 18, 300};
    for (std::size_t slot = 0; slot < 4; ++slot) {
        file[24 + 4 * slot] = static_cast<char>(lengths[slot] % 256);
        file[25 + 4 * slot] = static_cast<char>(lengths[slot] / 256);
        file += std::string(lengths[slot], static_cast<char>('a' + slot));
    }
    const std::string message = Wire::styleGroup(file, 0);
    EXPECT_EQ(hex(message.substr(0, 5)), "F0 42 30 4D 65");
    const std::string body = Wire::unpacked(message.substr(5, message.size() - 6));
    EXPECT_EQ(hex(body.substr(0, 24)), "18 00 00 80 10 00 28 00 00 80 11 00 39 00 00 80 12 00 4B 00 00 80 2C 01");
    EXPECT_EQ(body.substr(24), file.substr(224));
}
