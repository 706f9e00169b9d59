// The settings at a start: the first one, the second, and one after each kind of damage.
#include "core/Settings.h"

#include "core/NameTables.h"
#include "support/CoreRun.h"
#include "support/OtherUser.h"
#include "support/SettingsImage.h"

#include <functional>
#include <gtest/gtest.h>
#include <sys/stat.h>

using namespace SettingsImage;

namespace
{

constexpr const char* Ini = "Tarvolyne.ini";

/// A user who looks at the state folder while the language window is up.
struct LookingUser : ScriptedUser {
    std::function<void()> look = [] {};
    int asked = 0;
    int chooseLanguage() override
    {
        ++asked;
        look();
        return language;
    }
};

struct Start : CoreRun {
    LookingUser looking;
    Start() { App.ui = &looking; }
};

} // namespace

TEST(SettingsLoad, makesAllThreeFilesBeforeItAsksForTheLanguage)
{
    Start run;
    run.looking.language = 2;
    run.looking.look = [&] {
        expectSameBytes(run.folder.get(Ini), fresh(0));
        EXPECT_EQ(run.folder.get("Dornflex").size(), 145U);
        EXPECT_EQ(run.folder.get("TvlCMInfo").size(), 1000U);
    };
    SettingsLoad();
    EXPECT_EQ(run.looking.asked, 1);
    EXPECT_FALSE(App.QuitRequested);
    expectSameBytes(run.folder.get(Ini), fresh(2));
    EXPECT_EQ(App.Language, 2);
    EXPECT_EQ(App.LanguageBase, 200);
    EXPECT_EQ(programName(0, 0), "Piano 1");
    EXPECT_EQ(run.folder.fileCount(), 3U);
}

TEST(SettingsLoad, leavesNoSettingsFileWhenTheLanguageWindowIsClosed)
{
    Start run;
    run.looking.language = 0;
    Names = {};
    SettingsLoad();
    EXPECT_TRUE(App.QuitRequested);
    EXPECT_FALSE(run.folder.has(Ini));
    EXPECT_EQ(programName(0, 0), "") << "nothing more is built";
}

TEST(SettingsLoad, doesNotAskOnTheSecondStartAndWritesNothing)
{
    Start run;
    run.folder.put(Ini, fresh(1));
    SettingsLoad();
    EXPECT_EQ(run.looking.asked, 0);
    EXPECT_EQ(App.Language, 1);
    EXPECT_EQ(App.LanguageBase, 0);
    EXPECT_TRUE(App.StatusBar);
    EXPECT_EQ(App.WinPos[1].Open, 2);
    EXPECT_EQ(factoryStyleName(127), "New Age");
    EXPECT_EQ(run.folder.fileCount(), 1U);
    expectSameBytes(run.folder.get(Ini), fresh(1));
}

TEST(SettingsLoad, asksAgainAfterACrashWhileTheLanguageWindowShowed)
{
    Start run;
    run.folder.put(Ini, fresh(0));
    run.looking.language = 1;
    SettingsLoad();
    EXPECT_EQ(run.looking.asked, 1);
    expectSameBytes(run.folder.get(Ini), fresh(1));
}

TEST(SettingsLoad, rebuildsADamagedFile)
{
    for (const std::string& damaged : {std::string(), std::string("Tarvolyne"), std::string(11500, 'x'), fresh(9)}) {
        Start run;
        run.folder.put(Ini, damaged);
        run.looking.language = 2;
        SettingsLoad();
        EXPECT_EQ(run.looking.asked, 1);
        expectSameBytes(run.folder.get(Ini), fresh(2));
    }
}

TEST(SettingsLoad, readsAShortAndALongFile)
{
    Start run;
    run.folder.put(Ini, fresh(2).substr(0, 250));
    SettingsLoad();
    EXPECT_EQ(run.looking.asked, 0);
    EXPECT_EQ(App.WinPos[16].width, 5760);
    run.folder.put(Ini, fresh(1) + std::string(5000, 'x'));
    SettingsLoad();
    EXPECT_EQ(run.looking.asked, 0);
    EXPECT_EQ(App.Language, 1);
}

TEST(SettingsLoad, takesTheScreensTwipsAndTheSizesThatGoWithThem)
{
    Start run;
    run.looking.twipsX = 11;
    run.looking.twipsY = 12;
    App.AppClosing = true;
    SettingsLoad();
    EXPECT_EQ(App.ScreenTwipsX, 11);
    EXPECT_EQ(App.ScreenTwipsY, 12);
    EXPECT_EQ(App.WinPos[2].width, 4600);
    EXPECT_FALSE(App.AppClosing);
}

TEST(SettingsLoad, clearsWhatAnEarlierSessionLeftInMemory)
{
    Start run;
    App.Recent[0].path = "/old";
    App.Programs[0].Open = 1;
    App.GlobalValid = true;
    SettingsLoad();
    EXPECT_EQ(App.Recent[0].path, "");
    EXPECT_EQ(App.Programs[0].Open, 0);
    EXPECT_FALSE(App.GlobalValid);
}

