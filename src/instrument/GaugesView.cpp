// Four gauges side by side, equal in width.
#include "instrument/GaugesView.h"

#include "core/Strings.h"
#include "instrument/QtInstrumentColours.h"

#include <QPainter>
#include <QStringList>

namespace
{

constexpr int Gap = 16;      ///< pixels between two gauges
constexpr int BarHeight = 6; ///< pixels
constexpr int BarGap = 4;    ///< between text and bar
constexpr const char* WidestCount = "64 / 64";

QString captionOf(const InstrumentGlance::Held& held) { return QString::fromUtf8(ResText(held.captionId).c_str()); }

QString countOf(const InstrumentGlance::Held& held)
{
    return QStringLiteral("%1 / %2").arg(held.used).arg(held.places);
}

} // namespace

GaugesView::GaugesView(QWidget* parent) : QWidget(parent) { setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed); }

void GaugesView::show(const std::array<InstrumentGlance::Held, InstrumentGlance::HeldKinds>& held)
{
    if (held == held_)
        return;
    const bool captions = held_[0].captionId == held[0].captionId;
    held_ = held;
    QStringList spoken;
    for (const auto& one : held_)
        spoken << captionOf(one) + QLatin1Char(' ') + countOf(one);
    setAccessibleDescription(spoken.join(QStringLiteral(", ")));
    if (!captions)
        updateGeometry();
    update();
}

QSize GaugesView::sizeHint() const
{
    int widest = 0;
    for (const auto& one : held_)
        widest = std::max(widest, fontMetrics().horizontalAdvance(captionOf(one)));
    widest += fontMetrics().horizontalAdvance(QLatin1String(WidestCount)) + Gap;
    const int kinds = InstrumentGlance::HeldKinds;
    return {kinds * widest + (kinds - 1) * Gap, fontMetrics().height() + BarGap + BarHeight};
}

void GaugesView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const qreal pitch = (width() + Gap) / qreal(InstrumentGlance::HeldKinds);
    for (std::size_t kind = 0; kind < held_.size(); ++kind) {
        const auto& one = held_[kind];
        const QRectF text(static_cast<qreal>(kind) * pitch, 0, pitch - Gap, fontMetrics().height());
        painter.setPen(InstrumentColours::Faint);
        painter.drawText(text, Qt::AlignLeft | Qt::AlignVCenter, captionOf(one));
        painter.setPen(InstrumentColours::Sign);
        painter.drawText(text, Qt::AlignRight | Qt::AlignVCenter, countOf(one));
        QRectF bar(text.left(), text.bottom() + BarGap, text.width(), BarHeight);
        painter.setPen(Qt::NoPen);
        painter.setBrush(InstrumentColours::Well);
        painter.drawRoundedRect(bar, BarHeight / 2.0, BarHeight / 2.0);
        if (one.used == 0 || one.places == 0)
            continue;
        bar.setWidth(std::max<qreal>(BarHeight, bar.width() * one.used / one.places));
        painter.setBrush(InstrumentColours::Sign);
        painter.drawRoundedRect(bar, BarHeight / 2.0, BarHeight / 2.0);
    }
}
