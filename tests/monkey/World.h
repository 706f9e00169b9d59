// What the program under test lives in: a home, a working folder and a folder of songs of its own, all of them
// temporary; and the reset of its process-wide values, so that a start in this process is a start from nothing.
#pragma once

#include "monkey/Chance.h"
#include "support/TemporaryFolder.h"

#include <map>
#include <string>
#include <vector>

class World
{
public:
    /// Makes the folders, puts templates, samples and `damaged` damaged files into them, and makes them the home and
    /// the working folder of this process.
    World(Chance& chance, int damaged);

    std::string songs() const { return root_.file("songs"); }
    std::string stateFolder() const { return root_.file("home/tarvolyne"); }
    std::string workFolder() const { return root_.file("work"); }

    /// A file to be opened: mostly one that is there.
    std::string pathToOpen(Chance& chance) const;
    /// A name to be saved under: mostly a new one, or one that is there.
    std::string pathToSave(Chance& chance);

    /// Damages one of the state files or of the files beside the program, as a bad disk might between two runs.
    void damageSomething(Chance& chance);
    /// Settings with a language, as after a first run.
    void chooseLanguage(int language) const;

    /// What is wrong with the files of the user and of the program now; empty when they are whole. A file that this
    /// class damaged itself counts only once the program has written it.
    std::vector<std::string> faultsOfFiles();

    /// Puts every process-wide value of the program back to its beginning.
    static void forgetProcess();

private:
    struct Seen {
        std::string bytes;
    };
    void putSamples();
    void putOddFiles(Chance& chance);
    void putDamaged(Chance& chance, int count);
    void put(const std::string& path, const std::string& bytes);
    bool isOwnDamage(const std::string& path, const std::string& bytes) const;
    std::string faultOfFile(const std::string& path) const;

    TemporaryFolder root_;
    std::map<std::string, Seen> own_;         ///< as this class wrote them
    std::map<std::string, long long> looked_; ///< files that were found whole, by their time
    int saves_ = 0;
};

/// All bytes of a file; empty where it cannot be read.
std::string bytesOfFile(const std::string& path);
