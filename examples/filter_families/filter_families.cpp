// From requirements to a filter: takes the mask of a low-pass against muscle noise, estimates the smallest
// order of each family of filters that meets it, designs the filters, measures their responses against
// the mask and filters an electrocardiogram with them. Says what each family costs and achieves, and
// writes the files for a picture of it.

#include <CLI/CLI.hpp>

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <iterator>
#include <limits>
#include <list>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "family_designs.h"
#include "family_figures.h"
#include "low_pass_mask.h"
#include "recording.h"
#include "table_file.h"

namespace
{

struct Settings {
    std::filesystem::path input;
    std::filesystem::path outputFolder;
    LowPassMask mask;
};

// A table whose columns the program makes up; Column only refers to names and values.
class Columns
{
public:
    void Add(std::string name, std::vector<double> values)
    {
        const auto& [keptName, keptValues] = kept.emplace_back(std::move(name), std::move(values));
        columns.push_back({keptName, keptValues});
    }
    const std::vector<Column>& All() const
    {
        return columns;
    }

private:
    std::list<std::pair<std::string, std::vector<double>>> kept; // stays where it is as it grows
    std::vector<Column> columns;
};

// Every so many of the measured frequencies go into the files: enough to draw.
constexpr std::size_t drawingStep = 16;

// The values at the frequencies to draw, up to a frequency.
std::vector<double> ForDrawing(const FilterResponse& response, const std::vector<double>& values,
                               double end)
{
    std::vector<double> some;
    for (std::size_t k = 0; k < values.size() && response.frequencies[k] <= end; k += drawingStep)
        some.push_back(values[k]);
    return some;
}

Columns Magnitudes(const std::vector<FamilyDesign>& designs, const LowPassMask& mask)
{
    const double nyquist = 0.5 * mask.rate;
    const FilterResponse& first = designs.front().response;
    Columns columns;
    columns.Add("frequency_Hz", ForDrawing(first, first.frequencies, nyquist));
    for (const FamilyDesign& design : designs) {
        std::vector<double> decibels = ForDrawing(design.response, design.response.magnitudes, nyquist);
        std::ranges::transform(decibels, decibels.begin(), Decibels);
        columns.Add(design.fileName + "_dB", std::move(decibels));
    }
    return columns;
}

// Up to the stop edge: beyond lie zeros of the response, which have no delay.
Columns Delays(const std::vector<FamilyDesign>& designs, const LowPassMask& mask)
{
    const FilterResponse& first = designs.front().response;
    Columns columns;
    columns.Add("frequency_Hz", ForDrawing(first, first.frequencies, mask.stopEdge));
    for (const FamilyDesign& design : designs) {
        std::vector<double> delays = ForDrawing(design.response, design.response.delays, mask.stopEdge);
        std::ranges::transform(delays, delays.begin(), [](double delay) { return 1e3 * delay; });
        columns.Add(design.fileName + "_ms", std::move(delays));
    }
    return columns;
}

Columns Filtered(const std::vector<FamilyDesign>& designs, const Recording& recording)
{
    const auto length = static_cast<int>(recording.voltages.size());
    Columns columns;
    columns.Add("time_s", recording.times);
    columns.Add("before_mV", recording.voltages);
    for (const FamilyDesign& design : designs) {
        const LibraryArray filtered = Apply(design.filter, recording.voltages.data(), length);
        columns.Add(design.fileName + "_mV", {filtered.get(), filtered.get() + length});
    }
    return columns;
}

// For the picture: the mask, and the orders for the legend.
Columns Requirements(const std::vector<FamilyDesign>& designs, const LowPassMask& mask)
{
    Columns columns;
    columns.Add("rate_Hz", {mask.rate});
    columns.Add("pass_edge_Hz", {mask.passEdge});
    columns.Add("stop_edge_Hz", {mask.stopEdge});
    columns.Add("ripple_dB", {mask.passRipple});
    columns.Add("attenuation_dB", {mask.stopAttenuation});
    for (const FamilyDesign& design : designs)
        columns.Add(design.fileName + "_order", {static_cast<double>(Order(design.filter))});
    return columns;
}

void WriteFiles(const Settings& settings, const Recording& recording,
                const std::vector<FamilyDesign>& designs)
{
    const std::filesystem::path& folder = settings.outputFolder;
    std::filesystem::create_directories(folder);
    std::list<TableFile> files;
    files.emplace_back(folder / "requirements.csv", Requirements(designs, settings.mask).All());
    files.emplace_back(folder / "magnitudes.csv", Magnitudes(designs, settings.mask).All());
    files.emplace_back(folder / "delays.csv", Delays(designs, settings.mask).All());
    files.emplace_back(folder / "filtered.csv", Filtered(designs, recording).All());
    for (const FamilyDesign& design : designs) {
        std::vector<Column> coefficients{{"b", design.filter.b}};
        if (!design.filter.a.empty())
            coefficients.push_back({"a", design.filter.a});
        files.emplace_back(folder / (design.fileName + ".csv"), coefficients);
    }
    // Every table is complete on the disk before the first one gets its name.
    for (TableFile& file : files)
        file.Publish();
}

void PrintRequest(const LowPassMask& mask, const Recording& recording)
{
    const auto count = static_cast<double>(recording.voltages.size());
    std::printf("%-15s %zu samples, %.1f s at %g Hz\n", "recording", recording.voltages.size(),
                count / mask.rate, mask.rate);
    std::printf("%-15s 0 to %g Hz, ripple %g dB at most\n", "pass band", mask.passEdge,
                mask.passRipple);
    std::printf("%-15s %g to %g Hz, attenuation %g dB at least\n\n", "stop band", mask.stopEdge,
                0.5 * mask.rate, mask.stopAttenuation);
}

void Run(const Settings& settings)
{
    const LowPassMask& mask = settings.mask;
    CheckMask(mask);
    const Recording recording = ReadRecording(settings.input, mask.rate);
    // The library counts with int.
    if (recording.voltages.size() > static_cast<std::size_t>(std::numeric_limits<int>::max()))
        throw std::runtime_error(settings.input.string() + ": too long");

    std::vector<FamilyDesign> designs = DesignIirFamilies(mask);
    const EquirippleDesign fir = DesignEquirippleFir(mask);
    designs.push_back(fir.used);

    std::vector<FamilyFigures> figures;
    std::ranges::transform(designs, std::back_inserter(figures), [&](const FamilyDesign& design) {
        return FiguresOf(design, mask, recording.voltages);
    });
    WriteFiles(settings, recording, designs);

    PrintRequest(mask, recording);
    PrintFamilies(designs, figures, mask);
    PrintNotes(fir, mask);
}

// Exit status of the program.
int RunCommandLine(int argc, char** argv)
{
    Settings settings;
    LowPassMask& mask = settings.mask;
    CLI::App app(
        "Designs a low-pass of each family of filters for the same requirements, compares them, "
        "and filters an electrocardiogram with them.",
        "filter_families");
    app.add_option("INPUT.csv", settings.input, "recording: header line, then time in s, voltage in mV")
        ->required();
    app.add_option(
           "OUTPUT_DIR", settings.outputFolder,
           "folder for requirements.csv, magnitudes.csv, delays.csv, filtered.csv and one file of "
           "coefficients for each family; made if missing")
        ->required();
    app.add_option("--rate", mask.rate, "sampling rate in Hz")->capture_default_str();
    app.add_option("--pass-edge", mask.passEdge, "end of the pass band in Hz")->capture_default_str();
    app.add_option("--stop-edge", mask.stopEdge, "start of the stop band in Hz")->capture_default_str();
    app.add_option("--ripple", mask.passRipple, "largest attenuation in the pass band in dB")
        ->capture_default_str();
    app.add_option("--attenuation", mask.stopAttenuation, "least attenuation in the stop band in dB")
        ->capture_default_str();
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return app.exit(error) == 0 ? 0 : 1;
    }
    Run(settings);
    return 0;
}

} // namespace

int main(int argc, char** argv)
{
    try {
        return RunCommandLine(argc, argv);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "filter_families: %s\n", error.what());
        return 1;
    }
}
