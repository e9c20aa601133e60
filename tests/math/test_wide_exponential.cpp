#include "math/wide_exponential.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <initializer_list>

#include "exact_values.h"

namespace trelvanix
{
namespace
{

using testing::ExactFunction;

// log2 of the relative difference of the wide number from function(x) by MPFR, digit by digit.
double ErrorExponent(const WideNumber& got, double x, ExactFunction function)
{
    mpfr_t argument, exact, value;
    mpfr_init2(argument, 53);
    mpfr_inits2(2000, exact, value, static_cast<mpfr_ptr>(nullptr));
    mpfr_set_d(argument, x, MPFR_RNDN);
    function(exact, argument, MPFR_RNDN);
    mpfr_set_ui(value, 0, MPFR_RNDN);
    for (int i = got.limbs - 1; i >= 0; --i) {
        mpfr_add_ui(value, value, got.digits[static_cast<std::size_t>(i)], MPFR_RNDN);
        mpfr_div_2ui(value, value, 32, MPFR_RNDN);
    }
    mpfr_mul_2si(value, value, got.exponent, MPFR_RNDN);
    if (got.negative)
        mpfr_neg(value, value, MPFR_RNDN);
    mpfr_sub(value, value, exact, MPFR_RNDN);
    mpfr_div(value, value, exact, MPFR_RNDN);
    mpfr_abs(value, value, MPFR_RNDN);
    mpfr_log2(value, value, MPFR_RNDN);
    const double exponent = mpfr_get_d(value, MPFR_RNDN);
    mpfr_clears(argument, exact, value, static_cast<mpfr_ptr>(nullptr));
    return exponent;
}

TEST(WideExp, KeepsItsBoundAtEveryPrecision)
{
    for (const int limbs : {6, 12, 24, 46}) {
        for (const double x : {1.0, -1.0, 0.1, 1e-10, 700.0, -745.0, 0.34657359027997264, 2000.0})
            EXPECT_LT(ErrorExponent(WideExp(ToWide(x, limbs), limbs), x, mpfr_exp), 32 - 32 * limbs)
                << x;
    }
    EXPECT_EQ(ToDouble(WideExp(ToWide(0.0, 6), 6)), 1.0);
}

TEST(WideLog, KeepsItsBoundAtEveryPrecision)
{
    for (const int limbs : {6, 12, 24, 46}) {
        for (const double x :
             {2.0, 10.0, 0.5, 0.7, 0.71, 1.0 + 0x1p-52, 1.0 - 0x1p-53, 1e300, 0x1p-1074})
            EXPECT_LT(ErrorExponent(WideLog(ToWide(x, limbs), limbs), x, mpfr_log), 32 - 32 * limbs)
                << x;
    }
    EXPECT_TRUE(IsZero(WideLog(ToWide(1.0, 6), 6)));
}

TEST(ToWideOfPairs, IsExact)
{
    const WideNumber sum = ToWide(Pair{1.0, 0x1p-100}, 6);
    EXPECT_EQ(ToDouble(Subtract(sum, ToWide(1.0, 6))), 0x1p-100);
}

} // namespace
} // namespace trelvanix
