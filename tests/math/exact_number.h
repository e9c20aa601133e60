#ifndef TRELVANIX_TESTS_MATH_EXACT_NUMBER_H
#define TRELVANIX_TESTS_MATH_EXACT_NUMBER_H

#include <mpfr.h>

#include <cmath>

#include "math/pair.h"

namespace trelvanix::testing
{

// An MPFR number of 1200 bits, enough for sums and products of what the tests hold, released at the end of
// its scope.
class Exact
{
public:
    Exact()
    {
        mpfr_init2(value_, 1200);
    }
    explicit Exact(Pair x) : Exact()
    {
        mpfr_set_d(value_, x.high, MPFR_RNDN);
        mpfr_add_d(value_, value_, x.low, MPFR_RNDN);
    }
    explicit Exact(double x) : Exact(Pair{x, 0.0})
    {
    }
    Exact(const Exact&) = delete;
    Exact& operator=(const Exact&) = delete;
    ~Exact()
    {
        mpfr_clear(value_);
    }
    mpfr_ptr Get()
    {
        return value_;
    }

private:
    mpfr_t value_;
};

// |got / expected - 1|; zero where both are zero.
inline double RelativeError(Pair got, Exact& expected)
{
    Exact error(got);
    mpfr_sub(error.Get(), error.Get(), expected.Get(), MPFR_RNDN);
    if (mpfr_zero_p(error.Get()) != 0)
        return 0.0;
    mpfr_div(error.Get(), error.Get(), expected.Get(), MPFR_RNDN);
    return std::fabs(mpfr_get_d(error.Get(), MPFR_RNDU));
}

// Functions of MPFR.
using ExactFunction = int (*)(mpfr_ptr, mpfr_srcptr, mpfr_rnd_t);
using ExactFunction2 = int (*)(mpfr_ptr, mpfr_srcptr, mpfr_srcptr, mpfr_rnd_t);

// A number of 53 bits with the exponents of doubles, so that one rounding, and one of subnormals, give
// what a correctly rounded function gives.
class NearestDouble
{
public:
    NearestDouble() : smallest_(mpfr_get_emin()), largest_(mpfr_get_emax())
    {
        mpfr_set_emin(-1073);
        mpfr_set_emax(1024);
        mpfr_inits2(53, x_, y_, result_, static_cast<mpfr_ptr>(nullptr));
    }
    NearestDouble(const NearestDouble&) = delete;
    NearestDouble& operator=(const NearestDouble&) = delete;
    ~NearestDouble()
    {
        mpfr_clears(x_, y_, result_, static_cast<mpfr_ptr>(nullptr));
        mpfr_set_emin(smallest_);
        mpfr_set_emax(largest_);
    }
    double Of(ExactFunction function, double x)
    {
        mpfr_set_d(x_, x, MPFR_RNDN);
        return Rounded(function(result_, x_, MPFR_RNDN));
    }
    double Of(ExactFunction2 function, double x, double y)
    {
        mpfr_set_d(x_, x, MPFR_RNDN);
        mpfr_set_d(y_, y, MPFR_RNDN);
        return Rounded(function(result_, x_, y_, MPFR_RNDN));
    }

private:
    double Rounded(int ternary)
    {
        mpfr_subnormalize(result_, ternary, MPFR_RNDN);
        return mpfr_get_d(result_, MPFR_RNDN);
    }

    mpfr_exp_t smallest_, largest_;
    mpfr_t x_, y_, result_;
};

} // namespace trelvanix::testing

#endif
