// The program windows in the main window: opened by menus and by an arrangement window, picked from for the editor, and
// back at the next start.
#include "MainWindowFixture.h"

#include "arrangements/ArrEdit.h"
#include "core/NameTables.h"
#include "programs/ProgramSends.h"
#include "toolkit/RowList.h"

namespace
{

/// 64 records of which some are own programs and two refer to factory programs.
std::string songPrograms(const char* signature = "KORG", int channel = 3)
{
    std::string file(30480, '\0');
    file.replace(0, 7, std::string(signature) + std::string("\x4D\0\0", 3));
    file[15] = static_cast<char>(channel);
    const auto put = [&file](std::size_t row, const std::string& head, std::string name) {
        name.resize(16, ' ');
        file.replace(48 + 172 * row, 19, head + name);
    };
    put(0, "B\1\1", "Sabato Lead");
    put(1, std::string("\1\1\x64", 3), "Goblin");
    put(63, "B\1\1", "Ultimo Suono");
    return file;
}

class ProgramsInShell : public MainWindow
{
protected:
    ProgramsInShell()
    {
        Arr = {};
        PrgSend = {};
        NameTablesBuild();
        InfoFileCheck();
        App.PathPrg = songs.file("TvlPrg");
        App.GlobalChannel = 2;
        StageTimer::setTimeScale(0.01);
    }
    ~ProgramsInShell() override
    {
        window.reset();
        Arr = {};
        PrgSend = {};
    }

    /// Presses an item that can be pressed.
    void choose(const char* name)
    {
        ASSERT_TRUE(item(name)->isEnabled()) << name;
        item(name)->trigger();
        QApplication::processEvents();
    }
    /// The open windows' titles, in order.
    Lines titles()
    {
        Lines found;
        for (QMdiSubWindow* child : window->area()->subWindowList())
            if (!child->isHidden())
                found.push_back(child->windowTitle().toStdString());
        return found;
    }
    ChildWindow* child(const std::string& titleBegin)
    {
        for (QMdiSubWindow* one : window->area()->subWindowList())
            if (!one->isHidden() && one->windowTitle().toStdString().starts_with(titleBegin))
                return dynamic_cast<ChildWindow*>(one);
        ADD_FAILURE() << "no window " << titleBegin;
        return nullptr;
    }
    ChildWindow* active() { return dynamic_cast<ChildWindow*>(window->area()->activeSubWindow()); }
    void press(ChildWindow* owner, const char* name)
    {
        QTest::mouseClick(owner->findChild<QPushButton*>(name), Qt::LeftButton);
        QTest::qWait(10);
    }
    void clickRow(ChildWindow* owner, int row)
    {
        auto* list = owner->findChild<QListWidget*>("List1");
        list->scrollToItem(list->item(row));
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(list->item(row)).center());
        QTest::qWait(10);
    }
    void openPrograms(const std::string& path)
    {
        user.files.push_back({true, path, 3, false});
        choose("mnuApriPrg");
    }
    std::string sent()
    {
        const std::string text = hexOf(port.messages());
        port.forget();
        return text;
    }
};

} // namespace

TEST_F(ProgramsInShell, theViewMenuOpensEachBankOnceAndItsItemIsOffMeanwhile)
{
    start();
    const std::pair<const char*, std::string> banks[] = {{"mnuWProgA", "Prg A"},
                                                         {"mnuWProgB", "Prg B"},
                                                         {"mnuWProgC", "Prg C"},
                                                         {"mnuWProgD", "Prg D"},
                                                         {"mnuWProgE", "Prg E"}};
    for (const auto& [name, title] : banks) {
        choose(name);
        EXPECT_EQ(active()->windowTitle().toStdString(), title + " - MIDI Channel2");
        EXPECT_FALSE(item(name)->isEnabled());
    }
    press(child("Prg C"), "CommClose");
    EXPECT_TRUE(item("mnuWProgC")->isEnabled());
    EXPECT_FALSE(item("mnuWProgD")->isEnabled());

    choose("mnuDrum");
    choose("mnuPerc");
    choose("mnuDrum");
    EXPECT_EQ(active()->windowTitle(), "Drum - MIDI Channel2") << "the one window comes forward";
    EXPECT_EQ(titles().size(), 6U);
}

TEST_F(ProgramsInShell, mnuIngrandisciGoesByTheKindsSize)
{
    start();
    const std::pair<const char*, QSize> rows[] = {{"mnuWProgA", QSize(321, 519)}, {"mnuDrum", QSize(128, 519)}};
    for (const auto& [name, size] : rows) {
        choose(name);
        EXPECT_FALSE(item("mnuIngrandisci")->isEnabled()) << name;
        active()->resize(400, 400);
        EXPECT_TRUE(item("mnuIngrandisci")->isEnabled()) << name;
        choose("mnuIngrandisci");
        EXPECT_EQ(active()->size(), size);
        EXPECT_FALSE(item("mnuIngrandisci")->isEnabled()) << name;
    }
}

