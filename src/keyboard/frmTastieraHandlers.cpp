// The keyboard window at work: opening with all its controllers, what the faders and the octave do, what the note logic
// shows, and what is kept as it closes.
#include "arrangements/ArrEdit.h"
#include "core/Dichiarazioni.h"
#include "core/Shell.h"
#include "keyboard/KeyBedWidget.h"
#include "keyboard/KeyWidget.h"
#include "keyboard/Keys.h"
#include "keyboard/TwipsPanelWidget.h"
#include "keyboard/frmTastiera.h"
#include "midi/MIDI.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFrame>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSlider>

namespace
{

constexpr TwipsSize LargestSize{9288, 5532};
constexpr const char* MenuItem = "mnuTastiera";

QString shown(const std::string& text) { return QString::fromStdString(text); }

} // namespace

frmTastiera::~frmTastiera() { close_(); }

void frmTastiera::load()
{
    openWithin(WindowKind::Keyboard, LargestSize);
    Midi.KeyLogActive = true;
    keyboardBytesIntoRange();
    {
        // What is shown first needs no events: nothing is latched yet, and the split point goes out with the faders.
        const QSignalBlocker octave(HScroll1);
        const QSignalBlocker channel(Combo1);
        HScroll1->setValue(keyboardByte(KeyboardByte::OctaveShift));
        Combo1->setCurrentIndex(mixerChannel());
    }
    notes_.load(keyboardByte(KeyboardByte::ClickKey) == 1, keyboardByte(KeyboardByte::HoldNote) == 1,
                HScroll1->value());

    // Required: the value's own change sends a first time, so a fader that does not stand at 0 is sent twice.
    for (int index = 0; index < Faders::Count; ++index) {
        VScroll[index]->setValue(keyboardByte(KeyboardByte::Faders + index));
        VScroll_Change(index, VScroll[index]->value());
    }
    VScroll1->setValue(keyboardByte(KeyboardByte::SplitPoint));
    VScroll1_Change(VScroll1->value());
    OctaveLabelsShow();
    ModePanelShow();

    Keys.KeyboardOpen = true;
    Arr.keyboardSplit = [this](int note) { VScroll1->setValue(note); };
    if (App.shell)
        App.shell->enableMenuItem(MenuItem, false);
}

void frmTastiera::unload()
{
    setKeyboardByte(KeyboardByte::Channel, Combo1->currentIndex());
    setKeyboardByte(KeyboardByte::ClickKey, CheckClickKey->isChecked() ? 1 : 0);
    setKeyboardByte(KeyboardByte::HoldNote, CheckHoldNote->isChecked() ? 1 : 0);
    setKeyboardByte(KeyboardByte::OctaveShift, HScroll1->value());
    setKeyboardByte(KeyboardByte::SplitPoint, VScroll1->value());
    keepInRow(WindowKind::Keyboard);
    // Unlike the banks the keyboard does not come back at the next start.
    App.WinPos[WindowKind::Keyboard].Open = 0;
    if (App.shell)
        App.shell->enableMenuItem(MenuItem, true);
    close_();
}

/// Required: no note is released; what sounds goes on until the instrument stops it. So the keys are deaf from here on
/// to the pointer that leaves the vanishing window.
void frmTastiera::close_()
{
    if (closed_)
        return;
    closed_ = true;
    Frame1->mouseDown = [](int) {};
    Frame1->mouseUp = [](int) {};
    Frame1->mouseMove = [](int, int) {};
    Frame1->mouseOutside = [] {};
    panel_->mouseMove = nullptr;
    Keys.KeyboardOpen = false;
    Arr.keyboardSplit = nullptr;
}

// The controls.

void frmTastiera::VScroll_Change(int index, int value)
{
    Label3[index]->setText(shown(faderText(index, value)));
    faderMove(index, value);
}

void frmTastiera::VScroll1_Change(int note)
{
    Text3->setText(shown(splitPointText(note)));
    panel_->moveTo(Picture1, splitMarkerLeft(note, HScroll1->value()), KeyGeometry::MarkerTop);
    splitPointSend(note);
}

void frmTastiera::HScroll1_Change(int octaveShift)
{
    notes_.setOctaveShift(octaveShift);
    OctaveLabelsShow();
    VScroll1_Change(VScroll1->value());
    notes_.showHeldAgain();
}

void frmTastiera::CommArrPlay_Click()
{
    notes_.CommArrPlay_Click();
    ModePanelShow();
}

void frmTastiera::CommSongPlay_Click()
{
    notes_.CommSongPlay_Click();
    ModePanelShow();
}

void frmTastiera::OctaveLabelsShow()
{
    for (int octave = 0; octave < KeyGeometry::Labels; ++octave)
        Label1[octave]->setText(QStringLiteral("C%1").arg(octave + HScroll1->value()));
    for (int key = 0; key < KeyRange::Count; ++key)
        Frame1->Key[key]->setAccessibleName(shown(noteText(notes_.state().BaseNote + key)));
}

void frmTastiera::ModePanelShow()
{
    const std::optional<bool> works = splitPointWorks();
    if (!works)
        return;
    for (QWidget* control : {Picture1, static_cast<QWidget*>(Picture2), static_cast<QWidget*>(Text3),
                             static_cast<QWidget*>(VScroll1), static_cast<QWidget*>(Label1[SplitLabel])})
        control->setEnabled(*works);
    Picture1->setVisible(*works);
}

// What the note logic shows.

void frmTastiera::showKeyPlain(int key) { Frame1->Key[key]->showMark(false); }

void frmTastiera::showKeyMark(int key) { Frame1->Key[key]->showMark(true); }

void frmTastiera::showNoteText(const std::string& text) { Text1->setText(shown(text)); }

void frmTastiera::showClickKey(bool ticked)
{
    const QSignalBlocker silent(CheckClickKey); // the logic has run the click itself
    CheckClickKey->setChecked(ticked);
}

void frmTastiera::showHoldNote(bool ticked)
{
    const QSignalBlocker silent(CheckHoldNote);
    CheckHoldNote->setChecked(ticked);
}

void frmTastiera::enableHoldNote(bool enabled) { CheckHoldNote->setEnabled(enabled); }

void frmTastiera::enableHoldChord(bool enabled) { CommHoldChord->setEnabled(enabled); }
