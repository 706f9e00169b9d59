// The window on one global block, on four pages: the instrument's own block as far as it is known, or a file. Every
// change goes out at once as a whole dump, so a file's window is as live as the instrument's.
#pragma once

#include "global/GblEdit.h"
#include "toolkit/ChildWindow.h"
#include "toolkit/ControlArray.h"

#include <initializer_list>

class ChoiceRows;
class QCheckBox;
class QComboBox;
class QGridLayout;
class QGroupBox;
class QLabel;
class QPushButton;
class QRadioButton;
class QSlider;
class QTabWidget;

class frmGbl final : public ChildWindow
{
public:
    /// Slot 0 is the instrument's block; 1 to 8 a file, which stands in the hand-over buffer.
    explicit frmGbl(int slot);

    /// Fills all controls from the Tag. Nothing is written or sent by it.
    void GblAggFrm();

    bool queryUnload() override;
    void unload() override;

private:
    static constexpr int FaderCount = GblBlock::ScaleCount * GblBlock::NotesOfAScale;
    static constexpr int FirstChannelCombo = 4; ///< of Combo3

    // Construct.
    void buildControls();
    void buildGeneralPage(ChoiceRows& rows);
    QGroupBox* buildGeneral(QWidget* page, ChoiceRows& rows);
    QGroupBox* buildMidiIn(QWidget* page, ChoiceRows& rows);
    QGroupBox* buildScales(QWidget* page, ChoiceRows& rows);
    QGroupBox* buildPedals(QWidget* page, ChoiceRows& rows);
    void buildScalePage(const char* pageCaption, int firstScale);
    QGroupBox* buildScale(QWidget* page, int scale);
    void buildNote(QGroupBox* frame, QGridLayout* grid, int scale, int note);
    void buildHarmonyPage(ChoiceRows& rows);
    QGroupBox* buildHarmony(QWidget* page, ChoiceRows& rows);
    QGroupBox* buildChannels(QWidget* page, ChoiceRows& rows);
    QWidget* buildButtons(QWidget* content);
    QGroupBox* makeFrame(QWidget* page, const QString& name, const char* frameCaption) const;
    QLabel* makeCaption(QWidget* parent, std::string_view text, QWidget* control);
    void addSlider(QGroupBox* frame, QGridLayout* grid, int row, int index);
    void addCombo(QGroupBox* frame, QGridLayout* grid, int row, int column, int index, ChoiceRows& rows);
    QCheckBox* addCheck(QGroupBox* frame, int index);
    void wireHandlers();
    void wireHarmony();
    void restorePlace();

    // Handle.
    void GblHScroll1_Change(int index, int value);
    void GblHScroll1_Scroll(int index, int value);
    void GblCombo1_Click(int index, int row);
    void GblCheck1_Click(int index, bool checked);
    void GblOption1_Click();
    void VScroll2_Change(int index, int value);
    void Combo3_Click(int index, int row);
    void Check3_Click(bool checked);
    void HScroll3_Change(int index, int value);
    void CommResetUS_Click(int scale);
    void chooseRow(QComboBox* combo, GblField field, int row);
    void edit(GblField field, int position, int index = 0);

    // Show.
    void fillGeneral();
    void fillScales();
    void fillHarmony();
    void fillChannels();
    void showSlider(int index);
    void showCombos(std::initializer_list<int> indexes);
    void showRange(int index);
    void showCombo(QComboBox* combo, GblField field) const;

    QTabWidget* SSTab1 = nullptr;
    ControlArray<QSlider, 2> GblHScroll1{"GblHScroll1"};
    ControlArray<QLabel, 14> GblLab1{"GblLab1"}; ///< 1 and 13: the sliders' values; all other numbers are captions
    ControlArray<QComboBox, 20> GblCombo1{"GblCombo1"}; ///< without a member 4
    ControlArray<QCheckBox, 3> GblCheck1{"GblCheck1"};
    ControlArray<QRadioButton, 2> GblOption1{"GblOption1"};
    ControlArray<QSlider, FaderCount> VScroll2{"VScroll2"};
    ControlArray<QLabel, FaderCount> Lab2{"Lab2"};
    ControlArray<QPushButton, GblBlock::ScaleCount> CommResetUS{"CommResetUS"};
    ControlArray<QComboBox, FirstChannelCombo + GblChannelCount> Combo3{"Combo3"};
    QCheckBox* Check3 = nullptr;
    ControlArray<QSlider, 2> HScroll3{"HScroll3"};
    ControlArray<QLabel, 8> Lab3{"Lab3"}; ///< 5 and 7: the notes of the harmony's range
    QPushButton* CommLoadGbl = nullptr;
    QPushButton* CommGlobal = nullptr;
    QPushButton* CommClose = nullptr;
    int nextCaption_ = 0;
};
