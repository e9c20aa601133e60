#include <benchmark/benchmark.h>

#include <cmath>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <string>
#include <vector>

#include "families.h"
#include "rows.h"

namespace trelvanix::bench
{
namespace
{

void AddRate(const std::string& operation, const std::string& unit, double operationsPerCall,
             const std::function<void()>& loop)
{
    AddRow("Limits", operation + ", " + unit, "machine",
           [=] { return Subject{.call = loop, .operationsPerCall = operationsPerCall}; });
}

constexpr int chainLength = 10000;

void AddChain()
{
    double y = 1.0, step = 1e-9;
    benchmark::DoNotOptimize(step);
    for (int i = 0; i < chainLength; ++i)
        y += step;
    benchmark::DoNotOptimize(y);
}

// Independent sums, enough of them to hide the latencies of a product and a sum and few enough for the
// registers. Once for each vector length, because a function has one instruction set.
constexpr int sumCount = 12, sumCountAvx512 = 24;
constexpr int stepCount = 10000;

void MultiplyThenAddSse2()
{
    using Vector [[gnu::vector_size(16)]] = double;
    Vector factor = Vector{} + (1.0 - 1e-9), term = Vector{} + 1e-9, sums[sumCount] = {};
    benchmark::DoNotOptimize(factor);
    for (int i = 0; i < stepCount; ++i) {
        for (Vector& sum : sums)
            sum = sum * factor + term;
    }
    benchmark::DoNotOptimize(sums);
}

#if defined(__x86_64__)
[[gnu::target("avx2")]] void MultiplyThenAddAvx2()
{
    using Vector [[gnu::vector_size(32)]] = double;
    Vector factor = Vector{} + (1.0 - 1e-9), term = Vector{} + 1e-9, sums[sumCount] = {};
    benchmark::DoNotOptimize(factor);
    for (int i = 0; i < stepCount; ++i) {
        for (Vector& sum : sums)
            sum = sum * factor + term;
    }
    benchmark::DoNotOptimize(sums);
}

[[gnu::target("avx512f")]] void MultiplyThenAddAvx512()
{
    using Vector [[gnu::vector_size(64)]] = double;
    Vector factor = Vector{} + (1.0 - 1e-9), term = Vector{} + 1e-9, sums[sumCountAvx512] = {};
    benchmark::DoNotOptimize(factor);
    for (int i = 0; i < stepCount; ++i) {
        for (Vector& sum : sums)
            sum = sum * factor + term;
    }
    benchmark::DoNotOptimize(sums);
}
#endif

void AddMultiplyThenAdd()
{
    constexpr double pairs = double{sumCount} * stepCount;
    AddRate("multiply then add, 2 doubles at a time", "pairs", 2 * pairs, MultiplyThenAddSse2);
#if defined(__x86_64__)
    if (__builtin_cpu_supports("avx2"))
        AddRate("multiply then add, 4 doubles at a time (AVX2)", "pairs", 4 * pairs,
                MultiplyThenAddAvx2);
    if (__builtin_cpu_supports("avx512f"))
        AddRate("multiply then add, 8 doubles at a time (AVX-512)", "pairs",
                8.0 * sumCountAvx512 * stepCount, MultiplyThenAddAvx512);
#endif
}

// The angles of a transform's twiddle factors.
void AddSineAndCosine()
{
    constexpr int count = 1024;
    AddRate("sine and cosine of an angle", "pairs", count, [] {
        for (int k = 0; k < count; ++k) {
            const double angle = -3.141592653589793 * k / count;
            double c = std::cos(angle), s = std::sin(angle);
            benchmark::DoNotOptimize(c);
            benchmark::DoNotOptimize(s);
        }
    });
}

void AddMemory()
{
    constexpr std::size_t page = 4096, pages = 16384, bytes = pages * page;
    AddRow("Limits", "copying 64 MiB (read and written), bytes", "machine", [] {
        const auto copy = [from = std::vector<char>(bytes, 1),
                           to = std::vector<char>(bytes, 2)]() mutable {
            std::memcpy(to.data(), from.data(), bytes);
            benchmark::ClobberMemory();
        };
        return Subject{.call = copy, .operationsPerCall = 2.0 * bytes};
    });
    AddRate("first touch of fresh memory", "pages of 4 KiB", pages, [] {
        char* block = static_cast<char*>(std::malloc(bytes));
        for (std::size_t i = 0; i < bytes; i += page)
            static_cast<volatile char*>(block)[i] = 1;
        std::free(block);
    });
}

} // namespace

void AddLimits()
{
    AddRate("chain of dependent sums", "sums", chainLength, AddChain);
    AddMultiplyThenAdd();
    AddSineAndCosine();
    AddMemory();
}

} // namespace trelvanix::bench
