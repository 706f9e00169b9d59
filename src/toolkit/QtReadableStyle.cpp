// The desktop's own style with what it leaves hard to see made plain. Its plain one draws every outline darker than the
// window and every mark of the focus darker than the accent, which in a dark theme is black on black; it draws the
// dialogs' default button alike with and without the focus, and gives what is off a second, lighter copy of its words.
#include "toolkit/KeptIconsStyle.h"
#include "toolkit/QtLooks.h"

#include <QApplication>
#include <QHash>
#include <QPainter>
#include <QStyleOption>

#include <cmath>

namespace
{

constexpr int DarkBelow = 128;    ///< lightness of a dark window
constexpr int Darker = 140;       ///< per cent by which the plain style darkens a window's colour to an outline
constexpr int FrameLighter = 108; ///< than an outline, of the plain style's frames
constexpr int Lighter = 125;      ///< undoes what the plain style takes from the accent for a ring
constexpr qreal FocusContrast = 4.0;
constexpr qreal Corner = 2.0;
constexpr qreal Faint = 0.4; ///< of a slider that is off

bool isDark(const QPalette& palette) { return palette.color(QPalette::Window).lightness() < DarkBelow; }

/// A window's colour from which the style makes outlines that stand out.
QColor groundOfOutlines(const QPalette& palette)
{
    const QColor outline = Looks::onTheWay(palette.color(QPalette::Window), palette.color(QPalette::WindowText),
                                           palette.color(QPalette::Base), Looks::DrawingContrast);
    return outline.lighter(Darker);
}

/// The accent for the ring around what has the focus.
QColor ringColour(const QPalette& palette)
{
    return Looks::onTheWay(palette.color(QPalette::Highlight), isDark(palette) ? Qt::white : Qt::black,
                           palette.color(QPalette::Button), FocusContrast);
}

using Base = KeptIconsStyle;

class ReadableStyle final : public Base
{
public:
    using Base::polish;
    void polish(QPalette& palette) override
    {
        Base::polish(palette);
        palette = Looks::readable(palette);
    }
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* result) const override
    {
        return hint == SH_EtchDisabledText ? 0 : Base::styleHint(hint, option, widget, result);
    }
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                            const QWidget* widget) const override;

private:
    /// Only the plain style is known well enough.
    bool isPlain() const { return baseStyle()->name() == QLatin1String("fusion"); }
    bool wantsPlainLines(const QStyleOption* option) const { return isDark(option->palette) && isPlain(); }
    /// The palette with bright lines: one for all controls, since the style keeps its drawings by the palette's number.
    QPalette lined(const QPalette& palette) const;
    template <class Option>
    Option withLines(const Option& option) const
    {
        Option copy(option);
        copy.palette = lined(option.palette);
        return copy;
    }

    mutable QHash<qint64, QPalette> lined_; ///< by the number of the palette that they come from
};

QPalette ReadableStyle::lined(const QPalette& palette) const
{
    constexpr qsizetype Most = 16; // widgets with a palette of their own are few
    auto known = lined_.constFind(palette.cacheKey());
    if (known == lined_.constEnd()) {
        if (lined_.size() >= Most)
            lined_.clear();
        QPalette bright = palette;
        for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
            QPalette own = palette;
            own.setCurrentColorGroup(group);
            bright.setColor(group, QPalette::Window, groundOfOutlines(own));
            bright.setColor(group, QPalette::Highlight, ringColour(own).lighter(Lighter));
        }
        known = lined_.insert(palette.cacheKey(), bright);
    }
    QPalette bright = *known;
    bright.setCurrentColorGroup(palette.currentColorGroup());
    return bright;
}

bool hasKeys(const QStyleOption* option)
{
    return option->state.testFlag(QStyle::State_HasFocus) && option->state.testFlag(QStyle::State_KeyboardFocusChange);
}

/// As wide as a button's frame and the light line inside it.
void drawRing(QPainter* painter, const QRect& frame, const QColor& colour, int lines)
{
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->translate(0.5, 0.5);
    painter->setPen(colour);
    painter->setBrush(Qt::NoBrush);
    for (int line = 0; line < lines; ++line)
        painter->drawRoundedRect(frame.adjusted(line, line, -line - 1, -line - 1), Corner, Corner);
    painter->restore();
}

