// Ready-made controls: what all combos, faders, fields and buttons have in common.
#include "toolkit/QtPanelParts.h"

#include "toolkit/Choices.h"
#include "toolkit/ControlArray.h"

#include <QComboBox>
#include <QCompleter>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPushButton>
#include <QScrollArea>
#include <QShortcut>
#include <QSlider>
#include <QStyleOptionComboBox>
#include <QStylePainter>
#include <QTabWidget>

#include <algorithm>

namespace
{

constexpr int ShownRows = 16; ///< of an opened list

/// Hands the events of a widget to a function; true from it ends the event.
class EventTap final : public QObject
{
public:
    EventTap(QWidget* widget, std::function<bool(QEvent*)> handler) : QObject(widget), handler_(std::move(handler))
    {
        widget->installEventFilter(this);
    }

protected:
    bool eventFilter(QObject*, QEvent* event) override { return handler_(event); }

private:
    std::function<bool(QEvent*)> handler_;
};

/// A list as wide as its widest row. QComboBox finds its width by measuring every row of every list again, which makes
/// half the time that a page of sixty lists needs to open.
class ChoiceBox final : public QComboBox
{
public:
    ChoiceBox(QWidget* parent, QString widestRow) : QComboBox(parent), widestRow_(std::move(widestRow)) {}

    QSize sizeHint() const override
    {
        constexpr int LeastTextHeight = 14;
        constexpr int BesideText = 2;
        QStyleOptionComboBox option;
        initStyleOption(&option);
        const QFontMetrics metrics = fontMetrics();
        const QSize text(metrics.horizontalAdvance(widestRow_) + BesideText,
                         std::max(metrics.height(), LeastTextHeight) + BesideText);
        return style()->sizeFromContents(QStyle::CT_ComboBox, &option, text, this);
    }
    QSize minimumSizeHint() const override { return sizeHint(); }

private:
    QString widestRow_;
};

/// A button with a face of its palette's button colour as it is, whatever the style makes of that colour.
class ColourButton final : public QPushButton
{
public:
    using QPushButton::QPushButton;

protected:
    void paintEvent(QPaintEvent*) override
    {
        constexpr int Edge = 3; // the style's own frame and focus mark
        QStyleOptionButton option;
        initStyleOption(&option);
        QStylePainter painter(this);
        painter.drawControl(QStyle::CE_PushButton, option);
        const QColor face = palette().color(QPalette::Button);
        painter.fillRect(rect().adjusted(Edge, Edge, -Edge, -Edge), isDown() ? face.darker() : face);
        painter.drawControl(QStyle::CE_PushButtonLabel, option);
    }
};

/// A click is a left press and its release on the widget. The second press of a double click is none.
class ClickWatch
{
public:
    explicit ClickWatch(QWidget* widget) : widget_(widget) {}
    bool isClick(const QEvent* event)
    {
        const auto type = event->type();
        if (type == QEvent::MouseButtonPress)
            pressed_ = static_cast<const QMouseEvent*>(event)->button() == Qt::LeftButton;
        if (type != QEvent::MouseButtonRelease)
            return false;
        const auto* mouse = static_cast<const QMouseEvent*>(event);
        const bool click =
            pressed_ && mouse->button() == Qt::LeftButton && widget_->rect().contains(mouse->position().toPoint());
        pressed_ = false;
        return click;
    }

private:
    QWidget* widget_;
    bool pressed_ = false;
};

bool isChoosingKey(const QLineEdit* field, const QEvent* event)
{
    if (event->type() != QEvent::KeyPress)
        return false;
    const int key = static_cast<const QKeyEvent*>(event)->key();
    return key == Qt::Key_Return || key == Qt::Key_Enter || (key == Qt::Key_Space && field->isReadOnly());
}

/// A combo that is made editable gets a completer of its own, which costs as much as the combo and is not wanted: a
/// field that already has one keeps it.
void giveField(QComboBox* combo, QCompleter* some)
{
    auto* field = new QLineEdit(combo);
    field->setCompleter(some);
    combo->setLineEdit(field);
    field->setCompleter(nullptr);
}

void completeTypedText(QComboBox* combo)
{
    combo->setInsertPolicy(QComboBox::NoInsert);
    QObject::connect(combo->lineEdit(), &QLineEdit::textEdited, combo, [combo](const QString& text) {
        if (const int row = combo->findText(text, Qt::MatchFixedString); row >= 0)
            combo->setCurrentIndex(row);
    });
    QObject::connect(combo->lineEdit(), &QLineEdit::editingFinished, combo, [combo] {
        if (const QString row = combo->itemText(combo->currentIndex()); combo->currentText() != row)
            combo->setEditText(row);
    });
}

} // namespace

QString fromPanel(std::string_view text)
{
    return QString::fromLatin1(text.data(), static_cast<qsizetype>(text.size()));
}

const ChoiceRows::Rows& ChoiceRows::of(ChoiceList list, const QFontMetrics& metrics)
{
    Rows& rows = rows_[list.data()];
    if (rows.texts.isEmpty()) {
        for (const std::string_view row : list)
            rows.texts << fromPanel(row);
        rows.widest = *std::max_element(rows.texts.begin(), rows.texts.end(), [&](const QString& a, const QString& b) {
            return metrics.horizontalAdvance(a) < metrics.horizontalAdvance(b);
        });
    }
    return rows;
}

