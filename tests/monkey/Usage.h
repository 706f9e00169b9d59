// What a process holds: memory, open descriptors, objects of the toolkit.
#pragma once

#include "monkey/ObjectCensus.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <malloc.h>
#include <unistd.h>

struct Usage {
    long long residentKiB = 0;
    long long descriptors = 0;
    long long objects = 0;

    static Usage now()
    {
        malloc_trim(0); // what the program has given back is not counted
        Usage usage;
        long long pages = 0;
        std::ifstream("/proc/self/statm") >> pages >> usage.residentKiB;
        usage.residentKiB *= sysconf(_SC_PAGESIZE) / 1024;
        usage.descriptors = std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {});
        usage.objects = ObjectCensus::count();
        return usage;
    }
};
