#ifndef TRELVANIX_COMMON_RESULT_ARRAY_H
#define TRELVANIX_COMMON_RESULT_ARRAY_H

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <new>

#include "common/vector_memory.h"

namespace trelvanix
{

struct FreeWithCHeap {
    void operator()(double* p) const
    {
        std::free(p);
    }
};

// Owner of an array that becomes a result: inside the library it frees itself, at the C boundary
// release() hands it to the host. The memory is the C heap's, because the host gives it back through
// ReleaseDoubleArray, which calls free.
using ResultArray = std::unique_ptr<double[], FreeWithCHeap>;

namespace detail
{

inline void CheckCount(int count, std::size_t elementSize)
{
    if (count < 0 || static_cast<std::size_t>(count) > PTRDIFF_MAX / elementSize)
        throw std::bad_array_new_length();
}

inline ResultArray Owned(void* memory)
{
    if (memory == nullptr)
        throw std::bad_alloc();
    return ResultArray(static_cast<double*>(memory));
}

// The C heap may answer a request for nothing with null, which would look like a failure.
inline std::size_t AtLeastOne(int count)
{
    return count > 0 ? static_cast<std::size_t>(count) : 1;
}

} // namespace detail

// An array of count doubles, not cleared: the caller writes every element. 0 gives an array too.
// Errors: std::bad_array_new_length for a count that is negative or exceeds the address space,
// std::bad_alloc.
inline ResultArray NewResultArray(int count)
{
    detail::CheckCount(count, sizeof(double));
    return detail::Owned(AllocateForVectors(detail::AtLeastOne(count) * sizeof(double)));
}

// An array of count complex elements, 2 * count doubles, all 0 + 0i; errors as above.
inline ResultArray NewComplexResultArray(int count)
{
    detail::CheckCount(count, 2 * sizeof(double));
    return detail::Owned(std::calloc(detail::AtLeastOne(count), 2 * sizeof(double)));
}

// Not cleared: for a caller that writes every element.
inline ResultArray NewUnclearedComplexResultArray(int count)
{
    detail::CheckCount(count, 2 * sizeof(double));
    return detail::Owned(AllocateForVectors(detail::AtLeastOne(count) * 2 * sizeof(double)));
}

// Work memory of count complex elements, not cleared.
inline ResultArray NewComplexWorkArray(std::int64_t count)
{
    return detail::Owned(AllocateForVectors(static_cast<std::size_t>(count) * 2 * sizeof(double)));
}

} // namespace trelvanix

#endif
