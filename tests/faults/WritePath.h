// Every way in which the program writes to the disk, as one table: what stands there before, what after, the act
// itself, and what the user is told when it fails. The sweeps walk the table.
#pragma once

#include "support/ScriptedUser.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

/// The disk of one act: a folder of the user's and the state folder, side by side.
struct Site {
    std::string root;
    std::string user() const { return root + "/user"; }
    std::string state() const { return root + "/state"; }
};

enum class Place { User, State };

struct WrittenFile {
    Place place;
    std::string name;
    std::optional<std::string> before; ///< nothing: the file is absent
    std::optional<std::string> after;
    std::vector<std::string> between = {}; ///< whole states on the way
    bool grows = false;                    ///< a log: every beginning of it is whole
    bool silent = false;                   ///< its failure is told to nobody, as the program can do without it
    bool mayGo = false;                    ///< absent is as good
    std::size_t ownLength = 0;             ///< any bytes of this length are whole and new, where it is not 0
    bool ofRun = false;                    ///< tells of this run alone and is not flushed

    std::string path(const Site& site) const
    {
        return (place == Place::User ? site.user() : site.state()) + "/" + name;
    }
};

/// The tables by which a failure is told; a path may use both.
enum class Telling { Nothing, ByReading, ByWriting, ByBoth };

/// Leaves boxes by OK as often as it is told to, which tries again, then without trying again.
struct FaultUser : ScriptedUser {
    int retries = 0;
    BoxEnd warn(const std::string& title, const std::string& text) override
    {
        ScriptedUser::warn(title, text);
        return retries-- > 0 ? BoxEnd::Ok : BoxEnd::Dismissed;
    }
};

struct WritePath {
    std::string name;
    std::vector<WrittenFile> files;
    Telling telling;
    std::function<void(const Site&, FaultUser&)> ready;    ///< memory as it is when the user acts
    std::function<int(const Site&, FaultUser&)> act;       ///< 0 done
    std::function<bool()> untouched = [] { return true; }; ///< memory after an act that failed
    bool keepsCopies = false;                              ///< old bytes that are replaced or removed go to Safety
    bool inPlace = false;                                  ///< the folder lets nothing be created
    bool mayBeTorn = false;      ///< a kill may leave a file half written, and its old bytes in a copy
    bool leavesOut = false;      ///< what cannot be read among many files is left out without a word
    std::string secondName = {}; ///< of the first file
    std::string group = {};      ///< paths whose figures are counted together
};

std::vector<WritePath> writePaths(const Site& site);
/// Their parts: the saves of windows, and the program's own records.
std::vector<WritePath> windowPaths();
std::vector<WritePath> recordPaths(const Site& site);
