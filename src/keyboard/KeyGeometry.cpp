// Five octaves of keys, and the marker over the key from which the right hand plays.
#include "keyboard/KeyGeometry.h"

#include <array>
#include <cstddef>

namespace
{

using namespace KeyGeometry;

/// A key within its octave: a black one stands on the white key before it, this far to the right of its left edge.
struct KeyRow {
    bool black;
    int whiteBefore; ///< white keys to the left of it in the octave, the one it stands on not counted
    int offset;
};
constexpr std::array<KeyRow, KeyRange::Octave> Rows{{{false, 0, 0},
                                                     {true, 0, 160},
                                                     {false, 1, 0},
                                                     {true, 1, 190},
                                                     {false, 2, 0},
                                                     {false, 3, 0},
                                                     {true, 3, 160},
                                                     {false, 4, 0},
                                                     {true, 4, 177},
                                                     {false, 5, 0},
                                                     {true, 5, 190},
                                                     {false, 6, 0}}};

/// Where the marker stands within its octave.
struct MarkerRow {
    int whiteBefore;
    int offset;
};
constexpr std::array<MarkerRow, KeyRange::Octave> MarkerRows{
    {{0, 0}, {0, 150}, {1, 60}, {1, 190}, {2, 90}, {3, 0}, {3, 150}, {4, 55}, {4, 177}, {5, 68}, {5, 190}, {6, 80}}};

const KeyRow& rowOf(int key) { return Rows[static_cast<std::size_t>(key % KeyRange::Octave)]; }

} // namespace

bool isBlackKey(int key) { return rowOf(key).black; }

TwipsRect keyRect(int key)
{
    const KeyRow& row = rowOf(key);
    const int left = key / KeyRange::Octave * OctaveWidth + row.whiteBefore * WhiteWidth + row.offset;
    return row.black ? TwipsRect{left, 0, BlackWidth, BlackHeight} : TwipsRect{left, 0, WhiteWidth, WhiteHeight};
}

const KeyMark& keyMark(int key) { return isBlackKey(key) ? BlackMark : WhiteMark; }

int splitMarkerLeft(int note, int octaveShift)
{
    const int octave = (note - SplitRange::Lowest) / KeyRange::Octave + 2 - octaveShift;
    const MarkerRow& row = MarkerRows[static_cast<std::size_t>(note % KeyRange::Octave)];
    // Required: half a twip is taken off an octave, cut to whole ones; the marker follows the keys as they are drawn.
    return octave * (OctaveWidth - octave / 2) + MarkerOrigin + row.whiteBefore * WhiteWidth + row.offset;
}
