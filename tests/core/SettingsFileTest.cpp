// The settings file byte for byte. Images are built here by hand from the table of its fields; every number is an
// offset, a record or a byte of the file.
#include "core/Settings.h"

#include "support/CoreRun.h"
#include "support/Hex.h"
#include "support/SettingsImage.h"

#include <gtest/gtest.h>

using namespace SettingsImage;

TEST(SettingsFile, isBornAsTheTableOfItsDefaultsSays)
{
    CoreRun run;
    Settings settings;
    SettingsFile::setDefaults(settings);
    expectSameBytes(SettingsFile::firstImage(settings), fresh(0));
}

TEST(SettingsFile, isBornWithNarrowerWindowsOnALargeFontScreen)
{
    CoreRun run;
    App.ScreenTwipsY = 12;
    Settings settings;
    SettingsFile::setDefaults(settings);
    std::string expected = fresh(0);
    for (const int row : {2, 3, 4, 5, 6, 7, 8, 17, 18})
        put(expected, rowAt(row) + 4, bytesOf("11 F8")); // 4600
    for (const int row : {9, 10, 11})
        put(expected, rowAt(row) + 4, bytesOf("07 30")); // 1840
    expectSameBytes(SettingsFile::firstImage(settings), expected);
}

TEST(SettingsFile, readsTheDefaultsBack)
{
    CoreRun run;
    Settings settings;
    settings.LastDirGbl = "/left/over";
    ASSERT_TRUE(SettingsFile::decode(fresh(2), settings));
    EXPECT_EQ(settings.Language, 2);
    EXPECT_TRUE(settings.StatusBar);
    EXPECT_FALSE(settings.ReadOnlyOpen || settings.SettingSpare1 || settings.SettingSpare2 || settings.AutoStyNewArr ||
                 settings.AutoSty || settings.StyleOption || settings.AutoPrg || settings.AutoDBArr ||
                 settings.AutoArr || settings.ThruOn || settings.GlobalValid);
    const std::array<int, 16> keyboard = {0, 1, 0, 2, 100, 64, 64, 64, 0, 0, 64, 0, 0, 0, 0, 60};
    EXPECT_EQ(settings.KeyboardState, keyboard);
    const std::array<int, 10> channels = {0, 0, 0, 0, 9, 10, 11, 12, 13, 14};
    EXPECT_EQ(settings.TrackChannels, channels);
    EXPECT_EQ(settings.DeviceMode, 0);
    EXPECT_EQ(settings.GlobalChannel, 0);
    EXPECT_EQ(settings.WinPos[1].Open, 2) << "maximised";
    EXPECT_EQ(settings.WinPos[4].Extra, 1);
    EXPECT_EQ(settings.WinPos[11].Extra, 0);
    EXPECT_EQ(settings.WinPos[11].width, 1920) << "the find window is as wide as the drum windows";
    EXPECT_EQ(settings.WinPos[11].height, 7780);
    EXPECT_EQ(settings.WinPos[12].height, 6072);
    EXPECT_EQ(settings.WinPos[12].width, 4308);
    EXPECT_EQ(settings.WinPos[13].height, 5916);
    EXPECT_EQ(settings.WinPos[13].width, 9228);
    EXPECT_EQ(settings.WinPos[14].width, 0);
    EXPECT_EQ(settings.WinPos[14].height, 0);
    EXPECT_EQ(settings.WinPos[15].height, 5532);
    EXPECT_EQ(settings.WinPos[15].width, 9288);
    EXPECT_EQ(settings.WinPos[16].width, 5760);
    EXPECT_EQ(settings.WinPos[16].height, 8000);
    EXPECT_EQ(settings.WinPos[2].left, 0);
    EXPECT_EQ(settings.LastDirFiles, "");
    EXPECT_EQ(settings.LastDirPrg, "");
    EXPECT_EQ(settings.LastDirGbl, "");
    EXPECT_EQ(settings.GblCurrent, "");
    for (const SessionEntry& entry : settings.Programs)
        EXPECT_EQ(entry.path + std::to_string(entry.Open), "0");
    for (const RecentEntry& entry : settings.Recent) {
        EXPECT_EQ(entry.path + std::to_string(entry.kind), "0");
        EXPECT_EQ(entry.kept, std::string(250, ' '));
    }
}

