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

struct SaveRow {
    const char* name;
    std::vector<WrittenFile> files;
    Telling telling;
    std::function<WindowBuffer(const std::string& song)> window;
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

WindowBuffer withStyles(int kind, const std::string& name)
{
    WindowBuffer tag = arrangements(kind, name, 2, fourStyles());
    tag.set(9, 1);
    return tag;
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

std::vector<SaveRow> saveRows()
{
    const Bytes b;
    const auto named = [](auto make, auto... rest) {
        return [=](const std::string& song) { return make(song, rest...); };
    };
    const auto arr = [](const std::string& song, int kind, int state) {
        return state == 2 ? withStyles(kind, song) : arrangements(kind, song, state, "");
    };
    const auto prg = [](const std::string& song, int kind, int type) { return programs(kind, song, type); };
    const Telling reading = Telling::ByReading;
    return {
        {"save arr with styles",
         {file("song.arr", Old, b.arr), file("song.sty", Old, b.sty)},
         reading,
         named(arr, 19, 2),
         FileSave},
        {"save arr without styles",
         {file("song.arr", Old, b.arr), file("song.sty", Old, Old)},
         reading,
         named(arr, 19, 0),
         FileSave},
        {"save new arr with styles",
         {file("song.arr", {}, b.arr), file("song.sty", Old, b.sty)},
         reading,
         named(arr, 20, 2),
         FileSave},
        {"save new arr dropping styles",
         {file("song.arr", Old, b.arr), file("song.sty", Old, {})},
         reading,
         named(arr, 20, 1),
         FileSave},
        {"save prg dropping its twin",
         {file("song.prg", Old, b.prg), file("song.pgg", Old, {})},
         reading,
         named(prg, 21, 0),
         FileSave},
        {"save pgg dropping its twin",
         {file("song.pgg", {}, b.pgg), file("song.prg", Old, {})},
         reading,
         named(prg, 21, 1),
         FileSave},
        {"save named new prg",
         {file("song.prg", Old, b.prg), file("song.pgg", Old, {})},
         reading,
         named(prg, 22, 0),
         FileSave},
        {"save named new pgg", {file("song.pgg", Old, b.pgg)}, reading, named(prg, 22, 1), FileSave},
        {"save sty",
         {file("song.sty", Old, b.sty)},
         reading,
         [](const std::string& s) { return styles(23, s, fourStyles()); },
         FileSave},
        {"save gbl",
         {file("song.gbl", Old, b.gbl)},
         reading,
         [](const std::string& s) { return globals(25, s); },
         FileSave},
    };
}

std::vector<SaveRow> saveAsRows()
{
    const Bytes b;
    const char* untitled = " (Untitled 1)";
    const Telling writing = Telling::ByWriting;
    return {
        {"save as from a bank",
         {file("other.arr", Old, b.arr)},
         writing,
         [](const std::string&) { return bank(2); },
         FileSaveAs,
         "other.arr",
         1},
        {"save as arr with styles",
         {file("song.arr", Old, Old), file("other.arr", {}, b.arr), file("other.sty", Old, b.sty)},
         Telling::ByBoth,
         [](const std::string& s) { return withStyles(19, s); },
         FileSaveAs,
         "other.arr",
         1},
        {"save as untitled arr",
         {file("other.arr", Old, b.arr), file("other.sty", Old, b.sty)},
         Telling::ByBoth,
         [=](const std::string&) { return withStyles(20, untitled); },
         FileSaveAs,
         "other.arr",
         1},
    };
}

std::vector<SaveRow> otherSaveAsRows()
{
    const Bytes b;
    const char* untitled = " (Untitled 1)";
    const Telling writing = Telling::ByWriting;
    return {
        {"save as prg",
         {file("other.prg", Old, b.prg), file("other.pgg", Old, {})},
         writing,
         [](const std::string& s) { return programs(21, s, 0); },
         FileSaveAs,
         "other.prg",
         3},
        {"save as untitled pgg",
         {file("other.pgg", Old, b.pgg), file("other.prg", Old, {})},
         writing,
         [=](const std::string&) { return programs(22, untitled, 1); },
         FileSaveAs,
         "other.prg",
         3},
        {"save as sty",
         {file("other.sty", Old, b.sty)},
         Telling::ByReading,
         [](const std::string& s) { return styles(23, s, fourStyles()); },
         FileSaveAs,
         "other.sty",
         2},
        {"save as untitled sty",
         {file("other.sty", {}, b.sty)},
         Telling::ByReading,
         [=](const std::string&) { return styles(24, untitled, fourStyles()); },
         FileSaveAs,
         "other",
         2},
        {"save as gbl",
         {file("other.gbl", Old, b.gbl)},
         writing,
         [](const std::string& s) { return globals(25, s); },
         FileSaveAs,
         "other.gbl",
         5},
        {"save as the instrument's gbl",
         {file("other.gbl", {}, b.gbl)},
         writing,
         [](const std::string&) { return globals(14, "Global Parameters"); },
         FileSaveAs,
         "other",
         5},
    };
}

std::vector<SaveRow> closingRows()
{
    const Bytes b;
    const auto untitled = [](WindowBuffer tag) {
        tag.set(17, 1);
        return tag;
    };
    const char* none = " (Untitled 1)";
    const Telling reading = Telling::ByReading, writing = Telling::ByWriting;
    return {
        {"close arr with styles",
         {file("song.arr", Old, b.arr), file("song.sty", Old, b.sty)},
         reading,
         [](const std::string& s) { return withStyles(19, s); },
         closeWithYes},
        {"close arr dropping styles",
         {file("song.arr", Old, b.arr), file("song.sty", Old, {})},
         reading,
         [](const std::string& s) { return arrangements(19, s, 1, ""); },
         closeWithYes},
        {"close a bank",
         {file("other.arr", {}, b.arr)},
         writing,
         [](const std::string&) { return bank(3); },
         closeWithYes,
         "other.arr",
         1},
        {"close named new arr",
         {file("song.arr", Old, b.arr), file("song.sty", Old, b.sty)},
         reading,
         [](const std::string& s) { return withStyles(20, s); },
         closeWithYes},
        {"close untitled arr",
         {file("other.arr", {}, b.arr), file("other.sty", {}, b.sty)},
         Telling::ByBoth,
         [=](const std::string&) { return untitled(withStyles(20, none)); },
         closeWithYes,
         "other.arr",
         1},
    };
}

std::vector<SaveRow> otherClosingRows()
{
    const Bytes b;
    const auto untitled = [](WindowBuffer tag) {
        tag.set(17, 1);
        return tag;
    };
    const char* none = " (Untitled 1)";
    const Telling reading = Telling::ByReading, writing = Telling::ByWriting;
    return {
        {"close pgg",
         {file("song.pgg", Old, b.pgg), file("song.prg", Old, {})},
         reading,
         [](const std::string& s) { return programs(21, s, 1); },
         closeWithYes},
        {"close untitled prg",
         {file("other.prg", Old, b.prg)},
         writing,
         [=](const std::string&) { return untitled(programs(22, none, 0)); },
         closeWithYes,
         "other.prg",
         3},
        {"close sty",
         {file("song.sty", Old, b.sty)},
         reading,
         [](const std::string& s) { return styles(23, s, fourStyles()); },
         closeWithYes},
        {"close untitled sty",
         {file("other.sty", {}, b.sty)},
         reading,
         [=](const std::string&) { return untitled(styles(24, none, fourStyles())); },
         closeWithYes,
         "other.sty",
         2},
        {"close gbl",
         {file("song.gbl", Old, b.gbl)},
         reading,
         [](const std::string& s) { return globals(25, s); },
         closeWithYes},
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
          Telling::ByReading,
          [](const std::string& s) { return arrangements(19, s, 0, ""); },
          FileSave}},
        {"song.pgg",
         {"save pgg of two names",
          {file("song.pgg", Old, b.pgg), file("second name", {}, Old), file("song.prg", Old, {})},
          Telling::ByReading,
          [](const std::string& s) { return programs(21, s, 1); },
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
        {"save arr in place",
         {file("song.arr", Old, b.arr)},
         Telling::ByReading,
         [](const std::string& s) { return arrangements(19, s, 0, ""); },
         FileSave},
        {"save as gbl in place",
         {file("other.gbl", Old, b.gbl)},
         Telling::ByWriting,
         [](const std::string& s) { return globals(25, s); },
         FileSaveAs,
         "other.gbl",
         5},
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
    const std::pair<const char*, std::vector<SaveRow>> groups[] = {{"save", saveRows()},
                                                                   {"save as", saveAsRows()},
                                                                   {"save as", otherSaveAsRows()},
                                                                   {"closing save", closingRows()},
                                                                   {"closing save", otherClosingRows()}};
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
