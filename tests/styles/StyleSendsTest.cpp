// A group of four styles as one message, and the selection of a style.
#include "styles/StyleFixture.h"

using StyGroupBuild_ = StyleTest;
using StyGroupSend_ = StyleTest;
using StyBankSelect_ = StyleTest;

TEST_F(StyGroupBuild_, aSmallGroupIsTheseBytes)
{
    App.GlobalChannel = 5;
    std::string bytes = buffer(23, {1, 1, 1, 1});
    bytes[bytes.size() - 4] = '\x81';
    bytes[bytes.size() - 3] = '\x02';
    bytes[bytes.size() - 2] = '\xFF';
    bytes[bytes.size() - 1] = '\x00';
    ASSERT_EQ(StyGroupBuild(bytes, 0), 0);
    // body: 18 00 00 80 01 00 | 19 00 00 80 01 00 | 1A 00 00 80 01 00 | 1B 00 00 80 01 00 | 81 02 FF 00
    EXPECT_EQ(hex(Midi.SysExOutput), "F0 42 35 4D 65 "
                                     "08 18 00 00 00 01 00 19 "
                                     "04 00 00 00 01 00 1A 00 "
                                     "02 00 00 01 00 1B 00 00 "
                                     "29 00 01 00 01 02 7F 00 "
                                     "F7");
}

TEST_F(StyGroupBuild_, carriesDescriptorsAndBlocksOfTheGroup)
{
    const std::vector<int> lengths{700,  701,  702,  703,  1000, 1100, 1200, 1300,
                                   2000, 2100, 2200, 2300, 3000, 3100, 3200, 4200};
    const struct {
        int group;
        const char* descriptors;
    } rows[] = {
        // offsets 24, 724, 1425, 2127
        {0, "18 00 00 80 BC 02 D4 00 02 80 BD 02 91 00 05 80 BE 02 4F 00 08 80 BF 02"},
        // offsets 24, 1024, 2124, 3324
        {1, "18 00 00 81 E8 03 00 00 04 81 4C 04 4C 00 08 81 B0 04 FC 00 0C 81 14 05"},
        // offsets 24, 2024, 4124, 6324
        {2, "18 00 00 82 D0 07 E8 00 07 82 34 08 1C 00 10 82 98 08 B4 00 18 82 FC 08"},
        // offsets 24, 3024, 6124, 9324
        {3, "18 00 00 83 B8 0B D0 00 0B 83 1C 0C EC 00 17 83 80 0C 6C 00 24 83 68 10"},
    };
    for (const int kind : {23, 24, 19, 20})
        for (const auto& row : rows) {
            ASSERT_EQ(StyGroupBuild(buffer(kind, lengths), row.group), 0);
            const std::string body = groupBody(Midi.SysExOutput);
            EXPECT_EQ(hex(body.substr(0, 24)), row.descriptors) << kind;
            std::string blocks;
            for (int slot = row.group * 4; slot < row.group * 4 + 4; ++slot)
                blocks += block(slot, lengths[static_cast<std::size_t>(slot)]);
            EXPECT_TRUE(body.substr(24) == blocks) << kind << " group " << row.group;
        }
}

TEST_F(StyGroupBuild_, thePackedLengthFollowsTheBodysRemainder)
{
    // body 24 + L bytes: 28 is 4 runs of 7; 31 has a last run of 3, on the wire 4 bytes
    ASSERT_EQ(StyGroupBuild(buffer(23, {1, 1, 1, 1}), 0), 0);
    EXPECT_EQ(Midi.SysExOutput.size(), 6u + 32);
    ASSERT_EQ(StyGroupBuild(buffer(23, {1, 1, 1, 4}), 0), 0);
    EXPECT_EQ(Midi.SysExOutput.size(), 6u + 32 + 4);
    ASSERT_EQ(StyGroupBuild(buffer(23, {1, 1, 1, 2}), 0), 0);
    EXPECT_EQ(Midi.SysExOutput.size(), 6u + 32 + 2);
}

