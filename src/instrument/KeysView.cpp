// Painting the keyboard: white keys side by side, black keys over their joints, as the keyboard window has them.
#include "instrument/KeysView.h"

#include "instrument/QtInstrumentColours.h"

#include <QPainter>

namespace
{

constexpr qreal BlackWidth = 0.62;  ///< of a white key's
constexpr qreal BlackHeight = 0.64; ///< of the keyboard's
constexpr qreal Corner = 2;
constexpr int NotesInAnOctave = 12;
const QColor WhiteKey(0xFA, 0xFA, 0xF7);
const QColor WhiteLip(0xDD, 0xE0, 0xE4);
const QColor BlackKey(0x1C, 0x1E, 0x22);
const QColor LitKey(0x3F, 0xC0, 0x8C);
const QColor OctaveSign(0x5A, 0x60, 0x66);

bool isBlack(int note)
{
    const int step = note % NotesInAnOctave;
    return step == 1 || step == 3 || step == 6 || step == 8 || step == 10;
}

int whiteCount(int below)
{
    int count = 0;
    for (int note = KeysView::LowestNote; note < below; ++note)
        count += isBlack(note) ? 0 : 1;
    return count;
}

} // namespace

KeysView::KeysView(QWidget* parent) : QWidget(parent) { setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed); }

void KeysView::show(const std::array<bool, 128>& sounding)
{
    if (sounding == sounding_)
        return;
    sounding_ = sounding;
    update();
}

QSize KeysView::sizeHint() const { return {12 * whiteCount(HighestNote + 1), 64}; }

QSize KeysView::minimumSizeHint() const { return {5 * whiteCount(HighestNote + 1), 48}; }

void KeysView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(InstrumentColours::Well);
    painter.drawRoundedRect(QRectF(rect()), Corner, Corner);
    for (int note = LowestNote; note <= HighestNote; ++note)
        if (!isBlack(note))
            paintWhite(painter, note);
    for (int note = LowestNote; note <= HighestNote; ++note)
        if (isBlack(note))
            paintBlack(painter, note);
}

void KeysView::paintWhite(QPainter& painter, int note) const
{
    const bool lit = sounding_[static_cast<std::size_t>(note)];
    const qreal pitch = (width() - 1) / qreal(whiteCount(HighestNote + 1));
    const QRectF key(1 + whiteCount(note) * pitch, 1, pitch - 1, height() - 2);
    painter.setPen(Qt::NoPen);
    painter.setBrush(lit ? LitKey.darker(115) : WhiteLip);
    painter.drawRoundedRect(key, Corner, Corner);
    painter.setBrush(lit ? LitKey : WhiteKey);
    painter.drawRoundedRect(key.adjusted(0, 0, 0, -3), Corner, Corner);
    if (note % NotesInAnOctave != 0 || pitch < fontMetrics().horizontalAdvance(QLatin1String("C")))
        return;
    QFont small = font();
    small.setPointSizeF(small.pointSizeF() * 0.75);
    painter.setFont(small);
    painter.setPen(lit ? QColor(Qt::black) : OctaveSign);
    painter.drawText(key.adjusted(-2, 0, 2, -4), Qt::AlignHCenter | Qt::AlignBottom, QStringLiteral("C"));
}

void KeysView::paintBlack(QPainter& painter, int note) const
{
    const qreal pitch = (width() - 1) / qreal(whiteCount(HighestNote + 1));
    const qreal keyWidth = pitch * BlackWidth;
    const QRectF key(0.5 + whiteCount(note) * pitch - keyWidth / 2, 0, keyWidth, height() * BlackHeight);
    painter.setPen(Qt::NoPen);
    painter.setBrush(BlackKey);
    painter.drawRoundedRect(key, Corner, Corner);
    if (!sounding_[static_cast<std::size_t>(note)])
        return;
    painter.setBrush(LitKey);
    painter.drawRoundedRect(key.adjusted(1, 0, -1, -1), Corner, Corner);
}
