// Save As: where the dialog begins for each kind of window, what each filter makes of it, and the name that comes of
// it.
#include "files/SavingFixture.h"

using namespace SavingWindows;

namespace
{

const std::string NewSty = fourStyles();

} // namespace

TEST_F(SaveAs, theDialogBeginsByTheKindOfTheWindow)
{
    WindowBuffer untitled = arrangements(20, " (Untitled 1)", 1, "");
    untitled.set(17, 1);
    WindowBuffer untitledPrograms = programs(22, " (Untitled 1)", 0);
    untitledPrograms.set(17, 1);
    EXPECT_EQ(dialogOf(bank(2)), "1|/gigs/files|TvlArrA.arr|arr");
    EXPECT_EQ(dialogOf(bank(3)), "1|/gigs/files|TvlArrB.arr|arr");
    EXPECT_EQ(dialogOf(arrangements(19, "/music/song", 1, "")), "1|/gigs/files|/music/song.arr|arr");
    EXPECT_EQ(dialogOf(untitled), "1|/gigs/files|Untitled.arr|arr");
    EXPECT_EQ(dialogOf(arrangements(20, "/music/song", 1, "")), "1|/gigs/files|song.arr|arr");
    EXPECT_EQ(dialogOf(programs(21, "/music/song", 0)), "3|/music|song.prg|prg");
    EXPECT_EQ(dialogOf(programs(21, "/music/song", 1)), "4|/music|song.pgg|pgg");
    EXPECT_EQ(dialogOf(untitledPrograms), "3|/gigs/programs|Untitled.prg|prg");
    EXPECT_EQ(dialogOf(programs(22, "/music/song", 1)), "4|/gigs/programs|Untitled.pgg|pgg");
    EXPECT_EQ(dialogOf(styles(23, "/music/song", NewSty)), "2|/gigs/files|Untitled.sty|sty")
        << "a style window offers no name of its own";
    EXPECT_EQ(dialogOf(styles(24, " (Untitled 1)", NewSty)), "2|/gigs/files|Untitled.sty|sty");
    EXPECT_EQ(dialogOf(globals(25, "/music/song")), "5|/gigs/globals|song.gbl|gbl");
    EXPECT_EQ(dialogOf(globals(14, "Global Parameters")), "5|/gigs/globals|Global Parameters.gbl|gbl");
    App.LanguageBase = 0;
    EXPECT_EQ(dialogOf(styles(24, " (SenzaNome 1)", NewSty)), "2|/gigs/files|SenzaNome.sty|sty");
}

TEST_F(SaveAs, aStemThatLooksLikeAnExtensionIsOfferedWhole)
{
    EXPECT_EQ(dialogOf(globals(25, "/music/my.two")), "5|/gigs/globals|my.two.gbl|gbl");
}

TEST_F(SaveAs, theDialogHasItsTitleAndItsFilters)
{
    WindowBuffer tag = bank(2);
    EXPECT_EQ(FileSaveAs(tag), 1);
    App.LanguageBase = 0;
    EXPECT_EQ(FileSaveAs(tag), 1);
    ASSERT_EQ(user.saveDialogs.size(), 2u);
    EXPECT_EQ(user.saveDialogs[0].title, "Save file as");
    EXPECT_EQ(user.saveDialogs[1].title, "Salva file come");
    EXPECT_EQ(user.saveDialogs[0].filters,
              "Arrangements (*.arr)|*.arr| Styles (*.sty)|*.sty| Programs (*.prg)|*.prg| Programs(*.pgg)| *.pgg| "
              "Global(*.gbl)| *.gbl| All files (*.*)|*.*|");
}

TEST_F(SaveAs, foldersOfTheSettingsStandInForEachOther)
{
    App.LastDirFiles.clear();
    EXPECT_EQ(dialogOf(bank(2)), "1|/gigs/programs|TvlArrA.arr|arr");
    App.LastDirFiles = "/gigs/files";
    App.LastDirPrg.clear();
    App.LastDirGbl.clear();
    EXPECT_EQ(dialogOf(programs(22, "/music/song", 0)), "3|/gigs/files|Untitled.prg|prg");
    EXPECT_EQ(dialogOf(globals(25, "/music/song")), "5|/gigs/files|song.gbl|gbl");
}

