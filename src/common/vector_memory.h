#ifndef TRELVANIX_COMMON_VECTOR_MEMORY_H
#define TRELVANIX_COMMON_VECTOR_MEMORY_H

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>

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

struct FreeWithCHeap {
    void operator()(double* p) const
    {
        std::free(p);
    }
};

// Owner of such memory.
using VectorMemory = std::unique_ptr<double[], FreeWithCHeap>;

// count doubles, at least 0, not cleared.
// Errors: std::bad_alloc.
VectorMemory NewVectorMemory(std::int64_t count);

} // namespace trelvanix

#endif
