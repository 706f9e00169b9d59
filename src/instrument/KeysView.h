// A drawn keyboard on which the sounding keys are lit. It only shows: nothing can be played on it.
#pragma once

#include <QWidget>
#include <array>

class KeysView final : public QWidget
{
public:
    static constexpr int LowestNote = 24;   ///< C1
    static constexpr int HighestNote = 108; ///< C8

    explicit KeysView(QWidget* parent);

    /// Lights the keys whose place is true, by MIDI note; notes off the drawing are not seen here.
    void show(const std::array<bool, 128>& sounding);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void paintWhite(QPainter& painter, int note) const;
    void paintBlack(QPainter& painter, int note) const;

    std::array<bool, 128> sounding_{};
};
