#include <gtest/gtest.h>

#include <atomic>
#include <cstring>
#include <thread>
#include <vector>

#include "support/samples.h"
#include "trelvanix.h"

namespace
{

using trelvanix::testing::Samples;

constexpr int length = 256;
constexpr std::size_t doubleLength = 512;

struct Inputs {
    std::vector<double> x, b, a;
};

void Append(std::vector<double>& all, double* result, int count)
{
    all.insert(all.end(), result, result + count);
    ReleaseDoubleArray(result);
}

// One call of every function that computes something, the results one after the other.
std::vector<double> CallEverything(const Inputs& inputs)
{
    const double* x = inputs.x.data();
    const double* b = inputs.b.data();
    const double* a = inputs.a.data();
    std::vector<double> all;
    Append(all, DFT(x, 0, length), 2 * length);
    Append(all, FFT(x, 0, length), 2 * length);
    Append(all, IFFT(x, 0, length), 2 * length);
    double spectrum[doubleLength];
    FFText(x, length, length, spectrum, spectrum + length);
    all.insert(all.end(), spectrum, spectrum + doubleLength);
    Append(all, Filter(x, b, nullptr, 2 * length, 5), 2 * length);
    Append(all, FirFilterToSignal(x, b, 2 * length, 5), 2 * length);
    Append(all, IirFilterToSignal(x, b, a, 2 * length, 5), 2 * length);
    for (int windowType = 0; windowType <= 14; ++windowType)
        Append(all, CreateFirByWindow(30, windowType % 4, windowType, 0.3, 0.6), 31);
    return all;
}

TEST(Concurrency, EveryThreadGetsTheBitsOfASingleOne)
{
    Samples samples(40);
    Inputs inputs{samples.Plain(doubleLength), samples.Plain(5), samples.Plain(5)};
    for (double& value : inputs.a)
        value *= 0.1;
    const std::vector<double> expected = CallEverything(inputs);

    std::atomic<int> equal = 0;
    std::vector<std::thread> threads;
    constexpr int threadCount = 8;
    constexpr int rounds = 20;
    threads.reserve(threadCount);
    for (int t = 0; t < threadCount; ++t) {
        threads.emplace_back([&] {
            for (int round = 0; round < rounds; ++round) {
                const std::vector<double> got = CallEverything(inputs);
                if (got.size() == expected.size() &&
                    std::memcmp(got.data(), expected.data(), got.size() * sizeof(double)) == 0)
                    ++equal;
            }
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(equal, threadCount * rounds);
}

} // namespace
