// The global window: what each control writes, marks and sends; what it shows of blocks that no instrument wrote.
#include "GblWindow.h"

namespace
{

/// One key on one control of a window whose bytes are all 0.
struct Act {
    const char* control;
    Qt::Key key;
    std::size_t offset;
    int read;    ///< bits that the control shows
    int written; ///< bits that it replaces
    int bits;
    std::size_t group; ///< of the dump
    const char* bytes; ///< that group on the wire; all others are 0
};

constexpr Act Acts[] = {
    {"GblHScroll1(0)", Qt::Key_End, 0, 0xFF, 0xFF, 0x32, 0, "00 32 00 00 00 00 00 00"},
    {"GblHScroll1(0)", Qt::Key_Home, 0, 0xFF, 0xFF, 0xCE, 0, "01 4E 00 00 00 00 00 00"},
    {"GblCombo1(0)", Qt::Key_Home, 213, 0x0F, 0xFF, 0x02, 30, "00 00 00 00 02 00 00 00"},
    {"GblCombo1(0)", Qt::Key_Down, 213, 0x0F, 0xFF, 0xFF, 30, "08 00 00 00 7F 00 00 00"},
    {"GblCombo1(0)", Qt::Key_End, 213, 0x0F, 0xFF, 0xFE, 30, "08 00 00 00 7E 00 00 00"},
    {"GblCombo1(1)", Qt::Key_Down, 213, 0xF0, 0xF0, 0x10, 30, "00 00 00 00 10 00 00 00"},
    {"GblCombo1(2)", Qt::Key_End, 19, 0xFF, 0x00, 0x00, 2, "00 00 00 00 00 00 00 00"},
    {"GblCombo1(3)", Qt::Key_Down, 20, 0xFF, 0x00, 0x00, 2, "00 00 00 00 00 00 00 00"},
    {"GblHScroll1(1)", Qt::Key_End, 212, 0xFF, 0xFF, 0x7F, 30, "00 00 00 7F 00 00 00 00"},
    {"GblCheck1(0)", Qt::Key_Space, 29, 0x01, 0xFF, 0x01, 4, "00 00 01 00 00 00 00 00"},
    {"GblCheck1(1)", Qt::Key_Space, 222, 0x02, 0x02, 0x02, 31, "00 00 00 00 00 00 02 00"},
    {"GblCheck1(2)", Qt::Key_Space, 222, 0x01, 0x01, 0x01, 31, "00 00 00 00 00 00 01 00"},
    {"GblCombo1(16)", Qt::Key_Down, 2, 0x08, 0x08, 0x08, 0, "00 00 00 08 00 00 00 00"},
    {"GblCombo1(17)", Qt::Key_Down, 2, 0x10, 0x10, 0x10, 0, "00 00 00 10 00 00 00 00"},
    {"GblCombo1(18)", Qt::Key_Down, 2, 0x20, 0x20, 0x20, 0, "00 00 00 20 00 00 00 00"},
    {"GblCombo1(19)", Qt::Key_Down, 2, 0xC0, 0xC0, 0x40, 0, "00 00 00 40 00 00 00 00"},
    {"GblCombo1(19)", Qt::Key_End, 2, 0xC0, 0xC0, 0x80, 0, "04 00 00 00 00 00 00 00"},
    {"GblCombo1(5)", Qt::Key_End, 28, 0x03, 0xFF, 0x02, 4, "00 02 00 00 00 00 00 00"},
    {"GblCombo1(6)", Qt::Key_End, 5, 0xFF, 0xFF, 0x17, 0, "00 00 00 00 00 00 17 00"},
    {"GblCombo1(7)", Qt::Key_End, 21, 0xFF, 0xFF, 0x17, 3, "00 17 00 00 00 00 00 00"},
    {"GblCombo1(8)", Qt::Key_End, 6, 0xFF, 0xFF, 0x0B, 0, "00 00 00 00 00 00 00 0B"},
    {"GblCombo1(9)", Qt::Key_End, 22, 0xFF, 0xFF, 0x0B, 3, "00 00 0B 00 00 00 00 00"},
    {"GblOption1(0)", Qt::Key_Space, 2, 0x01, 0x01, 0x01, 0, "00 00 00 01 00 00 00 00"},
    {"GblCombo1(10)", Qt::Key_End, 3, 0xFF, 0xFF, 0x35, 0, "00 00 00 00 35 00 00 00"},
    {"GblCombo1(11)", Qt::Key_Down, 23, 0xFF, 0xFF, 0x01, 3, "00 00 00 01 00 00 00 00"},
    {"GblCombo1(12)", Qt::Key_Down, 24, 0xFF, 0xFF, 0x01, 3, "00 00 00 00 01 00 00 00"},
    {"GblCombo1(13)", Qt::Key_Down, 25, 0xFF, 0xFF, 0x01, 3, "00 00 00 00 00 01 00 00"},
    {"GblCombo1(14)", Qt::Key_Down, 26, 0xFF, 0xFF, 0x01, 3, "00 00 00 00 00 00 01 00"},
    {"GblCombo1(15)", Qt::Key_Down, 27, 0xFF, 0xFF, 0x01, 3, "00 00 00 00 00 00 00 01"},
    {"VScroll2(0)", Qt::Key_Up, 32, 0xFF, 0xFF, 0x01, 4, "00 00 00 00 00 01 00 00"},
    {"VScroll2(0)", Qt::Key_Down, 32, 0xFF, 0xFF, 0xFF, 4, "10 00 00 00 00 7F 00 00"},
    {"VScroll2(13)", Qt::Key_End, 45, 0xFF, 0xFF, 0x32, 6, "00 00 00 00 32 00 00 00"},
    {"VScroll2(34)", Qt::Key_Home, 66, 0xFF, 0xFF, 0xCE, 9, "08 00 00 00 4E 00 00 00"},
    {"VScroll2(47)", Qt::Key_Up, 79, 0xFF, 0xFF, 0x01, 11, "00 00 00 01 00 00 00 00"},
    {"Combo3(0)", Qt::Key_End, 215, 0xFF, 0xFF, 0xFD, 30, "20 00 00 00 00 00 7D 00"},
    {"Combo3(0)", Qt::Key_Home, 215, 0xFF, 0xFF, 0x03, 30, "00 00 00 00 00 00 03 00"},
    {"Combo3(1)", Qt::Key_Home, 218, 0xFF, 0xFF, 0xFF, 31, "02 00 7F 00 00 00 00 00"},
    {"Combo3(1)", Qt::Key_End, 218, 0xFF, 0xFF, 0x0F, 31, "00 00 0F 00 00 00 00 00"},
    {"Combo3(2)", Qt::Key_End, 219, 0xFF, 0xFF, 0x10, 31, "00 00 00 10 00 00 00 00"},
    {"Combo3(3)", Qt::Key_Home, 220, 0xFF, 0xFF, 0xFF, 31, "08 00 00 00 7F 00 00 00"},
    {"Combo3(3)", Qt::Key_End, 220, 0xFF, 0xFF, 0x20, 31, "00 00 00 00 20 00 00 00"},
    {"Check3", Qt::Key_Space, 221, 0x01, 0x01, 0x01, 31, "00 00 00 00 00 01 00 00"},
    {"HScroll3(0)", Qt::Key_End, 216, 0xFF, 0xFF, 0x74, 30, "00 00 00 00 00 00 00 74"},
    {"HScroll3(1)", Qt::Key_Home, 217, 0xFF, 0xFF, 0x0B, 31, "00 0B 00 00 00 00 00 00"},
};

std::string with(std::string before, const Act& act)
{
    const int old = static_cast<unsigned char>(before[act.offset]);
    before[act.offset] = static_cast<char>((old & ~act.written) | act.bits);
    return before;
}

} // namespace

