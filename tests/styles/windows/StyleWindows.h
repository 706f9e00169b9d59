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
#include "support/WindowHands.h"

#include <QContextMenuEvent>
#include <QLabel>

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

class StyleWindows : public testing::Test, protected WindowHands
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
        openArea();
    }
    ~StyleWindows() override
    {
        closeArea();
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
        showInArea(made);
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

    static Lines texts(const ChildWindow* window, const char* array, int count)
    {
        Lines found;
        for (int index = 0; index < count; ++index)
            found.push_back(text(window, QStringLiteral("%1(%2)").arg(QLatin1String(array)).arg(index)));
        return found;
    }
    /// A press of the right button as the platform asks for a menu.
    static void rightPress(QWidget* place)
    {
        const QPoint middle = place->rect().center();
        QContextMenuEvent event(QContextMenuEvent::Mouse, middle, place->mapToGlobal(middle));
        QApplication::sendEvent(place, &event);
    }
    std::vector<std::string> longMessages() const { return port.longMessages(); }
    std::string styleInTheInfoFile() const { return run.folder.get("TvlCMInfo").substr(100, 50); }
    bool asked(const std::string& title) const
    {
        return !user.questions.empty() && user.questions.back().title == title;
    }

    CoreRun run;
    Lines diary;
    DiaryUser user{diary};
    DiaryService port{diary};
    FakeShell shell;
};
