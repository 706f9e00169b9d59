// Playing the drawn keys with the mouse: what the pointer does to each key and what is seen of it.
#include "keyboard/windows/KeyboardWindow.h"

namespace
{

class frmTastieraKeys : public KeyboardWindow
{
protected:
    void glide()
    {
        App.KeyboardState[1] = 0;
        openSilently();
    }
};

using Marks = std::set<int>;

/// Counts the paint events of all keys by name.
class PaintCount final : public QObject
{
public:
    std::map<QString, int> paints;
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Paint && watched->objectName().startsWith("Key("))
            ++paints[watched->objectName()];
        return false;
    }
};

TEST_F(frmTastieraKeys, everyKeySoundsItsNoteUnderTheMouse)
{
    openSilently();
    for (int index = 0; index < 61; ++index) {
        down(index);
        EXPECT_EQ(marked(), Marks{index});
        EXPECT_EQ(noteShown().toStdString(), noteText(36 + index));
        up(index);
        const std::string note = hex(std::string(1, static_cast<char>(36 + index)));
        EXPECT_EQ(sent(), "92 " + note + " 50, 82 " + note + " 20");
        EXPECT_EQ(noteShown(), "");
    }
    EXPECT_TRUE(marked().empty());
}

TEST_F(frmTastieraKeys, aFastRepetitionLosesNoPress)
{
    openSilently();
    for (int turn = 0; turn < 3; ++turn) {
        mouse(key(24), QEvent::MouseButtonPress, {5, 80});
        up(24);
        mouse(key(24), QEvent::MouseButtonDblClick, {5, 80});
        up(24);
    }
    EXPECT_EQ(service.messages().size(), 12U);
}

TEST_F(frmTastieraKeys, theReleaseIsThePressedKeysWhereverThePointerIs)
{
    openSilently();
    down(24);
    mouse(key(24), QEvent::MouseMove, {200, 50});
    mouse(key(24), QEvent::MouseButtonRelease, {200, 500});
    EXPECT_EQ(sent(), "92 3C 50, 82 3C 20");
}

TEST_F(frmTastieraKeys, latchedNotesKeepTheirMarksThroughTheOctaves)
{
    openSilently();
    tick("CheckHoldNote", true);
    for (const int index : {0, 25, 60})
        click(index);
    EXPECT_EQ(marked(), (Marks{0, 25, 60}));
    service.forget();
    control<QSlider>("HScroll1")->setValue(1);
    EXPECT_EQ(marked(), (Marks{12, 37}));
    control<QSlider>("HScroll1")->setValue(3);
    EXPECT_EQ(marked(), (Marks{13, 48}));
    control<QSlider>("HScroll1")->setValue(2);
    EXPECT_EQ(marked(), (Marks{0, 25, 60}));
    EXPECT_EQ(service.messages().size(), 3U); // the split point, and nothing of the notes
    click(25);
    EXPECT_EQ(marked(), (Marks{0, 60}));
}

TEST_F(frmTastieraKeys, aChordIsCapturedAndPlacedAndLeftByTheBoxes)
{
    openSilently();
    tick("CheckHoldNote", true);
    for (const int index : {24, 28, 31})
        click(index);
    service.forget();
    press("CommHoldChord");
    EXPECT_FALSE(control("CommHoldChord")->isEnabled());
    click(26);
    EXPECT_EQ(sent(), "B2 7B 00, 92 3E 50, 92 42 50, 92 45 50");
    EXPECT_EQ(marked(), (Marks{26, 30, 33}));
    control<QCheckBox>("CheckClickKey")->click();
    EXPECT_EQ(sent(), "B2 7B 00, B2 7B 00");
    EXPECT_FALSE(control<QCheckBox>("CheckClickKey")->isChecked());
    EXPECT_FALSE(control<QCheckBox>("CheckHoldNote")->isChecked());
    EXPECT_TRUE(marked().empty());
    // Hold Note can still be ticked then; Click Key takes it away again and stays unticked.
    control<QCheckBox>("CheckHoldNote")->click();
    EXPECT_FALSE(control("CommHoldChord")->isEnabled());
    control<QCheckBox>("CheckClickKey")->click();
    EXPECT_FALSE(control<QCheckBox>("CheckClickKey")->isChecked());
    EXPECT_FALSE(control<QCheckBox>("CheckHoldNote")->isChecked());
}

TEST_F(frmTastieraKeys, allNotesOffWipesMarksAndText)
{
    openSilently();
    tick("CheckHoldNote", true);
    click(24);
    service.forget();
    press("CommAllNoteOff");
    EXPECT_EQ(sent(), "B2 7B 00");
    EXPECT_TRUE(marked().empty());
    EXPECT_EQ(noteShown(), "");
}

// The glide.

TEST_F(frmTastieraKeys, thePointerPlaysTheKeysItEntersOneAfterTheOther)
{
    glide();
    for (const int index : {24, 25, 25, 26, 24})
        moveOver(index);
    EXPECT_EQ(sent(), "92 3C 50, 82 3C 20, 92 3D 50, 82 3D 20, 92 3E 50, 82 3E 20, 92 3C 50");
    EXPECT_EQ(marked(), Marks{24});
}