TEST_F(StyGroupBuild_, refusesAGroupWithAMissingSlotAndKeepsTheOutputString)
{
    Midi.SysExOutput = "before";
    for (int missing = 0; missing < 4; ++missing) {
        std::vector<int> lengths{10, 10, 10, 10};
        lengths[static_cast<std::size_t>(missing)] = 0;
        EXPECT_EQ(StyGroupBuild(buffer(23, lengths), 0), 1) << missing;
        EXPECT_EQ(Midi.SysExOutput, "before");
    }
    EXPECT_EQ(StyGroupBuild(buffer(23, {10, 10, 10, 10}), 1), 1);
    EXPECT_EQ(Midi.SysExOutput, "before");
}

TEST_F(StyGroupBuild_, anAbsentSlotOfAnEarlierGroupOnlyShortensItsSum)
{
    ASSERT_EQ(StyGroupBuild(buffer(19, {10, 0, 20, 0, 5, 6, 7, 8}), 1), 0);
    EXPECT_TRUE(groupBody(Midi.SysExOutput).substr(24) == block(4, 5) + block(5, 6) + block(6, 7) + block(7, 8));
}

TEST_F(StyGroupBuild_, namesDoNotMatter)
{
    std::string bytes = buffer(23, {20, 20, 20, 20, 20, 20, 20, 20, 20, 20, 20, 20});
    for (std::size_t slot = 0; slot < 12; ++slot)
        bytes.replace(669 + 224 + slot * 20, 9, "- empty -");
    EXPECT_EQ(StyGroupBuild(bytes, 2), 0);
}

TEST_F(StyGroupBuild_, aDamagedFilesGroupGoesOutWithTheTablesDescriptorsAndWithWhatIsThere)
{
    // Four blocks of 100, of which the file holds the first, and 37 bytes of the second.
    std::string bytes = buffer(23, {100, 100, 100, 100, 50, 50, 50, 50});
    bytes.resize(669 + 224 + 137);
    ASSERT_EQ(StyGroupBuild(bytes, 0), 0);
    std::string body = groupBody(Midi.SysExOutput);
    const char* descriptors = "18 00 00 80 64 00 7C 00 00 80 64 00 E0 00 00 80 64 00 44 00 01 80 64 00";
    EXPECT_EQ(hex(body.substr(0, 24)), descriptors);
    EXPECT_TRUE(body.substr(24) == block(0, 100) + block(1, 100).substr(0, 37));
    // Of the second group, which begins behind the end, nothing but its descriptors.
    ASSERT_EQ(StyGroupBuild(bytes, 1), 0);
    EXPECT_EQ(hex(groupBody(Midi.SysExOutput)),
              "18 00 00 81 32 00 4A 00 00 81 32 00 7C 00 00 81 32 00 AE 00 00 81 32 00");
    // One byte short.
    bytes = buffer(20, {100, 100, 100, 100});
    bytes.pop_back();
    ASSERT_EQ(StyGroupBuild(bytes, 0), 0);
    body = groupBody(Midi.SysExOutput);
    EXPECT_EQ(hex(body.substr(0, 24)), descriptors);
    EXPECT_TRUE(body.substr(24) == block(0, 100) + block(1, 100) + block(2, 100) + block(3, 100).substr(0, 99));
}

TEST_F(StyGroupBuild_, aBufferWithoutATableHasNoGroup)
{
    Midi.SysExOutput = "before";
    EXPECT_EQ(StyGroupBuild(std::string(42622, '\0'), 0), 1);
    EXPECT_EQ(StyGroupBuild("", 0), 1);
    EXPECT_EQ(Midi.SysExOutput, "before");
}

TEST_F(StyGroupBuild_, namesTheChannelOfTheInstrument)
{
    for (int channel = 0; channel < 16; ++channel) {
        App.GlobalChannel = channel;
        ASSERT_EQ(StyGroupBuild(buffer(24, {1, 1, 1, 1}), 0), 0);
        const std::string digit(1, "0123456789ABCDEF"[channel]);
        EXPECT_EQ(hex(Midi.SysExOutput.substr(0, 5)), "F0 42 3" + digit + " 4D 65");
        wire.forget();
        int style = 15;
        StyBankSelect(style, 19);
        EXPECT_EQ(hex(Midi.SysExOutput), "B" + digit + " 00 00 B" + digit + " 20 01 C" + digit + " 0F");
        EXPECT_EQ(wire.messages().size(), 3u);
    }
}

