// The loads of a style window: which bytes go out and when, what the user sees meanwhile, what ends them.
#include "StyleWindows.h"

#include "instrument/VirtualInstrument.h"
#include "instrument/VirtualMidiService.h"
#include "support/Unpacked.h"

namespace
{

/// Selects user style 0 on the tests' global channel 3.
const Lines FirstStyle = {"B2 00 00", "B2 20 01", "C2 00"};

class StyleWindowLoads : public StyleWindows
{
protected:
    /// Turns the message monitor on.
    StyleWindowLoads()
    {
        MsgLogAttach(&monitor);
        Midi.MsgLogActive = true;
    }
    ~StyleWindowLoads() override { MsgLogAttach(nullptr); }

    /// The monitor's line of a message.
    static std::string line(const std::string& message) { return hex(message) + " \n\n"; }
    bool until(const std::string& last)
    {
        return QTest::qWaitFor([&] { return !diary.empty() && diary.back() == last; }, 5000);
    }
    Monitor monitor;
};

} // namespace

// One group.

TEST_F(StyleWindowLoads, aGroupGoesOutInAFreshEventAfterTheStatusWasShown)
{
    const frmStyUN* window = open(sixteen());
    press(window, "CommLoadStyGrp(1)");
    EXPECT_EQ(diary, Lines{"status Loading Style"}) << "the press itself sends nothing";
    EXPECT_EQ(timer(window, "TimerLoadStyGrp(1)")->Interval(), 11);
    EXPECT_TRUE(timer(window, "TimerLoadStyGrp(1)")->enabled());

    ASSERT_TRUE(settled(window));
    // 24 + 44 + 45 + 46 + 47 = 206 bytes pack to 236, with six bytes of frame.
    EXPECT_EQ(diary, (Lines{"status Loading Style", "status Loading Style", "F0 42 32 4D 65 (242)", "status"}));
    EXPECT_EQ(timer(window, "TimerLoadStyGrp(1)")->Interval(), 10);
    const std::string message = longMessages().at(0);
    EXPECT_EQ(monitor.lines, (Lines{"cleared", line(message)}));
    EXPECT_EQ(fifty(""), styleInTheInfoFile()) << "a single group does not make the file the instrument's";
    EXPECT_EQ(App.InfoSty, "");
}

TEST_F(StyleWindowLoads, aGroupsBytesAreItsDescriptorsAndBlocks)
{
    App.GlobalChannel = 0;
    const frmStyUN* window = open(sixteen());
    press(window, "CommLoadStyGrp(1)");
    ASSERT_TRUE(settled(window));
    const std::string body = unpackedBody(longMessages().at(0));
    EXPECT_EQ(hex(body.substr(0, 24)), "18 00 00 81 2C 00 44 00 00 81 2D 00 71 00 00 81 2E 00 9F 00 00 81 2F 00");
    EXPECT_EQ(body.substr(24), sixteen().substr(224 + 166, 182));
}

TEST_F(StyleWindowLoads, aGroupThatLacksAStyleIsNeitherSentNorTold)
{
    const frmStyUN* window = open(emptyStyles());
    ASSERT_TRUE(enabled(window, "CommLoadStyGrp(3)")) << "the total that runs on keeps it on";
    press(window, "CommLoadStyGrp(3)");
    ASSERT_TRUE(settled(window));
    EXPECT_EQ(diary, (Lines{"status Loading Style", "status"}));
    EXPECT_TRUE(monitor.lines.empty());
    EXPECT_TRUE(user.warnings.empty());
}

TEST_F(StyleWindowLoads, aSecondPressWhileArmedSendsAtOnceAndOnlyOnce)
{
    const frmStyUN* window = open(sixteen());
    press(window, "CommLoadStyGrp(0)");
    press(window, "CommLoadStyGrp(0)");
    EXPECT_EQ(longMessages().size(), 1U);
    ASSERT_TRUE(settled(window));
    QTest::qWait(20);
    EXPECT_EQ(longMessages().size(), 1U);
    EXPECT_EQ(timer(window, "TimerLoadStyGrp(0)")->Interval(), 10);
}

