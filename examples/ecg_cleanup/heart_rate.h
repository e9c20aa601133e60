// Finding the heart beats in an electrocardiogram.
#pragma once

#include <cstddef>
#include <vector>

// Finds the R peaks: places where the squared slope, averaged over the length of a beat's steep part,
// stands out (after Pan & Tompkins 1985). Returns the sample numbers, in order.
//
//   rate   sampling rate in Hz
//
// The slope does not see a baseline that wanders slowly and is taken over two periods of a 60 Hz mains,
// so that the detector serves the raw recording as well as the cleaned one. Tall or broad beats count
// as one each; two beats within a quarter of a second count as one.
std::vector<std::size_t> FindBeats(const std::vector<double>& signal, double rate);

// Beats a minute by the median interval, which a missed or an extra beat does not move. Not-a-number
// for fewer than two beats.
double BeatsPerMinute(const std::vector<std::size_t>& beats, double rate);
