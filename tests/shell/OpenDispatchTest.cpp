// Opening a file: the dialog's request, the branch by filter and extension, the results, the slot and the recent list.
#include "shell/OpenDispatch.h"

#include "shell/RecentFiles.h"
#include "shell/ShellFixture.h"

namespace
{

class Opening : public ShellTest
{
protected:
    Opening()
    {
        App.PathPrg = songs.file("TvlPrg");
        App.PathArrA = songs.file("TvlArrA");
        maker = [this](int kind, int slot) {
            windows.emplace_back(kind, slot);
            return windowsExist;
        };
    }
    void answer(const std::string& path, int filter, bool readOnly = false)
    {
        user.files.push_back({true, path, filter, readOnly});
    }
    OpenOutcome open(int code, const std::string& path, int filter)
    {
        answer(path, filter);
        return OpenFile(code);
    }
    void useAll(std::size_t count)
    {
        for (std::size_t slot = 0; slot < count; ++slot)
            App.Arrangements[slot].used = true;
    }

    WindowMaker maker;
    bool windowsExist = true;
    std::vector<std::pair<int, int>> windows;
};

using Lines = std::vector<std::string>;
using Windows = std::vector<std::pair<int, int>>;

constexpr int Arr = 19, Prg = 21, NewPrg = 22, Sty = 23, Gbl = 25;
constexpr int ArrFilter = 1, StyFilter = 2, PrgFilter = 3, GblFilter = 4, AllFiles = 5;

} // namespace

// The dialog's request.

TEST_F(Opening, theCodeChoosesTheFirstFilter)
{
    const std::pair<int, int> rows[] = {{2, 1}, {3, 1}, {19, 1}, {23, 2}, {21, 3}, {25, 4}};
    for (const auto& [code, filter] : rows) {
        user.dialogs.clear();
        EXPECT_EQ(OpenFile(code).result, 1) << "cancelled";
        ASSERT_EQ(user.dialogs.size(), 1U);
        EXPECT_EQ(user.dialogs[0].filterIndex, filter) << code;
    }
}

TEST_F(Opening, theDialogHasTheFixedFiltersAndATitleInTheLanguageOfTheRun)
{
    OpenFile(Arr);
    EXPECT_EQ(user.dialogs[0].filters,
              "Arrangements (*.arr)|*.arr|Style (*.sty)|*.sty|Programs (*.prg/pgg)|*.prg;*.pgg|"
              "Global (*.gbl)|*.gbl| All files (*.*)|*.*|");
    EXPECT_EQ(user.dialogs[0].title, "Tarvolyne - Tarvolyne Console - Apri File");
    speak(2);
    OpenFile(Arr);
    EXPECT_EQ(user.dialogs[1].title, "Tarvolyne - Tarvolyne Console - Open File");
}

TEST_F(Opening, theDialogStartsInTheFolderOfTheLastFileOfItsKind)
{
    const auto folderFor = [this](int code, const char* files, const char* programs, const char* globals) {
        App.LastDirFiles = files;
        App.LastDirPrg = programs;
        App.LastDirGbl = globals;
        user.dialogs.clear();
        OpenFile(code);
        return user.dialogs[0].folder;
    };
    EXPECT_EQ(folderFor(Arr, "/f", "/p", "/g"), "/f");
    EXPECT_EQ(folderFor(Arr, "", "/p", "/g"), "/p");
    EXPECT_EQ(folderFor(Sty, "/f", "/p", "/g"), "/f");
    EXPECT_EQ(folderFor(Sty, "", "", "/g"), "");
    EXPECT_EQ(folderFor(Prg, "/f", "/p", "/g"), "/p");
    EXPECT_EQ(folderFor(Prg, "/f", "", "/g"), "/f");
    EXPECT_EQ(folderFor(Gbl, "/f", "/p", "/g"), "/g");
    EXPECT_EQ(folderFor(Gbl, "/f", "/p", ""), "/f");
}

