// Files that went bad: bits turned at the ratios at which a stick or a download goes bad, ends cut off, ends hung on.
#pragma once

#include "monkey/Chance.h"

#include <algorithm>
#include <cmath>
#include <string>

namespace Damage
{

/// Turns each bit with a probability of `ratio`; the first `kept` bytes stay.
inline void turnBits(std::string& bytes, double ratio, Chance& chance, std::size_t kept = 0)
{
    if (bytes.size() <= kept)
        return;
    const double bits = static_cast<double>((bytes.size() - kept) * 8);
    const int turned = std::max(1, static_cast<int>(std::lround(bits * ratio)));
    for (int each = 0; each < turned; ++each) {
        const auto place = kept + static_cast<std::size_t>(chance.below(static_cast<int>(bytes.size() - kept)));
        bytes[place] = static_cast<char>(static_cast<unsigned char>(bytes[place]) ^ (1U << chance.below(8)));
    }
}

/// 0.0001 to 0.01, each power as likely as the other.
inline double anyRatio(Chance& chance) { return std::pow(10.0, -4.0 + chance.below(2001) / 1000.0); }

inline std::string noise(int length, Chance& chance)
{
    std::string bytes(static_cast<std::size_t>(length), '\0');
    for (char& byte : bytes)
        byte = static_cast<char>(chance.below(256));
    return bytes;
}

/// Overwrites a run of bytes with one value: a bad sector.
inline void overwriteRun(std::string& bytes, Chance& chance)
{
    if (bytes.empty())
        return;
    const int size = static_cast<int>(bytes.size());
    const int from = chance.below(size);
    const int length = std::min(size - from, 1 + chance.below(600));
    const char value = "\0\xFF\x20\x7F\x80"[chance.below(5)];
    std::fill_n(bytes.begin() + from, length, value);
}

/// One kind of damage to a file. Most keep its head, without which every reader refuses it at once.
inline std::string any(std::string bytes, Chance& chance)
{
    constexpr std::size_t Head = 16;
    switch (chance.below(10)) {
    case 0:
        bytes.resize(bytes.empty() ? 0 : static_cast<std::size_t>(chance.below(static_cast<int>(bytes.size()))));
        break;
    case 1:
        bytes += noise(1 + chance.below(5000), chance);
        break;
    case 2:
        bytes = noise(chance.below(40000), chance);
        break;
    case 3:
        turnBits(bytes, anyRatio(chance), chance);
        break;
    case 4:
        overwriteRun(bytes, chance);
        break;
    default:
        turnBits(bytes, anyRatio(chance), chance, Head);
    }
    return bytes;
}

} // namespace Damage
