#ifndef TRELVANIX_TESTS_SUPPORT_INSTRUCTION_SETS_H
#define TRELVANIX_TESTS_SUPPORT_INSTRUCTION_SETS_H

#include <vector>

#include "common/instruction_set.h"

namespace trelvanix::testing
{

// The sets of which this processor can run the kernels: tests of kernels go through all of them.
inline std::vector<InstructionSet> AvailableInstructionSets()
{
    std::vector<InstructionSet> sets;
    for (const InstructionSet set :
         {InstructionSet::baseline, InstructionSet::avx2, InstructionSet::avx512}) {
        if (set <= BestInstructionSet())
            sets.push_back(set);
    }
    return sets;
}

} // namespace trelvanix::testing

#endif
