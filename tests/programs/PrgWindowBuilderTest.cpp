// The buffers of the program windows from damaged or short files, and what stays of a window in its session entry.
#include "programs/PrgWindowBuilder.h"

#include "files/FileReaders.h"
#include "programs/ProgramFixture.h"
#include "programs/ProgramRows.h"
#include "programs/ProgramSource.h"

namespace
{

class PrgBuilder : public ProgramTest
{
protected:
    PrgBuilder() { Files = {}; }
    ~PrgBuilder() override { Files = {}; }
    static SessionEntry entry(const std::string& path, int type = 0)
    {
        SessionEntry made;
        made.path = path;
        made.programType = type;
        made.used = true;
        return made;
    }
};

} // namespace

TEST_F(PrgBuilder, aHandOverBufferOfAnyLengthGivesAWholeTag)
{
    for (const std::size_t length : {0U, 1U, 47U, 48U, 49U, 11055U, 30479U, 30480U, 40000U}) {
        Files.PrgBuffer = std::string(length, '\x01');
        const WindowBuffer tag = PrgTagBuild(21, 1, entry("/music/song"));
        EXPECT_EQ(tag.bytes().size(), 270U + 30480U + 1344U);
        const std::size_t held = std::min<std::size_t>(length, 30480);
        EXPECT_EQ(tag.bytes().substr(270, 30480), std::string(held, '\x01') + std::string(30480 - held, '\0'));
        EXPECT_EQ(programRowTexts(tag.bytes()).size(), 64U);
    }
}

TEST_F(PrgBuilder, rowsOfAShortTagAreFreeAndNothingIsReadBehindIt)
{
    for (const std::size_t length : {0U, 1U, 20U, 318U, 319U, 321U, 340U}) {
        const std::string whole = std::string(1, '\x15') + std::string(400, '\x01');
        const std::string tag = whole.substr(0, length);
        const auto rows = programRowTexts(tag);
        ASSERT_EQ(rows.size(), length == 0 ? 0U : 64U);
        if (length > 0) {
            EXPECT_EQ(rows[1], "12");
            EXPECT_EQ(rows[63], "88");
        }
        EXPECT_EQ(anyProgramUsed(tag), length > 318);
        EXPECT_EQ(programChannel(tag), length > 285 ? 1 : 0);
    }
}

TEST_F(PrgBuilder, aWindowOfAnotherKindHasNoRows)
{
    for (const int kind : {0, 3, 11, 19, 20, 23, 255})
        EXPECT_TRUE(programRowTexts(tag(kind)).empty()) << kind;
}

TEST_F(PrgBuilder, theChannelOfAFileStandsInItAndThatOfABankInItsHead)
{
    for (const int kind : {21, 22, 4, 8, 9, 10}) {
        std::string bytes = tag(kind);
        setProgramChannel(bytes, 12);
        std::string wanted = tag(kind);
        wanted[kind >= 21 ? 285 : 15] = 12;
        EXPECT_EQ(bytes, wanted) << kind;
        EXPECT_EQ(programChannel(bytes), 12);
    }
}

TEST_F(PrgBuilder, theTypeOfAnEntryIsThatOfItsExtension)
{
    EXPECT_EQ(PrgTagBuild(21, 1, entry("/music/song", 1)).at(18), 1);
    EXPECT_EQ(PrgTagBuild(21, 1, entry("/music/song", 7)).at(18), 1) << "anything but 0 is a .pgg";
    EXPECT_EQ(PrgTagBuild(21, 1, entry("/music/song", 0)).at(18), 0);
    EXPECT_EQ(PrgTagBuild(22, 1, entry("/music/song", 1)).at(18), 0) << "a new file";
}

TEST_F(PrgBuilder, aClosedWindowKeepsItsPlaceAndGivesItsSlotBack)
{
    SessionEntry kept = entry("/music/song", 0);
    kept.Open = 1;
    WindowBuffer tag = PrgTagBuild(21, 1, kept);
    tag.set(18, 1); // it became a .pgg
    PrgSessionLeave(kept, tag, {30, 45, 6000, 7500});
    EXPECT_FALSE(kept.used);
    EXPECT_EQ(kept.Open, 0);
    EXPECT_EQ(kept.left, 30);
    EXPECT_EQ(kept.top, 45);
    EXPECT_EQ(kept.width, 6000);
    EXPECT_EQ(kept.height, 7500);
    EXPECT_EQ(kept.programType, 1);
}

TEST_F(PrgBuilder, anUntitledWindowLeavesTheSlotsPlaceAlone)
{
    SessionEntry kept;
    kept.width = 5000;
    kept.used = true;
    App.AppClosing = true;
    PrgSessionLeave(kept, PrgTagBuild(22, 1, kept), {30, 45, 6000, 7500});
    EXPECT_FALSE(kept.used);
    EXPECT_EQ(kept.Open, 0);
    EXPECT_EQ(kept.width, 5000);
    EXPECT_EQ(kept.path, "");
}
