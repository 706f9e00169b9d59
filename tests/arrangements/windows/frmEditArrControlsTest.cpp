// Faders, bars, check marks, effect switches and the name through all of their values: the byte each writes, the bits
// it leaves alone, the message it sends or the silence. The expectations are the instrument's parameter list.
#include "EditorWindow.h"

namespace
{

/// Positions of the pan bar from the bottom: its text, the byte, the value bytes.
const std::vector<ListRow> Pans = {
    {"OFF", 0xFF, "7F 7F"}, {"L15", 0x00, "00 00"}, {"L14", 0x01, "01 00"}, {"L13", 0x02, "02 00"},
    {"L12", 0x03, "03 00"}, {"L11", 0x04, "04 00"}, {"L10", 0x05, "05 00"}, {"L9", 0x06, "06 00"},
    {"L8", 0x07, "07 00"},  {"L7", 0x08, "08 00"},  {"L6", 0x09, "09 00"},  {"L5", 0x0A, "0A 00"},
    {"L4", 0x0B, "0B 00"},  {"L3", 0x0C, "0C 00"},  {"L2", 0x0D, "0D 00"},  {"L1", 0x0E, "0E 00"},
    {"CNT", 0x0F, "0F 00"}, {"R1", 0x10, "10 00"},  {"R2", 0x11, "11 00"},  {"R3", 0x12, "12 00"},
    {"R4", 0x13, "13 00"},  {"R5", 0x14, "14 00"},  {"R6", 0x15, "15 00"},  {"R7", 0x16, "16 00"},
    {"R8", 0x17, "17 00"},  {"R9", 0x18, "18 00"},  {"R10", 0x19, "19 00"}, {"R11", 0x1A, "1A 00"},
    {"R12", 0x1B, "1B 00"}, {"R13", 0x1C, "1C 00"}, {"R14", 0x1D, "1D 00"}, {"R15", 0x1E, "1E 00"},
    {"PRG", 0x1F, "1F 00"}};

} // namespace

TEST_F(EditorControls, eachVolumeFaderSends128ValuesAsTheyAreStored)
{
    const std::array<const char*, 9> numbers = {"0B", "15", "1F", "29", "33", "3D", "47", "51", "5B"};
    for (std::size_t track = 0; track < 9; ++track) {
        QSlider* bar = fader("VScroll1", 2 * static_cast<int>(track) + 1);
        SCOPED_TRACE(bar->objectName().toStdString());
        EXPECT_EQ(bar->orientation(), Qt::Vertical);
        EXPECT_EQ(bar->pageStep(), 10);
        slide(bar, 1);
        for (int value = 0; value <= 127; ++value) {
            ready();
            key(bar, value == 0 ? Qt::Key_Down : Qt::Key_Up);
            expectEdit(Record[track] + 2, 0xFF, value, message(numbers[track], (pair(value) + " 00").c_str()));
            EXPECT_EQ(label("Label2", 2 * static_cast<int>(track) + 1), std::to_string(value));
        }
        ready();
        key(bar, Qt::Key_Up);
        EXPECT_EQ(sent(), std::vector<std::string>{}) << "the top is reached";
        EXPECT_FALSE(Arr.ArrEditDirty);
    }
}

TEST_F(EditorControls, eachPanFaderGoesFromOffOverTheCentreToPrg)
{
    const std::array<const char*, 9> numbers = {"0C", "16", "20", "2A", "34", "3E", "48", "52", "5C"};
    for (std::size_t track = 0; track < 9; ++track) {
        const int index = 2 * static_cast<int>(track) + 2;
        QSlider* bar = fader("VScroll1", index);
        SCOPED_TRACE(bar->objectName().toStdString());
        EXPECT_EQ(bar->pageStep(), 3);
        slide(bar, 2);
        for (std::size_t position = 0; position < Pans.size(); ++position) {
            ready();
            key(bar, position == 0 ? Qt::Key_Down : Qt::Key_Up);
            expectEdit(Record[track] + 3, 0xFF, Pans[position].bits, message(numbers[track], Pans[position].value));
            EXPECT_EQ(label("Label2", index), Pans[position].text);
        }
        EXPECT_EQ(bar->value(), 33);
    }
}

