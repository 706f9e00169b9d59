// The recent list and its captions.
#include "shell/RecentFiles.h"

#include "shell/ShellFixture.h"

namespace
{

using RecentFiles = ShellTest;

std::vector<std::string> list()
{
    std::vector<std::string> paths;
    for (int index = 0; index < 8 && !recentPath(index).empty(); ++index)
        paths.push_back(recentPath(index));
    return paths;
}

using Lines = std::vector<std::string>;

/// The caption of a path put first.
std::string captionOf(const std::string& path)
{
    App.Recent = {};
    RecentAdd(path, false);
    return RecentCaption(0);
}

} // namespace

TEST_F(RecentFiles, growDownwardsOldestFirst)
{
    RecentAdd("/m/a.arr", false);
    RecentAdd("/m/b.sty", true);
    RecentAdd("/m/c.pgg", false);
    EXPECT_EQ(list(), (Lines{"/m/a.arr", "/m/b.sty", "/m/c.pgg"}));
    EXPECT_TRUE(App.Recent[1].readOnly);
    EXPECT_EQ(App.Recent[0].kind, 1);
    EXPECT_EQ(App.Recent[1].kind, 2);
    EXPECT_EQ(App.Recent[2].kind, 4);
    EXPECT_EQ(App.Recent[2].path, "/m/c");
}

TEST_F(RecentFiles, aFileOnTheListKeepsItsPlaceAndItsMark)
{
    RecentAdd("/m/a.arr", false);
    RecentAdd("/m/b.arr", false);
    RecentAdd("/m/a.arr", true);
    EXPECT_EQ(list(), (Lines{"/m/a.arr", "/m/b.arr"}));
    EXPECT_FALSE(App.Recent[0].readOnly);
}

TEST_F(RecentFiles, theSameStemOfAnotherKindIsAnotherFile)
{
    RecentAdd("/m/a.arr", false);
    RecentAdd("/m/a.sty", false);
    EXPECT_EQ(list().size(), 2U);
}

TEST_F(RecentFiles, fromTheNinthOnANewFileComesFirstAndTheLastDropsOut)
{
    for (int number = 1; number <= 8; ++number)
        RecentAdd("/m/" + std::to_string(number) + ".arr", false);
    RecentAdd("/m/9.arr", false);
    EXPECT_EQ(list(),
              (Lines{"/m/9.arr", "/m/1.arr", "/m/2.arr", "/m/3.arr", "/m/4.arr", "/m/5.arr", "/m/6.arr", "/m/7.arr"}));
    RecentAdd("/m/10.gbl", true);
    EXPECT_EQ(list().front(), "/m/10.gbl");
    EXPECT_EQ(list().back(), "/m/6.arr");
    EXPECT_TRUE(App.Recent[0].readOnly);
}

TEST_F(RecentFiles, aPathThatItsFieldWouldCutIsNotTaken)
{
    RecentAdd("/" + std::string(237, 'x') + ".arr", false); // 238 bytes without the extension
    EXPECT_EQ(list().size(), 1U);
    RecentAdd("/" + std::string(238, 'x') + ".arr", false);
    RecentAdd("/m/name .arr", false);
    EXPECT_EQ(list().size(), 1U);
}

TEST_F(RecentFiles, aFileWithoutAKnownExtensionIsNotTaken)
{
    RecentAdd("/m/TvlArrA", false);
    EXPECT_TRUE(list().empty());
}

TEST_F(RecentFiles, aPathOf35CharactersIsNotShortened)
{
    const std::string path = "/home/anna/music/gigs/live/2024.arr"; // 35
    ASSERT_EQ(path.size(), 35U);
    EXPECT_EQ(captionOf(path), "&1  /home/anna/music/gigs/live/2024.arr");
}

TEST_F(RecentFiles, aPathOf36CharactersIs)
{
    const std::string path = "/home/anna/music/gigs/lives/2024.arr"; // 36
    ASSERT_EQ(path.size(), 36U);
    // Behind the first "/" from the fourth character on stand 30 characters, behind the next 25.
    EXPECT_EQ(captionOf(path), "&1  /ho.../music/gigs/lives/2024.arr");
}

TEST_F(RecentFiles, theTailMayBe28CharactersLong)
{
    // "/home/" and 28 characters of tail, then one more.
    const std::string tail28 = "musicbox/" + std::string(15, 'x') + ".arr";
    ASSERT_EQ(tail28.size(), 28U);
    EXPECT_EQ(captionOf("/home77/" + tail28), "&1  /ho.../" + tail28);
    EXPECT_EQ(captionOf("/home77/a" + tail28), "&1  /ho.../" + tail28.substr(9));
}

TEST_F(RecentFiles, aNameLongerThanTheTailIsCutBehind28Characters)
{
    const std::string name = std::string(28, 'n') + "tail.arr";
    EXPECT_EQ(captionOf("/home/anna/" + name), "&1  /ho.../" + std::string(28, 'n') + "...");
}

TEST_F(RecentFiles, withoutASeparatorBehindTheFrontTheFirst35CharactersStay)
{
    const std::string path = "/" + std::string(40, 'y') + ".arr";
    EXPECT_EQ(captionOf(path), "&1  /" + std::string(34, 'y') + "...");
    EXPECT_EQ(captionOf("/m/" + std::string(40, 'y') + ".arr"), "&1  /m/" + std::string(32, 'y') + "...");
}

TEST_F(RecentFiles, captionsCountCharactersNotBytes)
{
    const auto letters = [](int count) {
        std::string text;
        for (int i = 0; i < count; ++i)
            text += "\xC3\xA0"; // one letter of two bytes
        return text;
    };
    EXPECT_EQ(captionOf("/home/" + letters(25) + ".arr"), "&1  /home/" + letters(25) + ".arr") << "35 characters";
    EXPECT_EQ(captionOf("/home/" + letters(26) + ".arr"), "&1  /ho.../" + letters(26) + ".a...") << "36 characters";
}

TEST_F(RecentFiles, captionsAreNumberedFromOne)
{
    for (int number = 1; number <= 8; ++number)
        RecentAdd("/m/" + std::to_string(number) + ".arr", false);
    EXPECT_EQ(RecentCaption(0), "&1  /m/1.arr");
    EXPECT_EQ(RecentCaption(7), "&8  /m/8.arr");
}
