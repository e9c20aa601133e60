// Writing a table of numbers as a CSV file that is either complete or not there.
#pragma once

#include <filesystem>
#include <span>
#include <string_view>
#include <vector>

struct Column {
    std::string_view name;
    std::span<const double> values;
};

// Writes under a temporary name in the same folder; Publish renames the file to its proper name, which
// replaces an older one in one step. A file that was not published is removed.
class TableFile
{
public:
    // Writes the whole table: a header line with the names, then one line a row. The numbers are the
    // shortest that read back as the same doubles. All columns have the same length.
    //
    // Errors: std::runtime_error that names the file.
    TableFile(const std::filesystem::path& path, const std::vector<Column>& columns);
    ~TableFile();
    TableFile(const TableFile&) = delete;
    TableFile& operator=(const TableFile&) = delete;
    TableFile(TableFile&&) = delete;
    TableFile& operator=(TableFile&&) = delete;

    // Errors: std::filesystem::filesystem_error.
    void Publish();

private:
    std::filesystem::path finalPath;
    std::filesystem::path temporaryPath;
};
