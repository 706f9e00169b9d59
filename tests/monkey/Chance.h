// Chance that repeats: the same seed gives the same choices on every machine.
#pragma once

#include <cstdint>
#include <random>
#include <vector>

class Chance
{
public:
    explicit Chance(std::uint64_t seed) : engine_(seed) {}

    /// 0 to count - 1; 0 for an empty range.
    int below(int count) { return count <= 1 ? 0 : static_cast<int>(engine_() % static_cast<unsigned>(count)); }
    int between(int low, int high) { return low + below(high - low + 1); }
    /// True once in `times`.
    bool oneIn(int times) { return below(times) == 0; }
    template <typename List>
    auto& of(List& list)
    {
        return list[static_cast<typename List::size_type>(below(static_cast<int>(list.size())))];
    }

private:
    std::mt19937_64 engine_;
};
