// Saving on a disk that refuses: which words are said, what is tried again, and that files, marks and folders stay as
// they were.
#include "files/SavingWays.h"

#include <cerrno>
#include <csignal>
#include <sys/resource.h>

// The tables of errors.

TEST_F(SavingErrors, saveReportsByTheTableOfReading)
{
    const struct {
        int error;
        const char* words;
    } rows[] = {{EIO, "Error I/O device"},
                {ENOENT, "Path not found"},
                {ENOSPC, "Disk reading error"},
                {EFBIG, "Disk reading error"}};
    for (Way& way : saves()) {
        putOld(way);
        for (const auto& row : rows) {
            failFlushes(row.error, Always);
            expectFails(way, row.words);
            EXPECT_TRUE(holds(folder, way.file, "old"));
        }
        std::filesystem::remove(folder.file(way.file));
    }
    EXPECT_EQ(folder.fileCount(), 0u);
    EXPECT_EQ(copyCount(), 0u);
}

TEST_F(SavingErrors, saveAsReportsByItsOwnTable)
{
    const struct {
        int error;
        const char* words;
    } rows[] = {{EIO, "Disk writing error"}, {ENOENT, "Disk writing error"}, {EFBIG, "Disk writing error"}};
    for (Way& way : saveAses()) {
        putOld(way);
        for (const auto& row : rows) {
            failFlushes(row.error, 1);
            expectFails(way, row.words);
            EXPECT_TRUE(holds(folder, way.file, "old"));
        }
        std::filesystem::remove(folder.file(way.file));
    }
    EXPECT_EQ(folder.fileCount(), 0u);
    EXPECT_TRUE(App.LastDirFiles.empty() && App.LastDirPrg.empty() && App.LastDirGbl.empty());
}

TEST_F(SavingErrors, theStylesOfASaveAsReportByTheTableOfReading)
{
    WindowBuffer tag = styles(24, " (Untitled 1)", NewSty);
    failFlushes(ENOSPC, 1);
    expectFails({"sty as", 2, tag, "song.sty", NewSty}, "Disk reading error");
}

TEST_F(SavingErrors, theWordsAreThoseOfTheLanguage)
{
    App.LanguageBase = 0;
    failFlushes(EIO, 1);
    expectFails(saves()[0], "Errore I/O periferica");
    failFlushes(EIO, 1);
    expectFails(saveAses()[0], "Errore di scrittura su disco");
    user.boxEnds = {BoxEnd::Dismissed};
    failFlushes(ENOSPC, 1);
    expectFails(saveAses()[0], "Disco pieno");
}

// Trying again.

TEST_F(SavingErrors, aFullDiskIsTriedAgainInSaveAsUntilThereIsRoom)
{
    for (Way& way : saveAses()) {
        SCOPED_TRACE(way.name);
        user.warnings.clear();
        failFlushes(ENOSPC, 3);
        EXPECT_EQ(run(way), 0);
        EXPECT_EQ(user.warnings, std::vector<ScriptedUser::Said>(3, {Title, "Disk full"}));
        EXPECT_TRUE(holds(folder, way.file, way.content));
        EXPECT_EQ(user.saveDialogs.size(), 1u) << "the failing write is repeated, not the whole save";
        user.saveDialogs.clear();
    }
}

TEST_F(SavingErrors, aDiskThatIsNotReadyIsTriedAgainEverywhere)
{
    for (Way& way : allWays()) {
        SCOPED_TRACE(way.name);
        putOld(way);
        user.warnings.clear();
        failFlushes(ENOMEDIUM, 2);
        EXPECT_EQ(run(way), 0);
        EXPECT_EQ(user.warnings, std::vector<ScriptedUser::Said>(2, {Title, "Disk not ready or not formatted"}));
        EXPECT_TRUE(holds(folder, way.file, way.content));
        std::filesystem::remove(folder.file(way.file));
    }
}

