// Paints the rows of the database's list in two columns: the number, its digits one under the other, and the file's
// name. The row's text stays as it is, number, tab, name.
#pragma once

#include <QStyledItemDelegate>

class QtDBArrRows final : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    /// Pixels from the list's left edge to the right end of the numbers, and to the names: where the headings stand.
    static int numberEnd(const QFontMetrics& metrics);
    static int nameBegin(const QFontMetrics& metrics);

protected:
    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
};
