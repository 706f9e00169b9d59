// Saving on a disk that is full, or nearly: what is on it stays whole, and safety copies never take the room that a
// save needs.
#include "files/SafetyCopies.h"
#include "files/SavingWays.h"

namespace
{

const std::string OldFile(4096, 'o');

} // namespace

class FullDisk : public SavingErrors
{
protected:
    /// A disk that the user's folder and the state folder share, with room for so many bytes beside what it holds.
    void leaveRoom(std::int64_t bytes)
    {
        disk.places = {folder.path(), state.path()};
        disk.capacity = disk.used() + bytes;
    }

    /// A save of two files: the arrangements and the styles.
    struct TwoFiles {
        const char* name;
        WindowBuffer tag;
        std::function<int(FullDisk&, WindowBuffer&)> save;
        bool saveAs;
    };
    std::vector<TwoFiles> twoFileSaves()
    {
        const auto withStyles = [&](int kind) {
            WindowBuffer tag = arrangements(kind, song(), 2, NewSty);
            tag.set(9, 1);
            return tag;
        };
        const auto plain = [](FullDisk&, WindowBuffer& tag) { return FileSave(tag); };
        return {{"save", withStyles(19), plain, false},
                {"new arrangements", withStyles(20), plain, false},
                {"closing", withStyles(19), [](FullDisk&, WindowBuffer& tag) { return ArrClosingSave(tag); }, false},
                {"save as", withStyles(19),
                 [](FullDisk& test, WindowBuffer& tag) {
                     test.choose(test.song() + ".arr", 1);
                     return FileSaveAs(tag);
                 },
                 true}};
    }
};

TEST_F(FullDisk, theOldFileStaysWholeUntilTheNewOneFits)
{
    for (Way& way : allWays()) {
        SCOPED_TRACE(way.name);
        const bool table = way.filter != 0 && way.filter != 2;
        const auto size = static_cast<std::int64_t>(way.content.size());
        for (const std::int64_t room : {std::int64_t{0}, std::int64_t{1}, size / 2, size - 1, size, size + 5000}) {
            folder.put(way.file, OldFile);
            leaveRoom(room);
            Way tried = way;
            user.warnings.clear();
            user.boxEnds = {BoxEnd::Dismissed};
            const bool fits = room >= size;
            EXPECT_EQ(run(tried), fits ? 0 : 1) << room;
            disk = {};
            EXPECT_TRUE(holds(folder, way.file, fits ? way.content : OldFile)) << room;
            EXPECT_EQ(files(), Names{way.file});
            if (!fits) {
                EXPECT_EQ(user.warnings,
                          (std::vector<ScriptedUser::Said>{{Title, table ? "Disk full" : "Disk reading error"}}));
                EXPECT_EQ(tried.tag.bytes(), way.tag.bytes());
            }
            std::filesystem::remove(folder.file(way.file));
            std::filesystem::remove_all(state.file("Safety"));
        }
    }
}

TEST_F(FullDisk, ofTwoFilesEachIsTheOldOrTheNewOneAndTheMarksTellIt)
{
    const std::string arr = handMade(arrHead(), 10528);
    int first = 0, both = 0;
    for (TwoFiles& each : twoFileSaves())
        for (int room = 0; room <= 16000; room += 500) {
            SCOPED_TRACE(std::string(each.name) + ", " + std::to_string(room));
            folder.put("song.arr", OldFile);
            folder.put("song.sty", OldFile);
            leaveRoom(room);
            WindowBuffer tag = each.tag;
            user.warnings.clear();
            user.boxEnds = {BoxEnd::Dismissed};
            const int result = each.save(*this, tag);
            disk = {};
            const bool newArr = holds(folder, "song.arr", arr), newSty = holds(folder, "song.sty", NewSty);
            EXPECT_EQ(newArr, room >= 10528) << "the first file needs no more than its own room";
            EXPECT_TRUE(newArr || holds(folder, "song.arr", OldFile));
            EXPECT_TRUE(newSty || holds(folder, "song.sty", OldFile));
            EXPECT_TRUE(newArr || !newSty) << "one after the other";
            EXPECT_EQ(files(), (Names{"song.arr", "song.sty"}));
            EXPECT_EQ(result, newSty ? 0 : 1);
            if (result == 0) {
                EXPECT_TRUE(user.warnings.empty());
                EXPECT_EQ(tag.at(3) + tag.at(9), 0);
            } else {
                EXPECT_EQ(tag.bytes(), each.tag.bytes()) << "all marks stay";
                ASSERT_EQ(user.warnings.size(), 1u);
                EXPECT_EQ(user.warnings[0].text, each.saveAs && !newArr ? "Disk full" : "Disk reading error");
            }
            first += newArr && !newSty;
            both += newSty;
            std::filesystem::remove_all(state.file("Safety"));
        }
    EXPECT_EQ(first, 0) << "old copies go before the styles stay unsaved";
    EXPECT_EQ(both, 4 * 11);
}

