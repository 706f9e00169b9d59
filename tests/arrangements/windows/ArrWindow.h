// The real arrangement window in a window area, driven by mouse and keys; the shell and the port write one diary.
#pragma once

#include "../ArrRoom.h"

#include "arrangements/frmArrU.h"
#include "support/WindowDiary.h"
#include "toolkit/RowList.h"
#include "toolkit/StageTimer.h"

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMdiArea>
#include <QPointer>
#include <QPushButton>
#include <QTest>

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

class ArrWindow : public ArrRoom
{
protected:
    ArrWindow()
    {
        run.speak(2);
        App.ui = &diaryUser;
        App.shell = &shell;
        Midi.service = &port;
        StageTimer::setTimeScale(0.02);
        area = std::make_unique<QMdiArea>();
        area->resize(1000, 800);
        area->show();
    }
    ~ArrWindow() override
    {
        area.reset();
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        StageTimer::setTimeScale(1);
        App.shell = nullptr;
    }

    /// Opens a window on an arrangement file of the folder, as the shell does it.
    frmArrU* open(int slot, const std::string& name, const std::string& file)
    {
        Files.ArrBuffer = file;
        SessionEntry& entry = App.Arrangements[static_cast<std::size_t>(slot - 1)];
        entry.path = folder().file(name);
        auto* opened = new frmArrU(slot);
        area->addSubWindow(opened);
        opened->show();
        QApplication::processEvents();
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

    template <typename Control>
    static Control* control(const QWidget* window, const char* name)
    {
        auto* found = window->findChild<Control*>(QLatin1String(name));
        EXPECT_NE(found, nullptr) << name;
        return found;
    }
    static RowList* list(const QWidget* window) { return static_cast<RowList*>(control<QListWidget>(window, "List1")); }
    static StageTimer* timer(const QWidget* window, const char* name)
    {
        return static_cast<StageTimer*>(control<QTimer>(window, name));
    }
    static std::string text(const QWidget* window, const char* name)
    {
        return control<QLineEdit>(window, name)->text().toLatin1().toStdString();
    }
    static std::string style(const QWidget* window)
    {
        return control<QComboBox>(window, "Combo1")->currentText().toLatin1().toStdString();
    }
    static bool enabled(const QWidget* window, const char* name)
    {
        return control<QPushButton>(window, name)->isEnabled();
    }
    static void press(const QWidget* window, const char* name)
    {
        QTest::mouseClick(control<QPushButton>(window, name), Qt::LeftButton);
    }
    static QPoint place(const QWidget* window, int row)
    {
        RowList* rows = list(window);
        rows->scrollToItem(rows->item(row));
        return rows->visualItemRect(rows->item(row)).center();
    }
    static void clickRow(const QWidget* window, int row, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::mouseClick(list(window)->viewport(), Qt::LeftButton, modifiers, place(window, row));
    }
    /// Lets events run until the diary ends with a line, or time is up.
    bool until(const std::string& last)
    {
        return QTest::qWaitFor([&] { return !diary.empty() && diary.back() == last; }, 3000);
    }
    /// Lets events run until no stage timer of the window is enabled.
    static bool settled(const QWidget* window)
    {
        return QTest::qWaitFor(
            [window] {
                for (QTimer* one : window->findChildren<QTimer*>())
                    if (auto* stage = dynamic_cast<StageTimer*>(one); stage && stage->enabled())
                        return false;
                return true;
            },
            3000);
    }
    std::string infoOnDisk(std::size_t offset) const { return folder().get("TvlCMInfo").substr(offset, 50); }
    static std::string fifty(std::string name)
    {
        name.resize(50, ' ');
        return name;
    }

    Lines diary;
    DiaryUser diaryUser{diary};
    DiaryService port{diary};
    FakeShell shell;
    std::unique_ptr<QMdiArea> area;
};

/// The instrument's side of packing: each run's first byte holds the top bits of the up to seven behind it.
inline std::string unpacked(const std::string& packed)
{
    std::string bytes;
    for (std::size_t run = 0; run < packed.size(); run += 8)
        for (std::size_t i = 1; i < 8 && run + i < packed.size(); ++i) {
            const int top = (packed[run] >> (i - 1)) & 1;
            bytes += static_cast<char>(packed[run + i] | (top << 7));
        }
    return bytes;
}

/// The body of a SysEx message behind its five bytes of head, without its last byte.
inline std::string bodyOf(const std::string& message) { return unpacked(message.substr(5, message.size() - 6)); }
