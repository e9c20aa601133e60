#include "bits/subjects.h"

namespace trelvanix::bits
{
namespace
{

// What the three filter functions are asked with.
struct Request {
    int signalLength, coefCount;
    std::vector<double> signal, b, a;
};

Request DrawRequest(int index, bool withDenominator, Call& call)
{
    Generator& random = call.random;
    Request request;
    request.signalLength = call.Argument("signalLength", random.Count(random.OneIn(8) ? 1500 : 200));
    // Each count up to 40 by turns, where kernels have loops of their own, or many.
    request.coefCount = call.Argument(
        "coefCount", index % 2 == 0 ? index / 2 % 41 : random.Count(random.OneIn(4) ? 300 : 80));
    const int samples = request.signalLength > 0 ? request.signalLength : 0;
    const int coefficients = request.coefCount > 0 ? request.coefCount : 0;
    request.signal = call.Argument("signal", random.Numbers(samples));
    request.b = call.Argument("b", random.Numbers(coefficients));
    if (withDenominator) {
        std::vector<double> a = random.Numbers(coefficients);
        // Mostly small enough for the recursion to be stable; without that most signals would overflow.
        if (!random.OneIn(6)) {
            for (double& value : a)
                value /= coefficients;
        }
        request.a = call.Argument("a", std::move(a));
    } else {
        call.NullArgument("a");
    }
    return request;
}

void RecordInputs(const Request& request, Call& call)
{
    call.Result("signal", request.signal);
    call.Result("b", request.b);
    call.Result("a", request.a);
}

void AnswerFilter(int index, Call& call)
{
    const bool recursive = call.random.OneIn(2);
    const Request r = DrawRequest(index, recursive, call);
    // Not null, which an empty array's data may be: null asks for the other filter.
    const double nothing = 0.0;
    const double* a = r.a.empty() ? &nothing : r.a.data();
    call.RunForArray(
        [&] {
            return Filter(r.signal.data(), r.b.data(), recursive ? a : nullptr, r.signalLength,
                          r.coefCount);
        },
        [&] { return r.signalLength; });
    RecordInputs(r, call);
}

void AnswerFirFilter(int index, Call& call)
{
    const Request r = DrawRequest(index, false, call);
    call.RunForArray(
        [&] { return FirFilterToSignal(r.signal.data(), r.b.data(), r.signalLength, r.coefCount); },
        [&] { return r.signalLength; });
    RecordInputs(r, call);
}

void AnswerIirFilter(int index, Call& call)
{
    const Request r = DrawRequest(index, true, call);
    call.RunForArray(
        [&] {
            return IirFilterToSignal(r.signal.data(), r.b.data(), r.a.data(), r.signalLength,
                                     r.coefCount);
        },
        [&] { return r.signalLength; });
    RecordInputs(r, call);
}

} // namespace

std::vector<Subject> FilterSubjects()
{
    return {{"Filter", 900, AnswerFilter},
            {"FirFilterToSignal", 900, AnswerFirFilter},
            {"IirFilterToSignal", 900, AnswerIirFilter}};
}

} // namespace trelvanix::bits
