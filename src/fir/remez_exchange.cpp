#include "fir/remez_exchange.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>

#include "common/constants.h"
#include "common/instruction_set.h"
#include "common/numbers.h"
#include "common/work_array.h"
#include "fir/error_table.h"
#include "fir/remez_kernel.h"
#include "math/trigonometric.h"

namespace trelvanix
{
namespace
{

constexpr int iterationLimit = 250;

// ---- Interpolation -----------------------------------------------------------------------------

double SignOf(int j)
{
    return j % 2 == 0 ? 1.0 : -1.0;
}

// The deviation for which an interpolation through all extrema exists, and that interpolation.
void Interpolate(const CosineGrid& grid, const std::vector<int>& iext, Interpolant& p)
{
    const int nz = static_cast<int>(p.x.size());
    // One group of factors for up to 15 functions, another for each 15 more.
    const int groupCount = (nz - 2) / 15 + 1;
    double* x = p.x.data();
    double* ad = p.ad.data();
    double* y = p.y.data();
    const int* extremum = iext.data();

    for (int j = 0; j < nz; ++j)
        x[j] = grid.cosine[extremum[j]];
    KernelsFor<RemezKernels>(BestInstructionSet()).lagrangeWeights(x, nz, groupCount, ad);

    double dnum = 0.0;
    double dden = 0.0;
    for (int j = 0; j < nz; ++j) {
        dnum += ad[j] * grid.desired[extremum[j]];
        dden += ad[j] * SignOf(j) / grid.weight[extremum[j]];
    }
    const double dev = dnum / dden;
    p.nu = dev > 0.0 ? -1.0 : 1.0;
    p.deviation = -p.nu * dev;
    for (int j = 0; j < nz; ++j)
        y[j] = grid.desired[extremum[j]] + p.nu * p.deviation * SignOf(j) / grid.weight[extremum[j]];
}

// ---- Extremal search ---------------------------------------------------------------------------

// A search for larger errors of one sign.
struct Search {
    ErrorTable& errors;
    double sign; // the sign
    double size; // the size to beat
};

// True if the error at the point, reached in steps of +1 or -1, has the sign sought and is larger than
// the size to beat, which then becomes its size. Equal errors do not count, and neither does not-a-number.
bool Improves(Search& search, int point, int step)
{
    const double size = search.sign * search.errors.At(point, step);
    if (!(size - search.size > 0.0))
        return false;
    search.size = size;
    return true;
}

// Goes on from an improving point in steps of +1 or -1 while the error grows, end excluded. Returns the
// last improving point.
int Climb(Search& search, int point, int end, int step)
{
    for (int next = point + step; next != end && Improves(search, next, step); next += step)
        point = next;
    return point;
}

constexpr int none = -1;

// Tries the points from `from` on in steps of +1 or -1, end excluded: all of them, or the first one
// alone. Climbs from the first that improves and returns where it arrives, or none.
int FindPeak(Search& search, int from, int end, int step, bool looksFar)
{
    for (int point = from; step * (end - point) > 0; point += step) {
        if (Improves(search, point, step))
            return Climb(search, point, end, step);
        if (!looksFar)
            break;
    }
    return none;
}

// A walk over the extrema from the lowest to the highest.
struct Sweep {
    Search search;
    int lowerBound; // points up to here belong to the extrema before
    int changes;    // moves so far
};

// Moves one extremum, below its upper neighbour, to a larger error of its sign, if one is near.
void MoveExtremum(Sweep& sweep, int& extremum, int upperNeighbour)
{
    const int start = extremum;
    // Once an extremum has moved, the next ones look at their neighbours only.
    const bool looksFar = sweep.changes == 0;

    int peak = FindPeak(sweep.search, start + 1, upperNeighbour, +1, false);
    if (peak == none) {
        peak = FindPeak(sweep.search, start - 1, sweep.lowerBound, -1, looksFar);
        if (peak != none) {
            extremum = peak;
            sweep.lowerBound = start; // the old place: the points between are done with
            ++sweep.changes;
            return;
        }
        if (looksFar)
            peak = FindPeak(sweep.search, start + 2, upperNeighbour, +1, true);
    }
    if (peak == none) {
        sweep.lowerBound = start;
        return;
    }
    extremum = peak;
    sweep.lowerBound = peak;
    ++sweep.changes;
}

// One sweep over all extrema, then a look beyond the lowest and the highest one: a larger error there
// takes an extremum from the other end. Returns whether anything moved.
bool ExchangeExtrema(const CosineGrid& grid, const Interpolant& p, ErrorTable& errors,
                     std::vector<int>& iext)
{
    constexpr double clearly = 1.00001;
    const int last = static_cast<int>(iext.size()) - 1;
    int* extremum = iext.data();
    const int lowestBefore = iext.front();
    const int highestBefore = iext.back();

    errors.Start(p, iext);
    Sweep sweep = {{errors, p.nu, 0.0}, none, 0};
    double y1 = 0.0; // the error at the lowest extremum
    for (int j = 0; j <= last; ++j) {
        sweep.search.sign = p.nu * SignOf(j);
        sweep.search.size = p.deviation;
        const int upperNeighbour = j < last ? extremum[j + 1] : grid.count;
        MoveExtremum(sweep, extremum[j], upperNeighbour);
        if (j == 0)
            y1 = sweep.search.size;
    }
    const double ynz = sweep.search.size;

    Search atLowEnd = {errors, -p.nu, ynz * clearly};
    const int low = FindPeak(atLowEnd, 0, std::min(iext.front(), lowestBefore), +1, true);
    if (low != none)
        y1 = std::max(y1, atLowEnd.size);

    Search atHighEnd = {errors, -p.nu * SignOf(last), y1 * clearly};
    const int highest = std::max(iext.back(), highestBefore);
    const int high = FindPeak(atHighEnd, grid.count - 1, highest, -1, true);

    // Where both ends have improved, the high one wins.
    if (high != none) {
        std::copy(iext.begin() + 1, iext.end(), iext.begin());
        iext.back() = high;
    } else if (low != none) {
        std::copy_backward(iext.begin(), iext.end() - 1, iext.end());
        iext.front() = low;
    }
    return sweep.changes > 0 || high != none || low != none;
}

// ---- Coefficients ------------------------------------------------------------------------------

// The approximation at the frequencies j / (2 nfcns - 1), j = 0 .. nfcns - 1.
std::vector<double> SampleApproximation(const Interpolant& p)
{
    constexpr double fsh = 1e-6; // closer to a node than this its value is taken
    const double* x = p.x.data();
    const double* y = p.y.data();
    const int nz = static_cast<int>(p.x.size());
    const int nfcns = nz - 1;
    const double delf = 1.0 / (2.0 * nfcns - 1.0);
    auto samples = NewWorkArray<double>(nfcns);
    double* a = samples.data();
    for (int j = 0; j < nfcns; ++j)
        a[j] = Cos(twoPi * (j * delf));
    const std::vector<double> cosines = samples;
    const double* cosine = cosines.data();
    EvaluateInterpolant(p, a, nfcns);
    int l = 0;
    for (int j = 0; j < nfcns; ++j) {
        const double xt = cosine[j];
        // Cosines and nodes both fall, so the node to compare with is near the last one.
        while (l < nz && xt <= x[l] && x[l] - xt >= fsh)
            ++l;
        if (l < nz && std::abs(xt - x[l]) < fsh)
            a[j] = y[l];
        l = std::max(0, l - 1);
    }
    return samples;
}

// The coefficients alpha[k] of cos(2 pi f k) from those samples: an inverse Fourier transform.
std::vector<double> CosineCoefficients(const std::vector<double>& samples)
{
    const double* a = samples.data();
    const int nfcns = static_cast<int>(samples.size());
    const double cn = 2.0 * nfcns - 1.0;
    auto coefficients = NewWorkArray<double>(nfcns);
    double* alpha = coefficients.data();
    std::fill_n(alpha, nfcns, a[0]);
    for (int k = 1; k < nfcns; ++k)
        alpha[0] += 2.0 * a[k]; // the cosine is 1
    // The sum for j takes its terms in increasing k. The cosine for (j, k) is also the one for (k, j):
    // round m adds those for (m, m), (m, m + 1), ... to sum m and, from the second on, to the sums after.
    for (int m = 1; m < nfcns; ++m) {
        double sum = alpha[m];
        for (int k = m; k < nfcns; ++k) {
            const double cosine = 2.0 * Cos(static_cast<double>(k) * m * twoPi / cn);
            sum += cosine * a[k];
            alpha[k] += cosine * a[m];
        }
        alpha[m] = sum;
    }
    alpha[0] = alpha[0] / cn;
    for (int j = 1; j < nfcns; ++j)
        alpha[j] = 2.0 * alpha[j] / cn;
    return coefficients;
}

// The taps up to the middle. An even number of taps has the response cos(pi f) times the cosine sum.
std::vector<double> HalfResponse(const std::vector<double>& coefficients, bool even)
{
    const double* alpha = coefficients.data();
    const int nfcns = static_cast<int>(coefficients.size());
    std::vector<double> h;
    h.reserve(coefficients.size());
    if (!even) {
        for (int j = nfcns - 1; j >= 1; --j)
            h.push_back(0.5 * alpha[j]);
        h.push_back(alpha[0]);
        return h;
    }
    if (nfcns == 1) {
        h.push_back(0.5 * alpha[0]);
        return h;
    }
    h.push_back(0.25 * alpha[nfcns - 1]);
    for (int j = nfcns - 1; j >= 2; --j)
        h.push_back(0.25 * (alpha[j - 1] + alpha[j]));
    h.push_back(0.25 * (2.0 * alpha[0] + alpha[1]));
    return h;
}

// ---- Problem -----------------------------------------------------------------------------------

std::vector<double> Cosines(const double* grid, int gridCount)
{
    auto cosines = NewWorkArray<double>(gridCount);
    std::transform(grid, grid + gridCount, cosines.begin(), [](double f) { return Cos(twoPi * f); });
    return cosines;
}

// Turns the problem for an even number of taps into one for a plain cosine sum.
void DivideByHalfAngleCosine(const double* grid, double* desired, double* weight, int gridCount)
{
    for (int l = 0; l < gridCount; ++l) {
        const double scale = Cos(pi * grid[l]);
        desired[l] /= scale;
        weight[l] *= scale;
    }
}

// nfcns + 1 extrema spread evenly over the grid.
std::vector<int> InitialExtrema(int nfcns, int gridCount)
{
    auto iext = NewWorkArray<int>(std::int64_t{nfcns} + 1);
    int* extremum = iext.data();
    const double step = static_cast<double>(gridCount - 1) / nfcns;
    // Rounded as positions that count from 1, then brought to indices.
    for (int j = 0; j < nfcns; ++j)
        extremum[j] = ToInt(std::floor(j * step + 1.0)) - 1;
    iext.back() = gridCount - 1;
    return iext;
}

bool IsSolvable(const Interpolant& p)
{
    return std::none_of(p.y.begin(), p.y.end(), [](double y) { return std::isnan(y); });
}

} // namespace

RemezResult RemezExchange(int tapCount, const double* grid, double* desired, double* weight,
                          int gridCount)
{
    const bool even = tapCount % 2 == 0;
    const int nfcns = even ? tapCount / 2 : tapCount / 2 + 1;
    if (even)
        DivideByHalfAngleCosine(grid, desired, weight, gridCount);
    const std::vector<double> cosines = Cosines(grid, gridCount);
    const CosineGrid dense = {cosines.data(), desired, weight, gridCount};

    std::vector<int> iext = InitialExtrema(nfcns, gridCount);
    const std::int64_t nz = std::int64_t{nfcns} + 1;
    Interpolant p = {NewWorkArray<double>(nz), NewWorkArray<double>(nz), NewWorkArray<double>(nz), 0.0,
                     0.0};
    ErrorTable errors(dense);
    RemezResult result = {{}, 0, false};
    while (result.iterations < iterationLimit && !result.converged) {
        Interpolate(dense, iext, p);
        ++result.iterations;
        // Every error of an unsolvable problem is not-a-number, and none is larger than another.
        result.converged = !IsSolvable(p) || !ExchangeExtrema(dense, p, errors, iext);
    }
    result.halfResponse = HalfResponse(CosineCoefficients(SampleApproximation(p)), even);
    return result;
}

} // namespace trelvanix
