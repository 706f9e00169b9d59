// The edit menu: copy, cut and paste of the active child's rows. A key may come before the menus have followed the last
// change, so each command looks again whether it is allowed.
#include "arrangements/ArrEdit.h"
#include "clipboard/Clipboard.h"
#include "clipboard/QtClipboard.h"
#include "core/Dichiarazioni.h"
#include "shell/frmMain.h"
#include "toolkit/ChildWindow.h"

#include <QAbstractButton>
#include <QListWidget>

ChildWindow* frmMain::childToEdit(bool EditItems::*item) const
{
    ChildWindow* child = activeChild();
    return child && editItems(factsOf(*child), Clipboard.facts()).*item ? child : nullptr;
}

/// The editor does not outlive the row that it holds: what it stored later would come back into a row that is free,
/// with a style that has gone. False when the user cancels there.
bool frmMain::editorLeavesRows(const ChildWindow& child)
{
    const auto* list = child.findChild<QListWidget*>(QStringLiteral("List1"));
    if (!list)
        return true;
    for (const QListWidgetItem* row : list->selectedItems())
        if (editHoldsRow(child.Tag.bytes(), list->row(row)))
            return closeEditorOf(child.windowKind(), child.Tag.number());
    return true;
}

void frmMain::mnuTaglia_Click(int)
{
    // The database window has a delete of its own, and nothing of it goes to the clipboard.
    if (const ChildWindow* active = activeChild(); active && active->windowKind() == WindowKind::EditDatabase) {
        if (auto* button = active->findChild<QAbstractButton*>(QStringLiteral("CommDelete")))
            button->click();
        return;
    }
    if (ChildWindow* child = childToEdit(&EditItems::cut); child && editorLeavesRows(*child))
        cutRows(*child);
}

void frmMain::mnuCopia_Click(int)
{
    if (ChildWindow* child = childToEdit(&EditItems::copy))
        copyRows(*child);
}

void frmMain::mnuIncolla_Click(int)
{
    if (ChildWindow* child = childToEdit(&EditItems::paste))
        pasteRows(*child);
}
