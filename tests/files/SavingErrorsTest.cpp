// Saving on a disk that refuses: which words are said, what is tried again, and that files, marks and folders stay as
// they were.
#include "files/SavingFixture.h"
#include "support/OtherUser.h"

#include <cerrno>
#include <csignal>
#include <sys/resource.h>
#include <sys/syscall.h>

using namespace SavingWindows;

namespace
{

/// The disk of this test program: the next `times` flushes, or removals of a name that ends in `name`, answer `error`.
struct RefusingDisk {
    int flushError = 0;
    int flushes = 0;    ///< how many flushes still fail
    int goodBefore = 0; ///< flushes that succeed before
    std::string name;
    int removeError = 0;
    int removals = 0;
};
RefusingDisk disk;

void failFlushes(int error, int times, int goodBefore = 0)
{
    disk.flushError = error;
    disk.flushes = times;
    disk.goodBefore = goodBefore;
}

} // namespace

// The linker takes these before the C library's, for this test program alone.
extern "C" int fsync(int descriptor)
{
    if (disk.flushes > 0 && disk.goodBefore-- <= 0) {
        --disk.flushes;
        errno = disk.flushError;
        return -1;
    }
    return static_cast<int>(syscall(SYS_fsync, descriptor));
}

extern "C" int unlink(const char* path) noexcept
{
    if (disk.removals > 0 && std::string(path).ends_with(disk.name)) {
        --disk.removals;
        errno = disk.removeError;
        return -1;
    }
    return static_cast<int>(syscall(SYS_unlinkat, AT_FDCWD, path, 0));
}

namespace
{

using Names = std::vector<std::string>;

constexpr const char* Title = "Tarvolyne - Tarvolyne Console ";
constexpr int Always = 1000;
const std::string OldSty = styleFile({{"Old Style", 300}});
const std::string NewSty = styleFile({{"One", 300}, {"Two", 500}, {"Three", 400}, {"Four", 324}});

/// One way to save, with what stands on disk before and after.
struct Way {
    const char* name;
    int filter; ///< of Save As; 0 for Save
    WindowBuffer tag;
    std::string file;
    std::string content;
};

} // namespace

class SavingErrors : public SavingTest
{
protected:
    ~SavingErrors() override { disk = {}; }

    /// Save of each kind to "song", which exists with old bytes.
    std::vector<Way> saves()
    {
        return {{"arr", 0, arrangements(19, song(), 0, ""), "song.arr", handMade(arrHead(), 10528)},
                {"new arr", 0, arrangements(20, song(), 1, ""), "song.arr", handMade(arrHead(), 10528)},
                {"prg", 0, programs(21, song(), 0), "song.prg", handMade(prgHead(), 30480)},
                {"pgg", 0, programs(21, song(), 1), "song.pgg", handMade(pggHead(), 30480)},
                {"sty", 0, styles(23, song(), NewSty), "song.sty", NewSty},
                {"gbl", 0, globals(25, song()), "song.gbl", handMade(gblHead(), 448)}};
    }
    /// Save As of each kind to "song". A style file is written by the routine that Save uses, and reports as it does.
    std::vector<Way> saveAses()
    {
        return {{"bank", 1, bank(2), "song.arr", handMade(arrHead(), 10528)},
                {"arr as", 1, arrangements(19, "/music/x", 1, ""), "song.arr", handMade(arrHead(), 10528)},
                {"prg as", 3, programs(21, "/music/x", 0), "song.prg", handMade(prgHead(), 30480)},
                {"gbl as", 5, globals(25, "/music/x"), "song.gbl", handMade(gblHead(), 448)}};
    }
    std::vector<Way> allWays()
    {
        std::vector<Way> ways = saves();
        for (Way& way : saveAses())
            ways.push_back(way);
        ways.push_back({"sty as", 2, styles(23, "/music/x", NewSty), "song.sty", NewSty});
        return ways;
    }

    int run(Way& way)
    {
        if (way.filter != 0)
            choose(folder.file(way.file), way.filter);
        return way.filter == 0 ? FileSave(way.tag) : FileSaveAs(way.tag);
    }

    /// Runs a save that must fail: the words, once for each try, nothing changed.
    void expectFails(Way way, const std::string& words, std::size_t tries = 1)
    {
        SCOPED_TRACE(way.name);
        const ByteBuffer before = way.tag.bytes();
        user.warnings.clear();
        EXPECT_EQ(run(way), 1);
        EXPECT_EQ(user.warnings, std::vector<ScriptedUser::Said>(tries, {Title, words}));
        EXPECT_EQ(way.tag.bytes(), before) << "the window stays modified";
    }

    /// The same in a process of an ordinary user. 0 when all held.
    int failsWith(Way way, const std::string& words)
    {
        const ByteBuffer before = way.tag.bytes();
        user.warnings.clear();
        if (run(way) != 1)
            return 1;
        if (user.warnings != std::vector<ScriptedUser::Said>{{Title, words}})
            return 2;
        return way.tag.bytes() == before ? 0 : 3;
    }

    void putOld(const Way& way) { folder.put(way.file, "old"); }
    std::size_t copyCount() const
    {
        std::size_t count = 0;
        std::error_code none;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(state.path(), none))
            count += entry.is_regular_file() ? 1 : 0;
        return count;
    }
};

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
            failFlushes(row.error, 1);
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
}

// A disk that is really full.

TEST_F(SavingErrors, onAFullDiskTheOldFileStaysWhole)
{
    openToAll(folder.path());
    openToAll(state.path());
    for (Way& way : allWays()) {
        SCOPED_TRACE(way.name);
        const bool table = way.filter != 0 && way.filter != 2;
        const std::string words = table ? "Disk full" : "Disk reading error";
        // Free pages of 4096 bytes beside the old file: from none to enough.
        for (int freePages = 0; freePages <= 9; ++freePages) {
            const int result = asOrdinaryUser([&] {
                if (!mountSmallDisk(folder.path(), "size=64k"))
                    return 90;
                folder.put(way.file, std::string(4096, 'o'));
                folder.put("filler", std::string(static_cast<std::size_t>(15 - freePages) * 4096, 'f'));
                user.boxEnds = {BoxEnd::Dismissed};
                const ByteBuffer before = way.tag.bytes();
                const int saved = run(way);
                const std::string now = folder.get(way.file);
                if (files() != (way.file < "filler" ? Names{way.file, "filler"} : Names{"filler", way.file}))
                    return 4;
                if (saved == 0)
                    return now == way.content && user.warnings.empty() ? 0 : 5;
                if (user.warnings != std::vector<ScriptedUser::Said>{{Title, words}} || way.tag.bytes() != before)
                    return 6;
                return now == std::string(4096, 'o') ? 1 : 7;
            });
            const bool fits = static_cast<std::size_t>(freePages) * 4096 >= way.content.size();
            EXPECT_EQ(result, fits ? 0 : 1) << freePages << " pages free";
        }
    }
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