TEST_F(Opening, theReadOnlyBoxStartsByItsMenuMarkAndItsAnswerIsKept)
{
    App.ReadOnlyOpen = true;
    OpenFile(Arr);
    EXPECT_TRUE(user.dialogs[0].readOnly);
    answer("", ArrFilter, true);
    OpenFile(Arr);
    EXPECT_TRUE(Files.OpenReadOnly);
    answer("", ArrFilter, false);
    OpenFile(Arr);
    EXPECT_FALSE(Files.OpenReadOnly);
}

TEST_F(Opening, anEmptyNameReadsNothingAndAnswersZero)
{
    const OpenOutcome outcome = open(Arr, "", ArrFilter);
    EXPECT_EQ(outcome.result, 0);
    EXPECT_EQ(outcome.branch, 0);
    answer("", ArrFilter);
    EXPECT_FALSE(openByDialog(Arr, maker));
    EXPECT_TRUE(windows.empty());
}

// The branches.

TEST_F(Opening, anArrangementFileIsReadAndItsFolderAndNameAreKept)
{
    const std::string path = songs.put("song.arr", arrangementFile());
    const OpenOutcome outcome = open(Arr, path, ArrFilter);
    EXPECT_EQ(outcome.result, 0);
    EXPECT_EQ(outcome.branch, Arr);
    EXPECT_EQ(Files.ArrBuffer, arrangementFile());
    EXPECT_EQ(Files.ArrFolder, songs.path());
    EXPECT_EQ(Files.ArrName, "song");
    EXPECT_EQ(App.LastDirFiles, songs.path());
    EXPECT_EQ(App.LastDirPrg, "");
}

TEST_F(Opening, aStyleFileIsRead)
{
    const OpenOutcome outcome = open(Sty, songs.put("song.sty", styleFile()), StyFilter);
    EXPECT_EQ(outcome.result, 0);
    EXPECT_EQ(outcome.branch, Sty);
    EXPECT_EQ(Files.StyName, "song");
    EXPECT_EQ(App.LastDirFiles, songs.path());
}

TEST_F(Opening, programFilesOfBothExtensionsAreRead)
{
    EXPECT_EQ(open(Prg, songs.put("song.prg", programFile()), PrgFilter).result, 0);
    EXPECT_EQ(Files.PrgExtension, "prg");
    EXPECT_EQ(open(Prg, songs.put("other.pgg", programFile()), PrgFilter).result, 0);
    EXPECT_EQ(Files.PrgExtension, "pgg");
    EXPECT_EQ(App.LastDirPrg, songs.path());
    EXPECT_EQ(App.LastDirFiles, "");
}

TEST_F(Opening, aProgramFilterTakesNoOtherExtension)
{
    EXPECT_EQ(open(Prg, songs.put("song.arr", programFile()), PrgFilter).result, 1);
    EXPECT_TRUE(Files.PrgBuffer.empty());
    EXPECT_EQ(App.LastDirPrg, songs.path()) << "the folder is remembered all the same";
    EXPECT_TRUE(user.warnings.empty());
}

TEST_F(Opening, aGlobalFileIsReadAndNoOtherExtensionIs)
{
    EXPECT_EQ(open(Gbl, songs.put("stage.gbl", globalFile()), GblFilter).result, 0);
    EXPECT_EQ(Files.GblName, "stage");
    EXPECT_EQ(App.LastDirGbl, songs.path());
    EXPECT_EQ(open(Gbl, songs.put("stage.arr", globalFile()), GblFilter).result, 1);
}

TEST_F(Opening, aFileUnderAnotherKindsFilterIsRefusedByThatKindsReader)
{
    const std::string path = songs.put("song.sty", styleFile());
    EXPECT_EQ(open(Arr, path, ArrFilter).result, 1);
    ASSERT_EQ(user.warnings.size(), 1U);
    EXPECT_EQ(user.warnings[0].text, "Formato dati  errato");
    EXPECT_EQ(open(Sty, songs.put("song.arr", arrangementFile()), StyFilter).result, 1);
    EXPECT_EQ(user.notices.size(), 1U) << "the style reader's own notice";
}

