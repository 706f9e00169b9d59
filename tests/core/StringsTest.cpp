// The table of the program's words: whole, the same in both languages, letter by letter as users know it.
#include "core/Strings.h"
#include "core/Words.h"

#include "core/StringTable.h"
#include "support/CoreRun.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <set>

namespace
{

/// FNV-1a, to notice any change of a long list of words.
std::uint64_t fingerprint(const std::string& text)
{
    std::uint64_t hash = 0xcbf29ce484222325ULL;
    for (const char c : text)
        hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001b3ULL;
    return hash;
}

auto placeholders(const std::string& text) { return std::count(text.begin(), text.end(), '_'); }

} // namespace

TEST(StringTable, hasTheIdsFrom2To123ButForTheTwoGaps)
{
    std::set<int> expected;
    for (int id = 2; id <= 123; ++id)
        if (!(id >= 31 && id <= 36) && !(id >= 55 && id <= 61))
            expected.insert(id);
    std::set<int> ids;
    for (const StringRow& row : stringTable())
        ids.insert(row.id);
    EXPECT_EQ(ids, expected);
    EXPECT_EQ(stringTable().size(), 109U);
}

TEST(StringTable, hasNoEmptyCell)
{
    for (const auto table : {stringTable(), supplementTable()})
        for (const StringRow& row : table) {
            EXPECT_STRNE(row.italian, "") << row.id;
            EXPECT_STRNE(row.english, "") << row.id;
        }
}

TEST(StringTable, hasTheSamePlaceholdersInBothLanguagesButForRow17)
{
    for (const auto table : {stringTable(), supplementTable()})
        for (const StringRow& row : table) {
            if (row.id == 17)
                continue;
            EXPECT_EQ(placeholders(row.italian), placeholders(row.english)) << row.id;
        }
    EXPECT_EQ(ResTextIn(1, 17), "Apertura di _");
    EXPECT_EQ(ResTextIn(2, 17), "Opening ");
}

TEST(StringTable, keepsEveryWordAsUsersKnowIt)
{
    std::string all;
    for (const StringRow& row : stringTable())
        all += std::to_string(row.id) + "|" + row.italian + "|" + row.english + "\n";
    EXPECT_EQ(fingerprint(all), 0x649c796039ea8c65ULL);
}

TEST(StringTable, keepsItsSlipsOfThePen)
{
    EXPECT_EQ(ResTextIn(2, 16), "Not more than one istance is allowed");
    EXPECT_EQ(ResTextIn(2, 40), "File TvlDBArrnot found");
    EXPECT_EQ(ResTextIn(2, 119), "The lenght of a 4 Styles group must be less than 65496 bytes");
    EXPECT_EQ(ResTextIn(1, 50), "File TvlPrg assente");
    EXPECT_EQ(ResTextIn(2, 50), "File TvlPcg not found");
    EXPECT_EQ(ResTextIn(1, 30), "Informazioni su ");
}

TEST(ResText, speaksTheLanguageOfTheRun)
{
    CoreRun run;
    EXPECT_EQ(ResText(7), "&Esci") << "before a language is chosen";
    run.speak(1);
    EXPECT_EQ(ResText(15), "File assente");
    EXPECT_EQ(ResText(66), "Il cambio avr\xC3\xA0 effetto alla prossima esecuzione del programma");
    run.speak(2);
    EXPECT_EQ(ResText(15), "File not found");
    EXPECT_EQ(ResText(2), "&File");
    EXPECT_EQ(ResText(123), "Maximize");
}

TEST(ResText, isFixedForTheRunWhenOnlyTheSavedLanguageChanges)
{
    CoreRun run;
    run.speak(1);
    App.Language = 2;
    EXPECT_EQ(ResText(64), "Italiano");
    EXPECT_EQ(ResText(65), "Inglese");
}

TEST(ResText, isEmptyForAnIdWithoutARow)
{
    for (const int id : {-1, 0, 1, 31, 36, 55, 61, 124, 125, 201, 400, Words::First + Words::count(), 601})
        EXPECT_EQ(ResTextIn(1, id) + ResTextIn(2, id), "") << id;
}

TEST(Words, haveARowEachFrom401)
{
    EXPECT_EQ(Words::First, 401);
    ASSERT_EQ(supplementTable().size(), static_cast<std::size_t>(Words::count()));
    EXPECT_LT(Words::First + Words::count(), 601) << "the English ids begin there";
    EXPECT_EQ(ResTextIn(1, Words::TransferInProgress), "Trasferimento in corso");
    EXPECT_EQ(ResTextIn(2, Words::TransferInProgress), "Transfer in progress");
}

TEST(WithArgument, replacesTheFirstPlaceholderOnly)
{
    EXPECT_EQ(withArgument("a _ b _", "x"), "a x b _");
    EXPECT_EQ(withArgument("_", "_y_"), "_y_");
    EXPECT_EQ(withArgument("none", "x"), "none");
    EXPECT_EQ(withArgument("File _ assente", ""), "File  assente");
}

TEST(FixedTitles, standAsTheyAre)
{
    EXPECT_STREQ(ApplicationTitle, "Tarvolyne - Tarvolyne Console ");
    EXPECT_STREQ(ApplicationName, "Tarvolyne");
}
