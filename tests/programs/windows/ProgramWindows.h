// The real program windows in a window area, driven by mouse and keys; shell, user and port write one diary.
#pragma once

#include "core/Dichiarazioni.h"
#include "core/FieldTarget.h"
#include "core/NameTables.h"
#include "files/FileReaders.h"
#include "files/WindowBuffer.h"
#include "midi/MIDI.h"
#include "midi/MsgLog.h"
#include "programs/ProgramSends.h"
#include "programs/frmDrum.h"
#include "programs/frmPcgAE.h"
#include "programs/frmPrgUN.h"
#include "support/CoreRun.h"
#include "support/Unpacked.h"
#include "support/WindowDiary.h"
#include "support/WindowHands.h"

#include <QComboBox>
#include <QLabel>
#include <QPointer>

/// A program file of 30480 bytes: head with its channel at 15, records of 172 bytes from 48.
struct Programs {
    explicit Programs(const char* signature = "KORG", int channel = 0) : bytes(30480, '\0')
    {
        bytes.replace(0, 7, std::string(signature) + std::string("\x4D\0\0", 3));
        bytes[15] = static_cast<char>(channel);
        for (std::size_t i = 23096; i < 25200; ++i) // the second area that is sent
            bytes[i] = static_cast<char>(i * 7);
    }
    Programs& record(std::size_t row, int state, int bank, int number, std::string name)
    {
        std::string record(172, '\0');
        for (std::size_t i = 0; i < record.size(); ++i)
            record[i] = static_cast<char>(row * 5 + i * 3 + 128);
        record[0] = static_cast<char>(state);
        record[1] = static_cast<char>(bank);
        record[2] = static_cast<char>(number);
        name.resize(16, ' ');
        record.replace(3, 16, name);
        bytes.replace(48 + 172 * row, 172, record);
        return *this;
    }
    std::string bytes;
};

/// A full program's first byte: any but 0 and 1.
inline constexpr int Full = 0x42;

/// An editor with a highlighted field that keeps what a list hands it.
struct PickingEditor : FieldTarget {
    bool program = true;
    Lines picked;

    bool PrgFieldSelected() const override { return program; }
    bool StyFieldSelected() const override { return !program; }
    int highlightedTrack() const override { return program ? 3 : -1; }
    void assignProgram(int number, int bank, const std::string& name, const std::string& label) override
    {
        picked.push_back(std::to_string(number) + " " + std::to_string(bank) + " " + name + " (" + label + ")");
    }
    void assignStyle(int, int, const std::string&, const std::string&) override { ADD_FAILURE() << "no style here"; }
};

/// A message monitor that writes into the diary; of a long message the number of its bytes.
struct DiaryMonitor : MessageMonitor {
    explicit DiaryMonitor(Lines& book) : diary(book) {}
    void clear() override { diary.push_back("log cleared"); }
    void append(const std::string& text) override
    {
        diary.push_back("log " + (text.size() > 100 ? "(" + std::to_string((text.size() - 2) / 3) + ")"
                                                    : text.substr(0, text.find_last_not_of(" \n") + 1)));
    }
    Lines& diary;
};

class ProgramWindows : public testing::Test, protected WindowHands
{
protected:
    ProgramWindows()
    {
        Midi = {};
        Files = {};
        PrgSend = {};
        OpenWindows::clear();
        setFieldTarget(nullptr);
        SettingsFile::setDefaults(App);
        App.StateDir = run.folder.path();
        App.ui = &user;
        App.shell = &shell;
        run.speak(2);
        NameTablesBuild();
        InfoFileCheck();
        Midi.service = &port;
        Midi.MidiOutHandle = 77;
        App.GlobalChannel = 2;
        StageTimer::setTimeScale(0);
        openArea();
    }
    ~ProgramWindows() override
    {
        closeArea();
        StageTimer::setTimeScale(1);
        setFieldTarget(nullptr);
        MsgLogAttach(nullptr);
        OpenWindows::clear();
        Midi = {};
        Files = {};
        PrgSend = {};
    }

    template <typename Window>
    Window* show(Window* window)
    {
        showInArea(window);
        forget();
        return window;
    }
    /// A window on "song.prg" or "song.pgg", as the shell opens it.
    frmPrgUN* open(const std::string& file, int slot = 1, int type = 0)
    {
        Files.PrgBuffer = file;
        SessionEntry& entry = App.Programs[static_cast<std::size_t>(slot - 1)];
        entry.path = run.folder.file("song");
        entry.programType = type;
        entry.used = true;
        return show(new frmPrgUN(21, slot));
    }
    frmPrgUN* openNew(int slot = 1)
    {
        Files.PrgBuffer = Programs().bytes;
        return show(new frmPrgUN(22, slot));
    }

    /// From here on the messages that are logged stand in the diary.
    void openMonitor()
    {
        Midi.MsgLogActive = true;
        MsgLogAttach(&monitor);
    }
    /// A press in the empty part of the list, behind its last row.
    void clickBelowTheRows(ChildWindow* window)
    {
        RowList* rows = list(window);
        const int last = rows->count() - 1;
        window->resize(window->width(), rows->count() * rows->sizeHintForRow(0) + 300);
        QApplication::processEvents();
        rows->scrollToItem(rows->item(last));
        const QPoint below(20, rows->visualItemRect(rows->item(last)).bottom() + 20);
        ASSERT_TRUE(rows->viewport()->rect().contains(below));
        QTest::mouseClick(rows->viewport(), Qt::LeftButton, {}, below);
    }

    void forget()
    {
        diary.clear();
        port.forget();
    }
    /// All that was sent since the last look.
    std::string sent()
    {
        std::string text;
        for (const std::string& message : port.messages())
            text += (text.empty() ? "" : " | ") + hex(message);
        forget();
        return text;
    }
    /// Bank select and program change, written out.
    static std::string selection(int channel, int bank, int program)
    {
        char text[64];
        std::snprintf(text, sizeof text, "B%X 00 00 | B%X 20 %02X | C%X %02X", channel, channel, bank, channel,
                      program);
        return text;
    }
    static QComboBox* channelBox(ChildWindow* window) { return control<QComboBox>(window, "Combo1"); }
    /// Goes to a channel, 0 to 15, with the arrow keys.
    static void chooseChannel(ChildWindow* window, int channel)
    {
        QComboBox* box = channelBox(window);
        while (box->currentIndex() != channel)
            QTest::keyClick(box, box->currentIndex() > channel ? Qt::Key_Up : Qt::Key_Down);
    }
    /// Goes to a row with the arrow keys and Home.
    static void keyToRow(ChildWindow* window, int row)
    {
        QTest::keyClick(list(window), row == 0 ? Qt::Key_Home : Qt::Key_Down);
        ASSERT_EQ(list(window)->currentRow(), row);
    }
    static std::string title(const ChildWindow* window) { return window->windowTitle().toStdString(); }

    CoreRun run;
    Lines diary;
    DiaryUser user{diary};
    DiaryService port{diary};
    DiaryMonitor monitor{diary};
    FakeShell shell;
    PickingEditor editor;
};