TEST(SettingsLoad, touchesNothingWhileAnotherProcessRuns)
{
    for (const std::string& image : {fresh(0), std::string("damaged")}) {
        Start run;
        run.folder.put(Ini, image);
        App.AnotherRuns = true;
        SettingsLoad();
        EXPECT_EQ(run.looking.asked, 0);
        EXPECT_FALSE(App.QuitRequested);
        EXPECT_EQ(App.Language, 0);
        EXPECT_EQ(run.folder.get(Ini), image);
        EXPECT_EQ(run.folder.fileCount(), 1U);
    }
    Start run;
    App.AnotherRuns = true;
    SettingsLoad();
    EXPECT_EQ(run.folder.fileCount(), 0U);
}

TEST(SettingsLoad, runsOnWithDefaultsWhenAFolderStandsInTheFilesPlace)
{
    Start run;
    std::filesystem::create_directory(run.folder.file(Ini));
    run.looking.language = 2;
    SettingsLoad();
    EXPECT_EQ(App.Language, 2);
    EXPECT_EQ(App.LanguageBase, 200);
    EXPECT_EQ(App.WinPos[16].height, 8000);
    EXPECT_EQ(programName(0, 0), "Piano 1");
    EXPECT_TRUE(std::filesystem::is_directory(run.folder.file(Ini)));
}

TEST(SettingsLoad, leavesAFileThatItCannotReadAsItIs)
{
    Start run;
    openToAll(run.folder.path());
    std::string settings = fresh(2);
    settings[27] = 1;
    const std::string path = run.folder.put(Ini, settings);
    chmod(path.c_str(), 0222); // may be written, not read
    for (const int language : {0, 1}) {
        const int result = asOrdinaryUser([&] {
            run.looking.language = language;
            SettingsLoad();
            return run.looking.asked == 1 && App.QuitRequested == (language == 0) ? 0 : 1;
        });
        EXPECT_EQ(result, 0);
    }
    chmod(path.c_str(), 0600);
    expectSameBytes(run.folder.get(Ini), settings);
}

TEST(SettingsLoad, runsOnInAStateFolderThatMayNotBeWritten)
{
    Start run;
    chmod(run.folder.path().c_str(), 0555);
    const int result = asOrdinaryUser([&] {
        SettingsLoad();
        return run.looking.asked == 1 && App.Language == 1 && programName(0, 0) == "Piano 1" ? 0 : 1;
    });
    chmod(run.folder.path().c_str(), 0755);
    EXPECT_EQ(result, 0);
    EXPECT_EQ(run.folder.fileCount(), 0U);
}

TEST(SettingsLoad, runsOnWithoutAStateFolder)
{
    Start run;
    App.StateDir = run.folder.file("absent");
    SettingsLoad();
    EXPECT_EQ(App.Language, 1);
    EXPECT_EQ(run.folder.fileCount(), 0U);
    EXPECT_EQ(run.looking.warnings, (std::vector<ScriptedUser::Said>{
                                        {"Apertura di Dornflex", "Impossibile trovare il percorso"},
                                        {"Tarvolyne - Apertura di TvlCMInfo", "Impossibile trovare il percorso"}}))
        << "the device record first, then the names; the settings file without a word";
}

TEST(SettingsLoad, worksInAStateFolderBehindALink)
{
    Start run;
    std::filesystem::create_directory(run.folder.file("real"));
    std::filesystem::create_symlink("real", run.folder.file("link"));
    App.StateDir = run.folder.file("link");
    run.looking.language = 2;
    SettingsLoad();
    expectSameBytes(run.folder.get("real/Tarvolyne.ini"), fresh(2));
    App.AutoArr = true;
    EXPECT_EQ(SettingsSave(), 0);
    EXPECT_EQ(run.folder.get("real/Tarvolyne.ini")[27], 1);
    EXPECT_TRUE(std::filesystem::is_symlink(run.folder.file("link")));
}

TEST(SettingsLoad, readsAndSavesASettingsFileBehindALink)
{
    Start run;
    const TemporaryFolder elsewhere;
    elsewhere.put("mine.ini", fresh(2));
    std::filesystem::create_symlink(elsewhere.file("mine.ini"), run.folder.file(Ini));
    SettingsLoad();
    EXPECT_EQ(App.Language, 2);
    App.AutoArr = true;
    EXPECT_EQ(SettingsSave(), 0);
    EXPECT_EQ(elsewhere.get("mine.ini")[27], 1);
    EXPECT_TRUE(std::filesystem::is_symlink(run.folder.file(Ini)));
}

