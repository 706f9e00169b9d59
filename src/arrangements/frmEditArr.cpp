// Construction of the editor: its two pages, their frames, and which handler hears which control.
#include "arrangements/frmEditArr.h"

#include "arrangements/TrackStrip.h"
#include "core/Strings.h"
#include "core/Words.h"
#include "toolkit/Choices.h"
#include "toolkit/QtKeyActions.h"
#include "toolkit/QtLooks.h"
#include "toolkit/QtPanelParts.h"
#include "toolkit/QtSpoken.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpressionValidator>
#include <QSlider>
#include <QTabBar>
#include <QTabWidget>

namespace
{

using namespace EditFields;

// The words of the instrument's panel, the same in both languages.
constexpr const char* FirstPage = "General, Drum, Percussion, Bass";
constexpr const char* SecondPage = "ACC1,2,3, UPPER1, UPPER2, LOWER";
constexpr const char* EffectNames[] = {"Effect 1", "Effect 2"};

constexpr TwipsSize DefaultSize{9228, 5916};
constexpr int NameLength = 16;
constexpr int TempoLargeStep = 10;
constexpr int SplitLargeStep = 10;
constexpr int StyleCaption = 1; ///< the place of the style's label among the labels
constexpr int StripsInARow = 3;
constexpr int MostPageWidth = 1200; ///< pixels from which on a page grows no wider

constexpr int Gap = 4;
constexpr int PageGap = 3;
constexpr int Margin = 4;
constexpr int RowGap = 1;

/// Captions of Combo1, row by row in two columns, shorter than the field's own name where the frame would be too wide.
struct ShortCaption {
    int index;
    const char* text;
};
constexpr ShortCaption GeneralLists[] = {{0, "Keyboard"}, {1, "Fill 1"}, {4, "Transpose"},  {2, "Fill 2"},
                                         {9, "Drum kit"}, {6, "Kick"},   {3, "Init. Var."}, {7, "Snare"}};

/// Letters that the instrument's character set has.
QValidator* latinLetters(QObject* parent)
{
    return new QRegularExpressionValidator(QRegularExpression(QStringLiteral("[\\x{00}-\\x{FF}]*")), parent);
}

} // namespace

frmEditArr::frmEditArr() : ChildWindow("frmEditArr", &AppState::OtherCount)
{
    Tag = WindowBuffer::fresh(WindowKind::EditArr, 0);
    buildControls();
    normalField_ = Text1[NameText]->palette();
    wireHandlers();
    openAtRow(WindowKind::EditArr, DefaultSize);
    Arr.ArrNameChanged = false;
    Arr.ArrCloseCancelled = false;
    ArrEditFill();
    Arr.editor = this;
    setFieldTarget(this);
}

void frmEditArr::buildControls()
{
    auto* content = new QWidget(this);
    SSTab1 = Looks::makePages(content);
    auto* layout = new QVBoxLayout(content);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(SSTab1);

    ChoiceRows rows;
    buildFirstPage(rows);
    buildSecondPage(rows);
    showTrackSwitches();
    letShrink(content);
    setContent(content);
}

QWidget* frmEditArr::addPage(const char* pageCaption)
{
    QWidget* page = addPanelPage(SSTab1, QLatin1String(pageCaption));
    page->setMaximumWidth(MostPageWidth);
    frames_.push_back(page);
    return page;
}

