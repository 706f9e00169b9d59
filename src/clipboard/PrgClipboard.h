// Cut and paste of programs. A factory program is not copied as data: the file gets a record that refers to it, and a
// file with such a record is a .pgg.
#pragma once

#include "clipboard/Clipboard.h"

/// Pastes the snapshot's marked rows into a window of kind 21 or 22.
ClipOutcome PrgPaste(WindowBuffer& tag, ListRows& rows);

/// Cuts the rows that the snapshot just taken has marked from a window of kind 21 or 22.
ClipOutcome PrgCut(WindowBuffer& tag, ListRows& rows);
