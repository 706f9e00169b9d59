// The editor opens, fills, shows what the bytes mean and takes typed text, the mouse and the keys.
#include "EditorWindow.h"

TEST_F(Editor, hasEveryControlByNameAndIndex)
{
    edit(usual());
    auto* pages = part<QTabWidget>("SSTab1");
    ASSERT_EQ(pages->count(), 2);
    EXPECT_EQ(pages->tabText(0), "General, Drum, Percussion, Bass");
    EXPECT_EQ(pages->tabText(1), "ACC1,2,3, UPPER1, UPPER2, LOWER");
    const std::vector<std::vector<std::pair<const char*, const char*>>> frames = {{{"Frame2", "Switches"},
                                                                                   {"Frame1", "Effects 1,2, On/Off"},
                                                                                   {"General", "General"},
                                                                                   {"Frame5", "Ensemble"},
                                                                                   {"Drum", "Drum"},
                                                                                   {"Percussion", "Percussion"},
                                                                                   {"FrBass", "Bass"}},
                                                                                  {{"FrAcc1", "ACC1"},
                                                                                   {"FrACC2", "ACC2"},
                                                                                   {"FrACC3", "ACC3"},
                                                                                   {"UPPER1", "UPPER1"},
                                                                                   {"UPPER2", "UPPER2"},
                                                                                   {"LOWER", "LOWER"}}};
    for (int page = 0; page < 2; ++page)
        for (const auto& [name, text] : frames[static_cast<std::size_t>(page)]) {
            auto* frame = part<QGroupBox>(name);
            EXPECT_EQ(frame->title(), text);
            EXPECT_TRUE(pages->widget(page)->isAncestorOf(frame)) << name;
        }
    struct Array {
        const char* name;
        const char* type;
        int first;
        int last;
    };
    for (const Array array :
         {Array{"Text1", "QLineEdit", 0, 19}, Array{"VScroll1", "QSlider", 0, 18}, Array{"Label2", "QLabel", 1, 18},
          Array{"HScroll1", "QSlider", 0, 1}, Array{"Combo1", "QComboBox", 0, 9}, Array{"Combo2", "QComboBox", 0, 53},
          Array{"Check1", "QCheckBox", 0, 9}, Array{"EffCombo", "QComboBox", 0, 1},
          Array{"EffComm", "QPushButton", 0, 1}, Array{"EffLab1", "QLabel", 0, 1}, Array{"CommM", "QPushButton", 0, 8},
          Array{"CommS", "QPushButton", 0, 8}, Array{"Label1", "QLabel", 0, 0}, Array{"Label1", "QLabel", 3, 4},
          Array{"Label", "QLabel", 1, 1}})
        for (int index = array.first; index <= array.last; ++index) {
            const QString name = QString::fromStdString(member(array.name, index));
            const auto found = editor->findChildren<QWidget*>(name);
            ASSERT_EQ(found.size(), 1) << name.toStdString();
            EXPECT_TRUE(found[0]->inherits(array.type)) << name.toStdString();
        }
    EXPECT_EQ(field(0)->maxLength(), 16);
    EXPECT_FALSE(field(0)->isReadOnly());
    for (int index = 1; index < 20; ++index)
        EXPECT_TRUE(field(index)->isReadOnly()) << index;
}

TEST_F(Editor, speaksOfEachControlToAScreenReader)
{
    edit(usual());
    const std::pair<const char*, const char*> names[] = {{"VScroll1(5)", "Volume, Bass"},
                                                         {"VScroll1(6)", "Pan, Bass"},
                                                         {"Combo2(0)", "C Send L, Drum"},
                                                         {"Combo2(53)", "W-Around, LOWER"},
                                                         {"Combo2(22)", "Out Status2, ACC1"},
                                                         {"CommM(6)", "Mute, UPPER1"},
                                                         {"CommS(8)", "Solo, LOWER"},
                                                         {"Text1(4)", "Program, Percussion"},
                                                         {"Text1(0)", "Name"},
                                                         {"Combo1(0)", "Keyboard Assign"},
                                                         {"Combo1(6)", "Kick Designation"},
                                                         {"EffCombo(1)", "Effect 2"},
                                                         {"HScroll1(0)", "Split Point"},
                                                         {"VScroll1(0)", "Tempo"}};
    for (const auto& [name, spoken] : names)
        EXPECT_EQ(part<QWidget>(name)->accessibleName(), spoken);
    for (const QWidget* control : editor->findChildren<QWidget*>()) {
        const bool asked = control->inherits("QSlider") || control->inherits("QComboBox") ||
                           control->inherits("QPushButton") || control->objectName().startsWith("Text1(");
        if (asked) {
            EXPECT_FALSE(control->accessibleName().isEmpty()) << control->objectName().toStdString();
        }
    }
}

