#include "fir/error_table.h"

#include <algorithm>

#include "common/instruction_set.h"
#include "common/work_array.h"
#include "fir/remez_kernel.h"

namespace trelvanix
{

void EvaluateInterpolant(const Interpolant& p, double* cosines, int count)
{
    KernelsFor<RemezKernels>(BestInstructionSet())
        .interpolate(p.x.data(), p.ad.data(), p.y.data(), static_cast<int>(p.x.size()), cosines, count,
                     cosines);
}

ErrorTable::ErrorTable(const CosineGrid& dense)
    : grid(dense), errors(NewWorkArray<double>(dense.count)), isKnown(NewWorkArray<char>(dense.count))
{
}

void ErrorTable::Start(const Interpolant& p, const std::vector<int>& iext)
{
    interpolant = &p;
    std::fill(isKnown.begin(), isKnown.end(), char{0});
    for (const int extremum : iext) {
        Request(extremum - 1);
        Request(extremum + 1);
    }
    EvaluateRequested();
    FollowClimbs(iext);
}

// To the next point, if it is known to improve.
bool ErrorTable::Advance(Climb& climb)
{
    const int next = climb.point + climb.step;
    if (!IsOnGrid(next) || !IsKnown(next))
        return false;
    const double size = climb.sign * Error(next);
    if (!(size - climb.size > 0.0))
        return false;
    climb.point = next;
    climb.size = size;
    return true;
}

void ErrorTable::FollowClimbs(const std::vector<int>& iext)
{
    double sign = interpolant->nu;
    for (const int extremum : iext) {
        Climb up = {extremum, +1, sign, interpolant->deviation};
        Climb down = {extremum, -1, sign, interpolant->deviation};
        if (Advance(up))
            climbs.push_back(up);
        else if (Advance(down))
            climbs.push_back(down);
        sign = -sign;
    }
    while (!climbs.empty()) {
        for (const Climb& climb : climbs) {
            Request(climb.point + climb.step);
            Request(climb.point + 2 * climb.step);
        }
        EvaluateRequested();
        std::erase_if(climbs, [this](Climb& climb) { return !(Advance(climb) && Advance(climb)); });
    }
}

void ErrorTable::EvaluateBlock(int point, int step)
{
    constexpr int blockLength = 8;
    for (int ahead = 0; ahead < blockLength; ++ahead)
        Request(point + ahead * step);
    EvaluateRequested();
}

void ErrorTable::Request(int point)
{
    if (!IsOnGrid(point) || IsKnown(point))
        return;
    isKnown[static_cast<std::size_t>(point)] = 1;
    requested.push_back(point);
    values.push_back(grid.cosine[point]);
}

void ErrorTable::EvaluateRequested()
{
    EvaluateInterpolant(*interpolant, values.data(), static_cast<int>(values.size()));
    const double* value = values.data();
    for (const int point : requested)
        Error(point) = (*value++ - grid.desired[point]) * grid.weight[point];
    requested.clear();
    values.clear();
}

} // namespace trelvanix