TEST_F(frmTastieraKeys, drawnOffTheLowerEndItFallsSilentWithItsOwnVelocityAndTheNameStays)
{
    glide();
    moveOver(24);
    service.forget();
    // The band is 36 of the key's 1404 twips: its last pixels.
    const int height = key(24)->height();
    moveTo(24, height - 4);
    EXPECT_EQ(sent(), "");
    moveTo(24, height - 2);
    EXPECT_EQ(sent(), "82 3C 40");
    EXPECT_TRUE(marked().empty());
    EXPECT_EQ(noteShown(), "C/Do (60)");
    moveTo(24, height - 1);
    EXPECT_EQ(sent(), "92 3C 50");
}

TEST_F(frmTastieraKeys, offTheKeysItFallsSilent)
{
    glide();
    for (const char* place : {"Panel", "Frame1"}) {
        moveOver(24);
        service.forget();
        mouse(control(QLatin1String(place)), QEvent::MouseMove, {1, -1});
        EXPECT_EQ(sent(), "82 3C 20") << place;
    }
    moveOver(24);
    service.forget();
    QEvent leave(QEvent::Leave); // off the window, or onto a control, without a move between
    QApplication::sendEvent(control("Frame1"), &leave);
    EXPECT_EQ(sent(), "82 3C 20");
}

TEST_F(frmTastieraKeys, aClosedWindowReleasesNothing)
{
    glide();
    moveOver(24);
    service.forget();
    QPointer<QWidget> keys = control("Frame1");
    window->close();
    QEvent leave(QEvent::Leave); // of the window that goes from under the pointer
    QApplication::sendEvent(keys, &leave);
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(keys.isNull());
    EXPECT_EQ(sent(), "");
}

TEST_F(frmTastieraKeys, aFastPointerMissesNoKeyOnItsWay)
{
    glide();
    std::string expected;
    std::string last;
    // Low down, where the white keys alone lie: from key 0 to key 60 within the time of two samples of a mouse.
    for (const int note : {36, 38, 40, 41, 43, 45, 47, 48, 50, 52, 53, 55, 57, 59, 60, 62, 64, 65,
                           67, 69, 71, 72, 74, 76, 77, 79, 81, 83, 84, 86, 88, 89, 91, 93, 95, 96}) {
        const std::string byte = hex(std::string(1, static_cast<char>(note)));
        expected += last.empty() ? "92 " + byte + " 50" : ", 82 " + last + " 20, 92 " + byte + " 50";
        last = byte;
    }
    moveOver(0, 1000);
    moveOver(60, 1008);
    EXPECT_EQ(sent(), expected);
    EXPECT_EQ(marked(), Marks{60});
    // And back, the black ones with it.
    mouse(key(60), QEvent::MouseMove, {2, 20}, 1016);
    service.forget();
    mouse(key(48), QEvent::MouseMove, {2, 20}, 1024);
    expected.clear();
    last = "60";
    for (const char* note : {"5F", "5E", "5D", "5C", "5B", "5A", "59", "58", "57", "56", "55", "54"}) {
        expected += (expected.empty() ? "82 " : ", 82 ") + last + " 20, 92 " + note + " 50";
        last = note;
    }
    EXPECT_EQ(sent(), expected);
}

TEST_F(frmTastieraKeys, theFirstStepOutOfARestMissesNoKeyEither)
{
    glide();
    moveOver(24, 1000);
    moveOver(31, 5000);
    EXPECT_EQ(sent(), "92 3C 50, 82 3C 20, 92 3E 50, 82 3E 20, 92 40 50, 82 40 20, 92 41 50, 82 41 20, 92 43 50");
    moveOver(21, 9000);
    EXPECT_EQ(sent(), "82 43 20, 92 41 50, 82 41 20, 92 40 50, 82 40 20, 92 3E 50, 82 3E 20, 92 3C 50, 82 3C 20, "
                      "92 3B 50, 82 3B 20, 92 39 50");
}

TEST_F(frmTastieraKeys, aKeyThatIsCrossedTwiceInOneStepSoundsTwice)
{
    glide();
    // From the C sharp over the D and the lower corner of the D sharp down to the D again.
    mouse(key(26), QEvent::MouseMove, {3, 40}, 1000);
    EXPECT_EQ(sent(), "92 3D 50");
    mouse(key(26), QEvent::MouseMove, {15.5, 68}, 1008);
    EXPECT_EQ(sent(), "82 3D 20, 92 3E 50, 82 3E 20, 92 3F 50, 82 3F 20, 92 3E 50");
}

TEST_F(frmTastieraKeys, aPointerThatComesBackElsewhereLaterPlaysNothingBetween)
{
    glide();
    moveOver(0, 1000);
    moveOver(60, 1100);
    EXPECT_EQ(sent(), "92 24 50, 82 24 20, 92 60 50");
    moveOver(0); // an event that does not tell its time
    EXPECT_EQ(sent(), "82 60 20, 92 24 50");
}

