#include "math/wide_trigonometric.h"

#include <gtest/gtest.h>
#include <mpfr.h>

#include <cmath>
#include <random>

namespace trelvanix
{
namespace
{

class WideTrigonometric : public ::testing::TestWithParam<int>
{
protected:
    WideTrigonometric()
    {
        mpfr_inits2(3200, x_, y_, got_, static_cast<mpfr_ptr>(nullptr));
    }
    ~WideTrigonometric() override
    {
        mpfr_clears(x_, y_, got_, static_cast<mpfr_ptr>(nullptr));
    }

    // |value - expected| in units of 2^wideErrorBits ulps.
    double PartOfBound(const WideNumber& value, mpfr_t expected)
    {
        mpfr_set_zero(got_, 1);
        for (int i = value.limbs - 1; i >= 0; --i) {
            mpfr_add_ui(got_, got_, value.digits[static_cast<std::size_t>(i)], MPFR_RNDN);
            mpfr_div_2ui(got_, got_, 32, MPFR_RNDN);
        }
        mpfr_mul_2si(got_, got_, value.exponent, MPFR_RNDN);
        if (value.negative)
            mpfr_neg(got_, got_, MPFR_RNDN);
        mpfr_sub(got_, got_, expected, MPFR_RNDN);
        mpfr_mul_2si(got_, got_, std::int64_t{32} * GetParam() - value.exponent - wideErrorBits,
                     MPFR_RNDN);
        return std::fabs(mpfr_get_d(got_, MPFR_RNDN));
    }

    std::mt19937_64 random_{20261122};
    std::uniform_real_distribution<double> uniform_{-1.0, 1.0};
    mpfr_t x_, y_, got_;
};

TEST_P(WideTrigonometric, SineAndCosineKeepTheirBound)
{
    for (int i = 0; i < 100; ++i) {
        const double x = i % 3 == 0   ? std::exp2(1000.0 * std::fabs(uniform_(random_)))
                         : i % 3 == 1 ? std::rint(20.0 * uniform_(random_)) * 0x1.921fb54442d18p+0
                                      : uniform_(random_) * std::exp2(10.0 * uniform_(random_));
        const WideSineAndCosine both = WideSineAndCosineOf(x, GetParam());
        mpfr_set_d(x_, x, MPFR_RNDN);
        mpfr_sin_cos(x_, y_, x_, MPFR_RNDN);
        EXPECT_LE(PartOfBound(both.sine, x_), 1.0) << std::hexfloat << x;
        EXPECT_LE(PartOfBound(both.cosine, y_), 1.0) << std::hexfloat << x;
        mpfr_div(x_, x_, y_, MPFR_RNDN);
        if (x != 0.0) {
            EXPECT_LE(PartOfBound(Divide(both.sine, both.cosine), x_), 1.0) << std::hexfloat << x;
        }
    }
}

TEST_P(WideTrigonometric, AngleKeepsItsBound)
{
    for (int i = 0; i < 50; ++i) {
        const double y = std::fabs(uniform_(random_)) * std::exp2(i % 2 * 30.0 * uniform_(random_));
        const double x = uniform_(random_);
        mpfr_set_d(x_, x, MPFR_RNDN);
        mpfr_set_d(y_, y, MPFR_RNDN);
        mpfr_atan2(x_, y_, x_, MPFR_RNDN);
        const double estimate = mpfr_get_d(x_, MPFR_RNDN) * (1.0 + 0x1p-42);
        EXPECT_LE(PartOfBound(WideAngle(ToWide(y, GetParam()), ToWide(x, GetParam()), estimate), x_),
                  1.0)
            << std::hexfloat << y << " " << x;
    }
}

INSTANTIATE_TEST_SUITE_P(Limbs, WideTrigonometric, ::testing::Values(8, 14, 24));

TEST(RoundByWidening, AsksForMoreLimbsUntilTheRoundingIsCertain)
{
    // Above the midpoint of two doubles by 2^-300.
    int calls = 0;
    const double rounded = RoundByWidening([&](int limbs) {
        ++calls;
        return Add(ToWide(1.0 + 0x1p-52, limbs), Add(ToWide(0x1p-53, limbs), ToWide(0x1p-300, limbs)));
    });
    EXPECT_EQ(rounded, 1.0 + 0x1p-51);
    EXPECT_EQ(calls, 2);
}

} // namespace
} // namespace trelvanix
