// FIR and IIR filtering of a million samples.
#include <benchmark/benchmark.h>
#include <liquid/liquid.h>

#include <algorithm>
#include <array>
#include <memory>
#include <string>
#include <vector>

#include "families.h"
#include "rows.h"
#include "support/plain_kernels.h"
#include "support/samples.h"

namespace trelvanix::bench
{
namespace
{

using trelvanix::testing::Samples;

constexpr std::size_t signalLength = 1000000;

std::vector<double> Signal()
{
    return Samples(1).Plain(signalLength);
}

std::vector<double> Taps(std::size_t count)
{
    std::vector<double> taps = Samples(2).Plain(count);
    for (double& tap : taps)
        tap /= static_cast<double>(count);
    return taps;
}

// A denominator whose moduli behind the first add up to less than a half: far from any instability.
std::vector<double> Denominator(std::size_t count)
{
    std::vector<double> a = Samples(3).Plain(count);
    for (double& value : a)
        value *= 0.5 / static_cast<double>(count);
    a[0] = 1.0;
    return a;
}

LibraryArray Filtered(const std::vector<double>& signal, const std::vector<double>& taps)
{
    return LibraryArray(FirFilterToSignal(signal.data(), taps.data(), static_cast<int>(signal.size()),
                                          static_cast<int>(taps.size())));
}

LibraryArray Filtered(const std::vector<double>& signal, const std::vector<double>& b,
                      const std::vector<double>& a)
{
    return LibraryArray(IirFilterToSignal(signal.data(), b.data(), a.data(),
                                          static_cast<int>(signal.size()), static_cast<int>(b.size())));
}

std::vector<float> Single(const std::vector<double>& values)
{
    std::vector<float> single(values.size());
    std::ranges::transform(values, single.begin(),
                           [](double value) { return static_cast<float>(value); });
    return single;
}

std::vector<double> Double(const std::vector<float>& values)
{
    return {values.begin(), values.end()};
}

// Filters of liquid-dsp exist in single precision alone. Some 2e-7 for each of up to a thousand roundings
// whose errors mostly cancel, against the largest output.
constexpr double singleTolerance = 1e-5;
constexpr const char* liquidSide = "liquid-dsp, single precision";

void AddFir(std::size_t tapCount)
{
    const std::string size = std::to_string(tapCount) + " taps";
    AddRow("FIR", size, ownSide, [tapCount] {
        return Subject{[signal = Signal(), taps = Taps(tapCount)] { Filtered(signal, taps); }};
    });
    AddRow("FIR", size, plainSide, [tapCount] {
        const auto plain = std::make_shared<std::vector<double>>();
        const auto filter = [plain, signal = Signal(), taps = Taps(tapCount)] {
            *plain = trelvanix::testing::PlainFirFilter(signal, taps);
        };
        const auto check = [plain, tapCount] {
            return SameBits(Filtered(Signal(), Taps(tapCount)).get(), *plain);
        };
        return Subject{filter, check};
    });
    AddRow("FIR", size, liquidSide, [tapCount] {
        const std::vector<double> taps = Taps(tapCount);
        // liquid-dsp puts the first tap on the newest sample, Trelvanix the last one.
        const std::vector<double> reversed(taps.rbegin(), taps.rend());
        const auto y = std::make_shared<std::vector<float>>(signalLength);
        const auto filter = [y, x = Single(Signal()), h = Single(reversed)]() mutable {
            firfilt_rrrf q = firfilt_rrrf_create(h.data(), static_cast<unsigned int>(h.size()));
            firfilt_rrrf_execute_block(q, x.data(), signalLength, y->data());
            firfilt_rrrf_destroy(q);
        };
        const auto check = [y, taps] {
            const LibraryArray ours = Filtered(Signal(), taps);
            return Within(singleTolerance, ours.get(), Double(*y).data(), signalLength);
        };
        return Subject{filter, check};
    });
}

// What no order of evaluation can avoid: the newest output enters the next one through one product and
// then as many subtractions as there are denominator coefficients. The older terms are constants here.
template <int count>
double DependentChain(const std::vector<double>& forward, double newest,
                      const std::array<double, count>& older)
{
    double y = 0.0;
    for (const double sum : forward) {
        double next = sum - y * newest;
        for (int k = 2; k < count; ++k)
            next -= older[static_cast<std::size_t>(k)];
        y = next;
    }
    return y;
}

template <int count>
void AddIir()
{
    const std::string size = std::to_string(count) + " coefficients";
    AddRow("IIR", size, ownSide, [] {
        return Subject{
            [signal = Signal(), b = Taps(count), a = Denominator(count)] { Filtered(signal, b, a); }};
    });
    AddRow("IIR", size, "dependent chain", [] {
        std::array<double, count> older{};
        std::ranges::copy(Denominator(count), older.begin());
        return Subject{[forward = Signal(), older]() mutable {
            benchmark::DoNotOptimize(older);
            double y = DependentChain<count>(forward, 0.5, older);
            benchmark::DoNotOptimize(y);
        }};
    });
    AddRow("IIR", size, plainSide, [] {
        const auto plain = std::make_shared<std::vector<double>>();
        const auto filter = [plain, signal = Signal(), b = Taps(count), a = Denominator(count)] {
            *plain = trelvanix::testing::PlainIirFilter(signal, b, a);
        };
        const auto check = [plain] {
            return SameBits(Filtered(Signal(), Taps(count), Denominator(count)).get(), *plain);
        };
        return Subject{filter, check};
    });
    AddRow("IIR", size, liquidSide, [] {
        const auto y = std::make_shared<std::vector<float>>(signalLength);
        const auto filter = [y, x = Single(Signal()), b = Single(Taps(count)),
                             a = Single(Denominator(count))]() mutable {
            iirfilt_rrrf q = iirfilt_rrrf_create(b.data(), count, a.data(), count);
            iirfilt_rrrf_execute_block(q, x.data(), signalLength, y->data());
            iirfilt_rrrf_destroy(q);
        };
        const auto check = [y] {
            const LibraryArray ours = Filtered(Signal(), Taps(count), Denominator(count));
            return Within(singleTolerance, ours.get(), Double(*y).data(), signalLength);
        };
        return Subject{filter, check};
    });
}

} // namespace

void AddFilters()
{
    for (const std::size_t tapCount : {16U, 64U, 256U, 1024U})
        AddFir(tapCount);
    AddIir<3>();
    AddIir<5>();
    AddIir<9>();
    AddIir<17>();
}

} // namespace trelvanix::bench
