// Construction of the window. Its handlers stand in frmArrUHandlers.cpp, the staged loads in frmArrULoads.cpp.
#include "arrangements/frmArrU.h"

#include "arrangements/ArrRows.h"
#include "arrangements/ArrWindowBuilder.h"
#include "core/PathNames.h"
#include "core/ScopedFlag.h"
#include "core/Strings.h"
#include "database/TvlDBArr.h"
#include "midi/DeviceModes.h"
#include "toolkit/Choices.h"
#include "toolkit/RowColumns.h"
#include "toolkit/RowList.h"

#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include <algorithm>

namespace
{

// Captions are the same in both languages.
constexpr const char* LabelCaptions[] = {"ID", "Style", "Program"};

constexpr int CloseRow = 8;

constexpr int Margin = 8;
constexpr int GroupGap = 10;
constexpr const char* ListFace = "Arial";
constexpr int ListPointSize = 10;
constexpr int ShownCharacters = 20; ///< of a row at the least: code, mark, name

QPushButton* makeButton(QWidget* parent, const char* name, const QString& buttonCaption)
{
    auto* button = new QPushButton(buttonCaption, parent);
    button->setObjectName(QLatin1String(name));
    return button;
}

QLineEdit* makeReadOnlyText(QWidget* parent, const char* name)
{
    auto* text = new QLineEdit(parent);
    text->setObjectName(QLatin1String(name));
    text->setReadOnly(true);
    return text;
}

} // namespace

frmArrU::frmArrU(int slot) : ChildWindow("frmArrU", &AppState::ArrUCount)
{
    const ScopedFlag filling{filling_};
    Tag = ArrTagBuild(slot, App.Arrangements[static_cast<std::size_t>(slot - 1)]);
    buildControls();
    buildTimers();
    wireHandlers();
    wireTimers();
    loadFile();
    restorePlace();
    if (Arr.FindIdActive)
        startSearchById();
}

frmArrU::~frmArrU() { std::erase(Arr.rowOwners, static_cast<ArrRowOwner*>(this)); }

SessionEntry& frmArrU::entry() const { return App.Arrangements[static_cast<std::size_t>(Tag.number() - 1)]; }

std::string frmArrU::caption() const { return ChildCaption(Tag); }

void frmArrU::buildControls()
{
    auto* content = new QWidget;
    List1 = new RowList(content, QStringLiteral("List1"));
    List1->setSelectionMode(QAbstractItemView::ExtendedSelection);
    List1->setFont(QFont(QLatin1String(ListFace), ListPointSize, QFont::Normal));
    List1->setItemDelegate(new RowColumns(List1));
    List1->setMinimumWidth(ShownCharacters * List1->fontMetrics().averageCharWidth());

    auto* upper = new QHBoxLayout;
    upper->setSpacing(Margin);
    upper->addWidget(List1, 1);
    upper->addLayout(buttonColumn(content));
    auto* layout = new QVBoxLayout(content);
    layout->setContentsMargins(Margin, Margin, Margin, Margin);
    layout->setSpacing(Margin);
    layout->addLayout(upper, 1);
    layout->addLayout(detailBoxes(content));
    setContent(content);
}

QLayout* frmArrU::buttonColumn(QWidget* content)
{
    struct ButtonRow {
        QPushButton*& member;
        const char* name;
        const char* fixedCaption;
        bool opensGroup;
    };
    const ButtonRow rows[] = {
        {CommLoadAll, "CommLoadAll", "Load A&ll", false},
        {CommLoadArr, "CommLoadArr", "Load &Arr", false},
        {CommLoadSty, "CommLoadSty", "Load &Styles", false},
        {CommLoadPrg, "CommLoadPrg", "Load &Prog", false},
        {CommShowSty, "CommShowSty", "Show Styles", true},
        {CommShowPrg, "CommShowPrg", "Show Prog", false},
        {CommAdd, "CommAdd", "+ TvlDBArr", true},
        {CommEdit, "CommEdit", "Edit", false},
        {CommArrPlay, "CommArrPlay", "ARR PLAY", true},
        {CommSongPlay, "CommSongPlay", "SONG PLAY", false},
    };
    auto* column = new QVBoxLayout;
    column->setSpacing(GroupGap / 2);
    for (const ButtonRow& row : rows) {
        if (row.opensGroup)
            column->addSpacing(GroupGap);
        row.member = makeButton(content, row.name, QLatin1String(row.fixedCaption));
        column->addWidget(row.member);
    }
    column->addStretch(1);
    CommClose = makeButton(content, "CommClose", QString::fromUtf8(ResText(CloseRow).c_str()));
    column->addWidget(CommClose);
    return column;
}

QLayout* frmArrU::detailBoxes(QWidget* content)
{
    Label1.create([&](int index) { return new QLabel(QLatin1String(LabelCaptions[index]), content); });
    // In the order in which Tab walks them.
    Combo1 = new QComboBox(content);
    Combo1->setObjectName(QStringLiteral("Combo1"));
    Combo1->setEditable(true);
    Combo1->setInsertPolicy(QComboBox::NoInsert);
    Combo1->lineEdit()->setReadOnly(true);
    Combo1->setCompleter(nullptr);
    Combo1->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    ignoreWheelWithoutFocus(Combo1);
    Text1 = makeReadOnlyText(content, "Text1");
    Text2 = makeReadOnlyText(content, "Text2");

    Label1[0]->setBuddy(Text1);
    Label1[1]->setBuddy(Combo1);
    Label1[2]->setBuddy(Text2);

    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(Margin);
    grid->addWidget(Label1[1], 0, 0);
    grid->addWidget(Combo1, 0, 1, 1, 3);
    grid->addWidget(Label1[0], 1, 0);
    grid->addWidget(Text1, 1, 1);
    grid->addWidget(Label1[2], 1, 2);
    grid->addWidget(Text2, 1, 3);
    grid->setColumnStretch(1, 1);
    grid->setColumnStretch(3, 1);
    return grid;
}