TEST_F(ProgramsInShell, aProgramFileOpensAndItsMenuItemsWork)
{
    start();
    openPrograms(songs.put("song.prg", songPrograms()));
    EXPECT_EQ(titles(), (Lines{"File Prg - song.prg (1) - MIDI Channel4"}));
    EXPECT_TRUE(item("mnuRecentFile(0)")->isVisible());
    for (const char* name : {"mnuSalva", "mnuSalvaAs", "mnuLoadPrg"})
        EXPECT_TRUE(item(name)->isEnabled()) << name;
    EXPECT_FALSE(item("mnuCopia")->isEnabled());
    port.forget();
    clickRow(active(), 0);
    EXPECT_TRUE(item("mnuCopia")->isEnabled());
    EXPECT_EQ(sent(), "B3 00 00 | B3 20 03 | C3 00");

    choose("mnuLoadPrg");
    ASSERT_TRUE(QTest::qWaitFor([this] { return port.messages().size() == 3; }, 2000));
    const Lines messages = port.messages();
    EXPECT_EQ(hex(messages[0]), "F0 42 32 4D 4E 06 F7");
    EXPECT_EQ(hex(messages[1]), "F0 42 32 4D 4E 0A F7");
    EXPECT_EQ(hex(messages[2].substr(0, 5)), "F0 42 32 4D 4C");
    EXPECT_EQ(messages[2].size(), 14992U);
    EXPECT_EQ(user.prgLabel, "song.prg");

    openPrograms(songs.file("song.prg"));
    EXPECT_EQ(warnings(), (Lines{"Apertura di song|File già aperto"}));
}

TEST_F(ProgramsInShell, aReadOnlyFileIsNotSaved)
{
    start();
    songs.put("song.pgg", songPrograms("KPGG"));
    user.files.push_back({true, songs.file("song.pgg"), 3, true});
    choose("mnuApriPrg");
    EXPECT_EQ(titles(), (Lines{"File Prg - song.pgg (1) - MIDI Channel4Sola Lettura"}));
    EXPECT_FALSE(item("mnuSalva")->isEnabled());
    EXPECT_TRUE(item("mnuSalvaAs")->isEnabled());
}

TEST_F(ProgramsInShell, eightWindowsAreAllOfThem)
{
    songs.put("TvlPrg", songPrograms());
    start();
    for (int file = 0; file < 5; ++file)
        openPrograms(songs.put("song" + std::to_string(file) + ".prg", songPrograms()));
    for (int file = 0; file < 3; ++file)
        choose("mnuNuovoPrg");
    EXPECT_EQ(App.PrgUCount, 8);
    EXPECT_EQ(titles().back(), "Nuovo File Program - SenzaNome.prg (8) - MIDI Channel4");
    for (const char* name : {"mnuApriPrg", "mnuNuovoPrg"})
        EXPECT_FALSE(item(name)->isEnabled()) << name;
    press(child("File Prg - song2.prg (3)"), "CommClose");
    choose("mnuNuovoPrg");
    EXPECT_EQ(titles().back(), "Nuovo File Program - SenzaNome.prg (3) - MIDI Channel4");
}

TEST_F(ProgramsInShell, aNewProgramFileIsEmptyAndSavedUnderAName)
{
    songs.put("TvlPrg", songPrograms());
    start();
    choose("mnuNuovoPrg");
    EXPECT_FALSE(item("mnuLoadPrg")->isEnabled()) << "nothing to load";
    for (const QListWidgetItem* row : active()->findChild<QListWidget*>("List1")->findItems("*", Qt::MatchWildcard))
        EXPECT_EQ(row->text().size(), 2);
    user.saveFiles.push_back({true, songs.file("mine.prg"), 3});
    choose("mnuSalva");
    EXPECT_EQ(songs.get("mine.prg"), songPrograms().replace(48, 11008, std::string(11008, '\0')));

    EXPECT_EQ(titles(), (Lines{"Nuovo File Program - SenzaNome.prg (1) - MIDI Channel4"}));

    openPrograms(songs.file("mine.prg"));
    EXPECT_EQ(warnings(), (Lines{"Apertura di mine|File già aperto"})) << "the window holds it";
    EXPECT_TRUE(window->close());
    const std::string entry = state.get("Tarvolyne.ini").substr(4 * 250, 250);
    EXPECT_EQ(entry.substr(0, songs.file("mine").size()), songs.file("mine"));
    EXPECT_EQ(entry[240], 1);
    EXPECT_EQ(entry[241], 21);
}

