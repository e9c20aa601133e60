#include "bits/subjects.h"

namespace trelvanix::bits
{
namespace
{

// Ascending edges with some room between them, in the order that makes a lowpass, highpass, bandpass or
// bandstop: pass band first.
std::vector<double> EdgesOfKind(int kind, Generator& random)
{
    int ascending[4] = {};
    ascending[0] = random.Between(5, 300);
    for (int i = 1; i < 4; ++i)
        ascending[i] = ascending[i - 1] + random.Between(1, 230);
    const double f[] = {ascending[0] / 1000.0, ascending[1] / 1000.0, ascending[2] / 1000.0,
                        ascending[3] / 1000.0};
    switch (kind) {
    case 0:
        return {f[1], f[2]};
    case 1:
        return {f[2], f[1]};
    case 2:
        return {f[1], f[2], f[0], f[3]};
    default:
        return {f[0], f[3], f[1], f[2]};
    }
}

std::vector<double> HostileEdges(Generator& random)
{
    std::vector<double> edges;
    const int count = random.OneIn(3) ? random.Between(0, 9) : 2 * random.Between(1, 2);
    const double first = random.Edge();
    const bool allEqual = random.OneIn(8);
    for (int i = 0; i < count; ++i)
        edges.push_back(allEqual ? first : random.HostileEdge());
    return edges;
}

void AnswerMinimumOrder(int index, Call& call)
{
    Generator& random = call.random;
    const int designType = call.Argument("designType", random.OneIn(24) ? random.Code(4) : index % 5);
    const std::vector<double> edges = call.Argument(
        "edges", random.OneIn(6) ? HostileEdges(random) : EdgesOfKind(index / 5 % 4, random));
    int edgeCount = static_cast<int>(edges.size());
    if (edgeCount == 0)
        edgeCount = random.Between(-3, 0);
    call.Argument("edgeCount", edgeCount);
    const double passRipple = call.Argument("passRipple", random.HostileDecibels(3));
    const double stopAttenuation = call.Argument("stopAttenuation", random.HostileDecibels(100));
    std::vector<double> wn(edges.size() / 2, unwritten);
    int order = -77;
    call.Run([&] {
        FilterMinimumOrder(designType, edges.data(), edgeCount, passRipple, stopAttenuation, &order,
                           wn.data());
    });
    call.Result("order", order);
    call.Result("wn", wn);
    call.Result("edges", edges);
}

} // namespace

std::vector<Subject> OrderSubjects()
{
    return {{"FilterMinimumOrder", 2400, AnswerMinimumOrder}};
}

} // namespace trelvanix::bits
