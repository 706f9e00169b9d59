// Construction of the window. Its handlers stand in frmArrUHandlers.cpp, the staged loads in frmArrULoads.cpp.
#include "arrangements/frmArrU.h"

#include "arrangements/ArrRows.h"
#include "arrangements/ArrWindowBuilder.h"
#include "core/PathNames.h"
#include "core/ScopedFlag.h"
#include "database/TvlDBArr.h"
#include "midi/DeviceModes.h"
#include "toolkit/QtLooks.h"
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

} // namespace

frmArrU::frmArrU(int slot) : ArrFileWindow("frmArrU", &AppState::ArrUCount)
{
    const ScopedFlag filling{filling_};
    Tag = ArrTagBuild(slot, App.Arrangements[static_cast<std::size_t>(slot - 1)]);
    buildControls();
    buildTimers();
    wireHandlers();
    wireTimers();
    loadFile();
    restorePlace(entry());
    if (Arr.FindIdActive)
        startSearchById();
}

SessionEntry& frmArrU::entry() const { return App.Arrangements[static_cast<std::size_t>(Tag.number() - 1)]; }

std::string frmArrU::caption() const { return ChildCaption(Tag); }

void frmArrU::buildControls()
{
    auto* content = new QWidget;
    makeList(content);
    QLayout* buttons = buttonColumn(content);
    layOut(content, buttons, detailBoxes(content));
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
    column->setSpacing(Looks::ButtonGap);
    for (const ButtonRow& row : rows) {
        if (row.opensGroup)
            column->addSpacing(Looks::GroupGap);
        row.member = Looks::makeButton(content, row.name, QLatin1String(row.fixedCaption));
        column->addWidget(row.member);
    }
    column->addStretch(1);
    CommClose = makeCloseButton(content);
    column->addWidget(CommClose);
    return column;
}

QLayout* frmArrU::detailBoxes(QWidget* content)
{
    Label1.create([&](int index) { return new QLabel(QLatin1String(LabelCaptions[index]), content); });
    // In the order in which Tab walks them.
    makeStyleBox(content);
    Text1 = makeReadOnlyText(content, "Text1");
    Text2 = makeReadOnlyText(content, "Text2");

    Label1[0]->setBuddy(Text1);
    Label1[1]->setBuddy(Combo1);
    Label1[2]->setBuddy(Text2);

    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(Looks::Margin);
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
}

void frmArrU::loadFile()
{
    showCaption();
    fillRows();
    enableByContent();
    entry().databaseId = DBArrLookup(Tag.path() + extensionOf(FileKind::Arr));
    entry().used = true;
    entry().Open = 1;
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
    CommLoadSty->setEnabled(stylesAtHand());
    CommShowSty->setEnabled(stylesAtHand());
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
