// Tarvolyne.ini: 46 records of 250 bytes, between the file and the settings in memory.
//
// Input: a byte of choices, (choice 128) a byte of length, then the file: patches on a valid one, or (choice 1) its
// bytes as they are.
#include "Fuzz.h"
#include "Images.h"

#include "core/Dichiarazioni.h"
#include "core/Settings.h"

#include <algorithm>
#include <iterator>

using namespace Fuzz;

namespace
{

constexpr int Raw = 1, Odd = 0x80; ///< choices
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

// By the file's tables, from the bytes.

int bigAt(std::string_view image, std::size_t place) { return at(image, place) * 256 + at(image, place + 1); }
int placeAt(std::string_view image, std::size_t place) { return std::min(bigAt(image, place) - 16000, 16000); }
int lengthAt(std::string_view image, std::size_t place) { return std::min(bigAt(image, place), 32767); }

std::string pathAt(std::string_view image, std::size_t place)
{
    const std::string_view field = part(image, place, 238);
    return trimmed(field.substr(0, field.find('\0')));
}

bool isEntry(const SessionEntry& entry, std::string_view image, std::size_t number)
{
    const std::size_t place = record(number);
    return entry.path == pathAt(image, place) && entry.width == lengthAt(image, place + 238) &&
           entry.Open == at(image, place + 240) && entry.left == placeAt(image, place + 242) &&
           entry.top == placeAt(image, place + 244) && entry.readOnly == (at(image, place + 246) != 0) &&
           entry.height == lengthAt(image, place + 248);
}

bool isRow(const WindowPosition& row, std::string_view image, std::size_t number)
{
    const std::size_t place = 50 + 9 * (number - 1);
    const int flags = at(image, place + 8);
    const bool closed = number == 13 || number == 14 || number == 17 || number == 18;
    const bool withChannel = number >= 4 && number <= 10;
    return row.left == placeAt(image, place) && row.top == placeAt(image, place + 2) &&
           row.width == lengthAt(image, place + 4) && row.height == lengthAt(image, place + 6) &&
           row.Open == (closed        ? 0
                        : withChannel ? flags % 16
                                      : flags) &&
           row.Extra == (withChannel ? flags / 16 : 0);
}

void checkFirstRecord(const Settings& read, std::string_view image)
{
    const bool flags[] = {read.SettingSpare1, read.SettingSpare2, read.AutoStyNewArr, read.AutoSty,
                          read.StyleOption,   read.AutoPrg,       read.AutoDBArr,     read.StatusBar,
                          read.AutoArr,       read.ThruOn,        read.GlobalValid};
    constexpr std::size_t Places[] = {17, 18, 19, 20, 21, 22, 25, 26, 27, 45, 48};
    for (std::size_t i = 0; i < std::size(Places); ++i)
        must(flags[i] == (at(image, Places[i]) != 0), "a check mark is its byte");
    must(read.ReadOnlyOpen == (at(image, 16) == 1), "one check mark is set by 1 alone");
    must(read.Language == at(image, 24) && read.DeviceMode == at(image, 46), "language and mode are their bytes");
    must(read.GlobalChannel == (at(image, 213) < 16 ? at(image, 213) : 0), "the global channel is its byte");
    for (std::size_t i = 0; i < 16; ++i)
        must(read.KeyboardState[i] == at(image, 29 + i), "the keyboard's state is its bytes");
    for (std::size_t i = 0; i < 10; ++i)
        must(read.TrackChannels[i] == at(image, 214 + i), "the channels are their bytes");
    for (std::size_t row = 1; row <= 18; ++row)
        must(isRow(read.WinPos[row], image, row), "a window's place is its row");
}

void checkRead(const Settings& read, std::string_view image)
{
    checkFirstRecord(read, image);
    must(read.LastDirFiles == pathAt(image, record(2)) && read.LastDirPrg == pathAt(image, record(3)), "two folders");
    for (std::size_t i = 0; i < 8; ++i) {
        const SessionEntry& program = read.Programs[i];
        must(isEntry(program, image, 5 + i) && program.kind == at(image, record(5 + i) + 241) &&
                 program.programType == (at(image, record(5 + i) + 247) != 0 ? 1 : 0),
             "a program window is its record");
        must(read.Programs[8 + i].path.empty(), "eight of the sixteen are read");
        must(isEntry(read.Arrangements[i], image, 21 + i), "an arrangement window is its record");
        const int kind = at(image, record(39 + i) + 241);
        const std::string path = kind >= 1 && kind <= 5 ? pathAt(image, record(39 + i)) : std::string();
        const RecentEntry& recent = read.Recent[i];
        must(recent.path == path && recent.kind == (path.empty() ? 0 : kind) &&
                 recent.readOnly == (!path.empty() && at(image, record(39 + i) + 246) != 0),
             "a recent file is its record");
    }
    if (read.GlobalValid)
        for (std::size_t i = 0; i < 448; ++i)
            must(valueOf(read.GblCurrent[i]) == at(image, record(37) + i), "the global block is its record");
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
    const int length = (how & Odd) != 0 ? choices.byte() : 128;
    const std::string image =
        (how & Raw) != 0 ? std::string(choices.rest()) : lengthened(patched(valid, choices.rest()), length);

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
    checkRead(read, image);
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
