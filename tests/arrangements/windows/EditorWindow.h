// The real editor, opened by the arrangement window's button and driven by mouse and keys. What it writes is compared
// with the block as it was, every bit of it; what it sends with messages written out.
#pragma once

#include "ArrWindow.h"

#include "arrangements/frmEditArr.h"
#include "core/FieldTarget.h"

#include <QAbstractItemView>
#include <QCheckBox>
#include <QGroupBox>
#include <QSlider>
#include <QTabBar>
#include <QTabWidget>

#include <random>

struct EditShell : FakeShell {
    std::function<bool()> onCloseEditor;
    bool closeEditorOf(int sourceKind, int slot) override
    {
        const bool told = FakeShell::closeEditorOf(sourceKind, slot);
        return onCloseEditor ? onCloseEditor() : told;
    }
};

/// The port, with ArrEditBuf as it stood when the last message went out.
struct EditPort : DiaryService {
    using DiaryService::DiaryService;
    std::string bufferWhenSent;
    int midiOutLongMsg(std::int32_t handle, std::string_view message) override
    {
        bufferWhenSent = Arr.ArrEditBuf;
        return DiaryService::midiOutLongMsg(handle, message);
    }
};

/// A parameter message of the tests' global channel 3 from its parameter and value bytes, "0B 64 00".
inline std::string parameter(const std::string& bytes) { return "F0 42 32 4D 41 " + bytes + " F7"; }

/// A byte as two hexadecimal digits.
inline std::string pair(int value) { return hex(std::string(1, static_cast<char>(value))); }

class EditorWindow : public ArrWindow
{
protected:
    EditorWindow()
    {
        App.shell = &editShell;
        Midi.service = &editPort;
        editShell.onShow = [this](int kind) {
            if (kind == WindowKind::EditArr && editor == nullptr)
                show(new frmEditArr);
        };
    }

    void show(frmEditArr* made)
    {
        editor = made;
        showInArea(made);
    }

    /// Opens an arrangement file with this block in row 0 and presses Edit on it.
    void edit(const Block& block)
    {
        source = open(1, "song", arrFile({{0, block}, {1, Block().name("Second").style(7, 0)}}));
        clickRow(source, 0);
        press(source, "CommEdit");
        ASSERT_NE(editor, nullptr);
        forget();
    }
    /// Opens the editor on a block of no file.
    void editBlock(const std::string& block)
    {
        int row = 0;
        std::string file(32, '\0');
        file += block;
        ArrEditLoad(arrImage("/music/song", file + std::string(10528 - file.size(), '\0')), row);
        show(new frmEditArr);
        Arr.ArrEditOpen = true;
        forget();
    }
    /// Closes the editor as its close box does; false when it stays.
    bool closeEditor()
    {
        const bool closed = editor->close();
        collect();
        if (closed)
            editor = nullptr;
        return closed;
    }

    void forget()
    {
        diary.clear();
        editPort.forget();
    }
    /// What went out since the last look.
    std::vector<std::string> sent()
    {
        const std::vector<std::string> messages = wire(editPort);
        forget();
        return messages;
    }
    static std::vector<std::string> wire(const RecordingMidiService& service)
    {
        std::vector<std::string> messages;
        for (const std::string& message : service.messages())
            messages.push_back(hex(message));
        return messages;
    }

    static std::string block() { return Arr.ArrEditBuf.substr(0, 164); }
    static int byteOf(std::size_t offset) { return static_cast<unsigned char>(Arr.ArrEditBuf[offset]); }

    template <typename Control>
    Control* part(const std::string& name) const
    {
        return control<Control>(editor, QString::fromStdString(name));
    }
    static std::string member(const char* array, int index)
    {
        return std::string(array) + "(" + std::to_string(index) + ")";
    }
    QComboBox* combo(const char* array, int index) const { return part<QComboBox>(member(array, index)); }
    QSlider* fader(const char* array, int index) const { return part<QSlider>(member(array, index)); }
    QCheckBox* check(int index) const { return part<QCheckBox>(member("Check1", index)); }
    QLineEdit* field(int index) const { return part<QLineEdit>(member("Text1", index)); }
    QPushButton* button(const char* array, int index) const { return part<QPushButton>(member(array, index)); }
    std::string label(const char* array, int index) const
    {
        return part<QLabel>(member(array, index))->text().toLatin1().toStdString();
    }
    std::string shown(int index) const { return field(index)->text().toLatin1().toStdString(); }
    std::string caption() const { return editor->windowTitle().toStdString(); }

    void focus(QWidget* control) const { focusOnItsPage(editor, control); }
    void key(QWidget* control, int code) const
    {
        focus(control);
        QTest::keyClick(control, static_cast<Qt::Key>(code));
    }
    static void click(QWidget* widget, Qt::MouseButton button = Qt::LeftButton)
    {
        QTest::mouseClick(widget, button, {}, QPoint(widget->width() / 2, widget->height() / 2));
    }
    /// Goes to a row with the arrow keys.
    void choose(QComboBox* box, int row) const
    {
        while (box->currentIndex() != row)
            key(box, box->currentIndex() > row ? Qt::Key_Up : Qt::Key_Down);
    }
    /// Opens the list and presses a row of it.
    static void chooseByMouse(QComboBox* box, int row)
    {
        box->showPopup();
        QAbstractItemView* rows = box->view();
        const QPoint spot = rows->visualRect(rows->model()->index(row, 0)).center();
        QTest::mouseMove(rows->viewport(), spot);
        QTest::qWait(QApplication::doubleClickInterval() + 50); // an earlier press is taken as the opening's
        QTest::mouseClick(rows->viewport(), Qt::LeftButton, {}, spot);
        QApplication::processEvents();
    }
    void slide(QSlider* bar, int value) const
    {
        const bool upright = bar->orientation() == Qt::Vertical;
        while (bar->value() != value) {
            const bool more = bar->value() < value;
            key(bar, upright ? (more ? Qt::Key_Up : Qt::Key_Down) : (more ? Qt::Key_Right : Qt::Key_Left));
        }
    }

