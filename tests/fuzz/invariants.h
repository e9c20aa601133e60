#ifndef TRELVANIX_TESTS_FUZZ_INVARIANTS_H
#define TRELVANIX_TESTS_FUZZ_INVARIANTS_H

#include <sanitizer/asan_interface.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <memory>
#include <new>
#include <stdexcept>
#include <utility>
#include <vector>

#include "trelvanix.h"

// What must hold for every call, whatever its arguments. A violation stops the fuzzer with a message,
// and so do the sanitizers that the targets are built with.
namespace trelvanix::fuzz
{

inline void Require(bool holds, const char* what)
{
    if (!holds) {
        std::fprintf(stderr, "violated: %s\n", what);
        std::abort();
    }
}

// A not-a-number that no computation gives: what an array holds that nobody has written.
inline double Unwritten()
{
    return std::bit_cast<double>(std::uint64_t{0x7ff4dead7ff4dead});
}

// What the sanitizer fills fresh memory with; see options.cpp.
inline double FreshMemory()
{
    return std::bit_cast<double>(std::uint64_t{0xd7d7d7d7d7d7d7d7});
}

inline bool SameBits(double x, double y)
{
    return std::bit_cast<std::uint64_t>(x) == std::bit_cast<std::uint64_t>(y);
}

inline bool SameValue(double x, double y)
{
    return SameBits(x, y) || (std::isnan(x) && std::isnan(y));
}

// An array of the caller's between guard words. The guards are poisoned, so that the sanitizer stops at
// a read, and their values are checked at the end.
class CallerArray
{
public:
    explicit CallerArray(std::size_t size)
        : count(size), block(new double[size + 2 * guardLength]), before(size, Unwritten())
    {
        std::fill_n(block.get(), size + 2 * guardLength, Unwritten());
        ASAN_POISON_MEMORY_REGION(block.get(), guardLength * sizeof(double));
        ASAN_POISON_MEMORY_REGION(block.get() + guardLength + count, guardLength * sizeof(double));
    }

    explicit CallerArray(const std::vector<double>& values) : CallerArray(values.size())
    {
        std::copy(values.begin(), values.end(), begin());
        before = values;
    }

    CallerArray(const CallerArray&) = delete;
    CallerArray& operator=(const CallerArray&) = delete;

    ~CallerArray()
    {
        ASAN_UNPOISON_MEMORY_REGION(block.get(), (count + 2 * guardLength) * sizeof(double));
        for (std::size_t i = 0; i < guardLength; ++i) {
            Require(SameBits(block[i], Unwritten()), "nothing is written before an array");
            Require(SameBits(end()[i], Unwritten()), "nothing is written behind an array");
        }
    }

    double* begin() const
    {
        return block.get() + guardLength;
    }

    double* end() const
    {
        return begin() + count;
    }

    void RequireUntouched() const
    {
        Require(std::equal(begin(), end(), before.begin(), SameBits), "inputs are not written");
    }

    void RequireWritten() const
    {
        for (const double value : *this)
            Require(!SameBits(value, Unwritten()), "every element is written");
    }

private:
    static constexpr std::size_t guardLength = 16;

    std::size_t count;
    std::unique_ptr<double[]> block;
    std::vector<double> before;
};

enum class Outcome { result, invalidArgument, badCount, tooLong };

// Makes the call; an exception that is none of the documented ones ends the fuzzer.
template <class Call>
Outcome Try(Call call)
{
    try {
        call();
        return Outcome::result;
    } catch (const std::invalid_argument& error) {
        Require(error.what()[0] != '\0', "an error has a message");
        return Outcome::invalidArgument;
    } catch (const std::bad_array_new_length&) {
        return Outcome::badCount;
    } catch (const std::length_error&) {
        return Outcome::tooLong;
    }
}

// Calls a function that returns a result array, twice: the outcomes and all values must agree, and none
// may be what fresh memory holds.
template <class Call>
Outcome RequireResult(Call call, std::int64_t count)
{
    std::vector<double> values[2];
    Outcome outcomes[2] = {};
    for (int i = 0; i < 2; ++i) {
        outcomes[i] = Try([&] {
            double* result = call();
            Require(result != nullptr, "a result is not null");
            values[i].assign(result, result + count);
            const auto release = i == 0 ? ReleaseDoubleArray : ReleaseComplexDoubleArray;
            Require(release(result) == 1, "a result can be released by either name");
        });
    }
    Require(outcomes[0] == outcomes[1], "the same call has the same outcome");
    Require(
        std::equal(values[0].begin(), values[0].end(), values[1].begin(), values[1].end(), SameValue),
        "the same call has the same result");
    for (const double value : values[0])
        Require(!SameBits(value, FreshMemory()), "every element of a result is written");
    return outcomes[0];
}

} // namespace trelvanix::fuzz

#endif
