// The file that remembers what the instrument was last sent.
#include "core/StateFiles.h"

#include "support/CoreRun.h"
#include "support/OtherUser.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

namespace
{

constexpr const char* File = "TvlCMInfo";
using Said = ScriptedUser::Said;

/// The file with three names, built by hand.
std::string infoFile(const std::string& arr, const std::string& sty, const std::string& prg)
{
    std::string image(1000, ' ');
    image.replace(0, 9, "TvlCMInfo");
    image.replace(50, arr.size(), arr);
    image.replace(100, sty.size(), sty);
    image.replace(150, prg.size(), prg);
    return image;
}

/// A window buffer with a path without extension at its place.
std::string windowOn(const std::string& path)
{
    std::string block(300, '\x01');
    block.replace(20, 238, path + std::string(238 - path.size(), ' '));
    return block;
}

} // namespace

TEST(InfoFileCheck, makesAFreshFileWhereThereIsNone)
{
    CoreRun run;
    App.InfoArr = "a";
    App.InfoSty = "s";
    App.InfoPrg = "p";
    InfoFileCheck();
    EXPECT_EQ(run.folder.get(File), infoFile("", "", ""));
    EXPECT_EQ(App.InfoArr, "");
    EXPECT_EQ(App.InfoSty, "s") << "the two others alone are emptied";
    EXPECT_EQ(App.InfoPrg, "");
    EXPECT_EQ(run.folder.fileCount(), 1U);
}

TEST(InfoFileCheck, replacesAFileOfAnyOtherLength)
{
    CoreRun run;
    for (const std::size_t length : {0U, 1U, 999U, 1001U, 5000U}) {
        run.folder.put(File, std::string(length, 'x'));
        InfoFileCheck();
        EXPECT_EQ(run.folder.get(File), infoFile("", "", "")) << length;
    }
}

TEST(InfoFileCheck, leavesAFileOf1000BytesWhateverItHolds)
{
    CoreRun run;
    run.folder.put(File, std::string(1000, 'x'));
    App.InfoArr = "a";
    InfoFileCheck();
    EXPECT_EQ(run.folder.get(File), std::string(1000, 'x'));
    EXPECT_EQ(App.InfoArr, "a");
}

TEST(InfoFileCheck, reportsAFileErrorUnderTheFilesTitle)
{
    CoreRun run;
    run.speak(2);
    std::filesystem::create_directory(run.folder.file(File));
    InfoFileCheck();
    EXPECT_EQ(run.user.warnings, (std::vector<Said>{{"Tarvolyne - Opening TvlCMInfo", "Read only file"}}));
    App.StateDir = run.folder.file("absent");
    InfoFileCheck();
    EXPECT_EQ(run.user.warnings.back(), (Said{"Tarvolyne - Opening TvlCMInfo", "Path not found"}));
}

TEST(InfoFileCheck, keepsTheNamesWhenNoFreshFileCanBeWritten)
{
    CoreRun run;
    openToAll(run.folder.path());
    const std::string path = run.folder.put(File, "short");
    chmod(path.c_str(), 0444);
    const int result = asOrdinaryUser([&] {
        App.InfoArr = "a";
        App.InfoPrg = "p";
        InfoFileCheck();
        return App.InfoArr + App.InfoPrg == "ap" && run.user.warnings.size() == 1 ? 0 : 1;
    });
    EXPECT_EQ(result, 0);
    EXPECT_EQ(run.folder.get(File), "short");
}

TEST(InfoFileCheck, replacesAHugeFileWithoutReadingIt)
{
    CoreRun run;
    run.folder.put(File, "TvlCMInfo");
    constexpr std::uintmax_t Huge = (1ULL << 32) + 1000; // 1000 to whoever counts in 32 bits
    std::filesystem::resize_file(run.folder.file(File), Huge);
    InfoFileCheck();
    EXPECT_EQ(run.folder.get(File), infoFile("", "", ""));
}

TEST(InfoRead, readsAllThreeNamesAndReturnsTheStyles)
{
    CoreRun run;
    run.folder.put(File, infoFile("song", "my grooves", "sounds"));
    EXPECT_EQ(InfoRead(), "my grooves");
    EXPECT_EQ(App.InfoArr, "song");
    EXPECT_EQ(App.InfoSty, "my grooves");
    EXPECT_EQ(App.InfoPrg, "sounds");
}

