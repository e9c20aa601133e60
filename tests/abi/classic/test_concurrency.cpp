#include <gtest/gtest.h>

#include <atomic>
#include <cstring>
#include <thread>
#include <vector>

#include "support/call_everything.h"

namespace
{

using trelvanix::testing::CallEverything;

// All threads read the same inputs; each starts with another group of calls, so that different functions
// run beside each other. A long run: --gtest_filter=Concurrency.* --gtest_repeat=1000
TEST(Concurrency, EveryThreadGetsTheBitsOfASingleOne)
{
    const auto inputs = trelvanix::testing::MakeCallInputs();
    const std::vector<double> expected = CallEverything(inputs);

    std::atomic<int> equal = 0;
    std::vector<std::thread> threads;
    constexpr int threadCount = 8;
    constexpr int rounds = 3;
    threads.reserve(threadCount);
    for (int t = 0; t < threadCount; ++t) {
        threads.emplace_back([&, t] {
            for (int round = 0; round < rounds; ++round) {
                const std::vector<double> got = CallEverything(inputs, t + round);
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
