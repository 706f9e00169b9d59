// What is no database, and databases that are damaged inside: each answers as told, and nothing else is touched.
#include "DBArrUpdateRoom.h"

namespace
{

struct Damage {
    const char* name;
    std::string bytes; ///< empty: no file
    const char* text;  ///< what Add All, delete and refresh say
};

std::vector<Damage> damages(const std::string& folder)
{
    const std::string good = database({{"Alba", 3}, {"Balera", 4}}, folder);
    std::vector<Damage> all = {
        {"absent", "", "File not found"},
        {"signature alone", "TvlDBArr", "Error reading TvlDBArr"},
        {"one byte", "T", "Error reading TvlDBArr"},
        {"one byte short", good.substr(0, 27220), "Error reading TvlDBArr"},
        {"one byte long", good + " ", "Error reading TvlDBArr"},
        {"other text", std::string(27221, 'x'), "Error reading TvlDBArr"},
        {"zeros", std::string(27221, '\0'), "Error reading TvlDBArr"},
    };
    for (std::size_t place = 0; place < 8; ++place) {
        std::string bytes = good;
        bytes[place] = static_cast<char>(bytes[place] ^ 1);
        all.push_back({"signature", bytes, "Error reading TvlDBArr"});
    }
    return all;
}

} // namespace

TEST_F(Update, whatIsNoDatabaseIsSaidAndStaysUntouched)
{
    songs.put("Alba.arr", arrangement());
    const std::function<int()> changes[] = {DBArrRefresh, DBArrAddAll, [] { return DBArrDelete(3); },
                                            [this] { return add("Alba"); }};
    for (const Damage& damage : damages(songs.path()))
        for (const auto& change : changes) {
            const bool isAdd = &change == &changes[3];
            if (damage.bytes.empty() && isAdd)
                continue; // asks for a new one
            if (!damage.bytes.empty())
                state.put("TvlDBArr", damage.bytes);
            DBArr.DBArrID = 77;
            DBArr.DBArrBuffer = "as it was";
            EXPECT_EQ(change(), DBArrResult::Failed) << damage.name;
            EXPECT_EQ(warnings(), (Texts{std::string("TvlDBArrReading |") + damage.text})) << damage.name;
            EXPECT_EQ(onDisk(), damage.bytes) << damage.name;
            EXPECT_EQ(DBArr.DBArrID, isAdd ? 0 : 77);
            EXPECT_EQ(DBArr.DBArrBuffer, "as it was");
            EXPECT_TRUE(copies().empty());
            EXPECT_EQ(songs.fileCount(), 1u);
        }
    EXPECT_TRUE(user.questions.empty());
}

TEST_F(Update, anEmptyDatabaseIsAbsentAndDeleted)
{
    for (const std::function<int()>& change : {std::function<int()>(DBArrRefresh), std::function<int()>(DBArrAddAll),
                                               std::function<int()>([] { return DBArrDelete(3); })}) {
        state.put("TvlDBArr", "");
        EXPECT_EQ(change(), DBArrResult::Failed);
        EXPECT_EQ(warnings(), (Texts{"TvlDBArrReading |File not found"}));
        EXPECT_FALSE(state.has("TvlDBArr"));
    }
}

TEST_F(Update, aFolderInItsPlaceIsAFileErrorAndStays)
{
    std::filesystem::create_directory(state.file("TvlDBArr"));
    for (const std::function<int()>& change :
         {std::function<int()>(DBArrRefresh), std::function<int()>(DBArrAddAll),
          std::function<int()>([] { return DBArrDelete(3); }), std::function<int()>([this] { return add("Alba"); })}) {
        EXPECT_EQ(change(), DBArrResult::Failed);
        EXPECT_EQ(warnings(), (Texts{"TvlDBArrReading |Read only file"}));
        EXPECT_TRUE(std::filesystem::is_directory(state.file("TvlDBArr")));
    }
}

// Databases whose inside is damaged: each rule is kept to the letter, and nothing outside the file is touched.

