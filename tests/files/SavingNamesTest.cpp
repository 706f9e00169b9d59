// Save As: the name that comes of the typed one, and what the window is afterwards.
#include "files/SavingFixture.h"

using namespace SavingWindows;

namespace
{

const std::string NewSty = fourStyles();

using Names = std::vector<std::string>;

} // namespace

// What the window is afterwards.

TEST_F(SaveAs, anArrangementWindowTakesTheNameAndLosesItsMarks)
{
    for (const int kind : {19, 20}) {
        WindowBuffer tag = arrangements(kind, "/music/song", 2, NewSty);
        tag.set(9, 1);
        tag.set(17, kind == 20 ? 1 : 0);
        ByteBuffer expected = tag.bytes();
        std::string path = folder.file("other");
        path.resize(250, ' ');
        expected.replace(20, 250, path);
        expected[3] = expected[9] = expected[17] = '\0';
        choose(folder.file("other.arr"), 1);
        EXPECT_EQ(FileSaveAs(tag), 0);
        EXPECT_EQ(tag.bytes(), expected) << kind;
        EXPECT_EQ(App.LastDirFiles, folder.path());
    }
}

TEST_F(SaveAs, anArrangementWindowWithoutUserStylesKeepsTheirMarkAndTouchesNoStyleFile)
{
    folder.put("other.sty", "another's styles");
    WindowBuffer tag = arrangements(19, "/music/song", 1, Files.StyEmptyBuffer);
    tag.set(9, 1);
    choose(folder.file("other.arr"), 1);
    EXPECT_EQ(FileSaveAs(tag), 0);
    EXPECT_EQ(tag.at(9), 1);
    EXPECT_EQ(tag.at(3), 0);
    EXPECT_TRUE(holds(folder, "other.sty", "another's styles"));
}

TEST_F(SaveAs, aBankWindowStaysOnItsBank)
{
    for (const int kind : {2, 3}) {
        WindowBuffer tag = bank(kind);
        const ByteBuffer before = tag.bytes();
        choose(folder.file("mine.arr"), 1);
        EXPECT_EQ(FileSaveAs(tag), 0);
        EXPECT_EQ(tag.bytes(), before);
        EXPECT_TRUE(holds(folder, "mine.arr", handMade(arrHead(), 10528)));
        EXPECT_EQ(App.LastDirFiles, folder.path());
    }
}

TEST_F(SaveAs, aStyleWindowTakesTheNameAndANewOneAsksAgain)
{
    for (const int kind : {23, 24}) {
        WindowBuffer tag = styles(kind, " (Untitled 1)", NewSty);
        tag.set(17, kind == 24 ? 1 : 0);
        choose(folder.file("mine.sty"), 2);
        EXPECT_EQ(FileSaveAs(tag), 0);
        EXPECT_EQ(tag.path(), folder.file("mine"));
        EXPECT_EQ(tag.at(9), 0);
        EXPECT_EQ(tag.at(17), kind == 24 ? 1 : 0);
        EXPECT_EQ(tag.kind(), kind);
    }
    WindowBuffer again = styles(24, folder.file("mine"), NewSty);
    again.set(17, 1);
    user.saveDialogs.clear();
    EXPECT_EQ(SaveWindow(again), 1);
    EXPECT_EQ(user.saveDialogs.size(), 1u);
}

TEST_F(SaveAs, theStylesOfAnArrangementWindowUnderAnotherNameTakeTheWindowAlong)
{
    WindowBuffer tag = arrangements(19, "/music/song", 2, NewSty);
    tag.set(9, 1);
    choose(folder.file("only.sty"), 2);
    EXPECT_EQ(FileSaveAs(tag), 0);
    EXPECT_EQ(tag.path(), folder.file("only"));
    EXPECT_EQ(tag.at(9), 0);
    EXPECT_EQ(tag.at(3), 1) << "the arrangements are not saved by that";
    EXPECT_EQ(files(), Names{"only.sty"});
}

