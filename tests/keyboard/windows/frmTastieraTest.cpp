// The keyboard window's controls: opening and closing, faders, channel, split point, modes, sizes and words.
#include "keyboard/windows/KeyboardWindow.h"

#include <QScrollArea>
#include <QScrollBar>

namespace
{

using frmTastieraTest = KeyboardWindow;

constexpr const char* Split60 = "F0 42 30 4D 41 02 3C 00 F7";

QRect placeOf(const QWidget* widget) { return widget->geometry(); }

TEST_F(frmTastieraTest, openingSendsEveryFaderInOrderTwiceWhereItDoesNotStandAtItsEnd)
{
    open();
    EXPECT_EQ(wire(), (Lines{"B2 07 64", "B2 07 64",                         // Volume 100
                             "B2 0A 40", "B2 0A 40",                         // Pan 64
                             "B2 0A 40", "B2 0A 40", "B2 0A 40", "B2 0A 40", // Vel On, Vel Off repeat it
                             "B2 49 00", "B2 48 00",                         // Att Time, Rel Time 0
                             "E2 7F 40", "E2 7F 40",                         // Bend 64
                             "B2 01 00", "B2 02 00", "B2 5B 00", "B2 5D 00", // PMod, COMod, Reverb, Chorus 0
                             Split60, Split60}));
    EXPECT_TRUE(Keys.KeyboardOpen);
    EXPECT_TRUE(Midi.KeyLogActive);
    EXPECT_FALSE(shell.items.at("mnuTastiera"));
    EXPECT_EQ(App.OtherCount, 1);
    EXPECT_EQ(App.KeyboardState, (std::array<int, 16>{2, 1, 0, 2, 100, 64, 80, 32, 0, 0, 64, 0, 0, 0, 0, 60}));
}

TEST_F(frmTastieraTest, aSplitPointAtItsLowerEndGoesOutOnceAndTickedBoxesSendNothing)
{
    App.KeyboardState = {0, 1, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 36};
    open();
    EXPECT_EQ(sent(), "B0 07 00, B0 0A 00, B0 0A 00, B0 0A 00, B0 49 00, B0 48 00, E0 7F 00, B0 01 00, B0 02 00, "
                      "B0 5B 00, B0 5D 00, F0 42 30 4D 41 02 24 00 F7");
    EXPECT_TRUE(control<QCheckBox>("CheckHoldNote")->isChecked());
    EXPECT_TRUE(control("CheckHoldNote")->isEnabled());
    EXPECT_TRUE(control("CommHoldChord")->isEnabled());
}

TEST_F(frmTastieraTest, theBoxesThatNeedOthersAreOffAtOpening)
{
    struct Opening {
        int click, hold;
        bool holdEnabled, chordEnabled;
    };
    for (const Opening& row : {Opening{1, 1, true, true}, Opening{1, 0, true, false}, Opening{0, 1, false, false},
                               Opening{0, 0, false, false}}) {
        App.KeyboardState[1] = row.click;
        App.KeyboardState[2] = row.hold;
        open();
        EXPECT_EQ(control<QCheckBox>("CheckClickKey")->isChecked(), row.click == 1);
        EXPECT_EQ(control<QCheckBox>("CheckHoldNote")->isChecked(), row.hold == 1);
        EXPECT_EQ(control("CheckHoldNote")->isEnabled(), row.holdEnabled);
        EXPECT_EQ(control("CommHoldChord")->isEnabled(), row.chordEnabled);
        window->close();
    }
}

TEST_F(frmTastieraTest, closingKeepsBytesAndPlaceGivesTheItemBackAndReleasesNothing)
{
    openSilently();
    window->placeInTwips(600, 900, 9000, 5400);
    control<QComboBox>("Combo1")->setCurrentIndex(9);
    down(24);
    tick("CheckHoldNote", true);
    control<QSlider>("HScroll1")->setValue(3);
    control<QSlider>("VScroll1")->setValue(72);
    fader(4)->setValue(17);
    service.forget();
    const int syncs = shell.syncs;
    control<QPushButton>("CommChiudi")->click();
    EXPECT_EQ(sent(), "");
    EXPECT_EQ(App.KeyboardState, (std::array<int, 16>{9, 1, 1, 3, 100, 64, 80, 32, 17, 0, 64, 0, 0, 0, 0, 72}));
    EXPECT_FALSE(Keys.KeyboardOpen);
    EXPECT_FALSE(static_cast<bool>(Arr.keyboardSplit));
    EXPECT_TRUE(shell.items.at("mnuTastiera"));
    EXPECT_EQ(App.OtherCount, 0);
    EXPECT_GT(shell.syncs, syncs);
    const WindowPosition& place = App.WinPos[15];
    EXPECT_EQ((std::array<int, 5>{place.left, place.top, place.width, place.height, place.Open}),
              (std::array<int, 5>{600, 900, 9000, 5400, 0}));
    EXPECT_TRUE(Midi.KeyLogActive); // never cleared again
}

TEST_F(frmTastieraTest, theNextKeyboardKeepsItsHookWhenTheLastOneIsDestroyed)
{
    open();
    window->close();
    open(); // the first one is still waiting for its end
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(Keys.KeyboardOpen);
    EXPECT_TRUE(static_cast<bool>(Arr.keyboardSplit));
}

TEST_F(frmTastieraTest, aFaderSendsEachStepShowsItAndKeepsIt)
{
    openSilently();
    fader(0)->setFocus();
    QTest::keyClick(fader(0), Qt::Key_Up);
    QTest::keyClick(fader(0), Qt::Key_PageDown);
    EXPECT_EQ(sent(), "B2 07 65, B2 07 5B");
    EXPECT_EQ(label("Label3", 0), "91");
    EXPECT_EQ(App.KeyboardState[4], 91);
    fader(1)->setValue(0);
    fader(6)->setValue(127);
    fader(3)->setValue(1);
    EXPECT_EQ(sent(), "B2 0A 00, E2 7F 7F, E2 7F 7F");
    EXPECT_EQ(label("Label3", 1), "-64");
    EXPECT_EQ(label("Label3", 6), "63");
    EXPECT_EQ(label("Label3", 3), "1");
    for (int i = 0; i < 11; ++i) {
        EXPECT_EQ(fader(i)->minimum(), 0);
        EXPECT_EQ(fader(i)->maximum(), 127);
        EXPECT_EQ(fader(i)->pageStep(), 10);
        EXPECT_FALSE(fader(i)->invertedAppearance()); // the maximum at its top
        EXPECT_EQ(label("Label4", i), i == 1 || i == 6 ? "63" : "127");
        EXPECT_EQ(label("Label5", i), i == 1 || i == 6 ? "-64" : "0");
    }
}

TEST_F(frmTastieraTest, anotherChannelIsKeptAtOnceAndSendsNothing)
{
    openSilently();
    auto* channels = control<QComboBox>("Combo1");
    EXPECT_EQ(channels->itemText(0), "  1");
    EXPECT_EQ(channels->itemText(8), "  9");
    EXPECT_EQ(channels->itemText(15), " 16");
    EXPECT_EQ(channels->count(), 16);
    channels->setCurrentIndex(15);
    EXPECT_EQ(sent(), "");
    EXPECT_EQ(App.KeyboardState[0], 15);
    click(24);
    EXPECT_EQ(sent(), "9F 3C 50, 8F 3C 20");
}

TEST_F(frmTastieraTest, theMarkerTheTextAndTheMessageFollowAllSplitNotesInAllOctaves)
{
    openSilently();
    // Twips of the marker's left for octave -1 to 7 of the view and for each note of an octave.
    const std::array<int, 9> octaves = {-1764, 0, 1764, 3526, 5289, 7048, 8810, 10566, 12327};
    const std::array<int, 12> offsets = {0, 150, 312, 442, 594, 756, 906, 1063, 1185, 1328, 1450, 1592};
    auto* split = control<QSlider>("VScroll1");
    EXPECT_EQ(split->minimum(), 36);
    EXPECT_EQ(split->maximum(), 96);
    const QWidget* marker = control("Picture1");
    for (int shift = 0; shift <= 3; ++shift) {
        control<QSlider>("HScroll1")->setValue(shift);
        split->setValue(96);
        service.forget();
        for (int note = 36; note <= 96; ++note) {
            split->setValue(note);
            const int left = octaves.at(static_cast<std::size_t>(note / 12 - shift)) +
                             offsets.at(static_cast<std::size_t>(note % 12)) + 5;
            EXPECT_EQ(marker->x(), qRound(left / 15.0)) << note << " at " << shift;
            EXPECT_EQ(marker->y(), 165); // 2480 twips
            EXPECT_EQ(control<QLineEdit>("Text3")->text().toStdString(), splitPointText(note));
            EXPECT_EQ(sent(), "F0 42 30 4D 41 02 " + hex(std::string(1, static_cast<char>(note))) + " 00 F7");
        }
    }
}

TEST_F(frmTastieraTest, theOctaveRenamesLabelsAndKeysAndSendsTheSplitPointAgain)
{
    openSilently();
    for (int octave = 0; octave < 6; ++octave)
        EXPECT_EQ(label("Label1", octave), QStringLiteral("C%1").arg(octave + 2));
    EXPECT_EQ(key(24)->accessibleName(), "C/Do (60)");
    control<QSlider>("HScroll1")->setValue(3);
    EXPECT_EQ(sent(), Split60);
    for (int octave = 0; octave < 6; ++octave)
        EXPECT_EQ(label("Label1", octave), QStringLiteral("C%1").arg(octave + 3));
    EXPECT_EQ(key(60)->accessibleName(), "C/Do (108)");
    click(60);
    EXPECT_EQ(sent(), "92 6C 50, 82 6C 20");
}

TEST_F(frmTastieraTest, theEditorsSplitBarMovesTheKeyboards)
{
    openSilently();
    Arr.keyboardSplit(73);
    EXPECT_EQ(control<QSlider>("VScroll1")->value(), 73);
    EXPECT_EQ(control<QLineEdit>("Text3")->text(), " C5#");
    EXPECT_EQ(sent(), "F0 42 30 4D 41 02 49 00 F7");
    Arr.keyboardSplit(73);
    EXPECT_EQ(sent(), "");
}

TEST_F(frmTastieraTest, theSplitControlsFollowTheInstrumentsMode)
{
    const auto enabled = [&] {
        std::string text;
        for (const char* name : {"Picture1", "Picture2", "Text3", "VScroll1", "Label1(8)"})
            text += control(QLatin1String(name))->isEnabled() ? '1' : '0';
        return text + (control("Picture1")->isVisible() ? " seen" : " hidden");
    };
    struct Opening {
        int mode;
        const char* controls;
    };
    for (const Opening& row :
         {Opening{0, "11111 seen"}, Opening{1, "00000 hidden"}, Opening{2, "00000 hidden"}, Opening{7, "11111 seen"}}) {
        App.DeviceMode = row.mode;
        open();
        EXPECT_EQ(enabled(), row.controls) << row.mode;
        window->close();
    }
    App.DeviceMode = 2;
    openSilently();
    press("CommArrPlay");
    EXPECT_EQ(enabled(), "11111 seen");
    EXPECT_EQ(sent(), "F0 42 30 4D 4E 0A F7, B2 7B 00");
    press("CommSongPlay");
    EXPECT_EQ(enabled(), "00000 hidden");
    EXPECT_EQ(sent(), "F0 42 30 4D 4E 06 F7, B2 7B 00");
    App.DeviceMode = 9;
    control<QSlider>("HScroll1")->setValue(0);
    EXPECT_EQ(enabled(), "00000 hidden");
}

TEST_F(frmTastieraTest, itIsNeverLargerThanItsOwnSizeButWhenMaximised)
{
    open();
    EXPECT_EQ(window->size(), QSize(619, 369)); // 9288 by 5532 twips
    EXPECT_EQ(App.WinPos[15].Open, 1);
    window->resize(800, 600);
    QApplication::processEvents();
    EXPECT_EQ(window->size(), QSize(619, 369));
    EXPECT_EQ(App.WinPos[15].width, 9288);
    EXPECT_EQ(App.WinPos[15].height, 5532);
    EXPECT_EQ(App.WinPos[15].Open, 0); // the state of a window that is neither minimised nor maximised
    window->resize(500, 300);
    QApplication::processEvents();
    EXPECT_EQ(App.WinPos[15].width, 7500);
    EXPECT_EQ(App.WinPos[15].height, 4500);
    window->showMinimized();
    QApplication::processEvents();
    EXPECT_EQ(App.WinPos[15].Open, 1);
    window->showNormal();
    QApplication::processEvents();
    EXPECT_EQ(App.WinPos[15].Open, 0);
    window->showMaximized();
    QApplication::processEvents();
    EXPECT_GT(window->width(), 1300);
    EXPECT_EQ(App.WinPos[15].width, 7500);
    window->close();
    App.WinPos[15] = {0, 0, 20000, 6000, 0, 0}; // of a damaged settings file
    open();
    EXPECT_EQ(window->size(), QSize(619, 369));
}

TEST_F(frmTastieraTest, theWholePanelIsSeenWithALargerFontOfTheDesktopToo)
{
    const QFont usual = QApplication::font();
    for (const qreal points : {8.0, 9.0, 11.0, 14.0}) {
        QFont larger = usual;
        larger.setPointSizeF(points);
        QApplication::setFont(larger);
        open();
        const auto* scrolled = control<QScrollArea>("content");
        EXPECT_FALSE(scrolled->horizontalScrollBar()->isVisible()) << points;
        EXPECT_FALSE(scrolled->verticalScrollBar()->isVisible()) << points;
        for (const char* name : {"CommHoldChord", "CommAllNoteOff", "CommChiudi", "CheckClickKey", "CheckHoldNote"})
            EXPECT_LE(control(QLatin1String(name))->sizeHint().width(), control(QLatin1String(name))->width()) << name;
        window->close();
    }
    QApplication::setFont(usual);
}

TEST_F(frmTastieraTest, theWordsOnThePanelAreThoseOfTheInstrument)
{
    open();
    const std::vector<std::string> captions = {"Volume", "Pan",  "Vel On", "Vel Off", "Att Time", "Rel Time",
                                               "Bend",   "PMod", "COMod",  "Reverb",  "Chorus"};
    for (int i = 0; i < 11; ++i)
        EXPECT_EQ(label("Label2", i).toStdString(), captions.at(static_cast<std::size_t>(i)));
    struct Word {
        const char* name;
        const char* text;
    };
    for (const Word& row :
         {Word{"CommArrPlay", "&ARR PLAY"}, Word{"CommSongPlay", "&SONG PLAY"}, Word{"CommAllNoteOff", "All Notes Off"},
          Word{"CommHoldChord", "Hold Chord"}, Word{"CheckHoldNote", "Hold Note"}, Word{"CheckClickKey", "Click Key"}})
        EXPECT_STREQ(control<QAbstractButton>(QLatin1String(row.name))->text().toUtf8(), row.text);
    for (const Word& row :
         {Word{"Label1(7)", "Note (Number)"}, Word{"Label1(8)", "Split Point"}, Word{"LabelChannel", "MIDI Channel"},
          Word{"LabelPanR", "R"}, Word{"LabelPanC", "C"}, Word{"LabelPanL", "L"}})
        EXPECT_STREQ(control<QLabel>(QLatin1String(row.name))->text().toUtf8(), row.text);
    // The letters are in line with the fader's ends and its middle.
    EXPECT_EQ(control("LabelPanR")->y(), control("Label4(1)")->y());
    EXPECT_EQ(control("LabelPanL")->geometry().bottom(), control("Label5(1)")->geometry().bottom());
    EXPECT_NEAR(control("LabelPanC")->geometry().center().y(), fader(1)->geometry().center().y(), 1);
}

TEST_F(frmTastieraTest, atItsOwnSizeKeysAndFadersStandAtTheirTwips)
{
    open();
    EXPECT_EQ(placeOf(control("Frame1")), QRect(5, 177, 604, 93)); // 70 to 9142 and 2650 to 4054 twips
    for (int i = 0; i < 11; ++i) {
        EXPECT_EQ(fader(i)->y(), 43); // 648 twips
        EXPECT_EQ(fader(i)->height(), 114);
        EXPECT_NEAR(fader(i)->width(), 15, 1);
    }
    for (int i = 1; i < 11; ++i)
        EXPECT_GT(fader(i)->x(), fader(i - 1)->x());
    // Each octave label stands under its C.
    for (int octave = 0; octave < 6; ++octave) {
        const QWidget* c = key(12 * octave);
        const int middle = c->mapTo(c->parentWidget()->parentWidget(), c->rect().center()).x();
        EXPECT_NEAR(control(QStringLiteral("Label1(%1)").arg(octave))->geometry().center().x(), middle, 2);
    }
    const auto* scrolled = control<QScrollArea>("content");
    EXPECT_LE(scrolled->widget()->minimumWidth(), scrolled->viewport()->width());
    EXPECT_LE(scrolled->widget()->minimumHeight(), scrolled->viewport()->height());
}

TEST_F(frmTastieraTest, nothingIsCutOffInEitherLanguageAtAnySize)
{
    for (const int language : {1, 2})
        for (const bool large : {false, true}) {
            speak(language);
            open();
            large ? window->showMaximized() : window->showNormal();
            QApplication::processEvents();
            for (const QLabel* shown : window->findChildren<QLabel*>())
                if (!shown->wordWrap() && shown->isVisible()) {
                    EXPECT_LE(shown->sizeHint().width(), shown->width()) << shown->text().toStdString();
                    EXPECT_LE(shown->sizeHint().height(), shown->height()) << shown->text().toStdString();
                }
            for (const char* name : {"CommHoldChord", "CommAllNoteOff", "CommArrPlay", "CommSongPlay", "CommChiudi",
                                     "CheckClickKey", "CheckHoldNote"}) {
                EXPECT_LE(control(QLatin1String(name))->sizeHint().width(), control(QLatin1String(name))->width())
                    << name;
            }
            EXPECT_EQ(control<QPushButton>("CommChiudi")->text(), language == 1 ? "&Chiudi" : "&Close");
            EXPECT_EQ(window->windowTitle(), language == 1 ? "Tastiera" : "Keyboard");
            window->close();
            QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        }
}

/// The toolkit's own parts of a list have no name of ours.
bool isPartOfList(const QWidget* widget)
{
    for (const QWidget* above = widget->parentWidget(); above; above = above->parentWidget())
        if (qobject_cast<const QComboBox*>(above))
            return true;
    return false;
}

TEST_F(frmTastieraTest, allControlsHaveTheirNamesAndTheKeysTheirOwnForTheEar)
{
    open();
    std::set<QString> names;
    for (const QWidget* widget : control("Panel")->findChildren<QWidget*>())
        if (!isPartOfList(widget)) {
            EXPECT_FALSE(widget->objectName().isEmpty()) << widget->metaObject()->className();
            EXPECT_TRUE(names.insert(widget->objectName()).second) << widget->objectName().toStdString();
        }
    for (int index = 0; index < 61; ++index)
        EXPECT_EQ(key(index)->accessibleName().toStdString(), noteText(36 + index));
    for (int index = 0; index < 11; ++index)
        EXPECT_EQ(fader(index)->accessibleName(), label("Label2", index));
    for (const char* name : {"Combo1", "VScroll1", "HScroll1", "Text1", "Text3", "Frame1", "Picture1"})
        EXPECT_FALSE(control(QLatin1String(name))->accessibleName().isEmpty()) << name;
}

TEST_F(frmTastieraTest, aRightPressOnTheBareWindowOpensTheEditMenuAndOnAKeyPlaysIt)
{
    openSilently();
    const auto ask = [](QWidget* widget) {
        QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(2, 2), widget->mapToGlobal(QPoint(2, 2)));
        QApplication::sendEvent(widget, &event);
    };
    ask(control("Panel"));
    EXPECT_EQ(shell.popups, 1);
    mouse(key(24), QEvent::MouseButtonPress, playedPlace(key(24)), 0, Qt::RightButton);
    ask(key(24));
    EXPECT_EQ(shell.popups, 1);
    EXPECT_EQ(sent(), "92 3C 50");
}

} // namespace
