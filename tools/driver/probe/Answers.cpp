// Looks up windows, controls and menu items among the widgets of the running program.
#include "driver/probe/Answers.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QPixmap>
#include <QProgressBar>
#include <QRadioButton>
#include <QScreen>
#include <QTextEdit>

namespace
{

QString className(const QObject* object) { return QString::fromLatin1(object->metaObject()->className()); }

QString withoutMnemonic(QString text) { return text.remove(QLatin1Char('&')); }

QRect onScreen(const QWidget* widget) { return {widget->mapToGlobal(QPoint(0, 0)), widget->size()}; }

/// Windows in the order of their making: top-level ones and the children of the multiple-document area.
QList<QWidget*> windows()
{
    QList<QWidget*> found;
    for (QWidget* top : QApplication::topLevelWidgets())
        if (top->isVisible() && !qobject_cast<QMenu*>(top))
            found += top;
    for (QWidget* top : QApplication::topLevelWidgets())
        for (auto* area : top->findChildren<QMdiArea*>())
            for (QMdiSubWindow* child : area->subWindowList(QMdiArea::CreationOrder))
                if (child->isVisible())
                    found += child;
    return found;
}

/// The window of a name or class; null when there is none.
QWidget* window(const QString& spec)
{
    const QString name = spec.section(QLatin1Char('#'), 0, 0);
    const QString number = spec.section(QLatin1Char('#'), 1, 1);
    int wanted = number.isEmpty() ? 1 : number.toInt();
    for (QWidget* candidate : windows())
        if ((candidate->objectName() == name || className(candidate) == name) && --wanted == 0)
            return candidate;
    return nullptr;
}

bool matches(const QWidget* widget, const QString& spec)
{
    if (spec.startsWith(QLatin1String("text:"))) {
        const auto* button = qobject_cast<const QAbstractButton*>(widget);
        return button && button->isVisible() && withoutMnemonic(button->text()) == spec.mid(5);
    }
    if (spec.startsWith(QLatin1String("class:")))
        return widget->isVisible() && className(widget) == spec.mid(6);
    return widget->objectName() == spec;
}

QWidget* controlIn(QWidget* top, const QString& spec)
{
    if (!top)
        return nullptr;
    if (spec.isEmpty())
        return top;
    for (QWidget* widget : top->findChildren<QWidget*>())
        if (matches(widget, spec))
            return widget;
    return nullptr;
}

QWidget* control(const QString& windowSpec, const QString& spec)
{
    if (windowSpec != QLatin1String("*"))
        return controlIn(window(windowSpec), spec);
    for (QWidget* top : windows())
        if (QWidget* found = controlIn(top, spec))
            return found;
    return nullptr;
}

QString pair(const char* key, const QString& value) { return QString::fromLatin1(key) + QLatin1Char('=') + value; }
QString pair(const char* key, int value) { return pair(key, QString::number(value)); }

QString shownText(const QWidget* widget)
{
    if (const auto* button = qobject_cast<const QAbstractButton*>(widget))
        return button->text();
    if (const auto* label = qobject_cast<const QLabel*>(widget))
        return label->text();
    if (const auto* line = qobject_cast<const QLineEdit*>(widget))
        return line->text();
    if (const auto* combo = qobject_cast<const QComboBox*>(widget))
        return combo->currentText();
    if (const auto* text = qobject_cast<const QTextEdit*>(widget))
        return text->toPlainText();
    if (const auto* box = qobject_cast<const QMessageBox*>(widget))
        return box->text();
    if (const auto* bar = qobject_cast<const QProgressBar*>(widget))
        return QString::number(bar->value());
    return {};
}

/// Where a press reaches the control: the middle of what is to be seen, or the mark of a check box or option button,
/// which alone takes the press beside its text. (-1, -1) when nothing of it is to be seen.
QPoint pressPlace(const QWidget* widget)
{
    if (widget->visibleRegion().isEmpty())
        return {-1, -1};
    const QRect seen = widget->visibleRegion().boundingRect();
    if (qobject_cast<const QCheckBox*>(widget) || qobject_cast<const QRadioButton*>(widget))
        return widget->mapToGlobal(QPoint(seen.left() + 8, seen.center().y()));
    return widget->mapToGlobal(seen.center());
}

QStringList describe(QWidget* widget)
{
    const QRect place = onScreen(widget);
    const QPoint press = pressPlace(widget);
    QStringList lines{pair("class", className(widget)),
                      pair("name", widget->objectName()),
                      pair("visible", widget->isVisible() && !widget->isMinimized()),
                      pair("enabled", widget->isEnabled()),
                      pair("focus", widget->hasFocus()),
                      pair("active", widget->isActiveWindow()),
                      pair("id", QString::number(widget->window()->winId())),
                      pair("maximized", widget->isMaximized()),
                      pair("title", widget->windowTitle()),
                      pair("text", shownText(widget)),
                      pair("x", place.x()),
                      pair("y", place.y()),
                      pair("width", place.width()),
                      pair("height", place.height()),
                      pair("pressX", press.x()),
                      pair("pressY", press.y())};
    if (const auto* button = qobject_cast<const QAbstractButton*>(widget))
        lines += pair("checked", button->isChecked());
    if (const auto* combo = qobject_cast<const QComboBox*>(widget))
        lines += {pair("count", combo->count()), pair("row", combo->currentIndex())};
    if (const auto* view = qobject_cast<const QAbstractItemView*>(widget))
        lines +=
            {pair("count", view->model() ? view->model()->rowCount() : 0), pair("row", view->currentIndex().row())};
    return lines;
}

QStringList rowTexts(const QWidget* widget)
{
    QStringList lines;
    if (const auto* combo = qobject_cast<const QComboBox*>(widget))
        for (int row = 0; row < combo->count(); ++row)
            lines += combo->itemText(row);
    if (const auto* view = qobject_cast<const QAbstractItemView*>(widget))
        for (int row = 0; row < view->model()->rowCount(); ++row)
            lines += view->model()->index(row, 0).data().toString();
    return lines;
}

QString place(const QRect& rect)
{
    return QStringLiteral("%1 %2 %3 %4").arg(rect.x()).arg(rect.y()).arg(rect.width()).arg(rect.height());
}

/// Where a row of a list can be pressed; empty when it is scrolled away.
QStringList rowPlace(const QWidget* widget, int row)
{
    const auto* view = qobject_cast<const QAbstractItemView*>(widget);
    if (!view)
        return {QStringLiteral("? no list")};
    const QRect shown = view->visualRect(view->model()->index(row, 0)) & view->viewport()->rect();
    if (shown.height() < 4)
        return {};
    return {place({view->viewport()->mapToGlobal(shown.topLeft()), shown.size()})};
}

QAction* action(const QString& name)
{
    for (QWidget* top : QApplication::topLevelWidgets())
        if (auto* found = top->findChild<QAction*>(name))
            return found;
    for (QWidget* top : QApplication::topLevelWidgets())
        if (auto* menu = top->findChild<QMenu*>(name))
            return menu->menuAction();
    return nullptr;
}

QStringList describe(const QAction* item)
{
    return {
        pair("text", item->text()),         pair("visible", item->isVisible()),
        pair("enabled", item->isEnabled()), pair("checkable", item->isCheckable()),
        pair("checked", item->isChecked()), pair("shortcut", item->shortcut().toString(QKeySequence::PortableText))};
}

/// Where an item of an open menu or of the menu bar stands; invalid when it is not on the screen.
QRect itemPlace(QAction* item)
{
    for (QObject* object : item->associatedObjects()) {
        if (auto* menu = qobject_cast<QMenu*>(object); menu && menu->isVisible())
            return {menu->mapToGlobal(menu->actionGeometry(item).topLeft()), menu->actionGeometry(item).size()};
        if (auto* bar = qobject_cast<QMenuBar*>(object); bar && bar->isVisible())
            return {bar->mapToGlobal(bar->actionGeometry(item).topLeft()), bar->actionGeometry(item).size()};
    }
    return {};
}

QAction* menuOf(QAction* item)
{
    for (QObject* object : item->associatedObjects())
        if (auto* menu = qobject_cast<QMenu*>(object))
            return menu->menuAction();
    return nullptr;
}

QStringList menuStep(QAction* item)
{
    const char* what = "item";
    for (QAction* next = item; next; next = menuOf(next), what = "open") {
        const QRect rect = itemPlace(next);
        if (!rect.isEmpty())
            return {QStringLiteral("%1 %2 %3").arg(QLatin1String(what)).arg(rect.center().x()).arg(rect.center().y())};
    }
    return {QStringLiteral("? not on the screen")};
}

QStringList windowLines()
{
    QStringList lines;
    for (const QWidget* top : windows())
        lines += QStringList{top->objectName(), className(top), top->windowTitle(), place(onScreen(top))}.join(
            QLatin1Char('\t'));
    return lines;
}

QStringList shot(const QStringList& words)
{
    QPixmap picture = QGuiApplication::primaryScreen()->grabWindow(0);
    if (words.size() >= 6)
        picture = picture.copy(words[2].toInt(), words[3].toInt(), words[4].toInt(), words[5].toInt());
    return picture.save(words.value(1), "PNG") ? QStringList{} : QStringList{QStringLiteral("? not written")};
}

} // namespace

QStringList answer(const QStringList& words)
{
    const QString question = words.value(0);
    if (question == QLatin1String("windows"))
        return windowLines();
    if (question == QLatin1String("shot"))
        return shot(words);
    if (question == QLatin1String("action") || question == QLatin1String("menustep")) {
        QAction* item = action(words.value(1));
        if (!item)
            return {QStringLiteral("? no menu item of this name")};
        return question == QLatin1String("action") ? describe(item) : menuStep(item);
    }
    QWidget* widget = control(words.value(1), words.value(2));
    if (!widget)
        return {QStringLiteral("? no such control")};
    if (question == QLatin1String("find"))
        return describe(widget);
    if (question == QLatin1String("rows"))
        return rowTexts(widget);
    if (question == QLatin1String("row"))
        return rowPlace(widget, words.value(3).toInt());
    return {QStringLiteral("? unknown question")};
}