TEST_F(GblWindow, eachControlWritesItsByteMarksAndSendsTheWholeDump)
{
    open();
    for (const Act& act : Acts) {
        load(std::string(415, '\0'));
        key(act.control, act.key);
        EXPECT_EQ(hex(parameters()), hex(with(std::string(415, '\0'), act))) << act.control;
        EXPECT_EQ(mark(), 1) << act.control;
        EXPECT_EQ(sent(), std::vector<std::string>{zeroDumpWith(act.group, act.bytes)}) << act.control;
        EXPECT_EQ(hex(App.GblCurrent), hex(window->Tag.bytes().substr(270))) << act.control;
        EXPECT_TRUE(shell.items["mnuGlobalParam"]);
    }
}

TEST_F(GblWindow, eachControlLeavesAllOtherBitsAsTheyAre)
{
    std::mt19937 random(92);
    open();
    for (int turn = 0; turn < 5; ++turn)
        for (const Act& act : Acts) {
            std::string block = randomBytes(random, 415);
            block[act.offset] = static_cast<char>(block[act.offset] & ~act.read);
            load(block);
            EXPECT_EQ(hex(parameters()), hex(block));
            key(act.control, act.key);
            EXPECT_EQ(hex(parameters()), hex(with(block, act))) << act.control;
            const std::vector<std::string> messages = port.messages();
            ASSERT_EQ(messages.size(), 1U) << act.control;
            EXPECT_EQ(hex(unpackedBody(messages[0])), hex(parameters())) << act.control;
            EXPECT_EQ(mark(), 1) << act.control;
            port.forget();
        }
}

