// From top to bottom of a strip: its number in a lamp, the level bar, the pan mark, the selection.
#include "instrument/ChannelsView.h"

#include "instrument/QtInstrumentColours.h"
#include "toolkit/QtPlainTip.h"

#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

#include <algorithm>

namespace
{

constexpr int Gap = 6; ///< pixels between strips, and between the pieces of one
constexpr int LevelHeight = 56;
constexpr int LevelWidth = 12;
constexpr int PanHeight = 4;
constexpr int Highest = 127;
constexpr const char* NarrowestSelection = "A 88";
constexpr const char* UsualSelection = "A 88 Name";

QString textOf(const std::string& utf8) { return QString::fromUtf8(utf8.c_str()); }

/// As many whole words as there is room for: "13 Sabato Sera", "13 Sabato", "13".
QString wholeWords(QString text, const QFontMetrics& metrics, qreal room)
{
    while (metrics.horizontalAdvance(text) > room && text.contains(QLatin1Char(' ')))
        text.truncate(text.lastIndexOf(QLatin1Char(' ')));
    return text;
}

} // namespace

ChannelsView::ChannelsView(QWidget* parent) : QWidget(parent)
{
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void ChannelsView::show(const InstrumentGlance::Channels& channels)
{
    if (channels == channels_)
        return;
    channels_ = channels;
    update();
}

QSize ChannelsView::sizeHint() const
{
    const int strip = fontMetrics().horizontalAdvance(QLatin1String(UsualSelection)) + Gap;
    return {strip * VirtualInstrument::ChannelCount, minimumSizeHint().height()};
}

QSize ChannelsView::minimumSizeHint() const
{
    const int strip = fontMetrics().horizontalAdvance(QLatin1String(NarrowestSelection)) + Gap;
    return {strip * VirtualInstrument::ChannelCount,
            2 * (fontMetrics().height() + Gap) + LevelHeight + Gap / 2 + PanHeight};
}

QRectF ChannelsView::strip(int channel) const
{
    const qreal pitch = (width() + Gap) / qreal(VirtualInstrument::ChannelCount);
    return {channel * pitch, 0, pitch - Gap, qreal(height())};
}

void ChannelsView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    for (int channel = 0; channel < VirtualInstrument::ChannelCount; ++channel)
        paintStrip(painter, channel);
}

void ChannelsView::paintStrip(QPainter& painter, int channel) const
{
    const InstrumentGlance::Channel& one = channels_[static_cast<std::size_t>(channel)];
    const QRectF place = strip(channel);
    const int line = fontMetrics().height();

    // The number stands in a light while something sounds.
    QRectF number(place.left(), 0, place.width(), line);
    if (one.velocity > 0) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(InstrumentColours::Sign);
        painter.drawRoundedRect(number, 3, 3);
    }
    QFont words = font();
    words.setBold(one.global);
    painter.setFont(words);
    painter.setPen(one.velocity > 0 ? InstrumentColours::Glass
                   : one.used       ? InstrumentColours::Sign
                                    : InstrumentColours::Faint);
    painter.drawText(number, Qt::AlignCenter, QString::number(channel + 1));

    const QRectF well(place.center().x() - LevelWidth / 2.0, line + Gap, LevelWidth, LevelHeight);
    paintLevel(painter, one, well);

    QRectF pan(place.left() + Gap, well.bottom() + Gap / 2.0, place.width() - 2 * Gap, PanHeight);
    painter.setPen(Qt::NoPen);
    painter.setBrush(InstrumentColours::Well);
    painter.drawRoundedRect(pan, PanHeight / 2.0, PanHeight / 2.0);
    if (one.pan >= 0) {
        painter.setBrush(InstrumentColours::Sign);
        painter.drawEllipse(QPointF(pan.left() + pan.width() * one.pan / Highest, pan.center().y()), PanHeight,
                            PanHeight);
    }
    const QRectF selection(place.left(), height() - line, place.width(), line);
    painter.setFont(font());
    painter.setPen(InstrumentColours::Faint);
    painter.drawText(selection, Qt::AlignCenter, wholeWords(textOf(one.selection), fontMetrics(), selection.width()));
}

void ChannelsView::paintLevel(QPainter& painter, const InstrumentGlance::Channel& channel, const QRectF& well) const
{
    painter.setPen(Qt::NoPen);
    painter.setBrush(InstrumentColours::Well);
    painter.drawRoundedRect(well, 2, 2);
    if (channel.level <= 0)
        return;
    const qreal height = well.height() * channel.level / Highest;
    painter.setBrush(channel.velocity > 0 ? InstrumentColours::Sign : InstrumentColours::Faint);
    painter.drawRoundedRect(QRectF(well.left(), well.bottom() - height, well.width(), height), 2, 2);
}

bool ChannelsView::event(QEvent* event)
{
    if (event->type() != QEvent::ToolTip)
        return QWidget::event(event);
    const auto* help = static_cast<QHelpEvent*>(event);
    for (int channel = 0; channel < VirtualInstrument::ChannelCount; ++channel)
        if (strip(channel).contains(help->pos())) {
            const auto& shown = channels_[static_cast<std::size_t>(channel)];
            QToolTip::showText(help->globalPos(), plainTip(textOf(shown.selection)), this);
            return true;
        }
    QToolTip::hideText();
    return true;
}
