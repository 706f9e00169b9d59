// The stages are those of the window on a file; what differs is told where it differs.
#include "arrangements/frmArrNew.h"

#include "arrangements/ArrFind.h"
#include "arrangements/ArrRows.h"
#include "arrangements/ArrStages.h"
#include "arrangements/ArrWindowBuilder.h"
#include "core/PathNames.h"
#include "core/Reports.h"
#include "core/ScopedFlag.h"
#include "core/Shell.h"
#include "core/StateFiles.h"
#include "files/Saving.h"
#include "midi/DeviceModes.h"
#include "midi/MIDI.h"
#include "midi/MsgLog.h"
#include "styles/StyleSends.h"
#include "toolkit/QtLooks.h"
#include "toolkit/RowList.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

frmArrNew::frmArrNew(int number) : ArrFileWindow("frmArrNew", &AppState::ArrUCount)
{
    const ScopedFlag filling{Arr.WindowFilling};
    Tag = ArrNewTagBuild(number);
    buildControls();
    buildTimers();
    wireHandlers();
    showCaption();
    fillRows();
    enableByContent();
    entry().used = true;
    restorePlace(entry());
}

SessionEntry& frmArrNew::entry() const { return App.NewArrangements[static_cast<std::size_t>(Tag.number() - 1)]; }

void frmArrNew::buildControls()
{
    auto* content = new QWidget;
    makeList(content);
    CommLoadArr = Looks::makeButton(content, "CommLoadArr", QStringLiteral("Load &Arr"));
    CommLoadSty = Looks::makeButton(content, "CommLoadSty", QStringLiteral("Load &Styles"));
    CommArrPlay = Looks::makeButton(content, "CommArrPlay", QStringLiteral("ARR PLAY"));
    CommClose = makeCloseButton(content);
    Label1 = new QLabel(QStringLiteral("Style"), content);
    Label1->setObjectName(QStringLiteral("Label1"));
    makeStyleBox(content);
    Label1->setBuddy(Combo1);

    auto* buttons = new QVBoxLayout;
    buttons->setSpacing(Looks::ButtonGap);
    buttons->addWidget(CommLoadArr);
    buttons->addWidget(CommLoadSty);
    buttons->addSpacing(Looks::GroupGap);
    buttons->addWidget(CommArrPlay);
    buttons->addStretch(1);
    buttons->addWidget(CommClose);
    auto* details = new QHBoxLayout;
    details->setSpacing(Looks::Margin);
    details->addWidget(Label1);
    details->addWidget(Combo1, 1);
    layOut(content, buttons, details);
}

void frmArrNew::buildTimers()
{
    struct TimerRow {
        StageTimer*& member;
        const char* name;
        void (frmArrNew::*handler)();
    };
    const TimerRow rows[] = {{TimerList1, "TimerList1", &frmArrNew::List1_Click},
                             {TimerLoadArr, "TimerLoadArr", &frmArrNew::CommLoadArr_Click},
                             {TimerLoadSty, "TimerLoadSty", &frmArrNew::CommLoadSty_Click},
                             {Timer, "Timer", &frmArrNew::List1_Click}};
    for (const TimerRow& row : rows) {
        row.member = new StageTimer(this, QLatin1String(row.name));
        row.member->onTick([this, handler = row.handler] { (this->*handler)(); });
    }
}

void frmArrNew::wireHandlers()
{
    List1->onClick([this] { List1_Click(); });
    List1->onDelete([this] { deleteKey(extensionOf(FileKind::Arr)); });
    connect(CommLoadArr, &QPushButton::clicked, this, [this] { CommLoadArr_Click(); });
    connect(CommLoadSty, &QPushButton::clicked, this, [this] { CommLoadSty_Click(); });
    connect(CommArrPlay, &QPushButton::clicked, this, [] { ModeArrPlay(); });
    connect(CommClose, &QPushButton::clicked, this, [this] { unloadChild(); });
}

void frmArrNew::enableByContent()
{
    const bool anyUsed = anyArrUsed(image());
    CommLoadArr->setEnabled(anyUsed);
    CommLoadSty->setEnabled(stylesAtHand());
    enableMenuItem("mnuLoadArr", anyUsed);
}

// The list.

void frmArrNew::startSearchById()
{
    ArrFindEnd();
    List1->select(Arr.FindIdRow);
    Timer->enable();
}

void frmArrNew::List1_Click()
{
    if (Arr.WindowFilling)
        return;
    const std::optional<RowClick> click = beginClick();
    if (!click)
        return;
    if (click->stage != ArrStage::List1::AfterStyLoad) {
        if (App.DeviceMode != DeviceModes::ArrPlay)
            ModeArrPlay();
        showStyleOf(click->row);
        if (loadStyleFirst(click->row, App.AutoStyNewArr)) // a new file has a preference of its own for its styles
            return;
    }
    showStyleOf(click->row); // also of another row that was clicked while styles went out
    selectAndEndNotice(click->row);
}

void frmArrNew::showEmptyRow()
{
    showStyleOf(-1);
    StatusNotice(ArrNotice::None, {});
}

// The loads.

void frmArrNew::CommLoadArr_Click()
{
    if (announceArrLoad())
        return;
    // Required: unlike the window on a file, this one changes no mode.
    MsgLogAdd("");
    sendArrangements();
    TimerLoadArr->setStage(StageTimer::Rest);
    if (TimerList1->Interval() == ArrStage::List1::AfterArrLoad)
        TimerList1->enable();
}

void frmArrNew::CommLoadSty_Click()
{
    if (TimerLoadSty->Interval() == StageTimer::Rest) {
        beginStyLoad();
        return;
    }
    TimerLoadSty->disable();
    if (StyLoadNext(image()) == StyLoadStep::Ended) {
        finishStyLoad();
        return;
    }
    MsgLogAdd("");
    MsgLogAdd(Midi.SysExOutput);
    TimerLoadSty->setStage(StyleLoadTiming::ArrWindowPause);
    TimerLoadSty->enable();
}

void frmArrNew::beginStyLoad()
{
    if (!StyLoadBegin(image(), this))
        return;
    TimerLoadSty->setStage(StyleLoadTiming::FirstGroup);
    TimerLoadSty->enable();
}

void frmArrNew::finishStyLoad()
{
    TimerLoadSty->setStage(StageTimer::Rest);
    InfoStySet(image());
    if (const int row = selectedRow(); row >= 0)
        selectAndEndNotice(row);
    if (TimerList1->Interval() == ArrStage::List1::AfterStyLoad)
        TimerList1->enable();
}

// What comes from outside, and the end.

void frmArrNew::contentChanged()
{
    ArrStyleListFill();
    enableByContent();
    showStyleOf(selectedRow());
}

bool frmArrNew::queryUnload() { return AgreeToClose(Tag, ChildCaption(Tag)); }

void frmArrNew::unload()
{
    StyLoadAbandon(this);
    if (TimerLoadArr->Interval() != StageTimer::Rest)
        StatusNotice(ArrNotice::None, {});
    leaveRowOwners();
    const WindowPosition place = positionInTwips();
    SessionEntry& kept = entry();
    kept.left = place.left;
    kept.top = place.top;
    kept.width = place.width;
    kept.height = place.height;
    kept.used = false;
    if (!App.AppClosing)
        enableMenuItem("mnuNuovoArr", true);
}