void frmArrU::buildTimers()
{
    struct TimerRow {
        StageTimer*& member;
        const char* name;
    };
    const TimerRow rows[] = {
        {TimerLoadAll, "TimerLoadAll"},     {TimerLoadArr, "TimerLoadArr"},     {TimerLoadPrg, "TimerLoadPrg"},
        {TimerLoadSty, "TimerLoadSty"},     {TimerShowPrg, "TimerShowPrg"},     {TimerShowSty, "TimerShowSty"},
        {TimerEditArr, "TimerEditArr"},     {TimerList1, "TimerList1"},         {TimerFindID, "TimerFindID"},
        {TimerCaricaPrg, "TimerCaricaPrg"}, {TimerCaricaArr, "TimerCaricaArr"}, {Timer5, "Timer5"},
    };
    for (const TimerRow& row : rows)
        row.member = new StageTimer(this, QLatin1String(row.name));
    const auto member = [this](int) { return new StageTimer(this, {}); };
    TimerTxSty.create(member);
    TimerCaricaSty.create(member);
    Timer.create(member);
}

void frmArrU::wireHandlers()
{
    using Handler = void (frmArrU::*)();
    struct Wire {
        QPushButton* button;
        Handler handler;
    };
    const Wire wires[] = {
        {CommLoadAll, &frmArrU::CommLoadAll_Click}, {CommLoadArr, &frmArrU::CommLoadArr_Click},
        {CommLoadSty, &frmArrU::CommLoadSty_Click}, {CommLoadPrg, &frmArrU::CommLoadPrg_Click},
        {CommShowSty, &frmArrU::CommShowSty_Click}, {CommShowPrg, &frmArrU::CommShowPrg_Click},
        {CommAdd, &frmArrU::CommAdd_Click},         {CommEdit, &frmArrU::CommEdit_Click},
    };
    for (const Wire& wire : wires)
        connect(wire.button, &QPushButton::clicked, this, [this, handler = wire.handler] { (this->*handler)(); });
    connect(CommArrPlay, &QPushButton::clicked, this, [] { ModeArrPlay(); });
    connect(CommSongPlay, &QPushButton::clicked, this, [] { ModeSongPlay(); });
    connect(CommClose, &QPushButton::clicked, this, [this] { unloadChild(); });

    List1->onClick([this] { List1_Click(); });
    List1->onDoubleClick([this] { List1_DblClick(); });
    List1->onDelete([this] { List1_Delete(); });
    // The box always names the selected row's style; opening it only shows which others the file uses.
    connect(Combo1, &QComboBox::activated, this, [this] {
        const int row = selectedRow();
        showStyle(row < 0 || isEmptyRowText(List1->rowText(row)) ? QString()
                                                                 : fromInstrument(arrStyleEntry(image(), row)));
    });
}

void frmArrU::loadFile()
{
    showCaption();
    List1->setAccessibleName(windowTitle());
    fillRows();
    enableByContent();
    entry().databaseId = DBArrLookup(Tag.path() + extensionOf(FileKind::Arr));
    entry().used = true;
    entry().Open = 1;
    Arr.rowOwners.push_back(this);
}

void frmArrU::fillRows()
{
    QStringList rows;
    for (const std::string& text : arrRowTexts(image()))
        rows << fromInstrument(text);
    List1->setRows(rows);
    ArrStyleListFill();
}

void frmArrU::ArrStyleListFill()
{
    QStringList styles;
    for (const std::string& text : arrStyleEntries(image()))
        styles << fromInstrument(text);
    Combo1->clear();
    Combo1->addItems(styles);
    showStyle({});
}

void frmArrU::enableByContent()
{
    const bool anyUsed = anyArrUsed(image());
    const bool programs = Tag.at(WindowLayout::PrgStateOffset) == 1;
    CommLoadAll->setEnabled(anyUsed);
    CommLoadArr->setEnabled(anyUsed);
    enableByStyles();
    CommLoadPrg->setEnabled(programs);
    CommShowPrg->setEnabled(programs);
    enableMenuItem("mnuLoadArr", anyUsed);
    enableEdit(false);
}

void frmArrU::enableByStyles()
{
    const bool styles = Tag.at(WindowLayout::StyStateOffset) == WindowLayout::StyState::Real;
    CommLoadSty->setEnabled(styles);
    CommShowSty->setEnabled(styles);
}

void frmArrU::restorePlace()
{
    const SessionEntry& place = entry();
    if (place.width > 0 && place.height > 0) {
        placeInTwips(place.left, place.top, place.width, place.height);
        return;
    }
    const TwipsSize size = defaultWindowSize(WindowKind::ArrFile);
    resizeInTwips(size.width, size.height);
}

void frmArrU::startSearchById()
{
    List1->select(Arr.FindIdRow);
    TimerFindID->setStage(StageTimer::Rest);
    TimerFindID->enable();
}

void frmArrU::dropSearch()
{
    TimerFindID->disable();
    TimerFindID->setStage(StageTimer::Rest);
}
