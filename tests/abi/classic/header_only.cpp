#include "trelvanix.h"
// Twice: the header guards itself.
#include "trelvanix.h" // NOLINT(readability-duplicate-include)

int TrelvanixVersionMajor()
{
    return TRELVANIX_VERSION_MAJOR;
}
