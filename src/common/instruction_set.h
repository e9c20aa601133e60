#ifndef TRELVANIX_COMMON_INSTRUCTION_SET_H
#define TRELVANIX_COMMON_INSTRUCTION_SET_H

namespace trelvanix
{

// What the kernels (files *_kernel.cpp) are compiled for, once for each; see cmake/kernels.cmake. Platforms
// other than x86 have their baseline alone.
enum class InstructionSet {
    baseline,
#if defined(TRELVANIX_X86_KERNELS)
    avx2,
    avx512,
#endif
};

// What a processor and its operating system run, as far as the choice depends on it.
struct ProcessorFeatures {
    bool avx2;
    bool avx512; // all of avx512f, dq, vl, bw
};

// The features of the processor that this runs on. Asked anew by every call: it costs a few loads.
ProcessorFeatures DetectFeatures();

// The best set for a processor.
InstructionSet BestInstructionSet(ProcessorFeatures features = DetectFeatures());

// The kernels of one subject, a record of pointers, as compiled for a set. Every kernel source defines the
// one of its own set, and nothing else that another file could see.
template <class Kernels, InstructionSet set>
Kernels CompiledKernels();

// The same for a set known at run time.
template <class Kernels>
Kernels KernelsFor(InstructionSet set)
{
    switch (set) {
#if defined(TRELVANIX_X86_KERNELS)
    case InstructionSet::avx512:
        return CompiledKernels<Kernels, InstructionSet::avx512>();
    case InstructionSet::avx2:
        return CompiledKernels<Kernels, InstructionSet::avx2>();
#endif
    case InstructionSet::baseline:
        break;
    }
    return CompiledKernels<Kernels, InstructionSet::baseline>();
}

} // namespace trelvanix

#endif
