#ifndef TRELVANIX_API_NOT_IN_THIS_VERSION_H
#define TRELVANIX_API_NOT_IN_THIS_VERSION_H

#include <stdexcept>
#include <string>

namespace trelvanix
{

// The answer of an export whose design comes with a later version: hosts can link all twenty names from
// the first version on.
[[noreturn]] inline void ThrowNotInThisVersion(const char* function)
{
    throw std::logic_error(std::string(function) + " is not in this version of Trelvanix");
}

} // namespace trelvanix

#endif
