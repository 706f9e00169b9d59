// The two commands that save the active child, driven through their menu items.
#include "MainWindowFixture.h"

namespace
{

std::string blankPadded(std::string text, std::size_t width)
{
    text.resize(width, ' ');
    return text;
}

} // namespace

class SavingMenu : public MainWindow
{
protected:
    /// Shows a child of a kind whose buffer holds a file of `size` bytes behind head and path.
    PlainChild* showChild(int kind, const std::string& path, std::size_t size)
    {
        startWithPlainChildren().showWindow(kind, 1);
        PlainChild* child = plain.back();
        child->Tag.bytes() = child->Tag.bytes().substr(0, 20) + blankPadded(path, 250) + std::string(size, 'n');
        child->showCaption();
        QApplication::processEvents();
        return child;
    }
    bool isOnDisk(const std::string& name, std::size_t size)
    {
        return songs.has(name) && songs.get(name) == std::string(size, 'n');
    }
};

TEST_F(SavingMenu, saveWritesTheActiveChildAndItsMarksReachTheWindow)
{
    PlainChild* child = showChild(WindowKind::GlobalFile, songs.file("mine"), 448);
    child->Tag.set(3, 1);
    ASSERT_TRUE(item("mnuSalva")->isEnabled());
    item("mnuSalva")->trigger();
    EXPECT_TRUE(isOnDisk("mine.gbl", 448));
    EXPECT_EQ(child->Tag.at(3), 0);
    EXPECT_TRUE(user.saveDialogs.empty());
}

TEST_F(SavingMenu, saveOfAWindowWithoutAFileAsksForAName)
{
    PlainChild* child = showChild(WindowKind::PrgNew, " (Untitled 1)", 30480 + 1344);
    child->Tag.set(17, 1);
    child->Tag.set(6, 1);
    item("mnuSalva")->trigger();
    EXPECT_EQ(user.saveDialogs.size(), 1u);
    EXPECT_EQ(child->Tag.at(6), 1) << "cancelled";

    user.saveFiles.push_back({true, songs.file("mine"), 3});
    item("mnuSalva")->trigger();
    EXPECT_TRUE(isOnDisk("mine.prg", 30480));
    EXPECT_EQ(child->Tag.at(17), 0);
    EXPECT_EQ(child->Tag.at(6), 0);
}

TEST_F(SavingMenu, saveAsGivesTheWindowItsNewCaption)
{
    PlainChild* child = showChild(WindowKind::GlobalFile, songs.file("mine"), 448);
    EXPECT_EQ(child->windowTitle(), "File Gbl - mine.gbl (1)");
    user.saveFiles.push_back({true, songs.file("yours"), 5});
    item("mnuSalvaAs")->trigger();
    EXPECT_TRUE(isOnDisk("yours.gbl", 448));
    EXPECT_EQ(child->windowTitle(), "File Gbl - yours.gbl (1)");
}

TEST_F(SavingMenu, theInstrumentsGlobalBlockKeepsItsTitle)
{
    PlainChild* child = showChild(WindowKind::GlobalInstrument, "Global Parameters", 448);
    child->setWindowTitle("Global Parameters");
    user.saveFiles.push_back({true, songs.file("copy"), 5});
    item("mnuSalvaAs")->trigger();
    EXPECT_TRUE(isOnDisk("copy.gbl", 448));
    EXPECT_EQ(child->windowTitle(), "Global Parameters");
}

TEST_F(SavingMenu, withoutAChildNothingHappens)
{
    startWithPlainChildren();
    window->mnuSalva_Click(0);
    window->mnuSalvaAs_Click(0);
    EXPECT_TRUE(user.saveDialogs.empty());
}

TEST_F(SavingMenu, underAnotherNameTheWindowHasTheNumberThatTheDatabaseGivesThatName)
{
    // 27221 bytes: two records of 26 bytes from offset 52, name and number, and the folder at offset 26971.
    std::string database(27221, '\0');
    database.replace(0, 8, "TvlDBArr");
    database.replace(52, 26, blankPadded("MINE", 24) + "\x07" + std::string(1, '\0'));
    database.replace(78, 26, blankPadded("YOURS", 24) + "\x02\x01");
    database.replace(26971, 250, blankPadded(songs.path(), 250));
    state.put("TvlDBArr", database);

    PlainChild* child = showChild(WindowKind::ArrFile, songs.file("mine"), 10528 + 1344 + 30480);
    SessionEntry& entry = App.Arrangements[0];
    entry.databaseId = 7;
    user.saveFiles = {{true, songs.file("yours.arr"), 1}, {true, songs.file("unlisted.arr"), 1}};
    item("mnuSalvaAs")->trigger();
    EXPECT_EQ(child->Tag.path(), songs.file("yours"));
    EXPECT_EQ(entry.databaseId, 258);
    item("mnuSalvaAs")->trigger();
    EXPECT_EQ(child->Tag.path(), songs.file("unlisted"));
    EXPECT_EQ(entry.databaseId, 0);

    // Under the same name, and where nothing was saved, it is not looked up again.
    entry.databaseId = 99;
    item("mnuSalva")->trigger();
    item("mnuSalvaAs")->trigger(); // cancelled
    EXPECT_EQ(entry.databaseId, 99);
}