TEST_F(SaveAs, aProgramWindowTakesTheNameAndIsNoLongerUntitled)
{
    for (const int kind : {21, 22}) {
        folder.put("mine.pgg", "the other kind");
        WindowBuffer tag = programs(kind, " (Untitled 1)", 0);
        tag.set(17, 1);
        choose(folder.file("mine.prg"), 3);
        EXPECT_EQ(FileSaveAs(tag), 0);
        EXPECT_EQ(tag.path(), folder.file("mine"));
        EXPECT_EQ(tag.at(6), 0);
        EXPECT_EQ(tag.at(17), 0);
        EXPECT_EQ(tag.at(18), 0);
        EXPECT_EQ(files(), Names{"mine.prg"}) << "a stem has one program file";
        EXPECT_EQ(App.LastDirPrg, folder.path());
        EXPECT_EQ(App.LastDirFiles, "/gigs/files");
    }
    EXPECT_EQ(copiesOf("mine.pgg"), (Names{"the other kind", "the other kind"}));
}

TEST_F(SaveAs, aGlobalWindowTakesTheNameAndTheInstrumentsOwnKeepsItsTitle)
{
    WindowBuffer tag = globals(25, "/music/song");
    choose(folder.file("mine.gbl"), 5);
    EXPECT_EQ(FileSaveAs(tag), 0);
    EXPECT_EQ(tag.path(), folder.file("mine"));
    EXPECT_EQ(tag.at(3), 0);
    EXPECT_EQ(App.LastDirGbl, folder.path());

    WindowBuffer instrument = globals(14, "Global Parameters");
    choose(folder.file("copy.gbl"), 5);
    EXPECT_EQ(FileSaveAs(instrument), 0);
    EXPECT_EQ(instrument.path(), "Global Parameters");
    EXPECT_EQ(instrument.at(3), 0);
}

TEST_F(SaveAs, theWindowIsFoundByItsNewNameAndNoLongerByTheOld)
{
    App.Arrangements[2] = {};
    App.Arrangements[2].used = true;
    App.Arrangements[2].path = "/music/song";
    WindowBuffer tag = arrangements(19, "/music/song", 1, "");
    tag.set(14, 3);
    choose(folder.file("other.arr"), 1);
    EXPECT_EQ(FileSaveAs(tag), 0);
    EXPECT_EQ(ArrWinFind(folder.file("other")), 1);
    EXPECT_EQ(ArrWinFind("/music/song"), 0);

    App.Programs[0].used = App.Styles[0].used = App.Globals[1].used = true;
    WindowBuffer prg = programs(21, "/music/song", 1);
    WindowBuffer sty = styles(23, "/music/song", NewSty);
    WindowBuffer gbl = globals(25, "/music/song");
    choose(folder.file("p"), 4);
    choose(folder.file("s"), 2);
    choose(folder.file("g"), 5);
    EXPECT_EQ(FileSaveAs(prg) + FileSaveAs(sty) + FileSaveAs(gbl), 0);
    std::string global = folder.file("g");
    EXPECT_EQ(PrgWinFind(folder.file("p")), 1);
    EXPECT_EQ(StyWinFind(folder.file("s")), 1);
    EXPECT_EQ(GblWinFind(global), 1);
}

TEST_F(SaveAs, aRefusedStyleFileStaysBehindWithTheOldName)
{
    folder.put("song.sty", "no style file");
    WindowBuffer tag = arrangements(19, song(), 1, Files.StyEmptyBuffer);
    tag.set(10, 1);
    choose(folder.file("song.arr"), 1);
    EXPECT_EQ(FileSaveAs(tag), 0);
    EXPECT_EQ(tag.at(10), 1) << "still the same name";
    choose(folder.file("other.arr"), 1);
    EXPECT_EQ(FileSaveAs(tag), 0);
    EXPECT_EQ(tag.at(10), 0);
    EXPECT_TRUE(holds(folder, "song.sty", "no style file"));
}

// The name.

