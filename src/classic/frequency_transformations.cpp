#include "classic/frequency_transformations.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <new>
#include <utility>

#include "common/work_array.h"
#include "linalg/dense_matrix.h"

namespace trelvanix
{
namespace
{

// Twice the states: A stands top left, Wo I and -Wo I beside and below it, zeros fill the rest.
void DoubleStates(StateSpace& model, double Wo)
{
    const std::int64_t n = model.order;
    const std::int64_t N = 2 * n;
    auto doubled = NewWorkArray<double>(N * N);
    double* A = doubled.data();
    for (std::int64_t i = 0; i < n; ++i) {
        std::copy_n(model.A.data() + i * n, n, A + i * N);
        A[i * N + n + i] = Wo;
        A[(n + i) * N + i] = Wo * -1.0;
    }
    model.B.resize(model.B.size() * 2);
    model.C.resize(model.C.size() * 2);
    model.A = std::move(doubled);
    model.order = static_cast<int>(N);
}

struct InverseProducts {
    std::vector<double> Ai;
    std::vector<double> AiB;
    std::vector<double> CAi;
    double CAiB;
};

InverseProducts InvertStates(const StateSpace& model)
{
    const int n = model.order;
    InverseProducts products = {model.A, {}, {}, 0.0};
    MatInverse(products.Ai, n);
    products.AiB = MatMul(products.Ai, model.B, n, n, 1);
    products.CAi = MatMul(model.C, products.Ai, 1, n, n);
    products.CAiB = MatMul(products.CAi, model.B, 1, n, 1).front();
    return products;
}

} // namespace

void LpToLp(StateSpace& model, double Wo)
{
    for (double& a : model.A)
        a *= Wo;
    for (double& b : model.B)
        b *= Wo;
}

void LpToHp(StateSpace& model, double Wo)
{
    InverseProducts inverse = InvertStates(model);
    model.A = std::move(inverse.Ai);
    model.B = std::move(inverse.AiB);
    model.C = std::move(inverse.CAi);
    for (double& a : model.A)
        a = Wo * a;
    for (double& b : model.B)
        b = -Wo * b;
    model.D -= inverse.CAiB;
}

void LpToBp(StateSpace& model, double Wo, double Bw)
{
    const double Q = Wo / Bw;
    // Divide, then multiply: Wo / Q is Bw on paper, but Bw * A rounds differently.
    for (double& a : model.A)
        a = a / Q * Wo;
    for (double& b : model.B)
        b = Wo * b / Q;
    try {
        DoubleStates(model, Wo);
    } catch (const std::bad_alloc&) {
        std::cerr << "Memory allocation failed for 'a' or 'b' or 'c'." << std::endl;
        std::exit(1);
    }
}

void LpToBs(StateSpace& model, double Wo, double Bw)
{
    const double Q = Wo / Bw;
    InverseProducts inverse = InvertStates(model);
    model.A = std::move(inverse.Ai);
    model.B = std::move(inverse.AiB);
    model.C = std::move(inverse.CAi);
    for (double& a : model.A)
        a = Wo * a / Q;
    for (double& b : model.B)
        b = b * -1.0 * Wo / Q;
    model.D -= inverse.CAiB;
    DoubleStates(model, Wo);
}

void TransformLowPass(StateSpace& model, FilterType filterType, const PreparedEdges& edges)
{
    switch (filterType) {
    case FilterType::HighPass:
        return LpToHp(model, edges.Wo);
    case FilterType::BandPass:
        return LpToBp(model, edges.Wo, edges.Bw);
    case FilterType::BandStop:
        return LpToBs(model, edges.Wo, edges.Bw);
    default:
        return LpToLp(model, edges.Wo);
    }
}

} // namespace trelvanix
