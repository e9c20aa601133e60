#include "filtering/iir_filter.h"

#include <algorithm>
#include <cstdint>
#include <new>
#include <vector>

#include "common/instruction_set.h"
#include "common/work_array.h"
#include "filtering/iir_kernel.h"

namespace trelvanix
{

ResultArray IirFilterToSignal(const double* signal, const double* b, const double* a, int signalLength,
                              int coefCount)
{
    ResultArray output = NewResultArray(signalLength);
    if (coefCount < 0)
        throw std::bad_array_new_length();

    RecurseKernel* const recurse =
        ForInstructionSet(BestInstructionSet(), baseline::Recurse, avx2::Recurse, avx512::Recurse);
    // The products with the zeros before the signal take place, because an infinite coefficient makes
    // not-a-number of them; so the first outputs run over copies of both sequences with the zeros in
    // front.
    const int delay = std::max(coefCount - 1, 0);
    const int filling = std::min(delay, signalLength);
    if (filling > 0) {
        auto x = NewWorkArray<double>(std::int64_t{delay} + filling);
        auto y = NewWorkArray<double>(std::int64_t{delay} + filling);
        std::copy_n(signal, filling, x.data() + delay);
        recurse(x.data() + delay, b, a, coefCount, filling, y.data() + delay);
        std::copy_n(y.data() + delay, filling, output.get());
    }
    recurse(signal + filling, b, a, coefCount, signalLength - filling, output.get() + filling);
    return output;
}

} // namespace trelvanix
