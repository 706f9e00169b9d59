// The main window at work: what its menu items do, what it does for its children as their shell, and how it leaves.
#include "arrangements/ArrEdit.h"
#include "clipboard/Clipboard.h"
#include "core/Dichiarazioni.h"
#include "core/PathNames.h"
#include "core/RandomFile.h"
#include "core/Reports.h"
#include "core/Strings.h"
#include "database/DBArrUpdate.h"
#include "database/TvlDBArr.h"
#include "midi/DeviceModes.h"
#include "midi/MIDI.h"
#include "shell/Cascade.h"
#include "shell/OpenDispatch.h"
#include "shell/RecentFiles.h"
#include "shell/SessionRestore.h"
#include "shell/SubMain.h"
#include "shell/frmMain.h"
#include "toolkit/ChildWindow.h"
#include "toolkit/StageTimer.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QListWidget>
#include <QMdiArea>
#include <QMenu>

namespace
{

constexpr int ChangeLanguageRow = 84;
constexpr int CodeLanguageNextStart = 24;

/// Windows that are closed before all others at exit.
constexpr std::array ClosedFirst = {WindowKind::FindId, WindowKind::EditDatabase};

} // namespace

ChildWindow* frmMain::activeChild() const { return dynamic_cast<ChildWindow*>(area_->currentSubWindow()); }

std::vector<ChildWindow*> frmMain::children() const
{
    // One that was closed in this event is hidden, and cleared away after it.
    std::vector<ChildWindow*> open;
    for (QMdiSubWindow* window : area_->subWindowList())
        if (auto* child = dynamic_cast<ChildWindow*>(window); child && !child->isHidden())
            open.push_back(child);
    return open;
}

ChildWindow* frmMain::openChild(int windowKind, int slot) const
{
    for (ChildWindow* child : children())
        if (child->windowKind() == windowKind && (slot == 0 || child->Tag.number() == slot))
            return child;
    return nullptr;
}

void frmMain::activate(ChildWindow* child)
{
    if (child->isMinimized())
        child->showNormal();
    area_->setActiveSubWindow(child);
    child->raise();
}

bool frmMain::makeWindow(int windowKind, int slot)
{
    ChildWindow* child = factory_(windowKind, slot);
    if (!child)
        return false;
    area_->addSubWindow(child);
    child->show();
    activate(child);
    MenuSync();
    return true;
}

// The shell.

ChildFacts frmMain::factsOf(const ChildWindow& child) const
{
    ChildFacts facts;
    facts.kind = child.windowKind();
    facts.readOnly = child.Tag.readOnly() || App.ReadOnlyOpen;
    const TwipsSize standard = standardSize(facts.kind);
    facts.standardSize = child.hasSizeInTwips(standard.width, standard.height);
    if (const auto* list = child.findChild<QListWidget*>(QStringLiteral("List1"))) {
        const QListWidgetItem* current = list->currentItem();
        if (current && current->isSelected()) {
            facts.row = list->currentRow();
            facts.rowText = current->text().toLatin1().toStdString();
        }
    }
    facts.buttonEnabled = [&child](std::string_view name) {
        const QLatin1String wanted(name.data(), static_cast<int>(name.size()));
        for (const QAbstractButton* button : child.findChildren<QAbstractButton*>()) {
            const bool named =
                name.ends_with('(') ? button->objectName().startsWith(wanted) : button->objectName() == wanted;
            if (named && button->isEnabled())
                return true;
        }
        return false;
    };
    return facts;
}

void frmMain::apply(const std::vector<MenuItemState>& states)
{
    for (const MenuItemState& state : states)
        enableMenuItem(state.name, state.enabled);
}

void frmMain::MenuSync()
{
    if (App.AppClosing)
        return;
    apply(slotStates());
    const int open = App.ArrUCount + App.StyUCount + App.PrgUCount + App.OtherCount + App.GblCount;
    const ChildWindow* child = open == 0 ? nullptr : activeChild();
    if (!child) {
        apply(menuStates(nullptr, Clipboard.facts()));
        return;
    }
    const ChildFacts facts = factsOf(*child);
    apply(menuStates(&facts, Clipboard.facts()));
}

void frmMain::showWindow(int windowKind, int slot)
{
    if (ChildWindow* child = openChild(windowKind, slot))
        activate(child);
    else
        makeWindow(windowKind, slot);
}

bool frmMain::bringForward(int windowKind, const std::string& path)
{
    for (ChildWindow* child : children())
        if (child->windowKind() == windowKind && sameFileName(child->Tag.path(), path)) {
            activate(child);
            return true;
        }
    return false;
}

void frmMain::openPath(const std::string& path, int fileKind, bool readOnly)
{
    finishSession();
    openByPath(path, fileKind, readOnly, [this](int kind, int slot) { return makeWindow(kind, slot); });
    showRecentFiles();
    MenuSync();
}

void frmMain::popupEditMenu() { menuItem("mnuModifica")->menu()->popup(QCursor::pos()); }

void frmMain::popupEditMenuAtFocus()
{
    const QWidget* focus = QApplication::focusWidget();
    const QRect place = focus ? focus->inputMethodQuery(Qt::ImCursorRectangle).toRect() : QRect();
    menuItem("mnuModifica")->menu()->popup(focus ? focus->mapToGlobal(place.center()) : QCursor::pos());
}

