// Included before everything else under the memory sanitizer: the standard library's templates are then
// compiled with the program instead of taken from the shared library, whose writes no sanitizer sees.
// The libstdc++ of GCC has no option for that.
#include <bits/c++config.h>
#undef _GLIBCXX_EXTERN_TEMPLATE
#define _GLIBCXX_EXTERN_TEMPLATE 0
