// The rows and figures of a style window from files of every shape, and the buffers that style windows start from.
#include "styles/StyleRows.h"

#include "core/NameTables.h"
#include "files/FileReaders.h"
#include "files/StyImage.h"
#include "styles/StyWindowBuilder.h"
#include "styles/StyleSends.h"
#include "support/CoreRun.h"
#include "support/StyleFiles.h"

#include "core/Dichiarazioni.h"
#include "midi/MIDI.h"
#include "support/RecordingMidiService.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <memory>
#include <random>

using Lines = std::vector<std::string>;

namespace
{

Lines lengths(const StyleListing& listing) { return {listing.lengths.begin(), listing.lengths.end()}; }
Lines figures(const StyleListing& listing) { return {listing.groupFigures.begin(), listing.groupFigures.end()}; }
std::vector<bool> buttons(const StyleListing& listing)
{
    return std::vector<bool>(listing.groupButtons.begin(), listing.groupButtons.end());
}

/// Rows in which the slots from `first` on have this name.
Lines rowsNamed(std::size_t first, const std::string& name, Lines rows = {})
{
    const Lines codes = {"11", "12", "13", "14", "15", "16", "17", "18",
                         "21", "22", "23", "24", "25", "26", "27", "28"};
    for (std::size_t slot = first; slot < 16; ++slot) {
        if (slot == 4 || slot == 8 || slot == 12)
            rows.emplace_back(" ");
        rows.push_back(codes[slot] + "  " + name);
    }
    return rows;
}

Slots sixteen()
{
    Slots slots;
    for (int slot = 0; slot < 16; ++slot)
        slots.emplace_back("Style " + std::to_string(slot), 100 + slot);
    return slots;
}

} // namespace

TEST(StyleSlotInRow, countsTheRowsButForTheThreeBlankOnes)
{
    const std::vector<int> slots = {0, 1, 2, 3, -1, 4, 5, 6, 7, -1, 8, 9, 10, 11, -1, 12, 13, 14, 15};
    for (int row = 0; row < 19; ++row)
        EXPECT_EQ(styleSlotInRow(row), slots[static_cast<std::size_t>(row)]) << row;
    for (const int row : {-1, 19, 24, 1000})
        EXPECT_EQ(styleSlotInRow(row), -1) << row;
}

TEST(StyleListing, showsSixteenStylesUnderThePanelsNumbersWithATotalThatRunsOn)
{
    const StyleListing listing = styleListing(styFile(sixteen()));
    EXPECT_EQ(listing.rows,
              (Lines{"11  Style 0", "12  Style 1", "13  Style 2", "14  Style 3", " ", "15  Style 4", "16  Style 5",
                     "17  Style 6", "18  Style 7", " ", "21  Style 8", "22  Style 9", "23  Style 10", "24  Style 11",
                     " ", "25  Style 12", "26  Style 13", "27  Style 14", "28  Style 15"}));
    EXPECT_EQ(lengths(listing), (Lines{"100 ", "101 ", "102 ", "103 ", "104 ", "105 ", "106 ", "107 ", "108 ", "109 ",
                                       "110 ", "111 ", "112 ", "113 ", "114 ", "115 "}));
    EXPECT_EQ(figures(listing), (Lines{"406 ", "828 ", "1266 ", "1720 "}));
    EXPECT_EQ(buttons(listing), (std::vector<bool>{true, true, true, true}));
    EXPECT_EQ(listing.total, "1944");
}

TEST(StyleListing, aGroupsFigureOnLoadIsNotTheSumThatAnEditShows)
{
    const std::string file = styFile(sixteen());
    const StyleListing listing = styleListing(file);
    EXPECT_EQ(listing.groupFigures[2], "1266 ");
    EXPECT_EQ(StyGroupLen(8, file), 438) << "108 + 109 + 110 + 111";
}

