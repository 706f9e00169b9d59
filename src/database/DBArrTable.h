// The database's records as they are searched, added to and thinned out: a whole image in memory, its file elsewhere.
//
// Records stand first, without gaps, sorted by name in capitals. The names as they are compared are kept beside the
// image, so that walking past all 997 of them costs next to nothing.
#pragma once

#include "database/TvlDBArr.h"

#include <array>
#include <string_view>
#include <vector>

class DBArrTable
{
public:
    /// Takes an image of DBArrLayout::FileLength bytes.
    explicit DBArrTable(ByteBuffer image);

    const ByteBuffer& bytes() const { return bytes_; }
    /// Records in use; slot FirstSlot + used() is the first empty one.
    int used() const { return static_cast<int>(keys_.size()); }
    bool full() const { return used() == DBArrLayout::SlotCount; }

    std::string nameAt(int slot) const;
    int idAt(int slot) const;
    /// The slot of a file's name (without extension, of any length), or 0.
    int slotOf(std::string_view fileName) const;
    /// The slot of a number among the records in use, or 0.
    int slotOfId(int id) const;

    /// The number of a file: the one it has, else the lowest free one, with a record at its sorted place. 0 when the
    /// table is full. `added` tells whether anything changed.
    int add(std::string_view fileName, bool& added);
    /// Frees the record's number, and closes the gap.
    void remove(int slot);

    /// The image of a database without records for a working folder.
    static ByteBuffer emptyImage(std::string_view workingFolder);

private:
    /// A name in capitals, NUL padded, and its length behind it: their order as bytes is that of the names.
    using Key = std::array<char, 25>;
    static Key keyOf(std::string_view name);
    void readKeys();
    int sortedPlace(const Key& key) const; ///< among the records, from 0
    void move(int fromIndex, int toIndex, int count);

    ByteBuffer bytes_;
    std::vector<Key> keys_; ///< of the records in use
};
