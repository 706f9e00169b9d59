// Construction of the pages behind the first: the faders of the four user scales, the harmony and the channels.
#include "global/frmGbl.h"

#include "core/Strings.h"
#include "core/Words.h"
#include "global/GblFields.h"
#include "toolkit/QtPanelParts.h"
#include "toolkit/QtSpoken.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QSlider>
#include <QTabWidget>

namespace
{

// The words of the instrument's panel, the same in both languages.
constexpr const char* HarmonyPage = "Harmony, MIDI";
constexpr const char* ScaleNames[] = {"User Scale 1", "User Scale 2", "User Scale 3", "User Scale 4"};
constexpr const char* ResetNames[] = {"Reset US1", "Reset US2", "Reset US3", "Reset US4"};
constexpr const char* Notes[] = {"C", "C#", "D", "D#", "E", "F", "F#", "G", "G#", "A", "A#", "B"};
constexpr const char* Marks[] = {"50", "0", "-50"};
constexpr std::string_view Channels[] = {"GLB (Global)",    "ARRANG (Arrangement)", "LOW (Lower)",      "UP2 (Upper 2)",
                                         "UP1 (Upper 1)",   "DRM (Drum)",           "PER (Percussion)", "BAS (Bass)",
                                         "AC1 (Accomp. 1)", "AC2 (Accomp. 2)",      "AC3 (Accomp. 3)"};
static_assert(std::size(Channels) == GblChannelCount);

constexpr int LargeStep = 10;
constexpr int Gap = 4;
constexpr int PageGap = 6;
constexpr int Margin = 6;

// Rows of a scale's frame.
constexpr int ValueRow = 0;
constexpr int FaderRow = 1;
constexpr int NoteRow = 2;
constexpr int ResetRow = 3;

/// A note as the keyboard has it: black keys dark, white keys light.
void showAsKey(QLabel* label, bool black)
{
    QPalette colours = label->palette();
    colours.setColor(QPalette::Window, black ? QColor(0x30, 0x30, 0x30) : QColor(Qt::white));
    colours.setColor(QPalette::WindowText, black ? QColor(Qt::white) : QColor(0x20, 0x20, 0x20));
    colours.setColor(QPalette::Disabled, QPalette::WindowText, Qt::gray);
    label->setPalette(colours);
    label->setAutoFillBackground(true);
    label->setFrameShape(QFrame::Box);
    label->setAlignment(Qt::AlignCenter);
}

} // namespace

// The user scales.

void frmGbl::buildScalePage(const char* pageCaption, int firstScale)
{
    QWidget* page = addPanelPage(SSTab1, QLatin1String(pageCaption));
    auto* layout = new QHBoxLayout(page);
    layout->setContentsMargins(PageGap, Gap, PageGap, Gap);
    layout->setSpacing(PageGap);
    layout->addWidget(buildScale(page, firstScale), 1);
    layout->addWidget(buildScale(page, firstScale + 1), 1);
}

QGroupBox* frmGbl::buildScale(QWidget* page, int scale)
{
    QGroupBox* frame = makeFrame(page, QStringLiteral("Frame5(%1)").arg(scale), ScaleNames[scale]);
    auto* grid = new QGridLayout(frame);
    grid->setContentsMargins(Gap, Gap, Gap, Gap);
    grid->setHorizontalSpacing(1);
    grid->setVerticalSpacing(Gap);
    auto* marks = new QVBoxLayout;
    for (int place = 0; place < static_cast<int>(std::size(Marks)); ++place) {
        auto* mark = new QLabel(QLatin1String(Marks[place]), frame);
        mark->setObjectName(QStringLiteral("mark(%1)").arg(scale * static_cast<int>(std::size(Marks)) + place));
        mark->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        if (place > 0)
            marks->addStretch(1);
        marks->addWidget(mark);
    }
    grid->addLayout(marks, FaderRow, 0);
    for (int note = 0; note < GblBlock::NotesOfAScale; ++note)
        buildNote(frame, grid, scale, note);
    grid->setRowStretch(FaderRow, 1);

    auto* reset = CommResetUS.put(scale, new QPushButton(QLatin1String(ResetNames[scale]), frame));
    reset->setToolTip(QString::fromUtf8(ResText(Words::ResetScaleHint).c_str()));
    grid->addWidget(reset, ResetRow, 0, 1, GblBlock::NotesOfAScale + 1, Qt::AlignRight);
    return frame;
}

