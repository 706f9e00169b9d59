// Program files, .prg and .pgg: read by name and by stem, laid into a window's buffer, shown, selected, sent, saved.
//
// Input: a byte of choices, a row, (choice 144) a byte of length, then the file: patches on a valid one, or (choice 1)
// its bytes as they are.
#include "Fuzz.h"
#include "Images.h"
#include "Wire.h"

#include "core/Dichiarazioni.h"
#include "core/PathNames.h"
#include "files/FileReaders.h"
#include "files/SavePlan.h"
#include "files/Saving.h"
#include "programs/PrgWindowBuilder.h"
#include "programs/ProgramRows.h"
#include "programs/ProgramSends.h"
#include "programs/ProgramSource.h"

using namespace Fuzz;

namespace
{

constexpr int Raw = 1, References = 2, ByStem = 4, SendWanted = 8; ///< choices
constexpr int SaveWanted = 0xF0;                                   ///< by four bits together, since it is slowest
constexpr int Odd = 0x90;                                          ///< alone among them
constexpr std::size_t Records = 48, RecordSize = 172;

bool headIs(std::string_view file, const char* letters)
{
    return file.size() == 30480 && file.starts_with(letters) && file.substr(4, 3) == std::string_view("\x4D\0\0", 3);
}

/// What PrgFileRead must answer, and PrgFileFind, which takes no other head than the extension's.
int expectedResult(std::string_view file, bool reference, bool find)
{
    if (file.empty())
        return 3;
    if (find)
        return !headIs(file, reference ? "KPGG" : "KORG") ? 2 : reference ? 4 : 0;
    return headIs(file, "KORG") || headIs(file, "KPGG") ? 0 : 2;
}

void checkRow(const WindowBuffer& tag, std::string_view file, std::size_t row)
{
    const std::string_view record = part(file, Records + RecordSize * row, RecordSize);
    const std::string text = programRowText(tag.bytes(), static_cast<int>(row));
    const std::string code = {static_cast<char>('1' + row / 8), static_cast<char>('1' + row % 8)};
    must(text.starts_with(code), "a row's text begins with its code");
    must((text.size() == 2) == (at(record, 0) == 0), "a free record shows its code alone");
    if (text.size() == 2)
        return;
    must(text.size() == 20 && text[3] == (at(record, 0) == 1 ? '*' : ' '), "a reference has its mark");
    for (std::size_t k = 0; k < 16; ++k) {
        const char byte = record[3 + k];
        must(valueOf(byte) < 0x20 || valueOf(byte) > 0x7E || text[4 + k] == byte, "a name comes back");
    }
    Midi.SysExOutput.clear();
    ProgramSend(tag.bytes(), static_cast<int>(row));
    must(Midi.SysExOutput.size() == 8, "a program is selected by three messages");
    const std::string& sent = Midi.SysExOutput;
    must(at(sent, 0) / 16 == 0xB && at(sent, 3) == at(sent, 0) && at(sent, 6) == at(sent, 0) + 0x10, "of one channel");
    for (const std::size_t data : {1U, 2U, 4U, 5U, 7U})
        must(at(sent, data) < 0x80, "their data are no status bytes");
}

void checkSent(LastMessage& wire, const WindowBuffer& tag, std::string_view file, bool reference)
{
    std::string expected(file.substr(Records, 64 * RecordSize));
    for (std::size_t row = 0; row < 64; ++row)
        if (reference && at(expected, RecordSize * row) == 1)
            expected.replace(RecordSize * row, 20, std::string(20, '\0'));
    expected += file.substr(23096, 2104);
    ProgramDumpSend(tag.bytes());
    std::string body;
    must(unpacked(bodyOf(wire.message, App.GlobalChannel, 0x4C), body), "the dump unpacks");
    must(body == expected, "the dump is the records and the second area");
}

void checkTag(LastMessage& wire, const std::string& file, int how, std::size_t row, bool reference)
{
    SessionEntry entry;
    entry.path = desk().folder + "/song";
    entry.programType = reference ? 1 : 0;
    const WindowBuffer tag = PrgTagBuild(WindowKind::PrgFile, 1, entry);
    must(tag.bytes().size() == 270 + 30480 + 1344, "the buffer has the length of its kind");
    must(tag.kind() == 21 && tag.number() == 1 && tag.path() == entry.path, "the head is the window's");
    must(fileArea(tag, reference ? FileKind::Pgg : FileKind::Prg) == file, "what would be saved is the file");
    const int channel = programChannel(tag.bytes());
    must(channel >= 0 && channel <= 15, "a window has a channel");
    ByteBuffer changed = tag.bytes();
    setProgramChannel(changed, 9);
    changed[270 + 15] = file[15];
    must(changed == tag.bytes(), "a channel is one byte of the file");
    checkRow(tag, file, row);
    if ((how & SendWanted) != 0)
        checkSent(wire, tag, file, reference);
    if ((how & SaveWanted) == SaveWanted) {
        WindowBuffer work = tag;
        DeskFile own(reference ? "song.pgg" : "song.prg");
        must(FileSave(work) == 0, "a save succeeds");
        must(own.get() == file, "save(load(x)) = x");
    }
}

} // namespace

void fuzzOne(std::string_view input)
{
    static DeskFile ordinary("song.prg"), referring("song.pgg");
    static LastMessage wire;
    static const std::string valid[] = {Images::prg(false), Images::prg(true)};
    Choices choices(input);
    const int how = choices.byte();
    const auto row = static_cast<std::size_t>(choices.byte()) % 64;
    const bool reference = (how & References) != 0;
    const int length = (how & SaveWanted) == Odd ? choices.byte() : 128;
    const std::string file = (how & Raw) != 0 ? std::string(choices.rest())
                                              : lengthened(patched(valid[reference ? 1 : 0], choices.rest()), length);
    DeskFile& disk = reference ? referring : ordinary;
    (reference ? ordinary : referring).remove();
    disk.put(file);
    desk().user = {};
    Files.PrgBuffer = "kept";
    Files.PrgName = "other";

    const bool find = (how & ByStem) != 0;
    const int result = find ? PrgFileFind(desk().folder + "/song") : PrgFileRead(disk.path());
    must(result == expectedResult(file, reference, find), "the result is the rules'");
    must(disk.exists() == !file.empty(), "a file without a byte is deleted, no other");
    must(desk().user.all() == (result == 2 ? 1 : 0), "a refusal is told once, and nothing else");
    if (result == 2 || result == 3) {
        must(Files.PrgBuffer == "kept", "a refused file leaves the last one");
        return;
    }
    must(Files.PrgBuffer == file && Files.PrgName == "song", "what is read is the file");
    must(Files.PrgExtension == (reference ? "pgg" : "prg"), "and its extension the file's");
    checkTag(wire, file, how, row, reference);
}
