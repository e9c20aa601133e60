// Evidence that the elementary functions return the double nearest to the exact value. For every
// function and range of arguments
//   - some arguments are compared with the C library's function, and MPFR decides where the two differ,
//   - some are compared with MPFR directly;
// then all angles of the Fourier transform's twiddles are, and all pairs of special values. Prints a
// table in Markdown, and to the standard error every argument that came out wrong, with both values.
// Exit status 1 if there was one.
//
// Usage: correct_rounding [--full] [--arguments n] [--direct n] [--twiddles stages] [--seed s]
//                         [--threads t] [--only name]
//   --arguments   for each function and range against the C library, default 300,000
//   --direct      for each function and range against MPFR, default 10,000
//   --twiddles    every power of two up to 2^stages, default 16
//   --full        10^8, 10^6 for each function, shared between its ranges, and 22 stages
#include <mpfr.h>

#include <algorithm>
#include <array>
#include <cinttypes>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <fstream>
#include <limits>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "common/constants.h"
#include "rounded_functions.h"

namespace trelvanix::measure
{
namespace
{

struct Options {
    bool full = false;
    std::int64_t arguments = 300000;
    std::int64_t direct = 10000;
    int stages = 16;
    std::uint64_t seed = 1;
    int threads = 2;
    std::string only;
};

// One row of the table.
struct Row {
    std::int64_t arguments = 0;
    std::int64_t disagreements = 0;
    std::int64_t direct = 0;
    std::int64_t misroundings = 0;

    void operator+=(const Row& other)
    {
        arguments += other.arguments;
        disagreements += other.disagreements;
        direct += other.direct;
        misroundings += other.misroundings;
    }
};

// The double nearest to the exact value, by MPFR; one for each thread.
class Judge
{
public:
    Judge()
    {
        // The exponents of doubles, so that rounding and subnormal results are theirs.
        mpfr_set_emin(-1073);
        mpfr_set_emax(1024);
        mpfr_inits2(53, x, y, result, static_cast<mpfr_ptr>(nullptr));
    }

    ~Judge()
    {
        mpfr_clears(x, y, result, static_cast<mpfr_ptr>(nullptr));
        mpfr_free_cache();
    }

    Judge(const Judge&) = delete;
    Judge& operator=(const Judge&) = delete;

