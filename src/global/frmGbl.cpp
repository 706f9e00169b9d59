// Construction of the window: which handler hears which control, the first page, the buttons below the pages. The other
// pages stand in frmGblPages.cpp, the handlers in frmGblHandlers.cpp.
#include "global/frmGbl.h"

#include "core/ScopedFlag.h"
#include "core/Strings.h"
#include "core/Words.h"
#include "global/GblFields.h"
#include "global/GblState.h"
#include "midi/DeviceModes.h"
#include "toolkit/Choices.h"
#include "toolkit/QtLooks.h"
#include "toolkit/QtPanelParts.h"
#include "toolkit/QtSpoken.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <QTabWidget>

namespace
{

// The words of the instrument's panel, the same in both languages.
constexpr const char* GeneralPage = "General";
constexpr const char* FirstScalePage = "User Scale 1, 2";
constexpr const char* SecondScalePage = "User Scale 3, 4";

constexpr TwipsSize DefaultSize{9072, 5640};
constexpr int CloseRow = 8;
constexpr int LargeStep = 10;

constexpr int Gap = 4;
constexpr int PageGap = 4;
constexpr int Margin = 6;
constexpr int RowGap = 2;    ///< at the smallest; the rows share what a larger window has
constexpr int FrameEdge = 2; ///< above and below the rows of a frame

/// Where a list stands in its frame: rows and columns of captions and lists in pairs.
struct ComboPlace {
    int index;
    int row;
    int column;
};

template <typename Places, typename Add>
void addAll(const Places& places, Add&& add)
{
    for (const ComboPlace& place : places)
        add(place.row, 2 * place.column, place.index);
}

QGridLayout* makeGrid(QGroupBox* frame)
{
    auto* grid = new QGridLayout(frame);
    grid->setContentsMargins(Margin, FrameEdge, Margin, FrameEdge);
    grid->setHorizontalSpacing(Gap);
    grid->setVerticalSpacing(RowGap);
    return grid;
}

QString word(int id) { return QString::fromUtf8(ResText(id).c_str()); }

} // namespace

frmGbl::frmGbl(int slot) : ChildWindow("frmGbl", &AppState::GblCount)
{
    const ScopedFlag loading{Gbl.GblLoading};
    Tag = GblTagBuild(slot);
    buildControls();
    wireHandlers();
    wireHarmony();
    restorePlace();
    GblAggFrm();
}

void frmGbl::buildControls()
{
    auto* content = new QWidget(this);
    SSTab1 = Looks::makePages(content);
    ChoiceRows rows;
    buildGeneralPage(rows);
    buildScalePage(FirstScalePage, 0);
    buildScalePage(SecondScalePage, 2);
    buildHarmonyPage(rows);

    auto* layout = new QVBoxLayout(content);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(SSTab1, 1);
    layout->addWidget(buildButtons(content));
    letShrink(content);
    setContent(content);
}

QGroupBox* frmGbl::makeFrame(QWidget* page, const QString& name, const char* frameCaption) const
{
    auto* frame = new QGroupBox(QLatin1String(frameCaption), page);
    frame->setObjectName(name);
    return frame;
}

QLabel* frmGbl::makeCaption(QWidget* parent, std::string_view text, QWidget* control)
{
    while (nextCaption_ == GblFields::SliderLabel[0] || nextCaption_ == GblFields::SliderLabel[1])
        ++nextCaption_;
    auto* label = new QLabel(fromPanel(text), parent);
    label->setObjectName(memberName("GblLab1", nextCaption_++));
    label->setBuddy(control);
    return label;
}

// The first page.

void frmGbl::buildGeneralPage(ChoiceRows& rows)
{
    QWidget* page = addPanelPage(SSTab1, QLatin1String(GeneralPage));
    auto* left = new QVBoxLayout;
    left->setSpacing(PageGap);
    left->addWidget(buildGeneral(page, rows), 6);
    left->addWidget(buildMidiIn(page, rows), 5);
    auto* right = new QVBoxLayout;
    right->setSpacing(PageGap);
    right->addWidget(buildScales(page, rows), 4);
    right->addWidget(buildPedals(page, rows), 7);
    auto* layout = new QHBoxLayout(page);
    layout->setContentsMargins(PageGap, FrameEdge, PageGap, FrameEdge);
    layout->setSpacing(PageGap);
    layout->addLayout(left, 1);
    layout->addLayout(right, 1);
}

