// What the menus need to know of the clipboard's snapshot: whether there is one, and from what kind of window.
#pragma once

struct ClipboardFacts {
    bool clipboardEmpty = true;
    int sourceKind = 0; ///< WindowKind of the snapshot's window
};
