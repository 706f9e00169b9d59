// Save and the save at closing: what is written for each kind of window, and which marks it leaves.
#include "files/SavingFixture.h"

#include "core/Reports.h"

using namespace SavingWindows;

namespace
{

const std::string OldArr(10528, 'o');
const std::string OldSty = styleFile({{"Old Style", 300}});
const std::string NewSty = styleFile({{"One", 300}, {"Two", 500}, {"Three", 400}, {"Four", 324}});

using Names = std::vector<std::string>;

} // namespace

TEST_F(SavingTest, anArrangementWindowWritesItsFileAndItsStyles)
{
    folder.put("song.arr", OldArr);
    folder.put("song.sty", OldSty);
    WindowBuffer tag = arrangements(19, song(), 2, NewSty);
    tag.set(9, 1);
    EXPECT_EQ(FileSave(tag), 0);
    EXPECT_TRUE(holds(folder, "song.arr", handMade(arrHead(), 10528)));
    EXPECT_TRUE(holds(folder, "song.sty", NewSty));
    EXPECT_EQ(files(), (Names{"song.arr", "song.sty"}));
    EXPECT_EQ(tag.at(3), 0);
    EXPECT_EQ(tag.at(9), 0);
    expectSilence();
}

TEST_F(SavingTest, theTitleOfASaveIsSavingAndTheName)
{
    std::vector<WindowBuffer> windows = {arrangements(19, song(), 2, NewSty),
                                         arrangements(20, song(), 2, NewSty),
                                         arrangements(20, song(), 1, ""),
                                         programs(21, song(), 0),
                                         programs(22, song(), 1),
                                         styles(23, song(), NewSty),
                                         globals(25, song())};
    for (WindowBuffer& tag : windows) {
        App.LanguageBase = 200;
        App.ErrTitle = "before";
        EXPECT_EQ(FileSave(tag), 0);
        EXPECT_EQ(App.ErrTitle, "Saving song") << tag.kind();
        App.LanguageBase = 0;
        EXPECT_EQ(FileSave(tag), 0);
        EXPECT_EQ(App.ErrTitle, "Salva song") << tag.kind();
    }
    EXPECT_EQ(ArrClosingSave(windows[0]), 0);
    EXPECT_EQ(App.ErrTitle, "Salva song");
    App.LanguageBase = 200;
    windows[0].setPath("/nowhere/else/my.tune");
    EXPECT_EQ(ArrClosingSave(windows[0]), 1);
    EXPECT_EQ(App.ErrTitle, "Saving my.tune") << "a point in a name begins no extension";
}

TEST_F(SavingTest, anArrangementWindowWithEmptyStylesWritesThemToo)
{
    WindowBuffer tag = arrangements(19, song(), 1, Files.StyEmptyBuffer);
    tag.set(9, 1);
    EXPECT_EQ(FileSave(tag), 0);
    EXPECT_TRUE(holds(folder, "song.sty", Files.StyEmptyBuffer));
    EXPECT_EQ(folder.get("song.sty").size(), 4928u);
    EXPECT_EQ(tag.at(3), 0);
    EXPECT_EQ(tag.at(9), 0);
    EXPECT_EQ(tag.at(8), 1);
}

TEST_F(SavingTest, anArrangementWindowWithoutStyleAreaLeavesTheStyleFileAndAllItsMarksAlone)
{
    folder.put("song.sty", OldSty);
    WindowBuffer tag = arrangements(19, song(), 0, "");
    tag.set(9, 1);
    const ByteBuffer before = tag.bytes();
    EXPECT_EQ(FileSave(tag), 0);
    EXPECT_TRUE(holds(folder, "song.arr", handMade(arrHead(), 10528)));
    EXPECT_TRUE(holds(folder, "song.sty", OldSty));
    EXPECT_EQ(tag.bytes(), before) << "the window still counts as modified";
    EXPECT_TRUE(copiesOf("song.sty").empty());
}

