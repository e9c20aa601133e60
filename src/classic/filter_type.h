#ifndef TRELVANIX_CLASSIC_FILTER_TYPE_H
#define TRELVANIX_CLASSIC_FILTER_TYPE_H

#include <cstdint>

namespace trelvanix
{

// The type codes of the exported functions. A host may pass any other number too.
enum class FilterType : std::uint32_t { LowPass = 0, HighPass = 1, BandPass = 2, BandStop = 3 };

} // namespace trelvanix

#endif