TEST_F(FullDisk, stylesThatDoNotFitLeaveTheArrangementsSavedAndTheWindowModified)
{
    const std::string large = styleFile({{"Large", 60000}});
    for (TwoFiles& each : twoFileSaves()) {
        SCOPED_TRACE(each.name);
        folder.put("song.arr", OldFile);
        folder.put("song.sty", OldFile);
        WindowBuffer tag = each.tag;
        tag.setStyleArea(large);
        const ByteBuffer before = tag.bytes();
        leaveRoom(12000);
        user.warnings.clear();
        EXPECT_EQ(each.save(*this, tag), 1);
        disk = {};
        EXPECT_TRUE(holds(folder, "song.arr", handMade(arrHead(), 10528)));
        EXPECT_TRUE(holds(folder, "song.sty", OldFile));
        EXPECT_EQ(tag.bytes(), before);
        ASSERT_EQ(user.warnings.size(), 1u);
        EXPECT_EQ(user.warnings[0].text, "Disk reading error");
    }
}

TEST_F(FullDisk, aCopyOfBytesGivesItsRoomBackToTheSave)
{
    // A second name of the user's makes the copy one of bytes.
    folder.put("song.arr", OldFile);
    std::filesystem::create_hard_link(folder.file("song.arr"), folder.file("second name"));
    for (const int room : {10528, 10528 + 4095, 10528 + 4096}) {
        folder.put("song.arr", OldFile);
        std::filesystem::remove_all(state.file("Safety"));
        std::filesystem::remove(folder.file("second name"));
        std::filesystem::create_hard_link(folder.file("song.arr"), folder.file("second name"));
        leaveRoom(room);
        EXPECT_EQ(replaceKeeping(folder.file("song.arr"), std::string(10528, 'n')), 0) << room;
        disk = {};
        EXPECT_TRUE(holds(folder, "song.arr", std::string(10528, 'n')));
        EXPECT_EQ(copiesOf("song.arr"), room < 10528 + 4096 ? Names{} : Names{OldFile}) << room;
    }
}

TEST_F(FullDisk, theOldestCopiesMakeRoomForASaveAndNoMoreThanItNeeds)
{
    const std::string place = state.path() + "/Safety/music/old.arr";
    std::filesystem::create_directories(place);
    for (const char* day : {"01", "02", "03", "04"})
        std::ofstream(place + "/2001-01-" + day + " 10.00.00-001.arr") << std::string(6000, *(day + 1));
    leaveRoom(100);
    EXPECT_EQ(replaceKeeping(folder.file("song.arr"), std::string(10528, 'n')), 0);
    disk = {};
    EXPECT_TRUE(holds(folder, "song.arr", std::string(10528, 'n')));
    EXPECT_EQ(namesBelow(place), (Names{"2001-01-03 10.00.00-001.arr", "2001-01-04 10.00.00-001.arr"}));
}

TEST_F(FullDisk, aSmallDiskOfTheSystemsOwnShowsTheSame)
{
    openToAll(folder.path());
    openToAll(state.path());
    constexpr int NoSuchDisk = 90;
    for (Way& way : allWays()) {
        SCOPED_TRACE(way.name);
        const bool table = way.filter != 0 && way.filter != 2;
        const std::string words = table ? "Disk full" : "Disk reading error";
        // Free pages of 4096 bytes beside the old file: from none to enough.
        for (int freePages = 0; freePages <= 9; ++freePages) {
            const int result = asOrdinaryUser([&] {
                if (!mountSmallDisk(folder.path(), "size=64k"))
                    return NoSuchDisk;
                folder.put(way.file, OldFile);
                folder.put("filler", std::string(static_cast<std::size_t>(15 - freePages) * 4096, 'f'));
                user.boxEnds = {BoxEnd::Dismissed};
                const ByteBuffer before = way.tag.bytes();
                const int saved = run(way);
                const std::string now = folder.get(way.file);
                if (files() != (way.file < "filler" ? Names{way.file, "filler"} : Names{"filler", way.file}))
                    return 4;
                if (saved == 0)
                    return now == way.content && user.warnings.empty() ? 0 : 5;
                if (user.warnings != std::vector<ScriptedUser::Said>{{Title, words}} || way.tag.bytes() != before)
                    return 6;
                return now == OldFile ? 1 : 7;
            });
            if (result == NoSuchDisk) {
                ASSERT_EQ(freePages, 0);
                SKIP_WITHOUT_A_DISK;
            }
            const bool fits = static_cast<std::size_t>(freePages) * 4096 >= way.content.size();
            EXPECT_EQ(result, fits ? 0 : 1) << freePages << " pages free";
        }
    }
}
