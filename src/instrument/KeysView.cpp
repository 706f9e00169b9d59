// Painting the keyboard: white keys side by side, black keys over their joints.
#include "instrument/KeysView.h"

#include <QPainter>

namespace
{

constexpr int BlackWidthPercent = 60;
constexpr int BlackHeightPercent = 60;
const QColor WhiteKey(0xFA, 0xFA, 0xF7);
const QColor BlackKey(0x26, 0x28, 0x2C);
const QColor Border(0x8A, 0x8D, 0x92);
const QColor Lit(0x1F, 0x9D, 0x55);

bool isBlack(int note)
{
    const int step = note % 12;
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
    const double width = (this->width() - 1.0) / whiteCount(HighestNote + 1);
    const double height = this->height() - 1.0;
    painter.setPen(Border);
    for (int note = LowestNote; note <= HighestNote; ++note) {
        if (isBlack(note))
            continue;
        painter.setBrush(sounding_[static_cast<std::size_t>(note)] ? Lit : WhiteKey);
        painter.drawRect(QRectF(whiteCount(note) * width, 0, width, height));
    }
    const double blackWidth = width * BlackWidthPercent / 100;
    for (int note = LowestNote; note <= HighestNote; ++note) {
        if (!isBlack(note))
            continue;
        painter.setBrush(sounding_[static_cast<std::size_t>(note)] ? Lit : BlackKey);
        painter.drawRect(
            QRectF(whiteCount(note) * width - blackWidth / 2, 0, blackWidth, height * BlackHeightPercent / 100));
    }
}
