#include "fir/error_table.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <vector>

#include "support/bits.h"
#include "support/plain_kernels.h"
#include "support/samples.h"

namespace trelvanix
{
namespace
{

using Row = std::vector<double>;
using testing::PlainInterpolation;
using testing::SameBits;
using testing::Samples;

constexpr double pi = 3.141592653589793;
constexpr double epsilon = std::numeric_limits<double>::epsilon();

// A grid from 0 to 0.5 with a value and a weight at each point.
struct Problem {
    Row frequency, cosine, desired, weight;

    Problem(Samples& samples, std::size_t count)
        : desired(samples.Plain(count)), weight(samples.Plain(count))
    {
        for (std::size_t l = 0; l < count; ++l) {
            frequency.push_back(0.5 * static_cast<double>(l) / static_cast<double>(count - 1));
            cosine.push_back(std::cos(2.0 * pi * frequency[l]));
            weight[l] += 1.5;
        }
    }

    CosineGrid View() const
    {
        return {cosine.data(), desired.data(), weight.data(), static_cast<int>(cosine.size())};
    }
};

// About every so manieth point, ascending.
std::vector<int> SomePoints(Samples& samples, std::size_t count, int every)
{
    std::vector<int> points;
    for (int l = samples.NextBelow(every); l < static_cast<int>(count);
         l += 1 + samples.NextBelow(2 * every - 1))
        points.push_back(l);
    return points;
}

// The cosine sum with these coefficients, term by term.
double FrequencyResponse(const Row& a, double frequency)
{
    long double sum = 0.0L;
    for (std::size_t k = 0; k < a.size(); ++k)
        sum += a[k] * std::cos(2.0L * std::acos(-1.0L) * frequency * static_cast<long double>(k));
    return static_cast<double>(sum);
}

// Asks for every point of the grid, in walks up and down from points here and there.
template <class Expect>
void WalkAround(Samples& samples, ErrorTable& errors, int count, Expect expect)
{
    for (int walk = 0; walk < 20; ++walk) {
        const int step = samples.NextBelow(2) == 0 ? 1 : -1;
        int point = samples.NextBelow(count);
        for (int length = samples.NextBelow(30); length > 0 && point >= 0 && point < count; --length) {
            expect(point, errors.At(point, step));
            point += step;
        }
    }
    for (int point = count - 1; point >= 0; --point)
        expect(point, errors.At(point, -1));
}

TEST(ErrorTable, HoldsTheErrorsOfAFrequencyResponse)
{
    Samples samples(641);
    for (const std::size_t functions : {1U, 2U, 3U, 5U, 8U, 13U, 20U}) {
        const Problem problem(samples, 17 * functions + 3);
        const CosineGrid grid = problem.View();
        ErrorTable errors(grid);
        // One response after another in the same table: nothing of the one before may stay.
        for (int round = 0; round < 4; ++round) {
            const Row a = samples.Plain(functions);
            Interpolant p = {{}, {}, {}, 0.0, round % 2 == 0 ? 1.0 : -1.0};
            std::vector<int> iext;
            for (std::size_t j = 0; j <= functions; ++j) {
                iext.push_back(static_cast<int>(17 * j) + samples.NextBelow(3));
                const auto l = static_cast<std::size_t>(iext[j]);
                p.x.push_back(problem.cosine[l]);
                p.y.push_back(FrequencyResponse(a, problem.frequency[l]));
            }
            for (std::size_t j = 0; j < p.x.size(); ++j) {
                long double product = 1.0L;
                for (std::size_t i = 0; i < p.x.size(); ++i)
                    product *= i == j ? 1.0L : 2.0L * (static_cast<long double>(p.x[j]) - p.x[i]);
                p.ad.push_back(static_cast<double>(1.0L / product));
            }
            errors.Start(p, iext);
            WalkAround(samples, errors, grid.count, [&](int point, double error) {
                if (std::find(iext.begin(), iext.end(), point) != iext.end()) {
                    EXPECT_TRUE(std::isnan(error)) << point;
                    return;
                }
                const auto l = static_cast<std::size_t>(point);
                const double response = FrequencyResponse(a, problem.frequency[l]);
                // Each term has the rounding of its weight, of the value there and of its own three operations,
                // and each sum adds one for every term (Higham 2002, chapter 4). The cosines of the grid are
                // rounded as well, which moves a polynomial of degree functions - 1 by up to the square of that
                // times as much.
                double terms = 0.0, sum = 0.0;
                for (std::size_t j = 0; j < p.x.size(); ++j) {
                    const double c = p.ad[j] / (problem.cosine[l] - p.x[j]);
                    terms += std::fabs(c) * (std::fabs(p.y[j]) + std::fabs(response));
                    sum += c;
                }
                const auto n = static_cast<double>(functions);
                const double bound = (n + 8.0 + n * n) * epsilon * (1.0 + terms / std::fabs(sum));
                EXPECT_NEAR(error, (response - problem.desired[l]) * problem.weight[l],
                            bound * problem.weight[l])
                    << functions << " functions, point " << point << ", round " << round;
            });
        }
    }
}

TEST(ErrorTable, HasTheBitsOfTheBarycentricFormulaWhicheverPointsAreAskedFor)
{
    Samples samples(642);
    for (int round = 0; round < 300; ++round) {
        const std::size_t count = 2U + static_cast<std::size_t>(samples.NextBelow(200));
        Problem problem(samples, count);
        if (round % 3 == 0)
            problem.desired = samples.Hostile(count);
        if (round % 5 == 0)
            problem.weight = samples.Hostile(count);
        const CosineGrid grid = problem.View();
        ErrorTable errors(grid);
        for (int start = 0; start < 3; ++start) {
            const std::vector<int> iext = SomePoints(samples, count, 1 + samples.NextBelow(20));
            Interpolant p = {{}, samples.Plain(iext.size()), samples.Plain(iext.size()), 0.0, -1.0};
            for (const int l : iext)
                p.x.push_back(problem.cosine[static_cast<std::size_t>(l)]);
            // From one that every error beats to one that none does.
            p.deviation = start == 0 ? -1e300 : 0.1 * start;
            p.nu = samples.NextBelow(2) == 0 ? 1.0 : -1.0;
            errors.Start(p, iext);
            WalkAround(samples, errors, grid.count, [&](int point, double error) {
                const auto l = static_cast<std::size_t>(point);
                const double value = PlainInterpolation(p.x, p.ad, p.y, problem.cosine[l]);
                const double expected = (value - problem.desired[l]) * problem.weight[l];
                ASSERT_TRUE(SameBits(expected, error))
                    << "round " << round << ", " << count << " points, point " << point << ": expected "
                    << expected << ", got " << error;
            });
        }
    }
}

} // namespace
} // namespace trelvanix
