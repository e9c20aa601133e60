// Runs the equiripple designs of all four types over orders 1 to 200 and realistic edges and prints, as
// Markdown tables, how many converge, how many end at the limit of 250 sweeps, and what comes out then:
// the largest error in the bands beside the smallest one that any design of the family reaches up to
// that order. Takes some ten seconds. scripts/measure.sh remez_convergence builds it and writes
// docs/measured/remez_convergence.md.
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <string>
#include <vector>

#include "classic/band_edges.h"
#include "fir/remez_exchange.h"
#include "fir/remez_grid.h"

namespace
{

constexpr int highestOrder = 200;
constexpr double pi = 3.141592653589793;

struct Family {
    std::string name;
    std::vector<double> edges, amplitudes; // two per band
};

Family OneTransition(const char* name, double f1, double f2, bool lowPass)
{
    const double passes = lowPass ? 1.0 : 0.0;
    char title[64];
    std::snprintf(title, sizeof title, "%s %.2f .. %.2f", name, f1, f2);
    return {title, {0.0, f1, f2, 1.0}, {passes, passes, 1.0 - passes, 1.0 - passes}};
}

Family TwoEdges(const char* name, double f1, double f2, bool bandPass)
{
    const trelvanix::Breakpoints b = trelvanix::BandEdgesToBreakpoints(
        bandPass ? trelvanix::FilterType::BandPass : trelvanix::FilterType::BandStop, f1, f2);
    char title[64];
    std::snprintf(title, sizeof title, "%s %.2f, %.2f, touching bands", name, f1, f2);
    return {title, b.frequencies, b.amplitudes};
}

Family TwoTransitions(const char* name, double f1, double f2, double f3, double f4)
{
    char title[64];
    std::snprintf(title, sizeof title, "%s %.2f .. %.2f, %.2f .. %.2f", name, f1, f2, f3, f4);
    return {title, {0.0, f1, f2, f3, f4, 1.0}, {0.0, 0.0, 1.0, 1.0, 0.0, 0.0}};
}

struct Outcome {
    int order, iterations;
    bool converged;
    double error; // largest one on a grid of five points per tap; not-a-number if a tap is
};

double LargestError(const Family& family, const std::vector<double>& half, int order)
{
    const double* h = half.data();
    double largest = 0.0;
    for (std::size_t k = 0; k < family.edges.size(); k += 2) {
        const double width = family.edges[k + 1] - family.edges[k];
        const int steps = static_cast<int>(width * 5 * (order + 1)) + 2;
        for (int i = 0; i <= steps; ++i) {
            const double f = family.edges[k] + width * i / steps;
            double amplitude = 0.0;
            for (int n = 0; n < static_cast<int>(half.size()); ++n) {
                const double t = n - order / 2.0;
                amplitude += (t == 0.0 ? 1.0 : 2.0) * h[n] * std::cos(pi * f * t);
            }
            const double error = std::abs(amplitude - family.amplitudes[k]);
            if (!(error <= largest))
                largest = error;
        }
    }
    return largest;
}

Outcome Design(const Family& family, int order)
{
    trelvanix::RemezProblem problem =
        trelvanix::DesignGrid(order, family.edges.data(), family.amplitudes.data(),
                              static_cast<int>(family.edges.size()), nullptr, 0);
    for (double& f : problem.grid)
        f *= 0.5;
    const trelvanix::RemezResult result =
        trelvanix::RemezExchange(order + 1, problem.grid.data(), problem.desired.data(),
                                 problem.weight.data(), static_cast<int>(problem.grid.size()));
    return {order, result.iterations, result.converged,
            LargestError(family, result.halfResponse, order)};
}

// One line of the table for the orders of one parity.
void Report(const Family& family, int parity)
{
    int converged = 0;
    int atLimit = 0;
    int notNumbers = 0;
    int poor = 0;
    int mostSweeps = 0;
    int firstPoor = 0;
    double best = 1e300;
    double bestBeforePoor = 0.0;
    double worst = 0.0;
    std::vector<int> limited;
    for (int order = parity == 0 ? 2 : 1; order <= highestOrder; order += 2) {
        const Outcome outcome = Design(family, order);
        const bool isNumber = std::isfinite(outcome.error);
        (outcome.converged ? converged : atLimit) += 1;
        if (outcome.converged)
            mostSweeps = std::max(mostSweeps, outcome.iterations);
        else
            limited.push_back(order);
        notNumbers += isNumber ? 0 : 1;
        // A longer filter of the same parity can do at least what a shorter one does.
        if (isNumber && outcome.error > 2.0 * best && order > 2) {
            ++poor;
            worst = std::max(worst, outcome.error / best);
            if (firstPoor == 0) {
                firstPoor = order;
                bestBeforePoor = best;
            }
        }
        if (isNumber)
            best = std::min(best, outcome.error);
    }
    std::printf(
        "| %s | %s | %d | %d | %s | %d | %d | ", family.name.c_str(), parity == 0 ? "even" : "odd",
        converged, mostSweeps,
        limited.empty()
            ? "0"
            : (std::to_string(atLimit) + ", from order " + std::to_string(limited.front())).c_str(),
        notNumbers, poor);
    if (poor > 0)
        std::printf("%d, after a best of %.1e; up to %.0e times it |\n", firstPoor, bestBeforePoor,
                    worst);
    else
        std::printf("best %.1e |\n", best);
}

} // namespace

int main()
{
    std::vector<Family> families;
    for (const auto& [f1, f2] :
         {std::pair{0.05, 0.1}, std::pair{0.2, 0.25}, std::pair{0.2, 0.3}, std::pair{0.4, 0.42},
          std::pair{0.4, 0.5}, std::pair{0.3, 0.5}, std::pair{0.7, 0.8}, std::pair{0.9, 0.95}}) {
        families.push_back(OneTransition("lowpass", f1, f2, true));
        families.push_back(OneTransition("highpass", f1, f2, false));
    }
    for (const double f : {0.1, 0.45, 0.8}) {
        families.push_back(OneTransition("lowpass", f, f, true));
        families.push_back(OneTransition("highpass", f, f, false));
    }
    for (const auto& [f1, f2] :
         {std::pair{0.05, 0.1}, std::pair{0.2, 0.4}, std::pair{0.3, 0.6}, std::pair{0.45, 0.55}}) {
        families.push_back(TwoEdges("bandpass", f1, f2, true));
        families.push_back(TwoEdges("bandstop", f1, f2, false));
    }
    families.push_back(TwoTransitions("bandpass", 0.1, 0.15, 0.3, 0.35));
    families.push_back(TwoTransitions("bandpass", 0.2, 0.3, 0.6, 0.7));
    families.push_back(TwoTransitions("bandpass", 0.2, 0.3, 0.6, 0.8));
    families.push_back(TwoTransitions("bandpass", 0.4, 0.45, 0.5, 0.55));

    std::puts("| edges | orders | converged | most sweeps | at the limit | not-a-number | "
              "worse than a shorter filter | first such order |");
    std::puts("|---|---|---:|---:|---:|---:|---:|---|");
    for (const Family& family : families) {
        Report(family, 0);
        Report(family, 1);
    }
}
