#include "common/instruction_set.h"

namespace trelvanix
{

InstructionSet BestInstructionSet()
{
#if defined(__GNUC__) && (defined(__x86_64__) || defined(__i386__))
    if (__builtin_cpu_supports("avx512f") && __builtin_cpu_supports("avx512dq") &&
        __builtin_cpu_supports("avx512vl") && __builtin_cpu_supports("avx512bw"))
        return InstructionSet::avx512;
    if (__builtin_cpu_supports("avx2"))
        return InstructionSet::avx2;
#endif
    return InstructionSet::baseline;
}

} // namespace trelvanix
