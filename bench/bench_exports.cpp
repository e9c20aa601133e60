// Times of the exported functions, as a host sees them: result arrays allocated and released in each
// call.
#include <benchmark/benchmark.h>

#include <cstdint>
#include <vector>

#include "trelvanix.h"

namespace
{

std::vector<double> Ramp(std::int64_t count)
{
    std::vector<double> values(static_cast<std::size_t>(count));
    for (std::size_t i = 0; i < values.size(); ++i)
        values[i] = static_cast<double>(i % 17) / 17.0 - 0.5;
    return values;
}

void BenchFft(benchmark::State& state)
{
    const std::vector<double> input = Ramp(2 * state.range(0));
    for ([[maybe_unused]] auto _ : state)
        ReleaseComplexDoubleArray(FFT(input.data(), 0, static_cast<int>(state.range(0))));
}
BENCHMARK(BenchFft)->Name("FFT")->RangeMultiplier(4)->Range(1 << 4, 1 << 20);

constexpr int signalLength = 100000;

void BenchFir(benchmark::State& state)
{
    const std::vector<double> signal = Ramp(signalLength);
    const std::vector<double> taps = Ramp(state.range(0));
    for ([[maybe_unused]] auto _ : state) {
        ReleaseDoubleArray(FirFilterToSignal(signal.data(), taps.data(), signalLength,
                                             static_cast<int>(state.range(0))));
    }
    state.SetItemsProcessed(state.iterations() * signalLength);
}
BENCHMARK(BenchFir)->Name("FirFilterToSignal/taps")->Arg(16)->Arg(64)->Arg(256)->Arg(1024);

void BenchIir(benchmark::State& state)
{
    const std::vector<double> signal = Ramp(signalLength);
    const std::vector<double> b = Ramp(state.range(0));
    std::vector<double> a = b;
    for (double& value : a)
        value /= static_cast<double>(state.range(0));
    for ([[maybe_unused]] auto _ : state) {
        ReleaseDoubleArray(IirFilterToSignal(signal.data(), b.data(), a.data(), signalLength,
                                             static_cast<int>(state.range(0))));
    }
    state.SetItemsProcessed(state.iterations() * signalLength);
}
BENCHMARK(BenchIir)->Name("IirFilterToSignal/coefficients")->Arg(3)->Arg(5)->Arg(9)->Arg(17);

void BenchWindowedDesign(benchmark::State& state)
{
    constexpr int lowpass = 0;
    for ([[maybe_unused]] auto _ : state) {
        ReleaseDoubleArray(CreateFirByWindow(static_cast<int>(state.range(1)), lowpass,
                                             static_cast<int>(state.range(0)), 0.3, 0.5));
    }
}
BENCHMARK(BenchWindowedDesign)
    ->Name("CreateFirByWindow/window/order")
    ->ArgsProduct({{2, 5}, {100, 1000}});

} // namespace