/// A frame as the plain style has it, in whole pixels: at one and a half times scale the plain one loses a side.
void fillFrame(QPainter* painter, const QRect& frame, const QColor& colour)
{
    painter->fillRect(QRect(frame.left(), frame.top(), frame.width(), 1), colour);
    painter->fillRect(QRect(frame.left(), frame.bottom(), frame.width(), 1), colour);
    painter->fillRect(QRect(frame.left(), frame.top(), 1, frame.height()), colour);
    painter->fillRect(QRect(frame.right(), frame.top(), 1, frame.height()), colour);
}

bool isBetweenScales(const QPainter* painter)
{
    const qreal scale = painter->device()->devicePixelRatioF();
    return scale != std::floor(scale);
}

void ReadableStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                                  const QWidget* widget) const
{
    const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option);
    if ((element == PE_IndicatorCheckBox || element == PE_IndicatorRadioButton) && button && wantsPlainLines(option)) {
        const QStyleOptionButton bright = withLines(*button);
        Base::drawPrimitive(element, &bright, painter, widget);
    } else if (element == PE_Frame && isBetweenScales(painter) && isPlain() &&
               !(widget && widget->inherits("QComboBoxPrivateContainer"))) {
        const QPalette colours = isDark(option->palette) ? lined(option->palette) : option->palette;
        fillFrame(painter, option->rect, colours.color(QPalette::Window).darker(Darker).lighter(FrameLighter));
    } else if ((element == PE_FrameLineEdit || element == PE_Frame) && wantsPlainLines(option)) {
        const QStyleOption bright = withLines(*option);
        Base::drawPrimitive(element, &bright, painter, widget);
    } else {
        Base::drawPrimitive(element, option, painter, widget);
    }
    if (element == PE_FrameFocusRect && option->state.testFlag(State_KeyboardFocusChange) && isPlain()) {
        const bool chosenRow = option->state.testFlag(State_Item) && option->state.testFlag(State_Selected);
        const int inset = chosenRow ? 1 : 0;
        drawRing(painter, option->rect.adjusted(inset, inset, -inset, -inset),
                 chosenRow ? option->palette.color(QPalette::HighlightedText) : ringColour(option->palette), 1);
    }
}

void ReadableStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                                const QWidget* widget) const
{
    Base::drawControl(element, option, painter, widget);
    if (element == CE_PushButton && hasKeys(option))
        drawRing(painter, option->rect.adjusted(0, 1, 0, 1), ringColour(option->palette), 2);
    if (element == CE_TabBarTabLabel && hasKeys(option) && isPlain())
        drawRing(painter, option->rect.adjusted(3, 2, -2, -2), ringColour(option->palette), 1);
    const auto* row = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
    if (element == CE_MenuItem && row && row->menuItemType == QStyleOptionMenuItem::Separator && row->text.isEmpty() &&
        wantsPlainLines(option)) {
        constexpr int Side = 4;
        painter->setPen(lined(option->palette).color(QPalette::Window).darker(Darker));
        const int y = option->rect.center().y();
        painter->drawLine(option->rect.left() + Side, y, option->rect.right() - Side, y);
    }
}

void ReadableStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                                       const QWidget* widget) const
{
    const auto* bar = qstyleoption_cast<const QStyleOptionTitleBar*>(option);
    const auto* combo = qstyleoption_cast<const QStyleOptionComboBox*>(option);
    if (bar && bar->titleBarState & State_Active && wantsPlainLines(option)) {
        // The colour of the title's shadow; light under light words it would make them double.
        QStyleOptionTitleBar shaded(*bar);
        shaded.palette.setColor(QPalette::Text, Qt::black);
        Base::drawComplexControl(control, &shaded, painter, widget);
    } else if (combo && (combo->editable || hasKeys(option)) && wantsPlainLines(option)) {
        const QStyleOptionComboBox bright = withLines(*combo);
        Base::drawComplexControl(control, &bright, painter, widget);
    } else if (control == CC_Slider && !option->state.testFlag(State_Enabled)) {
        // The plain one shows what is off by the filled part of the groove alone.
        painter->save();
        painter->setOpacity(painter->opacity() * Faint);
        Base::drawComplexControl(control, option, painter, widget);
        painter->restore();
    } else {
        Base::drawComplexControl(control, option, painter, widget);
    }
    if (control == CC_ToolButton && hasKeys(option))
        drawRing(painter, option->rect, ringColour(option->palette), 1);
    if (control == CC_Slider && hasKeys(option) && wantsPlainLines(option))
        drawRing(painter, subControlRect(control, option, SC_SliderHandle, widget), ringColour(option->palette), 1);
}

} // namespace

void Looks::useReadableStyle() { QApplication::setStyle(new ReadableStyle); }
