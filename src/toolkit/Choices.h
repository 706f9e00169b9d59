// Combos and sliders as the rules mean them: one call for one act of the user, and no change by a wheel that only
// passes over them.
#pragma once

#include <functional>

class QComboBox;
class QWidget;

/// Calls handler(index) for each change of the row, the program's own included, and for the user's re-choice of the row
/// already shown: once an act.
void onComboClick(QComboBox* combo, std::function<void(int index)> handler);

/// The wheel changes the control only while it has the focus; else it scrolls what lies behind it.
void ignoreWheelWithoutFocus(QWidget* control);
