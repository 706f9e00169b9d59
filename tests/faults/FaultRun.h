// One act of the table of write paths with one fault in it, in a process of its own, and the look at what it leaves.
#pragma once

#include "faults/WritePath.h"
#include "support/FailingCalls.h"
#include "support/TemporaryFolder.h"

#include <array>
#include <string>
#include <vector>

// With sanitizers a process takes so long to copy that some of the calls must do; the other flavour takes each.
#ifdef __has_feature
#if __has_feature(address_sanitizer)
#define TARVOLYNE_FAULT_STEP 31
#endif
#endif
#ifndef TARVOLYNE_FAULT_STEP
#define TARVOLYNE_FAULT_STEP 1
#endif
inline constexpr int FaultStep = TARVOLYNE_FAULT_STEP;

/// What the user was told, and how the act ended.
struct FaultOutcome {
    bool ended = false; ///< the act came to its end
    int result = 0;
    bool untouched = false;
    int boxes = 0;
    std::array<std::array<char, 100>, 8> words{};
};

/// Failed: by one error, behind which everything is cleaned up. Hindered: by several, also while cleaning up.
enum class Fate { Killed, Failed, Hindered, Undisturbed };

/// A disk in memory that acts are tried on, one after the other.
class FaultDesk
{
public:
    /// `below`: more of the path, a folder of this name.
    explicit FaultDesk(const std::string& below = {});
    ~FaultDesk();
    FaultDesk(const FaultDesk&) = delete;
    FaultDesk& operator=(const FaultDesk&) = delete;

    const Site& site() const { return site_; }
    const FaultOutcome& outcome() const { return *outcome_; }

    /// From the disk's first state. The user tries again `retries` times, then gives up.
    FailedRun run(const WritePath& path, const Failure& failure, int retries = 0);
    /// The disk's first state, and what `change` makes of it, both as an ordinary user.
    void prepare(const WritePath& path, const std::function<void()>& change);
    /// The same act on what the last run left, undisturbed.
    FailedRun again(const WritePath& path);
    /// The same with the user's and the state folder together on a disk of the system's own that has so many pages of
    /// 4096 bytes free. What is broken, or "" when nothing is; `mounted` false where no disk may be mounted.
    std::string runOnSmallDisk(const WritePath& path, int freePages, bool& mounted, bool& saved);

    /// What does not hold of the disk, in words; "" when all does.
    std::string disk(const WritePath& path, Fate fate) const;
    /// What does not hold of the outcome after `error`: the words of the table, the buffers, no false success.
    std::string told(const WritePath& path, int error) const;
    /// The same where several errors came; every box shows one of their words.
    std::string told(const WritePath& path, const std::vector<int>& errors) const;
    /// What does not hold unless all files are the new ones.
    std::string notSaved(const WritePath& path) const;

    /// The disk's first state.
    void putDisk(const WritePath& path) const;
    /// The act with a failure, on the disk and in the memory that stand.
    FailedRun goOn(const WritePath& path, const Failure& failure, int retries = 0);
    /// From here on only calls count that change a file.
    void watchChangesOnly() { changesOnly_ = true; }

private:
    void enter(const WritePath& path, int retries);
    int act(const WritePath& path);
    std::string notKept(const WritePath& path) const;
    std::string strangers(const WritePath& path, Fate fate) const;

    std::string temporaryBefore_; ///< TMPDIR
    TemporaryFolder* folder_ = nullptr;
    Site site_;
    bool changesOnly_ = false;
    FaultOutcome* outcome_ = nullptr; ///< shared with the processes of the acts
    FaultUser user_;
};

/// The words of a box for an error, by a table.
std::vector<std::string> wordsFor(Telling telling, int error);
