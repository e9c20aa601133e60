#include "support/call_everything.h"

#include "support/samples.h"
#include "trelvanix.h"

namespace trelvanix::testing
{
namespace
{

constexpr int length = 256;
constexpr std::size_t doubleLength = 512;
constexpr int filterTypes = 4;

void Append(std::vector<double>& all, double* result, int count)
{
    all.insert(all.end(), result, result + count);
    ReleaseDoubleArray(result);
}

void AppendTransforms(std::vector<double>& all, const double* x)
{
    Append(all, DFT(x, 0, length), 2 * length);
    Append(all, FFT(x, 0, length - 56), 2 * (length - 56));
    Append(all, IFFT(x, 0, length), 2 * length);
    double spectrum[doubleLength];
    FFText(x, length, length, spectrum, spectrum + length);
    all.insert(all.end(), spectrum, spectrum + doubleLength);
}

void AppendFirDesigns(std::vector<double>& all)
{
    for (int windowType = 0; windowType <= 14; ++windowType) {
        for (const int order : {29, 30}) {
            Append(all, CreateFirByWindow(order, windowType % 4, windowType, 0.3, 0.6), order + 1);
            Append(all, CreateFirByFS(order, windowType % 4, windowType, 0.3, 0.6), order + 1);
        }
    }
    for (int filterType = 0; filterType < filterTypes; ++filterType) {
        for (const int order : {1, 2, 29, 30})
            Append(all, CreateFirByRemez(order, filterType, 0.3, 0.6), order + 1);
        double dev[] = {0.01, 0.02, 0.01};
        int order = 0;
        double* taps =
            CreateFirByRemezord(filterType, 0.2, 0.3, 0.6, 0.7, dev, filterType < 2 ? 2 : 3, &order);
        Append(all, taps, order + 1);
    }
}

void AppendIirDesigns(std::vector<double>& all)
{
    for (int filterType = 0; filterType < filterTypes; ++filterType) {
        const auto type = static_cast<unsigned int>(filterType);
        for (int order = 0; order <= 9; ++order) {
            const auto count = static_cast<std::size_t>(filterType < 2 ? order : 2 * order) + 1;
            for (int family = 0; family < 5; ++family) {
                std::vector<double> a(count), b(count);
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

void AppendMinimumOrders(std::vector<double>& all)
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
    CallInputs inputs{samples.Plain(doubleLength), samples.Plain(5), samples.Plain(5)};
    for (double& value : inputs.a)
        value *= 0.1;
    return inputs;
}

std::vector<double> CallEverything(const CallInputs& inputs)
{
    const double* x = inputs.x.data();
    const double* b = inputs.b.data();
    const double* a = inputs.a.data();
    std::vector<double> all;
    AppendTransforms(all, x);
    Append(all, Filter(x, b, nullptr, 2 * length, 5), 2 * length);
    Append(all, FirFilterToSignal(x, b, 2 * length, 5), 2 * length);
    Append(all, IirFilterToSignal(x, b, a, 2 * length, 5), 2 * length);
    Append(all, Roots(x, 50), 100);
    AppendFirDesigns(all);
    AppendIirDesigns(all);
    AppendMinimumOrders(all);
    return all;
}

} // namespace trelvanix::testing
