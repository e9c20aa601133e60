#include "filtering/fir_filter.h"

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
using testing::PlainFirFilter;
using testing::RandomCuts;
using testing::Samples;

TEST(ApplyFir, WeightsTheNewestSampleWithTheLastTap)
{
    const std::vector<double> signal = {1, 2, 3};
    const std::vector<double> h = {100, 10, 1};
    std::vector<double> past = {-2, -1};
    std::vector<double> output(3);
    ApplyFir(signal.data(), 3, h.data(), 3, past.data(), output.data());
    EXPECT_EQ(output, (std::vector<double>{-209, -88, 123}));
    EXPECT_EQ(past, (std::vector<double>{2, 3}));
}

TEST(ApplyFir, KeepsWhatAShortSignalLeavesOfThePast)
{
    const double signal[] = {7};
    const std::vector<double> h(5, 0.0);
    std::vector<double> past = {1, 2, 3, 4};
    double output = 0.0;
    ApplyFir(signal, 1, h.data(), 5, past.data(), &output);
    EXPECT_EQ(past, (std::vector<double>{2, 3, 4, 7}));
    ApplyFir(signal, 0, h.data(), 5, past.data(), &output);
    EXPECT_EQ(past, (std::vector<double>{2, 3, 4, 7}));
}

TEST(ApplyFir, HasTheBitsOfTheWholeSignalHoweverItIsCut)
{
    Samples samples(41);
    for (const std::size_t tapCount : {0U, 1U, 2U, 9U, 64U, 300U}) {
        const std::vector<double> signal = samples.Hostile(2000);
        const std::vector<double> h = samples.Plain(tapCount);
        std::vector<double> past(tapCount > 0 ? tapCount - 1 : 0);
        std::vector<double> output(signal.size());
        std::size_t begin = 0;
        for (const std::size_t end : RandomCuts(samples, signal.size())) {
            ApplyFir(signal.data() + begin, static_cast<std::int64_t>(end - begin), h.data(),
                     static_cast<std::int64_t>(tapCount), past.data(), output.data() + begin);
            begin = end;
        }
        EXPECT_TRUE(HasSameBits(PlainFirFilter(signal, h), output.data())) << tapCount << " taps";
    }
}

} // namespace
} // namespace trelvanix
