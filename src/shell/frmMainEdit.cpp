// The edit menu: copy, cut and paste of the active child's rows. A key may come before the menus have followed the last
// change, so each command looks again whether it is allowed.
#include "clipboard/Clipboard.h"
#include "clipboard/QtClipboard.h"
#include "shell/frmMain.h"
#include "toolkit/ChildWindow.h"

void frmMain::runEdit(bool EditItems::*item, void (*command)(ChildWindow&))
{
    if (ChildWindow* child = activeChild(); child && editItems(factsOf(*child), Clipboard.facts()).*item)
        command(*child);
}

void frmMain::mnuTaglia_Click(int) { runEdit(&EditItems::cut, &cutRows); }

void frmMain::mnuCopia_Click(int) { runEdit(&EditItems::copy, &copyRows); }

void frmMain::mnuIncolla_Click(int) { runEdit(&EditItems::paste, &pasteRows); }
