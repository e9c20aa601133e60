#include "common/vector_memory.h"

#include <new>

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

VectorMemory NewVectorMemory(std::int64_t count)
{
    // The C heap may answer a request for nothing with null, which would look like a failure.
    const auto elements = static_cast<std::size_t>(count > 0 ? count : 1);
    void* const memory = AllocateForVectors(elements * sizeof(double));
    if (memory == nullptr)
        throw std::bad_alloc();
    return VectorMemory(static_cast<double*>(memory));
}

} // namespace trelvanix