TEST(InfoRead, aNameEndsAtItsFirstNulAndBeforeTheBlanks)
{
    CoreRun run;
    using namespace std::string_literals;
    run.folder.put(File, infoFile("song\0s"s, " my grooves  \0x"s, "\0sounds"s));
    EXPECT_EQ(InfoRead(), " my grooves");
    EXPECT_EQ(App.InfoArr, "song");
    EXPECT_EQ(App.InfoPrg, "");
}

TEST(InfoRead, findsNothingInAnEmptyFileAndDeletesIt)
{
    CoreRun run;
    App.InfoArr = App.InfoSty = App.InfoPrg = "old";
    run.folder.put(File, "");
    EXPECT_EQ(InfoRead(), "");
    EXPECT_EQ(App.InfoArr + App.InfoSty + App.InfoPrg, "");
    EXPECT_FALSE(run.folder.has(File));
    EXPECT_EQ(InfoRead(), "") << "absent";
    EXPECT_EQ(run.folder.fileCount(), 0U);
}

TEST(InfoRead, readsWhatAShortOrLongFileHolds)
{
    CoreRun run;
    run.folder.put(File, infoFile("song", "grooves", "sounds").substr(0, 104));
    EXPECT_EQ(InfoRead(), "groo");
    EXPECT_EQ(App.InfoArr, "song");
    EXPECT_EQ(App.InfoPrg, "");
    run.folder.put(File, infoFile("song", "grooves", "sounds") + std::string(3000, 'x'));
    EXPECT_EQ(InfoRead(), "grooves");
    run.folder.put(File, std::string(1000, '\0'));
    EXPECT_EQ(InfoRead(), "");
    EXPECT_EQ(App.InfoArr, "");
}

TEST(InfoRead, keepsWhatItKnowsWhenTheFileCannotBeRead)
{
    CoreRun run;
    std::filesystem::create_directory(run.folder.file(File));
    App.InfoArr = "song";
    App.InfoSty = "grooves";
    EXPECT_EQ(InfoRead(), "grooves");
    EXPECT_EQ(App.InfoArr, "song");
    EXPECT_TRUE(run.user.warnings.empty());
}

TEST(InfoSet, recordsEachNameInItsFieldAndShowsIt)
{
    CoreRun run;
    run.folder.put(File, infoFile("", "", ""));
    EXPECT_EQ(InfoArrSet(windowOn("/home/anna/song")), 0);
    EXPECT_EQ(run.folder.get(File), infoFile("song", "", ""));
    EXPECT_EQ(InfoStySet(windowOn("/home/anna/grooves")), 0);
    EXPECT_EQ(run.folder.get(File), infoFile("song", "grooves", ""));
    EXPECT_EQ(InfoPrgSet(windowOn("/home/anna/sounds"), "pgg"), 0);
    EXPECT_EQ(run.folder.get(File), infoFile("song", "grooves", "sounds"));
    EXPECT_EQ(run.user.arrLabel, "song.arr");
    EXPECT_EQ(run.user.styLabel, "grooves.sty");
    EXPECT_EQ(run.user.prgLabel, "sounds.pgg");
    EXPECT_EQ(App.InfoArr, "song");
    EXPECT_EQ(App.InfoSty, "grooves");
    EXPECT_EQ(App.InfoPrg, "sounds");
}

TEST(InfoSet, keepsANameWithAPointWhole)
{
    CoreRun run;
    run.folder.put(File, infoFile("", "", ""));
    EXPECT_EQ(InfoArrSet(windowOn("/home/anna.b/my.song")), 0);
    EXPECT_EQ(App.InfoArr, "my.song");
    EXPECT_EQ(InfoArrSet(windowOn("/home/anna/take.two")), 0);
    EXPECT_EQ(run.folder.get(File), infoFile("take.two", "", ""))
        << "three characters behind the point are no extension";
    EXPECT_EQ(run.user.arrLabel, "take.two.arr");
}

TEST(InfoSet, cutsANameAt24BytesAndBlanksTheRestOfItsField)
{
    CoreRun run;
    run.folder.put(File, infoFile(std::string(50, 'o'), std::string(50, 's'), "p"));
    EXPECT_EQ(InfoArrSet(windowOn("/x/abcdefghijklmnopqrstuvwxyz")), 0);
    EXPECT_EQ(run.folder.get(File),
              infoFile("abcdefghijklmnopqrstuvwx", std::string(50, 's'), "p").replace(74, 26, std::string(26, ' ')));
    EXPECT_EQ(run.user.arrLabel, "abcdefghijklmnopqrstuvwx.arr");
}

