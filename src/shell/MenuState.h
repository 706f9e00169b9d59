// Which menu items work: computed from the active child window's facts alone, so that every row of the rules can be
// tested without a window.
#pragma once

#include "clipboard/EditItems.h"
#include "core/Dichiarazioni.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

/// The active child window as the menus see it.
struct ChildFacts : ActiveRow {
    bool standardSize = true; ///< width and height are its kind's defaults, in whole pixels
    /// Whether the child's button of a name can be pressed; false for a button that it does not have. A name that ends
    /// in "(" asks for any member of a control array.
    std::function<bool(std::string_view name)> buttonEnabled;
};

/// An item by name and whether it works.
struct MenuItemState {
    const char* name;
    bool enabled;
};

/// The items that depend on the active child; `child` is null when no child window is open.
std::vector<MenuItemState> menuStates(const ChildFacts* child, const ClipboardFacts& clipboard);

/// The items that open a window in a slot of its family, off when all slots are used, and those of the program banks,
/// off while their window is open.
std::vector<MenuItemState> slotStates();

/// The size that mnuIngrandisci restores, outer twips; 0 by 0 for a kind that has none.
TwipsSize standardSize(int windowKind);
