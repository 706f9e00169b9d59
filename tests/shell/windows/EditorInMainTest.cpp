// The real editor in the real main window: opened by button, menu and double click, followed by the selection, closed
// with its arrangement window and at the exit; and the keyboard window beside it.
#include "MainWindowFixture.h"

#include "arrangements/ArrEdit.h"
#include "core/FieldTarget.h"

#include <QSlider>

namespace
{

constexpr std::size_t FirstRow = 32;
constexpr std::size_t BassVolume = 39 + 8 * 2 + 2;

class EditorInMain : public MainWindow
{
protected:
    EditorInMain()
    {
        Arr = {};
        songs.put("TvlSty", styleFile());
        speak(2);
    }
    ~EditorInMain() override
    {
        window.reset();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        Arr = {};
    }

    static std::string songFile()
    {
        std::string file = arrangementFile("Ballad          ");
        file.replace(32 + 164, 16, "Second          ");
        file[FirstRow + BassVolume] = 100;
        file[FirstRow + 27] = 0x04; // KBD1 Damp En
        return file;
    }
    void openSong()
    {
        start();
        user.files.push_back({true, songs.put("song.arr", songFile()), 1, false});
        item("mnuApriArr")->trigger();
        QApplication::processEvents();
        arrangements = childAt(0);
        ASSERT_NE(arrangements, nullptr);
    }
    void openEditor()
    {
        openSong();
        clickRow(0);
        port.forget();
        QTest::mouseClick(part<QPushButton>(arrangements, "CommEdit"), Qt::LeftButton);
        ASSERT_NE(editor(), nullptr);
    }
    void clickRow(int row)
    {
        auto* list = part<QListWidget>(arrangements, "List1");
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(list->item(row)).center());
    }
    ChildWindow* child(const char* name) const
    {
        for (QMdiSubWindow* sub : window->area()->subWindowList())
            if (sub->objectName() == QLatin1String(name) && !sub->isHidden())
                return dynamic_cast<ChildWindow*>(sub);
        return nullptr;
    }
    ChildWindow* editor() const { return child("frmEditArr"); }
    template <typename Control>
    static Control* part(const ChildWindow* of, const char* name)
    {
        auto* found = of->findChild<Control*>(QLatin1String(name));
        EXPECT_NE(found, nullptr) << name;
        return found;
    }
    void key(const char* control, Qt::Key code)
    {
        auto* found = part<QWidget>(editor(), control);
        found->setFocus();
        QTest::keyClick(found, code);
    }
    Lines sent()
    {
        Lines messages;
        for (const std::string& message : port.messages())
            messages.push_back(hex(message));
        port.forget();
        return messages;
    }
    static std::string parameter(const char* bytes) { return std::string("F0 42 30 4D 41 ") + bytes + " F7"; }

    ChildWindow* arrangements = nullptr;
};

TEST_F(EditorInMain, opensOnTheRowAndIsHeardAtOnce)
{
    openEditor();
    EXPECT_EQ(sent(), Lines{parameter("4F 01 00")}) << "the damp switch that the arrangement has on";
    EXPECT_EQ(editor()->windowTitle(), "Edit Arrangement  song.arr / Ballad    ");
    EXPECT_TRUE(Arr.ArrEditOpen);
    EXPECT_EQ(window->area()->activeSubWindow(), editor());
    EXPECT_FALSE(part<QPushButton>(arrangements, "CommEdit")->isEnabled());
    key("VScroll1(5)", Qt::Key_Up);
    EXPECT_EQ(sent(), Lines{parameter("1F 65 00")});
    EXPECT_TRUE(arrangements->Tag.bytes().substr(270, songFile().size()) == songFile()) << "not before it is stored";
    Arr.ArrEditDirty = false;
}

TEST_F(EditorInMain, theMenuItemAndADoubleClickOpenItToo)
{
    openSong();
    EXPECT_FALSE(item("mnuEditArr")->isEnabled()) << "no row is selected";
    clickRow(0);
    ASSERT_TRUE(item("mnuEditArr")->isEnabled());
    item("mnuEditArr")->trigger();
    ASSERT_TRUE(QTest::qWaitFor([&] { return editor() != nullptr; }));
    EXPECT_FALSE(item("mnuEditArr")->isEnabled());
    ASSERT_TRUE(editor()->unloadChild());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    ASSERT_EQ(editor(), nullptr);
    EXPECT_EQ(fieldTarget(), nullptr);

    auto* list = part<QListWidget>(arrangements, "List1");
    clickRow(1);
    QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(list->item(1)).center());
    ASSERT_NE(editor(), nullptr);
    EXPECT_EQ(editor()->windowTitle(), "Edit Arrangement  song.arr / Second    ");
}

TEST_F(EditorInMain, thereIsOneEditorAndItFollowsTheSelection)
{
    openEditor();
    key("VScroll1(5)", Qt::Key_Down);
    user.answers = {Answer::Yes};
    clickRow(1);
    ASSERT_EQ(user.questions.size(), 1u);
    EXPECT_EQ(user.questions[0].text, "The Arrangement has changed.\nSave changes ?");
    EXPECT_EQ(arrangements->Tag.at(270 + FirstRow + BassVolume), 99);
    EXPECT_EQ(arrangements->Tag.at(3), 1);
    EXPECT_EQ(editor()->windowTitle(), "Edit Arrangement  song.arr / Second    ");
    EXPECT_FALSE(Arr.ArrEditDirty);
    EXPECT_EQ(window->area()->subWindowList().size(), 2);

    key("VScroll1(5)", Qt::Key_End);
    user.answers = {Answer::No};
    clickRow(0);
    EXPECT_EQ(arrangements->Tag.at(270 + FirstRow + 164 + BassVolume), 0) << "given up";
    EXPECT_EQ(part<QSlider>(editor(), "VScroll1(5)")->value(), 99);
}

