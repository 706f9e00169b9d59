// The program's picture as shapes: three faders above three keys of a keyboard, on a dark plate.
//
// Windows, the desktop's icon folders and the scalable picture are all made of these, so that they agree. Small
// pictures have shapes of their own, laid on whole pixels: scaled down, the gaps between the keys would blur away.
#pragma once

#include <cstdint>
#include <span>

/// One rectangle. Lengths are in units of its picture's grid; colours are red, green, blue in 24 bits.
struct IconShape {
    double left;
    double top;
    double width;
    double height;
    double radius;        ///< of its corners
    std::uint32_t colour; ///< at its top
    std::uint32_t foot;   ///< at its foot; between them the colour changes evenly
};

struct IconDrawing {
    int grid; ///< units in a side
    std::span<const IconShape> shapes;
};

/// The drawing for a picture of `side` pixels.
IconDrawing iconDrawing(int side);

/// The drawing of the picture that scales.
IconDrawing scalableIcon();