TEST_F(Editor, opensFromTheArrangementWindowAndShowsTheBlock)
{
    edit(usual());
    EXPECT_TRUE(Arr.ArrEditOpen);
    EXPECT_FALSE(Arr.ArrEditDirty);
    EXPECT_FALSE(Arr.ArrNameChanged);
    EXPECT_EQ(Arr.editor, editor);
    EXPECT_EQ(fieldTarget(), editor);
    EXPECT_EQ(App.OtherCount, 1);
    EXPECT_EQ(editor->windowKind(), 13);
    EXPECT_EQ(caption(), "Edit Arrangement  song.arr / Evergreen ");
    EXPECT_EQ(shown(0), "Evergreen");
    EXPECT_EQ(shown(1), "Testa Rock");
    EXPECT_EQ(label("Label", 1), "Style (A16)");
    EXPECT_EQ(fader("VScroll1", 0)->value(), 120);
    EXPECT_EQ(label("Label1", 0), "120");
    EXPECT_EQ(label("Label1", 3), "C4");
    EXPECT_EQ(combo("Combo1", 4)->currentText(), " -1");
    EXPECT_EQ(combo("Combo1", 5)->currentText(), " VAR1");
    EXPECT_EQ(label("Label1", 4), "3");
    EXPECT_EQ(label("EffLab1", 0), "Effect 1 (Off)");
    EXPECT_EQ(button("EffComm", 1)->text(), "On");
    EXPECT_EQ(shown(6), "A-33            ") << "a program's name as it stands";
    EXPECT_EQ(shown(7), "A 52");
    EXPECT_EQ(shown(9), "D 17");
    EXPECT_EQ(shown(3), "Dr 25");
    EXPECT_EQ(fader("VScroll1", 5)->value(), 64);
    EXPECT_EQ(label("Label2", 5), "64");
    EXPECT_EQ(label("Label2", 6), "PRG");
    const char* bass[] = {"PRG", " 2", "  1", "BOTH", "MUTE", " ORG"};
    EXPECT_EQ(combo("Combo2", 12)->currentText(), bass[0]);
    EXPECT_EQ(combo("Combo2", 13)->currentText(), bass[1]);
    EXPECT_EQ(combo("Combo2", 14)->currentText(), " +1");
    EXPECT_EQ(combo("Combo2", 15)->currentText(), bass[3]);
    EXPECT_EQ(combo("Combo2", 16)->currentText(), bass[4]);
    EXPECT_EQ(combo("Combo2", 17)->currentText(), bass[5]);
    EXPECT_EQ(colours("CommM"), "---------") << "neutral although the bass is stored as muted";
    EXPECT_EQ(colours("CommS"), "---------");
}

TEST_F(Editor, showsNoRowForAValueOutsideItsListAndKeepsTheByte)
{
    Block block = usual();
    block.set(19, 4).set(22, 11).set(24, 0x8A).set(33, 4).set(34, 255).set(43, 0xFB).set(45, 0x0C);
    block.set(61, 0x0F);
    edit(block);
    for (const int index : {3, 0, 8, 6, 7}) {
        EXPECT_EQ(combo("Combo1", index)->currentIndex(), -1) << index;
        EXPECT_EQ(combo("Combo1", index)->currentText(), "") << index;
    }
    EXPECT_EQ(combo("Combo2", 0)->currentIndex(), -1) << "send nibble 11";
    EXPECT_EQ(combo("Combo2", 1)->currentIndex(), -1) << "send nibble 15";
    EXPECT_EQ(combo("Combo2", 3)->currentText(), "BOTH") << "a state above 11 is taken as 3";
    EXPECT_EQ(combo("Combo2", 4)->currentIndex(), -1) << "the fourth of the three states";
    EXPECT_EQ(combo("Combo2", 4)->currentText(), "");
    EXPECT_EQ(combo("Combo2", 16)->currentIndex(), -1);
    EXPECT_TRUE(check(9)->isChecked());
    EXPECT_EQ(hex(Arr.ArrEditBuf.substr(0, 164)), hex(block.bytes));

    key(combo("Combo1", 3), Qt::Key_Down);
    EXPECT_EQ(byteOf(19), 0) << "until the user chooses a row";
    forget();
    choose(combo("Combo2", 3), 2);
    EXPECT_EQ(pair(byteOf(45)), "0E") << "the state beside it is another edit";
    EXPECT_EQ(combo("Combo2", 4)->currentIndex(), -1);
    forget();
    key(combo("Combo2", 4), Qt::Key_Down);
    EXPECT_EQ(pair(byteOf(45)), "02");
    EXPECT_EQ(sent(), std::vector<std::string>{parameter("0F 00 00")});
}