TEST(StyleListing, aFileOfFourSlotsShowsTheOthersEmptyAndKeepsEveryButton)
{
    const StyleListing listing = styleListing(emptyStyles());
    EXPECT_EQ(listing.rows, rowsNamed(4, "", {"11  - empty -", "12  - empty -", "13  - empty -", "14  - empty -"}));
    EXPECT_EQ(lengths(listing), (Lines{"1176 ", "1176 ", "1176 ", "1176 ", "0 ", "0 ", "0 ", "0 ", "0 ", "0 ", "0 ",
                                       "0 ", "0 ", "0 ", "0 ", "0 "}));
    EXPECT_EQ(figures(listing), (Lines{"4704 ", "4704 ", "4704 ", "4704 "}));
    EXPECT_EQ(buttons(listing), (std::vector<bool>{true, true, true, true}));
    EXPECT_EQ(listing.total, "4928");
}

TEST(StyleListing, aFileWithoutSlotsHasNoButton)
{
    const StyleListing listing = styleListing(styFile({}));
    EXPECT_EQ(listing.rows, rowsNamed(0, ""));
    EXPECT_EQ(lengths(listing), Lines(16, "0 "));
    EXPECT_EQ(figures(listing), (Lines{"0 ", "0 ", "0 ", "0 "}));
    EXPECT_EQ(buttons(listing), (std::vector<bool>{false, false, false, false}));
    EXPECT_EQ(listing.total, "224");
}

TEST(StyleListing, aStyleInTheThirdGroupAloneSwitchesOnTheThirdButtonAndTheFourth)
{
    std::string file = styFile({});
    file[24 + 4 * 9] = 20;
    file += styBlock(9, "Late", 20);
    const StyleListing listing = styleListing(file);
    EXPECT_EQ(listing.rows[11], "22  Late");
    EXPECT_EQ(listing.lengths[9], "20 ");
    EXPECT_EQ(figures(listing), (Lines{"0 ", "0 ", "20 ", "20 "}));
    EXPECT_EQ(buttons(listing), (std::vector<bool>{false, false, true, true}));
}

TEST(StyleListing, aSingleSlotOfEachLengthShowsAsMuchNameAsItHas)
{
    struct Case {
        int length;
        std::string row, text, total;
    };
    for (const Case& one : {Case{1, "11  S", "1 ", "225"}, Case{16, "11  Sixteen Letters!", "16 ", "240"},
                            Case{65535, "11  Sixteen Letters!", "65535 ", "65759"}}) {
        const StyleListing listing = styleListing(styFile({{"Sixteen Letters!", one.length}}));
        EXPECT_EQ(listing.rows, rowsNamed(1, "", {one.row}));
        EXPECT_EQ(listing.lengths[0], one.text);
        EXPECT_EQ(figures(listing), Lines(4, one.text));
        EXPECT_EQ(listing.total, one.total);
    }
}

TEST(StyleListing, fifteenSlotsLeaveTheLastEmpty)
{
    Slots slots = sixteen();
    slots.pop_back();
    const StyleListing listing = styleListing(styFile(slots));
    EXPECT_EQ(listing.rows[17], "27  Style 14");
    EXPECT_EQ(listing.rows[18], "28  ");
    EXPECT_EQ(listing.lengths[15], "0 ");
    EXPECT_EQ(listing.groupFigures[3], "1605 ");
    EXPECT_EQ(listing.total, "1829");
}

TEST(StyleListing, sixteenSlotsOfTheGreatestLengthAddUp)
{
    const StyleListing listing = styleListing(styFile(Slots(16, {"Big", 65535})));
    EXPECT_EQ(figures(listing), (Lines{"262140 ", "524280 ", "786420 ", "1048560 "}));
    EXPECT_EQ(listing.rows[18], "28  Big");
    EXPECT_EQ(listing.total, "1048784");
}

TEST(StyleListing, aTableThatPromisesMoreThanTheFileHoldsGivesShortAndEmptyNames)
{
    std::string file = styFile({{"Whole", 40}, {"Cut here", 60000}, {"Gone", 50}});
    file.resize(224 + 40 + 5);
    const StyleListing listing = styleListing(file);
    EXPECT_EQ(listing.rows, rowsNamed(3, "", {"11  Whole", "12  Cut h", "13  "}));
    EXPECT_EQ(listing.lengths[1], "60000 ");
    EXPECT_EQ(figures(listing), Lines(4, "60090 "));
    EXPECT_EQ(listing.total, "269");
}