TEST_F(EditorControls, theTempoSendsWhatItShowsAndStoresThirtyLess)
{
    QSlider* bar = fader("VScroll1", 0);
    EXPECT_EQ(bar->pageStep(), 10);
    slide(bar, 41);
    for (int shownTempo = 40; shownTempo <= 240; ++shownTempo) {
        ready();
        key(bar, shownTempo == 40 ? Qt::Key_Down : Qt::Key_Up);
        const std::string value = shownTempo < 128 ? pair(shownTempo) + " 00" : pair(shownTempo - 128) + " 01";
        // The tempo alone is sent before it is stored.
        expectEdit(21, 0xFF, shownTempo - 30, message("00", value.c_str()), Sent::BeforeTheWriting);
        EXPECT_EQ(label("Label1", 0), std::to_string(shownTempo));
    }
    EXPECT_EQ(bar->value(), bar->maximum());
    EXPECT_EQ(pair(byteOf(21)), "D2");
}

TEST_F(EditorControls, theLowestValuesAreSentLikeAllOthers)
{
    struct Lowest {
        QSlider* bar;
        int code;
        std::size_t offset;
        int byte;
        const char* message; ///< "" where nothing goes out
    };
    const Lowest bars[] = {{fader("VScroll1", 0), Qt::Key_Down, 21, 0x0A, "00 28 00"},
                           {fader("VScroll1", 17), Qt::Key_Down, 105, 0x00, "5B 00 00"},
                           {fader("VScroll1", 18), Qt::Key_Down, 106, 0xFF, "5C 7F 7F"},
                           {fader("HScroll1", 0), Qt::Key_Left, 23, 0x24, "02 24 00"},
                           {fader("HScroll1", 1), Qt::Key_Left, 29, 0x01, ""}};
    for (const Lowest& one : bars) {
        SCOPED_TRACE(one.bar->objectName().toStdString());
        slide(one.bar, one.bar->minimum() + 1);
        forget();
        key(one.bar, one.code);
        EXPECT_EQ(pair(byteOf(one.offset)), pair(one.byte));
        EXPECT_EQ(sent(),
                  *one.message == '\0' ? std::vector<std::string>{} : std::vector<std::string>{parameter(one.message)});
    }
}

TEST_F(EditorControls, theSplitPointShowsItsNoteAndTellsTheKeyboardWindow)
{
    std::vector<int> told;
    Arr.keyboardSplit = [&told](int note) { told.push_back(note); };
    QSlider* bar = fader("HScroll1", 0);
    EXPECT_EQ(bar->pageStep(), 10);
    slide(bar, 37);
    const char* octaveOfNotes[] = {"C", "C#", "D", "D#", "E", "F", "F#", "G", "G#", "A", "A#", "B"};
    for (int note = 36; note <= 96; ++note) {
        ready();
        told.clear();
        key(bar, note == 36 ? Qt::Key_Left : Qt::Key_Right);
        expectEdit(23, 0xFF, note, message("02", (pair(note) + " 00").c_str()));
        EXPECT_EQ(told, std::vector<int>{note});
        std::string text = octaveOfNotes[note % 12];
        text.insert(1, std::to_string(note / 12 - 1)); // the octave stands before the sharp
        EXPECT_EQ(label("Label1", 3), text);
    }
    EXPECT_EQ(label("Label1", 3), "C7");

    told.clear();
    Arr.ArrEditBuf[23] = 48;
    editor->ArrEditFill();
    EXPECT_EQ(label("Label1", 3), "C3");
    EXPECT_EQ(told, std::vector<int>{}) << "only the user's hand moves the keyboard's split";
    Arr.keyboardSplit = nullptr;
    key(bar, Qt::Key_Right);
    EXPECT_EQ(byteOf(23), 49) << "without a keyboard window";
}

