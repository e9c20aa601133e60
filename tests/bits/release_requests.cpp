#include "bits/subjects.h"

namespace trelvanix::bits
{
namespace
{

double* AnyResult(Generator& random)
{
    const double numbers[] = {1.0, 0.5, 0.25, 0.125};
    switch (random.Between(0, 4)) {
    case 0:
        return FFT(numbers, 0, random.Between(0, 2));
    case 1:
        return Roots(numbers, random.Between(0, 4));
    case 2:
        return FirFilterToSignal(numbers, numbers, random.Between(0, 4), 2);
    case 3:
        return CreateFirByWindow(random.Between(1, 9), 0, 2, 0.5, 0.5);
    default:
        return CreateFirByRemez(random.Between(-1, 9), 0, 0.25, 0.5);
    }
}

// Some results of several functions, empty ones too, and some nulls, released in an order of their own.
template <int (*release)(void*)>
void AnswerRelease(int /*index*/, Call& call)
{
    Generator& random = call.random;
    std::vector<double> isArray;
    std::vector<double*> arrays;
    for (int count = random.Between(1, 6); count > 0; --count) {
        double* array = random.OneIn(3) ? nullptr : AnyResult(random);
        arrays.insert(arrays.begin() + random.Between(0, static_cast<int>(arrays.size())), array);
    }
    for (const double* array : arrays)
        isArray.push_back(array != nullptr ? 1.0 : 0.0);
    call.Argument("p is a result", isArray);
    std::vector<double> answers;
    call.Run([&] {
        for (double* array : arrays)
            answers.push_back(release(array));
    });
    call.Result("answers", answers);
}

} // namespace

std::vector<Subject> ReleaseSubjects()
{
    return {{"ReleaseDoubleArray", 150, AnswerRelease<ReleaseDoubleArray>},
            {"ReleaseComplexDoubleArray", 150, AnswerRelease<ReleaseComplexDoubleArray>}};
}

} // namespace trelvanix::bits
