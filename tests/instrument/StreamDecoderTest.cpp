// The virtual instrument's ear: bytes in, messages and malformed pieces out, however the bytes are cut.
#include "instrument/StreamDecoder.h"

#include "support/Hex.h"
#include <gtest/gtest.h>
#include <random>
#include <vector>

namespace
{

/// Keeps each message as "kind bytes", a malformed one with the number of its fault.
struct Heard {
    std::vector<std::string> lines;
    StreamDecoder decoder{[this](const StreamDecoder::Message& message) {
        static constexpr const char* Kinds[] = {"channel", "sysex", "system", "realtime", "malformed"};
        std::string line = Kinds[static_cast<int>(message.kind)];
        if (message.kind == MessageKind::Malformed)
            line += faultName(message.fault);
        else
            EXPECT_EQ(message.fault, Fault::None);
        lines.push_back(line + " " + hex(message.bytes));
    }};

    static std::string faultName(Fault fault)
    {
        switch (fault) {
        case Fault::CutByStatus:
            return "(cut)";
        case Fault::HighByteInside:
            return "(high byte)";
        case Fault::StrayEnd:
            return "(stray end)";
        case Fault::NoStatus:
            return "(no status)";
        case Fault::TooLong:
            return "(too long)";
        default:
            return "(another fault)";
        }
    }
};

std::vector<std::string> heard(const std::string& pairs)
{
    Heard heard;
    heard.decoder.feed(bytesOf(pairs));
    return heard.lines;
}

using Lines = std::vector<std::string>;

} // namespace

TEST(StreamDecoder, hearsEveryKindOfChannelMessage)
{
    EXPECT_EQ(heard("80 3C 40 91 3C 7F A2 3C 01 B3 07 64 C4 05 D5 60 E6 7F 40"),
              (Lines{"channel 80 3C 40", "channel 91 3C 7F", "channel A2 3C 01", "channel B3 07 64", "channel C4 05",
                     "channel D5 60", "channel E6 7F 40"}));
}

TEST(StreamDecoder, fillsInTheRunningStatus)
{
    EXPECT_EQ(heard("90 3C 40 3E 41 40 00 C0 05 06"),
              (Lines{"channel 90 3C 40", "channel 90 3E 41", "channel 90 40 00", "channel C0 05", "channel C0 06"}));
}

TEST(StreamDecoder, aNewMessageOfTheSenderTakesNoRunningStatusFromTheOneBefore)
{
    Heard heard;
    heard.decoder.feed(bytesOf("90 3C 40"));
    heard.decoder.beginMessage();
    heard.decoder.feed(bytesOf("3E 41"));
    EXPECT_EQ(heard.lines, (Lines{"channel 90 3C 40", "malformed(no status) 3E 41"}));
    heard.decoder.feed(bytesOf("90 3C"));
    heard.decoder.beginMessage(); // the message that is coming in is still to be finished
    heard.decoder.feed(bytesOf("40"));
    EXPECT_EQ(heard.lines.back(), "channel 90 3C 40");
}

TEST(StreamDecoder, framesAMessageAndForgetsTheRunningStatusBehindIt)
{
    EXPECT_EQ(heard("90 3C 40 F0 42 30 4D 4E 0A F7 3C 40"),
              (Lines{"channel 90 3C 40", "sysex F0 42 30 4D 4E 0A F7", "malformed(no status) 3C 40"}));
}

TEST(StreamDecoder, hearsSystemMessagesWhichEndTheRunningStatus)
{
    EXPECT_EQ(heard("F1 01 F2 02 03 F3 04 F6 90 3C 40 F6 05"),
              (Lines{"system F1 01", "system F2 02 03", "system F3 04", "system F6", "channel 90 3C 40", "system F6",
                     "malformed(no status) 05"}));
}

TEST(StreamDecoder, toleratesRealTimeBytesAnywhere)
{
    EXPECT_EQ(heard("90 F8 3C FE 40 F0 42 FA 30 F7 FF 3C"),
              (Lines{"realtime F8", "realtime FE", "channel 90 3C 40", "realtime FA", "sysex F0 42 30 F7",
                     "realtime FF", "malformed(no status) 3C"}));
    EXPECT_EQ(heard("90 3C 40 F8 3E 40"), (Lines{"channel 90 3C 40", "realtime F8", "channel 90 3E 40"}));
}

TEST(StreamDecoder, showsThreeBytesWithoutAStatusAsOneMalformedMessage)
{
    EXPECT_EQ(heard("05 00 00"), (Lines{"malformed(no status) 05 00 00"}));
    EXPECT_EQ(heard("05 00 00 90 3C 40"), (Lines{"malformed(no status) 05 00 00", "channel 90 3C 40"}));
}

TEST(StreamDecoder, showsAFrameCutByAnotherStatus)
{
    EXPECT_EQ(heard("F0 42 30 F0 42 31 F7"), (Lines{"malformed(cut) F0 42 30", "sysex F0 42 31 F7"}));
    EXPECT_EQ(heard("F0 42 30 90 3C 40"), (Lines{"malformed(cut) F0 42 30", "channel 90 3C 40"}));
    EXPECT_EQ(heard("F0 42 F6"), (Lines{"malformed(cut) F0 42", "system F6"}));
}

