// Style files of any length, and the template of four empty slots.
#include "files/FilesFixture.h"

using StyFileRead_ = FilesTest;

namespace
{

std::string templateFile(const std::string& name)
{
    std::string padded = name;
    padded.resize(16, ' ');
    return styleFile({{padded, 1176}, {padded, 1176}, {padded, 1176}, {padded, 1176}});
}

} // namespace

TEST_F(StyFileRead_, readsAFileOfAnyLengthWhole)
{
    const std::string file = styleFile({{"One", 700}, {"Two", 4200}, {"Three", 33000}});
    ASSERT_EQ(StyFileRead(folder.put("song.sty", file)), 0);
    EXPECT_EQ(Files.StyBuffer, file);
    EXPECT_EQ(Files.StyName, "song");
    EXPECT_EQ(Files.StyFolder, folder.path());
    EXPECT_EQ(folder.get("song.sty"), file);
    expectSilence();
}

TEST_F(StyFileRead_, theHeadAloneIsEnough)
{
    ASSERT_EQ(StyFileRead(folder.put("song.sty", styHead())), 0);
    EXPECT_EQ(hex(Files.StyBuffer), "4B 4F 52 47 4D 00 04");
}

TEST_F(StyFileRead_, nothingIsCutUpTo289800Bytes)
{
    const std::string file = handMade(styHead(), 289800);
    ASSERT_EQ(StyFileRead(folder.put("song.sty", file)), 0);
    EXPECT_TRUE(Files.StyBuffer == file);
}

TEST_F(StyFileRead_, aLongerFileKeepsItsLengthWithZerosBehind289800)
{
    const std::string file = handMade(styHead(), 300000);
    ASSERT_EQ(StyFileRead(folder.put("song.sty", file)), 0);
    ASSERT_EQ(Files.StyBuffer.size(), 300000u);
    EXPECT_TRUE(Files.StyBuffer.substr(0, 289800) == file.substr(0, 289800));
    EXPECT_TRUE(Files.StyBuffer.substr(289800) == std::string(10200, '\0'));
}

TEST_F(StyFileRead_, aMonsterIsRefusedWithoutBeingTakenIntoMemory)
{
    folder.put("song.sty", styHead());
    std::filesystem::resize_file(folder.file("song.sty"), 40ULL * 1024 * 1024 * 1024); // sparse
    EXPECT_EQ(StyFileRead(folder.file("song.sty")), 1);
    EXPECT_EQ(user.notices.size(), 1u);
    EXPECT_TRUE(Files.StyBuffer.empty());
}

TEST_F(StyFileRead_, eachWrongByteOfTheHeadShowsTheNoticeAndNoErrorBox)
{
    for (std::size_t place = 0; place < 7; ++place) {
        user.notices.clear();
        std::string file = styleFile({{"One", 700}});
        file[place] = static_cast<char>(file[place] + 1);
        EXPECT_EQ(StyFileRead(folder.put("song.sty", file)), 1) << place;
        ASSERT_EQ(user.notices.size(), 1u);
        EXPECT_EQ(user.notices[0].title, "song.sty");
        EXPECT_EQ(user.notices[0].text, "Formato dati song errato");
        EXPECT_EQ(folder.get("song.sty"), file) << "a refused file is never touched";
    }
    EXPECT_TRUE(user.warnings.empty());
    EXPECT_TRUE(Files.StyBuffer.empty());
}

TEST_F(StyFileRead_, theNoticeIsEnglishInAnEnglishRun)
{
    speakEnglish();
    EXPECT_EQ(StyFileRead(folder.put("song.sty", "KORG")), 1);
    ASSERT_EQ(user.notices.size(), 1u);
    EXPECT_EQ(user.notices[0].title, "song.sty");
    EXPECT_EQ(user.notices[0].text, "Error reading song");
    EXPECT_EQ(App.ErrTitle, "Opening song");
}

TEST_F(StyFileRead_, anAbsentOrEmptyFileIsToldFromARefusedOne)
{
    EXPECT_EQ(StyFileRead(folder.file("song.sty")), 2);
    folder.put("song.sty", "");
    EXPECT_EQ(StyFileRead(folder.file("song.sty")), 2);
    EXPECT_EQ(folder.fileCount(), 0u);
    expectSilence();
}