TEST_F(SavingErrors, aDiskThatIsNotReadyIsTriedAgainAtTheClosingAndWithoutTouchingWhatIsDone)
{
    // Flushed are the arrangement file and its folder, then the style file: the first and the second statement.
    for (const int goodBefore : {0, 2}) {
        folder.put("song.arr", "old");
        folder.put("song.sty", OldSty);
        WindowBuffer tag = arrangements(19, song(), 2, NewSty);
        tag.set(9, 1);
        user.warnings.clear();
        failFlushes(ENOMEDIUM, 2, goodBefore);
        EXPECT_EQ(ArrClosingSave(tag), 0);
        EXPECT_EQ(user.warnings, std::vector<ScriptedUser::Said>(2, {Title, "Disk not ready or not formatted"}));
        EXPECT_TRUE(holds(folder, "song.arr", handMade(arrHead(), 10528)));
        EXPECT_TRUE(holds(folder, "song.sty", NewSty));
        EXPECT_EQ(tag.at(3) + tag.at(9), 0);
    }
}

TEST_F(SavingErrors, aStyleFileOnADiskThatIsNotReadyIsDroppedAtTheNextTry)
{
    for (const int kind : {19, 20}) {
        folder.put("song.sty", OldSty);
        WindowBuffer tag = arrangements(kind, song(), 1, Files.StyEmptyBuffer);
        user.warnings.clear();
        disk = {};
        disk.name = "song.sty";
        disk.removeError = ENOMEDIUM;
        disk.removals = 2;
        EXPECT_EQ(kind == 19 ? ArrClosingSave(tag) : FileSave(tag), 0);
        EXPECT_EQ(user.warnings, std::vector<ScriptedUser::Said>(2, {Title, "Disk not ready or not formatted"}));
        EXPECT_EQ(files(), Names{"song.arr"});
        EXPECT_TRUE(holds(folder, "song.arr", handMade(arrHead(), 10528)));

        folder.put("song.sty", OldSty);
        disk.removals = Always;
        user.boxEnds = {BoxEnd::Ok, BoxEnd::Dismissed};
        const ByteBuffer before = tag.bytes();
        EXPECT_EQ(kind == 19 ? ArrClosingSave(tag) : FileSave(tag), 1) << "given up";
        EXPECT_TRUE(holds(folder, "song.sty", OldSty));
        EXPECT_EQ(tag.bytes(), before);
    }
}

TEST_F(SavingErrors, aTwinOnADiskThatIsNotReadyIsRemovedAtTheNextTryOfASave)
{
    folder.put("song.pgg", "the other kind");
    disk.name = "song.pgg";
    disk.removeError = ENOMEDIUM;
    disk.removals = 2;
    Way way = saves()[2];
    EXPECT_EQ(run(way), 0);
    EXPECT_EQ(user.warnings, std::vector<ScriptedUser::Said>(2, {Title, "Disk not ready or not formatted"}));
    EXPECT_EQ(files(), Names{"song.prg"});
}

TEST_F(SavingErrors, whoLeavesTheBoxGivesUpAndTheWindowStaysModified)
{
    for (Way& way : saveAses()) {
        putOld(way);
        for (const int error : {ENOSPC, ENOMEDIUM}) {
            user.boxEnds = {BoxEnd::Ok, BoxEnd::Ok, BoxEnd::Dismissed};
            failFlushes(error, Always);
            expectFails(way, error == ENOSPC ? "Disk full" : "Disk not ready or not formatted", 3);
            EXPECT_TRUE(holds(folder, way.file, "old"));
        }
        disk = {};
        std::filesystem::remove(folder.file(way.file));
    }
    for (Way& way : saves()) {
        user.boxEnds = {BoxEnd::Ok, BoxEnd::Dismissed};
        failFlushes(ENOMEDIUM, Always);
        expectFails(way, "Disk not ready or not formatted", 2);
    }
    EXPECT_EQ(folder.fileCount(), 0u);
}

// The second statement of a save.

TEST_F(SavingErrors, whenTheStylesFailTheArrangementsAreOnDiskAndAllMarksStay)
{
    folder.put("song.sty", OldSty);
    for (const int kind : {19, 20}) {
        WindowBuffer tag = arrangements(kind, song(), 2, NewSty);
        tag.set(9, 1);
        // Flushed are the arrangement file and its folder, then the style file.
        failFlushes(EIO, 1, 2);
        expectFails({"arr", 0, tag, "song.arr", ""}, "Error I/O device");
        EXPECT_TRUE(holds(folder, "song.arr", handMade(arrHead(), 10528)));
        EXPECT_TRUE(holds(folder, "song.sty", OldSty));
    }
}

