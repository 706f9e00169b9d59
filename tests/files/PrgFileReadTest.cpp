// Program files by name, and by a stem that a .prg or a .pgg may stand for.
#include "files/FilesFixture.h"

using PrgFileRead_ = FilesTest;
using PrgFileFind_ = FilesTest;

namespace
{

constexpr std::size_t Size = 30480;
std::string goodPrg() { return handMade(prgHead(), Size); }
std::string goodPgg() { return handMade(pggHead(), Size); }

} // namespace

TEST_F(PrgFileRead_, readsBothHeadsWhateverTheExtension)
{
    ASSERT_EQ(PrgFileRead(folder.put("song.prg", goodPrg())), 0);
    EXPECT_EQ(Files.PrgBuffer, goodPrg());
    EXPECT_EQ(Files.PrgName, "song");
    EXPECT_EQ(Files.PrgFolder, folder.path());
    EXPECT_EQ(Files.PrgExtension, "prg");
    ASSERT_EQ(PrgFileRead(folder.put("mixed.prg", goodPgg())), 0);
    EXPECT_EQ(Files.PrgBuffer, goodPgg());
    ASSERT_EQ(PrgFileRead(folder.put("encore.PGG", goodPgg())), 0);
    EXPECT_EQ(Files.PrgExtension, "pgg");
    ASSERT_EQ(PrgFileRead(folder.put("TvlPrg", goodPrg())), 0);
    EXPECT_EQ(Files.PrgName, "TvlPrg");
    expectSilence();
}

TEST_F(PrgFileRead_, aByteTooFewOrTooManyGivesCode32)
{
    for (const std::size_t size : {std::size_t{1}, Size - 1, Size + 1}) {
        user.warnings.clear();
        EXPECT_EQ(PrgFileRead(folder.put("song.prg", handMade(prgHead(), Size + 1).substr(0, size))), 2) << size;
        expectBox("Apertura di song", "Formato dati errato");
        EXPECT_EQ(folder.get("song.prg").size(), size);
    }
}

TEST_F(PrgFileRead_, eachWrongByteOfEitherHeadGivesCode32AndForgetsTheName)
{
    speakEnglish();
    for (const std::string& file : {goodPrg(), goodPgg()}) {
        for (std::size_t place = 0; place < 7; ++place) {
            ASSERT_EQ(PrgFileRead(folder.put("before.prg", goodPrg())), 0);
            user.warnings.clear();
            std::string wrong = file;
            wrong[place] = '\x7E';
            EXPECT_EQ(PrgFileRead(folder.put("song.prg", wrong)), 2) << place;
            expectBox("Opening song", "Data format error");
            EXPECT_EQ(Files.PrgName, "");
            EXPECT_EQ(Files.PrgBuffer, goodPrg());
        }
    }
}

TEST_F(PrgFileRead_, anAbsentOrEmptyFileIsToldSilentlyAndForgetsTheName)
{
    ASSERT_EQ(PrgFileRead(folder.put("before.prg", goodPrg())), 0);
    EXPECT_EQ(PrgFileRead(folder.file("song.prg")), 3);
    EXPECT_EQ(Files.PrgName, "");
    folder.put("song.prg", "");
    EXPECT_EQ(PrgFileRead(folder.file("song.prg")), 3);
    EXPECT_EQ(folder.fileCount(), 1u);
    expectSilence();
}

TEST_F(PrgFileFind_, withAnExtensionReadsThatFileAlone)
{
    folder.put("song.prg", goodPrg());
    folder.put("song.pgg", goodPgg());
    EXPECT_EQ(PrgFileFind(folder.file("song.prg")), 0);
    EXPECT_EQ(Files.PrgBuffer, goodPrg());
    EXPECT_EQ(Files.PrgExtension, "prg");
    EXPECT_EQ(PrgFileFind(folder.file("song.pgg")), 4);
    EXPECT_EQ(Files.PrgBuffer, goodPgg());
    EXPECT_EQ(Files.PrgExtension, "pgg");
    folder.put("other.prg.prg", goodPrg()); // the name of a program file is no stem
    EXPECT_EQ(PrgFileFind(folder.file("other.prg")), 3);
    EXPECT_EQ(folder.fileCount(), 3u);
    expectSilence();
}

