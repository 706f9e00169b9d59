// Arrangement files: read, laid into a window's buffer, shown, sent, saved.
//
// Input: a byte of choices, a row, (choice 128) a byte of length, then the file: patches on a valid one, or (choice 1)
// its bytes as they are. What costs time is done where a choice asks for it.
#include "Fuzz.h"
#include "Images.h"
#include "Wire.h"

#include "arrangements/ArrParameters.h"
#include "arrangements/ArrRows.h"
#include "arrangements/ArrSends.h"
#include "arrangements/ArrWindowBuilder.h"
#include "core/Dichiarazioni.h"
#include "core/PathNames.h"
#include "files/FileReaders.h"
#include "files/SavePlan.h"
#include "files/Saving.h"
#include "files/WindowLayout.h"

using namespace Fuzz;

namespace
{

constexpr int Raw = 1, SendWanted = 0x20, ShowWanted = 0x40, Odd = 0x80; ///< choices
constexpr int SaveWanted = 0x1E;                                         ///< by four bits together, since it is slowest
constexpr std::size_t Rows = 64, FirstRow = 32, RowSize = 164;

int expectedResult(std::string_view file)
{
    if (file.empty())
        return 3;
    return file.size() == 10528 && file.starts_with(std::string_view("KORG\x4D\x00\x03", 7)) ? 0 : 2;
}

/// The panel's code of a row: 11 to 18, 21 to 28, on to 88.
std::string codeOf(std::size_t row) { return {static_cast<char>('1' + row / 8), static_cast<char>('1' + row % 8)}; }

bool printable(std::string_view text)
{
    for (const char one : text)
        if (valueOf(one) < 0x20 || valueOf(one) > 0x7E)
            return false;
    return true;
}

void checkRow(const WindowBuffer& tag, std::string_view file, std::size_t row)
{
    const std::string_view record = part(file, FirstRow + RowSize * row, RowSize);
    const std::string text = arrRowText(tag.bytes(), static_cast<int>(row));
    must(text.starts_with(codeOf(row)), "a row's text begins with its code");
    must((text.size() == 2) == (at(record, 0) == 0), "a record whose name begins with 0 shows its code alone");
    if (text.size() > 2) {
        must(text[3] == (at(record, 18) == 1 ? '+' : ' '), "a user style has its mark");
        must(text.size() == 20 && (!printable(record.substr(0, 16)) || text.substr(4) == record.substr(0, 16)),
             "a name comes back");
    }
    const std::string style = arrStyleEntry(tag.bytes(), static_cast<int>(row));
    must(style.size() < 64, "a style's words are short");
    must(arrRecord(tag.bytes(), static_cast<int>(row)) == record, "a record is the file's");
    for (int which = 0; which < static_cast<int>(ArrGeneral::Count); ++which) {
        const auto field = static_cast<ArrGeneral>(which);
        const int position = arrPosition(record, field);
        must(position >= -256 && position <= 511, "a position is a small number");
        must(arrRow(record, field).size() < 64, "the words of a position are short");
    }
    for (int track = 0; track < 9; ++track)
        for (int which = 0; which < static_cast<int>(ArrTrack::Count); ++which)
            must(arrPosition(record, track, static_cast<ArrTrack>(which)) >= -256, "a track's position is a number");
}

void checkSent(std::string_view file)
{
    static LastMessage wire;
    App.GlobalChannel = 5;
    WindowBuffer tag = ArrBankTagBuild(WindowKind::ArrBankA);
    wire.message.clear();
    ArrBlockSend(tag.bytes());
    std::string body;
    must(unpacked(bodyOf(wire.message, 5, 0x64), body), "the dump unpacks");
    must(body == file.substr(32), "the dump is the file's 64 records");
}

void checkSaved(const DeskFile& disk, const DeskFile& beside, WindowBuffer tag, std::string_view file,
                const std::string& styles)
{
    must(FileSave(tag) == 0, "a save succeeds");
    must(disk.get() == file, "save(load(x)) = x");
    must(beside.get() == styles, "and so of the styles beside it");
}

} // namespace

void fuzzOne(std::string_view input)
{
    static DeskFile disk("song.arr"), beside("song.sty"), programs("song.prg");
    static const std::string styles = Images::sty(std::vector<std::size_t>(16, 20));
    static const std::string valid = Images::arr();
    Choices choices(input);
    const int how = choices.byte();
    const auto row = static_cast<std::size_t>(choices.byte()) % Rows;
    const int length = (how & Odd) != 0 ? choices.byte() : 128;
    const std::string file =
        (how & Raw) != 0 ? std::string(choices.rest()) : lengthened(patched(valid, choices.rest()), length);

    disk.put(file);
    if (!beside.exists()) {
        beside.put(styles);
        programs.put(Images::prg(false));
    }
    desk().user = {};
    Files.ArrBuffer = "kept";
    Files.ArrName = "other";
    const int result = ArrFileRead(disk.path());
    must(result == expectedResult(file), "the result is the rules'");
    must(disk.exists() == !file.empty(), "a file without a byte is deleted, no other");
    must(desk().user.all() == (result == 2 ? 1 : 0), "a refusal is told once, and nothing else");
    if (result != 0) {
        must(Files.ArrBuffer == "kept" && Files.ArrName == "other", "a refused file leaves nothing changed");
        return;
    }
    must(Files.ArrBuffer == file && Files.ArrName == "song", "what is read is the file");
    SessionEntry entry;
    entry.path = desk().folder + "/song";
    const WindowBuffer tag = ArrTagBuild(1, entry);
    must(tag.bytes().size() == 42622 + styles.size() && tag.styleArea() == styles,
         "the buffer has the length of its kind");
    must(tag.kind() == 19 && tag.number() == 1 && tag.path() == entry.path, "the head is the window's");
    must(fileArea(tag, FileKind::Arr) == file, "what would be saved is the file");
    if ((how & ShowWanted) != 0)
        checkRow(tag, file, row);
    if ((how & SendWanted) != 0)
        checkSent(file);
    if ((how & SaveWanted) == SaveWanted)
        checkSaved(disk, beside, tag, file, styles);
}