    double Nearest(const RoundedFunction& function, Arguments arguments)
    {
        mpfr_set_d(x, arguments.x, MPFR_RNDN);
        mpfr_set_d(y, arguments.y, MPFR_RNDN);
        const int ternary = function.exact(result, x, y);
        mpfr_subnormalize(result, ternary, MPFR_RNDN);
        return mpfr_get_d(result, MPFR_RNDN);
    }

private:
    mpfr_t x, y, result;
};

bool Same(double a, double b)
{
    return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b) ||
           (std::isnan(a) && std::isnan(b));
}

std::mutex reportMutex;

bool IsRight(Judge& judge, const RoundedFunction& function, Arguments a, double ours)
{
    const double nearest = judge.Nearest(function, a);
    if (Same(ours, nearest))
        return true;
    const std::lock_guard lock(reportMutex);
    std::fprintf(stderr, "%s(%a, %a): ours %a, nearest %a\n", function.name.c_str(), a.x, a.y, ours,
                 nearest);
    return false;
}

void CompareDirectly(Judge& judge, const RoundedFunction& function, Arguments a, Row& row)
{
    ++row.direct;
    if (!IsRight(judge, function, a, function.ours(a)))
        ++row.misroundings;
}

void CompareWithPlatform(Judge& judge, const RoundedFunction& function, Arguments a, Row& row)
{
    ++row.arguments;
    const double ours = function.ours(a);
    if (Same(ours, function.platform(a)))
        return;
    ++row.disagreements;
    if (!IsRight(judge, function, a, ours))
        ++row.misroundings;
}

// Runs body(thread, judge, row) on every thread and adds up the rows.
template <class Body>
Row OnThreads(int threads, Body body)
{
    std::vector<Row> rows(static_cast<std::size_t>(threads));
    std::vector<std::thread> running;
    running.reserve(rows.size());
    for (int thread = 0; thread < threads; ++thread) {
        running.emplace_back([&body, &rows, thread] {
            Judge judge;
            Row row;
            body(thread, judge, row);
            rows[static_cast<std::size_t>(thread)] = row;
        });
    }
    Row sum;
    for (int thread = 0; thread < threads; ++thread) {
        running[static_cast<std::size_t>(thread)].join();
        sum += rows[static_cast<std::size_t>(thread)];
    }
    return sum;
}

// A thread's part of count, the whole of which is shared without rest.
std::int64_t Part(std::int64_t count, int thread, int threads)
{
    return count * (thread + 1) / threads - count * thread / threads;
}

Row Sample(const RoundedFunction& function, const Range& range, const Options& options)
{
    return OnThreads(options.threads, [&](int thread, Judge& judge, Row& row) {
        std::seed_seq seeds = {static_cast<std::uint32_t>(options.seed),
                               static_cast<std::uint32_t>(options.seed >> 32),
                               static_cast<std::uint32_t>(thread)};
        Random random(seeds);
        for (std::int64_t i = Part(options.direct, thread, options.threads); i > 0; --i)
            CompareDirectly(judge, function, range.draw(random), row);
        if (function.platform == nullptr)
            return;
        for (std::int64_t i = Part(options.arguments, thread, options.threads); i > 0; --i)
            CompareWithPlatform(judge, function, range.draw(random), row);
    });
}

// The angles of the stages: -2 k pi / n, 0 <= k < n / 2, as the transform forms them.
Row Twiddles(const RoundedFunction& function, const Options& options)
{
    return OnThreads(options.threads, [&](int thread, Judge& judge, Row& row) {
        for (int stage = 1; stage <= options.stages; ++stage) {
            const std::int64_t n = std::int64_t{1} << stage;
            for (std::int64_t k = thread; k < n / 2; k += options.threads) {
                const auto t = static_cast<double>(-k);
                const double angle = (t + t) * pi / static_cast<double>(n);
                CompareWithPlatform(judge, function, {angle}, row);
            }
        }
    });
}

Row SpecialValues(const RoundedFunction& function)
{
    constexpr double infinity = std::numeric_limits<double>::infinity();
    const std::array<double, 23> magnitudes = {0.0,         0x1p-1074,
                                               0x1.8p-1073, 0x0.fffffffffffffp-1022,
                                               0x1p-1022,   0x1p-500,
                                               0x1p-54,     0x1p-53,
                                               0.25,        0.5,
                                               1 - 0x1p-53, 1.0,
                                               1 + 0x1p-52, 1.5,
                                               2.0,         3.0,
                                               10.0,        709.782712893384,
                                               0x1p52 + 1,  0x1p53 - 1,
                                               0x1p1023,    0x1.fffffffffffffp1023,
                                               infinity};
    std::vector<double> values = {std::numeric_limits<double>::quiet_NaN()};
    for (const double magnitude : magnitudes) {
        values.push_back(magnitude);
        values.push_back(-magnitude);
    }
    Judge judge;
    Row row;
    for (const double x : values) {
        for (const double y : values)
            CompareDirectly(judge, function, {x, y}, row);
    }
    return row;
}

void Print(const RoundedFunction& function, const std::string& range, const Row& row)
{
    std::printf("| %s | %s | %" PRId64 " | %" PRId64 " | %" PRId64 " | %" PRId64 " |\n",
                function.name.c_str(), range.c_str(), row.arguments, row.disagreements, row.direct,
                row.misroundings);
    std::fflush(stdout);
}

std::string Processor()
{
    std::ifstream file("/proc/cpuinfo");
    for (std::string line; std::getline(file, line);) {
        if (line.starts_with("model name"))
            return line.substr(line.find(':') + 2);
    }
    return "unknown processor";
}

void PrintHead(int count, char** arguments)
{
    std::printf("`correct_rounding");
    for (int i = 1; i < count; ++i)
        std::printf(" %s", arguments[i]);
    const std::time_t now = std::time(nullptr);
    std::array<char, 16> date = {};
    std::tm utc = {};
    gmtime_r(&now, &utc);
    std::strftime(date.data(), date.size(), "%Y-%m-%d", &utc);
    std::printf("`, %s, %s, MPFR %s\n\n", Processor().c_str(), date.data(), mpfr_get_version());
    std::printf("| Function | Arguments | compared with the C library's | of these different | "
                "compared with MPFR | misrounded |\n|---|---|---:|---:|---:|---:|\n");
}

bool Parse(int count, char** arguments, Options& options)
{
    for (int i = 1; i < count; ++i) {
        const std::string name = arguments[i];
        if (name == "--full") {
            options.full = true;
            options.arguments = 100000000;
            options.direct = 1000000;
            options.stages = 22;
            continue;
        }
        if (++i == count)
            return false;
        const std::string value = arguments[i];
        if (name == "--only") {
            options.only = value;
            continue;
        }
        char* end = nullptr;
        const std::int64_t number = std::strtoll(value.c_str(), &end, 10);
        if (*end != '\0' || number < 0)
            return false;
        if (name == "--arguments")
            options.arguments = number;
        else if (name == "--direct")
            options.direct = number;
        else if (name == "--twiddles" && number <= 30)
            options.stages = static_cast<int>(number);
        else if (name == "--seed")
            options.seed = static_cast<std::uint64_t>(number);
        else if (name == "--threads" && number >= 1 && number <= 256)
            options.threads = static_cast<int>(number);
        else
            return false;
    }
    return true;
}

Row Measure(const RoundedFunction& function, Options options)
{
    if (options.full) {
        const auto ranges = static_cast<std::int64_t>(function.ranges.size());
        options.arguments = (options.arguments + ranges - 1) / ranges;
        options.direct = (options.direct + ranges - 1) / ranges;
    }
    Row sum;
    for (const Range& range : function.ranges) {
        const Row row = Sample(function, range, options);
        Print(function, range.name, row);
        sum += row;
    }
    if (function.name == "sin" || function.name == "cos") {
        const Row row = Twiddles(function, options);
        Print(function, "twiddles to 2^" + std::to_string(options.stages), row);
        sum += row;
    }
    const Row row = SpecialValues(function);
    Print(function, "special values", row);
    sum += row;
    return sum;
}

int Run(int count, char** arguments)
{
    Options options;
    if (!Parse(count, arguments, options)) {
        std::fputs("usage: correct_rounding [--full] [--arguments n] [--direct n] [--twiddles stages] "
                   "[--seed s] [--threads t] [--only name]\n",
                   stderr);
        return 2;
    }
    PrintHead(count, arguments);
    std::vector<RoundedFunction> functions = ExponentialFunctions();
    for (const RoundedFunction& function : TrigonometricFunctions())
        functions.push_back(function);
    Row sum;
    for (const RoundedFunction& function : functions) {
        if (options.only.empty() || options.only == function.name)
            sum += Measure(function, options);
    }
    std::printf("| all | | %" PRId64 " | %" PRId64 " | %" PRId64 " | %" PRId64 " |\n", sum.arguments,
                sum.disagreements, sum.direct, sum.misroundings);
    if (sum.arguments + sum.direct == 0) {
        std::fputs("nothing was compared\n", stderr);
        return 2;
    }
    return sum.misroundings == 0 ? 0 : 1;
}

} // namespace
} // namespace trelvanix::measure

int main(int count, char** arguments)
{
    return trelvanix::measure::Run(count, arguments);
}
