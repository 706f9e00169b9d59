// The descriptions stand beside their widgets as children of them; the toolkit asks for one by the widget.
#include "toolkit/QtSpoken.h"

#include <QAccessibleWidget>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QSlider>

namespace
{

class SpokenWidget : public QAccessibleWidget
{
public:
    SpokenWidget(QWidget* widget, const Spoken& spoken) : QAccessibleWidget(widget, spoken.role), spoken_(spoken) {}

    QString text(QAccessible::Text which) const override
    {
        if (which == QAccessible::Value && spoken_.value)
            return spoken_.value();
        return QAccessibleWidget::text(which);
    }
    QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        if (spoken_.adjust)
            spoken_.adjust(state);
        return state;
    }
    QStringList actionNames() const override
    {
        return spoken_.press && widget()->isEnabled() ? QStringList{pressAction()} : QStringList();
    }
    void doAction(const QString& action) override
    {
        if (action == pressAction() && spoken_.press && widget()->isEnabled())
            spoken_.press();
    }
    QAccessibleInterface* focusChild() const override
    {
        QWidget* part = spoken_.focused ? spoken_.focused() : nullptr;
        return part ? QAccessible::queryAccessibleInterface(part) : QAccessibleWidget::focusChild();
    }

private:
    const Spoken spoken_;
};

/// A slider as the toolkit describes it, with the shown value as its text.
class SpokenFader final : public QAccessibleWidget, public QAccessibleValueInterface
{
public:
    SpokenFader(QSlider* fader, const std::function<QString()>& shown)
        : QAccessibleWidget(fader, QAccessible::Slider), shown_(shown)
    {
    }

    void* interface_cast(QAccessible::InterfaceType type) override
    {
        return type == QAccessible::ValueInterface ? static_cast<QAccessibleValueInterface*>(this)
                                                   : QAccessibleWidget::interface_cast(type);
    }
    QString text(QAccessible::Text which) const override
    {
        const bool ownDescription = which == QAccessible::Description && widget()->accessibleDescription().isEmpty();
        return which == QAccessible::Value || ownDescription ? shown_() : QAccessibleWidget::text(which);
    }
    QVariant currentValue() const override { return fader() ? fader()->value() : 0; }
    void setCurrentValue(const QVariant& value) override
    {
        if (fader())
            fader()->setValue(value.toInt());
    }
    QVariant maximumValue() const override { return fader() ? fader()->maximum() : 0; }
    QVariant minimumValue() const override { return fader() ? fader()->minimum() : 0; }
    QVariant minimumStepSize() const override { return fader() ? fader()->singleStep() : 0; }

private:
    /// None when the widget is about to go.
    QSlider* fader() const { return qobject_cast<QSlider*>(object()); }

    const std::function<QString()> shown_;
};

/// A description, kept beside the widget that it is of.
class Description : public QObject
{
public:
    using QObject::QObject;
    virtual QAccessibleInterface* make(QWidget* widget) const = 0;
};

class WidgetDescription final : public Description
{
public:
    WidgetDescription(QWidget* widget, Spoken spoken) : Description(widget), spoken_(std::move(spoken)) {}
    QAccessibleInterface* make(QWidget* widget) const override { return new SpokenWidget(widget, spoken_); }

private:
    Spoken spoken_;
};

class FaderDescription final : public Description
{
public:
    FaderDescription(QSlider* fader, std::function<QString()> shown) : Description(fader), shown_(std::move(shown)) {}
    QAccessibleInterface* make(QWidget* widget) const override
    {
        // Who asks while the fader goes finds what is left of it, which is none any more.
        auto* fader = qobject_cast<QSlider*>(widget);
        return fader != nullptr ? new SpokenFader(fader, shown_) : nullptr;
    }

private:
    std::function<QString()> shown_;
};

QAccessibleInterface* describe(const QString&, QObject* object)
{
    if (!object->isWidgetType())
        return nullptr;
    for (QObject* child : object->children())
        if (const auto* description = dynamic_cast<const Description*>(child))
            return description->make(static_cast<QWidget*>(object));
    return nullptr;
}

/// A widget that was named before has a description by the toolkit already, which gives way.
void offerDescription(QWidget* widget)
{
    static const bool installed = (QAccessible::installFactory(&describe), true);
    static_cast<void>(installed);
    if (QAccessibleInterface* before = QAccessible::queryAccessibleInterface(widget))
        QAccessible::deleteAccessibleInterface(QAccessible::uniqueId(before));
}

/// What a label or a field shows for as long as it is there.
template <typename Control>
std::function<QString()> textOf(const Control* shown)
{
    return [shown = QPointer<const Control>(shown)] { return shown ? shown->text().trimmed() : QString(); };
}

void tell(QAccessibleEvent&& event) { QAccessible::updateAccessibility(&event); }

} // namespace

void speakAs(QWidget* widget, Spoken spoken)
{
    new WidgetDescription(widget, std::move(spoken));
    offerDescription(widget);
}

void speakFader(QSlider* fader, const QLabel* shown)
{
    new FaderDescription(fader, textOf(shown));
    offerDescription(fader);
}

void speakFader(QSlider* fader, const QLineEdit* shown)
{
    new FaderDescription(fader, textOf(shown));
    offerDescription(fader);
}

void tellState(QWidget* widget, QAccessible::State changed)
{
    if (QAccessible::isActive())
        tell(QAccessibleStateChangeEvent(widget, changed));
}

void tellFocus(QWidget* widget)
{
    if (QAccessible::isActive())
        tell(QAccessibleEvent(widget, QAccessible::Focus));
}

void tellValue(QWidget* widget, const QString& value)
{
    if (QAccessible::isActive())
        tell(QAccessibleValueChangeEvent(widget, value));
}
