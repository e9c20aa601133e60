#include "common/vector_memory.h"

#include <cstdlib>

#if defined(__linux__)
#include <sys/mman.h>
#endif

namespace trelvanix
{
namespace
{

#if !defined(_WIN32)
void* AllocateAligned(std::size_t alignment, std::size_t size)
{
    return std::aligned_alloc(alignment, (size + alignment - 1) / alignment * alignment);
}
#endif

} // namespace

void* AllocateForVectors(std::size_t size)
{
#if defined(__linux__)
    constexpr std::size_t largePage = std::size_t{1} << 21;
    if (size >= 4 * largePage) {
        void* const memory = AllocateAligned(largePage, size);
        if (memory != nullptr)
            madvise(memory, size, MADV_HUGEPAGE);
        return memory;
    }
#endif
#if !defined(_WIN32)
    constexpr std::size_t cacheLine = 64;
    if (size >= 16 * cacheLine)
        return AllocateAligned(cacheLine, size);
#endif
    return std::malloc(size);
}

} // namespace trelvanix
