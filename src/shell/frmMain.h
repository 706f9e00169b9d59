// The main window: the menus, the area of the child windows, the status panel, and the timers that bring the session
// back. Its menus do almost nothing themselves: the commands of the active child are reached by the names of that
// child's timers and buttons.
#pragma once

#include "core/Settings.h"
#include "core/Shell.h"
#include "shell/MenuState.h"

#include <QHash>
#include <QMainWindow>
#include <array>
#include <functional>
#include <vector>

class ChildWindow;
class WindowBuffer;
class QAction;
class QMdiArea;
class QMenu;
class QTimer;
class StageTimer;
class StatusPanelWidget;
struct MenuRow;

class frmMain final : public QMainWindow, public Shell
{
public:
    /// Makes the window of a kind for a slot; null for a kind that has none.
    using Factory = std::function<ChildWindow*(int windowKind, int slot)>;

    frmMain();
    explicit frmMain(Factory factory);
    ~frmMain() override;

    /// The load handler: menus, status panel, the mode sent, the session planned. The window is not yet shown.
    void Form_Load();
    /// Shows the window in the state of its last run.
    void showAsSaved();

    StatusPanelWidget* statusPanel() const { return Picture1; }
    QMdiArea* area() const { return area_; }
    QAction* menuItem(const char* name) const;

    /// Told when the window has gone for good.
    std::function<void()> onGone;

    // Shell.
    void MenuSync() override;
    void showWindow(int windowKind, int slot) override;
    bool bringForward(int windowKind, const std::string& path) override;
    void openPath(const std::string& path, int fileKind, bool readOnly) override;
    void popupEditMenu() override;
    void popupEditMenuAtFocus() override;
    void enableMenuItem(const char* name, bool enabled) override;
    void cut() override;
    bool closeEditorOf(int sourceKind, int slot) override;

    // The menus' handlers, as the menu table names them. `argument` is the row's own number.
    void mnuOpen_Click(int windowKind);
    void mnuNew_Click(int windowKind);
    void mnuChiudi_Click(int);
    void mnuSalva_Click(int);
    void mnuSalvaAs_Click(int);
    void mnuExit_Click(int);
    void mnuRecentFile_Click(int index);
    void mnuIngrandisci_Click(int);
    void mnuTaglia_Click(int);
    void mnuCopia_Click(int);
    void mnuIncolla_Click(int);
    void mnuTvlDBArr_Click(int);
    void mnuArrPlay_Click(int);
    void mnuSongPlay_Click(int);
    void mnuWindowKind_Click(int windowKind);
    void mnuLanguage_Click(int language);
    void mnuMIDIThru_Click(int);
    void mnuWCascade_Click(int);
    /// Says on the status line what comes; Timer's tick refreshes the database.
    void mnuAggArr_Click(int);

    /// Enables the active child's stage timer of that name.
    void runChildTimer(const char* name);

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    // Construct.
    void buildMenus();
    QAction* addMenuRow(const MenuRow& row, QMenu* menu);
    void wireMenuRow(const MenuRow& row, QAction* action);
    void buildKeys();
    void buildTimers();

    // Handle.
    void loadCheckMarks();
    void loadStatusPanel();
    void readStyleTemplate();
    void sendSavedMode();
    void planSession();
    void TimerAuto_Timer(int index);
    void TimerArrU_Timer();
    void finishSession();
    void showRecentFiles();
    void listChildWindows();
    void checkToggled(const MenuRow& row, bool checked);
    /// The active child when an edit item is allowed on it now, else null.
    ChildWindow* childToEdit(bool EditItems::*item) const;
    bool editorLeavesRows(const ChildWindow& child);
    void Timer_Timer();

    bool makeWindow(int windowKind, int slot);
    void saveActive(int (*save)(WindowBuffer&));
    ChildWindow* activeChild() const;
    ChildWindow* openChild(int windowKind, int slot) const;
    std::vector<ChildWindow*> children() const;
    void activate(ChildWindow* child);
    ChildFacts factsOf(const ChildWindow& child) const;
    void apply(const std::vector<MenuItemState>& states);

    bool childrenAgree();
    void unloadChildren();
    void keepPlace();

    Factory factory_;
    QMdiArea* area_ = nullptr;
    StatusPanelWidget* Picture1 = nullptr;
    QHash<QString, QAction*> items_; ///< menus and menu items by name
    std::array<StageTimer*, 15> TimerAuto{};
    std::array<StageTimer*, 17> TimerArrU{};
    StageTimer* Timer = nullptr;
    int AutoTotal = 0;
    int AutoDone = 0;
    bool gone_ = false;
    QRect placed_; ///< the rectangle that the stored place of the window was shown at, pixels
};
