// What the memory sanitizer has to be told about the shared standard library, whose writes it doesn't see.
#include <dlfcn.h>
#include <sanitizer/msan_interface.h>

#include <cstddef>

extern "C" {

// It compares and measures text of its own.
const char* __msan_default_options()
{
    return "intercept_memcmp=0:intercept_strcmp=0:intercept_strlen=0";
}

// It fills the standard exceptions: their memory counts as written from the beginning.
void* __cxa_allocate_exception(std::size_t size) noexcept
{
    using Allocate = void* (*)(std::size_t);
    const auto next = reinterpret_cast<Allocate>(dlsym(RTLD_NEXT, "__cxa_allocate_exception"));
    void* exception = next(size);
    __msan_unpoison(exception, size);
    return exception;
}

} // extern "C"
