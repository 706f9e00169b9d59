// The shapes of the program's picture, for the eye's sake: whole pixels, nothing beside the plate, both sides alike.
#include "shell/ProgramIconShapes.h"

#include <cmath>
#include <gtest/gtest.h>

namespace
{

bool whole(double length) { return length == std::floor(length); }

TEST(ProgramIcon, picturesOfTheUsualSizesLieOnWholePixels)
{
    for (const int side : {16, 24, 32, 48, 64}) {
        const IconDrawing drawing = iconDrawing(side);
        EXPECT_EQ(drawing.grid, side);
        for (const IconShape& shape : drawing.shapes)
            EXPECT_TRUE(whole(shape.left) && whole(shape.top) && whole(shape.width) && whole(shape.height))
                << side << ": " << shape.left << ", " << shape.top;
    }
}

TEST(ProgramIcon, everyShapeStandsOnThePlate)
{
    for (const int side : {16, 24, 32, 48, 64, 128, 256}) {
        const IconDrawing drawing = iconDrawing(side);
        ASSERT_GE(drawing.shapes.size(), 12u);
        const IconShape& plate = drawing.shapes.front();
        EXPECT_LE(plate.left + plate.width, drawing.grid);
        for (const IconShape& shape : drawing.shapes) {
            EXPECT_GE(shape.left, plate.left);
            EXPECT_GE(shape.top, plate.top);
            EXPECT_LE(shape.left + shape.width, plate.left + plate.width);
            EXPECT_LE(shape.top + shape.height, plate.top + plate.height);
        }
    }
}

TEST(ProgramIcon, isEvenLeftAndRightButForTheFadersHeights)
{
    for (const int side : {16, 24, 32, 48, 64}) {
        const IconDrawing drawing = iconDrawing(side);
        double left = 0;
        for (const IconShape& shape : drawing.shapes)
            left += shape.left + shape.width / 2 - drawing.grid / 2.0;
        EXPECT_EQ(left, 0) << side;
    }
}

} // namespace
