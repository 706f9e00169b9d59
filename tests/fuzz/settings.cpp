// Tarvolyne.ini: 46 records of 250 bytes, between the file and the settings in memory.
//
// Input: a byte of choices, then the file: patches on a valid one, or (choice 1) its bytes as they are.
#include "Fuzz.h"
#include "Images.h"

#include "core/Dichiarazioni.h"
#include "core/Settings.h"

using namespace Fuzz;

namespace
{

constexpr int Raw = 1;
constexpr std::size_t RecordSize = 250, FileSize = 11500;

/// A record's first byte in the file, records counted from 1.
constexpr std::size_t record(std::size_t number) { return (number - 1) * RecordSize; }

void checkPath(const std::string& path)
{
    must(path.size() <= 238, "a path fits its field");
    must(path.empty() || path.back() != ' ', "a path has no blank at its end");
    must(path.find('\0') == std::string::npos, "a path has no NUL in it");
}

void checkLength(int twips) { must(twips >= 0 && twips <= 32767, "a length is one of 16 bits"); }
void checkPlace(int twips) { must(twips >= -16000 && twips <= 16000, "a place is within its limits"); }

void checkEntry(const SessionEntry& entry)
{
    checkPath(entry.path);
    checkLength(entry.width);
    checkLength(entry.height);
    checkPlace(entry.left);
    checkPlace(entry.top);
    must(entry.programType == 0 || entry.programType == 1, "a program file is of one of two types");
    must(!entry.used && entry.databaseId == 0 && !entry.linked, "what is of a run only is not read");
}

void checkRanges(const Settings& read)
{
    must(read.Language == 1 || read.Language == 2, "a language is one of two");
    must(read.GlobalChannel >= 0 && read.GlobalChannel <= 15, "a channel is one of 16");
    for (std::size_t row = 1; row <= 18; ++row) {
        checkLength(read.WinPos[row].width);
        checkLength(read.WinPos[row].height);
        checkPlace(read.WinPos[row].left);
        checkPlace(read.WinPos[row].top);
        must(read.WinPos[row].Extra >= 0 && read.WinPos[row].Extra <= 15, "a channel of a window is one of 16");
    }
    for (const std::size_t row : {13U, 14U, 17U, 18U})
        must(read.WinPos[row].Open == 0, "four windows do not come back by themselves");
    checkPath(read.LastDirFiles);
    checkPath(read.LastDirPrg);
    for (const SessionEntry& entry : read.Programs)
        checkEntry(entry);
    for (const SessionEntry& entry : read.Arrangements)
        checkEntry(entry);
    for (const RecentEntry& entry : read.Recent) {
        checkPath(entry.path);
        must(entry.path.empty() ? entry.kind == 0 : entry.kind >= 1 && entry.kind <= 5, "a recent file has a kind");
    }
    must(read.GblCurrent.size() == (read.GlobalValid ? 448 : 0), "a global block is whole or not there");
}

/// What the program does not name is written back as it was.
void checkRest(const std::string& image, const std::string& written)
{
    must(written.size() == FileSize, "the file has its length");
    for (const std::size_t place : {10U, 15U, 23U, 28U, 47U, 49U, 212U, 224U, 249U})
        must(at(written, place) == at(image, place), "a byte of record 1 without a name stays");
    for (const std::size_t number : {4U, 29U, 33U, 36U})
        for (std::size_t k = 0; k < RecordSize; ++k)
            must(at(written, record(number) + k) == at(image, record(number) + k), "a record without a name stays");
}

} // namespace

void fuzzOne(std::string_view input)
{
    static const std::string valid = Images::settings();
    desk();
    Choices choices(input);
    const int how = choices.byte();
    const std::string image = (how & Raw) != 0 ? std::string(choices.rest()) : patched(valid, choices.rest());

    Settings read;
    read.LastDirFiles = "kept";
    const bool good =
        image.starts_with(std::string_view("Tarvolyne\0", 10)) && (at(image, 24) == 1 || at(image, 24) == 2);
    must(SettingsFile::decode(image, read) == good, "a file counts by its signature and language");
    if (!good) {
        must(read.LastDirFiles == "kept" && read.Language == 0, "a refused file changes nothing");
        return;
    }
    checkRanges(read);
    const std::string written = SettingsFile::encode(read, image);
    checkRest(image, written);
    Settings again;
    must(SettingsFile::decode(written, again), "what is written is read");
    checkRanges(again);
    must(SettingsFile::encode(again, written) == written, "save(load(x)) = x of every file that was saved once");
    must(again.LastDirFiles == read.LastDirFiles && again.LastDirPrg == read.LastDirPrg, "folders come back");
    for (std::size_t i = 0; i < 8; ++i) {
        const SessionEntry &before = read.Arrangements[i], &after = again.Arrangements[i];
        must(after.Open == before.Open && (before.Open == 0 || after.path == before.path), "a session comes back");
        must(again.Recent[i].path == read.Recent[i].path && again.Recent[i].kind == read.Recent[i].kind &&
                 again.Recent[i].readOnly == read.Recent[i].readOnly,
             "recent files come back");
    }
    must(again.GblCurrent == read.GblCurrent && again.KeyboardState == read.KeyboardState &&
             again.TrackChannels == read.TrackChannels,
         "the block, the keyboard and the channels come back");
}
