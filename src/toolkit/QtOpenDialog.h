// The open dialog: the toolkit's own, with the read-only box in it.
#pragma once

#include "core/UserInterface.h"

#include <QStringList>

class QFileDialog;
class QWidget;

/// Shows the dialog and waits for its answer.
OpenDialogAnswer runOpenDialog(const OpenDialogRequest& request, QWidget* parent);

/// "text|*.a;*.b|text|*.*|" as the dialog wants it: "text (*.a *.b)", "text (*)". The pattern "*.*" is every file.
QStringList nameFilters(const QString& filters);

// What the save dialog has in common with it.

/// The filter whose text the dialog shows, 0-based; -1 for none.
int shownFilter(const QStringList& filters, const QString& shown);
/// What a typed name without extension gets: the first extension of the filter; nothing for "every file".
QString suffixOf(const QString& nameFilter);
/// The labels in the language of the run; the accepting button says row `acceptRow`. The columns as wide as they want.
void applyDialogWords(QFileDialog& dialog, int acceptRow);
