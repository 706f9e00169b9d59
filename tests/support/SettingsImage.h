// The settings file as a first run writes it, built from the table of its fields and not by the program's own writer.
#pragma once

#include "support/Hex.h"

#include <gtest/gtest.h>
#include <string>

namespace SettingsImage
{

inline void put(std::string& image, std::size_t offset, const std::string& bytes)
{
    image.replace(offset, bytes.size(), bytes);
}

/// Offset in the file of a row of window places, 1 to 18.
inline std::size_t rowAt(int row) { return 50 + static_cast<std::size_t>(row - 1) * 9; }

/// A record by its number from 1.
inline std::string recordIn(const std::string& image, int number)
{
    return image.substr(static_cast<std::size_t>(number - 1) * 250, 250);
}

/// The whole file of a first run, with a language.
inline std::string fresh(int language)
{
    std::string image(11500, '\0');
    put(image, 0, "Tarvolyne");
    image[24] = static_cast<char>(language);
    image[26] = 1;                                                              // status bar
    put(image, 29, bytesOf("00 01 00 02 64 40 40 40 00 00 40 00 00 00 00 3C")); // keyboard
    const char* rows = "3E80 3E80 0000 0000 02 "                                // main window, maximised
                       "3E80 3E80 12CA 1E64 00  3E80 3E80 12CA 1E64 00 "        // arrangement banks, 4810 by 7780
                       "3E80 3E80 12CA 1E64 10  3E80 3E80 12CA 1E64 10 "        // program banks A to E
                       "3E80 3E80 12CA 1E64 10  3E80 3E80 12CA 1E64 10 "
                       "3E80 3E80 12CA 1E64 10 "
                       "3E80 3E80 0780 1E64 10  3E80 3E80 0780 1E64 10 " // drum kits, percussion: 1920 wide
                       "3E80 3E80 0780 1E64 00 "                         // find by ID
                       "3E80 3E80 10D4 17B8 00 "                         // database: 4308 wide, 6072 high
                       "3E80 3E80 240C 171C 00 "                         // editor: 9228 wide, 5916 high
                       "3E80 3E80 0000 0000 00 "                         // global
                       "3E80 3E80 2448 159C 00 "                         // keyboard: 9288 wide, 5532 high
                       "3E80 3E80 1680 1F40 00 "                         // monitor: 5760 wide, 8000 high
                       "3E80 3E80 12CA 1E64 00  3E80 3E80 12CA 1E64 00"; // style banks
    put(image, 50, bytesOf(rows));
    put(image, 213, bytesOf("00 00 00 00 00 09 0A 0B 0C 0D 0E"));
    put(image, 37 * 250, std::string(9 * 250, ' ')); // records 38 to 46
    return image;
}

/// Equal, or the first place where they are not.
inline void expectSameBytes(const std::string& actual, const std::string& expected)
{
    ASSERT_EQ(actual.size(), expected.size());
    for (std::size_t i = 0; i < actual.size(); ++i)
        ASSERT_EQ(hex(actual.substr(i, 1)), hex(expected.substr(i, 1)))
            << "record " << i / 250 + 1 << ", offset " << i % 250;
}

} // namespace SettingsImage
