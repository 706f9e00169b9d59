// The one arrangement under edit, and what the arrangement windows share: the search by ID, Load All, and the seams by
// which they reach the editor, the saving and the database without knowing them.
//
// ArrEditBuf is a copy: the file's image changes only when ArrEditStore writes it back to the window it came from.
#pragma once

#include "arrangements/ArrBlock.h"
#include "core/UserInterface.h" // before Arr: its StatusLabel has a member of that name

#include <functional>
#include <string>
#include <string_view>
#include <vector>

class WindowBuffer;

/// The open editor as the arrangement windows see it. It stands in Arr.editor for as long as it is open.
class ArrEditor
{
public:
    virtual ~ArrEditor() = default;
    /// Fills every control from ArrEditBuf; clears ArrEditDirty.
    virtual void ArrEditFill() = 0;
};

/// A window whose arrangements the editor can hold: told when one of its records was written from outside.
class ArrRowOwner
{
public:
    virtual ~ArrRowOwner() = default;
    /// The window's image; its registered buffer.
    virtual const WindowBuffer& arrImage() const = 0;
    /// Record `row` has a new name: the row's text keeps its first four characters, the name follows.
    virtual void arrRowRenamed(int row) = 0;
    /// A find by ID has come to this window: it selects row Arr.FindIdRow alone and begins to send it. A row above 63
    /// selects nothing.
    virtual void startSearchById() {}
    /// Chooses another row, `rows` below or above the chosen one, as a press on it would.
    virtual void stepRow(int rows) { static_cast<void>(rows); }
    /// Another find begins: what this window still had to do for the one before is dropped.
    virtual void dropSearch() {}
};

struct ArrState {
    ByteBuffer ArrEditBuf = ByteBuffer(ArrEditLayout::Size, '\0');
    bool ArrEditOpen = false;       ///< the editor is on screen with an arrangement
    bool ArrEditLoading = false;    ///< ArrEditFill is running
    bool ArrEditDirty = false;      ///< ArrEditBuf differs from the image
    bool ArrNameChanged = false;    ///< the name was typed
    bool ArrCloseCancelled = false; ///< the user cancelled at the editor's closing question
    bool WindowFilling = false;     ///< a window fills a list of its own: a change of its row is no choice

    bool FindIdActive = false;         ///< a search by ID is under way
    int FindIdRow = 0;                 ///< the row it looks for, from 0
    const void* FindIdOwner = nullptr; ///< the window whose stages carry it
    bool FindIdUsesUserStyle = false;  ///< what the row found needs of the instrument
    bool FindIdUsesBankD = false;

    bool LoadingAll = false;               ///< a Load All waits for its style transmission
    const void* LoadingAllOwner = nullptr; ///< the window that set it

    std::string DBArrRequest; ///< path without extension that the database wants brought to the front; empty for none

    ArrEditor* editor = nullptr; ///< null while no editor is open
    /// Set by the keyboard window while it is open: its split bar follows the editor's. The argument is a MIDI note.
    std::function<void(int note)> keyboardSplit;
    std::vector<ArrRowOwner*> rowOwners; ///< the open windows with arrangements

    /// Adds a window's file to the database.
    std::function<void(WindowBuffer&)> databaseAdd;
};

/// The one instance. A test starts afresh with Arr = {}.
extern ArrState Arr;

/// Fills ArrEditBuf from a window's image and a row from 0. `index` comes back holding the last track's program number:
/// a caller must not use it afterwards.
void ArrEditLoad(std::string_view image, int& index);

/// Writes ArrEditBuf back to the window it came from. 0, or 1 when nothing was written and the edit stays as it is: the
/// file is read only or its window is gone. Both are reported.
[[nodiscard]] int ArrEditStore();

/// With an open editor that holds changes: asks whether to save them, and stores them on Yes. `title` is the box's.
/// False when the user wants them saved and they could not be: they stand in ArrEditBuf alone, and nothing may take
/// their place there.
[[nodiscard]] bool askToStoreEdit(const std::string& title);

/// True when ArrEditBuf holds record `row` of this image.
bool editHoldsRow(std::string_view image, int row);

/// True when the open editor holds an arrangement of this image.
bool editHoldsImage(std::string_view image);

/// Chooses the next or previous row in the window that the edited arrangement came from; nothing when that is gone.
void stepEditedRow(int rows);

/// A file's name with its extension, as the titles of its messages show it.
std::string arrFileTitle(const WindowBuffer& window);
