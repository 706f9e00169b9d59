// Arrangement files and banks: exactly 10528 bytes behind one head, everything else refused.
#include "files/FilesFixture.h"

using ArrFileRead_ = FilesTest;

namespace
{

constexpr std::size_t Size = 10528;
std::string goodFile() { return handMade(arrHead(), Size); }

} // namespace

TEST_F(ArrFileRead_, readsTheWholeFileAndKeepsItsFolderAndName)
{
    ASSERT_EQ(ArrFileRead(folder.put("song.arr", goodFile())), 0);
    EXPECT_EQ(Files.ArrBuffer, goodFile());
    EXPECT_EQ(Files.ArrName, "song");
    EXPECT_EQ(Files.ArrFolder, folder.path());
    EXPECT_EQ(folder.get("song.arr"), goodFile());
    expectSilence();
}

TEST_F(ArrFileRead_, aBankHasNoExtensionAndKeepsItsWholeName)
{
    ASSERT_EQ(ArrFileRead(folder.put("TvlArrA", goodFile())), 0);
    EXPECT_EQ(Files.ArrName, "TvlArrA");
}

TEST_F(ArrFileRead_, findsTheOnlyNameThatDiffersInCaseAlone)
{
    folder.put("SONG.ARR", goodFile());
    EXPECT_EQ(ArrFileRead(folder.file("song.arr")), 0);
    EXPECT_EQ(Files.ArrBuffer, goodFile());
}

TEST_F(ArrFileRead_, aByteTooFewOrTooManyIsRefusedThoughTheHeadIsGood)
{
    for (const std::size_t size : {std::size_t{1}, std::size_t{6}, Size - 1, Size + 1, 2 * Size}) {
        user.warnings.clear();
        folder.put("song.arr", handMade(arrHead(), Size * 2).substr(0, size));
        EXPECT_EQ(ArrFileRead(folder.file("song.arr")), 2) << size;
        expectBox("Apertura di song", "Formato dati  errato");
        EXPECT_EQ(folder.get("song.arr").size(), size) << "a refused file stays as it is";
        EXPECT_TRUE(Files.ArrBuffer.empty());
    }
}

TEST_F(ArrFileRead_, eachWrongByteOfTheHeadIsRefused)
{
    for (std::size_t place = 0; place < 7; ++place) {
        user.warnings.clear();
        std::string file = goodFile();
        file[place] = static_cast<char>(file[place] + 1);
        EXPECT_EQ(ArrFileRead(folder.put("song.arr", file)), 2) << place;
        expectBox("Apertura di song", "Formato dati  errato");
    }
}

TEST_F(ArrFileRead_, theRestOfTheHeadIsNeverInterpreted)
{
    std::string file = goodFile();
    for (std::size_t place = 7; place < 32; ++place)
        file[place] = '\xFF';
    EXPECT_EQ(ArrFileRead(folder.put("song.arr", file)), 0);
    EXPECT_EQ(Files.ArrBuffer.substr(7, 25), std::string(25, '\xFF'));
}

TEST_F(ArrFileRead_, aStyleFileUnderAnotherNameIsRefusedInEnglishToo)
{
    speakEnglish();
    EXPECT_EQ(ArrFileRead(folder.put("song.arr", handMade(styHead(), Size))), 2);
    expectBox("Opening song", "Error reading ");
}

TEST_F(ArrFileRead_, aRefusedFileLeavesTheLastOneInTheBuffer)
{
    ASSERT_EQ(ArrFileRead(folder.put("song.arr", goodFile())), 0);
    EXPECT_EQ(ArrFileRead(folder.put("other.arr", "short")), 2);
    EXPECT_EQ(Files.ArrBuffer, goodFile());
    EXPECT_EQ(Files.ArrName, "song");
}

TEST_F(ArrFileRead_, anAbsentFileIsToldSilentlyAndLeavesNothingBehind)
{
    EXPECT_EQ(ArrFileRead(folder.file("song.arr")), 3);
    EXPECT_EQ(folder.fileCount(), 0u);
    expectSilence();
}

TEST_F(ArrFileRead_, anEmptyFileIsDeletedSilently)
{
    folder.put("song.arr", "");
    EXPECT_EQ(ArrFileRead(folder.file("song.arr")), 3);
    EXPECT_EQ(folder.fileCount(), 0u);
    expectSilence();
}

TEST_F(ArrFileRead_, keepsTheTitleForTheCallersOwnMessage)
{
    speakEnglish();
    EXPECT_EQ(ArrFileRead(folder.file("my.song.arr")), 3);
    EXPECT_EQ(App.ErrTitle, "Opening my.song");
}