    /// The block as before, but for the bits of one byte.
    static std::string with(std::string before, std::size_t offset, int mask, int bits)
    {
        const int old = static_cast<unsigned char>(before[offset]);
        before[offset] = static_cast<char>((old & ~mask) | bits);
        return before;
    }
    static std::string randomBytes(std::mt19937& random, std::size_t count)
    {
        std::string bytes(count, '\0');
        for (char& byte : bytes)
            byte = static_cast<char>(random() & 0xFFU);
        return bytes;
    }
    static QColor baseColour(const QWidget* widget) { return widget->palette().color(QPalette::Base); }
    static QColor buttonColour(const QWidget* widget) { return widget->palette().color(QPalette::Button); }

    EditShell editShell;
    EditPort editPort{diary};
    frmArrU* source = nullptr;
    frmEditArr* editor = nullptr;
};

namespace EditorColour
{
inline const QColor Cyan(0, 255, 255);
inline const QColor Red(255, 0, 0);
inline const QColor Green(0, 255, 0);
inline const QColor Grey(0xC0, 0xC0, 0xC0);
} // namespace EditorColour

/// The editor on an ordinary arrangement.
class Editor : public EditorWindow
{
protected:
    static Block usual()
    {
        Block block;
        block.name("Evergreen").style(5, 0).set(21, 90).set(23, 60).set(25, 0xFF).set(29, 3).set(30, 8).set(31, 200);
        block.track(0, 12, 4).track(2, 33, 0).track(3, 70, 1);
        block.set(57, 64).set(58, 31).set(59, 0x2A).set(60, 1).set(61, 0x07).set(62, 255);
        return block;
    }
    std::vector<std::string> mutes(const std::vector<std::string>& bytes) const
    {
        std::vector<std::string> messages;
        for (const std::string& one : bytes)
            messages.push_back(parameter(one));
        return messages;
    }
    const std::vector<std::string> released = {"0F 00 00", "19 00 00", "23 00 00", "2D 00 00", "37 00 00",
                                               "41 00 00", "4B 00 00", "55 00 00", "5F 00 00"};
    /// Colours of the nine mute or solo buttons, one letter each: R, G or - for grey.
    std::string colours(const char* array) const
    {
        std::string text;
        for (int track = 0; track < 9; ++track) {
            const QColor colour = buttonColour(button(array, track));
            text += colour == EditorColour::Red     ? 'R'
                    : colour == EditorColour::Green ? 'G'
                    : colour == EditorColour::Grey  ? '-'
                                                    : '?';
        }
        return text;
    }
};

/// What a row of a list stores in its own bits, and the value bytes of its message.
struct ListRow {
    const char* text;
    int bits;
    const char* value; ///< "" for silence
};

/// Where the nine records stand in the block.
inline constexpr std::array<std::size_t, 9> Record = {39, 47, 55, 63, 71, 79, 87, 95, 103};

/// The editor on a block of random bytes.
class EditorControls : public EditorWindow
{
protected:
    static constexpr int SomeProgram = 6; ///< the field that is highlighted before each edit

    /// The edit that comes is the first one: nothing is changed, a field is highlighted, nothing was sent.
    void ready()
    {
        Arr.ArrEditDirty = false;
        editor->EditFieldSelect(SomeProgram);
        forget();
        before_ = Arr.ArrEditBuf;
    }
    enum class Sent { Written, BeforeTheWriting };
    /// Every bit of the buffer but the edit's own is as before, what was derived from the file too; the messages, the
    /// marks; and the byte stood in its place when its message went out, or not yet.
    void expectEdit(std::size_t offset, int mask, int bits, const std::vector<std::string>& messages,
                    Sent when = Sent::Written)
    {
        const std::string after = with(before_, offset, mask, bits);
        EXPECT_TRUE(Arr.ArrEditBuf == after) << hex(Arr.ArrEditBuf) << "\ninstead of\n" << hex(after);
        if (!messages.empty()) {
            EXPECT_TRUE(editPort.bufferWhenSent == (when == Sent::Written ? after : before_)) << "written too late";
        }
        EXPECT_EQ(sent(), messages);
        EXPECT_TRUE(Arr.ArrEditDirty);
        expectNoHighlight();
    }
    void expectNoHighlight() const
    {
        EXPECT_FALSE(editor->PrgFieldSelected());
        EXPECT_NE(baseColour(field(SomeProgram)), QColor(0, 255, 255));
    }

    EditorControls()
    {
        std::mt19937 random(65);
        editBlock(randomBytes(random, 164));
    }

    std::vector<std::string> message(const char* number, const char* value) const
    {
        if (*number == '\0' || *value == '\0')
            return {};
        return {parameter(std::string(number) + " " + value)};
    }

private:
    std::string before_;
};
