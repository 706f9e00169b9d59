// The real main window on Qt's offscreen platform, with a scripted user and a recording port.
#pragma once

#include "shell/frmMain.h"

#include "core/Strings.h"
#include "shell/ShellFixture.h"
#include "shell/StatusPanelWidget.h"
#include "shell/frmAvviso2.h"
#include "shell/frmLingua.h"
#include "shell/frmMainMenu.h"
#include "toolkit/ChildWindow.h"
#include "toolkit/StageTimer.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMdiArea>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QRadioButton>
#include <QRegularExpression>
#include <QTest>
#include <QTimer>
#include <QVBoxLayout>
#include <gtest/gtest.h>

#include <memory>
#include <set>

/// A child of any kind, with a list, buttons and a stage timer as the menus look for them.
struct PlainChild final : ChildWindow {
    PlainChild(int kind, int slot) : ChildWindow("PlainChild", &AppState::OtherCount)
    {
        Tag = WindowBuffer::fresh(kind, slot);
        auto* content = new QWidget;
        auto* column = new QVBoxLayout(content);
        list = new QListWidget;
        list->setObjectName("List1");
        column->addWidget(list);
        for (const char* name : {"CommLoadArr", "CommAdd"}) {
            auto* button = new QPushButton(name);
            button->setObjectName(name);
            column->addWidget(button);
            QObject::connect(button, &QPushButton::clicked, [this, name] { pressed << name; });
        }
        auto* timer = new StageTimer(this, "TimerLoadArr");
        timer->onTick([this] { pressed << "TimerLoadArr"; });
        setContent(content);
    }
    bool queryUnload() override
    {
        ++asked;
        return agrees;
    }
    void unload() override
    {
        ++unloads;
        if (onUnload)
            onUnload();
    }

    QListWidget* list;
    QStringList pressed;
    int asked = 0;
    int unloads = 0;
    std::function<void()> onUnload;
    bool agrees = true;
};

class MainWindow : public ShellTest
{
protected:
    MainWindow()
    {
        App.PathSty = songs.file("TvlSty");
        state.put("Dornflex", deviceRecord(1, 1, 77, 88));
        Midi.MidiOwner = true;
        Midi.MidiPortsOpen = 1;
        Midi.MidiOutHandle = 77;
        App.WinPos[1].Open = 0;
        StageTimer::setTimeScale(0.1);
    }
    ~MainWindow() override
    {
        window.reset();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        StageTimer::setTimeScale(1.0);
    }

    frmMain& start()
    {
        window = std::make_unique<frmMain>();
        return show();
    }
    /// Another run after one that has ended.
    void startAgain()
    {
        state.put("Dornflex", deviceRecord(1, 1, 77, 88));
        App.AppClosing = false;
        start();
    }
    /// With children of every kind instead of the real ones.
    frmMain& startWithPlainChildren()
    {
        window = std::make_unique<frmMain>([this](int kind, int slot) {
            plain.push_back(new PlainChild(kind, slot));
            return plain.back();
        });
        return show();
    }
    /// With windows that cannot be made.
    frmMain& startWithoutChildren()
    {
        window = std::make_unique<frmMain>([](int, int) { return nullptr; });
        return show();
    }
    frmMain& show()
    {
        window->Form_Load();
        window->showAsSaved();
        QTest::qWait(20);
        EXPECT_TRUE(QTest::qWaitFor([this] { return sessionIsBack(); }));
        return *window;
    }
    /// No timer of the last session's windows waits.
    bool sessionIsBack() const
    {
        for (QTimer* timer : window->findChildren<QTimer*>(QRegularExpression("^Timer(Auto|ArrU)\\(")))
            if (const auto* stage = dynamic_cast<StageTimer*>(timer); stage && stage->enabled())
                return false;
        return true;
    }
    QAction* item(const char* name) { return window->menuItem(name); }
    QString label(const char* name) { return window->statusPanel()->findChild<QLabel*>(name)->text(); }
    ChildWindow* childAt(int index) { return dynamic_cast<ChildWindow*>(window->area()->subWindowList().value(index)); }
    std::string song(const std::string& name) { return songs.put(name + ".arr", arrangementFile()); }

    std::unique_ptr<frmMain> window;
    std::vector<PlainChild*> plain;
};

using Lines = std::vector<std::string>;

inline std::string hexOf(const Lines& messages)
{
    std::string text;
    for (const std::string& message : messages)
        text += (text.empty() ? "" : " | ") + hex(message);
    return text;
}