TEST(StyleListing, namesAreReadBeyondAShortTableWhereTheFileGoesOn)
{
    // A length of 0 moves nothing: all slots behind read at the same place.
    const std::string file = styFile({{"Only", 30}}) + "Ghost           rest";
    EXPECT_EQ(styleListing(file).rows, rowsNamed(1, "Ghost", {"11  Only"}));
}

TEST(StyleListing, bytesOfANameThatAreNoCharactersShowAsBlanksAndLatinLettersStay)
{
    const StyleListing listing = styleListing(styFile({{std::string("A\0\x1F\x7F\x9F\xE0Z", 7), 20}}));
    EXPECT_EQ(listing.rows[0], "11  A    \xE0Z");
}

TEST(StyleListing, aFileShorterThanItsHeadShowsWhatThereIs)
{
    for (const std::size_t size : {0U, 7U, 24U, 25U, 26U, 223U}) {
        std::string file = styFile({{"Name", 0x0155}});
        file.resize(size);
        const StyleListing listing = styleListing(file);
        EXPECT_EQ(listing.rows, rowsNamed(0, "")) << size;
        EXPECT_EQ(listing.total, std::to_string(size));
    }
}

TEST(StyleListing, whatLiesBehindTheLimitOfReadingShowsAsBlanks)
{
    const CoreRun run;
    Files = {};
    // The sixteenth block begins at 224 + 15 x 19319 = 290009, behind the 289800 bytes that are read.
    Slots slots(15, {"Long", 19319});
    slots.emplace_back("Unread", 9991);
    const std::string file = styFile(slots);
    ASSERT_EQ(file.size(), 300000U);
    ASSERT_EQ(StyFileRead(run.folder.put("long.sty", file)), 0);
    EXPECT_EQ(styleListing(Files.StyBuffer).rows[18], "28  " + std::string(16, ' '));
    EXPECT_EQ(styleListing(Files.StyBuffer).total, "300000");
    EXPECT_EQ(styleListing(Files.StyBuffer).groupFigures[3], "299776 ");

    ASSERT_EQ(StyFileRead(run.folder.put("whole.sty", file.substr(0, 289800))), 0);
    EXPECT_EQ(styleListing(Files.StyBuffer).rows[17], "27  Long");
    EXPECT_EQ(styleListing(Files.StyBuffer).rows[18], "28  ");
    EXPECT_EQ(styleListing(Files.StyBuffer).total, "289800");
    Files = {};
}

TEST(StyleListing, readsNothingOutsideAnyImage)
{
    App = {};
    Midi = {};
    RecordingMidiService wire;
    Midi.service = &wire;
    std::mt19937 random(4711);
    const auto upTo = [&random](int most) { return std::uniform_int_distribution<int>(0, most)(random); };
    for (int round = 0; round < 3000; ++round) {
        // A place of exactly the image's size, so that the sanitizer sees a byte read beside it.
        const auto size = static_cast<std::size_t>(upTo(round % 3 == 0 ? 300 : 3000));
        const std::unique_ptr<char[]> bytes(new char[669 + size]);
        for (std::size_t i = 0; i < 669 + size; ++i)
            bytes[i] = static_cast<char>(upTo(255));
        bytes[0] = 23;
        for (std::size_t i = 669 + 24; i < 669 + std::min<std::size_t>(size, 88); i += 2)
            bytes[i + 1 < 669 + size ? i + 1 : i] = static_cast<char>(upTo(1)); // lengths that often fit
        const std::string_view buffer(bytes.get(), 669 + size);
        const StyleListing listing = styleListing(buffer.substr(669));
        ASSERT_EQ(listing.rows.size(), 19U);
        EXPECT_EQ(listing.rows[18].substr(0, 4), "28  ");
        EXPECT_EQ(listing.total, std::to_string(size));
        const int groups = StyGroupCount(buffer);
        EXPECT_TRUE(groups >= 0 && groups <= 4);
        for (int group = 0; group < 4; ++group)
            if (StyGroupBuild(buffer, group) == 0) {
                // 24 bytes of descriptors and at most all blocks, eight bytes on the wire for seven, six of frame.
                EXPECT_LE(Midi.SysExOutput.size(), 6 + (24 + size) / 7 * 8 + 8) << round;
            }
    }
    Midi = {};
}

