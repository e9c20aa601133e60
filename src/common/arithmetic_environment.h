#ifndef TRELVANIX_COMMON_ARITHMETIC_ENVIRONMENT_H
#define TRELVANIX_COMMON_ARITHMETIC_ENVIRONMENT_H

#include <cstdint>

namespace trelvanix
{

// While it lives, the calling thread computes as IEEE 754 has it by default: rounding to nearest, subnormal numbers
// kept, no traps. Hosts may have it otherwise (audio threads flush subnormals to zero) and get their own environment
// back at the end, the exception flags included. Costs one read of the control register where nothing differs.
//
// x87 arithmetic plays no part: doubles are computed by SSE2 on 32-bit x86 too.
class DefaultArithmetic
{
public:
    DefaultArithmetic();
    ~DefaultArithmetic();
    DefaultArithmetic(const DefaultArithmetic&) = delete;
    DefaultArithmetic& operator=(const DefaultArithmetic&) = delete;

private:
    std::uint64_t hostControl;
    bool differs;
};

} // namespace trelvanix

#endif
