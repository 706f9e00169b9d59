// A user's afternoon: a new set of arrangements is put together from a factory bank and from two songs with styles of
// their own, saved, opened again and sent. What the disk and the instrument hold at the end is composed here by hand.
#include "e2e/DeskTest.h"

#include <filesystem>
#include <fstream>

namespace
{

constexpr std::size_t ArrHead = 32;
constexpr std::size_t ArrRecord = 164;
constexpr std::size_t StyHead = 224;

/// Bytes of the whole range, the same at every run: all that no rule gives a meaning to.
std::string noise(unsigned seed, std::size_t count)
{
    std::string bytes;
    while (bytes.size() < count) {
        seed = seed * 1103515245U + 12345U;
        bytes += static_cast<char>(seed >> 23);
    }
    return bytes;
}

std::string padded(std::string text, std::size_t size)
{
    text.resize(size, ' ');
    return text;
}

// A song's files.

struct SongRow {
    std::size_t row;
    const char* name; ///< Latin-1
    int style;
    bool userStyle;
};

struct SongStyle {
    const char* name;
    std::size_t length; ///< bytes, name included
};

std::string arrangementFile(unsigned seed, const std::vector<SongRow>& rows)
{
    std::string file = std::string("KORG\x4D\x00\x03", 7) + noise(seed, 25);
    file.resize(ArrHead + 64 * ArrRecord, '\0');
    for (const SongRow& row : rows) {
        std::string record = padded(row.name, 16) + noise(++seed, ArrRecord - 16);
        record[17] = static_cast<char>(row.style);
        record[18] = row.userStyle ? 1 : 0;
        file.replace(ArrHead + ArrRecord * row.row, ArrRecord, record);
    }
    return file;
}

std::vector<std::string> blocksOf(unsigned seed, const std::vector<SongStyle>& styles)
{
    std::vector<std::string> blocks;
    for (const SongStyle& style : styles)
        blocks.push_back(padded(style.name, 16) + noise(++seed, style.length - 16));
    return blocks;
}

/// `head`: 224 bytes, whose table is written anew.
std::string styleFile(std::string head, const std::vector<std::string>& blocks)
{
    std::string behind;
    for (std::size_t slot = 0; slot < 16; ++slot) {
        const std::size_t length = slot < blocks.size() ? blocks[slot].size() : 0;
        head[24 + 4 * slot] = static_cast<char>(length % 256);
        head[25 + 4 * slot] = static_cast<char>(length / 256);
        behind += slot < blocks.size() ? blocks[slot] : std::string();
    }
    return head + behind;
}

std::string songHead(unsigned seed) { return std::string("KORG\x4D\x00\x04", 7) + noise(seed, StyHead - 7); }

/// Styles come to the disk in whole units of four bytes.
std::string onDisk(std::string styles)
{
    styles.resize((styles.size() + 3) / 4 * 4, '\0');
    return styles;
}

const std::vector<SongRow> MorningRows{
    {0, "Sveglia", 17, false},   {3, "Corriera", 5, true}, {4, "Mercato", 0, true}, {5, "Bottega", 1, true},
    {7, "Caff\xE8", 127, false}, {8, "Campane", 2, true},  {9, "Ritorno", 5, true},
};
const std::vector<SongStyle> MorningStyles{{"Piazza", 777},    {"Officina", 1500},  {"Campana Gr.", 21042},
                                           {"Mai Usato", 640}, {"- empty -", 1176}, {"Corriera Blu", 1301}};

const std::vector<SongRow> EveningRows{
    {10, "Ultimo Tram", 7, true},
    {12, "Stelle", 90, false},
    {40, "Balera", 15, true},
    {41, "Passeggio", 3, true},
};
// Its "Piazza" is another style under the same name.
const std::vector<SongStyle> EveningStyles{
    {"Sera 1", 500},  {"Sera 2", 501},  {"Sera 3", 502},  {"Piazza", 999},
    {"Sera 5", 503},  {"Sera 6", 504},  {"Sera 7", 505},  {"Tram a Notte", 1502},
    {"Sera 9", 506},  {"Sera 10", 507}, {"Sera 11", 508}, {"Sera 12", 509},
    {"Sera 13", 510}, {"Sera 14", 511}, {"Sera 15", 512}, {"Balera D'Oro", 3001}};

class Afternoon : public DeskTest
{
protected:
    void SetUp() override
    {
        bank = Wire::fileBytes(desk().workFolder() + "/TvlArrA");
        morning = {arrangementFile(11, MorningRows), styleFile(songHead(21), blocksOf(31, MorningStyles))};
        evening = {arrangementFile(12, EveningRows), styleFile(songHead(22), blocksOf(32, EveningStyles))};
        put("morning", morning);
        put("evening", evening);
        // The new set as it is to be: the bank's head and no record in use, the template's head and its empty styles.
        arr = bank.substr(0, ArrHead) + std::string(64 * ArrRecord, '\0');
        head = Wire::fileBytes(desk().workFolder() + "/TvlSty").substr(0, StyHead);
        startFirst();
    }

