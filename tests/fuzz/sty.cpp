// Style files: read, catalogued, sent group by group, saved. Twice built: for small blocks, and for files at full size.
//
// Input: a byte of choices, a byte of length, then the file as it is (small blocks) or patches in steps of 8 bytes on a
// large one.
#include "Fuzz.h"
#include "Images.h"
#include "Wire.h"

#include "core/Dichiarazioni.h"
#include "files/FileReaders.h"
#include "files/StyFileWriter.h"
#include "files/StyImage.h"
#include "instrument/VirtualInstrument.h"
#include "styles/StyWindowBuilder.h"
#include "styles/StyleRows.h"
#include "styles/StyleSends.h"

using namespace Fuzz;

namespace
{

constexpr int Template = 1, SendWanted = 4, ShowWanted = 8; ///< choices
constexpr int Longer = 2;                                   ///< alone among the low four bits
constexpr int SaveWanted = 0xF0;                            ///< by four bits together, since it is slowest
constexpr std::size_t Head = 224, LongestRead = 289800, LongestFile = 64U << 20;

std::size_t lengthOfSlot(std::string_view file, std::size_t slot)
{
    return static_cast<std::size_t>(at(file, 24 + 4 * slot) + at(file, 25 + 4 * slot) * 256);
}
std::size_t placeOfSlot(std::string_view file, std::size_t slot)
{
    std::size_t place = Head;
    for (std::size_t before = 0; before < slot; ++before)
        place += lengthOfSlot(file, before);
    return place;
}
std::string nameOfSlot(std::string_view file, std::size_t slot)
{
    return trimmed(part(file, placeOfSlot(file, slot), 16));
}

/// The catalogue, by the rules' own steps.
void checkCatalogue(const WindowBuffer& tag, std::string_view file)
{
    std::size_t promised = Head, groups = 0;
    bool absent = false, user = false;
    for (std::size_t slot = 0; slot < 16; ++slot) {
        const int index = static_cast<int>(slot);
        const std::string name = nameOfSlot(file, slot);
        must(StySlotLen(index, file) == static_cast<int>(lengthOfSlot(file, slot)), "a slot's length is its entry's");
        must(StySlotPos(index, file) == (absent ? 0 : static_cast<int>(placeOfSlot(file, slot)) + 1),
             "a slot stands behind those before it, or nowhere");
        must(StySlotName(index, tag.bytes()) == name && StySlotNameInFile(index, file) == name, "a name comes back");
        absent = absent || lengthOfSlot(file, slot) == 0;
        promised += absent ? 0 : lengthOfSlot(file, slot);
        user = user || (!absent && name != "- empty -");
        if (name != "- empty -")
            groups = slot / 4 + 1;
    }
    must(StyFileLen(tag.bytes()) == static_cast<int>(promised), "the file is as long as its table says");
    must(StyGroupCount(tag.bytes()) == static_cast<int>(groups), "the last named slot gives the groups");
    must((ArrHasUserStyle(tag.bytes()) != 0) == user, "a style of the user is seen");
    must(styleListing(file).rows.size() == 19, "a style window has 19 rows");
}

void checkGroup(const WindowBuffer& tag, std::string_view file, std::size_t group)
{
    const std::size_t first = placeOfSlot(file, 4 * group), last = placeOfSlot(file, 4 * group + 4);
    bool sendable = true;
    std::size_t offset = 24;
    std::string expected;
    for (std::size_t slot = 4 * group; slot < 4 * group + 4; ++slot) {
        const std::size_t length = lengthOfSlot(file, slot);
        sendable = sendable && length > 0 && offset <= 65535;
        for (const std::size_t value :
             {offset % 256, std::size_t{0}, offset / 256, 0x80 + group, length % 256, length / 256})
            expected += static_cast<char>(value);
        offset += length;
    }
    Midi.SysExOutput = "kept";
    const int result = StyGroupBuild(tag.bytes(), static_cast<int>(group));
    must(result == (sendable ? 0 : 1), "a group goes out when all its slots are there");
    if (!sendable) {
        must(Midi.SysExOutput == "kept", "a group that cannot be built changes nothing");
        return;
    }
    expected += part(file, first, last - first);
    std::string body;
    must(unpacked(bodyOf(Midi.SysExOutput, App.GlobalChannel, 0x65), body), "a group unpacks");
    must(body == expected, "a group is four descriptors and its blocks");
    VirtualInstrument instrument;
    instrument.take(Midi.SysExOutput);
    must(instrument.styleGroup(static_cast<int>(group)).received == (last <= file.size()),
         "the instrument takes a group that is whole, and no other");
}

/// The file as far as its table goes, or to its end where slots behind an absent one are held, in units of 4 bytes.
std::string wholeUnits(std::string_view file)
{
    std::size_t promised = Head;
    for (std::size_t slot = 0; slot < 16 && lengthOfSlot(file, slot) > 0; ++slot)
        promised += lengthOfSlot(file, slot);
    const std::size_t length = std::max(promised, std::min(placeOfSlot(file, 16), file.size()));
    std::string bytes(file.substr(0, length));
    bytes.resize((length + 3) / 4 * 4);
    return bytes;
}

void checkSaved(const DeskFile& disk, WindowBuffer tag, std::string_view file)
{
    const bool whole = StyGroupCount(tag.bytes()) == 4;
    must(StyFileWrite(tag) == 0, "a save succeeds");
    const std::string saved = disk.get();
    must(saved.size() % 4 == 0 && saved.size() >= Head, "a saved file is whole units");
    must(saved.starts_with(file.substr(0, std::min<std::size_t>(file.size(), 24))), "the head stays");
    if (whole)
        must(saved == wholeUnits(file), "save(load(x)) = x as far as the table goes, in whole units");
    for (std::size_t slot = 0; slot < 16 && lengthOfSlot(file, slot) > 0; ++slot) {
        const std::string name = nameOfSlot(file, slot);
        if (name.empty() || name == "- empty -")
            continue;
        const std::string_view block = part(file, placeOfSlot(file, slot), lengthOfSlot(file, slot));
        must(lengthOfSlot(saved, slot) == lengthOfSlot(file, slot) &&
                 part(saved, placeOfSlot(saved, slot), block.size()) == block,
             "no style of the user is lost by a save");
    }
}

void checkTemplate(const std::string& file)
{
    std::string expected = file.substr(0, 4928);
    expected.resize(4928, '\0');
    for (const std::size_t place : {224U, 1400U, 2576U, 3752U})
        expected.replace(place, 9, "- empty -");
    must(Files.StyEmptyBuffer == expected && Files.StyBuffer == expected, "the template has its four names");
}

/// The file, and how long it is on the disk: what is behind the bytes is a hole.
std::size_t fileFrom(Choices& choices, int how, std::string& file)
{
    const int longer = choices.byte();
#ifdef TARVOLYNE_FUZZ_FULL_SIZE
    static const std::string large = Images::sty(std::vector<std::size_t>(16, 18000));
    file = patched(large, choices.rest(), 8);
    file.resize(file.size() - static_cast<std::size_t>(longer) * 64);
#else
    file = choices.rest();
#endif
    // A hole costs time, and one above what a style file may have most of it.
    if ((how & 0x0F) != Longer)
        return file.size();
    return static_cast<std::size_t>(longer < 255 ? longer % 8 : longer) * 300000;
}

} // namespace

