// The global window's life: opening, buttons, resets, channels, closing; and events in any order.
#include "GblWindow.h"

TEST_F(GblWindow, opensAFileAtTheTopLeftInItsStandardSize)
{
    App.Globals[2].readOnly = true;
    open(std::string(415, '\0'), 2);
    EXPECT_EQ(window->objectName(), "frmGbl");
    EXPECT_EQ(window->windowTitle(), "File Gbl - stage2.gbl (2)Read Only");
    const WindowPosition place = window->positionInTwips();
    EXPECT_EQ(place.left, 0);
    EXPECT_EQ(place.top, 0);
    EXPECT_EQ(place.width, 9072);
    EXPECT_EQ(place.height, 5640);
    EXPECT_EQ(window->Tag.at(0), 25);
    EXPECT_EQ(window->Tag.at(1), 1);
    EXPECT_EQ(window->Tag.at(3), 0);
    EXPECT_EQ(window->Tag.at(14), 2);
    EXPECT_EQ(App.GblCount, 1);
    EXPECT_FALSE(Gbl.GblLoading);
    EXPECT_EQ(part<QPushButton>("CommClose")->text(), "&Close");
}

TEST_F(GblWindow, theInstrumentsWindowOpensWhereItStood)
{
    App.WinPos[14] = {300, 450, 0, 0, 0, 0};
    open(std::string(415, '\x05'), 0);
    EXPECT_EQ(window->windowTitle(), "Global Parameters");
    EXPECT_EQ(window->Tag.at(0), 14);
    EXPECT_EQ(window->Tag.at(14), 0);
    EXPECT_EQ(App.WinPos[14].Open, 1);
    EXPECT_EQ(window->positionInTwips().width, 9072) << "it sets its own size";
    EXPECT_EQ(window->positionInTwips().height, 5640);
    window->placeInTwips(600, 750, 9900, 6000);
    EXPECT_TRUE(window->unloadChild());
    EXPECT_EQ(App.WinPos[14].left, 600);
    EXPECT_EQ(App.WinPos[14].top, 750);
    EXPECT_EQ(App.WinPos[14].width, 9900);
    EXPECT_EQ(App.WinPos[14].height, 6000);
    EXPECT_EQ(App.WinPos[14].Open, 0);
}

TEST_F(GblWindow, aRightPressOpensTheEditMenu)
{
    open();
    for (const char* name : {"Frame4", "Frame5(0)", "Frame6", "GblCombo1(0)", "SSTab1"}) {
        auto* widget = part<QWidget>(name);
        focus(widget);
        shell.popups = 0;
        QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(3, 3), widget->mapToGlobal(QPoint(3, 3)));
        QApplication::sendEvent(widget, &event);
        EXPECT_EQ(shell.popups, 1) << name;
    }
    EXPECT_TRUE(sent().empty());
}

// --- The buttons --------------------------------------------------------------------------------------------------

TEST_F(GblWindow, loadSendsTheBlockAsItIs)
{
    open(std::string(415, '\0'));
    press("CommLoadGbl");
    EXPECT_EQ(sent(), std::vector<std::string>{zeroDumpWith(0, "")});
    EXPECT_EQ(mark(), 0);
    EXPECT_TRUE(App.GblCurrentChanged);
}

TEST_F(GblWindow, globalPutsTheInstrumentIntoItsGlobalMode)
{
    open();
    press("CommGlobal");
    EXPECT_EQ(sent(), std::vector<std::string>{"F0 42 32 4D 4E 04 F7"});
    EXPECT_EQ(App.DeviceMode, 2);
    EXPECT_TRUE(App.GblCurrent.empty());
}

