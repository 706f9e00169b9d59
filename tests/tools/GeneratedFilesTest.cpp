// The files that the build writes beside the program, read back by their offsets.
#include "core/NameTables.h"
#include "support/Hex.h"
#include "tools/SampleFiles.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <set>
#include <string>

namespace
{

std::string generated(const std::string& name)
{
    std::ifstream stream(std::string(TARVOLYNE_BIN_DIR) + "/" + name, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

int at(const std::string& bytes, std::size_t place) { return static_cast<unsigned char>(bytes.at(place)); }

/// Every value that the instrument's panel can show, in all used records of an arrangement file.
void expectPlayable(const std::string& file, int userStyles)
{
    for (std::size_t row = 0; row < 64; ++row) {
        const std::size_t base = 32 + 164 * row;
        if (at(file, base) == 0) {
            EXPECT_EQ(file.substr(base, 164), std::string(164, '\0'));
            continue;
        }
        EXPECT_LT(at(file, base + 17), at(file, base + 18) == 1 ? userStyles : 128) << row;
        EXPECT_LE(at(file, base + 18), 1);
        EXPECT_LE(at(file, base + 19), 3);
        EXPECT_TRUE(at(file, base + 21) >= 10 && at(file, base + 21) <= 210) << row;
        EXPECT_LE(at(file, base + 22), 10);
        EXPECT_TRUE(at(file, base + 23) >= 36 && at(file, base + 23) <= 96);
        EXPECT_TRUE(at(file, base + 25) <= 11 || at(file, base + 25) >= 245);
        EXPECT_LE(at(file, base + 26), 7);
        for (std::size_t variation = 29; variation <= 32; ++variation)
            EXPECT_TRUE(at(file, base + variation) >= 1 && at(file, base + variation) <= 8);
        EXPECT_LE(at(file, base + 37), 12);
        EXPECT_LE(at(file, base + 38), 12);
        for (std::size_t track = base + 39; track < base + 111; track += 8) {
            EXPECT_LE(at(file, track), 127);
            EXPECT_LE(at(file, track + 1), 4);
            EXPECT_TRUE(at(file, track + 2) >= 60 && at(file, track + 2) <= 127) << "nobody is silent";
            EXPECT_LE(at(file, track + 3), 31);
            EXPECT_LE(at(file, track + 4) & 15, 10);
            EXPECT_LE(at(file, track + 4) >> 4, 10);
            EXPECT_LE(at(file, track + 6), 11);
            EXPECT_TRUE(at(file, track + 7) <= 11 || at(file, track + 7) == 255);
        }
        EXPECT_EQ(at(file, base + 40), 4) << "the drum track plays a kit";
        EXPECT_LE(at(file, base + 135), 47);
        EXPECT_LE(at(file, base + 136), 47);
    }
}

std::size_t used(const std::string& file)
{
    std::size_t count = 0;
    for (std::size_t row = 0; row < 64; ++row)
        count += at(file, 32 + 164 * row) != 0 ? 1U : 0U;
    return count;
}

} // namespace

TEST(GeneratedBanks, holdAnArrangementForEachFactoryStyle)
{
    NameTablesBuild();
    for (const int bank : {0, 1}) {
        const std::string file = generated(bank == 0 ? "TvlArrA" : "TvlArrB");
        ASSERT_EQ(file.size(), 10528u);
        EXPECT_EQ(hex(file.substr(0, 7)), "4B 4F 52 47 4D 00 03");
        EXPECT_EQ(used(file), 64u);
        expectPlayable(file, 0);
        for (std::size_t row = 0; row < 64; ++row) {
            EXPECT_EQ(file.substr(32 + 164 * row, 16), Names.StyNames[static_cast<std::size_t>(bank) * 64 + row]);
            EXPECT_EQ(at(file, 32 + 164 * row + 17), bank * 64 + static_cast<int>(row));
        }
    }
}

TEST(GeneratedBanks, playInTheRightTempoWithTheRightBass)
{
    const std::string bankA = generated("TvlArrA");
    const std::string bankB = generated("TvlArrB");
    EXPECT_EQ(at(bankB, 32 + 164 * 8 + 21) + 30, 180);  // Wien Waltz
    EXPECT_EQ(at(bankB, 32 + 164 * 9 + 21) + 30, 88);   // Slow Waltz 1
    EXPECT_EQ(at(bankA, 32 + 164 * 31 + 21) + 30, 138); // Techno
    EXPECT_EQ(at(bankA, 32 + 39 + 16), 33);             // 8 Beat 1: Fingered Bs. is A 52
    EXPECT_EQ(at(bankA, 32 + 39 + 17), 0);
    EXPECT_EQ(at(bankB, 32 + 164 * 26 + 39), 7); // Be bop: the Jazz Kit is the eighth
}

TEST(GeneratedBanks, theManualDrumsAreTheKitOfTheStyleOrItsNearestAmongTheFirstEight)
{
    const std::string bankA = generated("TvlArrA");
    const std::string bankB = generated("TvlArrB");
    EXPECT_EQ(at(bankA, 32 + 164 * 31 + 26), 6); // Techno: Dance Kit
    EXPECT_EQ(at(bankA, 32 + 164 * 34 + 26), 4); // Jungle: Electronic Kit
    EXPECT_EQ(at(bankB, 32 + 164 * 26 + 26), 7); // Be bop: Jazz Kit
    EXPECT_EQ(at(bankA, 32 + 164 * 45 + 26), 7); // Beguine: brushes, so the Jazz Kit
    EXPECT_EQ(at(bankB, 32 + 164 * 8 + 26), 0);  // Wien Waltz: an orchestra's drums, so the plain kit
    EXPECT_EQ(at(bankB, 32 + 164 * 57 + 26), 0); // Ciftetelli: the Arabian Kit has no place there
}

TEST(GeneratedBanks, onlyBigBandsAndOrchestrasHaveTheirEnsembleOn)
{
    const std::string bankA = generated("TvlArrA");
    const std::string bankB = generated("TvlArrB");
    EXPECT_EQ(at(bankB, 32 + 164 * 17 + 24), 0x88); // Big Band: switched on, brass
    EXPECT_EQ(at(bankA, 32 + 24), 1);               // 8 Beat 1: off, close
}

TEST(GeneratedTemplates, haveTheirExactLengthsAndHeads)
{
    const std::string style = generated("TvlSty");
    ASSERT_EQ(style.size(), 4928u);
    EXPECT_EQ(hex(style.substr(0, 7)), "4B 4F 52 47 4D 00 04");
    EXPECT_EQ(hex(style.substr(24, 18)), "98 04 00 00 98 04 00 00 98 04 00 00 98 04 00 00 00 00");
    for (const std::size_t place : {224u, 1400u, 2576u, 3752u})
        EXPECT_EQ(style.substr(place, 16), "- empty -       ");

    const std::string program = generated("TvlPrg");
    ASSERT_EQ(program.size(), 30480u);
    EXPECT_EQ(hex(program.substr(0, 7)), "4B 4F 52 47 4D 00 00");
    for (std::size_t record = 0; record < 64; ++record)
        EXPECT_EQ(at(program, 48 + 172 * record), 0);
}

TEST(GeneratedSamples, songHasUserStylesUserProgramsAndUnusedRows)
{
    const std::string song = generated("samples/song.arr");
    const std::string programs = generated("samples/song.prg");
    ASSERT_EQ(song.size(), 10528u);
    EXPECT_EQ(hex(song.substr(0, 7)), "4B 4F 52 47 4D 00 03");
    expectPlayable(song, 16);
    EXPECT_GE(used(song), 40u);
    EXPECT_LT(used(song), 64u);
    std::set<int> slots;
    int userPrograms = 0;
    int bankD = 0;
    int factoryStyles = 0;
    for (std::size_t row = 0; row < 64; ++row) {
        const std::size_t base = 32 + 164 * row;
        if (at(song, base) == 0)
            continue;
        if (at(song, base + 18) == 1)
            slots.insert(at(song, base + 17));
        else
            ++factoryStyles;
        for (std::size_t track = base + 39; track < base + 111; track += 8) {
            bankD += at(song, track + 1) == 1 && at(song, track) >= 64 ? 1 : 0;
            if (at(song, track + 1) == 3) {
                ++userPrograms;
                EXPECT_GT(at(programs, 48 + 172 * static_cast<std::size_t>(at(song, track))), 1) << row;
            }
        }
    }
    EXPECT_EQ(slots.size(), 16u) << "every style of song.sty is played somewhere";
    EXPECT_GE(factoryStyles, 10);
    EXPECT_GE(userPrograms, 5);
    EXPECT_GE(bankD, 3);
    EXPECT_EQ(song.substr(32 + 164 * 2, 16), "Sabato Sera     ");
}

TEST(GeneratedSamples, songStylesAreSixteenSlotsOfDifferentLengths)
{
    const std::string file = generated("samples/song.sty");
    EXPECT_EQ(hex(file.substr(0, 7)), "4B 4F 52 47 4D 00 04");
    std::set<int> lengths;
    std::size_t place = 224;
    for (std::size_t slot = 0; slot < 16; ++slot) {
        const int length = at(file, 24 + 4 * slot) + 256 * at(file, 25 + 4 * slot);
        EXPECT_TRUE(length >= 700 && length <= 4200) << slot;
        lengths.insert(length);
        ASSERT_LE(place + 16, file.size());
        EXPECT_NE(file.substr(place, 9), "- empty -");
        EXPECT_TRUE(file[place] >= 'A' && file[place] <= 'Z') << slot;
        place += static_cast<std::size_t>(length);
    }
    EXPECT_EQ(place, file.size());
    EXPECT_EQ(lengths.size(), 16u);
    EXPECT_EQ(std::set<char>(file.begin(), file.end()).size(), 256u) << "bytes of the whole range";
}

TEST(GeneratedSamples, programFilesHoldProgramsAndReferences)
{
    const std::string song = generated("samples/song.prg");
    ASSERT_EQ(song.size(), 30480u);
    EXPECT_EQ(hex(song.substr(0, 7)), "4B 4F 52 47 4D 00 00");
    for (std::size_t record = 0; record < 64; ++record)
        EXPECT_NE(at(song, 48 + 172 * record), 1) << "a .prg has no reference";
    EXPECT_EQ(song.substr(48 + 3, 16), "Sabato Lead     ");

    const std::string encore = generated("samples/encore.pgg");
    ASSERT_EQ(encore.size(), 30480u);
    EXPECT_EQ(hex(encore.substr(0, 7)), "4B 50 47 47 4D 00 00");
    EXPECT_GT(at(encore, 48), 1);
    EXPECT_EQ(hex(encore.substr(48 + 172 * 2, 3)), "01 01 1E"); // Solo Dist. is C 47
    EXPECT_EQ(encore.substr(48 + 172 * 2 + 3, 16), "Solo Dist.      ");
    EXPECT_EQ(hex(encore.substr(48 + 172 * 7, 3)), "01 04 20"); // the jazz kit is program 32
    EXPECT_NE(encore.substr(23096, 2104), std::string(2104, '\0'));

    const std::string rows = generated("samples/encore.arr");
    ASSERT_EQ(rows.size(), 10528u);
    expectPlayable(rows, 0);
    for (std::size_t row = 0; row < 64; ++row)
        for (std::size_t track = 32 + 164 * row + 39; track < 32 + 164 * row + 111; track += 8) {
            const bool userProgram = at(rows, track + 1) == 3;
            EXPECT_TRUE(!userProgram || at(encore, 48 + 172 * static_cast<std::size_t>(at(rows, track))) > 1) << row;
        }
}

TEST(GeneratedSamples, referencesAreNamedAfterWhatTheyReferTo)
{
    NameTablesBuild();
    const std::string encore = generated("samples/encore.pgg");
    int references = 0;
    for (std::size_t record = 48; record < 48 + 172 * 64; record += 172) {
        const int bank = at(encore, record + 1);
        const int number = at(encore, record + 2);
        if (at(encore, record) != 1 || bank == 4)
            continue;
        ++references;
        const int block = bank == 2 ? 4 : bank * 2 + number / 64; // A, B, C, D, E
        EXPECT_EQ(encore.substr(record + 3, 16), padded(programName(block, number % 64), 16));
    }
    EXPECT_EQ(references, 5);
}

TEST(GeneratedSamples, studioIsAGlobalFileWithAllFieldsInRange)
{
    const std::string file = generated("samples/studio.gbl");
    ASSERT_EQ(file.size(), 448u);
    EXPECT_EQ(hex(file.substr(0, 8)), "4B 4F 52 47 4D 00 06 01");
    EXPECT_EQ(at(file, 32), 0) << "the master tune of concert pitch";
    EXPECT_EQ(at(file, 32 + 2), 1) << "the damper's plus pole";
    EXPECT_EQ(at(file, 32 + 3), 1) << "the pedal starts and stops";
    EXPECT_EQ(at(file, 32 + 19), 3);
    EXPECT_EQ(hex(file.substr(32 + 32, 12)), "00 F6 04 10 F2 FE EF 02 0E F0 FC F4"); // pure thirds and fifths of C
    EXPECT_EQ(at(file, 32 + 212), 0) << "dynamic velocity";
    for (std::size_t note = 32; note < 80; ++note)
        EXPECT_TRUE(at(file, 32 + note) <= 50 || at(file, 32 + note) >= 206) << note;
    EXPECT_EQ(at(file, 32 + 217), 127);
    EXPECT_EQ(at(file, 32 + 218), 255);
    EXPECT_EQ(at(file, 32 + 220), 255);
}

TEST(GeneratedSamples, areTheSameAtEveryRun)
{
    NameTablesBuild();
    EXPECT_EQ(songArrangements(), generated("samples/song.arr"));
    EXPECT_EQ(songStyles(), generated("samples/song.sty"));
    EXPECT_EQ(songPrograms(), generated("samples/song.prg"));
    EXPECT_EQ(encoreArrangements(), generated("samples/encore.arr"));
    EXPECT_EQ(encorePrograms(), generated("samples/encore.pgg"));
    EXPECT_EQ(studioGlobal(), generated("samples/studio.gbl"));
}

TEST(GeneratedSamples, oneStaysInARefreshOfTheDatabaseAndOneGoes)
{
    const std::string song = generated("samples/song.arr");
    EXPECT_EQ(song.substr(32, 10), "Aperitivo ");
    EXPECT_EQ(song.substr(672, 10), "Aperitivo ");
    const std::string encore = generated("samples/encore.arr");
    EXPECT_NE(encore.substr(32, 10), encore.substr(672, 10));
}