TEST_F(Opening, underAllFilesAnArrangementInAnyLetterCaseIsRead)
{
    for (const char* name : {"a.arr", "B.ARR", "c.Arr"}) {
        const OpenOutcome outcome = open(Arr, songs.put(name, arrangementFile()), AllFiles);
        EXPECT_EQ(outcome.result, 0) << name;
        EXPECT_EQ(outcome.branch, Arr) << name;
    }
}

TEST_F(Opening, underAllFilesTwoOldProgramExtensionsAreRefused)
{
    for (const char* name : {"a.pcc", "b.PCG"}) {
        const OpenOutcome outcome = open(Prg, songs.put(name, programFile()), AllFiles);
        EXPECT_EQ(outcome.result, 1) << name;
        EXPECT_TRUE(Files.PrgBuffer.empty());
    }
}

TEST_F(Opening, underAllFilesEveryOtherFileAnswersZeroWithNothingRead)
{
    const std::pair<std::string, std::string> rows[] = {{"song.prg", programFile()}, {"song.pgg", programFile()},
                                                        {"song.sty", styleFile()},   {"song.gbl", globalFile()},
                                                        {"README", "words"},         {"song.arr.bak", "x"}};
    for (const auto& [name, bytes] : rows) {
        const OpenOutcome outcome = open(Arr, songs.put(name, bytes), AllFiles);
        EXPECT_EQ(outcome.result, 0) << name;
        EXPECT_EQ(outcome.branch, 0) << name;
        EXPECT_TRUE(Files.PrgBuffer.empty() && Files.StyBuffer.empty() && Files.GblBuffer.empty()) << name;
        answer(songs.file(name), AllFiles);
        EXPECT_FALSE(openByDialog(Arr, maker));
    }
    EXPECT_TRUE(windows.empty()) << "no window shows another file's data";
    EXPECT_TRUE(user.warnings.empty());
}

TEST_F(Opening, absentFilesOfAllKindsAnswerThree)
{
    EXPECT_EQ(open(Arr, songs.file("no.arr"), ArrFilter).result, 3);
    EXPECT_EQ(open(Sty, songs.file("no.sty"), StyFilter).result, 3);
    EXPECT_EQ(open(Prg, songs.file("no.prg"), PrgFilter).result, 3);
    EXPECT_EQ(open(Gbl, songs.file("no.gbl"), GblFilter).result, 3);
    EXPECT_EQ(songs.fileCount(), 0U) << "nothing is left on disk";
    EXPECT_TRUE(user.warnings.empty()) << "the caller reports";
}

TEST_F(Opening, refusedFilesAnswerOne)
{
    EXPECT_EQ(open(Arr, songs.put("short.arr", arrangementFile().substr(1)), ArrFilter).result, 1);
    EXPECT_EQ(open(Prg, songs.put("short.prg", programFile().substr(1)), PrgFilter).result, 1);
    EXPECT_EQ(open(Gbl, songs.put("short.gbl", globalFile().substr(1)), GblFilter).result, 1);
    EXPECT_EQ(user.warnings.size(), 3U);
}

TEST_F(Opening, aFileThatIsOpenAnswersTwoBeforeItIsReadOrItsFolderKept)
{
    App.Arrangements[2].used = true;
    App.Arrangements[2].path = songs.file("song");
    EXPECT_EQ(open(Arr, songs.file("song.arr"), ArrFilter).result, 2);
    App.Styles[0].used = true;
    App.Styles[0].path = songs.file("song");
    EXPECT_EQ(open(Sty, songs.file("song.sty"), StyFilter).result, 2);
    App.Programs[7].used = true;
    App.Programs[7].path = songs.file("song");
    EXPECT_EQ(open(Prg, songs.file("song.prg"), PrgFilter).result, 2);
    App.Globals[1].used = true;
    App.Globals[1].path = songs.file("song");
    EXPECT_EQ(open(Gbl, songs.file("song.gbl"), GblFilter).result, 2);
    EXPECT_EQ(App.LastDirFiles + App.LastDirPrg + App.LastDirGbl, "");
}

