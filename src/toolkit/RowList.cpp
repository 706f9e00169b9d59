// From Qt's mouse and key events to one click for each act of the user. The click runs inside the event: what it sends
// is on the wire before the list paints its new row.
#include "toolkit/RowList.h"

#include "core/Dichiarazioni.h"
#include "core/Shell.h"

#include <QKeyEvent>
#include <QMouseEvent>

namespace
{

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
    const int before = currentRow();
    QListWidget::keyPressEvent(event);
    if (currentRow() != before || choosesRow(event->key()))
        tellClick();
    else if (event->matches(QKeySequence::SelectAll) && App.shell)
        App.shell->MenuSync(); // no click, but the edit menu follows the selection
}