TEST_F(SavingTest, aNewArrangementWindowWithStylesWritesThemOverTheOldFile)
{
    folder.put("song.sty", OldSty);
    WindowBuffer tag = arrangements(20, song(), 2, NewSty);
    tag.set(9, 1);
    EXPECT_EQ(FileSave(tag), 0);
    EXPECT_TRUE(holds(folder, "song.arr", handMade(arrHead(), 10528)));
    EXPECT_TRUE(holds(folder, "song.sty", NewSty));
    EXPECT_EQ(copiesOf("song.sty"), Names{OldSty});
    EXPECT_EQ(tag.at(3), 0);
    EXPECT_EQ(tag.at(9), 0);
}

TEST_F(SavingTest, aNewArrangementWindowWithoutUserStylesRemovesTheStyleFileAndLeavesItsMarks)
{
    for (const int styleState : {0, 1}) {
        folder.put("song.sty", OldSty);
        WindowBuffer tag = arrangements(20, song(), styleState, styleState == 0 ? "" : Files.StyEmptyBuffer);
        const ByteBuffer before = tag.bytes();
        EXPECT_EQ(FileSave(tag), 0);
        EXPECT_EQ(files(), Names{"song.arr"});
        EXPECT_TRUE(holds(folder, "song.arr", handMade(arrHead(), 10528)));
        EXPECT_EQ(tag.bytes(), before) << "the window still counts as modified";
    }
    EXPECT_EQ(copiesOf("song.sty"), (Names{OldSty, OldSty}));
}

TEST_F(SavingTest, aNewArrangementWindowWithoutUserStylesLeavesNoEmptyStyleFile)
{
    WindowBuffer tag = arrangements(20, song(), 1, Files.StyEmptyBuffer);
    EXPECT_EQ(FileSave(tag), 0);
    EXPECT_EQ(files(), Names{"song.arr"});
}

TEST_F(SavingTest, aWindowWithoutANameIsNeverSavedUnderItsCaption)
{
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path(folder.path());
    std::vector<WindowBuffer> untitled = {arrangements(20, " (Untitled 1)", 2, NewSty),
                                          programs(22, " (Untitled 1)", 0), styles(24, " (Untitled 1)", NewSty)};
    for (WindowBuffer& tag : untitled) {
        tag.set(17, 1);
        const ByteBuffer bytes = tag.bytes();
        EXPECT_EQ(FileSave(tag), 1);
        EXPECT_EQ(tag.bytes(), bytes);
    }
    std::filesystem::current_path(before);
    EXPECT_EQ(folder.fileCount(), 0u);
}

TEST_F(SavingTest, aProgramWindowWritesItsTypeAndRemovesTheOther)
{
    const struct {
        int type;
        const char* own;
        const char* twin;
    } rows[] = {{0, "song.prg", "song.pgg"}, {1, "song.pgg", "song.prg"}};
    for (const auto& row : rows) {
        folder.put(row.twin, "the other kind");
        folder.put(row.own, "old");
        WindowBuffer tag = programs(21, song(), row.type);
        EXPECT_EQ(FileSave(tag), 0);
        EXPECT_EQ(files(), Names{row.own});
        EXPECT_TRUE(holds(folder, row.own, handMade(row.type == 0 ? prgHead() : pggHead(), 30480)));
        EXPECT_EQ(tag.at(6), 0);
        EXPECT_EQ(tag.at(5), 2);
        EXPECT_EQ(copiesOf(row.twin).back(), "the other kind");
        std::filesystem::remove(folder.file(row.own));
    }
}

TEST_F(SavingTest, theTwinIsFoundInAnyLetterCase)
{
    folder.put("song.PGG", "the other kind");
    WindowBuffer tag = programs(21, song(), 0);
    EXPECT_EQ(FileSave(tag), 0);
    EXPECT_EQ(files(), Names{"song.prg"});
}

TEST_F(SavingTest, aProgramWindowWithoutATwinLeavesNothingElse)
{
    WindowBuffer tag = programs(21, song(), 1);
    EXPECT_EQ(FileSave(tag), 0);
    EXPECT_EQ(files(), Names{"song.pgg"});
    expectSilence();
}

TEST_F(SavingTest, aNewProgramWindowThatHasItsNameBehavesAsOneOnAFile)
{
    folder.put("song.pgg", "the other kind");
    WindowBuffer tag = programs(22, song(), 0);
    EXPECT_EQ(FileSave(tag), 0);
    EXPECT_EQ(files(), Names{"song.prg"});
    EXPECT_TRUE(holds(folder, "song.prg", handMade(prgHead(), 30480)));
    EXPECT_EQ(tag.at(6), 0);
    EXPECT_EQ(tag.kind(), 22);
}

