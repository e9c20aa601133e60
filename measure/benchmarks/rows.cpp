#include "rows.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <optional>
#include <sstream>

#include "heap_peak.h"

namespace trelvanix::bench
{
namespace
{

class Row
{
public:
    explicit Row(std::function<Subject()> makeSubject) : make(std::move(makeSubject))
    {
    }

    void operator()(benchmark::State& state)
    {
        const Subject subject = make();
        const std::int64_t heapPeak = HeapPeak(subject.call);
        if (!verdict)
            verdict = subject.check ? subject.check() : Verdict{};
        if (!verdict->agrees) {
            state.SkipWithError(verdict->label.c_str());
            return;
        }
        state.SetLabel(verdict->label);
        for ([[maybe_unused]] auto _ : state)
            subject.call();
        state.counters["heap_peak"] = static_cast<double>(heapPeak);
        if (subject.operationsPerCall > 0.0) {
            state.counters["rate"] = benchmark::Counter(subject.operationsPerCall,
                                                        benchmark::Counter::kIsIterationInvariantRate);
        }
    }

private:
    std::function<Subject()> make;
    std::optional<Verdict> verdict; // of the first time
};

} // namespace

void AddRow(const std::string& family, const std::string& size, const std::string& side,
            const std::function<Subject()>& make)
{
    const std::string name = family + "/" + size + "/" + side;
    auto* registered = benchmark::RegisterBenchmark(
        name.c_str(), [row = Row(make)](benchmark::State& state) mutable { row(state); });
    // The plain forms take seconds, and their times matter less.
    if (side == plainSide)
        registered->Repetitions(3);
}

Verdict Within(double tolerance, double difference)
{
    std::ostringstream label;
    label << "difference " << difference << ", tolerance " << tolerance;
    return {.agrees = difference <= tolerance, .label = label.str()}; // not-a-number does not agree
}

Verdict Within(double tolerance, const double* ours, const double* theirs, std::size_t count)
{
    double largest = 0.0, difference = 0.0;
    for (std::size_t i = 0; i < count; ++i) {
        if (std::isnan(ours[i]) || std::isnan(theirs[i]))
            return Within(tolerance, std::numeric_limits<double>::quiet_NaN());
        largest = std::max(largest, std::abs(ours[i]));
        difference = std::max(difference, std::abs(ours[i] - theirs[i]));
    }
    return Within(tolerance, difference / largest);
}

Verdict SameBits(const double* ours, const std::vector<double>& plain)
{
    const bool same = std::memcmp(ours, plain.data(), plain.size() * sizeof(double)) == 0;
    return {.agrees = same, .label = same ? "same bits" : "bits differ"};
}

} // namespace trelvanix::bench
