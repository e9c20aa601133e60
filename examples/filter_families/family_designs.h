// One low-pass filter of each family for the same mask, of the smallest order that the library estimates.
#pragma once

#include <string>
#include <vector>

#include "digital_filter.h"
#include "filter_response.h"
#include "low_pass_mask.h"

struct FamilyDesign {
    std::string name;     // for people
    std::string fileName; // for files and columns
    DigitalFilter filter;
    FilterResponse response;
};

// Butterworth, Chebyshev I, Chebyshev II and elliptic, in this order. FilterMinimumOrder gives the order
// and the edge for the design.
//
//   mask   accepted by CheckMask
//
// Errors: std::runtime_error that names the family, for an order that its coefficients do not hold.
std::vector<FamilyDesign> DesignIirFamilies(const LowPassMask& mask);

struct EquirippleDesign {
    FamilyDesign estimated; // of the order that CreateFirByRemezord estimates for the mask
    FamilyDesign used;      // the same, or the first one to meet the mask of those asked for less
    double share;           // of the deviations that the mask allows: what the one in use was asked for
};

// The linear-phase FIR filter. Its order is estimated by a fitted formula, and so may fall short of the
// mask; then smaller deviations are asked for, down to a tenth of what the mask allows. If none of them
// meets the mask, the one in use is the one estimated. The peak gain is one, as that of the IIR filters.
EquirippleDesign DesignEquirippleFir(const LowPassMask& mask);
