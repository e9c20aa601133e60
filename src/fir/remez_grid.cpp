#include "fir/remez_grid.h"

#include <cmath>
#include <cstddef>
#include <stdexcept>

#include "common/numbers.h"
#include "common/work_array.h"

namespace trelvanix
{
namespace
{

constexpr double largestGrid = 16777216.0; // 2^24 points

// Appends the points of a band that reaches from the grid's last point to fup, and some steps beyond.
void AppendBand(std::vector<double>& grid, double fup, double delf)
{
    const double g0 = grid.back();
    const double points = std::abs(fup - g0) / delf + 1.0;
    // Written so that not-a-number, from a step that has become zero, is refused too.
    if (!(static_cast<double>(grid.size()) + points <= largestGrid))
        throw std::length_error("vector too long");
    const int n = ToInt(points);
    if (n >= 11) {
        for (int i = 1; i <= n; ++i)
            grid.push_back(g0 + i * delf);
        return;
    }

    // A narrow band gets ten steps of its own. The step of a band without width is zero or too small
    // to lead anywhere: one point then.
    const double d = ((fup + delf) - (g0 + delf)) / 10.0;
    const double end = fup + d;
    double point = g0 + d;
    while (point <= end) {
        grid.push_back(point);
        const double next = point + d;
        if (!(next > point))
            return;
        point = next;
    }
}

// The grid for one density, in points per cosine function and unit of band width.
std::vector<double> GridOfDensity(int tapCount, double lgrid, const double* edges, int edgeCount)
{
    const bool even = tapCount % 2 == 0;
    const double nfcns = even ? tapCount / 2 : tapCount / 2 + 1;
    const double delf = 1.0 / (nfcns * lgrid);

    std::vector<double> grid = {edges[0]};
    for (int l = 0; l + 1 < edgeCount; l += 2) {
        AppendBand(grid, edges[l + 1], delf);
        // The band has been overrun by one point: the one before it moves to the upper edge, and the
        // last one starts the next band. A reversed band may have added nothing to the first point.
        if (grid.size() == 1)
            grid.push_back(0.0);
        else
            grid[grid.size() - 2] = edges[l + 1];
        if (l + 2 < edgeCount)
            grid.back() = edges[l + 2];
    }
    grid.pop_back();

    // With an even number of taps the response is zero at Nyquist, whatever is desired there.
    const double lastLowerEdge = edges[edgeCount - 2];
    if (even && grid.back() > 1.0 - delf) {
        if (1.0 - delf > lastLowerEdge)
            grid.pop_back();
        else
            grid.back() = lastLowerEdge;
    }
    return grid;
}

// One band of the desired response: linear between its two edges.
struct Band {
    double lowerEdge, upperEdge;
    double lowerAmp, upperAmp;
    double weight;
};

double DesiredAt(double g, const Band& band)
{
    if (band.upperEdge != band.lowerEdge) {
        const double slope = (band.upperAmp - band.lowerAmp) / (band.upperEdge - band.lowerEdge);
        return (band.lowerAmp - slope * band.lowerEdge) + slope * g;
    }
    return (band.upperAmp + band.lowerAmp) * 0.5;
}

// Writes value and weight of the points in the band, both edges included: a point on an edge that two
// bands share belongs to the later one.
void FillBand(RemezProblem& problem, const Band& band)
{
    for (std::size_t i = 0; i < problem.grid.size(); ++i) {
        const double g = problem.grid[i];
        if (band.lowerEdge <= g && g <= band.upperEdge) {
            problem.desired[i] = DesiredAt(g, band);
            problem.weight[i] = band.weight;
        }
    }
}

} // namespace

std::vector<double> DenseGrid(int tapCount, const double* edges, int edgeCount)
{
    // The density is a double, so that it can grow until the grid does or the step vanishes.
    double lgrid = 16.0;
    std::vector<double> grid = GridOfDensity(tapCount, lgrid, edges, edgeCount);
    while (grid.size() <= static_cast<std::size_t>(tapCount)) {
        lgrid *= 4.0;
        grid = GridOfDensity(tapCount, lgrid, edges, edgeCount);
    }
    return grid;
}

RemezProblem DesignGrid(int order, const double* edges, const double* amplitudes, int edgeCount,
                        const double* bandWeights, int bandWeightCount)
{
    RemezProblem problem;
    problem.grid = DenseGrid(order + 1, edges, edgeCount);
    const auto gridCount = static_cast<std::int64_t>(problem.grid.size());
    problem.desired = NewWorkArray<double>(gridCount);
    problem.weight = NewWorkArray<double>(gridCount);

    const int bandCount = edgeCount / 2;
    const bool weighted = bandWeights != nullptr && bandWeightCount == bandCount;
    for (int b = 0; b < bandCount; ++b) {
        const int k = 2 * b;
        FillBand(problem, {edges[k], edges[k + 1], amplitudes[k], amplitudes[k + 1],
                           weighted ? bandWeights[b] : 1.0});
    }
    return problem;
}

} // namespace trelvanix
