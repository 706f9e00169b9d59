// The record by which several programs share the instrument: its fields, its life on the disk, its errors.
#include "core/StateFiles.h"

#include "support/CoreRun.h"
#include "support/Hex.h"
#include "support/OtherUser.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

namespace
{

constexpr const char* File = "Dornflex";

/// The record as a first run writes it, built by hand.
std::string freshRecord()
{
    const std::string text = std::string(24, ' ') + '\0';
    return "Dornflex" + std::string(42, '\0') + text + text + text + std::string(20, '\0');
}

} // namespace

TEST(DeviceRecord, isBornWithBlankTextsAndNoUser)
{
    CoreRun run;
    DeviceRecordInit();
    EXPECT_EQ(hex(Device.bytes), hex(freshRecord()));
    EXPECT_EQ(Device.bytes.size(), 145U);
    EXPECT_TRUE(Device.signatureGood());
    EXPECT_EQ(Device.UserCount(), 0);
    EXPECT_EQ(Device.ThisProgramIn(), 0);
    EXPECT_EQ(run.folder.fileCount(), 0U);
}

TEST(DeviceRecord, isCreatedOnDiskWithoutAWord)
{
    CoreRun run;
    DeviceRecordCreate();
    EXPECT_EQ(hex(run.folder.get(File)), hex(freshRecord()));
    EXPECT_TRUE(run.user.warnings.empty());
    EXPECT_EQ(App.ErrTitle, "Apertura di Dornflex");
}

TEST(DeviceRecord, reportsACreationThatFailsUnderItsOwnTitle)
{
    CoreRun run;
    std::filesystem::create_directory(run.folder.file(File));
    run.speak(2);
    DeviceRecordCreate();
    EXPECT_EQ(run.user.warnings, (std::vector<ScriptedUser::Said>{{"Opening Dornflex", "Read only file"}}));
    App.StateDir = run.folder.file("absent");
    run.speak(1);
    DeviceRecordCreate();
    EXPECT_EQ(run.user.warnings.back(),
              (ScriptedUser::Said{"Apertura di Dornflex", "Impossibile trovare il percorso"}));
}

TEST(DeviceRecord, writesItsFieldsLowByteFirst)
{
    CoreRun run;
    DeviceRecordInit();
    Device.setUserCount(1);
    Device.setThisProgramIn(1);
    Device.setSharedOutHandle(0x12345678);
    Device.setSharedInHandle(-2);
    EXPECT_EQ(DeviceRecordWrite(), 0);
    std::string expected = freshRecord();
    expected.replace(10, 5, bytesOf("78 56 34 12 01"));
    expected[18] = 1;
    expected.replace(46, 4, bytesOf("FE FF FF FF"));
    EXPECT_EQ(hex(run.folder.get(File)), hex(expected));
    Device = {};
    EXPECT_EQ(DeviceRecordRead(), 0);
    EXPECT_EQ(Device.SharedOutHandle(), 0x12345678);
    EXPECT_EQ(Device.SharedInHandle(), -2);
    EXPECT_EQ(Device.UserCount(), 1);
    EXPECT_EQ(Device.ThisProgramIn(), 1);
}

TEST(DeviceRecord, keepsHandlesAndCountsAtTheirLimits)
{
    CoreRun run;
    DeviceRecordInit();
    Device.setSharedOutHandle(INT32_MAX);
    Device.setSharedInHandle(INT32_MIN);
    Device.setUserCount(255);
    EXPECT_EQ(hex(Device.bytes.substr(10, 5)), "FF FF FF 7F FF");
    EXPECT_EQ(hex(Device.bytes.substr(46, 4)), "00 00 00 80");
    EXPECT_EQ(Device.SharedOutHandle(), INT32_MAX);
    EXPECT_EQ(Device.SharedInHandle(), INT32_MIN);
    EXPECT_EQ(Device.UserCount(), 255);
}

TEST(DeviceRecord, handsTheFieldsOfOtherProgramsOnUnchanged)
{
    CoreRun run;
    std::string record = freshRecord();
    record[8] = 'x';
    record[9] = 7;
    record.replace(15, 3, bytesOf("01 00 01"));
    record.replace(19, 27, std::string(27, 's'));
    record.replace(50, 95, std::string(95, 't'));
    run.folder.put(File, record);
    EXPECT_EQ(DeviceRecordRead(), 0);
    Device.setUserCount(2);
    Device.setThisProgramIn(1);
    EXPECT_EQ(DeviceRecordWrite(), 0);
    record[14] = 2;
    record[18] = 1;
    EXPECT_EQ(hex(run.folder.get(File)), hex(record));
}

TEST(DeviceRecord, readsAnAbsentEmptyOrShortFileAsNulBytes)
{
    CoreRun run;
    EXPECT_EQ(DeviceRecordRead(), 0);
    EXPECT_EQ(Device.bytes, std::string(145, '\0'));
    EXPECT_FALSE(Device.signatureGood());
    EXPECT_EQ(run.folder.fileCount(), 0U) << "reading creates nothing";
    run.folder.put(File, "");
    EXPECT_EQ(DeviceRecordRead(), 0);
    EXPECT_FALSE(Device.signatureGood());
    run.folder.put(File, freshRecord().substr(0, 12));
    EXPECT_EQ(DeviceRecordRead(), 0);
    EXPECT_TRUE(Device.signatureGood());
    EXPECT_EQ(Device.bytes.size(), 145U);
    EXPECT_EQ(Device.UserCount(), 0);
}

TEST(DeviceRecord, readsTheFirst145BytesOfALongFileAndWritesNoMore)
{
    CoreRun run;
    run.folder.put(File, freshRecord() + std::string(500, 'x'));
    EXPECT_EQ(DeviceRecordRead(), 0);
    EXPECT_EQ(Device.bytes, freshRecord());
    EXPECT_EQ(DeviceRecordWrite(), 0);
    EXPECT_EQ(run.folder.get(File).size(), 145U);
}

TEST(DeviceRecord, knowsADamagedSignature)
{
    CoreRun run;
    for (std::size_t i = 0; i < 8; ++i) {
        std::string record = freshRecord();
        record[i] = static_cast<char>(record[i] ^ 0x20);
        run.folder.put(File, record);
        EXPECT_EQ(DeviceRecordRead(), 0);
        EXPECT_FALSE(Device.signatureGood()) << i;
    }
}

TEST(DeviceRecord, staysInMemoryWhenReadingFails)
{
    CoreRun run;
    DeviceRecordInit();
    Device.setUserCount(3);
    std::filesystem::create_directory(run.folder.file(File));
    EXPECT_EQ(DeviceRecordRead(), 75);
    EXPECT_EQ(DeviceRecordWrite(), 75);
    EXPECT_EQ(DeviceRecordDelete(), 75);
    EXPECT_EQ(Device.UserCount(), 3);
}

TEST(DeviceRecord, answersAccessDeniedForAFileThatMayNotBeWritten)
{
    CoreRun run;
    openToAll(run.folder.path());
    const std::string path = run.folder.put(File, freshRecord());
    chmod(path.c_str(), 0444);
    EXPECT_EQ(asOrdinaryUser([] { return DeviceRecordRead() == 0 ? DeviceRecordWrite() : 1; }), 75);
    EXPECT_EQ(run.folder.get(File), freshRecord());
}

TEST(DeviceRecord, isDeleted)
{
    CoreRun run;
    DeviceRecordCreate();
    EXPECT_EQ(DeviceRecordDelete(), 0);
    EXPECT_FALSE(run.folder.has(File));
    EXPECT_EQ(DeviceRecordDelete(), 0);
}
