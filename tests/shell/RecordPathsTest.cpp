// Paths out of a settings file that is damaged or was made by someone else: each leads to the one file that its field
// and its kind name, or to none, and what they lead to is only read.
#include "shell/RecentFiles.h"
#include "shell/SessionRestore.h"

#include "core/Settings.h"
#include "shell/OpenDispatch.h"
#include "shell/ShellFixture.h"

#include <map>

namespace
{

constexpr std::size_t RecordLength = 250;
constexpr std::size_t FirstProgram = 4 * RecordLength;      ///< record 5
constexpr std::size_t FirstArrangement = 20 * RecordLength; ///< record 21
constexpr std::size_t FirstRecent = 38 * RecordLength;      ///< record 39

using Lines = std::vector<std::string>;

class RecordPaths : public ShellTest
{
protected:
    RecordPaths()
    {
        std::filesystem::create_directory(songs.file("sub"));
        songs.put("a.arr", arrangementFile());
        songs.put("p.prg", programFile());
        songs.put("secret", "no extension");
        songs.put("sub/empty.sty", "");
        before = content();
        App.Language = 2;
        image = SettingsFile::firstImage(App);
    }
    /// Everything below the songs' folder.
    std::map<std::string, std::string> content() const
    {
        std::map<std::string, std::string> files;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(songs.path()))
            if (entry.is_regular_file())
                files[entry.path()] = songs.get(std::filesystem::relative(entry.path(), songs.path()));
        return files;
    }
    /// A record with a path from its first byte on, open, of a kind.
    void put(std::size_t offset, const std::string& path, int kind = 21)
    {
        std::string record(RecordLength, ' ');
        record.replace(0, std::min(path.size(), RecordLength), path.substr(0, RecordLength));
        if (path.size() < RecordLength) {
            record.replace(238, 12, std::string(12, '\0'));
            record[240] = 1;
            record[241] = static_cast<char>(kind);
        }
        image.replace(offset, RecordLength, record);
    }
    /// The paths of the windows that come back; nothing that stands in the folder has changed.
    Lines restored()
    {
        EXPECT_TRUE(SettingsFile::decode(image, App));
        Lines paths;
        const auto make = [&](int kind, int slot) {
            const auto index = static_cast<std::size_t>(slot - 1);
            paths.push_back(kind == 19 ? App.Arrangements[index].path : App.Programs[index].path);
            return true;
        };
        ArrangementsRestore(make);
        ProgramsRestore(make);
        EXPECT_EQ(warnings(), Lines{});
        EXPECT_TRUE(content() == before);
        return paths;
    }

    std::string image;
    std::map<std::string, std::string> before;
};

} // namespace

TEST_F(RecordPaths, ofTheSessionNameAFileOfTheirKindOrNone)
{
    put(FirstArrangement, songs.file("a"));
    put(FirstArrangement + RecordLength, songs.file("secret"));     // the file without an extension stays unread
    put(FirstArrangement + 2 * RecordLength, songs.file("a.arr"));  // its extension comes behind it again
    put(FirstArrangement + 3 * RecordLength, songs.file("sub/..")); // a folder
    put(FirstProgram, songs.file("p"));
    put(FirstProgram + RecordLength, songs.file("a"));
    EXPECT_EQ(restored(), (Lines{songs.file("a"), songs.file("p")}));
}

TEST_F(RecordPaths, withUpwardStepsAreTheFileThatTheDiskFindsByThem)
{
    put(FirstArrangement, songs.file("sub/../a"));
    put(FirstArrangement + RecordLength, songs.file("gone/../a"));
    EXPECT_EQ(restored(), Lines{songs.file("sub/../a")});
}

TEST_F(RecordPaths, endAtTheirFirstNul)
{
    put(FirstArrangement, songs.file("a") + std::string("\0/../../etc/passwd", 18));
    put(FirstProgram, std::string("\0", 1) + songs.file("p"));
    EXPECT_EQ(restored(), Lines{songs.file("a")});
}

TEST_F(RecordPaths, withoutAnEndStopAtTheirField)
{
    // All 250 bytes of the record, the marks of the entry among them.
    put(FirstArrangement, std::string(RecordLength, '\xFF'));
    put(FirstProgram, "/" + std::string(RecordLength - 1, 'x'));
    put(FirstRecent, std::string(RecordLength, '\x05'));
    EXPECT_EQ(restored(), Lines{});
    EXPECT_EQ(recentPath(0), std::string(238, '\x05') + ".gbl");
}

TEST_F(RecordPaths, thatFillTheirFieldLeadToTheirFileOnly)
{
    // 238 bytes in folders of 40 letters each, and one byte more that belongs to no path.
    std::string folder = songs.path();
    while (folder.size() + 41 < 230) {
        folder += "/" + std::string(40, 'd');
        std::filesystem::create_directory(folder);
    }
    const std::string path = folder + "/" + std::string(238 - folder.size() - 1, 'n');
    std::ofstream(path + ".arr", std::ios::binary) << arrangementFile();
    std::ofstream(path + "x.arr", std::ios::binary) << "not this one";
    before = content();
    put(FirstArrangement, path);
    image[FirstArrangement + 238] = 'x'; // the width of the window
    EXPECT_EQ(restored(), Lines{path});
}

TEST_F(RecordPaths, ofTheRecentListOpenOnlyAFileOfTheirKind)
{
    put(FirstRecent, songs.file("a"), 1);
    put(FirstRecent + RecordLength, songs.file("p") + std::string("\0.arr", 5), 3);
    put(FirstRecent + 2 * RecordLength, songs.file("secret"), 1);
    put(FirstRecent + 3 * RecordLength, songs.file("a"), 0);
    put(FirstRecent + 4 * RecordLength, songs.file("a"), 200);
    put(FirstRecent + 5 * RecordLength, "../../../../../../../../etc/passwd", 5);
    ASSERT_TRUE(SettingsFile::decode(image, App));
    Lines made;
    const auto make = [&](int kind, int) {
        made.push_back(std::to_string(kind));
        return true;
    };
    for (int index = 0; index < 8; ++index)
        if (!recentPath(index).empty())
            static_cast<void>(
                openByPath(recentPath(index), App.Recent[static_cast<std::size_t>(index)].kind, false, make));
    EXPECT_EQ(made, (Lines{"19", "21"}));
    EXPECT_EQ(warnings().size(), 2U) << "the two that are not there are told";
    EXPECT_TRUE(content() == before);
}
