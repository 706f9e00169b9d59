// make_templates FOLDER: writes the files that stand beside the program, and the samples, into FOLDER.
#include "core/NameTables.h"
#include "files/StyImage.h"
#include "tools/FactoryBanks.h"
#include "tools/SampleFiles.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>

namespace
{

bool writeFile(const std::filesystem::path& path, const ByteBuffer& bytes)
{
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    file.close();
    if (!file)
        std::cerr << "make_templates: cannot write " << path.string() << "\n";
    return static_cast<bool>(file);
}

bool writeAll(const std::filesystem::path& folder)
{
    const std::filesystem::path samples = folder / "samples";
    return writeFile(folder / "TvlArrA", factoryBank(0)) && writeFile(folder / "TvlArrB", factoryBank(1)) &&
           writeFile(folder / "TvlSty", builtInStyTemplate()) && writeFile(folder / "TvlPrg", emptyProgramFile()) &&
           writeFile(samples / "song.arr", songArrangements()) && writeFile(samples / "song.sty", songStyles()) &&
           writeFile(samples / "song.prg", songPrograms()) && writeFile(samples / "encore.arr", encoreArrangements()) &&
           writeFile(samples / "encore.pgg", encorePrograms()) && writeFile(samples / "studio.gbl", studioGlobal());
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::cerr << "usage: make_templates FOLDER\n";
        return EXIT_FAILURE;
    }
    const std::filesystem::path folder = argv[1];
    std::error_code error;
    std::filesystem::create_directories(folder / "samples", error);
    if (error) {
        std::cerr << "make_templates: cannot make " << (folder / "samples").string() << "\n";
        return EXIT_FAILURE;
    }
    NameTablesBuild();
    return writeAll(folder) ? EXIT_SUCCESS : EXIT_FAILURE;
}
