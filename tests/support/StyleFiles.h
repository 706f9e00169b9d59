// Style files built by hand from the format's figures.
#pragma once

#include <string>
#include <utility>
#include <vector>

/// Names and lengths of the blocks of a style file.
using Slots = std::vector<std::pair<std::string, int>>;

/// One block: its name, then bytes that tell slot and place.
inline std::string styBlock(int slot, const std::string& name, int length)
{
    std::string block = name;
    block.resize(16, ' ');
    for (int k = 16; k < length; ++k)
        block += static_cast<char>((k * 7 + slot) % 256);
    block.resize(static_cast<std::size_t>(length));
    return block;
}

inline std::string styFile(const Slots& blocks)
{
    std::string file("KORG\x4D\x00\x04", 7);
    file.resize(224, '\0');
    for (std::size_t i = 0; i < blocks.size(); ++i) {
        const auto& [name, length] = blocks[i];
        file[24 + 4 * i] = static_cast<char>(length % 256);
        file[25 + 4 * i] = static_cast<char>(length / 256);
        file += styBlock(static_cast<int>(i), name, length);
    }
    return file;
}

inline std::string emptyStyles()
{
    return styFile({{"- empty -", 1176}, {"- empty -", 1176}, {"- empty -", 1176}, {"- empty -", 1176}});
}
