// What the filters cost and what they achieve, for comparison.
#pragma once

#include <string>
#include <vector>

#include "causal_filters.h"
#include "cleanup_filters.h"
#include "filter_response.h"

// Half the width of the band around the mains that counts as mains.
inline constexpr double mainsHalfBand = 0.5; // Hz

struct FilterFigures {
    std::string name;
    int order = 0, multiplicationsPerSample = 0;
    double stopFrom = 0.0, stopTo = 0.0; // Hz, the band that it has to keep out
    FilterResponse response;
    double runTime = 0.0; // ms, for the signal
};

// FIR and IIR high-pass, FIR and IIR band-stop, FIR and IIR low-pass.
std::vector<FilterFigures> FiguresOf(const CleanupFilters& fir, const CausalFilters& iir, double rate,
                                     double mains, const std::vector<double>& signal);

void PrintFilters(const std::vector<FilterFigures>& figures);

// Says whether the low-pass of the estimated order and the one in use keep to the deviations asked for.
void PrintLowPassDeviations(const CleanupFilters& filters, double rate);