TEST(SettingsFile, readsEachFlagFromItsOwnByte)
{
    CoreRun run;
    const struct {
        std::size_t offset;
        bool Settings::*flag;
    } rows[] = {{16, &Settings::ReadOnlyOpen},  {17, &Settings::SettingSpare1}, {18, &Settings::SettingSpare2},
                {19, &Settings::AutoStyNewArr}, {20, &Settings::AutoSty},       {21, &Settings::StyleOption},
                {22, &Settings::AutoPrg},       {25, &Settings::AutoDBArr},     {26, &Settings::StatusBar},
                {27, &Settings::AutoArr},       {45, &Settings::ThruOn},        {48, &Settings::GlobalValid}};
    for (const auto& row : rows) {
        std::string image = fresh(1);
        image[26] = 0;
        image[row.offset] = 1;
        Settings settings;
        ASSERT_TRUE(SettingsFile::decode(image, settings));
        for (const auto& other : rows)
            EXPECT_EQ(settings.*other.flag, other.offset == row.offset) << row.offset << " " << other.offset;
        expectSameBytes(SettingsFile::encode(settings, image).substr(0, 250), image.substr(0, 250));

        image[row.offset] = '\x7F';
        ASSERT_TRUE(SettingsFile::decode(image, settings));
        EXPECT_EQ(settings.*row.flag, row.offset != 16) << "only offset 16 asks for the value 1";
    }
}

TEST(SettingsFile, writesItsFieldsAndLeavesTheOtherBytesOfRecord1)
{
    CoreRun run;
    std::string image = fresh(1);
    for (const std::size_t unused : {10U, 15U, 23U, 28U, 47U, 49U, 212U, 224U, 248U, 249U})
        image[unused] = '\xA5';
    put(image, 3 * 250, std::string(250, '\x5A'));      // record 4
    put(image, 28 * 250, std::string(8 * 250, '\x5A')); // records 29 to 36
    put(image, 36 * 250, std::string(2 * 250, '\x3C')); // records 37 and 38, no global block
    put(image, 1 * 250 + 238, std::string(12, '\x77')); // behind the folder of record 2
    Settings settings;
    ASSERT_TRUE(SettingsFile::decode(image, settings));
    std::string expected = image;
    put(expected, 1 * 250, std::string(238, ' ')); // the folders are blank padded
    put(expected, 2 * 250, std::string(238, ' '));
    expectSameBytes(SettingsFile::encode(settings, image), expected);
}

TEST(SettingsFile, writesEveryChangedFieldAtItsPlace)
{
    CoreRun run;
    Settings settings;
    ASSERT_TRUE(SettingsFile::decode(fresh(1), settings));
    settings.ReadOnlyOpen = settings.AutoArr = settings.ThruOn = true;
    settings.StatusBar = false;
    settings.Language = 2;
    settings.DeviceMode = 2;
    settings.GlobalChannel = 15;
    settings.KeyboardState = {9, 8, 7, 6, 5, 4, 3, 2, 1, 0, 127, 126, 125, 124, 123, 255};
    settings.TrackChannels = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10};
    settings.WinPos[1] = {-120, 300, 12000, 9000, 0, 0};
    settings.WinPos[4] = {100, 200, 4000, 5000, 1, 15};
    settings.WinPos[18] = {1, 2, 3, 4, 1, 0};
    settings.LastDirFiles = "/home/anna/music";
    settings.LastDirPrg = "/home/anna/sounds";

    std::string expected = fresh(2);
    expected[16] = expected[27] = expected[45] = 1;
    expected[26] = 0;
    expected[46] = 2;
    put(expected, 29, bytesOf("09 08 07 06 05 04 03 02 01 00 7F 7E 7D 7C 7B FF"));
    put(expected, 213, bytesOf("0F 01 02 03 04 05 06 07 08 09 0A"));
    put(expected, rowAt(1), bytesOf("3E 08  3F AC  2E E0  23 28  00"));
    put(expected, rowAt(4), bytesOf("3E E4  3F 48  0F A0  13 88  F1"));
    put(expected, rowAt(18), bytesOf("3E 81  3E 82  00 03  00 04  01"));
    put(expected, 250, "/home/anna/music" + std::string(222, ' '));
    put(expected, 500, "/home/anna/sounds" + std::string(221, ' '));
    expectSameBytes(SettingsFile::encode(settings, fresh(1)), expected);

    Settings again;
    ASSERT_TRUE(SettingsFile::decode(expected, again));
    EXPECT_EQ(again.WinPos[1].left, -120);
    EXPECT_EQ(again.WinPos[4].Open, 1);
    EXPECT_EQ(again.WinPos[4].Extra, 15);
    EXPECT_EQ(again.DeviceMode, 2);
    EXPECT_EQ(again.GlobalChannel, 15);
    EXPECT_EQ(again.KeyboardState, settings.KeyboardState);
    EXPECT_EQ(again.TrackChannels, settings.TrackChannels);
    EXPECT_EQ(again.LastDirFiles, "/home/anna/music");
    EXPECT_EQ(again.LastDirPrg, "/home/anna/sounds");
}