void frmEditArr::buildFirstPage(ChoiceRows& rows)
{
    QWidget* page = addPage(FirstPage);
    QGroupBox* general = buildGeneral(page, rows);
    auto* right = new QVBoxLayout;
    right->setSpacing(PageGap);
    right->addWidget(buildSwitches(page));
    right->addWidget(buildEffects(page, rows));
    right->addWidget(buildEnsemble(page, rows));
    right->addStretch(1);
    auto* upper = new QHBoxLayout;
    upper->setSpacing(PageGap);
    upper->addWidget(general, 3);
    upper->addLayout(right, 2);

    auto* tracks = new QHBoxLayout;
    tracks->setSpacing(PageGap);
    for (int track = 0; track < TracksOnFirstPage; ++track)
        tracks->addWidget(buildTrack(page, track, rows), 1);
    auto* layout = new QVBoxLayout(page);
    layout->setContentsMargins(PageGap, RowGap, PageGap, RowGap);
    layout->setSpacing(PageGap);
    layout->addLayout(upper);
    // Only what the strips leave goes below them.
    constexpr int AllTheRest = 100;
    layout->addLayout(tracks, AllTheRest);
    layout->addStretch(1);
}

void frmEditArr::buildSecondPage(ChoiceRows& rows)
{
    QWidget* page = addPage(SecondPage);
    auto* layout = new QGridLayout(page);
    layout->setContentsMargins(PageGap, RowGap, PageGap, RowGap);
    layout->setSpacing(PageGap);
    for (int track = TracksOnFirstPage; track < ArrLayout::TrackCount; ++track) {
        const int place = track - TracksOnFirstPage;
        layout->addWidget(buildTrack(page, track, rows), place / StripsInARow, place % StripsInARow);
        layout->setRowStretch(place / StripsInARow, 100);
        layout->setColumnStretch(place % StripsInARow, 1);
    }
    layout->setRowStretch(layout->rowCount(), 1);
}

QLabel* frmEditArr::makeCaption(QWidget* parent, std::string_view text, QWidget* control)
{
    if (nextCaption_ == StyleCaption)
        ++nextCaption_;
    auto* label = new QLabel(fromPanel(text), parent);
    label->setObjectName(memberName("Label", nextCaption_++));
    label->setBuddy(control);
    return label;
}

QGroupBox* frmEditArr::makeFrame(QWidget* page, const char* name, const char* frameCaption)
{
    auto* frame = new QGroupBox(QLatin1String(frameCaption), page);
    frame->setObjectName(QLatin1String(name));
    frames_.push_back(frame);
    return frame;
}

TrackStrip* frmEditArr::buildTrack(QWidget* page, int track, ChoiceRows& rows)
{
    auto* strip = new TrackStrip(track, page, rows, [this](QWidget* parent, std::string_view text, QWidget* control) {
        return makeCaption(parent, text, control);
    });
    frames_.push_back(strip);
    Text1.put(TrackText + 2 * track, strip->program);
    Text1.put(TrackText + 2 * track + 1, strip->programLabel);
    VScroll1.put(2 * track + 1, strip->volume);
    VScroll1.put(2 * track + 2, strip->pan);
    Label2.put(2 * track + 1, strip->volumeText);
    Label2.put(2 * track + 2, strip->panText);
    const int lists = static_cast<int>(strip->choices.size());
    for (int i = 0; i < lists; ++i)
        Combo2.put(lists * track + i, strip->choices[static_cast<std::size_t>(i)]);
    CommM.put(track, strip->mute);
    CommS.put(track, strip->solo);
    return strip;
}

QGroupBox* frmEditArr::buildGeneral(QWidget* page, ChoiceRows& rows)
{
    QGroupBox* frame = makeFrame(page, "General", "General");
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(Gap + 2);
    grid->setVerticalSpacing(RowGap);
    buildNames(frame, grid);
    buildGeneralLists(frame, rows, grid, 2);
    grid->setColumnStretch(1, 1);
    grid->setColumnStretch(3, 1);

    auto* left = new QVBoxLayout;
    left->setSpacing(RowGap);
    left->addLayout(grid);
    buildSplitAndDrumMap(frame, rows, left);
    auto* tempo = new QGridLayout;
    tempo->setVerticalSpacing(RowGap);
    buildTempo(frame, tempo);
    auto* layout = new QHBoxLayout(frame);
    layout->setContentsMargins(Margin, RowGap, Margin, Gap);
    layout->setSpacing(PageGap);
    layout->addLayout(left, 1);
    layout->addLayout(tempo);
    return frame;
}

