// Find by ID: which texts are numbers, what they name, and what is said when they name nothing.
#include "DBArrRoom.h"

#include "database/FindID.h"
#include "database/FolderText.h"

namespace
{

/// The codes as the instrument writes them, in the order of the rows.
const std::vector<std::string> Codes = {"11", "12", "13", "14", "15", "16", "17", "18", "21", "22", "23", "24", "25",
                                        "26", "27", "28", "31", "32", "33", "34", "35", "36", "37", "38", "41", "42",
                                        "43", "44", "45", "46", "47", "48", "51", "52", "53", "54", "55", "56", "57",
                                        "58", "61", "62", "63", "64", "65", "66", "67", "68", "71", "72", "73", "74",
                                        "75", "76", "77", "78", "81", "82", "83", "84", "85", "86", "87", "88"};

/// Codes that pass the check of the text though no bank has that digit: they stay as they are.
const std::vector<std::string> Odd = {"91", "92", "93", "94", "95", "96", "97", "98"};

/// The row of a code, or -1 for one that is refused.
int rowOf(const std::string& code)
{
    for (std::size_t row = 0; row < Codes.size(); ++row)
        if (Codes[row] == code)
            return static_cast<int>(row);
    return std::find(Odd.begin(), Odd.end(), code) == Odd.end() ? -1 : std::stoi(code);
}

class Find : public DBArrRoom
{
protected:
    Find()
    {
        App.LanguageBase = 200;
        DBArr.findInBank = [this](int kind, int row) {
            found.push_back("bank " + std::to_string(kind) + " row " + std::to_string(row));
        };
        DBArr.findInFile = [this](const std::string& path, int row) {
            found.push_back(path + " row " + std::to_string(row));
        };
    }
    std::vector<std::string> run(const std::string& text)
    {
        found.clear();
        FindRun(text);
        return found;
    }
    std::vector<std::string> found;
};

using Texts = std::vector<std::string>;

} // namespace

TEST(FindNumber, theWholeGridOfFileNumbersAndCodes)
{
    const std::pair<const char*, int> files[] = {
        {"0", 0},     {"1", 1},     {"2", 2},     {"3", 3},       {"9", 9},   {"10", 10}, {"99", 99},
        {"100", 100}, {"305", 305}, {"999", 999}, {"1000", 1000}, {"007", 7}, {"00", 0},  {"65535", 65535}};
    int accepted = 0;
    for (const auto& [file, number] : files)
        for (char tens = '0'; tens <= '9'; ++tens)
            for (char units = '0'; units <= '9'; ++units) {
                const std::string code{tens, units};
                FindNumber read{-1, -1};
                const bool good = findNumberOf(file + code, read);
                EXPECT_EQ(good, rowOf(code) >= 0) << file << code;
                EXPECT_EQ(read.FindFileNumber, good ? number : -1) << file << code;
                EXPECT_EQ(read.FindIdRow, good ? rowOf(code) : -1) << file << code;
                accepted += good;
            }
    EXPECT_EQ(accepted, 14 * 72);
}

TEST(FindNumber, anyOtherCharacterAtAnyPlaceIsRefused)
{
    for (std::size_t place = 0; place < 5; ++place)
        for (int byte = 0; byte < 256; ++byte) {
            std::string text = "30511";
            text[place] = static_cast<char>(byte);
            const bool digit = byte >= '0' && byte <= '9';
            const bool codeAllows = place < 3 || byte != '0';
            const bool unitsAllow = place < 4 || byte != '9';
            FindNumber read;
            EXPECT_EQ(findNumberOf(text, read), digit && codeAllows && unitsAllow) << place << " " << byte;
        }
}

TEST(FindNumber, textsOfTooFewDigitsAreRefused)
{
    FindNumber read;
    for (const char* text : {"", "1", "11", "88", " 11", "11 ", "-11", "1.1", "+111", "0x111"})
        EXPECT_FALSE(findNumberOf(text, read)) << text;
    EXPECT_TRUE(findNumberOf("111", read));
}

TEST(FindNumber, aVeryLongNumberNamesAFileThatNobodyHas)
{
    FindNumber read;
    EXPECT_TRUE(findNumberOf(std::string(5000, '9') + "11", read));
    EXPECT_GT(read.FindFileNumber, 65535);
    EXPECT_TRUE(findNumberOf("429496729911", read)) << "no number wraps round to a small one";
    EXPECT_GT(read.FindFileNumber, 65535);
}

TEST_F(Find, theBanksNeedNoDatabase)
{
    EXPECT_EQ(run("111"), (Texts{"bank 2 row 0"}));
    EXPECT_EQ(run("188"), (Texts{"bank 2 row 63"}));
    EXPECT_EQ(run("211"), (Texts{"bank 3 row 0"}));
    EXPECT_EQ(run("  0245 "), (Texts{"bank 3 row 28"}));
    EXPECT_EQ(run("195"), (Texts{"bank 2 row 95"}));
    EXPECT_TRUE(user.warnings.empty());
    EXPECT_FALSE(state.has("TvlDBArr"));
}

