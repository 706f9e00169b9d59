// The real arrangement window in a window area, driven by mouse and keys; the shell and the port write one diary.
#pragma once

#include "../ArrRoom.h"

#include "arrangements/frmArrU.h"
#include "support/Unpacked.h"
#include "support/WindowDiary.h"
#include "support/WindowHands.h"

#include <QComboBox>
#include <QLabel>
#include <QPointer>

#include <map>
#include <memory>
#include <set>

struct FakeEditor : ArrEditor {
    int fills = 0;
    void ArrEditFill() override
    {
        ++fills;
        Arr.ArrEditDirty = false;
    }
};

class ArrWindow : public ArrRoom, protected WindowHands
{
protected:
    ArrWindow()
    {
        run.speak(2);
        App.ui = &diaryUser;
        App.shell = &shell;
        Midi.service = &port;
        StageTimer::setTimeScale(0.02);
        openArea();
    }
    ~ArrWindow() override
    {
        closeArea();
        StageTimer::setTimeScale(1);
        App.shell = nullptr;
    }

    /// Opens a window on an arrangement file of the folder, as the shell does it.
    frmArrU* open(int slot, const std::string& name, const std::string& file)
    {
        Files.ArrBuffer = file;
        SessionEntry& entry = App.Arrangements[static_cast<std::size_t>(slot - 1)];
        entry.path = folder().file(name);
        auto* opened = showInArea(new frmArrU(slot));
        diary.clear();
        port.forget();
        return opened;
    }
    /// The usual file: a factory style in row 0, a user style in row 1, bank D in row 2, row 3 empty, a last row.
    static std::string usualFile()
    {
        return arrFile({{0, Block().name("Evergreen").style(5, 0)},
                        {1, Block().name("My Own").style(2, 1)},
                        {2, Block().name("Strings").style(127, 0).track(3, 70, 1)},
                        {63, Block().name("Last One").style(0, 0)}});
    }
    frmArrU* openUsual(int slot = 1) { return open(slot, "song", usualFile()); }
    /// A style file of two groups: sixteen blocks, the last eight empty.
    void putStyles(const std::string& name = "song.sty") { folder().put(name, styles()); }
    static std::string styles()
    {
        Slots blocks(16, {"- empty -", 20});
        for (std::size_t i = 0; i < 8; ++i)
            blocks[i] = {"Style " + std::to_string(i), 40 + static_cast<int>(i)};
        return styFile(blocks);
    }

    static std::string style(const QWidget* window)
    {
        return control<QComboBox>(window, "Combo1")->currentText().toLatin1().toStdString();
    }
    /// Lets events run until the diary ends with a line, or time is up.
    bool until(const std::string& last)
    {
        return QTest::qWaitFor([&] { return !diary.empty() && diary.back() == last; }, 3000);
    }
    std::string infoOnDisk(std::size_t offset) const { return folder().get("TvlCMInfo").substr(offset, 50); }

    Lines diary;
    DiaryUser diaryUser{diary};
    DiaryService port{diary};
    FakeShell shell;
};
