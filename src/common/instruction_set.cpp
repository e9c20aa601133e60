#include "common/instruction_set.h"

namespace trelvanix
{

ProcessorFeatures DetectFeatures()
{
#if defined(TRELVANIX_X86_KERNELS)
    return {static_cast<bool>(__builtin_cpu_supports("avx2")),
            __builtin_cpu_supports("avx512f") && __builtin_cpu_supports("avx512dq") &&
                __builtin_cpu_supports("avx512vl") && __builtin_cpu_supports("avx512bw")};
#else
    return {false, false};
#endif
}

InstructionSet BestInstructionSet([[maybe_unused]] ProcessorFeatures features)
{
#if defined(TRELVANIX_X86_KERNELS)
    if (features.avx512)
        return InstructionSet::avx512;
    if (features.avx2)
        return InstructionSet::avx2;
#endif
    return InstructionSet::baseline;
}

} // namespace trelvanix
