// The floor of an opening: the toolkit's own controls in a grid, with the texts and rows of a window of ours and none
// of its work.
#include "bench/EachWindow.h"
#include "core/Dichiarazioni.h"
#include "shell/frmMain.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollArea>
#include <QSlider>
#include <QSpinBox>
#include <QTableWidget>
#include <QTextBrowser>

namespace
{

constexpr int Columns = 12;

/// A control inside another is part of it: the line of an editable list, the bar of a scroll area.
bool isPart(const QWidget& control)
{
    const QWidget* parent = control.parentWidget();
    return qobject_cast<const QComboBox*>(parent) || qobject_cast<const QAbstractSpinBox*>(parent) ||
           control.objectName().startsWith(QStringLiteral("qt_")) || control.inherits("QScrollBar") ||
           control.inherits("QComboBoxPrivateContainer") || control.inherits("QComboBoxListView");
}

template <typename Button>
QWidget* bareButton(const QAbstractButton& model)
{
    return new Button(model.text());
}

QWidget* bareRows(const QListWidget& model)
{
    auto* list = new QListWidget;
    for (int row = 0; row < model.count(); ++row)
        list->addItem(model.item(row)->text());
    return list;
}

QWidget* bareChoices(const QComboBox& model)
{
    auto* choices = new QComboBox;
    choices->setEditable(model.isEditable());
    for (int row = 0; row < model.count(); ++row)
        choices->addItem(model.itemText(row));
    return choices;
}

QWidget* bareTable(const QTableWidget& model)
{
    auto* table = new QTableWidget(model.rowCount(), model.columnCount());
    for (int row = 0; row < model.rowCount(); ++row)
        for (int column = 0; column < model.columnCount(); ++column)
            if (const QTableWidgetItem* cell = model.item(row, column))
                table->setItem(row, column, new QTableWidgetItem(cell->text()));
    return table;
}

QWidget* bareLabel(const QLabel& model)
{
    auto* label = new QLabel(model.text());
    label->setWordWrap(model.wordWrap());
    return label;
}

QWidget* bareText(const QTextEdit& model)
{
    auto* text = new QTextBrowser;
    text->setPlainText(model.toPlainText());
    return text;
}

/// The bare twin of a control; nullptr for what only holds others.
QWidget* bareTwin(const QWidget& model)
{
    if (const auto* list = qobject_cast<const QListWidget*>(&model))
        return bareRows(*list);
    if (const auto* table = qobject_cast<const QTableWidget*>(&model))
        return bareTable(*table);
    if (const auto* choices = qobject_cast<const QComboBox*>(&model))
        return bareChoices(*choices);
    if (const auto* text = qobject_cast<const QTextEdit*>(&model))
        return bareText(*text);
    if (const auto* text = qobject_cast<const QPlainTextEdit*>(&model))
        return new QPlainTextEdit(text->toPlainText());
    if (const auto* line = qobject_cast<const QLineEdit*>(&model))
        return new QLineEdit(line->text());
    if (const auto* slider = qobject_cast<const QSlider*>(&model))
        return new QSlider(slider->orientation());
    if (qobject_cast<const QSpinBox*>(&model))
        return new QSpinBox;
    if (const auto* button = qobject_cast<const QCheckBox*>(&model))
        return bareButton<QCheckBox>(*button);
    if (const auto* button = qobject_cast<const QRadioButton*>(&model))
        return bareButton<QRadioButton>(*button);
    if (const auto* button = qobject_cast<const QPushButton*>(&model))
        return bareButton<QPushButton>(*button);
    if (const auto* label = qobject_cast<const QLabel*>(&model))
        return bareLabel(*label);
    if (const auto* group = qobject_cast<const QGroupBox*>(&model))
        return new QGroupBox(group->title());
    // A widget that draws itself.
    return model.findChildren<QWidget*>().isEmpty() && !model.layout() ? new QWidget : nullptr;
}

} // namespace

QWidget* openBare(const QWidget& model)
{
    auto* content = new QWidget;
    auto* grid = new QGridLayout(content);
    int place = 0;
    for (const QWidget* control : model.findChildren<QWidget*>()) {
        QWidget* twin = isPart(*control) ? nullptr : bareTwin(*control);
        if (!twin)
            continue;
        grid->addWidget(twin, place / Columns, place % Columns);
        ++place;
    }
    auto* scroll = new QScrollArea;
    scroll->setWidgetResizable(true);
    scroll->setWidget(content);
    QMdiSubWindow* window = static_cast<frmMain&>(*App.shell).area()->addSubWindow(scroll);
    window->setAttribute(Qt::WA_DeleteOnClose);
    window->resize(model.size());
    window->show();
    return window;
}