TEST_F(Editor, anEditReplacesItsOwnBitsOfAnOddByte)
{
    Block block = usual();
    block.set(45, 0xF3).set(43, 0xEF).set(24, 0xFF);
    edit(block);
    choose(combo("Combo2", 3), 1);
    EXPECT_EQ(pair(byteOf(45)), "F1");
    choose(combo("Combo2", 0), 10);
    EXPECT_EQ(pair(byteOf(43)), "E0");
    choose(combo("Combo1", 8), 2);
    EXPECT_EQ(pair(byteOf(24)), "82");
    key(check(9), Qt::Key_Space);
    EXPECT_EQ(pair(byteOf(24)), "02");
}

TEST_F(Editor, aSecondDrumKitRowIsStoredAndReadsBackAsTheEighth)
{
    edit(usual());
    choose(combo("Combo1", 9), 8);
    EXPECT_EQ(combo("Combo1", 9)->currentText(), " Dr21");
    EXPECT_EQ(byteOf(26), 8);
    editor->ArrEditFill();
    EXPECT_EQ(combo("Combo1", 9)->currentText(), " Dr18");
    EXPECT_EQ(byteOf(26), 8);
}

TEST_F(Editor, choosingAVariationShowsItsByteAndWritesNothing)
{
    edit(usual());
    const std::string before = block();
    QSlider* bar = fader("HScroll1", 1);
    const std::pair<int, const char*> expected[] = {{1, "8"}, {2, "8"}, {3, "1"}};
    for (const auto& [variation, text] : expected) {
        choose(combo("Combo1", 5), variation);
        EXPECT_EQ(label("Label1", 4), text) << "a byte out of range is shown at the nearest end";
        EXPECT_EQ(std::to_string(bar->value()), text);
    }
    EXPECT_EQ(hex(block()), hex(before));
    EXPECT_EQ(sent(), std::vector<std::string>{});
    EXPECT_FALSE(Arr.ArrEditDirty);

    choose(combo("Combo1", 5), 2);
    key(bar, Qt::Key_Left);
    EXPECT_EQ(byteOf(31), 7);
    editor->ArrEditFill();
    EXPECT_EQ(combo("Combo1", 5)->currentText(), " VAR1") << "back at the first with each fill";
}

TEST_F(Editor, sendsTheSwitchesThatTheOpenedArrangementChanges)
{
    Block block = usual();
    block.set(27, 0x0F).set(28, 0x1F);
    source = open(1, "song", arrFile({{0, block}, {1, Block().name("Second")}}));
    clickRow(source, 0);
    forget();
    press(source, "CommEdit");
    EXPECT_EQ(sent(), (std::vector<std::string>{parameter("4F 01 00"), parameter("59 01 00"), parameter("01 01 00")}));
    EXPECT_EQ(hex(EditorWindow::block()), hex(block.bytes));
    EXPECT_FALSE(Arr.ArrEditDirty);

    clickRow(source, 1);
    EXPECT_EQ(sent(), (std::vector<std::string>{parameter("4F 00 00"), parameter("59 00 00"), parameter("01 00 00"),
                                                "B2 00 00", "B2 20 01", "C2 01"}))
        << "the editor follows the selection";
    EXPECT_EQ(shown(0), "Second");
    editor->ArrEditFill();
    EXPECT_EQ(sent(), std::vector<std::string>{}) << "nothing changes, nothing is sent";
}

TEST_F(Editor, aFillOfTheOtherControlsSendsNothing)
{
    edit(usual());
    int row = 0;
    Block other = usual();
    for (std::size_t offset = 19; offset < 164; ++offset)
        if (offset != 27 && offset != 28)
            other.set(offset, static_cast<int>(offset * 5 % 11));
    ArrEditLoad(arrImage("/music/song", arrFile({{0, other}})), row);
    forget();
    editor->ArrEditFill();
    EXPECT_EQ(sent(), std::vector<std::string>{});
    EXPECT_EQ(hex(block()), hex(other.bytes));
}

