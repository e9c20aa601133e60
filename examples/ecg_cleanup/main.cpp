// Cleans an electrocardiogram: reads a recording, designs a high-pass against the wandering baseline, a
// band-stop against the mains and a low-pass against muscle noise, as FIR filters for a signal that is
// there whole and as IIR filters for one that is still coming in. Applies both chains, says what changed
// and what the filters cost, and writes the files for a picture of it.

#include <CLI/CLI.hpp>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <iterator>
#include <limits>
#include <stdexcept>
#include <string>
#include <vector>

#include "causal_filters.h"
#include "cleanup_filters.h"
#include "filter_edges.h"
#include "filter_figures.h"
#include "filter_response.h"
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

constexpr double baselineEnd = 0.5; // Hz

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

// The recording, and what either chain makes of it.
struct Signals {
    const Recording& recording;
    std::vector<double> fir, iir;
};

struct Analyses {
    Analysis before, fir, iir;
};

void PrintDesigns(const Settings& settings, std::size_t sampleCount, const CleanupFilters& filters)
{
    std::printf("%-28s %zu samples, %.1f s at %g Hz\n", "recording", sampleCount,
                static_cast<double>(sampleCount) / settings.rate, settings.rate);
    std::printf("%-28s edge %g Hz\n", "high-pass", highPassEdge);
    std::printf("%-28s edges %g Hz and %g Hz\n", "band-stop", filters.stopBandLow,
                filters.stopBandHigh);
    std::printf("%-28s pass band to %g Hz, stop band from %g Hz\n\n", "low-pass", lowPassPassEdge,
                lowPassStopEdge);
}

void PrintPowers(const char* name, double before, double fir, double iir)
{
    std::printf("%-28s %8.1f dB %8.1f dB %8.1f dB %8.1f dB %8.1f dB\n", name, before, fir, fir - before,
                iir, iir - before);
}

void PrintChanges(const Settings& settings, const Analyses& analyses)
{
    const auto& [before, fir, iir] = analyses;
    std::printf("%-28s %11s %11s %11s %11s %11s\n", "power, dB re 1 mV^2", "before", "after FIR",
                "change", "after IIR", "change");
    char name[64];
    std::snprintf(name, sizeof name, "mains, %g to %g Hz", settings.mains - mainsHalfBand,
                  settings.mains + mainsHalfBand);
    PrintPowers(name, before.mainsPower, fir.mainsPower, iir.mainsPower);
    std::snprintf(name, sizeof name, "baseline, below %g Hz", baselineEnd);
    PrintPowers(name, before.baselinePower, fir.baselinePower, iir.baselinePower);

    std::printf("\n%-28s %11s %11s %11s\n", "heart", "before", "after FIR", "after IIR");
    std::printf("%-28s %11zu %11zu %11zu\n", "beats found", before.beats.size(), fir.beats.size(),
                iir.beats.size());
    std::printf("%-28s %11.1f %11.1f %11.1f\n\n", "beats a minute, median", before.beatsPerMinute,
                fir.beatsPerMinute, iir.beatsPerMinute);
}

std::vector<double> DecibelsOf(const FilterFigures& figures)
{
    std::vector<double> decibels(figures.response.magnitudes);
    std::ranges::transform(decibels, decibels.begin(), Decibels);
    return decibels;
}

