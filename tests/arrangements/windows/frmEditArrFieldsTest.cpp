// The highlighted field and who may fill it; mute and solo.
#include "EditorWindow.h"

#include <QMouseEvent>

TEST_F(Editor, aClickHighlightsOneFieldAndASecondClickTakesItBack)
{
    edit(usual());
    const QColor normal = field(0)->palette().color(QPalette::Base);
    const QColor normalText = field(0)->palette().color(QPalette::Text);
    click(field(6));
    EXPECT_EQ(baseColour(field(6)), EditorColour::Cyan);
    EXPECT_EQ(field(6)->palette().color(QPalette::Text), QColor(Qt::black));
    EXPECT_TRUE(editor->PrgFieldSelected());
    EXPECT_EQ(editor->highlightedTrack(), 2);
    click(field(1));
    EXPECT_EQ(baseColour(field(6)), normal);
    EXPECT_EQ(field(6)->palette().color(QPalette::Text), normalText);
    EXPECT_EQ(baseColour(field(1)), EditorColour::Cyan);
    EXPECT_TRUE(editor->StyFieldSelected());
    EXPECT_FALSE(editor->PrgFieldSelected());
    EXPECT_EQ(editor->highlightedTrack(), -1);
    click(field(1));
    EXPECT_EQ(baseColour(field(1)), normal);
    EXPECT_FALSE(editor->StyFieldSelected());
    click(field(0));
    EXPECT_EQ(baseColour(field(0)), EditorColour::Cyan);
    EXPECT_FALSE(editor->StyFieldSelected());
    EXPECT_FALSE(editor->PrgFieldSelected());
}

TEST_F(Editor, everyProgramFieldAndNoLabelCanBeHighlighted)
{
    edit(usual());
    for (int track = 0; track < 9; ++track) {
        focus(field(2 * track + 2));
        click(field(2 * track + 2));
        EXPECT_EQ(editor->highlightedTrack(), track);
        click(field(2 * track + 3));
        EXPECT_EQ(editor->highlightedTrack(), -1) << "a label takes the highlight away";
        EXPECT_NE(baseColour(field(2 * track + 3)), EditorColour::Cyan);
    }
}

TEST_F(Editor, theKeyboardHighlightsToo)
{
    edit(usual());
    key(field(6), Qt::Key_Return);
    EXPECT_EQ(editor->highlightedTrack(), 2);
    key(field(6), Qt::Key_Space);
    EXPECT_EQ(editor->highlightedTrack(), -1);
    key(field(1), Qt::Key_Space);
    EXPECT_TRUE(editor->StyFieldSelected());
}

TEST_F(Editor, aDoubleClickIsOneClick)
{
    edit(usual());
    QLineEdit* program = field(6);
    const QPointF spot(5, 5);
    click(program);
    QMouseEvent second(QEvent::MouseButtonDblClick, spot, program->mapToGlobal(spot), Qt::LeftButton, Qt::LeftButton,
                       {});
    QApplication::sendEvent(program, &second);
    QTest::mouseRelease(program, Qt::LeftButton, {}, spot.toPoint());
    EXPECT_EQ(editor->highlightedTrack(), 2);
}

TEST_F(Editor, everyEditTakesTheHighlightAway)
{
    edit(usual());
    const std::vector<std::function<void()>> edits = {[&] { key(combo("Combo1", 0), Qt::Key_Down); },
                                                      [&] { key(combo("Combo2", 14), Qt::Key_Down); },
                                                      [&] { key(fader("VScroll1", 0), Qt::Key_Up); },
                                                      [&] { key(fader("VScroll1", 5), Qt::Key_Up); },
                                                      [&] { key(fader("HScroll1", 0), Qt::Key_Left); },
                                                      [&] { key(check(0), Qt::Key_Space); },
                                                      [&] { key(combo("EffCombo", 0), Qt::Key_Up); },
                                                      [&] { key(combo("Combo1", 5), Qt::Key_Down); },
                                                      [&] { key(combo("Combo1", 6), Qt::Key_Down); },
                                                      [&] { key(combo("Combo1", 7), Qt::Key_Down); },
                                                      [&] { key(fader("HScroll1", 1), Qt::Key_Left); },
                                                      [&] { key(check(9), Qt::Key_Space); },
                                                      [&] { key(field(0), Qt::Key_X); }};
    int number = 0;
    for (const auto& change : edits) {
        click(field(6));
        ASSERT_TRUE(editor->PrgFieldSelected());
        change();
        EXPECT_FALSE(editor->PrgFieldSelected()) << number;
        EXPECT_NE(baseColour(field(6)), EditorColour::Cyan) << number;
        ++number;
    }
}

