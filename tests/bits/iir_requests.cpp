#include <limits>

#include "bits/subjects.h"

namespace trelvanix::bits
{
namespace
{

// What the five families have in common.
struct Request {
    int order;
    std::uint32_t filterType;
    int analog;
    std::vector<double> wn;
    std::vector<double> a, b;
    bool nullA, nullB;

    double* A()
    {
        return nullA ? nullptr : a.data();
    }

    double* B()
    {
        return nullB ? nullptr : b.data();
    }
};

bool IsBandType(std::uint32_t filterType)
{
    return filterType == 2 || filterType == 3;
}

// Mostly up to 12; then up to 24, seldom up to 45, or one that is refused.
int IirOrder(std::uint32_t filterType, Generator& random)
{
    if (random.OneIn(50))
        return random.OneIn(2)          ? std::numeric_limits<int>::max()
               : IsBandType(filterType) ? 23171
                                        : 46341;
    if (random.OneIn(60))
        return random.Between(25, 45);
    return random.OneIn(10) ? random.Between(13, 24) : random.Count(12);
}

std::vector<double> DigitalEdges(std::size_t count, Generator& random)
{
    std::vector<double> wn;
    if (random.OneIn(8)) {
        for (std::size_t i = 0; i < count; ++i)
            wn.push_back(random.HostileEdge());
        return wn;
    }
    wn.push_back(count == 1 ? random.Edge() : random.Between(10, 800) / 1000.0);
    if (count == 2)
        wn.push_back(wn[0] + random.Between(5, 190) / 1000.0);
    return wn;
}

// Radians a second, from small to large.
std::vector<double> AnalogEdges(std::size_t count, Generator& random)
{
    constexpr double units[] = {0.001, 0.1, 1.0, 100.0};
    const double unit = random.OneOf(units);
    std::vector<double> wn = DigitalEdges(count, random);
    for (double& edge : wn)
        edge *= 10.0 * unit;
    return wn;
}

Request DrawRequest(int index, bool bessel, Call& call)
{
    Generator& random = call.random;
    const int code = random.OneIn(24) ? random.Code(3) : index % 4;
    Request request = {};
    request.filterType = static_cast<std::uint32_t>(code);
    // Every other Bessel filter by turns, because each order has poles of its own.
    const int order = bessel && index % 8 < 4 ? index / 8 % 28 : IirOrder(request.filterType, random);
    request.order = call.Argument("order", order);
    const std::size_t edgeCount = IsBandType(request.filterType) ? 2 : 1;
    request.wn =
        call.Argument("wn", bessel ? AnalogEdges(edgeCount, random) : DigitalEdges(edgeCount, random));
    call.Argument("filterType", code);
    if (!bessel)
        request.analog = call.Argument("analog", random.OneIn(12) ? random.Code(1) : 0);

    const bool refused = request.order < 0 || request.order > 1000;
    const std::size_t coefficients =
        refused ? 3 : static_cast<std::size_t>(request.order) * edgeCount + 1;
    request.a.assign(coefficients, unwritten);
    request.b.assign(coefficients, unwritten);
    request.nullA = random.OneIn(24);
    request.nullB = random.OneIn(24);
    if (request.nullA)
        call.NullArgument("a");
    if (request.nullB)
        call.NullArgument("b");
    return request;
}

void RecordArrays(const Request& request, Call& call)
{
    call.Result("wn", request.wn);
    call.Result("a", request.a);
    call.Result("b", request.b);
}

void AnswerButterworth(int index, Call& call)
{
    Request r = DrawRequest(index, false, call);
    call.Run([&] { Butterworth(r.order, r.wn.data(), r.filterType, r.analog, r.A(), r.B()); });
    RecordArrays(r, call);
}

void AnswerChebyshv1(int index, Call& call)
{
    const double rp = call.Argument("rp", call.random.HostileDecibels(3));
    Request r = DrawRequest(index, false, call);
    call.Run([&] { Chebyshv1(r.order, rp, r.wn.data(), r.filterType, r.analog, r.A(), r.B()); });
    RecordArrays(r, call);
}

void AnswerChebyshv2(int index, Call& call)
{
    const double rs = call.Argument("rs", call.random.HostileDecibels(100));
    Request r = DrawRequest(index, false, call);
    call.Run([&] { Chebyshv2(r.order, rs, r.wn.data(), r.filterType, r.analog, r.A(), r.B()); });
    RecordArrays(r, call);
}

void AnswerBessel(int index, Call& call)
{
    Request r = DrawRequest(index, true, call);
    // As an int, which this function takes.
    const auto filterType = static_cast<int>(r.filterType);
    call.Run([&] { Bessel(r.order, r.wn.data(), filterType, r.A(), r.B()); });
    RecordArrays(r, call);
}

void AnswerElliptic(int index, Call& call)
{
    const double Rp = call.Argument("Rp", call.random.HostileDecibels(3));
    const double Rs = call.Argument("Rs", call.random.HostileDecibels(110));
    Request r = DrawRequest(index, false, call);
    call.Run([&] { Elliptic(r.order, Rp, Rs, r.wn.data(), r.filterType, r.analog, r.A(), r.B()); });
    RecordArrays(r, call);
}

} // namespace

std::vector<Subject> IirSubjects()
{
    return {{"Butterworth", 1600, AnswerButterworth},
            {"Chebyshv1", 1600, AnswerChebyshv1},
            {"Chebyshv2", 1600, AnswerChebyshv2},
            {"Bessel", 1400, AnswerBessel},
            {"Elliptic", 2000, AnswerElliptic}};
}

} // namespace trelvanix::bits
