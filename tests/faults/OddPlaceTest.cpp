// Places where a file cannot be what a file is to be: read only, a folder, a pipe, behind links, in a folder that lets
// nothing be created. A save there is done whole or refused in the right words, and harms nothing.
#include "faults/FaultRun.h"
#include "support/Figures.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <linux/fs.h>
#include <sys/ioctl.h>

namespace
{

namespace fs = std::filesystem;

/// A place, made as an ordinary user of the file at a path.
struct OddPlace {
    const char* name;
    bool saves;
    int error; ///< by which the refusal is told; 0 path not found, -1 no more than "some error"
    std::function<void(const std::string& path)> make;
};

void replaceBy(const std::string& path, const std::function<void()>& make)
{
    fs::remove(path);
    make();
}

const std::vector<OddPlace> Places = {
    {"a file that is read only", false, EROFS, [](const std::string& path) { chmod(path.c_str(), 0444); }},
    {"a file in a folder that lets nothing be created", true, 0,
     [](const std::string& path) { chmod(fs::path(path).parent_path().c_str(), 0555); }},
    {"no file in such a folder", false, EROFS,
     [](const std::string& path) { replaceBy(path, [&] { chmod(fs::path(path).parent_path().c_str(), 0555); }); }},
    {"a folder that is not there", false, 0,
     [](const std::string& path) { fs::remove_all(fs::path(path).parent_path()); }},
    {"a link to a file", true, 0,
     [](const std::string& path) {
         fs::rename(path, fs::path(path).parent_path() / "elsewhere");
         fs::create_symlink("elsewhere", path);
     }},
    {"a link to nothing", true, 0,
     [](const std::string& path) { replaceBy(path, [&] { fs::create_symlink("elsewhere", path); }); }},
    {"a link in a ring", false, -1,
     [](const std::string& path) {
         replaceBy(path, [&] {
             fs::create_symlink("ring", path);
             fs::create_symlink(path, fs::path(path).parent_path() / "ring");
         });
     }},
    {"a pipe", false, EROFS, [](const std::string& path) { replaceBy(path, [&] { mkfifo(path.c_str(), 0666); }); }},
    {"a folder", false, EROFS, [](const std::string& path) { replaceBy(path, [&] { fs::create_directory(path); }); }},
    {"a link to a device", false, EROFS,
     [](const std::string& path) { replaceBy(path, [&] { fs::create_symlink("/dev/full", path); }); }},
};

const char* const Ways[] = {"save arr without styles",
                            "save prg dropping its twin",
                            "save sty",
                            "save gbl",
                            "save as from a bank",
                            "save as prg",
                            "save as untitled pgg",
                            "save as sty",
                            "save as gbl"};

std::vector<std::string> wordsOf(const WritePath& way, int error)
{
    const bool reading = way.telling == Telling::ByReading;
    if (error > 0)
        return wordsFor(way.telling, error);
    return {!reading ? "Disk writing error" : error == 0 ? "Path not found" : "Disk reading error"};
}

bool makeImmutable(const std::string& path, bool immutable)
{
    const int descriptor = open(path.c_str(), O_RDONLY | O_NONBLOCK);
    int flags = 0;
    const bool known = descriptor >= 0 && ioctl(descriptor, FS_IOC_GETFLAGS, &flags) == 0;
    flags = immutable ? flags | FS_IMMUTABLE_FL : flags & ~FS_IMMUTABLE_FL;
    const bool done = known && ioctl(descriptor, FS_IOC_SETFLAGS, &flags) == 0;
    if (descriptor >= 0)
        close(descriptor);
    return done;
}

class SavesInOddPlaces : public testing::Test
{
protected:
    std::vector<WritePath> ways(const Site& site) const
    {
        std::vector<WritePath> found;
        for (const WritePath& path : writePaths(site))
            if (std::find(std::begin(Ways), std::end(Ways), path.name) != std::end(Ways))
                found.push_back(path);
        return found;
    }
    static void expectSaved(FaultDesk& desk, const WritePath& way)
    {
        EXPECT_EQ(desk.outcome().result, 0);
        EXPECT_EQ(desk.outcome().boxes, 0) << desk.outcome().words[0].data();
        EXPECT_EQ(desk.notSaved(way), "");
    }
    static void expectRefused(FaultDesk& desk, const std::vector<std::string>& words)
    {
        EXPECT_TRUE(desk.outcome().ended);
        EXPECT_NE(desk.outcome().result, 0);
        EXPECT_TRUE(desk.outcome().untouched);
        EXPECT_EQ(desk.outcome().boxes, 1);
        EXPECT_EQ(std::count(words.begin(), words.end(), desk.outcome().words[0].data()), 1)
            << desk.outcome().words[0].data();
    }
};

} // namespace

