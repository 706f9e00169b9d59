// Keys that work in a whole window, whichever of its controls has the focus.
#pragma once

#include <QKeySequence>
#include <functional>

class QAction;
class QWidget;

/// Adds an action without a menu to the window, run by the key while the window or one of its controls has the focus.
QAction* addKeyAction(QWidget* window, const char* name, const QKeySequence& key, std::function<void()> handler);
