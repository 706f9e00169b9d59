// Measuring contrast, and moving colours until they have it.
#include "toolkit/QtLooks.h"

#include <QFontDatabase>
#include <QPushButton>
#include <QStyleOptionViewItem>
#include <QTabWidget>
#include <QWidget>

#include <algorithm>
#include <cmath>

namespace
{

constexpr const char* ListFace = "Arial";
constexpr qreal ListPointSize = 10;
constexpr int Steps = 20; ///< from one colour to another

/// Of light that a part of a colour sends out, 0 to 1.
qreal linear(qreal part) { return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4); }

qreal luminance(const QColor& colour)
{
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) + 0.0722 * linear(colour.blueF());
}

QColor between(const QColor& from, const QColor& to, int step)
{
    const auto part = [step](int a, int b) { return a + (b - a) * step / Steps; };
    return {part(from.red(), to.red()), part(from.green(), to.green()), part(from.blue(), to.blue())};
}

} // namespace

QFont Looks::listFont(const QWidget* window)
{
    QFont font(QLatin1String(ListFace), -1, QFont::Normal);
    font.setPointSizeF(std::max(ListPointSize, window->font().pointSizeF()));
    return font;
}

QFont Looks::fixedFont(const QWidget* window)
{
    QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    font.setPointSizeF(std::max(font.pointSizeF(), window->font().pointSizeF()));
    return font;
}

qreal Looks::contrast(const QColor& one, const QColor& other)
{
    const qreal a = luminance(one);
    const qreal b = luminance(other);
    return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}

QColor Looks::onTheWay(const QColor& from, const QColor& to, const QColor& ground, qreal wanted)
{
    for (int step = 0; step < Steps; ++step)
        if (const QColor colour = between(from, to, step); contrast(colour, ground) >= wanted)
            return colour;
    return to;
}

QColor Looks::accentOn(const QPalette& palette, const QColor& ground)
{
    return onTheWay(palette.color(QPalette::Active, QPalette::Highlight), Qt::white, ground, DrawingContrast);
}

QPalette Looks::readable(QPalette palette)
{
    for (const auto group : {QPalette::Active, QPalette::Inactive}) {
        const QColor accent = palette.color(group, QPalette::Highlight);
        const QColor words = palette.color(group, QPalette::HighlightedText);
        if (contrast(accent, words) >= TextContrast)
            continue;
        const QColor away = luminance(words) > luminance(accent) ? Qt::black : Qt::white;
        palette.setColor(group, QPalette::Highlight, onTheWay(accent, away, words, TextContrast));
    }
    return palette;
}

QColor Looks::wordsOf(const QStyleOptionViewItem& row)
{
    const auto active = row.state & QStyle::State_Active ? QPalette::Active : QPalette::Inactive;
    return row.palette.color(row.state & QStyle::State_Enabled ? active : QPalette::Disabled,
                             row.state & QStyle::State_Selected ? QPalette::HighlightedText : QPalette::Text);
}

QTabWidget* Looks::makePages(QWidget* content)
{
    constexpr qreal SmallestPointSize = 8;
    constexpr qreal OfTheDesktops = 0.9;
    QFont font = content->font();
    font.setPointSizeF(std::max(SmallestPointSize, font.pointSizeF() * OfTheDesktops));
    content->setFont(font);
    auto* pages = new QTabWidget(content);
    pages->setObjectName(QStringLiteral("SSTab1"));
    return pages;
}

QPushButton* Looks::makeButton(QWidget* parent, const char* name, const QString& caption)
{
    auto* button = new QPushButton(caption, parent);
    button->setObjectName(QLatin1String(name));
    return button;
}
