#include "classic/edge_preparation.h"

#include <cmath>
#include <new>

#include "common/constants.h"
#include "math/trigonometric.h"

namespace trelvanix
{
namespace
{

bool IsBandType(FilterType filterType)
{
    return filterType == FilterType::BandPass || filterType == FilterType::BandStop;
}

double Prewarp(double edge)
{
    return 4.0 * Tan(pi * edge * 0.5);
}

PreparedEdges CentreAndWidth(double u0, double u1, double* wn)
{
    wn[0] = std::sqrt(u1 * u0);
    wn[1] = 0.0;
    return {wn[0], u1 - u0};
}

} // namespace

PreparedEdges PrepareEdges(double* wn, FilterType filterType, Domain domain)
{
    const bool analog = domain == Domain::analog;
    if (IsBandType(filterType))
        return analog ? CentreAndWidth(0.0, wn[1], wn)
                      : CentreAndWidth(Prewarp(wn[0]), Prewarp(wn[1]), wn);
    if (filterType != FilterType::LowPass && filterType != FilterType::HighPass)
        return {wn[0], 0.0};
    return {analog ? 0.0 : Prewarp(wn[0]), 0.0};
}

PreparedEdges PrepareAnalogEdges(double* wn, FilterType filterType)
{
    if (IsBandType(filterType))
        return CentreAndWidth(wn[0], wn[1], wn);
    return {wn[0], 0.0};
}

void CheckOrder(int order, FilterType filterType)
{
    constexpr int largestOrder = 46340;
    if (order < 0 || order > (IsBandType(filterType) ? largestOrder / 2 : largestOrder))
        throw std::bad_array_new_length();
}

} // namespace trelvanix