TEST_F(GblWindow, aResetGoesOutWithTheNextEdit)
{
    std::string block(415, '\0');
    for (std::size_t offset = 32; offset < 80; ++offset)
        block[offset] = 7;
    block[45] = 100; // shows 0 and is none
    open(block);
    press("CommResetUS(1)");
    std::string expected = block;
    expected.replace(44, 12, std::string(12, '\0'));
    EXPECT_EQ(hex(parameters()), hex(expected));
    EXPECT_TRUE(sent().empty());
    EXPECT_EQ(mark(), 0);
    EXPECT_TRUE(App.GblCurrent.empty());
    EXPECT_FALSE(Gbl.GblLoading);
    for (int note = 12; note < 24; ++note) {
        EXPECT_EQ(slider("VScroll2(" + std::to_string(note) + ")")->value(), 0);
        EXPECT_EQ(label("Lab2(" + std::to_string(note) + ")"), "0");
    }
    EXPECT_EQ(label("Lab2(11)"), "7");
    EXPECT_EQ(label("Lab2(24)"), "7");

    key("GblCheck1(0)", Qt::Key_Space);
    const std::vector<std::string> messages = port.messages();
    ASSERT_EQ(messages.size(), 1U);
    EXPECT_EQ(hex(unpackedBody(messages[0]).substr(44, 12)), hex(std::string(12, '\0')));
    EXPECT_EQ(mark(), 1);
}

TEST_F(GblWindow, eachResetButtonHasItsScale)
{
    open(std::string(415, '\x09'));
    constexpr std::size_t Offsets[] = {32, 44, 56, 68};
    std::string expected(415, '\x09');
    for (int scale = 0; scale < 4; ++scale) {
        const std::string name = "CommResetUS(" + std::to_string(scale) + ")";
        EXPECT_EQ(part<QPushButton>(name)->text(), QString("Reset US%1").arg(scale + 1));
        press(name);
        expected.replace(Offsets[scale], 12, std::string(12, '\0'));
        EXPECT_EQ(hex(parameters()), hex(expected)) << scale;
    }
}

// --- The channels -------------------------------------------------------------------------------------------------

TEST_F(GblWindow, theChannelsAreTheProgramsOwn)
{
    App.TrackChannels = {1, 2, 3, 4, 5, 6, 7, 8, 9, 200};
    open();
    EXPECT_EQ(combo("Combo3(4)")->currentIndex(), 2);
    for (int place = 5; place < 14; ++place)
        EXPECT_EQ(combo("Combo3(" + std::to_string(place) + ")")->currentIndex(), place - 4) << place;
    EXPECT_EQ(combo("Combo3(14)")->currentIndex(), -1) << "no channel of the list";
    EXPECT_EQ(App.TrackChannels[9], 200);

    const std::string before = window->Tag.bytes();
    for (int place = 4; place < 15; ++place)
        key("Combo3(" + std::to_string(place) + ")", Qt::Key_End);
    EXPECT_EQ(App.GlobalChannel, 15);
    EXPECT_EQ(App.TrackChannels, (std::array<int, 10>{15, 15, 15, 15, 15, 15, 15, 15, 15, 15}));
    key("Combo3(7)", Qt::Key_Home);
    EXPECT_EQ(App.TrackChannels, (std::array<int, 10>{15, 15, 0, 15, 15, 15, 15, 15, 15, 15}));
    EXPECT_EQ(hex(window->Tag.bytes()), hex(before));
    EXPECT_TRUE(sent().empty());

    key("GblCheck1(0)", Qt::Key_Space);
    EXPECT_EQ(sent()[0].substr(0, 14), "F0 42 3F 4D 51") << "the next message has the new channel";
}

TEST_F(GblWindow, aWindowShowsTheChannelsThatAnotherOneChose)
{
    frmGbl* first = open(std::string(415, '\0'), 1);
    open(std::string(415, '\0'), 2);
    key("Combo3(4)", Qt::Key_End);
    area->setActiveSubWindow(first);
    QApplication::processEvents();
    EXPECT_EQ(first->findChild<QComboBox*>("Combo3(4)")->currentIndex(), 15);
    EXPECT_TRUE(sent().empty());
}

// --- Both kinds ---------------------------------------------------------------------------------------------------

TEST_F(GblWindow, aFilesWindowIsALiveOne)
{
    open(std::string(415, '\x01'), 0);
    frmGbl* instrument = window;
    open(std::string(415, '\x02'), 8);
    key("GblCombo1(6)", Qt::Key_Home);
    std::string expected(415, '\x02');
    expected[5] = 0;
    EXPECT_EQ(hex(App.GblCurrent.substr(32, 415)), hex(expected));
    EXPECT_EQ(hex(parametersOf(instrument->Tag)), hex(std::string(415, '\x01'))) << "a window holds its own image";
    EXPECT_EQ(App.GblCount, 2);
}

