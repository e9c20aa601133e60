#include <gtest/gtest.h>

#include <thread>
#include <vector>

#include "trelvanix.h"

namespace
{

TEST(Release, AnswersZeroForNull)
{
    EXPECT_EQ(ReleaseDoubleArray(nullptr), 0);
    EXPECT_EQ(ReleaseComplexDoubleArray(nullptr), 0);
}

TEST(Release, AnswersOneForEveryKindOfResult)
{
    const double x[] = {1.0, 2.0, 3.0, 4.0};
    EXPECT_EQ(ReleaseComplexDoubleArray(DFT(x, 0, 2)), 1);
    EXPECT_EQ(ReleaseComplexDoubleArray(FFT(x, 0, 2)), 1);
    EXPECT_EQ(ReleaseComplexDoubleArray(IFFT(x, 0, 2)), 1);
    EXPECT_EQ(ReleaseDoubleArray(Filter(x, x, x, 4, 2)), 1);
    EXPECT_EQ(ReleaseDoubleArray(FirFilterToSignal(x, x, 4, 2)), 1);
    EXPECT_EQ(ReleaseDoubleArray(IirFilterToSignal(x, x, x, 4, 2)), 1);
    EXPECT_EQ(ReleaseComplexDoubleArray(Roots(x, 3)), 1);
    EXPECT_EQ(ReleaseDoubleArray(CreateFirByWindow(4, 0, 0, 0.5, 0.5)), 1);
    EXPECT_EQ(ReleaseDoubleArray(CreateFirByFS(4, 0, 0, 0.3, 0.5)), 1);
    EXPECT_EQ(ReleaseDoubleArray(CreateFirByRemez(4, 0, 0.3, 0.5)), 1);
    double dev[] = {0.1, 0.1};
    int order = 0;
    EXPECT_EQ(ReleaseDoubleArray(CreateFirByRemezord(0, 0.3, 0.5, 0, 0, dev, 2, &order)), 1);
    EXPECT_EQ(ReleaseDoubleArray(FirFilterToSignal(x, x, 0, 2)), 1);
    EXPECT_EQ(ReleaseDoubleArray(CreateFirByRemez(-1, 0, 0.3, 0.5)), 1);
    EXPECT_EQ(ReleaseComplexDoubleArray(Roots(x, 0)), 1);
    EXPECT_EQ(ReleaseComplexDoubleArray(FFT(x, 0, 0)), 1);
}

TEST(Release, TakesEitherKindByEitherName)
{
    const double x[] = {1.0, 2.0};
    EXPECT_EQ(ReleaseDoubleArray(FFT(x, 0, 1)), 1);
    EXPECT_EQ(ReleaseComplexDoubleArray(CreateFirByWindow(4, 0, 0, 0.5, 0.5)), 1);
}

TEST(Release, WorksFromAnotherThreadAndInAnyOrder)
{
    std::vector<double*> results;
    for (int order = 1; order <= 50; ++order)
        results.push_back(CreateFirByWindow(order, 0, 2, 0.5, 0.5));
    int released = 0;
    std::thread([&] {
        for (std::size_t i = 0; i < results.size(); i += 2)
            released += ReleaseDoubleArray(results[i]);
        for (std::size_t i = results.size(); i-- > 0;) {
            if (i % 2 == 1)
                released += ReleaseDoubleArray(results[i]);
        }
    }).join();
    EXPECT_EQ(released, 50);
}

} // namespace
