// Global files: read, shown and edited field by field, sent, saved.
//
// Input: a byte of choices, a field, a position (16 bits), an index, (choice 128) a byte of length, then the file:
// patches on a valid one, or (choice 1) its bytes as they are.
#include "Fuzz.h"
#include "Images.h"
#include "Wire.h"

#include "core/Dichiarazioni.h"
#include "core/PathNames.h"
#include "files/FileReaders.h"
#include "files/SavePlan.h"
#include "files/Saving.h"
#include "global/GblEdit.h"

using namespace Fuzz;

namespace
{

constexpr int Raw = 1, ShowWanted = 0x40, Odd = 0x80; ///< choices
constexpr int SaveWanted = 0x3E;                      ///< by five bits together, since it is slowest

int expectedResult(std::string_view file)
{
    if (file.empty())
        return 3;
    return file.size() == 448 && file.starts_with(std::string_view("KORG\x4D\x00\x06\x01", 8)) ? 0 : 2;
}

void checkFields(const WindowBuffer& tag)
{
    for (int which = 0; which < static_cast<int>(GblField::Count); ++which) {
        const auto field = static_cast<GblField>(which);
        for (int index = 0; index < gblParameter(field).field.size; ++index) {
            const int shown = gblShown(tag, field, index);
            must(shown >= -256 && shown < 512, "a position is a small number");
        }
    }
}

/// An edit changes one byte of the 415 at most, and what it sends is the block as it then is.
void checkEdit(LastMessage& wire, WindowBuffer& tag, GblField field, int position, int index)
{
    const std::string before = tag.bytes();
    wire.count = 0;
    const bool done = gblEdit(tag, field, position, index);
    const std::string& after = tag.bytes();
    must(after.size() == before.size(), "an edit keeps the length");
    int changed = 0;
    for (std::size_t i = 20; i < after.size(); ++i)
        changed += after[i] != before[i] ? 1 : 0;
    must(changed <= 1, "an edit changes one byte at most");
    must(wire.count == (done ? 1 : 0), "an edit sends once, a refused one nothing");
    if (!done) {
        must(after == before, "a refused edit changes nothing");
        return;
    }
    const GblParameter& row = gblParameter(field);
    must(position >= row.low && position <= row.high && index >= 0 && index < row.field.size,
         "a position that its control does not have is refused");
    must(at(after, 3) == 1, "an edited block is modified");
    std::string body;
    must(unpacked(bodyOf(wire.message, App.GlobalChannel, 0x51), body), "the dump unpacks");
    must(body == std::string_view(after).substr(270 + 32, 415), "the dump is the block's parameters");
}

} // namespace

void fuzzOne(std::string_view input)
{
    static DeskFile disk("song.gbl");
    static LastMessage wire;
    static const std::string valid = Images::gbl();
    Choices choices(input);
    const int how = choices.byte();
    const auto field = static_cast<GblField>(choices.byte() % static_cast<int>(GblField::Count));
    const int position = choices.word() % 600 - 300;
    const int index = choices.byte() % 56 - 4;
    const int length = (how & Odd) != 0 ? choices.byte() : 128;
    const std::string file =
        (how & Raw) != 0 ? std::string(choices.rest()) : lengthened(patched(valid, choices.rest()), length);
    disk.put(file);
    desk().user = {};
    Files.GblBuffer = "kept";
    Files.GblName = "other";

    const int result = GblFileRead(disk.path());
    must(result == expectedResult(file), "the result is the rules'");
    must(disk.exists() == !file.empty(), "a file without a byte is deleted, no other");
    must(desk().user.all() == (result == 2 ? 1 : 0), "a refusal is told once, and nothing else");
    if (result != 0) {
        must(Files.GblBuffer == "kept" && Files.GblName == "other", "a refused file leaves nothing changed");
        return;
    }
    must(Files.GblBuffer == file && Files.GblName == "song", "what is read is the file");
    App.Globals[1].path = desk().folder + "/song";
    WindowBuffer tag = GblTagBuild(1);
    must(tag.bytes().size() == 270 + 448 && tag.kind() == 25 && tag.number() == 1, "the buffer is that of its kind");
    must(fileArea(tag, FileKind::Gbl) == file, "what would be saved is the file");
    if ((how & ShowWanted) != 0)
        checkFields(tag);
    if ((how & SaveWanted) == SaveWanted) {
        WindowBuffer work = tag;
        must(FileSave(work) == 0 && disk.get() == file, "save(load(x)) = x");
    }
    checkEdit(wire, tag, field, position, index);
    GblSlotLeave(tag);
}
