// Answers to whatever stands over the main window: boxes, file dialogs, menus and lists that have popped up.
#pragma once

#include "monkey/Chance.h"
#include "monkey/World.h"

#include <QString>

class QWidget;

namespace DialogAnswers
{

/// One random act on a modal dialog. Tells what is done before it is done, through `tell`.
void act(QWidget* dialog, World& world, Chance& chance, const std::function<void(const QString&)>& tell);
/// The same on a menu or a list that has popped up.
void actOnPopup(QWidget* popup, Chance& chance, const std::function<void(const QString&)>& tell);
/// Leaves a dialog so that nothing more comes of it.
void dismiss(QWidget* dialog);

} // namespace DialogAnswers