TEST_F(PrgFileFind_, aHeadThatIsNotTheExtensionsGivesCode32)
{
    EXPECT_EQ(PrgFileFind(folder.put("song.prg", goodPgg())), 2);
    expectBox("Apertura di song", "Formato dati errato");
    EXPECT_EQ(Files.PrgName, "");
    EXPECT_EQ(PrgFileFind(folder.put("encore.pgg", goodPrg())), 2);
    EXPECT_EQ(user.warnings.size(), 2u);
}

TEST_F(PrgFileFind_, aWrongLengthGivesCode32InEnglishToo)
{
    speakEnglish();
    EXPECT_EQ(PrgFileFind(folder.put("song.prg", goodPrg().substr(1))), 2);
    expectBox("Opening song", "Data format error");
}

TEST_F(PrgFileFind_, aStemFindsThePrgFirst)
{
    folder.put("song.prg", goodPrg());
    folder.put("song.pgg", goodPgg());
    EXPECT_EQ(PrgFileFind(folder.file("song")), 0);
    EXPECT_EQ(Files.PrgExtension, "prg");
    EXPECT_EQ(Files.PrgName, "song");
}

TEST_F(PrgFileFind_, aStemFindsThePggWhereThereIsNoPrgOrAnEmptyOne)
{
    folder.put("song.pgg", goodPgg());
    EXPECT_EQ(PrgFileFind(folder.file("song")), 4);
    EXPECT_EQ(Files.PrgExtension, "pgg");
    folder.put("song.prg", "");
    EXPECT_EQ(PrgFileFind(folder.file("song")), 4);
    EXPECT_FALSE(folder.has("song.prg"));
    EXPECT_EQ(folder.fileCount(), 1u);
    expectSilence();
}

TEST_F(PrgFileFind_, aRefusedPrgIsNotPassedOverForThePgg)
{
    folder.put("song.prg", "damaged");
    folder.put("song.pgg", goodPgg());
    EXPECT_EQ(PrgFileFind(folder.file("song")), 2);
    EXPECT_EQ(user.warnings.size(), 1u);
}

TEST_F(PrgFileFind_, withNeitherFileTheTwoTriesLeaveNothingBehind)
{
    EXPECT_EQ(PrgFileFind(folder.file("song")), 3);
    folder.put("song.pgg", "");
    EXPECT_EQ(PrgFileFind(folder.file("song")), 3);
    EXPECT_EQ(folder.fileCount(), 0u);
    expectSilence();
}

TEST_F(PrgFileFind_, aStemWithPointsFindsItsOwnCompanions)
{
    folder.put("my.song.prg", goodPrg());
    EXPECT_EQ(PrgFileFind(folder.file("my.song")), 0);
    EXPECT_EQ(Files.PrgName, "my.song");
    folder.put("song.two.pgg", goodPgg());
    EXPECT_EQ(PrgFileFind(folder.file("song.two")), 4);
    EXPECT_EQ(Files.PrgName, "song.two");
}

TEST_F(PrgFileFind_, aStemThatIsAnotherFilesNameStillFindsItsCompanion)
{
    folder.put("song.mid", "MThd");
    folder.put("song.mid.pgg", goodPgg());
    EXPECT_EQ(PrgFileFind(folder.file("song.mid")), 4);
    EXPECT_EQ(Files.PrgName, "song.mid");
    EXPECT_EQ(Files.PrgExtension, "pgg");
    expectSilence();
}

TEST_F(PrgFileFind_, anUnknownExtensionMustHoldThePggsHead)
{
    EXPECT_EQ(PrgFileFind(folder.put("encore.old", goodPgg())), 4);
    EXPECT_EQ(Files.PrgBuffer, goodPgg());
    EXPECT_EQ(PrgFileFind(folder.put("song.old", goodPrg())), 2);
    expectBox("Apertura di song", "Formato dati errato");
    folder.put("none.old", "");
    EXPECT_EQ(PrgFileFind(folder.file("none.old")), 3);
    EXPECT_EQ(folder.fileCount(), 2u);
}

TEST_F(PrgFileFind_, findsTheCompanionWhoseNameDiffersInCaseAlone)
{
    folder.put("SONG.PGG", goodPgg());
    EXPECT_EQ(PrgFileFind(folder.file("song")), 4);
    EXPECT_EQ(Files.PrgBuffer, goodPgg());
}
