// The save dialog: the toolkit's own, with the program's words and its question before a file is overwritten.
#pragma once

#include "core/UserInterface.h"

class QWidget;

/// Shows the dialog and waits for its answer. `user` asks before overwriting and tells of a missing folder, over the
/// open dialog.
SaveDialogAnswer runSaveDialog(const SaveDialogRequest& request, QWidget* parent, UserInterface& user);
