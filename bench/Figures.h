// What the measurements do with their figures.
#pragma once

#include <algorithm>
#include <ctime>
#include <vector>

/// The value that so many of a hundred do not exceed; 0 of no values.
inline double percentile(std::vector<double> values, int percent)
{
    if (values.empty())
        return 0;
    std::sort(values.begin(), values.end());
    return values[(values.size() - 1) * static_cast<std::size_t>(percent) / 100];
}

inline double median(const std::vector<double>& values) { return percentile(values, 50); }

/// Processor time of this process so far, microseconds: what other processes do in the meantime is not in it.
inline double processorTime()
{
    timespec now{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) * 1e6 + static_cast<double>(now.tv_nsec) / 1e3;
}
