// What the reliability tests counted: how many kills, faults, executions, events. A test that sweeps notes its figure
// here, and `tests/figures` prints them as one table.
#pragma once

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

/// Keeps a figure of one row of the table (`row` as "R4") in a file of its own, so that tests beside each other do not
/// meet; a later run replaces it. The folder is that of the environment's TARVOLYNE_FIGURES, else the build's.
inline void noteFigure(const std::string& row, const std::string& what, long long count)
{
    const char* chosen = std::getenv("TARVOLYNE_FIGURES");
    const std::filesystem::path folder = chosen != nullptr ? chosen : TARVOLYNE_FIGURES;
    std::string name = row + " " + what;
    std::replace(name.begin(), name.end(), '/', '-');
    std::error_code ignored;
    std::filesystem::create_directories(folder, ignored);
    std::ofstream(folder / name) << count << '\n';
}
