// The disk of the test program: what it refuses. The program's own calls of the system go through it, in the processes
// of asOrdinaryUser as well.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

struct RefusingDisk {
    int flushError = 0;
    int flushes = 0;    ///< how many flushes still fail
    int goodBefore = 0; ///< flushes that succeed before

    std::string name; ///< removals of a name that ends so answer removeError
    int removeError = 0;
    int removals = 0; ///< how many still fail

    std::vector<std::string> places; ///< folders that lie on a disk of its own
    std::int64_t capacity = -1;      ///< bytes that the files below them may take together; -1 any number
    std::int64_t used() const;
};
extern RefusingDisk disk;

/// The next `times` flushes behind `goodBefore` good ones answer `error`.
void failFlushes(int error, int times, int goodBefore = 0);