// --- Closing ------------------------------------------------------------------------------------------------------

TEST_F(GblWindow, anUnchangedFileClosesAndFreesItsSlot)
{
    open();
    press("CommResetUS(0)");
    press("CommClose");
    collect();
    EXPECT_TRUE(window.isNull());
    EXPECT_TRUE(run.user.questions.empty()) << "a reset alone is no change";
    EXPECT_FALSE(App.Globals[1].used);
    EXPECT_EQ(App.GblCount, 0);
    EXPECT_TRUE(OpenWindows::all().empty());
    EXPECT_GT(shell.syncs, 0);
}

TEST_F(GblWindow, aChangedFileAsksAndStaysOnCancel)
{
    open();
    key("GblCheck1(0)", Qt::Key_Space);
    run.user.answers = {Answer::Cancel, Answer::No};
    EXPECT_FALSE(window->unloadChild());
    ASSERT_EQ(run.user.questions.size(), 1U);
    EXPECT_EQ(run.user.questions[0].title, "File Gbl - stage1.gbl (1)");
    EXPECT_EQ(run.user.questions[0].text, "The file has changed\nSave changes ?");
    EXPECT_TRUE(window->isVisible());
    EXPECT_TRUE(App.Globals[1].used);
    EXPECT_TRUE(window->unloadChild());
    collect();
    EXPECT_FALSE(run.folder.has("stage1.gbl")) << "No saves nothing";
    EXPECT_FALSE(App.Globals[1].used);
}

TEST_F(GblWindow, aFileOpenedReadOnlyIsHeardButNeverWritten)
{
    App.Globals[1].readOnly = true;
    const std::string onDisk = gblFile();
    run.folder.put("stage1.gbl", onDisk);
    open();
    key("GblCheck1(0)", Qt::Key_Space);
    EXPECT_EQ(sent().size(), 1U) << "a file's window is a live one, read only or not";
    EXPECT_EQ(mark(), 1);
    run.user.answers = {Answer::Yes, Answer::Cancel, Answer::No};
    EXPECT_FALSE(window->unloadChild());
    ASSERT_EQ(run.user.questions.size(), 1U);
    EXPECT_EQ(run.user.questions[0].title, "File Gbl - stage1.gbl (1)Read Only");
    ASSERT_EQ(run.user.warnings.size(), 1U);
    EXPECT_EQ(run.user.warnings[0].text, "Read only file");
    EXPECT_EQ(hex(run.folder.get("stage1.gbl")), hex(onDisk));
    EXPECT_EQ(mark(), 1) << "it is still to be saved, under another name";
    EXPECT_FALSE(window->unloadChild());
    EXPECT_TRUE(window->unloadChild());
    EXPECT_EQ(hex(run.folder.get("stage1.gbl")), hex(onDisk));
    EXPECT_FALSE(App.Globals[1].used);
}

TEST_F(GblWindow, aChangedFileIsSavedWithEveryByteItHad)
{
    std::mt19937 random(3);
    std::string block = randomBytes(random, 415);
    block[29] = 0;
    open(block);
    key("GblCheck1(0)", Qt::Key_Space);
    run.user.answers = {Answer::Yes};
    EXPECT_TRUE(window->unloadChild());
    block[29] = 1;
    EXPECT_EQ(hex(run.folder.get("stage1.gbl")), hex(gblFile(block)));
}

TEST_F(GblWindow, theInstrumentsWindowNeverAsks)
{
    open(std::string(415, '\0'), 0);
    key("GblCheck1(0)", Qt::Key_Space);
    EXPECT_EQ(mark(), 1);
    EXPECT_TRUE(window->unloadChild());
    EXPECT_TRUE(run.user.questions.empty());
    EXPECT_FALSE(App.Globals[0].used);
}

// --- Anything -----------------------------------------------------------------------------------------------------

