// The whole menu as one table: each item's name, its words, its key, and what it does.
#pragma once

#include "core/Settings.h"
#include "shell/frmMain.h"

#include <vector>

struct MenuRow {
    enum class Type { Menu, SubMenu, EndOfSubMenu, Item, Check, Separator };
    Type type;
    const char* name;               ///< the object name
    int captionRow = 0;             ///< row of the string table; 0 = the fixed caption
    const char* fixed = nullptr;    ///< the same in both languages
    const char* shortcut = nullptr; ///< as on the keys: "Ctrl+O"
    void (frmMain::*handler)(int) = nullptr;
    int argument = 0;                  ///< handed to the handler
    const char* childTimer = nullptr;  ///< instead of a handler: the active child's stage timer
    bool Settings::*setting = nullptr; ///< a check mark and the setting that it is
};

const std::vector<MenuRow>& menuTable();