    struct Song {
        std::string arr;
        std::string sty;
    };
    void put(const std::string& stem, const Song& song) const
    {
        std::ofstream(samplePath(stem + ".arr"), std::ios::binary) << song.arr;
        std::ofstream(samplePath(stem + ".sty"), std::ios::binary) << song.sty;
    }

    static std::string record(const std::string& file, std::size_t row)
    {
        return file.substr(ArrHead + ArrRecord * row, ArrRecord);
    }
    void expectRecord(std::size_t row, const std::string& bytes)
    {
        arr.replace(ArrHead + ArrRecord * row, ArrRecord, bytes);
    }
    /// A song's record at its new row: all as it was, but for the slot where its style stands now.
    void expectSongRecord(std::size_t row, const Song& song, std::size_t sourceRow, int slot)
    {
        std::string bytes = record(song.arr, sourceRow);
        bytes[17] = static_cast<char>(slot);
        bytes[18] = 1;
        expectRecord(row, bytes);
    }
    std::string sty() const { return styleFile(head, blocks); }

    struct Press {
        int row;
        const char* modifier;
    };
    void choose(const char* window, const std::vector<Press>& presses)
    {
        for (const Press& press : presses)
            desk().clickRow(window, "List1", press.row, press.modifier);
    }
    /// Copies rows of a window that has come up for it, and closes it: the clipboard keeps them.
    void copyFrom(const char* window, const std::vector<Press>& presses)
    {
        choose(window, presses);
        desk().key("Ctrl+C");
        desk().click(window, "CommClose");
        desk().waitUntilGone(window);
    }
    void pasteInto(const char* window, const std::vector<Press>& presses)
    {
        choose(window, presses);
        desk().key("Ctrl+V");
        EXPECT_EQ(desk().rows(window, "List1"), Wire::rowTexts(arr));
    }

    /// What the instrument took last, of a dump: its bytes as they were before they were packed.
    static std::string heldFrom(const std::string& message)
    {
        return Wire::unpacked(message.substr(5, message.size() - 6));
    }
    void expectOnDisk()
    {
        EXPECT_TRUE(sample("afternoon.arr") == arr);
        EXPECT_TRUE(sample("afternoon.sty") == onDisk(sty()));
        EXPECT_FALSE(std::filesystem::exists(samplePath("afternoon.prg")));
        // What was copied from is as it was.
        EXPECT_TRUE(Wire::fileBytes(desk().workFolder() + "/TvlArrA") == bank);
        EXPECT_TRUE(sample("morning.arr") == morning.arr && sample("morning.sty") == morning.sty);
        EXPECT_TRUE(sample("evening.arr") == evening.arr && sample("evening.sty") == evening.sty);
    }

    void pasteTenOfBankA();
    void pasteThreeOfMorning();
    void pasteTwoOfEvening();
    void loadFromTheNewWindow();
    void saveCloseAndOpenAgain();
    void loadAllAndLookAtTheRows();
    void addAFifthStyle();
    void fillItsGroupUp();
    /// Sends the styles of the file that was opened again.
    void loadStylesAgain(const std::vector<std::string>& messages)
    {
        sentBefore = takenSoFar();
        sent.clear();
        desk().click("frmArrU", "CommLoadSty");
        expectSent(messages);
    }
    void expectSent(const std::vector<std::string>& messages)
    {
        sent.insert(sent.end(), messages.begin(), messages.end());
        expectTaken(sent, sentBefore, 20000);
    }

