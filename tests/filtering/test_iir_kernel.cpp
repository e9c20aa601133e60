#include "filtering/iir_kernel.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <vector>

#include "support/bits.h"
#include "support/instruction_sets.h"
#include "support/plain_kernels.h"
#include "support/samples.h"

namespace trelvanix
{
namespace
{

using testing::AvailableInstructionSets;
using testing::HasSameBits;
using testing::PlainIirFilter;
using testing::Samples;

// From rest: as many zeros before input and output as the kernel reads.
std::vector<double> Recursed(InstructionSet set, const std::vector<double>& signal,
                             const std::vector<double>& b, const std::vector<double>& a)
{
    const std::size_t delay = b.empty() ? 0 : b.size() - 1;
    std::vector<double> x(delay + signal.size());
    std::ranges::copy(signal, x.data() + delay);
    std::vector<double> y(delay + signal.size(), 1234.5);
    std::fill_n(y.data(), delay, 0.0);
    KernelsFor<IirKernels>(set).recurse(x.data() + delay, b.data(), a.data(),
                                        static_cast<int>(b.size()),
                                        static_cast<std::int64_t>(signal.size()), y.data() + delay);
    return {y.data() + delay, y.data() + y.size()};
}

// As an output doesn't depend on later samples, one plain run serves all lengths.
void ExpectPlainBits(const std::vector<double>& signal, const std::vector<double>& b,
                     const std::vector<double>& a)
{
    const std::vector<double> plain = PlainIirFilter(signal, b, a);
    for (std::size_t length = 0; length <= signal.size(); length += length < 100 ? 1 : 11) {
        const auto end = static_cast<std::ptrdiff_t>(length);
        const std::vector<double> start(signal.begin(), signal.begin() + end);
        const std::vector<double> expected(plain.begin(), plain.begin() + end);
        for (const InstructionSet set : AvailableInstructionSets()) {
            ASSERT_TRUE(HasSameBits(expected, Recursed(set, start, b, a).data()))
                << "instruction set " << static_cast<int>(set) << ", " << b.size() << " coefficients, "
                << length << " samples";
        }
    }
}

// Sum of magnitudes below 1: the poles lie inside the unit circle and outputs stay finite.
std::vector<double> Stable(std::vector<double> a)
{
    for (double& value : a)
        value *= 0.9 / static_cast<double>(a.size());
    return a;
}

TEST(Recurse, HasTheBitsOfThePlainForm)
{
    std::vector<std::size_t> counts = {63, 64, 65, 127, 256};
    for (std::size_t count = 0; count <= 40; ++count)
        counts.push_back(count);
    constexpr std::size_t length = 300;
    for (const std::size_t count : counts) {
        Samples samples(static_cast<std::uint32_t>(count) + 32);
        ExpectPlainBits(samples.Plain(length), samples.Plain(count), Stable(samples.Plain(count)));
        ExpectPlainBits(samples.Tiny(length), samples.Tiny(count), Stable(samples.Tiny(count)));
        // Unstable: runs through all magnitudes into infinity and beyond.
        ExpectPlainBits(samples.Plain(length), samples.Plain(count), samples.Plain(count));
        ExpectPlainBits(samples.OneHostile(length), samples.Plain(count), Stable(samples.Plain(count)));
        ExpectPlainBits(samples.Plain(length), samples.OneHostile(count), samples.Plain(count));
        ExpectPlainBits(samples.Plain(length), samples.Plain(count), samples.OneHostile(count));
        ExpectPlainBits(samples.Hostile(length), samples.Hostile(count), samples.Hostile(count));
    }
}

TEST(Recurse, HasTheBitsOfThePlainFormForLongSignals)
{
    Samples samples(33);
    const std::vector<double> signal = samples.Plain(5003);
    for (const std::size_t count : {1U, 2U, 3U, 9U, 17U, 18U, 1000U}) {
        const std::vector<double> b = samples.Plain(count);
        const std::vector<double> a = Stable(samples.Plain(count));
        const std::vector<double> expected = PlainIirFilter(signal, b, a);
        for (const InstructionSet set : AvailableInstructionSets()) {
            ASSERT_TRUE(HasSameBits(expected, Recursed(set, signal, b, a).data()))
                << "instruction set " << static_cast<int>(set) << ", " << count << " coefficients";
        }
    }
}

} // namespace
} // namespace trelvanix
