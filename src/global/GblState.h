// The one value that the windows of the global block share; the block taken to be in the instrument is kept with the
// settings, as App.GblCurrent.
#pragma once

struct GblState {
    bool GblLoading = false; ///< a window fills or resets its controls: nothing is sent, and no handler edits
};

extern GblState Gbl;