void frmEditArr::buildNames(QWidget* frame, QGridLayout* grid)
{
    auto* name = new QLineEdit(frame);
    Text1.put(NameText, name);
    name->setMaxLength(NameLength);
    name->setValidator(latinLetters(name));
    name->setAccessibleName(QStringLiteral("Name"));
    QLineEdit* style = makeShownText(frame, "Style", QString::fromUtf8(ResText(Words::StyleFieldHint).c_str()));
    Text1.put(StyleText, style);
    styleLabel = new QLabel(frame);
    styleLabel->setObjectName(memberName("Label", StyleCaption));
    styleLabel->setBuddy(style);
    grid->addWidget(makeCaption(frame, "Name", name), 0, 0);
    // Both are sixteen letters long.
    grid->addWidget(name, 0, 1, 1, 3);
    grid->addWidget(styleLabel, 1, 0);
    grid->addWidget(style, 1, 1, 1, 3);
}

void frmEditArr::buildTempo(QWidget* frame, QGridLayout* grid)
{
    const ArrParameter& field = arrParameter(ArrGeneral::Tempo);
    QSlider* tempo = VScroll1.put(0, makeFader(frame, Qt::Vertical, field.low, field.high, TempoLargeStep));
    tempo->setAccessibleName(fromPanel(field.caption));
    grid->addWidget(makeCaption(frame, field.caption, tempo), 0, 0, Qt::AlignHCenter);
    grid->addWidget(tempo, 1, 0, Qt::AlignHCenter);
    grid->addWidget(Label1.put(TempoLabel, makeValueText(frame, "2400")), 2, 0, Qt::AlignHCenter);
    speakFader(tempo, Label1[TempoLabel]);
}

QComboBox* frmEditArr::buildCombo1(int index, QWidget* parent, ChoiceRows& rows)
{
    const bool selector = index == VariationSelector;
    const ArrGeneral which = EditFields::Combo1[static_cast<std::size_t>(index)];
    const ChoiceList list = selector ? ChoiceList(ArrLists::Variation) : arrParameter(which).list;
    QComboBox* combo = Combo1.put(index, makeTypedChoice(parent, rows, list));
    combo->setAccessibleName(selector ? QStringLiteral("DDrumMap, Variation") : fromPanel(arrParameter(which).caption));
    return combo;
}

void frmEditArr::buildGeneralLists(QWidget* frame, ChoiceRows& rows, QGridLayout* grid, int firstRow)
{
    int place = 0;
    for (const ShortCaption& caption : GeneralLists) {
        QComboBox* combo = buildCombo1(caption.index, frame, rows);
        const int row = firstRow + place / 2;
        const int column = 2 * (place % 2);
        grid->addWidget(makeCaption(frame, caption.text, combo), row, column);
        grid->addWidget(combo, row, column + 1);
        ++place;
    }
}

