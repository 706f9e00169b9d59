// Style windows from the menus: opening, new files, an arrangement's styles, the banks, the editor, and the way out.
#include "MainWindowFixture.h"

#include "arrangements/ArrEdit.h"
#include "core/NameTables.h"
#include "styles/StyleSends.h"
#include "support/StyleFiles.h"
#include "toolkit/RowList.h"

namespace
{

class StyleMenus : public MainWindow
{
protected:
    StyleMenus()
    {
        Arr = {};
        NameTablesBuild();
        songs.put("TvlSty", emptyStyles());
        speak(2);
    }
    ~StyleMenus() override
    {
        window.reset();
        Arr = {};
        StyLoad = {};
    }

    static std::string sixteen()
    {
        Slots blocks;
        for (int slot = 0; slot < 16; ++slot)
            blocks.emplace_back("Style " + std::to_string(slot), 40 + slot);
        return styFile(blocks);
    }
    std::string styles(const std::string& name) { return songs.put(name + ".sty", sixteen()); }

    void openFile(const char* menuItem, const std::string& path, int filter)
    {
        user.files.push_back({true, path, filter, false});
        item(menuItem)->trigger();
        QApplication::processEvents();
    }
    ChildWindow* active() const { return dynamic_cast<ChildWindow*>(window->area()->currentSubWindow()); }
    QString title() const { return active() ? active()->windowTitle() : QString(); }
    QStringList titles() const
    {
        QStringList found;
        for (const QMdiSubWindow* child : window->area()->subWindowList())
            if (!child->isHidden())
                found << child->windowTitle();
        return found;
    }
    static QPushButton* button(const ChildWindow* child, const char* name)
    {
        return child->findChild<QPushButton*>(QLatin1String(name));
    }
    static void clickRow(const ChildWindow* child, int row)
    {
        auto* rows = child->findChild<QListWidget*>(QStringLiteral("List1"));
        rows->scrollToItem(rows->item(row));
        QTest::mouseClick(rows->viewport(), Qt::LeftButton, {}, rows->visualItemRect(rows->item(row)).center());
    }
    /// An arrangement file with a used row 0 and a style file beside it, open.
    ChildWindow* openSongWithStyles()
    {
        styles("song");
        openFile("mnuApriArr", song("song"), 1);
        return active();
    }
};

} // namespace

TEST_F(StyleMenus, aStyleFileOpensFromTheDialogAndIsRemembered)
{
    start();
    openFile("mnuApriSty", styles("groove"), 2);
    EXPECT_EQ(title(), "File Sty - groove.sty (1)");
    EXPECT_EQ(App.StyUCount, 1);
    EXPECT_EQ(App.Recent[0].path, songs.file("groove"));
    EXPECT_TRUE(App.Styles[0].used);
    EXPECT_FALSE(App.Styles[0].linked);
    for (const char* name : {"mnuLoadSty", "mnuSalva", "mnuSalvaAs"})
        EXPECT_TRUE(item(name)->isEnabled()) << name;
    for (const char* name : {"mnuLoadArr", "mnuShowSty", "mnuLoadPrg", "mnuEditArr", "mnuIngrandisci", "mnuTaglia"})
        EXPECT_FALSE(item(name)->isEnabled()) << name;

    openFile("mnuApriSty", songs.file("groove.sty"), 2);
    EXPECT_EQ(titles().size(), 1) << "no second window";
    EXPECT_EQ(warnings(), (Lines{"Opening groove|File already open"}));
}

TEST_F(StyleMenus, aFileWithoutStylesHasNothingToLoad)
{
    start();
    openFile("mnuApriSty", songs.put("none.sty", styFile({})), 2);
    EXPECT_FALSE(item("mnuLoadSty")->isEnabled());
}

TEST_F(StyleMenus, aReadOnlyFileIsOnlySavedAs)
{
    start();
    user.files.push_back({true, styles("groove"), 2, true});
    item("mnuApriSty")->trigger();
    EXPECT_FALSE(item("mnuSalva")->isEnabled());
    EXPECT_TRUE(item("mnuSalvaAs")->isEnabled());
}

