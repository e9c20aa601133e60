#ifndef TRELVANIX_TESTS_SUPPORT_SAMPLES_H
#define TRELVANIX_TESTS_SUPPORT_SAMPLES_H

#include <array>
#include <cstddef>
#include <limits>
#include <random>
#include <vector>

namespace trelvanix::testing
{

// Reproducible test signals. The generator and the mapping to doubles are fixed by the C++ standard,
// the distributions of <random> are not, so they are not used.
class Samples
{
public:
    explicit Samples(std::uint32_t seed) : generator(seed)
    {
    }

    // Uniform in [-1, 1).
    double Next()
    {
        return static_cast<double>(generator()) / 2147483648.0 - 1.0;
    }

    int NextBelow(int limit)
    {
        return static_cast<int>(generator() % static_cast<std::uint32_t>(limit));
    }

    std::vector<double> Plain(std::size_t count)
    {
        std::vector<double> samples(count);
        for (double& sample : samples)
            sample = Next();
        return samples;
    }

    // Plain samples mixed with signed zeros, denormals, the largest double, infinities and
    // not-a-number.
    std::vector<double> Hostile(std::size_t count)
    {
        using Limits = std::numeric_limits<double>;
        constexpr std::array special = {0.0,
                                        -0.0,
                                        Limits::denorm_min(),
                                        -Limits::denorm_min(),
                                        Limits::min(),
                                        Limits::max(),
                                        -Limits::max(),
                                        Limits::infinity(),
                                        -Limits::infinity(),
                                        Limits::quiet_NaN()};
        std::vector<double> samples = Plain(count);
        for (double& sample : samples) {
            if (NextBelow(4) == 0)
                sample = special[static_cast<std::size_t>(NextBelow(special.size()))];
        }
        return samples;
    }

    // Plain samples mixed with signed zeros and denormals; sums of their products stay finite.
    std::vector<double> Tiny(std::size_t count)
    {
        using Limits = std::numeric_limits<double>;
        constexpr std::array special = {0.0, -0.0, Limits::denorm_min(), Limits::min(),
                                        -Limits::min() / 3.0};
        std::vector<double> samples = Plain(count);
        for (double& sample : samples) {
            if (NextBelow(3) != 0)
                sample = special[static_cast<std::size_t>(NextBelow(special.size()))];
        }
        return samples;
    }

    // Plain samples with one infinity or not-a-number among them.
    std::vector<double> OneHostile(std::size_t count)
    {
        using Limits = std::numeric_limits<double>;
        constexpr std::array special = {Limits::infinity(), -Limits::infinity(), Limits::quiet_NaN()};
        std::vector<double> samples = Plain(count);
        if (count > 0) {
            samples[static_cast<std::size_t>(NextBelow(static_cast<int>(count)))] =
                special[static_cast<std::size_t>(NextBelow(special.size()))];
        }
        return samples;
    }

private:
    std::mt19937 generator;
};

} // namespace trelvanix::testing

#endif
