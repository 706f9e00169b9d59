// The stages are those of the window on a file; what differs is told where it differs.
#include "arrangements/frmArrNew.h"

#include "arrangements/ArrRows.h"
#include "arrangements/ArrSends.h"
#include "arrangements/ArrStages.h"
#include "arrangements/ArrWindowBuilder.h"
#include "core/Reports.h"
#include "core/Shell.h"
#include "core/StateFiles.h"
#include "core/Strings.h"
#include "files/Saving.h"
#include "midi/DeviceModes.h"
#include "midi/MIDI.h"
#include "midi/MsgLog.h"
#include "styles/StyleSends.h"
#include "toolkit/RowList.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

namespace
{

constexpr int CloseRow = 8;
constexpr int Margin = 8;
constexpr int GroupGap = 10;

} // namespace

frmArrNew::frmArrNew(int number) : ArrListWindow("frmArrNew", &AppState::ArrUCount)
{
    Tag = ArrNewTagBuild(number);
    buildControls();
    buildTimers();
    wireHandlers();
    showCaption();
    fillRows();
    enableByContent();
    entry().used = true;
    restorePlace();
}

SessionEntry& frmArrNew::entry() const { return App.NewArrangements[static_cast<std::size_t>(Tag.number() - 1)]; }

void frmArrNew::buildControls()
{
    auto* content = new QWidget;
    makeList(content);
    CommLoadArr = makeButton(content, "CommLoadArr", QStringLiteral("Load &Arr"));
    CommLoadSty = makeButton(content, "CommLoadSty", QStringLiteral("Load &Styles"));
    CommArrPlay = makeButton(content, "CommArrPlay", QStringLiteral("ARR PLAY"));
    CommClose = makeButton(content, "CommClose", QString::fromUtf8(ResText(CloseRow).c_str()));
    Label1 = new QLabel(QStringLiteral("Style"), content);
    Label1->setObjectName(QStringLiteral("Label1"));
    makeStyleBox(content);
    Label1->setBuddy(Combo1);

    auto* buttons = new QVBoxLayout;
    buttons->setSpacing(GroupGap / 2);
    buttons->addWidget(CommLoadArr);
    buttons->addWidget(CommLoadSty);
    buttons->addSpacing(GroupGap);
    buttons->addWidget(CommArrPlay);
    buttons->addStretch(1);
    buttons->addWidget(CommClose);
    auto* upper = new QHBoxLayout;
    upper->setSpacing(Margin);
    upper->addWidget(List1, 1);
    upper->addLayout(buttons);
    auto* details = new QHBoxLayout;
    details->setSpacing(Margin);
    details->addWidget(Label1);
    details->addWidget(Combo1, 1);
    auto* layout = new QVBoxLayout(content);
    layout->setContentsMargins(Margin, Margin, Margin, Margin);
    layout->setSpacing(Margin);
    layout->addLayout(upper, 1);
    layout->addLayout(details);
    setContent(content);
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
    List1->onDelete([this] { List1_Delete(); });
    connect(CommLoadArr, &QPushButton::clicked, this, [this] { CommLoadArr_Click(); });
    connect(CommLoadSty, &QPushButton::clicked, this, [this] { CommLoadSty_Click(); });
    connect(CommArrPlay, &QPushButton::clicked, this, [] { ModeArrPlay(); });
    connect(CommClose, &QPushButton::clicked, this, [this] { unloadChild(); });
}

void frmArrNew::enableByContent()
{
    const bool anyUsed = anyArrUsed(image());
    CommLoadArr->setEnabled(anyUsed);
    CommLoadSty->setEnabled(Tag.at(WindowLayout::StyStateOffset) == WindowLayout::StyState::Real);
    enableMenuItem("mnuLoadArr", anyUsed);
}

void frmArrNew::restorePlace()
{
    const SessionEntry& place = entry();
    if (place.width > 0 && place.height > 0) {
        placeInTwips(place.left, place.top, place.width, place.height);
        return;
    }
    const TwipsSize size = defaultWindowSize(WindowKind::ArrNew);
    resizeInTwips(size.width, size.height);
}

// The list.

void frmArrNew::List1_Click()
{
    if (App.shell)
        App.shell->MenuSync();
    const int row = selectedRow();
    if (row < 0 || rowIsEmpty(row)) {
        forgetEndedLoad();
        if (row >= 0) {
            showStyleOf(row);
            StatusNotice(ArrNotice::None, {});
        }
        return;
    }
    const int stage = TimerList1->Interval();
    TimerList1->setStage(StageTimer::Rest);
    if (stage == StageTimer::Rest && App.AutoArr && differsFromSent(Tag.stem(), App.InfoArr)) {
        TimerList1->setStage(ArrStage::List1::AfterArrLoad);
        CommLoadArr_Click();
        return;
    }
    if (stage != ArrStage::List1::AfterStyLoad) {
        if (App.DeviceMode != DeviceModes::ArrPlay)
            ModeArrPlay();
        showStyleOf(row);
        if (loadStyleFirst(row))
            return;
    }
    showStyleOf(row); // also of another row that was clicked while styles went out
    selectOnInstrument(row);
}

void frmArrNew::forgetEndedLoad()
{
    // The row that waited for a load is no longer selected: nothing comes back for it.
    if (TimerLoadArr->Interval() == StageTimer::Rest && TimerLoadSty->Interval() == StageTimer::Rest)
        TimerList1->setStage(StageTimer::Rest);
}

bool frmArrNew::loadStyleFirst(int row)
{
    // A new file has a preference of its own for its styles.
    if (!App.AutoStyNewArr || !arrUsesUserStyle(image(), row) || !differsFromSent(Tag.stem(), App.InfoSty))
        return false;
    TimerList1->setStage(ArrStage::List1::AfterStyLoad);
    CommLoadSty_Click();
    if (TimerLoadSty->Interval() != StageTimer::Rest)
        return true;
    TimerList1->setStage(StageTimer::Rest);
    return false;
}

void frmArrNew::selectOnInstrument(int row)
{
    MsgLogAdd("");
    MsgLogAdd(ArrSelect(row, WindowKind::ArrNew));
    StatusNotice(ArrNotice::None, {});
}

void frmArrNew::List1_Delete()
{
    if (App.shell)
        App.shell->cut();
}

// The loads.

void frmArrNew::CommLoadArr_Click()
{
    if (TimerLoadArr->Interval() == StageTimer::Rest) {
        StatusNotice(ArrNotice::LoadingArr, {});
        TimerLoadArr->setStage(ArrStage::LoadArr::Send);
        TimerLoadArr->enable();
        return;
    }
    // Required: unlike the window on a file, this one changes no mode.
    MsgLogAdd("");
    ArrBlockSend(image());
    MsgLogAdd(Midi.SysExOutput);
    Tag.set(WindowLayout::NotSentOffset, 0);
    InfoArrSet(image());
    StatusNotice(ArrNotice::None, {});
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
        selectOnInstrument(row);
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