TEST(InfoSet, recordsAFileReadWithoutAWindowByItsStem)
{
    CoreRun run;
    run.folder.put(File, infoFile("song", "", ""));
    EXPECT_EQ(InfoPrgSetStem("my.sounds", "prg"), 0);
    EXPECT_EQ(run.folder.get(File), infoFile("song", "", "my.sounds"));
    EXPECT_EQ(run.user.prgLabel, "my.sounds.prg");
}

TEST(InfoSet, keepsTheRestOfTheRecord)
{
    CoreRun run;
    std::string image = infoFile("a", "b", "c");
    image.replace(10, 30, std::string(30, 'k'));
    image.replace(200, 800, std::string(800, 'k'));
    run.folder.put(File, image);
    EXPECT_EQ(InfoArrSet(windowOn("/x/n")), 0);
    image[50] = 'n';
    EXPECT_EQ(run.folder.get(File), image);
}

TEST(InfoSet, answersOneForAnEmptyOrAbsentFileAndChangesNothing)
{
    CoreRun run;
    run.folder.put(File, "");
    EXPECT_EQ(InfoArrSet(windowOn("/x/n")), 1);
    EXPECT_FALSE(run.folder.has(File));
    EXPECT_EQ(InfoStySet(windowOn("/x/n")), 1);
    EXPECT_EQ(InfoPrgSet(windowOn("/x/n"), "prg"), 1);
    EXPECT_EQ(run.folder.fileCount(), 0U);
    EXPECT_EQ(run.user.arrLabel + run.user.styLabel + run.user.prgLabel, "");
    EXPECT_EQ(App.InfoArr, "");
}

TEST(InfoSet, givesAFileOfAnotherLengthItsLength)
{
    CoreRun run;
    run.folder.put(File, infoFile("a", "b", "c").substr(0, 160));
    EXPECT_EQ(InfoArrSet(windowOn("/x/n")), 0);
    EXPECT_EQ(run.folder.get(File), infoFile("n", "b", "c").substr(0, 160) + std::string(840, '\0'));
    run.folder.put(File, infoFile("a", "b", "c") + "tail");
    EXPECT_EQ(InfoArrSet(windowOn("/x/n")), 0);
    EXPECT_EQ(run.folder.get(File), infoFile("n", "b", "c"));
}

TEST(InfoSet, survivesABlockShorterThanItsPath)
{
    CoreRun run;
    run.folder.put(File, infoFile("a", "b", "c"));
    EXPECT_EQ(InfoArrSet(std::string(20, 'x') + "/y/short"), 0);
    EXPECT_EQ(App.InfoArr, "short");
    EXPECT_EQ(InfoArrSet("tiny"), 0);
    EXPECT_EQ(App.InfoArr, "");
}

TEST(InfoSet, setsTheTitleByTheKindAndNamesTheDeviceRecordForStyles)
{
    CoreRun run;
    run.folder.put(File, infoFile("", "", ""));
    InfoArrSet(windowOn("/x/n"));
    EXPECT_EQ(App.ErrTitle, "Tarvolyne - Apertura di TvlCMInfo");
    InfoStySet(windowOn("/x/n"));
    EXPECT_EQ(App.ErrTitle, "Tarvolyne - Apertura di Dornflex");
    run.speak(2);
    InfoPrgSet(windowOn("/x/n"), "prg");
    EXPECT_EQ(App.ErrTitle, "Tarvolyne - Opening TvlCMInfo");
}

TEST(InfoSet, reportsAFileErrorAndKeepsNameAndLabel)
{
    CoreRun run;
    run.speak(2);
    std::filesystem::create_directory(run.folder.file(File));
    App.InfoSty = "before";
    EXPECT_EQ(InfoStySet(windowOn("/x/n")), 1);
    EXPECT_EQ(run.user.warnings, (std::vector<Said>{{"Tarvolyne - Opening Dornflex", "Read only file"}}));
    EXPECT_EQ(App.InfoSty, "before");
    EXPECT_EQ(run.user.styLabel, "");
}

TEST(InfoSet, leavesAFileThatMayNotBeWritten)
{
    CoreRun run;
    openToAll(run.folder.path());
    const std::string path = run.folder.put(File, infoFile("a", "b", "c"));
    chmod(path.c_str(), 0444);
    const int result = asOrdinaryUser([&] {
        const int answer = InfoArrSet(windowOn("/x/n"));
        return answer == 1 && run.user.warnings.size() == 1 && run.user.warnings[0].text == "File di sola lettura" ? 0
                                                                                                                   : 1;
    });
    EXPECT_EQ(result, 0);
    EXPECT_EQ(run.folder.get(File), infoFile("a", "b", "c"));
}
