#include <gtest/gtest.h>

#include <functional>
#include <new>
#include <stdexcept>
#include <string>

#include "trelvanix.h"

#if defined(__linux__) && !defined(TRELVANIX_SANITIZED)
#include <sys/resource.h>

#include <cstdlib>
#endif

namespace
{

// What leaves a call into the shared library, with its message, as a host catches it.
template <class Exception>
std::string MessageOf(const std::function<void()>& call)
{
    try {
        call();
    } catch (const Exception& exception) {
        return exception.what();
    }
    return "no exception";
}

// An equiripple design whose transition starts at 0.4 and ends at f2.
void DesignByDeviations(int filterType, double f2, int ndev)
{
    double dev[] = {0.01, 0.01, 0.01};
    int order = 0;
    ReleaseDoubleArray(CreateFirByRemezord(filterType, 0.4, f2, 0.6, 0.7, dev, ndev, &order));
}

TEST(Exceptions, OfArgumentChecksReachTheHostWithTheirMessage)
{
    using Error = std::invalid_argument;
    EXPECT_EQ(MessageOf<Error>([] { CreateFirByWindow(10, 0, 15, 0.5, 0.5); }),
              "windowType should be '0-14'.(Rectangle 0,Hann 1,Hamming 2,Blackman 3,Flattop 4,Kaiser 5,"
              "Gaussian 6,Triang 7,Bartlett 8,Bartlett-Hann 9,Blackman-Harris(Symmetric) 10,"
              "Blackman-Harris(Periodic) 11,Parzen 12,Nuttall(Symmetric) 13,Nuttall(Periodic) 14)");
    EXPECT_EQ(MessageOf<Error>([] { CreateFirByWindow(10, 4, 0, 0.5, 0.5); }),
              "filterType should be '0-3'.(LowPass 0, HighPass 1,BandPass 2,BandStop 3)");
    EXPECT_EQ(MessageOf<Error>([] { CreateFirByWindow(0, 0, 0, 0.5, 0.5); }), "Order should be '>=1'");
    EXPECT_EQ(MessageOf<Error>([] { CreateFirByWindow(10, 0, 0, 1.0, 0.5); }), "wc1 should be '(0,1)'");
    EXPECT_EQ(MessageOf<Error>([] { CreateFirByWindow(10, 0, 0, 0.5, 1.0); }),
              "wc2 should be  '(0,1)'");
    EXPECT_EQ(MessageOf<Error>([] { CreateFirByFS(0, 0, 15, 0.2, 0.3); }), "Order should be '>=1'");
    EXPECT_EQ(MessageOf<Error>([] { CreateFirByFS(10, 0, 0, 0.2, 0.0); }),
              "wc2 should not be '0' when wc1 is not '0'");
    EXPECT_EQ(MessageOf<Error>([] { CreateFirByRemez(10, 0, 0.2, 0.0); }),
              "wc2 should not be '0' when wc1 is not '0'");
    EXPECT_EQ(MessageOf<Error>([] { DesignByDeviations(4, 0.5, 2); }), "Undefined filter types");
    EXPECT_EQ(
        MessageOf<Error>([] { DesignByDeviations(0, 0.5, 3); }),
        "Remezord Parameter Error: LowPass or  HighPass maximum allowable deviation length 'ndev' "
        "should be 2 ");
    EXPECT_EQ(
        MessageOf<Error>([] { DesignByDeviations(2, 0.5, 2); }),
        "Remezord Parameter Error: BandPass or BandStop maximum allowable deviation length 'ndev' "
        "should be 3 ");
    EXPECT_EQ(MessageOf<Error>([] { DesignByDeviations(0, 0.4, 2); }),
              "Remezord Parameter Error: the transition edges and deviations give no finite order ");
}

TEST(Exceptions, OfNegativeCountsReachTheHost)
{
    const double one[] = {1.0, 0.0};
    double out[1];
    EXPECT_THROW(DFT(one, 0, -1), std::bad_array_new_length);
    EXPECT_THROW(FFT(one, 0, -1), std::bad_array_new_length);
    EXPECT_THROW(IFFT(one, 0, -1), std::bad_array_new_length);
    EXPECT_THROW(FFText(one, 1, -1, out, out), std::bad_array_new_length);
    EXPECT_THROW(Filter(one, one, nullptr, -1, 1), std::bad_array_new_length);
    EXPECT_THROW(Filter(one, one, one, -1, 1), std::bad_array_new_length);
    EXPECT_THROW(FirFilterToSignal(one, one, 1, -1), std::bad_array_new_length);
    EXPECT_THROW(IirFilterToSignal(one, one, one, 1, -1), std::bad_array_new_length);
    EXPECT_THROW(Roots(one, -1), std::bad_array_new_length);
    EXPECT_THROW(CreateFirByRemez(-2, 0, 0.2, 0.3), std::bad_array_new_length);
    double edges[] = {0.2, 0.4};
    EXPECT_THROW(Butterworth(-1, edges, 0, 0, out, out), std::bad_array_new_length);
    EXPECT_THROW(Chebyshv1(-1, 1.0, edges, 0, 0, out, out), std::bad_array_new_length);
    EXPECT_THROW(Chebyshv2(-1, 40.0, edges, 0, 0, out, out), std::bad_array_new_length);
    EXPECT_THROW(Bessel(-1, edges, 0, out, out), std::bad_array_new_length);
}

// The sanitizers reserve terabytes of addresses, which leaves no room for a limit.
#if defined(__linux__) && !defined(TRELVANIX_SANITIZED)
TEST(ExceptionsDeathTest, OfExhaustedMemoryReachTheHost)
{
    const auto designBeyondTheLimit = [] {
        const rlimit limit = {1U << 28, 1U << 28};
        setrlimit(RLIMIT_AS, &limit);
        try {
            ReleaseDoubleArray(CreateFirByWindow(100000000, 0, 0, 0.5, 0.5));
        } catch (const std::bad_array_new_length&) {
            std::_Exit(1);
        } catch (const std::bad_alloc&) {
            std::_Exit(42);
        }
        std::_Exit(2);
    };
    EXPECT_EXIT(designBeyondTheLimit(), ::testing::ExitedWithCode(42), "");
}
#endif

TEST(Exceptions, OfAGridTooLargeReachTheHost)
{
    EXPECT_EQ(MessageOf<std::length_error>([] { CreateFirByRemez(10, 2, -1e9, 1e9); }),
              "vector too long");
}

} // namespace
