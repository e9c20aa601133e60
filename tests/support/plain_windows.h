#ifndef TRELVANIX_TESTS_SUPPORT_PLAIN_WINDOWS_H
#define TRELVANIX_TESTS_SUPPORT_PLAIN_WINDOWS_H

#include <vector>

#include "classic/filter_type.h"

// Windows and ideal responses sample after sample, every term and every sine where it stands: the form
// that defines the bits of the library's.
namespace trelvanix::testing
{

double PlainBesselI0(double x);

std::vector<double> PlainKaiserWindow(int N);
std::vector<double> PlainGaussianWindow(int N);
std::vector<double> PlainParzenWindow(int N);

std::vector<double> PlainImpulseResponse(int N, double omega1, double omega2, FilterType filterType);

} // namespace trelvanix::testing

#endif
