#ifndef TRELVANIX_COMMON_WORK_ARRAY_H
#define TRELVANIX_COMMON_WORK_ARRAY_H

#include <cstdint>
#include <stdexcept>
#include <vector>

namespace trelvanix
{

// A work array of count elements, value-initialised (zeros). Made here rather than by the vector's own
// constructor, so that a count that is negative or impossible throws std::length_error with the same
// message on every standard library.
template <class Element>
std::vector<Element> NewWorkArray(std::int64_t count)
{
    if (count < 0 || static_cast<std::uint64_t>(count) > std::vector<Element>().max_size())
        throw std::length_error("vector too long");
    return std::vector<Element>(static_cast<std::size_t>(count));
}

} // namespace trelvanix

#endif