TEST_F(SavingTest, aStyleWindowWritesItsFile)
{
    folder.put("song.sty", std::string(90000, 'x'));
    WindowBuffer tag = styles(23, song(), NewSty);
    EXPECT_EQ(FileSave(tag), 0);
    EXPECT_TRUE(holds(folder, "song.sty", NewSty)) << "no longer than its content";
    EXPECT_EQ(tag.at(9), 0);
    EXPECT_EQ(files(), Names{"song.sty"});
}

TEST_F(SavingTest, aGlobalWindowWritesItsFile)
{
    WindowBuffer tag = globals(25, song());
    EXPECT_EQ(FileSave(tag), 0);
    EXPECT_TRUE(holds(folder, "song.gbl", handMade(gblHead(), 448)));
    EXPECT_EQ(tag.at(3), 0);
    EXPECT_EQ(files(), Names{"song.gbl"});
}

TEST_F(SavingTest, windowsWithoutAFileOfTheirOwnWriteNothing)
{
    std::vector<WindowBuffer> windows = {bank(2), bank(3), globals(14, song()), styles(24, song(), NewSty)};
    for (const int kind : {4, 9, 12, 17})
        windows.emplace_back(headOf(kind, song()));
    for (WindowBuffer& tag : windows) {
        const ByteBuffer before = tag.bytes();
        EXPECT_EQ(FileSave(tag), 0) << tag.kind();
        EXPECT_EQ(tag.bytes(), before) << tag.kind();
    }
    EXPECT_EQ(folder.fileCount(), 0u);
    expectSilence();
}

TEST_F(SavingTest, theFileThatWasOpenedIsReplacedInItsOwnLetterCase)
{
    folder.put("song.ARR", OldArr);
    folder.put("song.Sty", OldSty);
    WindowBuffer tag = arrangements(19, song(), 2, NewSty);
    EXPECT_EQ(FileSave(tag), 0);
    EXPECT_EQ(files(), (Names{"song.ARR", "song.Sty"}));
    EXPECT_TRUE(holds(folder, "song.ARR", handMade(arrHead(), 10528)));
    EXPECT_TRUE(holds(folder, "song.Sty", NewSty));
}

TEST_F(SavingTest, theTargetOfALinkIsReplacedAndTheLinkStays)
{
    const TemporaryFolder elsewhere;
    elsewhere.put("real.arr", OldArr);
    std::filesystem::create_symlink(elsewhere.file("real.arr"), folder.file("song.arr"));
    WindowBuffer tag = arrangements(19, song(), 0, "");
    EXPECT_EQ(FileSave(tag), 0);
    EXPECT_TRUE(std::filesystem::is_symlink(folder.file("song.arr")));
    EXPECT_TRUE(holds(elsewhere, "real.arr", handMade(arrHead(), 10528)));
    EXPECT_EQ(copiesOfPath(elsewhere.file("real.arr")), Names{OldArr});
}

TEST_F(SavingTest, aRefusedStyleFileIsNotTouchedUntilAStyleIsPasted)
{
    for (const int styleState : {1, 0}) {
        folder.put("song.sty", "no style file");
        WindowBuffer tag = arrangements(19, song(), styleState, styleState == 0 ? "" : Files.StyEmptyBuffer);
        tag.set(10, 1);
        EXPECT_EQ(FileSave(tag), 0);
        EXPECT_EQ(ArrClosingSave(tag), 0);
        EXPECT_TRUE(holds(folder, "song.sty", "no style file"));
        EXPECT_EQ(tag.at(10), 1) << "still remembered";
        EXPECT_TRUE(copiesOf("song.sty").empty());
    }
}

TEST_F(SavingTest, aPastedStyleReplacesARefusedStyleFileBehindACopy)
{
    folder.put("song.sty", "no style file");
    WindowBuffer tag = arrangements(19, song(), 2, NewSty);
    tag.set(9, 1);
    tag.set(10, 1);
    EXPECT_EQ(FileSave(tag), 0);
    EXPECT_TRUE(holds(folder, "song.sty", NewSty));
    EXPECT_EQ(copiesOf("song.sty"), Names{"no style file"});
    EXPECT_EQ(tag.at(10), 0) << "what stands there now can be read";
}

