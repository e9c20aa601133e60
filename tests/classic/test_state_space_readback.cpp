#include "classic/state_space_readback.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <limits>
#include <vector>

#include "linalg/companion_roots.h"
#include "support/bits.h"
#include "support/frequency_response.h"

namespace trelvanix
{
namespace
{

using testing::IsNear;
using testing::ModelAt;
using testing::PolynomialAt;

constexpr double epsilon = std::numeric_limits<double>::epsilon();

using Row = std::vector<double>;

TEST(CharPoly, IsMonicWithTheEigenvaluesAsRoots)
{
    EXPECT_EQ(CharPoly({}, 0), Row{1.0});
    EXPECT_EQ(CharPoly({-2.0}, 1), (Row{1.0, 2.0}));
    // (0 -1 / 1 0): s^2 + 1.
    EXPECT_EQ(CharPoly({0.0, -1.0, 1.0, 0.0}, 2), (Row{1.0, 0.0, 1.0}));
    // I + ones: (s - 4)(s - 1)^2 = s^3 - 6 s^2 + 9 s - 4.
    EXPECT_TRUE(
        IsNear({1.0, -6.0, 9.0, -4.0}, CharPoly({2, 1, 1, 1, 2, 1, 1, 1, 2}, 3).data(), 100 * epsilon));
}

TEST(StateSpaceToTf, SubtractsTheDenominatorWithoutFeedthrough)
{
    // 8 / (s + 2): det(s + 2 + 8) - (s + 2).
    const TransferFunction tf = StateSpaceToTf({1, {-2.0}, {4.0}, {2.0}, 0.0});
    EXPECT_EQ(tf.den, (Row{1.0, 2.0}));
    EXPECT_EQ(tf.num, (Row{0.0, 8.0}));
}

TEST(StateSpaceToTf, IsTheOuterPolynomialAtUnitFeedthrough)
{
    const TransferFunction tf = StateSpaceToTf({1, {-2.0}, {4.0}, {-1.0}, 1.0});
    EXPECT_EQ(tf.num, (Row{1.0, -2.0})); // A - B C = 2
    EXPECT_EQ(tf.den, (Row{1.0, 2.0}));
}

TEST(StateSpaceToTf, HasTheResponseOfTheModel)
{
    AnalogPrototype prototype = {
        {{0.1, 1.5}, {0.1, -1.5}}, {{-0.4, 0.9}, {-0.4, -0.9}, {-0.8, 0.3}, {-0.8, -0.3}, -1.1}, 0.7};
    const StateSpace model = ZpToStateSpace(prototype);
    const TransferFunction tf = StateSpaceToTf(model);
    const Complex s(0.2, 1.1);
    // Two polynomials of degree five whose eigenvalues have condition numbers of some ten.
    EXPECT_LT(std::abs(PolynomialAt(tf.num, s) / PolynomialAt(tf.den, s) - ModelAt(model, s)),
              1e4 * epsilon);
}

TEST(TfGain, TakesTheFirstCoefficientAboveTheThreshold)
{
    EXPECT_EQ(TfGain({{0.5, 2.0}, {1.0, 3.0}}), 0.5);
    EXPECT_EQ(TfGain({{-0.5, 2.0}, {1.0, 3.0}}), -0.5);
    EXPECT_EQ(TfGain({{1e-16, 2.0}, {1.0, 3.0}}), 2.0);
    EXPECT_EQ(TfGain({{0.0001, 2.0}, {1.0, 3.0}}), 2.0); // not above
    EXPECT_EQ(TfGain({{std::nextafter(0.0001, 1.0), 2.0}, {1.0, 3.0}}), std::nextafter(0.0001, 1.0));
}

TEST(TfGain, TakesTheLastCoefficientWhenAllAreSmall)
{
    EXPECT_EQ(TfGain({{1e-5, 2e-5, 3e-5}, {1.0, 0.0, 0.0}}), 3e-5);
    EXPECT_EQ(TfGain({{1e-5}, {1.0}}), 1e-5);
}

TEST(TfGain, KeepsMultiplyingByTheLeadingDenominatorCoefficient)
{
    EXPECT_EQ(TfGain({{3.0, 0.0}, {2.0, 0.0}}), 6.0);
}

TEST(TfGain, PassesOverNotANumber)
{
    EXPECT_EQ(TfGain({{std::numeric_limits<double>::quiet_NaN(), 2.0}, {1.0, 0.0}}), 2.0);
}

TEST(TfZeros, KeepAllStatesForANumeratorWithSmallLeadingCoefficients)
{
    const TransferFunction tf = {{1e-6, 1.0, 1e-6}, {1.0, 0.0, 0.0}};
    EXPECT_EQ(TfZeros(tf).size(), 2U);
}

TEST(TfZeros, AreThoseThatRootsReturns)
{
    // Palindromic: 2 z^2 - 5 z + 2 has the zeros 2 and 1/2.
    const std::vector<Complex> zeros = TfZeros({{2.0, -5.0, 2.0}, {1.0, 0.0, 0.0}});
    ASSERT_EQ(zeros.size(), 2U);
    EXPECT_NEAR(zeros[1].real(), 2.0, 4 * epsilon);
    EXPECT_NEAR(zeros[0].real(), 0.5, 4 * epsilon);
    // Not palindromic: z^2 - 3 z + 2 is taken for z^2 - 3 z + 1.
    EXPECT_NEAR(TfZeros({{1.0, -3.0, 2.0}, {1.0, 0.0, 0.0}})[1].real(), (3.0 + std::sqrt(5.0)) / 2,
                4 * epsilon);
}

TEST(TfPoles, AreTheCompanionRootsOfTheDenominator)
{
    EXPECT_EQ(TfPoles({{1.0, 0.0, 0.0}, {1.0, -3.0, 2.0}}), (std::vector<Complex>{1.0, 2.0}));
}

TEST(TfToZpk, SetsOnlyTheGainWithoutStates)
{
    const ZerosPolesGain zpk = TfToZpk({{0.25}, {1.0}});
    EXPECT_TRUE(zpk.zeros.empty());
    EXPECT_TRUE(zpk.poles.empty());
    EXPECT_EQ(zpk.gain, 0.25);
}

TEST(StateSpaceToZpk, ReadsBackADigitalNotch)
{
    // Zeros on the unit circle at 60 degrees, poles at half their modulus: z^2 - z + 1 over
    // z^2 - z/2 + 1/4, in controllable form.
    const StateSpace model = {2, {0.5, -0.25, 1.0, 0.0}, {1.0, 0.0}, {-0.5, 0.75}, 1.0};
    const ZerosPolesGain zpk = StateSpaceToZpk(model);
    EXPECT_EQ(zpk.gain, 1.0);
    ASSERT_EQ(zpk.zeros.size(), 2U);
    EXPECT_LT(std::abs(zpk.zeros[0] - Complex(0.5, -std::sqrt(0.75))), 4 * epsilon);
    EXPECT_LT(std::abs(zpk.zeros[1] - Complex(0.5, std::sqrt(0.75))), 4 * epsilon);
    ASSERT_EQ(zpk.poles.size(), 2U);
    EXPECT_LT(std::abs(zpk.poles[0] - Complex(0.25, -std::sqrt(0.1875))), 4 * epsilon);
}

} // namespace
} // namespace trelvanix
