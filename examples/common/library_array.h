// Ownership of the arrays that the library hands over.
#pragma once

#include <memory>

#include "trelvanix.h"

struct ReleaseToLibrary {
    void operator()(double* array) const noexcept
    {
        ReleaseDoubleArray(array);
    }
};

// A result array that goes back to the library when its owner leaves scope, exceptions included.
using LibraryArray = std::unique_ptr<double[], ReleaseToLibrary>;
