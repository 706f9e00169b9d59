// What the disk itself refuses: each error has its words, under the application's title, and ends the read with 1.
#include "files/FilesFixture.h"
#include "support/OtherUser.h"

#include <cerrno>
#include <cstdarg>
#include <fcntl.h>
#include <filesystem>
#include <sys/syscall.h>
#include <unistd.h>

namespace
{

/// A disk that fails: the next `times` openings of a name that ends in `name` answer `error`.
struct FailingDisk {
    std::string name;
    int error = 0;
    int times = 0;
};
FailingDisk failingDisk;

bool fails(const char* path)
{
    if (failingDisk.times == 0 || !std::string(path).ends_with(failingDisk.name))
        return false;
    --failingDisk.times;
    errno = failingDisk.error;
    return true;
}

struct Reader {
    const char* name;
    const char* file;
    int (*read)(const std::string&);
    std::string good;
};

std::vector<Reader> readers()
{
    return {{"arr", "song.arr", ArrFileRead, handMade(arrHead(), 10528)},
            {"sty", "song.sty", StyFileRead, styleFile({{"One", 700}})},
            {"prg", "song.prg", PrgFileRead, handMade(prgHead(), 30480)},
            {"find", "song.prg", PrgFileFind, handMade(prgHead(), 30480)},
            {"gbl", "song.gbl", GblFileRead, handMade(gblHead(), 448)}};
}

} // namespace

// The linker takes this opening before the C library's, for this test program alone.
extern "C" int open(const char* path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const unsigned mode = va_arg(arguments, unsigned);
    va_end(arguments);
    if (fails(path))
        return -1;
    return static_cast<int>(syscall(SYS_openat, AT_FDCWD, path, flags, mode));
}

class FileErrors : public FilesTest
{
protected:
    ~FileErrors() override { failingDisk = {}; }

    static constexpr const char* Title = "Tarvolyne - Tarvolyne Console ";

    /// What was reported, in one line.
    std::string said(int result) const
    {
        std::string text = std::to_string(result);
        for (const auto& box : user.warnings)
            text += "|" + box.title + "|" + box.text;
        for (const auto& notice : user.notices)
            text += "|notice " + notice.text;
        return text;
    }

    /// Reads the file in a process without root's rights and compares what was answered and shown.
    bool ordinaryUserIsTold(const Reader& reader, const std::string& expected)
    {
        return asOrdinaryUser([&] {
                   user.warnings.clear();
                   return said(reader.read(folder.file(reader.file))) == expected ? 0 : 1;
               }) == 0;
    }
};

TEST_F(FileErrors, anUnreadableFileIsReadOnlyAndAborts)
{
    std::filesystem::permissions(folder.path(), std::filesystem::perms(0755));
    for (const Reader& reader : readers()) {
        folder.put(reader.file, reader.good);
        std::filesystem::permissions(folder.file(reader.file), std::filesystem::perms::none);
        EXPECT_TRUE(ordinaryUserIsTold(reader, "1|Tarvolyne - Tarvolyne Console |File di sola lettura")) << reader.name;
        App.LanguageBase = 200;
        EXPECT_TRUE(ordinaryUserIsTold(reader, "1|Tarvolyne - Tarvolyne Console |Read only file")) << reader.name;
        App.LanguageBase = 0;
        std::filesystem::permissions(folder.file(reader.file), std::filesystem::perms(0644));
        EXPECT_EQ(folder.get(reader.file), reader.good);
    }
}

TEST_F(FileErrors, anEmptyFileThatCannotBeDeletedAborts)
{
    for (const Reader& reader : readers())
        folder.put(reader.file, "");
    std::filesystem::permissions(folder.path(), std::filesystem::perms(0555));
    for (const Reader& reader : readers()) {
        user.warnings.clear();
        EXPECT_TRUE(ordinaryUserIsTold(reader, "1|Tarvolyne - Tarvolyne Console |File di sola lettura")) << reader.name;
    }
    std::filesystem::permissions(folder.path(), std::filesystem::perms(0755));
}

TEST_F(FileErrors, anAbsentFileOfAFolderThatCannotBeWrittenIsSimplyAbsent)
{
    std::filesystem::permissions(folder.path(), std::filesystem::perms(0555));
    for (const Reader& reader : readers()) {
        const std::string absent = std::string(reader.name) == "sty" ? "2" : "3";
        EXPECT_TRUE(ordinaryUserIsTold(reader, absent)) << reader.name;
    }
    std::filesystem::permissions(folder.path(), std::filesystem::perms(0755));
}

TEST_F(FileErrors, aMissingFolderIsAPathNotFoundAndIsNotMade)
{
    for (const Reader& reader : readers()) {
        user.warnings.clear();
        EXPECT_EQ(reader.read(folder.file("nowhere") + "/" + reader.file), 1) << reader.name;
        expectBox(Title, "Impossibile trovare il percorso");
        App.LanguageBase = 200;
        user.warnings.clear();
        EXPECT_EQ(reader.read(folder.file("nowhere") + "/" + reader.file), 1) << reader.name;
        expectBox(Title, "Path not found");
        App.LanguageBase = 0;
    }
    EXPECT_EQ(folder.fileCount(), 0u);
}