TEST_F(Editor, aPressOnAFrameOrTabTakesTheHighlightAway)
{
    edit(usual());
    const char* frames[] = {"Frame2", "Frame1", "General", "Frame5", "Drum",   "Percussion", "FrBass",
                            "FrAcc1", "FrACC2", "FrACC3",  "UPPER1", "UPPER2", "LOWER"};
    for (const char* name : frames) {
        click(field(6));
        ASSERT_TRUE(editor->PrgFieldSelected());
        QTest::mousePress(part<QGroupBox>(name), Qt::LeftButton, {}, QPoint(2, part<QGroupBox>(name)->height() - 2));
        EXPECT_FALSE(editor->PrgFieldSelected()) << name;
    }
    click(field(6));
    auto* tabs = part<QTabWidget>("SSTab1")->tabBar();
    QTest::mouseClick(tabs, Qt::LeftButton, {}, tabs->tabRect(1).center());
    EXPECT_FALSE(editor->PrgFieldSelected());
    EXPECT_EQ(part<QTabWidget>("SSTab1")->currentIndex(), 1);
}

TEST_F(Editor, aPressBesideTheTabsTakesTheHighlightAway)
{
    edit(usual());
    auto* pages = part<QTabWidget>("SSTab1");
    for (const Qt::MouseButton button : {Qt::LeftButton, Qt::RightButton}) {
        click(field(6));
        ASSERT_TRUE(editor->PrgFieldSelected());
        const QPoint spot(pages->width() - 4, pages->tabBar()->height() / 2);
        ASSERT_EQ(pages->childAt(spot), nullptr) << "no tab, no page: the bare strip";
        QTest::mousePress(pages, button, {}, spot);
        EXPECT_FALSE(editor->PrgFieldSelected());
        QTest::mouseRelease(pages, button, {}, spot);
    }
}

TEST_F(Editor, aPressOnACaptionIsOneOnItsFrame)
{
    edit(usual());
    click(field(6));
    ASSERT_TRUE(editor->PrgFieldSelected());
    auto* value = part<QLabel>("Label2(5)");
    // As a user's press: at the window, which finds the widget below the mouse.
    QTest::mousePress(value, Qt::LeftButton);
    EXPECT_FALSE(editor->PrgFieldSelected());
}

TEST_F(Editor, theRightButtonOpensTheEditMenuAndIsNoClick)
{
    edit(usual());
    click(field(6));
    auto* frame = part<QGroupBox>("Drum");
    QTest::mousePress(frame, Qt::RightButton, {}, QPoint(3, frame->height() - 3));
    EXPECT_FALSE(editor->PrgFieldSelected());
    for (QWidget* place : {static_cast<QWidget*>(frame), static_cast<QWidget*>(field(6)),
                           static_cast<QWidget*>(combo("Combo1", 0)->lineEdit()),
                           static_cast<QWidget*>(part<QTabWidget>("SSTab1")->tabBar())}) {
        editShell.popups = 0;
        const QPoint spot(3, place->height() / 2);
        QContextMenuEvent asked(QContextMenuEvent::Mouse, spot, place->mapToGlobal(spot));
        QApplication::sendEvent(place, &asked);
        EXPECT_EQ(editShell.popups, 1) << place->objectName().toStdString();
    }
    QTest::mouseClick(field(6), Qt::RightButton);
    EXPECT_FALSE(editor->PrgFieldSelected());
}