TEST_F(Editor, typedTextBecomesTheRowThatItEqualsWhateverItsCase)
{
    edit(usual());
    QComboBox* state = combo("Combo2", 16);
    focus(state);
    state->lineEdit()->selectAll();
    QTest::keyClicks(state->lineEdit(), "pla");
    EXPECT_EQ(sent(), std::vector<std::string>{});
    EXPECT_EQ(byteOf(61) & 0x0C, 0x04) << "a part of a row is none";
    QTest::keyClicks(state->lineEdit(), "y");
    EXPECT_EQ(state->currentText(), "PLAY");
    EXPECT_EQ(sent(), std::vector<std::string>{parameter("23 00 00")});
    EXPECT_EQ(byteOf(61) & 0x0C, 0x00);

    QComboBox* assign = combo("Combo1", 0);
    focus(assign);
    assign->lineEdit()->selectAll();
    QTest::keyClicks(assign->lineEdit(), "m. drums");
    EXPECT_EQ(byteOf(22), 3);
    assign->lineEdit()->selectAll();
    QTest::keyClicks(assign->lineEdit(), "full");
    field(0)->setFocus();
    QApplication::sendPostedEvents();
    EXPECT_EQ(byteOf(22), 3);
}

TEST_F(Editor, textThatIsNoRowGivesWayWhenTheTypingEnds)
{
    edit(usual());
    QComboBox* fill = combo("Combo1", 1);
    focus(fill);
    fill->lineEdit()->selectAll();
    QTest::keyClicks(fill->lineEdit(), "nonsense");
    QTest::keyClick(fill->lineEdit(), Qt::Key_Return);
    EXPECT_EQ(fill->currentText(), " OFF");
    EXPECT_EQ(sent(), std::vector<std::string>{});
    EXPECT_FALSE(Arr.ArrEditDirty);
}

TEST_F(Editor, choosingTheSameRowAgainSendsAgain)
{
    edit(usual());
    QComboBox* fill = combo("Combo1", 1);
    focus(fill);
    fill->showPopup();
    QTest::keyClick(fill->view(), Qt::Key_Return);
    QApplication::processEvents();
    EXPECT_EQ(sent(), std::vector<std::string>{parameter("04 00 00")});
    fill->showPopup();
    const QRect row = fill->view()->visualRect(fill->model()->index(3, 0));
    QTest::mouseMove(fill->view()->viewport(), row.center());
    QTest::qWait(QApplication::doubleClickInterval() + 50); // a press right after the opening is taken as the opening's
    QTest::mouseClick(fill->view()->viewport(), Qt::LeftButton, {}, row.center());
    QApplication::processEvents();
    EXPECT_EQ(sent(), std::vector<std::string>{parameter("04 03 00")});
    EXPECT_EQ(byteOf(37), 3);
}

TEST_F(Editor, aFaderHasItsMaximumAtTheTopAndLargeStepsByTheMouse)
{
    edit(usual());
    QSlider* bar = fader("VScroll1", 5);
    focus(bar);
    QTest::mouseClick(bar, Qt::LeftButton, {}, QPoint(bar->width() / 2, 1));
    EXPECT_EQ(bar->value(), 74);
    EXPECT_EQ(sent(), std::vector<std::string>{parameter("1F 4A 00")});
    key(bar, Qt::Key_PageUp);
    EXPECT_EQ(bar->value(), 84);
    key(bar, Qt::Key_End);
    EXPECT_EQ(bar->value(), 127);
    const QPoint handle(bar->width() / 2, 4);
    QTest::mousePress(bar, Qt::LeftButton, {}, handle);
    forget();
    QTest::mouseMove(bar, handle + QPoint(0, bar->height() / 2));
    EXPECT_LT(bar->value(), 127) << "dragged down";
    EXPECT_EQ(sent().size(), 1u) << "one message a step, none more";
    QTest::mouseRelease(bar, Qt::LeftButton, {}, handle + QPoint(0, bar->height() / 2));
    EXPECT_EQ(sent(), std::vector<std::string>{});
}

TEST_F(Editor, theWheelChangesOnlyAFaderThatHasTheFocus)
{
    edit(usual());
    QSlider* bar = fader("VScroll1", 5);
    field(0)->setFocus();
    const QPointF middle(bar->rect().center());
    QWheelEvent turn(middle, bar->mapToGlobal(middle), {}, QPoint(0, 120), Qt::NoButton, {}, Qt::NoScrollPhase, false);
    QApplication::sendEvent(bar, &turn);
    EXPECT_EQ(bar->value(), 64);
    EXPECT_EQ(sent(), std::vector<std::string>{});
}
