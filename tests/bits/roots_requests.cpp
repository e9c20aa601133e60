#include <limits>

#include "bits/subjects.h"

namespace trelvanix::bits
{
namespace
{

int Degree(int index, Generator& random)
{
    if (index % 32 == 31)
        return random.OneIn(2) ? 46341 : std::numeric_limits<int>::max();
    if (index % 16 == 15)
        return random.Between(30, 90);
    return random.Count(24);
}

// Kinds of coefficients that the iteration finds hard, beside arbitrary ones.
std::vector<double> Coefficients(int count, Generator& random)
{
    std::vector<double> c = random.Numbers(count);
    switch (random.Between(0, 7)) {
    case 0: // a polynomial in z^2
        for (std::size_t i = 1; i < c.size(); i += 2)
            c[i] = 0.0;
        break;
    case 1: // palindromic
        for (std::size_t i = 1; i < c.size(); ++i)
            c[c.size() - i] = c[i];
        break;
    case 2: // z^n + 1
        for (std::size_t i = 1; i < c.size(); ++i)
            c[i] = 0.0;
        break;
    case 3: // all the same: roots on the unit circle
        for (double& value : c)
            value = c[0];
        break;
    default:
        break;
    }
    return c;
}

void AnswerRoots(int index, Call& call)
{
    Generator& random = call.random;
    const int n = call.Argument("n", Degree(index, random));
    // Refused degrees read nothing.
    const int count = n < 0 || n > 46340 ? 0 : n;
    const std::vector<double> c = call.Argument("c", Coefficients(count, random));
    call.RunForArray([&] { return Roots(c.data(), n); }, [&] { return 2 * n; });
    call.Result("c", c);
}

} // namespace

std::vector<Subject> RootsSubjects()
{
    return {{"Roots", 1600, AnswerRoots}};
}

} // namespace trelvanix::bits