TEST_F(Opening, code22ReadsTheTemplateWithoutADialogAndEmptiesItsPrograms)
{
    songs.put("TvlPrg", programFile());
    const OpenOutcome outcome = OpenFile(NewPrg);
    EXPECT_EQ(outcome.result, 0);
    EXPECT_TRUE(user.dialogs.empty());
    EXPECT_EQ(Files.PrgBuffer.substr(48, 64 * 172), std::string(64 * 172, '\0'));
    EXPECT_EQ(Files.PrgBuffer.substr(0, 48), programFile().substr(0, 48));
    EXPECT_EQ(Files.PrgBuffer.substr(48 + 64 * 172), programFile().substr(48 + 64 * 172));
}

TEST_F(Opening, code22AnswersThreeForAnAbsentTemplateAndOneForARefusedOne)
{
    EXPECT_EQ(OpenFile(NewPrg).result, 3);
    songs.put("TvlPrg", "short");
    EXPECT_EQ(OpenFile(NewPrg).result, 1);
}

TEST_F(Opening, aCancelledProgramDialogForgetsTheProgramUnlessItEndedOnTheFirstFilter)
{
    Files.PrgName = "kept";
    Files.PrgFolder = "/kept";
    user.files.push_back({false, "", ArrFilter, false});
    EXPECT_EQ(OpenFile(Prg).result, 1);
    EXPECT_EQ(Files.PrgName, "kept");
    user.files.push_back({false, "", PrgFilter, false});
    EXPECT_EQ(OpenFile(Prg).result, 1);
    EXPECT_EQ(Files.PrgName + Files.PrgFolder, "");
}

TEST_F(Opening, aCancelledDialogForgetsTheArrangementOnlyForCode1OnTheFirstFilter)
{
    const auto nameAfter = [this](int code, int filter) {
        Files.ArrName = "kept";
        Files.PrgName = "kept too";
        user.files.push_back({false, "", filter, false});
        EXPECT_EQ(OpenFile(code).result, 1);
        return Files.ArrName;
    };
    EXPECT_EQ(nameAfter(1, ArrFilter), "");
    EXPECT_EQ(nameAfter(1, StyFilter), "kept");
    EXPECT_EQ(nameAfter(Arr, ArrFilter), "kept");
    EXPECT_EQ(Files.PrgName, "kept too");
}

TEST_F(Opening, aCancelledDialogKeepsTheReadOnlyMarkOfTheLastOpening)
{
    Files.OpenReadOnly = true;
    user.files.push_back({false, "/m/song.arr", ArrFilter, false});
    EXPECT_EQ(OpenFile(Arr).result, 1);
    EXPECT_TRUE(Files.OpenReadOnly);
    EXPECT_TRUE(Files.ArrBuffer.empty());
}

// What the openers do with the outcome.

TEST_F(Opening, aWindowComesInTheLowestFreeSlotWithItsEntryFilled)
{
    useAll(2);
    const std::string path = songs.put("song.arr", arrangementFile());
    answer(path, ArrFilter, true);
    EXPECT_TRUE(openByDialog(Arr, maker));
    EXPECT_EQ(windows, (Windows{{Arr, 3}}));
    EXPECT_TRUE(App.Arrangements[2].used);
    EXPECT_EQ(App.Arrangements[2].path, songs.file("song"));
    EXPECT_TRUE(App.Arrangements[2].readOnly);
    EXPECT_EQ(recentPath(0), path);
    EXPECT_TRUE(App.Recent[0].readOnly);
}

TEST_F(Opening, withAllSlotsUsedNotEvenTheDialogIsShown)
{
    useAll(8);
    EXPECT_FALSE(openByDialog(Arr, maker));
    EXPECT_TRUE(user.dialogs.empty());
    EXPECT_FALSE(openByPath(songs.put("song.arr", arrangementFile()), 1, false, maker));
    EXPECT_TRUE(windows.empty());
}

