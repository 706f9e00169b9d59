// A target as a plain program, for compilers without a fuzzer: runs the files, and the files of the folders, that it is
// given, each once.
#include "Fuzz.h"

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace
{

void replay(const std::filesystem::path& file, long& count)
{
    std::ifstream stream(file, std::ios::binary);
    const std::string bytes((std::istreambuf_iterator<char>(stream)), std::istreambuf_iterator<char>());
    fuzzOne(bytes);
    ++count;
}

} // namespace

int main(int argumentCount, char** arguments)
{
    long count = 0;
    for (int i = 1; i < argumentCount; ++i) {
        if (arguments[i][0] == '-')
            continue; // what a fuzzer would take as an option
        if (!std::filesystem::is_directory(arguments[i])) {
            replay(arguments[i], count);
            continue;
        }
        for (const auto& entry : std::filesystem::directory_iterator(arguments[i]))
            if (entry.is_regular_file())
                replay(entry.path(), count);
    }
    std::printf("%ld inputs replayed\n", count);
    return count > 0 ? 0 : 1;
}