TEST_F(GblWindow, keepsAnyBlock)
{
    constexpr int Blocks = 3000;
    std::mt19937 random(448);
    open();
    for (int turn = 0; turn < Blocks; ++turn) {
        const std::string block = randomBytes(random, 415);
        load(block);
        ASSERT_TRUE(parameters() == block) << turn << "\n" << hex(block);
        ASSERT_EQ(mark(), 0);
    }
    EXPECT_TRUE(sent().empty());
    EXPECT_TRUE(window->unloadChild());
    EXPECT_TRUE(run.user.questions.empty());
}

namespace
{

/// One event of the storm; what the user's hand can do to the window's controls, in the toolkit's own calls.
class Storm
{
public:
    Storm(frmGbl* window, std::mt19937& random) : random_(random)
    {
        // The pages' own scroll bars and the buttons that close or turn are no part of it.
        for (auto* widget : window->widget()->findChildren<QWidget*>())
            if (qobject_cast<QSlider*>(widget) || qobject_cast<QComboBox*>(widget) ||
                (qobject_cast<QAbstractButton*>(widget) && widget->objectName() != "CommClose" &&
                 !widget->inherits("QToolButton")))
                controls_.push_back(widget);
    }
    QWidget* strike()
    {
        QWidget* control = controls_[pick(static_cast<int>(controls_.size()))];
        if (auto* slider = qobject_cast<QSlider*>(control))
            slider->triggerAction(static_cast<QAbstractSlider::SliderAction>(1 + pick(6)));
        else if (auto* combo = qobject_cast<QComboBox*>(control))
            choose(combo);
        else
            static_cast<QAbstractButton*>(control)->click();
        return control;
    }
    std::size_t count() const { return controls_.size(); }

private:
    std::size_t pick(int count) { return random_() % static_cast<unsigned>(count); }
    void choose(QComboBox* combo)
    {
        const int row = static_cast<int>(pick(combo->count()));
        combo->setCurrentIndex(row);
        emit combo->activated(row);
        QCoreApplication::sendPostedEvents(combo, QEvent::MetaCall);
    }

    std::mt19937& random_;
    std::vector<QWidget*> controls_;
};

std::size_t differences(const std::string& before, const std::string& after)
{
    std::size_t count = 0;
    for (std::size_t i = 0; i < before.size(); ++i)
        count += before[i] != after[i] ? 1 : 0;
    return count;
}

} // namespace

TEST_F(GblWindow, aStormOfEventsLeavesNoStateThatTheRulesDoNotState)
{
    constexpr int Events = 100000;
    std::mt19937 random(100000);
    open(randomBytes(random, 415));
    Storm storm(window, random);
    ASSERT_EQ(storm.count(), 48U + 4 + 19 + 15 + 3 + 1 + 2 + 4 + 2);
    for (int event = 0; event < Events; ++event) {
        const std::string before = window->Tag.bytes();
        const std::string name = storm.strike()->objectName().toStdString();
        const std::string& after = window->Tag.bytes();
        const bool reset = name.starts_with("CommResetUS(");
        const std::size_t messages = port.messages().size();
        ASSERT_LE(messages, 1U) << name;
        ASSERT_LE(differences(before.substr(270), after.substr(270)), reset ? 12U : 1U) << name;
        ASSERT_TRUE(before.substr(0, 3) + before.substr(4, 298) == after.substr(0, 3) + after.substr(4, 298)) << name;
        ASSERT_EQ(before[717], after[717]);
        ASSERT_TRUE(reset || before.substr(302) == after.substr(302) || messages == 1U) << name;
        if (messages == 1 && name != "CommGlobal") {
            ASSERT_TRUE(App.GblCurrent == after.substr(270)) << name;
            ASSERT_EQ(port.messages()[0].size(), 481U);
        }
        ASSERT_FALSE(Gbl.GblLoading);
        port.forget();
    }
    // After it all every page still works as on the first day.
    load(std::string(415, '\0'));
    App.GlobalChannel = 2;
    key("VScroll2(0)", Qt::Key_Up);
    EXPECT_EQ(sent(), std::vector<std::string>{zeroDumpWith(4, "00 00 00 00 00 01 00 00")});
    run.user.answers = {Answer::No};
    EXPECT_TRUE(window->unloadChild());
}
