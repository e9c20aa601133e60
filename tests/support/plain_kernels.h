#ifndef TRELVANIX_TESTS_SUPPORT_PLAIN_KERNELS_H
#define TRELVANIX_TESTS_SUPPORT_PLAIN_KERNELS_H

#include <cstddef>
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

// Value at xf of the polynomial with the values y at the nodes x, in barycentric form.
double PlainInterpolation(const std::vector<double>& x, const std::vector<double>& weights,
                          const std::vector<double>& y, double xf);

// Weight of node k among the nodes x, its factors multiplied in groupCount groups.
double PlainLagrangeWeight(std::size_t k, std::size_t groupCount, const std::vector<double>& x);

} // namespace trelvanix::testing

#endif
