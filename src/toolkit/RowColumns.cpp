// A row is its code of two characters, two marks, and the name.
#include "toolkit/RowColumns.h"

#include "toolkit/QtLooks.h"

#include <QApplication>
#include <QPainter>

namespace
{

constexpr int CodeWidth = 2;
constexpr int MarkPlace = 3; ///< the second mark; the first is always a blank
constexpr int NamePlace = 4;

} // namespace

void RowColumns::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    QStyleOptionViewItem row = option;
    initStyleOption(&row, index);
    const QStyle* style = row.widget ? row.widget->style() : QApplication::style();
    style->drawPrimitive(QStyle::PE_PanelItemViewItem, &row, painter, row.widget);
    drawPieces(painter, row);
    if (row.state & QStyle::State_HasFocus) {
        QStyleOptionFocusRect focus;
        static_cast<QStyleOption&>(focus) = row;
        focus.type = QStyleOption::SO_FocusRect;
        focus.state |= QStyle::State_KeyboardFocusChange | QStyle::State_Item;
        focus.backgroundColor = row.palette.color(QPalette::Base);
        style->drawPrimitive(QStyle::PE_FrameFocusRect, &focus, painter, row.widget);
    }
}

void RowColumns::drawPieces(QPainter* painter, const QStyleOptionViewItem& row) const
{
    const QFontMetrics& metrics = row.fontMetrics;
    const int column = metrics.horizontalAdvance(QLatin1Char('+'));
    const int codeWidth = metrics.horizontalAdvance(QLatin1String("00")) + column / 2;
    painter->setFont(row.font);
    painter->setPen(Looks::wordsOf(row));

    QRect place = row.rect.adjusted(column / 2, 0, -column / 2, 0);
    const auto draw = [&](const QString& piece, int width) {
        if (!piece.isEmpty())
            painter->drawText(place, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, piece);
        place.setLeft(place.left() + width);
    };
    draw(row.text.left(CodeWidth), codeWidth);
    const bool marks = marks_ == Marks::Shown;
    draw(marks ? row.text.mid(MarkPlace, 1).trimmed() : QString(), marks ? column + column / 2 : column / 2);
    QString name = row.text.mid(NamePlace);
    while (name.endsWith(QLatin1Char(' ')))
        name.chop(1);
    draw(metrics.horizontalAdvance(name) <= place.width() ? name
                                                          : metrics.elidedText(name, Qt::ElideRight, place.width()),
         0);
}
