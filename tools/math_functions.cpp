// Prints what the C library's mathematics functions answer for fixed random arguments of the kind that the
// library hands them: a line each with the name, the arguments and the result, as the bits of doubles.
// tools/measure_math_functions.py reads it.
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <numbers>
#include <random>

namespace
{

constexpr int argumentCount = 2000;
constexpr double pi = std::numbers::pi;

using Random = std::mt19937_64;

// The distributions of the standard library differ between its makers; this doesn't.
double Uniform(Random& random, double low, double high)
{
    return low + (high - low) * (static_cast<double>(random() >> 11U) * 0x1p-53);
}

void PrintBits(double value)
{
    const auto bits = std::bit_cast<std::uint64_t>(value);
    std::printf(" %08x%08x", static_cast<unsigned int>(bits >> 32U), static_cast<unsigned int>(bits));
}

void Print(const char* name, double x, double result)
{
    std::printf("%s", name);
    PrintBits(x);
    PrintBits(result);
    std::printf("\n");
}

void Print(const char* name, double x, double y, double result)
{
    std::printf("%s", name);
    PrintBits(x);
    PrintBits(y);
    PrintBits(result);
    std::printf("\n");
}

void PrintAll(Random& random)
{
    // Angles: between any numbers, and multiples of pi, where a sine is as small as the rounding of pi.
    const double angle = Uniform(random, -100.0, 100.0) * pi;
    Print("sin", angle, std::sin(angle));
    Print("cos", angle, std::cos(angle));
    const double multiple = std::floor(Uniform(random, 1.0, 500.0)) * pi;
    Print("sin(k*pi)", multiple, std::sin(multiple));
    const double edge = Uniform(random, 0.0, pi / 2);
    Print("tan", edge, std::tan(edge));
    // Ratios, deviations and ripples.
    const double cosine = Uniform(random, -1.0, 1.0);
    Print("acos", cosine, std::acos(cosine));
    const double argument = Uniform(random, -5.0, 5.0);
    Print("sinh", argument, std::sinh(argument));
    Print("cosh", argument, std::cosh(argument));
    Print("exp", argument, std::exp(argument));
    const double wide = std::ldexp(Uniform(random, 1.0, 2.0), static_cast<int>(random() % 60) - 30);
    Print("asinh", wide, std::asinh(wide));
    Print("acosh", 1.0 + wide, std::acosh(1.0 + wide));
    Print("log", wide, std::log(wide));
    Print("log10", wide, std::log10(wide));
    // Complex numbers: moduli and arguments.
    const double other = Uniform(random, -5.0, 5.0);
    Print("hypot", argument, other, std::hypot(argument, other));
    Print("atan2", argument, other, std::atan2(argument, other));
    // Squares, terms of a power series, decibels.
    Print("pow(x,2)", argument, 2.0, std::pow(argument, 2.0));
    const double base = Uniform(random, 0.0, 7.0);
    const double even = 2.0 * std::floor(Uniform(random, 2.0, 25.0));
    Print("pow(x,2k)", base, even, std::pow(base, even));
    Print("pow(10,x)", 10.0, other, std::pow(10.0, other));
}

} // namespace

int main()
{
    Random random(1);
    for (int i = 0; i < argumentCount; ++i)
        PrintAll(random);
    return 0;
}