void fuzzOne(std::string_view input)
{
    static DeskFile ordinary("song.sty"), fixed("TvlSty");
    Choices choices(input);
    const int how = choices.byte();
    std::string file;
    const std::size_t wanted = fileFrom(choices, how, file);
    const std::size_t length = std::max(wanted, file.size());
    const bool isTemplate = (how & Template) != 0;
    DeskFile& disk = isTemplate ? fixed : ordinary;
    disk.put(file, length);
    desk().user = {};
    Files.StyBuffer = "kept";
    const std::string emptyBefore = Files.StyEmptyBuffer;

    const int result = StyFileRead(disk.path());
    const bool headGood = file.starts_with(std::string_view("KORG\x4D\x00\x04", 7));
    must(result == (length == 0 ? 2 : headGood && length <= LongestFile ? 0 : 1), "the result is the rules'");
    must(disk.exists() == (length > 0), "a file without a byte is deleted, no other");
    must(desk().user.notices == (result == 1 ? 1 : 0) && desk().user.warnings == 0, "a refusal is told once");
    if (result != 0)
        must(Files.StyBuffer == "kept" && Files.StyEmptyBuffer == emptyBefore, "a refused file changes nothing");
    if (result == 0 && isTemplate) {
        checkTemplate(file);
        Files.StyEmptyBuffer = emptyBefore;
    }
    if (result != 0 || isTemplate)
        return;
    std::string expected = file.substr(0, LongestRead);
    expected.resize(length, '\0');
    must(Files.StyBuffer == expected, "what is read is the file, with zeros behind the ninth piece");
    if (length > (1U << 20))
        return; // the catalogue of a larger file is that of its first pieces, and copies of it only cost time
    SessionEntry entry;
    entry.path = desk().folder + "/song";
    const WindowBuffer tag = StyTagBuild(WindowKind::StyFile, 1, entry);
    must(tag.bytes().size() == 669 + length && tag.styleArea() == expected, "the buffer has the length of its kind");
    if ((how & ShowWanted) != 0)
        checkCatalogue(tag, expected);
    if ((how & SendWanted) != 0)
        checkGroup(tag, expected, static_cast<std::size_t>(how / 64));
    if ((how & SaveWanted) == SaveWanted)
        checkSaved(disk, tag, expected);
}
