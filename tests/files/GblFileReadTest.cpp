// Global files: exactly 448 bytes behind an eight-byte head.
#include "files/FilesFixture.h"

using GblFileRead_ = FilesTest;

namespace
{

std::string goodFile() { return handMade(gblHead(), 448); }

} // namespace

TEST_F(GblFileRead_, readsTheWholeFileWithItsLastUnsentByte)
{
    std::string file = goodFile();
    file[447] = '\x5A';
    ASSERT_EQ(GblFileRead(folder.put("studio.gbl", file)), 0);
    EXPECT_EQ(Files.GblBuffer, file);
    EXPECT_EQ(Files.GblName, "studio");
    EXPECT_EQ(Files.GblFolder, folder.path());
    expectSilence();
}

TEST_F(GblFileRead_, aByteTooFewOrTooManyIsRefusedUnderTheNameWithItsExtension)
{
    for (const std::size_t size : {std::size_t{1}, std::size_t{447}, std::size_t{449}}) {
        user.warnings.clear();
        EXPECT_EQ(GblFileRead(folder.put("studio.gbl", handMade(gblHead(), 500).substr(0, size))), 2) << size;
        expectBox("Apertura di studio.gbl", "Formato dati  errato");
        EXPECT_EQ(folder.get("studio.gbl").size(), size);
    }
}

TEST_F(GblFileRead_, eachWrongByteOfTheHeadIsRefusedAndTheEighthToo)
{
    speakEnglish();
    for (std::size_t place = 0; place < 8; ++place) {
        user.warnings.clear();
        std::string file = goodFile();
        file[place] = static_cast<char>(file[place] + 1); // the eighth becomes 02
        EXPECT_EQ(GblFileRead(folder.put("studio.gbl", file)), 2) << place;
        expectBox("Opening studio.gbl", "Error reading ");
    }
    EXPECT_TRUE(Files.GblBuffer.empty());
}

TEST_F(GblFileRead_, anAbsentOrEmptyFileIsToldSilentlyAndLeavesNothingBehind)
{
    EXPECT_EQ(GblFileRead(folder.file("studio.gbl")), 3);
    folder.put("studio.gbl", "");
    EXPECT_EQ(GblFileRead(folder.file("studio.gbl")), 3);
    EXPECT_EQ(folder.fileCount(), 0u);
    expectSilence();
}
