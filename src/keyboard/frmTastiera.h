// The on-screen keyboard with its channel strip: plays the instrument from sixty-one drawn keys and moves the channel's
// controllers. There is at most one; its menu item is off while it is open.
#pragma once

#include "keyboard/ChannelMixer.h"
#include "keyboard/KeyGeometry.h"
#include "keyboard/NoteLogic.h"
#include "toolkit/ChildWindow.h"
#include "toolkit/ControlArray.h"

class KeyBedWidget;
class QCheckBox;
class QComboBox;
class QFrame;
class QLabel;
class QLineEdit;
class QPushButton;
class QSlider;
class TwipsPanelWidget;

class frmTastiera final : public ChildWindow, private KeyboardFace
{
public:
    /// Opens with the values of the last time and sends all its controllers.
    frmTastiera();
    ~frmTastiera() override;

    void unload() override;

private:
    static constexpr int SplitLabel = 8;

    void buildControls();
    void buildFader(int index);
    void buildChannelAndSplit();
    void buildKeys();
    void buildPlaying();
    void wireHandlers();
    void load();
    void close_();
    QLabel* makeLabel(const char* name, const QString& text, const TwipsRect& place, Qt::Alignment alignment,
                      qreal words = 1);
    QPushButton* makeButton(const char* name, const QString& caption, const TwipsRect& place);
    QCheckBox* makeBox(const char* name, const QString& caption, const TwipsRect& place);
    QLineEdit* makeShownNote(const char* name, const QString& accessibleName, const TwipsRect& place);

    void VScroll_Change(int index, int value);
    void VScroll1_Change(int note);
    void HScroll1_Change(int octaveShift);
    void CommArrPlay_Click();
    void CommSongPlay_Click();
    void OctaveLabelsShow();
    void ModePanelShow();

    void showKeyPlain(int key) override;
    void showKeyMark(int key) override;
    void showNoteText(const std::string& text) override;
    void showClickKey(bool ticked) override;
    void showHoldNote(bool ticked) override;
    void enableHoldNote(bool enabled) override;
    void enableHoldChord(bool enabled) override;

    NoteLogic notes_{*this};
    bool closed_ = false;

    TwipsPanelWidget* panel_ = nullptr;
    KeyBedWidget* Frame1 = nullptr;
    ControlArray<QSlider, Faders::Count> VScroll{"VScroll"};
    ControlArray<QLabel, Faders::Count> Label2{"Label2"}; ///< captions
    ControlArray<QLabel, Faders::Count> Label3{"Label3"}; ///< values
    ControlArray<QLabel, Faders::Count> Label4{"Label4"}; ///< top marks
    ControlArray<QLabel, Faders::Count> Label5{"Label5"}; ///< bottom marks
    ControlArray<QLabel, SplitLabel + 1> Label1{"Label1"};
    QComboBox* Combo1 = nullptr;
    QSlider* VScroll1 = nullptr;
    QSlider* HScroll1 = nullptr;
    QWidget* Picture1 = nullptr; ///< the split marker
    QFrame* Picture2 = nullptr;
    QLineEdit* Text1 = nullptr;
    QLineEdit* Text3 = nullptr;
    QCheckBox* CheckClickKey = nullptr;
    QCheckBox* CheckHoldNote = nullptr;
    QPushButton* CommHoldChord = nullptr;
    QPushButton* CommAllNoteOff = nullptr;
    QPushButton* CommArrPlay = nullptr;
    QPushButton* CommSongPlay = nullptr;
    QPushButton* CommChiudi = nullptr;
};
