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
        slide(bar, 0);
        EXPECT_EQ(byteOf(Record[track] + 2), 0);
        for (int value = 1; value <= 127; ++value) {
            const std::string before = block();
            forget();
            key(bar, Qt::Key_Up);
            EXPECT_EQ(hex(block()), hex(with(before, Record[track] + 2, 0xFF, value)));
            EXPECT_EQ(sent(), message(numbers[track], (pair(value) + " 00").c_str()));
            EXPECT_EQ(label("Label2", 2 * static_cast<int>(track) + 1), std::to_string(value));
        }
        key(bar, Qt::Key_Up);
        EXPECT_EQ(sent(), std::vector<std::string>{}) << "the top is reached";
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
            const std::string before = block();
            forget();
            key(bar, position == 0 ? Qt::Key_Down : Qt::Key_Up);
            EXPECT_EQ(hex(block()), hex(with(before, Record[track] + 3, 0xFF, Pans[position].bits)));
            EXPECT_EQ(sent(), message(numbers[track], Pans[position].value));
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
    slide(bar, 40);
    EXPECT_EQ(byteOf(21), 10);
    for (int shownTempo = 41; shownTempo <= 240; ++shownTempo) {
        const std::string before = block();
        forget();
        key(bar, Qt::Key_Up);
        EXPECT_EQ(hex(block()), hex(with(before, 21, 0xFF, shownTempo - 30)));
        const std::string value = shownTempo < 128 ? pair(shownTempo) + " 00" : pair(shownTempo - 128) + " 01";
        EXPECT_EQ(sent(), message("00", value.c_str()));
        EXPECT_EQ(label("Label1", 0), std::to_string(shownTempo));
    }
    EXPECT_EQ(bar->value(), bar->maximum());
    EXPECT_EQ(pair(byteOf(21)), "D2");
}

TEST_F(EditorControls, theTempoIsSentBeforeItIsStored)
{
    slide(fader("VScroll1", 0), 120);
    struct Watch : RecordingMidiService {
        int stored = -1;
        int midiOutLongMsg(std::int32_t handle, std::string_view bytes) override
        {
            stored = static_cast<unsigned char>(Arr.ArrEditBuf[21]);
            return RecordingMidiService::midiOutLongMsg(handle, bytes);
        }
    } watch;
    Midi.service = &watch;
    key(fader("VScroll1", 0), Qt::Key_Up);
    EXPECT_EQ(wire(watch), std::vector<std::string>{parameter("00 79 00")});
    EXPECT_EQ(watch.stored, 90) << "the byte of 120 stood when the message went out";
    EXPECT_EQ(byteOf(21), 91);
    Midi.service = &port;
}

TEST_F(EditorControls, theSplitPointShowsItsNoteAndTellsTheKeyboardWindow)
{
    std::vector<int> told;
    Arr.keyboardSplit = [&told](int note) { told.push_back(note); };
    QSlider* bar = fader("HScroll1", 0);
    EXPECT_EQ(bar->pageStep(), 10);
    slide(bar, 36);
    EXPECT_EQ(label("Label1", 3), "C2");
    const char* octaveOfNotes[] = {"C", "C#", "D", "D#", "E", "F", "F#", "G", "G#", "A", "A#", "B"};
    for (int note = 37; note <= 96; ++note) {
        const std::string before = block();
        forget();
        told.clear();
        key(bar, Qt::Key_Right);
        EXPECT_EQ(hex(block()), hex(with(before, 23, 0xFF, note)));
        EXPECT_EQ(sent(), message("02", (pair(note) + " 00").c_str()));
        EXPECT_EQ(told, std::vector<int>{note});
        std::string text = octaveOfNotes[note % 12];
        text.insert(1, std::to_string(note / 12 - 1)); // the octave stands before the sharp
        EXPECT_EQ(label("Label1", 3), text);
    }
    EXPECT_EQ(label("Label1", 3), "C7");
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
            const std::string before = block();
            const bool on = !box->isChecked();
            Arr.ArrEditDirty = false;
            forget();
            if (press % 2 == 0)
                key(box, Qt::Key_Space);
            else
                QTest::mouseClick(box, Qt::LeftButton, {}, QPoint(8, box->height() / 2));
            EXPECT_EQ(box->isChecked(), on);
            EXPECT_EQ(hex(block()), hex(with(before, one.offset, one.mask, on ? one.mask : 0))) << one.caption;
            EXPECT_EQ(sent(), message(one.number, on ? "01 00" : "00 00")) << one.caption;
            EXPECT_TRUE(Arr.ArrEditDirty);
        }
    }
}

TEST_F(EditorControls, theDrumMapBarWritesTheVariationThatIsChosen)
{
    for (int variation = 0; variation < 4; ++variation) {
        choose(combo("Combo1", 5), variation);
        QSlider* bar = fader("HScroll1", 1);
        slide(bar, 2);
        slide(bar, 1);
        for (int value = 2; value <= 8; ++value) {
            const std::string before = block();
            forget();
            key(bar, Qt::Key_Right);
            EXPECT_EQ(hex(block()), hex(with(before, 29 + static_cast<std::size_t>(variation), 0xFF, value)));
            EXPECT_EQ(sent(), std::vector<std::string>{});
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

TEST_F(EditorControls, kickAndSnareIgnoreEveryChoice)
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

TEST_F(EditorControls, theNameWritesTenCharactersAndKeepsWhatStandsBehind)
{
    editor->close();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    editBlock(Block().name("Evergreen Waltz!").set(40, 0xEE).bytes);
    EXPECT_EQ(shown(0), "Evergreen Waltz!");
    EXPECT_EQ(caption(), "Edit Arrangement  song.arr / Evergreen ");
    const std::string before = block();
    focus(field(0));
    field(0)->selectAll();
    QTest::keyClicks(field(0), "Abc");
    EXPECT_EQ(hex(block()), hex("Abc       " + before.substr(10)));
    EXPECT_EQ(caption(), "Edit Arrangement  song.arr / Abc");
    EXPECT_TRUE(Arr.ArrNameChanged);
    EXPECT_TRUE(Arr.ArrEditDirty);
    EXPECT_EQ(sent(), std::vector<std::string>{});

    QTest::keyClicks(field(0), "defghijklmnopqrst");
    EXPECT_EQ(shown(0), "Abcdefghijklmnop") << "sixteen can be typed";
    EXPECT_EQ(block(), "Abcdefghij" + before.substr(10)) << "ten are kept";
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
