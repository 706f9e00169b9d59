// Two pieces a row, cut at the tab.
#include "database/QtDBArrRows.h"

#include "toolkit/QtLooks.h"

#include <QApplication>
#include <QPainter>

namespace
{

constexpr int Edge = 6; ///< pixels beside and between the columns
constexpr const char* WidestNumber = "0000";

} // namespace

int QtDBArrRows::numberEnd(const QFontMetrics& metrics)
{
    return Edge + metrics.horizontalAdvance(QLatin1String(WidestNumber));
}

int QtDBArrRows::nameBegin(const QFontMetrics& metrics) { return numberEnd(metrics) + 2 * Edge; }

void QtDBArrRows::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    QStyleOptionViewItem row = option;
    initStyleOption(&row, index);
    const QString text = row.text;
    const int tab = static_cast<int>(text.indexOf(QLatin1Char('\t')));
    row.text.clear();
    const QStyle* style = row.widget ? row.widget->style() : QApplication::style();
    style->drawControl(QStyle::CE_ItemViewItem, &row, painter, row.widget);

    painter->setFont(row.font);
    painter->setPen(Looks::wordsOf(row));
    QRect place = row.rect;
    place.setWidth(numberEnd(row.fontMetrics));
    painter->drawText(place, Qt::AlignRight | Qt::AlignVCenter | Qt::TextSingleLine, text.left(tab));
    place = row.rect.adjusted(nameBegin(row.fontMetrics), 0, -Edge, 0);
    painter->drawText(place, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                      row.fontMetrics.elidedText(text.mid(tab + 1), Qt::ElideRight, place.width()));
}
