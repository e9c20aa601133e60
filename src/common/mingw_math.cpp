// MinGW-w64's own exp, log, pow, asinh and acosh are computed on the x87 unit and count on its 64-bit
// significand. A thread has that only if MinGW's start code ran in it: Windows starts threads with 53 bits,
// where pow is off by hundreds of units in the last place, and hosts may set 24. Even with 64 bits pow with an
// integer exponent multiplies doubles (off by 26 units), and acosh loses digits close to 1.
//
// So the linker (--wrap in src/CMakeLists.txt) leads the calls of these functions here, where the long double
// twins compute them with 64 bits, whatever the host has set. tools/measure_math_functions.py measures them.
#include <cmath>
#include <cstdint>

extern "C" {
double __wrap_exp(double x);
double __wrap_log(double x);
double __wrap_asinh(double x);
double __wrap_acosh(double x);
double __wrap_pow(double x, double y);
}

namespace
{

// Sets the x87 unit to 64 bits and, at the end, back to what the host had.
class ExtendedPrecision
{
public:
    ExtendedPrecision()
    {
        __asm__ volatile("fnstcw %0" : "=m"(hostControl_) : : "memory");
        constexpr std::uint16_t extended = 0x0300;
        Load(hostControl_ | extended);
    }
    ~ExtendedPrecision()
    {
        Load(hostControl_);
    }
    ExtendedPrecision(const ExtendedPrecision&) = delete;
    ExtendedPrecision& operator=(const ExtendedPrecision&) = delete;

private:
    static void Load(std::uint16_t control)
    {
        __asm__ volatile("fldcw %0" : : "m"(control) : "memory");
    }

    std::uint16_t hostControl_;
};

} // namespace

double __wrap_exp(double x)
{
    const ExtendedPrecision precision;
    return static_cast<double>(expl(x));
}

double __wrap_log(double x)
{
    const ExtendedPrecision precision;
    return static_cast<double>(logl(x));
}

double __wrap_asinh(double x)
{
    const ExtendedPrecision precision;
    return static_cast<double>(asinhl(x));
}

double __wrap_acosh(double x)
{
    const ExtendedPrecision precision;
    // Its long double twin loses digits close to 1, too.
    const long double above = static_cast<long double>(x) - 1.0L;
    return static_cast<double>(log1pl(above + sqrtl(above * (above + 2.0L))));
}

double __wrap_pow(double x, double y)
{
    const ExtendedPrecision precision;
    return static_cast<double>(powl(x, y));
}
