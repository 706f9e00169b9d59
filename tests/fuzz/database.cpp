// TvlDBArr: the file in any state, looked up, listed, searched by number, and changed in memory.
//
// Input: a byte of choices, a length and a name, a number, (choice 128) a byte of length, then the file: patches on a
// valid one with 40 files, or (choice 1) its bytes as they are.
#include "Fuzz.h"
#include "Images.h"

#include "core/Dichiarazioni.h"
#include "database/DBArrTable.h"
#include "database/FindID.h"

using namespace Fuzz;

namespace
{

constexpr int Raw = 1, Odd = 0x80,
              Full = 0x1E; ///< choices; a full table is slow and so asked for by four bits together
constexpr const char* Folder = "/home/me/songs";

struct Row {
    std::string name;
    int id;
};

/// The records in use, by the rules' walk: from slot 3 to the first empty one.
std::vector<Row> rowsOf(std::string_view image)
{
    std::vector<Row> rows;
    for (std::size_t place = 52; place < 25974 && image[place] != '\0'; place += 26)
        rows.push_back({trimmed(image.substr(place, 24)), at(image, place + 24) + at(image, place + 25) * 256});
    return rows;
}

void checkList(std::string_view image, const std::vector<Row>& rows)
{
    const std::vector<DBArrRow> shown = dbArrRows(image);
    must(shown.size() == rows.size() + 2, "the banks and the records are listed");
    must(shown[0].id == 1 && shown[0].name == "TvlArrA" && shown[1].id == 2 && shown[1].name == "TvlArrB", "the banks");
    for (std::size_t i = 0; i < rows.size(); ++i)
        must(shown[i + 2].id == rows[i].id && shown[i + 2].name == rows[i].name + ".arr",
             "a name and a number come back");
    must(dbArrFolder(image) == trimmed(image.substr(26971, 250)), "the folder is the file's");
}

/// The number of a file's path: the first record of its name, in letters large or small, where its folder is the
/// table's.
int expectedNumber(std::string_view image, const std::vector<Row>& rows, const std::string& path)
{
    const std::size_t slash = path.rfind('/');
    if (path.substr(0, slash) != trimmed(image.substr(26971, 250)))
        return 0;
    std::string name = capitals(path.substr(slash + 1));
    if (name.ends_with(".ARR"))
        name.resize(name.size() - 4);
    name = trimmed(name.substr(0, 24));
    for (const Row& row : rows)
        if (capitals(row.name) == name)
            return row.id;
    return 0;
}

/// A find by number: the first record with it, none behind a number of 0, and none when its name would lead out of the
/// folder or to no file at all.
void checkFind(const std::vector<Row>& rows, std::string_view image, int id)
{
    std::string expected;
    for (std::size_t slot = 0; slot < 997; ++slot) {
        const int stored = at(image, 52 + 26 * slot + 24) + at(image, 52 + 26 * slot + 25) * 256;
        if (stored == 0)
            break;
        if (stored == id) {
            const std::string name = trimmed(image.substr(52 + 26 * slot, 24));
            if (!name.empty() && name.find_first_of(std::string_view("/\0", 2)) == std::string::npos)
                expected = trimmed(image.substr(26971, 250)) + "/" + name;
            break;
        }
    }
    std::string found;
    DBArr.findInBank = [&found](int, int) { found = "bank"; };
    DBArr.findInFile = [&found](const std::string& path, int row) {
        must(row == 10, "code 23 is row 10");
        found = path;
    };
    FindRun(std::to_string(id) + "23");
    must(id == 1 || id == 2 ? found == "bank" : found == expected, "a number leads to its file");
    must(rows.size() <= 997, "the table holds 997 files");
}

void checkChange(const std::string& image, const std::vector<Row>& rows, std::string_view name, int slot)
{
    DBArrTable table(image);
    must(table.used() == static_cast<int>(rows.size()), "the records in use are those before the first empty one");
    must(table.bytes() == image, "save(load(x)) = x");
    bool added = false;
    const int id = table.add(name, added);
    must(id >= 0 && id <= 65535, "a number is one of 16 bits");
    must(table.bytes().size() == 27221, "the file keeps its length");
    must(!added || (id >= 3 && id <= 999 && at(table.bytes(), static_cast<std::size_t>(25974 + id - 3)) == 1),
         "a new number is one of 3 to 999 and taken");
    must(added || table.bytes() == image, "what adds nothing changes nothing");
    if (added && at(name, 0) != 0)
        must(table.slotOf(name) != 0 && table.idAt(table.slotOf(name)) == id, "what was added is found");
    const int used = table.used();
    const std::string before = table.bytes();
    table.remove(slot);
    const bool there = slot >= 3 && slot < 3 + used;
    must(table.used() == used - (there ? 1 : 0), "a removal takes out one record, or none where there is none");
    must(there || table.bytes() == before, "what is not there cannot be removed");
    must(table.bytes().substr(26971) == image.substr(26971), "the folder stays");
}

} // namespace

void fuzzOne(std::string_view input)
{
    static DeskFile disk("TvlDBArr");
    static const std::string valid = Images::database(40, Folder), full = Images::database(997, Folder);
    Choices choices(input);
    const int how = choices.byte();
    const std::string name(choices.text(static_cast<std::size_t>(choices.byte()) % 40));
    const int number = choices.word();
    const int length = (how & Odd) != 0 ? choices.byte() : 128;
    std::string file((how & Raw) != 0 ? choices.rest() : std::string_view());
    if ((how & Raw) == 0)
        file = lengthened(patched((how & Full) == Full ? full : valid, choices.rest()), length);
    disk.put(file);
    desk().user = {};
    DBArr = {};

    const DBArrContent read = DBArrRead();
    const bool marked = file.starts_with("TvlDBArr");
    must(read.state == (file.empty() ? DBArrFile::Absent
                        : marked     ? DBArrFile::Valid
                                     : DBArrFile::Wrong),
         "a database counts by its mark");
    must(disk.exists() == !file.empty(), "a file without a byte is deleted, no other");
    must(read.whole() == (marked && file.size() == 27221), "and is written back only when its length is right");
    must(read.bytes.size() == (marked ? 27221 : 0), "what is read has the full length");
    const std::string path = std::string(Folder) + "/" + name;
    const int id = DBArrLookup(path);
    if (!marked) {
        must(id == 0 && DBArr.DBArrBuffer.empty(), "nothing is found in what is no database");
        return;
    }
    std::string image = file.substr(0, 27221);
    image.resize(27221, '\0');
    must(read.bytes == image, "with zeros behind a short file");
    const std::vector<Row> rows = rowsOf(image);
    must(id == expectedNumber(image, rows, path), "a path has the number of its record");
    checkList(image, rows);
    checkFind(rows, image, (how & Odd) != 0 ? number : number % 1000);
    checkChange(image, rows, name, number / 64);
}
