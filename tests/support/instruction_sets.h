#ifndef TRELVANIX_TESTS_SUPPORT_INSTRUCTION_SETS_H
#define TRELVANIX_TESTS_SUPPORT_INSTRUCTION_SETS_H

#include <vector>

#include "common/instruction_set.h"

namespace trelvanix::testing
{

// The sets that the kernels are compiled for, in rising order.
inline std::vector<InstructionSet> AllInstructionSets()
{
    return
    {
        InstructionSet::baseline,
#if defined(TRELVANIX_X86_KERNELS)
            InstructionSet::avx2, InstructionSet::avx512,
#endif
    };
}

// Those of which this processor can run the kernels: tests of kernels go through all of them.
inline std::vector<InstructionSet> AvailableInstructionSets()
{
    std::vector<InstructionSet> sets = AllInstructionSets();
    std::erase_if(sets, [](InstructionSet set) { return set > BestInstructionSet(); });
    return sets;
}

inline const char* NameOf(InstructionSet set)
{
    constexpr const char* names[] = {"baseline", "avx2", "avx512"};
    return names[static_cast<int>(set)];
}

} // namespace trelvanix::testing

#endif
