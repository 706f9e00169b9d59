// A panel whose controls stand at places given in twips and grow with it: places, sizes and words by one factor.
#pragma once

#include "keyboard/KeyGeometry.h"

#include <QWidget>
#include <functional>
#include <vector>

class TwipsPanelWidget final : public QWidget
{
public:
    /// `width` and `height` are the panel's own twips, laid out for words of `pointSize`, whatever the desktop's font:
    /// the whole panel is seen in a window of its own size.
    TwipsPanelWidget(int width, int height, qreal pointSize, QWidget* parent);

    /// `words` is the size of the control's words beside the panel's.
    template <typename Control>
    Control* place(Control* control, const TwipsRect& twips, qreal words = 1)
    {
        put({control, twips, words});
        return control;
    }
    void moveTo(QWidget* control, int left, int top);

    std::function<void()> mouseMove; ///< over the panel itself

protected:
    void resizeEvent(QResizeEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;

private:
    struct Placed {
        QWidget* control;
        TwipsRect twips;
        qreal words;
    };
    void put(const Placed& placed);
    void show(const Placed& placed);
    void showWords();
    void showWords(const Placed& placed);
    QSize atFactor(qreal factor) const;

    int width_;
    int height_;
    qreal pointSize_;
    qreal factor_ = 1;
    std::vector<Placed> placed_;
};