TEST_F(GblWindow, everyControlOfTheBlockIsInTheTable)
{
    open();
    std::set<std::string> tried;
    for (const Act& act : Acts)
        tried.insert(act.control);
    for (QWidget* control : window->findChildren<QWidget*>()) {
        const std::string name = control->objectName().toStdString();
        const bool ofTheBlock = name.starts_with("GblCombo1(") || name.starts_with("GblHScroll1(") ||
                                name.starts_with("GblCheck1(") || name.starts_with("HScroll3(") || name == "Check3" ||
                                name == "Combo3(0)" || name == "Combo3(1)" || name == "Combo3(2)" ||
                                name == "Combo3(3)";
        EXPECT_TRUE(!ofTheBlock || tried.contains(name)) << name;
    }
    EXPECT_EQ(window->findChild<QWidget*>("GblCombo1(4)"), nullptr) << "there is no such member";
}

TEST_F(GblWindow, allFortyEightFadersWriteTheirOwnByte)
{
    open();
    for (int index = 0; index < 48; ++index) {
        load(std::string(415, '\0'));
        const std::string number = std::to_string(index);
        key("VScroll2(" + number + ")", Qt::Key_Down);
        std::string expected(415, '\0');
        expected[static_cast<std::size_t>(32 + index)] = '\xFF';
        EXPECT_EQ(hex(parameters()), hex(expected)) << index;
        EXPECT_EQ(label("Lab2(" + number + ")"), "-1");
        EXPECT_EQ(sent().size(), 1U);
    }
    EXPECT_EQ(slider("VScroll2(0)")->minimum(), -50);
    EXPECT_EQ(slider("VScroll2(47)")->maximum(), 50);
}

TEST_F(GblWindow, everyListRowCanBeChosen)
{
    open();
    QComboBox* pedal = combo("GblCombo1(10)");
    constexpr int Codes[] = {0,  1,  2,  47, 3,  38, 37, 4,  5,  6,  7,  8,  9,  10, 11, 12, 13, 14,
                             15, 16, 17, 18, 22, 20, 21, 22, 23, 24, 25, 26, 27, 28, 29, 39, 40, 41,
                             42, 44, 45, 46, 48, 49, 50, 51, 52, 30, 43, 31, 32, 33, 34, 53};
    ASSERT_EQ(pedal->count(), 52);
    focus(pedal);
    for (int row = 1; row < 52; ++row) {
        QTest::keyClick(pedal, Qt::Key_Down);
        EXPECT_EQ(byteOf(3), Codes[row]) << row;
    }
    EXPECT_EQ(sent().size(), 51U);
    window->GblAggFrm();
    EXPECT_EQ(pedal->currentIndex(), 0) << "the code 53 reads as OFF";
}

// --- Marks and options --------------------------------------------------------------------------------------------