TEST_F(Editor, takesAProgramForTheHighlightedTrack)
{
    edit(usual());
    fieldTarget()->assignProgram(5, 0, "Too Soon", "A 16");
    EXPECT_FALSE(Arr.ArrEditDirty) << "without a highlighted field there is nobody to take it";
    focus(field(12));
    click(field(12));
    const std::string before = block();
    fieldTarget()->assignProgram(77, 3, "My Pad", "U 26");
    EXPECT_EQ(hex(block()), hex(with(with(before, 79, 0xFF, 77), 80, 0xFF, 3)));
    EXPECT_EQ(Arr.ArrEditBuf.substr(180 + 16 * 5, 16), "My Pad          ");
    EXPECT_EQ(shown(12), "My Pad");
    EXPECT_EQ(shown(13), "U 26");
    EXPECT_TRUE(Arr.ArrEditDirty);
    EXPECT_EQ(editor->highlightedTrack(), 5) << "the field waits for another choice";
    EXPECT_EQ(sent(), std::vector<std::string>{});
    editor->ArrEditFill();
    EXPECT_EQ(shown(13), "F 26") << "read again, a user program is of bank F";
}

TEST_F(Editor, takesAStyleForItsHighlightedField)
{
    edit(usual());
    const std::string before = block();
    fieldTarget()->assignStyle(9, 1, "Too Soon", "Style (U22)");
    click(field(6));
    fieldTarget()->assignStyle(9, 1, "Too Soon", "Style (U22)");
    EXPECT_EQ(hex(block()), hex(before)) << "a program's field does not take it";
    EXPECT_EQ(shown(1), "Testa Rock");
    EXPECT_FALSE(Arr.ArrEditDirty);
    click(field(1));
    fieldTarget()->assignProgram(5, 0, "Wrong Sort", "A 16");
    EXPECT_FALSE(Arr.ArrEditDirty) << "nor the style's field a program";
    fieldTarget()->assignStyle(9, 1, "My Groove", "Style (U22)");
    EXPECT_EQ(hex(block()), hex(with(with(before, 17, 0xFF, 9), 18, 0xFF, 1)));
    EXPECT_EQ(Arr.ArrEditBuf.substr(164, 16), "My Groove       ");
    EXPECT_EQ(shown(1), "My Groove");
    EXPECT_EQ(label("Label", 1), "Style (U22)");
    EXPECT_TRUE(Arr.ArrEditDirty);
    EXPECT_TRUE(editor->StyFieldSelected()) << "the field waits for another choice";
    EXPECT_EQ(sent(), std::vector<std::string>{});
}

// Mute and solo.

TEST_F(Editor, saysInBothLanguagesHowAFieldIsFilled)
{
    edit(usual());
    EXPECT_EQ(field(2)->toolTip(), "Choose this field, then a program in its window");
    EXPECT_EQ(field(1)->toolTip(), "Choose this field, then a style in its window");
    ASSERT_TRUE(closeEditor());
    run.speak(1);
    clickRow(source, 0);
    press(source, "CommEdit");
    EXPECT_EQ(field(18)->toolTip(), "Scegli questo campo, poi un Program nella sua finestra");
    EXPECT_EQ(field(1)->toolTip(), "Scegli questo campo, poi uno Style nella sua finestra");
}

TEST_F(Editor, aMuteIsOneMessageAndStoresNothing)
{
    edit(usual());
    const std::string before = block();
    click(button("CommM", 0));
    EXPECT_EQ(sent(), mutes({"0F 01 00"}));
    EXPECT_EQ(colours("CommM"), "R--------");
    focus(button("CommM", 8));
    click(button("CommM", 8));
    EXPECT_EQ(sent(), mutes({"5F 01 00"}));
    EXPECT_EQ(colours("CommM"), "R-------R");
    key(button("CommM", 0), Qt::Key_Space);
    EXPECT_EQ(sent(), mutes({"0F 00 00"}));
    EXPECT_EQ(colours("CommM"), "--------R");
    EXPECT_EQ(hex(block()), hex(before));
    EXPECT_FALSE(Arr.ArrEditDirty);
}

