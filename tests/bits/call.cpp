#include "bits/call.h"

#include <algorithm>
#include <array>
#include <cinttypes>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <new>
#include <stdexcept>

#include "bits/digest.h"
#include "bits/number_bits.h"

namespace trelvanix::bits
{
namespace
{

std::string Hexadecimal(double number)
{
    std::array<char, 32> text = {};
    std::snprintf(text.data(), text.size(), "%016" PRIx64, BitsOf(number));
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

// Six numbers at most, then how many there are.
std::string ShortArray(const std::vector<double>& values)
{
    constexpr std::size_t shown = 6;
    std::string text = "[";
    for (std::size_t i = 0; i < std::min(values.size(), shown); ++i) {
        if (i > 0)
            text += ' ';
        text += Decimal(values[i]);
    }
    if (values.size() > shown)
        text.append(" ... ").append(std::to_string(values.size())).append(" numbers");
    return text += ']';
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

void AppendValue(std::string& text, double value)
{
    text += ' ';
    if (!std::isnan(value))
        text.append(Hexadecimal(value)) += ' ';
    text.append(Decimal(value)) += '\n';
}

std::string ItemLines(const std::vector<Item>& items)
{
    std::string lines;
    for (const Item& item : items) {
        const std::string name = item.name;
        if (item.kind == Item::null)
            lines.append(name).append(" null\n");
        if (item.kind == Item::array && item.values.empty())
            lines.append(name).append(" empty\n");
        for (std::size_t i = 0; i < item.values.size(); ++i) {
            lines += name;
            if (item.kind == Item::array)
                lines.append("[").append(std::to_string(i)).append("]");
            AppendValue(lines, item.values[i]);
        }
    }
    return lines;
}

// The type of an exception with what it says.
std::string WithMessage(const char* type, const std::exception& e)
{
    std::string text = type;
    return text.append(" \"").append(e.what()).append("\"");
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
        return WithMessage("std::invalid_argument", e);
    } catch (const std::length_error& e) {
        return WithMessage("std::length_error", e);
    } catch (const std::exception& e) {
        return WithMessage("another exception", e);
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
    std::string line = function;
    const char* separator = "(";
    for (const Item& item : arguments) {
        line.append(separator).append(item.name).append("=");
        separator = ", ";
        if (item.kind == Item::null)
            line += "null";
        else
            line += item.kind == Item::array ? ShortArray(item.values) : Decimal(item.values[0]);
    }
    return line.append("): ").append(outcome);
}

std::string Call::Values(const char* function) const
{
    std::string text = Line(function);
    text.append("\nArguments\n").append(ItemLines(arguments));
    return text.append("Results\n").append(ItemLines(results));
}

} // namespace trelvanix::bits
