// What Save As makes of each kind of window, as tables: where its dialog begins, which area the chosen filter writes,
// and how the file's name comes from the name that was typed.
#pragma once

#include "core/UserInterface.h"
#include "files/WindowBuffer.h"

#include <optional>
#include <string>

/// The dialog that a window's Save As opens with; nothing for a kind that has no file.
std::optional<SaveDialogRequest> saveDialogFor(const WindowBuffer& tag);

/// The kind of file (FileKind) that the dialog's filter, 1-based, makes of this window: "all files" makes the window's
/// own. None when the window has no such area.
int fileKindChosen(const WindowBuffer& tag, int filterIndex);

/// The name on disk for a typed name: with the extension of the kind, unless it ends in it in any letter case. Of the
/// two kinds of program files the one takes the place of the other.
std::string nameToSave(const std::string& typed, int fileKind);

/// False for a file's name that its window could not come back to: one that its field cannot hold, or that is nothing
/// but an extension.
bool mayBeNamed(const std::string& path);

/// The bytes of a window's arrangement, program or global file, at their full length; empty for style files.
ByteBuffer fileArea(const WindowBuffer& tag, int fileKind);

/// The kind of a program window's file: .prg or .pgg, by the type of its area.
int programKind(const WindowBuffer& tag);
