// The main window as its children see it.
//
// Windows do not know each other: a child that needs another window, a file opened or the menus brought up to date
// asks the shell, and names no other window class. frmMain implements it.
#pragma once

#include <string>

class Shell
{
public:
    virtual ~Shell() = default;

    /// Brings all menus up to date with the active child.
    virtual void MenuSync() = 0;
    /// Shows the window of a kind, creating it where it does not exist. slot is the number of the window in its
    /// family, from 1; 0 where the kind has a single window. Kinds that no room builds yet do nothing.
    virtual void showWindow(int windowKind, int slot) = 0;
    /// Brings the open window of a kind on this path (without extension) forward. False when there is none.
    virtual bool bringForward(int windowKind, const std::string& path) = 0;
    /// The steps of the open menus behind the dialog, by full path and file kind (FileKind): slot and "already
    /// open" checks, the reader, the child window, the recent list. Reports what is to be reported.
    virtual void openPath(const std::string& path, int fileKind, bool readOnly) = 0;
    /// Pops up mnuModifica at the pointer.
    virtual void popupEditMenu() = 0;
    /// Pops it up where the focus is, for a key that asks for it.
    virtual void popupEditMenuAtFocus() { popupEditMenu(); }
    /// Enables or disables a menu item by name; unknown names are ignored.
    virtual void enableMenuItem(const char* name, bool enabled) = 0;
    /// The cut command of the edit menu, run if it is enabled.
    virtual void cut() = 0;
    /// Closes the editor when it holds an arrangement of the given source (kind, and slot for kind 19). False when
    /// the user cancelled. True also when there is nothing to close.
    virtual bool closeEditorOf(int sourceKind, int slot) = 0;
};
