#include "support/call_everything.h"

#include <array>

#include "support/samples.h"
#include "trelvanix.h"

namespace trelvanix::testing
{
namespace
{

constexpr int sampleCount = 8192;
constexpr int coefficientCount = 70;
constexpr int filterTypes = 4;

using Results = std::vector<double>;

void Append(Results& all, double* result, int count)
{
    all.insert(all.end(), result, result + count);
    ReleaseDoubleArray(result);
}

void AppendComplex(Results& all, double* result, int count)
{
    all.insert(all.end(), result, result + 2 * static_cast<std::ptrdiff_t>(count));
    ReleaseComplexDoubleArray(result);
}

void AppendTransforms(Results& all, const CallInputs& inputs)
{
    const double* x = inputs.x.data();
    for (const int n : {1, 2, 8, 200, 256, 2048, 3000, 4096}) {
        AppendComplex(all, DFT(x, 0, n), n);
        AppendComplex(all, FFT(x, 0, n), n);
        AppendComplex(all, IFFT(x, 0, n), n);
    }
}

void AppendExtendedTransforms(Results& all, const CallInputs& inputs)
{
    for (const int n : {4, 200, 1024, 8192}) {
        Results real(static_cast<std::size_t>(n)), imaginary(static_cast<std::size_t>(n));
        FFText(inputs.x.data(), 1000, n, real.data(), imaginary.data());
        all.insert(all.end(), real.begin(), real.end());
        all.insert(all.end(), imaginary.begin(), imaginary.end());
    }
}

void AppendFiltered(Results& all, const CallInputs& inputs)
{
    const double* x = inputs.x.data();
    const double* b = inputs.b.data();
    const double* a = inputs.a.data();
    for (const int count : {1, 3, 5, 13, 32, coefficientCount}) {
        for (const int length : {40, 1001}) {
            Append(all, Filter(x, b, nullptr, length, count), length);
            Append(all, Filter(x, b, a, length, count), length);
            Append(all, FirFilterToSignal(x, b, length, count), length);
            Append(all, IirFilterToSignal(x, b, a, length, count), length);
        }
    }
}

void AppendRoots(Results& all, const CallInputs& inputs)
{
    for (const int n : {1, 2, 9, 50, 80})
        AppendComplex(all, Roots(inputs.x.data(), n), n);
}

void AppendFirDesigns(Results& all, const CallInputs& /*inputs*/)
{
    for (int windowType = 0; windowType <= 14; ++windowType) {
        for (const int order : {29, 30, 501}) {
            Append(all, CreateFirByWindow(order, windowType % 4, windowType, 0.3, 0.6), order + 1);
            Append(all, CreateFirByFS(order, windowType % 4, windowType, 0.3, 0.6), order + 1);
        }
    }
    for (int filterType = 0; filterType < filterTypes; ++filterType) {
        for (const int order : {1, 2, 29, 30, 120})
            Append(all, CreateFirByRemez(order, filterType, 0.3, 0.6), order + 1);
        double dev[] = {0.01, 0.02, 0.01};
        int order = 0;
        double* taps =
            CreateFirByRemezord(filterType, 0.2, 0.3, 0.6, 0.7, dev, filterType < 2 ? 2 : 3, &order);
        Append(all, taps, order + 1);
    }
}

void AppendIirDesigns(Results& all, const CallInputs& /*inputs*/)
{
    for (int filterType = 0; filterType < filterTypes; ++filterType) {
        const auto type = static_cast<unsigned int>(filterType);
        for (int order = 0; order <= 12; ++order) {
            const auto count = static_cast<std::size_t>(filterType < 2 ? order : 2 * order) + 1;
            for (int family = 0; family < 5; ++family) {
                Results a(count), b(count);
                double wn[] = {0.3, 0.6};
                if (family == 0)
                    Butterworth(order, wn, type, 0, a.data(), b.data());
                else if (family == 1)
                    Chebyshv1(order, 0.5, wn, type, 0, a.data(), b.data());
                else if (family == 2)
                    Chebyshv2(order, 40.0, wn, type, 0, a.data(), b.data());
                else if (family == 3)
                    Elliptic(order, 0.5, 40.0, wn, type, 0, a.data(), b.data());
                else
                    Bessel(order, wn, filterType, a.data(), b.data());
                all.insert(all.end(), a.begin(), a.end());
                all.insert(all.end(), b.begin(), b.end());
            }
        }
    }
}

void AppendMinimumOrders(Results& all, const CallInputs& /*inputs*/)
{
    const double edges[][4] = {{0.2, 0.3}, {0.3, 0.2}, {0.2, 0.5, 0.1, 0.6}, {0.1, 0.7, 0.3, 0.5}};
    for (int kind = 0; kind < 4; ++kind) {
        for (int family = 0; family < 5; ++family) {
            int order = 0;
            double wn[2] = {};
            FilterMinimumOrder(family, edges[kind], kind < 2 ? 2 : 4, 1.0, 40.0, &order, wn);
            all.insert(all.end(), {static_cast<double>(order), wn[0], wn[1]});
        }
    }
}

} // namespace

CallInputs MakeCallInputs()
{
    Samples samples(40);
    CallInputs inputs{samples.Plain(sampleCount), samples.Plain(coefficientCount),
                      samples.Plain(coefficientCount)};
    // Small enough for every recursion to be stable.
    for (double& value : inputs.a)
        value *= 1.0 / coefficientCount;
    return inputs;
}

std::vector<double> CallEverything(const CallInputs& inputs, int firstGroup)
{
    using Group = void (*)(Results&, const CallInputs&);
    constexpr std::array<Group, callGroups> groups = {
        AppendTransforms, AppendExtendedTransforms, AppendFiltered,     AppendRoots,
        AppendFirDesigns, AppendIirDesigns,         AppendMinimumOrders};
    std::array<Results, callGroups> results;
    for (int i = 0; i < callGroups; ++i) {
        const auto group = static_cast<std::size_t>((firstGroup + i) % callGroups);
        groups[group](results[group], inputs);
    }
    Results all;
    for (const Results& part : results)
        all.insert(all.end(), part.begin(), part.end());
    return all;
}

} // namespace trelvanix::testing
