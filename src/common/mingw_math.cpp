// MinGW-w64 computes these functions on the x87 unit and counts on its 64-bit significand. A thread has
// that only if MinGW's own start code ran in it: Windows starts threads with 53 bits, where pow is off by
// hundreds of units in the last place, and hosts may set 24. So the linker (--wrap in src/CMakeLists.txt)
// leads the calls of these functions here, and results don't depend on the thread that asks for them.
#include <cstdint>

extern "C" {
double __real_exp(double x);
double __real_log(double x);
double __real_asinh(double x);
double __real_acosh(double x);
double __real_pow(double x, double y);
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
    return __real_exp(x);
}

double __wrap_log(double x)
{
    const ExtendedPrecision precision;
    return __real_log(x);
}

double __wrap_asinh(double x)
{
    const ExtendedPrecision precision;
    return __real_asinh(x);
}

double __wrap_acosh(double x)
{
    const ExtendedPrecision precision;
    return __real_acosh(x);
}

double __wrap_pow(double x, double y)
{
    const ExtendedPrecision precision;
    return __real_pow(x, y);
}
