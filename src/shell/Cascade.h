// mnuWCascade: which open windows it moves, in which order, and where their places are kept.
#pragma once

#include "files/WindowBuffer.h"

#include <vector>

/// Twips from one window to the next, to the right and down.
inline constexpr int CascadeStep = 300;

struct CascadePlace {
    WindowBuffer* window;
    int offset; ///< left and top, twips
};

/// The open windows in the order of the cascade: user arrangements, new arrangements, programs, styles, banks, global
/// windows, each kind's slots in order.
std::vector<CascadePlace> cascadePlaces();

/// Writes a window's new left and top into the session table that its kind is saved in.
void keepCascadePlace(const CascadePlace& place);
