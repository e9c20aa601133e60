// Roots of polynomials whose constant term equals the leading coefficient, the only ones that Trelvanix
// solves; the peer is given the same polynomial.
#include <gsl/gsl_poly.h>

#include <algorithm>
#include <complex>
#include <limits>
#include <memory>
#include <string>
#include <vector>

#include "families.h"
#include "rows.h"
#include "support/samples.h"

namespace trelvanix::bench
{
namespace
{

// n + 1 coefficients, highest power first.
std::vector<double> Coefficients(std::size_t degree)
{
    std::vector<double> c = trelvanix::testing::Samples(4).Plain(degree + 1);
    c.front() = 1.0;
    c.back() = 1.0;
    return c;
}

LibraryArray RootsOf(const std::vector<double>& c)
{
    return LibraryArray(Roots(c.data(), static_cast<int>(c.size() - 1)));
}

// The largest distance from a root of ours to the nearest of theirs that no other root has taken. The
// roots of these polynomials lie near the unit circle.
double Distance(const double* ours, std::vector<double> theirs)
{
    double largest = 0.0;
    while (!theirs.empty()) {
        const std::complex<double> root(ours[0], ours[1]);
        std::size_t nearest = 0;
        double distance = std::numeric_limits<double>::infinity();
        for (std::size_t i = 0; i < theirs.size(); i += 2) {
            const double here = std::abs(root - std::complex<double>(theirs[i], theirs[i + 1]));
            if (here < distance) {
                distance = here;
                nearest = i;
            }
        }
        largest = std::max(largest, distance);
        const auto taken = theirs.begin() + static_cast<std::ptrdiff_t>(nearest);
        theirs.erase(taken, taken + 2);
        ours += 2;
    }
    return largest;
}

} // namespace

void AddPolynomials()
{
    for (const std::size_t degree : {25U, 50U, 100U, 200U, 400U}) {
        const std::string size = "degree " + std::to_string(degree);
        AddRow("Roots", size, ownSide,
               [degree] { return Subject{[c = Coefficients(degree)] { RootsOf(c); }}; });
        AddRow("Roots", size, "GSL", [degree] {
            const std::vector<double> c = Coefficients(degree);
            const std::vector<double> ascending(c.rbegin(), c.rend());
            const auto roots = std::make_shared<std::vector<double>>(2 * degree);
            const auto solve = [roots, ascending] {
                gsl_poly_complex_workspace* work = gsl_poly_complex_workspace_alloc(ascending.size());
                gsl_poly_complex_solve(ascending.data(), ascending.size(), work, roots->data());
                gsl_poly_complex_workspace_free(work);
            };
            // Such roots are known to about a thousand roundings at degree 400.
            const auto check = [roots, c] { return Within(1e-10, Distance(RootsOf(c).get(), *roots)); };
            return Subject{solve, check};
        });
    }
}

} // namespace trelvanix::bench