void WriteFiles(const Settings& settings, const Signals& signals, const Analyses& analyses,
                const CleanupFilters& filters, const std::vector<FilterFigures>& figures)
{
    std::vector<double> beatTimes, beatVoltages;
    for (const std::size_t beat : analyses.fir.beats) {
        beatTimes.push_back(signals.recording.times[beat]);
        beatVoltages.push_back(signals.fir[beat]);
    }
    std::vector<std::vector<double>> decibels;
    std::ranges::transform(figures, std::back_inserter(decibels), DecibelsOf);

    std::filesystem::create_directories(settings.outputFolder);
    TableFile cleaned(settings.outputFolder / "cleaned.csv", {{"time_s", signals.recording.times},
                                                              {"before_mV", signals.recording.voltages},
                                                              {"after_mV", signals.fir},
                                                              {"after_iir_mV", signals.iir}});
    TableFile spectra(settings.outputFolder / "spectrum.csv",
                      {{"frequency_Hz", analyses.before.spectrum.frequencies},
                       {"before_mV2_per_Hz", analyses.before.spectrum.densities},
                       {"after_mV2_per_Hz", analyses.fir.spectrum.densities},
                       {"after_iir_mV2_per_Hz", analyses.iir.spectrum.densities}});
    TableFile responses(settings.outputFolder / "responses.csv",
                        {{"frequency_Hz", figures.front().response.frequencies},
                         {"high_pass_dB", decibels[0]},
                         {"iir_high_pass_dB", decibels[1]},
                         {"band_stop_dB", decibels[2]},
                         {"iir_band_stop_dB", decibels[3]},
                         {"low_pass_dB", decibels[4]},
                         {"iir_low_pass_dB", decibels[5]}});
    TableFile taps(settings.outputFolder / "low_pass_taps.csv", {{"tap", filters.lowPass.b}});
    TableFile beats(settings.outputFolder / "beats.csv",
                    {{"time_s", beatTimes}, {"after_mV", beatVoltages}});
    // Every table is complete on the disk before the first one gets its name.
    for (TableFile* file : {&cleaned, &spectra, &responses, &taps, &beats})
        file->Publish();
}

void CheckLength(const Recording& recording, const CleanupFilters& filters, const Settings& settings)
{
    const auto count = static_cast<std::int64_t>(recording.voltages.size());
    if (count <= Order(filters.highPass))
        throw std::runtime_error(settings.input.string() + ": too short, " + std::to_string(count) +
                                 " samples; the high-pass filter alone has " +
                                 std::to_string(Order(filters.highPass) + 1));
    // The library counts with int, and the signal is continued at both ends.
    if (count > std::numeric_limits<int>::max() - 2 * Delay(filters))
        throw std::runtime_error(settings.input.string() + ": too long, " + std::to_string(count) +
                                 " samples");
}

void Run(const Settings& settings)
{
    const auto designStart = std::chrono::steady_clock::now();
    const CleanupFilters filters = DesignCleanupFilters(settings.rate, settings.mains);
    const CausalFilters causal = DesignCausalFilters(settings.rate, settings.mains);
    const double designTime = MillisecondsSince(designStart);

    const Recording recording = ReadRecording(settings.input, settings.rate);
    CheckLength(recording, filters, settings);

    const auto firStart = std::chrono::steady_clock::now();
    Signals signals{recording, Clean(recording.voltages, filters), {}};
    const double firTime = MillisecondsSince(firStart);
    const auto iirStart = std::chrono::steady_clock::now();
    signals.iir = CleanCausally(recording.voltages, causal);
    const double iirTime = MillisecondsSince(iirStart);

    const Analyses analyses{Analyse(recording.voltages, settings), Analyse(signals.fir, settings),
                            Analyse(signals.iir, settings)};
    const std::vector<FilterFigures> figures =
        FiguresOf(filters, causal, settings.rate, settings.mains, recording.voltages);
    WriteFiles(settings, signals, analyses, filters, figures);

    PrintDesigns(settings, recording.voltages.size(), filters);
    PrintFilters(figures);
    PrintLowPassDeviations(filters, settings.rate);
    PrintChanges(settings, analyses);
    std::printf("%-28s %8.1f ms\n", "time for design", designTime);
    std::printf("%-28s %8.1f ms FIR, %.1f ms IIR\n", "time for filtering", firTime, iirTime);
}

// Exit status of the program.
int RunCommandLine(int argc, char** argv)
{
    Settings settings;
    CLI::App app("Takes wandering baseline, mains hum and muscle noise off an electrocardiogram.",
                 "ecg_cleanup");
    app.add_option("INPUT.csv", settings.input, "recording: header line, then time in s, voltage in mV")
        ->required();
    app.add_option(
           "OUTPUT_DIR", settings.outputFolder,
           "folder for cleaned.csv, spectrum.csv, responses.csv, low_pass_taps.csv and beats.csv; made "
           "if missing")
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
