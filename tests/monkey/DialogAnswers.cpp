// By chance among all that a dialog offers; dismissed where nothing else is wanted of it.
#include "monkey/DialogAnswers.h"

#include "monkey/Hands.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>

namespace
{

using Tell = std::function<void(const QString&)>;

/// At the left, where the mark of a radio button is.
void pressButton(QAbstractButton* button)
{
    Hands::click(button, QPoint(std::min(8, button->width() / 2), button->height() / 2), Qt::LeftButton);
}

void chooseFilter(QFileDialog& dialog, Chance& chance, const Tell& tell)
{
    auto* filters = dialog.findChild<QComboBox*>(QStringLiteral("fileTypeCombo"));
    if (!filters)
        return;
    const int filter = chance.below(filters->count());
    tell(QStringLiteral("chooses filter %1").arg(filter));
    filters->setCurrentIndex(filter);
    Q_EMIT filters->activated(filter);
}

void answerFiles(QFileDialog& dialog, World& world, Chance& chance, const Tell& tell)
{
    const bool saving = dialog.acceptMode() == QFileDialog::AcceptSave;
    const int choice = chance.below(20);
    if (choice == 0) {
        tell(QStringLiteral("cancels the file dialog"));
        dialog.reject();
        return;
    }
    if (choice < 4) {
        chooseFilter(dialog, chance, tell);
        return;
    }
    if (choice == 4) {
        if (auto* box = dialog.findChild<QCheckBox*>(QStringLiteral("ReadOnly")))
            box->toggle();
        tell(QStringLiteral("turns the read-only box"));
        return;
    }
    const std::string path = saving ? world.pathToSave(chance) : world.pathToOpen(chance);
    tell(QStringLiteral("file dialog: ") + QFile::decodeName(path.c_str()));
    if (auto* name = dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit")))
        name->setText(QFile::decodeName(path.c_str()));
    auto* buttons = dialog.findChild<QDialogButtonBox*>(QStringLiteral("buttonBox"));
    QPushButton* accept = buttons ? buttons->button(saving ? QDialogButtonBox::Save : QDialogButtonBox::Open) : nullptr;
    if (accept && accept->isEnabled())
        accept->click();
    else
        dialog.reject();
}

} // namespace

void DialogAnswers::act(QWidget* dialog, World& world, Chance& chance, const Tell& tell)
{
    if (auto* files = qobject_cast<QFileDialog*>(dialog)) {
        answerFiles(*files, world, chance, tell);
        return;
    }
    const int choice = chance.below(12);
    if (choice == 0) {
        tell(QStringLiteral("Escape in ") + dialog->objectName());
        Hands::key(dialog, Qt::Key_Escape, Qt::NoModifier);
        return;
    }
    if (choice == 1) {
        tell(QStringLiteral("closes ") + dialog->objectName());
        dialog->close();
        return;
    }
    const auto buttons = dialog->findChildren<QAbstractButton*>();
    if (buttons.isEmpty() || choice == 2) {
        tell(QStringLiteral("Return in ") + dialog->objectName());
        QWidget* focused = dialog->focusWidget();
        Hands::key(focused ? focused : dialog, Qt::Key_Return, Qt::NoModifier);
        return;
    }
    QAbstractButton* button = buttons[chance.below(static_cast<int>(buttons.size()))];
    tell(dialog->objectName() + QLatin1String(": ") + dialog->windowTitle() + QLatin1String(": ") +
         button->objectName());
    pressButton(button);
}

void DialogAnswers::actOnPopup(QWidget* popup, Chance& chance, const Tell& tell)
{
    constexpr int Keys[] = {Qt::Key_Down, Qt::Key_Up,    Qt::Key_Return, Qt::Key_Escape,
                            Qt::Key_Home, Qt::Key_Right, Qt::Key_Left,   Qt::Key_PageDown};
    auto* menu = qobject_cast<QMenu*>(popup);
    if (menu && !menu->actions().isEmpty() && chance.oneIn(2)) {
        const auto actions = menu->actions();
        QAction* action = actions[chance.below(static_cast<int>(actions.size()))];
        tell(QStringLiteral("in the menu: ") + action->objectName());
        Hands::click(menu, menu->actionGeometry(action).center(), Qt::LeftButton);
        return;
    }
    if (chance.oneIn(4)) {
        tell(QStringLiteral("presses in a popup"));
        Hands::click(popup, QPoint(chance.below(popup->width()), chance.below(popup->height())), Qt::LeftButton);
        return;
    }
    if (chance.oneIn(8)) {
        tell(QStringLiteral("presses beside a popup"));
        popup->close();
        return;
    }
    const int key = Keys[chance.below(8)];
    tell(QStringLiteral("key %1 in a popup").arg(key, 0, 16));
    QWidget* focused = popup->focusWidget();
    Hands::key(focused ? focused : popup, key, Qt::NoModifier);
}

void DialogAnswers::dismiss(QWidget* dialog)
{
    // A question wants its answer; No is the last word of most.
    for (const char* name : {"CommNo", "CommOK", "CommClose"})
        if (auto* button = dialog->findChild<QAbstractButton*>(QLatin1String(name)); button && button->isEnabled()) {
            const bool language = dialog->objectName() == QLatin1String("frmLingua");
            if (!language) {
                button->click();
                return;
            }
        }
    if (auto* box = qobject_cast<QDialog*>(dialog))
        box->reject();
    else
        dialog->close();
}