TEST_F(SavingErrors, onlyTheFailingStatementIsRepeated)
{
    folder.put("song.arr", "old");
    folder.put("song.sty", OldSty);
    WindowBuffer tag = arrangements(19, song(), 2, NewSty);
    failFlushes(ENOMEDIUM, 1, 2);
    EXPECT_EQ(FileSave(tag), 0);
    EXPECT_EQ(user.warnings.size(), 1u);
    EXPECT_TRUE(holds(folder, "song.sty", NewSty));
    EXPECT_EQ(copiesOf("song.arr"), Names{"old"}) << "the arrangements were written once";
}

TEST_F(SavingErrors, aSaveAsWhoseStylesFailKeepsTheOldName)
{
    WindowBuffer tag = arrangements(20, " (Untitled 1)", 2, NewSty);
    tag.set(17, 1);
    failFlushes(EIO, 1, 2);
    expectFails({"arr as", 1, tag, "other.arr", ""}, "Error I/O device");
    EXPECT_EQ(files(), Names{"other.arr"});
    EXPECT_TRUE(App.LastDirFiles.empty());
}

TEST_F(SavingErrors, aTwinThatCannotBeRemovedFailsTheSaveAndStays)
{
    folder.put("song.pgg", "the other kind");
    disk.name = "song.pgg";
    disk.removeError = EIO;
    disk.removals = 1;
    expectFails(saves()[2], "Error I/O device");
    EXPECT_TRUE(holds(folder, "song.pgg", "the other kind"));
    EXPECT_TRUE(holds(folder, "song.prg", handMade(prgHead(), 30480)));
    EXPECT_TRUE(copiesOf("song.pgg").empty());

    disk.removals = 1;
    expectFails(saveAses()[2], "Disk writing error");
    EXPECT_TRUE(holds(folder, "song.pgg", "the other kind"));

    disk.removeError = EBUSY;
    disk.removals = 2;
    user.warnings.clear();
    Way again = saveAses()[2];
    EXPECT_EQ(run(again), 0);
    EXPECT_EQ(user.warnings, std::vector<ScriptedUser::Said>(2, {Title, "Disk not ready or not formatted"}));
    EXPECT_EQ(files(), Names{"song.prg"});
}

TEST_F(SavingErrors, aStyleFileThatCannotBeDroppedFailsTheSave)
{
    folder.put("song.sty", OldSty);
    for (const int kind : {19, 20}) {
        WindowBuffer tag = arrangements(kind, song(), 1, Files.StyEmptyBuffer);
        const ByteBuffer before = tag.bytes();
        user.warnings.clear();
        disk = {};
        disk.name = "song.sty";
        disk.removeError = EPERM;
        disk.removals = 1;
        EXPECT_EQ(kind == 19 ? ArrClosingSave(tag) : FileSave(tag), 1);
        expectBox(Title, "Read only file");
        EXPECT_EQ(tag.bytes(), before);
        EXPECT_TRUE(holds(folder, "song.sty", OldSty));
    }
}

TEST_F(SavingErrors, aClosingSaveThatFailsChangesNothing)
{
    folder.put("song.arr", "old");
    WindowBuffer tag = arrangements(19, song(), 2, NewSty);
    const ByteBuffer before = tag.bytes();
    failFlushes(EIO, 1);
    EXPECT_EQ(ArrClosingSave(tag), 1);
    expectBox(Title, "Error I/O device");
    EXPECT_EQ(tag.bytes(), before);
    EXPECT_TRUE(holds(folder, "song.arr", "old"));
    failFlushes(EIO, 1, 2);
    tag.set(9, 1);
    EXPECT_EQ(ArrClosingSave(tag), 1);
    EXPECT_EQ(tag.at(3), 1);
    EXPECT_EQ(tag.at(9), 1);
}

// Odd places.