TEST(StyleBankRows, listTheFactoryNamesInTheirWholeWidth)
{
    NameTablesBuild();
    Names.StyNames[0] = "Alpha Beat      ";
    Names.StyNames[63] = "Sixteen Letters!";
    Names.StyNames[64] = "B First         ";
    Names.StyNames[127] = "Omega           ";
    const Lines a = styleBankRows(17);
    const Lines b = styleBankRows(18);
    ASSERT_EQ(a.size(), 64U);
    ASSERT_EQ(b.size(), 64U);
    EXPECT_EQ(a[0], "11  Alpha Beat      ");
    EXPECT_EQ(a[7].substr(0, 4), "18  ");
    EXPECT_EQ(a[8].substr(0, 4), "21  ");
    EXPECT_EQ(a[63], "88  Sixteen Letters!");
    EXPECT_EQ(b[0], "11  B First         ") << "the first row of bank B is the name at 64";
    EXPECT_EQ(b[63], "88  Omega           ");
    NameTablesBuild();
}

TEST(StyTagBuild, aFilesWindowBeginsWithItsHeadItsPathAndBlankRows)
{
    const CoreRun run;
    Files = {};
    Files.StyBuffer = styFile({{"One", 40}});
    SessionEntry entry;
    entry.path = "/music/song";
    for (const bool readOnly : {false, true}) {
        entry.readOnly = readOnly;
        const std::string tag = StyTagBuild(23, 5, entry).bytes();
        std::string expected(20, '\0');
        expected[0] = 23;
        expected[1] = readOnly ? 1 : 0;
        expected[14] = 5;
        expected[16] = 1;
        expected += "/music/song" + std::string(239, ' ') + std::string(399, '\0') + Files.StyBuffer;
        EXPECT_EQ(tag, expected);
    }
    Files = {};
}

TEST(StyTagBuild, aPathThatItsFieldCannotHoldIsForReadingOnly)
{
    const CoreRun run;
    SessionEntry entry;
    entry.path = "/" + std::string(237, 'a');
    EXPECT_FALSE(StyTagBuild(23, 1, entry).readOnly());
    entry.path += 'b';
    EXPECT_TRUE(StyTagBuild(23, 1, entry).readOnly());
}

TEST(StyTagBuild, anUntitledWindowSaysSoInBothLanguages)
{
    CoreRun run;
    Files = {};
    Files.StyBuffer = emptyStyles();
    const std::vector<std::pair<int, std::string>> texts = {{1, " (SenzaNome 3)"}, {2, " (Untitled 3)"}};
    for (const auto& [language, text] : texts) {
        run.speak(language);
        const std::string tag = StyTagBuild(24, 3, SessionEntry()).bytes();
        std::string expected(20, '\0');
        expected[0] = 24;
        expected[14] = 3;
        expected[17] = 1;
        expected += text + std::string(250 - text.size(), ' ') + std::string(399, '\0') + emptyStyles();
        EXPECT_EQ(tag, expected) << language;
    }
    Files = {};
}

TEST(StyBankTagBuild, holdsNameKindAndNoFile)
{
    for (const auto& [kind, name] : {std::pair<int, std::string>{17, "Style A"}, {18, "Style B"}}) {
        std::string expected(20, '\0');
        expected[0] = static_cast<char>(kind);
        expected[1] = static_cast<char>(kind);
        expected[16] = 1;
        expected += name + std::string(243, ' ');
        const WindowBuffer tag = StyBankTagBuild(kind);
        EXPECT_EQ(tag.bytes(), expected);
        EXPECT_FALSE(tag.readOnly());
        EXPECT_EQ(ChildCaption(tag), name);
    }
}

TEST(StySessionLeave, keepsThePlaceAndFreesTheRecord)
{
    SessionEntry entry;
    entry.used = true;
    entry.linked = true;
    WindowPosition place;
    place.left = 300;
    place.top = 450;
    place.width = 6000;
    place.height = 5000;
    StySessionLeave(entry, place);
    EXPECT_FALSE(entry.used);
    EXPECT_FALSE(entry.linked);
    EXPECT_EQ(entry.left, 300);
    EXPECT_EQ(entry.top, 450);
    EXPECT_EQ(entry.width, 6000);
    EXPECT_EQ(entry.height, 5000);
    EXPECT_EQ(entry.Open, 0);
}
