// What the message monitor is given of each message.
#include "MidiRoom.h"

class MsgLogRule : public MidiRoom
{
};

TEST_F(MsgLogRule, showsEachByteAsTwoDigitsAndABlankEachMessageInABlockOfItsOwn)
{
    openMonitor();
    MsgLogAdd(bytesOf("F0 0A 00 7F"));
    MsgLogAdd(bytesOf("9C AB"));
    EXPECT_EQ(monitor.text, "F0 0A 00 7F \n\n9C AB \n\n");
}

TEST_F(MsgLogRule, anEmptyMessageEmptiesTheMonitor)
{
    openMonitor();
    MsgLogAdd("A");
    MsgLogAdd("");
    EXPECT_EQ(monitor.text, "");
    EXPECT_EQ(diary, (Lines{"monitor 41 ", "monitor cleared"}));
}

TEST_F(MsgLogRule, doesNothingWhileTheLogIsNotActive)
{
    openMonitor();
    Midi.MsgLogActive = false;
    MsgLogAdd("A");
    MsgLogAdd("");
    EXPECT_TRUE(diary.empty());
}

TEST_F(MsgLogRule, doesNothingWhileNoMonitorIsOpenAndShowsNothingOfItLater)
{
    Midi.MsgLogActive = true;
    MsgLogAdd("A");
    openMonitor();
    EXPECT_EQ(monitor.text, "");
    MsgLogAdd("B");
    MsgLogAttach(nullptr);
    MsgLogAdd("C");
    EXPECT_EQ(monitor.text, "42 \n\n");
}

TEST_F(MsgLogRule, aLineHoldsTheFirst21666Bytes)
{
    openMonitor();
    MsgLogAdd(std::string(21666, '\x01'));
    EXPECT_EQ(monitor.text.size(), 64998U + 2U);
    monitor.text.clear();
    std::string longest(21666, '\x01');
    MsgLogAdd(longest.append("\xFF\xFF"));
    EXPECT_EQ(monitor.text.size(), 64998U + 2U);
    EXPECT_EQ(monitor.text.find("FF"), std::string::npos);
    monitor.text.clear();
    longest.assign(21665, '\x01');
    MsgLogAdd(longest.append("\xFF"));
    EXPECT_EQ(monitor.text.substr(64989), "01 01 FF \n\n");
}
