#include "classic/state_space.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

#include "classic/conjugate_pairs.h"
#include "common/work_array.h"
#include "linalg/dense_matrix.h"
#include "linalg/eigenvalues.h"
#include "linalg/polynomial.h"
#include "math/exponential.h"

namespace trelvanix
{
namespace
{

// The coefficients 1, c1, c2 of the real quadratic with a pair of roots.
struct Quadratic {
    double c1;
    double c2;

    explicit Quadratic(const Complex* pair)
    {
        const std::vector<Complex> c = PolyFromRoots(pair, 2);
        c1 = c[1].real();
        c2 = c[2].real();
    }
};

// Two states in controllable form, scaled by T = diag(1, 1/wn) so that both are of a size; wn is the
// geometric mean of the pole moduli. C and D are those of the numerator c0 s + c1 over the quadratic.
StateSpace SecondOrderSection(const Complex* polePair, double c0, double c1, double D)
{
    const Quadratic den(polePair);
    double wn = std::sqrt(Hypot(polePair[0].real(), polePair[0].imag()) *
                          Hypot(polePair[1].real(), polePair[1].imag()));
    if (wn == 0.0)
        wn = 1.0;
    const std::vector<double> T = {1.0, 0.0, 0.0, 1.0 / wn};
    std::vector<double> Ti = T;
    MatInverse(Ti, 2);
    const std::vector<double> A = MatMul(Ti, {-den.c1, -den.c2, 1.0, 0.0}, 2, 2, 2);
    return {2, MatMul(A, T, 2, 2, 2), MatMul(Ti, {1.0, 0.0}, 2, 2, 1), MatMul({c0, c1}, T, 1, 2, 2), D};
}

// Connects a section after the model: its input is the model's output. The model's arrays have room
// for the section's states; A has stride rows.
void Append(StateSpace& model, int stride, const StateSpace& section)
{
    const int n = model.order;
    const int added = section.order;
    const std::vector<double> coupling = MatMul(section.B, model.C, added, 1, stride);
    const double* coupled = coupling.data();
    const double* own = section.A.data();
    double* row = model.A.data() + std::int64_t{stride} * n;
    double* input = model.B.data() + n;
    for (const double b : section.B) {
        std::copy_n(coupled, n, row);
        std::copy_n(own, added, row + n);
        *input++ = b * model.D;
        coupled += stride;
        own += added;
        row += stride;
    }
    for (double& c : model.C)
        c = section.D * c;
    std::copy_n(section.C.data(), added, model.C.data() + n);
    model.D = section.D * model.D;
    model.order = n + added;
}

} // namespace

StateSpace ZpToStateSpace(AnalogPrototype& prototype)
{
    PairConjugates(prototype.zeros);
    PairConjugates(prototype.poles);
    const Complex* z = prototype.zeros.data();
    const Complex* p = prototype.poles.data();
    int nz = static_cast<int>(prototype.zeros.size());
    int np = static_cast<int>(prototype.poles.size());

    const int order = np;
    StateSpace model = {0, NewWorkArray<double>(std::int64_t{order} * order),
                        NewWorkArray<double>(order), NewWorkArray<double>(order), 1.0};

    // What has no partner stands at the end of its array and comes first.
    if (np % 2 != 0) {
        const double pole = p[np - 1].real();
        if (nz % 2 != 0) {
            Append(model, order, {1, {pole}, {1.0}, {pole - z[nz - 1].real()}, 1.0});
            --nz;
        } else {
            Append(model, order, {1, {pole}, {1.0}, {1.0}, 0.0});
        }
        --np;
    } else if (nz % 2 != 0) {
        const std::vector<Complex> num = PolyFromRoots(&z[nz - 1], 1);
        Append(model, order, SecondOrderSection(&p[np - 2], num[0].real(), num[1].real(), 0.0));
        --nz;
        np -= 2;
    }

    for (int i = 0; i < np; i += 2) {
        if (i < nz) {
            const Quadratic num(&z[i]);
            const Quadratic den(&p[i]);
            Append(model, order, SecondOrderSection(&p[i], num.c1 - den.c1, num.c2 - den.c2, 1.0));
        } else {
            Append(model, order, SecondOrderSection(&p[i], 0.0, 1.0, 0.0));
        }
    }

    for (double& c : model.C)
        c = prototype.gain * c;
    model.D = prototype.gain * model.D;
    return model;
}

std::vector<Complex> StatePoles(const StateSpace& model)
{
    std::vector<double> A = model.A;
    return AllEigenvalues(A.data(), model.order, 1e-30, 60);
}

} // namespace trelvanix
