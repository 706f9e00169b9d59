// What an arrangement window leaves behind as it goes: its place, and whether the next start brings it back.
#pragma once

#include "core/Settings.h"

class WindowBuffer;

/// Frees the slot's entry and keeps the window's place and path in it, the place in the recent files too. The entry is
/// marked to come back only when the program leaves with the window still open.
void ArrSessionLeave(SessionEntry& entry, const WindowBuffer& tag, const WindowPosition& place);
