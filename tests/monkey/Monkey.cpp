// What is done how often: most of it on the controls of the windows, some with keys, some by the menus, and now and
// then to the windows themselves.
#include "monkey/Monkey.h"

#include "core/Dichiarazioni.h"
#include "core/PathNames.h"
#include "monkey/DialogAnswers.h"
#include "monkey/Hands.h"
#include "shell/frmMain.h"
#include "shell/frmMainMenu.h"
#include "toolkit/ChildWindow.h"

#include <QAction>
#include <QApplication>
#include <QMdiArea>
#include <QMenuBar>
#include <ctime>

namespace
{
/// Milliseconds of the processor that this thread has had.
double processorTime()
{
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) / 1e6;
}

QString nameOf(const QWidget* widget)
{
    QString name;
    for (const QWidget* one = widget; one; one = one->parentWidget())
        if (!one->objectName().isEmpty() && name.count(QLatin1Char('/')) < 3)
            name = one->objectName() + (name.isEmpty() ? QString() : QLatin1Char('/') + name);
    return name;
}

QString placeOf(QPoint at) { return QStringLiteral(" (%1, %2)").arg(at.x()).arg(at.y()); }

} // namespace

Monkey::Monkey(Chance& chance, World& world, VirtualLoop& loop, long long limit)
    : chance_(chance), world_(world), loop_(loop), limit_(limit)
{
}

void Monkey::tell(const QString& text)
{
    text_ = text.toStdString();
    if (onTrace)
        onTrace(QStringLiteral("%1 [%2] %3").arg(events_).arg(depth_).arg(text));
}

void Monkey::measure()
{
    const double now = processorTime();
    const double took = began_ < 0 ? 0 : now - began_;
    if (took > longest_) {
        longest_ = took;
        longestText_ = std::to_string(events_) + " " + text_;
    }
    if (took > mostMilliseconds && onLongEvent)
        onLongEvent(std::to_string(static_cast<long long>(took)) + " ms for one event: " + text_);
}

void Monkey::runEnded()
{
    began_ = -1;
    leaving_ = 0;
    held_ = nullptr;
}

void Monkey::act()
{
    constexpr int RestInterval = 1000;
    constexpr int PaintInterval = 8;
    if (events_ % PaintInterval == 0)
        paint_.paintNow();
    measure();
    auto* window = dynamic_cast<frmMain*>(App.shell);
    const bool atRest = depth_ == 0 && !QApplication::activePopupWidget() && !QApplication::activeModalWidget();
    if (window && atRest && onRest && events_ - lastRest_ >= RestInterval) {
        lastRest_ = events_;
        onRest(*window);
    }
    ++events_;
    loop_.pass(chance_.oneIn(50) ? 1000 : chance_.below(25));
    ++depth_;
    began_ = processorTime();
    const auto telling = [this](const QString& text) { tell(text); };
    if (events_ >= limit_ && leaving_ >= 0)
        leave();
    else if (QWidget* popup = QApplication::activePopupWidget())
        DialogAnswers::actOnPopup(popup, chance_, telling);
    else if (QWidget* dialog = QApplication::activeModalWidget())
        DialogAnswers::act(dialog, world_, chance_, telling);
    else if (window)
        choose(*window);
    --depth_;
}

void Monkey::leave()
{
    tell(QStringLiteral("leaves"));
    ++leaving_;
    if (held_)
        Hands::release(held_, QPoint(1, 1), Qt::LeftButton);
    held_ = nullptr;
    if (QWidget* popup = QApplication::activePopupWidget())
        popup->close();
    else if (QWidget* dialog = QApplication::activeModalWidget())
        DialogAnswers::dismiss(dialog);
    else if (auto* window = dynamic_cast<frmMain*>(App.shell))
        window->close();
}

void Monkey::choose(frmMain& window)
{
    const int choice = chance_.below(100);
    const bool fewWindows = window.area()->subWindowList().size() < 3 && chance_.oneIn(3);
    if (fewWindows)
        actOnMenus(window);
    else if (choice < 58)
        actOnWidget(window);
    else if (choice < 80)
        actWithKeys(window);
    else if (choice < 88)
        actOnMenus(window);
    else if (choice < 95)
        actOnChildren(window);
    else if (choice < 99)
        holdOrLetGo(window);
    else
        actOnMain(window);
}

ChildWindow* Monkey::anyChild(frmMain& window)
{
    const auto all = window.area()->subWindowList();
    if (all.isEmpty())
        return nullptr;
    QMdiSubWindow* chosen = chance_.oneIn(4) ? nullptr : window.area()->currentSubWindow();
    if (!chosen)
        chosen = all[chance_.below(static_cast<int>(all.size()))];
    return dynamic_cast<ChildWindow*>(chosen);
}

