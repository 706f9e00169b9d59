// The lengths are those of the table of window buffers, written out here; the slots are those of the session records.
#include "monkey/Invariants.h"

#include "core/Dichiarazioni.h"
#include "files/WindowBuffer.h"
#include "shell/frmMain.h"
#include "toolkit/ChildWindow.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSlider>
#include <QAction>
#include <QComboBox>
#include <QFileDialog>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMdiArea>
#include <QMenuBar>
#include <QTabBar>
#include <QTabWidget>
#include <QTimer>
#include <algorithm>

namespace
{

using Faults = std::vector<std::string>;

/// Shortest and longest buffer of a kind of window.
struct Lengths {
    int from;
    int to;
};

Lengths lengthsOf(int kind)
{
    constexpr int Any = 1'000'000; // styles end the buffer; a file's are at most 289,800 bytes, pastes add to them
    switch (kind) {
    case 2:
    case 3:
        return {12142, 12142};
    case 4:
    case 5:
    case 6:
    case 7:
    case 8:
        return {1373, 1373};
    case 9:
    case 10:
        return {1388, 1388};
    case 14:
    case 25:
        return {718, 718};
    case 19:
    case 20:
        return {42622 + 224, Any};
    case 21:
    case 22:
        return {32094, 32094};
    case 23:
    case 24:
        return {669 + 224, Any};
    default:
        return {270, 270};
    }
}

std::vector<ChildWindow*> childrenOf(const frmMain& window)
{
    std::vector<ChildWindow*> open;
    for (QMdiSubWindow* one : window.area()->subWindowList())
        if (auto* child = dynamic_cast<ChildWindow*>(one); child && !child->isHidden())
            open.push_back(child);
    return open;
}

std::string nameOf(const WindowBuffer& tag)
{
    return "kind " + std::to_string(tag.kind()) + " number " + std::to_string(tag.number());
}

void checkRegistry(const std::vector<ChildWindow*>& children, Faults& faults)
{
    const auto& registry = OpenWindows::all();
    for (const ChildWindow* child : children)
        if (std::find(registry.begin(), registry.end(), &child->Tag) == registry.end())
            faults.push_back("a window is not in the registry: " + nameOf(child->Tag));
    if (registry.size() != children.size())
        faults.push_back(std::to_string(registry.size()) + " buffers are registered, " +
                         std::to_string(children.size()) + " windows stand");
    const int counted = App.ArrUCount + App.StyUCount + App.PrgUCount + App.OtherCount + App.GblCount;
    if (counted != static_cast<int>(children.size()))
        faults.push_back("the counters say " + std::to_string(counted) + " windows, " +
                         std::to_string(children.size()) + " stand");
}

/// The entry of a number in use exactly when a window of these kinds has that number.
template <typename Entries>
void checkSlots(const Entries& entries, int firstNumber, std::vector<int> kinds, const char* family, Faults& faults)
{
    for (std::size_t index = 0; index < entries.size(); ++index) {
        const int number = firstNumber + static_cast<int>(index);
        int windows = 0;
        for (const WindowBuffer* tag : OpenWindows::all())
            if (tag->number() == number && std::find(kinds.begin(), kinds.end(), tag->kind()) != kinds.end())
                ++windows;
        if (windows != (entries[index].used ? 1 : 0))
            faults.push_back(std::string("slot ") + std::to_string(number) + " of " + family + " is " +
                             (entries[index].used ? "used" : "free") + " and has " + std::to_string(windows) +
                             " windows");
    }
}

void checkLengths(const std::vector<ChildWindow*>& children, Faults& faults)
{
    for (const ChildWindow* child : children) {
        const Lengths lengths = lengthsOf(child->windowKind());
        const int length = static_cast<int>(child->Tag.bytes().size());
        if (length < lengths.from || length > lengths.to)
            faults.push_back("the buffer of " + nameOf(child->Tag) + " has " + std::to_string(length) + " bytes");
    }
}

/// Controls that a hand or a program looks for by name.
bool wantsName(const QObject* object)
{
    return qobject_cast<const QAbstractButton*>(object) || qobject_cast<const QAbstractItemView*>(object) ||
           qobject_cast<const QAbstractSlider*>(object) || qobject_cast<const QComboBox*>(object) ||
           qobject_cast<const QLineEdit*>(object) || qobject_cast<const QLabel*>(object) ||
           qobject_cast<const QTabWidget*>(object) || qobject_cast<const QAction*>(object) ||
           qobject_cast<const QTimer*>(object);
}

/// Made by the toolkit inside one of its own controls.
bool isToolkits(const QObject* object)
{
    // What lies in a viewport or on a page is the program's again.
    const QString inside = object->parent() ? object->parent()->objectName() : QString();
    if (inside.startsWith(QLatin1String("qt_")) && inside != QLatin1String("qt_scrollarea_viewport") &&
        inside != QLatin1String("qt_tabwidget_stackedwidget"))
        return true;
    for (const QObject* above = object->parent(); above; above = above->parent()) {
        const QLatin1String type(above->metaObject()->className());
        if (qobject_cast<const QComboBox*>(above) || qobject_cast<const QTabBar*>(above) ||
            qobject_cast<const QLineEdit*>(above) || qobject_cast<const QFileDialog*>(above) ||
            qobject_cast<const QHeaderView*>(above) || type == QLatin1String("QMdi::ControllerWidget") ||
            type == QLatin1String("QMenuBarExtension"))
            return true;
    }
    // The menu of the menu bar for what finds no room in it.
    const QObject* parent = object->parent();
    return parent && parent->objectName().isEmpty() && qobject_cast<const QMenuBar*>(parent->parent());
}

void checkNames(const frmMain& window, Faults& faults)
{
    for (const QObject* object : window.findChildren<QObject*>()) {
        if (!object->objectName().isEmpty() || !wantsName(object) || isToolkits(object))
            continue;
        QString where = QLatin1String(object->metaObject()->className());
        if (const auto* action = qobject_cast<const QAction*>(object))
            where += QLatin1String(" \"") + action->text() + QLatin1Char('"');
        for (const QObject* above = object->parent(); above; above = above->parent())
            where += QLatin1String(" in ") + QLatin1String(above->metaObject()->className()) + QLatin1Char(' ') +
                     above->objectName();
        faults.push_back("without a name: " + where.toStdString());
    }
}

} // namespace

std::vector<std::string> Invariants::broken(const frmMain& window)
{
    Faults faults;
    const std::vector<ChildWindow*> children = childrenOf(window);
    checkRegistry(children, faults);
    checkSlots(App.Arrangements, 1, {WindowKind::ArrFile}, "arrangements", faults);
    checkSlots(App.NewArrangements, 1, {WindowKind::ArrNew}, "new arrangements", faults);
    checkSlots(App.Styles, 1, {WindowKind::StyFile, WindowKind::StyNew}, "styles", faults);
    checkSlots(App.Programs, 1, {WindowKind::PrgFile, WindowKind::PrgNew}, "programs", faults);
    checkSlots(App.Globals, 0, {WindowKind::GlobalInstrument, WindowKind::GlobalFile}, "globals", faults);
    checkLengths(children, faults);
    checkNames(window, faults);
    return faults;
}
