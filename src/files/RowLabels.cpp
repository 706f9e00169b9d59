// The panel's row numbering: a hexadecimal counter that begins at 11 and skips from x8 to the next x1.
#include "files/RowLabels.h"

#include <algorithm>
#include <cstdio>

std::string rowCode(int row)
{
    constexpr int RowsPerDecade = 8;
    const int place = std::max(row, 0);
    char code[16]; // room for any two numbers
    static_cast<void>(std::snprintf(code, sizeof code, "%X%X", static_cast<unsigned>(place / RowsPerDecade + 1),
                                    static_cast<unsigned>(place % RowsPerDecade + 1)));
    return code;
}

std::string rowName(std::string_view name)
{
    const auto isControl = [](char c) {
        const auto value = static_cast<unsigned char>(c);
        return value < 0x20 || (value >= 0x7F && value < 0xA0);
    };
    std::string shown(name);
    std::replace_if(shown.begin(), shown.end(), isControl, ' ');
    return shown;
}