TEST_F(SaveAs, windowsWithoutAFileHaveNoDialog)
{
    for (const int kind : {4, 8, 9, 10, 11, 12, 13, 15, 16, 17, 18, 27}) {
        WindowBuffer tag{headOf(kind, "caption")};
        EXPECT_EQ(FileSaveAs(tag), 1) << kind;
    }
    EXPECT_TRUE(user.saveDialogs.empty());
}

TEST_F(SaveAs, aCancelledDialogAndAnEmptyNameSayNothingAndChangeNothing)
{
    for (WindowBuffer& tag :
         std::vector<WindowBuffer>{bank(2), arrangements(19, song(), 2, NewSty), arrangements(20, song(), 2, NewSty),
                                   programs(21, song(), 0), programs(22, song(), 1), styles(23, song(), NewSty),
                                   styles(24, song(), NewSty), globals(25, song()), globals(14, "Global")}) {
        const ByteBuffer before = tag.bytes();
        EXPECT_EQ(FileSaveAs(tag), 1);
        user.saveFiles.push_back({true, "", 1});
        EXPECT_EQ(FileSaveAs(tag), 1);
        expectNothingDone(tag, before);
    }
    EXPECT_EQ(folder.fileCount(), 0u);
    expectSilence();
}

// Filter by filter, kind by kind.

