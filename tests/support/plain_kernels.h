#ifndef TRELVANIX_TESTS_SUPPORT_PLAIN_KERNELS_H
#define TRELVANIX_TESTS_SUPPORT_PLAIN_KERNELS_H

#include <vector>

// The kernels in their plainest form, which defines their bits: delay lines that fill and move sample
// by sample, stages that copy the whole array. The library's kernels have to reproduce them exactly.
namespace trelvanix::testing
{

// input and result: n complex elements as pairs of doubles.
std::vector<double> PlainForwardTransform(const std::vector<double>& input);

std::vector<double> PlainFirFilter(const std::vector<double>& signal, const std::vector<double>& h);

std::vector<double> PlainIirFilter(const std::vector<double>& signal, const std::vector<double>& b,
                                   const std::vector<double>& a);

} // namespace trelvanix::testing

#endif
