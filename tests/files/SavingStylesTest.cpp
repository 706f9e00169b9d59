// The style file as a save makes it: trimming of the table, whole units of four bytes, and no style lost.
#include "files/SavingFixture.h"
#include "files/StyFileWriter.h"

using namespace SavingWindows;

namespace
{

constexpr const char* Empty = "- empty -";

/// 16 slots: `used` of them named, the others empty.
std::string sixteen(int used, int usedLength, int emptyLength)
{
    std::vector<StyleBlock> slots;
    for (int i = 0; i < 16; ++i)
        slots.push_back(i < used ? StyleBlock{"Style " + std::to_string(i), usedLength}
                                 : StyleBlock{Empty, emptyLength});
    return styleFile(slots);
}

int lengthInTable(const std::string& file, int slot)
{
    const auto at = [&](int offset) {
        return static_cast<int>(static_cast<unsigned char>(file[static_cast<std::size_t>(offset)]));
    };
    return at(24 + 4 * slot) + 256 * at(25 + 4 * slot);
}

/// Where a buffer's style file begins.
std::size_t begin(const WindowBuffer& tag) { return tag.kind() == 23 || tag.kind() == 24 ? 669u : 42622u; }
std::string fileIn(const WindowBuffer& tag) { return tag.bytes().substr(begin(tag)); }

std::vector<WindowBuffer> windowsWith(const std::string& path, const std::string& file)
{
    return {styles(23, path, file), styles(24, path, file), arrangements(19, path, 2, file),
            arrangements(20, path, 2, file)};
}

} // namespace

class StyTrim : public SavingTest
{
};

TEST_F(StyTrim, answersOneAndChangesNothingWhenAllSlotsAreEmpty)
{
    for (WindowBuffer& tag : windowsWith(song(), sixteen(0, 0, 1176))) {
        const ByteBuffer before = tag.bytes();
        EXPECT_EQ(StyTableTrim(tag), 1);
        EXPECT_EQ(tag.bytes(), before);
    }
}

TEST_F(StyTrim, changesNothingWhenTheLastGroupIsUsedOrTheTableHasFourEntries)
{
    for (const std::string& file : {sixteen(13, 500, 1176), sixteen(16, 500, 0), Files.StyEmptyBuffer,
                                    styleFile({{"One", 300}, {Empty, 1176}, {Empty, 1176}, {Empty, 1176}})})
        for (WindowBuffer& tag : windowsWith(song(), file)) {
            const ByteBuffer before = tag.bytes();
            EXPECT_EQ(StyTableTrim(tag), 0);
            EXPECT_EQ(tag.bytes(), before);
        }
}

TEST_F(StyTrim, beginsAtASeventeenthEntryAndLeavesTheLowestOfTheRun)
{
    // Groups in use, the first slot behind them (which keeps its length), and the places that become zero.
    const struct {
        int usedSlots;
        int keptSlot;
    } rows[] = {{4, 4}, {7, 8}, {12, 12}};
    for (const auto& row : rows) {
        std::string file = sixteen(row.usedSlots, 300, 1176);
        file[88] = '\x55';
        file[89] = '\x66';
        file[90] = '\x77';
        for (WindowBuffer& tag : windowsWith(song(), file)) {
            EXPECT_EQ(StyTableTrim(tag), 0);
            const std::string after = fileIn(tag);
            std::string head = file.substr(0, 224);
            for (int slot = row.keptSlot + 1; slot <= 16; ++slot) {
                head[static_cast<std::size_t>(24 + 4 * slot)] = '\0';
                head[static_cast<std::size_t>(25 + 4 * slot)] = '\0';
            }
            EXPECT_EQ(hex(after.substr(0, 224)), hex(head)) << row.usedSlots;
            EXPECT_EQ(hex(after.substr(88, 3)), "00 00 77") << "the seventeenth place";
            EXPECT_EQ(lengthInTable(after, row.keptSlot), 1176);
        }
    }
}

