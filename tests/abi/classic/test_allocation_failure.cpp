// Every exported function with its 1st, 2nd, 3rd ... allocation failing, until the call succeeds. The C
// heap's functions are replaced in this program, and with them those that the library and the C++
// runtime use.
#include <dlfcn.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <new>
#include <vector>

#include "trelvanix.h"

namespace
{

// While armed, the allocation that the countdown reaches fails, and live blocks are counted.
struct Heap {
    bool armed = false;
    long countdown = 0;
    long live = 0;
    bool failed = false;
};
thread_local Heap heap;

template <class Function>
Function* Original(const char* name)
{
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

// Whether this allocation has to fail.
bool Fails()
{
    if (!heap.armed)
        return false;
    if (--heap.countdown == 0) {
        heap.failed = true;
        errno = ENOMEM;
        return true;
    }
    return false;
}

void* Counted(void* memory)
{
    if (heap.armed && memory != nullptr)
        ++heap.live;
    return memory;
}

} // namespace

extern "C" {

void* malloc(std::size_t size)
{
    static auto* const original = Original<void*(std::size_t)>("malloc");
    return Fails() ? nullptr : Counted(original(size));
}

// The C library's dlsym calls calloc before the original is known, so it is reached by another name.
// NOLINTNEXTLINE(bugprone-reserved-identifier)
void* __libc_calloc(std::size_t count, std::size_t size);

// The system's header gives the parameters reserved names.
// NOLINTBEGIN(readability-inconsistent-declaration-parameter-name)
void* calloc(std::size_t count, std::size_t size)
{
    return Fails() ? nullptr : Counted(__libc_calloc(count, size));
}

void* aligned_alloc(std::size_t alignment, std::size_t size)
{
    static auto* const original = Original<void*(std::size_t, std::size_t)>("aligned_alloc");
    return Fails() ? nullptr : Counted(original(alignment, size));
}

void free(void* memory)
{
    static auto* const original = Original<void(void*)>("free");
    if (heap.armed && memory != nullptr)
        --heap.live;
    original(memory);
}
// NOLINTEND(readability-inconsistent-declaration-parameter-name)

} // extern "C"

namespace
{

enum class Outcome { result, outOfMemory };

// The call with allocation number n failing. Its blocks are released inside.
Outcome CallWithFailure(long n, const std::function<void()>& call)
{
    Outcome outcome = Outcome::result;
    heap = {true, n, 0, false};
    try {
        call();
    } catch (const std::bad_alloc&) {
        outcome = Outcome::outOfMemory;
    }
    heap.armed = false;
    return outcome;
}

// Fails allocation after allocation until none is left to fail. Returns how many there were.
long RequireBadAllocEachTime(const std::function<void()>& call)
{
    // The runtime prepares the first exception of a thread once.
    CallWithFailure(1, call);
    for (long n = 1; n < 10000; ++n) {
        const Outcome outcome = CallWithFailure(n, call);
        EXPECT_EQ(heap.live, 0) << "blocks left behind when allocation " << n << " failed";
        if (!heap.failed) {
            EXPECT_EQ(outcome, Outcome::result);
            return n - 1;
        }
        EXPECT_EQ(outcome, Outcome::outOfMemory) << "allocation " << n;
    }
    ADD_FAILURE() << "the call never succeeded";
    return 0;
}

constexpr int length = 40;
constexpr double untouched = 99.0;

std::vector<double> Signal()
{
    std::vector<double> signal(2 * std::size_t{length});
    for (std::size_t i = 0; i < signal.size(); ++i)
        signal[i] = static_cast<double>(i * i % 17) - 8.0;
    return signal;
}

TEST(AllocationFailure, OfTheFunctionsThatReturnArraysIsBadAlloc)
{
    const std::vector<double> signal = Signal();
    const double* x = signal.data();
    const double c[] = {1.0, -0.5, 0.25};
    double dev[] = {0.01, 0.01};
    int order = 0;
    const std::function<double*()> calls[] = {
        [=] { return DFT(x, 0, length); },
        [=] { return FFT(x, 0, 32); },
        [=] { return IFFT(x, 0, 32); },
        [=, &c] { return Filter(x, c, nullptr, length, 3); },
        [=, &c] { return FirFilterToSignal(x, c, length, 3); },
        [=, &c] { return IirFilterToSignal(x, c, c, length, 3); },
        [=] { return Roots(x, 12); },
        [] { return CreateFirByWindow(30, 0, 5, 0.3, 0.5); },
        [] { return CreateFirByFS(30, 2, 2, 0.3, 0.5); },
        [] { return CreateFirByRemez(30, 3, 0.3, 0.5); },
        [&] { return CreateFirByRemezord(0, 0.3, 0.5, 0.0, 0.0, dev, 2, &order); },
    };
    for (const auto& call : calls)
        EXPECT_GE(RequireBadAllocEachTime([&] { ReleaseDoubleArray(call()); }), 1);
}

TEST(AllocationFailure, OfTheExtendedTransformLeavesTheOutputsAlone)
{
    const std::vector<double> signal = Signal();
    // Long enough to need memory of the heap.
    constexpr int n = 1024;
    std::vector<double> real(n, untouched), imaginary(n, untouched);
    EXPECT_EQ(
        CallWithFailure(1, [&] { FFText(signal.data(), length, n, real.data(), imaginary.data()); }),
        Outcome::outOfMemory);
    EXPECT_EQ(real, std::vector<double>(n, untouched));
    EXPECT_EQ(imaginary, std::vector<double>(n, untouched));
    RequireBadAllocEachTime([&] { FFText(signal.data(), length, n, real.data(), imaginary.data()); });
}

void DesignIir(int family, int order, unsigned filterType, double* a, double* b, double* wn)
{
    switch (family) {
    case 0:
        return Butterworth(order, wn, filterType, 0, a, b);
    case 1:
        return Chebyshv1(order, 1.0, wn, filterType, 0, a, b);
    case 2:
        return Chebyshv2(order, 40.0, wn, filterType, 0, a, b);
    case 3:
        return Elliptic(order, 1.0, 40.0, wn, filterType, 0, a, b);
    default:
        return Bessel(order, wn, static_cast<int>(filterType), a, b);
    }
}

void DesignIir(int family, int order, unsigned filterType, double* a, double* b)
{
    double wn[] = {0.3, 0.5};
    DesignIir(family, order, filterType, a, b, wn);
}

TEST(AllocationFailure, OfTheIirDesignsIsBadAlloc)
{
    for (int family = 0; family < 5; ++family) {
        for (const unsigned filterType : {0U, 1U, 3U}) {
            std::vector<double> a(9), b(9);
            const long count =
                RequireBadAllocEachTime([&] { DesignIir(family, 4, filterType, a.data(), b.data()); });
            EXPECT_GE(count, 10) << family << " " << filterType;
        }
    }
}

TEST(AllocationFailure, OfAnIirDesignMayLeaveTheEdgesAndTheDenominatorWritten)
{
    const std::vector<double> asBefore(9, untouched);
    for (int family = 0; family < 5; ++family) {
        std::vector<double> wholeA(9), wholeB(9);
        DesignIir(family, 4, 3, wholeA.data(), wholeB.data());
        bool edgesWritten = false, denominatorWritten = false, failed = true;
        for (long n = 1; failed; ++n) {
            ASSERT_LT(n, 10000);
            std::vector<double> a = asBefore, b = asBefore;
            double wn[] = {0.3, 0.5};
            failed = CallWithFailure(n, [&] { DesignIir(family, 4, 3, a.data(), b.data(), wn); }) !=
                     Outcome::result;
            if (!failed)
                break;
            EXPECT_EQ(b, asBefore) << family << " " << n;
            EXPECT_TRUE(a == asBefore || a == wholeA) << family << " " << n;
            edgesWritten = edgesWritten || wn[1] == 0.0;
            denominatorWritten = denominatorWritten || a == wholeA;
        }
        EXPECT_TRUE(edgesWritten) << family;
        // Bessel designs have both arrays ready before they write the first.
        EXPECT_EQ(denominatorWritten, family != 4) << family;
    }
}

// The blocks that grow are the state matrix and the two vectors; all others are work arrays.
TEST(AllocationFailure, OfABandpassEndsTheProcessWithAMessageWhenTheModelCannotGrow)
{
    for (int family = 0; family < 5; ++family) {
        long ended = 0;
        for (long n = 1; n < 10000; ++n) {
            double a[9], b[9];
            // In a process of its own: 1 after the message, 0 for bad_alloc, 2 for a result.
            std::fflush(stdout);
            const pid_t child = fork();
            ASSERT_GE(child, 0);
            if (child == 0) {
                std::fclose(stderr);
                const Outcome outcome = CallWithFailure(n, [&] { DesignIir(family, 4, 2, a, b); });
                _exit(heap.failed ? (outcome == Outcome::outOfMemory ? 0 : 3) : 2);
            }
            int status = 0;
            ASSERT_EQ(waitpid(child, &status, 0), child);
            ASSERT_TRUE(WIFEXITED(status)) << family << " " << n;
            const int code = WEXITSTATUS(status);
            if (code == 2)
                break;
            EXPECT_TRUE(code == 0 || code == 1) << family << " " << n << ": " << code;
            ended += code;
        }
        EXPECT_GE(ended, 1) << family;
        EXPECT_LE(ended, 6) << family;
    }
}

TEST(AllocationFailure, OfAnEquirippleDesignMayLeaveTheEstimatedOrderWritten)
{
    int order = 0;
    double dev[] = {0.01, 0.02};
    ReleaseDoubleArray(CreateFirByRemezord(0, 0.3, 0.5, 0.0, 0.0, dev, 2, &order));
    const int estimate = order;
    bool orderWritten = false, orderUntouched = false, failed = true;
    for (long n = 1; failed; ++n) {
        ASSERT_LT(n, 10000);
        order = -77;
        failed = CallWithFailure(n, [&] {
                     ReleaseDoubleArray(CreateFirByRemezord(0, 0.3, 0.5, 0.0, 0.0, dev, 2, &order));
                 }) != Outcome::result;
        if (!failed)
            break;
        EXPECT_TRUE(order == -77 || order == estimate) << n;
        orderWritten = orderWritten || order == estimate;
        orderUntouched = orderUntouched || order == -77;
        EXPECT_EQ(dev[0], 0.01);
        EXPECT_EQ(dev[1], 0.02);
    }
    EXPECT_TRUE(orderWritten);
    EXPECT_TRUE(orderUntouched);
}

TEST(AllocationFailure, OfTheOrderEstimationIsBadAllocBeforeTheEdgesAreWritten)
{
    const double edges[] = {0.1, 0.7, 0.3, 0.5};
    for (int family = 0; family < 4; ++family) {
        bool orderWritten = false;
        int order = -77;
        double wn[] = {untouched, untouched};
        const auto call = [&] { FilterMinimumOrder(family, edges, 4, 1.0, 40.0, &order, wn); };
        EXPECT_EQ(CallWithFailure(1, call), Outcome::outOfMemory);
        for (long n = 2; CallWithFailure(n, call) == Outcome::outOfMemory; ++n) {
            ASSERT_LT(n, 10000);
            orderWritten = orderWritten || order != -77;
            EXPECT_EQ(wn[0], untouched) << family << " " << n;
            EXPECT_EQ(wn[1], untouched) << family << " " << n;
        }
        // Butterworth edges are found after the order, with allocations of their own.
        EXPECT_EQ(orderWritten, family == 0) << family;
        EXPECT_GE(RequireBadAllocEachTime(call), 2);
    }
}

} // namespace