TEST_F(StyleWindowLoads, groupsAreIndependentAndAKeyLoadsToo)
{
    const frmStyUN* window = open(sixteen());
    for (const int group : {3, 0}) {
        auto* button = control<QPushButton>(window, QStringLiteral("CommLoadStyGrp(%1)").arg(group));
        button->setFocus();
        QTest::keyClick(button, Qt::Key_Space);
    }
    ASSERT_TRUE(settled(window));
    ASSERT_EQ(longMessages().size(), 2U);
    EXPECT_EQ(longMessages()[0][9], 3);
    EXPECT_EQ(longMessages()[1][9], 0);
}

// The whole file.

TEST_F(StyleWindowLoads, allGroupsGoOutThenTheFileIsRecordedAndItsFirstStyleSelected)
{
    const frmStyUN* window = open(sixteen());
    press(window, "CommLoadSty");
    EXPECT_EQ(diary, Lines{"status Loading Style"});
    EXPECT_EQ(timer(window, "TimerTxSty(0)")->Interval(), 20);
    EXPECT_TRUE(timer(window, "TimerTxSty(0)")->enabled());
    EXPECT_EQ(timer(window, "TimerTxSty(1)")->Interval(), 800);

    ASSERT_TRUE(until("C2 00"));
    ASSERT_TRUE(settled(window));
    // 24 + 166, 182, 198 and 214 bytes pack to 218, 236, 254 and 272.
    EXPECT_EQ(diary, joined({{"status Loading Style", "status Loading Style", "F0 42 32 4D 65 (224)",
                              "status Loading Style", "F0 42 32 4D 65 (242)", "status Loading Style",
                              "F0 42 32 4D 65 (260)", "status Loading Style", "F0 42 32 4D 65 (278)", "status"},
                             FirstStyle}));
    EXPECT_EQ(timer(window, "TimerTxSty(0)")->Interval(), 10);
    EXPECT_EQ(styleInTheInfoFile(), fifty("song"));
    EXPECT_EQ(App.InfoSty, "song");
    EXPECT_EQ(user.styLabel, "song.sty");

    Lines log;
    for (const std::string& message : longMessages()) {
        log.emplace_back("cleared");
        log.push_back(line(message));
    }
    log.emplace_back("cleared");
    log.push_back(line(bytesOf("B2 00 00 B2 20 01 C2 00")));
    EXPECT_EQ(monitor.lines, log);
}

TEST_F(StyleWindowLoads, groupsLeaveEightHundredMillisecondsApart)
{
    StageTimer::setTimeScale(1);
    const frmStyUN* window = open(sixteen(8));
    press(window, "CommLoadSty");
    ASSERT_TRUE(until("C2 00"));
    std::vector<std::chrono::steady_clock::time_point> times;
    for (const RecordingMidiService::Call& call : port.calls)
        if (call.operation == "midiOutLongMsg" || (call.operation == "midiOutShortMsg" && call.bytes.size() == 2))
            times.push_back(call.when);
    ASSERT_EQ(times.size(), 3U) << "two groups, then the selection";
    for (const std::size_t i : {1U, 2U}) {
        const auto gap = std::chrono::duration_cast<std::chrono::milliseconds>(times[i] - times[i - 1]).count();
        EXPECT_GE(gap, 795);
        EXPECT_LE(gap, 1200) << "on a machine that may be busy";
    }
    EXPECT_EQ(window->windowTitle(), "File Sty - song.sty (1)");
}

TEST_F(StyleWindowLoads, onlyTheGroupsInUseAreSent)
{
    for (const int used : {1, 4, 5, 8, 9, 13}) {
        const int groups = (used + 3) / 4;
        frmStyUN* window = open(sixteen(used));
        press(window, "CommLoadSty");
        ASSERT_TRUE(until("C2 00"));
        EXPECT_EQ(longMessages().size(), static_cast<std::size_t>(groups)) << used;
        window->close();
    }
}

TEST_F(StyleWindowLoads, aFileOfEmptyStylesTouchesNothing)
{
    const frmStyUN* window = open(sixteen(0));
    press(window, "CommLoadSty");
    EXPECT_FALSE(timer(window, "TimerTxSty(0)")->enabled());
    EXPECT_EQ(timer(window, "TimerTxSty(0)")->Interval(), 10);
    EXPECT_EQ(timer(window, "TimerTxSty(1)")->Interval(), 10);
    EXPECT_TRUE(diary.empty());
    EXPECT_EQ(StyLoad.owner, nullptr);
}

