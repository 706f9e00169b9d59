// Files of records: the numbered errors, reading within a limit, finding a name in another case, writing.
#include "core/RandomFile.h"

#include "support/Hex.h"
#include "support/OtherUser.h"
#include "support/TemporaryFolder.h"

#include <cerrno>
#include <cstring>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/un.h>

namespace
{

/// readFile's error, with the content it found in `bytes`.
int readWhole(const std::string& path, std::string& bytes, std::int64_t& length)
{
    FileContent content;
    const int error = readFile(path, 1 << 20, content);
    bytes = content.bytes;
    length = content.length;
    return error;
}

int errorOfReading(const std::string& path)
{
    std::string bytes;
    std::int64_t length = 0;
    return readWhole(path, bytes, length);
}

} // namespace

TEST(FileErrorOf, translatesEveryErrnoOfTheTable)
{
    EXPECT_EQ(fileErrorOf(0), 0);
    EXPECT_EQ(fileErrorOf(EIO), 56);
    EXPECT_EQ(fileErrorOf(ENOSPC), 61);
    EXPECT_EQ(fileErrorOf(EDQUOT), 61);
    EXPECT_EQ(fileErrorOf(ENOMEDIUM), 71);
    EXPECT_EQ(fileErrorOf(EBUSY), 71);
    EXPECT_EQ(fileErrorOf(EACCES), 75);
    EXPECT_EQ(fileErrorOf(EPERM), 75);
    EXPECT_EQ(fileErrorOf(EROFS), 75);
    EXPECT_EQ(fileErrorOf(EISDIR), 75);
    EXPECT_EQ(fileErrorOf(ENOENT), 76);
    EXPECT_EQ(fileErrorOf(ENOTDIR), 76);
    EXPECT_EQ(fileErrorOf(ENAMETOOLONG), 57);
    EXPECT_EQ(fileErrorOf(ELOOP), 57);
    EXPECT_EQ(fileErrorOf(EMFILE), 57);
}

TEST(ReadFile, readsUpToItsLimitAndTellsTheWholeLength)
{
    const TemporaryFolder folder;
    const std::string path = folder.put("a.arr", "0123456789");
    FileContent content;
    EXPECT_EQ(readFile(path, 4, content), 0);
    EXPECT_EQ(content.bytes, "0123");
    EXPECT_EQ(content.length, 10);
    EXPECT_EQ(readFile(path, 100, content), 0);
    EXPECT_EQ(content.bytes, "0123456789");
    EXPECT_EQ(content.length, 10);
    EXPECT_EQ(readFile(path, 0, content), 0);
    EXPECT_EQ(content.bytes, "");
    EXPECT_EQ(content.length, 10);
}

