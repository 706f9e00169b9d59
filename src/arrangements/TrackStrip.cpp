// A strip's layout: the program above, the two faders at the left with mute and solo under them as on a mixer, the
// lists in two columns.
#include "arrangements/TrackStrip.h"

#include "core/Strings.h"
#include "core/Words.h"
#include "toolkit/QtPanelParts.h"
#include "toolkit/QtSpoken.h"

#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSlider>

namespace
{

constexpr int VolumeColumn = 0;
constexpr int PanColumn = 1;
constexpr int RowsOfAChoice = 3; ///< its caption, its list, the gap behind it
constexpr int WidestGap = 12;    ///< pixels that a higher strip gives each such gap; what is left goes below
constexpr int MostHeight = 340;  ///< pixels from which on a strip grows no further
constexpr int VolumeLargeStep = 10;
constexpr int PanLargeStep = 3;
constexpr int Gap = 4;
constexpr int Margin = 4;
constexpr int RowGap = 1;

constexpr const char* NarrowestName = "Orchestra";
constexpr const char* WidestLabel = "Dr 28";
constexpr int FieldFrame = 10; ///< pixels of a field beside its text

/// Where a list stands in the strip, in the order of EditFields::Combo2; captions short enough for a narrow strip. The
/// two states stand one above the other, and the widest lists share a column.
struct ChoicePlace {
    const char* caption;
    int row;
    int column;
};
constexpr ChoicePlace ChoicePlaces[] = {{"C Send L", 0, 0}, {"D Send L", 0, 1}, {"Octave", 1, 0},
                                        {"Status1", 1, 1},  {"Status2", 2, 1},  {"W-Around", 2, 0}};
static_assert(std::size(ChoicePlaces) == EditFields::Combo2.size());

} // namespace

TrackStrip::TrackStrip(int track, QWidget* parent, ChoiceRows& rows, const CaptionMaker& makeCaption)
    : QGroupBox(QLatin1String(EditFields::Tracks[static_cast<std::size_t>(track)].caption), parent),
      caption_(EditFields::Tracks[static_cast<std::size_t>(track)].caption)
{
    setObjectName(QLatin1String(EditFields::Tracks[static_cast<std::size_t>(track)].frame));
    auto* head = new QHBoxLayout;
    head->setSpacing(Gap);
    buildProgram(head);

    auto* faders = new QGridLayout;
    faders->setHorizontalSpacing(RowGap);
    faders->setVerticalSpacing(RowGap);
    volume = buildFader(ArrTrack::Volume, "Vol", VolumeLargeStep, volumeText, faders, VolumeColumn, makeCaption);
    pan = buildFader(ArrTrack::Pan, "Pan", PanLargeStep, panText, faders, PanColumn, makeCaption);
    mute = buildSwitch("M", "Mute", faders, VolumeColumn);
    solo = buildSwitch("S", "Solo", faders, PanColumn);
    auto* body = new QHBoxLayout;
    body->setSpacing(Gap);
    body->addLayout(faders);
    body->addLayout(buildChoices(rows, makeCaption), 1);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(Margin, RowGap, Margin, Gap);
    layout->setSpacing(Gap);
    layout->addLayout(head);
    layout->addLayout(body, 1);
    setMaximumHeight(MostHeight);
    orderTabs();
}

QString TrackStrip::nameOf(std::string_view what) const
{
    return fromPanel(what) + QLatin1String(", ") + QLatin1String(caption_);
}

void TrackStrip::buildProgram(QBoxLayout* row)
{
    const QString hint = QString::fromUtf8(ResText(Words::ProgramFieldHint).c_str());
    program = makeShownText(this, "", hint);
    program->setAccessibleName(nameOf("Program"));
    program->setMinimumWidth(program->fontMetrics().horizontalAdvance(QLatin1String(NarrowestName)));
    programLabel = makeShownText(this, "");
    programLabel->setAccessibleName(nameOf("Program label"));
    programLabel->setAlignment(Qt::AlignCenter);
    programLabel->setFixedWidth(programLabel->fontMetrics().horizontalAdvance(QLatin1String(WidestLabel)) + FieldFrame);
    row->addWidget(program, 1);
    row->addWidget(programLabel);
}

QPushButton* TrackStrip::buildSwitch(const char* letter, const char* what, QGridLayout* grid, int column)
{
    QPushButton* button = makeColourButton(this, letter);
    button->setAccessibleName(nameOf(what));
    button->setFixedWidth(program->sizeHint().height());
    button->setMaximumHeight(program->sizeHint().height());
    constexpr int BelowTheFader = 3;
    grid->addWidget(button, BelowTheFader, column, Qt::AlignHCenter);
    return button;
}

QSlider* TrackStrip::buildFader(ArrTrack which, const char* shortCaption, int largeStep, QLabel*& text,
                                QGridLayout* grid, int column, const CaptionMaker& makeCaption)
{
    const ArrParameter& field = arrParameter(which);
    QSlider* fader = makeFader(this, Qt::Vertical, field.low, field.high, largeStep);
    fader->setAccessibleName(nameOf(field.caption));
    text = makeValueText(this, "CNT");
    speakFader(fader, text);
    QLabel* caption = makeCaption(this, shortCaption, fader);
    caption->setAlignment(Qt::AlignCenter);
    grid->addWidget(caption, 0, column);
    grid->addWidget(fader, 1, column, Qt::AlignHCenter);
    grid->addWidget(text, 2, column);
    grid->setRowStretch(1, 1);
    return fader;
}

QLayout* TrackStrip::buildChoices(ChoiceRows& rows, const CaptionMaker& makeCaption)
{
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(Gap);
    grid->setVerticalSpacing(RowGap);
    for (std::size_t i = 0; i < choices.size(); ++i) {
        const ArrParameter& field = arrParameter(EditFields::Combo2[i]);
        QComboBox* combo = makeTypedChoice(this, rows, field.list);
        combo->setAccessibleName(nameOf(field.caption));
        const ChoicePlace& place = ChoicePlaces[i];
        const int row = RowsOfAChoice * place.row;
        grid->addWidget(makeCaption(this, place.caption, combo), row, place.column);
        grid->addWidget(combo, row + 1, place.column);
        grid->addItem(new QSpacerItem(0, WidestGap, QSizePolicy::Minimum, QSizePolicy::Maximum), row + 2, place.column);
        grid->setColumnStretch(place.column, 1);
        choices[i] = combo;
    }
    grid->setRowStretch(grid->rowCount(), 1);
    return grid;
}

void TrackStrip::orderTabs()
{
    QWidget* before = program;
    const auto next = [&before](QWidget* control) {
        QWidget::setTabOrder(before, control);
        before = control;
    };
    next(programLabel);
    next(volume);
    next(pan);
    next(mute);
    next(solo);
    for (const std::size_t i : {0U, 1U, 2U, 3U, 5U, 4U})
        next(choices[i]);
}