TEST_F(StyleMenus, eightWindowsCanStandOpenThenTheItemsAreOff)
{
    start();
    for (int number = 1; number <= 6; ++number) {
        item("mnuNuovoSty")->trigger();
        EXPECT_EQ(title(), "New Style - Untitled.sty (" + QString::number(number) + ")");
    }
    openFile("mnuApriSty", styles("groove"), 2);
    EXPECT_EQ(title(), "File Sty - groove.sty (7)");
    item("mnuNuovoSty")->trigger();
    EXPECT_EQ(title(), "New Style - Untitled.sty (8)");
    EXPECT_FALSE(item("mnuNuovoSty")->isEnabled());
    EXPECT_FALSE(item("mnuApriSty")->isEnabled());

    ASSERT_TRUE(childAt(2)->unloadChild());
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(item("mnuNuovoSty")->isEnabled());
    item("mnuNuovoSty")->trigger();
    EXPECT_EQ(title(), "New Style - Untitled.sty (3)") << "the lowest free number";
}

TEST_F(StyleMenus, aNewFileNeedsItsTemplate)
{
    start();
    songs.put("TvlSty", "damaged");
    user.notices.clear();
    item("mnuNuovoSty")->trigger();
    std::filesystem::remove(songs.file("TvlSty"));
    item("mnuNuovoSty")->trigger();
    EXPECT_EQ(warnings(), Lines(2, "Tarvolyne - Tarvolyne Console |File " + App.PathSty + " not found"));
    EXPECT_EQ(user.notices.size(), 1U) << "the reader's own word on a damaged one";
    EXPECT_TRUE(titles().isEmpty());
    EXPECT_FALSE(App.Styles[0].used);
}

TEST_F(StyleMenus, anArrangementsStylesOpenLinkedToItOnce)
{
    start();
    const ChildWindow* arrangements = openSongWithStyles();
    QTest::mouseClick(button(arrangements, "CommShowSty"), Qt::LeftButton);
    EXPECT_EQ(title(), "File Sty - song.sty (1)");
    EXPECT_EQ(active()->Tag.bytes().substr(669), sixteen());
    EXPECT_TRUE(App.Styles[0].linked);
    EXPECT_EQ(App.Styles[0].path, songs.file("song"));
    EXPECT_EQ(App.Recent[1].path, "") << "it is the arrangement file that was opened";

    window->area()->setActiveSubWindow(childAt(0));
    ASSERT_TRUE(item("mnuShowSty")->isEnabled());
    item("mnuShowSty")->trigger();
    ASSERT_TRUE(QTest::qWaitFor([&] { return title() == "File Sty - song.sty (1)"; }));
    EXPECT_EQ(titles().size(), 2) << "the window that stands open comes forward";

    openFile("mnuApriSty", songs.file("song.sty"), 2);
    EXPECT_EQ(warnings(), (Lines{"Opening song|File already open"}));
}

TEST_F(StyleMenus, theLoadItemLoadsTheActiveWindowsStyles)
{
    start();
    openFile("mnuApriSty", styles("groove"), 2);
    port.forget();
    item("mnuLoadSty")->trigger();
    ASSERT_TRUE(QTest::qWaitFor([&] { return port.messages().size() == 7; }, 10000));
    Lines heads;
    for (const std::string& message : port.messages())
        heads.push_back(hex(message.substr(0, 5)));
    const std::string dump = "F0 42 30 4D 65";
    EXPECT_EQ(heads, (Lines{dump, dump, dump, dump, "B0 00 00", "B0 20 01", "C0 00"}));
}

TEST_F(StyleMenus, theDefaultSizeComesBackByItsItem)
{
    start();
    openFile("mnuApriSty", styles("groove"), 2);
    EXPECT_FALSE(item("mnuIngrandisci")->isEnabled());
    active()->resizeInTwips(7500, 6000);
    EXPECT_TRUE(item("mnuIngrandisci")->isEnabled());
    item("mnuIngrandisci")->trigger();
    EXPECT_TRUE(active()->hasSizeInTwips(5560, 4200));
    EXPECT_FALSE(item("mnuIngrandisci")->isEnabled());
}