TEST_F(StyleWindowLoads, aGroupThatCannotBeBuiltEndsTheLoadWithoutAWord)
{
    const std::vector<std::pair<std::string, std::size_t>> files = {
        {emptyStyles(), 1}, // four slots: the names of the others are not "- empty -"
        {styFile({{"A", 20}, {"B", 20}, {"C", 20}, {"D", 20}, {"E", 20}, {"F", 20}}), 1},
        {styFile({}), 0},
        {styFile({{"A", 1}}), 0},
        {styFile(Slots(16, {"Big", 65535})), 0}, // offsets that two bytes cannot tell
    };
    for (const auto& [file, sent] : files) {
        frmStyUN* window = open(file);
        App.InfoSty.clear();
        press(window, "CommLoadSty");
        ASSERT_TRUE(until("C2 00"));
        ASSERT_TRUE(settled(window));
        EXPECT_EQ(longMessages().size(), sent);
        EXPECT_EQ(Lines(diary.end() - 4, diary.end()), joined({{"status"}, FirstStyle}));
        EXPECT_EQ(App.InfoSty, "song") << "the file counts as sent all the same";
        EXPECT_EQ(timer(window, "TimerTxSty(0)")->Interval(), 10);
        EXPECT_TRUE(user.warnings.empty());
        window->close();
    }
}

TEST_F(StyleWindowLoads, theBufferIsReadAfreshAtEachGroup)
{
    StageTimer::setTimeScale(0.1);
    frmStyUN* window = open(sixteen(8));
    press(window, "CommLoadSty");
    ASSERT_TRUE(until("F0 42 32 4D 65 (224)"));
    // The fifth block, 166 bytes behind the first.
    window->Tag.bytes().replace(669 + 224 + 166, 7, "Changed");
    ASSERT_TRUE(until("C2 00"));
    std::string second = longMessages().at(1);
    second[2] = 0x30; // as a message of channel 1
    EXPECT_EQ(unpackedBody(second).substr(24, 7), "Changed");
}

TEST_F(StyleWindowLoads, oneLoadRunsAtATime)
{
    const frmStyUN* first = open(sixteen(8), 1);
    const frmStyUN* second = open(sixteen(8), 2, "other");
    press(first, "CommLoadSty");
    press(second, "CommLoadSty");
    EXPECT_FALSE(timer(second, "TimerTxSty(0)")->enabled());
    ASSERT_TRUE(until("C2 00"));
    EXPECT_EQ(longMessages().size(), 2U);
    EXPECT_EQ(App.InfoSty, "song");
}

TEST_F(StyleWindowLoads, aSecondPressSendsTheNextGroupAtOnceAndNoGroupTwice)
{
    const frmStyUN* window = open(sixteen(8));
    press(window, "CommLoadSty");
    press(window, "CommLoadSty");
    EXPECT_EQ(longMessages().size(), 1U);
    EXPECT_FALSE(timer(window, "TimerTxSty(0)")->enabled());
    EXPECT_TRUE(timer(window, "TimerTxSty(1)")->enabled()) << "the pause stands before the next one";
    ASSERT_TRUE(until("C2 00"));
    ASSERT_TRUE(settled(window));
    ASSERT_EQ(longMessages().size(), 2U);
    EXPECT_EQ(longMessages()[0][9], 0);
    EXPECT_EQ(longMessages()[1][9], 1);
}

TEST_F(StyleWindowLoads, aDamagedFilesGroupGoesOutAsFarAsItIsThere)
{
    App.GlobalChannel = 0;
    std::string file = styFile({{"Whole", 40}, {"Cut here", 50000}, {"Gone", 50}, {"Gone too", 60}});
    file.resize(224 + 40 + 5);
    const frmStyUN* window = open(file);
    press(window, "CommLoadSty");
    ASSERT_TRUE(until("C0 00"));
    ASSERT_EQ(longMessages().size(), 1U) << "the second group has no slot";
    const std::string body = unpackedBody(longMessages()[0]);
    EXPECT_EQ(hex(body.substr(0, 24)), "18 00 00 80 28 00 40 00 00 80 50 C3 90 00 C3 80 32 00 C2 00 C3 80 3C 00");
    EXPECT_EQ(body.substr(24), file.substr(224));
    EXPECT_TRUE(user.warnings.empty());
}

