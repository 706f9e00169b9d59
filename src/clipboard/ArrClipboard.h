// Cut and paste of arrangements, with the user styles that they play.
//
// A factory style is a number that means the same everywhere. A user style lies in the style area of the same window:
// a paste brings it along or shares the one of the same name, and a cut takes it away with its last arrangement.
#pragma once

#include "clipboard/Clipboard.h"

/// Pastes the snapshot's marked rows into a window of kind 19 or 20. Nothing is stored when a source record names a
/// style slot that no file has.
ClipOutcome ArrPaste(WindowBuffer& tag, ListRows& rows);

/// Cuts the rows that the snapshot just taken has marked from a window of kind 19 or 20.
ClipOutcome ArrCut(WindowBuffer& tag, ListRows& rows);