TEST_F(StyleMenus, eachFactoryBankHasOneWindow)
{
    start();
    item("mnuStyA")->trigger();
    item("mnuStyB")->trigger();
    EXPECT_EQ(titles(), (QStringList{"Style A", "Style B"}));
    item("mnuStyA")->trigger();
    EXPECT_EQ(titles().size(), 2);
    EXPECT_EQ(title(), "Style A");
    clickRow(active(), 3);
    for (const char* name : {"mnuSalva", "mnuSalvaAs", "mnuLoadSty", "mnuCopia", "mnuTaglia", "mnuIncolla"})
        EXPECT_FALSE(item(name)->isEnabled()) << name;
}

TEST_F(StyleMenus, aStyleIsPickedForTheHighlightedFieldOfTheEditor)
{
    Names.StyNames[74] = "Bossa Nova      ";
    start();
    ChildWindow* arrangements = openSongWithStyles();
    clickRow(arrangements, 0);
    QTest::mouseClick(button(arrangements, "CommEdit"), Qt::LeftButton);
    const ChildWindow* editor = active();
    ASSERT_EQ(editor->objectName(), "frmEditArr");
    auto* name = editor->findChild<QLineEdit*>(QStringLiteral("Text1(1)"));
    auto* label = editor->findChild<QLabel*>(QStringLiteral("Label(1)"));
    QTest::mouseClick(name, Qt::LeftButton);

    item("mnuStyB")->trigger();
    ASSERT_EQ(title(), "Style B");
    const std::size_t sent = port.messages().size();
    clickRow(active(), 10);
    EXPECT_EQ(name->text(), "Bossa Nova");
    EXPECT_EQ(label->text(), "Style (B23)");
    EXPECT_EQ(hex(Arr.ArrEditBuf.substr(17, 2)), "4A 00");
    EXPECT_TRUE(Arr.ArrEditDirty);

    QTest::mouseClick(button(arrangements, "CommShowSty"), Qt::LeftButton);
    const ChildWindow* styleWindow = active();
    ASSERT_EQ(title(), "File Sty - song.sty (1)");
    clickRow(styleWindow, 12);
    EXPECT_EQ(name->text(), "Style 10");
    EXPECT_EQ(label->text(), "Style (U23)");
    EXPECT_EQ(hex(Arr.ArrEditBuf.substr(17, 2)), "0A 01");
    EXPECT_EQ(port.messages().size(), sent) << "a choice sends nothing";

    QTest::mouseClick(name, Qt::LeftButton); // the highlight goes
    clickRow(styleWindow, 0);
    EXPECT_EQ(name->text(), "Style 10");
    Arr.ArrEditDirty = false;
}

TEST_F(StyleMenus, saveWritesTheFileAndANewOneAsksForItsName)
{
    start();
    openFile("mnuApriSty", styles("groove"), 2);
    active()->Tag.set(9, 1);
    active()->Tag.bytes()[669 + 224] = 'Z';
    item("mnuSalva")->trigger();
    EXPECT_EQ(songs.get("groove.sty").substr(224, 7), "Ztyle 0");
    EXPECT_EQ(active()->Tag.at(9), 0);

    item("mnuNuovoSty")->trigger();
    user.saveFiles.push_back({true, songs.file("fresh.sty"), 2});
    item("mnuSalva")->trigger();
    EXPECT_EQ(songs.get("fresh.sty").substr(0, 7), emptyStyles().substr(0, 7));
}

TEST_F(StyleMenus, atTheNextStartStyleWindowsDoNotComeBack)
{
    start();
    openFile("mnuApriSty", styles("groove"), 2);
    item("mnuStyA")->trigger();
    item("mnuStyB")->trigger();
    active()->placeInTwips(900, 600, 6000, 7500);
    window->close();
    window.reset();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);

    App = {};
    App.ui = &user;
    App.StateDir = state.path();
    App.WorkDir = songs.path();
    App.PathSty = songs.file("TvlSty");
    OpenWindows::clear();
    SettingsLoad();
    startAgain();
    QTest::qWait(100);
    EXPECT_TRUE(titles().isEmpty());
    EXPECT_EQ(App.WinPos[17].Open, 0);
    EXPECT_EQ(App.WinPos[18].Open, 0);
    item("mnuStyB")->trigger();
    EXPECT_TRUE(active()->hasSizeInTwips(6000, 7500)) << "they are remembered by position";
}
