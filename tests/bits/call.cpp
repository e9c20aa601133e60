#include "bits/call.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cinttypes>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <new>
#include <stdexcept>

#include "bits/digest.h"

namespace trelvanix::bits
{
namespace
{

std::string Hexadecimal(double number)
{
    std::array<char, 32> text = {};
    std::snprintf(text.data(), text.size(), "%016" PRIx64, std::bit_cast<std::uint64_t>(number));
    return text.data();
}

// With as many digits as it takes; every platform writes these the same.
std::string Decimal(double number)
{
    if (std::isnan(number))
        return "nan";
    if (std::isinf(number))
        return number < 0.0 ? "-inf" : "inf";
    std::array<char, 32> text = {};
    for (int digits = 15; digits <= 17; ++digits) {
        std::snprintf(text.data(), text.size(), "%.*g", digits, number);
        if (std::strtod(text.data(), nullptr) == number)
            break;
    }
    return text.data();
}

std::string ShortArray(const std::vector<double>& values)
{
    constexpr std::size_t shown = 6;
    std::string text = "[";
    for (std::size_t i = 0; i < std::min(values.size(), shown); ++i)
        text += (i > 0 ? " " : "") + Decimal(values[i]);
    if (values.size() > shown)
        text += " ... " + std::to_string(values.size()) + " numbers";
    return text + "]";
}

void AddItems(Digest& digest, const std::vector<Item>& items)
{
    for (const Item& item : items) {
        digest.AddWord(item.kind);
        digest.AddWord(item.values.size());
        for (const double value : item.values)
            digest.AddNumber(value);
    }
}

std::string ItemLines(const std::vector<Item>& items)
{
    std::string lines;
    for (const Item& item : items) {
        if (item.kind == Item::null)
            lines += std::string(item.name) + " null\n";
        if (item.kind == Item::array && item.values.empty())
            lines += std::string(item.name) + " empty\n";
        for (std::size_t i = 0; i < item.values.size(); ++i) {
            lines += item.name;
            if (item.kind == Item::array)
                lines += "[" + std::to_string(i) + "]";
            const double value = item.values[i];
            lines +=
                std::isnan(value) ? " nan\n" : " " + Hexadecimal(value) + " " + Decimal(value) + "\n";
        }
    }
    return lines;
}

} // namespace

std::string Call::CurrentException()
{
    try {
        throw;
    } catch (const std::bad_array_new_length&) {
        return "std::bad_array_new_length";
    } catch (const std::bad_alloc&) {
        return "std::bad_alloc";
    } catch (const std::invalid_argument& e) {
        return std::string("std::invalid_argument \"") + e.what() + "\"";
    } catch (const std::length_error& e) {
        return std::string("std::length_error \"") + e.what() + "\"";
    } catch (const std::exception& e) {
        return std::string("another exception \"") + e.what() + "\"";
    }
}

std::uint64_t Call::DigestValue() const
{
    Digest digest;
    AddItems(digest, arguments);
    digest.AddText(outcome);
    AddItems(digest, results);
    return digest.Value();
}

std::string Call::Line(const char* function) const
{
    std::string line = std::string(function) + "(";
    for (const Item& item : arguments) {
        line += &item == arguments.data() ? "" : ", ";
        line += std::string(item.name) + "=";
        switch (item.kind) {
        case Item::number:
            line += Decimal(item.values[0]);
            break;
        case Item::array:
            line += ShortArray(item.values);
            break;
        case Item::null:
            line += "null";
            break;
        }
    }
    return line + "): " + outcome;
}

std::string Call::Values(const char* function) const
{
    return Line(function) + "\nArguments\n" + ItemLines(arguments) + "Results\n" + ItemLines(results);
}

} // namespace trelvanix::bits