TEST_F(EditorInMain, closingTheArrangementWindowAsksTheEditorFirstAndSaves)
{
    openEditor();
    key("VScroll1(5)", Qt::Key_Up);
    user.answers = {Answer::Cancel};
    EXPECT_FALSE(arrangements->unloadChild());
    EXPECT_NE(editor(), nullptr);
    EXPECT_TRUE(Arr.ArrEditDirty);

    user.answers = {Answer::Yes, Answer::Yes};
    EXPECT_TRUE(arrangements->unloadChild());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    ASSERT_EQ(user.questions.size(), 3u);
    EXPECT_EQ(user.questions[1].title, "Edit Arrangement  song.arr / Ballad    ");
    EXPECT_EQ(user.questions[2].title, "File Arr - song.arr (1)");
    EXPECT_EQ(editor(), nullptr);
    EXPECT_TRUE(window->area()->subWindowList().isEmpty());
    std::string expected = songFile();
    expected[FirstRow + BassVolume] = 101;
    EXPECT_TRUE(songs.get("song.arr") == expected);
    EXPECT_FALSE(Arr.ArrEditOpen);
}

TEST_F(EditorInMain, theExitAsksForTheEditOnceAndSavesIt)
{
    openEditor();
    key("VScroll1(5)", Qt::Key_Up);
    user.answers = {Answer::Yes, Answer::Yes};
    bool gone = false;
    window->onGone = [&] { gone = true; };
    item("mnuExit")->trigger();
    EXPECT_TRUE(gone);
    EXPECT_EQ(user.questions.size(), 2u);
    std::string expected = songFile();
    expected[FirstRow + BassVolume] = 101;
    EXPECT_TRUE(songs.get("song.arr") == expected);
}

TEST_F(EditorInMain, cancelAtTheExitKeepsEverythingOpen)
{
    openEditor();
    key("VScroll1(5)", Qt::Key_Up);
    user.answers = {Answer::Cancel};
    item("mnuExit")->trigger();
    EXPECT_TRUE(window->isVisible());
    ASSERT_NE(editor(), nullptr);
    EXPECT_TRUE(Arr.ArrEditDirty);
    EXPECT_TRUE(songs.get("song.arr") == songFile());
    port.forget();
    key("VScroll1(5)", Qt::Key_Up);
    EXPECT_EQ(sent(), Lines{parameter("1F 66 00")}) << "it goes on working";
    Arr.ArrEditDirty = false;
}

TEST_F(EditorInMain, anArrangementOfABankIsAskedForBeforeItsBank)
{
    App.PathArrA = songs.put("TvlArrA", songFile());
    start();
    item("mnuArrA")->trigger();
    ChildWindow* bank = child("frmArrAB");
    ASSERT_NE(bank, nullptr);
    int row = 0;
    ArrEditLoad(bank->Tag.bytes(), row);
    window->showWindow(WindowKind::EditArr, 0);
    Arr.ArrEditOpen = true;
    key("VScroll1(5)", Qt::Key_Up);
    user.answers = {Answer::Cancel};
    EXPECT_FALSE(bank->unloadChild());
    ASSERT_NE(editor(), nullptr);

    user.answers = {Answer::Cancel};
    item("mnuExit")->trigger();
    EXPECT_TRUE(window->isVisible());
    ASSERT_NE(editor(), nullptr);

    user.answers = {Answer::Yes, Answer::Cancel};
    EXPECT_FALSE(bank->unloadChild()) << "stored in the bank, which is asked about next";
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(editor(), nullptr);
    EXPECT_EQ(bank->Tag.at(302 + static_cast<int>(BassVolume)), 101);
    ASSERT_EQ(user.questions.size(), 4u);
    EXPECT_EQ(user.questions[2].title, "Edit Arrangement  Arr A.arr / Ballad    ");
    EXPECT_EQ(user.questions[3].title, "Arr A");

    user.answers = {Answer::Yes};
    user.saveFiles = {{true, songs.file("mine.arr"), 1}};
    EXPECT_TRUE(bank->unloadChild());
    std::string expected = songFile();
    expected[FirstRow + BassVolume] = 101;
    EXPECT_TRUE(songs.get("mine.arr") == expected);
    EXPECT_TRUE(songs.get("TvlArrA") == songFile()) << "the factory's own file stays";
}

TEST_F(EditorInMain, itsSplitPointMovesTheKeyboardWindows)
{
    openEditor();
    item("mnuTastiera")->trigger();
    QApplication::processEvents();
    const ChildWindow* keyboard = child("frmTastiera");
    ASSERT_NE(keyboard, nullptr);
    auto* split = part<QSlider>(keyboard, "VScroll1");
    window->area()->setActiveSubWindow(editor());
    port.forget();
    key("HScroll1(0)", Qt::Key_Right);
    EXPECT_EQ(split->value(), 61);
    EXPECT_EQ(part<QSlider>(editor(), "HScroll1(0)")->value(), 61);
    // The editor's own message, and that of the keyboard's bar, which moves as by hand.
    EXPECT_EQ(sent(), (Lines{parameter("02 3D 00"), parameter("02 3D 00")}));
    EXPECT_EQ(static_cast<unsigned char>(Arr.ArrEditBuf[23]), 61);

    child("frmTastiera")->unloadChild();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    port.forget();
    key("HScroll1(0)", Qt::Key_Right);
    EXPECT_EQ(sent(), Lines{parameter("02 3E 00")}) << "alone again";
    Arr.ArrEditDirty = false;
}

} // namespace