void frmMain::enableMenuItem(const char* name, bool enabled)
{
    if (QAction* action = menuItem(name))
        action->setEnabled(enabled);
}

void frmMain::cut() { menuItem("mnuTaglia")->trigger(); }

bool frmMain::closeEditorOf(int sourceKind, int slot)
{
    ChildWindow* editor = openChild(WindowKind::EditArr, 0);
    const ChildWindow* source = openChild(sourceKind, slot);
    if (!editor || !source || !editHoldsImage(source->Tag.bytes()))
        return true;
    // At exit the editor is only asked: no window goes before all have agreed.
    return App.AppClosing ? editor->queryUnload() : editor->unloadChild();
}

// The menus.

void frmMain::mnuOpen_Click(int windowKind)
{
    finishSession();
    openByDialog(windowKind, [this](int kind, int slot) { return makeWindow(kind, slot); });
    showRecentFiles();
    MenuSync();
}

void frmMain::mnuNew_Click(int windowKind)
{
    finishSession();
    if (windowKind == WindowKind::ArrNew)
        openNewArrangements([this](int kind, int slot) { return makeWindow(kind, slot); });
    if (windowKind == WindowKind::PrgNew)
        openNewPrograms([this](int kind, int slot) { return makeWindow(kind, slot); });
    if (windowKind == WindowKind::StyNew)
        openNewStyles([this](int kind, int slot) { return makeWindow(kind, slot); });
    MenuSync();
}

void frmMain::mnuRecentFile_Click(int index)
{
    const RecentEntry& entry = App.Recent[static_cast<std::size_t>(index)];
    openPath(recentPath(index), entry.kind, entry.readOnly);
}

void frmMain::mnuChiudi_Click(int)
{
    if (ChildWindow* child = activeChild())
        child->unloadChild();
}

void frmMain::mnuExit_Click(int) { close(); }

void frmMain::runChildTimer(const char* name)
{
    const ChildWindow* child = activeChild();
    auto* timer = child ? dynamic_cast<StageTimer*>(child->findChild<QTimer*>(QLatin1String(name))) : nullptr;
    if (timer)
        timer->enable();
}

void frmMain::mnuTvlDBArr_Click(int)
{
    const ChildWindow* child = activeChild();
    if (auto* button = child ? child->findChild<QAbstractButton*>(QStringLiteral("CommAdd")) : nullptr)
        button->click();
}

void frmMain::mnuArrPlay_Click(int) { ModeArrPlay(); }
void frmMain::mnuSongPlay_Click(int) { ModeSongPlay(); }

void frmMain::mnuIngrandisci_Click(int)
{
    ChildWindow* child = activeChild();
    const TwipsSize size = child ? standardSize(child->windowKind()) : TwipsSize();
    if (size.width > 0)
        child->resizeInTwips(size.width, size.height);
}

void frmMain::mnuWindowKind_Click(int windowKind) { showWindow(windowKind, 0); }

void frmMain::mnuLanguage_Click(int language)
{
    menuItem("mnuItaliano")->setChecked(language == 1);
    menuItem("mnuInglese")->setChecked(language == 2);
    if (App.Language == language)
        return;
    // The words of this run stay; the choice is saved at exit and applies at the next start.
    App.Language = language;
    ReportError(CodeLanguageNextStart, ResText(ChangeLanguageRow), "");
}

void frmMain::mnuMIDIThru_Click(int)
{
    if (App.ThruOn) {
        MidiThruConnect();
        MidiInRun();
    } else {
        MidiThruDisconnect();
        MidiInHalt();
    }
}

void frmMain::mnuWCascade_Click(int)
{
    for (const CascadePlace& place : cascadePlaces()) {
        keepCascadePlace(place);
        for (ChildWindow* child : children()) {
            if (&child->Tag != place.window)
                continue;
            const WindowPosition position = child->positionInTwips();
            child->placeInTwips(place.offset, place.offset, position.width, position.height);
            child->raise();
        }
    }
    MenuSync();
}

void frmMain::mnuAggArr_Click(int)
{
    constexpr int UpdatingNotice = 8;
    StatusNotice(UpdatingNotice, "TvlDBArr");
    Timer->enable();
}

void frmMain::Timer_Timer()
{
    if (DBArr.FindRequest) {
        Timer->enable(); // the find reads the database that the user sees
        return;
    }
    DBArrRefresh();
    StatusNotice(0, {});
}

// The way out.

void frmMain::closeEvent(QCloseEvent* event)
{
    if (gone_) {
        event->accept();
        return;
    }
    finishSession();
    App.AppClosing = true;
    ++App.ExitAttempt;
    if (!childrenAgree() || PortRelease::refused()) {
        // A musician who changes their mind has a program that works as before.
        App.AppClosing = false;
        event->ignore();
        MenuSync();
        return;
    }
    unloadChildren();
    PortRelease::release();
    keepPlace();
    saveSettingsAtExit();
    gone_ = true;
    event->accept();
    if (onGone)
        onGone();
}

bool frmMain::childrenAgree()
{
    for (ChildWindow* child : children())
        if (!child->queryUnload())
            return false;
    return true;
}

void frmMain::unloadChildren()
{
    for (const int kind : ClosedFirst)
        if (ChildWindow* child = openChild(kind, 0))
            child->unloadWithoutAsking();
    clearSessionMarks();
    for (ChildWindow* child : children())
        child->unloadWithoutAsking();
}
