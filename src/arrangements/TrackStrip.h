// One track of the arrangement on the editor's pages: program, volume, pan, sends, octave, status, wrap-around, mute
// and solo. The nine tracks are nine of these. A strip only holds its controls; the editor names and hears them.
#pragma once

#include "arrangements/EditFields.h"

#include <QGroupBox>
#include <array>
#include <functional>

class ChoiceRows;
class QBoxLayout;
class QComboBox;
class QGridLayout;
class QLabel;
class QLayout;
class QLineEdit;
class QPushButton;
class QSlider;

/// Makes a fixed caption for a control.
using CaptionMaker = std::function<QLabel*(QWidget* parent, std::string_view text, QWidget* control)>;

class TrackStrip final : public QGroupBox
{
public:
    /// `track` is 0 to 8.
    TrackStrip(int track, QWidget* parent, ChoiceRows& rows, const CaptionMaker& makeCaption);

    QLineEdit* program = nullptr;
    QLineEdit* programLabel = nullptr;
    QSlider* volume = nullptr;
    QSlider* pan = nullptr;
    QLabel* volumeText = nullptr;
    QLabel* panText = nullptr;
    std::array<QComboBox*, EditFields::Combo2.size()> choices{}; ///< in the order of EditFields::Combo2
    QPushButton* mute = nullptr;
    QPushButton* solo = nullptr;

private:
    QString nameOf(std::string_view what) const; ///< "Volume, Bass"
    void buildProgram(QBoxLayout* row);
    QSlider* buildFader(ArrTrack which, const char* shortCaption, int largeStep, QLabel*& text, QGridLayout* grid,
                        int column, const CaptionMaker& makeCaption);
    QLayout* buildChoices(ChoiceRows& rows, const CaptionMaker& makeCaption);
    QPushButton* buildSwitch(const char* letter, const char* what, QGridLayout* grid, int column);
    void orderTabs();

    const char* caption_;
};
