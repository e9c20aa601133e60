// Filter designs: our side of the rows whose peers are in python_peers.py.
#include <array>
#include <functional>
#include <string>
#include <vector>

#include "families.h"
#include "rows.h"

namespace trelvanix::bench
{
namespace
{

constexpr int lowpass = 0, bandpass = 2;
constexpr int digital = 0;

void AddWindows()
{
    constexpr int hamming = 2, kaiser = 5;
    for (const int order : {100, 1000}) {
        for (const auto& [name, window] :
             {std::pair{"Hamming", hamming}, std::pair{"Kaiser", kaiser}}) {
            AddRow("Window design", std::string(name) + ", order " + std::to_string(order), ownSide,
                   [order, window] {
                       return Subject{.call = [order, window] {
                           LibraryArray(CreateFirByWindow(order, lowpass, window, 0.3, 0.5));
                       }};
                   });
        }
    }
}

// Two series of lowpass filters: one transition for all orders, and one that narrows with the order so
// that the ripple stays at about 60 dB (by the order estimate of Herrmann, Rabiner & Chan 1973, 5.8 over
// the order) and no order is higher than it needs to be.
void AddEquiripple()
{
    for (const int order : {20, 50, 100, 200, 500, 1000}) {
        for (const auto& [name, width] :
             {std::pair{"60 dB", 5.8 / order}, std::pair{"0.4 to 0.5", 0.1}}) {
            AddRow("Equiripple design", std::string(name) + ", order " + std::to_string(order), ownSide,
                   [order, width] {
                       return Subject{.call = [order, width] {
                           LibraryArray(CreateFirByRemez(order, lowpass, 0.4, 0.4 + width));
                       }};
                   });
        }
    }
}

using IirDesign = std::function<void(int order, int type, double* wn, double* a, double* b)>;

void AddIirDesign(const std::string& name, const std::array<int, 2>& orders,
                  const std::array<double, 2>& edges, const IirDesign& design)
{
    for (const auto& [typeName, type] :
         {std::pair{"lowpass", lowpass}, std::pair{"bandpass", bandpass}}) {
        for (const int order : orders) {
            AddRow("IIR design", name + " " + typeName + ", order " + std::to_string(order), ownSide,
                   [=] {
                       const std::vector<double> coefficients(static_cast<std::size_t>(2 * order) + 1);
                       return Subject{.call = [=, a = coefficients, b = coefficients]() mutable {
                           std::array<double, 2> wn = edges; // the band types overwrite it
                           if (type == lowpass)
                               wn[0] = edges[1];
                           design(order, type, wn.data(), a.data(), b.data());
                       }};
                   });
        }
    }
}

void AddIirDesigns()
{
    const std::array<double, 2> edges = {0.2, 0.5}, analogEdges = {0.5, 2.0};
    AddIirDesign("Butterworth", {4, 8}, edges,
                 [](int order, int type, double* wn, double* a, double* b) {
                     Butterworth(order, wn, static_cast<unsigned int>(type), digital, a, b);
                 });
    AddIirDesign("Chebyshev I", {4, 8}, edges,
                 [](int order, int type, double* wn, double* a, double* b) {
                     Chebyshv1(order, 1.0, wn, static_cast<unsigned int>(type), digital, a, b);
                 });
    AddIirDesign("Chebyshev II", {4, 8}, edges,
                 [](int order, int type, double* wn, double* a, double* b) {
                     Chebyshv2(order, 40.0, wn, static_cast<unsigned int>(type), digital, a, b);
                 });
    AddIirDesign("Elliptic", {4, 8}, edges, [](int order, int type, double* wn, double* a, double* b) {
        Elliptic(order, 1.0, 40.0, wn, static_cast<unsigned int>(type), digital, a, b);
    });
    // Order 4 of the library does not hold a Bessel filter.
    AddIirDesign(
        "Bessel", {5, 8}, analogEdges,
        [](int order, int type, double* wn, double* a, double* b) { Bessel(order, wn, type, a, b); });
}

} // namespace

void AddDesigns()
{
    AddWindows();
    AddEquiripple();
    AddIirDesigns();
}

} // namespace trelvanix::bench
