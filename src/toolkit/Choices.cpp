// Combo clicks and the wheel's rule.
#include "toolkit/Choices.h"

#include <QComboBox>
#include <QEvent>
#include <QMetaObject>
#include <memory>

namespace
{

class WheelFilter final : public QObject
{
public:
    using QObject::QObject;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Wheel && !static_cast<QWidget*>(watched)->hasFocus()) {
            event->ignore();
            return true;
        }
        return QObject::eventFilter(watched, event);
    }
};

} // namespace

void onComboClick(QComboBox* combo, std::function<void(int index)> handler)
{
    // Qt tells a choice of another row twice, as a change and as an activation; the second is left out. The mark is
    // taken back in a later event, since a change made by the program has no activation behind it.
    const auto told = std::make_shared<bool>(false);
    QObject::connect(combo, &QComboBox::currentIndexChanged, combo, [combo, told, handler](int index) {
        handler(index);
        *told = true;
        QMetaObject::invokeMethod(
            combo, [told] { *told = false; }, Qt::QueuedConnection);
    });
    QObject::connect(combo, &QComboBox::activated, combo, [told, handler = std::move(handler)](int index) {
        if (!*told)
            handler(index);
        *told = false;
    });
    ignoreWheelWithoutFocus(combo);
}

void ignoreWheelWithoutFocus(QWidget* control)
{
    control->setFocusPolicy(Qt::StrongFocus);
    control->installEventFilter(new WheelFilter(control));
}
