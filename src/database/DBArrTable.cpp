// Slots and numbers are moved as whole records of 26 bytes; the map of taken numbers follows.
#include "database/DBArrTable.h"

#include "core/PathNames.h"

#include <algorithm>
#include <cstring>

namespace
{

using namespace DBArrLayout;

constexpr int ZeroedHead = 26; ///< signature, then 16 and 2 bytes of zero: slot 1
constexpr int Taken = 1;

int slotAt(int index) { return FirstSlot + index; }

bool isEmpty(std::string_view image, int slot) { return byteAt(image, record(slot).offset) == 0; }

/// An empty record: 0, 23 blanks, and the number 0.
void blankRecord(ByteBuffer& image, int slot)
{
    const Field place = record(slot);
    putText(image, {place.offset, RecordName.size}, {});
    putByte(image, place.offset, 0);
    putWord16LowFirst(image, place.offset + RecordIdOffset, 0);
}

} // namespace

DBArrTable::DBArrTable(ByteBuffer image) : bytes_(std::move(image))
{
    bytes_.resize(FileLength, '\0');
    keys_.reserve(SlotCount);
    readKeys();
}

ByteBuffer DBArrTable::emptyImage(std::string_view workingFolder)
{
    ByteBuffer image = filled(FileLength, 0);
    static_assert(ZeroedHead < record(FirstSlot).offset);
    putBytes(image, 0, Signature);
    for (int slot = FirstSlot; slot <= LastSlot; ++slot)
        blankRecord(image, slot);
    putText(image, WorkingFolder, workingFolder);
    return image;
}

DBArrTable::Key DBArrTable::keyOf(std::string_view name)
{
    const std::string upper = upperFileName(dbArrName(name));
    Key key{};
    std::copy(upper.begin(), upper.end(), key.begin());
    key.back() = static_cast<char>(upper.size());
    return key;
}

/// Takes up the records behind those that are known, up to the first empty one.
void DBArrTable::readKeys()
{
    while (!full() && !isEmpty(bytes_, slotAt(used())))
        keys_.push_back(keyOf(nameAt(slotAt(used()))));
}

std::string DBArrTable::nameAt(int slot) const
{
    return std::string(trimRight(slice(bytes_, {record(slot).offset, RecordName.size})));
}

int DBArrTable::idAt(int slot) const { return word16LowFirst(bytes_, record(slot).offset + RecordIdOffset); }

int DBArrTable::slotOf(std::string_view fileName) const
{
    const auto found = std::find(keys_.begin(), keys_.end(), keyOf(fileName));
    return found == keys_.end() ? 0 : slotAt(static_cast<int>(found - keys_.begin()));
}

int DBArrTable::slotOfId(int id) const
{
    for (int slot = FirstSlot; slot < slotAt(used()); ++slot)
        if (idAt(slot) == id)
            return slot;
    return 0;
}

int DBArrTable::sortedPlace(const Key& key) const
{
    const auto isAbove = [&](const Key& other) { return std::memcmp(other.data(), key.data(), key.size()) > 0; };
    int place = used();
    while (place > 0 && isAbove(keys_[static_cast<std::size_t>(place - 1)]))
        --place;
    return place;
}

void DBArrTable::move(int fromIndex, int toIndex, int count)
{
    char* const records = bytes_.data() + record(FirstSlot).offset;
    const auto bytesOf = [](int index) { return static_cast<std::size_t>(index) * std::size_t{RecordSize}; };
    std::memmove(records + bytesOf(toIndex), records + bytesOf(fromIndex), bytesOf(count));
}

int DBArrTable::add(std::string_view fileName, bool& added)
{
    added = false;
    if (const int slot = slotOf(fileName); slot != 0)
        return idAt(slot);
    const std::size_t mapPlace = bytes_.find('\0', static_cast<std::size_t>(IdMap.offset));
    if (full() || mapPlace >= static_cast<std::size_t>(end(IdMap)))
        return 0;

    const Key key = keyOf(fileName);
    const int place = sortedPlace(key);
    const int id = static_cast<int>(mapPlace) - IdMap.offset + FirstId;
    move(place, place + 1, used() - place);
    const Field target = record(slotAt(place));
    putText(bytes_, {target.offset, RecordName.size}, dbArrName(fileName));
    putWord16LowFirst(bytes_, target.offset + RecordIdOffset, id);
    putByte(bytes_, static_cast<int>(mapPlace), Taken);
    keys_.insert(keys_.begin() + place, key);
    readKeys(); // in a damaged file the new record may close a gap
    added = true;
    return id;
}

void DBArrTable::remove(int slot)
{
    const int index = slot - FirstSlot;
    if (index < 0 || index >= used())
        return;
    if (const int id = idAt(slot); id >= FirstId && id <= LastId)
        putByte(bytes_, IdMap.offset + id - FirstId, 0);
    move(index + 1, index, used() - index - 1);
    blankRecord(bytes_, slotAt(used() - 1));
    keys_.erase(keys_.begin() + index);
}