TEST_F(StyleWindowLoads, closingTheWindowEndsItsLoads)
{
    StageTimer::setTimeScale(0.1);
    frmStyUN* window = open(sixteen());
    press(window, "CommLoadSty");
    ASSERT_TRUE(until("F0 42 32 4D 65 (224)"));
    window->close();
    EXPECT_EQ(diary.back(), "status");
    EXPECT_EQ(StyLoad.owner, nullptr);
    QTest::qWait(150);
    EXPECT_EQ(longMessages().size(), 1U);

    frmStyUN* armed = open(sixteen());
    press(armed, "CommLoadStyGrp(2)");
    armed->close();
    EXPECT_EQ(diary, (Lines{"status Loading Style", "status"}));
}

TEST_F(StyleWindowLoads, theMenusTimerRunsTheButtonsHandler)
{
    const frmStyUN* window = open(sixteen(4));
    timer(window, "TimerLoadSty")->enable();
    ASSERT_TRUE(until("C2 00"));
    EXPECT_EQ(longMessages().size(), 1U);
}

TEST_F(StyleWindowLoads, anUntitledFileIsRecordedUnderItsCaptionText)
{
    openUntitled(2);
    const frmStyUN* window = openUntitled(4);
    press(window, "CommLoadSty");
    ASSERT_TRUE(until("C2 00"));
    EXPECT_EQ(styleInTheInfoFile(), fifty(" (Untitled 4)"));
}

TEST_F(StyleWindowLoads, theRecordedNameIsCutTo24Characters)
{
    const frmStyUN* window = open(sixteen(4), 1, "a name of more than twenty-four characters");
    press(window, "CommLoadSty");
    ASSERT_TRUE(until("C2 00"));
    EXPECT_EQ(styleInTheInfoFile(), fifty("a name of more than twen"));
}

// Into the instrument.

TEST_F(StyleWindowLoads, theInstrumentHoldsTheBlocksAndDescriptorsOfAllSixteenSlots)
{
    VirtualInstrument instrument;
    VirtualMidiService cable(instrument, [] { return std::string(); });
    ASSERT_EQ(cable.midiOutOpen(Midi.MidiOutHandle, -1), 0);

    Slots blocks;
    for (int slot = 0; slot < 16; ++slot)
        blocks.emplace_back("Groove " + std::to_string(slot), 1000 + 997 * slot);
    const std::string file = styFile(blocks);
    const frmStyUN* window = open(file);
    Midi.service = &cable;
    press(window, "CommLoadSty");
    ASSERT_TRUE(QTest::qWaitFor([&] { return instrument.channel(2).program == 0; }, 10000));

    EXPECT_EQ(instrument.malformedCount(), 0);
    std::size_t place = 224;
    for (int slot = 0; slot < 16; ++slot) {
        const auto length = static_cast<std::size_t>(1000 + 997 * slot);
        EXPECT_EQ(std::string(instrument.styleBlock(slot)), file.substr(place, length)) << slot;
        EXPECT_EQ(instrument.styleName(slot), "Groove " + std::to_string(slot));
        place += length;
    }
    EXPECT_EQ(place, file.size());
    // Offset low, 0, offset high, 0x80 + group, length low, length high.
    EXPECT_EQ(hex(instrument.styleGroup(0).body.substr(0, 24)),
              "18 00 00 80 E8 03 00 00 04 80 CD 07 CD 00 0B 80 B2 0B 7F 00 17 80 97 0F");
    EXPECT_EQ(hex(instrument.styleGroup(1).body.substr(0, 24)),
              "18 00 00 81 7C 13 94 00 13 81 61 17 F5 00 2A 81 46 1B 3B 00 46 81 2B 1F");
    EXPECT_EQ(hex(instrument.styleGroup(2).body.substr(0, 24)),
              "18 00 00 82 10 23 28 00 23 82 F5 26 1D 00 4A 82 DA 2A F7 00 74 82 BF 2E");
    EXPECT_EQ(hex(instrument.styleGroup(3).body.substr(0, 24)),
              "18 00 00 83 A4 32 BC 00 32 83 89 36 45 00 69 83 6E 3A B3 00 A3 83 53 3E");
    EXPECT_EQ(instrument.channel(2).programLsb, 1);
    Midi.service = &port;
}
