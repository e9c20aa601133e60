#ifndef TRELVANIX_TESTS_SUPPORT_CUTS_H
#define TRELVANIX_TESTS_SUPPORT_CUTS_H

#include <algorithm>
#include <cstddef>
#include <vector>

#include "support/samples.h"

namespace trelvanix::testing
{

// Ascending ends of the pieces into which a signal of that length is cut, the length at last: some thirty, empty
// pieces and single samples among them.
inline std::vector<std::size_t> RandomCuts(Samples& samples, std::size_t length)
{
    std::vector<std::size_t> cuts = {0, 0, 1, 2, length};
    for (int i = 0; i < 30; ++i)
        cuts.push_back(static_cast<std::size_t>(samples.NextBelow(static_cast<int>(length) + 1)));
    std::ranges::sort(cuts);
    return cuts;
}

} // namespace trelvanix::testing

#endif