TEST_F(Update, aRecordBehindAGapIsNotSeenUntilTheGapIsFilled)
{
    std::string file = database({{"Alba", 3}, {"x", 4}, {"Canto", 5}}, songs.path());
    file[52 + 26] = '\0';
    state.put("TvlDBArr", file);
    EXPECT_EQ(add("Balera"), DBArrResult::Done);
    EXPECT_EQ(DBArr.DBArrID, 6);
    std::string expected = database({{"Alba", 3}, {"Balera", 6}, {"Canto", 5}}, songs.path());
    expected[25974 + 1] = 1; // the number of the lost record is not given again
    EXPECT_EQ(onDisk(), expected);
    EXPECT_EQ(DBArrLookup(songs.file("Canto")), 5);
}

TEST_F(Update, unsortedRecordsAreSearchedToTheEndAndAddedToFromBehind)
{
    put({{"Zeta", 3}, {"Alba", 4}, {"Canto", 5}});
    EXPECT_EQ(add("alba"), DBArrResult::Done);
    EXPECT_EQ(DBArr.DBArrID, 4);
    EXPECT_EQ(add("Balera"), DBArrResult::Done);
    expectDisk({{"Zeta", 3}, {"Alba", 4}, {"Balera", 6}, {"Canto", 5}});
}

TEST_F(Update, aMapThatDisagreesWithTheRecordsIsTakenAtItsWord)
{
    std::string file = database({{"Alba", 3}}, songs.path());
    file.replace(25974, 997, std::string(997, '\x01'));
    state.put("TvlDBArr", file);
    EXPECT_EQ(add("Balera"), DBArrResult::Done);
    EXPECT_EQ(DBArr.DBArrID, 0) << "no number is free";
    EXPECT_EQ(onDisk(), file);
    file.replace(25974, 997, std::string(997, '\x02'));
    file[25974 + 996] = '\0';
    state.put("TvlDBArr", file);
    EXPECT_EQ(add("Balera"), DBArrResult::Done);
    EXPECT_EQ(DBArr.DBArrID, 999);
}

TEST_F(Update, numbersOutsideTheMapAreTakenOutWithoutTouchingIt)
{
    for (const int id : {0, 1, 2, 1000, 65535}) {
        std::string file = database({{"Alba", 3}, {"Balera", 4}}, songs.path());
        file[52 + 26 + 24] = static_cast<char>(id % 256);
        file[52 + 26 + 25] = static_cast<char>(id / 256);
        state.put("TvlDBArr", file);
        EXPECT_EQ(DBArrDelete(id), DBArrResult::Done);
        std::string expected = database({{"Alba", 3}}, songs.path());
        expected[25974 + 1] = 1;
        EXPECT_EQ(onDisk(), expected) << id;
    }
}

TEST_F(Update, anyBytesBehindTheSignatureAreTakenWithoutHarm)
{
    unsigned seed = 7;
    for (int round = 0; round < 60; ++round) {
        std::string file(27221, '\0');
        for (char& byte : file) {
            seed = seed * 1103515245U + 12345U;
            byte = static_cast<char>((seed >> 16) % (round % 3 == 0 ? 256U : 7U));
        }
        file.replace(0, 8, "TvlDBArr");
        std::string folder = songs.path();
        folder.resize(250, ' ');
        file.replace(26971, 250, folder);
        state.put("TvlDBArr", file);
        songs.put("Alba.arr", arrangement());
        EXPECT_EQ(add("Alba"), DBArrResult::Done);
        EXPECT_EQ(DBArrDelete(3 + round), DBArrResult::Done);
        EXPECT_EQ(DBArrAddAll(), DBArrResult::Done);
        EXPECT_EQ(DBArrRefresh(), DBArrResult::Done);
        const std::string after = onDisk();
        ASSERT_EQ(after.size(), 27221u);
        EXPECT_EQ(after.substr(0, 52), file.substr(0, 52));
        EXPECT_EQ(after.substr(26971), file.substr(26971));
        EXPECT_EQ(songs.fileCount(), 1u);
    }
    EXPECT_TRUE(user.warnings.empty());
}
