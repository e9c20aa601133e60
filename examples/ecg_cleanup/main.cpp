// Cleans an electrocardiogram: reads a recording, designs a high-pass against the wandering baseline
// and a band-stop against the mains, applies them, says what changed and writes the files for a picture
// of it.

#include <CLI/CLI.hpp>

#include <algorithm>
#include <bit>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <limits>
#include <stdexcept>
#include <string>
#include <vector>

#include "cleanup_filters.h"
#include "heart_rate.h"
#include "recording.h"
#include "spectrum.h"
#include "table_file.h"

namespace
{

struct Settings {
    std::filesystem::path input;
    std::filesystem::path outputFolder;
    double rate = 360.0;
    double mains = 60.0;
};

struct Analysis {
    Spectrum spectrum;
    double mainsPower = 0.0;    // dB re 1 mV^2
    double baselinePower = 0.0; // dB re 1 mV^2
    std::vector<std::size_t> beats;
    double beatsPerMinute = 0.0;
};

constexpr double mainsHalfBand = 0.5; // Hz
constexpr double baselineEnd = 0.5;   // Hz

Analysis Analyse(const std::vector<double>& signal, const Settings& settings)
{
    Analysis analysis;
    analysis.spectrum = EstimateSpectrum(signal, settings.rate);
    analysis.mainsPower = BandPowerInDecibels(analysis.spectrum, settings.mains - mainsHalfBand,
                                              settings.mains + mainsHalfBand);
    analysis.baselinePower = BandPowerInDecibels(analysis.spectrum, 0.0, baselineEnd);
    analysis.beats = FindBeats(signal, settings.rate);
    analysis.beatsPerMinute = BeatsPerMinute(analysis.beats, settings.rate);
    return analysis;
}

double MillisecondsSince(std::chrono::steady_clock::time_point start)
{
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}

void PrintPowers(const std::string& name, double before, double after)
{
    std::printf("%-28s %8.1f dB %8.1f dB %8.1f dB\n", name.c_str(), before, after, after - before);
}

void PrintFigures(const Settings& settings, std::size_t sampleCount, const CleanupFilters& filters,
                  const Analysis& before, const Analysis& after)
{
    std::printf("%-28s %zu samples, %.1f s at %g Hz\n", "recording", sampleCount,
                static_cast<double>(sampleCount) / settings.rate, settings.rate);
    std::printf("%-28s order %d, edge %g Hz, Hamming window\n", "high-pass", filters.highPass.order,
                filters.highPassEdge);
    std::printf("%-28s order %d, edges %g Hz and %g Hz, Hamming window\n\n", "band-stop",
                filters.bandStop.order, filters.stopBandLow, filters.stopBandHigh);

    std::printf("%-28s %11s %11s %11s\n", "power, dB re 1 mV^2", "before", "after", "change");
    char name[64];
    std::snprintf(name, sizeof name, "mains, %g to %g Hz", settings.mains - mainsHalfBand,
                  settings.mains + mainsHalfBand);
    PrintPowers(name, before.mainsPower, after.mainsPower);
    std::snprintf(name, sizeof name, "baseline, below %g Hz", baselineEnd);
    PrintPowers(name, before.baselinePower, after.baselinePower);

    std::printf("\n%-28s %11s %11s\n", "heart", "before", "after");
    std::printf("%-28s %11zu %11zu\n", "beats found", before.beats.size(), after.beats.size());
    std::printf("%-28s %11.1f %11.1f\n\n", "beats a minute, median", before.beatsPerMinute,
                after.beatsPerMinute);
}

void WriteFiles(const Settings& settings, const Recording& recording,
                const std::vector<double>& cleaned, const CleanupFilters& filters,
                const Analysis& before, const Analysis& after)
{
    std::vector<double> beatTimes, beatVoltages;
    for (const std::size_t beat : after.beats) {
        beatTimes.push_back(recording.times[beat]);
        beatVoltages.push_back(cleaned[beat]);
    }
    const int longest = std::max(filters.highPass.order, filters.bandStop.order) + 1;
    // Eight points for each tap draw a smooth curve.
    const int pointCount = static_cast<int>(std::bit_ceil(4U * static_cast<unsigned>(longest)));
    const FrequencyResponse highPass = ResponseOf(filters.highPass, settings.rate, pointCount);
    const FrequencyResponse bandStop = ResponseOf(filters.bandStop, settings.rate, pointCount);

    std::filesystem::create_directories(settings.outputFolder);
    TableFile signals(
        settings.outputFolder / "cleaned.csv",
        {{"time_s", recording.times}, {"before_mV", recording.voltages}, {"after_mV", cleaned}});
    TableFile spectra(settings.outputFolder / "spectrum.csv",
                      {{"frequency_Hz", before.spectrum.frequencies},
                       {"before_mV2_per_Hz", before.spectrum.densities},
                       {"after_mV2_per_Hz", after.spectrum.densities}});
    TableFile responses(settings.outputFolder / "responses.csv",
                        {{"frequency_Hz", highPass.frequencies},
                         {"high_pass_dB", highPass.decibels},
                         {"band_stop_dB", bandStop.decibels}});
    TableFile beats(settings.outputFolder / "beats.csv",
                    {{"time_s", beatTimes}, {"after_mV", beatVoltages}});
    // Every table is complete on the disk before the first one gets its name.
    for (TableFile* file : {&signals, &spectra, &responses, &beats})
        file->Publish();
}

void CheckLength(const Recording& recording, const CleanupFilters& filters, const Settings& settings)
{
    const auto count = static_cast<std::int64_t>(recording.voltages.size());
    if (count <= filters.highPass.order)
        throw std::runtime_error(settings.input.string() + ": too short, " + std::to_string(count) +
                                 " samples; the high-pass filter alone has " +
                                 std::to_string(filters.highPass.order + 1));
    // The library counts with int, and the signal is continued at both ends.
    if (count > std::numeric_limits<int>::max() - filters.highPass.order - filters.bandStop.order)
        throw std::runtime_error(settings.input.string() + ": too long, " + std::to_string(count) +
                                 " samples");
}

void Run(const Settings& settings)
{
    const auto designStart = std::chrono::steady_clock::now();
    const CleanupFilters filters = DesignCleanupFilters(settings.rate, settings.mains);
    const double designTime = MillisecondsSince(designStart);

    const Recording recording = ReadRecording(settings.input, settings.rate);
    CheckLength(recording, filters, settings);

    const auto filterStart = std::chrono::steady_clock::now();
    const std::vector<double> cleaned = Clean(recording.voltages, filters);
    const double filterTime = MillisecondsSince(filterStart);

    const Analysis before = Analyse(recording.voltages, settings);
    const Analysis after = Analyse(cleaned, settings);
    WriteFiles(settings, recording, cleaned, filters, before, after);
    PrintFigures(settings, cleaned.size(), filters, before, after);
    std::printf("%-28s %8.1f ms\n%-28s %8.1f ms\n", "time for design", designTime, "time for filtering",
                filterTime);
}

// Exit status of the program.
int RunCommandLine(int argc, char** argv)
{
    Settings settings;
    CLI::App app("Takes wandering baseline and mains hum off an electrocardiogram.", "ecg_cleanup");
    app.add_option("INPUT.csv", settings.input, "recording: header line, then time in s, voltage in mV")
        ->required();
    app.add_option("OUTPUT_DIR", settings.outputFolder,
                   "folder for cleaned.csv, spectrum.csv, responses.csv and beats.csv; made if missing")
        ->required();
    app.add_option("--rate", settings.rate, "sampling rate in Hz")->capture_default_str();
    app.add_option("--mains", settings.mains, "mains frequency in Hz")->capture_default_str();
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
        std::fprintf(stderr, "ecg_cleanup: %s\n", error.what());
        return 1;
    }
}