TEST_F(StyGroupBuild_, theLastBlockMayBeginAt65535AndNotBehind)
{
    // 24 + 21837 + 21837 + 21837 = 65535
    ASSERT_EQ(StyGroupBuild(buffer(23, {21837, 21837, 21837, 9000}), 0), 0);
    EXPECT_EQ(hex(groupBody(Midi.SysExOutput).substr(18, 6)), "FF 00 FF 80 28 23");
    Midi.SysExOutput = "before";
    EXPECT_EQ(StyGroupBuild(buffer(23, {21837, 21837, 21838, 9000}), 0), 1);
    EXPECT_EQ(StyGroupBuild(buffer(23, {65535, 1, 1, 1}), 0), 1);
    EXPECT_EQ(Midi.SysExOutput, "before");
}

TEST_F(StyGroupBuild_, knowsFourGroups)
{
    const std::string bytes = buffer(23, std::vector<int>(16, 10));
    EXPECT_EQ(StyGroupBuild(bytes, 3), 0);
    EXPECT_EQ(StyGroupBuild(bytes, 4), 1);
    EXPECT_EQ(StyGroupBuild(bytes, -1), 1);
}

TEST_F(StyGroupSend_, showsTheNoticeThenSendsOneMessage)
{
    const std::string bytes = buffer(23, {10, 20, 30, 40});
    std::vector<std::string> shownBefore;
    wire.beforeLong = [&] { shownBefore = user.progressLines; };
    ASSERT_EQ(StyGroupSend(0, bytes), 0);
    EXPECT_EQ(shownBefore, std::vector<std::string>{"Loading Style"}) << "the notice stands before the wire is busy";
    EXPECT_EQ(user.progressLines, shownBefore);
    ASSERT_EQ(wire.messages().size(), 1u);
    EXPECT_EQ(wire.messages()[0], Midi.SysExOutput);
    EXPECT_EQ(groupBody(wire.messages()[0]).size(), 124u);
}

TEST_F(StyGroupSend_, anUnsendableGroupShowsAndSendsNothing)
{
    EXPECT_EQ(StyGroupSend(1, buffer(23, {10, 20, 30, 40})), 1);
    EXPECT_TRUE(user.progressLines.empty());
    EXPECT_TRUE(wire.messages().empty());
}

TEST_F(StyBankSelect_, sendsBankAndNumberOnTheGlobalChannel)
{
    const struct {
        int kind, style, after;
        const char* msb;
        const char* lsb;
        const char* program;
    } rows[] = {
        {2, 5, 5, "B9 00 00", "B9 20 00", "C9 05"},    {3, 5, 69, "B9 00 00", "B9 20 00", "C9 45"},
        {19, 15, 15, "B9 00 00", "B9 20 01", "C9 0F"}, {20, 0, 0, "B9 00 00", "B9 20 01", "C9 00"},
        {23, 7, 7, "B9 00 00", "B9 20 00", "C9 07"},   {24, 7, 7, "B9 00 00", "B9 20 00", "C9 07"},
        {17, 7, 7, "B9 00 00", "B9 20 00", "C9 07"},   {18, 7, 7, "B9 00 00", "B9 20 00", "C9 07"},
    };
    App.GlobalChannel = 9;
    for (const auto& row : rows) {
        wire.forget();
        int style = row.style;
        StyBankSelect(style, row.kind);
        EXPECT_EQ(style, row.after);
        const auto sent = wire.messages();
        ASSERT_EQ(sent.size(), 3u);
        EXPECT_EQ(hex(sent[0]), row.msb);
        EXPECT_EQ(hex(sent[1]), row.lsb);
        EXPECT_EQ(hex(sent[2]), row.program);
        EXPECT_EQ(hex(Midi.SysExOutput), std::string(row.msb) + " " + row.lsb + " " + row.program);
    }
}
