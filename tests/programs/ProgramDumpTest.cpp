// A whole program file as one message: 11008 bytes of records, 2104 from behind them.
#include "programs/ProgramFixture.h"
#include "support/Unpacked.h"

#include <random>

using ProgramDump = ProgramTest;

namespace
{

/// A buffer whose bytes tell their place, of a type: 0 .prg, 1 .pgg.
std::string patterned(int type)
{
    std::string bytes(270 + 30480, '\0');
    for (std::size_t i = 270; i < bytes.size(); ++i)
        bytes[i] = static_cast<char>((i * 89 + i / 199) % 256);
    for (std::size_t record = 0; record < 64; ++record)
        bytes[318 + 172 * record] = '\x42';
    bytes[0] = 21;
    bytes[18] = static_cast<char>(type);
    return bytes;
}

} // namespace

TEST_F(ProgramDump, bodyIsTheRecordsAndTheSecondArea)
{
    const std::string bytes = patterned(0);
    const std::string body = programDumpBody(bytes);
    ASSERT_EQ(body.size(), 13112u);
    EXPECT_TRUE(body.substr(0, 11008) == bytes.substr(318, 11008));
    EXPECT_TRUE(body.substr(11008) == bytes.substr(23366, 2104));
}

TEST_F(ProgramDump, aReferenceOfAPggReachesTheInstrumentBlank)
{
    std::string bytes = patterned(1);
    putRecord(bytes, 4, 1, 2, 33, "Fingered");
    const std::string body = programDumpBody(bytes);
    ASSERT_EQ(body.size(), 13112u);
    EXPECT_EQ(body.substr(172 * 4, 20), std::string(20, '\0'));
    EXPECT_TRUE(body.substr(172 * 4 + 20, 152) == bytes.substr(318 + 172 * 4 + 20, 152));
    EXPECT_TRUE(body.substr(0, 172 * 4) == bytes.substr(318, 172 * 4));
    EXPECT_TRUE(body.substr(172 * 5, 172 * 59) == bytes.substr(318 + 172 * 5, 172 * 59));
    EXPECT_EQ(bytes[318 + 172 * 4], 1) << "the window keeps its reference";
}

TEST_F(ProgramDump, aReferenceOfAPrgGoesOutAsItIs)
{
    std::string bytes = patterned(0);
    putRecord(bytes, 4, 1, 2, 33, "Fingered");
    EXPECT_TRUE(programDumpBody(bytes).substr(0, 11008) == bytes.substr(318, 11008));
    bytes[18] = ' '; // blanks that stand in for a head
    EXPECT_TRUE(programDumpBody(bytes).substr(0, 11008) == bytes.substr(318, 11008));
}

TEST_F(ProgramDump, aShortBufferIsFilledWithZeros)
{
    EXPECT_TRUE(programDumpBody("") == std::string(13112, '\0'));
    const std::string bytes = patterned(0).substr(0, 318 + 100);
    EXPECT_TRUE(programDumpBody(bytes) == bytes.substr(318) + std::string(13012, '\0'));
}

TEST_F(ProgramDump, goesOutAsOneFramedMessageOfSevenBitBytes)
{
    App.GlobalChannel = 12;
    const std::string bytes = patterned(1);
    ProgramDumpSend(bytes);
    const auto messages = wire.messages();
    ASSERT_EQ(messages.size(), 1u);
    const std::string& message = messages[0];
    ASSERT_EQ(message.size(), 5u + 14986 + 1); // 1873 runs of 8 and one of 2
    EXPECT_EQ(hex(message.substr(0, 5)), "F0 42 3C 4D 4C");
    EXPECT_EQ(hex(message.substr(message.size() - 1)), "F7");
    const std::string body = unpackedBody(message);
    EXPECT_TRUE(body == bytes.substr(318, 11008) + bytes.substr(23366, 2104));
}

TEST_F(ProgramDump, garbageOfAnyLengthIsSentWithoutLeavingTheBuffer)
{
    std::mt19937 random(88);
    for (int round = 0; round < 60; ++round) {
        std::string bytes(random() % 31000, '\0');
        for (char& byte : bytes)
            byte = static_cast<char>(random());
        if (bytes.size() > 18)
            bytes[18] = 1;
        EXPECT_EQ(programDumpBody(bytes).size(), 13112u);
        for (const int kind : {4, 9, 21, 22}) {
            if (!bytes.empty())
                bytes[0] = static_cast<char>(kind);
            ProgramSend(bytes, static_cast<int>(random() % 80) - 8);
            ASSERT_EQ(Midi.SysExOutput.size(), 8u);
            for (const std::size_t data : {1u, 2u, 4u, 5u, 7u})
                EXPECT_EQ(Midi.SysExOutput[data] & 0x80, 0);
        }
    }
}
