#include "filtering/fir_kernel.h"

#include <gtest/gtest.h>

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
using testing::PlainFirFilter;
using testing::Samples;

// From rest.
std::vector<double> Correlated(InstructionSet set, const std::vector<double>& signal,
                               const std::vector<double>& h)
{
    const std::vector<double> past(h.empty() ? 0 : h.size() - 1);
    std::vector<double> output(signal.size(), 1234.5);
    KernelsFor<FirKernels>(set).correlate(past.data(), signal.data(), h.data(),
                                          static_cast<std::int64_t>(signal.size()),
                                          static_cast<std::int64_t>(h.size()), output.data());
    return output;
}

// Compares the filtered first samples of the signal with the plain form for each of the lengths. An
// output doesn't depend on later samples, so one plain run serves all of them; each signal has an
// allocation of its own, so that the address sanitizer sees a read beyond its end.
void ExpectPlainBits(const std::vector<double>& signal, const std::vector<double>& h,
                     const std::vector<std::size_t>& lengths)
{
    const std::vector<double> plain = PlainFirFilter(signal, h);
    for (const std::size_t length : lengths) {
        const auto end = static_cast<std::ptrdiff_t>(length);
        const std::vector<double> start(signal.begin(), signal.begin() + end);
        const std::vector<double> expected(plain.begin(), plain.begin() + end);
        for (const InstructionSet set : AvailableInstructionSets()) {
            ASSERT_TRUE(HasSameBits(expected, Correlated(set, start, h).data()))
                << "instruction set " << static_cast<int>(set) << ", " << h.size() << " taps, "
                << length << " samples";
        }
    }
}

void ExpectPlainBitsOfAllKinds(std::size_t tapCount, const std::vector<std::size_t>& lengths)
{
    Samples samples(static_cast<std::uint32_t>(tapCount) + 21);
    const std::size_t longest = lengths.back();
    ExpectPlainBits(samples.Plain(longest), samples.Plain(tapCount), lengths);
    ExpectPlainBits(samples.Tiny(longest), samples.Tiny(tapCount), lengths);
    ExpectPlainBits(samples.OneHostile(longest), samples.Plain(tapCount), lengths);
    ExpectPlainBits(samples.Plain(longest), samples.OneHostile(tapCount), lengths);
    ExpectPlainBits(samples.Hostile(longest), samples.Hostile(tapCount), lengths);
}

TEST(Correlate, HasTheBitsOfThePlainFormForEveryShortLength)
{
    std::vector<std::size_t> lengths;
    for (std::size_t length = 0; length <= 300; ++length)
        lengths.push_back(length);
    for (std::size_t tapCount = 0; tapCount <= 40; ++tapCount)
        ExpectPlainBitsOfAllKinds(tapCount, lengths);
    for (const std::size_t tapCount : {63U, 64U, 65U, 127U, 256U})
        ExpectPlainBitsOfAllKinds(tapCount, lengths);
}

TEST(Correlate, HasTheBitsOfThePlainFormAcrossBlocksAndChunks)
{
    // Blocks end after 256, 512 and 1024 outputs, depending on the instruction set; chunks of taps
    // after 256.
    const std::vector<std::size_t> lengths = {1,    10,   255,  256,  257,  511,  512,
                                              513,  1023, 1024, 1025, 1151, 1152, 1153,
                                              1300, 2047, 2048, 2049, 2500};
    for (const std::size_t tapCount : {0U, 1U, 2U, 9U, 31U, 127U, 255U, 256U, 257U, 511U, 513U, 1000U})
        ExpectPlainBitsOfAllKinds(tapCount, lengths);
}

TEST(Correlate, GoesOnFromThePast)
{
    Samples samples(22);
    const std::vector<double> signal = samples.Hostile(1500);
    for (const std::size_t tapCount : {1U, 2U, 17U, 300U}) {
        const std::vector<double> h = samples.Plain(tapCount);
        const std::vector<double> whole = PlainFirFilter(signal, h);
        for (const std::size_t cut : {300U, 301U, 1100U}) {
            for (const InstructionSet set : AvailableInstructionSets()) {
                std::vector<double> output(signal.size() - cut);
                KernelsFor<FirKernels>(set).correlate(
                    signal.data() + cut - (tapCount - 1), signal.data() + cut, h.data(),
                    static_cast<std::int64_t>(output.size()), static_cast<std::int64_t>(tapCount),
                    output.data());
                const std::vector<double> expected(whole.begin() + static_cast<std::ptrdiff_t>(cut),
                                                   whole.end());
                ASSERT_TRUE(HasSameBits(expected, output.data())) << tapCount << " taps from " << cut;
            }
        }
    }
}

} // namespace
} // namespace trelvanix
