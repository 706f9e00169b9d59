// Paths taken apart: folder, name, stem, extension and kind of a file, and what fits into a field.
#include "core/PathNames.h"

#include <gtest/gtest.h>

TEST(FolderOf, endsBeforeTheLastSeparator)
{
    EXPECT_EQ(FolderOf("/home/anna/music/song.arr"), "/home/anna/music");
    EXPECT_EQ(FolderOf("/song.arr"), "");
    EXPECT_EQ(FolderOf("song.arr"), "");
    EXPECT_EQ(FolderOf("/a.b/c"), "/a.b");
    EXPECT_EQ(FolderOf(""), "");
}

TEST(FileNameOf, cutsAThreeCharacterExtension)
{
    EXPECT_EQ(FileNameOf("/home/anna/song.arr"), "song");
    EXPECT_EQ(FileNameOf("song.ARR"), "song");
    EXPECT_EQ(FileNameOf("my.song.arr"), "my.song");
    EXPECT_EQ(FileNameOf("/x/"), "");
}

TEST(FileNameOf, cutsNothingElse)
{
    EXPECT_EQ(FileNameOf("/home/my.song"), "my.song");
    EXPECT_EQ(FileNameOf("/home/a.b/song"), "song");
    EXPECT_EQ(FileNameOf("/home/a.arr/x"), "x");
    EXPECT_EQ(FileNameOf("song.ar"), "song.ar");
    EXPECT_EQ(FileNameOf("song."), "song.");
    EXPECT_EQ(FileNameOf(""), "");
}

TEST(FileStemOf, keepsEveryPointOfAPathField)
{
    EXPECT_EQ(FileStemOf("/home/anna/my.song"), "my.song");
    EXPECT_EQ(FileStemOf("/home/anna/take.two"), "take.two");
    EXPECT_EQ(FileStemOf(" (SenzaNome 1)"), " (SenzaNome 1)");
}

TEST(FileKindOf, knowsTheFiveExtensionsInAnyCase)
{
    EXPECT_EQ(FileKindOf("/a/song.arr"), 1);
    EXPECT_EQ(FileKindOf("song.STY"), 2);
    EXPECT_EQ(FileKindOf("song.Prg"), 3);
    EXPECT_EQ(FileKindOf("song.pgG"), 4);
    EXPECT_EQ(FileKindOf("song.gbl"), 5);
}

TEST(FileKindOf, isZeroForAnythingElse)
{
    for (const char* path :
         {"", "song", "song.txt", "song.arr2", "song.ar", "arr", "/a.arr/song", "song.arr.", "song.", "song.pcg"})
        EXPECT_EQ(FileKindOf(path), 0) << path;
}

TEST(SameFileName, foldsAsciiAndLatin1Letters)
{
    EXPECT_TRUE(sameFileName("SONG.ARR", "song.arr"));
    EXPECT_TRUE(sameFileName("\xC3\x80\xC3\x9E", "\xC3\xA0\xC3\xBE"));
    EXPECT_TRUE(sameFileName("", ""));
}

TEST(SameFileName, foldsNothingElse)
{
    EXPECT_FALSE(sameFileName("song", "songs"));
    EXPECT_FALSE(sameFileName("[song", "{song"));
    EXPECT_FALSE(sameFileName("@", "`"));
    EXPECT_FALSE(sameFileName("\xC3\x97", "\xC3\xB7")) << "the times and the division sign";
    EXPECT_FALSE(sameFileName("\xC3\x9F", "\xC3\xBF")) << "sharp s and y with diaeresis";
    EXPECT_FALSE(sameFileName("\xC4\x80", "\xC4\xA0")) << "letters beyond Latin-1";
    EXPECT_FALSE(sameFileName("\xC8", "\xE8")) << "no UTF-8";
}

TEST(ExtensionOf, isTheInverseOfTheKind)
{
    EXPECT_STREQ(extensionOf(1), ".arr");
    EXPECT_STREQ(extensionOf(2), ".sty");
    EXPECT_STREQ(extensionOf(3), ".prg");
    EXPECT_STREQ(extensionOf(4), ".pgg");
    EXPECT_STREQ(extensionOf(5), ".gbl");
    EXPECT_STREQ(extensionOf(0), "");
    EXPECT_STREQ(extensionOf(6), "");
    EXPECT_STREQ(extensionOf(-1), "");
}

TEST(WithoutExtension, keepsFolderAndStem)
{
    EXPECT_EQ(withoutExtension("/home/my.song.arr"), "/home/my.song");
    EXPECT_EQ(withoutExtension("/home/my.song"), "/home/my.song");
    EXPECT_EQ(withoutExtension("/home.arr/x"), "/home.arr/x");
    EXPECT_EQ(withoutExtension(".arr"), "");
}

TEST(PathFitsField, holdsUpTo238BytesThatDoNotEndInABlank)
{
    EXPECT_TRUE(pathFitsField(std::string(238, 'x')));
    EXPECT_FALSE(pathFitsField(std::string(239, 'x')));
    EXPECT_FALSE(pathFitsField("/home/song "));
    EXPECT_TRUE(pathFitsField("/home/my song"));
    EXPECT_TRUE(pathFitsField(""));
}

TEST(InfoStem, isTheFirst24BytesWithoutBlanksAtTheEnd)
{
    EXPECT_EQ(infoStem("song"), "song");
    EXPECT_EQ(infoStem("song   "), "song");
    EXPECT_EQ(infoStem("abcdefghijklmnopqrstuvwxyz"), "abcdefghijklmnopqrstuvwx");
    EXPECT_EQ(infoStem("abcdefghijklmnopqrstuvw yz"), "abcdefghijklmnopqrstuvw");
}

TEST(UpperFileName, turnsTheLettersThatFoldIntoCapitalsAndLeavesAllOthers)
{
    EXPECT_EQ(upperFileName("song 1_az{"), "SONG 1_AZ{");
    EXPECT_EQ(upperFileName("Perch\xC3\xA9 \xC3\xA0\xC3\xBE"), "PERCH\xC3\x89 \xC3\x80\xC3\x9E");
    EXPECT_EQ(upperFileName("\xC3\xB7\xC3\x9F\xC3\xBF\xC4\xA0\xE8"), "\xC3\xB7\xC3\x9F\xC3\xBF\xC4\xA0\xE8");
    EXPECT_EQ(upperFileName(""), "");
}
