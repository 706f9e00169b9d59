// The sizes in which windows open at first, in twips.
#include "core/Dichiarazioni.h"

#include "support/CoreRun.h"
#include <gtest/gtest.h>

namespace
{

struct Row {
    int firstKind, lastKind, widthLargeFont, width, height;
};

const Row Rows[] = {
    {2, 3, 4600, 4810, 7780},   {4, 8, 4600, 4810, 7780},   {9, 10, 1840, 1920, 7780},  {17, 18, 4600, 4810, 7780},
    {19, 19, 4600, 4810, 9040}, {20, 20, 4600, 4810, 7780}, {21, 22, 4600, 4810, 7780}, {23, 24, 5280, 5560, 4200},
};

void expectSizes(int twips, int Row::*width)
{
    App.ScreenTwipsY = twips;
    for (const Row& row : Rows)
        for (int kind = row.firstKind; kind <= row.lastKind; ++kind) {
            EXPECT_EQ(defaultWindowSize(kind).width, row.*width) << kind << " at " << twips;
            EXPECT_EQ(defaultWindowSize(kind).height, row.height) << kind;
        }
}

} // namespace

TEST(DefaultWindowSize, isNarrowerOnALargeFontScreenAlone)
{
    CoreRun run;
    expectSizes(12, &Row::widthLargeFont);
    expectSizes(15, &Row::width);
    expectSizes(10, &Row::width);
}

TEST(DefaultWindowSize, isNothingForOtherKinds)
{
    CoreRun run;
    for (const int kind : {0, 1, 11, 12, 13, 14, 15, 16, 25, 26, 27, 28, 29, -1}) {
        EXPECT_EQ(defaultWindowSize(kind).width, 0) << kind;
        EXPECT_EQ(defaultWindowSize(kind).height, 0) << kind;
    }
}
