#ifndef TRELVANIX_MATH_BOUNDED_MINIMUM_H
#define TRELVANIX_MATH_BOUNDED_MINIMUM_H

#include <functional>

namespace trelvanix
{

// Where in [lo, hi] the function has a local minimum, to about 1e-4 / 3 plus the square root of the
// machine epsilon relative to the place: golden-section search and parabolic interpolation. The bounds
// themselves are never evaluated. Not-a-number when a bound isn't finite; where hi is below lo, and
// where function values are no numbers, some place near or between the bounds.
// Source: Brent, Algorithms for Minimization without Derivatives, 1973.
double BoundedMinimum(const std::function<double(double)>& function, double lo, double hi);

} // namespace trelvanix

#endif
