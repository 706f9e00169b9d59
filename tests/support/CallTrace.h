// What a save asked of the disk, call by call, and what a power cut at any instant would leave of it.
//
// A disk keeps its promises to a program that flushes, and no others: bytes that were not flushed may be lost, names
// that were changed since their folder was flushed may be the old or the new ones, in the order of their changes.
#pragma once

#include <array>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <map>
#include <set>
#include <string>
#include <sys/syscall.h>
#include <vector>

enum class Deed { Other, Create, Open, Write, Flush, Cut, Rename, Link, Remove };

struct TracedCall {
    Deed deed = Deed::Other;
    long answer = 0;
    char path[256] = {}; ///< the file, also where a descriptor named it
    char to[256] = {};   ///< the new name
    long flags = 0;      ///< of an opening: O_EXCL and so on
    long mode = 0;       ///< of a creating opening: the permission bits asked for
};

using CallTrace = std::vector<TracedCall>;

/// A system call in these words. `pathOf` tells the path behind a descriptor; no memory is taken.
template <typename PathOf>
void describeCall(TracedCall& call, long number, const std::array<long, 5>& arguments, long answer, PathOf&& pathOf)
{
    struct Row {
        long number;
        Deed deed;
        int path, to, flags; ///< arguments, -1 none
        bool descriptor;
    };
    static constexpr Row Rows[] = {
        {SYS_openat, Deed::Open, 1, -1, 2, false},     {SYS_write, Deed::Write, 0, -1, -1, true},
        {SYS_fsync, Deed::Flush, 0, -1, -1, true},     {SYS_ftruncate, Deed::Cut, 0, -1, -1, true},
        {SYS_renameat, Deed::Rename, 1, 3, -1, false}, {SYS_renameat2, Deed::Rename, 1, 3, -1, false},
        {SYS_linkat, Deed::Link, 1, 3, -1, false},     {SYS_unlinkat, Deed::Remove, 1, -1, -1, false},
#ifdef SYS_open
        {SYS_open, Deed::Open, 0, -1, 1, false},       {SYS_rename, Deed::Rename, 0, 1, -1, false},
        {SYS_link, Deed::Link, 0, 1, -1, false},       {SYS_unlink, Deed::Remove, 0, -1, -1, false},
#endif
    };
    call = {};
    call.answer = answer;
    const auto argument = [&](int index) { return arguments[static_cast<std::size_t>(index)]; };
    const auto copy = [&](char* to, int index) {
        std::snprintf(to, sizeof call.path, "%s", reinterpret_cast<const char*>(argument(index)));
    };
    for (const Row& row : Rows) {
        if (row.number != number)
            continue;
        if (row.flags >= 0)
            call.flags = argument(row.flags);
        const bool creates = (call.flags & O_CREAT) != 0;
        call.deed = creates ? Deed::Create : row.deed;
        call.mode = creates ? argument(row.flags + 1) : 0;
        if (row.descriptor)
            pathOf(argument(row.path), call.path, sizeof call.path);
        else
            copy(call.path, row.path);
        if (row.to >= 0)
            copy(call.to, row.to);
    }
}

inline std::string folderOfTraced(const std::string& path) { return path.substr(0, path.rfind('/')); }

/// The disk after some calls of a trace, as far as names and whole files go.
class DiskAfterPowerCut
{
public:
    enum class Content { Old, New, Torn, Absent };

    explicit DiskAfterPowerCut(const std::vector<std::string>& oldFiles)
    {
        for (const std::string& path : oldFiles)
            names_[path] = durable_[path] = newInode(Content::Old);
    }

    void take(const TracedCall& call)
    {
        const std::string path = call.path, to = call.to;
        if (call.answer < 0)
            return;
        if (call.deed == Deed::Create && names_.count(path) == 0) {
            change(path, newInode(Content::Torn));
        } else if (call.deed == Deed::Write || call.deed == Deed::Cut) {
            if (const auto found = names_.find(path); found != names_.end())
                inodes_[static_cast<std::size_t>(found->second)] = {Content::Torn};
        } else if (call.deed == Deed::Flush) {
            flush(path);
        } else if (call.deed == Deed::Rename && names_.count(path) != 0) {
            const int inode = names_[path];
            change(path, Gone);
            change(to, inode);
        } else if (call.deed == Deed::Link && names_.count(path) != 0) {
            change(to, names_[path]);
        } else if (call.deed == Deed::Remove) {
            change(path, Gone);
        }
    }

    /// All that a name may stand for when the power goes now.
    std::set<Content> mayHold(const std::string& path) const
    {
        std::set<Content> all{contentOf(durable_, path)};
        for (const Change& each : waiting_)
            if (each.path == path)
                all.insert(each.inode == Gone ? Content::Absent
                                              : inodes_[static_cast<std::size_t>(each.inode)].content);
        return all;
    }

private:
    static constexpr int Gone = -1;
    struct Inode {
        Content content; ///< what is on the disk for certain
    };
    struct Change {
        std::string path;
        int inode;
    };

    int newInode(Content content)
    {
        inodes_.push_back({content});
        return static_cast<int>(inodes_.size()) - 1;
    }
    void change(const std::string& path, int inode)
    {
        if (inode == Gone)
            names_.erase(path);
        else
            names_[path] = inode;
        waiting_.push_back({path, inode});
    }
    void flush(const std::string& path)
    {
        if (const auto found = names_.find(path); found != names_.end()) {
            inodes_[static_cast<std::size_t>(found->second)] = {Content::New};
            return;
        }
        std::vector<Change> left;
        for (const Change& each : waiting_)
            if (folderOfTraced(each.path) != path)
                left.push_back(each);
            else if (each.inode == Gone)
                durable_.erase(each.path);
            else
                durable_[each.path] = each.inode;
        waiting_ = left;
    }
    Content contentOf(const std::map<std::string, int>& names, const std::string& path) const
    {
        const auto found = names.find(path);
        return found == names.end() ? Content::Absent : inodes_[static_cast<std::size_t>(found->second)].content;
    }

    std::vector<Inode> inodes_;
    std::map<std::string, int> names_;   ///< as the running system sees them
    std::map<std::string, int> durable_; ///< as they are on the disk for certain
    std::vector<Change> waiting_;        ///< changes of names that may or may not be
};