TEST(SettingsFile, keepsAWindowsStateForTheRowsThatReopen)
{
    CoreRun run;
    std::string image = fresh(1);
    for (int row = 1; row <= 18; ++row)
        image[rowAt(row) + 8] = '\x21';
    Settings settings;
    ASSERT_TRUE(SettingsFile::decode(image, settings));
    for (const int row : {4, 5, 6, 7, 8, 9, 10}) {
        EXPECT_EQ(settings.WinPos[static_cast<std::size_t>(row)].Open, 1) << row;
        EXPECT_EQ(settings.WinPos[static_cast<std::size_t>(row)].Extra, 2) << row;
    }
    for (const int row : {1, 2, 3, 11, 12, 15, 16}) {
        EXPECT_EQ(settings.WinPos[static_cast<std::size_t>(row)].Open, 0x21) << row;
        EXPECT_EQ(settings.WinPos[static_cast<std::size_t>(row)].Extra, 0) << row;
    }
    for (const int row : {13, 14, 17, 18}) {
        EXPECT_EQ(settings.WinPos[static_cast<std::size_t>(row)].Open, 0) << row;
        EXPECT_EQ(settings.WinPos[static_cast<std::size_t>(row)].Extra, 0) << row;
    }
}

TEST(SettingsFile, clampsPlacesAndSizesInBothDirections)
{
    CoreRun run;
    Settings settings;
    ASSERT_TRUE(SettingsFile::decode(fresh(1), settings));
    settings.WinPos[2] = {-20000, 20000, -5, 40000, 0, 0};
    settings.WinPos[3] = {-16000, 16000, 0, 32767, 0, 0};
    const std::string image = SettingsFile::encode(settings, fresh(1));
    EXPECT_EQ(hex(image.substr(rowAt(2), 9)), "00 00 7D 00 00 00 7F FF 00");
    EXPECT_EQ(hex(image.substr(rowAt(3), 9)), "00 00 7D 00 00 00 7F FF 00");

    std::string wild = fresh(1);
    put(wild, rowAt(2), bytesOf("00 00  FF FF  FF FF  80 00  00"));
    ASSERT_TRUE(SettingsFile::decode(wild, settings));
    EXPECT_EQ(settings.WinPos[2].left, -16000);
    EXPECT_EQ(settings.WinPos[2].top, 16000);
    EXPECT_EQ(settings.WinPos[2].width, 32767);
    EXPECT_EQ(settings.WinPos[2].height, 32767);
}

TEST(SettingsFile, writesAProgramEntryByteForByte)
{
    CoreRun run;
    Settings settings;
    ASSERT_TRUE(SettingsFile::decode(fresh(1), settings));
    SessionEntry entry;
    entry.path = "/home/anna/my.sounds";
    entry.width = 4810;
    entry.height = 7780;
    entry.left = -20000;
    entry.top = 1500;
    entry.Open = 1;
    entry.kind = 21;
    entry.readOnly = true;
    entry.programType = 1;
    settings.Programs[0] = settings.Programs[7] = settings.Programs[15] = entry;

    const std::string record =
        "/home/anna/my.sounds" + std::string(218, ' ') + bytesOf("12 CA  01  15  00 00  44 5C  01  01  1E 64");
    ASSERT_EQ(record.size(), 250U);
    const std::string image = SettingsFile::encode(settings, std::string(11500, '\x11'));
    expectSameBytes(recordIn(image, 5), record);
    expectSameBytes(recordIn(image, 6), std::string(250, '\0'));
    expectSameBytes(recordIn(image, 12), record);
    expectSameBytes(recordIn(image, 20), record);

    Settings again;
    ASSERT_TRUE(SettingsFile::decode(image, again));
    EXPECT_EQ(again.Programs[7].path, "/home/anna/my.sounds");
    EXPECT_EQ(again.Programs[7].left, -16000);
    EXPECT_EQ(again.Programs[7].top, 1500);
    EXPECT_EQ(again.Programs[7].width, 4810);
    EXPECT_EQ(again.Programs[7].height, 7780);
    EXPECT_EQ(again.Programs[7].Open, 1);
    EXPECT_EQ(again.Programs[7].kind, 21);
    EXPECT_TRUE(again.Programs[7].readOnly);
    EXPECT_EQ(again.Programs[7].programType, 1);
    EXPECT_EQ(again.Programs[15].path, "") << "sixteen are written, eight are read";
    EXPECT_EQ(again.Programs[15].Open, 0);
}

