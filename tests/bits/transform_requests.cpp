#include <cstddef>
#include <limits>

#include "bits/subjects.h"

namespace trelvanix::bits
{
namespace
{

// Mostly powers of two up to 2^12, the short ones more often; every fourth any length; a few that are
// refused.
int TransformLength(int index, Generator& random)
{
    if (index % 4 == 3)
        return random.Count(random.OneIn(8) ? 3000 : 300);
    return 1 << (index % 16 == 0 ? random.Between(10, 12) : random.Between(0, 9));
}

template <double* (*transform)(const double*, int, int)>
void AnswerTransform(int index, Call& call)
{
    Generator& random = call.random;
    const int n = call.Argument("n", TransformLength(index, random));
    const std::vector<double> input = call.Argument("input", random.Numbers(n > 0 ? 2 * n : 0));
    const int ignored = call.Argument("ignored", random.Code(1));
    call.RunForArray([&] { return transform(input.data(), ignored, n); }, [&] { return 2 * n; });
    call.Result("input", input);
}

// Samples are fewer than the transform's length, as many, or more. A negative count means n samples.
int SampleCount(int n, Generator& random)
{
    switch (random.Between(0, 4)) {
    case 0:
        return n;
    case 1:
        return n > 0 ? random.Between(0, n) : 3;
    case 2:
        return random.OneIn(2) ? -1 : std::numeric_limits<int>::min();
    case 3:
        return 0;
    default:
        return random.Between(0, 400);
    }
}

void AnswerFFText(int index, Call& call)
{
    Generator& random = call.random;
    const int n = call.Argument("n", TransformLength(index, random));
    const int xCount = call.Argument("xCount", SampleCount(n, random));
    const auto outCount = static_cast<std::size_t>(n > 0 ? n : 0);
    std::vector<double> outReal(outCount, unwritten);
    std::vector<double> outImag(outCount, unwritten);
    const int readCount = xCount < 0 ? n : xCount;
    if (readCount == 0 || n == 0) {
        call.NullArgument("x");
        call.Run([&] { FFText(nullptr, xCount, n, outReal.data(), outImag.data()); });
    } else {
        const std::vector<double> x = call.Argument("x", random.Numbers(readCount > 0 ? readCount : 0));
        call.Run([&] { FFText(x.data(), xCount, n, outReal.data(), outImag.data()); });
        call.Result("x", x);
    }
    call.Result("outReal", outReal);
    call.Result("outImag", outImag);
}

} // namespace

std::vector<Subject> TransformSubjects()
{
    return {{"DFT", 800, AnswerTransform<DFT>},
            {"FFT", 800, AnswerTransform<FFT>},
            {"IFFT", 800, AnswerTransform<IFFT>},
            {"FFText", 800, AnswerFFText}};
}

} // namespace trelvanix::bits