TEST_F(ProgramsInShell, anArrangementWindowShowsItsProgramsAndBringsThemForward)
{
    user.files.push_back({true, song("song"), 1, false});
    songs.put("song.pgg", songPrograms("KPGG"));
    start();
    choose("mnuApriArr");
    ChildWindow* arrangements = active();
    press(arrangements, "CommShowPrg");
    EXPECT_EQ(active()->windowTitle(), "File Prg - song.pgg (1) - MIDI Channel4");
    window->area()->setActiveSubWindow(arrangements);
    choose("mnuShowPrg");
    QTest::qWait(10);
    EXPECT_EQ(active()->windowTitle(), "File Prg - song.pgg (1) - MIDI Channel4");
    EXPECT_EQ(titles().size(), 2U);
    EXPECT_TRUE(user.warnings.empty());

    // Load Prog of the arrangement window takes the open window's programs.
    active()->Tag.bytes().replace(318, 19, "B\1\1Edited since     ");
    port.forget();
    press(arrangements, "CommLoadPrg");
    ASSERT_TRUE(QTest::qWaitFor([this] { return !port.messages().empty(); }, 2000));
    // The first run of seven bytes: their top bits, then "B", 1, 1, "Edit".
    EXPECT_EQ(hex(port.messages()[0].substr(0, 13)), "F0 42 32 4D 4C 00 42 01 01 45 64 69 74");
}

TEST_F(ProgramsInShell, aNewProgramFileSavedUnderTheSongsNameIsTheSongs)
{
    songs.put("TvlPrg", songPrograms());
    user.files.push_back({true, song("song"), 1, false});
    songs.put("song.prg", songPrograms());
    start();
    choose("mnuApriArr");
    ChildWindow* arrangements = active();
    choose("mnuNuovoPrg");
    user.saveFiles.push_back({true, songs.file("song.prg"), 3});
    choose("mnuSalvaAs");
    window->area()->setActiveSubWindow(arrangements);
    press(arrangements, "CommShowPrg");
    EXPECT_EQ(active()->windowKind(), WindowKind::PrgNew) << "no second window on one file";
    EXPECT_EQ(titles().size(), 2U);
    EXPECT_TRUE(user.warnings.empty());
}

TEST_F(ProgramsInShell, theHighlightedFieldOfTheEditorTakesAProgramFromAnyWindow)
{
    user.files.push_back({true, song("song"), 1, false});
    songs.put("song.pgg", songPrograms("KPGG"));
    start();
    choose("mnuApriArr");
    ChildWindow* arrangements = active();
    press(arrangements, "CommShowPrg");
    clickRow(arrangements, 0);
    press(arrangements, "CommEdit");
    ChildWindow* editor = active();
    ASSERT_EQ(editor->windowKind(), WindowKind::EditArr);
    for (const char* name : {"mnuWProgD", "mnuDrum"})
        choose(name);

    struct Pick {
        int field; ///< of the editor, 2 for the first track, 4 for the second and so on
        const char* from;
        int row;
        std::size_t offset; ///< of number and bank in the block
        const char* bytes;
        const char* name;
        const char* label;
    };
    const Pick picks[] = {{2, "Drum", 7, 39, "07 04", "Jazz Kit", "Dr 18"},
                          {4, "Prg D", 37, 47, "65 01", "Bell Choir", "D 56"},
                          {18, "File Prg", 0, 103, "00 03", "Sabato Lead", "U 11"},
                          {10, "File Prg", 1, 71, "64 01", "Goblin", "D 12"}};
    port.forget();
    for (const Pick& pick : picks) {
        auto* field = editor->findChild<QLineEdit*>(QString("Text1(%1)").arg(pick.field));
        QTest::mouseClick(field, Qt::LeftButton);
        Arr.ArrEditDirty = false;
        ChildWindow* source = child(pick.from);
        clickRow(source, pick.row);
        EXPECT_EQ(hex(Arr.ArrEditBuf.substr(pick.offset, 2)), pick.bytes) << pick.from;
        const auto track = static_cast<std::size_t>(pick.field / 2 - 1);
        std::string name = pick.name;
        name.resize(16, ' ');
        EXPECT_EQ(Arr.ArrEditBuf.substr(180 + 16 * track, 16), name);
        EXPECT_TRUE(Arr.ArrEditDirty);
        EXPECT_EQ(field->text().toStdString(), pick.name);
        EXPECT_EQ(editor->findChild<QLineEdit*>(QString("Text1(%1)").arg(pick.field + 1))->text().toStdString(),
                  pick.label);
    }
    EXPECT_EQ(sent(), "") << "a choice for a field plays nothing";

    user.answers = {Answer::No};
    EXPECT_TRUE(editor->unloadChild());
    clickRow(child("Prg D"), 37);
    EXPECT_EQ(sent(), "B1 00 00 | B1 20 01 | C1 65") << "without the editor it plays again";
}

