#include "linalg/sweep_kernel.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <vector>

#include "support/bits.h"
#include "support/instruction_sets.h"
#include "support/plain_sweep.h"
#include "support/samples.h"

namespace trelvanix
{
namespace
{

using testing::AvailableInstructionSets;
using testing::HasSameBits;
using testing::PlainDoubleShiftSweep;
using testing::Samples;

// Entries of an n x n matrix.
std::size_t Size(int n)
{
    const auto columns = static_cast<std::size_t>(n);
    return columns * columns;
}

// An upper Hessenberg matrix from n * n values.
std::vector<double> Hessenberg(std::vector<double> a, int n)
{
    for (int i = 2; i < n; ++i)
        std::fill_n(a.begin() + std::ptrdiff_t{n} * i, i - 1, 0.0);
    return a;
}

// Compares a few sweeps one after another, so that what one leaves below the subdiagonal meets the next;
// the whole matrix, outside the block l .. nn too.
void ExpectPlainBits(const std::vector<double>& a, int n, int l, int nn, double negligible)
{
    std::vector<double> plain = a;
    std::vector<std::vector<double>> got(AvailableInstructionSets().size(), a);
    for (const Shifts shifts : {Shifts{0.3, 0.2}, Shifts{-1.1, 0.7}, Shifts{1e-9, -0.0}}) {
        PlainDoubleShiftSweep(plain.data(), n, l, nn, shifts, negligible);
        for (const InstructionSet set : AvailableInstructionSets()) {
            double* matrix = got[static_cast<std::size_t>(set)].data();
            KernelsFor<SweepKernels>(set).doubleShiftSweep(matrix, n, l, nn, shifts, negligible);
            ASSERT_TRUE(HasSameBits(plain, matrix)) << "instruction set " << static_cast<int>(set)
                                                    << ", n = " << n << ", block " << l << " .. " << nn;
        }
    }
}

TEST(DoubleShiftSweep, HasTheBitsOfThePlainForm)
{
    Samples samples(711);
    for (int n = 3; n <= 60; ++n)
        ExpectPlainBits(Hessenberg(samples.Plain(Size(n)), n), n, 0, n - 1, 0.0);
    for (const int n : {100, 131, 300})
        ExpectPlainBits(Hessenberg(samples.Plain(Size(n)), n), n, 0, n - 1, 0.0);
}

TEST(DoubleShiftSweep, HasTheBitsOfThePlainFormInEveryBlock)
{
    Samples samples(712);
    const int n = 24;
    for (int l = 0; l < n; ++l)
        for (int nn = l + 2; nn < n; ++nn)
            ExpectPlainBits(Hessenberg(samples.Plain(Size(n)), n), n, l, nn, 0.0);
}

TEST(DoubleShiftSweep, HasTheBitsOfThePlainFormWhereReflectionsAreLeftOut)
{
    Samples samples(713);
    for (int n = 3; n <= 40; ++n) {
        // About one vector in three is shorter; a matrix that has split in the middle as well.
        std::vector<double> a = Hessenberg(samples.Plain(Size(n)), n);
        ExpectPlainBits(a, n, 0, n - 1, 0.5);
        for (int i = 1; i < n; ++i)
            if (samples.NextBelow(3) == 0)
                a[static_cast<std::size_t>(i) * static_cast<std::size_t>(n + 1) - 1] = 0.0;
        ExpectPlainBits(a, n, 0, n - 1, 0.0);
        ExpectPlainBits(a, n, 0, n - 1, 100.0); // none at all
    }
}

TEST(DoubleShiftSweep, HasTheBitsOfThePlainFormForHostileValues)
{
    Samples samples(714);
    for (int n = 3; n <= 40; ++n) {
        const std::size_t size = Size(n);
        ExpectPlainBits(samples.Hostile(size), n, 0, n - 1, 1e-100);
        std::vector<double> zeros(size);
        for (double& zero : zeros)
            zero = samples.NextBelow(2) == 0 ? 0.0 : -0.0;
        ExpectPlainBits(zeros, n, 0, n - 1, -1.0);
        std::vector<double> tiny = samples.Plain(size);
        for (double& value : tiny)
            value *= 1e-160;
        ExpectPlainBits(tiny, n, 0, n - 1, 0.0);
        // One infinity late in the matrix, so that most of it stays finite.
        std::vector<double> one = samples.Plain(size);
        one[size - 2] = 1.0 / 0.0;
        ExpectPlainBits(one, n, 0, n - 1, 0.0);
    }
}

} // namespace
} // namespace trelvanix
