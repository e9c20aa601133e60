#include <gtest/gtest.h>

#include <cfenv>
#include <cmath>
#include <cstdint>
#include <vector>

#include "support/bits.h"
#include "support/call_everything.h"
#include "trelvanix.h"

#if defined(__x86_64__)
#include <xmmintrin.h>
#endif

namespace
{

// Hosts of audio flush subnormal numbers to zero, others round otherwise. What the library answers is the same, and
// the host finds its environment as it was.
TEST(HostRounding, ChangesNoBitAndIsLeftAlone)
{
    const auto inputs = trelvanix::testing::MakeCallInputs();
    const std::vector<double> expected = trelvanix::testing::CallEverything(inputs);
    for (const int rounding : {FE_UPWARD, FE_DOWNWARD, FE_TOWARDZERO}) {
        ASSERT_EQ(std::fesetround(rounding), 0);
        const std::vector<double> got = trelvanix::testing::CallEverything(inputs);
        const int after = std::fegetround();
        std::fesetround(FE_TONEAREST);
        EXPECT_EQ(after, rounding);
        ASSERT_EQ(got.size(), expected.size());
        EXPECT_TRUE(trelvanix::testing::HasSameBits(expected, got.data())) << "rounding " << rounding;
    }
}

#if defined(__x86_64__)
TEST(HostFlushing, OfSubnormalsChangesNoBitAndIsLeftAlone)
{
    const double subnormals[] = {5e-324, 1e-310, -3e-320};
    const double taps[] = {1.0, 0.5};
    const auto filter = [&] {
        double* const output = Filter(subnormals, taps, nullptr, 3, 2);
        const std::vector<double> values(output, output + 3);
        ReleaseDoubleArray(output);
        return values;
    };
    const std::vector<double> expected = filter();
    ASSERT_NE(expected[1], 0.0);
    const unsigned int before = _mm_getcsr();
    const unsigned int flushing = before | 0x8040U;
    _mm_setcsr(flushing);
    const std::vector<double> got = filter();
    const unsigned int after = _mm_getcsr();
    _mm_setcsr(before);
    EXPECT_EQ(after, flushing);
    EXPECT_TRUE(trelvanix::testing::HasSameBits(expected, got.data()));
}

// A host that wants a signal for every invalid operation gets none for those that the library expects.
TEST(HostTraps, AreLeftToTheHost)
{
    const double input[] = {HUGE_VAL, 0.0, 0.0, 0.0};
    const unsigned int before = _mm_getcsr();
    const unsigned int trapping =
        before & ~(0x0080U | 0x003fU); // the invalid operation unmasked, flags clear
    _mm_setcsr(trapping);
    double* const spectrum = FFT(input, 0, 2);
    const unsigned int after = _mm_getcsr();
    _mm_setcsr(before);
    EXPECT_EQ(after, trapping);
    EXPECT_EQ(ReleaseComplexDoubleArray(spectrum), 1);
}
#endif

} // namespace

// The x87 unit has a precision of its own, which hosts and systems set as they like: threads on Windows
// start with 53 bits, some graphics libraries set 24.
#if defined(__GNUC__) && (defined(__x86_64__) || defined(__i386__))
namespace
{

void SetX87Control(std::uint16_t control)
{
    __asm__ volatile("fldcw %0" : : "m"(control) : "memory");
}

std::uint16_t X87Control()
{
    std::uint16_t control = 0;
    __asm__ volatile("fnstcw %0" : "=m"(control) : : "memory");
    return control;
}

TEST(HostPrecision, OfTheX87UnitChangesNoBitAndIsLeftAlone)
{
    const auto inputs = trelvanix::testing::MakeCallInputs();
    const std::vector<double> expected = trelvanix::testing::CallEverything(inputs);
    const std::uint16_t before = X87Control();
    using Control = std::uint16_t;
    for (const Control control : {Control{0x037F}, Control{0x027F}, Control{0x007F}}) {
        SetX87Control(control);
        const std::vector<double> got = trelvanix::testing::CallEverything(inputs);
        const std::uint16_t after = X87Control();
        SetX87Control(before);
        EXPECT_EQ(after, control);
        ASSERT_EQ(got.size(), expected.size());
        EXPECT_TRUE(trelvanix::testing::HasSameBits(expected, got.data()))
            << "x87 control word " << control;
    }
}

} // namespace
#endif
