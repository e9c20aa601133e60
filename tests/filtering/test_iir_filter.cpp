#include "filtering/iir_filter.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

#include "support/bits.h"
#include "support/cuts.h"
#include "support/plain_kernels.h"
#include "support/samples.h"

namespace trelvanix
{
namespace
{

using testing::HasSameBits;
using testing::PlainIirFilter;
using testing::RandomCuts;
using testing::Samples;

TEST(ApplyIir, StartsFromThePast)
{
    // y[n] = x[n] + x[n - 1] + y[n - 1] / 2
    const double b[] = {1, 1};
    const double a[] = {1, -0.5};
    const double signal[] = {2, 0};
    std::vector<double> inputs = {10, 0};
    std::vector<double> outputs = {4, 0};
    std::vector<double> output(2);
    ApplyIir(signal, 2, b, a, 2, inputs.data(), outputs.data(), output.data());
    EXPECT_EQ(output, (std::vector<double>{14, 9}));
    EXPECT_EQ(inputs[0], 0.0);
    EXPECT_EQ(outputs[0], 9.0);
}

TEST(ApplyIir, HasTheBitsOfTheWholeSignalHoweverItIsCut)
{
    Samples samples(42);
    for (const std::size_t count : {0U, 1U, 2U, 9U, 17U, 18U, 40U}) {
        const std::vector<double> signal = samples.Plain(2000);
        const std::vector<double> b = samples.Plain(count);
        std::vector<double> a = samples.Plain(count);
        for (double& value : a)
            value *= 0.9 / static_cast<double>(count);
        const std::size_t delay = count > 0 ? count - 1 : 0;
        std::vector<double> inputs(2 * delay);
        std::vector<double> outputs(2 * delay);
        std::vector<double> output(signal.size());
        std::size_t begin = 0;
        for (const std::size_t end : RandomCuts(samples, signal.size())) {
            ApplyIir(signal.data() + begin, static_cast<std::int64_t>(end - begin), b.data(), a.data(),
                     static_cast<int>(count), inputs.data(), outputs.data(), output.data() + begin);
            begin = end;
        }
        EXPECT_TRUE(HasSameBits(PlainIirFilter(signal, b, a), output.data())) << count;
    }
}

} // namespace
} // namespace trelvanix
