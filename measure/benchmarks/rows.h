#ifndef TRELVANIX_BENCH_ROWS_H
#define TRELVANIX_BENCH_ROWS_H

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "trelvanix.h"

// The rows of the measurement, named family/size/side: the report makes one table of a family, one line
// of a size and one column of a side.
namespace trelvanix::bench
{

// The library's own side of a row, and the plain form of the same kernel, which has to give its bits.
inline constexpr const char* ownSide = "Trelvanix";
inline constexpr const char* plainSide = "plain form";

struct Verdict {
    bool agrees = true;
    std::string label;
};

struct Subject {
    // What is measured. It stays valid when the row that made it has ended.
    std::function<void()> call;
    // Compares the answer of the last call with the library's; none for the library itself.
    std::function<Verdict()> check = nullptr;
    // For the limits of the machine, which are reported as rates.
    double operationsPerCall = 0.0;
};

// Adds a row. The subject is made anew for each repetition and called once unmeasured, which shows how
// much of the heap it takes and leaves the allocator with pages that are not fresh. The first time it is
// checked too; a row that does not agree becomes an error.
void AddRow(const std::string& family, const std::string& size, const std::string& side,
            const std::function<Subject()>& make);

// The largest difference, as a fraction of the largest of our values, is at most the tolerance.
Verdict Within(double tolerance, const double* ours, const double* theirs, std::size_t count);
Verdict Within(double tolerance, double difference);
Verdict SameBits(const double* ours, const std::vector<double>& plain);

struct ReleaseToLibrary {
    void operator()(double* array) const noexcept
    {
        ReleaseDoubleArray(array);
    }
};
using LibraryArray = std::unique_ptr<double[], ReleaseToLibrary>;

} // namespace trelvanix::bench

#endif
