#ifndef TRELVANIX_COMMON_VECTOR_MEMORY_H
#define TRELVANIX_COMMON_VECTOR_MEMORY_H

#include <cstddef>

namespace trelvanix
{

// Memory of the C heap, for free(), laid out for fast passes over it; null when there is none.
//
//   - From 1 KiB on it begins at a cache line, so that no vector straddles two. (Smaller blocks aren't
//     worth the longer way through the heap, and the Windows runtime has no such memory.)
//   - From 8 MiB on it asks Linux for large pages. Blocks of that size come fresh from the system, and
//     every page of them costs a fault, which together can take longer than the work. A system that
//     declines gives ordinary pages.
void* AllocateForVectors(std::size_t size);

} // namespace trelvanix

#endif
