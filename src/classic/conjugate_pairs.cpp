#include "classic/conjugate_pairs.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace trelvanix
{
namespace
{

constexpr double tolerance = 2.2204e-16;

// Whether a has to stand before b.
bool Precedes(Complex a, Complex b)
{
    if (std::fabs(a.real() - b.real()) > tolerance)
        return a.real() < b.real();
    if (std::fabs(std::fabs(a.imag()) - std::fabs(b.imag())) > tolerance)
        return std::fabs(a.imag()) > std::fabs(b.imag());
    return a.imag() < 0.0 && b.imag() >= 0.0;
}

// By insertion, because the order is none that the standard sorts allow: equality within a tolerance
// is not transitive, and not-a-number is equal to all. The result is the same with every library.
void Sort(std::vector<Complex>& values)
{
    for (auto next = values.begin(); next != values.end(); ++next) {
        auto place = next;
        while (place != values.begin() && Precedes(*next, *std::prev(place)))
            --place;
        std::rotate(place, next, std::next(next));
    }
}

bool IsReal(Complex value)
{
    return std::fabs(value.imag()) < tolerance;
}

// Whether the real value changes places with a later one.
bool MovesBehind(Complex real, Complex later)
{
    return !IsReal(later) || later.real() > std::fabs(real.real()) ||
           (std::fabs(real.real() - later.real()) < tolerance && later.real() < tolerance);
}

} // namespace

void PairConjugates(std::vector<Complex>& values)
{
    Sort(values);
    for (auto value = values.begin(); value != values.end(); ++value) {
        if (!IsReal(*value))
            continue;
        const auto later = std::find_if(std::next(value), values.end(),
                                        [&](Complex other) { return MovesBehind(*value, other); });
        if (later != values.end())
            std::iter_swap(value, later);
    }
}

} // namespace trelvanix
