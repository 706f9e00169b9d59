// Bytes written out: expectations read as the wire does.
#pragma once

#include <cstdio>
#include <string>
#include <string_view>

/// "F0 42 30" for three bytes.
inline std::string hex(std::string_view bytes)
{
    std::string text;
    char digits[4];
    for (const char byte : bytes) {
        std::snprintf(digits, sizeof digits, "%02X", static_cast<unsigned>(static_cast<unsigned char>(byte)));
        text += text.empty() ? digits : std::string(" ") + digits;
    }
    return text;
}

/// The bytes of "F0 42 30": three bytes. Blanks and line ends between the pairs do not count.
inline std::string bytesOf(std::string_view pairs)
{
    std::string bytes;
    std::string digits;
    for (const char digit : pairs) {
        if (digit == ' ' || digit == '\n')
            continue;
        digits += digit;
        if (digits.size() == 2) {
            bytes += static_cast<char>(std::stoi(digits, nullptr, 16));
            digits.clear();
        }
    }
    return bytes;
}
