#include "support/plain_remez.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>

#include "common/constants.h"
#include "common/numbers.h"
#include "common/work_array.h"

namespace trelvanix::testing
{
namespace
{

constexpr int iterationLimit = 250;

// The dense grid as the exchange reads it: cosines of the frequencies, scaled values and weights.
struct Grid {
    const double* cosine;
    const double* desired;
    const double* weight;
    int count;
};

// The trial approximation: the polynomial in the cosine whose weighted error is deviation, with
// alternating signs, at the extrema of the moment. Barycentric Lagrange form.
struct Interpolant {
    std::vector<double> x;  // cosines of the extremal frequencies
    std::vector<double> ad; // Lagrange weights
    std::vector<double> y;  // values at x
    double deviation;       // size of the error, >= 0
    double nu;              // sign of the error at the lowest extremum
};

// ---- Interpolation -----------------------------------------------------------------------------

double SignOf(int j)
{
    return j % 2 == 0 ? 1.0 : -1.0;
}

// The deviation for which an interpolation through all extrema exists, and that interpolation.
void Interpolate(const Grid& grid, const std::vector<int>& iext, Interpolant& p)
{
    const int nz = static_cast<int>(p.x.size());
    // Groups of Lagrange factors: one for up to 15 functions, another for each 15 more.
    const int jet = (nz - 2) / 15 + 1;
    double* x = p.x.data();
    double* ad = p.ad.data();
    double* y = p.y.data();
    const int* extremum = iext.data();

    for (int j = 0; j < nz; ++j)
        x[j] = grid.cosine[extremum[j]];
    for (int j = 0; j < nz; ++j)
        ad[j] = PlainLagrangeWeight(j, nz, jet, p.x);

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

double Evaluate(const Interpolant& p, double xf)
{
    return PlainInterpolation(p.x, p.ad, p.y, xf);
}

// The weighted error at a grid point.
double EvaluateError(const Grid& grid, const Interpolant& p, int point)
{
    return (Evaluate(p, grid.cosine[point]) - grid.desired[point]) * grid.weight[point];
}

// ---- Extremal search ---------------------------------------------------------------------------

// A search for larger errors of one sign.
struct Search {
    const Grid& grid;
    const Interpolant& p;
    double nut;  // the sign
    double comp; // the size to beat
};

// True if the error at the point has the sign sought and is larger than comp, which then becomes its
// size. Equal errors do not count, and neither does not-a-number.
bool Improves(Search& search, int point)
{
    const double size = search.nut * EvaluateError(search.grid, search.p, point);
    if (!(size - search.comp > 0.0))
        return false;
    search.comp = size;
    return true;
}

// Goes on from an improving point in steps of +1 or -1 while the error grows, end excluded. Returns the
// last improving point.
int Climb(Search& search, int point, int end, int step)
{
    for (int next = point + step; next != end && Improves(search, next); next += step)
        point = next;
    return point;
}

constexpr int none = -1;

// Tries the points from `from` on in steps of +1 or -1, end excluded: all of them, or the first one
// alone. Climbs from the first that improves and returns where it arrives, or none.
int FindPeak(Search& search, int from, int end, int step, bool looksFar)
{
    for (int point = from; step * (end - point) > 0; point += step) {
        if (Improves(search, point))
            return Climb(search, point, end, step);
        if (!looksFar)
            break;
    }
    return none;
}

// A walk over the extrema from the lowest to the highest.
struct Sweep {
    Search search;
    int klow;    // points up to here belong to the extrema before
    int changes; // moves so far
};

// Moves one extremum, whose upper neighbour is at kup, to a larger error of its sign, if one is near.
void MoveExtremum(Sweep& sweep, int& extremum, int kup)
{
    const int start = extremum;
    // Once an extremum has moved, the next ones look at their neighbours only.
    const bool looksFar = sweep.changes == 0;

    int peak = FindPeak(sweep.search, start + 1, kup, +1, false);
    if (peak == none) {
        peak = FindPeak(sweep.search, start - 1, sweep.klow, -1, looksFar);
        if (peak != none) {
            extremum = peak;
            sweep.klow = start; // the old place: the points between are done with
            ++sweep.changes;
            return;
        }
        if (looksFar)
            peak = FindPeak(sweep.search, start + 2, kup, +1, true);
    }
    if (peak == none) {
        sweep.klow = start;
        return;
    }
    extremum = peak;
    sweep.klow = peak;
    ++sweep.changes;
}

// One sweep over all extrema, then a look beyond the lowest and the highest one: a larger error there
// takes an extremum from the other end. Returns whether anything moved.
bool ExchangeExtrema(const Grid& grid, const Interpolant& p, std::vector<int>& iext)
{
    constexpr double clearly = 1.00001;
    const int last = static_cast<int>(iext.size()) - 1;
    int* extremum = iext.data();
    const int lowestBefore = iext.front();
    const int highestBefore = iext.back();

    Sweep sweep = {{grid, p, p.nu, 0.0}, none, 0};
    double y1 = 0.0; // the error at the lowest extremum
    for (int j = 0; j <= last; ++j) {
        sweep.search.nut = p.nu * SignOf(j);
        sweep.search.comp = p.deviation;
        const int kup = j < last ? extremum[j + 1] : grid.count;
        MoveExtremum(sweep, extremum[j], kup);
        if (j == 0)
            y1 = sweep.search.comp;
    }
    const double ynz = sweep.search.comp;

    Search atLowEnd = {grid, p, -p.nu, ynz * clearly};
    const int low = FindPeak(atLowEnd, 0, std::min(iext.front(), lowestBefore), +1, true);
    if (low != none)
        y1 = std::max(y1, atLowEnd.comp);

    Search atHighEnd = {grid, p, -p.nu * SignOf(last), y1 * clearly};
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
    int l = 0;
    for (int j = 0; j < nfcns; ++j) {
        const double xt = std::cos(twoPi * (j * delf));
        // Cosines and nodes both fall, so the node to compare with is near the last one.
        while (l < nz && xt <= x[l] && x[l] - xt >= fsh)
            ++l;
        const bool atNode = l < nz && std::abs(xt - x[l]) < fsh;
        a[j] = atNode ? y[l] : Evaluate(p, xt);
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
    for (int j = 0; j < nfcns; ++j) {
        double sum = a[0];
        for (int k = 1; k < nfcns; ++k)
            sum += 2.0 * std::cos(static_cast<double>(k) * j * twoPi / cn) * a[k];
        alpha[j] = (j == 0 ? sum : 2.0 * sum) / cn;
    }
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
    // A single function, two taps, ends here with half the gain that it should have.
    h.push_back(0.25 * alpha[nfcns - 1]);
    for (int j = nfcns - 1; j >= 2; --j)
        h.push_back(0.25 * (alpha[j - 1] + alpha[j]));
    if (nfcns > 1)
        h.push_back(0.25 * (2.0 * alpha[0] + alpha[1]));
    return h;
}

// ---- Problem -----------------------------------------------------------------------------------

std::vector<double> Cosines(const double* grid, int gridCount)
{
    auto cosines = NewWorkArray<double>(gridCount);
    std::transform(grid, grid + gridCount, cosines.begin(),
                   [](double f) { return std::cos(twoPi * f); });
    return cosines;
}

// Turns the problem for an even number of taps into one for a plain cosine sum.
void DivideByHalfAngleCosine(const double* grid, double* desired, double* weight, int gridCount)
{
    for (int l = 0; l < gridCount; ++l) {
        const double scale = std::cos(pi * grid[l]);
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

double PlainInterpolation(const std::vector<double>& x, const std::vector<double>& weights,
                          const std::vector<double>& y, double xf)
{
    double numerator = 0.0;
    double denominator = 0.0;
    for (std::size_t j = 0; j < x.size(); ++j) {
        const double c = weights[j] / (xf - x[j]);
        numerator += c * y[j];
        denominator += c;
    }
    return numerator / denominator;
}

double PlainLagrangeWeight(int k, int n, int m, const std::vector<double>& x)
{
    const double* nodes = x.data();
    const double xk = nodes[k];
    double q = 1.0;
    for (int l = 0; l < m; ++l) {
        double product = 1.0;
        for (int j = l; j < n; j += m) {
            const double factor = 2.0 * (xk - nodes[j]);
            product *= factor == 0.0 ? 1.0 : factor;
        }
        q *= product;
    }
    return 1.0 / q;
}

RemezResult PlainRemezExchange(int tapCount, const double* grid, double* desired, double* weight,
                               int gridCount)
{
    const bool even = tapCount % 2 == 0;
    const int nfcns = even ? tapCount / 2 : tapCount / 2 + 1;
    if (even)
        DivideByHalfAngleCosine(grid, desired, weight, gridCount);
    const std::vector<double> cosines = Cosines(grid, gridCount);
    const Grid dense = {cosines.data(), desired, weight, gridCount};

    std::vector<int> iext = InitialExtrema(nfcns, gridCount);
    const std::int64_t nz = std::int64_t{nfcns} + 1;
    Interpolant p = {NewWorkArray<double>(nz), NewWorkArray<double>(nz), NewWorkArray<double>(nz), 0.0,
                     0.0};
    RemezResult result = {{}, 0, false};
    while (result.iterations < iterationLimit && !result.converged) {
        Interpolate(dense, iext, p);
        ++result.iterations;
        // Every error of an unsolvable problem is not-a-number, and none is larger than another.
        result.converged = !IsSolvable(p) || !ExchangeExtrema(dense, p, iext);
    }
    result.halfResponse = HalfResponse(CosineCoefficients(SampleApproximation(p)), even);
    return result;
}

} // namespace trelvanix::testing
