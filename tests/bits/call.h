#ifndef TRELVANIX_TESTS_BITS_CALL_H
#define TRELVANIX_TESTS_BITS_CALL_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "bits/generator.h"
#include "trelvanix.h"

namespace trelvanix::bits
{

// What a caller's array holds before a call that is to write it: shows what was left alone.
constexpr double unwritten = -77.25;

// One argument or result under the name that the header gives it.
struct Item {
    const char* name;
    enum Kind { number, array, null } kind;
    std::vector<double> values; // an int is the double of its value
};

// The record of one call: arguments as they were before, then how the call ended, then what it returned
// and what the caller's arrays held afterwards.
class Call
{
public:
    explicit Call(std::uint64_t seed) : random(seed)
    {
    }

    // Source of the arguments.
    Generator random;

    // Record an argument and hand it on.
    template <class Number>
    Number Argument(const char* name, Number value)
    {
        arguments.push_back({name, Item::number, {static_cast<double>(value)}});
        return value;
    }

    std::vector<double> Argument(const char* name, std::vector<double> values)
    {
        arguments.push_back({name, Item::array, values});
        return values;
    }

    void NullArgument(const char* name)
    {
        arguments.push_back({name, Item::null, {}});
    }

    // Make the call and record how it ends.
    template <class Function>
    void Run(Function function)
    {
        outcome = "returned";
        try {
            function();
        } catch (...) {
            outcome = CurrentException();
        }
    }

    // The same for a function that returns an array: its elements are recorded, and it is released.
    // countAfterwards is asked once the function has returned.
    template <class Function, class Count>
    void RunForArray(Function function, Count countAfterwards)
    {
        Run([&] {
            double* array = function();
            const auto count = static_cast<std::ptrdiff_t>(countAfterwards());
            results.push_back({"result", Item::array, {array, array + count}});
            ReleaseDoubleArray(array);
        });
    }

    // Record what there is after the call.
    void Result(const char* name, const std::vector<double>& values)
    {
        results.push_back({name, Item::array, values});
    }

    void Result(const char* name, int value)
    {
        results.push_back({name, Item::number, {static_cast<double>(value)}});
    }

    // Of everything that was recorded.
    [[nodiscard]] std::uint64_t DigestValue() const;

    // "FUNCTION(order=3, wn=[0.5 0.6], ...): returned", long arrays by their first elements.
    [[nodiscard]] std::string Line(const char* function) const;

    // Every value in hexadecimal and decimal, one a line.
    [[nodiscard]] std::string Values(const char* function) const;

private:
    // Type and message of the exception being handled; the type alone where the message is the standard
    // library's own.
    static std::string CurrentException();

    std::vector<Item> arguments;
    std::string outcome;
    std::vector<Item> results;
};

} // namespace trelvanix::bits

#endif
