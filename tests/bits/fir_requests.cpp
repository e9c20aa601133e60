#include <limits>

#include "bits/subjects.h"

namespace trelvanix::bits
{
namespace
{

constexpr int filterTypes = 4;
constexpr int windowTypes = 15;

// Filter and window type run through every pair of codes, now and then one that means nothing comes in
// between.
int FilterTypeFor(int index, Generator& random)
{
    return random.OneIn(24) ? random.Code(filterTypes - 1) : index % filterTypes;
}

int WindowTypeFor(int index, Generator& random)
{
    return random.OneIn(24) ? random.Code(windowTypes - 1) : index / filterTypes % windowTypes;
}

// Orders up to usual, now and then up to largest, or one that is refused.
int FirOrder(int usual, int largest, Generator& random)
{
    if (random.OneIn(60))
        return std::numeric_limits<int>::max();
    return random.OneIn(10) ? random.Between(0, largest) : random.Count(usual);
}

struct Edges {
    double wc1, wc2;
};

// Mostly two edges of a sensible filter; then as they come, touching, or hostile.
Edges DrawEdges(Generator& random)
{
    const int kind = random.Between(0, 9);
    if (kind < 6) {
        const int first = random.Between(20, 800);
        const int second = first + random.Between(40, 180);
        return {first / 1000.0, second / 1000.0};
    }
    if (kind == 6)
        return {0.0, random.Edge()};
    if (kind == 7) {
        const double edge = random.Edge();
        return {edge, edge};
    }
    if (kind == 8)
        return {random.Edge(), random.Edge()};
    const double wc1 = random.HostileEdge();
    return {wc1, random.OneIn(4) ? random.Special() : random.HostileEdge()};
}

Edges Arguments(Call& call)
{
    const Edges edges = DrawEdges(call.random);
    return {call.Argument("wc1", edges.wc1), call.Argument("wc2", edges.wc2)};
}

template <double* (*design)(int, int, int, double, double)>
void AnswerWithWindow(int index, Call& call)
{
    Generator& random = call.random;
    const int order = call.Argument("order", FirOrder(80, 1500, random));
    const int filterType = call.Argument("filterType", FilterTypeFor(index, random));
    const int windowType = call.Argument("windowType", WindowTypeFor(index, random));
    const Edges edges = Arguments(call);
    call.RunForArray([&] { return design(order, filterType, windowType, edges.wc1, edges.wc2); },
                     [&] { return order + 1; });
}

void AnswerRemez(int index, Call& call)
{
    Generator& random = call.random;
    const int order = call.Argument("order", FirOrder(30, 90, random));
    const int filterType = call.Argument("filterType", FilterTypeFor(index, random));
    const Edges edges = Arguments(call);
    call.RunForArray([&] { return CreateFirByRemez(order, filterType, edges.wc1, edges.wc2); },
                     [&] { return order + 1; });
}

// Two transition bands in ascending order, each at least 0.06 wide: with the deviations below that keeps
// the order under some 200.
std::vector<double> TransitionEdges(Generator& random)
{
    int edges[4] = {};
    edges[0] = random.Between(20, 380);
    edges[1] = edges[0] + random.Between(60, 150);
    edges[2] = edges[1] + random.Between(20, 120);
    edges[3] = edges[2] + (random.OneIn(2) ? edges[1] - edges[0] : random.Between(60, 150));
    std::vector<double> f;
    for (const int edge : edges)
        f.push_back(edge / 1000.0);
    return f;
}

// Spoils some of the edges, with distances so large or so small that no long design comes of it.
void Spoil(std::vector<double>& f, Generator& random)
{
    constexpr double limit = std::numeric_limits<double>::infinity();
    constexpr double strange[] = {limit, -limit, std::numeric_limits<double>::quiet_NaN(),
                                  1e300, -1e12,  5.0};
    switch (random.Between(0, 3)) {
    case 0:
        f[1] = f[0];
        break;
    case 1:
        f[0] = 1e-300;
        f[1] = 3e-300;
        break;
    case 2:
        std::swap(f[0], f[1]);
        break;
    default:
        f[static_cast<std::size_t>(random.Between(0, 3))] = random.OneOf(strange);
    }
}

// Between 0.0001 and 0.3, or so extreme that the order formula has no finite value.
double Deviation(Generator& random)
{
    constexpr double limit = std::numeric_limits<double>::infinity();
    constexpr double strange[] = {
        0.0, -0.0, -0.01, 1.0, 3.0, std::numeric_limits<double>::quiet_NaN(), limit, -limit, -1.0};
    if (random.OneIn(24))
        return random.OneOf(strange);
    return random.OneIn(2) ? random.Between(1, 300) / 1000.0 : random.Between(1, 50) / 10000.0;
}

void AnswerRemezord(int index, Call& call)
{
    Generator& random = call.random;
    const int filterType = call.Argument("filterType", FilterTypeFor(index, random));
    std::vector<double> f = TransitionEdges(random);
    if (random.OneIn(12))
        Spoil(f, random);
    f = call.Argument("f1..f4", f);
    const int ndevThatSuits = filterType < 2 ? 2 : 3;
    const int ndev = call.Argument("ndev", random.OneIn(16) ? random.Code(4) : ndevThatSuits);
    std::vector<double> dev;
    for (int i = 0; i < 4; ++i)
        dev.push_back(Deviation(random));
    dev = call.Argument("dev", dev);
    int order = -77;
    call.RunForArray(
        [&] {
            return CreateFirByRemezord(filterType, f[0], f[1], f[2], f[3], dev.data(), ndev, &order);
        },
        [&] { return order + 1; });
    call.Result("dev", dev);
    call.Result("order", order);
}

} // namespace

std::vector<Subject> FirSubjects()
{
    return {{"CreateFirByWindow", 2400, AnswerWithWindow<CreateFirByWindow>},
            {"CreateFirByFS", 2000, AnswerWithWindow<CreateFirByFS>},
            {"CreateFirByRemez", 1400, AnswerRemez},
            {"CreateFirByRemezord", 1200, AnswerRemezord}};
}

} // namespace trelvanix::bits
