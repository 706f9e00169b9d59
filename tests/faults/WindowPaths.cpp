// The saves of windows: Save, Save As, and Yes to the question at a closing, of each kind of window.
#include "faults/WritePath.h"

#include "files/SavingFixture.h"

namespace
{

using namespace SavingWindows;

/// The window that saves, and what it held before.
struct {
    WindowBuffer tag;
    ByteBuffer before;
    std::string folders;
} Held;

std::string foldersKept() { return App.LastDirFiles + "|" + App.LastDirPrg + "|" + App.LastDirGbl; }

using MakeWindow = std::function<WindowBuffer(const std::string& song)>;

struct SaveRow {
    const char* name;
    std::vector<WrittenFile> files;
    Telling telling;
    MakeWindow window;
    int (*save)(WindowBuffer&);
    std::string chosen = {}; ///< name in the save dialog, its filter behind it
    int filter = 0;
};

int closeWithYes(WindowBuffer& tag) { return AgreeToClose(tag, "title") ? 0 : 1; }

WritePath pathOf(const SaveRow& row)
{
    WritePath path{row.name, row.files, row.telling, {}, {}};
    path.ready = [row](const Site& site, FaultUser& user) {
        Held.tag = row.window(site.user() + "/song");
        Held.before = Held.tag.bytes();
        Held.folders = foldersKept();
        if (row.filter != 0)
            user.saveFiles = {{true, site.user() + "/" + row.chosen, row.filter}};
    };
    path.act = [row](const Site&, FaultUser&) { return row.save(Held.tag); };
    path.untouched = [] { return Held.tag.bytes() == Held.before && foldersKept() == Held.folders; };
    path.keepsCopies = true;
    return path;
}

constexpr const char* Untitled = " (Untitled 1)";

/// Windows on the song, or of another path.
MakeWindow arr(int kind, int styleState, const std::string& path = {})
{
    return [=](const std::string& song) {
        const bool holds = styleState == 2;
        WindowBuffer tag = arrangements(kind, path.empty() ? song : path, styleState, holds ? fourStyles() : "");
        if (holds)
            tag.set(9, 1);
        return tag;
    };
}
MakeWindow prg(int kind, int type, const std::string& path = {})
{
    return [=](const std::string& song) { return programs(kind, path.empty() ? song : path, type); };
}
MakeWindow sty(int kind, const std::string& path = {})
{
    return [=](const std::string& song) { return styles(kind, path.empty() ? song : path, fourStyles()); };
}
MakeWindow gbl(int kind, const std::string& path = {})
{
    return [=](const std::string& song) { return globals(kind, path.empty() ? song : path); };
}
MakeWindow arrBank(int kind)
{
    return [=](const std::string&) { return bank(kind); };
}
/// A window that never had a name of its own: closing asks for one.
MakeWindow nameless(const MakeWindow& make)
{
    return [=](const std::string& song) {
        WindowBuffer tag = make(song);
        tag.set(17, 1);
        return tag;
    };
}

const std::string Old(20000, 'o');

WrittenFile file(const char* name, std::optional<std::string> before, std::optional<std::string> after)
{
    return {Place::User, name, std::move(before), std::move(after)};
}

struct Bytes {
    std::string arr = handMade(arrHead(), 10528), prg = handMade(prgHead(), 30480), pgg = handMade(pggHead(), 30480);
    std::string gbl = handMade(gblHead(), 448), sty = fourStyles();
};

constexpr Telling Reading = Telling::ByReading;
constexpr Telling Writing = Telling::ByWriting;
constexpr Telling Both = Telling::ByBoth;

std::vector<SaveRow> saveRows()
{
    const Bytes b;
    const WrittenFile newSty = file("song.sty", Old, b.sty);
    const WrittenFile oldSty = file("song.sty", Old, Old);
    const WrittenFile noSty = file("song.sty", Old, {});
    const WrittenFile noPgg = file("song.pgg", Old, {});
    return {
        {"save arr with styles", {file("song.arr", Old, b.arr), newSty}, Reading, arr(19, 2), FileSave},
        {"save arr without styles", {file("song.arr", Old, b.arr), oldSty}, Reading, arr(19, 0), FileSave},
        {"save new arr with styles", {file("song.arr", {}, b.arr), newSty}, Reading, arr(20, 2), FileSave},
        {"save new arr dropping styles", {file("song.arr", Old, b.arr), noSty}, Reading, arr(20, 1), FileSave},
        {"save prg dropping its twin", {file("song.prg", Old, b.prg), noPgg}, Reading, prg(21, 0), FileSave},
        {"save pgg dropping its twin",
         {file("song.pgg", {}, b.pgg), file("song.prg", Old, {})},
         Reading,
         prg(21, 1),
         FileSave},
        {"save named new prg", {file("song.prg", Old, b.prg), noPgg}, Reading, prg(22, 0), FileSave},
        {"save named new pgg", {file("song.pgg", Old, b.pgg)}, Reading, prg(22, 1), FileSave},
        {"save sty", {file("song.sty", Old, b.sty)}, Reading, sty(23), FileSave},
        {"save gbl", {file("song.gbl", Old, b.gbl)}, Reading, gbl(25), FileSave},
    };
}

std::vector<SaveRow> saveAsRows()
{
    const Bytes b;
    const WrittenFile newArr = file("other.arr", Old, b.arr);
    const std::vector<WrittenFile> fromSong = {file("song.arr", Old, Old), file("other.arr", {}, b.arr),
                                               file("other.sty", Old, b.sty)};
    const std::vector<WrittenFile> newPrg = {file("other.prg", Old, b.prg), file("other.pgg", Old, {})};
    const std::vector<WrittenFile> newPgg = {file("other.pgg", Old, b.pgg), file("other.prg", Old, {})};
    const WrittenFile replacedSty = file("other.sty", Old, b.sty);
    const WrittenFile newSty = file("other.sty", {}, b.sty);
    const WrittenFile replacedGbl = file("other.gbl", Old, b.gbl);
    const WrittenFile newGbl = file("other.gbl", {}, b.gbl);
    return {
        {"save as from a bank", {newArr}, Writing, arrBank(2), FileSaveAs, "other.arr", 1},
        {"save as arr with styles", fromSong, Both, arr(19, 2), FileSaveAs, "other.arr", 1},
        {"save as untitled arr", {newArr, replacedSty}, Both, arr(20, 2, Untitled), FileSaveAs, "other.arr", 1},
        {"save as prg", newPrg, Writing, prg(21, 0), FileSaveAs, "other.prg", 3},
        {"save as untitled pgg", newPgg, Writing, prg(22, 1, Untitled), FileSaveAs, "other.prg", 3},
        {"save as sty", {replacedSty}, Reading, sty(23), FileSaveAs, "other.sty", 2},
        {"save as untitled sty", {newSty}, Reading, sty(24, Untitled), FileSaveAs, "other", 2},
        {"save as gbl", {replacedGbl}, Writing, gbl(25), FileSaveAs, "other.gbl", 5},
        {"save as the instrument's gbl", {newGbl}, Writing, gbl(14, "Global Parameters"), FileSaveAs, "other", 5},
    };
}

std::vector<SaveRow> closingRows()
{
    const Bytes b;
    const WrittenFile songArr = file("song.arr", Old, b.arr);
    const WrittenFile songSty = file("song.sty", Old, b.sty);
    const WrittenFile otherArr = file("other.arr", {}, b.arr);
    const WrittenFile otherSty = file("other.sty", {}, b.sty);
    const std::vector<WrittenFile> songPgg = {file("song.pgg", Old, b.pgg), file("song.prg", Old, {})};
    const MakeWindow newArr = nameless(arr(20, 2, Untitled));
    const MakeWindow newPrg = nameless(prg(22, 0, Untitled));
    const MakeWindow newSty = nameless(sty(24, Untitled));
    return {
        {"close arr with styles", {songArr, songSty}, Reading, arr(19, 2), closeWithYes},
        {"close arr dropping styles", {songArr, file("song.sty", Old, {})}, Reading, arr(19, 1), closeWithYes},
        {"close a bank", {otherArr}, Writing, arrBank(3), closeWithYes, "other.arr", 1},
        {"close named new arr", {songArr, songSty}, Reading, arr(20, 2), closeWithYes},
        {"close untitled arr", {otherArr, otherSty}, Both, newArr, closeWithYes, "other.arr", 1},
        {"close pgg", songPgg, Reading, prg(21, 1), closeWithYes},
        {"close untitled prg", {file("other.prg", Old, b.prg)}, Writing, newPrg, closeWithYes, "other.prg", 3},
        {"close sty", {songSty}, Reading, sty(23), closeWithYes},
        {"close untitled sty", {otherSty}, Reading, newSty, closeWithYes, "other.sty", 2},
        {"close gbl", {file("song.gbl", Old, b.gbl)}, Reading, gbl(25), closeWithYes},
    };
}

/// The same saves where the disk makes them go another way.
std::vector<WritePath> oddPlaces()
{
    const Bytes b;
    std::vector<WritePath> paths;
    // A second name of the user's lets the copy be one of bytes; both names were made before the save began.
    const std::pair<const char*, SaveRow> twoNames[] = {
        {"song.arr",
         {"save arr of two names",
          {file("song.arr", Old, b.arr), file("second name", {}, Old)},
          Reading,
          arr(19, 0),
          FileSave}},
        {"song.pgg",
         {"save pgg of two names",
          {file("song.pgg", Old, b.pgg), file("second name", {}, Old), file("song.prg", Old, {})},
          Reading,
          prg(21, 1),
          FileSave}},
    };
    for (const auto& [first, row] : twoNames) {
        paths.push_back(pathOf(row));
        paths.back().secondName = "second name";
        paths.back().files[1].before = Old;
        // Where the rename is refused the file is written in place, under all its names.
        paths.back().files[1].between = {*row.files[0].after};
        paths.back().files[1].silent = true;
    }
    const SaveRow rows[] = {
        {"save arr in place", {file("song.arr", Old, b.arr)}, Reading, arr(19, 0), FileSave},
        {"save as gbl in place", {file("other.gbl", Old, b.gbl)}, Writing, gbl(25), FileSaveAs, "other.gbl", 5},
    };
    for (const SaveRow& row : rows) {
        paths.push_back(pathOf(row));
        paths.back().inPlace = true;
    }
    return paths;
}

} // namespace

std::vector<WritePath> windowPaths()
{
    std::vector<WritePath> paths;
    const std::pair<const char*, std::vector<SaveRow>> groups[] = {
        {"save", saveRows()}, {"save as", saveAsRows()}, {"closing save", closingRows()}};
    for (const auto& [group, rows] : groups)
        for (const SaveRow& row : rows) {
            paths.push_back(pathOf(row));
            paths.back().group = group;
        }
    for (WritePath& path : oddPlaces()) {
        path.group = "save in odd places";
        paths.push_back(std::move(path));
    }
    return paths;
}