namespace
{

struct Cell {
    const char* window;
    int filter;
    const char* written; ///< names in the folder afterwards, "" when nothing is written
};

constexpr Cell Matrix[] = {
    {"bank A", 1, "x.arr"},
    {"bank A", 2, ""},
    {"bank A", 3, ""},
    {"bank A", 4, ""},
    {"bank A", 5, ""},
    {"bank A", 6, "x.arr"},
    {"bank B", 1, "x.arr"},
    {"bank B", 2, ""},
    {"bank B", 3, ""},
    {"bank B", 4, ""},
    {"bank B", 5, ""},
    {"bank B", 6, "x.arr"},
    {"arr with styles", 1, "x.arr x.sty"},
    {"arr with styles", 2, "x.sty"},
    {"arr with styles", 3, ""},
    {"arr with styles", 4, ""},
    {"arr with styles", 5, ""},
    {"arr with styles", 6, "x.arr x.sty"},
    {"arr with empty styles", 1, "x.arr"},
    {"arr with empty styles", 2, "x.sty"},
    {"arr with empty styles", 3, ""},
    {"arr with empty styles", 4, ""},
    {"arr with empty styles", 5, ""},
    {"arr with empty styles", 6, "x.arr"},
    {"arr without styles", 1, "x.arr"},
    {"arr without styles", 2, ""},
    {"arr without styles", 3, ""},
    {"arr without styles", 4, ""},
    {"arr without styles", 5, ""},
    {"arr without styles", 6, "x.arr"},
    {"new arr with styles", 1, "x.arr x.sty"},
    {"new arr with styles", 2, "x.sty"},
    {"new arr with styles", 3, ""},
    {"new arr with styles", 4, ""},
    {"new arr with styles", 5, ""},
    {"new arr with styles", 6, "x.arr x.sty"},
    {"new arr with empty styles", 1, "x.arr"},
    {"new arr with empty styles", 2, "x.sty"},
    {"new arr with empty styles", 3, ""},
    {"new arr with empty styles", 4, ""},
    {"new arr with empty styles", 5, ""},
    {"new arr with empty styles", 6, "x.arr"},
    {"new arr without styles", 1, "x.arr"},
    {"new arr without styles", 2, ""},
    {"new arr without styles", 3, ""},
    {"new arr without styles", 4, ""},
    {"new arr without styles", 5, ""},
    {"new arr without styles", 6, "x.arr"},
    {"prg", 1, ""},
    {"prg", 2, ""},
    {"prg", 3, "x.prg"},
    {"prg", 4, "x.prg"},
    {"prg", 5, ""},
    {"prg", 6, "x.prg"},
    {"pgg", 1, ""},
    {"pgg", 2, ""},
    {"pgg", 3, "x.pgg"},
    {"pgg", 4, "x.pgg"},
    {"pgg", 5, ""},
    {"pgg", 6, "x.pgg"},
    {"new pgg", 1, ""},
    {"new pgg", 2, ""},
    {"new pgg", 3, "x.pgg"},
    {"new pgg", 4, "x.pgg"},
    {"new pgg", 5, ""},
    {"new pgg", 6, "x.pgg"},
    {"new prg", 1, ""},
    {"new prg", 2, ""},
    {"new prg", 3, "x.prg"},
    {"new prg", 4, "x.prg"},
    {"new prg", 5, ""},
    {"new prg", 6, "x.prg"},
    {"sty", 1, ""},
    {"sty", 2, "x.sty"},
    {"sty", 3, ""},
    {"sty", 4, ""},
    {"sty", 5, ""},
    {"sty", 6, "x.sty"},
    {"new sty", 1, ""},
    {"new sty", 2, "x.sty"},
    {"new sty", 3, ""},
    {"new sty", 4, ""},
    {"new sty", 5, ""},
    {"new sty", 6, "x.sty"},
    {"gbl", 1, ""},
    {"gbl", 2, ""},
    {"gbl", 3, ""},
    {"gbl", 4, ""},
    {"gbl", 5, "x.gbl"},
    {"gbl", 6, "x.gbl"},
    {"instrument's gbl", 1, ""},
    {"instrument's gbl", 2, ""},
    {"instrument's gbl", 3, ""},
    {"instrument's gbl", 4, ""},
    {"instrument's gbl", 5, "x.gbl"},
    {"instrument's gbl", 6, "x.gbl"},
    {"prg", 0, ""},
    {"prg", 7, ""},
    {"sty", -1, ""},
};

WindowBuffer windowNamed(const std::string& name)
{
    const std::string path = "/music/song";
    if (name == "bank A" || name == "bank B")
        return bank(name == "bank A" ? 2 : 3);
    if (name == "arr with styles")
        return arrangements(19, path, 2, NewSty);
    if (name == "arr with empty styles")
        return arrangements(19, path, 1, NewSty);
    if (name == "arr without styles")
        return arrangements(19, path, 0, "");
    if (name == "new arr with styles")
        return arrangements(20, path, 2, NewSty);
    if (name == "new arr with empty styles")
        return arrangements(20, path, 1, NewSty);
    if (name == "new arr without styles")
        return arrangements(20, path, 0, "");
    if (name == "prg" || name == "pgg")
        return programs(21, path, name == "prg" ? 0 : 1);
    if (name == "new prg" || name == "new pgg")
        return programs(22, path, name == "new prg" ? 0 : 1);
    if (name == "sty" || name == "new sty")
        return styles(name == "sty" ? 23 : 24, path, NewSty);
    return globals(name == "gbl" ? 25 : 14, path);
}

/// What a file of that extension must hold.
std::string expectedContent(const std::string& name)
{
    const std::string extension = name.substr(name.size() - 3);
    return extension == "arr"   ? handMade(arrHead(), 10528)
           : extension == "sty" ? NewSty
           : extension == "prg" ? handMade(prgHead(), 30480)
           : extension == "pgg" ? handMade(pggHead(), 30480)
                                : handMade(gblHead(), 448);
}

} // namespace

TEST_F(SaveAs, eachFilterWritesItsAreaOrAnswersOneAndChangesNothing)
{
    for (const Cell& cell : Matrix) {
        SCOPED_TRACE(std::string(cell.window) + ", filter " + std::to_string(cell.filter));
        const TemporaryFolder place;
        App.LastDirFiles = "/gigs/files";
        App.LastDirPrg = "/gigs/programs";
        App.LastDirGbl = "/gigs/globals";
        WindowBuffer tag = windowNamed(cell.window);
        const ByteBuffer before = tag.bytes();
        choose(place.file("x"), cell.filter);
        const bool writes = *cell.written != '\0';
        EXPECT_EQ(FileSaveAs(tag), writes ? 0 : 1);
        std::string written;
        for (const std::string& name : namesBelow(place.path())) {
            written += (written.empty() ? "" : " ") + name;
            EXPECT_TRUE(holds(place, name, expectedContent(name)));
        }
        EXPECT_EQ(written, cell.written);
        if (!writes)
            expectNothingDone(tag, before);
    }
    expectSilence();
}