TEST_F(StyTrim, cutsAtTheStatedFigureWhereThatLosesNothing)
{
    // One group of 4 x 100 in use, three empty ones of 4 x 1176: 224 + 3 x (224 + 4704) = 15008 bytes remain of 14736.
    WindowBuffer whole = styles(23, song(), sixteen(4, 100, 1176));
    ASSERT_EQ(fileIn(whole).size(), 14736u);
    EXPECT_EQ(StyTableTrim(whole), 0);
    EXPECT_EQ(fileIn(whole).size(), 14736u) << "the figure lies behind the end";

    // Three groups of 4 x 100 and one of 4 x 1176: 224 + 224 + 4704 = 5152 of 6128 bytes; the table names 2600 of them.
    WindowBuffer cut = styles(23, song(), sixteen(12, 100, 1176));
    ASSERT_EQ(fileIn(cut).size(), 6128u);
    EXPECT_EQ(StyTableTrim(cut), 0);
    EXPECT_EQ(fileIn(cut).size(), 5152u);
    EXPECT_EQ(fileIn(cut).substr(224), sixteen(12, 100, 1176).substr(224, 4928));
}

TEST_F(StyTrim, neverCutsOffAStyleThatTheTableStillNames)
{
    // Three groups of 4 x 6000 and one of 4 x 1176: the figure 5152 would cut into the first style. Kept are
    // 224 + 12 x 6000 + 1176 = 73400 bytes.
    const std::string file = sixteen(12, 6000, 1176);
    for (WindowBuffer& tag : windowsWith(song(), file)) {
        EXPECT_EQ(StyTableTrim(tag), 0);
        EXPECT_EQ(fileIn(tag).size(), 73400u);
        EXPECT_EQ(fileIn(tag).substr(224), file.substr(224, 73176));
    }
}

TEST_F(StyTrim, aSavedFileOfEveryNumberOfGroupsHoldsEveryUsedStyle)
{
    for (int used = 1; used <= 16; ++used)
        for (const int length : {16, 100, 1176, 6000, 16000}) {
            const std::string file = sixteen(used, length, 1176);
            WindowBuffer tag = styles(23, song(), file);
            ASSERT_EQ(FileSave(tag), 0);
            const std::string saved = folder.get("song.sty");
            for (int slot = 0; slot < used; ++slot)
                EXPECT_EQ(lengthInTable(saved, slot), length) << used;
            const auto blocks = static_cast<std::size_t>(used) * static_cast<std::size_t>(length);
            EXPECT_EQ(saved.substr(224, blocks), file.substr(224, blocks)) << used << " x " << length;
        }
}

TEST_F(StyTrim, savingTwiceChangesNothingMore)
{
    WindowBuffer tag = styles(23, song(), sixteen(5, 700, 1176));
    ASSERT_EQ(FileSave(tag), 0);
    const std::string first = folder.get("song.sty");
    tag.set(9, 1);
    ASSERT_EQ(FileSave(tag), 0);
    EXPECT_TRUE(holds(folder, "song.sty", first));
    // 224 + 5 x 700 + 3 x 1176 + 1176: the first empty group keeps its first slot.
    EXPECT_EQ(first.size(), 224u + 3500u + 3528u + 1176u);
}

TEST_F(StyTrim, theWindowHasTheTrimmedTableAfterTheSave)
{
    WindowBuffer tag = styles(23, song(), sixteen(12, 100, 1176));
    ASSERT_EQ(FileSave(tag), 0);
    EXPECT_EQ(lengthInTable(fileIn(tag), 13), 0);
    EXPECT_EQ(fileIn(tag).size(), 5152u);
}

class StyWrite : public SavingTest
{
};

TEST_F(StyWrite, roundsTheLengthUpToFourWithZeros)
{
    for (const int odd : {0, 1, 2, 3}) {
        // 224 + 777 + odd bytes, and more behind them in the buffer that belong to no style.
        const std::string file = styleFile({{"One", 777 + odd}});
        WindowBuffer tag = styles(23, song(), file + "MORE BYTES");
        ASSERT_EQ(FileSave(tag), 0);
        const std::string saved = folder.get("song.sty");
        ASSERT_EQ(saved.size(), 1004u);
        EXPECT_EQ(saved, file + std::string(static_cast<std::size_t>(3 - odd), '\0'));
    }
}

TEST_F(StyWrite, doesNotCareWhatTheBufferHoldsBehindTheStyles)
{
    const std::string file = styleFile({{"One", 500}, {"Two", 300}});
    WindowBuffer tag = arrangements(19, song(), 2, file + std::string(5000, 'x'));
    ASSERT_EQ(FileSave(tag), 0);
    EXPECT_TRUE(holds(folder, "song.sty", file));
}

