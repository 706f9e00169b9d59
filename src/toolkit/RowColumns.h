// Paints the rows of a list in columns: code, mark and name stand one under the other also in a proportional face.
//
// The row's text stays as it is; only its pieces get places of their own.
#pragma once

#include <QStyledItemDelegate>

class RowColumns final : public QStyledItemDelegate
{
public:
    /// Lists without marks give their column to the name.
    enum class Marks { Shown, None };
    explicit RowColumns(QObject* parent, Marks marks = Marks::Shown) : QStyledItemDelegate(parent), marks_(marks) {}

protected:
    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;

private:
    void drawPieces(QPainter* painter, const QStyleOptionViewItem& row) const;

    Marks marks_;
};
