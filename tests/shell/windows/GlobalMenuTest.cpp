// The menus around the global block: opening files in eight slots, the instrument's own window once a block is known,
// saving, and what comes back at the next start.
#include "MainWindowFixture.h"

#include <QCheckBox>

namespace
{

std::string globalPath(TemporaryFolder& songs, const std::string& name)
{
    return songs.put(name + ".gbl", globalFile());
}

} // namespace

TEST_F(MainWindow, openingAGlobalFileShowsItsWindow)
{
    user.files.push_back({true, globalPath(songs, "stage"), 4, false});
    start();
    EXPECT_FALSE(item("mnuGlobalParam")->isEnabled()) << "no block is known yet";
    port.forget();
    item("mnuApriGbl")->trigger();
    ASSERT_EQ(window->area()->subWindowList().size(), 1);
    EXPECT_EQ(childAt(0)->objectName(), "frmGbl");
    EXPECT_EQ(childAt(0)->windowTitle(), "File Gbl - stage.gbl (1)");
    EXPECT_TRUE(item("mnuSalva")->isEnabled());
    EXPECT_TRUE(item("mnuSalvaAs")->isEnabled());
    EXPECT_FALSE(item("mnuIngrandisci")->isEnabled());
    EXPECT_FALSE(item("mnuCopia")->isEnabled());
    EXPECT_TRUE(port.messages().empty());

    childAt(0)->resizeInTwips(9500, 6000);
    EXPECT_TRUE(item("mnuIngrandisci")->isEnabled());
    item("mnuIngrandisci")->trigger();
    EXPECT_FALSE(item("mnuIngrandisci")->isEnabled());
}

TEST_F(MainWindow, aReadOnlyGlobalFileCanBeSavedUnderAnotherNameOnly)
{
    user.files.push_back({true, globalPath(songs, "stage"), 4, true});
    start();
    item("mnuApriGbl")->trigger();
    EXPECT_EQ(childAt(0)->windowTitle(), "File Gbl - stage.gbl (1)Sola Lettura");
    EXPECT_FALSE(item("mnuSalva")->isEnabled());
    EXPECT_TRUE(item("mnuSalvaAs")->isEnabled());
}

TEST_F(MainWindow, eightGlobalFilesAreOpenAtMost)
{
    for (int number = 1; number <= 8; ++number)
        user.files.push_back({true, globalPath(songs, "g" + std::to_string(number)), 4, false});
    start();
    for (int number = 1; number <= 8; ++number) {
        EXPECT_TRUE(item("mnuApriGbl")->isEnabled());
        item("mnuApriGbl")->trigger();
    }
    EXPECT_EQ(window->area()->subWindowList().size(), 8);
    EXPECT_EQ(App.GblCount, 8);
    EXPECT_FALSE(item("mnuApriGbl")->isEnabled());
    EXPECT_TRUE(childAt(2)->unloadChild());
    EXPECT_TRUE(item("mnuApriGbl")->isEnabled());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    user.files.push_back({true, globalPath(songs, "g9"), 4, false});
    item("mnuApriGbl")->trigger();
    EXPECT_EQ(childAt(7)->windowTitle(), "File Gbl - g9.gbl (3)") << "in the slot that became free";
}

TEST_F(MainWindow, theSameGlobalFileIsNotOpenedTwice)
{
    const std::string path = globalPath(songs, "stage");
    user.files = {{true, path, 4, false}, {true, path, 4, false}};
    start();
    item("mnuApriGbl")->trigger();
    item("mnuApriGbl")->trigger();
    EXPECT_EQ(window->area()->subWindowList().size(), 1);
    EXPECT_EQ(warnings(), Lines{"Apertura di stage|File già aperto"});
}

TEST_F(MainWindow, theFirstTransmissionOpensTheWayToTheInstrumentsBlock)
{
    user.files.push_back({true, globalPath(songs, "stage"), 4, false});
    start();
    item("mnuApriGbl")->trigger();
    childAt(0)->findChild<QCheckBox*>("GblCheck1(0)")->click();
    EXPECT_TRUE(item("mnuGlobalParam")->isEnabled());
    item("mnuGlobalParam")->trigger();
    ASSERT_EQ(window->area()->subWindowList().size(), 2);
    EXPECT_EQ(childAt(1)->windowTitle(), "Global Parameters");
    EXPECT_TRUE(childAt(1)->findChild<QCheckBox*>("GblCheck1(0)")->isChecked());
    item("mnuGlobalParam")->trigger();
    EXPECT_EQ(window->area()->subWindowList().size(), 2) << "there is one";

    item("mnuSalva")->trigger();
    EXPECT_EQ(childAt(1)->windowTitle(), "Global Parameters");
    EXPECT_TRUE(user.saveDialogs.empty()) << "the instrument's block has no file of its own";
}

TEST_F(MainWindow, theBlockIsKnownAgainAtTheNextStart)
{
    user.files.push_back({true, globalPath(songs, "stage"), 4, false});
    start();
    item("mnuApriGbl")->trigger();
    childAt(0)->findChild<QCheckBox*>("GblCheck1(0)")->click();
    item("mnuGlobalParam")->trigger();
    user.answers = {Answer::No};
    ASSERT_TRUE(window->close());
    EXPECT_EQ(user.questions.size(), 1U) << "the file's window asks, the instrument's does not";
    window.reset();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    const std::string folder = App.StateDir;
    App = {};
    App.ui = &user;
    App.StateDir = folder;
    SettingsLoad();
    std::string block = globalFile();
    block[32 + 29] = 1;
    EXPECT_EQ(hex(App.GblCurrent), hex(block));
    startAgain();
    EXPECT_TRUE(item("mnuGlobalParam")->isEnabled());
    EXPECT_TRUE(window->area()->subWindowList().isEmpty()) << "remembered by its place, not reopened";
}

TEST_F(MainWindow, savingAGlobalFileWritesItsBytes)
{
    user.files.push_back({true, globalPath(songs, "stage"), 4, false});
    start();
    item("mnuApriGbl")->trigger();
    childAt(0)->findChild<QCheckBox*>("GblCheck1(0)")->click();
    item("mnuSalva")->trigger();
    std::string block = globalFile();
    block[32 + 29] = 1;
    EXPECT_EQ(hex(songs.get("stage.gbl")), hex(block));
    EXPECT_TRUE(childAt(0)->unloadChild());
    EXPECT_TRUE(user.questions.empty());
}
