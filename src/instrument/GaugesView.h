// How full the instrument's memory is: a bar for each kind of user data, its count beside its caption.
#pragma once

#include "instrument/InstrumentGlance.h"

#include <QWidget>

class GaugesView final : public QWidget
{
public:
    explicit GaugesView(QWidget* parent);

    void show(const std::array<InstrumentGlance::Held, InstrumentGlance::HeldKinds>& held);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    std::array<InstrumentGlance::Held, InstrumentGlance::HeldKinds> held_{};
};