/// Down from a window through visible widgets, a random one at each floor; or the one under a random point.
QWidget* Monkey::anyWidget(frmMain& window)
{
    QWidget* found = anyChild(window);
    if (!found || chance_.oneIn(25))
        found = &window;
    if (chance_.oneIn(3)) {
        QWidget* under = found->childAt(anyPoint(*found));
        return under ? under : found;
    }
    for (;;) {
        QList<QWidget*> inner;
        for (QObject* child : found->children())
            if (auto* widget = qobject_cast<QWidget*>(child); widget && widget->isVisible() && !widget->isWindow())
                inner << widget;
        if (inner.isEmpty() || chance_.oneIn(12))
            return found;
        found = inner[chance_.below(static_cast<int>(inner.size()))];
    }
}

QPoint Monkey::anyPoint(const QWidget& widget)
{
    return {chance_.below(widget.width()), chance_.below(widget.height())};
}

void Monkey::actOnWidget(frmMain& window)
{
    QWidget* widget = anyWidget(window);
    const QPoint at = anyPoint(*widget);
    const int choice = chance_.below(100);
    const auto say = [&](const char* what) { tell(QLatin1String(what) + nameOf(widget) + placeOf(at)); };
    if (choice < 62) {
        constexpr Qt::KeyboardModifier Modifiers[] = {Qt::ShiftModifier, Qt::ControlModifier, Qt::AltModifier};
        const bool held = chance_.oneIn(15);
        say("click ");
        Hands::click(widget, at, chance_.oneIn(40) ? Qt::MiddleButton : Qt::LeftButton,
                     held ? Modifiers[chance_.below(3)] : Qt::NoModifier);
    } else if (choice < 74) {
        say("double click ");
        Hands::doubleClick(widget, at);
    } else if (choice < 80) {
        say("right click ");
        Hands::rightClick(widget, at);
    } else if (choice < 88) {
        say("wheel ");
        Hands::wheel(widget, at, chance_.between(-5, 5));
    } else {
        say("drag ");
        Hands::drag(widget, at, at + QPoint(chance_.between(-200, 200), chance_.between(-200, 200)),
                    chance_.between(1, 4));
    }
}

void Monkey::typeText(QWidget* target)
{
    // Latin-1, which the instrument has, and beyond it: another alphabet, a pair of surrogates, a control character.
    static const QStringList Letters = {"a",
                                        "Z",
                                        "0",
                                        "9",
                                        " ",
                                        "-",
                                        "\u00E9",
                                        "\u00DC",
                                        "\u00DF",
                                        "\u00FF",
                                        "\u0416",
                                        "\u6F22",
                                        QString::fromUtf8("\xF0\x9F\x8E\xB9"),
                                        QString(QChar(1)),
                                        "%1",
                                        "&"};
    const int length = chance_.between(1, 20);
    tell(QStringLiteral("types %1 letters into ").arg(length) + nameOf(target));
    const QPointer<QWidget> alive(target);
    for (int letter = 0; letter < length && alive; ++letter)
        Hands::key(alive, Qt::Key_A, Qt::NoModifier, chance_.of(Letters));
}

void Monkey::actWithKeys(frmMain& window)
{
    constexpr int Keys[] = {Qt::Key_Tab,    Qt::Key_Backtab, Qt::Key_Return, Qt::Key_Enter,    Qt::Key_Escape,
                            Qt::Key_Space,  Qt::Key_Up,      Qt::Key_Down,   Qt::Key_Left,     Qt::Key_Right,
                            Qt::Key_Home,   Qt::Key_End,     Qt::Key_PageUp, Qt::Key_PageDown, Qt::Key_Delete,
                            Qt::Key_Insert, Qt::Key_F1,      Qt::Key_F2,     Qt::Key_F3,       Qt::Key_F4,
                            Qt::Key_F5,     Qt::Key_F6,      Qt::Key_F7,     Qt::Key_F8,       Qt::Key_F9,
                            Qt::Key_F10,    Qt::Key_F11,     Qt::Key_F12,    Qt::Key_Menu,     Qt::Key_Backspace};
    constexpr int Letters[] = {Qt::Key_A, Qt::Key_C,   Qt::Key_V,  Qt::Key_X,  Qt::Key_Z,        Qt::Key_S,
                               Qt::Key_O, Qt::Key_N,   Qt::Key_W,  Qt::Key_K,  Qt::Key_F,        Qt::Key_1,
                               Qt::Key_9, Qt::Key_Tab, Qt::Key_F4, Qt::Key_F6, Qt::Key_PageDown, Qt::Key_PageUp};
    constexpr Qt::KeyboardModifiers Modifiers[] = {Qt::NoModifier, Qt::ShiftModifier, Qt::ControlModifier,
                                                   Qt::AltModifier, Qt::ControlModifier | Qt::ShiftModifier};
    QWidget* target = chance_.oneIn(8) ? anyWidget(window) : QApplication::focusWidget();
    if (!target)
        target = &window;
    if (chance_.oneIn(4)) {
        typeText(target);
        return;
    }
    const bool shortcut = chance_.oneIn(4);
    const int key = shortcut ? Letters[chance_.below(std::size(Letters))] : Keys[chance_.below(std::size(Keys))];
    const Qt::KeyboardModifiers modifiers =
        shortcut ? Modifiers[chance_.between(2, 4)] : Modifiers[chance_.oneIn(5) ? chance_.below(5) : 0];
    tell(QStringLiteral("key %1 with %2 on ").arg(key, 0, 16).arg(modifiers.toInt(), 0, 16) + nameOf(target));
    Hands::key(target, key, modifiers, shortcut ? QString() : QStringLiteral(" ").left(key == Qt::Key_Space ? 1 : 0));
}

