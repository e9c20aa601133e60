// FIR and IIR filtering of a million samples.
#include <liquid/liquid.h>

#include <array>
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
    std::vector<float> single;
    for (const double value : values)
        single.push_back(static_cast<float>(value));
    return single;
}

std::vector<double> Double(const std::vector<float>& values)
{
    return {values.begin(), values.end()};
}

// Filters of liquid-dsp exist in single precision alone. Some 2e-7 for each of up to a thousand roundings
// whose errors mostly cancel, against the largest output.
constexpr double singleTolerance = 1e-5;

void AddFir(std::size_t tapCount)
{
    const std::string size = std::to_string(tapCount) + " taps";
    AddRow("FIR", size, ownSide, [tapCount](benchmark::State& state) {
        const std::vector<double> signal = Signal(), taps = Taps(tapCount);
        Measure(state, [&] { Filtered(signal, taps); });
    });
    AddRow("FIR", size, plainSide, [tapCount](benchmark::State& state) {
        const std::vector<double> signal = Signal(), taps = Taps(tapCount);
        const LibraryArray filtered = Filtered(signal, taps);
        MeasurePlain(state, filtered.get(),
                     [&] { return trelvanix::testing::PlainFirFilter(signal, taps); });
    });
    AddRow("FIR", size, "liquid-dsp, single precision", [tapCount](benchmark::State& state) {
        const std::vector<double> signal = Signal(), taps = Taps(tapCount);
        std::vector<float> x = Single(signal), y(signalLength);
        // liquid-dsp puts the first tap on the newest sample, Trelvanix the last one.
        std::vector<float> h = Single({taps.rbegin(), taps.rend()});
        const auto filter = [&] {
            firfilt_rrrf q = firfilt_rrrf_create(h.data(), static_cast<unsigned int>(tapCount));
            firfilt_rrrf_execute_block(q, x.data(), signalLength, y.data());
            firfilt_rrrf_destroy(q);
        };
        filter();
        if (Agrees(state, Filtered(signal, taps).get(), Double(y).data(), signalLength,
                   singleTolerance))
            Measure(state, filter);
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
    AddRow("IIR", size, ownSide, [](benchmark::State& state) {
        const std::vector<double> signal = Signal(), b = Taps(count), a = Denominator(count);
        Measure(state, [&] { Filtered(signal, b, a); });
    });
    AddRow("IIR", size, "dependent chain", [](benchmark::State& state) {
        const std::vector<double> forward = Signal();
        std::array<double, count> older{};
        for (std::size_t k = 0; k < count; ++k)
            older[k] = Denominator(count)[k];
        Measure(state, [&] {
            benchmark::DoNotOptimize(older);
            double y = DependentChain<count>(forward, 0.5, older);
            benchmark::DoNotOptimize(y);
        });
    });
    AddRow("IIR", size, plainSide, [](benchmark::State& state) {
        const std::vector<double> signal = Signal(), b = Taps(count), a = Denominator(count);
        const LibraryArray filtered = Filtered(signal, b, a);
        MeasurePlain(state, filtered.get(),
                     [&] { return trelvanix::testing::PlainIirFilter(signal, b, a); });
    });
    AddRow("IIR", size, "liquid-dsp, single precision", [](benchmark::State& state) {
        const std::vector<double> signal = Signal(), b = Taps(count), a = Denominator(count);
        std::vector<float> x = Single(signal), y(signalLength), numerator = Single(b),
                           denominator = Single(a);
        const auto filter = [&] {
            iirfilt_rrrf q = iirfilt_rrrf_create(numerator.data(), count, denominator.data(), count);
            iirfilt_rrrf_execute_block(q, x.data(), signalLength, y.data());
            iirfilt_rrrf_destroy(q);
        };
        filter();
        if (Agrees(state, Filtered(signal, b, a).get(), Double(y).data(), signalLength,
                   singleTolerance))
            Measure(state, filter);
    });
}

} // namespace

void AddFilters()
{
    for (const std::size_t tapCount : {16, 64, 256, 1024})
        AddFir(tapCount);
    AddIir<3>();
    AddIir<5>();
    AddIir<9>();
    AddIir<17>();
}

} // namespace trelvanix::bench