TEST_F(Editor, everyMuteAndEverySoloIsItsOwnTracks)
{
    edit(usual());
    const std::string before = Arr.ArrEditBuf;
    const std::array<std::string, 9> numbers = {"0F", "19", "23", "2D", "37", "41", "4B", "55", "5F"};
    for (int track = 0; track < 9; ++track) {
        SCOPED_TRACE(track);
        const auto place = static_cast<std::size_t>(track);
        focus(button("CommM", track));
        forget();
        click(button("CommM", track));
        EXPECT_EQ(sent(), mutes({numbers[place] + " 01 00"}));
        EXPECT_EQ(colours("CommM"), std::string("---------").replace(place, 1, "R"));
        EXPECT_EQ(colours("CommS"), "---------");
        key(button("CommM", track), Qt::Key_Space);
        EXPECT_EQ(sent(), mutes({numbers[place] + " 00 00"}));
        EXPECT_EQ(colours("CommM"), "---------");

        std::vector<std::string> expected;
        for (std::size_t other = 0; other < 9; ++other)
            expected.push_back(numbers[other] + (other == place ? " 00 00" : " 01 00"));
        click(button("CommS", track));
        EXPECT_EQ(sent(), mutes(expected));
        EXPECT_EQ(colours("CommM"), std::string("RRRRRRRRR").replace(place, 1, "-"));
        EXPECT_EQ(colours("CommS"), std::string("---------").replace(place, 1, "G"));
        key(button("CommS", track), Qt::Key_Space);
        EXPECT_EQ(sent(), mutes(released));
        EXPECT_EQ(colours("CommM"), "---------");
        EXPECT_EQ(colours("CommS"), "---------");
    }
    EXPECT_EQ(hex(Arr.ArrEditBuf), hex(before));
    EXPECT_FALSE(Arr.ArrEditDirty);
}

TEST_F(Editor, aSoloIsNineMutes)
{
    edit(usual());
    click(button("CommS", 2));
    EXPECT_EQ(sent(), mutes({"0F 01 00", "19 01 00", "23 00 00", "2D 01 00", "37 01 00", "41 01 00", "4B 01 00",
                             "55 01 00", "5F 01 00"}));
    EXPECT_EQ(colours("CommM"), "RR-RRRRRR");
    EXPECT_EQ(colours("CommS"), "--G------");
    click(button("CommS", 0));
    EXPECT_EQ(sent(), mutes({"0F 00 00", "19 01 00", "23 01 00", "2D 01 00", "37 01 00", "41 01 00", "4B 01 00",
                             "55 01 00", "5F 01 00"}));
    EXPECT_EQ(colours("CommM"), "-RRRRRRRR");
    EXPECT_EQ(colours("CommS"), "G--------");
    click(button("CommS", 0));
    EXPECT_EQ(sent(), mutes(released));
    EXPECT_EQ(colours("CommM"), "---------");
    EXPECT_EQ(colours("CommS"), "---------");
}

TEST_F(Editor, aTrackThatLosesItsSoloDoesNotReleaseTheOthers)
{
    edit(usual());
    click(button("CommS", 1));
    forget();
    click(button("CommM", 1));
    EXPECT_EQ(sent(), mutes({"19 01 00"}));
    EXPECT_EQ(colours("CommM"), "RRRRRRRRR");
    EXPECT_EQ(colours("CommS"), "---------");
    click(button("CommM", 4));
    EXPECT_EQ(sent(), mutes({"37 00 00"}));
    EXPECT_EQ(colours("CommM"), "RRRR-RRRR");
    click(button("CommS", 4));
    EXPECT_EQ(colours("CommM"), "RRRR-RRRR");
    EXPECT_EQ(colours("CommS"), "----G----");
}

TEST_F(Editor, theButtonsAreReallyPaintedInTheirColours)
{
    edit(usual());
    click(button("CommM", 0));
    click(button("CommS", 1));
    const auto painted = [](QPushButton* shown) {
        const QImage image = shown->grab().toImage();
        return image.pixelColor(image.width() / 4, image.height() / 2);
    };
    EXPECT_EQ(painted(button("CommM", 0)), EditorColour::Red);
    EXPECT_EQ(painted(button("CommS", 1)), EditorColour::Green);
    EXPECT_EQ(painted(button("CommS", 0)), EditorColour::Grey);
}
