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

std::string Titled(const std::string& name, int order)
{
    return name + ", order " + std::to_string(order);
}

void AddWindow(const std::string& name, int window)
{
    for (const int order : {100, 1000}) {
        AddRow("Window design", Titled(name, order), ownSide, [=] {
            return Subject{[=] { LibraryArray(CreateFirByWindow(order, lowpass, window, 0.3, 0.5)); }};
        });
    }
}

void AddEquiripple(const std::string& name, int order, double transition)
{
    AddRow("Equiripple design", Titled(name, order), ownSide, [=] {
        return Subject{[=] { LibraryArray(CreateFirByRemez(order, lowpass, 0.4, 0.4 + transition)); }};
    });
}

// Two series of lowpass filters: one transition for all orders, and one that narrows with the order so
// that the ripple stays at about 60 dB (by the order estimate of Herrmann, Rabiner & Chan 1973, 5.8 over
// the order) and no order is higher than it needs to be.
void AddEquiripples()
{
    for (const int order : {20, 50, 100, 200, 500, 1000}) {
        AddEquiripple("60 dB", order, 5.8 / order);
        AddEquiripple("0.4 to 0.5", order, 0.1);
    }
}

using IirDesign = std::function<void(int order, int type, double* wn, double* a, double* b)>;

void AddIirDesign(const std::string& name, int type, const std::array<int, 2>& orders,
                  const std::array<double, 2>& edges, const IirDesign& design)
{
    for (const int order : orders) {
        AddRow("IIR design", Titled(name, order), ownSide, [=] {
            const std::vector<double> coefficients(static_cast<std::size_t>(2 * order) + 1);
            return Subject{[=, a = coefficients, b = coefficients]() mutable {
                std::array<double, 2> wn = edges; // the band types overwrite it
                design(order, type, wn.data(), a.data(), b.data());
            }};
        });
    }
}

// A lowpass has its edge where the bandpass has its upper one.
void AddIirDesign(const std::string& name, const std::array<int, 2>& orders, double lower, double upper,
                  const IirDesign& design)
{
    AddIirDesign(name + " lowpass", lowpass, orders, {upper, 0.0}, design);
    AddIirDesign(name + " bandpass", bandpass, orders, {lower, upper}, design);
}

void AddIirDesigns()
{
    AddIirDesign("Butterworth", {4, 8}, 0.2, 0.5,
                 [](int order, int type, double* wn, double* a, double* b) {
                     Butterworth(order, wn, static_cast<unsigned int>(type), digital, a, b);
                 });
    AddIirDesign("Chebyshev I", {4, 8}, 0.2, 0.5,
                 [](int order, int type, double* wn, double* a, double* b) {
                     Chebyshv1(order, 1.0, wn, static_cast<unsigned int>(type), digital, a, b);
                 });
    AddIirDesign("Chebyshev II", {4, 8}, 0.2, 0.5,
                 [](int order, int type, double* wn, double* a, double* b) {
                     Chebyshv2(order, 40.0, wn, static_cast<unsigned int>(type), digital, a, b);
                 });
    AddIirDesign("Elliptic", {4, 8}, 0.2, 0.5,
                 [](int order, int type, double* wn, double* a, double* b) {
                     Elliptic(order, 1.0, 40.0, wn, static_cast<unsigned int>(type), digital, a, b);
                 });
    // Order 4 of the library does not hold a Bessel filter.
    AddIirDesign("Bessel", {5, 8}, 0.5, 2.0, [](int order, int type, double* wn, double* a, double* b) {
        Bessel(order, wn, type, a, b);
    });
}

} // namespace

void AddDesigns()
{
    AddWindow("Hamming", 2);
    AddWindow("Kaiser", 5);
    AddEquiripples();
    AddIirDesigns();
}

} // namespace trelvanix::bench
