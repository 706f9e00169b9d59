// Valid files of each kind, built by hand from the formats' figures: what the patches of an input fall on.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace Images
{

inline std::string wide(std::string text, std::size_t width)
{
    text.resize(width, ' ');
    return text;
}

/// 64 arrangements, every seventh one free, some on user styles and on programs of bank D.
inline std::string arr()
{
    std::string file("KORG\x4D\x00\x03", 7);
    file.resize(32, '\x11');
    for (int k = 0; k < 64; ++k) {
        std::string record(164, '\0');
        if (k % 7 != 6)
            record.replace(0, 16, wide("Arr " + std::to_string(k), 16));
        for (std::size_t i = 16; i < 164; ++i)
            record[i] = static_cast<char>((k * 3 + static_cast<int>(i)) % 128);
        record[17] = static_cast<char>(k);
        record[18] = static_cast<char>(k % 2);
        file += record;
    }
    return file;
}

/// 64 programs, every fifth one free; in a .pgg some only refer to a factory program.
inline std::string prg(bool references)
{
    std::string file(references ? "KPGG\x4D\x00\x00" : "KORG\x4D\x00\x00", 7);
    file.resize(30480);
    for (std::size_t i = 7; i < file.size(); ++i)
        file[i] = static_cast<char>(i % 251);
    file[15] = 3;
    for (std::size_t k = 0; k < 64; ++k) {
        const int state = k % 5 == 4 ? 0 : references && k % 3 == 0 ? 1 : 70;
        file[48 + 172 * k] = static_cast<char>(state);
        file.replace(48 + 172 * k + 3, 16, wide("Prg " + std::to_string(k), 16));
    }
    return file;
}

inline std::string gbl()
{
    std::string file("KORG\x4D\x00\x06\x01", 8);
    for (std::size_t i = 8; i < 448; ++i)
        file += static_cast<char>(i * 5 % 256);
    return file;
}

/// A style file of blocks of these lengths. A length under 16 cuts the name.
inline std::string sty(const std::vector<std::size_t>& lengths)
{
    std::string file("KORG\x4D\x00\x04", 7);
    for (int k = 7; k < 224; ++k)
        file += static_cast<char>(k < 22 || k >= 86 ? k : 0);
    for (std::size_t i = 0; i < lengths.size(); ++i) {
        file[24 + 4 * i] = static_cast<char>(lengths[i] % 256);
        file[25 + 4 * i] = static_cast<char>(lengths[i] / 256);
        std::string block = wide(i % 5 == 4 ? "- empty -" : "Style " + std::to_string(i), 16);
        for (std::size_t k = 16; k < lengths[i]; ++k)
            block += static_cast<char>((k * 7 + i) % 256);
        block.resize(lengths[i]);
        file += block;
    }
    return file;
}

/// A settings file: record 1 with its signature, English, some windows; a session of two files, two recent ones, and
/// the instrument's block.
inline std::string settings()
{
    std::string image(11500, '\0');
    const auto put = [&image](std::size_t offset, const std::string& bytes) {
        image.replace(offset, bytes.size(), bytes);
    };
    const auto record = [](int number) { return static_cast<std::size_t>(number - 1) * 250; };
    put(0, "Tarvolyne");
    put(24, "\x02");
    put(48, "\x01");
    for (std::size_t row = 0; row < 18; ++row)
        put(50 + 9 * row, std::string("\x3E\x90\x3E\xA0\x12\xCA\x1E\x64\x01", 9));
    put(213, std::string("\x03\x00\x00\x00\x00\x09\x0A\x0B\x0C\x0D\x0E", 11));
    put(record(2), wide("/home/me/songs", 238));
    for (const int number : {5, 21, 39}) {
        put(record(number), wide("/home/me/songs/file" + std::to_string(number), 238));
        put(record(number) + 238, std::string("\x12\xCA\x01\x01\x3E\x90\x3E\xA0\x00\x00\x1E\x64", 12));
    }
    put(record(37), gbl());
    return image;
}

/// A database of files "song 000" and so on, numbers from 3, in a working folder.
inline std::string database(int files, const std::string& folder)
{
    std::string image(27221, '\0');
    image.replace(0, 8, "TvlDBArr");
    for (int k = 0; k < 997; ++k) {
        std::string record = std::string(1, '\0') + std::string(23, ' ') + std::string(2, '\0');
        if (k < files) {
            std::string digits = std::to_string(k);
            digits.insert(0, 3 - digits.size(), '0');
            record.replace(0, 24, wide("song " + digits, 24));
            record[24] = static_cast<char>((k + 3) % 256);
            record[25] = static_cast<char>((k + 3) / 256);
            image[static_cast<std::size_t>(25974 + k)] = 1;
        }
        image.replace(static_cast<std::size_t>(52 + 26 * k), 26, record);
    }
    return image.replace(26971, 250, wide(folder, 250));
}

/// TvlCMInfo with three names.
inline std::string info()
{
    std::string record(1000, ' ');
    record.replace(0, 9, "TvlCMInfo");
    record.replace(50, 5, "songs");
    record.replace(100, 6, "styles");
    return record.replace(150, 8, "programs");
}

/// Dornflex as a first run leaves it.
inline std::string device()
{
    std::string record(145, '\0');
    record.replace(0, 8, "Dornflex");
    for (const std::size_t offset : {50U, 75U, 100U})
        record.replace(offset, 24, std::string(24, ' '));
    return record;
}

} // namespace Images
