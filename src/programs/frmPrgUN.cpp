// A click plays in a fresh event, and a load is announced in the status line before it begins to send.
#include "programs/frmPrgUN.h"

#include "core/PathNames.h"
#include "core/Reports.h"
#include "core/Shell.h"
#include "files/SavePlan.h"
#include "files/Saving.h"
#include "programs/PrgWindowBuilder.h"
#include "programs/ProgramLoad.h"
#include "programs/ProgramRows.h"
#include "toolkit/RowList.h"

#include <QPushButton>

namespace
{

constexpr int SendStage = 9; ///< of TimerLoadPrg
constexpr int LoadingProgram = 4;
constexpr int NoNotice = 0;
constexpr int LargeFontTwips = 12;

} // namespace

frmPrgUN::frmPrgUN(int windowKind, int slot) : QtProgramWindow("frmPrgUN", &AppState::PrgUCount)
{
    Tag = PrgTagBuild(windowKind, slot, App.Programs[static_cast<std::size_t>(slot - 1)]);
    TimerLoadPrg = new StageTimer(this, QStringLiteral("TimerLoadPrg"));
    TimerList1 = new StageTimer(this, QStringLiteral("TimerList1"));
    buildControls();
    wireHandlers();
    fillControls();
    // A file without a program has nothing to load.
    CommLoad->setEnabled(anyProgramUsed(Tag.bytes()));
    entry().used = true;
    entry().Open = windowKind == WindowKind::PrgFile ? 1 : 0;
    restorePlace();
}

SessionEntry& frmPrgUN::entry() const { return App.Programs[static_cast<std::size_t>(Tag.number() - 1)]; }

void frmPrgUN::buildControls()
{
    auto* content = new QWidget;
    makeControls(content, Load::Button);
    List1->setSelectionMode(QAbstractItemView::ExtendedSelection); // several rows can be copied, cut and pasted upon
    layOut(content, App.ScreenTwipsY == LargeFontTwips ? Layout::CloseBelow : Layout::BesideTheList);
    setContent(content);
}

void frmPrgUN::wireHandlers()
{
    List1->onClick([this] { List1_Click(); });
    List1->onDelete([this] { deleteKey(extensionOf(programKind(Tag))); });
    List1->onDoubleClick([this] { List1_DblClick(); });
    TimerList1->onTick([this] { chooseRow(); });
    connect(CommLoad, &QPushButton::clicked, this, [this] {
        // A load that waits for its timer, by a press or from the menu, is already on its way.
        if (!TimerLoadPrg->enabled())
            CommLoad_Click();
    });
    TimerLoadPrg->onTick([this] { CommLoad_Click(); });
}

void frmPrgUN::restorePlace()
{
    const TwipsSize size = defaultWindowSize(windowKind());
    SessionEntry& place = entry();
    const bool ofTheSlot = windowKind() == WindowKind::PrgFile; // an untitled window has no place to come back to
    if (ofTheSlot && place.width > 0 && place.height > 0) {
        placeInTwips(place.left, place.top, place.width, place.height);
        return;
    }
    if (ofTheSlot) {
        place.width = size.width;
        place.height = size.height;
    }
    resizeInTwips(size.width, size.height);
}

void frmPrgUN::List1_Click()
{
    clickArmed_ = !TimerList1->enabled();
    TimerList1->enable();
    if (App.shell)
        App.shell->MenuSync(); // the edit items go by the row
}

void frmPrgUN::List1_DblClick()
{
    // A double click is two clicks, of which the first plays.
    if (clickArmed_)
        TimerList1->disable();
}

void frmPrgUN::CommLoad_Click()
{
    if (TimerLoadPrg->Interval() == StageTimer::Rest) {
        TimerLoadPrg->setStage(SendStage);
        StatusNotice(LoadingProgram, {});
        TimerLoadPrg->enable();
        return;
    }
    // Required: the stage is back at rest before the dump begins, so that another press begins with its first stage.
    TimerLoadPrg->setStage(StageTimer::Rest);
    ProgramFileLoad(Tag.bytes());
    StatusNotice(NoNotice, {});
}

bool frmPrgUN::queryUnload() { return AgreeToClose(Tag, prgClosingTitle(Tag)); }

void frmPrgUN::unload()
{
    if (TimerLoadPrg->Interval() != StageTimer::Rest)
        StatusNotice(NoNotice, {}); // announced, and now never sent
    PrgSessionLeave(entry(), Tag, positionInTwips());
}
