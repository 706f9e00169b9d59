// What an eye sees of a change: the pixels in which two pictures of a control stand apart.
#pragma once

#include "toolkit/QtLooks.h"

#include <QImage>
#include <gtest/gtest.h>

/// How many pixels of two pictures of one size differ by a contrast, 1 to 21.
inline int pixelsApart(const QImage& one, const QImage& other, qreal contrast)
{
    EXPECT_EQ(one.size(), other.size());
    int apart = 0;
    for (int y = 0; y < one.height(); ++y)
        for (int x = 0; x < one.width(); ++x)
            if (one.pixel(x, y) != other.pixel(x, y) &&
                Looks::contrast(one.pixelColor(x, y), other.pixelColor(x, y)) >= contrast)
                ++apart;
    return apart;
}