TEST(SettingsLoad, readsTheHeadOfAHugeFileAndSavesItAtItsLength)
{
    Start run;
    run.folder.put(Ini, fresh(2));
    std::filesystem::resize_file(run.folder.file(Ini), 5'000'000'000);
    SettingsLoad();
    EXPECT_EQ(App.Language, 2);
    EXPECT_EQ(SettingsSave(), 0);
    EXPECT_EQ(run.folder.get(Ini).size(), 11500U);
}

TEST(SettingsSave, writesAtExitWhatTheNextStartReads)
{
    Start run;
    SettingsLoad();
    App.AutoArr = true;
    App.WinPos[16] = {-16000, 16000, 32767, 0, 1, 0};
    App.Recent[0].path = "/a/song";
    App.Recent[0].kind = 1;
    EXPECT_EQ(SettingsSave(), 0);

    std::string expected = fresh(1);
    expected[27] = 1;
    put(expected, rowAt(16), bytesOf("0000 7D00 7FFF 0000 01"));
    put(expected, 250, std::string(238, ' '));
    put(expected, 500, std::string(238, ' '));
    put(expected, 38 * 250, "/a/song");
    expected[38 * 250 + 241] = 1;
    expected[38 * 250 + 246] = 0;
    expectSameBytes(run.folder.get(Ini), expected);

    const std::string folder = App.StateDir;
    App = {};
    App.StateDir = folder;
    App.ui = &run.looking;
    SettingsLoad();
    EXPECT_TRUE(App.AutoArr);
    EXPECT_EQ(App.WinPos[16].left, -16000);
    EXPECT_EQ(App.WinPos[16].Open, 1);
    EXPECT_EQ(App.Recent[0].path, "/a/song");
    EXPECT_EQ(run.looking.asked, 1) << "on the first start alone";
}

TEST(SettingsSave, keepsAGlobalBlockThatWasSentInThisRun)
{
    Start run;
    SettingsLoad();
    App.GblCurrent = std::string(448, 'g');
    EXPECT_EQ(SettingsSave(), 0);
    EXPECT_EQ(run.folder.get(Ini)[48], 0) << "nothing was sent";

    App.GblCurrentChanged = true;
    EXPECT_EQ(SettingsSave(), 0);
    App.GblCurrent.clear();
    SettingsLoad();
    EXPECT_TRUE(App.GlobalValid);
    EXPECT_EQ(App.GblCurrent, std::string(448, 'g'));
}

TEST(SettingsSave, savesTheLanguageOfTheNextStart)
{
    Start run;
    run.folder.put(Ini, fresh(1));
    SettingsLoad();
    App.Language = 2;
    EXPECT_EQ(SettingsSave(), 0);
    EXPECT_EQ(run.folder.get(Ini)[24], 2);
}

TEST(SettingsSave, keepsTheBytesThatTheProgramDoesNotName)
{
    Start run;
    std::string image = fresh(1);
    put(image, 224, std::string(26, 'k'));
    put(image, 750, std::string(250, 'k'));
    run.folder.put(Ini, image);
    SettingsLoad();
    EXPECT_EQ(SettingsSave(), 0);
    EXPECT_EQ(run.folder.get(Ini).substr(224, 26), std::string(26, 'k'));
    EXPECT_EQ(recordIn(run.folder.get(Ini), 4), std::string(250, 'k'));
}

TEST(SettingsSave, writesAWholeFileWhereTheOldOneWentOrBroke)
{
    std::string expected = fresh(1);
    put(expected, 250, std::string(238, ' '));
    put(expected, 500, std::string(238, ' '));
    Start run;
    SettingsLoad();
    for (const char* broken : {"", "broken"}) {
        run.folder.put(Ini, broken);
        EXPECT_EQ(SettingsSave(), 0);
        expectSameBytes(run.folder.get(Ini), expected);
    }
    std::filesystem::remove(run.folder.file(Ini));
    EXPECT_EQ(SettingsSave(), 0);
    expectSameBytes(run.folder.get(Ini), expected);
    run.folder.put(Ini, expected + std::string(1000, 'x'));
    EXPECT_EQ(SettingsSave(), 0);
    expectSameBytes(run.folder.get(Ini), expected);
}

TEST(SettingsSave, answersWithTheFileErrorWhereItCannotWrite)
{
    Start run;
    SettingsLoad();
    const std::string before = run.folder.get(Ini);
    chmod(run.folder.file(Ini).c_str(), 0444);
    openToAll(run.folder.path());
    App.AutoArr = true;
    EXPECT_EQ(asOrdinaryUser([] { return SettingsSave(); }), 75);
    EXPECT_EQ(run.folder.get(Ini), before);

    std::filesystem::remove(run.folder.file(Ini));
    std::filesystem::create_directory(run.folder.file(Ini));
    EXPECT_EQ(SettingsSave(), 75);
    App.StateDir = run.folder.file("absent");
    EXPECT_EQ(SettingsSave(), 76);
}