TEST(StreamDecoder, showsAHighByteInsideAFrameWhenTheFramesEndComes)
{
    EXPECT_EQ(heard("F0 42 30 4D 64 90 10 F7 C0 05"),
              (Lines{"malformed(cut) F0 42 30 4D 64", "malformed(high byte) 90 10 F7", "channel C0 05"}));
    // A new frame forgets that the one before was cut.
    EXPECT_EQ(heard("F0 42 C0 05 F0 42 F7 F7"),
              (Lines{"malformed(cut) F0 42", "channel C0 05", "sysex F0 42 F7", "malformed(stray end) F7"}));
}

TEST(StreamDecoder, showsAnEndWithoutAStart)
{
    EXPECT_EQ(heard("F7"), (Lines{"malformed(stray end) F7"}));
    EXPECT_EQ(heard("90 3C F7"), (Lines{"malformed(stray end) 90 3C F7"})) << "what it cuts is told with it";
    EXPECT_EQ(heard("F2 01 F7 02"), (Lines{"malformed(stray end) F2 01 F7", "malformed(no status) 02"}));
    EXPECT_EQ(heard("90 3C 40 F7 3C 40"),
              (Lines{"channel 90 3C 40", "malformed(stray end) F7", "malformed(no status) 3C 40"}));
}

TEST(StreamDecoder, showsAChannelMessageCutShort)
{
    EXPECT_EQ(heard("90 3C B0 07 64"), (Lines{"malformed(cut) 90 3C", "channel B0 07 64"}));
    EXPECT_EQ(heard("90 80 3C 00"), (Lines{"malformed(cut) 90", "channel 80 3C 00"}));
}

TEST(StreamDecoder, hearsTheSameHoweverTheBytesAreCut)
{
    const std::string stream =
        bytesOf("90 3C 40 3E 41 F0 42 30 4D 41 02 3C 00 F7 C0 05 F8 06 F0 42 90 3C F7 E0 7F 40 F2 01 02 B0 07 64");
    Heard whole;
    whole.decoder.feed(stream);
    ASSERT_EQ(whole.lines.size(), 11U);
    for (std::size_t first = 0; first <= stream.size(); ++first) {
        for (std::size_t second = first; second <= stream.size(); ++second) {
            Heard pieces;
            pieces.decoder.feed(stream.substr(0, first));
            pieces.decoder.feed(stream.substr(first, second - first));
            pieces.decoder.feed(stream.substr(second));
            ASSERT_EQ(pieces.lines, whole.lines) << first << " " << second;
        }
    }
}

TEST(StreamDecoder, tellsAFrameThatIsTooLongOnceAndGoesOn)
{
    Heard heard;
    heard.decoder.feed("\xF0" + std::string(3 * StreamDecoder::LongestFrame, '\x01') + "\xF7");
    heard.decoder.feed(bytesOf("90 3C 40"));
    ASSERT_EQ(heard.lines.size(), 2U);
    EXPECT_EQ(heard.lines[0].substr(0, 26), "malformed(too long) F0 01 ");
    EXPECT_EQ(heard.lines[1], "channel 90 3C 40");
}

TEST(StreamDecoder, takesAFrameOfTheLongestStyleGroup)
{
    Heard heard;
    heard.decoder.feed("\xF0" + std::string(299'620, '\x7F') + "\xF7");
    ASSERT_EQ(heard.lines.size(), 1U);
    EXPECT_EQ(heard.lines[0].substr(0, 5), "sysex");
    EXPECT_EQ(heard.lines[0].size(), 5U + 3U * 299'622U);
}

TEST(StreamDecoder, survivesAMillionRandomBytesAndThenHearsClearly)
{
    std::mt19937 random(2);
    std::uniform_int_distribution<int> byte(0, 255);
    std::uniform_int_distribution<int> pieceLength(0, 40);
    std::size_t messages = 0;
    std::size_t wellFormed = 0;
    StreamDecoder decoder([&](const StreamDecoder::Message& message) {
        ++messages;
        const int status = byteAt(message.bytes, 0);
        switch (message.kind) {
        case MessageKind::Channel:
            ++wellFormed;
            ASSERT_EQ(message.bytes.size(), status >= 0xC0 && status < 0xE0 ? 2U : 3U);
            ASSERT_GE(status, 0x80);
            ASSERT_LT(status, 0xF0);
            break;
        case MessageKind::SysEx:
            ++wellFormed;
            ASSERT_EQ(status, 0xF0);
            ASSERT_EQ(byteAt(message.bytes, lengthOf(message.bytes) - 1), 0xF7);
            break;
        case MessageKind::Malformed:
            ASSERT_NE(message.fault, Fault::None);
            break;
        default:
            break;
        }
    });
    for (int sent = 0; sent < 1'000'000;) {
        std::string piece;
        for (int i = pieceLength(random); i > 0; --i)
            piece += static_cast<char>(byte(random));
        sent += static_cast<int>(piece.size());
        decoder.feed(piece);
    }
    EXPECT_GT(messages, 100'000U);
    const std::size_t before = wellFormed;
    decoder.feed(bytesOf("F0 42 30 4D 4E 0A F7 90 3C 40"));
    EXPECT_EQ(wellFormed, before + 2);
}
