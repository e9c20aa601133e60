#include "recording.h"

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <fstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <system_error>

namespace
{

// Where in which file the reader is, for its error messages.
struct Position {
    const std::filesystem::path& path;
    std::size_t line;

    [[noreturn]] void Fail(const std::string& what) const
    {
        throw std::runtime_error(path.string() + ", line " + std::to_string(line) + ": " + what);
    }
};

std::string_view Trimmed(std::string_view text)
{
    constexpr std::string_view blanks = " \t\r";
    const std::size_t first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

// Cuts the text up to the next comma off the line.
std::string_view NextColumn(std::string_view& line)
{
    const std::size_t comma = line.find(',');
    const std::string_view column = line.substr(0, comma);
    line.remove_prefix(comma == std::string_view::npos ? line.size() : comma + 1);
    return Trimmed(column);
}

// The start of a text for a message, whatever bytes a damaged file has there.
std::string Printable(std::string_view text)
{
    std::string printable(text.substr(0, 40));
    std::ranges::replace_if(
        printable, [](char c) { return c < ' ' || c > '~'; }, '?');
    return printable;
}

// Far beyond any voltage, and times up to it still tell the samples apart.
constexpr double largestNumber = 1e9;

// Rounds correctly and takes no text after the number, a NUL byte included, unlike the conversions of
// the CSV libraries at hand; that is why this file reads CSV itself.
double ToNumber(std::string_view column, const char* name, const Position& position)
{
    double number = 0.0;
    const char* const end = column.data() + column.size();
    const auto [stop, error] = std::from_chars(column.data(), end, number);
    if (error != std::errc() || stop != end || !(std::abs(number) <= largestNumber))
        position.Fail(std::string(name) + " '" + Printable(column) +
                      "' is not a number between -1e9 and 1e9");
    return number;
}

void CheckHeader(std::string_view line, const Position& position)
{
    double number = 0.0;
    const bool isNumber =
        std::from_chars(line.data(), line.data() + line.size(), number).ec == std::errc();
    if (isNumber || line.find(',') == std::string_view::npos)
        position.Fail("a header with two columns, time and voltage, is missing");
}

void CheckTime(const Recording& recording, double rate, const Position& position)
{
    const auto index = static_cast<double>(recording.times.size() - 1);
    const double expected = recording.times.front() + index / rate;
    if (!(std::abs(recording.times.back() - expected) < 0.5 / rate))
        position.Fail("time " + std::to_string(recording.times.back()) + " s where " +
                      std::to_string(expected) +
                      " s is due; samples are missing or the sampling rate is not " +
                      std::to_string(rate) + " Hz");
}

} // namespace

Recording ReadRecording(const std::filesystem::path& path, double rate)
{
    errno = 0;
    std::ifstream file(path, std::ios::binary);
    if (!file)
        throw std::runtime_error(path.string() + ": " + std::generic_category().message(errno));

    Recording recording;
    std::string text;
    Position position{path, 0};
    while (std::getline(file, text)) {
        ++position.line;
        std::string_view line = Trimmed(text);
        if (position.line == 1) {
            CheckHeader(line, position);
            continue;
        }
        if (line.find(',') == std::string_view::npos)
            position.Fail("two columns are needed, time and voltage");
        recording.times.push_back(ToNumber(NextColumn(line), "time", position));
        recording.voltages.push_back(ToNumber(NextColumn(line), "voltage", position));
        CheckTime(recording, rate, position);
    }
    // A folder opens like a file on some systems and fails here.
    if (file.bad())
        throw std::runtime_error(path.string() + ": " + std::generic_category().message(errno));
    if (position.line == 0)
        throw std::runtime_error(path.string() + ": the file is empty");
    if (recording.voltages.empty())
        throw std::runtime_error(path.string() + ": no samples after the header in line 1");
    return recording;
}
