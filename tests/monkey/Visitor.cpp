// The script begins when the program is idle for the first time; the questions of a first run are answered before.
#include "monkey/Visitor.h"

#include "core/Dichiarazioni.h"
#include "monkey/DialogAnswers.h"
#include "monkey/Hands.h"
#include "shell/QtProgram.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QListWidget>
#include <QMdiArea>
#include <filesystem>

void Visitor::run(MidiService& service, const std::function<void()>& script)
{
    entered_ = false;
    loop_.onIdle = [this, &script] { beIdle(script); };
    static_cast<void>(runInApplication(service, {}));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void Visitor::beIdle(const std::function<void()>& script)
{
    loop_.pass(20);
    if (QWidget* popup = QApplication::activePopupWidget()) {
        popup->close();
        return;
    }
    if (QWidget* dialog = QApplication::activeModalWidget()) {
        if (auto* english = dialog->findChild<QAbstractButton*>(QStringLiteral("Option1(1)"))) {
            english->click(); // the language window of a first run
            dialog->findChild<QAbstractButton*>(QStringLiteral("CommOK"))->click();
        } else {
            DialogAnswers::dismiss(dialog);
        }
        return;
    }
    if (!dynamic_cast<frmMain*>(App.shell))
        return;
    if (!entered_) {
        entered_ = true;
        UserInterface* own = App.ui;
        App.ui = &user;
        settle();
        script();
        App.ui = own;
    } else {
        window().close();
    }
}

frmMain& Visitor::window() const { return *dynamic_cast<frmMain*>(App.shell); }

void Visitor::settle()
{
    constexpr int Turns = 12;
    for (int turn = 0; turn < Turns; ++turn) {
        loop_.pass(turn == 0 ? 0 : 20);
        while (loop_.processEvents(QEventLoop::AllEvents))
            ;
    }
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

std::vector<ChildWindow*> Visitor::children() const
{
    std::vector<ChildWindow*> open;
    for (QMdiSubWindow* one : window().area()->subWindowList())
        if (auto* child = dynamic_cast<ChildWindow*>(one); child && !child->isHidden())
            open.push_back(child);
    return open;
}

ChildWindow* Visitor::childOfKind(int kind) const
{
    for (ChildWindow* child : children())
        if (child->windowKind() == kind)
            return child;
    return nullptr;
}

ChildWindow* Visitor::opened(const std::function<void()>& open)
{
    const std::vector<ChildWindow*> before = children();
    open();
    settle();
    for (ChildWindow* child : children())
        if (std::find(before.begin(), before.end(), child) == before.end())
            return child;
    return nullptr;
}

int Visitor::pressRows(ChildWindow& child)
{
    int pressed = 0;
    for (QListWidget* list : child.findChildren<QListWidget*>()) {
        for (int row = 0; row < list->count(); ++row) {
            list->scrollToItem(list->item(row));
            const QRect place = list->visualItemRect(list->item(row));
            if (!list->viewport()->rect().intersects(place))
                continue;
            Hands::click(list->viewport(), place.center(), Qt::LeftButton);
            loop_.pass(20);
            while (loop_.processEvents(QEventLoop::AllEvents))
                ;
            ++pressed;
        }
    }
    settle();
    return pressed;
}

bool Visitor::press(ChildWindow& child, const char* name)
{
    auto* button = child.findChild<QAbstractButton*>(QLatin1String(name));
    if (!button || !button->isEnabled())
        return false;
    button->click();
    settle();
    return true;
}

void Visitor::menu(const char* item)
{
    if (QAction* action = window().menuItem(item); action && action->isEnabled())
        action->trigger();
    settle();
}

bool Visitor::saveAs(ChildWindow& child, const std::string& path)
{
    window().area()->setActiveSubWindow(&child);
    settle();
    constexpr int AllFiles = 6; // the filter under which a window saves its own kind
    user.saveFiles.assign(1, {true, path, AllFiles});
    menu("mnuSalvaAs");
    user.saveFiles.clear();
    for (const char* ending : {"", ".arr", ".sty", ".prg", ".pgg", ".gbl"})
        if (std::filesystem::exists(path + ending))
            return true;
    return false;
}

void Visitor::close(ChildWindow& child)
{
    constexpr int Questions = 8;
    user.answers.assign(Questions, Answer::No);
    child.close();
    settle();
    user.answers.clear();
}

void Visitor::closeAll()
{
    for (ChildWindow* child : children())
        if (const auto open = children(); std::find(open.begin(), open.end(), child) != open.end())
            close(*child);
}

void Visitor::pressFirstRow(ChildWindow& child)
{
    if (auto* list = child.findChild<QListWidget*>(QStringLiteral("List1")); list && list->count() > 0)
        Hands::click(list->viewport(), list->visualItemRect(list->item(0)).center(), Qt::LeftButton);
    settle();
}
