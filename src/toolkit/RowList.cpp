// From Qt's mouse and key events to one click for each act of the user. The click runs inside the event: what it sends
// is on the wire before the list paints its new row.
#include "toolkit/RowList.h"

#include "core/Dichiarazioni.h"
#include "core/Shell.h"

#include <QKeyEvent>
#include <QMouseEvent>

#include <algorithm>

namespace
{

bool isStep(int key) { return key == Qt::Key_Down || key == Qt::Key_Up; }

/// Keys that choose a row even when the row stays the same.
bool choosesRow(int key)
{
    switch (key) {
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_Home:
    case Qt::Key_End:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
    case Qt::Key_Space:
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return true;
    default:
        return false;
    }
}

} // namespace

RowList::RowList(QWidget* parent, const QString& name) : QListWidget(parent)
{
    setObjectName(name);
    setUniformItemSizes(true);
    setEditTriggers(NoEditTriggers);
    setContextMenuPolicy(Qt::NoContextMenu);
    setDragDropMode(NoDragDrop);
}

void RowList::select(int row) { setCurrentRow(row, QItemSelectionModel::ClearAndSelect); }

std::string RowList::rowText(int row) const
{
    const QListWidgetItem* rowItem = item(row);
    return rowItem ? rowItem->text().toLatin1().toStdString() : std::string();
}

void RowList::setRows(const QStringList& rows)
{
    clear();
    addItems(rows);
}

/// Without a chosen row the keys stand on the first one, and the first step takes that one and not the second.
bool RowList::chooseFirst()
{
    if (count() == 0 || !selectedItems().isEmpty())
        return false;
    select(std::max(0, currentRow()));
    tellClick();
    return true;
}

void RowList::step(int rows)
{
    if (!isEnabled() || chooseFirst())
        return;
    const int row = std::clamp(currentRow() + rows, 0, count() - 1);
    if (count() == 0 || row == currentRow())
        return;
    select(row);
    scrollToItem(item(row));
    tellClick();
}

void RowList::tellClick()
{
    if (click_ && currentRow() >= 0)
        click_();
}

void RowList::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton) {
        event->ignore();
        return;
    }
    QListWidget::mousePressEvent(event);
    const QModelIndex index = indexAt(event->position().toPoint());
    pressedRow_ = index.isValid() ? index.row() : -1;
    pressing_ = true;
    if (pressedRow_ >= 0)
        tellClick();
}

void RowList::mouseDoubleClickEvent(QMouseEvent* event)
{
    // The second of two fast presses: a click like any other, and then the double click when the row is the same.
    const int before = pressedRow_;
    const QPointer<RowList> self(this);
    mousePressEvent(event);
    if (self && event->button() == Qt::LeftButton && pressedRow_ >= 0 && pressedRow_ == before && doubleClick_)
        doubleClick_();
}

void RowList::mouseReleaseEvent(QMouseEvent* event)
{
    QListWidget::mouseReleaseEvent(event);
    if (event->button() != Qt::LeftButton || !pressing_)
        return;
    pressing_ = false;
    // A press drawn on to another row has chosen that row.
    if (pressedRow_ >= 0 && currentRow() != pressedRow_ && currentRow() >= 0) {
        pressedRow_ = currentRow();
        tellClick();
    }
}

/// Where several rows can be chosen, Ctrl with the arrows stays the list's own: it goes over rows without choosing
/// them, and Ctrl with the blank adds one.
bool RowList::event(QEvent* event)
{
    if (event->type() == QEvent::ShortcutOverride && selectionMode() == ExtendedSelection) {
        const auto* key = static_cast<const QKeyEvent*>(event);
        if (key->modifiers() == Qt::ControlModifier && isStep(key->key())) {
            event->accept();
            return true;
        }
    }
    return QListWidget::event(event);
}

void RowList::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Delete && event->modifiers() == Qt::NoModifier) {
        event->accept();
        if (delete_)
            delete_();
        return;
    }
    if (event->matches(QKeySequence::Copy)) { // the list's own copy would fill the desktop's clipboard
        event->ignore();
        return;
    }
    const bool fromFirst = choosesRow(event->key()) && event->key() != Qt::Key_End && event->key() != Qt::Key_PageDown;
    if (fromFirst && event->modifiers() == Qt::NoModifier && currentRow() <= 0 && chooseFirst())
        return;
    const int before = currentRow();
    QListWidget::keyPressEvent(event);
    const bool chosen = currentItem() && currentItem()->isSelected();
    if (chosen && (currentRow() != before || choosesRow(event->key())))
        tellClick();
    else if (App.shell)
        App.shell->MenuSync(); // no click, but the edit menu follows the selection
}
