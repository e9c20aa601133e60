#include "classic/state_space_readback.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <utility>

#include "classic/roots.h"
#include "common/work_array.h"
#include "linalg/companion_roots.h"
#include "linalg/dense_matrix.h"
#include "linalg/eigenvalues.h"
#include "linalg/polynomial.h"

namespace trelvanix
{
namespace
{

int Degree(const TransferFunction& tf)
{
    return static_cast<int>(tf.den.size()) - 1;
}

} // namespace

std::vector<double> CharPoly(std::vector<double> M, int n)
{
    const std::vector<Complex> eigenvalues = AllEigenvalues(M.data(), n, 1e-11, 60);
    auto coefficients = NewWorkArray<double>(std::int64_t{n} + 1);
    WriteRealPolynomial(1.0, eigenvalues, coefficients.data());
    return coefficients;
}

TransferFunction StateSpaceToTf(const StateSpace& model)
{
    const int N = model.order;
    std::vector<double> den = CharPoly(model.A, N);
    std::vector<double> M = MatMul(model.B, model.C, N, 1, N);
    for (std::size_t i = 0; i < M.size(); ++i)
        M[i] = model.A[i] - M[i];
    std::vector<double> num = CharPoly(std::move(M), N);
    for (std::size_t i = 0; i < num.size(); ++i)
        num[i] += (model.D - 1.0) * den[i];
    return {std::move(num), std::move(den)};
}

std::vector<Complex> TfZeros(const TransferFunction& tf)
{
    const int N = Degree(tf);
    const ResultArray roots = Roots(tf.num.data(), N);
    std::vector<Complex> zeros;
    zeros.reserve(static_cast<std::size_t>(N));
    for (int i = 0; i < N; ++i)
        zeros.push_back(LoadComplex(roots.get(), i));
    return zeros;
}

std::vector<Complex> TfPoles(const TransferFunction& tf)
{
    return CompanionRoots(tf.den.data(), Degree(tf));
}

double TfGain(const TransferFunction& tf)
{
    const auto leading =
        std::find_if(tf.num.begin(), tf.num.end(), [](double c) { return std::fabs(c) > 0.0001; });
    return tf.den.front() * (leading != tf.num.end() ? *leading : tf.num.back());
}

ZerosPolesGain TfToZpk(const TransferFunction& tf)
{
    return {TfZeros(tf), TfPoles(tf), TfGain(tf)};
}

ZerosPolesGain StateSpaceToZpk(const StateSpace& model)
{
    return TfToZpk(StateSpaceToTf(model));
}

} // namespace trelvanix
