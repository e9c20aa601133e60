#ifndef TRELVANIX_CLASSIC_RESULT_ARRAY_H
#define TRELVANIX_CLASSIC_RESULT_ARRAY_H

#include "common/vector_memory.h"

namespace trelvanix
{

// Owner of an array that becomes a result: inside the library it frees itself, at the C boundary release()
// hands it to the host. The memory is the C heap's, because the host gives it back through
// ReleaseDoubleArray.
using ResultArray = VectorMemory;

// An array of count doubles, not cleared: the caller writes every element. 0 gives an array too.
// Errors: std::bad_array_new_length for a count that is negative or exceeds the address space,
// std::bad_alloc.
ResultArray NewResultArray(int count);

// An array of count complex elements, 2 * count doubles, not cleared; errors as above.
ResultArray NewComplexResultArray(int count);

// Frees a result. Returns 1, or 0 for null.
int ReleaseResult(void* p);

} // namespace trelvanix

#endif
