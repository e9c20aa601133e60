#include "classic/result_array.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <new>

namespace trelvanix
{
namespace
{

ResultArray NewArray(int count, int width)
{
    if (count < 0 || static_cast<std::size_t>(count) >
                         PTRDIFF_MAX / (static_cast<std::size_t>(width) * sizeof(double)))
        throw std::bad_array_new_length();
    return NewVectorMemory(std::int64_t{count} * width);
}

} // namespace

ResultArray NewResultArray(int count)
{
    return NewArray(count, 1);
}

ResultArray NewComplexResultArray(int count)
{
    return NewArray(count, 2);
}

int ReleaseResult(void* p)
{
    if (p == nullptr)
        return 0;
    std::free(p);
    return 1;
}

} // namespace trelvanix
