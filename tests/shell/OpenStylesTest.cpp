// Style files opened by the user and new ones: the slot, its entry, the template, and what stands in the way.
#include "shell/OpenDispatch.h"

#include "shell/RecentFiles.h"
#include "shell/ShellFixture.h"
#include "support/StyleFiles.h"

namespace
{

using Lines = std::vector<std::string>;
using Windows = std::vector<std::pair<int, int>>;

class OpeningStyles : public ShellTest
{
protected:
    OpeningStyles()
    {
        App.PathSty = songs.file("TvlSty");
        maker = [this](int kind, int slot) {
            windows.emplace_back(kind, slot);
            return windowsExist;
        };
    }

    WindowMaker maker;
    bool windowsExist = true;
    Windows windows;
};

} // namespace

TEST_F(OpeningStyles, aNewFileTakesTheLowestFreeSlotWithFourEmptyStylesAndIsOnNoList)
{
    songs.put("TvlSty", styFile(Slots(4, {"Own Name", 1176})));
    App.Styles[0].used = App.Styles[2].used = true;
    App.Styles[1].path = "/music/earlier";
    App.Styles[1].readOnly = App.Styles[1].linked = true;
    EXPECT_TRUE(openNewStyles(maker));
    EXPECT_EQ(windows, (Windows{{24, 2}}));
    EXPECT_TRUE(App.Styles[1].used);
    EXPECT_EQ(App.Styles[1].path, "");
    EXPECT_FALSE(App.Styles[1].readOnly);
    EXPECT_FALSE(App.Styles[1].linked);
    ASSERT_EQ(Files.StyBuffer.size(), 4928U);
    for (const std::size_t name : {224U, 1400U, 2576U, 3752U})
        EXPECT_EQ(Files.StyBuffer.substr(name, 9), "- empty -");
    EXPECT_EQ(App.Recent[0].path, "");
    EXPECT_TRUE(warnings().empty());
}

TEST_F(OpeningStyles, aNewFileWithoutItsTemplateIsToldAndTakesNoSlot)
{
    EXPECT_FALSE(openNewStyles(maker));
    songs.put("TvlSty", "short");
    EXPECT_FALSE(openNewStyles(maker));
    EXPECT_EQ(warnings(), Lines(2, "Tarvolyne - Tarvolyne Console |File " + App.PathSty + " assente"));
    EXPECT_EQ(user.notices.size(), 1U) << "the reader's own word on a file that is none";
    EXPECT_TRUE(windows.empty());
    songs.put("TvlSty", emptyStyles());
    windowsExist = false;
    EXPECT_FALSE(openNewStyles(maker));
    EXPECT_FALSE(App.Styles[0].used);
}

TEST_F(OpeningStyles, aNinthNewFileIsNotOpened)
{
    songs.put("TvlSty", emptyStyles());
    for (SessionEntry& entry : App.Styles)
        entry.used = true;
    EXPECT_FALSE(openNewStyles(maker));
    EXPECT_TRUE(windows.empty());
}

TEST_F(OpeningStyles, aFileOpenedByTheUserIsNoArrangements)
{
    App.Styles[0].linked = true;
    const std::string path = songs.put("song.sty", emptyStyles());
    user.files.push_back({true, path, 2, true});
    EXPECT_TRUE(openByDialog(23, maker));
    EXPECT_EQ(windows, (Windows{{23, 1}}));
    EXPECT_TRUE(App.Styles[0].used);
    EXPECT_TRUE(App.Styles[0].readOnly);
    EXPECT_FALSE(App.Styles[0].linked);
    EXPECT_EQ(App.Styles[0].path, songs.file("song"));
    EXPECT_EQ(recentPath(0), path);
}