TEST_F(Opening, theOpenersReportAnOpenFileAndAnAbsentOneUnderItsName)
{
    App.Arrangements[0].used = true;
    App.Arrangements[0].path = songs.file("song");
    answer(songs.file("song.arr"), ArrFilter);
    EXPECT_FALSE(openByDialog(Arr, maker));
    answer(songs.file("gone.sty"), StyFilter);
    EXPECT_FALSE(openByDialog(Sty, maker));
    EXPECT_EQ(warnings(), (Lines{"Apertura di song|File già aperto", "Apertura di gone|File assente"}));
    speak(2);
    user.warnings.clear();
    answer(songs.file("song.arr"), ArrFilter);
    EXPECT_FALSE(openByDialog(Arr, maker));
    answer(songs.file("gone.gbl"), GblFilter);
    EXPECT_FALSE(openByDialog(Gbl, maker));
    EXPECT_EQ(warnings(), (Lines{"Opening song|File already open", "Opening gone|File not found"}));
    EXPECT_TRUE(windows.empty());
}

TEST_F(Opening, aKindWithoutAWindowTakesNoSlotAndNoPlaceOnTheRecentList)
{
    windowsExist = false;
    answer(songs.put("song.sty", styleFile()), StyFilter);
    EXPECT_FALSE(openByDialog(Sty, maker));
    EXPECT_FALSE(App.Styles[0].used);
    EXPECT_EQ(App.Styles[0].path, "");
    EXPECT_EQ(recentPath(0), "");
    EXPECT_EQ(App.LastDirFiles, songs.path()) << "the steps of opening have run";
}

TEST_F(Opening, anotherFiltersBranchOpensItsOwnWindowUnderItsOwnSlots)
{
    answer(songs.put("song.prg", programFile()), PrgFilter);
    EXPECT_TRUE(openByDialog(Arr, maker));
    EXPECT_EQ(windows, (Windows{{Prg, 1}}));
    EXPECT_EQ(App.Programs[0].kind, 21);
    EXPECT_EQ(App.Programs[0].programType, 0);
    EXPECT_FALSE(App.Arrangements[0].used);

    for (SessionEntry& entry : App.Styles)
        entry.used = true;
    answer(songs.put("song.sty", styleFile()), StyFilter);
    EXPECT_FALSE(openByDialog(Arr, maker)) << "no style slot is free";
    EXPECT_EQ(windows.size(), 1U);
}

TEST_F(Opening, aPggEntryIsMarkedAsSuch)
{
    EXPECT_TRUE(openByPath(songs.put("song.pgg", programFile()), 4, false, maker));
    EXPECT_EQ(App.Programs[0].programType, 1);
    EXPECT_EQ(recentPath(0), songs.file("song.pgg"));
}

TEST_F(Opening, byPathGoesTheSameWayWithTheFlagItIsGiven)
{
    const std::string path = songs.put("song.arr", arrangementFile());
    EXPECT_TRUE(openByPath(path, 1, true, maker));
    EXPECT_TRUE(App.Arrangements[0].readOnly);
    EXPECT_TRUE(user.dialogs.empty());
    EXPECT_FALSE(openByPath(path, 1, true, maker));
    EXPECT_FALSE(openByPath(songs.file("gone.arr"), 1, false, maker));
    EXPECT_EQ(warnings(), (Lines{"Apertura di song|File già aperto", "Apertura di gone|File assente"}));
    EXPECT_FALSE(openByPath(path, 0, false, maker)) << "no kind, no window";
}