void frmEditArr::buildSplitAndDrumMap(QWidget* frame, ChoiceRows& rows, QBoxLayout* column)
{
    const ArrParameter& split = arrParameter(ArrGeneral::SplitPoint);
    const ArrParameter& map = arrParameter(dDrumMap(0));
    // In the order in which Tab walks them.
    HScroll1.put(0, makeFader(frame, Qt::Horizontal, split.low, split.high, SplitLargeStep));
    HScroll1[0]->setAccessibleName(fromPanel(split.caption));
    QComboBox* selector = buildCombo1(VariationSelector, frame, rows);
    HScroll1.put(1, makeFader(frame, Qt::Horizontal, map.low, map.high, 1));
    HScroll1[1]->setAccessibleName(fromPanel(map.caption));
    Label1.put(SplitLabel, makeValueBeside(frame, "C4#"));
    Label1.put(DrumMapLabel, makeValueBeside(frame, "C4#"));
    speakFader(HScroll1[0], Label1[SplitLabel]);
    speakFader(HScroll1[1], Label1[DrumMapLabel]);

    auto* splitRow = new QHBoxLayout;
    splitRow->setSpacing(Gap);
    splitRow->addWidget(makeCaption(frame, split.caption, HScroll1[0]));
    splitRow->addWidget(HScroll1[0], 1);
    splitRow->addWidget(Label1[SplitLabel]);
    column->addLayout(splitRow);

    auto* mapRow = new QHBoxLayout;
    mapRow->setSpacing(Gap);
    mapRow->addWidget(makeCaption(frame, map.caption, selector));
    mapRow->addWidget(selector);
    mapRow->addWidget(HScroll1[1], 1);
    mapRow->addWidget(Label1[DrumMapLabel]);
    column->addLayout(mapRow);
}

QGroupBox* frmEditArr::buildSwitches(QWidget* page)
{
    // The long names in one column, so that the frame stays narrow.
    constexpr int None = -1;
    constexpr int Columns[2][5] = {{0, 1, 4, 5, 6}, {2, 3, 7, 8, None}};
    QGroupBox* frame = makeFrame(page, "Frame2", "Switches");
    auto* grid = new QGridLayout(frame);
    grid->setContentsMargins(PageGap, RowGap, RowGap, RowGap);
    grid->setHorizontalSpacing(PageGap);
    grid->setVerticalSpacing(RowGap);
    for (int column = 0; column < 2; ++column)
        for (int row = 0; row < 5; ++row) {
            const int index = Columns[column][row];
            if (index == None)
                continue;
            const ArrParameter& field = arrParameter(EditFields::Check1[static_cast<std::size_t>(index)]);
            grid->addWidget(Check1.put(index, new QCheckBox(fromPanel(field.caption), frame)), row, column);
        }
    return frame;
}

QGroupBox* frmEditArr::buildEffects(QWidget* page, ChoiceRows& rows)
{
    QGroupBox* frame = makeFrame(page, "Frame1", "Effects 1,2, On/Off");
    auto* grid = new QGridLayout(frame);
    grid->setContentsMargins(Margin, RowGap, Margin, Gap);
    grid->setHorizontalSpacing(Gap);
    grid->setVerticalSpacing(RowGap);
    for (int index = 0; index < EffCombo.count(); ++index) {
        EffLab1.put(index, new QLabel(frame));
        EffCombo.put(index,
                     makeChoice(frame, rows, arrParameter(EditFields::EffCombo[static_cast<std::size_t>(index)]).list));
        EffComm.put(index, new QPushButton(QStringLiteral("On"), frame));
        EffCombo[index]->setAccessibleName(QLatin1String(EffectNames[index]));
        EffComm[index]->setAccessibleName(QLatin1String(EffectNames[index]) + QStringLiteral(" On/Off"));
        EffComm[index]->setAccessibleDescription(EffComm[index]->text());
        EffComm[index]->setFixedWidth(EffComm[index]->fontMetrics().horizontalAdvance(QStringLiteral(" Off ")));
        EffLab1[index]->setBuddy(EffCombo[index]);
        EffCombo[index]->setMinimumWidth(
            EffCombo[index]->fontMetrics().horizontalAdvance(QStringLiteral("Quad Chorus--")));
        grid->addWidget(EffLab1[index], index, 0);
        grid->addWidget(EffCombo[index], index, 1);
        grid->addWidget(EffComm[index], index, 2);
    }
    grid->setColumnStretch(1, 1);
    return frame;
}

