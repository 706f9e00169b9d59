// What the edit menu offers for the active window: copy, cut and paste, by its kind and the current row of its list.
//
// Arrangements, programs and styles never mix, a row in use is never pasted upon, and the windows on the instrument's
// own banks can only give.
#pragma once

#include "clipboard/ClipboardFacts.h"

#include <string>

/// The active window and its current row.
struct ActiveRow {
    int kind = 0;          ///< WindowKind
    bool readOnly = false; ///< its file's own mark, or mnuRdOnly checked
    int row = -1;          ///< ListIndex of its list, from 0; -1 without a selected row
    std::string rowText;   ///< that row's text, Latin-1
};

struct EditItems {
    bool copy = false;
    bool cut = false;
    bool paste = false;
};

EditItems editItems(const ActiveRow& active, const ClipboardFacts& clipboard);