void frmGbl::addSlider(QGroupBox* frame, QGridLayout* grid, int row, int index)
{
    const GblParameter& field = gblParameter(GblFields::GblHScroll1[static_cast<std::size_t>(index)]);
    QSlider* slider = GblHScroll1.put(index, makeFader(frame, Qt::Horizontal, field.low, field.high, LargeStep));
    slider->setTracking(false); // it edits when it lands
    QLabel* value =
        GblLab1.put(GblFields::SliderLabel[static_cast<std::size_t>(index)], makeValueBeside(frame, "Normal"));
    speakFader(slider, value);
    grid->addWidget(makeCaption(frame, field.caption, slider), row, 0);
    grid->addWidget(slider, row, 1, 1, 2);
    grid->addWidget(value, row, 3);
}

void frmGbl::addCombo(QGroupBox* frame, QGridLayout* grid, int row, int column, int index, ChoiceRows& rows)
{
    const GblParameter& field = gblParameter(GblFields::GblCombo1[static_cast<std::size_t>(index)]);
    QComboBox* combo = GblCombo1.put(index, makeChoice(frame, rows, field.list));
    if (field.kept)
        combo->setToolTip(word(Words::CurveHint));
    grid->addWidget(makeCaption(frame, field.caption, combo), row, column);
    grid->addWidget(combo, row, column + 1);
}

QCheckBox* frmGbl::addCheck(QGroupBox* frame, int index)
{
    const GblParameter& field = gblParameter(GblFields::GblCheck1[static_cast<std::size_t>(index)]);
    return GblCheck1.put(index, new QCheckBox(fromPanel(field.caption), frame));
}

QGroupBox* frmGbl::buildGeneral(QWidget* page, ChoiceRows& rows)
{
    constexpr ComboPlace Places[] = {{0, 1, 0}, {1, 2, 0}, {2, 1, 1}, {3, 2, 1}};
    constexpr int VelocityRow = 3;
    constexpr int CheckRow = 4;
    QGroupBox* frame = makeFrame(page, QStringLiteral("Frame4"), "General");
    QGridLayout* grid = makeGrid(frame);
    addSlider(frame, grid, 0, 0);
    addAll(Places, [&](int row, int column, int index) { addCombo(frame, grid, row, column, index, rows); });
    addSlider(frame, grid, VelocityRow, 1);
    grid->addWidget(addCheck(frame, 0), CheckRow, 0, 1, 2);
    grid->addWidget(addCheck(frame, 1), CheckRow, 2, 1, 2);
    grid->addWidget(addCheck(frame, 2), CheckRow + 1, 2, 1, 2);
    grid->setColumnStretch(1, 1);
    grid->setColumnStretch(3, 1);
    return frame;
}

QGroupBox* frmGbl::buildMidiIn(QWidget* page, ChoiceRows& rows)
{
    constexpr ComboPlace Places[] = {{16, 0, 0}, {17, 1, 0}, {18, 2, 0}, {19, 3, 0}, {5, 4, 0}};
    QGroupBox* frame = makeFrame(page, QStringLiteral("Frame3"), "Midi In");
    QGridLayout* grid = makeGrid(frame);
    addAll(Places, [&](int row, int column, int index) { addCombo(frame, grid, row, column, index, rows); });
    grid->setColumnStretch(1, 1);
    return frame;
}

QGroupBox* frmGbl::buildScales(QWidget* page, ChoiceRows& rows)
{
    constexpr ComboPlace Places[] = {{6, 0, 0}, {8, 1, 0}, {7, 2, 0}, {9, 3, 0}};
    QGroupBox* frame = makeFrame(page, QStringLiteral("Frame2"), "Scales");
    QGridLayout* grid = makeGrid(frame);
    addAll(Places, [&](int row, int column, int index) { addCombo(frame, grid, row, column, index, rows); });
    grid->setColumnStretch(1, 1);
    return frame;
}