TEST_F(SaveAs, theKindsExtensionIsAppendedUnlessTheNameEndsInIt)
{
    const struct {
        const char* typed;
        const char* file;
        const char* stem;
    } rows[] = {{"a", "a.arr", "a"},
                {"a.arr", "a.arr", "a"},
                {"b.ARR", "b.ARR", "b"},
                {"c.Arr", "c.Arr", "c"},
                {"my.song", "my.song.arr", "my.song"},
                {"d.prg", "d.prg.arr", "d.prg"},
                {"e.sty", "e.sty.arr", "e.sty"},
                {"f.", "f..arr", "f."},
                {"g.two.arr", "g.two.arr", "g.two"},
                {"h.arr.bak", "h.arr.bak.arr", "h.arr.bak"}};
    for (const auto& row : rows) {
        WindowBuffer tag = arrangements(19, "/music/song", 0, "");
        choose(folder.file(row.typed), 1);
        EXPECT_EQ(FileSaveAs(tag), 0) << row.typed;
        EXPECT_TRUE(folder.has(row.file)) << row.typed;
        EXPECT_EQ(tag.path(), folder.file(row.stem));
    }
    EXPECT_EQ(folder.fileCount(), std::size(rows) - 1) << "two of the names are one";
}

TEST_F(SaveAs, ofAProgramOnlyATypedPrgOrPggIsExchanged)
{
    const struct {
        int type;
        const char* typed;
        const char* file;
    } rows[] = {{1, "x.prg", "x.pgg"},         {0, "y.pgg", "y.prg"},     {1, "z.PRG", "z.pgg"}, {0, "u.PRG", "u.PRG"},
                {1, "my.song", "my.song.pgg"}, {0, "v.arr", "v.arr.prg"}, {0, "w.prg", "w.prg"}, {1, "t", "t.pgg"}};
    Names expected;
    for (const auto& row : rows) {
        WindowBuffer tag = programs(21, "/music/song", row.type);
        choose(folder.file(row.typed), row.type == 0 ? 3 : 4);
        EXPECT_EQ(FileSaveAs(tag), 0) << row.typed;
        expected.emplace_back(row.file);
    }
    std::sort(expected.begin(), expected.end());
    EXPECT_EQ(files(), expected);
}

TEST_F(SaveAs, overwritingIsAskedAgainWhereTheFinalNameIsAnother)
{
    folder.put("song.pgg", "old");
    WindowBuffer tag = programs(21, "/music/song", 1);
    const ByteBuffer before = tag.bytes();
    user.overwrites = {false};
    choose(folder.file("song.prg"), 3);
    EXPECT_EQ(FileSaveAs(tag), 1);
    EXPECT_EQ(user.overwriteQuestions, Names{folder.file("song.pgg")});
    EXPECT_TRUE(holds(folder, "song.pgg", "old"));
    expectNothingDone(tag, before);

    user.overwrites = {true};
    choose(folder.file("song.prg"), 3);
    EXPECT_EQ(FileSaveAs(tag), 0);
    EXPECT_TRUE(holds(folder, "song.pgg", handMade(pggHead(), 30480)));
    EXPECT_EQ(copiesOf("song.pgg"), Names{"old"});
}

TEST_F(SaveAs, overwritingIsAskedAgainOfAFileInAnotherLetterCase)
{
    folder.put("SONG.ARR", "old");
    WindowBuffer tag = arrangements(19, "/music/song", 0, "");
    user.overwrites = {false, true};
    choose(folder.file("song.arr"), 1);
    choose(folder.file("song.arr"), 1);
    EXPECT_EQ(FileSaveAs(tag), 1);
    EXPECT_TRUE(holds(folder, "SONG.ARR", "old"));
    EXPECT_EQ(FileSaveAs(tag), 0);
    EXPECT_EQ(files(), Names{"SONG.ARR"});
    EXPECT_TRUE(holds(folder, "SONG.ARR", handMade(arrHead(), 10528)));
}

TEST_F(SaveAs, overwritingIsNotAskedAgainWhereTheDialogHasAsked)
{
    folder.put("song.arr", "old");
    WindowBuffer tag = arrangements(19, song(), 0, "");
    choose(folder.file("song.arr"), 1);
    choose(folder.file("fresh"), 1);
    EXPECT_EQ(FileSaveAs(tag), 0);
    EXPECT_EQ(FileSaveAs(tag), 0);
    EXPECT_TRUE(user.overwriteQuestions.empty());
}

