#include "math/trigonometric.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <limits>
#include <random>

#include "math/exact_number.h"
#include "support/bits.h"

namespace trelvanix
{
namespace
{

using testing::ExactFunction;
using testing::NearestDouble;
using testing::SameBits;

constexpr double inf = std::numeric_limits<double>::infinity();
constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr double tiny = std::numeric_limits<double>::denorm_min();
constexpr double huge = std::numeric_limits<double>::max();

using Function = double (*)(double);

struct Case {
    double argument, value;
};

::testing::AssertionResult Gives(double expected, double got)
{
    if (SameBits(expected, got))
        return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure() << std::hexfloat << "expected " << expected << ", got " << got;
}

// Of an odd function: the same with both signs.
void ExpectOdd(Function function, const Case& c)
{
    EXPECT_TRUE(Gives(c.value, function(c.argument))) << c.argument;
    EXPECT_TRUE(Gives(-c.value, function(-c.argument))) << -c.argument;
}

// Annex F of the C standard.

TEST(Sin, HasTheSpecialValues)
{
    for (const Case& c : {Case{0.0, 0.0}, {tiny, tiny}, {0x1p-1022, 0x1p-1022}, {inf, nan}, {nan, nan}})
        ExpectOdd(Sin, c);
}

TEST(Cos, HasTheSpecialValues)
{
    for (const Case& c : {Case{0.0, 1.0}, {tiny, 1.0}, {0x1p-28, 1.0}, {inf, nan}, {nan, nan}}) {
        EXPECT_TRUE(Gives(c.value, Cos(c.argument)));
        EXPECT_TRUE(Gives(c.value, Cos(-c.argument)));
    }
}

TEST(Tan, HasTheSpecialValues)
{
    for (const Case& c : {Case{0.0, 0.0}, {tiny, tiny}, {0x1p-1022, 0x1p-1022}, {inf, nan}, {nan, nan}})
        ExpectOdd(Tan, c);
}

TEST(Atan, HasTheSpecialValues)
{
    for (const Case& c : {Case{0.0, 0.0},
                          {tiny, tiny},
                          {inf, 0x1.921fb54442d18p+0},
                          {huge, 0x1.921fb54442d18p+0},
                          {1.0, 0x1.921fb54442d18p-1},
                          {nan, nan}})
        ExpectOdd(Atan, c);
}

TEST(Asin, HasTheSpecialValues)
{
    for (const Case& c : {Case{0.0, 0.0},
                          {tiny, tiny},
                          {1.0, 0x1.921fb54442d18p+0},
                          {0x1.0000000000001p0, nan},
                          {inf, nan},
                          {nan, nan}})
        ExpectOdd(Asin, c);
}

TEST(Acos, HasTheSpecialValues)
{
    for (const Case& c : {Case{1.0, 0.0},
                          {-1.0, 0x1.921fb54442d18p+1},
                          {0.0, 0x1.921fb54442d18p+0},
                          {-0.0, 0x1.921fb54442d18p+0},
                          {tiny, 0x1.921fb54442d18p+0},
                          {0x1.0000000000001p0, nan},
                          {-2.0, nan},
                          {inf, nan},
                          {-inf, nan},
                          {nan, nan}})
        EXPECT_TRUE(Gives(c.value, Acos(c.argument))) << c.argument;
}

TEST(Atan2, HasTheSpecialValues)
{
    constexpr double pi = 0x1.921fb54442d18p+1;
    struct Point {
        double y, x, angle;
    };
    for (const Point& p : {Point{0.0, -0.0, pi},
                           {0.0, 0.0, 0.0},
                           {0.0, -1.0, pi},
                           {0.0, 1.0, 0.0},
                           {0.0, -inf, pi},
                           {0.0, inf, 0.0},
                           {1.0, 0.0, pi / 2},
                           {1.0, -0.0, pi / 2},
                           {tiny, 0.0, pi / 2},
                           {1.0, -inf, pi},
                           {1.0, inf, 0.0},
                           {inf, 1.0, pi / 2},
                           {inf, -0.0, pi / 2},
                           {inf, -huge, pi / 2},
                           {inf, inf, pi / 4},
                           {inf, -inf, 0x1.2d97c7f3321d2p+1}}) {
        EXPECT_TRUE(Gives(p.angle, Atan2(p.y, p.x))) << p.y << " " << p.x;
        EXPECT_TRUE(Gives(-p.angle, Atan2(-p.y, p.x))) << -p.y << " " << p.x;
    }
    for (const double other : {0.0, 1.0, inf, nan}) {
        EXPECT_TRUE(std::isnan(Atan2(nan, other)));
        EXPECT_TRUE(std::isnan(Atan2(other, nan)));
    }
}

TEST(SinPi, IsExactAtMultiplesOfAHalf)
{
    for (const Case& c : {Case{0.0, 0.0},
                          {0.5, 1.0},
                          {1.0, 0.0},
                          {1.5, -1.0},
                          {2.0, 0.0},
                          {2.5, 1.0},
                          {0x1p51 + 0.5, 1.0},
                          {0x1p52 + 1.0, 0.0},
                          {0x1p53, 0.0},
                          {huge, 0.0},
                          {inf, nan},
                          {nan, nan}})
        ExpectOdd(SinPi, c);
}

TEST(CosPi, IsExactAtMultiplesOfAHalf)
{
    for (const Case& c : {Case{0.0, 1.0},
                          {0.5, 0.0},
                          {1.0, -1.0},
                          {1.5, 0.0},
                          {2.0, 1.0},
                          {2.5, 0.0},
                          {0x1p51 + 0.5, 0.0},
                          {0x1p52 + 1.0, -1.0},
                          {0x1p53, 1.0},
                          {huge, 1.0},
                          {inf, nan},
                          {nan, nan}}) {
        EXPECT_TRUE(Gives(c.value, CosPi(c.argument))) << c.argument;
        EXPECT_TRUE(Gives(c.value, CosPi(-c.argument))) << -c.argument;
    }
}

TEST(TanPi, IsExactAtMultiplesOfAQuarter)
{
    for (const Case& c : {Case{0.0, 0.0},
                          {0.25, 1.0},
                          {0.75, -1.0},
                          {1.0, -0.0},
                          {1.25, 1.0},
                          {1.75, -1.0},
                          {2.0, 0.0},
                          {3.0, -0.0},
                          {0x1p50 + 0.25, 1.0},
                          {0x1p52 + 1.0, -0.0},
                          {huge, 0.0},
                          {inf, nan},
                          {nan, nan}})
        ExpectOdd(TanPi, c);
    // Which infinity depends on the integer below, not on the sign.
    for (const Case& c : {Case{0.5, inf}, {-0.5, -inf}, {1.5, -inf}, {-1.5, inf}, {2.5, inf}})
        EXPECT_TRUE(Gives(c.value, TanPi(c.argument))) << c.argument;
}

// Arguments with results that MPFR rounds from the exact values.

struct Tested {
    const char* name;
    Function function;
    Pair (*pairFunction)(Pair);
    ExactFunction exact;
    double lower, upper;     // where functions vary
    double hardArguments[3]; // of 3,000,000 random ones those with results nearest to a midpoint
};

double SineOfBoth(double x)
{
    return SinAndCos(x).sine;
}

double CosineOfBoth(double x)
{
    return SinAndCos(x).cosine;
}

const Tested tested[] = {
    {"sin",
     Sin,
     Sin,
     mpfr_sin,
     -7.0,
     7.0,
     {-0x1.e64eaa65b05fcp+0, 0x1.32c136dfefdap+0, 0x1.f87ed4235378p-3}},
    {"cos",
     Cos,
     Cos,
     mpfr_cos,
     -7.0,
     7.0,
     {-0x1.2d680346d8c76p+2, -0x1.4fb05da6d41dfp+2, 0x1.402a3c6b41006p+2}},
    {"sin of both",
     SineOfBoth,
     Sin,
     mpfr_sin,
     -7.0,
     7.0,
     {-0x1.e64eaa65b05fcp+0, 0x1.32c136dfefdap+0, 0x1.f87ed4235378p-3}},
    {"cos of both",
     CosineOfBoth,
     Cos,
     mpfr_cos,
     -7.0,
     7.0,
     {-0x1.2d680346d8c76p+2, -0x1.4fb05da6d41dfp+2, 0x1.402a3c6b41006p+2}},
    {"tan",
     Tan,
     Tan,
     mpfr_tan,
     -1.6,
     1.6,
     {-0x1.e69afe344b36ap-1, -0x1.01bb914fffa92p+0, -0x1.9b754b03f3ecp-6}},
    {"atan",
     Atan,
     Atan,
     mpfr_atan,
     -4.0,
     4.0,
     {0x1.6b869a41a2b74p+0, -0x1.01afa12777d7cp+1, 0x1.cfb390fb9d7cp+1}},
    {"asin",
     Asin,
     Asin,
     mpfr_asin,
     -1.0,
     1.0,
     {-0x1.a66ae1336074p-6, 0x1.3af9864fbcf1p-3, 0x1.6d234492d9bp-3}},
    {"acos",
     Acos,
     Acos,
     mpfr_acos,
     -1.0,
     1.0,
     {-0x1.309f0d22b77fp-4, -0x1.d2ac94da57248p-1, -0x1.d7289bc3e3bap-1}},
    {"sinpi",
     SinPi,
     SinPi,
     mpfr_sinpi,
     -2.0,
     2.0,
     {-0x1.3721e41fe5308p-2, 0x1.7bff77dc09056p+0, -0x1.570b3dd79243ep+0}},
    {"cospi",
     CosPi,
     CosPi,
     mpfr_cospi,
     -2.0,
     2.0,
     {-0x1.89e51f11d494p-3, 0x1.5653fbedb813ep+0, -0x1.92b262d08337cp+0}},
    {"tanpi",
     TanPi,
     TanPi,
     mpfr_tanpi,
     -0.5,
     0.5,
     {0x1.6c105b249197ap-2, 0x1.aaa693695c004p-2, -0x1.b643d19df9d88p-2}},
};

class TrigonometricFunction : public ::testing::TestWithParam<Tested>
{
protected:
    void ExpectNearest(double x)
    {
        EXPECT_TRUE(Gives(nearest_.Of(GetParam().exact, x), GetParam().function(x)))
            << GetParam().name << " of " << std::hexfloat << x;
    }

