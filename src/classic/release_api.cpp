#include "trelvanix.h"

#include <cstdlib>

int ReleaseDoubleArray(void* p)
{
    if (p == nullptr)
        return 0;
    std::free(p);
    return 1;
}

int ReleaseComplexDoubleArray(void* p)
{
    return ReleaseDoubleArray(p);
}
