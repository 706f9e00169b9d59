// The real global window in a window area, driven by mouse and keys.
#pragma once

#include "../GblRoom.h"

#include "global/frmGbl.h"
#include "support/WindowHands.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QPointer>
#include <QRadioButton>
#include <QSlider>
#include <QTabBar>

#include <set>

class GblWindow : public GblRoom, protected WindowHands
{
protected:
    GblWindow() { openArea(); }
    ~GblWindow() override { closeArea(); }

    /// Opens a window as the shell does it: slot 0 on the instrument's block, 1 to 8 on a file.
    frmGbl* open(const std::string& parameters = std::string(415, '\0'), int slot = 1)
    {
        if (slot == 0) {
            App.GblCurrent = gblFile(parameters);
        } else {
            Files.GblBuffer = gblFile(parameters);
            App.Globals[static_cast<std::size_t>(slot)].path = run.folder.file("stage" + std::to_string(slot));
            App.Globals[static_cast<std::size_t>(slot)].used = true;
        }
        auto* opened = showInArea(new frmGbl(slot));
        EXPECT_TRUE(sent().empty()) << "opening sends nothing";
        window = opened;
        return opened;
    }
    /// Puts other parameters into the open window and shows them.
    void load(const std::string& parameters)
    {
        window->Tag.bytes().replace(302, 415, parameters);
        window->Tag.set(3, 0);
        window->GblAggFrm();
    }

    template <typename Control>
    Control* part(const std::string& name) const
    {
        return control<Control>(window, QString::fromStdString(name));
    }
    QComboBox* combo(const std::string& name) const { return part<QComboBox>(name); }
    QSlider* slider(const std::string& name) const { return part<QSlider>(name); }
    std::string label(const std::string& name) const { return part<QLabel>(name)->text().toStdString(); }

    void focus(QWidget* control) const { focusOnItsPage(window, control); }
    void key(const std::string& name, Qt::Key code) const
    {
        auto* found = part<QWidget>(name);
        focus(found);
        QTest::keyClick(found, code);
    }
    void press(const std::string& name) const
    {
        auto* button = part<QAbstractButton>(name);
        focus(button);
        QTest::mouseClick(button, Qt::LeftButton, {}, QPoint(8, button->height() / 2));
    }
    std::string parameters() const { return parametersOf(window->Tag); }
    int byteOf(std::size_t offset) const { return static_cast<unsigned char>(parameters()[offset]); }
    int mark() const { return window->Tag.at(3); }

    QPointer<frmGbl> window;
};