TEST_F(SaveAs, aNameThatItsFieldCannotHoldIsRefusedBeforeAnythingIsWritten)
{
    const struct {
        int filter;
        WindowBuffer tag;
    } rows[] = {{1, bank(2)},
                {1, bank(3)},
                {1, arrangements(19, "/music/song", 2, NewSty)},
                {2, arrangements(19, "/music/song", 2, NewSty)},
                {1, arrangements(20, "/music/song", 2, NewSty)},
                {2, styles(23, "/music/song", NewSty)},
                {2, styles(24, " (Untitled 1)", NewSty)},
                {3, programs(21, "/music/song", 0)},
                {4, programs(22, " (Untitled 1)", 1)},
                {5, globals(25, "/music/song")},
                {5, globals(14, "Global Parameters")},
                {6, bank(2)},
                {6, arrangements(19, "/music/song", 2, NewSty)},
                {6, arrangements(20, "/music/song", 2, NewSty)},
                {6, styles(23, "/music/song", NewSty)},
                {6, styles(24, " (Untitled 1)", NewSty)},
                {6, programs(21, "/music/song", 0)},
                {6, programs(22, " (Untitled 1)", 1)},
                {6, globals(14, "Global Parameters")},
                {6, globals(25, "/music/song")}};
    const std::string longest = folder.file(std::string(238 - folder.path().size() - 1, 'n'));
    ASSERT_EQ(longest.size(), 238u);
    for (const auto& row : rows) {
        WindowBuffer tag = row.tag;
        const ByteBuffer before = tag.bytes();
        for (const std::string& refused : {longest + "n", folder.file("ends in a blank ")}) {
            user.warnings.clear();
            choose(refused, row.filter);
            EXPECT_EQ(FileSaveAs(tag), 1);
            expectBox("Tarvolyne - Tarvolyne Console ", "Path not found");
            EXPECT_EQ(tag.bytes(), before);
            EXPECT_EQ(folder.fileCount(), 0u);
        }
        EXPECT_TRUE(user.overwriteQuestions.empty());
        choose(longest, row.filter);
        EXPECT_EQ(FileSaveAs(tag), 0);
        EXPECT_GE(folder.fileCount(), 1u);
        const bool keepsItsTitle = tag.kind() == 2 || tag.kind() == 3 || tag.kind() == 14;
        EXPECT_EQ(tag.path(), keepsItsTitle ? row.tag.path() : longest);
        for (const std::string& name : files())
            std::filesystem::remove(folder.file(name));
    }
}

TEST_F(SaveAs, aNameThatIsNothingButAnExtensionIsRefusedBeforeAnythingIsWritten)
{
    const struct {
        const char* typed;
        int filter;
        WindowBuffer tag;
    } rows[] = {{".arr", 1, arrangements(19, "/music/song", 2, NewSty)},
                {".ARR", 6, arrangements(20, "/music/song", 2, NewSty)},
                {".arr", 1, bank(2)},
                {".sty", 2, arrangements(19, "/music/song", 2, NewSty)},
                {".sty", 2, styles(24, " (Untitled 1)", NewSty)},
                {".prg", 3, programs(21, "/music/song", 0)},
                {".prg", 3, programs(22, " (Untitled 1)", 1)},
                {".gbl", 5, globals(14, "Global Parameters")},
                {"", 1, arrangements(19, "/music/song", 2, NewSty)}}; // the folder itself
    for (const auto& row : rows) {
        SCOPED_TRACE(row.typed);
        WindowBuffer tag = row.tag;
        user.warnings.clear();
        choose(folder.path() + "/" + row.typed, row.filter);
        EXPECT_EQ(FileSaveAs(tag), 1);
        expectBox("Tarvolyne - Tarvolyne Console ", "Path not found");
        expectNothingDone(tag, row.tag.bytes());
    }
    EXPECT_EQ(folder.fileCount(), 0u);
    EXPECT_TRUE(user.overwriteQuestions.empty());
    WindowBuffer tag = arrangements(19, "/music/song", 1, "");
    choose(folder.file(".sty"), 1);
    EXPECT_EQ(FileSaveAs(tag), 0);
    EXPECT_EQ(files(), Names{".sty.arr"}) << "no extension of this kind, so a name";
    EXPECT_EQ(tag.stem(), ".sty");
}