TEST(ReadFile, readsTheHeadOfAFileLongerThanFourGigabytes)
{
    const TemporaryFolder folder;
    const std::string path = folder.put("huge.sty", "head");
    std::filesystem::resize_file(path, 5'000'000'000);
    FileContent content;
    EXPECT_EQ(readFile(path, 6, content), 0);
    EXPECT_EQ(content.bytes, std::string("head\0\0", 6));
    EXPECT_EQ(content.length, 5'000'000'000);
}

TEST(ReadFile, findsAnAbsentFileEmptyAndLeavesNothingBehind)
{
    const TemporaryFolder folder;
    FileContent content{5, "stale"};
    EXPECT_EQ(readFile(folder.file("absent.arr"), 100, content), 0);
    EXPECT_EQ(content.length, 0);
    EXPECT_EQ(content.bytes, "");
    EXPECT_EQ(folder.fileCount(), 0U);
}

TEST(ReadFile, tellsAnAbsentFolderFromAnAbsentFile)
{
    const TemporaryFolder folder;
    folder.put("plain", "x");
    EXPECT_EQ(errorOfReading(folder.file("absent/song.arr")), 76);
    EXPECT_EQ(errorOfReading(folder.file("plain/song.arr")), 76) << "a file where the folder should be";
    EXPECT_EQ(errorOfReading(folder.file("song.arr")), 0);
    EXPECT_EQ(errorOfReading(""), 76);
    EXPECT_EQ(errorOfReading(std::string("/tmp/a\0b", 8)), 76);
}

TEST(ReadFile, leavesTheContentAsItWasOnAnError)
{
    const TemporaryFolder folder;
    FileContent content{5, "stale"};
    EXPECT_EQ(readFile(folder.path(), 100, content), 75);
    EXPECT_EQ(content.length, 5);
    EXPECT_EQ(content.bytes, "stale");
}

TEST(ReadFile, takesNothingButRegularFiles)
{
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder.file("folder.arr"));
    EXPECT_EQ(errorOfReading(folder.file("folder.arr")), 75);

    ASSERT_EQ(mkfifo(folder.file("pipe.arr").c_str(), 0600), 0);
    EXPECT_EQ(errorOfReading(folder.file("pipe.arr")), 75) << "and does not wait for a writer";

    const int descriptor = socket(AF_UNIX, SOCK_STREAM, 0);
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    std::strncpy(address.sun_path, folder.file("s.arr").c_str(), sizeof address.sun_path - 1);
    ASSERT_EQ(bind(descriptor, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    EXPECT_EQ(errorOfReading(folder.file("s.arr")), 75);
    close(descriptor);

    EXPECT_EQ(errorOfReading("/dev/null"), 75);
    EXPECT_EQ(errorOfReading("/dev/zero"), 75);
}

TEST(ReadFile, answersAccessDeniedForAFileThatMayNotBeRead)
{
    const TemporaryFolder folder;
    openToAll(folder.path());
    const std::string path = folder.put("secret.arr", "x");
    chmod(path.c_str(), 0);
    EXPECT_EQ(asOrdinaryUser([&] { return errorOfReading(path); }), 75);
}

TEST(ReadFile, readsAFileThatIsReadOnly)
{
    const TemporaryFolder folder;
    openToAll(folder.path());
    const std::string path = folder.put("a.arr", "x");
    chmod(path.c_str(), 0444);
    EXPECT_EQ(asOrdinaryUser([&] { return errorOfReading(path); }), 0);
}

TEST(ReadFile, followsLinksAndSurvivesALoopOfThem)
{
    const TemporaryFolder folder;
    folder.put("real.arr", "data");
    std::filesystem::create_symlink("real.arr", folder.file("link.arr"));
    std::filesystem::create_symlink("loop.arr", folder.file("loop.arr"));
    std::filesystem::create_symlink("nowhere.arr", folder.file("dangling.arr"));
    std::string bytes;
    std::int64_t length = 0;
    EXPECT_EQ(readWhole(folder.file("link.arr"), bytes, length), 0);
    EXPECT_EQ(bytes, "data");
    EXPECT_EQ(errorOfReading(folder.file("loop.arr")), 57);
    EXPECT_EQ(readWhole(folder.file("dangling.arr"), bytes, length), 0);
    EXPECT_EQ(length, 0);
    EXPECT_FALSE(folder.has("nowhere.arr"));
}

TEST(ReadFile, findsTheOnlyFileThatDiffersInCase)
{
    const TemporaryFolder folder;
    folder.put("SONG.STY", "upper");
    std::string bytes;
    std::int64_t length = 0;
    EXPECT_EQ(readWhole(folder.file("song.sty"), bytes, length), 0);
    EXPECT_EQ(bytes, "upper");
    EXPECT_EQ(length, 5);
}

TEST(ResolveFileName, prefersTheExactName)
{
    const TemporaryFolder folder;
    folder.put("Song.arr", "");
    folder.put("song.arr", "");
    EXPECT_EQ(resolveFileName(folder.file("song.arr")), folder.file("song.arr"));
    EXPECT_EQ(resolveFileName(folder.file("Song.arr")), folder.file("Song.arr"));
}

TEST(ResolveFileName, takesTheOnlyMatchThatDiffersInCaseAlone)
{
    const TemporaryFolder folder;
    folder.put("Caff\xC3\x88.ARR", "");
    folder.put("other.arr", "");
    EXPECT_EQ(resolveFileName(folder.file("caff\xC3\xA8.arr")), folder.file("Caff\xC3\x88.ARR"));
    EXPECT_EQ(resolveFileName(folder.file("absent.arr")), folder.file("absent.arr"));
}

TEST(ResolveFileName, choosesNoneOfTwoMatches)
{
    const TemporaryFolder folder;
    folder.put("Song.arr", "");
    folder.put("SONG.arr", "");
    EXPECT_EQ(resolveFileName(folder.file("song.arr")), folder.file("song.arr"));
}

TEST(ResolveFileName, leavesTheFolderOfThePathAlone)
{
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder.file("Music"));
    folder.put("Music/SONG.ARR", "");
    EXPECT_EQ(resolveFileName(folder.file("music/song.arr")), folder.file("music/song.arr"));
    EXPECT_EQ(resolveFileName(folder.file("Music/song.arr")), folder.file("Music/SONG.ARR"));
    EXPECT_EQ(resolveFileName(""), "");
}

TEST(DeleteFile, deletesAndFindsAnAbsentFileInOrder)
{
    const TemporaryFolder folder;
    const std::string path = folder.put("a.sty", "x");
    EXPECT_EQ(deleteFile(path), 0);
    EXPECT_FALSE(folder.has("a.sty"));
    EXPECT_EQ(deleteFile(path), 0);
    EXPECT_EQ(deleteFile(folder.file("absent/a.sty")), 76);
}

TEST(DeleteFile, deletesTheFileThatReadingWouldFind)
{
    const TemporaryFolder folder;
    folder.put("SONG.PRG", "x");
    EXPECT_EQ(deleteFile(folder.file("song.prg")), 0);
    EXPECT_EQ(folder.fileCount(), 0U);
}

TEST(DeleteFile, deletesNoFileByAPathThatIsCutAtANul)
{
    const TemporaryFolder folder;
    const std::string path = folder.put("a", "x");
    EXPECT_EQ(deleteFile(path + std::string("\0.sty", 5)), 76);
    EXPECT_EQ(deleteFile(""), 76);
    EXPECT_TRUE(folder.has("a"));
}

TEST(DeleteFile, deletesALinkAndKeepsItsTarget)
{
    const TemporaryFolder folder;
    folder.put("real.sty", "x");
    std::filesystem::create_symlink("real.sty", folder.file("link.sty"));
    EXPECT_EQ(deleteFile(folder.file("link.sty")), 0);
    EXPECT_FALSE(std::filesystem::is_symlink(folder.file("link.sty")));
    EXPECT_EQ(folder.get("real.sty"), "x");
}

TEST(DeleteFile, leavesEverythingButRegularFiles)
{
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder.file("folder.sty"));
    ASSERT_EQ(mkfifo(folder.file("pipe.sty").c_str(), 0600), 0);
    EXPECT_EQ(deleteFile(folder.file("folder.sty")), 75);
    EXPECT_EQ(deleteFile(folder.file("pipe.sty")), 75);
    EXPECT_EQ(folder.fileCount(), 2U);
}

TEST(DeleteFile, answersAccessDeniedInAFolderThatMayNotBeChanged)
{
    const TemporaryFolder folder;
    const std::string path = folder.put("a.sty", "x");
    chmod(folder.path().c_str(), 0555);
    EXPECT_EQ(asOrdinaryUser([&] { return deleteFile(path); }), 75);
    chmod(folder.path().c_str(), 0755);
    EXPECT_TRUE(folder.has("a.sty"));
}

TEST(RecordOf, countsFromOneAndReadsNulBehindTheEnd)
{
    EXPECT_EQ(recordOf("aabbcc", 2, 2), "bb");
    EXPECT_EQ(hex(recordOf("aab", 2, 2)), "62 00");
    EXPECT_EQ(hex(recordOf("aa", 2, 9)), "00 00");
    EXPECT_EQ(hex(recordOf("aa", 2, 0)), "00 00");
}
