#ifndef TRELVANIX_FIR_ERROR_TABLE_H
#define TRELVANIX_FIR_ERROR_TABLE_H

#include <cstddef>
#include <vector>

namespace trelvanix
{

// The dense grid as the exchange reads it: cosines of the frequencies, scaled values and weights.
struct CosineGrid {
    const double* cosine;
    const double* desired;
    const double* weight;
    int count;
};

// The trial approximation: the polynomial in the cosine whose weighted error is deviation, with
// alternating signs, at the extrema of the moment. Barycentric Lagrange form.
struct Interpolant {
    std::vector<double> x;  // cosines of the extremal frequencies
    std::vector<double> ad; // Lagrange weights
    std::vector<double> y;  // values at x
    double deviation;       // size of the error, >= 0
    double nu;              // sign of the error at the lowest extremum
};

// The polynomial at count cosines, in place. At a node itself the value is not a number.
void EvaluateInterpolant(const Interpolant& p, double* cosines, int count);

// The weighted errors of the interpolation on the grid. A sweep looks at few of them, each time going on
// from what it sees; but a vector of them takes hardly longer than one. So they are evaluated ahead of
// the sweep: the neighbours of all extrema, where it looks first, then, two points a round, the ways up
// from those that are larger. What it asks for besides comes in blocks. Which errors are evaluated never
// shows in a result.
//
// Grid and interpolation have to outlive the table's use. Errors: std::length_error, std::bad_alloc.
class ErrorTable
{
public:
    explicit ErrorTable(const CosineGrid& dense);

    // Forgets all errors: from now on they are those of p, which a sweep over iext, points of the grid in
    // ascending order, asks for.
    void Start(const Interpolant& p, const std::vector<int>& iext);

    // The error at a point of the grid, for somebody on the way in steps of +1 or -1.
    double At(int point, int step)
    {
        if (!IsKnown(point))
            EvaluateBlock(point, step);
        return Error(point);
    }

private:
    // The way up from an extremum of one sign: the last improving point and its error's size.
    struct Climb {
        int point;
        int step;
        double sign;
        double size;
    };

    bool Advance(Climb& climb);
    void FollowClimbs(const std::vector<int>& iext);
    void EvaluateBlock(int point, int step);
    void Request(int point);
    void EvaluateRequested();

    bool IsOnGrid(int point) const
    {
        return point >= 0 && point < grid.count;
    }

    double& Error(int point)
    {
        return errors[static_cast<std::size_t>(point)];
    }

    bool IsKnown(int point) const
    {
        return isKnown[static_cast<std::size_t>(point)] != 0;
    }

    const CosineGrid& grid;
    const Interpolant* interpolant = nullptr;
    std::vector<double> errors;
    std::vector<char> isKnown;
    std::vector<int> requested;
    std::vector<double> values; // cosines of the requested points, then the values there
    std::vector<Climb> climbs;
};

} // namespace trelvanix

#endif