TEST(SettingsFile, writesAnArrangementEntryByteForByte)
{
    CoreRun run;
    Settings settings;
    ASSERT_TRUE(SettingsFile::decode(fresh(1), settings));
    SessionEntry entry;
    entry.path = "/a/song";
    entry.width = 32767;
    entry.height = 1;
    entry.left = 16000;
    entry.top = -16000;
    entry.Open = 1;
    entry.kind = 19;
    entry.programType = 1;
    settings.Arrangements[7] = entry;
    entry.Open = 0;
    settings.Arrangements[0] = entry;

    const std::string image = SettingsFile::encode(settings, fresh(1));
    expectSameBytes(recordIn(image, 28),
                    "/a/song" + std::string(231, ' ') + bytesOf("7F FF  01  00  7D 00  00 00  00  00  00 01"));
    expectSameBytes(recordIn(image, 21), std::string(250, '\0'));

    Settings again;
    ASSERT_TRUE(SettingsFile::decode(image, again));
    EXPECT_EQ(again.Arrangements[7].path, "/a/song");
    EXPECT_EQ(again.Arrangements[7].left, 16000);
    EXPECT_EQ(again.Arrangements[7].top, -16000);
    EXPECT_FALSE(again.Arrangements[7].readOnly);
    EXPECT_FALSE(again.Arrangements[7].used) << "of this run only";
}

TEST(SettingsFile, cutsAPathAt238Bytes)
{
    CoreRun run;
    Settings settings;
    ASSERT_TRUE(SettingsFile::decode(fresh(1), settings));
    settings.LastDirFiles = settings.Arrangements[0].path = settings.Recent[0].path = std::string(300, 'p');
    settings.Arrangements[0].Open = 1;
    settings.Recent[0].kind = 1;
    const std::string image = SettingsFile::encode(settings, fresh(1));
    EXPECT_EQ(recordIn(image, 2), std::string(238, 'p') + std::string(12, '\0'));
    EXPECT_EQ(recordIn(image, 21).substr(0, 240), std::string(238, 'p') + std::string(2, '\0'));
    EXPECT_EQ(recordIn(image, 39).substr(0, 242), std::string(238, 'p') + "  " + " " + "\x01");
    ASSERT_TRUE(SettingsFile::decode(image, settings));
    EXPECT_EQ(settings.LastDirFiles, std::string(238, 'p'));
    EXPECT_EQ(settings.Arrangements[0].path, std::string(238, 'p'));
    EXPECT_EQ(settings.Recent[0].path, std::string(238, 'p'));
}

TEST(SettingsFile, keepsTheUnusedBytesOfARecentEntry)
{
    CoreRun run;
    std::string image = fresh(1);
    const std::string record = "/a/old" + std::string(232, ' ') + bytesOf("DE AD  5A  02  BE EF  CA FE  01  77  12 34");
    put(image, 38 * 250, record);
    Settings settings;
    ASSERT_TRUE(SettingsFile::decode(image, settings));
    EXPECT_EQ(settings.Recent[0].path, "/a/old");
    EXPECT_EQ(settings.Recent[0].kind, 2);
    EXPECT_TRUE(settings.Recent[0].readOnly);
    expectSameBytes(recordIn(SettingsFile::encode(settings, image), 39), record);

    settings.Recent[0].path = "/b/newer";
    settings.Recent[0].kind = 5;
    settings.Recent[0].readOnly = false;
    expectSameBytes(recordIn(SettingsFile::encode(settings, image), 39),
                    "/b/newer" + std::string(230, ' ') + bytesOf("DE AD  5A  05  BE EF  CA FE  00  77  12 34"));
}

TEST(SettingsFile, writesANewRecentEntryAndLeavesFreeOnesBlank)
{
    CoreRun run;
    Settings settings;
    ASSERT_TRUE(SettingsFile::decode(fresh(1), settings));
    settings.Recent[7].path = "/a/song";
    settings.Recent[7].kind = 1;
    settings.Recent[7].readOnly = true;
    settings.Recent[7].kept = "short";
    const std::string image = SettingsFile::encode(settings, fresh(1));
    expectSameBytes(recordIn(image, 39), std::string(250, ' '));
    expectSameBytes(recordIn(image, 46),
                    "/a/song" + std::string(231, ' ') + bytesOf("00 00  00  01  00 00  00 00  01  00  00 00"));
}

