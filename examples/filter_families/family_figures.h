// What the filters of the families cost and what they achieve, for comparison.
#pragma once

#include <vector>

#include "family_designs.h"
#include "low_pass_mask.h"

struct FamilyFigures {
    int order = 0, multiplicationsPerSample = 0;
    double delay = 0.0;        // s, of the group at DelayFrequency
    double largestDelay = 0.0; // s, of the group in the pass band
    MaskFigures mask;
    double runTime = 0.0; // ms, for the signal
};

// 10 Hz, where much of a heart beat lies, or the middle of a pass band that ends below 20 Hz.
double DelayFrequency(const LowPassMask& mask);

FamilyFigures FiguresOf(const FamilyDesign& design, const LowPassMask& mask,
                        const std::vector<double>& signal);

// One line for each design; as many figures as designs.
void PrintFamilies(const std::vector<FamilyDesign>& designs, const std::vector<FamilyFigures>& figures,
                   const LowPassMask& mask);

// How the order of the FIR filter came about, and why there is no Bessel filter.
void PrintNotes(const EquirippleDesign& fir, const LowPassMask& mask);
