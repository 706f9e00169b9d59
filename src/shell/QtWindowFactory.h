// The one place that names every window class.
#pragma once

class ChildWindow;

/// A new window of a kind (WindowKind) for slot `slot` of its family, from 1, not yet shown; null for a kind that has
/// no window of its own.
ChildWindow* makeChildWindow(int windowKind, int slot);