TEST(SettingsFile, takesARecentEntryOfNoKnownKindAsFreeAndLeavesItsBytes)
{
    CoreRun run;
    for (const char kind : {'\0', '\x06', ' ', '\xFF'}) {
        std::string image = fresh(1);
        put(image, 38 * 250, "/a/song" + std::string(231, ' '));
        image[38 * 250 + 241] = kind;
        Settings settings;
        ASSERT_TRUE(SettingsFile::decode(image, settings));
        EXPECT_EQ(settings.Recent[0].path, "");
        expectSameBytes(recordIn(SettingsFile::encode(settings, image), 39), recordIn(image, 39));
    }
}

TEST(SettingsFile, keepsTheGlobalBlockInTwoRecordsWhileItIsValid)
{
    CoreRun run;
    std::string block;
    for (int i = 0; i < 448; ++i)
        block += static_cast<char>(i * 7 % 251);
    Settings settings;
    ASSERT_TRUE(SettingsFile::decode(fresh(1), settings));
    settings.GlobalValid = true;
    settings.GblCurrent = block;
    const std::string image = SettingsFile::encode(settings, fresh(1));
    EXPECT_EQ(image[48], 1);
    expectSameBytes(recordIn(image, 37), block.substr(0, 250));
    expectSameBytes(recordIn(image, 38), block.substr(250) + std::string(52, ' '));
    Settings again;
    ASSERT_TRUE(SettingsFile::decode(image, again));
    EXPECT_EQ(again.GblCurrent, block);

    again.GlobalValid = false;
    const std::string without = SettingsFile::encode(again, image);
    EXPECT_EQ(without[48], 0);
    expectSameBytes(recordIn(without, 37), recordIn(image, 37));
    ASSERT_TRUE(SettingsFile::decode(without, again));
    EXPECT_EQ(again.GblCurrent, "");
}

TEST(SettingsFile, refusesAnImageWithoutSignatureOrLanguageAndChangesNothing)
{
    CoreRun run;
    std::vector<std::string> images = {"", "Tarvolyne", std::string(11500, '\0'), std::string(11500, ' ')};
    for (std::size_t i = 0; i < 10; ++i) {
        images.push_back(fresh(1));
        images.back()[i] = static_cast<char>(images.back()[i] ^ 0x20);
    }
    for (const int language : {0, 3, 32, 255})
        images.push_back(fresh(language));
    images.push_back(fresh(1).substr(0, 24));
    for (const std::string& image : images) {
        Settings settings;
        settings.LastDirPrg = "/kept";
        settings.Language = 7;
        EXPECT_FALSE(SettingsFile::decode(image, settings)) << hex(image.substr(0, 26));
        EXPECT_EQ(settings.LastDirPrg, "/kept");
        EXPECT_EQ(settings.Language, 7);
    }
}

TEST(SettingsFile, takesAGlobalChannelThatIsNoneAsTheFirst)
{
    CoreRun run;
    Settings settings;
    std::string image = fresh(1);
    for (const char channel : {'\x10', '\x7F', '\xC8', '\xFF'}) {
        image[213] = channel;
        ASSERT_TRUE(SettingsFile::decode(image, settings));
        EXPECT_EQ(settings.GlobalChannel, 0);
    }
    image[213] = 15;
    ASSERT_TRUE(SettingsFile::decode(image, settings));
    EXPECT_EQ(settings.GlobalChannel, 15);
}

TEST(SettingsFile, readsAShortImageAsIfNulBytesFollowed)
{
    CoreRun run;
    Settings settings;
    ASSERT_TRUE(SettingsFile::decode(fresh(2).substr(0, 25), settings));
    EXPECT_EQ(settings.Language, 2);
    EXPECT_FALSE(settings.StatusBar);
    EXPECT_EQ(settings.WinPos[1].left, -16000);
    EXPECT_EQ(settings.WinPos[16].width, 0);
    EXPECT_EQ(settings.Recent[7].path, "");

    std::string cut = fresh(1);
    put(cut, 20 * 250, "/a/song" + std::string(231, ' ') + bytesOf("10 00 01"));
    cut.resize(20 * 250 + 241);
    ASSERT_TRUE(SettingsFile::decode(cut, settings));
    EXPECT_EQ(settings.Arrangements[0].path, "/a/song");
    EXPECT_EQ(settings.Arrangements[0].Open, 1);
    EXPECT_EQ(settings.Arrangements[0].left, -16000);
}

TEST(SettingsFile, writesExactly46Records)
{
    CoreRun run;
    Settings settings;
    ASSERT_TRUE(SettingsFile::decode(fresh(1), settings));
    EXPECT_EQ(SettingsFile::encode(settings, "").size(), 11500U);
    EXPECT_EQ(SettingsFile::encode(settings, fresh(1) + "more").size(), 11500U);
}