QGroupBox* frmGbl::buildPedals(QWidget* page, ChoiceRows& rows)
{
    constexpr ComboPlace Places[] = {{10, 1, 0}, {11, 2, 0}, {12, 3, 0}, {13, 4, 0}, {14, 5, 0}, {15, 6, 0}};
    constexpr const char* Signs[] = {"+", "-"};
    QGroupBox* frame = makeFrame(page, QStringLiteral("Frame1"), "Pedals");
    QGridLayout* grid = makeGrid(frame);
    const QString polarity = fromPanel(gblParameter(GblField::DamperPolarity).caption);
    auto* signs = new QHBoxLayout;
    GblOption1.create([&](int index) {
        auto* option = new QRadioButton(QLatin1String(Signs[index]), frame);
        option->setAccessibleName(polarity + QLatin1Char(' ') + QLatin1String(Signs[index]));
        signs->addWidget(option);
        return option;
    });
    signs->addStretch(1);
    grid->addWidget(makeCaption(frame, gblParameter(GblField::DamperPolarity).caption, GblOption1[0]), 0, 0);
    grid->addLayout(signs, 0, 1);
    addAll(Places, [&](int row, int column, int index) { addCombo(frame, grid, row, column, index, rows); });
    grid->setColumnStretch(1, 1);
    return frame;
}

// Below the pages.

QWidget* frmGbl::buildButtons(QWidget* content)
{
    struct ButtonRow {
        QPushButton*& member;
        const char* name;
        QString text;
    };
    const ButtonRow rows[] = {{CommLoadGbl, "CommLoadGbl", QStringLiteral("Load")},
                              {CommGlobal, "CommGlobal", QStringLiteral("GLOBAL")},
                              {CommClose, "CommClose", word(CloseRow)}};
    auto* bar = new QWidget(content);
    bar->setObjectName(QStringLiteral("buttons"));
    auto* layout = new QHBoxLayout(bar);
    layout->setContentsMargins(PageGap, Gap, PageGap, Gap);
    layout->setSpacing(PageGap);
    for (const ButtonRow& row : rows) {
        row.member = new QPushButton(row.text, bar);
        row.member->setObjectName(QLatin1String(row.name));
        if (row.member == CommClose)
            layout->addStretch(1);
        layout->addWidget(row.member);
    }
    CommLoadGbl->setToolTip(word(Words::GlobalLoadHint));
    CommGlobal->setToolTip(word(Words::GlobalModeHint));
    return bar;
}

void frmGbl::wireHandlers()
{
    GblHScroll1.onEach(&QSlider::valueChanged, this,
                       [this](int index, int value) { GblHScroll1_Change(index, value); });
    GblHScroll1.onEach(&QSlider::sliderMoved, this, [this](int index, int value) { GblHScroll1_Scroll(index, value); });
    for (int index = 0; index < GblCombo1.count(); ++index)
        if (GblCombo1[index])
            onComboClick(GblCombo1[index], [this, index](int row) { GblCombo1_Click(index, row); });
    GblCheck1.onEach(&QCheckBox::toggled, this, [this](int index, bool checked) { GblCheck1_Click(index, checked); });
    GblOption1.onEach(&QRadioButton::toggled, this, [this](int, bool checked) {
        if (checked)
            GblOption1_Click();
    });
    VScroll2.onEach(&QSlider::valueChanged, this, [this](int index, int value) { VScroll2_Change(index, value); });
    CommResetUS.onEach(&QPushButton::clicked, this, [this](int scale, bool) { CommResetUS_Click(scale); });
    connect(CommLoadGbl, &QPushButton::clicked, this, [this] { GblSend(Tag); });
    connect(CommGlobal, &QPushButton::clicked, this, [] { ModeGlobal(); });
    connect(CommClose, &QPushButton::clicked, this, [this] { unloadChild(); });
    turnPagesByKeys(this, SSTab1);
}

void frmGbl::wireHarmony()
{
    for (int index = 0; index < Combo3.count(); ++index)
        onComboClick(Combo3[index], [this, index](int row) { Combo3_Click(index, row); });
    connect(Check3, &QCheckBox::toggled, this, [this](bool checked) { Check3_Click(checked); });
    HScroll3.onEach(&QSlider::valueChanged, this, [this](int index, int value) { HScroll3_Change(index, value); });
    // The channels belong to the program: another window of this kind may have changed them.
    connect(this, &QMdiSubWindow::aboutToActivate, this, [this] {
        const ScopedFlag loading{Gbl.GblLoading};
        fillChannels();
    });
}

void frmGbl::restorePlace()
{
    QString title = QString::fromUtf8(GblCaption(Tag).c_str());
    setWindowTitle(title.replace(QLatin1String("[*]"), QLatin1String("[*][*]"))); // "[*]" alone would be taken away
    if (Tag.kind() == WindowKind::GlobalInstrument)
        openAtRow(WindowKind::GlobalInstrument, DefaultSize);
    else
        placeInTwips(0, 0, DefaultSize.width, DefaultSize.height);
}