TEST_F(SavingTest, theSaveCommandAsksForANameWhereThereIsNone)
{
    WindowBuffer named = globals(25, song());
    EXPECT_EQ(SaveWindow(named), 0);
    EXPECT_TRUE(user.saveDialogs.empty());
    WindowBuffer untitled = arrangements(20, " (Untitled 1)", 1, Files.StyEmptyBuffer);
    untitled.set(17, 1);
    EXPECT_EQ(SaveWindow(untitled), 1);
    EXPECT_EQ(user.saveDialogs.size(), 1u);
}

TEST_F(SavingTest, aNewStyleWindowAlwaysAsksForANameAlsoWhereItsMarkIsGone)
{
    WindowBuffer tag = styles(24, song(), NewSty);
    ASSERT_FALSE(tag.untitled());
    EXPECT_EQ(SaveWindow(tag), 1);
    EXPECT_EQ(user.saveDialogs.size(), 1u);
    EXPECT_EQ(tag.at(9), 1);
    choose(song(), 2);
    EXPECT_EQ(SaveWindow(tag), 0);
    EXPECT_TRUE(holds(folder, "song.sty", NewSty));
}

// The save at the closing of an arrangement window.

class ArrClosing : public SavingTest
{
};

TEST_F(ArrClosing, writesTheFileAndOnlyStylesThatWereModified)
{
    folder.put("song.sty", OldSty);
    WindowBuffer tag = arrangements(19, song(), 2, NewSty);
    EXPECT_EQ(ArrClosingSave(tag), 0);
    EXPECT_TRUE(holds(folder, "song.arr", handMade(arrHead(), 10528)));
    EXPECT_TRUE(holds(folder, "song.sty", OldSty));
    EXPECT_EQ(tag.at(3), 0);

    tag.set(3, 1);
    tag.set(9, 1);
    EXPECT_EQ(ArrClosingSave(tag), 0);
    EXPECT_TRUE(holds(folder, "song.sty", NewSty));
    EXPECT_EQ(tag.at(3), 0);
    EXPECT_EQ(tag.at(9), 0);
}

TEST_F(ArrClosing, removesTheStyleFileOfAWindowWithoutUserStyles)
{
    folder.put("song.sty", OldSty);
    WindowBuffer tag = arrangements(19, song(), 1, Files.StyEmptyBuffer);
    tag.set(9, 1);
    EXPECT_EQ(ArrClosingSave(tag), 0);
    EXPECT_EQ(files(), Names{"song.arr"});
    EXPECT_EQ(copiesOf("song.sty"), Names{OldSty});
    EXPECT_EQ(tag.at(3), 0);
    EXPECT_EQ(tag.at(9), 0);
}

TEST_F(ArrClosing, storesTheMarksOfAWindowWithoutStyleArea)
{
    folder.put("song.sty", OldSty);
    WindowBuffer tag = arrangements(19, song(), 0, "");
    EXPECT_EQ(ArrClosingSave(tag), 0);
    EXPECT_EQ(tag.at(3), 0);
    EXPECT_TRUE(holds(folder, "song.sty", OldSty));
}

// The closing question.

class ClosingQuestion : public SavingTest
{
protected:
    struct Row {
        const char* name;
        int kind;
        int modifiedOffset;
        WindowBuffer tag;
        const char* file; ///< written by Yes; null where it goes through the dialog
    };
    std::vector<Row> rows()
    {
        return {{"arrangements", 19, 3, arrangements(19, song(), 0, ""), "song.arr"},
                {"new arrangements", 20, 3, arrangements(20, song(), 2, NewSty), "song.arr"},
                {"programs", 21, 6, programs(21, song(), 0), "song.prg"},
                {"new programs", 22, 6, programs(22, song(), 1), "song.pgg"},
                {"styles", 23, 9, styles(23, song(), NewSty), "song.sty"},
                {"globals", 25, 3, globals(25, song()), "song.gbl"},
                {"new styles", 24, 9, styles(24, song(), NewSty), nullptr},
                {"bank A", 2, 3, bank(2), nullptr},
                {"bank B", 3, 3, bank(3), nullptr}};
    }
};

