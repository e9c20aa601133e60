#include "rows.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <sstream>
#include <utility>

namespace trelvanix::bench
{

void AddRow(const std::string& family, const std::string& size, const std::string& side, Row row)
{
    const std::string name = family + "/" + size + "/" + side;
    auto* registered = benchmark::RegisterBenchmark(
        name.c_str(), [row = std::move(row)](benchmark::State& state) { row(state); });
    if (side == plainSide)
        registered->Repetitions(3);
}

bool ReportDifference(benchmark::State& state, double difference, double tolerance)
{
    std::ostringstream label;
    label << "difference " << difference << ", tolerance " << tolerance;
    const bool agrees = difference <= tolerance; // false for not-a-number
    if (agrees)
        state.SetLabel(label.str());
    else
        state.SkipWithError(label.str().c_str());
    return agrees;
}

bool Agrees(benchmark::State& state, const double* ours, const double* theirs, std::size_t count,
            double tolerance)
{
    double largest = 0.0, difference = 0.0;
    for (std::size_t i = 0; i < count; ++i) {
        if (std::isnan(ours[i]) || std::isnan(theirs[i]))
            return ReportDifference(state, NAN, tolerance);
        largest = std::max(largest, std::abs(ours[i]));
        difference = std::max(difference, std::abs(ours[i] - theirs[i]));
    }
    return ReportDifference(state, difference / largest, tolerance);
}

void CompareBits(benchmark::State& state, const double* ours, const std::vector<double>& plain)
{
    if (std::memcmp(ours, plain.data(), plain.size() * sizeof(double)) == 0)
        state.SetLabel("same bits");
    else
        state.SkipWithError("bits differ");
}

} // namespace trelvanix::bench