void Monkey::actOnMenus(frmMain& window)
{
    const auto& rows = menuTable();
    if (chance_.oneIn(12)) {
        const auto menus = window.menuBar()->actions();
        QAction* menu = menus[chance_.below(static_cast<int>(menus.size()))];
        tell(QStringLiteral("opens the menu ") + menu->objectName());
        Hands::click(window.menuBar(), window.menuBar()->actionGeometry(menu).center(), Qt::LeftButton);
        return;
    }
    // A quarter of the time something is opened: an empty program is soon pressed through.
    constexpr const char* Opening[] = {"mnuNuovoArr",      "mnuNuovoSty",      "mnuNuovoPrg",      "mnuApriArr",
                                       "mnuApriSty",       "mnuApriPrg",       "mnuApriGbl",       "mnuRecentFile(0)",
                                       "mnuRecentFile(1)", "mnuRecentFile(2)", "mnuRecentFile(4)", "mnuRecentFile(6)",
                                       "mnuEditArr",       "mnuEditArr",       "mnuShowSty",       "mnuShowPrg"};
    const MenuRow& row = rows[static_cast<std::size_t>(chance_.below(static_cast<int>(rows.size())))];
    const bool opens = chance_.oneIn(4) || window.area()->subWindowList().size() < 3;
    const char* name = opens ? Opening[chance_.below(std::size(Opening))] : row.name;
    QAction* action = window.menuItem(name);
    const bool leaves = QLatin1String(name) == QLatin1String("mnuExit");
    if (opens && chance_.oneIn(3)) {
        openSomething(window);
        return;
    }
    if (!action || action->menu() || action->isSeparator() || !action->isEnabled() || !action->isVisible() ||
        (leaves && !chance_.oneIn(8)))
        return;
    tell(QStringLiteral("menu item ") + action->objectName());
    action->trigger();
}

/// A file by its path, as the database and the list of recent files open it.
void Monkey::openSomething(frmMain& window)
{
    const std::string path = world_.pathToOpen(chance_);
    const bool readOnly = chance_.oneIn(5);
    tell(QStringLiteral("opens ") + QString::fromLatin1(path.c_str()));
    window.openPath(path, FileKindOf(path), readOnly);
}

void Monkey::actOnChildren(frmMain& window)
{
    ChildWindow* child = anyChild(window);
    if (!child)
        return;
    const bool many = window.area()->subWindowList().size() > 12;
    const int choice = chance_.below(many ? 16 : 10);
    const auto say = [&](const char* what) { tell(QLatin1String(what) + nameOf(child)); };
    switch (choice) {
    case 0:
    case 1:
        say("activates ");
        window.area()->setActiveSubWindow(child);
        break;
    case 2:
        say("minimises ");
        child->showMinimized();
        break;
    case 3:
        say("maximises ");
        child->showMaximized();
        break;
    case 4:
    case 5:
        say("shows as normal ");
        child->showNormal();
        break;
    case 6:
        say("resizes ");
        child->resize(chance_.between(20, 1400), chance_.between(20, 900));
        break;
    case 7:
        say("moves ");
        child->move(chance_.between(-300, 1500), chance_.between(-100, 900));
        break;
    default:
        say("closes ");
        child->close();
    }
}

void Monkey::actOnMain(frmMain& window)
{
    switch (chance_.below(8)) {
    case 0:
        tell(QStringLiteral("minimises the program"));
        window.showMinimized();
        break;
    case 1:
        tell(QStringLiteral("maximises the program"));
        window.showMaximized();
        break;
    case 2:
    case 3:
        tell(QStringLiteral("shows the program as normal"));
        window.showNormal();
        break;
    case 4:
        if (chance_.oneIn(5)) {
            tell(QStringLiteral("closes the program"));
            window.close();
        }
        break;
    default:
        tell(QStringLiteral("resizes the program"));
        window.resize(chance_.between(100, 1600), chance_.between(80, 1000));
    }
}

/// A button held down over several events: notes sound, sliders run, and what they stand on may go meanwhile.
void Monkey::holdOrLetGo(frmMain& window)
{
    if (held_) {
        tell(QStringLiteral("lets go ") + nameOf(held_));
        QWidget* widget = held_;
        held_ = nullptr;
        Hands::release(widget, anyPoint(*widget), Qt::LeftButton);
        return;
    }
    QWidget* widget = anyWidget(window);
    held_ = widget;
    tell(QStringLiteral("holds ") + nameOf(widget));
    Hands::press(widget, anyPoint(*widget), Qt::LeftButton);
}
