// The dark glass of the panel, on which labels and drawings stand, and the lamp beside the count of bytes.
#pragma once

#include <QFrame>
#include <QTimer>

class GlassWidget final : public QFrame
{
public:
    /// Labels on it take its colours.
    explicit GlassWidget(QWidget* parent);

protected:
    void paintEvent(QPaintEvent* event) override;
};

/// A round lamp that lights up for a moment.
class LampWidget final : public QWidget
{
public:
    explicit LampWidget(QWidget* parent);

    void flash();
    bool lit() const { return off_.isActive(); }

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QTimer off_;
};
