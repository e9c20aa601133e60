// How long a filter takes.
#pragma once

#include <vector>

#include "digital_filter.h"

// Milliseconds that the filter takes for the signal: the fastest of the runs that fit into a twentieth
// of a second, at least one. What else the machine does only ever adds to the time.
double FastestRun(const DigitalFilter& filter, const std::vector<double>& signal);