TEST_F(Find, aListedNumberGivesTheFilesPathAndTheRow)
{
    state.put("TvlDBArr", database({{"Alba", 999}, {"Balera d'estate", 3}, {"Canto", 305}}, "/music/live"));
    EXPECT_EQ(run("30588"), (Texts{"/music/live/Canto row 63"}));
    EXPECT_EQ(run("99911"), (Texts{"/music/live/Alba row 0"}));
    EXPECT_EQ(run("\x20"
                  "321"),
              (Texts{"/music/live/Balera d'estate row 8"}));
    EXPECT_EQ(run("397"), (Texts{"/music/live/Balera d'estate row 97"}));
    EXPECT_EQ(DBArr.ArrFileName, "Balera d'estate");
    EXPECT_TRUE(user.warnings.empty());
}

TEST_F(Find, aMalformedNumberIsSaidUnderID)
{
    state.put("TvlDBArr", database({{"Canto", 305}}, "/music/live"));
    for (const char* text : {"", "   ", "11", "30590", "30500", "30508", "30 588", "3o588"}) {
        EXPECT_TRUE(run(text).empty()) << text;
        EXPECT_EQ(warnings(), (Texts{"ID|File name not valid"})) << text;
    }
    App.LanguageBase = 0;
    EXPECT_TRUE(run("305").empty());
    EXPECT_EQ(warnings(), (Texts{"ID|Nome file non valido"}));
}

TEST_F(Find, aNumberThatIsNotListedIsSaidUnderIt)
{
    state.put("TvlDBArr", database({{"Canto", 305}}, "/music/live"));
    for (const char* text : {"30488", "311", "011", "00011", "100011", "6584111"}) {
        EXPECT_TRUE(run(text).empty()) << text;
        EXPECT_EQ(warnings(), (Texts{std::string("ID = ") + text + "|File Arrangement not found"}));
    }
    App.LanguageBase = 0;
    EXPECT_TRUE(run(" 30488 ").empty());
    EXPECT_EQ(warnings(), (Texts{"ID = 30488|File Arrangement assente"}));
}

TEST_F(Find, theWalkEndsAtARecordWithoutANumber)
{
    std::string file = database({{"Alba", 3}, {"Balera", 4}, {"Canto", 5}}, "/music/live");
    file[52 + 26 + 24] = '\0';
    state.put("TvlDBArr", file);
    EXPECT_EQ(run("311").size(), 1u);
    EXPECT_TRUE(run("511").empty());
    EXPECT_EQ(warnings(), (Texts{"ID = 511|File Arrangement not found"}));
    EXPECT_EQ(onDisk(), file);
}

TEST_F(Find, aDatabaseThatIsNoneIsSaidAndLeftAlone)
{
    EXPECT_TRUE(run("311").empty());
    state.put("TvlDBArr", "");
    EXPECT_TRUE(run("311").empty());
    EXPECT_FALSE(state.has("TvlDBArr"));
    state.put("TvlDBArr", "something else");
    EXPECT_TRUE(run("311").empty());
    EXPECT_EQ(onDisk(), "something else");
    std::filesystem::remove(state.file("TvlDBArr"));
    std::filesystem::create_directory(state.file("TvlDBArr"));
    EXPECT_TRUE(run("311").empty());
    EXPECT_EQ(warnings(), (Texts{"ID|File TvlDBArrnot found", "ID|File TvlDBArrnot found", "ID|File TvlDBArrdata error",
                                 "ID|Read only file"}));
}

// The folder above the list.

TEST(ShortFolder, keepsTheBeginningAndTheLastFolders)
{
    EXPECT_EQ(shortFolder("/home/ada/music/live", 20), "/home/ada/music/live");
    EXPECT_EQ(shortFolder("/home/ada/music/live", 19), "/ho.../music/live");
    EXPECT_EQ(shortFolder("/home/ada/music/live", 16), "/ho.../live");
    EXPECT_EQ(shortFolder("/home/ada/averylongname", 12), "/ho...ngname");
    EXPECT_EQ(shortFolder("/home/\xC3\xA0\xC3\xA8\xC3\xAC\xC3\xB2\xC3\xB9", 11),
              "/home/\xC3\xA0\xC3\xA8\xC3\xAC\xC3\xB2\xC3\xB9");
    EXPECT_EQ(shortFolder("/home/\xC3\xA0\xC3\xA8\xC3\xAC\xC3\xB2\xC3\xB9", 10),
              "/ho...\xC3\xA8\xC3\xAC\xC3\xB2\xC3\xB9");
    EXPECT_EQ(shortFolder("/", 1), "/");
    EXPECT_EQ(shortFolder("/abcdef", 0), "/ab...f");
}
