// The two small records of the state folder: TvlCMInfo (the names last sent) and Dornflex (the shared device record).
//
// Input: a byte of choices, a length, (choice 128) how odd the record's length is, a name, then the record: patches on
// a valid one, or (choice 1) its bytes.
#include "Fuzz.h"
#include "Images.h"

#include "core/Dichiarazioni.h"
#include "core/StateFiles.h"

using namespace Fuzz;

namespace
{

constexpr int Raw = 1, OfDevice = 2, WriteWanted = 0x1C, Odd = 0x80; ///< choices

/// A name's field: up to its first NUL, without blanks at its end.
std::string nameAt(std::string_view record, std::size_t offset)
{
    const std::string_view name = part(record, offset, 50);
    return trimmed(name.substr(0, name.find('\0')));
}

void checkInfo(DeskFile& disk, const std::string& file, std::string_view name, bool write)
{
    disk.put(file);
    App.InfoArr = App.InfoSty = App.InfoPrg = "other";
    must(InfoRead() == nameAt(file, 100), "the style's name is the answer");
    must(App.InfoArr == nameAt(file, 50) && App.InfoPrg == nameAt(file, 150), "the names are the record's");
    must(disk.exists() == !file.empty(), "a file without a byte is deleted, no other");
    if (!write)
        return;
    const std::string before = App.InfoArr;
    const int result = InfoPrgSetStem(name, "prg");
    must(result == (file.empty() ? 1 : 0), "a name is recorded where there is a record");
    must(disk.exists() == !file.empty(), "and none is made where there is none");
    if (file.empty())
        return;
    std::string expected = file.substr(0, 1000);
    expected.resize(1000, '\0');
    const std::string kept = trimmed(name.substr(0, 24));
    must(disk.get() == expected.replace(150, 50, Images::wide(kept, 50)), "one field changes, and nothing else");
    must(App.InfoPrg == kept && App.InfoArr == before, "and that is the name in memory");
}

void checkDevice(DeskFile& disk, const std::string& file, int value, bool write)
{
    disk.put(file);
    must(DeviceRecordRead() == 0, "a record reads");
    std::string expected = file.substr(0, 145);
    expected.resize(145, '\0');
    must(Device.bytes == expected, "what is read is the record, with zeros behind a short file");
    must(Device.signatureGood() == expected.starts_with("Dornflex"), "its mark counts");
    must(Device.UserCount() == at(expected, 14) && Device.ThisProgramIn() == at(expected, 18), "counts are bytes");
    const auto handle = static_cast<std::int32_t>(
        static_cast<std::uint32_t>(at(expected, 10)) | static_cast<std::uint32_t>(at(expected, 11)) << 8 |
        static_cast<std::uint32_t>(at(expected, 12)) << 16 | static_cast<std::uint32_t>(at(expected, 13)) << 24);
    must(Device.SharedOutHandle() == handle, "a handle is four bytes, low byte first");
    Device.setSharedInHandle(handle ^ value);
    must(Device.SharedInHandle() == (handle ^ value), "a handle comes back");
    Device.setUserCount(value);
    std::string changed = Device.bytes;
    changed.replace(46, 4, expected, 46, 4);
    changed[14] = expected[14];
    must(changed == expected, "what the program does not name stays");
    if (write)
        must(DeviceRecordWrite() == 0 && disk.get() == Device.bytes, "save(load(x)) = x");
}

} // namespace

void fuzzOne(std::string_view input)
{
    static DeskFile info("TvlCMInfo"), device("Dornflex");
    static const std::string validInfo = Images::info(), validDevice = Images::device();
    Choices choices(input);
    const int how = choices.byte();
    const int length = choices.byte();
    const bool raw = (how & Raw) != 0, write = (how & WriteWanted) == WriteWanted;
    const int odd = (how & Odd) != 0 ? choices.byte() : 128;
    desk().user = {};
    const auto record = [&](const std::string& valid) {
        return raw ? std::string(choices.rest()) : lengthened(patched(valid, choices.rest()), odd);
    };
    if ((how & OfDevice) != 0) {
        checkDevice(device, record(validDevice), length, write);
        return;
    }
    const std::string_view name = choices.text(static_cast<std::size_t>(length) % 40);
    checkInfo(info, record(validInfo), name, write);
    must(desk().user.all() == 0, "nothing is told");
}
