// The clipboard: one snapshot of a whole window buffer, taken at the last Copy or Cut.
//
// Rows travel between windows of this program alone; the desktop's clipboard has no part in it. The snapshot does not
// follow later edits of its window and outlives it, so that it can be pasted many times.
#pragma once

#include "clipboard/ClipboardFacts.h"
#include "clipboard/ListRows.h"

#include <string>
#include <vector>

class WindowBuffer;

struct ClipboardState {
    ByteBuffer BufferTagSorg; ///< the snapshot, rows and marks in it; empty until the first Copy
    int sourceKind = 0;       ///< its first byte: the WindowKind of its window

    ClipboardFacts facts() const { return {BufferTagSorg.empty(), sourceKind}; }
};

/// The one instance. A test starts afresh with Clipboard = {}.
extern ClipboardState Clipboard;

/// What a cut or a paste leaves for the windows to show, besides the rows. Controls are named as the windows name them.
struct ClipOutcome {
    struct Button {
        std::string name;
        bool enabled;
    };
    struct Text {
        std::string name;
        std::string text;
    };
    bool stored = false;         ///< the window's Tag has changed
    std::vector<Button> buttons; ///< in the order of their switching: the last word on a button counts
    std::vector<Text> texts;
    WindowBuffer* alsoChanged = nullptr; ///< the arrangement window whose styles a linked style window has changed
    /// The linked style window whose styles an arrangement window has changed: it is closed and, from the arrangement
    /// window, opened again.
    WindowBuffer* openAgain = nullptr;

    void enable(std::string name, bool enabled) { buttons.push_back({std::move(name), enabled}); }
};

/// Takes the snapshot of a window and its rows; the window's Tag keeps the rows too. Kinds without rows are left alone.
void ClipCopy(WindowBuffer& tag, const ListRows& rows);
/// Copy, then takes the selected rows away. `rows` comes back as the list is to show them.
ClipOutcome ClipCut(WindowBuffer& tag, ListRows& rows);
/// Pastes the snapshot's marked rows from the first selected row on. `rows` comes back as the list is to show them.
ClipOutcome ClipPaste(WindowBuffer& tag, ListRows& rows);