TEST_F(FileErrors, aFolderInTheFilesPlaceIsReadOnlyAndStays)
{
    for (const Reader& reader : readers()) {
        std::filesystem::create_directory(folder.file(reader.file));
        user.warnings.clear();
        EXPECT_EQ(reader.read(folder.file(reader.file)), 1) << reader.name;
        expectBox(Title, "File di sola lettura");
        App.LanguageBase = 200;
        user.warnings.clear();
        EXPECT_EQ(reader.read(folder.file(reader.file)), 1) << reader.name;
        expectBox(Title, "Read only file");
        App.LanguageBase = 0;
        EXPECT_TRUE(std::filesystem::is_directory(folder.file(reader.file)));
    }
    EXPECT_TRUE(user.notices.empty());
}

TEST_F(FileErrors, aFileInThePlaceOfTheFolderIsAPathNotFound)
{
    folder.put("plain", "no folder");
    for (const Reader& reader : readers()) {
        user.warnings.clear();
        EXPECT_EQ(reader.read(folder.file("plain") + "/" + reader.file), 1) << reader.name;
        expectBox(Title, "Impossibile trovare il percorso");
    }
}

TEST_F(FileErrors, everyOtherErrorHasItsWords)
{
    const struct {
        int error;
        const char* italian;
        const char* english;
    } rows[] = {{EIO, "Errore I/O periferica", "Error I/O device"},
                {EACCES, "File di sola lettura", "Read only file"},
                {EMFILE, "Errore di lettura da disco", "Disk reading error"}};
    for (const Reader& reader : readers()) {
        folder.put(reader.file, reader.good);
        for (const auto& row : rows)
            for (const bool english : {false, true}) {
                App.LanguageBase = english ? 200 : 0;
                user.warnings.clear();
                failingDisk = {reader.file, row.error, 1};
                EXPECT_EQ(reader.read(folder.file(reader.file)), 1) << reader.name;
                expectBox(Title, english ? row.english : row.italian);
            }
    }
}

TEST_F(FileErrors, aDiskThatIsNotReadyIsTriedAgainUntilItIs)
{
    for (const Reader& reader : readers()) {
        folder.put(reader.file, reader.good);
        user.warnings.clear();
        failingDisk = {reader.file, EBUSY, 3};
        EXPECT_EQ(reader.read(folder.file(reader.file)), 0) << reader.name;
        ASSERT_EQ(user.warnings.size(), 3u);
        EXPECT_EQ(user.warnings[2].title, Title);
        EXPECT_EQ(user.warnings[2].text, "Disco non pronto o non formattato");
    }
}

TEST_F(FileErrors, whoLeavesTheBoxGivesUpTheRead)
{
    App.LanguageBase = 200;
    for (const Reader& reader : readers()) {
        folder.put(reader.file, reader.good);
        user.warnings.clear();
        user.boxEnds = {BoxEnd::Ok, BoxEnd::Dismissed};
        failingDisk = {reader.file, EBUSY, 9};
        EXPECT_EQ(reader.read(folder.file(reader.file)), 1) << reader.name;
        ASSERT_EQ(user.warnings.size(), 2u);
        EXPECT_EQ(user.warnings[0].text, "Disk not ready or not formatted");
    }
}

TEST_F(FileErrors, aTemplateThatTheDiskRefusesLeavesTheOneInTheProgram)
{
    folder.put("TvlSty", styleFile({{"One", 1176}, {"Two", 1176}, {"Three", 1176}, {"Four", 1176}}));
    failingDisk = {"TvlSty", EIO, 1};
    EXPECT_EQ(StyFileRead(folder.file("TvlSty")), 1);
    expectBox(Title, "Errore I/O periferica");
    EXPECT_EQ(Files.StyEmptyBuffer.size(), 4928u);
    EXPECT_EQ(Files.StyEmptyBuffer.substr(3752, 16), "- empty -       ");
}

TEST_F(FileErrors, anAbortedReadLeavesTheSharedBuffersAsTheyWere)
{
    for (const Reader& reader : readers()) {
        folder.put(reader.file, reader.good);
        ASSERT_EQ(reader.read(folder.file(reader.file)), 0);
    }
    for (const Reader& reader : readers()) {
        failingDisk = {reader.file, EIO, 1};
        EXPECT_EQ(reader.read(folder.file(reader.file)), 1);
    }
    EXPECT_EQ(Files.ArrBuffer, readers()[0].good);
    EXPECT_EQ(Files.StyBuffer, readers()[1].good);
    EXPECT_EQ(Files.PrgBuffer, readers()[2].good);
    EXPECT_EQ(Files.GblBuffer, readers()[4].good);
    EXPECT_EQ(Files.PrgName, "song");
}