TEST_F(SavesInOddPlaces, areWholeOrRefusedInTheRightWords)
{
    FaultDesk desk;
    long long cases = 0;
    for (WritePath& way : ways(desk.site())) {
        // The file alone is looked at; whether its twin can go is another matter.
        way.files.resize(1);
        way.files[0].before = "the old file";
        for (const OddPlace& place : Places) {
            SCOPED_TRACE(way.name + ", " + place.name);
            const std::string path = way.files[0].path(desk.site());
            desk.prepare(way, [&] { place.make(path); });
            const auto kindBefore = fs::symlink_status(path).type();
            desk.again(way);
            if (place.saves)
                expectSaved(desk, way);
            else
                expectRefused(desk, wordsOf(way, place.error));
            EXPECT_EQ(fs::symlink_status(path).type(), kindBefore) << "a link stays a link, a pipe a pipe";
            if (!place.saves && kindBefore == fs::file_type::regular) {
                EXPECT_EQ(desk.disk(way, Fate::Failed), "");
            }
            ++cases;
        }
    }
    noteFigure("R8", "saves in odd places", cases);
}

TEST_F(SavesInOddPlaces, areWholeUnderNamesOfAnyBytesAndOfTheGreatestLength)
{
    // A path takes 238 bytes without its extension.
    const std::size_t longest =
        238 - std::string("/dev/shm/tarvolyne-test-XXXXXX/").size() - std::string("/user/other").size();
    long long cases = 0;
    for (const std::string& below :
         {std::string("caf\xE9 \xFF\xC3("), std::string("a\nb\t'\"*?"), std::string(longest, 'l')}) {
        FaultDesk desk(below);
        for (const WritePath& way : ways(desk.site())) {
            SCOPED_TRACE(way.name + ", below " + below);
            desk.run(way, {.call = 0});
            expectSaved(desk, way);
            EXPECT_EQ(desk.disk(way, Fate::Undisturbed), "");
            ++cases;
        }
    }
    noteFigure("R8", "saves under odd names", cases);
}

TEST_F(SavesInOddPlaces, leaveWhatIsImmutable)
{
    FaultDesk desk;
    const std::string trial = desk.site().root + "/trial";
    std::ofstream(trial) << "x";
    if (!makeImmutable(trial, true)) {
        RecordProperty("immutable", "not for this user or disk");
        return;
    }
    makeImmutable(trial, false);
    fs::remove(trial);
    long long cases = 0;
    for (WritePath& way : ways(desk.site())) {
        SCOPED_TRACE(way.name);
        way.files.resize(1);
        way.files[0].before = "the old file";
        const std::string path = way.files[0].path(desk.site());
        for (const std::string& what : {path, desk.site().user()}) {
            desk.prepare(way, [] {});
            ASSERT_TRUE(makeImmutable(what, true));
            desk.again(way);
            ASSERT_TRUE(makeImmutable(what, false));
            if (what == path)
                expectRefused(desk, wordsOf(way, EROFS));
            else // the folder lets nothing be created, the file may be written
                expectSaved(desk, way);
            EXPECT_EQ(desk.disk(way, Fate::Failed), "");
            ++cases;
        }
    }
    noteFigure("R8", "saves of and beside what is immutable", cases);
}