TEST_F(frmTastieraKeys, withClickKeyAFastPointerPlaysNothing)
{
    openSilently();
    moveOver(0, 1000);
    moveOver(60, 1008);
    EXPECT_EQ(sent(), "");
}

// The computer's keyboard.

TEST_F(frmTastieraKeys, theArrowsAndTheBlankPlayAsThePointerAndItsButtonDo)
{
    openSilently();
    QWidget* keys = control("Frame1");
    QTest::keyPress(keys, Qt::Key_Space);
    QTest::keyRelease(keys, Qt::Key_Space);
    EXPECT_EQ(sent(), "92 3C 50, 82 3C 20");
    QTest::keyPress(keys, Qt::Key_Right);
    EXPECT_EQ(sent(), "");
    QTest::keyPress(keys, Qt::Key_Space);
    QTest::keyPress(keys, Qt::Key_Left); // lets go of the key first
    EXPECT_EQ(sent(), "92 3D 50, 82 3D 20");
    QTest::keyPress(keys, Qt::Key_Space);
    control("CommArrPlay")->setFocus();
    EXPECT_EQ(sent(), "92 3C 50, 82 3C 20");
    tick("CheckClickKey", false);
    QTest::keyPress(keys, Qt::Key_Left);
    EXPECT_EQ(sent(), "92 3B 50");
}

TEST_F(frmTastieraKeys, enterPlaysTooAndOctavesAndEndsAreReachedByKeys)
{
    openSilently();
    QWidget* keys = control("Frame1");
    const auto play = [keys](int step) {
        QTest::keyClick(keys, static_cast<Qt::Key>(step));
        QTest::keyClick(keys, Qt::Key_Return);
    };
    play(Qt::Key_PageUp);
    EXPECT_EQ(sent(), "92 48 50, 82 48 20");
    play(Qt::Key_PageDown);
    EXPECT_EQ(sent(), "92 3C 50, 82 3C 20");
    play(Qt::Key_Home);
    EXPECT_EQ(sent(), "92 24 50, 82 24 20");
    play(Qt::Key_Left);
    EXPECT_EQ(sent(), "92 24 50, 82 24 20") << "there is none before";
    play(Qt::Key_End);
    EXPECT_EQ(sent(), "92 60 50, 82 60 20");
}

// What is seen.

TEST_F(frmTastieraKeys, aKeyIsWhiteOrBlackAndItsMarkStandsWhereItShould)
{
    openSilently();
    QImage picture = key(24)->grab().toImage();
    EXPECT_EQ(picture.pixelColor(6, 78), QColor(255, 255, 255));
    EXPECT_EQ(key(25)->grab().toImage().pixelColor(4, 47), QColor(0, 0, 0));
    tick("CheckHoldNote", true);
    down(24);
    down(25);
    picture = key(24)->grab().toImage();
    EXPECT_EQ(picture.pixelColor(6, 78), QColor(0, 0, 0)); // twips 100, 1176
    EXPECT_EQ(picture.pixelColor(6, 70), QColor(255, 255, 255));
    EXPECT_EQ(key(25)->grab().toImage().pixelColor(4, 47), QColor(0, 255, 0)); // twips 60, 712
    down(24);
    EXPECT_EQ(key(24)->grab().toImage().pixelColor(6, 78), QColor(255, 255, 255));
}

TEST_F(frmTastieraKeys, aPressPaintsItsKeyAloneAndOnlyOnce)
{
    openSilently();
    PaintCount count;
    qApp->installEventFilter(&count);
    down(21);
    QApplication::processEvents();
    EXPECT_EQ(count.paints, (std::map<QString, int>{{"Key(21)", 1}}));
    count.paints.clear();
    up(21);
    QApplication::processEvents();
    EXPECT_EQ(count.paints, (std::map<QString, int>{{"Key(21)", 1}}));
    count.paints.clear();
    press("CommAllNoteOff"); // repaints all keys, none of which has changed
    QApplication::processEvents();
    EXPECT_TRUE(count.paints.empty());
    EXPECT_TRUE(key(21)->testAttribute(Qt::WA_OpaquePaintEvent));
}

TEST_F(frmTastieraKeys, theBlackKeysLieOnTheWhiteOnesAtAnySize)
{
    openSilently();
    for (const bool large : {false, true}) {
        large ? window->showMaximized() : window->showNormal();
        QApplication::processEvents();
        const QWidget* frame = control("Frame1");
        for (int index = 0; index < 61; ++index) {
            const QWidget* found = frame->childAt(key(index)->geometry().center());
            const bool black =
                index % 12 == 1 || index % 12 == 3 || index % 12 == 6 || index % 12 == 8 || index % 12 == 10;
            EXPECT_TRUE(found == key(index) || !black);
            EXPECT_EQ(frame->childAt(key(index)->x() + key(index)->width() / 2, frame->height() - 3) == key(index),
                      !black);
        }
        EXPECT_EQ(key(60)->geometry().right(), frame->width() - 1);
    }
}

} // namespace
