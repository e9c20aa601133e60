#include "common/instruction_set.h"

#include <gtest/gtest.h>

namespace trelvanix
{
namespace
{

TEST(BestInstructionSet, IsTheBaselineWithoutFeatures)
{
    EXPECT_EQ(BestInstructionSet({false, false}), InstructionSet::baseline);
}

#if defined(TRELVANIX_X86_KERNELS)
TEST(BestInstructionSet, IsTheWidestThatTheFeaturesAllow)
{
    EXPECT_EQ(BestInstructionSet({true, false}), InstructionSet::avx2);
    EXPECT_EQ(BestInstructionSet({true, true}), InstructionSet::avx512);
    EXPECT_EQ(BestInstructionSet({false, true}), InstructionSet::avx512);
}

struct Identity {
    InstructionSet set;
};
} // namespace

template <>
Identity CompiledKernels<Identity, InstructionSet::baseline>()
{
    return {InstructionSet::baseline};
}
template <>
Identity CompiledKernels<Identity, InstructionSet::avx2>()
{
    return {InstructionSet::avx2};
}
template <>
Identity CompiledKernels<Identity, InstructionSet::avx512>()
{
    return {InstructionSet::avx512};
}

namespace
{
TEST(KernelsFor, FindsTheTwinOfEverySet)
{
    for (const InstructionSet set :
         {InstructionSet::baseline, InstructionSet::avx2, InstructionSet::avx512})
        EXPECT_EQ(KernelsFor<Identity>(set).set, set);
}
#endif

} // namespace
} // namespace trelvanix
