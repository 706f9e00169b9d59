// Painting glass and lamp.
#include "instrument/GlassWidget.h"

#include "instrument/QtInstrumentColours.h"

#include <QPainter>

namespace
{

constexpr qreal Corner = 6;
constexpr int LitFor = 150; ///< milliseconds

} // namespace

GlassWidget::GlassWidget(QWidget* parent) : QFrame(parent)
{
    QPalette colours = palette();
    for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        colours.setColor(group, QPalette::Window, InstrumentColours::Glass);
        colours.setColor(group, QPalette::WindowText, InstrumentColours::Sign);
    }
    setPalette(colours);
}

void GlassWidget::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(InstrumentColours::GlassEdge);
    painter.setBrush(InstrumentColours::Glass);
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), Corner, Corner);
}

LampWidget::LampWidget(QWidget* parent) : QWidget(parent)
{
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    off_.setSingleShot(true);
    off_.setInterval(LitFor);
    connect(&off_, &QTimer::timeout, this, [this] { update(); });
}

void LampWidget::flash()
{
    const bool before = lit();
    off_.start();
    if (!before)
        update();
}

QSize LampWidget::sizeHint() const
{
    const int side = fontMetrics().height() * 3 / 4;
    return {side, side};
}

void LampWidget::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(InstrumentColours::GlassEdge);
    painter.setBrush(lit() ? InstrumentColours::Sign : InstrumentColours::Well);
    painter.drawEllipse(QRectF(rect()).adjusted(1, 1, -1, -1));
}
