// mutate SEED COUNT FILE...: prints COUNT mutants of the files, a line each: file, line, kind, the new line; tabs
// between.
#include "Mutants.h"

#include <cstdlib>
#include <fstream>
#include <iostream>

int main(int count, char** words)
{
    if (count < 4) {
        std::cerr << "usage: mutate SEED COUNT FILE...\n";
        return 2;
    }
    std::mt19937 random(static_cast<unsigned>(std::strtoul(words[1], nullptr, 10)));
    std::vector<std::pair<std::string, Mutant>> all;
    for (int index = 3; index < count; ++index) {
        std::ifstream file(words[index]);
        std::vector<std::string> lines;
        for (std::string line; std::getline(file, line);)
            lines.push_back(line);
        if (lines.empty()) {
            std::cerr << "cannot be read: " << words[index] << '\n';
            return 1;
        }
        for (const Mutant& mutant : mutantsOfFile(lines, random))
            all.emplace_back(words[index], mutant);
    }
    for (const std::size_t place : spread(all.size(), std::strtoul(words[2], nullptr, 10), random)) {
        const auto& [file, mutant] = all[place];
        std::cout << file << '\t' << mutant.line << '\t' << mutant.kind << '\t' << mutant.text << '\n';
    }
    return 0;
}
