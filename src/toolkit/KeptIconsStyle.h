// A style that hands out each of the desktop's icons as one and the same. The toolkit makes them anew for every file
// dialog and remembers what it drew of each by the number of its picture: those numbers it never gives back.
#pragma once

#include <QHash>
#include <QIcon>
#include <QProxyStyle>

class KeptIconsStyle : public QProxyStyle
{
public:
    KeptIconsStyle();
    QIcon standardIcon(StandardPixmap which, const QStyleOption* option, const QWidget* widget) const override;
    /// The file list's header has an empty picture that makes room above the files' icons, a new one at each painting:
    /// it is drawn as one that is kept.
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;

private:
    mutable QHash<StandardPixmap, QIcon> icons_;
    QIcon room_;
};
