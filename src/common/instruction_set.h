#ifndef TRELVANIX_COMMON_INSTRUCTION_SET_H
#define TRELVANIX_COMMON_INSTRUCTION_SET_H

namespace trelvanix
{

// What the processor offers beyond the baseline of the platform. The kernels (files *_kernel.cpp) are
// compiled once for each, in a namespace of the same name; see cmake/kernels.cmake.
enum class InstructionSet { baseline, avx2, avx512 };

// The best set that this processor and its operating system run. Asked anew by every call: it costs a
// few loads.
InstructionSet BestInstructionSet();

// The twin of a kernel that belongs to the set.
template <class Kernel>
Kernel* ForInstructionSet(InstructionSet set, Kernel* baseline, Kernel* avx2, Kernel* avx512)
{
    switch (set) {
    case InstructionSet::avx512:
        return avx512;
    case InstructionSet::avx2:
        return avx2;
    case InstructionSet::baseline:
        break;
    }
    return baseline;
}

} // namespace trelvanix

#endif
