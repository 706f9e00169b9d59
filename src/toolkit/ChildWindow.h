// What every child window does once: its Tag, its caption, its place, its share in the menus and counters.
#pragma once

#include "core/Dichiarazioni.h"
#include "files/WindowBuffer.h"

#include <QMdiSubWindow>

class QContextMenuEvent;

class ChildWindow : public QMdiSubWindow
{
public:
    /// `name` is the object name, the class name. `counter` is the open-window counter of App that this window raises
    /// when it is first shown and lowers when it goes. The window deletes itself when closed.
    ChildWindow(const char* name, int AppState::*counter);
    ~ChildWindow() override;

    /// The window's lasting state. It stands in OpenWindows for as long as the window is open.
    WindowBuffer Tag;

    int windowKind() const { return Tag.kind(); }

    /// Caption by ChildCaption(Tag).
    void showCaption();

    /// Outer place and size in twips. A window keeps its stored twips until the user resizes or moves it; a place out
    /// of view is shown moved into view, the stored values stay.
    void placeInTwips(int left, int top, int width, int height);
    void resizeInTwips(int width, int height);
    WindowPosition positionInTwips() const;
    /// Sizes are compared in whole pixels.
    bool hasSizeInTwips(int width, int height) const;

    /// Opens at the place that a row of WinPos keeps, in the standard size where the row has none yet, and marks the
    /// row as open.
    void openAtRow(int row, TwipsSize standard);
    /// Opens so in the largest size that the window takes unless it is maximised, its standard size too; a larger one
    /// is cut to it. From here on each resize keeps the size in the row, and in its mark the window's state: 1 for
    /// minimised, 0 for neither minimised nor maximised.
    void openWithin(int row, TwipsSize largest);
    /// Keeps place and size in the row for the next opening. The row counts as closed then, but at the program's exit
    /// it stays as it is, so that the next start shows the window again.
    void keepInRow(int row) const;

    /// Asked before the window closes, by its close box, by the program's exit and by unloadChild: false keeps it open.
    /// Called once a close.
    virtual bool queryUnload() { return true; }
    /// The window goes now. At exit only after all children have agreed.
    virtual void unload() {}
    /// The Tag was changed from outside, by a cut or a paste or through another window. Rows of List1 and the controls
    /// that the change names are shown already; what else follows from the Tag is shown here.
    virtual void contentChanged() {}

    /// Closes the window through queryUnload; false when it stays.
    bool unloadChild();
    /// Closes without asking; queryUnload must have been true.
    void unloadWithoutAsking();

protected:
    /// The Delete key on a list whose rows are cut: refused with an error in a read-only file, else the cut command
    /// where it is allowed. `extension` of the file's name in the error's title, with its point.
    void deleteKey(const char* extension) const;
    /// The content, put into a scroll area so that nothing is cut off at a small size. Its controls are made before:
    /// their own context menus are taken away for mnuModifica.
    void setContent(QWidget* content);
    /// Opens mnuModifica on a right press anywhere in the window.
    void contextMenuEvent(QContextMenuEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    /// A title that is wider than its bar stands whole in a tool tip.
    bool event(QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void moveEvent(QMoveEvent* event) override;

private:
    static constexpr int NoRow = -1;

    void nameSystemMenu();
    bool titleIsCut();
    void stepRowsByKeys(const QWidget* content);
    bool isFree() const; ///< neither maximised nor minimised: its rectangle is its own
    void showFree();
    void applyPlace();
    void rememberUsersHand();
    void keepWithinLargest();
    void leave();

    int AppState::*counter_;
    bool counted_ = false;
    bool agreed_ = false;
    bool left_ = false;
    bool hasPlace_ = false; ///< a place was given; until then the area finds one
    bool hasSize_ = false;
    bool placing_ = false;
    bool opening_ = false;   ///< it is only being shown, no one has resized it
    int limitedRow_ = NoRow; ///< of WinPos, with the largest size beside it
    TwipsSize largest_{};
    WindowPosition stored_;
    QRect pixels_; ///< its own rectangle when it was last free; what stored_ stands for
};
