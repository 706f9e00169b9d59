// Cut and paste of styles in a style window, which may show the styles of an open arrangement window.
#pragma once

#include "clipboard/Clipboard.h"

/// Pastes the snapshot's marked styles into the slots of a window of kind 23 or 24.
ClipOutcome StyPaste(WindowBuffer& tag, ListRows& rows);

/// Makes the selected slots of a window of kind 23 or 24 empty styles.
ClipOutcome StyCut(WindowBuffer& tag, ListRows& rows);
