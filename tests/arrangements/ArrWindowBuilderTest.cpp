// The window buffer of an arrangement file with its companions.
#include "arrangements/ArrWindowBuilder.h"
#include "ArrRoom.h"

class ArrTag : public ArrRoom
{
protected:
    ArrTag()
    {
        run.speak(2);
        Files.ArrBuffer = arrFile({{0, Block().name("One")}, {63, Block().name("Last")}});
        entry.path = folder().file("my.song");
    }
    WindowBuffer build() { return ArrTagBuild(3, entry); }
    static std::string area(const WindowBuffer& tag, std::size_t offset, std::size_t size)
    {
        return tag.bytes().substr(offset, size);
    }

    SessionEntry entry;
};

TEST_F(ArrTag, hasTheHeadThePathAndTheFileInTheirPlaces)
{
    const WindowBuffer tag = build();
    EXPECT_EQ(hex(area(tag, 0, 20)), "13 00 00 00 00 00 00 00 01 00 00 00 00 00 03 00 01 00 00 00");
    std::string path = folder().file("my.song");
    path.resize(250, ' ');
    EXPECT_EQ(area(tag, 20, 250), path);
    EXPECT_TRUE(area(tag, 270, 10528) == Files.ArrBuffer);
    EXPECT_TRUE(area(tag, 12142, 30480) == std::string(30480, ' ')) << "blanks while no program file is held";
    EXPECT_EQ(tag.bytes().size(), 42622u + 4928u);
    EXPECT_TRUE(user().warnings.empty());
    EXPECT_EQ(folder().fileCount(), 1u) << "no companion leaves nothing behind";
}

TEST_F(ArrTag, carriesTheReadOnlyChoice)
{
    entry.readOnly = true;
    EXPECT_EQ(build().at(1), 1);
}

TEST_F(ArrTag, takesTheStyleFileBesideItWhole)
{
    const std::string styles = styFile({{"Groove", 50}, {"Swing", 61}, {"x", 16}, {"y", 20}});
    folder().put("my.song.sty", styles);
    const WindowBuffer tag = build();
    EXPECT_EQ(tag.at(8), 2);
    EXPECT_EQ(tag.at(10), 0);
    EXPECT_TRUE(tag.bytes().substr(42622) == styles);
}

TEST_F(ArrTag, holdsTheEmptyStylesWithoutAStyleFile)
{
    const WindowBuffer tag = build();
    EXPECT_EQ(tag.at(8), 1);
    EXPECT_EQ(tag.at(10), 0);
    EXPECT_TRUE(tag.bytes().substr(42622) == emptyStyles());
}

TEST_F(ArrTag, remembersAStyleFileThatWasRefused)
{
    std::string wrong = styFile({{"Groove", 50}});
    wrong[6] = 3;
    folder().put("my.song.sty", wrong);
    const WindowBuffer tag = build();
    EXPECT_EQ(tag.at(8), 1);
    EXPECT_EQ(tag.at(10), 1) << "a save must not touch that file";
    EXPECT_TRUE(tag.bytes().substr(42622) == emptyStyles());
    ASSERT_EQ(user().notices.size(), 1u);
    EXPECT_EQ(user().notices[0].title, "my.song.sty");
    ASSERT_EQ(user().warnings.size(), 1u);
    EXPECT_EQ(user().warnings[0].title, "Opening my.song");
    EXPECT_EQ(user().warnings[0].text, "Error reading my.song");
    EXPECT_EQ(folder().get("my.song.sty"), wrong);
}

TEST_F(ArrTag, remembersAStyleFileThatCannotBeRead)
{
    std::filesystem::create_directory(folder().file("my.song.sty"));
    const WindowBuffer tag = build();
    EXPECT_EQ(tag.at(8), 1);
    EXPECT_EQ(tag.at(10), 1) << "a save must not touch what stands there";
    EXPECT_TRUE(tag.bytes().substr(42622) == emptyStyles());
    ASSERT_EQ(user().warnings.size(), 2u);
    EXPECT_EQ(user().warnings[0].text, "Read only file");
    EXPECT_EQ(user().warnings[1].text, "Error reading my.song");
}

TEST_F(ArrTag, takesThePrgFileBesideIt)
{
    const std::string programs = prgFile("KORG", {{0, 2, "Pad"}});
    folder().put("my.song.prg", programs);
    folder().put("my.song.pgg", prgFile("KPGG", {{0, 1, "Other"}}));
    const WindowBuffer tag = build();
    EXPECT_EQ(tag.at(5), 1);
    EXPECT_EQ(tag.at(18), 0);
    EXPECT_TRUE(area(tag, 12142, 30480) == programs);
}

TEST_F(ArrTag, takesThePggFileWithoutAPrg)
{
    const std::string programs = prgFile("KPGG", {{0, 1, "Reference"}});
    folder().put("my.song.pgg", programs);
    const WindowBuffer tag = build();
    EXPECT_EQ(tag.at(5), 1);
    EXPECT_EQ(tag.at(18), 1);
    EXPECT_TRUE(area(tag, 12142, 30480) == programs);
}

TEST_F(ArrTag, triesThePggWhenThePrgIsRefused)
{
    folder().put("my.song.prg", "too short");
    folder().put("my.song.pgg", prgFile("KPGG", {}));
    const WindowBuffer tag = build();
    EXPECT_EQ(tag.at(5), 1);
    EXPECT_EQ(tag.at(18), 1);
    ASSERT_EQ(user().warnings.size(), 1u);
    EXPECT_EQ(user().warnings[0].text, "Data format error");
}

TEST_F(ArrTag, holdsNoProgramsWhenBothAreRefused)
{
    folder().put("my.song.prg", "too short");
    folder().put("my.song.pgg", "too short");
    const WindowBuffer tag = build();
    EXPECT_EQ(tag.at(5), 0);
    EXPECT_EQ(tag.at(18), 0);
    EXPECT_TRUE(area(tag, 12142, 30480) == std::string(30480, ' '));
}

TEST_F(ArrTag, ofAPathThatItsFieldCannotHoldIsReadOnlyAndAlone)
{
    const std::string deep = folder().path() + "/" + std::string(238 - folder().path().size() - 1, 'd');
    folder().put(deep.substr(folder().path().size() + 1) + ".sty", styFile({{"Strange", 50}}));
    entry.path = deep + "x";
    const WindowBuffer tag = build();
    EXPECT_EQ(tag.at(1), 1);
    EXPECT_EQ(tag.at(8), 1) << "the style file of the cut name is a stranger's";
    EXPECT_TRUE(tag.bytes().substr(42622) == emptyStyles());
    EXPECT_EQ(tag.at(5), 0);
}

TEST_F(ArrTag, staysInShapeWithADamagedHandOver)
{
    Files.ArrBuffer = "short";
    const WindowBuffer tag = build();
    EXPECT_EQ(tag.bytes().size(), 42622u + 4928u);
    EXPECT_EQ(area(tag, 270, 6), std::string("short\0", 6));
}
