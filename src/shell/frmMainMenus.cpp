// Building the menus from their table, the recent files among them, and the list of the open windows.
#include "core/Dichiarazioni.h"
#include "core/Strings.h"
#include "shell/DatabaseLinks.h"
#include "shell/RecentFiles.h"
#include "shell/StatusPanelWidget.h"
#include "shell/frmMain.h"
#include "shell/frmMainMenu.h"
#include "toolkit/ChildWindow.h"
#include "toolkit/ControlArray.h"
#include "toolkit/QtKeyActions.h"

#include <QAction>
#include <QMdiArea>
#include <QMenu>
#include <QMenuBar>

namespace
{

constexpr int AboutRow = 30;

QString captionOf(const MenuRow& row)
{
    if (row.captionRow == 0)
        return QString::fromUtf8(row.fixed ? row.fixed : "");
    std::string caption = ResText(row.captionRow);
    if (row.captionRow == AboutRow) // the row is the beginning of a phrase that the program's name ends
        caption += ApplicationName;
    return QString::fromUtf8(caption.c_str());
}

/// A path in a menu: an "&" in a folder's name is no mnemonic.
QString menuText(const std::string& caption)
{
    QString text = QString::fromUtf8(caption.c_str());
    return text.left(1) + text.mid(1).replace(QLatin1Char('&'), QLatin1String("&&"));
}

} // namespace

QAction* frmMain::menuItem(const char* name) const { return items_.value(QLatin1String(name)); }

void frmMain::buildMenus()
{
    menuBar()->setObjectName(QStringLiteral("MenuBar"));
    QMenu* menu = nullptr;
    QMenu* outer = nullptr;
    for (const MenuRow& row : menuTable()) {
        if (row.type == MenuRow::Type::EndOfSubMenu) {
            menu = outer;
            continue;
        }
        QAction* action = addMenuRow(row, menu);
        items_.insert(action->objectName(), action);
        if (row.type == MenuRow::Type::SubMenu)
            outer = menu;
        if (action->menu())
            menu = action->menu();
    }
    connect(menuItem("mnuWindow")->menu(), &QMenu::aboutToShow, this, [this] { listChildWindows(); });
}

/// Keys beside those that stand in the menus.
void frmMain::buildKeys()
{
    menuItem("mnuChiudi")->setShortcuts({QKeySequence(Qt::CTRL | Qt::Key_W), QKeySequence(Qt::CTRL | Qt::Key_F4)});
    // Also the menu without a letter is reached so.
    addKeyAction(this, "actMenuBar", Qt::Key_F10, [this] { menuBar()->setActiveAction(menuBar()->actions().first()); });
    addKeyAction(this, "actEditMenu", Qt::SHIFT | Qt::Key_F10, [this] { popupEditMenuAtFocus(); });
    addKeyAction(this, "actSystemMenu", Qt::ALT | Qt::Key_Minus, [this] {
        if (ChildWindow* child = activeChild())
            child->showSystemMenu(); // its items move and resize the window by keys
    });
}

QAction* frmMain::addMenuRow(const MenuRow& row, QMenu* menu)
{
    QAction* action = nullptr;
    if (row.type == MenuRow::Type::Menu || row.type == MenuRow::Type::SubMenu) {
        QMenu* inner =
            row.type == MenuRow::Type::Menu ? menuBar()->addMenu(captionOf(row)) : menu->addMenu(captionOf(row));
        inner->setObjectName(QLatin1String(row.name));
        inner->setAccessibleName(captionOf(row).remove(QLatin1Char('&')));
        action = inner->menuAction();
    } else if (row.type == MenuRow::Type::Separator) {
        action = menu->addSeparator();
    } else {
        action = menu->addAction(captionOf(row));
        wireMenuRow(row, action);
    }
    action->setObjectName(QLatin1String(row.name));
    return action;
}

void frmMain::wireMenuRow(const MenuRow& row, QAction* action)
{
    if (row.shortcut)
        action->setShortcut(QKeySequence(QLatin1String(row.shortcut)));
    // The platform's own guess at roles would move items by the words of their captions.
    action->setMenuRole(QAction::NoRole);
    action->setCheckable(row.type == MenuRow::Type::Check);
    connect(action, &QAction::triggered, this, [this, &row](bool checked) {
        if (row.setting)
            checkToggled(row, checked);
        if (row.childTimer)
            runChildTimer(row.childTimer);
        if (row.handler)
            (this->*row.handler)(row.argument);
    });
}

void frmMain::checkToggled(const MenuRow& row, bool checked)
{
    App.*row.setting = checked;
    if (row.setting == &Settings::StatusBar)
        Picture1->setVisible(checked);
    if (row.setting == &Settings::ReadOnlyOpen)
        MenuSync();
    if (row.setting == &Settings::AutoDBArr && checked)
        addOpenFilesToDatabase();
}

void frmMain::loadCheckMarks()
{
    for (const MenuRow& row : menuTable())
        if (row.setting)
            menuItem(row.name)->setChecked(App.*row.setting);
    menuItem("mnuItaliano")->setChecked(App.Language == 1);
    menuItem("mnuInglese")->setChecked(App.Language == 2);
}

void frmMain::showRecentFiles()
{
    bool any = false;
    bool ended = false;
    for (int index = 0; index < RecentCount; ++index) {
        QAction* action = items_.value(memberName("mnuRecentFile", index));
        // The list ends at the first free entry, whatever a damaged file holds behind it.
        ended = ended || recentPath(index).empty();
        action->setVisible(!ended);
        if (!ended)
            action->setText(menuText(RecentCaption(index)));
        any = any || !ended;
    }
    menuItem("mnuSep16")->setVisible(any);
}

void frmMain::listChildWindows()
{
    QMenu* menu = menuItem("mnuWindow")->menu();
    for (QAction* action : menu->actions())
        if (action->objectName().startsWith(QLatin1String("mnuWindowList(")))
            delete action;
    int index = 0;
    for (ChildWindow* child : children()) {
        const QString number = index < 9 ? QStringLiteral("&%1  ").arg(index + 1) : QString();
        QString title = child->windowTitle();
        QAction* action = menu->addAction(number + title.replace(QLatin1Char('&'), QLatin1String("&&")));
        action->setObjectName(memberName("mnuWindowList", index++));
        action->setCheckable(true);
        action->setChecked(child == activeChild());
        connect(action, &QAction::triggered, child, [this, child] { activate(child); });
    }
}
