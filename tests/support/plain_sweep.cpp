#include "support/plain_sweep.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace trelvanix::testing
{
namespace
{

// Row i of a row-major matrix with n columns.
inline double* Row(double* a, int n, int i)
{
    return a + std::int64_t{n} * i;
}

// The symmetric reflector that maps (p, q, r) onto (-s, 0, 0).
struct Reflector {
    double h00, h01, h02, h11, h12, h22;

    Reflector(double p, double q, double r, double s)
        : h00(-(p / s)), h01(-(q / s)), h02(-(r / s)), h11(p / s + r / s * r / (s + p)),
          h12(-(q / s) * r / (s + p)), h22(p / s + q / s * q / (s + p))
    {
    }
};

// Replaces three (two) elements by the reflector's image.
inline void Apply(const Reflector& h, double& x0, double& x1, double& x2)
{
    const double y0 = h.h00 * x0 + h.h01 * x1 + h.h02 * x2;
    const double y1 = h.h01 * x0 + h.h11 * x1 + h.h12 * x2;
    const double y2 = h.h02 * x0 + h.h12 * x1 + h.h22 * x2;
    x0 = y0;
    x1 = y1;
    x2 = y2;
}

inline void Apply(const Reflector& h, double& x0, double& x1)
{
    const double y0 = h.h00 * x0 + h.h01 * x1;
    const double y1 = h.h01 * x0 + h.h11 * x1;
    x0 = y0;
    x1 = y1;
}

// The similarity transformation with the reflector at rows and columns k, k+1, k+2 (k, k+1 at the end)
// of the active block l .. nn.
void Reflect(double* a, int n, int l, int nn, int k, const Reflector& h)
{
    double* r0 = Row(a, n, k);
    double* r1 = Row(a, n, k + 1);
    const int lastRow = std::min(k + 3, nn);
    if (k == nn - 1) {
        for (int j = k; j <= nn; ++j)
            Apply(h, r0[j], r1[j]);
        for (int i = l; i <= lastRow; ++i)
            Apply(h, Row(a, n, i)[k], Row(a, n, i)[k + 1]);
        return;
    }
    double* r2 = Row(a, n, k + 2);
    for (int j = k; j <= nn; ++j)
        Apply(h, r0[j], r1[j], r2[j]);
    for (int i = l; i <= lastRow; ++i)
        Apply(h, Row(a, n, i)[k], Row(a, n, i)[k + 1], Row(a, n, i)[k + 2]);
}

} // namespace

void PlainDoubleShiftSweep(double* a, int n, int l, int nn, Shifts shifts, double negligible)
{
    for (int i = l + 2; i <= nn; ++i)
        Row(a, n, i)[i - 2] = 0.0;
    for (int i = l + 3; i <= nn; ++i)
        Row(a, n, i)[i - 3] = 0.0;

    for (int k = l; k <= nn - 1; ++k) {
        double p = 0.0;
        double q = 0.0;
        double r = 0.0;
        if (k == l) {
            const double* r0 = Row(a, n, l);
            const double* r1 = Row(a, n, l + 1);
            // The first column of (H - s1)(H - s2), not divided by its common factor.
            p = r0[l + 1] * r1[l] + (r0[l] - shifts.sum) * r0[l] + shifts.product;
            q = (r0[l] + r1[l + 1] - shifts.sum) * r1[l];
            r = r1[l] * Row(a, n, l + 2)[l + 1];
        } else {
            p = Row(a, n, k)[k - 1];
            q = Row(a, n, k + 1)[k - 1];
            r = k < nn - 1 ? Row(a, n, k + 2)[k - 1] : 0.0;
        }
        if (std::fabs(p) + std::fabs(q) + std::fabs(r) <= negligible)
            continue;
        const double norm = std::sqrt(p * p + q * q + r * r);
        const double s = p >= 0.0 ? norm : -norm;
        if (k > l)
            Row(a, n, k)[k - 1] = -s;
        Reflect(a, n, l, nn, k, Reflector(p, q, r, s));
    }
}

} // namespace trelvanix::testing