    std::string bank;
    Song morning;
    Song evening;
    std::string head;                ///< of the new set's style file
    std::string arr;                 ///< the new set as it is to be
    std::vector<std::string> blocks; ///< and its styles, slot by slot
    std::size_t sentBefore = 0;      ///< bytes that the instrument had taken before
    std::vector<std::string> sent;   ///< all that it is to take from then on
};

void Afternoon::pasteTenOfBankA()
{
    desk().menu("mnuArrA");
    desk().waitFor("frmArrAB");
    // A run of eight, of which one is let go again, and three single ones.
    copyFrom("frmArrAB", {{4, ""}, {11, "Shift"}, {7, "Ctrl"}, {20, "Ctrl"}, {33, "Ctrl"}, {63, "Ctrl"}});
    std::size_t row = 2;
    for (const std::size_t source : {4U, 5U, 6U, 8U, 9U, 10U, 11U, 20U, 33U, 63U})
        expectRecord(row++, record(bank, source));
    pasteInto("frmArrNew", {{11, ""}, {2, "Shift"}});
}

void Afternoon::pasteThreeOfMorning()
{
    openSample("morning.arr");
    copyFrom("frmArrU", {{8, ""}, {3, "Ctrl"}, {4, "Ctrl"}});
    // In the order of the source's rows, whichever was pressed first.
    expectSongRecord(16, morning, 3, 0);
    expectSongRecord(17, morning, 4, 1);
    expectSongRecord(18, morning, 8, 2);
    for (const std::size_t slot : {5U, 0U, 2U})
        blocks.push_back(blocksOf(31, MorningStyles)[slot]);
    pasteInto("frmArrNew", {{16, ""}, {18, "Shift"}});
}

void Afternoon::pasteTwoOfEvening()
{
    openSample("evening.arr");
    copyFrom("frmArrU", {{41, ""}, {40, "Ctrl"}});
    expectSongRecord(62, evening, 40, 3);
    expectSongRecord(63, evening, 41, 1); // "Piazza" is here already, and a name is one style
    blocks.push_back(blocksOf(32, EveningStyles)[15]);
    pasteInto("frmArrNew", {{62, ""}, {63, "Ctrl"}});
}

void Afternoon::loadFromTheNewWindow()
{
    const std::size_t before = takenSoFar();
    desk().click("frmArrNew", "CommLoadArr"); // which leaves the instrument's mode as it is
    expectTaken({Wire::arrangementDump(arr)}, before);
    desk().click("frmArrNew", "CommLoadSty");
    // Row 63 was chosen last, and is selected when its style is there.
    expectTaken({Wire::arrangementDump(arr), Wire::styleGroup(sty(), 0), Wire::selection(63)}, before);
}

void Afternoon::saveCloseAndOpenAgain()
{
    desk().key("Ctrl+Shift+S");
    saveUnder(samplePath("afternoon.arr"), false);
    ASSERT_TRUE(waitUntil([&] { return std::filesystem::exists(samplePath("afternoon.sty")); }, 5000));
    expectOnDisk();
    desk().key("Ctrl+W");
    desk().waitUntilGone("frmArrNew"); // saved: nothing is asked
    openSample("afternoon.arr");
    EXPECT_EQ(desk().control("frmArrU").title(), "File Arr - afternoon.arr (1)");
    EXPECT_EQ(desk().rows("frmArrU", "List1"), Wire::rowTexts(arr));
    sentBefore = takenSoFar();
}

void Afternoon::loadAllAndLookAtTheRows()
{
    desk().click("frmArrU", "CommLoadAll");
    expectSent({Wire::arrangementDump(arr), Wire::styleGroup(sty(), 0)});
    EXPECT_EQ(desk().control("frmMain", "LabelArr").text(), "afternoon.arr");
    desk().waitForText("frmMain", "LabelSty", "afternoon.sty");
    const std::vector<std::string> taken = Wire::messages(this->taken().substr(sentBefore));
    ASSERT_EQ(taken.size(), 2U);
    EXPECT_TRUE(heldFrom(taken[0]) == arr.substr(ArrHead));
    EXPECT_TRUE(heldFrom(taken[1]).substr(24) == blocks[0] + blocks[1] + blocks[2] + blocks[3]);

    const struct {
        int row;
        const char* style;
    } rows[] = {{16, "Corriera Blu (U11)"},
                {17, "Piazza (U12)"},
                {18, "Campana Gr. (U13)"},
                {62, "Balera D'Oro (U14)"},
                {63, "Piazza (U12)"}};
    for (const auto& each : rows) {
        desk().clickRow("frmArrU", "List1", each.row);
        expectSent({Wire::selection(each.row)});
        EXPECT_EQ(desk().control("frmArrU", "Combo1").text(), each.style);
    }
}

void Afternoon::addAFifthStyle()
{
    desk().openFile("mnuApriArr", samplePath("evening.arr"));
    desk().waitFor("frmArrU#2");
    copyFrom("frmArrU#2", {{10, ""}});
    expectSongRecord(30, evening, 10, 4);
    blocks.push_back(blocksOf(32, EveningStyles)[7]);
    pasteInto("frmArrU", {{30, ""}});
    desk().key("Ctrl+S");
    ASSERT_TRUE(waitUntil([&] { return sample("afternoon.sty") == onDisk(sty()); }, 5000));
    expectOnDisk();
    // Required: a group travels only when its four styles are there, and the fifth style is alone in its own.
    loadStylesAgain({Wire::styleGroup(sty(), 0), Wire::selection(30)});
    desk().clickRow("frmArrU", "List1", 30);
    EXPECT_EQ(desk().control("frmArrU", "Combo1").text(), "Tram a Notte (U15)");
}

void Afternoon::fillItsGroupUp()
{
    desk().click("frmArrU", "CommShowSty");
    EXPECT_EQ(desk().waitFor("frmStyUN").title(), "File Sty - afternoon.sty (1)");
    choose("frmStyUN", {{0, ""}, {2, "Shift"}});
    desk().key("Ctrl+C");
    choose("frmStyUN", {{6, ""}, {8, "Shift"}}); // row 4 parts the groups
    desk().key("Ctrl+V");
    for (const std::size_t slot : {0U, 1U, 2U})
        blocks.push_back(std::string(blocks[slot]));
    EXPECT_EQ(desk().rows("frmStyUN", "List1")[6], "16  Corriera Blu");
    EXPECT_EQ(desk().rows("frmStyUN", "List1")[8], "18  Campana Gr.");
    EXPECT_EQ(desk().control("frmStyUN", "Text1(6)").text(), "777 ");
    desk().key("Ctrl+S");
    ASSERT_TRUE(waitUntil([&] { return sample("afternoon.sty") == onDisk(sty()); }, 5000));
    expectOnDisk();
    desk().click("frmStyUN", "CommClose");
    desk().waitUntilGone("frmStyUN");
    loadStylesAgain({Wire::styleGroup(sty(), 0), Wire::styleGroup(sty(), 1), Wire::selection(30)});
    const std::string held = heldFrom(Wire::messages(taken().substr(sentBefore))[1]);
    EXPECT_TRUE(held.substr(24) == blocks[4] + blocks[0] + blocks[1] + blocks[2]);
}

TEST_F(Afternoon, aNewSetOfABanksAndTwoSongsArrangementsIsSavedOpenedAgainAndSent)
{
    desk().menu("mnuNuovoArr");
    EXPECT_EQ(desk().waitFor("frmArrNew").title(), "New File Arr - Untitled.arr (1)");
    EXPECT_EQ(desk().rows("frmArrNew", "List1"), Wire::rowTexts(arr));
    pasteTenOfBankA();
    EXPECT_FALSE(desk().control("frmArrNew", "CommLoadSty").enabled());
    pasteThreeOfMorning();
    pasteTwoOfEvening();
    loadFromTheNewWindow();
    saveCloseAndOpenAgain();
    loadAllAndLookAtTheRows();

    addAFifthStyle();
    fillItsGroupUp();
    quit();
    expectOnDisk();
}

} // namespace
