#include "classic/bilinear.h"

#include <cmath>
#include <cstddef>
#include <vector>

#include "linalg/dense_matrix.h"

namespace trelvanix
{

void BilinearSs(StateSpace& model, double fs)
{
    const int N = model.order;
    const double t = 1.0 / fs;
    const double r = std::sqrt(t);

    std::vector<double> T1 = model.A;
    std::vector<double> T2i = model.A;
    for (std::size_t i = 0; i < T1.size(); ++i) {
        // Every N + 1 elements the diagonal is met.
        const double unit = i % (static_cast<std::size_t>(N) + 1) == 0 ? 1.0 : 0.0;
        const double half = model.A[i] * t * 0.5;
        T1[i] = unit + half;
        T2i[i] = unit - half;
    }
    MatInverse(T2i, N);

    model.A = MatMul(T2i, T1, N, N, N);
    model.C = MatMul(model.C, T2i, 1, N, N);
    const double s = MatMul(model.C, model.B, 1, N, 1).front();
    model.B = MatMul(T2i, model.B, N, N, 1);
    for (double& b : model.B)
        b = t * b / r;
    for (double& c : model.C)
        c *= r;
    model.D = t * s * 0.5 + model.D;
}

} // namespace trelvanix
