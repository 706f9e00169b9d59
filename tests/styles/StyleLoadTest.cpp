// The sequence of a Load Styles: which group goes out at each step, and what ends it.
#include "styles/StyleFixture.h"

#include <random>

using StyleLoad = StyleTest;

namespace
{

constexpr int OneWindow = 1;
constexpr int OtherWindow = 2;

/// The group number that a style dump carries in its first descriptor.
int groupOf(const std::string& message)
{
    // F0 42 3g 4D 65, the first run's byte of top bits, 18 00 00, then 0x80 + group less its top bit
    return message[9];
}

} // namespace

TEST_F(StyleLoad, sendsEachGroupInUseAndEnds)
{
    const std::string bytes = buffer(23, std::vector<int>(16, 40));
    ASSERT_TRUE(StyLoadBegin(bytes, &OneWindow));
    EXPECT_TRUE(wire.messages().empty()) << "the first group goes out with the first step";
    EXPECT_EQ(user.progressLines, std::vector<std::string>{"Loading Style"});
    for (int group = 0; group < 4; ++group) {
        EXPECT_EQ(StyLoadNext(bytes), StyLoadStep::Sent);
        ASSERT_EQ(wire.messages().size(), static_cast<std::size_t>(group) + 1);
        EXPECT_EQ(groupOf(wire.messages().back()), group);
        EXPECT_EQ(StyLoad.owner, &OneWindow);
    }
    EXPECT_EQ(StyLoadNext(bytes), StyLoadStep::Ended);
    EXPECT_EQ(wire.messages().size(), 4u);
    EXPECT_EQ(user.progressLines.back(), "");
    EXPECT_EQ(StyLoad.owner, nullptr);
}

TEST_F(StyleLoad, aFileWhoseLastGroupsAreEmptySendsOnlyTheFirst)
{
    std::string bytes = buffer(23, std::vector<int>(16, 40));
    for (std::size_t slot = 4; slot < 16; ++slot)
        bytes.replace(669 + 224 + slot * 40, 16, "- empty -       ");
    ASSERT_TRUE(StyLoadBegin(bytes, &OneWindow));
    EXPECT_EQ(StyLoadNext(bytes), StyLoadStep::Sent);
    EXPECT_EQ(StyLoadNext(bytes), StyLoadStep::Ended);
    EXPECT_EQ(wire.messages().size(), 1u);
}

TEST_F(StyleLoad, aGroupThatCannotBeSentEndsItWithoutAMessage)
{
    const std::string bytes = buffer(23, {40, 40, 40, 40, 40, 0, 40, 40, 40, 40, 40, 40});
    ASSERT_TRUE(StyLoadBegin(bytes, &OneWindow));
    EXPECT_EQ(StyLoadNext(bytes), StyLoadStep::Sent);
    EXPECT_EQ(StyLoadNext(bytes), StyLoadStep::Ended);
    EXPECT_EQ(wire.messages().size(), 1u);
    EXPECT_TRUE(user.warnings.empty());
    EXPECT_EQ(user.progressLines.back(), "");
}

TEST_F(StyleLoad, withNoGroupItDoesNotBegin)
{
    std::string bytes = buffer(23, std::vector<int>(16, 40));
    for (std::size_t slot = 0; slot < 16; ++slot)
        bytes.replace(669 + 224 + slot * 40, 16, "- empty -       ");
    EXPECT_FALSE(StyLoadBegin(bytes, &OneWindow));
    EXPECT_EQ(StyLoad.owner, nullptr);
    EXPECT_TRUE(user.progressLines.empty());
}

TEST_F(StyleLoad, anArrangementWindowWithoutRealStylesHasNothingToLoad)
{
    for (const int kind : {19, 20})
        for (const int state : {0, 1, 2}) {
            StyLoad = {};
            std::string bytes = buffer(kind, std::vector<int>(4, 1176));
            bytes[8] = static_cast<char>(state);
            EXPECT_EQ(StyLoadBegin(bytes, &OneWindow), state == 2) << kind << " " << state;
        }
}

TEST_F(StyleLoad, whileOneRunsAPressInAnotherWindowDoesNothing)
{
    const std::string bytes = buffer(23, std::vector<int>(16, 40));
    ASSERT_TRUE(StyLoadBegin(bytes, &OneWindow));
    ASSERT_EQ(StyLoadNext(bytes), StyLoadStep::Sent);
    EXPECT_FALSE(StyLoadBegin(bytes, &OtherWindow));
    EXPECT_EQ(StyLoad.owner, &OneWindow);
    EXPECT_EQ(StyLoad.currentGroup, 1);
    StyLoadAbandon(&OtherWindow);
    EXPECT_EQ(StyLoad.owner, &OneWindow);
}

TEST_F(StyleLoad, groupsAreApartByTheirWindowsOwnPause)
{
    EXPECT_EQ(StyleLoadTiming::FirstGroup, 20);
    EXPECT_EQ(StyleLoadTiming::StyleWindowPause, 800);
    EXPECT_EQ(StyleLoadTiming::ArrWindowPause, 1000);
}

TEST_F(StyleLoad, theBufferIsReadAfreshAtEachGroup)
{
    std::string bytes = buffer(23, std::vector<int>(16, 40));
    ASSERT_TRUE(StyLoadBegin(bytes, &OneWindow));
    ASSERT_EQ(StyLoadNext(bytes), StyLoadStep::Sent);
    bytes = buffer(23, {1, 1, 1, 1, 2, 2, 2, 2});
    ASSERT_EQ(StyLoadNext(bytes), StyLoadStep::Sent);
    EXPECT_EQ(groupBody(wire.messages().back()).size(), 24u + 8);
}

TEST_F(StyleLoad, aWindowClosedInMidLoadLeavesNoNoticeAndNoOwner)
{
    const std::string bytes = buffer(23, std::vector<int>(16, 40));
    ASSERT_TRUE(StyLoadBegin(bytes, &OneWindow));
    StyLoadAbandon(&OneWindow);
    EXPECT_EQ(StyLoad.owner, nullptr);
    EXPECT_EQ(user.progressLines.back(), "");
    EXPECT_TRUE(StyLoadBegin(bytes, &OtherWindow));
}

TEST_F(StyleLoad, anIdleWindowThatClosesClearsNobodysNotice)
{
    StyLoadAbandon(&OneWindow);
    StyLoadAbandon(nullptr);
    EXPECT_TRUE(user.progressLines.empty());
}

TEST_F(StyleLoad, aRandomBufferNeverLeadsOutsideIt)
{
    std::mt19937 random(1974);
    for (int round = 0; round < 300; ++round) {
        std::string bytes(42622 + random() % 3000, '\0');
        if (round % 3 == 0)
            bytes.resize(random() % 700);
        for (char& byte : bytes)
            byte = static_cast<char>(random());
        if (!bytes.empty())
            bytes[0] = static_cast<char>(round % 2 == 0 ? 23 : 19);
        for (int group = -1; group < 5; ++group) {
            Midi.SysExOutput = "before";
            if (StyGroupBuild(bytes, group) == 1)
                EXPECT_EQ(Midi.SysExOutput, "before");
            else
                EXPECT_LE(groupBody(Midi.SysExOutput).size(), 24 + bytes.size());
        }
    }
}
