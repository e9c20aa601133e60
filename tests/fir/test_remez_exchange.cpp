#include "fir/remez_exchange.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include "classic/equiripple_error.h"
#include "fir/remez_grid.h"

namespace trelvanix
{
namespace
{

using Row = std::vector<double>;
using testing::Alternation;
using testing::AmplitudeOf;
using testing::FindAlternation;
using testing::TestBand;

constexpr double epsilon = std::numeric_limits<double>::epsilon();
constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double nan = std::numeric_limits<double>::quiet_NaN();

// ---- Whole designs -----------------------------------------------------------------------------

struct Design {
    RemezResult result;
    Row taps;
    RemezProblem problem; // as it went in, frequencies in cycles per sample
};

Design ExchangeFor(int order, const Row& edges, const Row& amplitudes, const Row& weights)
{
    Design design;
    design.problem = DesignGrid(order, edges.data(), amplitudes.data(), static_cast<int>(edges.size()),
                                weights.data(), static_cast<int>(weights.size()));
    for (double& f : design.problem.grid)
        f *= 0.5;
    RemezProblem work = design.problem;
    design.result = RemezExchange(order + 1, work.grid.data(), work.desired.data(), work.weight.data(),
                                  static_cast<int>(work.grid.size()));
    design.taps = design.result.halfResponse;
    const auto mirrored = static_cast<std::size_t>((order + 1) / 2);
    for (std::size_t i = mirrored; i > 0; --i)
        design.taps.push_back(design.taps[i - 1]);
    return design;
}

Design DesignFor(int order, const std::vector<TestBand>& bands)
{
    Row edges, amplitudes, weights;
    for (const TestBand& band : bands) {
        edges.insert(edges.end(), {band.lower, band.upper});
        amplitudes.insert(amplitudes.end(), 2, band.amplitude);
        weights.push_back(band.weight);
    }
    return ExchangeFor(order, edges, amplitudes, weights);
}

// The weighted error at a point of the design's own grid, its response evaluated term by term.
double GridError(const Design& design, std::size_t l)
{
    const RemezProblem& p = design.problem;
    return (AmplitudeOf(design.taps, 2.0 * p.grid[l]) - p.desired[l]) * p.weight[l];
}

double LargestGridError(const Design& design)
{
    double largest = 0.0;
    for (std::size_t l = 0; l < design.problem.grid.size(); ++l)
        largest = std::fmax(largest, std::abs(GridError(design, l)));
    return largest;
}

// The theorem of Chebyshev: nfcns + 1 alternating extrema of equal size are the mark of the best
// approximation. And de la Vallee Poussin's: the best error on the whole bands lies between the
// smallest of such a row and the largest error anywhere.
void ExpectAlternation(int order, const std::vector<TestBand>& bands)
{
    SCOPED_TRACE("order " + std::to_string(order));
    const Design design = DesignFor(order, bands);
    ASSERT_TRUE(design.result.converged);
    const int nfcns = order / 2 + 1 - order % 2;

    const double onGrid = LargestGridError(design);
    // Ten times denser than the 16 points per function of the grid.
    const Alternation dense = FindAlternation(design.taps, bands, 160.0 * nfcns, 0.5 * onGrid);
    EXPECT_GE(dense.extrema, nfcns + 1);
    // The rounding of the two sums of order + 1 cosines.
    const double rounding = 4.0 * (order + 1) * epsilon;
    // Where two neighbouring peaks are d apart, a point half a step h from the peak sees it as
    // cos(pi h / (2 d)). The distance from a band's edge to its first peak is the smallest d, and an
    // overestimate of how narrow that peak is.
    const auto seen = [&](double step) {
        return std::cos(std::acos(-1.0) * step / (2.0 * dense.narrowest));
    };
    // No peak is smaller than the grid's, but for the 1e-5 by which an end point has to be larger
    // before the exchange takes it in, and for what the points of the dense row miss.
    EXPECT_GE(dense.smallest, onGrid * (1.0 - 1e-5) * seen(1.0 / (160.0 * nfcns)) - rounding);
    // Between the points of the grid the error is larger.
    EXPECT_LE(dense.largest, onGrid / seen(1.0 / (16.0 * nfcns)) + rounding);
}

TEST(RemezExchange, MakesTheErrorOfALowPassAlternate)
{
    for (const int order : {4, 7, 10, 20, 21, 33, 50, 64, 87})
        ExpectAlternation(order, {{0.0, 0.4, 1.0, 1.0}, {0.5, 1.0, 0.0, 1.0}});
}

TEST(RemezExchange, MakesTheErrorOfAWeightedLowPassAlternate)
{
    for (const int order : {16, 31, 46})
        ExpectAlternation(order, {{0.0, 0.3, 1.0, 1.0}, {0.4, 1.0, 0.0, 20.0}});
}

TEST(RemezExchange, MakesTheErrorsOfHighPassAndBandPassAlternate)
{
    for (const int order : {16, 30, 46}) {
        ExpectAlternation(order, {{0.0, 0.55, 0.0, 1.0}, {0.65, 1.0, 1.0, 1.0}});
        ExpectAlternation(order, {{0.0, 0.2, 0.0, 10.0}, {0.3, 0.6, 1.0, 1.0}, {0.7, 1.0, 0.0, 10.0}});
        ExpectAlternation(order, {{0.0, 0.2, 1.0, 1.0}, {0.3, 0.6, 0.0, 5.0}, {0.7, 1.0, 1.0, 1.0}});
    }
}

TEST(RemezExchange, MakesTheErrorAlternateOnBandsThatEndBelowHalfTheSamplingRate)
{
    for (const int order : {8, 13, 16})
        ExpectAlternation(order, {{0.0, 0.4, 1.0, 1.0}, {0.5, 0.85, 0.0, 1.0}});
}

TEST(RemezExchange, GivesTheMiddleOfTheAmplitudesForOrderZero)
{
    const Design design = DesignFor(0, {{0.0, 0.4, 1.0, 1.0}, {0.6, 1.0, 0.0, 1.0}});
    ASSERT_EQ(design.taps.size(), 1U);
    EXPECT_EQ(design.taps[0], 0.5);
}

TEST(RemezExchange, GivesTheLineThroughThreeEqualErrorsForOrderTwo)
{
    // a0 + a1 cos(pi f): +e at 0 and, by symmetry, -e at 0.4, +e at 0.6 and -e at 1, so a0 = 1/2 and
    // a1 - 1/2 = 1/2 - a1 cos(0.4 pi).
    const Design design = DesignFor(2, {{0.0, 0.4, 1.0, 1.0}, {0.6, 1.0, 0.0, 1.0}});
    const double a1 = 1.0 / (1.0 + std::cos(0.4 * std::acos(-1.0)));
    ASSERT_EQ(design.taps.size(), 3U);
    EXPECT_NEAR(design.taps[0], a1 / 2.0, 8 * epsilon);
    EXPECT_NEAR(design.taps[1], 0.5, 8 * epsilon);
}

TEST(RemezExchange, GivesEqualErrorsAtBothEdgesForOrderOne)
{
    // 2 h cos(pi f / 2) has equal errors at the edges 0.4 and 0.6 for the h below.
    const double pi = std::acos(-1.0);
    const double h = 0.5 / (std::cos(0.2 * pi) + std::cos(0.3 * pi));
    const Design design = DesignFor(1, {{0.0, 0.4, 1.0, 1.0}, {0.6, 1.0, 0.0, 1.0}});
    ASSERT_EQ(design.result.halfResponse.size(), 1U);
    EXPECT_NEAR(design.result.halfResponse[0], h, 8 * epsilon);
}

TEST(RemezExchange, GivesAChebyshevPolynomialForOneBandAndAPoint)
{
    // Value 1/2 wanted at f = 0, 0 from 0.3 to 1: the best is d T_n, stretched from [-1, cos(0.3 pi)]
    // to [-1, 1], with 1/2 - d T_n(u) = d at cos = 1 (Dolph 1946).
    for (const int n : {1, 2, 3, 5, 10, 15}) {
        const std::vector<TestBand> stop = {{0.3, 1.0, 0.0, 1.0}};
        const Design design = DesignFor(2 * n, {{0.0, 0.0, 0.5, 1.0}, {0.3, 1.0, 0.0, 1.0}});
        const double edge = std::cos(0.3 * std::acos(-1.0));
        const double u = (3.0 - edge) / (1.0 + edge);
        const double best = 0.5 / (1.0 + std::cosh(n * std::acosh(u)));
        // Best on the grid <= best on the band <= error of the grid's best on the band.
        const double rounding = 4.0 * (2.0 * n + 1.0) * epsilon;
        const double atZero = std::abs(0.5 - AmplitudeOf(design.taps, 0.0));
        EXPECT_LE(atZero, best + rounding) << n;
        EXPECT_GE(FindAlternation(design.taps, stop, 3200.0 * n, 0.0).largest,
                  best * (1 - 1e-5) - rounding)
            << n;
        EXPECT_NEAR(atZero, best, 0.02 * best + rounding) << n;
    }
}

// The same on the points that the exchange sees: the taps are the best there when
// errors as large as the largest one alternate nfcns + 1 times.
void ExpectBestOnItsGrid(int order, const std::vector<TestBand>& bands)
{
    SCOPED_TRACE("order " + std::to_string(order));
    const Design design = DesignFor(order, bands);
    ASSERT_TRUE(design.result.converged);
    const double largest = LargestGridError(design);
    double largestWeight = 0.0;
    for (const TestBand& band : bands)
        largestWeight = std::fmax(largestWeight, band.weight);
    // That of the two sums of order + 1 cosines.
    const double rounding = 4.0 * (order + 1) * epsilon * largestWeight;
    // At the ends a larger error counts from 1e-5 of its size on.
    const double floor = largest * (1.0 - 1e-5) - 2.0 * rounding;
    ASSERT_GT(floor, 0.0);
    int alternations = 0;
    double previous = 0.0;
    for (std::size_t l = 0; l < design.problem.grid.size(); ++l) {
        const double error = GridError(design, l);
        if (std::abs(error) >= floor && !(error * previous > 0.0)) {
            ++alternations;
            previous = error;
        }
    }
    EXPECT_GE(alternations, order / 2 + 2 - order % 2);
}

TEST(RemezExchange, FindsTheBestApproximationOnItsGridForEveryOrder)
{
    for (int order = 2; order <= 80; ++order) {
        ExpectBestOnItsGrid(order, {{0.0, 0.4, 1.0, 1.0}, {0.5, 1.0, 0.0, 1.0}});
        ExpectBestOnItsGrid(order, {{0.0, 0.31, 0.0, 30.0}, {0.42, 1.0, 1.0, 1.0}});
        ExpectBestOnItsGrid(order,
                            {{0.0, 0.2, 0.0, 10.0}, {0.3, 0.6, 1.0, 1.0}, {0.7, 1.0, 0.0, 10.0}});
    }
    for (const int order : {150, 301})
        ExpectBestOnItsGrid(order, {{0.0, 0.4, 1.0, 1.0}, {0.45, 1.0, 0.0, 1.0}});
}

TEST(RemezExchange, KeepsTheLastApproximationAfter250Sweeps)
{
    // A ripple far below the rounding of the sums: the extrema are noise and never settle.
    const Design design = DesignFor(500, {{0.0, 0.4, 1.0, 1.0}, {0.5, 1.0, 0.0, 1.0}});
    EXPECT_FALSE(design.result.converged);
    EXPECT_EQ(design.result.iterations, 250);
    ASSERT_EQ(design.taps.size(), 501U);
    for (const double tap : design.taps)
        EXPECT_TRUE(std::isfinite(tap));
}

TEST(RemezExchange, SweepsAsOftenAsTheLiteralForm)
{
    // Counted by the program in tests/peer/literal_fir.py, which shares no code with the library.
    struct Request {
        int order;
        Row edges, amplitudes, weights;
        int sweeps;
    };
    const Row lowPass = {1.0, 1.0, 0.0, 0.0}, highPass = {0.0, 0.0, 1.0, 1.0};
    const Row bandPass = {0.0, 0.0, 1.0, 1.0, 0.0, 0.0};
    const Row even = {1.0, 1.0};
    const Request requests[] = {
        {4, {0.0, 0.4, 0.5, 1.0}, lowPass, even, 2},
        {9, {0.0, 0.4, 0.5, 1.0}, lowPass, even, 4},
        {16, {0.0, 0.4, 0.5, 1.0}, lowPass, even, 5},
        {33, {0.0, 0.4, 0.5, 1.0}, lowPass, even, 6},
        {50, {0.0, 0.4, 0.5, 1.0}, lowPass, even, 6},
        {80, {0.0, 0.4, 0.5, 1.0}, lowPass, even, 7},
        {13, {0.0, 0.4, 0.5, 0.85}, lowPass, even, 4},
        {16, {0.0, 0.4, 0.5, 0.85}, lowPass, even, 4},
        {16, {0.0, 0.31, 0.42, 1.0}, highPass, {30.0, 1.0}, 5},
        {31, {0.0, 0.31, 0.42, 1.0}, highPass, {30.0, 1.0}, 5},
        {46, {0.0, 0.31, 0.42, 1.0}, highPass, {30.0, 1.0}, 7},
        {16, {0.0, 0.2, 0.3, 0.6, 0.7, 1.0}, bandPass, {10.0, 1.0, 10.0}, 3},
        {37, {0.0, 0.2, 0.3, 0.6, 0.7, 1.0}, bandPass, {10.0, 1.0, 10.0}, 7},
        {64, {0.0, 0.2, 0.3, 0.6, 0.7, 1.0}, bandPass, {10.0, 1.0, 10.0}, 12},
        // Touching bands: two points of the grid have the same cosine.
        {20, {0.0, 0.3, 0.3, 1.0}, lowPass, even, 5},
        {43, {0.0, 0.3, 0.3, 1.0}, lowPass, even, 5},
        {20, {0.0, 0.2, 0.2, 0.6, 0.6, 1.0}, bandPass, {1.0, 1.0, 1.0}, 10},
        {52, {0.0, 0.2, 0.2, 0.6, 0.6, 1.0}, bandPass, {1.0, 1.0, 1.0}, 5},
        // Points that lie in no band, and a band of no width.
        {20, {0.0, 0.6, 0.4, 1.0}, lowPass, even, 3},
        {20, {0.0, 0.0, 0.4, 1.0}, lowPass, even, 7},
        // Both ends would improve, and the high one wins.
        {5, {0.0, 0.6711050408999444, 0.1995026073878381, 1.0}, highPass, even, 5},
        {7, {0.0, 0.6645932936953498, 0.17357538208725753, 1.0}, highPass, even, 11},
        // Errors that are equal by symmetry: rounding alone takes no extremum to the other end.
        {2, {0.0, 0.25, 0.75, 1.0}, lowPass, even, 2},
        {4, {0.0, 0.35, 0.5, 0.5, 0.65, 1.0}, bandPass, {1.0, 1.0, 1.0}, 3},
        {6, {0.0, 0.25, 0.75, 1.0}, lowPass, even, 4},
        // A weight that makes the problem unsolvable.
        {20, {0.0, 0.3, 0.4, 1.0}, lowPass, {0.0, 1.0}, 1},
        // Ripple below what doubles hold, and extrema that go to and fro beyond both ends: no end.
        {60, {0.0, 0.2, 0.8, 1.0}, lowPass, even, 250},
        {4, {0.0, 0.7345152605393581, 0.02003204607907083, 1.0}, highPass, even, 250},
        {6, {0.0, 0.5993370465203837, 0.23192805185258858, 1.0}, highPass, even, 250},
    };
    for (const Request& r : requests) {
        const RemezResult result = ExchangeFor(r.order, r.edges, r.amplitudes, r.weights).result;
        EXPECT_EQ(result.iterations, r.sweeps) << "order " << r.order << ", edge " << r.edges[1];
        EXPECT_EQ(result.converged, r.sweeps < 250) << "order " << r.order << ", edge " << r.edges[1];
    }
}

// ---- Hostile numbers ---------------------------------------------------------------------------

// An ordinary lowpass problem, one of whose rows (grid, desired, weight) holds a bad number at every
// so manieth point.
RemezProblem SpoiltProblem(int gridCount, std::size_t row, double bad, std::size_t every)
{
    const auto count = static_cast<std::size_t>(gridCount);
    RemezProblem problem = {Row(count), Row(count), Row(count, 1.0)};
    for (std::size_t l = 0; l < count; ++l) {
        problem.grid[l] = 0.5 * static_cast<double>(l) / (gridCount - 1);
        problem.desired[l] = 2 * l < count ? 1.0 : 0.0;
    }
    Row* const rows[] = {&problem.grid, &problem.desired, &problem.weight};
    for (std::size_t l = 0; l < count; l += every)
        (*rows[row])[l] = bad;
    return problem;
}

TEST(RemezExchange, EndsForNumbersThatMakeNoSense)
{
    for (const int tapCount : {1, 2, 3, 4, 9, 12, 40, 41}) {
        const int nfcns = tapCount / 2 + tapCount % 2;
        for (const int gridCount : {nfcns + 1, 2 * nfcns + 3, 16 * nfcns}) {
            for (const double bad : {nan, infinity, -infinity, 0.0, -1.0, 1e308, -1e308, 5e-324}) {
                for (std::size_t row = 0; row < 3; ++row) {
                    for (const std::size_t every : {1U, 2U, 7U}) {
                        RemezProblem p = SpoiltProblem(gridCount, row, bad, every);
                        const RemezResult result = RemezExchange(
                            tapCount, p.grid.data(), p.desired.data(), p.weight.data(), gridCount);
                        EXPECT_EQ(result.halfResponse.size(), static_cast<std::size_t>(nfcns));
                        EXPECT_GE(result.iterations, 1);
                        EXPECT_LE(result.iterations, 250);
                    }
                }
            }
        }
    }
}

TEST(RemezExchange, GivesNotANumberForAProblemWithoutSolution)
{
    Row grid(33);
    Row desired(33, 1.0);
    Row weight(33, 0.0);
    for (std::size_t l = 0; l < grid.size(); ++l)
        grid[l] = static_cast<double>(l) / 64.0;
    const RemezResult result = RemezExchange(9, grid.data(), desired.data(), weight.data(), 33);
    EXPECT_EQ(result.iterations, 1);
    for (const double tap : result.halfResponse)
        EXPECT_TRUE(std::isnan(tap));
}

} // namespace
} // namespace trelvanix