TEST_F(SavingErrors, aReadOnlyFileIsReportedAndStays)
{
    openToAll(folder.path());
    openToAll(state.path());
    for (Way& way : allWays()) {
        putOld(way);
        chmod(folder.file(way.file).c_str(), 0444);
        const bool table = way.filter != 0 && way.filter != 2;
        EXPECT_EQ(asOrdinaryUser([&] { return failsWith(way, table ? "Disk writing error" : "Read only file"); }), 0)
            << way.name;
        EXPECT_TRUE(holds(folder, way.file, "old"));
        EXPECT_EQ(files(), Names{way.file});
        std::filesystem::remove(folder.file(way.file));
    }
    EXPECT_EQ(copyCount(), 0u);
}

TEST_F(SavingErrors, aFolderThatLetsNothingBeCreatedStillTakesASaveOfItsFiles)
{
    openToAll(state.path());
    for (Way& way : allWays()) {
        putOld(way);
        chmod(folder.file(way.file).c_str(), 0666);
        chmod(folder.path().c_str(), 0555);
        EXPECT_EQ(asOrdinaryUser([&] { return run(way); }), 0) << way.name;
        chmod(folder.path().c_str(), 0755);
        EXPECT_TRUE(holds(folder, way.file, way.content)) << way.name;
        EXPECT_EQ(files(), Names{way.file}) << "nothing else was left there";
        std::filesystem::remove(folder.file(way.file));
    }
}

TEST_F(SavingErrors, aFolderThatLetsNothingBeCreatedTakesNoNewFile)
{
    chmod(folder.path().c_str(), 0555);
    for (Way& way : allWays()) {
        const bool table = way.filter != 0 && way.filter != 2;
        EXPECT_EQ(asOrdinaryUser([&] { return failsWith(way, table ? "Disk writing error" : "Read only file"); }), 0)
            << way.name;
    }
    chmod(folder.path().c_str(), 0755);
    EXPECT_EQ(folder.fileCount(), 0u);
}

TEST_F(SavingErrors, aTwinInAFolderThatLetsNothingBeRemovedIsReported)
{
    openToAll(state.path());
    folder.put("song.prg", "old");
    folder.put("song.pgg", "the other kind");
    chmod(folder.file("song.prg").c_str(), 0666);
    chmod(folder.file("song.pgg").c_str(), 0666);
    chmod(folder.path().c_str(), 0555);
    EXPECT_EQ(asOrdinaryUser([&] { return failsWith(saves()[2], "Read only file"); }), 0);
    chmod(folder.path().c_str(), 0755);
    EXPECT_TRUE(holds(folder, "song.pgg", "the other kind"));
    EXPECT_TRUE(holds(folder, "song.prg", handMade(prgHead(), 30480)));
}

TEST_F(SavingErrors, aMissingFolderIsReportedAndNotMade)
{
    for (Way& way : saves()) {
        way.tag.setPath(folder.file("nowhere/song"));
        expectFails(way, "Path not found");
    }
    for (Way& way : saveAses()) {
        way.file = "nowhere/" + way.file;
        expectFails(way, "Disk writing error");
    }
    for (const int kind : {23, 24})
        expectFails({"sty as", 2, styles(kind, "/music/x", NewSty), "nowhere/song.sty", NewSty}, "Path not found");
    EXPECT_EQ(folder.fileCount(), 0u);
}

TEST_F(SavingErrors, aFolderInTheFilesPlaceIsReportedAndStays)
{
    for (Way& way : saves()) {
        std::filesystem::create_directory(folder.file(way.file));
        expectFails(way, "Read only file");
        EXPECT_TRUE(std::filesystem::is_directory(folder.file(way.file)));
        std::filesystem::remove(folder.file(way.file));
    }
    std::vector<Way> others = saveAses();
    for (const int kind : {23, 24})
        others.push_back({"sty as", 2, styles(kind, "/music/x", NewSty), "song.sty", NewSty});
    for (Way& way : others) {
        std::filesystem::create_directory(folder.file(way.file));
        expectFails(way, way.filter == 2 ? "Read only file" : "Disk writing error");
        EXPECT_TRUE(std::filesystem::is_directory(folder.file(way.file)));
        std::filesystem::remove(folder.file(way.file));
    }
}

// A closing that the user breaks off on the way.

