// The panel keeps its proportions: what the window has more in one direction stays empty around it.
#include "keyboard/TwipsPanelWidget.h"

#include "toolkit/Twips.h"

#include <QApplication>
#include <QMouseEvent>

#include <algorithm>

namespace
{

constexpr int Inch = 1440;

// Larger than this the panel grows; a few pixels of a narrower window frame leave it as it is, for those of a wider one
// it gives way.
constexpr qreal WorthGrowing = 1.05;
constexpr qreal Smallest = 0.96;
/// A desktop's type from which on the panel is at least as much larger, and scrolled; points.
constexpr qreal LargeType = 15;

qreal leastFactor() { return Smallest * std::max<qreal>(1, QApplication::font().pointSizeF() / LargeType); }

int pixelsX(int twips, qreal factor) { return qRound(twips * factor * twipsToPixelsX(Inch) / Inch); }
int pixelsY(int twips, qreal factor) { return qRound(twips * factor * twipsToPixelsY(Inch) / Inch); }

} // namespace

TwipsPanelWidget::TwipsPanelWidget(int width, int height, qreal pointSize, QWidget* parent)
    : QWidget(parent), width_(width), height_(height), pointSize_(pointSize)
{
    setMinimumSize(atFactor(leastFactor()));
    showWords();
    setMouseTracking(true);
}

QSize TwipsPanelWidget::atFactor(qreal factor) const { return {pixelsX(width_, factor), pixelsY(height_, factor)}; }

void TwipsPanelWidget::put(const Placed& placed)
{
    placed_.push_back(placed);
    show(placed);
    showWords(placed);
}

void TwipsPanelWidget::moveTo(QWidget* control, int left, int top)
{
    for (Placed& placed : placed_)
        if (placed.control == control) {
            placed.twips.left = left;
            placed.twips.top = top;
            show(placed);
        }
}

void TwipsPanelWidget::show(const Placed& placed)
{
    const TwipsRect& twips = placed.twips;
    const QSize room = factor_ > 1 ? size() - atFactor(factor_) : QSize();
    const QPoint origin(std::max(0, room.width() / 2), std::max(0, room.height() / 2));
    const QPoint corner(pixelsX(twips.left, factor_), pixelsY(twips.top, factor_));
    const QPoint behind(pixelsX(twips.left + twips.width, factor_), pixelsY(twips.top + twips.height, factor_));
    placed.control->setGeometry(QRect(origin + corner, origin + behind - QPoint(1, 1)));
}

void TwipsPanelWidget::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    const QSize whole = atFactor(1);
    const qreal fits = std::min(width() / qreal(whole.width()), height() / qreal(whole.height()));
    const qreal factor =
        fits > WorthGrowing ? fits : std::clamp<qreal>(fits, leastFactor(), std::max<qreal>(1, leastFactor()));
    if (factor != factor_) {
        factor_ = factor;
        showWords();
    }
    for (const Placed& placed : placed_)
        show(placed);
}

void TwipsPanelWidget::showWords()
{
    QFont words = font();
    words.setPointSizeF(pointSize_ * factor_);
    setFont(words);
    for (const Placed& placed : placed_)
        showWords(placed);
}

void TwipsPanelWidget::showWords(const Placed& placed)
{
    if (placed.words == 1)
        return; // the panel's own words are inherited
    QFont words = font();
    words.setPointSizeF(pointSize_ * factor_ * placed.words);
    placed.control->setFont(words);
}

void TwipsPanelWidget::mouseMoveEvent(QMouseEvent* event)
{
    QWidget::mouseMoveEvent(event);
    if (mouseMove)
        mouseMove();
}
