// The live editor of one arrangement: every field of ArrEditBuf on two pages. A control's move changes the byte and
// tells the instrument in the same moment; the file's image is not touched before the editor stores.
//
// There is one editor. While a program's field or the style's is highlighted, a click in a program or style list of
// another window is a choice for it.
#pragma once

#include "arrangements/ArrEdit.h"
#include "arrangements/EditFields.h"
#include "arrangements/TrackSwitches.h"
#include "core/FieldTarget.h"
#include "toolkit/ChildWindow.h"
#include "toolkit/ControlArray.h"

#include <QPalette>
#include <vector>

class ChoiceRows;
class QBoxLayout;
class QCheckBox;
class QComboBox;
class QGridLayout;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QSlider;
class QTabWidget;
class TrackStrip;

class frmEditArr final : public ChildWindow, public ArrEditor, public FieldTarget
{
public:
    /// Shows ArrEditBuf, whose arrangement was loaded before.
    frmEditArr();
    ~frmEditArr() override;

    void ArrEditFill() override;
    /// Makes Text1(index) the highlighted field; no other is.
    void EditFieldSelect(int index);
    /// Takes the highlight away.
    void EditFieldClear();
    /// Shows a MIDI note beside the split point; one below 36 changes nothing.
    void SplitNoteShow(int note);

    // FieldTarget.
    bool PrgFieldSelected() const override { return highlightedTrack() >= 0; }
    bool StyFieldSelected() const override { return FieldSelected[EditFields::StyleText]; }
    int highlightedTrack() const override;
    void assignProgram(int number, int bank, const std::string& name, const std::string& label) override;
    void assignStyle(int number, int bank, const std::string& name, const std::string& label) override;

    bool queryUnload() override;
    void unload() override;

private:
    // Construct.
    void buildControls();
    QWidget* addPage(const char* pageCaption);
    void buildFirstPage(ChoiceRows& rows);
    void buildSecondPage(ChoiceRows& rows);
    TrackStrip* buildTrack(QWidget* page, int track, ChoiceRows& rows);
    QGroupBox* buildGeneral(QWidget* page, ChoiceRows& rows);
    void buildNames(QWidget* frame, QGridLayout* grid);
    void buildTempo(QWidget* frame, QGridLayout* grid);
    void buildGeneralLists(QWidget* frame, ChoiceRows& rows, QGridLayout* grid, int firstRow);
    void buildSplitAndDrumMap(QWidget* frame, ChoiceRows& rows, QBoxLayout* column);
    QComboBox* buildCombo1(int index, QWidget* parent, ChoiceRows& rows);
    QGroupBox* buildSwitches(QWidget* page);
    QGroupBox* buildEffects(QWidget* page, ChoiceRows& rows);
    QGroupBox* buildEnsemble(QWidget* page, ChoiceRows& rows);
    QGroupBox* makeFrame(QWidget* page, const char* name, const char* frameCaption);
    QLabel* makeCaption(QWidget* parent, std::string_view text, QWidget* control);
    void wireHandlers();
    void wireFields();
    void wireLists();
    void wireSwitches();
    void wirePages();
    void wireKeys();

    // Handle.
    void Text1_Click(int index);
    void Text1_Change(const QString& text);
    void Combo1_Click(int index, int row);
    void Combo2_Click(int index, int row);
    void Check1_Click(int index, bool checked);
    void VScroll1_Change(int index, int value);
    void HScroll1_Change(int index, int value);
    void EffCombo_Click(int index, int row);
    void EffComm_Click(int index);
    void CommM_Click(int track);
    void CommS_Click(int track);

    // Show.
    void fillGeneral();
    void fillEffects();
    void fillTracks();
    void showTrackSwitches();
    void showDDrumMap();
    void showVolume(int track);
    void showPan(int track);
    void showProgram(int track);
    void showText(int index, std::string_view text);
    void showEffectLabel(int index);
    void showEditCaption(const QString& name);
    void close_();

    QTabWidget* SSTab1 = nullptr;
    ControlArray<QLineEdit, EditFields::TextCount> Text1{"Text1"};
    ControlArray<QSlider, 19> VScroll1{"VScroll1"};
    ControlArray<QSlider, 2> HScroll1{"HScroll1"};
    ControlArray<QComboBox, 10> Combo1{"Combo1"};
    ControlArray<QComboBox, 54> Combo2{"Combo2"};
    ControlArray<QCheckBox, 10> Check1{"Check1"};
    ControlArray<QComboBox, 2> EffCombo{"EffCombo"};
    ControlArray<QPushButton, 2> EffComm{"EffComm"};
    ControlArray<QLabel, 2> EffLab1{"EffLab1"};
    ControlArray<QPushButton, ArrLayout::TrackCount> CommM{"CommM"};
    ControlArray<QPushButton, ArrLayout::TrackCount> CommS{"CommS"};
    static constexpr int TempoLabel = 0;
    static constexpr int SplitLabel = 3;
    static constexpr int DrumMapLabel = 4;
    ControlArray<QLabel, 5> Label1{"Label1"};  ///< the values of tempo, split point and DDrumMap
    ControlArray<QLabel, 19> Label2{"Label2"}; ///< 1 to 18: the values of the tracks' faders
    QLabel* styleLabel = nullptr;              ///< Label(1); the other labels of that name are fixed captions
    int nextCaption_ = 0;
    std::vector<QWidget*> frames_; ///< a press of the mouse on one of these takes the highlight away

    std::array<bool, EditFields::SelectableCount> FieldSelected{}; ///< one at most
    TrackSwitches switches_;
    QPalette normalField_; ///< the colours of Text1(0) as loaded
    QString caption_;
    int discardedAtExit_ = 0; ///< the exit at which the user gave the edit up; 0 for none
};