TEST_F(GblWindow, aMarkTakenAwayClearsItsBit)
{
    open(std::string(415, '\xFF'));
    press("GblCheck1(1)");
    EXPECT_EQ(byteOf(222), 0xFD);
    press("GblCheck1(2)");
    EXPECT_EQ(byteOf(222), 0xFC);
    press("GblCheck1(0)");
    EXPECT_EQ(byteOf(29), 0) << "written over the whole byte";
    press("Check3");
    EXPECT_EQ(byteOf(221), 0xFE);
    key("GblCombo1(16)", Qt::Key_Up);
    EXPECT_EQ(byteOf(2), 0xF7);
}

TEST_F(GblWindow, theDamperPolarityFollowsTheFirstOption)
{
    open(std::string(415, '\xFF'));
    EXPECT_TRUE(part<QRadioButton>("GblOption1(0)")->isChecked());
    press("GblOption1(1)");
    EXPECT_EQ(byteOf(2), 0xFE);
    EXPECT_EQ(sent().size(), 1U);
    press("GblOption1(1)");
    EXPECT_TRUE(sent().empty()) << "nothing has changed";
    press("GblOption1(0)");
    EXPECT_EQ(byteOf(2), 0xFF);
    EXPECT_EQ(sent().size(), 1U);
}

TEST_F(GblWindow, theSameRowChosenAgainIsAnEdit)
{
    open();
    QComboBox* scale = combo("GblCombo1(6)");
    focus(scale);
    scale->showPopup();
    QTest::keyClick(scale->view(), Qt::Key_Return);
    QApplication::processEvents();
    EXPECT_EQ(sent(), std::vector<std::string>{zeroDumpWith(0, "")});
    EXPECT_EQ(mark(), 1);
}

// --- Sliders ------------------------------------------------------------------------------------------------------

TEST_F(GblWindow, masterTuneShowsItsWayAndEditsWhereItLands)
{
    open();
    QSlider* tune = slider("GblHScroll1(0)");
    focus(tune);
    const QPoint middle(tune->width() / 2, tune->height() / 2);
    QTest::mousePress(tune, Qt::LeftButton, {}, middle);
    QTest::mouseMove(tune, middle + QPoint(20, 0));
    const std::string onTheWay = label("GblLab1(1)");
    EXPECT_NE(onTheWay, "0");
    QTest::mouseMove(tune, middle + QPoint(40, 0));
    EXPECT_NE(label("GblLab1(1)"), onTheWay);
    EXPECT_TRUE(sent().empty());
    EXPECT_EQ(byteOf(0), 0);
    EXPECT_EQ(mark(), 0);
    QTest::mouseRelease(tune, Qt::LeftButton, {}, middle + QPoint(40, 0));
    EXPECT_EQ(sent().size(), 1U);
    EXPECT_EQ(std::to_string(byteOf(0)), label("GblLab1(1)"));
    EXPECT_EQ(mark(), 1);
}

TEST_F(GblWindow, harmonyRangeAndScalesEditAtEachStepOfADrag)
{
    open();
    QSlider* fader = slider("VScroll2(5)");
    focus(fader);
    const QPoint middle(fader->width() / 2, fader->height() / 2);
    QTest::mousePress(fader, Qt::LeftButton, {}, middle);
    QTest::mouseMove(fader, middle - QPoint(0, 10));
    EXPECT_EQ(sent().size(), 1U);
    QTest::mouseMove(fader, middle - QPoint(0, 20));
    EXPECT_EQ(sent().size(), 1U);
    QTest::mouseRelease(fader, Qt::LeftButton, {}, middle - QPoint(0, 20));
    EXPECT_TRUE(sent().empty());
    EXPECT_EQ(std::to_string(byteOf(37)), label("Lab2(5)"));

    key("HScroll3(0)", Qt::Key_Right);
    key("HScroll3(0)", Qt::Key_Right);
    EXPECT_EQ(sent().size(), 2U);
    EXPECT_EQ(label("Lab3(5)"), "D-1");
}

TEST_F(GblWindow, theVelocityIsANumberOrNormal)
{
    open();
    EXPECT_EQ(label("GblLab1(13)"), "Normal");
    key("GblHScroll1(1)", Qt::Key_Right);
    EXPECT_EQ(label("GblLab1(13)"), "1");
    key("GblHScroll1(1)", Qt::Key_Left);
    EXPECT_EQ(label("GblLab1(13)"), "Normal");
    EXPECT_EQ(sent().size(), 2U);
}

