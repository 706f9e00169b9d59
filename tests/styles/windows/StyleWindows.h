// The real style windows in a window area, driven by mouse and keys; shell, user and port write one diary.
#pragma once

#include "core/FieldTarget.h"
#include "core/NameTables.h"
#include "files/FileReaders.h"
#include "midi/MIDI.h"
#include "midi/MsgLog.h"
#include "styles/StyleSends.h"
#include "styles/frmStyAB.h"
#include "styles/frmStyUN.h"
#include "support/CoreRun.h"
#include "support/StyleFiles.h"
#include "support/WindowDiary.h"
#include "toolkit/RowList.h"
#include "toolkit/StageTimer.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMdiArea>
#include <QPushButton>
#include <QTest>
#include <gtest/gtest.h>

#include <memory>

/// The message monitor's window, as far as callers see it.
struct Monitor : MessageMonitor {
    Lines lines;
    void clear() override { lines.emplace_back("cleared"); }
    void append(const std::string& text) override { lines.push_back(text); }
};

/// The editor's highlighted style field.
struct StyleField : FieldTarget {
    bool highlighted = true;
    Lines taken;
    bool PrgFieldSelected() const override { return !highlighted; }
    bool StyFieldSelected() const override { return highlighted; }
    int highlightedTrack() const override { return highlighted ? -1 : 2; }
    void assignProgram(int, int, const std::string&, const std::string&) override { taken.emplace_back("program"); }
    void assignStyle(int number, int bank, const std::string& name, const std::string& label) override
    {
        taken.push_back(std::to_string(number) + "/" + std::to_string(bank) + " " + name + " " + label);
    }
};

/// The shell, with the edit menu counted.
struct StyleShell : FakeShell {
    int popups = 0;
    void popupEditMenu() override { ++popups; }
};

class StyleWindows : public testing::Test
{
protected:
    StyleWindows()
    {
        forgetState();
        SettingsFile::setDefaults(App);
        App.ui = &user;
        App.shell = &shell;
        run.speak(2);
        App.GlobalChannel = 2;
        Midi.service = &port;
        Files.StyEmptyBuffer = emptyStyles();
        NameTablesBuild();
        std::string info(1000, ' ');
        run.folder.put("TvlCMInfo", info.replace(0, 9, "TvlCMInfo"));
        StageTimer::setTimeScale(0.02);
        area = std::make_unique<QMdiArea>();
        area->resize(1000, 800);
        area->show();
    }
    ~StyleWindows() override
    {
        area.reset();
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        StageTimer::setTimeScale(1);
        MsgLogAttach(nullptr);
        setFieldTarget(nullptr);
        forgetState();
    }
    static void forgetState()
    {
        Midi = {};
        Files = {};
        StyLoad = {};
        OpenWindows::clear();
    }

    template <typename Window>
    Window* show(Window* made)
    {
        area->addSubWindow(made);
        made->show();
        QApplication::processEvents();
        diary.clear();
        port.forget();
        return made;
    }
    /// Opens a window on a style file of the folder, as the shell does it.
    frmStyUN* open(const std::string& file, int slot = 1, const std::string& name = "song")
    {
        EXPECT_EQ(StyFileRead(run.folder.put(name + ".sty", file)), 0);
        SessionEntry& entry = record(slot);
        entry.used = true;
        entry.path = run.folder.file(name);
        return show(new frmStyUN(23, slot));
    }
    frmStyUN* openUntitled(int slot)
    {
        Files.StyBuffer = emptyStyles();
        record(slot).path.clear();
        return show(new frmStyUN(24, slot));
    }
    static SessionEntry& record(int slot) { return App.Styles[static_cast<std::size_t>(slot - 1)]; }

    /// Sixteen styles of 40 to 55 bytes; those from `used` on are empty ones.
    static std::string sixteen(int used = 16)
    {
        Slots blocks;
        for (int slot = 0; slot < 16; ++slot)
            blocks.emplace_back(slot < used ? "Style " + std::to_string(slot) : "- empty -", 40 + slot);
        return styFile(blocks);
    }

    template <typename Control>
    static Control* control(const ChildWindow* window, const QString& name)
    {
        auto* found = window->findChild<Control*>(name);
        EXPECT_NE(found, nullptr) << name.toStdString();
        return found;
    }
    static RowList* list(const ChildWindow* window)
    {
        return static_cast<RowList*>(control<QListWidget>(window, "List1"));
    }
    static StageTimer* timer(const ChildWindow* window, const QString& name)
    {
        return static_cast<StageTimer*>(control<QTimer>(window, name));
    }
    static std::string text(const ChildWindow* window, const QString& name)
    {
        return control<QLineEdit>(window, name)->text().toLatin1().toStdString();
    }
    static Lines texts(const ChildWindow* window, const char* array, int count)
    {
        Lines found;
        for (int index = 0; index < count; ++index)
            found.push_back(text(window, QStringLiteral("%1(%2)").arg(QLatin1String(array)).arg(index)));
        return found;
    }
    static bool enabled(const ChildWindow* window, const QString& name)
    {
        return control<QPushButton>(window, name)->isEnabled();
    }
    static void press(const ChildWindow* window, const QString& name)
    {
        QTest::mouseClick(control<QPushButton>(window, name), Qt::LeftButton);
    }
    static void clickRow(const ChildWindow* window, int row, Qt::KeyboardModifiers modifiers = {},
                         Qt::MouseButton button = Qt::LeftButton)
    {
        RowList* rows = list(window);
        rows->scrollToItem(rows->item(row));
        QTest::mouseClick(rows->viewport(), button, modifiers, rows->visualItemRect(rows->item(row)).center());
    }
    /// A press of the right button as the platform asks for a menu.
    static void rightPress(QWidget* place)
    {
        const QPoint middle = place->rect().center();
        QContextMenuEvent event(QContextMenuEvent::Mouse, middle, place->mapToGlobal(middle));
        QApplication::sendEvent(place, &event);
    }
    /// Lets events run until no stage timer of the window is enabled.
    static bool settled(const ChildWindow* window)
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
    std::vector<std::string> longMessages() const
    {
        std::vector<std::string> found;
        for (const std::string& message : port.messages())
            if (message.size() > 8)
                found.push_back(message);
        return found;
    }
    std::string styleInTheInfoFile() const { return run.folder.get("TvlCMInfo").substr(100, 50); }
    static std::string fifty(std::string name)
    {
        name.resize(50, ' ');
        return name;
    }
    bool asked(const std::string& title) const
    {
        return !user.questions.empty() && user.questions.back().title == title;
    }

    CoreRun run;
    Lines diary;
    DiaryUser user{diary};
    DiaryService port{diary};
    StyleShell shell;
    std::unique_ptr<QMdiArea> area;
};