TEST_F(ClosingQuestion, isNotAskedOfAWindowWithoutChanges)
{
    for (Row& row : rows()) {
        row.tag.set(row.modifiedOffset, 0);
        EXPECT_TRUE(AgreeToClose(row.tag, "title")) << row.name;
    }
    WindowBuffer instrument = globals(14, "Global Parameters");
    EXPECT_TRUE(AgreeToClose(instrument, "title")) << "the instrument keeps its own block";
    expectSilence();
    EXPECT_EQ(folder.fileCount(), 0u);
}

TEST_F(ClosingQuestion, cancelKeepsTheWindowAndNoLetsItGo)
{
    for (Row& row : rows()) {
        const ByteBuffer before = row.tag.bytes();
        user.answers = {2, 7};
        user.questions.clear();
        EXPECT_FALSE(AgreeToClose(row.tag, "The title")) << row.name;
        EXPECT_TRUE(AgreeToClose(row.tag, "The title")) << row.name;
        ASSERT_EQ(user.questions.size(), 2u);
        EXPECT_EQ(user.questions[0].title, "The title");
        EXPECT_EQ(user.questions[0].text, "The file has changed\nSave changes ?");
        EXPECT_EQ(row.tag.bytes(), before);
    }
    EXPECT_EQ(folder.fileCount(), 0u);
    EXPECT_TRUE(user.saveDialogs.empty());
}

TEST_F(ClosingQuestion, yesSavesAndLetsTheWindowGo)
{
    for (Row& row : rows()) {
        const char* const typed = row.kind == 2 ? "a.arr" : row.kind == 3 ? "b.arr" : "mine.sty";
        if (row.file == nullptr)
            choose(folder.file(typed), row.kind == 24 ? 2 : 1);
        user.answers = {6};
        EXPECT_TRUE(AgreeToClose(row.tag, "title")) << row.name;
        EXPECT_TRUE(folder.has(row.file ? row.file : typed)) << row.name;
    }
}

TEST_F(ClosingQuestion, aCancelledDialogKeepsTheWindow)
{
    std::vector<WindowBuffer> windows = {bank(2), bank(3), arrangements(20, " (Untitled 1)", 2, NewSty),
                                         programs(22, " (Untitled 1)", 0), styles(24, " (Untitled 1)", NewSty)};
    for (WindowBuffer& tag : windows) {
        if (tag.kind() > 3)
            tag.set(17, 1);
        const ByteBuffer before = tag.bytes();
        user.saveDialogs.clear();
        EXPECT_FALSE(AgreeToClose(tag, "title")) << tag.kind();
        EXPECT_EQ(user.saveDialogs.size(), 1u) << tag.kind();
        EXPECT_EQ(tag.bytes(), before);
    }
    EXPECT_EQ(folder.fileCount(), 0u);
}

TEST_F(ClosingQuestion, aFailedSaveKeepsTheWindow)
{
    for (Row& row : rows()) {
        if (row.file == nullptr)
            continue;
        WindowBuffer tag = row.tag;
        tag.setPath(folder.file("nowhere/song"));
        EXPECT_FALSE(AgreeToClose(tag, "title")) << row.name;
        EXPECT_EQ(tag.at(row.modifiedOffset), 1) << row.name;
        EXPECT_EQ(user.warnings.back().text, "Path not found");
    }
}

TEST_F(ClosingQuestion, yesIsRefusedForAFileThatWasOpenedReadOnly)
{
    for (Row& row : rows()) {
        if (row.file == nullptr)
            continue;
        row.tag.set(1, 1);
        const ByteBuffer before = row.tag.bytes();
        folder.put(row.file, "old");
        user.answers = {6, 7};
        user.warnings.clear();
        EXPECT_FALSE(AgreeToClose(row.tag, "title")) << row.name;
        ASSERT_EQ(user.warnings.size(), 1u) << row.name;
        EXPECT_EQ(user.warnings[0].title, "Tarvolyne - Tarvolyne Console ");
        EXPECT_EQ(user.warnings[0].text, "Read only file");
        EXPECT_TRUE(row.tag.bytes() == before) << row.name;
        EXPECT_EQ(folder.get(row.file), "old") << row.name;
        EXPECT_TRUE(AgreeToClose(row.tag, "title")) << row.name << ": No lets it go";
    }
}
