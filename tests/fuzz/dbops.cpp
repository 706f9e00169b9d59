// The database's table under any sequence of changes, against a slow model that does on the bytes what the rules say,
// step by step. Both begin with the same image, which may be damaged.
//
// Input: a byte of choices, a number of damages, the damages, then operations: a byte each, with a name or a number.
#include "Fuzz.h"
#include "Images.h"

#include "database/DBArrTable.h"

#include <algorithm>

using namespace Fuzz;

namespace
{

constexpr std::size_t First = 52, Size = 26, Slots = 997, Map = 25974;

/// The table as the rules tell it: nothing is kept beside the bytes.
class Model
{
public:
    std::string bytes;

    std::size_t used() const
    {
        std::size_t count = 0;
        while (count < Slots && bytes[First + Size * count] != '\0')
            ++count;
        return count;
    }
    int idAt(std::size_t slot) const
    {
        return at(bytes, First + Size * slot + 24) + at(bytes, First + Size * slot + 25) * 256;
    }
    std::string nameAt(std::size_t slot) const { return cut(bytes.substr(First + Size * slot, 24)); }
    /// Slot from 0, or the number of records.
    std::size_t slotOf(const std::string& name) const
    {
        const std::size_t last = used();
        const std::string wanted = capitals(cut(name));
        for (std::size_t slot = 0; slot < last; ++slot)
            if (capitals(nameAt(slot)) == wanted)
                return slot;
        return last;
    }
    /// Counted from 3; 0 when no record has the number.
    int slotOfId(int id) const
    {
        const std::size_t last = used();
        for (std::size_t slot = 0; slot < last; ++slot)
            if (idAt(slot) == id)
                return static_cast<int>(slot) + 3;
        return 0;
    }
    int add(const std::string& name)
    {
        const std::size_t last = used(), found = slotOf(name);
        if (found < last)
            return idAt(found);
        std::size_t free = 0;
        while (free < Slots && bytes[Map + free] != '\0')
            ++free;
        if (last == Slots || free == Slots)
            return 0;
        const std::string wanted = capitals(cut(name));
        std::size_t place = last;
        while (place > 0 && capitals(nameAt(place - 1)) > wanted)
            --place;
        for (std::size_t slot = last; slot > place; --slot)
            bytes.replace(First + Size * slot, Size, bytes, First + Size * (slot - 1), Size);
        bytes.replace(First + Size * place, 24, Images::wide(cut(name), 24));
        bytes[First + Size * place + 24] = static_cast<char>((free + 3) % 256);
        bytes[First + Size * place + 25] = static_cast<char>((free + 3) / 256);
        bytes[Map + free] = 1;
        return static_cast<int>(free + 3);
    }
    void remove(std::size_t slot)
    {
        const std::size_t last = used();
        if (slot >= last)
            return;
        if (const int id = idAt(slot); id >= 3 && id <= 999)
            bytes[Map + static_cast<std::size_t>(id) - 3] = '\0';
        for (; slot + 1 < last; ++slot)
            bytes.replace(First + Size * slot, Size, bytes, First + Size * (slot + 1), Size);
        bytes.replace(First + Size * slot, Size, std::string(1, '\0') + std::string(23, ' ') + std::string(2, '\0'));
    }

    static std::string cut(const std::string& name) { return trimmed(name.substr(0, 24)); }
};

/// In an image that was sound from the start: sorted, without gaps, each number once and taken.
void checkSound(const Model& model)
{
    std::vector<bool> seen(1000, false);
    const std::size_t used = model.used();
    for (std::size_t slot = 0; slot < used; ++slot) {
        const int id = model.idAt(slot);
        must(id >= 3 && id <= 999 && !seen[static_cast<std::size_t>(id)], "a number is given once");
        seen[static_cast<std::size_t>(id)] = true;
    }
    for (std::size_t id = 3; id <= 999; ++id)
        must((model.bytes[Map + id - 3] == 1) == seen[id], "the map holds the numbers in use and no other");
    for (std::size_t slot = used; slot < Slots; ++slot)
        must(model.bytes[First + Size * slot] == '\0', "no record behind the first empty one");
}

/// Damage where it matters: a byte of one of the first records, or one of the map of numbers. Three bytes of input
/// each.
std::string damaged(std::string image, std::string_view patches)
{
    for (; patches.size() >= 3; patches.remove_prefix(3)) {
        const auto where = static_cast<std::size_t>(at(patches, 0)), which = static_cast<std::size_t>(at(patches, 1));
        const bool inRecord = where < 200;
        const bool highOfNumber = inRecord && which % Size == 25; // there only small values lead anywhere
        image[inRecord ? First + Size * (where % 48) + which % Size : Map + which * 4 % Slots] =
            static_cast<char>(highOfNumber ? at(patches, 2) % 8 : at(patches, 2));
    }
    return image;
}

std::string nameFrom(Choices& choices)
{
    const int length = choices.byte() % 32;
    return std::string(choices.text(static_cast<std::size_t>(length)));
}

} // namespace

void fuzzOne(std::string_view input)
{
    static const std::string images[] = {DBArrTable::emptyImage("/songs"), Images::database(40, "/songs"),
                                         Images::database(990, "/songs")};
    static const std::string emptyByHand = Images::database(0, "/songs");
    must(images[0] == emptyByHand, "a new database is empty");
    Choices choices(input);
    const int how = choices.byte();
    const int which = how % 32 == 31 ? 2 : how % 2; // a walk through 990 files is slow
    const std::size_t patches = static_cast<std::size_t>(choices.byte() % 8) * 3;
    const std::string image = damaged(images[which], choices.text(patches));
    const bool sound = image == images[which];
    DBArrTable table(image);
    Model model{image};
    for (int step = 0; step < 60 && !choices.empty(); ++step) {
        const int what = choices.byte() % 4;
        if (what < 2) {
            const std::string name = nameFrom(choices);
            if (name.empty() || name[0] == '\0')
                continue; // no file has such a name
            bool added = false;
            const std::string before = table.bytes();
            must(table.add(name, added) == model.add(name), "an add gives the rules' number");
            must(added == (table.bytes() != before), "and tells whether it changed anything");
        } else if (what == 2) {
            const int slot = which == 2 ? choices.word() % 1010 : choices.byte() % 48;
            const int id = slot >= 3 && slot - 3 < table.used() ? table.idAt(slot) : slot;
            must(table.slotOfId(id) == model.slotOfId(id), "a number has its first slot");
            table.remove(slot);
            if (slot >= 3)
                model.remove(static_cast<std::size_t>(slot - 3));
        } else {
            const std::string name = nameFrom(choices);
            const std::size_t slot = model.slotOf(name);
            must(table.slotOf(name) == (slot < model.used() ? static_cast<int>(slot) + 3 : 0), "a name has its slot");
        }
        must(table.used() == static_cast<int>(model.used()), "both count the same records");
        must(table.bytes() == model.bytes, "both have the same bytes");
    }
    if (sound)
        checkSound(model);
}