TEST_F(StyWrite, aTableThatPromisesMoreThanTheBufferHoldsGivesZeros)
{
    std::string file = styleFile({{"One", 500}});
    file[25] = '\x03'; // 500 + 2 x 256 = 1012 bytes
    WindowBuffer tag = styles(23, song(), file);
    ASSERT_EQ(FileSave(tag), 0);
    EXPECT_TRUE(holds(folder, "song.sty", file + std::string(512, '\0')));
}

TEST_F(StyWrite, stylesBehindAGapInTheTableStayInTheFile)
{
    const std::string file = styleFile({{"One", 300}, {"", 0}, {"Three", 300}});
    ASSERT_EQ(file.size(), 824u);
    for (WindowBuffer& tag : windowsWith(song(), file)) {
        EXPECT_EQ(StyFileWrite(tag), 0);
        EXPECT_TRUE(holds(folder, "song.sty", file));
    }
    const std::string late = styleFile({{"", 0}, {"", 0}, {"Three", 301}, {"", 0}, {"Five", 20}});
    WindowBuffer tag = styles(23, song(), late + "MORE BYTES");
    EXPECT_EQ(FileSave(tag), 0);
    EXPECT_TRUE(holds(folder, "song.sty", late + std::string(3, '\0'))) << "545 bytes, and three to whole units";
}

TEST_F(StyWrite, ofStylesBehindAGapOnlyWhatTheImageHoldsIsWritten)
{
    const std::string file = styleFile({{"One", 300}, {"", 0}, {"Three", 300}});
    for (const std::size_t held : {824u, 700u, 528u, 524u}) {
        WindowBuffer tag = styles(23, song(), file.substr(0, held));
        EXPECT_EQ(FileSave(tag), 0);
        EXPECT_TRUE(holds(folder, "song.sty", file.substr(0, held))) << held;
    }
    WindowBuffer shorter = styles(23, song(), file.substr(0, 400));
    EXPECT_EQ(FileSave(shorter), 0);
    EXPECT_TRUE(holds(folder, "song.sty", file.substr(0, 400) + std::string(124, '\0')))
        << "the styles before the gap have the length that the table tells";
}

TEST_F(StyWrite, aGapInAnUnusedGroupLosesNoStyle)
{
    // Slots 0 to 3 are named, the others empty; slot 1 has no length, so the names behind it are read one block early.
    std::vector<StyleBlock> slots(16, {Empty, 60});
    for (std::size_t i = 0; i < 4; ++i)
        slots[i] = {"Style " + std::to_string(i), i == 1 ? 0 : 200};
    const std::string file = styleFile(slots);
    WindowBuffer tag = styles(23, song(), file);
    EXPECT_EQ(FileSave(tag), 0);
    const std::string saved = folder.get("song.sty");
    ASSERT_GE(saved.size(), 824u);
    EXPECT_EQ(saved.substr(224, 600), file.substr(224, 600));
    for (const int slot : {0, 2, 3})
        EXPECT_EQ(lengthInTable(saved, slot), 200) << slot;
}

TEST_F(StyWrite, aWindowWithABareHeadWritesTheHead)
{
    WindowBuffer tag = styles(23, song(), styleFile({}));
    ASSERT_EQ(FileSave(tag), 0);
    EXPECT_TRUE(holds(folder, "song.sty", styleFile({})));
}

TEST_F(StyWrite, aFileOfEmptyStylesIsWrittenWhole)
{
    const std::string file = sixteen(0, 0, 1176);
    WindowBuffer tag = styles(23, song(), file);
    ASSERT_EQ(FileSave(tag), 0);
    EXPECT_TRUE(holds(folder, "song.sty", file));
}

TEST_F(StyWrite, dropRemovesTheFileAndMakesNone)
{
    const WindowBuffer tag = arrangements(20, song(), 1, "");
    EXPECT_EQ(StyFileDrop(tag), 0);
    EXPECT_EQ(folder.fileCount(), 0u);
    folder.put("song.sty", "styles");
    EXPECT_EQ(StyFileDrop(tag), 0);
    EXPECT_EQ(folder.fileCount(), 0u);
    EXPECT_EQ(copiesOf("song.sty"), std::vector<std::string>{"styles"});
}