void frmGbl::buildNote(QGroupBox* frame, QGridLayout* grid, int scale, int note)
{
    const GblParameter& field = gblParameter(GblField::UserScale);
    const int index = scale * GblBlock::NotesOfAScale + note;
    QSlider* fader = VScroll2.put(index, makeFader(frame, Qt::Vertical, field.low, field.high, LargeStep));
    fader->setAccessibleName(QLatin1String(ScaleNames[scale]) + QLatin1String(", ") + QLatin1String(Notes[note]));
    QLabel* value = Lab2.put(index, makeValueText(frame, "-50"));
    speakFader(fader, value);
    auto* key = new QLabel(QLatin1String(Notes[note]), frame);
    key->setObjectName(QStringLiteral("note(%1)").arg(index));
    showAsKey(key, Notes[note][1] == '#');
    grid->addWidget(value, ValueRow, note + 1);
    grid->addWidget(fader, FaderRow, note + 1, Qt::AlignHCenter);
    grid->addWidget(key, NoteRow, note + 1);
    grid->setColumnStretch(note + 1, 1);
}

// The harmony and the channels.

void frmGbl::buildHarmonyPage(ChoiceRows& rows)
{
    QWidget* page = addPanelPage(SSTab1, QLatin1String(HarmonyPage));
    auto* layout = new QHBoxLayout(page);
    layout->setContentsMargins(PageGap, Gap, PageGap, Gap);
    layout->setSpacing(PageGap);
    layout->addWidget(buildHarmony(page, rows), 1);
    layout->addWidget(buildChannels(page, rows), 1);
}

QGroupBox* frmGbl::buildHarmony(QWidget* page, ChoiceRows& rows)
{
    QGroupBox* frame = makeFrame(page, QStringLiteral("Frame6"), "Harmony");
    auto* grid = new QGridLayout(frame);
    grid->setContentsMargins(Margin, Gap, Margin, Gap);
    grid->setSpacing(Gap);
    int row = 0;
    for (const int index : {0, 1, 2, 3}) {
        const GblParameter& field = gblParameter(GblFields::Combo3[static_cast<std::size_t>(index)]);
        Combo3.put(index, makeChoice(frame, rows, field.list));
        grid->addWidget(makeCaption(frame, field.caption, Combo3[index]), row, 0);
        grid->addWidget(Combo3[index], row++, 1, 1, 2);
    }
    Check3 = new QCheckBox(fromPanel(gblParameter(GblField::HarmonyToneGenerator).caption), frame);
    Check3->setObjectName(QStringLiteral("Check3"));
    grid->addWidget(Check3, row++, 1, 1, 2);
    for (const int index : {0, 1}) {
        const GblParameter& field = gblParameter(GblFields::HScroll3[static_cast<std::size_t>(index)]);
        HScroll3.put(index, makeFader(frame, Qt::Horizontal, field.low, field.high, LargeStep));
        QLabel* note = Lab3.put(GblFields::RangeLabel[static_cast<std::size_t>(index)], makeValueBeside(frame, "G#-1"));
        speakFader(HScroll3[index], note);
        grid->addWidget(makeCaption(frame, field.caption, HScroll3[index]), row, 0);
        grid->addWidget(HScroll3[index], row, 1);
        grid->addWidget(note, row++, 2);
    }
    grid->setColumnStretch(1, 1);
    return frame;
}

QGroupBox* frmGbl::buildChannels(QWidget* page, ChoiceRows& rows)
{
    QGroupBox* frame = makeFrame(page, QStringLiteral("Frame7"), "MIDI Channels");
    auto* grid = new QGridLayout(frame);
    grid->setContentsMargins(Margin, Gap, Margin, Gap);
    grid->setHorizontalSpacing(Gap);
    grid->setVerticalSpacing(2);
    for (int place = 0; place < GblChannelCount; ++place) {
        QComboBox* combo = Combo3.put(FirstChannelCombo + place, makeChoice(frame, rows, GblLists::Channel));
        combo->setToolTip(QString::fromUtf8(ResText(Words::ChannelsHint).c_str()));
        grid->addWidget(makeCaption(frame, Channels[place], combo), place, 0);
        grid->addWidget(combo, place, 1);
    }
    grid->setColumnStretch(1, 1);
    return frame;
}
