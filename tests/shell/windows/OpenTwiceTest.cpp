// A file that a window holds is not opened a second time beside it, whatever kind of window that is: the second would
// write over what the first one has.
#include "DatabaseDesk.h"

namespace
{

class OpenTwice : public DatabaseDesk
{
protected:
    OpenTwice()
    {
        App.PathArrA = songs.put("TvlArrA", arrangementFile("8 Beat          "));
        App.PathSty = songs.put("TvlSty", styles());
        putDatabase({{"Alba", 305}});
        start();
    }
    ChildWindow* active() { return dynamic_cast<ChildWindow*>(window->area()->activeSubWindow()); }
    int windowCount() { return static_cast<int>(window->area()->subWindowList().size()); }
    /// A new file's window, saved under a name; another window stands before it afterwards.
    ChildWindow* savedNew(const char* menuItem, const std::string& name, int filter)
    {
        item(menuItem)->trigger();
        ChildWindow* made = active();
        user.saveFiles.push_back({true, songs.file(name), filter});
        item("mnuSalvaAs")->trigger();
        EXPECT_TRUE(songs.has(name));
        item("mnuArrA")->trigger();
        EXPECT_NE(active(), made);
        return made;
    }
    void openBy(const char* menuItem, const std::string& name, int filter)
    {
        user.files.push_back({true, songs.file(name), filter, false});
        item(menuItem)->trigger();
        settle();
    }
};

} // namespace

TEST_F(OpenTwice, aNewArrangementFileThatWasSavedIsOpenAndComesForward)
{
    ChildWindow* made = savedNew("mnuNuovoArr", "Alba.arr", 1);
    const int before = windowCount();
    openBy("mnuApriArr", "Alba.arr", 1);
    EXPECT_EQ(warnings(), (Lines{"Opening Alba|File already open"}));
    EXPECT_EQ(windowCount(), before);
    EXPECT_EQ(active(), made);
    EXPECT_EQ(arrangementWindow("Alba"), nullptr);
}

TEST_F(OpenTwice, aNewStyleFileThatWasSavedIsOpenAndComesForward)
{
    ChildWindow* made = savedNew("mnuNuovoSty", "Beat.sty", 2);
    const int before = windowCount();
    openBy("mnuApriSty", "Beat.sty", 2);
    EXPECT_EQ(warnings(), (Lines{"Opening Beat|File already open"}));
    EXPECT_EQ(windowCount(), before);
    EXPECT_EQ(active(), made);
}

TEST_F(OpenTwice, aNewFileThatIsStillUntitledHoldsNoFile)
{
    songs.put("Alba.arr", loadedFile());
    item("mnuNuovoArr")->trigger();
    open(songs.file("Alba.arr"));
    EXPECT_EQ(warnings(), Lines{});
    EXPECT_NE(arrangementWindow("Alba"), nullptr);
}

TEST_F(OpenTwice, anArrangementFilesOwnWindowComesForward)
{
    songs.put("Alba.arr", loadedFile());
    open(songs.file("Alba.arr"));
    ChildWindow* made = arrangementWindow("Alba");
    item("mnuArrA")->trigger();
    ASSERT_NE(active(), made);
    openBy("mnuApriArr", "Alba.arr", 1);
    EXPECT_EQ(warnings(), (Lines{"Opening Alba|File already open"}));
    EXPECT_EQ(active(), made);
}

TEST_F(OpenTwice, theFileOfAClosedWindowOpensAgain)
{
    ChildWindow* made = savedNew("mnuNuovoArr", "Alba.arr", 1);
    EXPECT_TRUE(made->unloadChild());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    openBy("mnuApriArr", "Alba.arr", 1);
    EXPECT_EQ(warnings(), Lines{});
    EXPECT_NE(arrangementWindow("Alba"), nullptr);
}

TEST_F(OpenTwice, aFindUsesTheNewFilesWindow)
{
    item("mnuArrA")->trigger();
    settle();
    ChildWindow* bank = active();
    item("mnuNuovoArr")->trigger();
    ChildWindow* made = active();
    window->area()->setActiveSubWindow(bank);
    clickRow(bank, 0);
    settle();
    item("mnuCopia")->trigger();
    window->area()->setActiveSubWindow(made);
    clickRow(made, 3);
    settle();
    item("mnuIncolla")->trigger();
    user.saveFiles.push_back({true, songs.file("Alba.arr"), 1});
    item("mnuSalvaAs")->trigger();
    window->area()->setActiveSubWindow(bank);
    settle();
    port.forget();
    find("30514");
    EXPECT_EQ(warnings(), Lines{});
    EXPECT_EQ(arrangementWindow("Alba"), nullptr);
    EXPECT_EQ(active(), made);
    EXPECT_EQ(control<QListWidget>(made, "List1")->currentRow(), 3);
    EXPECT_EQ(sent(), selection("03"));
    EXPECT_FALSE(Arr.FindIdActive);
}
