// The arrangement database as a file, built by hand from the format's figures.
#pragma once

#include <string>
#include <vector>

struct IndexRow {
    std::string name;
    int id;
};

/// A database file: records of 26 bytes from offset 52, the map of IDs at 25974, the folder at 26971.
inline std::string database(const std::vector<IndexRow>& rows, std::string folder)
{
    std::string file(27221, '\0');
    file.replace(0, 8, "TvlDBArr");
    for (std::size_t slot = 0; slot < 997; ++slot)
        file.replace(52 + slot * 26 + 1, 23, std::string(23, ' '));
    for (std::size_t i = 0; i < rows.size(); ++i) {
        std::string name = rows[i].name;
        name.resize(24, ' ');
        file.replace(52 + i * 26, 24, name);
        file[52 + i * 26 + 24] = static_cast<char>(rows[i].id % 256);
        file[52 + i * 26 + 25] = static_cast<char>(rows[i].id / 256);
        file[25974 + static_cast<std::size_t>(rows[i].id) - 3] = 1;
    }
    folder.resize(250, ' ');
    return file.replace(26971, 250, folder);
}
