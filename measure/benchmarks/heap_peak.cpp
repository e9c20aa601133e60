#include "heap_peak.h"

#include <malloc.h>

#include <algorithm>
#include <cerrno>
#include <cstddef>

// The C library lets a program replace its allocator and keeps the original ones under these names.
// NOLINTBEGIN(bugprone-reserved-identifier, readability-inconsistent-declaration-parameter-name)
extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* block, std::size_t size);
void* __libc_memalign(std::size_t alignment, std::size_t size);
void __libc_free(void* block);
}
// NOLINTEND(bugprone-reserved-identifier, readability-inconsistent-declaration-parameter-name)

namespace
{

struct Heap {
    bool watched = false;
    std::int64_t held = 0;
    std::int64_t peak = 0;
};

// The allocator has no other place to find it.
Heap heap;

void* Taken(void* block)
{
    if (heap.watched && block != nullptr) {
        heap.held += static_cast<std::int64_t>(malloc_usable_size(block));
        heap.peak = std::max(heap.peak, heap.held);
    }
    return block;
}

void Given(void* block)
{
    if (heap.watched && block != nullptr)
        heap.held -= static_cast<std::int64_t>(malloc_usable_size(block));
}

} // namespace

extern "C" {

void* malloc(std::size_t size)
{
    return Taken(__libc_malloc(size));
}

void* calloc(std::size_t count, std::size_t size)
{
    return Taken(__libc_calloc(count, size));
}

void* realloc(void* block, std::size_t size)
{
    Given(block);
    return Taken(__libc_realloc(block, size));
}

void* memalign(std::size_t alignment, std::size_t size)
{
    return Taken(__libc_memalign(alignment, size));
}

void* aligned_alloc(std::size_t alignment, std::size_t size)
{
    return Taken(__libc_memalign(alignment, size));
}

int posix_memalign(void** block, std::size_t alignment, std::size_t size)
{
    *block = Taken(__libc_memalign(alignment, size));
    return *block != nullptr ? 0 : ENOMEM;
}

void free(void* block)
{
    Given(block);
    __libc_free(block);
}

} // extern "C"

namespace trelvanix::bench
{

std::int64_t HeapPeak(const std::function<void()>& call)
{
    heap = {.watched = true};
    call();
    heap.watched = false;
    return heap.peak;
}

} // namespace trelvanix::bench