    NearestDouble nearest_;
    std::mt19937_64 random_{20261122};
};

TEST_P(TrigonometricFunction, RoundsCorrectlyWhereItVaries)
{
    std::uniform_real_distribution<double> uniform(GetParam().lower, GetParam().upper);
    for (int i = 0; i < 4000; ++i)
        ExpectNearest(uniform(random_));
}

TEST_P(TrigonometricFunction, RoundsCorrectlyForEveryKindOfDouble)
{
    for (int i = 0; i < 2000; ++i)
        ExpectNearest(std::bit_cast<double>(random_()));
    for (int exponent = -1074; exponent <= 1023; ++exponent) {
        ExpectNearest(std::ldexp(1.0, exponent));
        ExpectNearest(std::ldexp(-0x1.fffffffffffffp0, exponent));
    }
}

TEST_P(TrigonometricFunction, RoundsCorrectlyNextToMultiplesOfAQuarterTurn)
{
    for (int k = 1; k < 500; ++k) {
        const double angle = k * 0x1.921fb54442d18p+0;
        for (const double x : {angle, std::nextafter(angle, 0.0), std::nextafter(angle, inf)})
            ExpectNearest(x);
    }
    // The double of which the next quarter turn's multiple is nearest, Muller 2016: 6381956970095103 2^797.
    ExpectNearest(std::ldexp(6381956970095103.0, 797));
    ExpectNearest(huge);
}

TEST_P(TrigonometricFunction, RoundsArgumentsCorrectlyThatAreHardToRound)
{
    for (const double x : GetParam().hardArguments)
        ExpectNearest(x);
}

// Whether a pair with the error bound of the second phase leaves the rounding open.
bool IsLeftToWideNumbers(Pair x)
{
    return !RoundsSafely(x.high, x.low, 0x1p-97 * std::fabs(x.high));
}

INSTANTIATE_TEST_SUITE_P(All, TrigonometricFunction, ::testing::ValuesIn(tested));

// Compares with MPFR and counts what pairs leave open.
class HardArguments
{
public:
    HardArguments(Function function, Pair (*pairFunction)(Pair), ExactFunction exact)
        : function_(function), pairFunction_(pairFunction), exact_(exact)
    {
    }
    void Expect(double x)
    {
        open_ += IsLeftToWideNumbers(pairFunction_({x, 0.0})) ? 1 : 0;
        EXPECT_TRUE(Gives(nearest_.Of(exact_, x), function_(x))) << std::hexfloat << x;
    }
    void ExpectAround(double x)
    {
        for (int step = -20; step <= 20; ++step)
            Expect(x + step * std::ldexp(1.0, std::ilogb(x) - 52));
    }
    int CountLeftToWideNumbers() const
    {
        return open_;
    }

private:
    Function function_;
    Pair (*pairFunction_)(Pair);
    ExactFunction exact_;
    NearestDouble nearest_;
    int open_ = 0;
};

// For f(x) = x + factor x^3 + ...: between 2^-26 and 2^-21 the second term is some halves of an ulp. Where
// it is an odd number of them, up to some 2^-46, the result lies next to a midpoint.
void ExpectNearestWhereTheCubeIsHalfAnUlp(HardArguments hard, double factor)
{
    for (int exponent = -26; exponent < -21; ++exponent) {
        for (int halves = 1; halves < 64; halves += 2) {
            const double x = std::cbrt(halves * std::ldexp(1.0, exponent - 53) / factor);
            if (std::ilogb(x) == exponent) {
                hard.ExpectAround(x);
                hard.ExpectAround(-x);
            }
        }
    }
    EXPECT_GE(hard.CountLeftToWideNumbers(), 3);
}

TEST(Sin, DecidesByWideNumbersWhatPairsLeaveOpen)
{
    ExpectNearestWhereTheCubeIsHalfAnUlp({Sin, Sin, mpfr_sin}, 1.0 / 6.0);
    ExpectNearestWhereTheCubeIsHalfAnUlp({SineOfBoth, Sin, mpfr_sin}, 1.0 / 6.0);
}

TEST(Tan, DecidesByWideNumbersWhatPairsLeaveOpen)
{
    ExpectNearestWhereTheCubeIsHalfAnUlp({Tan, Tan, mpfr_tan}, 1.0 / 3.0);
}

TEST(Asin, DecidesByWideNumbersWhatPairsLeaveOpen)
{
    ExpectNearestWhereTheCubeIsHalfAnUlp({Asin, Asin, mpfr_asin}, 1.0 / 6.0);
}

TEST(Atan, DecidesByWideNumbersWhatPairsLeaveOpen)
{
    ExpectNearestWhereTheCubeIsHalfAnUlp({Atan, Atan, mpfr_atan}, 1.0 / 3.0);
}

// pi / 2 - x next to a midpoint: pi / 2 is h + l, and x is l less an odd number of halves of an ulp of h.
TEST(Acos, DecidesByWideNumbersWhatPairsLeaveOpen)
{
    HardArguments acos(Acos, Acos, mpfr_acos), atan(Atan, Atan, mpfr_atan);
    for (int halves = -15; halves < 16; halves += 2) {
        const double x = 0x1.1a62633145c07p-54 - halves * 0x1p-53;
        acos.ExpectAround(x);
        if (x > 0.0)
            atan.ExpectAround(1.0 / x);
    }
    EXPECT_GE(acos.CountLeftToWideNumbers(), 3);
    EXPECT_GE(atan.CountLeftToWideNumbers(), 3);
}

// 1 - x^2 / 2 next to a midpoint.
TEST(Cos, DecidesByWideNumbersWhatPairsLeaveOpen)
{
    HardArguments cos(Cos, Cos, mpfr_cos), both(CosineOfBoth, Cos, mpfr_cos);
    for (int halves = 1; halves < 200; halves += 2) {
        cos.ExpectAround(std::sqrt(halves * 0x1p-53));
        both.ExpectAround(std::sqrt(halves * 0x1p-53));
    }
    EXPECT_GE(cos.CountLeftToWideNumbers(), 3);
    EXPECT_GE(both.CountLeftToWideNumbers(), 3);
}

// pi times these integers is an odd integer of 54 bits to within 2^-47 or less (from the continued fraction
// of pi), and pi x all that counts.
TEST(SinPi, DecidesByWideNumbersWhatPairsLeaveOpen)
{
    HardArguments sine(SinPi, SinPi, mpfr_sinpi), tangent(TanPi, TanPi, mpfr_tanpi);
    for (const double n : {5722089387483356.0, 5449473144343122.0, 5040548779632771.0,
                           4631624414922420.0, 4222700050212069.0, 3813775685501718.0}) {
        for (const double scale : {0x1p-150, -0x1p-300, 0x1p-800}) {
            sine.Expect(n * scale);
            tangent.Expect(n * scale);
        }
    }
    EXPECT_EQ(sine.CountLeftToWideNumbers(), 18);
    EXPECT_EQ(tangent.CountLeftToWideNumbers(), 18);
}

// 1 - (pi x)^2 / 2 next to a midpoint.
TEST(CosPi, DecidesByWideNumbersWhatPairsLeaveOpen)
{
    HardArguments cosine(CosPi, CosPi, mpfr_cospi);
    for (int halves = 1; halves < 200; halves += 2)
        cosine.ExpectAround(std::sqrt(halves * 0x1p-53) / 0x1.921fb54442d18p+1);
    EXPECT_GE(cosine.CountLeftToWideNumbers(), 3);
}

// Subnormal results of functions that don't return their argument.
TEST(SinPi, RoundsSubnormalResultsOnce)
{
    NearestDouble nearest;
    for (int i = 1; i < 2000; ++i) {
        const double x = i * 0x1.3p-1070;
        EXPECT_TRUE(Gives(nearest.Of(mpfr_sinpi, x), SinPi(x))) << i;
        EXPECT_TRUE(Gives(nearest.Of(mpfr_tanpi, -x), TanPi(-x))) << i;
    }
}

TEST(Atan2, RoundsCorrectlyForEveryRatio)
{
    std::mt19937_64 random(20261122);
    std::uniform_real_distribution<double> uniform(-1.0, 1.0);
    NearestDouble nearest;
    const auto expectNearest = [&](double y, double x) {
        EXPECT_TRUE(Gives(nearest.Of(mpfr_atan2, y, x), Atan2(y, x))) << std::hexfloat << y << " " << x;
    };
    for (int i = 0; i < 4000; ++i) {
        const double y = uniform(random), x = uniform(random);
        expectNearest(y, x);
        expectNearest(std::ldexp(y, static_cast<int>(random() % 140) - 70), x);
        expectNearest(std::bit_cast<double>(random()), std::bit_cast<double>(random()));
    }
}

// y / x exact or halfway between subnormals: the angle is less by y^3 / 3 x^3, far beyond any precision.
TEST(Atan2, RoundsSubnormalMidpointsDown)
{
    EXPECT_EQ(Atan2(tiny, 2.0), 0.0);
    EXPECT_EQ(Atan2(3 * tiny, 2.0), tiny);
    EXPECT_EQ(Atan2(5 * tiny, 2.0), 2 * tiny);
    EXPECT_EQ(Atan2(7 * tiny, 2.0), 3 * tiny);
    EXPECT_EQ(Atan2(6 * tiny, 2.0), 3 * tiny);
    EXPECT_EQ(Atan2(-7 * tiny, 4.0), -2 * tiny);
    EXPECT_EQ(Atan2(0x1p-1022, 0x1.0000000000001p0), 0x0.fffffffffffffp-1022);
    EXPECT_TRUE(Gives(-0.0, Atan2(-tiny, 2.0)));
    EXPECT_TRUE(Gives(0.0, Atan2(tiny, huge)));
}

TEST(SinAndCos, GivesTheBitsOfSinAndCos)
{
    std::mt19937_64 random(20261122);
    std::uniform_real_distribution<double> uniform(-7.0, 7.0);
    for (int i = 0; i < 10000; ++i) {
        const double x = i % 2 == 0 ? uniform(random) : std::bit_cast<double>(random());
        const SineAndCosine both = SinAndCos(x);
        EXPECT_TRUE(Gives(Sin(x), both.sine)) << std::hexfloat << x;
        EXPECT_TRUE(Gives(Cos(x), both.cosine)) << std::hexfloat << x;
    }
}

} // namespace
} // namespace trelvanix