TEST_F(ProgramsInShell, programWindowsAndBankWindowsComeBackAtTheNextStart)
{
    start();
    openPrograms(songs.put("one.prg", songPrograms()));
    openPrograms(songs.put("two.pgg", songPrograms("KPGG")));
    openPrograms(songs.put("three.prg", songPrograms("KORG", 15)));
    child("File Prg - three.prg")->resize(400, 480);
    child("File Prg - three.prg")->move(60, 30);
    press(child("File Prg - one.prg"), "CommClose");
    choose("mnuWProgE");
    choose("mnuPerc");
    for (int down = 0; down < 8; ++down)
        QTest::keyClick(active()->findChild<QComboBox*>("Combo1"), Qt::Key_Down);
    child("Prg E")->move(90, 45);
    EXPECT_TRUE(window->close());

    const std::string file = state.get("Tarvolyne.ini");
    const auto entry = [&file](std::size_t record) { return file.substr((record - 1) * 250, 250); };
    EXPECT_EQ(hex(entry(5)), hex(std::string(250, '\0'))) << "closed by the user";
    EXPECT_EQ(entry(6).substr(0, songs.file("two").size()), songs.file("two"));
    EXPECT_EQ(entry(6)[240], 1);
    EXPECT_EQ(entry(6)[241], 21);
    EXPECT_EQ(entry(6)[247], 1) << ".pgg";
    EXPECT_EQ(hex(entry(7).substr(238)), "17 70 01 15 42 04 40 42 00 00 1C 20");
    // WinPos rows of nine bytes from offset 50: row 8 open on channel 2, row 10 on channel 10.
    EXPECT_EQ(static_cast<unsigned char>(file[50 + 7 * 9 + 8]), 0x11);
    EXPECT_EQ(static_cast<unsigned char>(file[50 + 9 * 9 + 8]), 0x91);
    EXPECT_EQ(static_cast<unsigned char>(file[50 + 8 * 9 + 8]), 0x10) << "the drum window was not open";
    window.reset();

    Settings saved;
    ASSERT_TRUE(SettingsFile::decode(file, saved));
    static_cast<Settings&>(App) = saved;
    OpenWindows::clear();
    startAgain();
    ASSERT_TRUE(QTest::qWaitFor([this] { return titles().size() == 4; }, 2000));
    EXPECT_EQ(titles(), (Lines{"File Prg - two.pgg (1) - MIDI Channel4", "File Prg - three.prg (2) - MIDI Channel16",
                               "Prg E - MIDI Channel2", "Percussion - MIDI Channel10"}));
    EXPECT_EQ(child("File Prg - three")->size(), QSize(400, 480));
    EXPECT_EQ(child("File Prg - three")->pos(), QPoint(60, 30));
    EXPECT_EQ(child("Prg E")->pos(), QPoint(90, 45));
    EXPECT_FALSE(item("mnuWProgE")->isEnabled());
    clickRow(child("Percussion"), 0);
    EXPECT_TRUE(sent().ends_with("B9 00 00 | B9 20 04 | C9 00"));
    EXPECT_TRUE(user.warnings.empty());
}

TEST_F(ProgramsInShell, aProgramFileThatHasGoneLeavesTheSessionWithoutAWord)
{
    App.Programs[0].path = songs.file("gone");
    App.Programs[0].Open = 1;
    start();
    QTest::qWait(20);
    EXPECT_TRUE(titles().empty());
    EXPECT_TRUE(user.warnings.empty());
    EXPECT_TRUE(window->close());
    EXPECT_EQ(hex(state.get("Tarvolyne.ini").substr(4 * 250, 250)), hex(std::string(250, '\0')));
}

TEST_F(ProgramsInShell, aChangedProgramFileIsAskedForAtTheExit)
{
    start();
    openPrograms(songs.put("song.prg", songPrograms()));
    active()->Tag.set(6, 1);
    user.answers = {Answer::Cancel, Answer::No};
    EXPECT_FALSE(window->close());
    EXPECT_EQ(titles().size(), 1U);
    EXPECT_TRUE(window->close());
    ASSERT_EQ(user.questions.size(), 2U);
    EXPECT_EQ(user.questions[0].title, "File Program - song.prg (1)");
    EXPECT_EQ(state.get("Tarvolyne.ini")[4 * 250 + 240], 1) << "it comes back as it is on disk";
}