QComboBox* makeChoice(QWidget* parent, ChoiceRows& rows, ChoiceList list)
{
    const ChoiceRows::Rows& texts = rows.of(list, parent->fontMetrics());
    auto* combo = new ChoiceBox(parent, texts.widest);
    combo->setMaxVisibleItems(ShownRows);
    combo->addItems(texts.texts);
    return combo;
}

QComboBox* makeTypedChoice(QWidget* parent, ChoiceRows& rows, ChoiceList list)
{
    QComboBox* combo = makeChoice(parent, rows, list);
    giveField(combo, &rows.completer);
    completeTypedText(combo);
    return combo;
}

QWidget* addPanelPage(QTabWidget* pages, const QString& caption)
{
    auto* area = new QScrollArea(pages);
    area->setObjectName(memberName("page", pages->count()));
    area->setFrameShape(QFrame::NoFrame);
    area->setFocusPolicy(Qt::NoFocus); // the keys belong to what stands in it
    area->setWidgetResizable(true);
    pages->addTab(area, caption);
    auto* page = new QWidget(area->viewport());
    area->setWidget(page);
    page->setAutoFillBackground(false);
    area->viewport()->setAutoFillBackground(false);
    return page;
}

void turnPagesByKeys(QWidget* window, QTabWidget* pages)
{
    struct Turn {
        int key;
        int step;
    };
    for (const Turn turn : {Turn{Qt::Key_PageDown, 1}, Turn{Qt::Key_PageUp, -1}}) {
        auto* shortcut = new QShortcut(QKeySequence(Qt::CTRL | static_cast<Qt::Key>(turn.key)), window);
        shortcut->setContext(Qt::WidgetWithChildrenShortcut);
        QObject::connect(shortcut, &QShortcut::activated, pages, [pages, turn] {
            pages->setCurrentIndex((pages->currentIndex() + turn.step + pages->count()) % pages->count());
        });
    }
}

void letShrink(QWidget* content)
{
    constexpr int HeightBesideText = 6;
    for (QWidget* control : content->findChildren<QWidget*>()) {
        if (qobject_cast<QComboBox*>(control->parentWidget()))
            continue; // the field in a list would cover the list's own frame
        if (qobject_cast<QComboBox*>(control) || qobject_cast<QLineEdit*>(control) ||
            qobject_cast<QPushButton*>(control))
            control->setMinimumHeight(control->fontMetrics().height() + HeightBesideText);
    }
}

void showPosition(QComboBox* combo, int position)
{
    combo->setCurrentIndex(position >= 0 && position < combo->count() ? position : -1);
}

QSlider* makeFader(QWidget* parent, Qt::Orientation orientation, int low, int high, int largeStep)
{
    auto* fader = new QSlider(orientation, parent);
    fader->setRange(low, high);
    fader->setSingleStep(1);
    fader->setPageStep(largeStep);
    ignoreWheelWithoutFocus(fader);
    return fader;
}

QLabel* makeValueText(QWidget* parent, const char* widest)
{
    auto* label = new QLabel(parent);
    label->setAlignment(Qt::AlignCenter);
    label->setMinimumWidth(label->fontMetrics().horizontalAdvance(QLatin1String(widest)));
    return label;
}

QLabel* makeValueBeside(QWidget* parent, const char* widest)
{
    QLabel* label = makeValueText(parent, widest);
    label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    return label;
}

QLineEdit* makeShownText(QWidget* parent, const char* accessibleName, const QString& hint)
{
    auto* field = new QLineEdit(parent);
    field->setReadOnly(true);
    field->setAccessibleName(QLatin1String(accessibleName));
    field->setToolTip(hint);
    return field;
}

void onFieldClick(QLineEdit* field, std::function<void()> handler)
{
    new EventTap(field, [field, handler = std::move(handler), watch = ClickWatch(field)](QEvent* event) mutable {
        if (watch.isClick(event) || isChoosingKey(field, event))
            handler();
        return false;
    });
}

void onMousePress(QWidget* widget, std::function<void()> handler)
{
    new EventTap(widget, [handler = std::move(handler)](QEvent* event) {
        if (event->type() == QEvent::MouseButtonPress)
            handler();
        return false;
    });
}

QColor colourOf(int blueGreenRed)
{
    return {blueGreenRed & 0xFF, (blueGreenRed >> 8) & 0xFF, (blueGreenRed >> 16) & 0xFF};
}

QPushButton* makeColourButton(QWidget* parent, const char* letter)
{
    auto* button = new ColourButton(QLatin1String(letter), parent);
    button->setCheckable(true); // what its colour says to the eye
    return button;
}

void showButtonColour(QPushButton* button, int blueGreenRed)
{
    constexpr int OffShade = 140; // per cent: of the letter on a button that is off
    QPalette palette = button->palette();
    palette.setColor(QPalette::Button, colourOf(blueGreenRed));
    palette.setColor(QPalette::ButtonText, Qt::black);
    palette.setColor(QPalette::Disabled, QPalette::ButtonText, colourOf(blueGreenRed).darker(OffShade));
    button->setPalette(palette);
}
