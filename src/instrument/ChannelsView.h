// The sixteen channels as a mixer shows them: number, level, place between left and right, a light while notes sound,
// and what is selected.
#pragma once

#include "instrument/InstrumentGlance.h"

#include <QWidget>

class ChannelsView final : public QWidget
{
public:
    explicit ChannelsView(QWidget* parent);

    void show(const InstrumentGlance::Channels& channels);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    bool event(QEvent* event) override;

private:
    QRectF strip(int channel) const;
    void paintStrip(QPainter& painter, int channel) const;
    void paintLevel(QPainter& painter, const InstrumentGlance::Channel& channel, const QRectF& well) const;

    InstrumentGlance::Channels channels_{};
};