TEST_F(Opening, aNameThatTheWindowCannotGiveBackIsOpenedForReading)
{
    EXPECT_TRUE(openByPath(songs.put("ends in a blank .arr", arrangementFile()), 1, false, maker));
    EXPECT_TRUE(App.Arrangements[0].readOnly);
    answer(songs.put("bank", arrangementFile()), ArrFilter);
    EXPECT_TRUE(openByDialog(Arr, maker));
    EXPECT_TRUE(App.Arrangements[1].readOnly) << "Save would write bank.arr, another file";
    EXPECT_EQ(recentPath(0), "");
}

// New program files.

TEST_F(Opening, aNewProgramFileTakesTheLowestFreeSlotAndIsOnNoList)
{
    songs.put("TvlPrg", programFile());
    App.Programs[0].used = true;
    App.Programs[1].path = "/music/earlier";
    EXPECT_TRUE(openNewPrograms(maker));
    EXPECT_EQ(windows, (Windows{{22, 2}}));
    EXPECT_TRUE(App.Programs[1].used);
    EXPECT_EQ(App.Programs[1].path, "");
    EXPECT_EQ(App.Programs[1].kind, 22);
    EXPECT_EQ(App.Recent[0].path, "");
    EXPECT_TRUE(warnings().empty());
}

TEST_F(Opening, aNewProgramFileWithoutATemplateIsToldAndTakesNoSlot)
{
    EXPECT_FALSE(openNewPrograms(maker));
    EXPECT_EQ(warnings(), (Lines{"Tarvolyne - Tarvolyne Console |File " + App.PathPrg + " assente"}));
    songs.put("TvlPrg", "short");
    EXPECT_FALSE(openNewPrograms(maker));
    EXPECT_EQ(warnings().size(), 2U) << "the reader's own words";
    EXPECT_FALSE(App.Programs[0].used);
    EXPECT_TRUE(windows.empty());
}

TEST_F(Opening, aNinthNewProgramFileIsNotOpened)
{
    songs.put("TvlPrg", programFile());
    for (std::size_t slot = 0; slot < 8; ++slot)
        App.Programs[slot].used = true;
    EXPECT_FALSE(openNewPrograms(maker));
    EXPECT_TRUE(windows.empty());
}

// New arrangement files.

TEST_F(Opening, aNewArrangementFileKeepsTheHeadOfBankAAndHasNoRecordInUse)
{
    std::string bank = arrangementFile();
    for (std::size_t offset = 7; offset < bank.size(); ++offset)
        bank[offset] = static_cast<char>(offset % 255 + 1); // none is zero
    songs.put("TvlArrA", bank);
    App.NewArrangements[0].used = App.NewArrangements[2].used = true;
    EXPECT_TRUE(openNewArrangements(maker));
    EXPECT_EQ(windows, (Windows{{20, 2}})) << "the lowest free number";
    EXPECT_TRUE(Files.ArrBuffer == bank.substr(0, 32) + std::string(10496, '\0'));
    EXPECT_EQ(App.Recent[0].path, "");
    EXPECT_TRUE(warnings().empty());
    EXPECT_TRUE(songs.get("TvlArrA") == bank);
}

TEST_F(Opening, aNewArrangementFileWithoutBankAIsTold)
{
    EXPECT_FALSE(openNewArrangements(maker));
    const std::string notFound = "Tarvolyne - Tarvolyne Console |File " + App.PathArrA + " assente";
    EXPECT_EQ(warnings(), Lines{notFound});
    EXPECT_FALSE(songs.has("TvlArrA"));
    songs.put("TvlArrA", "short");
    EXPECT_FALSE(openNewArrangements(maker));
    ASSERT_EQ(warnings().size(), 3U) << "the reader's own words come first";
    EXPECT_EQ(warnings()[2], notFound);
    EXPECT_TRUE(windows.empty());
}

TEST_F(Opening, aNinthNewArrangementFileIsNotOpened)
{
    songs.put("TvlArrA", arrangementFile());
    for (SessionEntry& entry : App.NewArrangements)
        entry.used = true;
    EXPECT_FALSE(openNewArrangements(maker));
    EXPECT_TRUE(windows.empty());
    EXPECT_TRUE(warnings().empty());
}
