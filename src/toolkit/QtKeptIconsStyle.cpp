// Icons of the desktop and the empty picture of the file list's header, each made once.
#include "toolkit/KeptIconsStyle.h"

#include <QPixmap>
#include <QStyleOptionHeader>

namespace
{

constexpr QSize Room(16, 1); ///< as the toolkit makes it

} // namespace

KeptIconsStyle::KeptIconsStyle()
{
    QPixmap empty(Room);
    empty.fill(Qt::transparent);
    room_ = QIcon(empty);
}

QIcon KeptIconsStyle::standardIcon(StandardPixmap which, const QStyleOption* option, const QWidget* widget) const
{
    auto known = icons_.constFind(which);
    if (known == icons_.constEnd())
        known = icons_.insert(which, QProxyStyle::standardIcon(which, option, widget));
    return *known;
}

void KeptIconsStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                                 const QWidget* widget) const
{
    const auto* header = qstyleoption_cast<const QStyleOptionHeader*>(option);
    if (element != CE_HeaderLabel || !header || header->icon.availableSizes() != QList<QSize>{Room}) {
        QProxyStyle::drawControl(element, option, painter, widget);
        return;
    }
    QStyleOptionHeader withKept(*header);
    withKept.icon = room_;
    QProxyStyle::drawControl(element, &withKept, painter, widget);
}
