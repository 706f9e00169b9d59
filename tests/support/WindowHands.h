// The hands of a user in the tests of child windows: an area that shows them, and mouse and keys on controls that are
// found by their names.
#pragma once

#include "toolkit/RowList.h"
#include "toolkit/StageTimer.h"

#include <QApplication>
#include <QLineEdit>
#include <QMdiArea>
#include <QPushButton>
#include <QTabWidget>
#include <QTest>

#include <gtest/gtest.h>

#include <memory>
#include <string>

class WindowHands
{
protected:
    void openArea(int width = 1000, int height = 800)
    {
        area = std::make_unique<QMdiArea>();
        area->resize(width, height);
        area->show();
    }
    /// The area goes, and all windows in it.
    void closeArea()
    {
        area.reset();
        collect();
    }
    /// What was closed is deleted.
    static void collect() { QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }
    template <typename Window>
    Window* showInArea(Window* window)
    {
        area->addSubWindow(window);
        window->show();
        QApplication::processEvents();
        return window;
    }

    template <typename Control>
    static Control* control(const QWidget* window, const QString& name)
    {
        auto* found = window->findChild<Control*>(name);
        EXPECT_NE(found, nullptr) << name.toStdString();
        return found;
    }
    static RowList* list(const QWidget* window) { return static_cast<RowList*>(control<QListWidget>(window, "List1")); }
    static StageTimer* timer(const QWidget* window, const QString& name)
    {
        return static_cast<StageTimer*>(control<QTimer>(window, name));
    }
    static std::string text(const QWidget* window, const QString& name)
    {
        return control<QLineEdit>(window, name)->text().toLatin1().toStdString();
    }
    static bool enabled(const QWidget* window, const QString& name)
    {
        return control<QPushButton>(window, name)->isEnabled();
    }
    static void press(const QWidget* window, const QString& name)
    {
        QTest::mouseClick(control<QPushButton>(window, name), Qt::LeftButton);
    }
    /// The middle of a row, once it has been scrolled into sight.
    static QPoint place(const QWidget* window, int row)
    {
        RowList* rows = list(window);
        rows->scrollToItem(rows->item(row));
        return rows->visualItemRect(rows->item(row)).center();
    }
    static void clickRow(const QWidget* window, int row, Qt::KeyboardModifiers modifiers = {},
                         Qt::MouseButton button = Qt::LeftButton)
    {
        const QPoint spot = place(window, row);
        QTest::mouseClick(list(window)->viewport(), button, modifiers, spot);
    }
    /// Turns to the page that a control stands on and gives it the focus.
    static void focusOnItsPage(const QWidget* window, QWidget* control_)
    {
        auto* pages = control<QTabWidget>(window, "SSTab1");
        for (int page = 0; page < pages->count(); ++page)
            if (pages->widget(page)->isAncestorOf(control_))
                pages->setCurrentIndex(page);
        control_->setFocus();
    }
    /// Lets events run until no stage timer of the window, or of windows in it, is enabled.
    static bool settled(const QWidget* window)
    {
        return QTest::qWaitFor(
            [window] {
                for (QTimer* one : window->findChildren<QTimer*>())
                    if (auto* stage = dynamic_cast<StageTimer*>(one); stage && stage->enabled())
                        return false;
                return true;
            },
            10000);
    }

    std::unique_ptr<QMdiArea> area;
};

/// A name as the 50 bytes that tell what the instrument was last sent.
inline std::string fifty(std::string name)
{
    name.resize(50, ' ');
    return name;
}