TEST_F(StyFileRead_, theTemplatesNamesAreOverwrittenInMemoryAlone)
{
    const std::string file = templateFile("Factory empty 12");
    ASSERT_EQ(StyFileRead(folder.put("TvlSty", file)), 0);
    ASSERT_EQ(Files.StyEmptyBuffer.size(), 4928u);
    std::string expected = file;
    for (const std::size_t place : {224u, 1400u, 2576u, 3752u}) {
        EXPECT_EQ(Files.StyEmptyBuffer.substr(place, 16), "- empty -mpty 12"); // the rest of the 16 stays
        expected.replace(place, 9, "- empty -");
    }
    EXPECT_EQ(Files.StyEmptyBuffer, expected);
    EXPECT_EQ(Files.StyBuffer, expected);
    EXPECT_EQ(folder.get("TvlSty"), file);
}

TEST_F(StyFileRead_, theTemplateReadTwiceGivesTheSameBuffer)
{
    folder.put("TvlSty", templateFile("Blank"));
    ASSERT_EQ(StyFileRead(folder.file("TvlSty")), 0);
    const std::string first = Files.StyEmptyBuffer;
    ASSERT_EQ(StyFileRead(folder.file("TvlSty")), 0);
    EXPECT_EQ(Files.StyEmptyBuffer, first);
}

TEST_F(StyFileRead_, theTemplateIsOneRecordOf4928Bytes)
{
    ASSERT_EQ(StyFileRead(folder.put("TvlSty", templateFile("Blank") + "surplus")), 0);
    EXPECT_EQ(Files.StyEmptyBuffer.size(), 4928u);
    ASSERT_EQ(StyFileRead(folder.put("TvlSty", templateFile("Blank").substr(0, 1000))), 0);
    EXPECT_EQ(Files.StyEmptyBuffer.size(), 4928u);
    EXPECT_EQ(Files.StyEmptyBuffer.substr(1409, 10), std::string(10, '\0'));
}

TEST_F(StyFileRead_, theTemplateIsKnownByTheLastSixCharactersOfThePath)
{
    EXPECT_EQ(StyFileRead(folder.put("OldTvlSty", templateFile("Blank"))), 0);
    EXPECT_EQ(Files.StyEmptyBuffer.substr(224, 16), "- empty -       ");
    Files = {};
    const std::string file = templateFile("Valzer");
    EXPECT_EQ(StyFileRead(folder.put("TvlSty.sty", file)), 0);
    EXPECT_EQ(Files.StyBuffer, file) << "a user's file of that name keeps its styles";
    EXPECT_EQ(Files.StyName, "TvlSty");
}

TEST_F(StyFileRead_, theTemplateInTheProgramStandsInWhenTvlStyCannotBeRead)
{
    EXPECT_EQ(StyFileRead(folder.file("TvlSty")), 2);
    EXPECT_EQ(StyFileRead(folder.put("TvlSty", "no style file")), 1);
    ASSERT_EQ(Files.StyEmptyBuffer.size(), 4928u);
    EXPECT_EQ(hex(Files.StyEmptyBuffer.substr(0, 7)), "4B 4F 52 47 4D 00 04");
    for (const std::size_t entry : {24u, 28u, 32u, 36u})
        EXPECT_EQ(hex(Files.StyEmptyBuffer.substr(entry, 2)), "98 04"); // 1176
    for (const std::size_t place : {224u, 1400u, 2576u, 3752u})
        EXPECT_EQ(Files.StyEmptyBuffer.substr(place, 16), "- empty -       ");
    EXPECT_EQ(user.notices.size(), 1u);
}

TEST_F(StyFileRead_, anOrdinaryFileLeavesTheTemplatesBufferAlone)
{
    ASSERT_EQ(StyFileRead(folder.put("TvlSty", templateFile("Blank"))), 0);
    const std::string before = Files.StyEmptyBuffer;
    ASSERT_EQ(StyFileRead(folder.put("song.sty", styleFile({{"One", 700}}))), 0);
    EXPECT_EQ(Files.StyEmptyBuffer, before);
}
