// The saves that are broken off at every system call: what stands on disk before, what after, and the save itself. The
// saver runs one of them; the sweep prepares the disk for it and looks at what is left.
#pragma once

#include "files/SavingFixture.h"

#include <functional>
#include <optional>

struct SavedFile {
    std::string name;
    std::optional<std::string> before; ///< nothing: the file is absent
    std::optional<std::string> after;
};

struct SaveCase {
    const char* name;
    std::vector<SavedFile> files;
    std::function<int(const std::string& folder, ScriptedUser& user)> save;
    const char* secondName = nullptr; ///< of the first file
};

inline std::vector<SaveCase> saveCases()
{
    using namespace SavingWindows;
    const std::string arr = handMade(arrHead(), 10528), prg = handMade(prgHead(), 30480);
    const std::string pgg = handMade(pggHead(), 30480), gbl = handMade(gblHead(), 448), sty = fourStyles();
    const std::string old(20000, 'o');
    const auto choose = [](ScriptedUser& user, const std::string& path, int filter) {
        user.saveFiles.push_back({true, path, filter});
    };
    const auto withStyles = [](int kind, const std::string& path) {
        WindowBuffer tag = arrangements(kind, path, 2, fourStyles());
        tag.set(9, 1);
        return tag;
    };
    return {
        {"save-arr",
         {{"song.arr", old, arr}, {"song.sty", old, sty}},
         [=](const std::string& folder, ScriptedUser&) {
             WindowBuffer tag = withStyles(19, folder + "/song");
             return FileSave(tag);
         }},
        {"save-new-arr-without-styles",
         {{"song.arr", old, arr}, {"song.sty", old, {}}},
         [=](const std::string& folder, ScriptedUser&) {
             WindowBuffer tag = arrangements(20, folder + "/song", 1, "");
             return FileSave(tag);
         }},
        {"save-prg",
         {{"song.prg", old, prg}, {"song.pgg", old, {}}},
         [=](const std::string& folder, ScriptedUser&) {
             WindowBuffer tag = programs(21, folder + "/song", 0);
             return FileSave(tag);
         }},
        {"save-pgg-beside-its-twin",
         {{"song.pgg", {}, pgg}, {"song.prg", old, {}}},
         [=](const std::string& folder, ScriptedUser&) {
             WindowBuffer tag = programs(21, folder + "/song", 1);
             return FileSave(tag);
         }},
        {"save-sty",
         {{"song.sty", old, sty}},
         [=](const std::string& folder, ScriptedUser&) {
             WindowBuffer tag = styles(23, folder + "/song", sty);
             return FileSave(tag);
         }},
        {"save-gbl",
         {{"song.gbl", old, gbl}},
         [=](const std::string& folder, ScriptedUser&) {
             WindowBuffer tag = globals(25, folder + "/song");
             return FileSave(tag);
         }},
        {"closing-save",
         {{"song.arr", old, arr}, {"song.sty", old, sty}},
         [=](const std::string& folder, ScriptedUser&) {
             WindowBuffer tag = withStyles(19, folder + "/song");
             return ArrClosingSave(tag);
         }},
        {"save-as-arr",
         {{"song.arr", old, old}, {"other.arr", {}, arr}, {"other.sty", old, sty}},
         [=](const std::string& folder, ScriptedUser& user) {
             WindowBuffer tag = withStyles(19, folder + "/song");
             choose(user, folder + "/other.arr", 1);
             return FileSaveAs(tag);
         }},
        {"save-as-pgg",
         {{"other.pgg", old, pgg}, {"other.prg", old, {}}},
         [=](const std::string& folder, ScriptedUser& user) {
             WindowBuffer tag = programs(22, folder + "/song", 1);
             choose(user, folder + "/other.prg", 3);
             return FileSaveAs(tag);
         }},
        {"save-as-prg",
         {{"other.prg", old, prg}, {"other.pgg", old, {}}},
         [=](const std::string& folder, ScriptedUser& user) {
             WindowBuffer tag = programs(21, folder + "/song", 0);
             choose(user, folder + "/other.prg", 3);
             return FileSaveAs(tag);
         }},
        {"save-as-sty",
         {{"other.sty", old, sty}},
         [=](const std::string& folder, ScriptedUser& user) {
             WindowBuffer tag = styles(24, " (Untitled 1)", sty);
             choose(user, folder + "/other", 2);
             return FileSaveAs(tag);
         }},
        {"save-new-arr-with-styles",
         {{"song.arr", {}, arr}, {"song.sty", old, sty}},
         [=](const std::string& folder, ScriptedUser&) {
             WindowBuffer tag = withStyles(20, folder + "/song");
             return FileSave(tag);
         }},
        {"save-named-new-prg",
         {{"song.prg", old, prg}, {"song.pgg", old, {}}},
         [=](const std::string& folder, ScriptedUser&) {
             WindowBuffer tag = programs(22, folder + "/song", 0);
             return FileSave(tag);
         }},
        {"closing-save-without-styles",
         {{"song.arr", old, arr}, {"song.sty", old, {}}},
         [=](const std::string& folder, ScriptedUser&) {
             WindowBuffer tag = arrangements(19, folder + "/song", 1, "");
             return ArrClosingSave(tag);
         }},
        // A second name of the user's lets the copy be one of bytes; both names were made before the save began.
        {"save-a-file-of-two-names",
         {{"song.gbl", old, gbl}, {"second name", old, old}},
         [=](const std::string& folder, ScriptedUser&) {
             WindowBuffer tag = globals(25, folder + "/song");
             return FileSave(tag);
         },
         "second name"},
        {"save-as-gbl",
         {{"other.gbl", {}, gbl}},
         [=](const std::string& folder, ScriptedUser& user) {
             WindowBuffer tag = globals(14, "Global Parameters");
             choose(user, folder + "/other", 5);
             return FileSaveAs(tag);
         }},
    };
}