TEST_F(EditorControls, eachCheckMarkWritesItsBitAndOnlyThreeAreSent)
{
    struct CheckCase {
        const char* caption;
        std::size_t offset;
        int mask;
        const char* number;
    };
    const CheckCase cases[] = {{"Dynamic Velocity", 27, 0x01, ""}, {"Tempo Lock", 27, 0x02, ""},
                               {"KBD1 Damp En", 27, 0x04, "4F"},   {"KBD2 Damp En", 27, 0x08, "59"},
                               {"Chord Scan Low", 28, 0x01, ""},   {"Chord Scan High", 28, 0x02, ""},
                               {"Bass Inversion", 28, 0x04, ""},   {"Chord Hold", 28, 0x08, ""},
                               {"Chord Latch", 28, 0x10, "01"},    {"Sw", 24, 0x80, ""}};
    int index = 0;
    for (const CheckCase& one : cases) {
        QCheckBox* box = check(index++);
        EXPECT_EQ(box->text(), one.caption);
        for (int press = 0; press < 3; ++press) {
            SCOPED_TRACE(one.caption);
            const bool on = !box->isChecked();
            ready();
            if (press % 2 == 0)
                key(box, Qt::Key_Space);
            else
                QTest::mouseClick(box, Qt::LeftButton, {}, QPoint(8, box->height() / 2));
            EXPECT_EQ(box->isChecked(), on);
            expectEdit(one.offset, one.mask, on ? one.mask : 0, message(one.number, on ? "01 00" : "00 00"));
        }
    }
}

TEST_F(EditorControls, theDrumMapBarWritesTheVariationThatIsChosen)
{
    for (int variation = 0; variation < 4; ++variation) {
        choose(combo("Combo1", 5), variation);
        QSlider* bar = fader("HScroll1", 1);
        slide(bar, 3);
        slide(bar, 2);
        for (int value = 1; value <= 8; ++value) {
            ready();
            key(bar, value == 1 ? Qt::Key_Left : Qt::Key_Right);
            expectEdit(29 + static_cast<std::size_t>(variation), 0xFF, value, {});
            EXPECT_EQ(label("Label1", 4), std::to_string(value));
        }
    }
}

TEST_F(EditorControls, theEffectLabelFollowsTheChoice)
{
    choose(combo("EffCombo", 0), 46);
    EXPECT_EQ(label("EffLab1", 0), "Effect 1 (1)");
    choose(combo("EffCombo", 0), 47);
    EXPECT_EQ(label("EffLab1", 0), "Effect 1 (Off)");
    choose(combo("EffCombo", 1), 0);
    EXPECT_EQ(label("EffLab1", 1), "Effect 2 (47)");
}

TEST_F(EditorControls, theEffectSwitchesSendAndStoreNothing)
{
    const std::string before = block();
    const char* numbers[] = {"07", "09"};
    for (int effect = 0; effect < 2; ++effect) {
        QPushButton* press = button("EffComm", effect);
        EXPECT_EQ(press->text(), "On");
        click(press);
        EXPECT_EQ(press->text(), "Off");
        EXPECT_EQ(sent(), message(numbers[effect], "00 00"));
        key(press, Qt::Key_Space);
        EXPECT_EQ(press->text(), "On");
        EXPECT_EQ(sent(), message(numbers[effect], "01 00"));
    }
    EXPECT_EQ(hex(block()), hex(before));
    EXPECT_FALSE(Arr.ArrEditDirty);
}

TEST_F(EditorControls, kickAndSnareOutsideTheirListsIgnoreEveryChoice)
{
    for (const int index : {6, 7}) {
        QComboBox* box = combo("Combo1", index);
        ASSERT_EQ(box->count(), 4);
        const std::string before = block();
        const int row = box->currentIndex();
        for (const int code : {Qt::Key_Down, Qt::Key_Down, Qt::Key_Up, Qt::Key_End})
            key(box, code);
        focus(box);
        box->lineEdit()->selectAll();
        QTest::keyClicks(box->lineEdit(), " c");
        EXPECT_EQ(hex(block()), hex(before));
        EXPECT_EQ(sent(), std::vector<std::string>{});
        EXPECT_FALSE(Arr.ArrEditDirty);
        EXPECT_EQ(box->currentIndex(), row) << "what is shown is what the arrangement has";
    }
}

