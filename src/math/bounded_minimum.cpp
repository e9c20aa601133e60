#include "math/bounded_minimum.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace trelvanix
{

double BoundedMinimum(const std::function<double(double)>& function, double lo, double hi)
{
    if (!std::isfinite(lo) || !std::isfinite(hi))
        return std::numeric_limits<double>::quiet_NaN();
    const double golden = (3.0 - std::sqrt(5.0)) * 0.5;
    const double relativeTolerance = std::sqrt(2.2204e-16);
    constexpr double absoluteTolerance = 3.3333333333333335e-5;

    // x is the best point so far, w the second best, v the previous w.
    double x = lo + golden * (hi - lo);
    double w = x, v = x;
    double fx = function(x);
    double fw = fx, fv = fx;
    double step = 0.0, stepBefore = 0.0;
    for (;;) {
        const double m = (lo + hi) * 0.5;
        const double tol1 = std::fabs(x) * relativeTolerance + absoluteTolerance;
        const double tol2 = 2.0 * tol1;
        // Written so that a not-a-number ends the search.
        if (!(std::fabs(x - m) > tol2 - (hi - lo) * 0.5))
            return x;

        bool parabolic = false;
        if (std::fabs(stepBefore) > tol1) {
            double r = (x - w) * (fx - fv);
            double q = (x - v) * (fx - fw);
            double p = (x - v) * q - (x - w) * r;
            q = 2.0 * (q - r);
            if (q > 0.0)
                p = -p;
            q = std::fabs(q);
            r = stepBefore;
            stepBefore = step;
            if (std::fabs(p) < std::fabs(0.5 * q * r) && p > q * (lo - x) && p < q * (hi - x)) {
                parabolic = true;
                step = p / q;
                const double u = x + step;
                if (u - lo < tol2 || hi - u < tol2)
                    step = m >= x ? tol1 : -tol1;
            }
        }
        if (!parabolic) {
            stepBefore = (x < m ? hi : lo) - x;
            step = golden * stepBefore;
        }

        const double length = std::max(std::fabs(step), tol1);
        const double u = x + (step >= 0.0 ? length : -length);
        const double fu = function(u);
        if (fu <= fx) {
            (u >= x ? lo : hi) = x;
            v = w;
            fv = fw;
            w = x;
            fw = fx;
            x = u;
            fx = fu;
        } else {
            (u < x ? lo : hi) = u;
            if (fu <= fw || w == x) {
                v = w;
                fv = fw;
                w = u;
                fw = fu;
            } else if (fu <= fv || v == x || v == w) {
                v = u;
                fv = fu;
            }
        }
    }
}

} // namespace trelvanix
