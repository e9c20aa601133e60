#include "table_file.h"

#include <array>
#include <cerrno>
#include <charconv>
#include <cstddef>
#include <fstream>
#include <random>
#include <stdexcept>
#include <string>
#include <system_error>

namespace
{

void AppendNumber(std::string& text, double number)
{
    std::array<char, 32> digits{};
    char* const end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
    text.append(digits.data(), end);
}

std::string AsCsv(const std::vector<Column>& columns)
{
    std::string text;
    const char* separator = "";
    for (const Column& column : columns) {
        text.append(separator).append(column.name);
        separator = ",";
    }
    for (std::size_t row = 0; row < columns.front().values.size(); ++row) {
        separator = "\n";
        for (const Column& column : columns) {
            text.append(separator);
            AppendNumber(text, column.values[row]);
            separator = ",";
        }
    }
    return text.append("\n");
}

// Two runs that write to the same folder at the same time must not share a temporary file.
std::filesystem::path TemporaryName(const std::filesystem::path& path)
{
    std::filesystem::path name = path;
    name += '.';
    name += std::to_string(std::random_device()());
    name += ".part";
    return name;
}

} // namespace

TableFile::TableFile(const std::filesystem::path& path, const std::vector<Column>& columns)
    : finalPath(path), temporaryPath(TemporaryName(path))
{
    if (std::filesystem::is_directory(finalPath))
        throw std::runtime_error(finalPath.string() + ": is a folder");
    const std::string text = AsCsv(columns);
    errno = 0;
    std::ofstream file(temporaryPath, std::ios::binary);
    file << text;
    file.close();
    if (!file) {
        const std::string reason = std::generic_category().message(errno);
        std::error_code ignored; // the reason for the failure is the error to report
        std::filesystem::remove(temporaryPath, ignored);
        throw std::runtime_error(finalPath.string() + ": " + reason);
    }
}

TableFile::~TableFile()
{
    if (temporaryPath.empty())
        return;
    std::error_code ignored;
    std::filesystem::remove(temporaryPath, ignored);
}

void TableFile::Publish()
{
    std::filesystem::rename(temporaryPath, finalPath);
    temporaryPath.clear();
}