TEST_F(EditorControls, kickAndSnareIgnoreEveryChoiceByKeyAndMouse)
{
    Arr.ArrEditBuf[33] = 1;
    Arr.ArrEditBuf[34] = 3;
    editor->ArrEditFill();
    const std::pair<int, const char*> cases[] = {{6, " B"}, {7, " D"}};
    for (const auto& [index, shown] : cases) {
        QComboBox* box = combo("Combo1", index);
        SCOPED_TRACE(index);
        choose(combo("Combo1", 1), 4);
        choose(combo("Combo1", 1), 3); // an edit of another list comes before: its byte is not overwritten either
        const std::string before = Arr.ArrEditBuf;
        for (const int code : {Qt::Key_Down, Qt::Key_Up, Qt::Key_Home, Qt::Key_End}) {
            ready();
            key(box, code);
            EXPECT_EQ(box->currentText(), shown);
        }
        ready();
        chooseByMouse(box, 2);
        EXPECT_EQ(box->currentText(), shown);
        expectNoHighlight();
        EXPECT_EQ(hex(Arr.ArrEditBuf), hex(before));
        EXPECT_EQ(sent(), std::vector<std::string>{});
        EXPECT_FALSE(Arr.ArrEditDirty);
    }
}

TEST_F(EditorControls, theVariationSelectorTakesTheHighlightAwayAndWritesNothing)
{
    choose(combo("Combo1", 5), 1);
    const std::string before = Arr.ArrEditBuf;
    ready();
    chooseByMouse(combo("Combo1", 5), 3);
    EXPECT_EQ(combo("Combo1", 5)->currentText(), " VAR4");
    expectNoHighlight();
    EXPECT_EQ(hex(Arr.ArrEditBuf), hex(before));
    EXPECT_EQ(sent(), std::vector<std::string>{});
    EXPECT_FALSE(Arr.ArrEditDirty);
}

TEST_F(EditorControls, theMouseChoosesARowOfAList)
{
    choose(combo("Combo2", 16), 0);
    ready();
    chooseByMouse(combo("Combo2", 16), 1);
    expectEdit(61, 0x0C, 0x04, message("23", "01 00"));
    choose(combo("EffCombo", 1), 1);
    ready();
    chooseByMouse(combo("EffCombo", 1), 2);
    expectEdit(136, 0xFF, 45, message("08", "2D 00"));
}

TEST_F(EditorControls, theNameWritesTenCharactersAndKeepsWhatStandsBehind)
{
    editor->close();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    editBlock(Block().name("Evergreen Waltz!").set(40, 0xEE).bytes);
    EXPECT_EQ(shown(0), "Evergreen Waltz!");
    EXPECT_EQ(caption(), "Edit Arrangement  song.arr / Evergreen ");
    const std::string before = Arr.ArrEditBuf;
    focus(field(0));
    field(0)->selectAll();
    ready();
    QTest::keyClicks(field(0), "Abc");
    EXPECT_EQ(hex(Arr.ArrEditBuf), hex("Abc       " + before.substr(10)));
    expectNoHighlight();
    EXPECT_EQ(caption(), "Edit Arrangement  song.arr / Abc");
    EXPECT_TRUE(Arr.ArrNameChanged);
    EXPECT_TRUE(Arr.ArrEditDirty);
    EXPECT_EQ(sent(), std::vector<std::string>{});

    QTest::keyClicks(field(0), "defghijklmnopqrst");
    EXPECT_EQ(shown(0), "Abcdefghijklmnop") << "sixteen can be typed";
    EXPECT_EQ(Arr.ArrEditBuf, "Abcdefghij" + before.substr(10)) << "ten are kept";
    EXPECT_EQ(caption(), "Edit Arrangement  song.arr / Abcdefghijklmnop");
}

TEST_F(EditorControls, aNameTakesTheLettersOfTheInstrumentAlone)
{
    focus(field(0));
    field(0)->selectAll();
    for (const char* letter : {"P", "e", "r", "c", "h", "\u00E9", "\u20AC"})
        QTest::sendKeyEvent(QTest::Click, field(0), Qt::Key_unknown, QString::fromUtf8(letter), {});
    EXPECT_EQ(block().substr(0, 10), "Perch\xE9    ");
}