TEST_F(GblWindow, theWheelPassesOverUntouchedControls)
{
    open();
    part<QPushButton>("CommClose")->setFocus();
    for (const char* name : {"GblCombo1(0)", "GblHScroll1(1)"}) {
        auto* control = part<QWidget>(name);
        QWheelEvent event(QPointF(5, 5), control->mapToGlobal(QPointF(5, 5)), {}, QPoint(0, 120), Qt::NoButton, {},
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(control, &event);
    }
    EXPECT_TRUE(sent().empty());
}

// --- Filling ------------------------------------------------------------------------------------------------------

TEST_F(GblWindow, showsEachValueOfEachByteAndKeepsIt)
{
    struct Shown {
        const char* control;
        GblField field;
    };
    constexpr Shown Lists[] = {
        {"GblCombo1(0)", GblField::OctaveUpper},      {"GblCombo1(1)", GblField::OctaveLower},
        {"GblCombo1(2)", GblField::VelocityCurve},    {"GblCombo1(3)", GblField::AfterTouchCurve},
        {"GblCombo1(5)", GblField::ChordRecognition}, {"GblCombo1(6)", GblField::MainScaleType},
        {"GblCombo1(7)", GblField::SubScaleType},     {"GblCombo1(8)", GblField::MainScaleKey},
        {"GblCombo1(9)", GblField::SubScaleKey},      {"GblCombo1(10)", GblField::AssignablePedal},
        {"GblCombo1(11)", GblField::ExtControllerA},  {"GblCombo1(12)", GblField::ExtControllerB},
        {"GblCombo1(13)", GblField::ExtControllerC},  {"GblCombo1(14)", GblField::ExtControllerD},
        {"GblCombo1(15)", GblField::ExtControllerE},  {"GblCombo1(16)", GblField::JsLow},
        {"GblCombo1(17)", GblField::JsUp1},           {"GblCombo1(18)", GblField::JsUp2},
        {"GblCombo1(19)", GblField::EchoBack},        {"Combo3(0)", GblField::HarmonyOctave},
        {"Combo3(1)", GblField::HarmonyChannelArr},   {"Combo3(2)", GblField::HarmonyTrack},
        {"Combo3(3)", GblField::HarmonyChannelSong},
    };
    constexpr Shown Sliders[] = {{"GblHScroll1(0)", GblField::MasterTune},
                                 {"GblHScroll1(1)", GblField::Velocity},
                                 {"HScroll3(0)", GblField::HarmonyRangeLow},
                                 {"HScroll3(1)", GblField::HarmonyRangeHigh}};
    constexpr Shown Marks[] = {{"GblCheck1(0)", GblField::AutoChordScan},
                               {"GblCheck1(1)", GblField::TransposeLock},
                               {"GblCheck1(2)", GblField::VocGtrLock},
                               {"GblOption1(0)", GblField::DamperPolarity},
                               {"Check3", GblField::HarmonyToneGenerator}};
    open();
    for (int turn = 0; turn < 256; ++turn) {
        std::string block(415, '\0');
        for (std::size_t offset = 0; offset < block.size(); ++offset)
            block[offset] = static_cast<char>(static_cast<std::size_t>(turn) + offset * 37);
        load(block);
        ASSERT_EQ(hex(parameters()), hex(block)) << turn;
        ASSERT_EQ(mark(), 0);
        for (const Shown& list : Lists) {
            const int position = gblPosition(block, list.field);
            const QComboBox* box = combo(list.control);
            ASSERT_EQ(box->currentIndex(), position >= 0 && position < box->count() ? position : -1) << list.control;
        }
        for (const Shown& one : Sliders)
            ASSERT_EQ(slider(one.control)->value(), gblPosition(block, one.field)) << one.control;
        for (const Shown& one : Marks)
            ASSERT_EQ(part<QAbstractButton>(one.control)->isChecked(), gblPosition(block, one.field) == 1)
                << one.control;
        ASSERT_EQ(label("Lab2(3)"), std::to_string(gblPosition(block, GblField::UserScale, 3)));
    }
    EXPECT_TRUE(sent().empty());
    EXPECT_TRUE(App.GblCurrent.empty());
}

TEST_F(GblWindow, fillingSetsTheLabelsOfTheValues)
{
    std::string block(415, '\0');
    block[0] = '\xF6'; // -10
    block[212] = 64;
    block[216] = 60;
    block[217] = 127;
    block[32 + 14] = '\xCE';
    open(block);
    EXPECT_EQ(label("GblLab1(1)"), "-10");
    EXPECT_EQ(label("GblLab1(13)"), "64");
    EXPECT_EQ(label("Lab3(5)"), "C4");
    EXPECT_EQ(label("Lab3(7)"), "G9");
    EXPECT_EQ(label("Lab2(14)"), "-50");
    EXPECT_EQ(slider("VScroll2(14)")->value(), -50);
}

TEST_F(GblWindow, aMasterTuneAboveThirtyTwoIsStoredAndReadsAsNothing)
{
    open();
    key("GblHScroll1(0)", Qt::Key_End);
    EXPECT_EQ(byteOf(0), 50);
    EXPECT_EQ(label("GblLab1(1)"), "50");
    window->GblAggFrm();
    EXPECT_EQ(label("GblLab1(1)"), "0");
    EXPECT_EQ(byteOf(0), 50);
}

// --- What the lists cannot carry ----------------------------------------------------------------------------------

TEST_F(GblWindow, aLowerOctaveThatDoesNotFitIsNoChoice)
{
    open(std::string(415, '\x25'));
    const std::string before = window->Tag.bytes();
    EXPECT_EQ(combo("GblCombo1(1)")->currentIndex(), 2);
    key("GblCombo1(1)", Qt::Key_Down); // L-1
    EXPECT_EQ(combo("GblCombo1(1)")->currentIndex(), -1);
    EXPECT_EQ(hex(window->Tag.bytes()), hex(before));
    key("GblCombo1(1)", Qt::Key_End); // L-2
    EXPECT_EQ(combo("GblCombo1(1)")->currentIndex(), -1);
    EXPECT_EQ(hex(window->Tag.bytes()), hex(before));
    EXPECT_TRUE(sent().empty());
    EXPECT_TRUE(App.GblCurrent.empty());

    key("GblCombo1(1)", Qt::Key_Down); // L+2
    EXPECT_EQ(byteOf(213), 0x25);
    EXPECT_EQ(sent().size(), 1U);
}

TEST_F(GblWindow, theLowerOctaveReadsOtherwiseThanItWrites)
{
    open();
    key("GblCombo1(1)", Qt::Key_End); // refused
    key("GblCombo1(1)", Qt::Key_Home);
    EXPECT_EQ(byteOf(213), 0x20);
    EXPECT_EQ(combo("GblCombo1(1)")->currentIndex(), 0);
    window->GblAggFrm();
    EXPECT_EQ(combo("GblCombo1(1)")->currentIndex(), 2) << "the nibble as it stands";
    EXPECT_EQ(byteOf(213), 0x20);
}

TEST_F(GblWindow, anUpperOctaveBelowZeroHasNoRowWhenItIsReadAgain)
{
    open();
    key("GblCombo1(0)", Qt::Key_End);
    EXPECT_EQ(byteOf(213), 0xFE);
    const std::string block = parameters();
    load(block);
    EXPECT_EQ(combo("GblCombo1(0)")->currentIndex(), -1);
    EXPECT_EQ(combo("GblCombo1(1)")->currentIndex(), -1);
    sent();
    key("GblCombo1(16)", Qt::Key_Down);
    EXPECT_EQ(byteOf(213), 0xFE) << "another edit sends it as it stands";
    EXPECT_EQ(sent().size(), 1U);
}

TEST_F(GblWindow, aFunctionThatTheTableLacksIsNoChoiceAndStays)
{
    std::string block(415, '\0');
    block[3] = 19;
    block[25] = 35;
    open(block);
    EXPECT_EQ(combo("GblCombo1(10)")->currentIndex(), -1);
    EXPECT_EQ(combo("GblCombo1(13)")->currentIndex(), -1);
    EXPECT_EQ(hex(parameters()), hex(block));
}