TEST_F(SaveAs, theDialogIsToldWhichFileANameStandsForUnderAFilter)
{
    const auto nameOf = [&](WindowBuffer tag, const char* typed, int filter) {
        user.saveDialogs.clear();
        EXPECT_EQ(FileSaveAs(tag), 1);
        return user.saveDialogs.at(0).nameOf(std::string("/gigs/") + typed, filter);
    };
    const WindowBuffer arr = arrangements(19, "/music/song", 2, NewSty);
    EXPECT_EQ(nameOf(arr, "song.arr", 1), "/gigs/song.arr");
    EXPECT_EQ(nameOf(arr, "song.arr", 2), "/gigs/song.arr.sty");
    EXPECT_EQ(nameOf(arr, "song", 6), "/gigs/song.arr");
    EXPECT_EQ(nameOf(arr, "song.arr", 3), "") << "the window has no such area";
    EXPECT_EQ(nameOf(programs(21, "/music/song", 1), "song.prg", 3), "/gigs/song.pgg");
    EXPECT_EQ(nameOf(programs(22, "/music/song", 0), "song.pgg", 6), "/gigs/song.prg");
}

TEST_F(SaveAs, theLongestNameIsSavedToAgain)
{
    const std::string longest = folder.file(std::string(238 - folder.path().size() - 1, 'n'));
    WindowBuffer tag = arrangements(19, longest, 2, NewSty);
    EXPECT_EQ(FileSave(tag), 0);
    EXPECT_EQ(FileSave(tag), 0);
    EXPECT_EQ(folder.fileCount(), 2u);
    expectSilence();
}

// There and back: each kind of file read, changed, saved, read again.

TEST_F(SaveAs, eachKindOfFileComesBackAsItWasChanged)
{
    const auto reread = [&](int (*read)(const std::string&), const std::string& name) {
        EXPECT_EQ(read(folder.file(name)), 0) << name;
    };
    folder.put("song.arr", handMade(arrHead(), 10528));
    folder.put("song.sty", NewSty);
    folder.put("song.prg", handMade(prgHead(), 30480));
    folder.put("song.gbl", handMade(gblHead(), 448));

    reread(ArrFileRead, "song.arr");
    reread(StyFileRead, "song.sty");
    WindowBuffer arr(headOf(19, song()) + Files.ArrBuffer + std::string(1344 + 30480, ' ') + Files.StyBuffer);
    arr.set(8, 2);
    arr.bytes()[302 + 164 * 63] = 'Z';
    arr.bytes()[42622 + 224 + 300] = 'T'; // the name of the second style
    EXPECT_EQ(FileSave(arr), 0);
    reread(ArrFileRead, "song.arr");
    reread(StyFileRead, "song.sty");
    std::string expected = handMade(arrHead(), 10528);
    expected[32 + 164 * 63] = 'Z';
    EXPECT_EQ(Files.ArrBuffer, expected);
    expected = NewSty;
    expected[524] = 'T';
    EXPECT_EQ(Files.StyBuffer, expected);

    reread(PrgFileRead, "song.prg");
    WindowBuffer prg(headOf(21, song()) + Files.PrgBuffer + std::string(1344, ' '));
    prg.bytes()[285] = '\x05'; // the channel
    choose(folder.file("other"), 6);
    EXPECT_EQ(FileSaveAs(prg), 0);
    reread(PrgFileRead, "other.prg");
    expected = handMade(prgHead(), 30480);
    expected[15] = '\x05';
    EXPECT_EQ(Files.PrgBuffer, expected);

    reread(GblFileRead, "song.gbl");
    WindowBuffer gbl(headOf(25, song()) + Files.GblBuffer);
    gbl.bytes()[270 + 447] = 'K';
    EXPECT_EQ(FileSave(gbl), 0);
    reread(GblFileRead, "song.gbl");
    expected = handMade(gblHead(), 448);
    expected[447] = 'K';
    EXPECT_EQ(Files.GblBuffer, expected);
    expectSilence();
}
