#ifndef TRELVANIX_BENCH_ROWS_H
#define TRELVANIX_BENCH_ROWS_H

#include <benchmark/benchmark.h>

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "heap_peak.h"
#include "trelvanix.h"

// What every measurement needs. A row is named family/size/side: the report makes one table of a
// family, one line of a size and one column of a side.
namespace trelvanix::bench
{

// The library's own side of a row, and the plain form of the same kernel, which has to give its bits.
inline constexpr const char* ownSide = "Trelvanix";
inline constexpr const char* plainSide = "plain form";

struct ReleaseToLibrary {
    void operator()(double* array) const noexcept
    {
        ReleaseDoubleArray(array);
    }
};
using LibraryArray = std::unique_ptr<double[], ReleaseToLibrary>;

using Row = std::function<void(benchmark::State&)>;
void AddRow(const std::string& family, const std::string& size, const std::string& side, Row row);

// The check that a peer's row makes before it measures: the largest difference, as a fraction of the
// largest of our values, is at most the tolerance. The row's label says how well they agree; when they
// do not, the row becomes an error and false comes back.
bool Agrees(benchmark::State& state, const double* ours, const double* theirs, std::size_t count,
            double tolerance);
bool ReportDifference(benchmark::State& state, double difference, double tolerance);

void CompareBits(benchmark::State& state, const double* ours, const std::vector<double>& plain);

// Measures the call: how much of the heap it holds at its peak, then its time.
template <class Call>
void Measure(benchmark::State& state, Call call)
{
    state.counters["heap_peak"] = static_cast<double>(HeapPeak(call));
    for ([[maybe_unused]] auto _ : state)
        call();
}

// Measures a plain form, and compares its last result with ours. The plain forms can take seconds, hence
// few repetitions and no call beside those that are measured.
template <class Call>
void MeasurePlain(benchmark::State& state, const double* ours, Call call)
{
    std::vector<double> plain;
    for ([[maybe_unused]] auto _ : state)
        plain = call();
    CompareBits(state, ours, plain);
}

} // namespace trelvanix::bench

#endif