TEST_F(SavingErrors, aClosingWhoseOverwritingIsRefusedKeepsTheWindowModified)
{
    struct Row {
        WindowBuffer tag;
        int filter, modifiedOffset;
        std::string file; ///< stands there in another letter case than the dialog was told
    };
    std::vector<Row> rows = {{bank(2), 1, 3, "song.arr"},
                             {bank(3), 1, 3, "song.arr"},
                             {arrangements(20, " (Untitled 1)", 2, NewSty), 1, 3, "song.arr"},
                             {programs(22, " (Untitled 1)", 1), 4, 6, "song.pgg"},
                             {styles(24, " (Untitled 1)", NewSty), 2, 9, "song.sty"}};
    for (Row& row : rows) {
        SCOPED_TRACE(row.tag.kind());
        if (row.tag.kind() >= 20)
            row.tag.set(17, 1);
        folder.put(row.file, "old");
        const ByteBuffer before = row.tag.bytes();
        user.answers = {Answer::Yes};
        user.overwrites = {false};
        user.overwriteQuestions.clear();
        choose(song(), row.filter);
        EXPECT_FALSE(AgreeToClose(row.tag, "title"));
        EXPECT_EQ(user.overwriteQuestions, Names{folder.file(row.file)});
        EXPECT_EQ(row.tag.bytes(), before);
        EXPECT_EQ(row.tag.at(row.modifiedOffset), 1);
        EXPECT_TRUE(holds(folder, row.file, "old"));
        std::filesystem::remove(folder.file(row.file));
    }
}

TEST_F(SavingErrors, aClosingThatIsGivenUpAtADiskErrorKeepsTheWindowModified)
{
    struct Row {
        WindowBuffer tag;
        int filter; ///< of Save As; 0 where Save knows the name
        int error;
        const char* words;
        std::string file;
    };
    WindowBuffer untitled = arrangements(20, " (Untitled 1)", 2, NewSty);
    untitled.set(17, 1);
    std::vector<Row> rows = {
        {bank(2), 1, ENOSPC, "Disk full", "song.arr"},
        {untitled, 1, ENOSPC, "Disk full", "song.arr"},
        {arrangements(19, song(), 2, NewSty), 0, ENOMEDIUM, "Disk not ready or not formatted", "song.arr"},
        {programs(21, song(), 0), 0, ENOMEDIUM, "Disk not ready or not formatted", "song.prg"},
        {styles(23, song(), NewSty), 0, ENOMEDIUM, "Disk not ready or not formatted", "song.sty"},
        {globals(25, song()), 0, ENOMEDIUM, "Disk not ready or not formatted", "song.gbl"}};
    for (Row& row : rows) {
        SCOPED_TRACE(row.tag.kind());
        folder.put(row.file, "old");
        const ByteBuffer before = row.tag.bytes();
        user.answers = {Answer::Yes};
        user.boxEnds = {BoxEnd::Ok, BoxEnd::Dismissed};
        user.warnings.clear();
        if (row.filter != 0)
            choose(folder.file(row.file), row.filter);
        failFlushes(row.error, Always);
        EXPECT_FALSE(AgreeToClose(row.tag, "title"));
        EXPECT_EQ(user.warnings, std::vector<ScriptedUser::Said>(2, {Title, row.words}));
        EXPECT_EQ(row.tag.bytes(), before);
        EXPECT_TRUE(holds(folder, row.file, "old"));
        disk = {};
        std::filesystem::remove(folder.file(row.file));
    }
    EXPECT_EQ(folder.fileCount(), 0u);
}

TEST_F(SavingErrors, aFileCutShortByTheSystemNeverTakesTheOldOnesPlace)
{
    openToAll(folder.path());
    openToAll(state.path());
    folder.put("song.arr", "old");
    chmod(folder.file("song.arr").c_str(), 0666);
    for (const rlim_t bytes : {0UL, 1UL, 32UL, 4096UL, 10527UL, 10528UL}) {
        const int result = asOrdinaryUser([&] {
            signal(SIGXFSZ, SIG_IGN);
            const rlimit limit{bytes, bytes};
            setrlimit(RLIMIT_FSIZE, &limit);
            WindowBuffer tag = arrangements(19, song(), 0, "");
            return FileSave(tag);
        });
        EXPECT_EQ(result, bytes < 10528 ? 1 : 0) << bytes;
        EXPECT_TRUE(holds(folder, "song.arr", bytes < 10528 ? "old" : handMade(arrHead(), 10528))) << bytes;
    }
}
