// Packing a dump for the wire: 12 KB of bytes that nobody can predict, beside memcpy of the same bytes and beside the
// least that a packing by bytes must do, touching each once.
#include "midi/SysEx.h"

#include <benchmark/benchmark.h>
#include <cstring>
#include <random>

namespace
{

constexpr std::size_t Size = 12288;

ByteBuffer randomBytes()
{
    std::mt19937 random(20); // the same bytes in each run
    ByteBuffer bytes(Size, '\0');
    for (char& byte : bytes)
        byte = static_cast<char>(random() & 0xFFU);
    return bytes;
}

void packing(benchmark::State& state)
{
    const ByteBuffer source = randomBytes();
    for ([[maybe_unused]] auto turn : state)
        benchmark::DoNotOptimize(packedSevenBit(source));
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(Size));
}

void floorMemcpy(benchmark::State& state)
{
    const ByteBuffer source = randomBytes();
    ByteBuffer copy(Size, '\0');
    for ([[maybe_unused]] auto turn : state) {
        std::memcpy(copy.data(), source.data(), Size);
        benchmark::DoNotOptimize(copy.data());
        benchmark::ClobberMemory();
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(Size));
}

void floorEachByte(benchmark::State& state)
{
    const ByteBuffer source = randomBytes();
    for ([[maybe_unused]] auto turn : state) {
        ByteBuffer copy(Size + Size / 7 + 1, '\0');
        for (std::size_t i = 0; i < Size; ++i)
            copy[i] = static_cast<char>(source[i] & 0x7F);
        benchmark::DoNotOptimize(copy);
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(Size));
}

} // namespace

BENCHMARK(packing)->Unit(benchmark::kMicrosecond);
BENCHMARK(floorMemcpy)->Unit(benchmark::kMicrosecond);
BENCHMARK(floorEachByte)->Unit(benchmark::kMicrosecond);
BENCHMARK_MAIN();