QGroupBox* frmEditArr::buildEnsemble(QWidget* page, ChoiceRows& rows)
{
    constexpr int Switch = 9;
    constexpr int Type = 8;
    QGroupBox* frame = makeFrame(page, "Frame5", "Ensemble");
    auto* layout = new QHBoxLayout(frame);
    layout->setContentsMargins(Margin, RowGap, Margin, Gap);
    layout->setSpacing(Gap);
    layout->addWidget(
        Check1.put(Switch, new QCheckBox(fromPanel(arrParameter(ArrGeneral::EnsembleSwitch).caption), frame)));
    Check1[Switch]->setAccessibleName(QStringLiteral("Ensemble Sw"));
    layout->addWidget(buildCombo1(Type, frame, rows), 1);
    return frame;
}

void frmEditArr::wireHandlers()
{
    wireFields();
    wireLists();
    wireSwitches();
    wirePages();
    wireKeys();
}

void frmEditArr::wireFields()
{
    for (int index = 0; index < Text1.count(); ++index)
        onFieldClick(Text1[index], [this, index] { Text1_Click(index); });
    connect(Text1[NameText], &QLineEdit::textChanged, this, [this](const QString& text) { Text1_Change(text); });
    VScroll1.onEach(&QSlider::valueChanged, this, [this](int index, int value) { VScroll1_Change(index, value); });
    HScroll1.onEach(&QSlider::valueChanged, this, [this](int index, int value) { HScroll1_Change(index, value); });
}

void frmEditArr::wireLists()
{
    for (int index = 0; index < Combo1.count(); ++index)
        onComboClick(Combo1[index], [this, index](int row) { Combo1_Click(index, row); });
    for (int index = 0; index < Combo2.count(); ++index)
        onComboClick(Combo2[index], [this, index](int row) { Combo2_Click(index, row); });
    for (int index = 0; index < EffCombo.count(); ++index)
        onComboClick(EffCombo[index], [this, index](int row) { EffCombo_Click(index, row); });
}

void frmEditArr::wireSwitches()
{
    Check1.onEach(&QCheckBox::toggled, this, [this](int index, bool checked) { Check1_Click(index, checked); });
    EffComm.onEach(&QPushButton::clicked, this, [this](int index, bool) { EffComm_Click(index); });
    CommM.onEach(&QPushButton::clicked, this, [this](int track, bool) { CommM_Click(track); });
    CommS.onEach(&QPushButton::clicked, this, [this](int track, bool) { CommS_Click(track); });
}

void frmEditArr::wirePages()
{
    for (QWidget* frame : frames_)
        onMousePress(frame, [this] { EditFieldClear(); });
    // The strip of the tabs goes on beside them: there the press is the tab control's own.
    onMousePress(SSTab1->tabBar(), [this] { EditFieldClear(); });
    onMousePress(SSTab1, [this] { EditFieldClear(); });
    turnPagesByKeys(this, SSTab1);
}

/// Ctrl and Alt with the figures 1 to 9 are mute and solo of the tracks, whichever page is open; with Down and Up the
/// rows of the window that the arrangement came from are walked.
void frmEditArr::wireKeys()
{
    for (int track = 0; track < ArrLayout::TrackCount; ++track) {
        const int figure = Qt::Key_1 + track;
        const auto give = [&](QPushButton* button, const char* name, int key, void (frmEditArr::*handler)(int)) {
            const QKeySequence keys(key);
            addKeyAction(this, memberName(name, track).toLatin1().constData(), keys,
                         [this, handler, track] { (this->*handler)(track); });
            button->setToolTip(keys.toString(QKeySequence::NativeText));
        };
        give(CommM[track], "actMute", Qt::CTRL | figure, &frmEditArr::CommM_Click);
        give(CommS[track], "actSolo", Qt::ALT | figure, &frmEditArr::CommS_Click);
    }
    addKeyAction(this, "actNextRow", Qt::CTRL | Qt::Key_Down, [] { stepEditedRow(1); });
    addKeyAction(this, "actPreviousRow", Qt::CTRL | Qt::Key_Up, [] { stepEditedRow(-1); });
}
