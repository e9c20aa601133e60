#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

#include "support/bits.h"
#include "support/call_everything.h"

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
